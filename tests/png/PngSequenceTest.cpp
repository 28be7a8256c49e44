#include "foundation/FrameworkWindow.h"
#include "png/DrawingCalls.h"
#include "png/GdiPlusSequence.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/Pixels.h"
#include "support/TestPictures.h"
#include "support/TestResources.h"

#include <vxdpi/Png.h>

namespace
{
// The framework's module may change at any time, so it is asked for by each step.
const CallNames kFindInFramework = {"AfxGetResourceHandle", "FindResourceW"};
const CallNames kMeasureInFramework = InOrder({kFindInFramework, {"AfxGetResourceHandle", "SizeofResource"}});
const CallNames kLockInFramework = InOrder({kMeasureInFramework, {"AfxGetResourceHandle"}, kLockResource});
const CallNames kLoadFromFramework = InOrder({kLockInFramework, kCopyBytes, {"FreeResource"}, kDecode});

const CallNames kLockInModule = InOrder({{"FindResourceW", "SizeofResource"}, kLockResource});
const CallNames kLoadFromModule = InOrder({kLockInModule, kCopyBytes, {"FreeResource"}, kDecode});

// The scaled picture as a handle, after the decoded one is gone.
const CallNames kConvert = InOrder({kDeleteImage, {"GdipCreateHBITMAPFromBitmap"}, kDeleteImage});

const CallNames kSmooth = {"GdipSetInterpolationMode", "GdipSetSmoothingMode", "GdipSetPixelOffsetMode"};
const CallNames kDraw =
    InOrder({{"GdipCreateFromHDC"}, kSmooth, {"GdipSetCompositingQuality", "GdipDrawImageRectRect"}});

const CallNames kMemory = {"CreateCompatibleDC", "CreateDIBSection", "SelectObject"};
const CallNames kFreeMemory = {"SelectObject", "DeleteObject", "DeleteDC"};
const CallNames kDrawIntoMemory = InOrder({{"GdipCreateFromHDC"},
                                           kSmooth,
                                           kAskSize,
                                           {"GdipDrawImageRectRect"},
                                           kDeleteImage,
                                           {"GdipDeleteGraphics"}});
const CallNames kBlend = InOrder({{"CDC::CDC", "CDC::CDC", "CDC::Attach", "CDC::Attach", "AlphaBlend"},
                                  kFreeMemory,
                                  {"CDC::~CDC", "CDC::~CDC"}});

class OpenPng : public CDpiAwarePng
{
public:
    using CDpiAwarePng::CreateBitmapFromPngResource;
};

template<typename Signature>
class FailFirst : public FailNthCall<Signature>
{
public:
    FailFirst(const char* dllName, const char* functionName, int call = 1)
        : FailNthCall<Signature>(VxDpiModule(), dllName, functionName, call, {})
    {
    }
};

class PngSequence : public FrameworkCallSequence
{
protected:
    PngSequence() { m_png.AddResourceForDpi(96, IDR_PNG_16, {}); }

    CallNames Load(UINT id)
    {
        std::unique_ptr<Gdiplus::Bitmap> bitmap;
        return CallsOf([&] { bitmap.reset(m_png.CreateBitmapFromPngResource(id)); });
    }

    CallNames LoadFromModule(UINT id)
    {
        std::unique_ptr<Gdiplus::Bitmap> bitmap;
        return CallsOf([&]
                       { bitmap.reset(m_png.CreateBitmapFromPngResource(id, ::GetModuleHandleW(nullptr))); });
    }

    CallNames Scale(Gdiplus::Size* size = nullptr)
    {
        HBITMAP bitmap = nullptr;
        const CallNames calls = CallsOf([&] { bitmap = m_png.ScalePngResource(144, size, {}); });
        ::DeleteObject(bitmap);
        return calls;
    }

    CallNames Draw(UINT dpi, Gdiplus::Size* size = nullptr)
    {
        const Dib32 surface(24, 24);
        return CallsOf([&] { m_png.DrawPngInDC(surface.Dc(), dpi, {0, 0, 24, 24}, nullptr, size); });
    }

    CallNames DrawMeta(UINT dpi, Gdiplus::Size* size = nullptr)
    {
        const HDC consumed = ::CreateCompatibleDC(nullptr);
        return CallsOf([&] { m_png.DrawPngInMetaDC(consumed, dpi, {0, 0, 24, 24}, nullptr, size); });
    }

    const GdiPlusSession m_gdiPlus;
    OpenPng m_png;
};

class FailDecoding : public FailNthCall<decltype(Flat::GdipCreateBitmapFromStream)>
{
public:
    FailDecoding()
        : FailNthCall(VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream", 1, Gdiplus::GenericError)
    {
    }
};
}

TEST_F(PngSequence, AResourceIsCopiedFreedAndDecoded)
{
    EXPECT_TRUE(AreCalls(Load(IDR_PNG_16), kLoadFromFramework));
    EXPECT_TRUE(AreCalls(LoadFromModule(IDR_PNG_16), kLoadFromModule));
    std::unique_ptr<Gdiplus::Bitmap> bitmap;
    EXPECT_TRUE(AreCalls(CallsOf([&] { bitmap.reset(m_png.GetGdiplusBitmap(144)); }), kLoadFromFramework));
}

TEST_F(PngSequence, AMissingOrEmptyResourceIsNotLoaded)
{
    EXPECT_TRUE(AreCalls(Load(IDR_MISSING), kFindInFramework));
    EXPECT_TRUE(AreCalls(LoadFromModule(IDR_MISSING), {"FindResourceW"}));
    const FailFirst<decltype(::SizeofResource)> empty("kernel32.dll", "SizeofResource");
    EXPECT_TRUE(AreCalls(Load(IDR_PNG_16), kMeasureInFramework));
}

TEST_F(PngSequence, WithoutMemoryTheResourceOfAModuleIsNotFreed)
{
    {
        const FailFirst<decltype(::GlobalAlloc)> noBlock("kernel32.dll", "GlobalAlloc");
        EXPECT_TRUE(AreCalls(Load(IDR_PNG_16), InOrder({kLockInFramework, {"GlobalAlloc", "FreeResource"}})));
    }
    const FailFirst<decltype(::GlobalAlloc)> noBlock("kernel32.dll", "GlobalAlloc");
    EXPECT_TRUE(AreCalls(LoadFromModule(IDR_PNG_16), InOrder({kLockInModule, {"GlobalAlloc"}})));
}

TEST_F(PngSequence, ABlockThatCannotBeLockedIsFreed)
{
    const CallNames failed = {"GlobalAlloc", "GlobalLock", "GlobalFree"};
    {
        const FailFirst<decltype(::GlobalLock)> noLock("kernel32.dll", "GlobalLock");
        EXPECT_TRUE(AreCalls(Load(IDR_PNG_16), InOrder({kLockInFramework, failed, {"FreeResource"}})));
    }
    const FailFirst<decltype(::GlobalLock)> noLock("kernel32.dll", "GlobalLock");
    EXPECT_TRUE(AreCalls(LoadFromModule(IDR_PNG_16), InOrder({kLockInModule, failed})));
}

TEST_F(PngSequence, WithoutAStreamTheBlockIsFreed)
{
    const FailNthCall<decltype(::CreateStreamOnHGlobal)> noStream(VxDpiModule(), "ole32.dll",
                                                                  "CreateStreamOnHGlobal", 1, E_FAIL);
    EXPECT_TRUE(AreCalls(
        Load(IDR_PNG_16),
        InOrder({kLockInFramework, kCopyBytes, {"FreeResource", "CreateStreamOnHGlobal", "GlobalFree"}})));
}

TEST_F(PngSequence, WhatIsNoImageIsDeleted)
{
    const FailDecoding noImage;
    EXPECT_TRUE(AreCalls(Load(IDR_PNG_16), InOrder({kLoadFromFramework, kDeleteImage})));
}

TEST_F(PngSequence, ABitmapIsScaledWithOneModeAndOneDrawing)
{
    Gdiplus::Bitmap source(16, 16, PixelFormat32bppARGB);
    std::unique_ptr<Gdiplus::Bitmap> scaled;
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { scaled.reset(CDpiAwarePng::ScaleBitmap(&source, 24, 24)); }), kScalePicture));
    EXPECT_TRUE(AreCalls(CallsOf([&] { CDpiAwarePng::ScaleBitmap(&source, 0, 24); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([] { CDpiAwarePng::ScaleBitmap(nullptr, 24, 24); }), {}));
}

TEST_F(PngSequence, ABitmapIsConvertedByOneCall)
{
    Gdiplus::Bitmap source(16, 16, PixelFormat32bppARGB);
    HBITMAP bitmap = nullptr;
    EXPECT_TRUE(AreCalls(CallsOf([&] { bitmap = CDpiAwarePng::ConvertToHBITMAP(&source, {}); }),
                         {"GdipCreateHBITMAPFromBitmap"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_png.SafeDeleteHBitmap(bitmap); }), {"DeleteObject"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_png.SafeDeleteHBitmap(bitmap); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([] { CDpiAwarePng::ConvertToHBITMAP(nullptr, {}); }), {}));
}

TEST_F(PngSequence, AResourceIsDecodedScaledAndConverted)
{
    const CallNames scaled = InOrder({kAskSize, kScalePicture});
    Gdiplus::Size size;
    EXPECT_TRUE(AreCalls(Scale(), InOrder({kLoadFromFramework, scaled, kConvert})));
    EXPECT_TRUE(AreCalls(Scale(&size), InOrder({kLoadFromFramework, scaled, kAskSize, kConvert})));
    HBITMAP bitmap = nullptr;
    const auto fromModule = [&]
    { bitmap = m_png.ScalePngResource(144, ::GetModuleHandleW(nullptr), nullptr, {}); };
    EXPECT_TRUE(AreCalls(CallsOf(fromModule), InOrder({kLoadFromModule, scaled, kConvert})));
    ::DeleteObject(bitmap);
}

TEST_F(PngSequence, APictureThatCannotBeScaledIsKept)
{
    const FailGdipAlloc noScaled(2);
    LiveBitmaps live;
    EXPECT_TRUE(
        AreCalls(Scale(), InOrder({kLoadFromFramework, kAskSize, {"GdipGetImagePixelFormat", "GdipAlloc"}})));
    live.DeleteAll();
}

TEST_F(PngSequence, TheSecondPictureIsDrawnFirst)
{
    Gdiplus::Bitmap top(16, 16, PixelFormat32bppARGB);
    Gdiplus::Bitmap bottom(16, 16, PixelFormat32bppARGB);
    std::unique_ptr<Gdiplus::Bitmap> combined;
    EXPECT_TRUE(AreCalls(CallsOf([&] { combined.reset(CDpiAwarePng::CombineBitmaps(&top, &bottom)); }),
                         InOrder({kAskSize,
                                  kNewBitmap,
                                  {"GdipGetImageGraphicsContext"},
                                  kAskSize,
                                  {"GdipDrawImageRectI", "GdipDrawImageRectI", "GdipDeleteGraphics"}})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { CDpiAwarePng::CombineBitmaps(&top, nullptr); }), {}));
}

TEST_F(PngSequence, ColorsAreReplacedUnderOneLock)
{
    std::unique_ptr<Gdiplus::Bitmap> bitmap;
    const auto replace = [&] { bitmap.reset(m_png.ReplaceColor(96, Gdiplus::Color(255, 0, 0))); };
    EXPECT_TRUE(
        AreCalls(CallsOf(replace),
                 InOrder({kLoadFromFramework, kAskSize, {"GdipBitmapLockBits", "GdipBitmapUnlockBits"}})));
}

TEST_F(PngSequence, APictureThatCannotBeLockedIsKept)
{
    const FailNthCall<decltype(Flat::GdipBitmapLockBits)> noLock(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapLockBits", 1, Gdiplus::GenericError);
    LiveBitmaps live;
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_png.ReplaceColor(96, {}); }),
                         InOrder({kLoadFromFramework, kAskSize, {"GdipBitmapLockBits"}})));
    live.DeleteAll();
}

TEST_F(PngSequence, DrawingDecodesScalesAndDrawsOnce)
{
    const CallNames scaled = InOrder({kLoadFromFramework, kAskSize, kScalePicture});
    const CallNames drawn = InOrder({kDeleteImage, kDraw, kDeleteImage, {"GdipDeleteGraphics"}});
    Gdiplus::Size size;
    EXPECT_TRUE(AreCalls(Draw(144), InOrder({scaled, drawn})));
    EXPECT_TRUE(AreCalls(Draw(96), InOrder({scaled, drawn})));
    EXPECT_TRUE(AreCalls(Draw(144, &size), InOrder({scaled, kAskSize, drawn})));
    const Dib32 surface(24, 24);
    const auto drawByLengths = [&] { m_png.DrawPngInDC(surface.Dc(), 144, 0, 0, 24, 24, nullptr, nullptr); };
    EXPECT_TRUE(AreCalls(CallsOf(drawByLengths), InOrder({scaled, drawn})));
}

TEST_F(PngSequence, NothingIsDecodedToBeDrawnNowhere)
{
    EXPECT_TRUE(AreCalls(CallsOf(
                             [&] {
                                 m_png.DrawPngInDC(nullptr, 96, {0, 0, 1, 1}, nullptr, nullptr);
                             }),
                         {}));
    EXPECT_TRUE(AreCalls(CallsOf(
                             [&] {
                                 m_png.DrawPngInMetaDC(nullptr, 96, {0, 0, 1, 1}, nullptr, nullptr);
                             }),
                         {}));
    OpenPng empty;
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.ScalePngResource(96, nullptr, {}); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.ReplaceColor(96, {}); }), {}));
}

TEST_F(PngSequence, ForAnEntryOfNoDpiOnlyTheMetafileIsDecodedFor)
{
    OpenPng png;
    png.AddResourceForDpi(0, IDR_PNG_16, {});
    const Dib32 surface(1, 1);
    const HDC kept = ::CreateCompatibleDC(nullptr);
    EXPECT_TRUE(AreCalls(CallsOf(
                             [&] {
                                 png.DrawPngInDC(surface.Dc(), 96, {0, 0, 1, 1}, nullptr, nullptr);
                             }),
                         {}));
    EXPECT_TRUE(AreCalls(CallsOf(
                             [&] {
                                 png.DrawPngInMetaDC(kept, 96, {0, 0, 1, 1}, nullptr, nullptr);
                             }),
                         InOrder({kLoadFromFramework, kDeleteImage})));
    ::DeleteDC(kept);
}

TEST_F(PngSequence, APictureOfNoSizeIsDecodedAndDeleted)
{
    EXPECT_TRUE(AreCalls(Draw(1), InOrder({kLoadFromFramework, kAskSize, kDeleteImage})));
    EXPECT_TRUE(AreCalls(DrawMeta(1), InOrder({kLoadFromFramework, kAskSize, kDeleteImage})));
}

TEST_F(PngSequence, AMetafileGetsOneBlendOfAPictureDrawnInMemory)
{
    const CallNames before = InOrder({kLoadFromFramework, kAskSize, {"AfxGetMainWnd"}});
    const CallNames drawn = InOrder({kMemory, kScalePicture, kDeleteImage, kDrawIntoMemory, kBlend});
    Gdiplus::Size size;
    EXPECT_TRUE(AreCalls(DrawMeta(144), InOrder({before, drawn})));
    EXPECT_TRUE(AreCalls(DrawMeta(96, &size), InOrder({before, drawn})));
    FrameworkWindow main;
    AfxGetApp()->m_pMainWnd = main.Object();
    HDC obtained = nullptr;
    {
        const ImportSpy<decltype(::GetDC)> keep(VxDpiModule(), "user32.dll", "GetDC",
                                                [&](HWND window)
                                                {
                                                    obtained = keep.Original()(window);
                                                    return obtained;
                                                });
        EXPECT_TRUE(AreCalls(DrawMeta(144), InOrder({before, {"GetDC"}, drawn})));
    }
    AfxGetApp()->m_pMainWnd = nullptr;
    ::ReleaseDC(main.Handle(), obtained);
}

TEST_F(PngSequence, AMetafileGetsNothingWithoutMemoryToDrawIn)
{
    const CallNames before = InOrder({kLoadFromFramework, kAskSize, {"AfxGetMainWnd", "CreateCompatibleDC"}});
    const HDC kept = ::CreateCompatibleDC(nullptr);
    const auto draw = [&] { m_png.DrawPngInMetaDC(kept, 144, {0, 0, 24, 24}, nullptr, nullptr); };
    {
        const FailFirst<decltype(::CreateCompatibleDC)> noContext("gdi32.dll", "CreateCompatibleDC");
        EXPECT_TRUE(AreCalls(CallsOf(draw), InOrder({before, kDeleteImage})));
    }
    {
        const FailFirst<decltype(::CreateDIBSection)> noSection("gdi32.dll", "CreateDIBSection");
        EXPECT_TRUE(
            AreCalls(CallsOf(draw), InOrder({before, {"CreateDIBSection", "DeleteDC"}, kDeleteImage})));
    }
    const FailGdipAlloc noScaled(2);
    EXPECT_TRUE(AreCalls(CallsOf(draw), InOrder({before,
                                                 {"CreateDIBSection", "SelectObject"},
                                                 {"GdipGetImagePixelFormat", "GdipAlloc"},
                                                 kDeleteImage,
                                                 kFreeMemory})));
    ::DeleteDC(kept);
}
