#include <vxdpi/Png.h>

#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
using Lines = CallLog::LineList;

class StripIcons : public testing::Test
{
protected:
    std::vector<HICON> Split(UINT resourceId, int target, int cell, int fixed = FALSE, int disabled = FALSE)
    {
        return m_strip.SplitPngToIcons(resourceId, target, cell, m_program, fixed, disabled);
    }

    Lines CallsOfSplitting(UINT resourceId, int target, int cell, int disabled = FALSE)
    {
        CallLog log;
        const StripCalls calls(log);
        const OwnedIcons icons(Split(resourceId, target, cell, FALSE, disabled));
        return log.Lines();
    }

    std::size_t CountOf(const ArgbImage& strip, int cell)
    {
        const ServedResource served(strip);
        return OwnedIcons(Split(1, 8, cell)).Count();
    }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);
    OpenStrip m_strip;

private:
    const GdiPlusSession m_gdiPlus;
};

const Lines kDecode = {"GdipCreateBitmapFromStream()"};
const Lines kToIcon = {"GdipCreateHICONFromBitmap(scaled, null)"};
const Lines kDeleteStrip = {"GdipDisposeImage(strip)"};

// The library's n-th bitmap cannot be made, without the strip: odd ones are cells, even ones are scaled into.
class RefusedBitmap : public FailNthCall<decltype(Flat::GdipCreateBitmapFromScan0)>
{
public:
    explicit RefusedBitmap(int failingCall)
        : FailNthCall(VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0", failingCall,
                      Gdiplus::OutOfMemory)
    {
    }
};

// Answers the library's requests for icons.
class IconsOfGdiPlus : public ImportSpy<decltype(Flat::GdipCreateHICONFromBitmap)>
{
public:
    explicit IconsOfGdiPlus(Handler handler)
        : ImportSpy(VxDpiModule(), "gdiplus.dll", "GdipCreateHICONFromBitmap", std::move(handler))
    {
    }
};

HICON IconNumber(INT_PTR number)
{
    return reinterpret_cast<HICON>(number);
}
} // namespace

TEST_F(StripIcons, EachCellGivesAnIconOfTheTargetSize)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 24, 16));
    ASSERT_EQ(icons.Count(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
    {
        EXPECT_EQ(SizeOf(icons.At(i)).cx, 24);
        EXPECT_EQ(SizeOf(icons.At(i)).cy, 24);
    }
}

TEST_F(StripIcons, IconsAreInTheOrderOfTheCellsFromTheLeft)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(icons.Count(), 3u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xff0000c0u);
    EXPECT_EQ(PixelsOf(icons.At(2)).At(8, 8), 0xffc00000u);
}

TEST_F(StripIcons, TransparencyIsKept)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(icons.Count(), 3u);
    const ArgbImage pixels = PixelsOf(icons.At(0));
    EXPECT_EQ(pixels.At(0, 0), 0u);
    EXPECT_EQ(pixels.At(5, 0) >> 24, 0x80u);
    EXPECT_EQ(pixels.At(5, 1), 0xff00a000u);
    EXPECT_EQ(pixels.At(14, 14), 0xff00a000u);
    EXPECT_EQ(pixels.At(15, 14) >> 24, 0x80u);
}

// Premultiplied when it is cut and once more when GDI+ makes the icon: ff4010, 802008, 401004.
TEST_F(StripIcons, HalfTransparentColoursAreDarkenedTwice)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(icons.Count(), 3u);
    EXPECT_TRUE(IsNear(PixelsOf(icons.At(1)).At(5, 0), 0x80401004));
}

TEST_F(StripIcons, ACellIsCutPremultipliedScaledAndConvertedBeforeTheNext)
{
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16),
              Joined({kDecode, CellLines(0, 24, kToIcon), CellLines(16, 24, kToIcon),
                      CellLines(32, 24, kToIcon), kDeleteStrip}));
}

TEST_F(StripIcons, DisabledOnesAreGreyedAfterScaling)
{
    const Lines greyed = {"GdipBitmapLockBits(scaled, 0, 0, 24, 24, 3, 2498570, lock)",
                          "GdipBitmapUnlockBits(scaled, lock)", "GdipCreateHICONFromBitmap(scaled, null)"};
    const Lines expected = Joined({kDecode, CellLines(0, 24, greyed), CellLines(16, 24, greyed),
                                   CellLines(32, 24, greyed), kDeleteStrip});
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16, TRUE), expected);
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16, -2), expected);
}

TEST_F(StripIcons, DisabledOnesAreGrey)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16, FALSE, TRUE));
    ASSERT_EQ(icons.Count(), 3u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff8d8d8du); // 00a000: 93.92, 141.6
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xff5b5b5bu); // 0000c0: 21.888, 91.2
    EXPECT_EQ(PixelsOf(icons.At(2)).At(8, 8), 0xff747474u); // c00000: 57.408, 116.4
    EXPECT_EQ(PixelsOf(icons.At(0)).At(0, 0), 0u);
}

TEST_F(StripIcons, FixedOnesAreMadeByGdi)
{
    for (const int fixed : {1, 2, -1})
    {
        const IconsOfGdiPlus gdiPlus(nullptr);
        const ImportSpy<decltype(::CreateIconIndirect)> gdi(VxDpiModule(), "user32.dll",
                                                            "CreateIconIndirect");
        const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 24, 16, fixed));
        EXPECT_EQ(icons.Count(), 3u);
        EXPECT_EQ(gdiPlus.CallCount(), 0);
        EXPECT_EQ(gdi.CallCount(), 3);
    }
}

TEST_F(StripIcons, FixedOnesHaveTheTargetSizeAndTheCellsInOrder)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16, TRUE));
    ASSERT_EQ(icons.Count(), 3u);
    EXPECT_EQ(SizeOf(icons.At(2)).cx, 16);
    EXPECT_EQ(SizeOf(icons.At(2)).cy, 16);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xff0000c0u);
    EXPECT_EQ(PixelsOf(icons.At(2)).At(8, 8), 0xffc00000u);
}

TEST_F(StripIcons, FixedOnesMayBeDisabledToo)
{
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16, TRUE, TRUE));
    ASSERT_EQ(icons.Count(), 3u);
    EXPECT_EQ(PixelsOf(icons.At(2)).At(8, 8), 0xff747474u);
}

TEST_F(StripIcons, ColumnsBeyondTheLastWholeCellAreLeftOut)
{
    EXPECT_EQ(CountOf(ArgbImage(80, 16, 0xff00ff00), 16), 5u);
    EXPECT_EQ(CountOf(ArgbImage(90, 16, 0xff00ff00), 16), 5u);
    EXPECT_EQ(CountOf(ArgbImage(95, 16, 0xff00ff00), 16), 5u);
    EXPECT_EQ(CountOf(ArgbImage(96, 16, 0xff00ff00), 16), 6u);
    EXPECT_EQ(CountOf(ArgbImage(3, 1, 0xff00ff00), 1), 3u);
}

TEST_F(StripIcons, AStripNarrowerThanACellGivesNone)
{
    EXPECT_EQ(CountOf(ArgbImage(15, 16, 0xff00ff00), 16), 0u);
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 49), Joined({kDecode, kDeleteStrip}));
}

// A negative length is a huge one.
TEST_F(StripIcons, ANegativeCellLengthGivesNone)
{
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, -1), Joined({kDecode, kDeleteStrip}));
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, INT_MIN), Joined({kDecode, kDeleteStrip}));
}

TEST_F(StripIcons, ACellLengthOf0GivesNoneAndLoadsNothing)
{
    CallLog log;
    const ResourceCalls resources(log);
    EXPECT_TRUE(Split(IDR_PNG_STRIP_16, 24, 0).empty());
    EXPECT_EQ(log.Lines(), Lines{});
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 0), Lines{});
}

TEST_F(StripIcons, OnlyTheUpperRowsOfAHighStripAreUsedAndItsHeightIsNotRead)
{
    ArgbImage high(16, 40, 0xffff0000);
    for (int x = 0; x < 16; ++x)
    {
        for (int y = 0; y < 16; ++y)
            high.At(x, y) = 0xff00ff00;
    }
    const ServedResource served(high);
    CallLog log;
    const StripCalls calls(log);
    const PictureQuestions questions(log);
    const OwnedIcons icons(Split(1, 16, 16));
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, 0xff00ff00), PixelsOf(icons.At(0))));
    EXPECT_EQ(LinesOf(log, "GdipGetImageWidth").at(0), "GdipGetImageWidth(strip)");
    for (const std::string& line : LinesOf(log, "GdipGetImageHeight"))
        EXPECT_EQ(line, "GdipGetImageHeight(cell)");
}

TEST_F(StripIcons, ALowStripLeavesTheLowerRowsTransparent)
{
    const ServedResource served(ArgbImage(16, 10, 0xff00ff00));
    const OwnedIcons icons(Split(1, 16, 16));
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 9), 0xff00ff00u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 10), 0u);
}

TEST_F(StripIcons, TheModuleDecidesWhichStripAnIdMeans)
{
    const ResourceDll dll;
    const OwnedIcons icons(m_strip.SplitPngToIcons(IDR_DLL_SHARED_ID, 16, 16, dll.Module(), FALSE, FALSE));
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(icons.At(0))));
    EXPECT_TRUE(m_strip.SplitPngToIcons(IDR_PNG_STRIP_16, 16, 16, dll.Module(), FALSE, FALSE).empty());
}

TEST_F(StripIcons, AResourceOfTypePngIsLookedFor)
{
    CallLog log;
    log.Name(m_program, "program");
    const ResourceCalls resources(log);
    EXPECT_TRUE(Split(IDR_MISSING, 24, 16).empty());
    EXPECT_EQ(log.Lines(), Lines{"FindResourceW(program, @999, \"PNG\")"});
}

TEST_F(StripIcons, AStripThatIsNoPictureIsDeletedAndGivesNone)
{
    for (const UINT id : {IDR_PNG_TRUNCATED, IDR_PNG_DAMAGED, IDR_PNG_GARBAGE})
    {
        LiveBitmaps live;
        EXPECT_TRUE(Split(id, 24, 16).empty()) << id;
        EXPECT_EQ(live.Count(), 0u) << id;
    }
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_GARBAGE, 24, 16), Joined({kDecode, {"GdipDisposeImage(null)"}}));
}

TEST_F(StripIcons, AStripWithPixelsAndABadStatusIsDeletedAndGivesNone)
{
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* stream, Gdiplus::GpBitmap** bitmap)
        {
            fail.Original()(stream, bitmap);
            return Gdiplus::GenericError;
        });
    LiveBitmaps live;
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16), Joined({kDecode, kDeleteStrip}));
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(StripIcons, WithoutMemoryForTheStripThereAreNone)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16), Lines{});
}

TEST_F(StripIcons, ACellThatCannotBeDrawnIsScaledAllTheSame)
{
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRectI)> fail("GdipDrawImageRectRectI", 1);
    const ServedResource served(StripPicture(1, 16));
    CallLog log;
    const StripCalls calls(log);
    const OwnedIcons icons(Split(1, 16, 16));
    EXPECT_EQ(log.Lines(), Joined({kDecode, CellLines(0, 16, kToIcon), kDeleteStrip}));
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16), PixelsOf(icons.At(0))));
}

TEST_F(StripIcons, ATargetSizeOf0LeavesOutEveryCellAndGreysNothing)
{
    const ServedResource served(StripPicture(1, 16));
    const Lines cut = {
        "GdipCreateBitmapFromScan0(16, 16, 0, 2498570, null)",
        "GdipGetImageGraphicsContext(cell)",
        "GdipSetCompositingMode(cutter, 1)",
        "GdipDrawImageRectRectI(cutter, strip, 0, 0, 16, 16, 0, 0, 16, 16, 2, null, null, null)",
        "GdipBitmapLockBits(cell, 0, 0, 16, 16, 3, 2498570, lock)",
        "GdipBitmapUnlockBits(cell, lock)",
        "GdipDeleteGraphics(cutter)",
        "GdipDisposeImage(cell)"};
    EXPECT_EQ(CallsOfSplitting(1, 0, 16, TRUE), Joined({kDecode, cut, kDeleteStrip}));
    EXPECT_EQ(CallsOfSplitting(1, -5, 16, TRUE), Joined({kDecode, cut, kDeleteStrip}));
}

TEST_F(StripIcons, WithoutMemoryToScaleACellIsLeftOut)
{
    const FailGdipAlloc fail(3); // the strip, the first cell's scaled bitmap, the second one's
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16, FALSE, TRUE));
    ASSERT_EQ(icons.Count(), 2u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff8d8d8du);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xff747474u);
}

TEST_F(StripIcons, AScaledBitmapWithABadStatusLeavesTheCellOutAndStaysAllocated)
{
    const RefusedBitmap fail(4);
    LiveBitmaps live;
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(icons.Count(), 2u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xffc00000u);
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

TEST_F(StripIcons, TheStatusIsAskedForAfterGreying)
{
    const RefusedBitmap fail(2);
    const ServedResource served(StripPicture(1, 16));
    LiveBitmaps live;
    CallLog log;
    const PixelCalls calls(log);
    EXPECT_TRUE(Split(1, 16, 16, FALSE, TRUE).empty());
    EXPECT_EQ(LinesOf(log, "GdipBitmapLockBits").size(), 2u);
    EXPECT_EQ(LinesOf(log, "GdipBitmapUnlockBits").size(), 1u);
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

// GDI+ remembers the failure as the bitmap's status.
TEST_F(StripIcons, ACellThatCannotBeGreyedIsLeftOut)
{
    const FailingGdiPlus<decltype(Flat::GdipBitmapLockBits)> fail("GdipBitmapLockBits", 2);
    const ServedResource served(StripPicture(1, 16));
    LiveBitmaps live;
    EXPECT_TRUE(Split(1, 16, 16, FALSE, TRUE).empty());
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

TEST_F(StripIcons, NothingButTheScaledBitmapStaysAllocated)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const RefusedBitmap fail(4);
            LiveBitmaps live;
            const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
            live.DeleteAll();
        });
}

TEST_F(StripIcons, ACellWithoutAnIconIsLeftOutAndItsScaledBitmapDeleted)
{
    const IconsOfGdiPlus fail(
        [&](Gdiplus::GpBitmap* bitmap, HICON* icon)
        { return fail.CallCount() == 2 ? Gdiplus::GenericError : fail.Original()(bitmap, icon); });
    LiveBitmaps live;
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(icons.Count(), 2u);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xffc00000u);
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(StripIcons, AFixedIconThatCannotBeMadeIsLeftOutAndItsScaledBitmapDeleted)
{
    const FailNthCall<decltype(::CreateIconIndirect)> fail(VxDpiModule(), "user32.dll", "CreateIconIndirect",
                                                           2, nullptr);
    LiveBitmaps live;
    const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 16, 16, TRUE));
    ASSERT_EQ(icons.Count(), 2u);
    EXPECT_EQ(PixelsOf(icons.At(1)).At(8, 8), 0xffc00000u);
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(StripIcons, AnIconThatAFailureWroteIsGivenAllTheSame)
{
    const IconsOfGdiPlus fail(
        [&](Gdiplus::GpBitmap*, HICON* icon)
        {
            *icon = IconNumber(fail.CallCount());
            return Gdiplus::GenericError;
        });
    EXPECT_EQ(Split(IDR_PNG_STRIP_16, 16, 16),
              (std::vector<HICON>{IconNumber(1), IconNumber(2), IconNumber(3)}));
}

TEST_F(StripIcons, ASuccessWithoutAnIconIsLeftOut)
{
    const IconsOfGdiPlus none([](Gdiplus::GpBitmap*, HICON*) { return Gdiplus::Ok; });
    EXPECT_TRUE(Split(IDR_PNG_STRIP_16, 16, 16).empty());
}

TEST_F(StripIcons, TheListTakesTheRoomOfAllCellsAtOnce)
{
    const ServedResource served(StripPicture(5, 2));
    const std::vector<HICON> icons = Split(1, 2, 2);
    EXPECT_EQ(icons.capacity(), 5u);
    const OwnedIcons owned(icons);
}

TEST_F(StripIcons, LeaveNothingBehindOnceDestroyed)
{
    EXPECT_NO_LEAK([this] { const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 24, 16)); });
    EXPECT_NO_LEAK([this] { const OwnedIcons icons(Split(IDR_PNG_STRIP_16, 24, 16, TRUE, TRUE)); });
    EXPECT_NO_LEAK([this] { Split(IDR_PNG_GARBAGE, 24, 16); });
    EXPECT_NO_LEAK([this] { Split(IDR_PNG_STRIP_16, 0, 16); });
}
