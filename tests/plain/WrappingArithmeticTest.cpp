#include <foundation/WrappingArithmetic.h>

#include <gtest/gtest.h>

namespace
{
constexpr LONG kLargest = 2147483647;
constexpr LONG kSmallest = -kLargest - 1;
} // namespace

TEST(WrappingArithmetic, SumsAndDifferencesOfUsualCoordinates)
{
    EXPECT_EQ(WrappingAdd(10, 16), 26);
    EXPECT_EQ(WrappingAdd(-10, 4), -6);
    EXPECT_EQ(WrappingSubtract(26, 10), 16);
    EXPECT_EQ(WrappingSubtract(-10, 4), -14);
}

TEST(WrappingArithmetic, WrapsAround)
{
    EXPECT_EQ(WrappingAdd(kLargest, 1), kSmallest);
    EXPECT_EQ(WrappingSubtract(kSmallest, 1), kLargest);
    EXPECT_EQ(WrappingSubtract(0, kSmallest), kSmallest);
}

TEST(WrappingArithmetic, SidesOfARectangle)
{
    EXPECT_EQ(WrappingWidth(RECT{10, 20, 26, 50}), 16);
    EXPECT_EQ(WrappingHeight(RECT{10, 20, 26, 50}), 30);
    EXPECT_EQ(WrappingWidth(RECT{26, 50, 10, 20}), -16);
    EXPECT_EQ(WrappingHeight(RECT{26, 50, 10, 20}), -30);
    EXPECT_EQ(WrappingWidth(RECT{kSmallest, kLargest, kLargest, kSmallest}), -1);
    EXPECT_EQ(WrappingHeight(RECT{kSmallest, kLargest, kLargest, kSmallest}), 1);
}
