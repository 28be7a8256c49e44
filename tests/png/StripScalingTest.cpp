#include <vxdpi/Png.h>

#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <climits>
#include <utility>

namespace
{
constexpr std::uint32_t kGreen = 0xff00c040;

class StripScaling : public testing::Test
{
protected:
    BitmapPtr Scale(Gdiplus::Bitmap* source, int size)
    {
        return BitmapPtr(m_strip.ScaleBitmap(source, size));
    }

    std::pair<UINT, UINT> ScaledSize(int width, int height, int size)
    {
        const BitmapPtr source = BitmapOf(ArgbImage(width, height, kGreen));
        const BitmapPtr scaled = Scale(source.get(), size);
        if (scaled == nullptr)
            return {};
        return {scaled->GetWidth(), scaled->GetHeight()};
    }

    // The source has no name in these lines. The result lives until they are written down.
    CallLog::LineList CallsOfScaling(Gdiplus::Bitmap* source, int size)
    {
        CallLog log;
        const StripCalls changes(log);
        const PictureQuestions questions(log);
        const BitmapPtr scaled = Scale(source, size);
        return log.Lines();
    }

private:
    const GdiPlusSession m_gdiPlus;
    OpenStrip m_strip;
};

using Size = std::pair<UINT, UINT>;

// Answers the library's questions for a source's size.
class ClaimedSize
{
public:
    ClaimedSize(UINT width, UINT height)
        : m_width(VxDpiModule(), "gdiplus.dll", "GdipGetImageWidth",
                  [width](Gdiplus::GpImage*, UINT* answer)
                  {
                      *answer = width;
                      return Gdiplus::Ok;
                  }),
          m_height(VxDpiModule(), "gdiplus.dll", "GdipGetImageHeight",
                   [height](Gdiplus::GpImage*, UINT* answer)
                   {
                       *answer = height;
                       return Gdiplus::Ok;
                   })
    {
    }

private:
    ImportSpy<decltype(Flat::GdipGetImageWidth)> m_width;
    ImportSpy<decltype(Flat::GdipGetImageHeight)> m_height;
};

// Refuses every bitmap and remembers the size of the last one.
class RefusedBitmap
{
public:
    RefusedBitmap()
        : m_create(VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0",
                   [this](INT width, INT height, INT, Gdiplus::PixelFormat, BYTE*, Gdiplus::GpBitmap** bitmap)
                   {
                       m_size = {width, height};
                       *bitmap = nullptr;
                       return Gdiplus::OutOfMemory;
                   })
    {
    }

    std::pair<INT, INT> Size() const { return m_size; }

private:
    std::pair<INT, INT> m_size;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> m_create;
};

// The size that a bitmap is asked for, whatever memory it would take.
class StripScalingArithmetic : public StripScaling
{
protected:
    std::pair<INT, INT> SizeAskedFor(UINT width, UINT height, int size)
    {
        const BitmapPtr source = BitmapOf(ArgbImage(1, 1));
        const ClaimedSize claimed(width, height);
        const RefusedBitmap refused;
        EXPECT_NE(Scale(source.get(), size), nullptr);
        return refused.Size();
    }
};

// Answers the starts of GDI+ and tells where each wants its token.
class Starts
{
public:
    explicit Starts(Gdiplus::Status status)
        : m_start(VxDpiModule(), "gdiplus.dll", "GdiplusStartup",
                  [this, status](ULONG_PTR* token, const Gdiplus::GdiplusStartupInput* input,
                                 Gdiplus::GdiplusStartupOutput* output)
                  {
                      versions.push_back(input->GdiplusVersion);
                      outputs.push_back(output);
                      *token = 100 + versions.size();
                      return status;
                  }),
          m_shutdown(VxDpiModule(), "gdiplus.dll", "GdiplusShutdown")
    {
    }

    int ShutdownCount() const { return m_shutdown.CallCount(); }

    std::vector<UINT32> versions;
    std::vector<Gdiplus::GdiplusStartupOutput*> outputs;

private:
    ImportSpy<decltype(Gdiplus::GdiplusStartup)> m_start;
    ImportSpy<decltype(Gdiplus::GdiplusShutdown)> m_shutdown;
};

ULONG_PTR HeldToken()
{
    ULONG_PTR token = 0;
    GetGdiPlusTokenFromVxDpi(token);
    return token;
}
} // namespace

TEST_F(StripScaling, TheHeightIsTheSizeAndTheWidthKeepsTheProportions)
{
    EXPECT_EQ(ScaledSize(32, 16, 24), Size(48, 24));
    EXPECT_EQ(ScaledSize(16, 32, 24), Size(12, 24));
    EXPECT_EQ(ScaledSize(16, 16, 24), Size(24, 24));
    EXPECT_EQ(ScaledSize(48, 48, 16), Size(16, 16));
}

TEST_F(StripScaling, TheWidthIsRoundedToNearestWithHalvesUp)
{
    EXPECT_EQ(ScaledSize(3, 2, 1), Size(2, 1));   // 1.5
    EXPECT_EQ(ScaledSize(5, 2, 1), Size(3, 1));   // 2.5
    EXPECT_EQ(ScaledSize(10, 3, 4), Size(13, 4)); // 13.33
    EXPECT_EQ(ScaledSize(11, 3, 4), Size(15, 4)); // 14.67
}

TEST_F(StripScaling, ASizeOf1IsTheSmallest)
{
    EXPECT_EQ(ScaledSize(16, 16, 1), Size(1, 1));
}

TEST_F(StripScaling, WithoutASourceOrASizeAbove0ThereIsNoneAndNothingIsStarted)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    EXPECT_EQ(Scale(nullptr, 16), nullptr);
    EXPECT_EQ(CallsOfScaling(nullptr, 16), CallLog::LineList{});
    for (const int size : {0, -1, INT_MIN})
    {
        EXPECT_EQ(Scale(source.get(), size), nullptr) << size;
        EXPECT_EQ(CallsOfScaling(source.get(), size), CallLog::LineList{}) << size;
    }
}

TEST_F(StripScaling, StartsGdiPlusMeasuresSetsTwoModesAndDrawsTheWhole)
{
    const BitmapPtr source = BitmapOf(ArgbImage(32, 16, kGreen));
    EXPECT_EQ(CallsOfScaling(source.get(), 24),
              (CallLog::LineList{
                  "GdiplusStartup()", "GdipGetImageHeight(#1)", "GdipGetImageWidth(#1)",
                  "GdipCreateBitmapFromScan0(48, 24, 0, 2498570, null)",
                  "GdipGetImageGraphicsContext(scaled)", "GdipSetInterpolationMode(scaler, 7)",
                  "GdipSetPixelOffsetMode(scaler, 4)", "GdipGetImageWidth(#1)", "GdipGetImageHeight(#1)",
                  "GdipDrawImageRectRectI(scaler, #1, 0, 0, 48, 24, 0, 0, 32, 16, 2, null, null, null)",
                  "GdipDeleteGraphics(scaler)"}));
}

TEST_F(StripScaling, TheSourcesSizeIsReadAfreshForDrawing)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    const ImportSpy<decltype(Flat::GdipGetImageWidth)> width(VxDpiModule(), "gdiplus.dll",
                                                             "GdipGetImageWidth",
                                                             [&](Gdiplus::GpImage*, UINT* answer)
                                                             {
                                                                 *answer = width.CallCount() == 1 ? 16 : 5;
                                                                 return Gdiplus::Ok;
                                                             });
    const ImportSpy<decltype(Flat::GdipGetImageHeight)> height(VxDpiModule(), "gdiplus.dll",
                                                               "GdipGetImageHeight",
                                                               [&](Gdiplus::GpImage*, UINT* answer)
                                                               {
                                                                   *answer = height.CallCount() == 1 ? 8 : 3;
                                                                   return Gdiplus::Ok;
                                                               });
    CallLog log;
    const StripCalls calls(log);
    const BitmapPtr scaled = Scale(source.get(), 24);
    EXPECT_EQ(LinesOf(log, "GdipCreateBitmapFromScan0"),
              CallLog::LineList{"GdipCreateBitmapFromScan0(48, 24, 0, 2498570, null)"});
    EXPECT_EQ(LinesOf(log, "GdipDrawImageRectRectI"),
              CallLog::LineList{
                  "GdipDrawImageRectRectI(scaler, #1, 0, 0, 48, 24, 0, 0, 5, 3, 2, null, null, null)"});
}

TEST_F(StripScaling, TheResultHasAlphaWhateverTheSourceHas)
{
    const BitmapPtr opaque = BitmapOf(OpaquePicture(16, 16), PixelFormat24bppRGB);
    const BitmapPtr premultiplied = BitmapOf(OpaquePicture(16, 16), PixelFormat32bppPARGB);
    const BitmapPtr ofOpaque = Scale(opaque.get(), 24);
    const BitmapPtr ofPremultiplied = Scale(premultiplied.get(), 24);
    ASSERT_NE(ofOpaque, nullptr);
    ASSERT_NE(ofPremultiplied, nullptr);
    EXPECT_EQ(ofOpaque->GetPixelFormat(), PixelFormat32bppARGB);
    EXPECT_EQ(ofPremultiplied->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST_F(StripScaling, InTheSameSizeIsACopyAndTheSourceStays)
{
    const BitmapPtr source = BitmapOf(FramedPicture(16, 16));
    const BitmapPtr scaled = Scale(source.get(), 16);
    ASSERT_NE(scaled, nullptr);
    EXPECT_NE(scaled, source);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*scaled)));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*source)));
}

TEST_F(StripScaling, AFlatColourStaysInside)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    const BitmapPtr larger = Scale(source.get(), 24);
    const BitmapPtr smaller = Scale(source.get(), 8);
    ASSERT_NE(larger, nullptr);
    ASSERT_NE(smaller, nullptr);
    EXPECT_EQ(PixelsOf(*larger).At(1, 1), kGreen);
    EXPECT_EQ(PixelsOf(*larger).At(20, 20), kGreen);
    EXPECT_EQ(PixelsOf(*smaller).At(6, 6), kGreen);
}

TEST_F(StripScaling, AFailureToDrawIsNotTold)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRectI)> fail("GdipDrawImageRectRectI");
    const BitmapPtr scaled = Scale(source.get(), 24);
    ASSERT_NE(scaled, nullptr);
    EXPECT_EQ(scaled->GetLastStatus(), Gdiplus::Ok);
    EXPECT_TRUE(SamePixels(ArgbImage(24, 24), PixelsOf(*scaled)));
}

TEST_F(StripScaling, ASizeThatGdiPlusRefusesGivesABitmapWhoseStatusTellsSo)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    const RefusedBitmap refused;
    const BitmapPtr scaled = Scale(source.get(), 24);
    ASSERT_NE(scaled, nullptr);
    EXPECT_EQ(scaled->GetLastStatus(), Gdiplus::OutOfMemory);
}

TEST_F(StripScaling, WithoutMemoryThereIsNone)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    const FailGdipAlloc fail;
    EXPECT_EQ(Scale(source.get(), 24), nullptr);
    EXPECT_EQ(CallsOfScaling(source.get(), 24),
              (CallLog::LineList{"GdiplusStartup()", "GdipGetImageHeight(#1)", "GdipGetImageWidth(#1)"}));
}

TEST_F(StripScaling, LeavesNothingBehindButItsResult)
{
    const BitmapPtr source = BitmapOf(ArgbImage(16, 16, kGreen));
    EXPECT_NO_LEAK([&] { Scale(source.get(), 24); });
}

TEST_F(StripScaling, EachCallStartsGdiPlusOnceMoreAndReplacesTheToken)
{
    const BitmapPtr source = BitmapOf(ArgbImage(4, 4, kGreen));
    const Starts starts(Gdiplus::Ok);
    EXPECT_NE(Scale(source.get(), 4), nullptr);
    EXPECT_EQ(HeldToken(), 101u);
    EXPECT_NE(Scale(source.get(), 4), nullptr);
    EXPECT_EQ(HeldToken(), 102u);
    EXPECT_NE(Scale(source.get(), 6), nullptr);
    EXPECT_EQ(HeldToken(), 103u);
    EXPECT_EQ(starts.versions, (std::vector<UINT32>{1, 1, 1}));
    EXPECT_EQ(starts.outputs, (std::vector<Gdiplus::GdiplusStartupOutput*>{nullptr, nullptr, nullptr}));
    EXPECT_EQ(starts.ShutdownCount(), 0);
}

TEST_F(StripScaling, AGivenTokenIsReplacedToo)
{
    const BitmapPtr source = BitmapOf(ArgbImage(4, 4, kGreen));
    const Starts starts(Gdiplus::Ok);
    SetGdiPlusTokenToVxDpi(7);
    EXPECT_NE(Scale(source.get(), 4), nullptr);
    EXPECT_EQ(HeldToken(), 101u);
}

TEST_F(StripScaling, AFailedStartDoesNotMatter)
{
    const BitmapPtr source = BitmapOf(ArgbImage(4, 4, kGreen));
    const Starts starts(Gdiplus::GenericError);
    const BitmapPtr scaled = Scale(source.get(), 4);
    ASSERT_NE(scaled, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(4, 4, kGreen), PixelsOf(*scaled)));
}

TEST_F(StripScalingArithmetic, ASourceWithoutHeightKeepsItsWidth)
{
    EXPECT_EQ(SizeAskedFor(40, 0, 24), std::make_pair(40, 24));
    EXPECT_EQ(SizeAskedFor(0, 16, 24), std::make_pair(0, 24));
}

TEST_F(StripScalingArithmetic, AWidthWhoseProductFits31BitsIsScaled)
{
    EXPECT_EQ(SizeAskedFor(0x7fffffff, 2, 1), std::make_pair(0x40000000, 1)); // 1073741823.5
    EXPECT_EQ(SizeAskedFor(0x3fffffff, 4, 2), std::make_pair(0x20000000, 2)); // 536870911.5
    EXPECT_EQ(SizeAskedFor(1, 2, 0x7fffffff), std::make_pair(0x40000000, 0x7fffffff));
}

TEST_F(StripScalingArithmetic, AWidthWhoseProductLeaves31BitsStays)
{
    EXPECT_EQ(SizeAskedFor(0x40000000, 4, 2), std::make_pair(0x40000000, 2));
    EXPECT_EQ(SizeAskedFor(100000, 2, 30000), std::make_pair(100000, 30000));
    EXPECT_EQ(SizeAskedFor(0x10006, 6, 0x10000), std::make_pair(0x10006, 0x10000)); // 0x60000 in 32 bits
}
