#include <foundation/RectScaling.h>
#include <layout/Placement.h>

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
constexpr RECT kButton96 = {10, 10, 110, 30};
constexpr RECT kButtonAt144 = {15, 15, 165, 45};

Placement::Rule FixedButton()
{
    Placement::Rule rule = {};
    rule.base96 = kButton96;
    rule.marginRight96 = 20;
    rule.marginBottom96 = 40;
    return rule;
}

RECT Place(const Placement::Rule& rule, const RECT& parent, float scale)
{
    RECT rect = ScaleEdges(rule.base96, scale);
    Placement::ApplySizePolicy(rect, parent, rule, scale);
    Placement::ApplyAnchor(rect, parent, rule, scale);
    return rect;
}

// Slow and obvious, in numbers that never overflow for the ranges tried.
RECT Model(const Placement::Rule& rule, const RECT& parent, float scale)
{
    const auto scaled = [scale](long long length)
    { return static_cast<long long>(std::lround(static_cast<float>(length) * scale)); };
    long long width = scaled(rule.base96.right - rule.base96.left);
    long long height = scaled(rule.base96.bottom - rule.base96.top);
    const long long wide = parent.right - parent.left - scaled(rule.base96.left) - scaled(rule.marginRight96);
    const long long high = parent.bottom - parent.top - scaled(rule.base96.top) - scaled(rule.marginBottom96);
    if (rule.stretchesWidth)
        width = rule.keepsDesignedSize ? std::max(width, wide) : wide;
    if (rule.stretchesHeight)
        height = rule.keepsDesignedSize ? std::max(height, high) : high;
    long long left = scaled(rule.base96.left);
    long long top = scaled(rule.base96.top);
    if (rule.followsRight)
        left = parent.right - width - scaled(rule.marginRight96);
    if (rule.followsBottom)
        top = parent.bottom - height - scaled(rule.marginBottom96);
    return {static_cast<LONG>(left), static_cast<LONG>(top), static_cast<LONG>(left + width),
            static_cast<LONG>(top + height)};
}

Placement::Rule RandomRule(std::mt19937& random, LONG reach)
{
    std::uniform_int_distribution<LONG> anyEdge(-reach, reach);
    std::bernoulli_distribution coin;
    Placement::Rule rule = {};
    rule.base96 = {anyEdge(random), anyEdge(random), anyEdge(random), anyEdge(random)};
    rule.marginRight96 = anyEdge(random);
    rule.marginBottom96 = anyEdge(random);
    rule.stretchesWidth = coin(random);
    rule.stretchesHeight = coin(random);
    rule.keepsDesignedSize = coin(random);
    rule.followsRight = coin(random);
    rule.followsBottom = coin(random);
    return rule;
}
} // namespace

TEST(RectScaling, EachEdgeIsScaledByItself)
{
    EXPECT_EQ(ScaleEdges(kButton96, 1.5f), kButtonAt144);
    EXPECT_EQ(ScaleEdges(kButtonAt144, 96.0f / 144.0f), kButton96);
    EXPECT_EQ(ScaleEdges({1, 2, 4, 7}, 1.5f), (RECT{2, 3, 6, 11}));
    EXPECT_EQ(ScaleEdges({-1, -2, -4, -7}, 1.5f), (RECT{-2, -3, -6, -11}));
    EXPECT_EQ(ScaleEdges({1, 1, 1, 1}, 96.0f / 120.0f), (RECT{1, 1, 1, 1}));
}

TEST(Placement, AFixedControlKeepsItsScaledPlaceAndSize)
{
    EXPECT_EQ(Place(FixedButton(), {0, 0, 400, 300}, 1.5f), kButtonAt144);
    EXPECT_EQ(Place(FixedButton(), {0, 0, 1, 1}, 1.5f), kButtonAt144);
}

TEST(Placement, AStretchedWidthEndsAtTheScaledRightMargin)
{
    Placement::Rule rule = FixedButton();
    rule.stretchesWidth = true;
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{15, 15, 370, 45}));
}

TEST(Placement, AStretchedHeightEndsAtTheScaledBottomMargin)
{
    Placement::Rule rule = FixedButton();
    rule.stretchesHeight = true;
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{15, 15, 165, 240}));
}

TEST(Placement, TheDesignedSizeIsTheSmallestWhereItIsKept)
{
    Placement::Rule rule = FixedButton();
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    rule.keepsDesignedSize = true;
    EXPECT_EQ(Place(rule, {0, 0, 100, 50}, 1.5f), kButtonAt144);
    EXPECT_EQ(Place(rule, {0, 0, 194, 104}, 1.5f), kButtonAt144);
    EXPECT_EQ(Place(rule, {0, 0, 196, 106}, 1.5f), (RECT{15, 15, 166, 46}));
}

TEST(Placement, AStretchedSizeMayBecomeNegativeWhereItIsNotKept)
{
    Placement::Rule rule = FixedButton();
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    EXPECT_EQ(Place(rule, {0, 0, 40, 50}, 1.5f), (RECT{15, 15, 10, -10}));
}

TEST(Placement, TheRightAnchorKeepsTheMarginAndTheTop)
{
    Placement::Rule rule = FixedButton();
    rule.followsRight = true;
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{220, 15, 370, 45}));
}

TEST(Placement, TheBottomAnchorKeepsTheMarginAndTheLeft)
{
    Placement::Rule rule = FixedButton();
    rule.followsBottom = true;
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{15, 210, 165, 240}));
}

TEST(Placement, BothAnchorsKeepBothMargins)
{
    Placement::Rule rule = FixedButton();
    rule.followsRight = true;
    rule.followsBottom = true;
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{220, 210, 370, 240}));
}

// The manager's steps can be replaced one by one, so each has to bring a rectangle from anywhere to its
// place.
TEST(Placement, AnchoringMovesARectangleFromAnywhereAndKeepsItsSize)
{
    Placement::Rule rule = FixedButton();
    RECT rect = {1000, 2000, 1070, 2030};
    Placement::ApplyAnchor(rect, {0, 0, 400, 300}, rule, 1.5f);
    EXPECT_EQ(rect, (RECT{15, 15, 85, 45}));

    rule.followsRight = true;
    rect = {1000, 2000, 1070, 2030};
    Placement::ApplyAnchor(rect, {0, 0, 400, 300}, rule, 1.5f);
    EXPECT_EQ(rect, (RECT{300, 2000, 370, 2030}));

    rule.followsRight = false;
    rule.followsBottom = true;
    rect = {1000, 2000, 1070, 2030};
    Placement::ApplyAnchor(rect, {0, 0, 400, 300}, rule, 1.5f);
    EXPECT_EQ(rect, (RECT{1000, 210, 1070, 240}));
}

TEST(Placement, SizingKeepsTheTopLeftCornerWhereverItIs)
{
    RECT rect = {1000, 2000, 0, 0};
    Placement::ApplySizePolicy(rect, {0, 0, 400, 300}, FixedButton(), 1.5f);
    EXPECT_EQ(rect, (RECT{1000, 2000, 1150, 2030}));
}

// 11 pixels wide at 96 DPI from 1 to 12: the edges become 2 and 18, the width 17 (16.5 rounded up).
TEST(Placement, TheSizeIsScaledFromTheDesignedSizeAndNotFromTheEdges)
{
    Placement::Rule rule = {};
    rule.base96 = {1, 1, 12, 12};
    EXPECT_EQ(Place(rule, {0, 0, 400, 300}, 1.5f), (RECT{2, 2, 19, 19}));
}

TEST(Placement, AParentThatDoesNotStartAtZeroCountsWithItsWidthAndItsEdges)
{
    Placement::Rule rule = FixedButton();
    rule.stretchesWidth = true;
    rule.stretchesHeight = true;
    EXPECT_EQ(Place(rule, {100, 50, 500, 350}, 1.5f), (RECT{15, 15, 370, 240}));
    rule.followsRight = true;
    rule.followsBottom = true;
    EXPECT_EQ(Place(rule, {100, 50, 500, 350}, 1.5f), (RECT{115, 65, 470, 290}));
}

TEST(Placement, RandomRulesAgreeWithTheModel)
{
    std::mt19937 random(62);
    std::uniform_int_distribution<LONG> anyLength(-3000, 9000);
    std::uniform_int_distribution<int> anyDpi(96, 576);
    for (int round = 0; round < 100000; ++round)
    {
        const Placement::Rule rule = RandomRule(random, 5000);
        const RECT parent = {0, 0, anyLength(random), anyLength(random)};
        const float scale = static_cast<float>(anyDpi(random)) / 96.0f;
        ASSERT_EQ(Place(rule, parent, scale), Model(rule, parent, scale)) << "round " << round;
    }
}

// The width and height of what comes out stay defined and come from the rule, whatever the coordinates.
TEST(Placement, AnyCoordinatesAreTakenWithoutUndefinedBehaviour)
{
    std::mt19937 random(26);
    std::uniform_int_distribution<LONG> any(INT32_MIN, INT32_MAX);
    for (int round = 0; round < 100000; ++round)
    {
        Placement::Rule rule = RandomRule(random, INT32_MAX);
        const RECT parent = {any(random), any(random), any(random), any(random)};
        const RECT rect = Place(rule, parent, 6.0f);
        ASSERT_EQ(WrappingWidth(rect), Placement::Width(rule, parent, 6.0f));
        ASSERT_EQ(WrappingHeight(rect), Placement::Height(rule, parent, 6.0f));
    }
}
