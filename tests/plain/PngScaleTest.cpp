#include <png/PngScale.h>

#include <gtest/gtest.h>

namespace
{
UINT Rounded(UINT nLength, UINT nDpi, UINT nDrawnForDpi)
{
    return ScaledLength(nLength, RoundedScaleFactor(nDpi, nDrawnForDpi));
}

UINT Single(UINT nLength, UINT nDpi, UINT nDrawnForDpi)
{
    return ScaledLength(nLength, SingleScaleFactor(nDpi, nDrawnForDpi));
}
} // namespace

TEST(PngScale, SixteenPixelsFollowTheDpi)
{
    EXPECT_EQ(Rounded(16, 96, 96), 16U);
    EXPECT_EQ(Rounded(16, 120, 96), 20U);
    EXPECT_EQ(Rounded(16, 144, 96), 24U);
    EXPECT_EQ(Rounded(16, 72, 96), 12U);
    EXPECT_EQ(Single(16, 96, 96), 16U);
    EXPECT_EQ(Single(16, 120, 96), 20U);
    EXPECT_EQ(Single(16, 144, 96), 24U);
    EXPECT_EQ(Single(16, 72, 96), 12U);
}

TEST(PngScale, FractionsAreCutOff)
{
    EXPECT_EQ(Rounded(15, 120, 96), 18U);
    EXPECT_EQ(Single(15, 120, 96), 18U);
    EXPECT_EQ(Rounded(1, 48, 96), 0U);
    EXPECT_EQ(Single(1, 48, 96), 0U);
}

TEST(PngScale, APictureDrawnForNoDpiHasNoSize)
{
    EXPECT_EQ(Rounded(16, 96, 0), 0U);
    EXPECT_EQ(Rounded(16, 0, 0), 0U);
    EXPECT_EQ(Rounded(0, 96, 0), 0U);
}

// Both DPIs have more digits than single precision holds: rounding each before the division gives another
// quotient.
TEST(PngScale, TheTwoQuotientsDiffer)
{
    EXPECT_EQ(RoundedScaleFactor(16777217, 16777219), static_cast<float>(16777217.0 / 16777219.0));
    EXPECT_EQ(SingleScaleFactor(16777217, 16777219), 16777216.0f / 16777220.0f);
    EXPECT_NE(RoundedScaleFactor(16777217, 16777219), SingleScaleFactor(16777217, 16777219));
}

// The product is single precision: 16777217 pixels can't be told from 16777216.
TEST(PngScale, TheLengthIsMultipliedInSinglePrecision)
{
    EXPECT_EQ(ScaledLength(16777217, 1.0f), 16777216U);
    EXPECT_EQ(ScaledLength(10, 0.1f), 1U);
}
