#include "Mouse.h"

#include "MessagePump.h"

namespace
{
constexpr int kDragSteps = 4;
constexpr int kAbsoluteRange = 65536; // SendInput counts the screen from 0 to 65535

bool SendMouse(DWORD nFlags, LONG x = 0, LONG y = 0)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = nFlags;
    return ::SendInput(1, &input, sizeof input) == 1 && RunUntilQuiet();
}

// @return the middle of the pixel, so that no rounding lands on its neighbour.
LONG Absolute(LONG nPixel, int nScreenMetric)
{
    return ::MulDiv(2 * nPixel + 1, kAbsoluteRange, 2 * ::GetSystemMetrics(nScreenMetric));
}

bool MoveMouse(const CPoint& point)
{
    return SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, Absolute(point.x, SM_CXSCREEN),
                     Absolute(point.y, SM_CYSCREEN));
}
} // namespace

bool DragMouse(const CPoint& from, const CPoint& to)
{
    bool bDone = MoveMouse(from) && SendMouse(MOUSEEVENTF_LEFTDOWN);
    for (int nStep = 1; bDone && nStep <= kDragSteps; ++nStep)
    {
        const CSize way(::MulDiv(to.x - from.x, nStep, kDragSteps),
                        ::MulDiv(to.y - from.y, nStep, kDragSteps));
        bDone = MoveMouse(from + way);
    }
    return SendMouse(MOUSEEVENTF_LEFTUP) && bDone; // the button is never left down
}
