#include <scrollframe/ButtonBand.h>
#include <scrollframe/ViewPlaces.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>

static bool operator==(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

static std::ostream& operator<<(std::ostream& stream, const RECT& rect)
{
    return stream << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

TEST(ButtonBand, TheFirstButtonIsTheRightmost)
{
    ButtonBand band({0, 0, 400, 300}, 5);
    EXPECT_EQ(band.Add({75, 23}), (RECT{320, 272, 395, 295}));
    EXPECT_EQ(band.Add({75, 23}), (RECT{240, 272, 315, 295}));
    EXPECT_EQ(band.Height(), 33);
}

TEST(ButtonBand, TheHighestButtonMakesTheHeight)
{
    ButtonBand band({0, 0, 400, 300}, 5);
    EXPECT_EQ(band.Height(), 0);
    band.Add({10, 20});
    EXPECT_EQ(band.Add({30, 40}), (RECT{350, 255, 380, 295}));
    band.Add({10, 30});
    EXPECT_EQ(band.Height(), 50);
}

TEST(ButtonBand, AButtonWithoutASizeTakesItsGaps)
{
    ButtonBand band({0, 0, 400, 300}, 5);
    EXPECT_EQ(band.Add({0, 0}), (RECT{395, 295, 395, 295}));
    EXPECT_EQ(band.Add({75, 23}), (RECT{315, 272, 390, 295}));
    EXPECT_EQ(band.Height(), 33);
}

TEST(ButtonBand, AnyButtonsStandAGapApart)
{
    std::mt19937 random(83);
    std::uniform_int_distribution<LONG> anyLength(0, 500);
    for (int round = 0; round < 1000; ++round)
    {
        const LONG gap = anyLength(random) % 40;
        const RECT area = {0, 0, anyLength(random), anyLength(random)};
        ButtonBand band(area, gap);
        LONG rightNeighbour = area.right;
        LONG highest = 0;
        for (int i = 0; i < 12; ++i)
        {
            const SIZE button = {anyLength(random), anyLength(random)};
            const RECT place = band.Add(button);
            ASSERT_EQ(WrappingWidth(place), button.cx);
            ASSERT_EQ(WrappingHeight(place), button.cy);
            ASSERT_EQ(place.right + gap, rightNeighbour);
            ASSERT_EQ(place.bottom + gap, area.bottom);
            rightNeighbour = place.left;
            highest = std::max(highest, button.cy);
            ASSERT_EQ(band.Height(), highest + 2 * gap);
        }
    }
}

TEST(ButtonBand, AnAreaThatDoesNotStartAtZeroCountsByItsRightAndBottom)
{
    ButtonBand band({100, 200, 400, 300}, 7);
    EXPECT_EQ(band.Add({75, 23}), (RECT{318, 270, 393, 293}));
    EXPECT_EQ(band.Height(), 37);
}

TEST(ButtonBand, WithoutAGapTheButtonsTouch)
{
    ButtonBand band({0, 0, 400, 300}, 0);
    EXPECT_EQ(band.Add({75, 23}), (RECT{325, 277, 400, 300}));
    EXPECT_EQ(band.Add({75, 20}), (RECT{250, 280, 325, 300}));
    EXPECT_EQ(band.Height(), 23);
}

TEST(ButtonBand, ANegativeHeightNeedsNoBand)
{
    ButtonBand band({0, 0, 400, 300}, 5);
    band.Add({10, -20});
    EXPECT_EQ(band.Height(), 0);
    band.Add({10, -10}); // just none
    EXPECT_EQ(band.Height(), 0);
    band.Add({10, -9});
    EXPECT_EQ(band.Height(), 1);
}

TEST(ButtonBand, CoordinatesWrapAround)
{
    ButtonBand band({0, 0, -2147483647, 5}, 10);
    EXPECT_EQ(band.Add({2147483647, 2147483647}), (RECT{-8, 2147483644, 2147483647 - 8, -5}));
    EXPECT_EQ(band.Height(), 0); // wrapped below 0
}

TEST(ViewPlaces, TheBarsLieAlongTheContent)
{
    const ViewPlaces places = PlacesIn({400, 300}, 10, 20, 33);
    EXPECT_EQ(places.content, (RECT{10, 10, 380, 247}));
    EXPECT_EQ(places.horizontalBar, (RECT{10, 247, 380, 267}));
    EXPECT_EQ(places.verticalBar, (RECT{380, 10, 400, 247}));
}

TEST(ViewPlaces, WithoutABandTheHorizontalBarLiesAtTheBottom)
{
    EXPECT_EQ(PlacesIn({400, 300}, 15, 30, 0).horizontalBar, (RECT{15, 270, 370, 300}));
}

TEST(ViewPlaces, AViewThatIsTooSmallLeavesLessThanNothing)
{
    EXPECT_EQ(PlacesIn({0, 0}, 10, 20, 33).content, (RECT{10, 10, -20, -53}));
}

TEST(ViewPlaces, EveryPixelOfTheBarsIsKeptOutOfTheContent)
{
    const ViewPlaces places = PlacesIn({401, 299}, 11, 21, 34);
    EXPECT_EQ(places.content, (RECT{11, 11, 380, 244}));
    EXPECT_EQ(places.horizontalBar, (RECT{11, 244, 380, 265}));
    EXPECT_EQ(places.verticalBar, (RECT{380, 11, 401, 244}));
}

TEST(ViewPlaces, WithoutMarginAndBarsTheContentIsAllAboveTheBand)
{
    const ViewPlaces places = PlacesIn({400, 300}, 0, 0, 33);
    EXPECT_EQ(places.content, (RECT{0, 0, 400, 267}));
    EXPECT_EQ(places.horizontalBar, (RECT{0, 267, 400, 267}));
    EXPECT_EQ(places.verticalBar, (RECT{400, 0, 400, 267}));
}

TEST(ViewPlaces, CoordinatesWrapAround)
{
    const ViewPlaces places = PlacesIn({-2147483647, -2147483647}, 10, 20, 33);
    EXPECT_EQ(places.content, (RECT{10, 10, 2147483629, 2147483596}));
    EXPECT_EQ(places.horizontalBar, (RECT{10, 2147483596, 2147483629, 2147483616}));
    EXPECT_EQ(places.verticalBar, (RECT{2147483629, 10, -2147483647, 2147483596}));
}
