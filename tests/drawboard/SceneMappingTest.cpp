#include <vxdpi/DrawBoard.h>

#include "drawboard/BoardCalls.h"
#include "resources/resource_ids.h"
#include "support/GdiPlusSession.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <random>
#include <vector>

// Where images of a scene come to lie on the board, seen by what GDI+ is told to draw.

namespace
{
constexpr UINT kImage = 3;

// A stretched image on the board.
struct Place
{
    int x;
    int y;
    int width;
    int height;
};

bool operator==(const Place& a, const Place& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

std::ostream& operator<<(std::ostream& stream, const Place& place)
{
    return stream << "(" << place.x << ", " << place.y << "; " << place.width << " x " << place.height << ")";
}

using PlaceList = std::vector<Place>;

// Small bitmaps stand in for boards, so that boards may be of any size, even huge or negative; drawing on
// them is only recorded.
class SceneMapping : public testing::Test
{
protected:
    SceneMapping()
        : m_scan0(VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0",
                  [this](INT, INT, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
                         Gdiplus::GpBitmap** bitmap)
                  { return m_scan0.Original()(1, 1, stride, format, bits, bitmap); }),
          m_draw(VxDpiModule(), "gdiplus.dll", "GdipDrawImageRectI",
                 [this](Gdiplus::GpGraphics*, Gdiplus::GpImage*, INT x, INT y, INT width, INT height)
                 {
                     m_places.push_back({x, y, width, height});
                     return Gdiplus::Ok;
                 })
    {
        m_board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
    }

    template<typename Where>
    Place PlaceOn(CDrawBoard& board, const CSize& scene, const CSize& boardSize, const Where& where)
    {
        m_places.clear();
        board.SetDrawBoardSize(scene);
        board.DrawImage(m_target.Dc(), CRect(CPoint(0, 0), boardSize),
                        [&] { return board.DrawImageToBoard(kImage, where); });
        return m_places.size() == 1 ? m_places.front() : Place{INT_MIN, INT_MIN, 0, 0};
    }

    template<typename Where>
    Place PlaceOf(const CSize& scene, const CSize& boardSize, const Where& where)
    {
        return PlaceOn(m_board, scene, boardSize, where);
    }

    // An image of a resource and a DPI alone, put at a point of a scene that is not scaled.
    Place PlaceOfVariant(UINT dpi, UINT resourceId, const CPoint& pt = CPoint(0, 0))
    {
        CDrawBoard board;
        board.AddImageResource(kImage, dpi, resourceId, L"PNG");
        return PlaceOn(board, CSize(0, 0), CSize(100, 100), pt);
    }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_board;
    PlaceList m_places;

private:
    Dib32 m_target{1, 1};
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> m_scan0;
    const ImportSpy<decltype(Flat::GdipDrawImageRectI)> m_draw;
};

// One axis, slow and obvious: every step in double precision, rounded to single where the library works in
// single precision. The product of two single-precision numbers is exact in double precision.
float Single(double value)
{
    return static_cast<float>(value);
}

float ModelScale(int scene, int board)
{
    return scene == 0 ? 1.0f : Single(static_cast<double>(Single(board)) / Single(scene));
}

std::int64_t ModelProduct(int length, float scale)
{
    return static_cast<std::int64_t>(std::trunc(Single(static_cast<double>(Single(length)) * scale)));
}

int ModelPosition(int position, int scene, int board, float scale)
{
    return static_cast<int>((board - ModelProduct(scene, scale)) / 2 + ModelProduct(position, scale));
}

Place ModelPlace(const CSize& scene, const CSize& board, const CRect& rc)
{
    const float scale = (std::min)(ModelScale(scene.cx, board.cx), ModelScale(scene.cy, board.cy));
    const int left = ModelPosition(rc.left, scene.cx, board.cx, scale);
    const int top = ModelPosition(rc.top, scene.cy, board.cy, scale);
    const int right = ModelPosition(rc.right, scene.cx, board.cx, scale);
    const int bottom = ModelPosition(rc.bottom, scene.cy, board.cy, scale);
    return {left, top, right - left, bottom - top};
}
} // namespace

TEST_F(SceneMapping, TheSmallerScaleIsTakenAndTheSceneCentredVertically)
{
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{30, 105, 30, 60}));
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CRect(0, 0, 100, 50)), (Place{0, 75, 300, 150}));
}

TEST_F(SceneMapping, ATallSceneIsCentredHorizontally)
{
    EXPECT_EQ(PlaceOf(CSize(50, 100), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{105, 30, 30, 60}));
    EXPECT_EQ(PlaceOf(CSize(50, 100), CSize(300, 300), CRect(0, 0, 50, 100)), (Place{75, 0, 150, 300}));
}

TEST_F(SceneMapping, ASceneOfTheBoardsProportionsFillsIt)
{
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(150, 75), CRect(0, 0, 100, 50)), (Place{0, 0, 150, 75}));
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(200, 100), CRect(10, 20, 30, 40)), (Place{20, 40, 40, 40}));
}

TEST_F(SceneMapping, ALargeSceneIsMadeSmaller)
{
    EXPECT_EQ(PlaceOf(CSize(200, 100), CSize(100, 100), CRect(10, 20, 40, 60)), (Place{5, 35, 15, 20}));
}

TEST_F(SceneMapping, EachAxisIsOffsetByItsOwnSlack)
{
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(30, 10), CRect(1, 2, 3, 5)), (Place{11, 2, 2, 3}));
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(10, 40), CRect(1, 2, 3, 5)), (Place{1, 17, 2, 3}));
}

TEST_F(SceneMapping, HalvesOfOffsetsAreCutOff)
{
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(13, 10), CRect(0, 0, 10, 10)), (Place{1, 0, 10, 10}));
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(10, 15), CRect(0, 0, 10, 10)), (Place{0, 2, 10, 10}));
}

TEST_F(SceneMapping, TheScaledSizeIsCutOffBeforeTheOffset)
{
    // 10 x 1.3 in width; 3 x 1.3 = 3.9 is cut off to 3, which leaves 10 of the 13 rows, 5 on each side.
    EXPECT_EQ(PlaceOf(CSize(10, 3), CSize(13, 13), CRect(0, 0, 0, 0)), (Place{0, 5, 0, 0}));
    EXPECT_EQ(PlaceOf(CSize(3, 10), CSize(13, 13), CRect(0, 0, 0, 0)), (Place{5, 0, 0, 0}));
}

TEST_F(SceneMapping, CoordinatesAreCutOff)
{
    // 1.5 pixels a unit: 1.5, 4.5, 7.5, 13.5.
    EXPECT_EQ(PlaceOf(CSize(100, 100), CSize(150, 150), CRect(1, 3, 5, 9)), (Place{1, 4, 6, 9}));
    // 1.9 pixels a unit: 1.9, 5.7, 9.5, 17.1.
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(19, 19), CRect(1, 3, 5, 9)), (Place{1, 5, 8, 12}));
}

TEST_F(SceneMapping, NegativeCoordinatesAreCutOffTowardZero)
{
    EXPECT_EQ(PlaceOf(CSize(100, 100), CSize(150, 150), CRect(-1, -3, 1, 3)), (Place{-1, -4, 2, 8}));
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(19, 19), CRect(-5, -9, -1, -3)), (Place{-9, -17, 8, 12}));
}

TEST_F(SceneMapping, TheOffsetIsAddedAfterTheCoordinateIsCutOff)
{
    // 1.5 pixels a unit, offset 2: -1.5 + 2 gives 1 when the sum is not cut off before.
    EXPECT_EQ(PlaceOf(CSize(100, 100), CSize(154, 150), CRect(-1, 0, 0, 1)), (Place{1, 0, 1, 1}));
}

TEST_F(SceneMapping, CornersAreMappedAndNotTheSize)
{
    // From 1.5 to 3.0, but 1.5 pixels wide; from 4.5 to 6.0.
    EXPECT_EQ(PlaceOf(CSize(100, 100), CSize(150, 150), CRect(1, 3, 2, 4)), (Place{1, 4, 2, 2}));
    EXPECT_EQ(PlaceOf(CSize(100, 100), CSize(150, 150), CRect(2, 4, 3, 5)), (Place{3, 6, 1, 1}));
}

TEST_F(SceneMapping, RectanglesMayLieOutsideTheScene)
{
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CRect(-100, -50, 200, 100)),
              (Place{-300, -75, 900, 450}));
}

TEST_F(SceneMapping, EmptyAndInvertedRectanglesArePassedOn)
{
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CRect(10, 10, 10, 10)), (Place{30, 105, 0, 0}));
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CRect(20, 30, 10, 10)), (Place{60, 165, -30, -60}));
}

// 31 / 7 in single precision is just below the quotient, 61 / 7 is just above it.
TEST_F(SceneMapping, TheScaleIsOfSinglePrecision)
{
    EXPECT_EQ(PlaceOf(CSize(7, 7), CSize(31, 31), CRect(0, 0, 7, 7)), (Place{0, 0, 30, 30}));
    EXPECT_EQ(PlaceOf(CSize(7, 7), CSize(61, 61), CRect(0, 0, 7, 7)), (Place{0, 0, 61, 61}));
}

// 5 / 3 in single precision is below the quotient; the product with 3, rounded to single precision, is 5.
TEST_F(SceneMapping, TheProductIsOfSinglePrecision)
{
    EXPECT_EQ(PlaceOf(CSize(3, 3), CSize(5, 5), CRect(0, 0, 3, 3)), (Place{0, 0, 5, 5}));
    EXPECT_EQ(PlaceOf(CSize(3, 3), CSize(5, 5), CRect(-3, -3, 0, 0)), (Place{-5, -5, 5, 5}));
}

// Coordinates above 24 bits are rounded to the next one that single precision holds.
TEST_F(SceneMapping, CoordinatesAreOfSinglePrecision)
{
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(10, 10), CRect(16777217, -16777217, 16777219, 16777219)),
              (Place{16777216, -16777216, 4, 33554436}));
}

TEST_F(SceneMapping, WithoutASceneSizeCoordinatesStayAsTheyAre)
{
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(300, 200), CRect(10, 20, 40, 60)), (Place{10, 20, 30, 40}));
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(1, 1), CRect(-7, -9, -1, 5)), (Place{-7, -9, 6, 14}));
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(300, 200), CRect(16777217, 0, 16777219, 1)),
              (Place{16777217, 0, 2, 1}));
}

TEST_F(SceneMapping, ANewBoardHasNoSceneSize)
{
    EXPECT_EQ(m_board.SetDrawBoardSize(CSize(100, 50)), CSize(0, 0));
}

TEST_F(SceneMapping, ASceneSizeMayBeTakenBack)
{
    PlaceOf(CSize(100, 50), CSize(300, 300), CRect(10, 10, 20, 30));
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{10, 10, 10, 20}));
}

TEST_F(SceneMapping, ASceneWithoutWidthIsScaledByItsHeightUpToOne)
{
    EXPECT_EQ(PlaceOf(CSize(0, 50), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{160, 135, 10, 20}));
    EXPECT_EQ(PlaceOf(CSize(0, 600), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{155, 5, 5, 10}));
}

TEST_F(SceneMapping, ASceneWithoutHeightIsScaledByItsWidthUpToOne)
{
    EXPECT_EQ(PlaceOf(CSize(50, 0), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{135, 160, 10, 20}));
    EXPECT_EQ(PlaceOf(CSize(600, 0), CSize(300, 300), CRect(10, 10, 20, 30)), (Place{5, 155, 5, 10}));
}

TEST_F(SceneMapping, ANegativeSceneTakesTheMoreNegativeScale)
{
    // Scales -3 and -6; the width takes 600 pixels of 300.
    EXPECT_EQ(PlaceOf(CSize(-100, -50), CSize(300, 300), CRect(10, 10, 20, 30)),
              (Place{-210, -60, -60, -120}));
    // Scale -1.5 across; the height takes 75 of 75 pixels, upside down.
    EXPECT_EQ(PlaceOf(CSize(-100, 50), CSize(150, 75), CRect(10, 10, 20, 30)), (Place{-15, 60, -15, -30}));
}

TEST_F(SceneMapping, NegativeOffsetsAreCutOffTowardZero)
{
    // Scales -1.5 and -3; the width takes 6 pixels of 3: -3 / 2.
    EXPECT_EQ(PlaceOf(CSize(-2, -1), CSize(3, 3), CRect(0, 0, 1, 1)), (Place{-1, 0, -3, -3}));
    EXPECT_EQ(PlaceOf(CSize(-1, -2), CSize(3, 3), CRect(0, 0, 1, 1)), (Place{0, -1, -3, -3}));
}

TEST_F(SceneMapping, HugeBoardsAndScenesAreMapped)
{
    EXPECT_EQ(PlaceOf(CSize(INT_MAX, INT_MAX), CSize(INT_MAX, INT_MAX), CRect(1, 2, 4, 8)),
              (Place{1, 2, 3, 6}));
    EXPECT_EQ(PlaceOf(CSize(1 << 20, 1 << 20), CSize(1 << 30, 1 << 30), CRect(1, 2, 4, 8)),
              (Place{1024, 2048, 3072, 6144}));
}

TEST_F(SceneMapping, RandomScenesAgreeWithTheModel)
{
    std::mt19937 random(20260202);
    std::uniform_int_distribution<int> anySide(1, 2000);
    std::uniform_int_distribution<int> anyEdge(-3000, 3000);
    for (int round = 0; round < 1000; ++round)
    {
        const CSize scene(anySide(random), anySide(random));
        const CSize board(anySide(random), anySide(random));
        const CRect rc(anyEdge(random), anyEdge(random), anyEdge(random), anyEdge(random));
        ASSERT_EQ(PlaceOf(scene, board, rc), ModelPlace(scene, board, rc)) << "round " << round;
    }
}

TEST_F(SceneMapping, ManyImagesOfOneSceneAreMappedAlike)
{
    m_board.SetDrawBoardSize(CSize(100, 50));
    m_board.DrawImage(Dib32(1, 1).Dc(), CRect(0, 0, 300, 300),
                      [this]
                      {
                          m_board.DrawImageToBoard(kImage, CRect(0, 0, 10, 10));
                          m_board.DrawImageToBoard(kImage, CRect(90, 40, 100, 50));
                          return m_board.DrawImageToBoard(kImage, CPoint(50, 25));
                      });
    EXPECT_EQ(m_places, (PlaceList{{0, 75, 30, 30}, {270, 195, 30, 30}, {150, 150, 48, 48}}));
}

TEST_F(SceneMapping, AnImageAtAPointHasItsOwnSize)
{
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CPoint(20, 30)), (Place{20, 30, 16, 16}));
    EXPECT_EQ(PlaceOf(CSize(100, 50), CSize(300, 300), CPoint(10, 10)), (Place{30, 105, 48, 48}));
}

TEST_F(SceneMapping, AnImageAtANegativePointHasItsOwnSize)
{
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CPoint(-20, -30)), (Place{-20, -30, 16, 16}));
}

TEST_F(SceneMapping, AnImageDrawnForAHigherDpiTakesFewerUnits)
{
    EXPECT_EQ(PlaceOfVariant(144, IDR_PNG_48), (Place{0, 0, 32, 32}));
    EXPECT_EQ(PlaceOfVariant(192, IDR_PNG_48), (Place{0, 0, 24, 24}));
    EXPECT_EQ(PlaceOfVariant(120, IDR_PNG_15), (Place{0, 0, 12, 12}));
}

TEST_F(SceneMapping, AnImageDrawnForALowerDpiTakesMoreUnits)
{
    EXPECT_EQ(PlaceOfVariant(48, IDR_PNG_16), (Place{0, 0, 32, 32}));
    EXPECT_EQ(PlaceOfVariant(72, IDR_PNG_15), (Place{0, 0, 20, 20}));
    EXPECT_EQ(PlaceOfVariant(1, IDR_PNG_16), (Place{0, 0, 1536, 1536}));
}

TEST_F(SceneMapping, UnitsOfAnImageAreRoundedWithHalvesAwayFromZero)
{
    EXPECT_EQ(PlaceOfVariant(144, IDR_PNG_16), (Place{0, 0, 11, 11})); // 10.67
    EXPECT_EQ(PlaceOfVariant(192, IDR_PNG_15), (Place{0, 0, 8, 8}));   // 7.5
    EXPECT_EQ(PlaceOfVariant(140, IDR_PNG_16), (Place{0, 0, 11, 11})); // 10.97
    EXPECT_EQ(PlaceOfVariant(150, IDR_PNG_16), (Place{0, 0, 10, 10})); // 10.24
}

TEST_F(SceneMapping, WidthAndHeightOfAnImageAreTold)
{
    EXPECT_EQ(PlaceOfVariant(144, IDR_PNG_STRIP_24), (Place{0, 0, 48, 16}));
    EXPECT_EQ(PlaceOfVariant(96, IDR_PNG_STRIP_16, CPoint(5, 7)), (Place{5, 7, 48, 16}));
}

TEST_F(SceneMapping, TheResolutionThatAnImageClaimsDoesNotCount)
{
    EXPECT_EQ(PlaceOfVariant(96, IDR_PNG_144_DPI), (Place{0, 0, 32, 32}));
}

TEST_F(SceneMapping, TheSizeComesFromTheVariantAndNotFromTheBoardsDpi)
{
    m_board.AddImageResource(kImage, 144, IDR_PNG_48, L"PNG");
    m_board.SetDpi(120);
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CPoint(1, 2)), (Place{1, 2, 32, 32}));
    m_board.SetDpi(300);
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CPoint(1, 2)), (Place{1, 2, 32, 32}));
    m_board.SetDpi(96);
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CPoint(1, 2)), (Place{1, 2, 16, 16}));
}

TEST_F(SceneMapping, TheStretchedSizeDoesNotDependOnTheVariant)
{
    m_board.AddImageResource(kImage, 144, IDR_PNG_48, L"PNG");
    m_board.SetDpi(144);
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(100, 100), CRect(1, 2, 11, 22)), (Place{1, 2, 10, 20}));
}

TEST_F(SceneMapping, AVariantForZeroDpiHasNoSizeOfItsOwn)
{
    CDrawBoard board;
    board.AddImageResource(kImage, 0, IDR_PNG_16, L"PNG");
    int atPoint = -1;
    int stretched = -1;
    board.DrawImage(Dib32(1, 1).Dc(), CRect(0, 0, 9, 9),
                    [&]
                    {
                        atPoint = board.DrawImageToBoard(kImage, CPoint(0, 0));
                        stretched = board.DrawImageToBoard(kImage, CRect(0, 0, 5, 6));
                        return TRUE;
                    });
    EXPECT_EQ(atPoint, FALSE);
    EXPECT_EQ(stretched, TRUE);
    EXPECT_EQ(m_places, (PlaceList{{0, 0, 5, 6}}));
}

TEST_F(SceneMapping, AVariantForZeroDpiIsNotDrawnAtAPointWithoutABoardEither)
{
    CDrawBoard board;
    board.AddImageResource(kImage, 0, IDR_PNG_16, L"PNG");
    EXPECT_EQ(board.DrawImageToBoard(kImage, CPoint(0, 0)), FALSE);
    EXPECT_EQ(board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1)), TRUE);
}

// The platform's scaling takes a signed DPI.
TEST_F(SceneMapping, ADpiBeyond31BitsCountsAsNegative)
{
    EXPECT_EQ(PlaceOfVariant(0xFFFFFFFF, IDR_PNG_16, CPoint(5, 5)), (Place{5, 5, -1536, -1536}));
}

TEST_F(SceneMapping, AnImageAtTheLastPointWrapsAround)
{
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(10, 10), CPoint(INT_MAX, INT_MAX)),
              (Place{INT_MAX, INT_MAX, 16, 16}));
    EXPECT_EQ(PlaceOf(CSize(0, 0), CSize(10, 10), CPoint(INT_MIN, INT_MIN)),
              (Place{INT_MIN, INT_MIN, 16, 16}));
}

TEST_F(SceneMapping, SetDrawBoardSizeReturnsTheSizeBefore)
{
    m_board.SetDrawBoardSize(CSize(100, 50));
    EXPECT_EQ(m_board.SetDrawBoardSize(CSize(-3, 0)), CSize(100, 50));
    EXPECT_EQ(m_board.SetDrawBoardSize(CSize(INT_MAX, INT_MIN)), CSize(-3, 0));
    EXPECT_EQ(m_board.SetDrawBoardSize(CSize(1, 2)), CSize(INT_MAX, INT_MIN));
}

TEST_F(SceneMapping, TheBoardsSizeIsThatOfTheLastDrawing)
{
    m_board.SetDrawBoardSize(CSize(10, 10));
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(20, 20), CRect(1, 1, 2, 2)), (Place{2, 2, 2, 2}));
    EXPECT_EQ(PlaceOf(CSize(10, 10), CSize(50, 50), CRect(1, 1, 2, 2)), (Place{5, 5, 5, 5}));
    m_places.clear();
    m_board.DrawImageToBoard(kImage, CRect(1, 1, 2, 2));
    EXPECT_EQ(m_places, (PlaceList{{5, 5, 5, 5}}));
}

TEST_F(SceneMapping, TheTargetsPlaceDoesNotMoveTheScene)
{
    m_board.SetDrawBoardSize(CSize(100, 50));
    m_board.DrawImage(Dib32(1, 1).Dc(), CRect(1000, 2000, 1300, 2300),
                      [this] { return m_board.DrawImageToBoard(kImage, CRect(10, 10, 20, 30)); });
    EXPECT_EQ(m_places, (PlaceList{{30, 105, 30, 60}}));
}
