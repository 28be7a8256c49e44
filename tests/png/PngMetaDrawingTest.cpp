#include <vxdpi/Png.h>

#include "imaging/RegistryFields.h"
#include "png/DrawingCalls.h"
#include "resources/resource_ids.h"
#include "support/HandleCount.h"
#include "support/HeldContexts.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <climits>
#include <thread>
#include <vector>

namespace
{
constexpr std::uint32_t kWhite = 0xffffffff;
constexpr RECT kAt32 = {10, 20, 42, 52}; // 32 x 32 pixels
constexpr RECT kTwice48 = {0, 0, 96, 96};

const CallLog::LineList kDecodedAndGone = {"GdipCreateBitmapFromStream()", "GdipDisposeImage(decoded)"};

// The application's main window for the length of a scope.
class MainWindow
{
public:
    explicit MainWindow(HWND handle) : m_previous(AfxGetThread()->m_pMainWnd)
    {
        m_window.m_hWnd = handle;
        AfxGetThread()->m_pMainWnd = &m_window;
    }

    ~MainWindow()
    {
        AfxGetThread()->m_pMainWnd = m_previous;
        m_window.m_hWnd = nullptr;
    }

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

private:
    CWnd m_window;
    CWnd* m_previous;
};

// Keeps the framework from deleting one device context, which it does for the library.
class SparedFromFramework : public ImportSpy<decltype(::DeleteDC)>
{
public:
    explicit SparedFromFramework(HDC spared)
        : ImportSpy(FrameworkModule(), "gdi32.dll", "DeleteDC",
                    [this, spared](HDC hdc) { return hdc == spared ? TRUE : Original()(hdc); })
    {
    }
};

int CALLBACK CollectRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM collected)
{
    const auto* const words = reinterpret_cast<const DWORD*>(record);
    reinterpret_cast<std::vector<std::vector<DWORD>>*>(collected)->emplace_back(words,
                                                                                words + record->nSize / 4);
    return TRUE;
}

// A metafile's records in words, each with its type first.
std::vector<std::vector<DWORD>> RecordsOf(HENHMETAFILE metafile)
{
    std::vector<std::vector<DWORD>> records;
    ::EnumEnhMetaFile(nullptr, metafile, CollectRecord, &records, nullptr);
    return records;
}

bool IsAlive(HDC hdc)
{
    return ::GetObjectType(hdc) != 0;
}

class DrawPngInMetaDC : public testing::Test
{
protected:
    void Register(UINT dpi, UINT resourceId) { m_png.AddResourceForDpi(dpi, resourceId, {}); }

    BOOL Draw(UINT dpi, const RECT& destination = kAt32, const RECT* source = nullptr)
    {
        return m_png.DrawPngInMetaDC(m_target.Dc(), dpi, destination, source, &m_size);
    }

    // Draws into a context of its own, so that it can be repeated.
    void DrawAnew(UINT dpi)
    {
        const HDC hdc = ::CreateCompatibleDC(nullptr);
        m_png.DrawPngInMetaDC(hdc, dpi, kAt32, nullptr, nullptr);
        ::DeleteDC(hdc);
    }

    CallLog::LineList CallsOf(UINT dpi, BOOL expectedResult, const RECT& destination = kAt32,
                              const RECT* source = nullptr)
    {
        CallLog log;
        log.Name(m_target.Dc(), "target");
        const GdiPlusCalls gdiPlusCalls(log);
        const GdiCalls gdiCalls(log);
        EXPECT_EQ(Draw(dpi, destination, source), expectedResult);
        return log.Lines();
    }

    CallLog::LineList BlendCalls(UINT dpi, const RECT& destination, const RECT* source = nullptr)
    {
        CallLog log;
        log.Name(m_target.Dc(), "target");
        const GdiCalls calls(log);
        Draw(dpi, destination, source);
        return LinesOf(log, "AlphaBlend");
    }

    testing::AssertionResult SizeIsUntouched() const { return IsSize(m_size, -7, -8); }

    const GdiPlusSession m_gdiPlus;
    CDpiAwarePng m_png;
    Dib32 m_target{96, 96, kWhite};
    Gdiplus::Size m_size{-7, -8};
};

class DrawPngInMetaDCAtDpi : public DrawPngInMetaDC, public testing::WithParamInterface<SizeAtDpi>
{
};

// Makes CreateDIBSection answer something else than the platform did.
class AlteredDib : public ImportSpy<decltype(::CreateDIBSection)>
{
public:
    using Alter = std::function<HBITMAP(HBITMAP, void**)>;

    explicit AlteredDib(Alter alter)
        : ImportSpy(VxDpiModule(), "gdi32.dll", "CreateDIBSection",
                    [this, alter](HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                  DWORD offset)
                    { return alter(Original()(hdc, info, usage, bits, section, offset), bits); })
    {
    }
};

HBITMAP WithoutBits(HBITMAP dib, void** bits)
{
    *bits = nullptr;
    return dib;
}

HBITMAP WithoutHandle(HBITMAP dib, void**)
{
    ::DeleteObject(dib);
    return nullptr;
}

const CallLog::LineList kDibRefused = {
    "GdipCreateBitmapFromStream()",
    "CreateCompatibleDC(null)",
    "CreateDIBSection(memory, 0, null, 0)",
    "  BITMAPINFOHEADER(40, 48, -48, 1, 32, 0, 0, 0, 0, 0, 0)",
    "DeleteDC(memory)",
    "GdipDisposeImage(decoded)",
};
} // namespace

TEST_F(DrawPngInMetaDC, ScalesIntoADibBlendsItOnceAndDeletesBothContextsInThisOrder)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(CallsOf(144, TRUE, {5, 6, 101, 102}),
              (CallLog::LineList{
                  "GdipCreateBitmapFromStream()",
                  "CreateCompatibleDC(null)",
                  "CreateDIBSection(memory, 0, null, 0)",
                  "  BITMAPINFOHEADER(40, 48, -48, 1, 32, 0, 0, 0, 0, 0, 0)",
                  "SelectObject(memory, dib)",
                  "GdipCreateBitmapFromScan0(48, 48, 0, 2498570, null)",
                  "GdipGetImageGraphicsContext(scaled)",
                  "GdipSetInterpolationMode(scaler, 7)",
                  "GdipDrawImageRectI(scaler, decoded, 0, 0, 48, 48)",
                  "GdipDeleteGraphics(scaler)",
                  "GdipDisposeImage(decoded)",
                  "GdipCreateFromHDC(memory)",
                  "GdipSetInterpolationMode(graphics, 7)",
                  "GdipSetSmoothingMode(graphics, 4)",
                  "GdipSetPixelOffsetMode(graphics, 2)",
                  "GdipDrawImageRectRect(graphics, scaled, 0, 0, 48, 48, 0, 0, 48, 48, 2, null, null, null)",
                  "GdipDisposeImage(scaled)",
                  "GdipDeleteGraphics(graphics)",
                  "AlphaBlend(target, 5, 6, 96, 96, memory, 0, 0, 48, 48, {0, 0, 255, 1})",
                  "SelectObject(memory, previous)",
                  "DeleteObject(dib)",
                  "DeleteDC(memory)",
                  "framework DeleteDC(memory)",
                  "framework DeleteDC(target)",
              }));
}

TEST_F(DrawPngInMetaDC, WrapsBothContextsBeforeItBlends)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the framework's function is found by its GCC name";
#else
    Register(96, IDR_PNG_32);
    CallLog log;
    log.Name(m_target.Dc(), "target");
    const GdiCalls calls(log);
    ImportSpy<BOOL(CDC*, HDC)> attach(VxDpiModule(), nullptr, "_ZN3CDC6AttachEP5HDC__",
                                      [&](CDC* dc, HDC hdc)
                                      {
                                          log.WriteCall("Attach", hdc);
                                          return attach.Original()(dc, hdc);
                                      });
    Draw(96);
    ASSERT_EQ(log.Lines().size(), 12u);
    EXPECT_EQ(log.Lines()[4], "Attach(memory)");
    EXPECT_EQ(log.Lines()[5], "Attach(target)");
    EXPECT_EQ(log.Lines()[6], "AlphaBlend(target, 10, 20, 32, 32, memory, 0, 0, 32, 32, {0, 0, 255, 1})");
#endif
}

TEST_F(DrawPngInMetaDC, ConsumesTheContext)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(96), TRUE);
    EXPECT_FALSE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, ConsumesAWindowsContextToo)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const HDC hdc = ::GetDC(window.Handle());
    EXPECT_EQ(m_png.DrawPngInMetaDC(hdc, 96, kAt32, nullptr, nullptr), TRUE);
    EXPECT_FALSE(IsAlive(hdc));
}

TEST_F(DrawPngInMetaDC, LeavesOneRecordInAMetafile)
{
    Register(96, IDR_PNG_32);
    const HDC hdc = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    {
        const SparedFromFramework spared(hdc);
        EXPECT_EQ(m_png.DrawPngInMetaDC(hdc, 144, {5, 6, 101, 103}, nullptr, nullptr), TRUE);
    }
    const HENHMETAFILE metafile = ::CloseEnhMetaFile(hdc);
    const std::vector<std::vector<DWORD>> records = RecordsOf(metafile);
    ::DeleteEnhMetaFile(metafile);

    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0][0], static_cast<DWORD>(EMR_HEADER));
    EXPECT_EQ(records[2][0], static_cast<DWORD>(EMR_EOF));
    ASSERT_EQ(records[1][0], static_cast<DWORD>(EMR_ALPHABLEND));
    const auto& blend = *reinterpret_cast<const EMRALPHABLEND*>(records[1].data());
    EXPECT_EQ(blend.xDest, 5);
    EXPECT_EQ(blend.yDest, 6);
    EXPECT_EQ(blend.cxDest, 96);
    EXPECT_EQ(blend.cyDest, 97);
    EXPECT_EQ(blend.cxSrc, 48);
    EXPECT_EQ(blend.cySrc, 48);
    EXPECT_EQ(blend.dwRop, 0x01ff0000u);
}

TEST_F(DrawPngInMetaDC, MetafilesPictureIsLostWithItsContext)
{
    Register(96, IDR_PNG_32);
    const HDC hdc = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(m_png.DrawPngInMetaDC(hdc, 96, kAt32, nullptr, nullptr), TRUE);
    EXPECT_EQ(::CloseEnhMetaFile(hdc), nullptr);
}

TEST_F(DrawPngInMetaDC, CopiesThePictureAtItsOwnDpi)
{
    Register(96, IDR_PNG_32);
    Draw(96);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
    EXPECT_EQ(m_target.At(40, 50), 0xff969640u);
    EXPECT_EQ(m_target.At(40, 49), 0xff9691ffu);
}

TEST_F(DrawPngInMetaDC, BlendsHalfTransparentPixelsWithTheBackground)
{
    Register(96, IDR_PNG_32);
    Draw(96);
    EXPECT_TRUE(IsNear(m_target.At(20, 20), 0xffff9f87));
    EXPECT_TRUE(IsNear(m_target.At(41, 40), 0xffff9f87));
}

TEST_F(DrawPngInMetaDC, LeavesTheBackgroundUnderTransparentPixels)
{
    Register(96, IDR_PNG_32);
    Draw(96);
    EXPECT_EQ(m_target.At(10, 20), kWhite);
    EXPECT_EQ(m_target.At(41, 51), kWhite);
}

TEST_F(DrawPngInMetaDC, DrawsNothingAroundTheDestination)
{
    Register(96, IDR_PNG_32);
    Draw(96);
    EXPECT_EQ(m_target.At(9, 36), kWhite);
    EXPECT_EQ(m_target.At(42, 36), kWhite);
    EXPECT_EQ(m_target.At(26, 19), kWhite);
    EXPECT_EQ(m_target.At(26, 52), kWhite);
}

TEST_F(DrawPngInMetaDC, StretchesTheScaledPictureOverTheDestination)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(144, kTwice48), TRUE);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_NEAR(m_target.At(72, 24) >> 16 & 0xff, 120, 8); // the picture's (24, 8)
    EXPECT_NEAR(m_target.At(72, 24) >> 8 & 0xff, 40, 8);
    EXPECT_NEAR(m_target.At(24, 72) >> 8 & 0xff, 120, 8);
}

TEST_F(DrawPngInMetaDC, IgnoresTheSource)
{
    Register(96, IDR_PNG_32);
    const RECT source = {8, 8, 16, 16};
    EXPECT_EQ(BlendCalls(144, kTwice48, &source),
              (CallLog::LineList{"AlphaBlend(target, 0, 0, 96, 96, memory, 0, 0, 48, 48, {0, 0, 255, 1})"}));
    EXPECT_NEAR(m_target.At(72, 24) >> 16 & 0xff, 120, 8);
}

TEST_F(DrawPngInMetaDC, NeverReadsTheSource)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(96, kAt32, reinterpret_cast<const RECT*>(8)), TRUE);
}

TEST_F(DrawPngInMetaDC, MayBeAskedForNoSize)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(m_png.DrawPngInMetaDC(m_target.Dc(), 96, kAt32, nullptr, nullptr), TRUE);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
}

TEST_F(DrawPngInMetaDC, SidesOfTheDestinationWrapAround)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(BlendCalls(144, {INT_MIN, INT_MIN, INT_MAX, INT_MAX - 1}),
              (CallLog::LineList{"AlphaBlend(target, -2147483648, -2147483648, -1, -2, memory, 0, 0, 48, 48, "
                                 "{0, 0, 255, 1})"}));
}

TEST_F(DrawPngInMetaDC, DestinationMayBeReversed)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(
        BlendCalls(144, {58, 68, 10, 21}),
        (CallLog::LineList{"AlphaBlend(target, 58, 68, -48, -47, memory, 0, 0, 48, 48, {0, 0, 255, 1})"}));
}

TEST_F(DrawPngInMetaDC, ScalesWidthAndHeightApart)
{
    Register(96, IDR_PNG_STRIP_16);
    const CallLog::LineList calls = CallsOf(144, TRUE);
    EXPECT_TRUE(IsSize(m_size, 72, 24));
    ASSERT_EQ(calls.size(), 24u);
    EXPECT_EQ(calls[3], "  BITMAPINFOHEADER(40, 72, -24, 1, 32, 0, 0, 0, 0, 0, 0)");
    EXPECT_EQ(calls[15],
              "GdipDrawImageRectRect(graphics, scaled, 0, 0, 72, 24, 0, 0, 72, 24, 2, null, null, null)");
    EXPECT_EQ(calls[18], "AlphaBlend(target, 10, 20, 32, 32, memory, 0, 0, 72, 24, {0, 0, 255, 1})");
}

TEST_P(DrawPngInMetaDCAtDpi, ReportsTheScaledSize)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(GetParam().dpi), TRUE);
    EXPECT_TRUE(IsSize(m_size, GetParam().side, GetParam().side));
}

INSTANTIATE_TEST_SUITE_P(OfA32PixelPictureFor96, DrawPngInMetaDCAtDpi,
                         testing::Values(SizeAtDpi{96, 32}, SizeAtDpi{120, 40}, SizeAtDpi{144, 48},
                                         SizeAtDpi{192, 64}, SizeAtDpi{72, 24}, SizeAtDpi{97, 32},
                                         SizeAtDpi{4, 1}));

TEST_F(DrawPngInMetaDC, CutsFractionsOfPixelsOff)
{
    Register(96, IDR_PNG_15);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 18, 18));
}

TEST_F(DrawPngInMetaDC, MultipliesInSinglePrecision)
{
    Register(144, IDR_PNG_24);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 20, 20)); // 19.9999995 in double precision
}

TEST_F(DrawPngInMetaDC, DividesInSinglePrecision)
{
    Register(16777217, IDR_PNG_16);
    Draw(16777216);
    EXPECT_TRUE(IsSize(m_size, 16, 16)); // a quotient below 1 in double precision
}

TEST_F(DrawPngInMetaDC, TakesTheSmallestVariantAtOrAboveTheDpi)
{
    Register(96, IDR_PNG_16);
    Register(144, IDR_PNG_24);
    Register(192, IDR_PNG_48);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 20, 20));
}

TEST_F(DrawPngInMetaDC, TakesResourcesFromTheFrameworksResourceModule)
{
    Register(96, IDR_DLL_SHARED_ID);
    const ResourceDll otherResources;
    const HINSTANCE previous = AfxGetResourceHandle();
    AfxSetResourceHandle(otherResources.Module());
    EXPECT_EQ(Draw(96, {10, 20, 26, 36}), TRUE);
    AfxSetResourceHandle(previous);
    EXPECT_EQ(m_target.At(18, 28), 0xff2060c0u);
}

TEST_F(DrawPngInMetaDC, MovesTheObjectToTheDpi)
{
    Register(96, IDR_PNG_16);
    Draw(144);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(DrawPngInMetaDC, ObtainsAContextOfTheMainWindowAndDoesNotUseIt)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const MainWindow mainWindow(window.Handle());
    const ImportSpy<decltype(::ReleaseDC)> release(VxDpiModule(), "user32.dll", "ReleaseDC");
    CallLog log;
    log.Name(window.Handle(), "main window");
    const GdiCalls calls(log);
    EXPECT_EQ(Draw(96), TRUE);
    ASSERT_EQ(log.Lines().size(), 11u);
    EXPECT_EQ(log.Lines()[0], "GetDC(main window)");
    EXPECT_EQ(log.Lines()[1], "CreateCompatibleDC(null)");
    EXPECT_EQ(release.CallCount(), 0);
}

TEST_F(DrawPngInMetaDC, KeepsOneContextOfTheMainWindowPerCall)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const MainWindow mainWindow(window.Handle());
    const HeldContexts held(window.Handle());
    // Where the single kinds are counted, the context's visible region is one of them.
    const long regions = HandleCount::IsKnown(HandleKind::Region) ? 1 : 0;
    EXPECT_TRUE(
        LeavesPerCall({{HandleKind::WindowDc, 1}, {HandleKind::Region, regions}}, [this] { DrawAnew(96); }));
}

TEST_F(DrawPngInMetaDC, AsksForNoContextOfAMainWindowThatIsGone)
{
    Register(96, IDR_PNG_32);
    const MainWindow mainWindow(nullptr);
    CallLog log;
    const GdiCalls calls(log);
    EXPECT_EQ(Draw(96), TRUE);
    EXPECT_EQ(LinesOf(log, "GetDC"), CallLog::LineList());
}

TEST_F(DrawPngInMetaDC, ThreadsWithoutTheFrameworkHaveNoMainWindow)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const MainWindow mainWindow(window.Handle());
    const ImportSpy<decltype(::GetDC)> getDc(VxDpiModule(), "user32.dll", "GetDC");
    BOOL bDrawn = FALSE;
    std::thread thread([&] { bDrawn = Draw(96); });
    thread.join();
    EXPECT_EQ(bDrawn, TRUE);
    EXPECT_EQ(getDc.CallCount(), 0);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
}

TEST_F(DrawPngInMetaDC, GoesOnWithoutTheMainWindowsContext)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const MainWindow mainWindow(window.Handle());
    const FailNthCall<decltype(::GetDC)> failing(VxDpiModule(), "user32.dll", "GetDC", 1, nullptr);
    EXPECT_EQ(Draw(96), TRUE);
    EXPECT_EQ(failing.CallCount(), 1);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
}

TEST_F(DrawPngInMetaDC, ReportsTheSizeBeforeItObtainsAnyContext)
{
    Register(96, IDR_PNG_32);
    const TestWindow window;
    const MainWindow mainWindow(window.Handle());
    const ImportSpy<decltype(::GetDC)> getDc(VxDpiModule(), "user32.dll", "GetDC",
                                             [this](HWND hwnd)
                                             {
                                                 EXPECT_TRUE(IsSize(m_size, 48, 48));
                                                 return ::GetDC(hwnd);
                                             });
    Draw(144);
    EXPECT_EQ(getDc.CallCount(), 1);
}

TEST_F(DrawPngInMetaDC, NullContextDoesNothing)
{
    Register(96, IDR_PNG_32);
    CallLog log;
    const GdiPlusCalls gdiPlusCalls(log);
    const GdiCalls gdiCalls(log);
    EXPECT_EQ(m_png.DrawPngInMetaDC(nullptr, 144, kAt32, nullptr, &m_size), FALSE);
    EXPECT_EQ(log.Lines(), CallLog::LineList());
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 96u);
}

TEST_F(DrawPngInMetaDC, NothingRegisteredGivesFalseAndLeavesTheContext)
{
    EXPECT_EQ(CallsOf(144, FALSE), CallLog::LineList());
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_TRUE(IsAlive(m_target.Dc()));
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(DrawPngInMetaDC, MissingResourceGivesFalseAndLeavesTheContext)
{
    Register(96, IDR_MISSING);
    EXPECT_EQ(CallsOf(144, FALSE), CallLog::LineList());
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, UnreadableResourceGivesFalse)
{
    Register(96, IDR_PNG_TRUNCATED);
    EXPECT_EQ(Draw(144), FALSE);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, VariantForDpi0IsRefusedOnlyAfterItWasDecoded)
{
    Register(0, IDR_PNG_32);
    EXPECT_EQ(CallsOf(96, FALSE), kDecodedAndGone);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, WidthOfLessThanAPixelGivesFalseBeforeAnyContextIsMade)
{
    Register(96, IDR_PNG_COLUMN);
    EXPECT_EQ(CallsOf(48, FALSE), kDecodedAndGone);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, HeightOfLessThanAPixelGivesFalseBeforeAnyContextIsMade)
{
    Register(96, IDR_PNG_32);
    const ImportSpy<decltype(Flat::GdipGetImageHeight)> flat(VxDpiModule(), "gdiplus.dll",
                                                             "GdipGetImageHeight",
                                                             [](Gdiplus::GpImage*, UINT* height)
                                                             {
                                                                 *height = 0;
                                                                 return Gdiplus::Ok;
                                                             });
    EXPECT_EQ(CallsOf(96, FALSE), kDecodedAndGone);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInMetaDC, Dpi0GivesFalse)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(CallsOf(0, FALSE), kDecodedAndGone);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInMetaDC, NoMemoryContextGivesFalseAndLeavesTheContext)
{
    Register(96, IDR_PNG_32);
    const FailNthCall<decltype(::CreateCompatibleDC)> failing(VxDpiModule(), "gdi32.dll",
                                                              "CreateCompatibleDC", 1, nullptr);
    EXPECT_EQ(CallsOf(144, FALSE),
              (CallLog::LineList{"GdipCreateBitmapFromStream()", "CreateCompatibleDC(null)",
                                 "GdipDisposeImage(decoded)"}));
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, PictureTooLargeForADibGivesFalse)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(Draw(0xffffffff), FALSE);
    EXPECT_TRUE(IsSize(m_size, 715827904, 715827904));
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, NoDibGivesFalseAndLeavesTheContext)
{
    Register(96, IDR_PNG_32);
    const AlteredDib altered(WithoutHandle);
    EXPECT_EQ(CallsOf(144, FALSE), kDibRefused);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, DibWithoutBitsGivesFalseAndLeavesTheContext)
{
    Register(96, IDR_PNG_32);
    const AlteredDib altered(WithoutBits);
    EXPECT_EQ(CallsOf(144, FALSE), kDibRefused);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, NoMemoryToScaleIntoGivesFalseAndLeavesTheContext)
{
    Register(96, IDR_PNG_32);
    const NoMemoryForScaled failing;
    EXPECT_EQ(CallsOf(144, FALSE), (CallLog::LineList{
                                       "GdipCreateBitmapFromStream()",
                                       "CreateCompatibleDC(null)",
                                       "CreateDIBSection(memory, 0, null, 0)",
                                       "  BITMAPINFOHEADER(40, 48, -48, 1, 32, 0, 0, 0, 0, 0, 0)",
                                       "SelectObject(memory, dib)",
                                       "GdipDisposeImage(decoded)",
                                       "SelectObject(memory, previous)",
                                       "DeleteObject(dib)",
                                       "DeleteDC(memory)",
                                   }));
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_TRUE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, DrawsFromTheWholeOfTheBitmapThatGdiPlusMade)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipCreateBitmapFromScan0)> failing("GdipCreateBitmapFromScan0");
    CallLog log;
    const GdiPlusCalls calls(log);
    EXPECT_EQ(Draw(144), TRUE);
    EXPECT_EQ(LinesOf(log, "GdipDrawImageRectRect"),
              (CallLog::LineList{
                  "GdipDrawImageRectRect(graphics, null, 0, 0, 48, 48, 0, 0, 0, 0, 2, null, null, null)"}));
    EXPECT_TRUE(IsSize(m_size, 48, 48));
}

TEST_F(DrawPngInMetaDC, FailureToDrawIsNotNoticed)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRect)> failing("GdipDrawImageRectRect");
    EXPECT_EQ(Draw(96), TRUE);
    EXPECT_EQ(m_target.Pixels(), ArgbImage(96, 96, kWhite));
    EXPECT_FALSE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, FailureToMakeGraphicsIsNotNoticed)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipCreateFromHDC)> failing("GdipCreateFromHDC");
    EXPECT_EQ(Draw(96), TRUE);
    EXPECT_EQ(m_target.Pixels(), ArgbImage(96, 96, kWhite));
}

TEST_F(DrawPngInMetaDC, FailureToBlendGivesFalseAndStillConsumesTheContext)
{
    Register(96, IDR_PNG_32);
    const FailNthCall<decltype(::AlphaBlend)> failing(VxDpiModule(), "msimg32.dll", "AlphaBlend", 1, FALSE);
    const CallLog::LineList calls = CallsOf(96, FALSE);
    ASSERT_EQ(calls.size(), 24u);
    EXPECT_EQ(calls[19], "SelectObject(memory, previous)");
    EXPECT_EQ(calls[20], "DeleteObject(dib)");
    EXPECT_EQ(calls[21], "DeleteDC(memory)");
    EXPECT_TRUE(IsSize(m_size, 32, 32));
    EXPECT_FALSE(IsAlive(m_target.Dc()));
}

TEST_F(DrawPngInMetaDC, ReturnsWhatAlphaBlendReturned)
{
    Register(96, IDR_PNG_32);
    const FailNthCall<decltype(::AlphaBlend)> answering(VxDpiModule(), "msimg32.dll", "AlphaBlend", 1, 7);
    EXPECT_EQ(Draw(96), 7);
}

TEST_F(DrawPngInMetaDC, KeepsNothing)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK([this] { DrawAnew(144); });
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenASideIsLessThanAPixel)
{
    Register(96, IDR_PNG_COLUMN);
    EXPECT_NO_LEAK([this] { DrawAnew(48); });
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenTheVariantIsForDpi0)
{
    Register(0, IDR_PNG_32);
    EXPECT_NO_LEAK([this] { DrawAnew(96); });
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenThereIsNoMemoryContext)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::CreateCompatibleDC)> failing(VxDpiModule(), "gdi32.dll",
                                                                      "CreateCompatibleDC", 1, nullptr);
            DrawAnew(144);
        });
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenThereIsNoDib)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const AlteredDib altered(WithoutHandle);
            DrawAnew(144);
        });
}

TEST_F(DrawPngInMetaDC, KeepsADibWithoutBits)
{
    Register(96, IDR_PNG_32);
    EXPECT_TRUE(LeavesPerCall({{HandleKind::Bitmap, 1}},
                              [this]
                              {
                                  const AlteredDib altered(WithoutBits);
                                  DrawAnew(144);
                              }));
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenThereIsNoMemoryToScaleInto)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const NoMemoryForScaled failing;
            DrawAnew(144);
        });
}

TEST_F(DrawPngInMetaDC, KeepsNothingWhenItCannotBlend)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::AlphaBlend)> failing(VxDpiModule(), "msimg32.dll", "AlphaBlend", 1,
                                                              FALSE);
            DrawAnew(144);
        });
}
