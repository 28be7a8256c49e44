#include "png/GdiPlusSequence.h"
#include "png/StripCalls.h"
#include "support/GdiPlusSession.h"
#include "support/TestResources.h"

#include <vxdpi/Png.h>

namespace
{
constexpr std::size_t kCells = 3;
constexpr std::size_t kPixels = 24 * 24;

const CallNames kLock = {"GdipBitmapLockBits", "GdipBitmapUnlockBits"};

// The strip's block stays locked while GDI+ decodes, and its resource is not freed.
const CallNames kLoadStrip = InOrder({{"FindResourceW", "SizeofResource"},
                                      kLockResource,
                                      {"GlobalAlloc", "GlobalLock"},
                                      kDecode,
                                      {"GlobalUnlock"}});

const CallNames kCut = {"GdipCreateBitmapFromScan0", "GdipGetImageGraphicsContext", "GdipSetCompositingMode",
                        "GdipDrawImageRectRectI"};
const CallNames kEndCell = {"GdipDeleteGraphics", "GdipDisposeImage"};

const CallNames kScaleCell =
    InOrder({{"GdiplusStartup", "GdipGetImageHeight", "GdipGetImageWidth", "MulDiv"},
             kNewBitmap,
             {"GdipGetImageGraphicsContext", "GdipSetInterpolationMode", "GdipSetPixelOffsetMode"},
             kAskSize,
             {"GdipDrawImageRectRectI", "GdipDeleteGraphics"}});

const CallNames kGreyOut = InOrder({kAskSize, kLock});

const CallNames kMakeFixedIcon = InOrder({kAskSize,
                                          {"GetDC"},
                                          Times(2, {"CreateCompatibleDC"}),
                                          {"CreateDIBSection", "CreateBitmap"},
                                          Times(2, {"SelectObject"}),
                                          {"GdipCreateFromHDC", "GdipDrawImageRectI"},
                                          Times(kPixels, {"GdipBitmapGetPixel", "SetPixel"}),
                                          {"CreateIconIndirect"},
                                          Times(2, {"SelectObject"}),
                                          Times(2, {"DeleteObject"}),
                                          Times(2, {"DeleteDC"}),
                                          {"ReleaseDC", "GdipDeleteGraphics"}});

// One cell, with what is done to it once it is scaled.
CallNames CellWith(const CallNames& conversion)
{
    return InOrder({kCut, kLock, kScaleCell, conversion, kDeleteImage, kEndCell});
}

// All of a strip, with what is done to each cell.
CallNames StripOf(const CallNames& cell)
{
    return InOrder({kLoadStrip, {"GdipGetImageWidth"}, Times(kCells, cell), kDeleteImage});
}

HINSTANCE Program()
{
    return ::GetModuleHandleW(nullptr);
}

class StripSequence : public FrameworkCallSequence
{
protected:
    StripSequence() { m_strip.AddResourceForDpi(96, IDR_PNG_STRIP_16, {16}); }

    CallNames Icons(int fixed)
    {
        std::vector<HICON> icons;
        const CallNames calls = CallsOf([&] { icons = m_strip.CreatePngSplit(144, Program(), fixed); });
        m_strip.DestroyIcons(icons);
        return calls;
    }

    CallNames DisabledIcons()
    {
        std::vector<HICON> icons;
        const CallNames calls = CallsOf([&] { icons = m_strip.CreateDisabledStylePngSplit(144); });
        m_strip.DestroyIcons(icons);
        return calls;
    }

    CallNames Bitmaps()
    {
        std::vector<HBITMAP> bitmaps;
        const CallNames calls = CallsOf([&] { bitmaps = m_strip.CreatePngSplitBitmap(144, Program(), 0); });
        const OwnedBitmaps owned(std::move(bitmaps));
        return calls;
    }

    const GdiPlusSession m_gdiPlus;
    OpenStrip m_strip;
};

class FailGdiPlus : public FailNthCall<decltype(Flat::GdipDrawImageRectRectI)>
{
public:
    explicit FailGdiPlus(int call)
        : FailNthCall(VxDpiModule(), "gdiplus.dll", "GdipDrawImageRectRectI", call, Gdiplus::GenericError)
    {
    }
};
}

TEST_F(StripSequence, IconsAreCutPremultipliedScaledAndConvertedOneByOne)
{
    const CallNames cell = CellWith({"GdipCreateHICONFromBitmap"});
    EXPECT_TRUE(AreCalls(Icons(FALSE), InOrder({{"MulDiv"}, StripOf(cell)})));
}

TEST_F(StripSequence, FixedIconsAreMadePixelByPixel)
{
    const CallNames cell = CellWith(kMakeFixedIcon);
    EXPECT_TRUE(AreCalls(Icons(TRUE), InOrder({{"MulDiv"}, StripOf(cell)})));
}

TEST_F(StripSequence, DisabledIconsAreGreyedOutAfterScaling)
{
    const CallNames cell = CellWith(InOrder({kGreyOut, {"GdipCreateHICONFromBitmap"}}));
    EXPECT_TRUE(AreCalls(DisabledIcons(), InOrder({{"MulDiv", "AfxGetResourceHandle"}, StripOf(cell)})));
}

TEST_F(StripSequence, BitmapsAreConvertedInPlaceOfIcons)
{
    const CallNames cell = CellWith({"GdipCreateHBITMAPFromBitmap"});
    EXPECT_TRUE(AreCalls(Bitmaps(), InOrder({{"MulDiv"}, StripOf(cell)})));
}

TEST_F(StripSequence, ADrawingThatFailsEndsACellOfBitmapsAlone)
{
    const CallNames icon = CellWith({"GdipCreateHICONFromBitmap"});
    const CallNames bitmap = CellWith({"GdipCreateHBITMAPFromBitmap"});
    {
        const FailGdiPlus firstCell(1);
        EXPECT_TRUE(AreCalls(Icons(FALSE), InOrder({{"MulDiv"}, StripOf(icon)})));
    }
    const FailGdiPlus firstCell(1);
    EXPECT_TRUE(AreCalls(Bitmaps(), InOrder({{"MulDiv"},
                                             kLoadStrip,
                                             {"GdipGetImageWidth"},
                                             kCut,
                                             kEndCell,
                                             Times(kCells - 1, bitmap),
                                             kDeleteImage})));
}

TEST_F(StripSequence, ACellThatCannotBeLockedIsScaledAsItIs)
{
    const FailNthCall<decltype(Flat::GdipBitmapLockBits)> noLock(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapLockBits", 1, Gdiplus::GenericError);
    const CallNames unlocked = InOrder(
        {kCut, {"GdipBitmapLockBits"}, kScaleCell, {"GdipCreateHICONFromBitmap"}, kDeleteImage, kEndCell});
    EXPECT_TRUE(AreCalls(Icons(FALSE), InOrder({{"MulDiv"},
                                                kLoadStrip,
                                                {"GdipGetImageWidth"},
                                                unlocked,
                                                Times(kCells - 1, CellWith({"GdipCreateHICONFromBitmap"})),
                                                kDeleteImage})));
}

TEST_F(StripSequence, ACellThatIsNotScaledIsNeitherGreyedOutNorConverted)
{
    const FailGdipAlloc noScaled(2);
    const CallNames lost =
        InOrder({kCut,
                 kLock,
                 {"GdiplusStartup", "GdipGetImageHeight", "GdipGetImageWidth", "MulDiv", "GdipAlloc"},
                 kEndCell});
    const CallNames cell = CellWith(InOrder({kGreyOut, {"GdipCreateHICONFromBitmap"}}));
    EXPECT_TRUE(AreCalls(DisabledIcons(), InOrder({{"MulDiv", "AfxGetResourceHandle"},
                                                   kLoadStrip,
                                                   {"GdipGetImageWidth"},
                                                   lost,
                                                   Times(kCells - 1, cell),
                                                   kDeleteImage})));
}

TEST_F(StripSequence, AStripThatIsNoImageIsDeletedForIconsAndKeptForBitmaps)
{
    m_strip.AddResourceForDpi(96, IDR_PNG_GARBAGE, {16});
    EXPECT_TRUE(AreCalls(Icons(FALSE), InOrder({{"MulDiv"}, kLoadStrip, kDeleteImage})));
    LiveBitmaps live;
    EXPECT_TRUE(AreCalls(Bitmaps(), InOrder({{"MulDiv"}, kLoadStrip})));
    live.DeleteAll();
}

TEST_F(StripSequence, LoadingEndsWithTheFirstStepThatFails)
{
    m_strip.AddResourceForDpi(144, IDR_MISSING, {16});
    EXPECT_TRUE(AreCalls(Icons(FALSE), {"MulDiv", "FindResourceW"}));
    m_strip.AddResourceForDpi(144, IDR_PNG_STRIP_16, {16});
    const CallNames allocated = InOrder(
        {{"MulDiv", "FindResourceW", "SizeofResource"}, kLockResource, {"GlobalAlloc", "GlobalLock"}});
    {
        const FailNthCall<decltype(::GlobalLock)> noLock(VxDpiModule(), "kernel32.dll", "GlobalLock", 1,
                                                         nullptr);
        EXPECT_TRUE(AreCalls(Icons(FALSE), InOrder({allocated, {"GlobalFree"}})));
    }
    const FailNthCall<decltype(::CreateStreamOnHGlobal)> noStream(VxDpiModule(), "ole32.dll",
                                                                  "CreateStreamOnHGlobal", 1, E_FAIL);
    EXPECT_TRUE(AreCalls(Icons(FALSE),
                         InOrder({allocated, {"CreateStreamOnHGlobal", "GlobalUnlock", "GlobalFree"}})));
}

TEST_F(StripSequence, WithoutACellSizeNothingIsLoaded)
{
    OpenStrip empty;
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.CreatePngSplit(96, Program(), FALSE); }), {}));
    m_strip.AddResourceForDpi(96, IDR_PNG_STRIP_16, {});
    EXPECT_TRUE(AreCalls(Icons(FALSE), {}));
    EXPECT_TRUE(AreCalls(Bitmaps(), {}));
    EXPECT_TRUE(AreCalls(
        CallsOf([&] { m_strip.SplitPngToIcons(IDR_PNG_STRIP_16, 24, 0, Program(), FALSE, FALSE); }), {}));
}

TEST_F(StripSequence, AFixedIconGivesBackWhatItHasWhenAStepFails)
{
    Gdiplus::Bitmap bitmap(24, 24, PixelFormat32bppARGB);
    const auto convert = [&] { m_strip.ConvertBitmapToIconFixed(&bitmap); };
    const auto callsWithoutContext = [&](int call)
    {
        const FailNthCall<decltype(::CreateCompatibleDC)> failing(VxDpiModule(), "gdi32.dll",
                                                                  "CreateCompatibleDC", call, nullptr);
        return CallsOf(convert);
    };
    const CallNames screen = InOrder({kAskSize, {"GetDC"}});
    const CallNames context = {"CreateCompatibleDC"};
    {
        const FailNthCall<decltype(::GetDC)> failing(VxDpiModule(), "user32.dll", "GetDC", 1, nullptr);
        EXPECT_TRUE(AreCalls(CallsOf(convert), screen));
    }
    EXPECT_TRUE(AreCalls(callsWithoutContext(1), InOrder({screen, context, {"ReleaseDC"}})));
    EXPECT_TRUE(
        AreCalls(callsWithoutContext(2), InOrder({screen, context, context, {"DeleteDC", "ReleaseDC"}})));
    {
        const FailNthCall<decltype(::CreateDIBSection)> failing(VxDpiModule(), "gdi32.dll",
                                                                "CreateDIBSection", 1, nullptr);
        EXPECT_TRUE(AreCalls(
            CallsOf(convert),
            InOrder({screen, context, context, {"CreateDIBSection", "DeleteDC", "DeleteDC", "ReleaseDC"}})));
    }
    const FailNthCall<decltype(::CreateBitmap)> failing(VxDpiModule(), "gdi32.dll", "CreateBitmap", 1,
                                                        nullptr);
    EXPECT_TRUE(AreCalls(CallsOf(convert), InOrder({screen,
                                                    context,
                                                    context,
                                                    {"CreateDIBSection", "CreateBitmap", "DeleteObject"},
                                                    {"DeleteDC", "DeleteDC", "ReleaseDC"}})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_strip.ConvertBitmapToIconFixed(nullptr); }), {}));
}

TEST_F(StripSequence, EachIconIsDestroyedOnceAndNoneThatIsNot)
{
    std::vector<HICON> icons = m_strip.CreatePngSplit(96, Program(), FALSE);
    icons.insert(icons.begin(), nullptr);
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_strip.DestroyIcons(icons); }), Times(kCells, {"DestroyIcon"})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_strip.DestroyIcons(icons); }), {}));
}
