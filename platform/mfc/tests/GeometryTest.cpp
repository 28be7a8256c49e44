#include <atltypes.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

static_assert(sizeof(CPoint) == sizeof(POINT) && sizeof(CSize) == sizeof(SIZE) &&
              sizeof(CRect) == sizeof(RECT));
static_assert(std::is_void_v<decltype(std::declval<CRect&>() = std::declval<const RECT&>())>);

TEST(PointTest, IsTheOriginByDefault)
{
    EXPECT_TRUE(CPoint() == CPoint(0, 0));
}

TEST(PointTest, TakesSignedWordsFromAMessageParameter)
{
    const CPoint point(static_cast<LPARAM>(MAKELPARAM(-3, -40)));
    EXPECT_EQ(-3, point.x);
    EXPECT_EQ(-40, point.y);
}

TEST(PointTest, OffsetMovesIt)
{
    CPoint point(1, 2);
    point.Offset(10, 20);
    point.Offset(CPoint(100, 200));
    point.Offset(CSize(1000, 2000));
    EXPECT_TRUE(point == CPoint(1111, 2222));
}

TEST(PointTest, TheDifferenceOfTwoPointsIsASize)
{
    const CSize distance = CPoint(10, 20) - CPoint(1, 2);
    EXPECT_TRUE(distance == CSize(9, 18));
}

TEST(PointTest, DiffersWhenOneCoordinateDiffers)
{
    EXPECT_TRUE(CPoint(1, 2) != CPoint(1, 3));
    EXPECT_TRUE(CPoint(1, 2) != CPoint(2, 2));
    EXPECT_FALSE(CPoint(1, 2) != CPoint(1, 2));
}

TEST(PointTest, AddsAndSubtracts)
{
    CPoint point(10, 20);
    point += CSize(1, 2);
    point += CPoint(3, 4);
    point -= CSize(5, 5);
    point -= CPoint(2, 1);
    EXPECT_TRUE(point == CPoint(7, 20));
    EXPECT_TRUE(point + CSize(1, 1) == CPoint(8, 21));
    EXPECT_TRUE(point + CPoint(1, 2) == CPoint(8, 22));
    EXPECT_TRUE(point - CSize(1, 1) == CPoint(6, 19));
    EXPECT_TRUE(-point == CPoint(-7, -20));
}

TEST(PointTest, MovesARectangle)
{
    const CRect rect(1, 2, 3, 4);
    EXPECT_TRUE(CPoint(10, 20) + &rect == CRect(11, 22, 13, 24));
    EXPECT_TRUE(CPoint(1, 2) - &rect == CRect(0, 0, 2, 2));
}

TEST(SizeTest, TakesWidthFromTheLowWord)
{
    const CSize size(static_cast<DWORD>(MAKELONG(3, 40)));
    EXPECT_EQ(3, size.cx);
    EXPECT_EQ(40, size.cy);
}

TEST(SizeTest, AddsAndSubtracts)
{
    CSize size(10, 20);
    size += CSize(1, 2);
    size -= CSize(3, 1);
    EXPECT_TRUE(size == CSize(8, 21));
    EXPECT_TRUE(size + CSize(1, 1) == CSize(9, 22));
    EXPECT_TRUE(size - CSize(1, 1) == CSize(7, 20));
    EXPECT_TRUE(-size == CSize(-8, -21));
    EXPECT_TRUE(size + CPoint(1, 1) == CPoint(9, 22));
    EXPECT_TRUE(size - CPoint(1, 1) == CPoint(7, 20));
    EXPECT_TRUE(size != CSize(8, 20));
    EXPECT_TRUE(size != CSize(7, 21));
}

TEST(SizeTest, MovesARectangle)
{
    const CRect rect(1, 2, 3, 4);
    EXPECT_TRUE(CSize(10, 20) + &rect == CRect(11, 22, 13, 24));
    EXPECT_TRUE(CSize(1, 2) - &rect == CRect(0, 0, 2, 2));
}

TEST(RectTest, IsNullByDefault)
{
    EXPECT_TRUE(CRect().IsRectNull());
}

TEST(RectTest, IsMadeFromCornerAndSize)
{
    EXPECT_TRUE(CRect(CPoint(1, 2), CSize(10, 20)) == CRect(1, 2, 11, 22));
}

TEST(RectTest, IsMadeFromTwoCorners)
{
    EXPECT_TRUE(CRect(CPoint(1, 2), CPoint(10, 20)) == CRect(1, 2, 10, 20));
}

TEST(RectTest, TellsItsMeasures)
{
    const CRect rect(10, 20, 40, 70);
    EXPECT_EQ(30, rect.Width());
    EXPECT_EQ(50, rect.Height());
    EXPECT_TRUE(rect.Size() == CSize(30, 50));
    EXPECT_TRUE(rect.CenterPoint() == CPoint(25, 45));
    EXPECT_TRUE(rect.TopLeft() == CPoint(10, 20));
    EXPECT_TRUE(rect.BottomRight() == CPoint(40, 70));
}

TEST(RectTest, IsChangedThroughItsCorners)
{
    CRect rect(0, 0, 5, 6);
    rect.TopLeft().x = 1;
    rect.BottomRight() = CPoint(7, 8);
    EXPECT_TRUE(rect == CRect(1, 0, 7, 8));
}

TEST(RectTest, ANegativeWidthIsEmptyButNotNull)
{
    const CRect rect(5, 0, 4, 10);
    EXPECT_TRUE(rect.IsRectEmpty());
    EXPECT_FALSE(rect.IsRectNull());
}

TEST(RectTest, ContainsItsLeftAndTopEdgeButNotRightAndBottom)
{
    const CRect rect(1, 2, 5, 6);
    EXPECT_TRUE(rect.PtInRect(CPoint(1, 2)));
    EXPECT_FALSE(rect.PtInRect(CPoint(5, 3)));
    EXPECT_FALSE(rect.PtInRect(CPoint(3, 6)));
}

TEST(RectTest, NormalizeExchangesCrossedEdgesOnly)
{
    CRect rect(5, 6, 1, 8);
    rect.NormalizeRect();
    EXPECT_TRUE(rect == CRect(1, 6, 5, 8));
    rect.SetRect(1, 9, 5, 2);
    rect.NormalizeRect();
    EXPECT_TRUE(rect == CRect(1, 2, 5, 9));
}

TEST(RectTest, InflateMovesEachEdgeOutwards)
{
    CRect rect(10, 10, 20, 20);
    rect.InflateRect(1, 2);
    EXPECT_TRUE(rect == CRect(9, 8, 21, 22));
    rect.InflateRect(CSize(1, 2));
    EXPECT_TRUE(rect == CRect(8, 6, 22, 24));
    rect.InflateRect(1, 2, 3, 4);
    EXPECT_TRUE(rect == CRect(7, 4, 25, 28));
    rect.InflateRect(CRect(1, 1, 2, 2));
    EXPECT_TRUE(rect == CRect(6, 3, 27, 30));
}

TEST(RectTest, DeflateMovesEachEdgeInwards)
{
    CRect rect(10, 10, 40, 40);
    rect.DeflateRect(1, 2);
    EXPECT_TRUE(rect == CRect(11, 12, 39, 38));
    rect.DeflateRect(CSize(1, 2));
    EXPECT_TRUE(rect == CRect(12, 14, 38, 36));
    rect.DeflateRect(1, 2, 3, 4);
    EXPECT_TRUE(rect == CRect(13, 16, 35, 32));
    rect.DeflateRect(CRect(1, 1, 2, 2));
    EXPECT_TRUE(rect == CRect(14, 17, 33, 30));
}

TEST(RectTest, MovesKeepTheSize)
{
    CRect rect(1, 2, 11, 22);
    rect.OffsetRect(1, 1);
    rect.OffsetRect(CPoint(1, 2));
    rect.OffsetRect(CSize(2, 1));
    EXPECT_TRUE(rect == CRect(5, 6, 15, 26));
    rect.MoveToX(100);
    EXPECT_TRUE(rect == CRect(100, 6, 110, 26));
    rect.MoveToY(200);
    EXPECT_TRUE(rect == CRect(100, 200, 110, 220));
    rect.MoveToXY(1, 2);
    EXPECT_TRUE(rect == CRect(1, 2, 11, 22));
    rect.MoveToXY(CPoint(3, 4));
    EXPECT_TRUE(rect == CRect(3, 4, 13, 24));
}

TEST(RectTest, AnIntersectionWithoutCommonPointsIsEmpty)
{
    CRect rect(1, 1, 1, 1);
    EXPECT_FALSE(rect.IntersectRect(CRect(0, 0, 5, 5), CRect(5, 0, 10, 5)));
    EXPECT_TRUE(rect.IsRectNull());
    EXPECT_TRUE(rect.IntersectRect(CRect(0, 0, 5, 5), CRect(3, 4, 10, 10)));
    EXPECT_TRUE(rect == CRect(3, 4, 5, 5));
}

TEST(RectTest, AUnionIgnoresAnEmptyRectangle)
{
    CRect rect;
    EXPECT_TRUE(rect.UnionRect(CRect(1, 2, 3, 4), CRect(9, 9, 9, 20)));
    EXPECT_TRUE(rect == CRect(1, 2, 3, 4));
    EXPECT_TRUE((CRect(1, 2, 3, 4) | CRect(10, 0, 12, 3)) == CRect(1, 0, 12, 4));
}

TEST(RectTest, SubtractTakesAwayAFullSide)
{
    CRect rect;
    EXPECT_TRUE(rect.SubtractRect(CRect(0, 0, 10, 10), CRect(6, -1, 20, 20)));
    EXPECT_TRUE(rect == CRect(0, 0, 6, 10));
}

TEST(RectTest, PlusAndMinusWithARectangleInflateAndDeflate)
{
    CRect rect(10, 10, 20, 20);
    const CRect edges(1, 2, 3, 4);
    rect += &edges;
    EXPECT_TRUE(rect == CRect(9, 8, 23, 24));
    rect -= &edges;
    EXPECT_TRUE(rect == CRect(10, 10, 20, 20));
    EXPECT_TRUE(rect + &edges == CRect(9, 8, 23, 24));
    EXPECT_TRUE(rect - &edges == CRect(11, 12, 17, 16));
}

TEST(RectTest, PlusAndMinusWithAPointOrASizeMove)
{
    CRect rect(10, 10, 20, 20);
    rect += CPoint(1, 2);
    rect += CSize(1, 2);
    EXPECT_TRUE(rect == CRect(12, 14, 22, 24));
    rect -= CPoint(2, 1);
    rect -= CSize(0, 3);
    EXPECT_TRUE(rect == CRect(10, 10, 20, 20));
    EXPECT_TRUE(rect + CPoint(1, 2) == CRect(11, 12, 21, 22));
    EXPECT_TRUE(rect - CPoint(1, 2) == CRect(9, 8, 19, 18));
    EXPECT_TRUE(rect + CSize(1, 2) == CRect(11, 12, 21, 22));
    EXPECT_TRUE(rect - CSize(1, 2) == CRect(9, 8, 19, 18));
}

TEST(RectTest, IntersectsAndUnitesInPlace)
{
    CRect rect(0, 0, 10, 10);
    rect &= CRect(5, 6, 20, 20);
    EXPECT_TRUE(rect == CRect(5, 6, 10, 10));
    rect |= CRect(0, 0, 6, 7);
    EXPECT_TRUE(rect == CRect(0, 0, 10, 10));
    EXPECT_TRUE((rect & CRect(2, 3, 4, 5)) == CRect(2, 3, 4, 5));
}

TEST(RectTest, IsHandedToThePlatformAsItIs)
{
    CRect rect;
    ::SetRect(rect, 1, 2, 3, 4);
    EXPECT_TRUE(rect == CRect(1, 2, 3, 4));
    EXPECT_TRUE(rect != CRect(1, 2, 3, 5));
}

TEST(RectTest, CopiesAndEmpties)
{
    CRect rect;
    rect.CopyRect(CRect(1, 2, 3, 4));
    EXPECT_TRUE(rect.EqualRect(CRect(1, 2, 3, 4)));
    rect.SetRectEmpty();
    EXPECT_TRUE(rect.IsRectNull());
}

} // namespace
