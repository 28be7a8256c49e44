#pragma once

#include <windef.h>

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
