#pragma once

#include <afxwin.h>

/// Drags with the left button of the mouse, as a hand would, and lets the program follow. Moves the real
/// pointer.
/// @param from,to  pixels of the screen.
/// @return false when the system took no input, or the program was told to end meanwhile.
bool DragMouse(const CPoint& from, const CPoint& to);
