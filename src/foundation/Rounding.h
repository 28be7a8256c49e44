#pragma once

#include <windef.h>

/// Cuts the fraction off a length, whatever the value: the low 32 bits of the whole part, and 0 for values without a
/// 64-bit whole part (infinity after a division by a DPI of 0). A plain cast leaves those undefined.
inline UINT TruncateToUnsigned(float value)
{
    constexpr float kTwoTo63 = 9223372036854775808.0f;
    const bool hasWholePart = value > -kTwoTo63 && value < kTwoTo63;
    return hasWholePart ? static_cast<UINT>(static_cast<long long>(value)) : 0;
}
