#include <foundation/RectScaling.h>
#include <scrollframe/ScrolledPlacement.h>

#include <gtest/gtest.h>

#include <cmath>
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

namespace
{
constexpr SIZE kDesignedClient96 = {400, 300};
constexpr float kScale = 1.5f;

Placement::Rule ButtonAtTheCorner()
{
    Placement::Rule rule = {};
    rule.base96 = {300, 250, 380, 280};
    rule.marginRight96 = 20;
    rule.marginBottom96 = 20;
    return rule;
}

RECT Place(const Placement::Rule& rule, SIZE client, SIZE designed96 = kDesignedClient96,
           float scale = kScale)
{
    return ScrolledPlacement::Place(
        ScaleEdges(rule.base96, scale), ScrolledPlacement::ExtentOf(client.cx, designed96.cx, scale),
        ScrolledPlacement::ExtentOf(client.cy, designed96.cy, scale), rule, scale);
}

// One axis at a time, in numbers that never overflow for the ranges tried.
struct ModelAxis
{
    long long client, designed, start, end, margin;
    bool stretches, follows;

    void Solve()
    {
        const bool isTooSmall = client < designed;
        const long long layout = isTooSmall ? designed : client;
        if (stretches && layout - margin >= end - start)
            end = layout - margin;
        if (!follows || isTooSmall)
            return;
        const long long length = end - start;
        end = layout - margin;
        start = end - length;
    }
};

RECT Model(const Placement::Rule& rule, SIZE client, SIZE designed96, float scale)
{
    const auto scaled = [scale](LONG length) -> long long
    { return std::lround(static_cast<float>(length) * scale); };
    ModelAxis x = {client.cx,
                   scaled(designed96.cx),
                   scaled(rule.base96.left),
                   scaled(rule.base96.right),
                   scaled(rule.marginRight96),
                   rule.stretchesWidth,
                   rule.followsRight};
    ModelAxis y = {client.cy,
                   scaled(designed96.cy),
                   scaled(rule.base96.top),
                   scaled(rule.base96.bottom),
                   scaled(rule.marginBottom96),
                   rule.stretchesHeight,
                   rule.followsBottom};
    x.Solve();
    y.Solve();
    return {static_cast<LONG>(x.start), static_cast<LONG>(y.start), static_cast<LONG>(x.end),
            static_cast<LONG>(y.end)};
}
} // namespace

TEST(ScrolledPlacement, AnAxisThatDoesNotFitHasTheDesignedLength)
{
    const ScrolledPlacement::Extent small = ScrolledPlacement::ExtentOf(599, 400, kScale);
    EXPECT_EQ(small.length, 600);
    EXPECT_FALSE(small.fits);
    const ScrolledPlacement::Extent exact = ScrolledPlacement::ExtentOf(600, 400, kScale);
    EXPECT_EQ(exact.length, 600);
    EXPECT_TRUE(exact.fits);
    EXPECT_EQ(ScrolledPlacement::ExtentOf(601, 400, kScale).length, 601);
}

TEST(ScrolledPlacement, AnAnchorHoldsOnlyAlongAnAxisThatFits)
{
    Placement::Rule rule = ButtonAtTheCorner();
    rule.followsRight = true;
    rule.followsBottom = true;
    EXPECT_EQ(Place(rule, {500, 600}), (RECT{450, 525, 570, 570}));
    EXPECT_EQ(Place(rule, {700, 200}), (RECT{550, 375, 670, 420}));
    EXPECT_EQ(Place(rule, {700, 600}), (RECT{550, 525, 670, 570}));
    EXPECT_EQ(Place(rule, {500, 200}), (RECT{450, 375, 570, 420}));
    rule.followsRight = false;
    EXPECT_EQ(Place(rule, {700, 600}), (RECT{450, 525, 570, 570}));
}

TEST(ScrolledPlacement, AStretchedControlEndsAtItsMargin)
{
    Placement::Rule rule = ButtonAtTheCorner();
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    EXPECT_EQ(Place(rule, {700, 600}), (RECT{450, 375, 670, 570}));
    EXPECT_EQ(Place(rule, {500, 200}), (RECT{450, 375, 570, 420}));
}

TEST(ScrolledPlacement, AStretchedControlKeepsItsEndWhereTheMarginLeavesLessThanItsLength)
{
    Placement::Rule rule = {};
    rule.base96 = {10, 10, 110, 110}; // 150 pixels each way
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    rule.marginRight96 = 301; // ends at 148.5, rounded
    rule.marginBottom96 = 200;
    EXPECT_EQ(Place(rule, {600, 450}), (RECT{15, 15, 165, 150}));
}

TEST(ScrolledPlacement, ADesignedLengthIsRoundedHalfAwayFromZero)
{
    EXPECT_EQ(ScrolledPlacement::ExtentOf(0, 301, kScale).length, 452); // 451.5
    EXPECT_TRUE(ScrolledPlacement::ExtentOf(452, 301, kScale).fits);
    EXPECT_FALSE(ScrolledPlacement::ExtentOf(451, 301, kScale).fits);
    EXPECT_EQ(ScrolledPlacement::ExtentOf(-10, -1, kScale).length, -2); // -1.5
    EXPECT_TRUE(ScrolledPlacement::ExtentOf(0, 0, kScale).fits);
}

TEST(ScrolledPlacement, TheEndAtTheMarginCountsFromTheControlsLengthOn)
{
    EXPECT_EQ(ScrolledPlacement::StretchedEnd(300, 100, 100), 100);
    EXPECT_EQ(ScrolledPlacement::StretchedEnd(300, 100, 99), 300);
    EXPECT_EQ(ScrolledPlacement::StretchedEnd(300, 100, 301), 301);
    EXPECT_EQ(ScrolledPlacement::StretchedEnd(300, -100, -100), -100);
}

TEST(ScrolledPlacement, AStretchedControlMayEndBeforeItStarts)
{
    Placement::Rule rule = {};
    rule.base96 = {200, 150, 300, 250};
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    rule.marginRight96 = 300;
    rule.marginBottom96 = 200;
    EXPECT_EQ(Place(rule, {400, 300}, {400, 300}, 1.0f), (RECT{200, 150, 100, 100}));
    rule.followsRight = true; // moved with its negative width
    EXPECT_EQ(Place(rule, {400, 300}, {400, 300}, 1.0f), (RECT{200, 150, 100, 100}));
}

TEST(ScrolledPlacement, LengthsWrapAround)
{
    Placement::Rule rule = {};
    rule.base96 = {0, 0, 10, 10};
    rule.marginRight96 = -2147483647 - 1;
    rule.stretchesWidth = true;
    EXPECT_EQ(Place(rule, {400, 300}, {400, 300}, 1.0f), (RECT{0, 0, 10, 10})); // wrapped below 10
    rule.followsRight = true;
    rule.stretchesWidth = false;
    EXPECT_EQ(Place(rule, {400, 300}, {400, 300}, 1.0f),
              (RECT{-2147483647 - 1 + 390, 0, -2147483647 - 1 + 400, 10}));
}

TEST(ScrolledPlacement, RandomRulesAgreeWithTheModel)
{
    std::mt19937 random(82);
    std::uniform_int_distribution<LONG> anyEdge(-3000, 3000);
    std::uniform_int_distribution<LONG> anyLength(0, 5000);
    std::uniform_int_distribution<int> anyDpi(96, 576);
    std::bernoulli_distribution coin;
    for (int round = 0; round < 100000; ++round)
    {
        Placement::Rule rule = {};
        rule.base96 = {anyEdge(random), anyEdge(random), anyEdge(random), anyEdge(random)};
        rule.marginRight96 = anyEdge(random);
        rule.marginBottom96 = anyEdge(random);
        rule.stretchesWidth = coin(random);
        rule.stretchesHeight = coin(random);
        rule.followsRight = coin(random);
        rule.followsBottom = coin(random);
        rule.keepsDesignedSize = coin(random); // makes no difference
        const SIZE client = {anyLength(random), anyLength(random)};
        const SIZE designed96 = {anyLength(random), anyLength(random)};
        const float scale = static_cast<float>(anyDpi(random)) / 96.0f;
        ASSERT_EQ(Place(rule, client, designed96, scale), Model(rule, client, designed96, scale))
            << "round " << round;
    }
}
