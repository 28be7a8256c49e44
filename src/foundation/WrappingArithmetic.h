#pragma once

#include <windef.h>

/// Sums of coordinates wrap around like the platform's own 32-bit rectangles, without undefined behaviour.
inline LONG WrappingAdd(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<ULONG>(a) + static_cast<ULONG>(b));
}

inline LONG WrappingSubtract(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<ULONG>(a) - static_cast<ULONG>(b));
}

inline LONG WrappingWidth(const RECT& rect)
{
    return WrappingSubtract(rect.right, rect.left);
}

inline LONG WrappingHeight(const RECT& rect)
{
    return WrappingSubtract(rect.bottom, rect.top);
}
