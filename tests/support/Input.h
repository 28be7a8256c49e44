#pragma once

#include <windows.h>

// Real mouse and keyboard input by SendInput, at screen positions in pixels. Each function waits, handling
// messages, until the input has arrived. The target window must be visible.

void MoveMouse(POINT screen);
void PressLeftButton();
void ReleaseLeftButton();
void Click(POINT screen);

// Presses at `from`, moves to `to` in several steps as a hand would, and releases.
void Drag(POINT from, POINT to);

void PressKey(WORD virtualKey);

// A position in a window's client area as a position on the screen.
POINT OnScreen(HWND window, int x, int y);
