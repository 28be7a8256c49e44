#include "drawboard/PictureControls.h"
#include "png/GdiPlusSequence.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/Pixels.h"
#include "support/TestResources.h"

#include <vxdpi/DrawBoard.h>

namespace
{
namespace Flat = Gdiplus::DllExports;

constexpr UINT kImage = 1;

const CallNames kFind = {"AfxGetResourceHandle", "FindResourceW"};
const CallNames kLock = InOrder({kFind, {"SizeofResource"}, kLockResource});
const CallNames kLoadImage = InOrder(
    {kLock, kCopyBytes, {"CreateStreamOnHGlobal", "GdipAlloc", "GdipLoadImageFromStream"}, {"GlobalFree"}});

const CallNames kMakeBoard =
    InOrder({kNewBitmap, {"GdipAlloc", "GdipGetImageGraphicsContext", "GdipGraphicsClear"}});
const CallNames kDeleteSurface = {"GdipDeleteGraphics", "GdipFree"};
const CallNames kDeleteBoard = InOrder({kDeleteImage, kDeleteSurface});

const CallNames kMeasure = {"GdipGetImageWidth", "MulDiv", "GdipGetImageHeight", "MulDiv"};
const CallNames kShow = {"GdipCreateFromHDC", "GdipDrawImageI", "GdipDeleteGraphics"};
const CallNames kHandOver = {"GdipCreateHBITMAPFromBitmap", "CStatic::SetBitmap", "CStatic::GetBitmap"};

class BoardSequence : public FrameworkCallSequence
{
protected:
    BoardSequence() { m_board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG"); }

    // The image at a point; the result is that of the composing.
    int Compose(int result = TRUE)
    {
        m_board.DrawImageToBoard(kImage, CPoint(1, 2));
        return result;
    }

    CallNames DrawInContext(int composed = TRUE)
    {
        const Dib32 surface(24, 24);
        return CallsOf(
            [&] { m_board.DrawImage(surface.Dc(), CRect(0, 0, 24, 24), [=] { return Compose(composed); }); });
    }

    CallNames DrawInControl(CStatic& control, int composed = TRUE)
    {
        return CallsOf([&] { m_board.DrawImage(control, [=] { return Compose(composed); }); });
    }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_board;
};

// Answers to being given a bitmap, as controls do that make a copy of it.
RecordingPicture::Answers CopyOf(HBITMAP previous, HBITMAP copy)
{
    return {previous, [copy](HBITMAP) { return copy; }};
}
}

class ImageSequence : public FrameworkCallSequence
{
protected:
    CallNames Load(UINT id)
    {
        CImageResource image(96u, id, L"PNG");
        return CallsOf([&] { image.GetImage(); });
    }

private:
    const GdiPlusSession m_gdiPlus;
};

TEST_F(ImageSequence, AnImageIsLoadedOnceAndItsBytesAreFreed)
{
    CImageResource image(96u, IDR_PNG_16, L"PNG");
    EXPECT_TRUE(AreCalls(CallsOf([&] { image.GetImage(); }), kLoadImage));
    EXPECT_TRUE(AreCalls(CallsOf([&] { image.GetImage(); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { image.DestroyImage(); }), kDeleteImage));
    EXPECT_TRUE(AreCalls(CallsOf([&] { image.DestroyImage(); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { image.GetImage(); }), kLoadImage));
}

TEST_F(ImageSequence, LoadingEndsWithTheFirstStepThatFails)
{
    EXPECT_TRUE(AreCalls(Load(IDR_MISSING), kFind));
    {
        const FailNthCall<decltype(::GlobalLock)> noLock(VxDpiModule(), "kernel32.dll", "GlobalLock", 1,
                                                         nullptr);
        EXPECT_TRUE(
            AreCalls(Load(IDR_PNG_16), InOrder({kLock, {"GlobalAlloc", "GlobalLock", "GlobalFree"}})));
    }
    const FailNthCall<decltype(::CreateStreamOnHGlobal)> noStream(VxDpiModule(), "ole32.dll",
                                                                  "CreateStreamOnHGlobal", 1, E_FAIL);
    EXPECT_TRUE(
        AreCalls(Load(IDR_PNG_16), InOrder({kLock, kCopyBytes, {"CreateStreamOnHGlobal", "GlobalFree"}})));
}

TEST_F(BoardSequence, ABoardIsMadeDrawnOnAndShown)
{
    EXPECT_TRUE(AreCalls(DrawInContext(),
                         InOrder({kMakeBoard, kLoadImage, kMeasure, {"GdipDrawImageRectI"}, kShow})));
}

TEST_F(BoardSequence, TheOldBoardIsDeletedBeforeTheNewOneIsMade)
{
    DrawInContext();
    EXPECT_TRUE(AreCalls(DrawInContext(),
                         InOrder({kDeleteBoard, kMakeBoard, kMeasure, {"GdipDrawImageRectI"}, kShow})));
}

TEST_F(BoardSequence, WithoutABoardAnImageIsLoadedAndMeasuredOnly)
{
    const auto drawAtPoint = [&] { m_board.DrawImageToBoard(kImage, CPoint(1, 2)); };
    EXPECT_TRUE(AreCalls(CallsOf(drawAtPoint), InOrder({kLoadImage, kMeasure})));
    const auto drawInRect = [&] { m_board.DrawImageToBoard(kImage, CRect(0, 0, 5, 5)); };
    EXPECT_TRUE(AreCalls(CallsOf(drawInRect), {}));
    const auto drawNone = [&] { m_board.DrawImageToBoard(kImage + 1, CPoint(1, 2)); };
    EXPECT_TRUE(AreCalls(CallsOf(drawNone), {}));
}

TEST_F(BoardSequence, AnImageInARectangleIsNotMeasured)
{
    DrawInContext();
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_board.DrawImageToBoard(kImage, CRect(0, 0, 5, 5)); }),
                         {"GdipDrawImageRectI"}));
}

TEST_F(BoardSequence, WhatIsNotComposedIsNotShown)
{
    const CallNames composed = InOrder({kLoadImage, kMeasure, {"GdipDrawImageRectI"}});
    EXPECT_TRUE(AreCalls(DrawInContext(FALSE), InOrder({kMakeBoard, composed})));
    PictureControl control;
    EXPECT_TRUE(AreCalls(
        DrawInControl(control, FALSE),
        InOrder({{"CWnd::GetClientRect"}, kDeleteBoard, kMakeBoard, kMeasure, {"GdipDrawImageRectI"}})));
}

TEST_F(BoardSequence, ABoardThatCannotBeMadeIsTakenBack)
{
    const auto draw = [&] { m_board.DrawImage(nullptr, CRect(0, 0, 9, 9), [] { return TRUE; }); };
    {
        const FailGdipAlloc noBoard(1);
        EXPECT_TRUE(AreCalls(CallsOf(draw), {"GdipAlloc"}));
    }
    {
        const FailGdipAlloc noSurface(2);
        EXPECT_TRUE(AreCalls(CallsOf(draw), InOrder({kNewBitmap, {"GdipAlloc"}, kDeleteImage})));
    }
    const FailNthCall<decltype(Flat::GdipGraphicsClear)> notCleared(
        VxDpiModule(), "gdiplus.dll", "GdipGraphicsClear", 1, Gdiplus::GenericError);
    EXPECT_TRUE(AreCalls(CallsOf(draw), InOrder({kMakeBoard, kDeleteBoard})));
}

TEST_F(BoardSequence, AControlThatKeepsTheBitmapIsLeftIt)
{
    PictureControl control;
    m_board.DrawImageToBoard(kImage, CPoint(0, 0));
    const CallNames drawn = InOrder({kMakeBoard, kMeasure, {"GdipDrawImageRectI"}});
    EXPECT_TRUE(AreCalls(DrawInControl(control), InOrder({{"CWnd::GetClientRect"}, drawn, kHandOver})));
    EXPECT_TRUE(
        AreCalls(DrawInControl(control),
                 InOrder({{"CWnd::GetClientRect"}, kDeleteBoard, drawn, kHandOver, {"DeleteObject"}})));
}

TEST_F(BoardSequence, AControlThatMakesACopyCostsOneMoreDeletion)
{
    CallLog log;
    m_board.DrawImageToBoard(kImage, CPoint(0, 0));
    const auto draw = [&](HBITMAP previous)
    {
        RecordingPicture control(log, CopyOf(previous, nullptr));
        return DrawInControl(control);
    };
    const CallNames drawn = InOrder({kMakeBoard, kMeasure, {"GdipDrawImageRectI"}, kHandOver});
    EXPECT_TRUE(AreCalls(draw(nullptr), InOrder({{"CWnd::GetClientRect"}, drawn, {"DeleteObject"}})));
    const HBITMAP previous = ::CreateBitmap(1, 1, 1, 1, nullptr);
    EXPECT_TRUE(
        AreCalls(draw(previous),
                 InOrder({{"CWnd::GetClientRect"}, kDeleteBoard, drawn, {"DeleteObject", "DeleteObject"}})));
}

TEST_F(BoardSequence, AControlIsNotTouchedWithoutABitmap)
{
    PictureControl control;
    const FailNthCall<decltype(Flat::GdipCreateHBITMAPFromBitmap)> noBitmap(
        VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap", 1, Gdiplus::GenericError);
    m_board.DrawImageToBoard(kImage, CPoint(0, 0));
    EXPECT_TRUE(AreCalls(DrawInControl(control), InOrder({{"CWnd::GetClientRect"},
                                                          kMakeBoard,
                                                          kMeasure,
                                                          {"GdipDrawImageRectI"},
                                                          {"GdipCreateHBITMAPFromBitmap"}})));
}

TEST_F(BoardSequence, SettingsNeedNoCall)
{
    EXPECT_TRUE(AreCalls(CallsOf(
                             [&]
                             {
                                 m_board.SetDpi(144);
                                 m_board.SetDrawBoardSize(CSize(100, 50));
                                 m_board.AddImageResource(kImage, 144, IDR_PNG_24, L"PNG");
                             }),
                         {}));
}
