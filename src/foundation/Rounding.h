#pragma once

#include <windef.h>

#include <cmath>
#include <limits>

/// How the library turns scaled values into whole pixels. Values out of range come out as the processor
/// converts them; a plain cast leaves them undefined, and compilers fold both the cast and its intrinsic to
/// other values.

/// Cuts the fraction off a length: the low 32 bits of the whole part, and 0 for values without a 64-bit whole
/// part, such as infinity after a division by a DPI of 0.
inline UINT TruncateToUnsigned(float value)
{
    constexpr float kTwoTo63 = 9223372036854775808.0f;
    const bool hasWholePart = value > -kTwoTo63 && value < kTwoTo63;
    return hasWholePart ? static_cast<UINT>(static_cast<long long>(value)) : 0;
}

/// Cuts the fraction off a coordinate; the smallest 32-bit number for values out of range.
inline INT TruncateToSigned(float value)
{
    constexpr float kTwoTo31 = 2147483648.0f;
    const bool fits = value >= -kTwoTo31 && value < kTwoTo31;
    return fits ? static_cast<INT>(value) : (std::numeric_limits<INT>::min)();
}

/// Rounds to the nearest whole number, halves away from zero; the smallest 32-bit number for values out of
/// range. Adding the largest number below a half, instead of a half, keeps that number itself from being
/// rounded up.
template<class Float>
INT RoundHalfAway(Float value)
{
    constexpr Float kTwoTo31 = 2147483648.0f;
    constexpr Float kBelowHalf = (1 - std::numeric_limits<Float>::epsilon() / 2) / 2;
    const Float shifted = value + std::copysign(kBelowHalf, value);
    const bool fits = shifted >= -kTwoTo31 && shifted < kTwoTo31;
    return fits ? static_cast<INT>(shifted) : (std::numeric_limits<INT>::min)();
}
