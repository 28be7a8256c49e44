#include <foundation/TitleStrip.h>

#include <gtest/gtest.h>

#include <random>

namespace
{
// A frame as it is at 96 DPI: a strip 30 high, three buttons of 36.
constexpr TitleStrip::FrameMetrics kFrame = {23, 7, 36};

bool Reachable(LONG width, LONG height)
{
    return TitleStrip::IsReachable({100, 200, 100 + width, 200 + height}, kFrame);
}
} // namespace

TEST(TitleStrip, TakesTheWindowsWidthAndTheCaptionWithItsFrame)
{
    const RECT strip = TitleStrip::Of({10, 20, 400, 300}, kFrame);
    EXPECT_EQ(strip.left, 10);
    EXPECT_EQ(strip.top, 20);
    EXPECT_EQ(strip.right, 400);
    EXPECT_EQ(strip.bottom, 50);
}

TEST(TitleStrip, NeedsTheWidthOfThreeCaptionButtons)
{
    EXPECT_TRUE(Reachable(108, 30));
    EXPECT_FALSE(Reachable(107, 30));
}

TEST(TitleStrip, NeedsSeventyPercentOfTheHeight)
{
    EXPECT_TRUE(Reachable(500, 21));
    EXPECT_FALSE(Reachable(500, 20));
}

TEST(TitleStrip, ThePercentageIsCutOff)
{
    constexpr TitleStrip::FrameMetrics kOddFrame = {19, 4, 18}; // 70 % of 23 is 16.1
    EXPECT_TRUE(TitleStrip::IsReachable({0, 0, 54, 16}, kOddFrame));
    EXPECT_FALSE(TitleStrip::IsReachable({0, 0, 54, 15}, kOddFrame));
}

TEST(TitleStrip, MetricsBeyondAllMonitorsAreNeverReached)
{
    constexpr TitleStrip::FrameMetrics kWideButtons = {23, 7, INT32_MAX};
    constexpr TitleStrip::FrameMetrics kHighCaption = {INT32_MAX - 7, 7, 36};
    EXPECT_FALSE(TitleStrip::IsReachable({0, 0, INT32_MAX, 30}, kWideButtons));
    EXPECT_FALSE(TitleStrip::IsReachable({0, 0, 108, 1503238551}, kHighCaption));
    EXPECT_TRUE(TitleStrip::IsReachable({0, 0, 108, 1503238552}, kHighCaption));
}

TEST(TitleStrip, TheCentreIsCutOffTowardsZero)
{
    EXPECT_EQ(TitleStrip::CentreOf({10, 20, 31, 51}).x, 20);
    EXPECT_EQ(TitleStrip::CentreOf({10, 20, 31, 51}).y, 35);
    EXPECT_EQ(TitleStrip::CentreOf({-10, -20, 1, -1}).x, -4);
    EXPECT_EQ(TitleStrip::CentreOf({-10, -20, 1, -1}).y, -10);
}

TEST(TitleStrip, AnyCoordinatesAreTakenWithoutUndefinedBehaviour)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<LONG> any(INT32_MIN, INT32_MAX);
    int reachable = 0;
    for (int round = 0; round < 100000; ++round)
    {
        const RECT rect = {any(random), any(random), any(random), any(random)};
        const RECT strip = TitleStrip::Of(rect, kFrame);
        ASSERT_EQ(strip.left, rect.left);
        const POINT centre = TitleStrip::CentreOf(rect);
        ASSERT_LE(centre.x, INT32_MAX / 2);
        reachable += TitleStrip::IsReachable(rect, kFrame) ? 1 : 0;
    }
    EXPECT_GT(reachable, 0);
}
