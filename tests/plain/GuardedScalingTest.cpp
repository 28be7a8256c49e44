#include <foundation/GuardedScaling.h>

#include <gtest/gtest.h>

#include <random>

namespace
{
constexpr INT kLargest = 2147483647;
constexpr INT kSmallest = -kLargest - 1;

// With 128 bits nothing overflows, and the nearest whole number is found by its remainder.
INT Model(INT value, UINT multiplier, UINT divisor)
{
    __extension__ using Wide = __int128;
    const Wide product = Wide{value} * multiplier;
    if (divisor == 0 || product > kLargest || product < kSmallest)
        return value;
    const Wide quotient = product / divisor;
    const Wide remainder = product % divisor;
    const Wide twice = (remainder < 0 ? -remainder : remainder) * 2;
    const Wide step = twice >= divisor ? (product < 0 ? -1 : 1) : 0;
    return static_cast<INT>(quotient + step);
}
} // namespace

TEST(GuardedScale, ScalesToTheNearest)
{
    EXPECT_EQ(GuardedScale(9, 144, 72), 18);
    EXPECT_EQ(GuardedScale(100, 120, 96), 125);
    EXPECT_EQ(GuardedScale(-11, 120, 96), -14);
    EXPECT_EQ(GuardedScale(0, 192, 96), 0);
}

TEST(GuardedScale, HalvesGoAwayFromZero)
{
    EXPECT_EQ(GuardedScale(5, 144, 96), 8);
    EXPECT_EQ(GuardedScale(-5, 144, 96), -8);
    EXPECT_EQ(GuardedScale(1, 144, 96), 2);
    EXPECT_EQ(GuardedScale(1, 48, 96), 1);
    EXPECT_EQ(GuardedScale(-1, 48, 96), -1);
    EXPECT_EQ(GuardedScale(1, 47, 96), 0);
}

TEST(GuardedScale, AProductAtTheLimitIsScaled)
{
    EXPECT_EQ(GuardedScale(kLargest, 1, 2), 1073741824);
    EXPECT_EQ(GuardedScale(kLargest / 2, 2, 2), kLargest / 2);
    EXPECT_EQ(GuardedScale(kSmallest + 1, 1, 2), -1073741824);
    EXPECT_EQ(GuardedScale(kSmallest / 2, 2, 4), -536870912);
}

TEST(GuardedScale, AProductBeyondTheLimitLeavesTheValue)
{
    EXPECT_EQ(GuardedScale(kLargest / 2 + 1, 2, 4), kLargest / 2 + 1);
    EXPECT_EQ(GuardedScale(kSmallest / 2 - 1, 2, 4), kSmallest / 2 - 1);
    EXPECT_EQ(GuardedScale(2000000000, 192, 96), 2000000000);
    EXPECT_EQ(GuardedScale(-2000000000, 192, 96), -2000000000);
    EXPECT_EQ(GuardedScale(kLargest, 0xFFFFFFFF, 96), kLargest);
    EXPECT_EQ(GuardedScale(kSmallest, 0xFFFFFFFF, 96), kSmallest);
}

TEST(GuardedScale, TheMultiplierCountsAsUnsigned)
{
    EXPECT_EQ(GuardedScale(1, 0x80000000, 96), 1);
    EXPECT_EQ(GuardedScale(-1, 0x80000001, 96), -1);
    EXPECT_EQ(GuardedScale(0, 0x80000000, 96), 0);
}

TEST(GuardedScale, ADivisorOfZeroLeavesTheValue)
{
    EXPECT_EQ(GuardedScale(12, 144, 0), 12);
    EXPECT_EQ(GuardedScale(-12, 0, 0), -12);
}

TEST(GuardedScale, RandomValuesAgreeWithTheModel)
{
    std::mt19937 random(96);
    std::uniform_int_distribution<INT> anyValue(-40000000, 40000000);
    std::uniform_int_distribution<UINT> anyDpi(0, 600);
    for (int round = 0; round < 100000; ++round)
    {
        const INT value = anyValue(random);
        const UINT nMultiplier = anyDpi(random);
        const UINT nDivisor = anyDpi(random);
        ASSERT_EQ(GuardedScale(value, nMultiplier, nDivisor), Model(value, nMultiplier, nDivisor))
            << value << " * " << nMultiplier << " / " << nDivisor;
    }
}
