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

constexpr DWORD kWhite = 0xffffffff;

class StripBitmaps : public testing::Test
{
protected:
    std::vector<HBITMAP> Split(UINT resourceId, int target, int cell, DWORD background = kWhite)
    {
        return m_strip.SplitPngToBitmaps(resourceId, target, cell, m_program, background);
    }

    Lines CallsOfSplitting(UINT resourceId, int target, int cell, DWORD background = kWhite)
    {
        CallLog log;
        const StripCalls calls(log);
        const OwnedBitmaps bitmaps(Split(resourceId, target, cell, background));
        return log.Lines();
    }

    std::size_t CountOf(const ArgbImage& strip, int cell)
    {
        const ServedResource served(strip);
        return OwnedBitmaps(Split(1, 8, cell)).Count();
    }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);
    OpenStrip m_strip;

private:
    const GdiPlusSession m_gdiPlus;
};

class StripBitmapsDeathTest : public StripBitmaps
{
};

const Lines kDecode = {"GdipCreateBitmapFromStream()"};
const Lines kDeleteStrip = {"GdipDisposeImage(strip)"};

Lines ToBitmap(DWORD background)
{
    return {"GdipCreateHBITMAPFromBitmap(scaled, null, " + std::to_string(background) + ")"};
}

// Ends the process with the number of the exception, before anybody else can handle it.
LONG WINAPI ExitWithException(EXCEPTION_POINTERS* exception)
{
    ::TerminateProcess(::GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

bool DividedByZero(int exitCode)
{
    return static_cast<DWORD>(exitCode) == EXCEPTION_INT_DIVIDE_BY_ZERO;
}

HBITMAP BitmapNumber(INT_PTR number)
{
    return reinterpret_cast<HBITMAP>(number);
}

using BitmapsOfGdiPlus = ImportSpy<decltype(Flat::GdipCreateHBITMAPFromBitmap)>;
} // namespace

TEST_F(StripBitmaps, EachCellGivesABitmapOfTheTargetSize)
{
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 24, 16));
    ASSERT_EQ(bitmaps.Count(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
    {
        BITMAP info = {};
        ASSERT_NE(::GetObjectW(bitmaps.At(i), sizeof info, &info), 0);
        EXPECT_EQ(info.bmWidth, 24);
        EXPECT_EQ(info.bmHeight, 24);
        EXPECT_EQ(info.bmBitsPixel, 32);
    }
}

TEST_F(StripBitmaps, BitmapsAreInTheOrderOfTheCellsFromTheLeft)
{
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(bitmaps.Count(), 3u);
    EXPECT_EQ(PixelsOf(bitmaps.At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(bitmaps.At(1)).At(8, 8), 0xff0000c0u);
    EXPECT_EQ(PixelsOf(bitmaps.At(2)).At(8, 8), 0xffc00000u);
}

TEST_F(StripBitmaps, TransparentPixelsAreLaidOverTheBackground)
{
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16, 0xff0a141e));
    ASSERT_EQ(bitmaps.Count(), 3u);
    EXPECT_EQ(PixelsOf(bitmaps.At(0)).At(0, 0) & 0xffffff, 0x0a141eu);
    EXPECT_EQ(PixelsOf(bitmaps.At(0)).At(8, 8) & 0xffffff, 0x00a000u);
}

// Premultiplied when it is cut and once more over the background: ff4010, 802008, 401004 and half of white.
TEST_F(StripBitmaps, HalfTransparentColoursAreDarkenedTwice)
{
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16, kWhite));
    ASSERT_EQ(bitmaps.Count(), 3u);
    EXPECT_TRUE(IsNear(PixelsOf(bitmaps.At(0)).At(5, 0) | 0xff000000, 0xffbf8f83));
}

TEST_F(StripBitmaps, ACellIsCutPremultipliedScaledAndConvertedBeforeTheNext)
{
    EXPECT_EQ(
        CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16, 0x80112233),
        Joined({kDecode, CellLines(0, 24, ToBitmap(0x80112233)), CellLines(16, 24, ToBitmap(0x80112233)),
                CellLines(32, 24, ToBitmap(0x80112233)), kDeleteStrip}));
}

TEST_F(StripBitmaps, ColumnsBeyondTheLastWholeCellAreLeftOut)
{
    EXPECT_EQ(CountOf(ArgbImage(80, 16, 0xff00ff00), 16), 5u);
    EXPECT_EQ(CountOf(ArgbImage(90, 16, 0xff00ff00), 16), 5u);
    EXPECT_EQ(CountOf(ArgbImage(96, 16, 0xff00ff00), 16), 6u);
}

TEST_F(StripBitmaps, AStripNarrowerThanACellGivesNone)
{
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 49), Joined({kDecode, kDeleteStrip}));
}

// A negative length is a huge one.
TEST_F(StripBitmaps, ANegativeCellLengthGivesNone)
{
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, -1), Joined({kDecode, kDeleteStrip}));
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, INT_MIN), Joined({kDecode, kDeleteStrip}));
}

TEST_F(StripBitmapsDeathTest, ACellLengthOf0DividesByIt)
{
    EXPECT_EXIT(
        {
            ::AddVectoredExceptionHandler(TRUE, ExitWithException);
            Split(IDR_PNG_STRIP_16, 24, 0);
        },
        DividedByZero, "");
}

TEST_F(StripBitmaps, ACellLengthOf0DoesNotMatterWithoutAStrip)
{
    EXPECT_TRUE(Split(IDR_MISSING, 24, 0).empty());
    LiveBitmaps live;
    EXPECT_TRUE(Split(IDR_PNG_GARBAGE, 24, 0).empty());
    live.DeleteAll();
}

TEST_F(StripBitmaps, TheHeightOfTheStripIsNotRead)
{
    const ServedResource served(ArgbImage(16, 40, 0xff00ff00));
    CallLog log;
    const StripCalls calls(log);
    const PictureQuestions questions(log);
    EXPECT_EQ(OwnedBitmaps(Split(1, 16, 16)).Count(), 1u);
    EXPECT_EQ(LinesOf(log, "GdipGetImageWidth").at(0), "GdipGetImageWidth(strip)");
    for (const std::string& line : LinesOf(log, "GdipGetImageHeight"))
        EXPECT_EQ(line, "GdipGetImageHeight(cell)");
}

TEST_F(StripBitmaps, TheModuleDecidesWhichStripAnIdMeans)
{
    const ResourceDll dll;
    const OwnedBitmaps bitmaps(m_strip.SplitPngToBitmaps(IDR_DLL_SHARED_ID, 16, 16, dll.Module(), kWhite));
    ASSERT_EQ(bitmaps.Count(), 1u);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(bitmaps.At(0))));
    EXPECT_TRUE(m_strip.SplitPngToBitmaps(IDR_PNG_STRIP_16, 16, 16, dll.Module(), kWhite).empty());
}

TEST_F(StripBitmaps, AResourceOfTypePngIsLookedFor)
{
    CallLog log;
    log.Name(m_program, "program");
    const ResourceCalls resources(log);
    EXPECT_TRUE(Split(IDR_MISSING, 24, 16).empty());
    EXPECT_EQ(log.Lines(), Lines{"FindResourceW(program, @999, \"PNG\")"});
}

TEST_F(StripBitmaps, AStripThatIsNoPictureGivesNoneAndStaysAllocated)
{
    LiveBitmaps live;
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_GARBAGE, 24, 16), kDecode);
    EXPECT_EQ(live.Count(), 1u);
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_TRUNCATED, 24, 16), kDecode);
    EXPECT_EQ(live.Count(), 2u);
    live.DeleteAll();
}

TEST_F(StripBitmaps, NothingButTheDamagedStripStaysAllocated)
{
    EXPECT_NO_LEAK(
        [this]
        {
            LiveBitmaps live;
            Split(IDR_PNG_GARBAGE, 24, 16);
            live.DeleteAll();
        });
}

TEST_F(StripBitmaps, AStripWithPixelsAndABadStatusGivesNoneAndStaysAllocated)
{
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* stream, Gdiplus::GpBitmap** bitmap)
        {
            fail.Original()(stream, bitmap);
            return Gdiplus::GenericError;
        });
    LiveBitmaps live;
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16), kDecode);
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

TEST_F(StripBitmaps, WithoutMemoryForTheStripThereAreNone)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(CallsOfSplitting(IDR_PNG_STRIP_16, 24, 16), Lines{});
}

TEST_F(StripBitmaps, ACellThatCannotBeDrawnIsLeftOutBeforeItIsPremultiplied)
{
    const ServedResource served(StripPicture(1, 16));
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRectI)> fail("GdipDrawImageRectRectI");
    EXPECT_EQ(CallsOfSplitting(1, 24, 16),
              (Lines{"GdipCreateBitmapFromStream()", "GdipCreateBitmapFromScan0(16, 16, 0, 2498570, null)",
                     "GdipGetImageGraphicsContext(cell)", "GdipSetCompositingMode(cutter, 1)",
                     "GdipDrawImageRectRectI(cutter, strip, 0, 0, 16, 16, 0, 0, 16, 16, 2, null, null, null)",
                     "GdipDeleteGraphics(cutter)", "GdipDisposeImage(cell)", "GdipDisposeImage(strip)"}));
}

TEST_F(StripBitmaps, TheCellsBesideOneThatCannotBeDrawnAreGiven)
{
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRectI)> fail("GdipDrawImageRectRectI", 3);
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(bitmaps.Count(), 2u);
    EXPECT_EQ(PixelsOf(bitmaps.At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(bitmaps.At(1)).At(8, 8), 0xffc00000u);
}

TEST_F(StripBitmaps, ATargetSizeOf0LeavesOutEveryCell)
{
    LiveBitmaps live;
    EXPECT_TRUE(Split(IDR_PNG_STRIP_16, 0, 16).empty());
    EXPECT_TRUE(Split(IDR_PNG_STRIP_16, -5, 16).empty());
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(StripBitmaps, WithoutMemoryToScaleACellIsLeftOut)
{
    const FailGdipAlloc fail(3); // the strip, the first cell's scaled bitmap, the second one's
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(bitmaps.Count(), 2u);
    EXPECT_EQ(PixelsOf(bitmaps.At(1)).At(8, 8), 0xffc00000u);
}

TEST_F(StripBitmaps, AScaledBitmapWithABadStatusLeavesTheCellOutAndStaysAllocated)
{
    const FailingGdiPlus<decltype(Flat::GdipCreateBitmapFromScan0)> fail("GdipCreateBitmapFromScan0", 4);
    LiveBitmaps live;
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(bitmaps.Count(), 2u);
    EXPECT_EQ(PixelsOf(bitmaps.At(1)).At(8, 8), 0xffc00000u);
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

TEST_F(StripBitmaps, ACellWithoutABitmapIsLeftOutAndItsScaledBitmapDeleted)
{
    const BitmapsOfGdiPlus fail(VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap",
                                [&](Gdiplus::GpBitmap* bitmap, HBITMAP* handle, Gdiplus::ARGB background) {
                                    return fail.CallCount() == 2
                                               ? Gdiplus::GenericError
                                               : fail.Original()(bitmap, handle, background);
                                });
    LiveBitmaps live;
    const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 16, 16));
    ASSERT_EQ(bitmaps.Count(), 2u);
    EXPECT_EQ(PixelsOf(bitmaps.At(1)).At(8, 8), 0xffc00000u);
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(StripBitmaps, ABitmapThatAFailureWroteIsGivenAllTheSame)
{
    const BitmapsOfGdiPlus fail(VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap",
                                [&](Gdiplus::GpBitmap*, HBITMAP* handle, Gdiplus::ARGB)
                                {
                                    *handle = BitmapNumber(fail.CallCount());
                                    return Gdiplus::GenericError;
                                });
    EXPECT_EQ(Split(IDR_PNG_STRIP_16, 16, 16),
              (std::vector<HBITMAP>{BitmapNumber(1), BitmapNumber(2), BitmapNumber(3)}));
}

TEST_F(StripBitmaps, ASuccessWithoutABitmapIsLeftOut)
{
    const BitmapsOfGdiPlus none(VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap",
                                [](Gdiplus::GpBitmap*, HBITMAP*, Gdiplus::ARGB) { return Gdiplus::Ok; });
    EXPECT_TRUE(Split(IDR_PNG_STRIP_16, 16, 16).empty());
}

TEST_F(StripBitmaps, TheListTakesTheRoomOfAllCellsAtOnce)
{
    const ServedResource served(StripPicture(5, 2));
    const std::vector<HBITMAP> bitmaps = Split(1, 2, 2);
    EXPECT_EQ(bitmaps.capacity(), 5u);
    const OwnedBitmaps owned(bitmaps);
}

TEST_F(StripBitmaps, LeaveNothingBehindOnceDeleted)
{
    EXPECT_NO_LEAK([this] { const OwnedBitmaps bitmaps(Split(IDR_PNG_STRIP_16, 24, 16)); });
    EXPECT_NO_LEAK([this] { Split(IDR_PNG_STRIP_16, 0, 16); });
    EXPECT_NO_LEAK([this] { Split(IDR_MISSING, 24, 16); });
}
