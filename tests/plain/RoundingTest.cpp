#include <foundation/Rounding.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

TEST(TruncateToUnsigned, CutsTheFractionOff)
{
    EXPECT_EQ(TruncateToUnsigned(0.0f), 0U);
    EXPECT_EQ(TruncateToUnsigned(0.99f), 0U);
    EXPECT_EQ(TruncateToUnsigned(1.0f), 1U);
    EXPECT_EQ(TruncateToUnsigned(18.75f), 18U);
    EXPECT_EQ(TruncateToUnsigned(-0.5f), 0U);
}

TEST(TruncateToUnsigned, ReachesTheWholeUnsignedRange)
{
    EXPECT_EQ(TruncateToUnsigned(2147483648.0f), 2147483648U);
    EXPECT_EQ(TruncateToUnsigned(4294967040.0f), 4294967040U);
}

TEST(TruncateToUnsigned, KeepsTheLow32BitsBeyondIt)
{
    EXPECT_EQ(TruncateToUnsigned(4294967296.0f), 0U);
    EXPECT_EQ(TruncateToUnsigned(4294967296.0f + 512.0f), 512U);
    EXPECT_EQ(TruncateToUnsigned(-1.0f), 4294967295U);
    EXPECT_EQ(TruncateToUnsigned(std::nextafter(9223372036854775808.0f, 0.0f)), 0U);
}

TEST(TruncateToUnsigned, IsZeroWithoutAWholePartIn64Bits)
{
    EXPECT_EQ(TruncateToUnsigned(std::numeric_limits<float>::infinity()), 0U);
    EXPECT_EQ(TruncateToUnsigned(-std::numeric_limits<float>::infinity()), 0U);
    EXPECT_EQ(TruncateToUnsigned(std::numeric_limits<float>::quiet_NaN()), 0U);
    EXPECT_EQ(TruncateToUnsigned(9223372036854775808.0f), 0U);
    EXPECT_EQ(TruncateToUnsigned(-9223372036854775808.0f), 0U);
    EXPECT_EQ(TruncateToUnsigned(std::numeric_limits<float>::max()), 0U);
}

namespace
{
float FloatFromBits(std::uint32_t bits)
{
    float value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

std::uint32_t BitsOf(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

// The first float whose rounding differs from the C library's among those with bits in [first, end), either
// sign.
float FirstDifference(std::uint32_t first, std::uint32_t end, std::uint32_t step)
{
    for (std::uint32_t bits = first; bits < end; bits += step)
    {
        const float value = FloatFromBits(bits);
        if (RoundHalfAway(value) != static_cast<INT>(std::lround(value)) ||
            RoundHalfAway(-value) != static_cast<INT>(std::lround(-value)))
            return value;
    }
    return 0;
}
} // namespace

TEST(TruncateToSigned, CutsTheFractionOffTowardZero)
{
    EXPECT_EQ(TruncateToSigned(0.0f), 0);
    EXPECT_EQ(TruncateToSigned(1.99f), 1);
    EXPECT_EQ(TruncateToSigned(-0.99f), 0);
    EXPECT_EQ(TruncateToSigned(-1.99f), -1);
}

TEST(TruncateToSigned, ReachesTheWholeSignedRange)
{
    EXPECT_EQ(TruncateToSigned(2147483520.0f), 2147483520);
    EXPECT_EQ(TruncateToSigned(-2147483520.0f), -2147483520);
    EXPECT_EQ(TruncateToSigned(-2147483648.0f), std::numeric_limits<INT>::min());
}

TEST(TruncateToSigned, IsTheSmallestNumberOutOfRange)
{
    constexpr INT kSmallest = std::numeric_limits<INT>::min();
    EXPECT_EQ(TruncateToSigned(2147483648.0f), kSmallest);
    EXPECT_EQ(TruncateToSigned(-2147483904.0f), kSmallest);
    EXPECT_EQ(TruncateToSigned(1e30f), kSmallest);
    EXPECT_EQ(TruncateToSigned(std::numeric_limits<float>::infinity()), kSmallest);
    EXPECT_EQ(TruncateToSigned(-std::numeric_limits<float>::infinity()), kSmallest);
    EXPECT_EQ(TruncateToSigned(std::numeric_limits<float>::quiet_NaN()), kSmallest);
}

TEST(RoundHalfAway, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(RoundHalfAway(0.5f), 1);
    EXPECT_EQ(RoundHalfAway(-0.5f), -1);
    EXPECT_EQ(RoundHalfAway(1.5f), 2);
    EXPECT_EQ(RoundHalfAway(-2.5f), -3);
    EXPECT_EQ(RoundHalfAway(2.4999998f), 2);
    EXPECT_EQ(RoundHalfAway(-0.0f), 0);
}

TEST(RoundHalfAway, TheLargestNumberBelowAHalfIsZero)
{
    EXPECT_EQ(RoundHalfAway(0.49999997f), 0);
    EXPECT_EQ(RoundHalfAway(-0.49999997f), 0);
    EXPECT_EQ(RoundHalfAway(0.49999999999999994), 0);
    EXPECT_EQ(RoundHalfAway(-0.49999999999999994), 0);
}

// Below a quarter everything is 0 and from 2^23 on nothing has a fraction, so in between every float is
// tried.
TEST(RoundHalfAway, EveryFloatWithAFractionAgreesWithTheCLibrary)
{
    EXPECT_EQ(FirstDifference(BitsOf(0.25f), BitsOf(16777216.0f), 1), 0);
}

TEST(RoundHalfAway, TheOtherFloatsBelow31BitsAgreeWithTheCLibrary)
{
    EXPECT_EQ(FirstDifference(0, BitsOf(0.25f), 997), 0);
    EXPECT_EQ(FirstDifference(BitsOf(16777216.0f), BitsOf(2147483648.0f), 7), 0);
}

TEST(RoundHalfAway, DoublesAgreeWithTheCLibrary)
{
    for (int width = 0; width < 100000; ++width)
    {
        const double average = width / 52.0;
        ASSERT_EQ(RoundHalfAway(average), static_cast<INT>(std::lround(average))) << width;
    }
    EXPECT_EQ(RoundHalfAway(7.5), 8);
    EXPECT_EQ(RoundHalfAway(2147483647.0), 2147483647);
}

TEST(RoundHalfAway, OutOfRangeIsTheSmallestNumber)
{
    constexpr INT kSmallest = std::numeric_limits<INT>::min();
    EXPECT_EQ(RoundHalfAway(2147483648.0f), kSmallest);
    EXPECT_EQ(RoundHalfAway(3e9f), kSmallest);
    EXPECT_EQ(RoundHalfAway(-2147483648.0f), kSmallest);
    EXPECT_EQ(RoundHalfAway(-3e9f), kSmallest);
    EXPECT_EQ(RoundHalfAway(std::numeric_limits<float>::infinity()), kSmallest);
    EXPECT_EQ(RoundHalfAway(std::numeric_limits<float>::quiet_NaN()), kSmallest);
    EXPECT_EQ(RoundHalfAway(2147483520.0f), 2147483520);
}
