#include <vxdpi/DrawBoard.h>

#include "drawboard/BoardCalls.h"
#include "drawboard/BoardFields.h"
#include "drawboard/PictureControls.h"
#include "resources/resource_ids.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace
{
constexpr UINT kImage = 1;

HBITMAP SomeBitmap()
{
    return ::CreateBitmap(8, 8, 1, 32, nullptr);
}

bool IsAlive(HBITMAP bitmap)
{
    return ::GetObjectType(bitmap) == OBJ_BITMAP;
}

// A bitmap of the test's own that the library may delete.
class Deletable
{
public:
    Deletable() : m_handle(SomeBitmap()) {}

    ~Deletable()
    {
        if (IsAlive(m_handle))
            ::DeleteObject(m_handle);
    }

    Deletable(const Deletable&) = delete;
    Deletable& operator=(const Deletable&) = delete;

    HBITMAP Handle() const { return m_handle; }

private:
    HBITMAP m_handle;
};

class PictureDrawing : public testing::Test
{
protected:
    PictureDrawing() { m_board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG"); }

    // Draws the image in its own size at (5, 7).
    int Draw(CStatic& control)
    {
        return m_board.DrawImage(control, [this] { return m_board.DrawImageToBoard(kImage, CPoint(5, 7)); });
    }

    int DrawNothing(CStatic& control)
    {
        return m_board.DrawImage(control, [] { return TRUE; });
    }

    // The calls from the bitmap's making on, with a control that answers on its own.
    CallLog::LineList HandOver(HBITMAP previous, const std::function<HBITMAP(HBITMAP)>& shown)
    {
        CallLog log;
        RecordingPicture control(log, {previous, shown});
        log.Name(previous, "previous");
        const BoardCalls calls(log);
        EXPECT_EQ(DrawNothing(control), TRUE);
        CallLog::LineList lines = log.Lines();
        lines.erase(lines.begin(), lines.begin() + 3);
        return lines;
    }

    // The result and the calls of a drawing that gives the control nothing.
    CallLog::LineList CallsOfFailure(const std::function<int()>& compose = [] { return TRUE; })
    {
        CallLog log;
        RecordingPicture control(log);
        const BoardCalls calls(log);
        EXPECT_EQ(m_board.DrawImage(control, compose), FALSE);
        return log.Lines();
    }

    bool HasBoard() { return FieldsOf(m_board).pBoard != nullptr && FieldsOf(m_board).pGraphics != nullptr; }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_board;
};

// The same for a real control that keeps the bitmap and one that copies it.
enum class Keeps
{
    TheBitmap,
    ACopy
};

class ShownPicture : public PictureDrawing, public testing::WithParamInterface<Keeps>
{
protected:
    ShownPicture()
    {
        if (GetParam() == Keeps::ACopy)
            m_version6.emplace();
        m_control.emplace();
    }

    std::optional<CommonControls6> m_version6; // for as long as the control lives
    std::optional<PictureControl> m_control;
};

INSTANTIATE_TEST_SUITE_P(Controls, ShownPicture, testing::Values(Keeps::TheBitmap, Keeps::ACopy),
                         [](const testing::TestParamInfo<Keeps>& info)
                         { return info.param == Keeps::ACopy ? "KeepingACopy" : "KeepingTheBitmap"; });
} // namespace

TEST_F(PictureDrawing, ComposesConvertsAndHandsOverInThisOrder)
{
    CallLog log;
    RecordingPicture control(log);
    const BoardCalls calls(log);
    EXPECT_EQ(m_board.DrawImage(control,
                                [&]
                                {
                                    log.Write("compose");
                                    return TRUE;
                                }),
              TRUE);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{
                               "GdipCreateBitmapFromScan0(60, 40, 0, 2498570, null)",
                               "GdipGetImageGraphicsContext(board)",
                               "GdipGraphicsClear(surface, 16777215)",
                               "compose",
                               "GdipCreateHBITMAPFromBitmap(board, 0)",
                               "STM_SETIMAGE(0, handle)",
                               "STM_GETIMAGE(0, 0)",
                           }));
}

TEST_F(PictureDrawing, ASecondPictureReplacesTheFirst)
{
    CallLog log;
    RecordingPicture control(log);
    DrawNothing(control);
    log.Name(control.GetBitmap(), "previous");
    log.Clear();
    const BoardCalls calls(log);
    EXPECT_EQ(DrawNothing(control), TRUE);
    ASSERT_EQ(log.Lines().size(), 9u); // with the last board's two objects
    EXPECT_EQ(log.Lines()[5], "GdipCreateHBITMAPFromBitmap(board, 0)");
    EXPECT_EQ(log.Lines()[6], "STM_SETIMAGE(0, handle)");
    EXPECT_EQ(log.Lines()[7], "STM_GETIMAGE(0, 0)");
    EXPECT_EQ(log.Lines()[8], "DeleteObject(previous)");
}

TEST_F(PictureDrawing, AKeptBitmapIsNotDeleted)
{
    HBITMAP kept = nullptr;
    EXPECT_EQ(HandOver(nullptr, [&](HBITMAP given) { return kept = given; }),
              (CallLog::LineList{"GdipCreateHBITMAPFromBitmap(board, 0)", "STM_SETIMAGE(0, handle)",
                                 "STM_GETIMAGE(0, 0)"}));
    EXPECT_TRUE(IsAlive(kept));
    ::DeleteObject(kept);
}

TEST_F(PictureDrawing, APreviousBitmapIsDeletedAfterTheNewOneIsKept)
{
    const Deletable previous;
    HBITMAP kept = nullptr;
    EXPECT_EQ(HandOver(previous.Handle(), [&](HBITMAP given) { return kept = given; }),
              (CallLog::LineList{"GdipCreateHBITMAPFromBitmap(board, 0)", "STM_SETIMAGE(0, handle)",
                                 "STM_GETIMAGE(0, 0)", "DeleteObject(previous)"}));
    EXPECT_FALSE(IsAlive(previous.Handle()));
    EXPECT_TRUE(IsAlive(kept));
    ::DeleteObject(kept);
}

TEST_F(PictureDrawing, ABitmapThatTheControlCopiedIsDeleted)
{
    const Deletable copy;
    EXPECT_EQ(HandOver(nullptr, [&](HBITMAP) { return copy.Handle(); }),
              (CallLog::LineList{"GdipCreateHBITMAPFromBitmap(board, 0)", "STM_SETIMAGE(0, handle)",
                                 "STM_GETIMAGE(0, 0)", "DeleteObject(handle)"}));
    EXPECT_TRUE(IsAlive(copy.Handle()));
}

TEST_F(PictureDrawing, ACopiedBitmapIsDeletedBeforeThePreviousOne)
{
    const Deletable previous;
    const Deletable copy;
    EXPECT_EQ(HandOver(previous.Handle(), [&](HBITMAP) { return copy.Handle(); }),
              (CallLog::LineList{"GdipCreateHBITMAPFromBitmap(board, 0)", "STM_SETIMAGE(0, handle)",
                                 "STM_GETIMAGE(0, 0)", "DeleteObject(handle)", "DeleteObject(previous)"}));
    EXPECT_FALSE(IsAlive(previous.Handle()));
    EXPECT_TRUE(IsAlive(copy.Handle()));
}

TEST_F(PictureDrawing, ABitmapThatTheControlDoesNotShowIsDeleted)
{
    EXPECT_EQ(HandOver(nullptr, [](HBITMAP) { return nullptr; }),
              (CallLog::LineList{"GdipCreateHBITMAPFromBitmap(board, 0)", "STM_SETIMAGE(0, handle)",
                                 "STM_GETIMAGE(0, 0)", "DeleteObject(handle)"}));
}

TEST_F(PictureDrawing, AControlThatShowsNoBitmapsIsGivenOneThatGoesAtOnce)
{
    PictureControl control(SS_LEFT);
    EXPECT_EQ(Draw(control), TRUE);
    EXPECT_NO_LEAK([&] { EXPECT_EQ(Draw(control), TRUE); });
}

TEST_F(PictureDrawing, TheBoardHasTheSizeOfTheClientArea)
{
    PictureControl control(SS_BITMAP | WS_BORDER);
    CRect client;
    control.GetClientRect(&client);
    ASSERT_LT(client.Width(), 60);
    EXPECT_EQ(DrawNothing(control), TRUE);
    EXPECT_EQ(FieldsOf(m_board).mapping.rcDevice, client);
    EXPECT_EQ(FieldsOf(m_board).pBoard->GetWidth(), static_cast<UINT>(client.Width()));
    EXPECT_EQ(FieldsOf(m_board).pBoard->GetHeight(), static_cast<UINT>(client.Height()));
}

TEST_F(PictureDrawing, AnythingButZeroFromComposeGoesOn)
{
    PictureControl control;
    EXPECT_EQ(m_board.DrawImage(control, [] { return -1; }), TRUE);
    EXPECT_EQ(m_board.DrawImage(control, [] { return 0x10000; }), TRUE);
}

TEST_F(PictureDrawing, TheBoardStaysAfterTheDrawing)
{
    PictureControl control;
    DrawNothing(control);
    EXPECT_TRUE(HasBoard());
}

TEST_F(PictureDrawing, ZeroFromComposeLeavesTheControlAndTheBoard)
{
    EXPECT_EQ(
        CallsOfFailure([] { return 0; }),
        (CallLog::LineList{"GdipCreateBitmapFromScan0(60, 40, 0, 2498570, null)",
                           "GdipGetImageGraphicsContext(board)", "GdipGraphicsClear(surface, 16777215)"}));
    EXPECT_TRUE(HasBoard());
}

TEST_F(PictureDrawing, AnEmptyComposeThrowsWithTheBoardMade)
{
    CallLog log;
    RecordingPicture control(log);
    EXPECT_THROW(m_board.DrawImage(control, nullptr), std::bad_function_call);
    EXPECT_TRUE(HasBoard());
    EXPECT_EQ(log.Lines(), CallLog::LineList());
}

TEST_F(PictureDrawing, AControlWithoutAreaIsNotComposedFor)
{
    PictureControl control;
    control.SetWindowPos(nullptr, 0, 0, 0, 40, SWP_NOZORDER);
    EXPECT_EQ(m_board.DrawImage(control,
                                []
                                {
                                    ADD_FAILURE() << "there is nothing to compose on";
                                    return TRUE;
                                }),
              FALSE);
    EXPECT_EQ(control.GetBitmap(), nullptr);
    EXPECT_FALSE(HasBoard());
}

TEST_F(PictureDrawing, WithoutABoardTheControlIsLeftAlone)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(CallsOfFailure(), CallLog::LineList());
}

// The inner drawing takes the board away and can't make another.
TEST_F(PictureDrawing, AComposeThatLosesTheBoardLeavesTheControl)
{
    CallLog log;
    RecordingPicture control(log);
    const ImportSpy<decltype(Flat::GdipCreateHBITMAPFromBitmap)> convert(VxDpiModule(), "gdiplus.dll",
                                                                         "GdipCreateHBITMAPFromBitmap");
    EXPECT_EQ(m_board.DrawImage(control,
                                [this]
                                {
                                    m_board.DrawImage(HDC(nullptr), CRect(0, 0, 0, 0), nullptr);
                                    return TRUE;
                                }),
              FALSE);
    EXPECT_EQ(convert.CallCount(), 0);
    EXPECT_EQ(log.Lines(), CallLog::LineList());
}

TEST_F(PictureDrawing, ABoardThatCannotBeConvertedLeavesTheControl)
{
    const FailingGdiPlus<decltype(Flat::GdipCreateHBITMAPFromBitmap)> fail("GdipCreateHBITMAPFromBitmap");
    const CallLog::LineList lines = CallsOfFailure();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines.back(), "GdipCreateHBITMAPFromBitmap(board, 0)");
    EXPECT_TRUE(HasBoard());
}

TEST_F(PictureDrawing, AConversionWithoutABitmapLeavesTheControl)
{
    const ImportSpy<decltype(Flat::GdipCreateHBITMAPFromBitmap)> convert(
        VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap",
        [](Gdiplus::GpBitmap*, HBITMAP*, Gdiplus::ARGB) { return Gdiplus::Ok; });
    CallLog log;
    RecordingPicture control(log);
    EXPECT_EQ(DrawNothing(control), FALSE);
    EXPECT_EQ(convert.CallCount(), 1);
    EXPECT_EQ(log.Lines(), CallLog::LineList());
}

TEST_F(PictureDrawing, AFailureLeavesThePictureThatIsShown)
{
    PictureControl control;
    Draw(control);
    const HBITMAP shown = control.GetBitmap();
    const FailingGdiPlus<decltype(Flat::GdipCreateHBITMAPFromBitmap)> fail("GdipCreateHBITMAPFromBitmap");
    EXPECT_EQ(Draw(control), FALSE);
    EXPECT_EQ(m_board.DrawImage(control, [] { return 0; }), FALSE);
    EXPECT_EQ(control.GetBitmap(), shown);
    EXPECT_TRUE(IsAlive(shown));
}

TEST_F(PictureDrawing, FailuresLeaveNothingBehind)
{
    PictureControl control;
    EXPECT_NO_LEAK([&] { m_board.DrawImage(control, [] { return 0; }); });
    {
        const FailingGdiPlus<decltype(Flat::GdipCreateHBITMAPFromBitmap)> fail("GdipCreateHBITMAPFromBitmap",
                                                                               FailGdipAlloc::kEveryCall);
        EXPECT_NO_LEAK([&] { Draw(control); });
    }
    {
        const FailGdipAlloc fail;
        EXPECT_NO_LEAK([&] { Draw(control); });
    }
}

TEST_P(ShownPicture, TheControlIsOfTheRightKind)
{
    const HBITMAP bitmap = SomeBitmap();
    std::uint32_t halfTransparent[64] = {};
    std::fill(std::begin(halfTransparent), std::end(halfTransparent), 0x80402010u);
    ::SetBitmapBits(bitmap, sizeof halfTransparent, halfTransparent);
    const bool isKept = m_control->Show(bitmap) == bitmap;
    EXPECT_EQ(isKept, GetParam() == Keeps::TheBitmap);
    if (!isKept)
        ::DeleteObject(bitmap);
}

TEST_P(ShownPicture, HasTheScenesPixels)
{
    EXPECT_EQ(Draw(*m_control), TRUE);
    ASSERT_NE(m_control->GetBitmap(), nullptr);
    const ArgbImage pixels = PixelsOf(m_control->GetBitmap());
    ASSERT_EQ(pixels.Width(), 60);
    ASSERT_EQ(pixels.Height(), 40);
    EXPECT_EQ(pixels.At(5 + 6, 7 + 9), FramedPicture(16, 16).At(6, 9));
    EXPECT_EQ(pixels.At(5 + 8, 7) >> 24, 0x80u);
    EXPECT_EQ(pixels.At(5, 7), 0u);
    EXPECT_EQ(pixels.At(40, 30), 0u);
}

// A control that copies may multiply the colours once more.
TEST_F(PictureDrawing, AKeptBitmapHasItsColorsMultipliedByAlpha)
{
    PictureControl control;
    Draw(control);
    EXPECT_TRUE(IsNear(PixelsOf(control.GetBitmap()).At(5 + 8, 7), 0x80802008));
}

TEST_P(ShownPicture, OneBitmapIsLeftToTheControl)
{
    const HandleCount before = HandleCount::Now();
    EXPECT_EQ(Draw(*m_control), TRUE);
    EXPECT_TRUE(IsAlive(m_control->GetBitmap()));
    const HandleCount growth = HandleCount::Now() - before;
    EXPECT_EQ(growth[HandleKind::GdiTotal], 1);
}

TEST_P(ShownPicture, ANewPictureTakesThePlaceOfTheLast)
{
    DrawNothing(*m_control);
    const HBITMAP first = m_control->GetBitmap();
    EXPECT_EQ(Draw(*m_control), TRUE);
    EXPECT_NE(m_control->GetBitmap(), first);
    EXPECT_FALSE(IsAlive(first));
    EXPECT_TRUE(IsAlive(m_control->GetBitmap()));
}

TEST_P(ShownPicture, APictureOfOthersIsDeleted)
{
    const Deletable others;
    const HBITMAP shown = m_control->Show(others.Handle());
    EXPECT_EQ(Draw(*m_control), TRUE);
    EXPECT_FALSE(IsAlive(shown));
}

TEST_P(ShownPicture, AThousandPicturesLeaveNothingBehind)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int i = 0; i < 34; ++i)
            {
                EXPECT_EQ(i % 2 == 0 ? Draw(*m_control) : DrawNothing(*m_control), TRUE);
            }
        });
}

TEST_P(ShownPicture, ASceneIsFittedIntoTheControl)
{
    m_board.SetDrawBoardSize(CSize(20, 20));
    EXPECT_EQ(m_board.DrawImage(*m_control,
                                [this] { return m_board.DrawImageToBoard(kImage, CRect(0, 0, 20, 20)); }),
              TRUE);
    const ArgbImage pixels = PixelsOf(m_control->GetBitmap());
    EXPECT_EQ(pixels.At(9, 20), 0u);
    EXPECT_EQ(pixels.At(30, 20) >> 24, 0xffu);
    EXPECT_EQ(pixels.At(51, 20), 0u);
}
