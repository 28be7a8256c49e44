#include "foundation/RectFacts.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/AtTestDpi.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/TestWindow.h"

#include <vxdpi/Geometry.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{
RECT Converted(HWND window, RECT rect)
{
    ConvertTo96DPIRect(window, rect);
    return rect;
}

RECT ConvertedFrom(UINT dpi, const RECT& rect)
{
    const TestWindow window;
    const WindowDpiAnswer answer(dpi);
    return Converted(window.Handle(), rect);
}

constexpr RECT kRect = {150, 75, 300, 225};
} // namespace

TEST(ConvertTo96DPIRect, At96TheRectangleStays)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(96, kRect), {150, 75, 300, 225}));
}

TEST(ConvertTo96DPIRect, At120ItIsFourFifths)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(120, kRect), {120, 60, 240, 180}));
}

TEST(ConvertTo96DPIRect, At144ItIsTwoThirds)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(144, kRect), {100, 50, 200, 150}));
}

TEST(ConvertTo96DPIRect, At192ItIsHalf)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(192, kRect), {75, 38, 150, 113}));
}

TEST(ConvertTo96DPIRect, BelowABaseOf96ItGrows)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(1, {1, -2, 3, 4}), {96, -192, 288, 384}));
}

TEST(ConvertTo96DPIRect, FollowsTheDpiOfARealWindow)
{
    const TestWindow window;
    EXPECT_TRUE(
        IsRect(Converted(window.Handle(), kRect), AtTestDpi<RECT>({150, 75, 300, 225}, {120, 60, 240, 180},
                                                                  {100, 50, 200, 150}, {75, 38, 150, 113})));
}

TEST(ConvertTo96DPIRect, FollowsAWindowToAnotherDpi)
{
    DpiWindow window;
    window.MoveTo(96);
    EXPECT_TRUE(IsRect(Converted(window.Handle(), kRect), kRect));
}

TEST(ConvertTo96DPIRect, WithoutAWindowTheRectangleStays)
{
    const WindowDpiAnswer answer(192);
    EXPECT_TRUE(IsRect(Converted(nullptr, kRect), kRect));
}

TEST(ConvertTo96DPIRect, WithADestroyedWindowTheRectangleStays)
{
    const TestWindow window;
    const HWND destroyed = window.Handle();
    ::DestroyWindow(destroyed);
    const WindowDpiAnswer answer(192);
    EXPECT_TRUE(IsRect(Converted(destroyed, kRect), kRect));
}

TEST(ConvertTo96DPIRect, RoundsEachEdgeByItself)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(144, {1, 2, 3, 4}), {1, 1, 2, 3}));
    EXPECT_TRUE(IsRect(ConvertedFrom(120, {-7, -8, 6, 9}), {-6, -6, 5, 7}));
}

TEST(ConvertTo96DPIRect, RoundsHalvesAwayFromZero)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(192, {-3, -1, 1, 3}), {-2, -1, 1, 2}));
    EXPECT_TRUE(IsRect(ConvertedFrom(192, {-5, 5, 7, 9}), {-3, 3, 4, 5}));
}

TEST(ConvertTo96DPIRect, CalculatesInSinglePrecision)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(96, {16777217, 0, 0, 0}), {16777216, 0, 0, 0}));
    EXPECT_TRUE(IsRect(ConvertedFrom(120, {2621443, 0, 2621448, 0}), {2097155, 0, 2097159, 0}));
    EXPECT_TRUE(IsRect(ConvertedFrom(101, {0, 70791, 0, 70892}), {0, 67287, 0, 67383}));
}

TEST(ConvertTo96DPIRect, ValuesOutOfRangeBecomeTheSmallestNumber)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(1, {100000000, -100000000, INT_MAX, INT_MIN}),
                       {INT_MIN, INT_MIN, INT_MIN, INT_MIN}));
}

TEST(ConvertTo96DPIRect, AHugeDpiLeavesNothing)
{
    EXPECT_TRUE(IsRect(ConvertedFrom(UINT_MAX, kRect), {0, 0, 0, 0}));
}

TEST(ConvertTo96DPIRect, LeavesNothingBehind)
{
    const TestWindow window;
    EXPECT_NO_LEAK([&] { Converted(window.Handle(), kRect); });
}
