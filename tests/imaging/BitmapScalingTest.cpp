#include <vxdpi/Images.h>

#include "imaging/BitmapCalls.h"
#include "imaging/BitmapPictures.h"
#include "imaging/HundredTimes.h"
#include "support/HandleCount.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

namespace
{
OwnedBitmap Scaled(const OwnedBitmap& source, int cx, int cy)
{
    return OwnedBitmap(ScaleBitmap(source.get(), cx, cy));
}

// What becomes of a row of pixels.
ArgbImage ScaledRow(std::initializer_list<std::uint32_t> colors, int cx)
{
    return ColorsOf(Scaled(DeviceBitmap(Row(colors)), cx, 1).get());
}

// The calls for a source named "source".
CallLog::LineList CallsOfScaling(HBITMAP source, int cx, int cy)
{
    CallLog log;
    log.Name(source, "source");
    const BitmapCalls calls(log);
    const OwnedBitmap scaled(ScaleBitmap(source, cx, cy));
    return log.Lines();
}

HBITMAP DestroyedBitmap()
{
    return DeviceBitmap(4, 4, kWhite).get();
}
}

TEST(BitmapScaling, TheResultHasTheSizeAskedFor)
{
    const OwnedBitmap source = DeviceBitmap(16, 16, kWhite);
    EXPECT_TRUE(HasSize(Scaled(source, 24, 40).get(), 24, 40));
    EXPECT_TRUE(HasSize(Scaled(source, 40, 24).get(), 40, 24));
    EXPECT_TRUE(HasSize(Scaled(source, 5, 3).get(), 5, 3));
    EXPECT_TRUE(HasSize(Scaled(source, 1, 1).get(), 1, 1));
}

TEST(BitmapScaling, InTheSameSizeEveryPixelStays)
{
    const OwnedBitmap source = DeviceBitmap(OpaquePicture(10, 20));
    const OwnedBitmap scaled = Scaled(source, 10, 20);
    EXPECT_NE(scaled, source);
    EXPECT_TRUE(SamePixels(Colors(OpaquePicture(10, 20)), ColorsOf(scaled.get())));
}

TEST(BitmapScaling, AFlatColourFillsTheWholeResult)
{
    const OwnedBitmap source = DeviceBitmap(6, 8, kOtherColor);
    EXPECT_TRUE(SamePixels(Colors(ArgbImage(15, 12, kOtherColor)), ColorsOf(Scaled(source, 15, 12).get())));
    EXPECT_TRUE(SamePixels(Colors(ArgbImage(2, 3, kOtherColor)), ColorsOf(Scaled(source, 2, 3).get())));
}

TEST(BitmapScaling, EnlargingRepeatsPixels)
{
    EXPECT_EQ(ScaledRow({kBlack, kWhite}, 4), Row({kBlack, kBlack, kWhite, kWhite}));
}

// The mode of a new device context, in which a black pixel goes before a white one.
TEST(BitmapScaling, ShrinkingKeepsBlackPixels)
{
    EXPECT_EQ(ScaledRow({kBlack, kWhite, kBlack, kWhite}, 2), Row({kBlack, kBlack}));
    EXPECT_EQ(ScaledRow({kWhite, kWhite, kBlack, kWhite}, 2), Row({kWhite, kBlack}));
}

TEST(BitmapScaling, TakesTheWholeOfTheSource)
{
    ArgbImage quarters(2, 2, kBlack);
    quarters.At(1, 1) = kWhite;
    const ArgbImage scaled = ColorsOf(Scaled(DeviceBitmap(quarters), 8, 4).get());
    EXPECT_EQ(scaled.At(7, 3), kWhite);
    EXPECT_EQ(scaled.At(4, 2), kWhite);
    EXPECT_EQ(scaled.At(3, 2), kBlack);
    EXPECT_EQ(scaled.At(4, 1), kBlack);
    EXPECT_EQ(scaled.At(0, 0), kBlack);
}

TEST(BitmapScaling, TheSourceStaysAsItIsAndTheCallers)
{
    const OwnedBitmap source = DeviceBitmap(OpaquePicture(10, 20));
    Scaled(source, 20, 10);
    EXPECT_TRUE(SamePixels(Colors(OpaquePicture(10, 20)), ColorsOf(source.get())));
    EXPECT_NE(::DeleteObject(source.get()), FALSE);
}

TEST(BitmapScaling, TheSourceCanBeSelectedAgain)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    Scaled(source, 20, 10);
    const HDC dc = ::CreateCompatibleDC(nullptr);
    EXPECT_NE(::SelectObject(dc, source.get()), nullptr);
    ::DeleteDC(dc);
}

TEST(BitmapScaling, TheResultCanBeSelected)
{
    const OwnedBitmap scaled = Scaled(DeviceBitmap(10, 20, kWhite), 20, 10);
    const HDC dc = ::CreateCompatibleDC(nullptr);
    EXPECT_NE(::SelectObject(dc, scaled.get()), nullptr);
    ::DeleteDC(dc);
}

TEST(BitmapScaling, TheResultHasTheFormatOfTheScreen)
{
    const OwnedBitmap source = DibSection(16, 16, kOtherColor);
    ASSERT_TRUE(IsDibSection(source.get()));
    const OwnedBitmap scaled = Scaled(source, 8, 8);
    EXPECT_FALSE(IsDibSection(scaled.get()));
    EXPECT_EQ(ColorsOf(scaled.get()).At(4, 4), kOtherColor & 0xffffff);
}

TEST(BitmapScaling, AMonochromeBitmapBecomesOneOfTheScreen)
{
    constexpr BYTE kBits[] = {0x55, 0x00, 0xaa, 0x00};
    const OwnedBitmap source(::CreateBitmap(8, 2, 1, 1, kBits));
    const OwnedBitmap scaled = Scaled(source, 8, 2);
    BITMAP info = {};
    ::GetObjectW(scaled.get(), sizeof info, &info);
    EXPECT_NE(info.bmBitsPixel, 1);
    EXPECT_EQ(ColorsOf(scaled.get()).At(0, 0), kBlack);
    EXPECT_EQ(ColorsOf(scaled.get()).At(1, 0), kWhite);
    EXPECT_EQ(ColorsOf(scaled.get()).At(0, 1), kWhite);
}

TEST(BitmapScaling, DrawsByTheScreensContextsInTheirDefaultMode)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_EQ(CallsOfScaling(source.get(), 30, 40),
              (CallLog::LineList{
                  "GetObjectW(source, 32)", "GetDC(null)", "CreateCompatibleBitmap(screen, 30, 40)",
                  "CreateCompatibleDC(screen)", "CreateCompatibleDC(screen)", "SelectObject(dc1, source)",
                  "SelectObject(dc2, scaled)", "StretchBlt(dc2, 0, 0, 30, 40, dc1, 0, 0, 10, 20, 13369376)",
                  "SelectObject(dc2, stock)", "SelectObject(dc1, stock)", "DeleteDC(dc2)", "DeleteDC(dc1)",
                  "ReleaseDC(null, screen)"}));
}

TEST(BitmapScaling, WithoutASourceThereIsNothing)
{
    EXPECT_EQ(ScaleBitmap(nullptr, 8, 8), nullptr);
    EXPECT_EQ(CallsOfScaling(nullptr, 8, 8), CallLog::LineList{"GetObjectW(null, 32)"});
}

TEST(BitmapScaling, WithASourceThatIsGoneThereIsNothing)
{
    const HBITMAP destroyed = DestroyedBitmap();
    EXPECT_EQ(ScaleBitmap(destroyed, 8, 8), nullptr);
    EXPECT_EQ(CallsOfScaling(destroyed, 8, 8), CallLog::LineList{"GetObjectW(source, 32)"});
}

TEST(BitmapScaling, WithASourceThatCannotBeQueriedThereIsNothing)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    const FailGetObject fail;
    EXPECT_EQ(ScaleBitmap(source.get(), 8, 8), nullptr);
    EXPECT_EQ(fail.CallCount(), 1);
}

TEST(BitmapScaling, ASourceThatIsQueriedInPartCountsAsQueried)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    const PlatformSpy<decltype(::GetObjectW)> query("gdi32.dll", "GetObjectW",
                                                    [&query](HANDLE object, int size, void* result)
                                                    {
                                                        query.CallOriginal(object, size, result);
                                                        return 1;
                                                    });
    EXPECT_NE(Scaled(source, 8, 8), nullptr);
}

TEST(BitmapScaling, ASizeOfNothingGivesThePlatformsSmallestBitmap)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_TRUE(HasSize(Scaled(source, 0, 0).get(), 1, 1));
}

TEST(BitmapScaling, ASizeThatTheScreenHasNotGivesNothing)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_NO_LEAK([&] { EXPECT_EQ(ScaleBitmap(source.get(), 2000000000, 2000000000), nullptr); });
}

TEST(BitmapScaling, WithoutABitmapForTheResultTheOtherStepsAreDone)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    const FailCreateBitmap fail;
    const CallLog::LineList calls = CallsOfScaling(source.get(), 30, 40);
    EXPECT_EQ(calls, (CallLog::LineList{"GetObjectW(source, 32)", "GetDC(null)",
                                        "CreateCompatibleBitmap(screen, 30, 40)",
                                        "CreateCompatibleDC(screen)", "CreateCompatibleDC(screen)",
                                        "SelectObject(dc1, source)", "SelectObject(dc2, null)",
                                        "StretchBlt(dc2, 0, 0, 30, 40, dc1, 0, 0, 10, 20, 13369376)",
                                        "SelectObject(dc2, null)", "SelectObject(dc1, stock)",
                                        "DeleteDC(dc2)", "DeleteDC(dc1)", "ReleaseDC(null, screen)"}));
}

TEST(BitmapScaling, WithoutABitmapForTheResultNothingIsLeft)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailCreateBitmap fail;
            EXPECT_EQ(ScaleBitmap(source.get(), 30, 40), nullptr);
            EXPECT_EQ(fail.CallCount(), 1);
        });
}

TEST(BitmapScaling, WithoutAScreenNothingIsLeftButTheResult)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailGetDc fail;
            const OwnedBitmap scaled = Scaled(source, 30, 40);
            EXPECT_EQ(fail.CallCount(), 1);
        });
}

TEST(BitmapScaling, AContextThatCannotBeMadeIsNotTold)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    for (const int failingCall : {1, 2})
    {
        EXPECT_NO_LEAK(
            [&]
            {
                const FailCreateDc fail(failingCall);
                EXPECT_TRUE(HasSize(Scaled(source, 30, 40).get(), 30, 40));
                EXPECT_EQ(fail.CallCount(), 2);
            });
    }
}

TEST(BitmapScaling, AFailureToDrawIsNotTold)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailStretch fail;
            EXPECT_TRUE(HasSize(Scaled(source, 30, 40).get(), 30, 40));
            EXPECT_EQ(fail.CallCount(), 1);
        });
}

TEST(BitmapScaling, LeavesExactlyTheResultToTheCaller)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_TRUE(LeavesPerCall({{HandleKind::Bitmap, 1}}, [&] { ScaleBitmap(source.get(), 30, 40); }));
}

TEST(BitmapScaling, AThousandCallsLeaveNothing)
{
    const OwnedBitmap source = DeviceBitmap(10, 20, kWhite);
    EXPECT_NO_LEAK([&] { HundredTimes([&] { Scaled(source, 30, 40); }); });
}

TEST(BitmapScaling, AThousandRefusalsLeaveNothing)
{
    EXPECT_NO_LEAK([] { HundredTimes([] { ScaleBitmap(nullptr, 30, 40); }); });
}
