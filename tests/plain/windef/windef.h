#pragma once

// The value types of the platform's <windef.h>, in their sizes on 64-bit Windows, and the one platform
// function that the library's arithmetic calls, so that it compiles natively.

#include <cstdint>

using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;

struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct POINT
{
    LONG x;
    LONG y;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

/// As the platform documents it: rounded to nearest with halves away from zero, -1 for a divisor of 0 or a
/// result out of range.
inline INT MulDiv(INT number, INT numerator, INT denominator)
{
    if (denominator == 0)
        return -1;
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t magnitude = product < 0 ? -product : product;
    const std::int64_t positiveDivisor = divisor < 0 ? -divisor : divisor;
    const std::int64_t rounded = (magnitude + positiveDivisor / 2) / positiveDivisor;
    const std::int64_t result = (product < 0) != (divisor < 0) ? -rounded : rounded;
    return result < INT32_MIN || result > INT32_MAX ? -1 : static_cast<INT>(result);
}
