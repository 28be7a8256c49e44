#include "support/Input.h"

#include "support/TestWindow.h"

#include <stdexcept>

namespace
{
constexpr DWORD kTimeToArrive = 50;
constexpr int kDragSteps = 4;
// SendInput counts the screen from 0 to 65535.
constexpr int kAbsoluteRange = 65536;

void Send(INPUT input)
{
    if (::SendInput(1, &input, sizeof input) != 1)
        throw std::runtime_error("no input can be sent");
    PumpMessages(kTimeToArrive);
}

void SendMouse(DWORD flags, LONG x = 0, LONG y = 0)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    Send(input);
}

void SendKey(WORD virtualKey, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = flags;
    Send(input);
}

// The middle of the pixel, so that no rounding lands on its neighbour.
LONG Absolute(LONG pixel, int screenMetric)
{
    const int length = ::GetSystemMetrics(screenMetric);
    return ::MulDiv(2 * pixel + 1, kAbsoluteRange, 2 * length);
}
}

void MoveMouse(POINT screen)
{
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, Absolute(screen.x, SM_CXSCREEN),
              Absolute(screen.y, SM_CYSCREEN));
}

void PressLeftButton()
{
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseLeftButton()
{
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void Click(POINT screen)
{
    MoveMouse(screen);
    PressLeftButton();
    ReleaseLeftButton();
}

void Drag(POINT from, POINT to)
{
    MoveMouse(from);
    PressLeftButton();
    for (int step = 1; step <= kDragSteps; ++step)
    {
        MoveMouse({from.x + ::MulDiv(to.x - from.x, step, kDragSteps),
                   from.y + ::MulDiv(to.y - from.y, step, kDragSteps)});
    }
    ReleaseLeftButton();
}

void PressKey(WORD virtualKey)
{
    SendKey(virtualKey, 0);
    SendKey(virtualKey, KEYEVENTF_KEYUP);
}

POINT OnScreen(HWND window, int x, int y)
{
    POINT point = {x, y};
    ::ClientToScreen(window, &point);
    return point;
}
