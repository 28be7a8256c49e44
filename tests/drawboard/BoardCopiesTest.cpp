#include <vxdpi/DrawBoard.h>

#include "drawboard/BoardCalls.h"
#include "drawboard/BoardFields.h"
#include "resources/resource_ids.h"
#include "support/GdiPlusSession.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <utility>

// Boards are copied field by field, with the pointers as they stand.

namespace
{
constexpr UINT kImage = 1;
constexpr UINT kOtherImage = 2;

class BoardCopies : public testing::Test
{
protected:
    BoardCopies()
    {
        m_original.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
        m_original.SetDpi(144);
        m_original.SetDrawBoardSize(CSize(100, 50));
    }

    void DrawOriginal()
    {
        ASSERT_EQ(m_original.DrawImage(m_target.Dc(), CRect(5, 5, 35, 25), [] { return TRUE; }), TRUE);
    }

    // Whether all fields but the images are those of the original.
    testing::AssertionResult IsCopy(CDrawBoard& copy)
    {
        const BoardFields& fields = FieldsOf(copy);
        const BoardFields& original = FieldsOf(m_original);
        if (fields.mapping.rcLogical != original.mapping.rcLogical ||
            fields.mapping.rcDevice != original.mapping.rcDevice)
            return testing::AssertionFailure() << "the mapping differs";
        if (fields.nDpi != original.nDpi)
            return testing::AssertionFailure() << "the DPI differs";
        if (fields.pGraphics != original.pGraphics || fields.pBoard != original.pBoard)
            return testing::AssertionFailure() << "the board differs";
        return testing::AssertionSuccess();
    }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_original;
    Dib32 m_target{40, 40};
};

int LoadImageOf(CDrawBoard& board, UINT imageId = kImage)
{
    return board.DrawImageToBoard(imageId, CRect(0, 0, 1, 1));
}
} // namespace

static_assert(std::is_default_constructible_v<CDrawBoard>);
static_assert(std::is_copy_constructible_v<CDrawBoard> && std::is_copy_assignable_v<CDrawBoard>);
static_assert(std::is_polymorphic_v<CoordinatesMapping> && std::has_virtual_destructor_v<CoordinatesMapping>);
static_assert(std::is_polymorphic_v<CDpiImageResource> && std::has_virtual_destructor_v<CDpiImageResource>);
static_assert(std::is_same_v<decltype(&CDrawBoard::SetDpi), UINT (CDrawBoard::*)(const UINT&)>);
static_assert(std::is_same_v<decltype(&CDrawBoard::SetDrawBoardSize), CSize (CDrawBoard::*)(const CSize&)>);
static_assert(std::is_same_v<decltype(&CDrawBoard::AddImageResource),
                             int (CDrawBoard::*)(const UINT&, const UINT&, const UINT&, const CString&)>);
static_assert(std::is_same_v<int, decltype(std::declval<CDrawBoard&>().DrawImageToBoard(1u, CRect()))>);
static_assert(std::is_same_v<int, decltype(std::declval<CDrawBoard&>().DrawImageToBoard(1u, CPoint()))>);

TEST_F(BoardCopies, ANewBoardIsEmptyAt96Dpi)
{
    CDrawBoard board;
    const BoardFields& fields = FieldsOf(board);
    EXPECT_NE(fields.pVirtualTable, nullptr);
    EXPECT_NE(fields.mapping.pVirtualTable, nullptr);
    EXPECT_NE(fields.mapping.pVirtualTable, fields.pVirtualTable);
    EXPECT_EQ(fields.mapping.rcLogical, CRect(0, 0, 0, 0));
    EXPECT_EQ(fields.mapping.rcDevice, CRect(0, 0, 0, 0));
    EXPECT_EQ(fields.nDpi, 96u);
    EXPECT_EQ(fields.pGraphics, nullptr);
    EXPECT_EQ(fields.pBoard, nullptr);
    EXPECT_TRUE(fields.images.empty());
}

TEST_F(BoardCopies, ABoardThatDrewHasAllItsFields)
{
    DrawOriginal();
    const BoardFields& fields = FieldsOf(m_original);
    EXPECT_EQ(fields.mapping.rcLogical, CRect(0, 0, 100, 50));
    EXPECT_EQ(fields.mapping.rcDevice, CRect(0, 0, 30, 20));
    EXPECT_EQ(fields.nDpi, 144u);
    EXPECT_EQ(fields.pGraphics->GetLastStatus(), Gdiplus::Ok);
    EXPECT_EQ(fields.pBoard->GetWidth(), 30u);
    EXPECT_EQ(fields.images.size(), 1u);
}

TEST_F(BoardCopies, ACopyHasTheSettingsAndTheImages)
{
    CDrawBoard copy(m_original);
    EXPECT_TRUE(IsCopy(copy));
    EXPECT_EQ(copy.SetDpi(96), 144u);
    EXPECT_EQ(copy.SetDrawBoardSize(CSize(1, 1)), CSize(100, 50));
    EXPECT_EQ(LoadImageOf(copy), TRUE);
}

TEST_F(BoardCopies, ACopyHasImagesOfItsOwn)
{
    CDrawBoard copy(m_original);
    copy.AddImageResource(kOtherImage, 96, IDR_PNG_24, L"PNG");
    EXPECT_EQ(copy.AddImageResource(kImage, 144, IDR_PNG_24, L"PNG"), TRUE);
    EXPECT_EQ(LoadImageOf(m_original, kOtherImage), FALSE);
    const LookedUp lookedUp;
    LoadImageOf(m_original);
    LoadImageOf(copy);
    EXPECT_EQ(lookedUp.Ids(), (std::vector<UINT>{IDR_PNG_16, IDR_PNG_24}));
}

TEST_F(BoardCopies, ACopySharesTheBoard)
{
    DrawOriginal();
    CDrawBoard copy(m_original);
    const ForgetBoard forget(copy);
    EXPECT_TRUE(IsCopy(copy));
    EXPECT_NE(FieldsOf(copy).pBoard, nullptr);
    EXPECT_NE(FieldsOf(copy).pGraphics, nullptr);
    EXPECT_EQ(copy.DrawImageToBoard(kImage, CRect(0, 0, 100, 50)), TRUE);
    EXPECT_NE(PixelsOf(*FieldsOf(m_original).pBoard).At(15, 10), 0u);
}

TEST_F(BoardCopies, ACopyIsADifferentBoardAfterItsOwnDrawing)
{
    CDrawBoard copy(m_original);
    DrawOriginal();
    EXPECT_EQ(copy.DrawImage(m_target.Dc(), CRect(0, 0, 7, 7), [] { return TRUE; }), TRUE);
    EXPECT_NE(FieldsOf(copy).pBoard, FieldsOf(m_original).pBoard);
    EXPECT_EQ(FieldsOf(m_original).mapping.rcDevice, CRect(0, 0, 30, 20));
}

TEST_F(BoardCopies, ACopySharesLoadedImages)
{
    const LiveBitmaps live;
    LoadImageOf(m_original);
    const LookedUp lookedUp;
    CDrawBoard copy(m_original);
    EXPECT_EQ(LoadImageOf(copy), TRUE);
    EXPECT_EQ(lookedUp.Ids(), std::vector<UINT>());
    EXPECT_EQ(live.Count(), 1u);
    FieldsOf(FieldsOf(FieldsOf(copy).images.at(kImage)).variants.at(96)).pImage = nullptr;
}

TEST_F(BoardCopies, AssignmentCopiesAllFields)
{
    DrawOriginal();
    CDrawBoard copy;
    const ForgetBoard forget(copy);
    copy.AddImageResource(kOtherImage, 96, IDR_PNG_24, L"PNG");
    CDrawBoard& result = copy = m_original;
    EXPECT_EQ(&result, &copy);
    EXPECT_TRUE(IsCopy(copy));
    EXPECT_NE(FieldsOf(copy).pBoard, nullptr);
    EXPECT_EQ(LoadImageOf(copy, kImage), TRUE);
    EXPECT_EQ(LoadImageOf(copy, kOtherImage), FALSE);
}

TEST_F(BoardCopies, AssignmentDeletesNothing)
{
    CDrawBoard other;
    EXPECT_EQ(other.DrawImage(m_target.Dc(), CRect(0, 0, 7, 7), [] { return TRUE; }), TRUE);
    CDrawBoard same(other);
    const ImportSpy<decltype(Flat::GdipDisposeImage)> dispose(VxDpiModule(), "gdiplus.dll",
                                                              "GdipDisposeImage");
    const ImportSpy<decltype(Flat::GdipDeleteGraphics)> graphics(VxDpiModule(), "gdiplus.dll",
                                                                 "GdipDeleteGraphics");
    other = m_original;
    EXPECT_EQ(FieldsOf(other).pBoard, nullptr);
    EXPECT_EQ(dispose.CallCount(), 0);
    EXPECT_EQ(graphics.CallCount(), 0);
}
