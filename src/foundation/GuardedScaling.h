#pragma once

#include <windef.h>

#include <cstdint>
#include <limits>

/// Scales a whole number by multiplier / divisor, rounded to nearest with halves away from zero. The value
/// stays as it is when the product leaves the signed 32-bit range or the divisor is 0: a size that can't be
/// scaled is better kept than lost.
inline INT GuardedScale(INT value, UINT multiplier, UINT divisor)
{
    if (divisor == 0)
        return value;
    // In parentheses, for max and min may be macros of the platform.
    constexpr INT kLargest = (std::numeric_limits<INT>::max)();
    constexpr INT kSmallest = (std::numeric_limits<INT>::min)();
    const std::int64_t product = std::int64_t{value} * std::int64_t{multiplier};
    if (product > kLargest || product < kSmallest)
        return value;
    return MulDiv(value, static_cast<INT>(multiplier), static_cast<INT>(divisor));
}

/// The same for an unsigned value, whose product has to stay within the signed range too.
inline UINT GuardedScaleUnsigned(UINT value, UINT multiplier, UINT divisor)
{
    if (divisor == 0)
        return value;
    constexpr std::uint64_t kLargest = (std::numeric_limits<INT>::max)();
    if (std::uint64_t{value} * std::uint64_t{multiplier} > kLargest)
        return value;
    return static_cast<UINT>(
        MulDiv(static_cast<INT>(value), static_cast<INT>(multiplier), static_cast<INT>(divisor)));
}
