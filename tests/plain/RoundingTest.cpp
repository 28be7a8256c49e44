#include <foundation/Rounding.h>

#include <gtest/gtest.h>

#include <cmath>
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
