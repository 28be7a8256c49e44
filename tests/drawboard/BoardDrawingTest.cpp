#include <vxdpi/DrawBoard.h>

#include "drawboard/BoardCalls.h"
#include "drawboard/BoardFields.h"
#include "resources/resource_ids.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <functional>
#include <new>
#include <stdexcept>
#include <type_traits>

namespace
{
constexpr UINT kImage = 1;
constexpr UINT kPlainImage = 2; // one colour everywhere: kOtherColor
constexpr UINT kUnknownImage = 99;
constexpr std::uint32_t kWhite = 0xffffffff;
const CRect kSceneAt(10, 20, 90, 60); // 80 x 40 pixels

constexpr int kEveryCall = FailGdipAlloc::kEveryCall;
const CallLog::LineList kNoCalls;

class BoardDrawing : public testing::Test
{
protected:
    BoardDrawing()
    {
        m_board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
        m_board.AddImageResource(kPlainImage, 96, IDR_DLL_PNG_24, L"PNG");
        LoadPlainImage();
    }

    int Draw(const CRect& rc = kSceneAt)
    {
        return m_board.DrawImage(m_target.Dc(), rc, [] { return TRUE; });
    }

    int DrawComposed(const std::function<int()>& compose, const CRect& rc = kSceneAt)
    {
        return m_board.DrawImage(m_target.Dc(), rc, compose);
    }

    // Draws and answers the calls that happened.
    CallLog::LineList CallsOf(int result, const std::function<int()>& compose, const CRect& rc = kSceneAt)
    {
        CallLog log;
        log.Name(m_target.Dc(), "target");
        const BoardCalls calls(log);
        EXPECT_EQ(DrawComposed(compose, rc), result);
        return log.Lines();
    }

    CallLog::LineList CallsOfFailure()
    {
        return CallsOf(FALSE,
                       []
                       {
                           ADD_FAILURE() << "there is nothing to compose on";
                           return TRUE;
                       });
    }

    testing::AssertionResult NothingWasDrawn() const
    {
        return SamePixels(ArgbImage(100, 80, kWhite), m_target.Pixels());
    }

    bool HasBoard() { return FieldsOf(m_board).pBoard != nullptr && FieldsOf(m_board).pGraphics != nullptr; }

    bool HasNoBoard()
    {
        return FieldsOf(m_board).pBoard == nullptr && FieldsOf(m_board).pGraphics == nullptr;
    }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_board;
    Dib32 m_target{100, 80, kWhite};

private:
    void LoadPlainImage()
    {
        const ResourceDll dll;
        const KeepResourceModule keep;
        AfxSetResourceHandle(dll.Module());
        EXPECT_EQ(m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 1, 1)), TRUE);
    }
};
} // namespace

static_assert(std::is_polymorphic_v<CDrawBoard> && std::has_virtual_destructor_v<CDrawBoard>);

TEST_F(BoardDrawing, ClearsComposesAndDrawsInThisOrder)
{
    m_board.SetDrawBoardSize(CSize(40, 10));
    CallLog log;
    log.Name(m_target.Dc(), "target");
    const BoardCalls calls(log);
    EXPECT_EQ(DrawComposed(
                  [&]
                  {
                      log.Write("compose");
                      return m_board.DrawImageToBoard(kImage, CRect(1, 2, 11, 8));
                  }),
              TRUE);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{
                               "GdipCreateBitmapFromScan0(80, 40, 0, 2498570, null)",
                               "GdipGetImageGraphicsContext(board)",
                               "GdipGraphicsClear(surface, 16777215)",
                               "compose",
                               "GdipDrawImageRectI(surface, image, 2, 14, 20, 12)",
                               "GdipCreateFromHDC(target)",
                               "GdipDrawImageI(graphics, board, 10, 20)",
                               "GdipDeleteGraphics(graphics)",
                           }));
}

TEST_F(BoardDrawing, TheImageIsLoadedWhenItIsFirstDrawn)
{
    CallLog log;
    const StreamCalls streamCalls(log);
    const BoardCalls calls(log);
    DrawComposed([&] { return m_board.DrawImageToBoard(kImage, CRect(0, 0, 16, 16)); });
    const CallLog::LineList& lines = log.Lines();
    ASSERT_GE(lines.size(), 6u);
    EXPECT_EQ(lines[2], "GdipGraphicsClear(surface, 16777215)");
    EXPECT_EQ(lines[3], "GdipLoadImageFromStream(stream)");
    EXPECT_EQ(lines[4], "Release(stream)");
    EXPECT_EQ(lines[5], "GdipDrawImageRectI(surface, image, 0, 0, 16, 16)");
}

TEST_F(BoardDrawing, NoModeOfTheGraphicsIsChanged)
{
    const ImportSpy<decltype(Flat::GdipSetInterpolationMode)> interpolation(VxDpiModule(), nullptr,
                                                                            "GdipSetInterpolationMode");
    const ImportSpy<decltype(Flat::GdipSetSmoothingMode)> smoothing(VxDpiModule(), nullptr,
                                                                    "GdipSetSmoothingMode");
    const ImportSpy<decltype(Flat::GdipSetPixelOffsetMode)> offset(VxDpiModule(), nullptr,
                                                                   "GdipSetPixelOffsetMode");
    const ImportSpy<decltype(Flat::GdipSetCompositingQuality)> quality(VxDpiModule(), nullptr,
                                                                       "GdipSetCompositingQuality");
    DrawComposed([&] { return m_board.DrawImageToBoard(kImage, CRect(0, 0, 80, 40)); });
    EXPECT_EQ(interpolation.CallCount(), 0);
    EXPECT_EQ(smoothing.CallCount(), 0);
    EXPECT_EQ(offset.CallCount(), 0);
    EXPECT_EQ(quality.CallCount(), 0);
}

TEST_F(BoardDrawing, TheLastBoardIsDeletedBeforeItsSurfaceAndBeforeTheNextIsMade)
{
    CallLog log;
    log.Name(m_target.Dc(), "target");
    const BoardCalls calls(log);
    Draw();
    log.Clear();
    EXPECT_EQ(Draw(CRect(0, 0, 7, 9)), TRUE);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{
                               "GdipDisposeImage(board)",
                               "GdipDeleteGraphics(surface)",
                               "GdipCreateBitmapFromScan0(7, 9, 0, 2498570, null)",
                               "GdipGetImageGraphicsContext(board)",
                               "GdipGraphicsClear(surface, 16777215)",
                               "GdipCreateFromHDC(target)",
                               "GdipDrawImageI(graphics, board, 0, 0)",
                               "GdipDeleteGraphics(graphics)",
                           }));
}

TEST_F(BoardDrawing, TheBoardStaysAfterTheDrawing)
{
    const LiveBitmaps live;
    EXPECT_TRUE(HasNoBoard());
    Draw();
    EXPECT_TRUE(HasBoard());
    EXPECT_EQ(live.Count(), 2u);
    EXPECT_EQ(FieldsOf(m_board).pBoard->GetWidth(), 80u);
    EXPECT_EQ(FieldsOf(m_board).pBoard->GetHeight(), 40u);
    EXPECT_EQ(FieldsOf(m_board).pBoard->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST_F(BoardDrawing, ImagesMayBeDrawnOnTheBoardThatStayed)
{
    Draw();
    EXPECT_EQ(m_board.DrawImageToBoard(kImage, CPoint(3, 4)), TRUE);
    const ArgbImage picture = FramedPicture(16, 16);
    const ArgbImage pixels = PixelsOf(*FieldsOf(m_board).pBoard);
    EXPECT_EQ(pixels.At(3 + 5, 4 + 6), picture.At(5, 6));
    EXPECT_EQ(pixels.At(3 + 14, 4 + 14), picture.At(14, 14));
    EXPECT_EQ(pixels.At(2, 4) >> 24, 0u);
}

TEST_F(BoardDrawing, TheDestructorDeletesBoardThenSurfaceThenImages)
{
    CallLog log;
    const BoardCalls calls(log);
    {
        CDrawBoard board;
        board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
        board.DrawImage(m_target.Dc(), kSceneAt,
                        [&] { return board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1)); });
        log.Clear();
    }
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"GdipDisposeImage(board)", "GdipDeleteGraphics(surface)",
                                              "GdipDisposeImage(image)"}));
}

TEST_F(BoardDrawing, ADestroyedBoardNoLongerPointsToItsObjects)
{
    alignas(CDrawBoard) unsigned char memory[sizeof(CDrawBoard)] = {};
    auto* const board = new (memory) CDrawBoard;
    EXPECT_EQ(board->DrawImage(m_target.Dc(), kSceneAt, [] { return TRUE; }), TRUE);
    board->~CDrawBoard();
    void* pointers[2] = {memory, memory};
    std::memcpy(pointers, memory + kOffsetOfGraphics, sizeof pointers);
    EXPECT_EQ(pointers[0], nullptr);
    EXPECT_EQ(pointers[1], nullptr);
}

TEST_F(BoardDrawing, ABoardThatNeverDrewDeletesNothing)
{
    CallLog log;
    const BoardCalls calls(log);
    {
        const CDrawBoard board;
    }
    EXPECT_EQ(log.Lines(), kNoCalls);
}

TEST_F(BoardDrawing, ComposeIsCalledOnceWithTheBoardReady)
{
    int called = 0;
    DrawComposed(
        [&]
        {
            ++called;
            EXPECT_TRUE(HasBoard());
            return TRUE;
        });
    EXPECT_EQ(called, 1);
}

TEST_F(BoardDrawing, AnythingButZeroFromComposeGoesOn)
{
    EXPECT_EQ(DrawComposed([] { return 2; }), TRUE);
    EXPECT_EQ(DrawComposed([] { return -1; }), TRUE);
    EXPECT_EQ(DrawComposed([] { return 0x10000; }), TRUE);
}

TEST_F(BoardDrawing, ZeroFromComposeDrawsNothing)
{
    EXPECT_EQ(
        CallsOf(FALSE, [] { return 0; }),
        (CallLog::LineList{"GdipCreateBitmapFromScan0(80, 40, 0, 2498570, null)",
                           "GdipGetImageGraphicsContext(board)", "GdipGraphicsClear(surface, 16777215)"}));
    EXPECT_EQ(DrawComposed(
                  [this]
                  {
                      EXPECT_EQ(m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 80, 40)), TRUE);
                      return 0;
                  }),
              FALSE);
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, ZeroFromComposeLeavesTheBoard)
{
    DrawComposed([] { return 0; });
    EXPECT_TRUE(HasBoard());
}

TEST_F(BoardDrawing, AnImageThatIsNotDrawnMayCancel)
{
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(kUnknownImage, CPoint(0, 0)); }), FALSE);
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, AnEmptyComposeThrowsWithTheBoardMade)
{
    EXPECT_THROW(m_board.DrawImage(m_target.Dc(), kSceneAt, nullptr), std::bad_function_call);
    EXPECT_TRUE(HasBoard());
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, AnEmptyComposeIsNotCalledWithoutABoard)
{
    EXPECT_EQ(m_board.DrawImage(m_target.Dc(), CRect(0, 0, 0, 0), nullptr), FALSE);
}

TEST_F(BoardDrawing, WhatComposeThrowsReachesTheCaller)
{
    EXPECT_THROW(DrawComposed([]() -> int { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_TRUE(HasBoard());
    EXPECT_TRUE(NothingWasDrawn());
    EXPECT_EQ(Draw(), TRUE);
}

TEST_F(BoardDrawing, AnEmptyBoardDrawsNothingVisible)
{
    EXPECT_EQ(Draw(), TRUE);
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, EachDrawingStartsWithAClearBoard)
{
    DrawComposed([this] { return m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 80, 40)); });
    m_target.Fill(kWhite);
    EXPECT_EQ(Draw(), TRUE);
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, AnImageInItsOwnSizeKeepsItsPixels)
{
    m_target.Fill(0);
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(kImage, CPoint(5, 7)); }), TRUE);
    const ArgbImage picture = FramedPicture(16, 16);
    for (int y = 1; y < 15; ++y)
    {
        for (int x = 1; x < 15; ++x)
            ASSERT_EQ(m_target.At(10 + 5 + x, 20 + 7 + y), picture.At(x, y)) << x << ", " << y;
    }
}

TEST_F(BoardDrawing, HalfTransparentPixelsAreBlendedWithTheTarget)
{
    DrawComposed([this] { return m_board.DrawImageToBoard(kImage, CPoint(5, 7)); });
    EXPECT_TRUE(IsNear(m_target.At(10 + 5 + 8, 20 + 7), 0xffff9f87));
    EXPECT_EQ(m_target.At(10 + 5, 20 + 7), kWhite);
}

TEST_F(BoardDrawing, AStretchedImageFillsItsPlaceAndNothingElse)
{
    m_board.SetDrawBoardSize(CSize(40, 10)); // 2 pixels a unit, 10 pixels above and below
    DrawComposed([this] { return m_board.DrawImageToBoard(kPlainImage, CRect(5, 0, 35, 10)); });
    EXPECT_TRUE(IsRoughly(m_target.At(10 + 11, 20 + 11), kOtherColor));
    EXPECT_TRUE(IsRoughly(m_target.At(10 + 40, 20 + 20), kOtherColor));
    EXPECT_TRUE(IsRoughly(m_target.At(10 + 66, 20 + 27), kOtherColor));
    EXPECT_EQ(m_target.At(10 + 9, 20 + 20), kWhite);
    EXPECT_EQ(m_target.At(10 + 70, 20 + 20), kWhite);
    EXPECT_EQ(m_target.At(10 + 40, 20 + 9), kWhite);
    EXPECT_EQ(m_target.At(10 + 40, 20 + 30), kWhite);
}

TEST_F(BoardDrawing, LaterImagesLieOverEarlierOnes)
{
    DrawComposed(
        [this]
        {
            m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 80, 40));
            return m_board.DrawImageToBoard(kImage, CPoint(10, 10));
        });
    EXPECT_EQ(m_target.At(10 + 10 + 5, 20 + 10 + 6), FramedPicture(16, 16).At(5, 6));
    EXPECT_TRUE(IsRoughly(m_target.At(10 + 60, 20 + 16), kOtherColor));
}

TEST_F(BoardDrawing, TheSceneIsCutOffAtTheBoardsEdges)
{
    DrawComposed([this] { return m_board.DrawImageToBoard(kPlainImage, CRect(-200, -200, 300, 300)); });
    EXPECT_TRUE(IsRoughly(m_target.At(10, 20), kOtherColor));
    EXPECT_TRUE(IsRoughly(m_target.At(89, 59), kOtherColor));
    EXPECT_EQ(m_target.At(9, 40), kWhite);
    EXPECT_EQ(m_target.At(90, 40), kWhite);
    EXPECT_EQ(m_target.At(50, 19), kWhite);
    EXPECT_EQ(m_target.At(50, 60), kWhite);
}

TEST_F(BoardDrawing, TheBoardIsDrawnAtANegativePlace)
{
    CallLog log;
    const BoardCalls calls(log);
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 80, 40)); },
                           CRect(-30, -20, 50, 20)),
              TRUE);
    EXPECT_EQ(LinesOf(log, "GdipDrawImageI"),
              (CallLog::LineList{"GdipDrawImageI(graphics, board, -30, -20)"}));
    EXPECT_TRUE(IsRoughly(m_target.At(0, 0), kOtherColor));
    EXPECT_TRUE(IsRoughly(m_target.At(45, 15), kOtherColor));
    EXPECT_EQ(m_target.At(50, 10), kWhite);
    EXPECT_EQ(m_target.At(40, 20), kWhite);
}

TEST_F(BoardDrawing, TheContextStaysTheCallers)
{
    Draw();
    EXPECT_EQ(::GetObjectType(m_target.Dc()), static_cast<DWORD>(OBJ_MEMDC));
}

TEST_F(BoardDrawing, WithoutAnAreaThereIsNoBoard)
{
    for (const CRect& rc : {CRect(10, 20, 10, 60), CRect(10, 20, 90, 20), CRect(90, 20, 10, 60),
                            CRect(10, 60, 90, 20), CRect(0, 0, 0, 0), CRect(INT_MIN, 0, INT_MAX, 5)})
    {
        EXPECT_EQ(m_board.DrawImage(m_target.Dc(), rc,
                                    []
                                    {
                                        ADD_FAILURE() << "there is nothing to compose on";
                                        return TRUE;
                                    }),
                  FALSE);
        EXPECT_TRUE(HasNoBoard());
    }
}

TEST_F(BoardDrawing, WithoutAnAreaWhatWasMadeIsDeleted)
{
    EXPECT_EQ(CallsOf(
                  FALSE, [] { return TRUE; }, CRect(0, 0, 0, 5)),
              (CallLog::LineList{"GdipCreateBitmapFromScan0(0, 5, 0, 2498570, null)",
                                 "GdipGetImageGraphicsContext(null)", "GdipGraphicsClear(null, 16777215)",
                                 "GdipDisposeImage(null)", "GdipDeleteGraphics(null)"}));
}

TEST_F(BoardDrawing, WithoutMemoryForTheBoardNothingElseIsMade)
{
    Draw();
    const LiveBitmaps live;
    const FailGdipAlloc fail(1);
    CallLog log;
    const BoardCalls calls(log);
    EXPECT_EQ(Draw(), FALSE);
    ASSERT_EQ(log.Lines().size(), 2u);
    EXPECT_EQ(log.Lines()[0].substr(0, 17), "GdipDisposeImage(");
    EXPECT_EQ(log.Lines()[1].substr(0, 19), "GdipDeleteGraphics(");
    EXPECT_EQ(live.Count(), 0u);
    EXPECT_TRUE(HasNoBoard());
}

TEST_F(BoardDrawing, WithoutMemoryForTheSurfaceTheBoardIsDeleted)
{
    const FailGdipAlloc fail(2);
    EXPECT_EQ(CallsOfFailure(), (CallLog::LineList{"GdipCreateBitmapFromScan0(80, 40, 0, 2498570, null)",
                                                   "GdipDisposeImage(board)"}));
    EXPECT_TRUE(HasNoBoard());
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, WithoutASurfaceBothAreDeleted)
{
    const FailingGdiPlus<decltype(Flat::GdipGetImageGraphicsContext)> fail("GdipGetImageGraphicsContext");
    EXPECT_EQ(CallsOfFailure(),
              (CallLog::LineList{"GdipCreateBitmapFromScan0(80, 40, 0, 2498570, null)",
                                 "GdipGetImageGraphicsContext(board)", "GdipGraphicsClear(null, 16777215)",
                                 "GdipDisposeImage(board)", "GdipDeleteGraphics(null)"}));
    EXPECT_TRUE(HasNoBoard());
}

TEST_F(BoardDrawing, ABoardThatCannotBeClearedIsDeletedWithItsSurface)
{
    const FailingGdiPlus<decltype(Flat::GdipGraphicsClear)> fail("GdipGraphicsClear");
    EXPECT_EQ(CallsOfFailure(),
              (CallLog::LineList{"GdipCreateBitmapFromScan0(80, 40, 0, 2498570, null)",
                                 "GdipGetImageGraphicsContext(board)", "GdipGraphicsClear(surface, 16777215)",
                                 "GdipDisposeImage(board)", "GdipDeleteGraphics(surface)"}));
    EXPECT_TRUE(HasNoBoard());
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, TheBoardsSizeIsKeptEvenWhenItCannotBeMade)
{
    Draw(CRect(0, 0, 50, 60));
    const FailGdipAlloc fail;
    Draw(CRect(10, 10, 17, 19));
    EXPECT_EQ(FieldsOf(m_board).mapping.rcDevice, CRect(0, 0, 7, 9));
}

TEST_F(BoardDrawing, TheBoardsSizeChangesBetweenTheLastBoardAndTheNext)
{
    Draw(CRect(0, 0, 50, 60));
    const CRect& size = FieldsOf(m_board).mapping.rcDevice;
    const ImportSpy<decltype(Flat::GdipDeleteGraphics)> deleteGraphics(
        VxDpiModule(), "gdiplus.dll", "GdipDeleteGraphics",
        [&, isFirst = true](Gdiplus::GpGraphics* graphics) mutable
        {
            EXPECT_EQ(size, isFirst ? CRect(0, 0, 50, 60) : CRect(0, 0, 7, 9));
            isFirst = false;
            return deleteGraphics.Original()(graphics);
        });
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> makeBoard(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0",
        [&](INT width, INT height, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
            Gdiplus::GpBitmap** bitmap)
        {
            EXPECT_EQ(size, CRect(0, 0, 7, 9));
            return makeBoard.Original()(width, height, stride, format, bits, bitmap);
        });
    EXPECT_EQ(Draw(CRect(10, 10, 17, 19)), TRUE);
    EXPECT_EQ(deleteGraphics.CallCount(), 2); // the last board's, and the target's
    EXPECT_EQ(makeBoard.CallCount(), 1);
}

TEST_F(BoardDrawing, TheBoardIsUsableAfterAFailure)
{
    {
        const FailingGdiPlus<decltype(Flat::GdipGraphicsClear)> fail("GdipGraphicsClear");
        EXPECT_EQ(Draw(), FALSE);
    }
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 80, 40)); }),
              TRUE);
    EXPECT_TRUE(IsRoughly(m_target.At(50, 40), kOtherColor));
}

TEST_F(BoardDrawing, AnImageThatGdiPlusRefusesIsReported)
{
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectI)> fail("GdipDrawImageRectI", kEveryCall);
    int stretched = -1;
    int atPoint = -1;
    EXPECT_EQ(DrawComposed(
                  [&]
                  {
                      stretched = m_board.DrawImageToBoard(kImage, CRect(0, 0, 10, 10));
                      atPoint = m_board.DrawImageToBoard(kImage, CPoint(0, 0));
                      return TRUE;
                  }),
              TRUE);
    EXPECT_EQ(stretched, FALSE);
    EXPECT_EQ(atPoint, FALSE);
}

TEST_F(BoardDrawing, AnImageOfBytesThatAreNoImageIsRefusedByTheBoard)
{
    m_board.AddImageResource(5, 96, IDR_PNG_GARBAGE, L"PNG");
    EXPECT_EQ(m_board.DrawImageToBoard(5, CRect(0, 0, 10, 10)), TRUE);
    EXPECT_EQ(m_board.DrawImageToBoard(5, CPoint(0, 0)), TRUE);
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(5, CRect(0, 0, 10, 10)); }), FALSE);
    EXPECT_EQ(DrawComposed([this] { return m_board.DrawImageToBoard(5, CPoint(0, 0)); }), FALSE);
}

TEST_F(BoardDrawing, ABoardThatGdiPlusRefusesToDrawIsReportedAndStays)
{
    const FailingGdiPlus<decltype(Flat::GdipDrawImageI)> fail("GdipDrawImageI");
    const CallLog::LineList lines = CallsOf(FALSE, [] { return TRUE; });
    EXPECT_EQ(lines.back(), "GdipDeleteGraphics(graphics)");
    EXPECT_TRUE(HasBoard());
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, AContextThatCannotBeDrawnOnIsReportedAfterComposing)
{
    const FailingGdiPlus<decltype(Flat::GdipCreateFromHDC)> fail("GdipCreateFromHDC");
    int composed = 0;
    const CallLog::LineList lines = CallsOf(FALSE, [&] { return ++composed; });
    EXPECT_EQ(composed, 1);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[3], "GdipCreateFromHDC(target)");
    EXPECT_EQ(lines[4], "GdipDrawImageI(null, board, 10, 20)");
    EXPECT_EQ(lines[5], "GdipDeleteGraphics(null)");
    EXPECT_TRUE(HasBoard());
}

TEST_F(BoardDrawing, WithoutAContextNothingIsDrawn)
{
    int composed = 0;
    EXPECT_EQ(m_board.DrawImage(HDC(nullptr), kSceneAt, [&] { return ++composed; }), FALSE);
    EXPECT_EQ(composed, 1);
    EXPECT_TRUE(HasBoard());
}

// The inner drawing takes the board away and can't make another.
TEST_F(BoardDrawing, AComposeThatLosesTheBoardIsReported)
{
    EXPECT_EQ(DrawComposed(
                  [this]
                  {
                      EXPECT_EQ(Draw(CRect(0, 0, 0, 0)), FALSE);
                      return TRUE;
                  }),
              FALSE);
    EXPECT_TRUE(NothingWasDrawn());
}

TEST_F(BoardDrawing, AComposeThatDrawsTheBoardItselfLeavesTheInnerBoardToDraw)
{
    EXPECT_EQ(DrawComposed(
                  [this]
                  {
                      return DrawComposed(
                          [this] { return m_board.DrawImageToBoard(kPlainImage, CRect(0, 0, 9, 9)); },
                          CRect(0, 0, 5, 5));
                  }),
              TRUE);
    EXPECT_TRUE(IsRoughly(m_target.At(2, 2), kOtherColor));
    EXPECT_TRUE(IsRoughly(m_target.At(10 + 2, 20 + 2), kOtherColor));
    EXPECT_EQ(m_target.At(10 + 5, 20 + 2), kWhite);
}

TEST_F(BoardDrawing, AThousandDrawingsLeaveNothingBehind)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int i = 0; i < 34; ++i)
            {
                EXPECT_EQ(DrawComposed(
                              [this]
                              {
                                  m_board.DrawImageToBoard(kImage, CRect(0, 0, 5, 5));
                                  return m_board.DrawImageToBoard(kImage, CPoint(5, 5));
                              }),
                          TRUE);
            }
        });
}

TEST_F(BoardDrawing, NothingIsLeftOfABoardThatDrew)
{
    EXPECT_NO_LEAK(
        [this]
        {
            CDrawBoard board;
            board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
            board.DrawImage(m_target.Dc(), kSceneAt,
                            [&] { return board.DrawImageToBoard(kImage, CPoint(0, 0)); });
        });
}

TEST_F(BoardDrawing, FailuresLeaveNothingBehind)
{
    EXPECT_NO_LEAK([this] { Draw(CRect(0, 0, 0, 0)); });
    EXPECT_NO_LEAK([this] { DrawComposed([] { return 0; }); });
    {
        const FailGdipAlloc fail;
        EXPECT_NO_LEAK([this] { Draw(); });
    }
    {
        const FailingGdiPlus<decltype(Flat::GdipGraphicsClear)> fail("GdipGraphicsClear", kEveryCall);
        EXPECT_NO_LEAK([this] { Draw(); });
    }
    {
        const FailingGdiPlus<decltype(Flat::GdipDrawImageI)> fail("GdipDrawImageI", kEveryCall);
        EXPECT_NO_LEAK([this] { Draw(); });
    }
}
