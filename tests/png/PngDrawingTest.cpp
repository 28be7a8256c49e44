#include <vxdpi/Png.h>

#include "imaging/RegistryFields.h"
#include "png/DrawingCalls.h"
#include "resources/resource_ids.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
constexpr std::uint32_t kWhite = 0xffffffff;
constexpr std::uint32_t kNothing = 0x00000000;
constexpr RECT kAt48 = {10, 20, 58, 68}; // 48 x 48 pixels

const CallLog::LineList kNoCalls;

class DrawPngInDC : public testing::Test
{
protected:
    void Register(UINT dpi, UINT resourceId) { m_png.AddResourceForDpi(dpi, resourceId, {}); }

    BOOL Draw(UINT dpi, const RECT& destination = kAt48, const RECT* source = nullptr)
    {
        return m_png.DrawPngInDC(m_target.Dc(), dpi, destination, source, &m_size);
    }

    testing::AssertionResult SizeIsUntouched() const { return IsSize(m_size, -7, -8); }

    // What GDI+ is told to draw where.
    CallLog::LineList DrawCalls(UINT dpi, const RECT& destination, const RECT* source = nullptr)
    {
        CallLog log;
        const GdiPlusCalls calls(log);
        Draw(dpi, destination, source);
        return LinesOf(log, "GdipDrawImageRectRect");
    }

    // The calls of a drawing that comes to nothing.
    CallLog::LineList CallsOfFailure(UINT dpi)
    {
        CallLog log;
        const GdiPlusCalls calls(log);
        EXPECT_EQ(Draw(dpi), FALSE);
        return log.Lines();
    }

    const GdiPlusSession m_gdiPlus;
    CDpiAwarePng m_png;
    Dib32 m_target{96, 96, kWhite};
    Gdiplus::Size m_size{-7, -8};
};

class DrawPngInDCAtDpi : public DrawPngInDC, public testing::WithParamInterface<SizeAtDpi>
{
};
} // namespace

TEST_F(DrawPngInDC, DecodesThenScalesThenDrawsInThisOrder)
{
    Register(96, IDR_PNG_32);
    CallLog log;
    log.Name(m_target.Dc(), "target");
    const GdiPlusCalls calls(log);

    EXPECT_EQ(Draw(144), TRUE);

    EXPECT_EQ(
        log.Lines(),
        (CallLog::LineList{
            "GdipCreateBitmapFromStream()",
            "GdipCreateBitmapFromScan0(48, 48, 0, 2498570, null)",
            "GdipGetImageGraphicsContext(scaled)",
            "GdipSetInterpolationMode(scaler, 7)",
            "GdipDrawImageRectI(scaler, decoded, 0, 0, 48, 48)",
            "GdipDeleteGraphics(scaler)",
            "GdipDisposeImage(decoded)",
            "GdipCreateFromHDC(target)",
            "GdipSetInterpolationMode(graphics, 7)",
            "GdipSetSmoothingMode(graphics, 4)",
            "GdipSetPixelOffsetMode(graphics, 2)",
            "GdipSetCompositingQuality(graphics, 2)",
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, 0, 0, 48, 48, 2, null, null, null)",
            "GdipDisposeImage(scaled)",
            "GdipDeleteGraphics(graphics)",
        }));
}

TEST_F(DrawPngInDC, ReportsTheScaledSizeBeforeTheDecodedPictureIsGone)
{
    Register(96, IDR_PNG_32);
    const ImportSpy<decltype(Flat::GdipDisposeImage)> dispose(VxDpiModule(), "gdiplus.dll",
                                                              "GdipDisposeImage",
                                                              [this](Gdiplus::GpImage* image)
                                                              {
                                                                  EXPECT_TRUE(IsSize(m_size, 48, 48));
                                                                  return Flat::GdipDisposeImage(image);
                                                              });
    Draw(144);
    EXPECT_EQ(dispose.CallCount(), 2);
}

TEST_F(DrawPngInDC, NeverChangesTheCompositingMode)
{
    Register(96, IDR_PNG_32);
    const ImportSpy<decltype(Flat::GdipSetCompositingMode)> mode(VxDpiModule(), "gdiplus.dll",
                                                                 "GdipSetCompositingMode");
    EXPECT_EQ(Draw(144), TRUE);
    EXPECT_EQ(mode.CallCount(), 0);
}

TEST_F(DrawPngInDC, MayBeAskedForNoSize)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(m_png.DrawPngInDC(m_target.Dc(), 144, kAt48, nullptr, nullptr), TRUE);
    EXPECT_NE(m_target.At(34, 44), kWhite);
}

TEST_F(DrawPngInDC, LeavesTheContextToTheCaller)
{
    Register(96, IDR_PNG_32);
    Draw(144);
    EXPECT_EQ(::GetObjectType(m_target.Dc()), static_cast<DWORD>(OBJ_MEMDC));
}

TEST_F(DrawPngInDC, CopiesThePictureAtItsOwnDpi)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(96, {10, 20, 42, 52}), TRUE);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
    EXPECT_EQ(m_target.At(40, 50), 0xff969640u);
    EXPECT_EQ(m_target.At(40, 49), 0xff9691ffu);
}

TEST_F(DrawPngInDC, BlendsHalfTransparentPixelsWithTheBackground)
{
    Register(96, IDR_PNG_32);
    Draw(96, {10, 20, 42, 52});
    EXPECT_TRUE(IsNear(m_target.At(20, 20), 0xffff9f87));
    EXPECT_TRUE(IsNear(m_target.At(41, 40), 0xffff9f87));
}

TEST_F(DrawPngInDC, LeavesTheBackgroundUnderTransparentPixels)
{
    Register(96, IDR_PNG_32);
    Draw(96, {10, 20, 42, 52});
    EXPECT_EQ(m_target.At(10, 20), kWhite);
    EXPECT_EQ(m_target.At(41, 51), kWhite);
}

TEST_F(DrawPngInDC, DrawsNothingAroundTheDestination)
{
    Register(96, IDR_PNG_32);
    Draw(96, {10, 20, 42, 52});
    EXPECT_EQ(m_target.At(9, 36), kWhite);
    EXPECT_EQ(m_target.At(42, 36), kWhite);
    EXPECT_EQ(m_target.At(26, 19), kWhite);
    EXPECT_EQ(m_target.At(26, 52), kWhite);
}

TEST_F(DrawPngInDC, FillsTheDestinationWithTheScaledPicture)
{
    Register(96, IDR_PNG_32);
    Draw(144);
    EXPECT_NEAR(m_target.At(22, 32) >> 16 & 0xff, 40, 8);  // the picture's (8, 8)
    EXPECT_NEAR(m_target.At(46, 32) >> 16 & 0xff, 120, 8); // (24, 8)
    EXPECT_NEAR(m_target.At(22, 56) >> 8 & 0xff, 120, 8);  // (8, 24)
}

TEST_F(DrawPngInDC, StretchesTheScaledPictureToALargerDestination)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(96, {0, 0, 96, 96}), TRUE);
    EXPECT_TRUE(IsSize(m_size, 32, 32));
    EXPECT_NEAR(m_target.At(72, 24) >> 16 & 0xff, 120, 8); // (24, 8)
    EXPECT_NEAR(m_target.At(72, 24) >> 8 & 0xff, 40, 8);
}

TEST_F(DrawPngInDC, DrawsPicturesWithoutAlpha)
{
    Register(96, IDR_PNG_RGB_32);
    EXPECT_EQ(Draw(96, {10, 20, 42, 52}), TRUE);
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
    EXPECT_EQ(m_target.At(10, 20), 0xff000040u);
}

TEST_F(DrawPngInDC, KeepsThePixelFormatOfPicturesWithoutAlpha)
{
    Register(96, IDR_PNG_RGB_32);
    CallLog log;
    const GdiPlusCalls calls(log);
    Draw(144);
    EXPECT_EQ(LinesOf(log, "GdipCreateBitmapFromScan0"),
              (CallLog::LineList{"GdipCreateBitmapFromScan0(48, 48, 0, 137224, null)"}));
}

TEST_F(DrawPngInDC, IgnoresTheResolutionThatThePictureClaims)
{
    Register(96, IDR_PNG_144_DPI);
    Draw(96, {10, 20, 42, 52});
    EXPECT_TRUE(IsSize(m_size, 32, 32));
    EXPECT_EQ(m_target.At(15, 27), 0xff192340u);
}

TEST_F(DrawPngInDC, SourceIsMeasuredInPixelsOfTheScaledPicture)
{
    Register(96, IDR_PNG_32);
    const RECT leftHalf = {0, 0, 24, 48};
    EXPECT_EQ(
        DrawCalls(144, kAt48, &leftHalf),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, 0, 0, 24, 48, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, StretchesTheSourceOverTheWholeDestination)
{
    Register(96, IDR_PNG_32);
    const RECT leftHalf = {0, 0, 24, 48};
    EXPECT_EQ(Draw(144, kAt48, &leftHalf), TRUE);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_NEAR(m_target.At(46, 44) >> 16 & 0xff, 60,
                8); // three quarters of the left half: the picture's (12, 16)
    EXPECT_NEAR(m_target.At(46, 44) >> 8 & 0xff, 80, 8);
}

TEST_F(DrawPngInDC, SourceMayStartAnywhere)
{
    Register(96, IDR_PNG_32);
    const RECT source = {4, 6, 13, 25};
    EXPECT_EQ(
        DrawCalls(144, kAt48, &source),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, 4, 6, 9, 19, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, SourceOutsideThePictureIsPassedOn)
{
    Register(96, IDR_PNG_32);
    const RECT source = {100, 200, 101, 203};
    EXPECT_EQ(
        DrawCalls(144, kAt48, &source),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, 100, 200, 1, 3, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, DestinationMayBeReversed)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(
        DrawCalls(144, {58, 68, 10, 21}),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 58, 68, -48, -47, 0, 0, 48, 48, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, EmptyDestinationIsPassedOn)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(DrawCalls(144, {5, 6, 5, 6}),
              (CallLog::LineList{
                  "GdipDrawImageRectRect(graphics, scaled, 5, 6, 0, 0, 0, 0, 48, 48, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, SidesOfTheDestinationWrapAround)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(
        DrawCalls(144, {INT_MIN, INT_MIN, INT_MAX, INT_MAX - 1}),
        (CallLog::LineList{"GdipDrawImageRectRect(graphics, scaled, -2.14748e+09, -2.14748e+09, -1, -2, "
                           "0, 0, 48, 48, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, SidesOfTheSourceWrapAround)
{
    Register(96, IDR_PNG_32);
    const RECT source = {INT_MIN, INT_MIN, INT_MAX, INT_MAX - 1};
    EXPECT_EQ(DrawCalls(144, kAt48, &source),
              (CallLog::LineList{"GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, "
                                 "-2.14748e+09, -2.14748e+09, -1, -2, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, PositionAndExtentMakeTheDestination)
{
    Register(96, IDR_PNG_32);
    const RECT source = {1, 2, 4, 6};
    CallLog log;
    log.Name(m_target.Dc(), "target");
    const GdiPlusCalls calls(log);

    EXPECT_EQ(m_png.DrawPngInDC(m_target.Dc(), 144, 10, 20, 16, 17, &source, &m_size), TRUE);

    EXPECT_TRUE(IsSize(m_size, 48, 48));
    EXPECT_EQ(LinesOf(log, "GdipCreateFromHDC"), (CallLog::LineList{"GdipCreateFromHDC(target)"}));
    EXPECT_EQ(
        LinesOf(log, "GdipDrawImageRectRect"),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 16, 17, 1, 2, 3, 4, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, PositionAndExtentDrawTheRectangleFromTenTwentyToTwentySixThirtySix)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(m_png.DrawPngInDC(m_target.Dc(), 96, 10, 20, 16, 16, nullptr, nullptr), TRUE);
    EXPECT_EQ(m_target.At(11, 21), 0xff050540u);
    EXPECT_EQ(m_target.At(24, 34), 0xff464640u);
    EXPECT_EQ(m_target.At(26, 30), kWhite);
    EXPECT_EQ(m_target.At(20, 36), kWhite);
}

TEST_F(DrawPngInDC, PositionAndExtentPassAFailureOn)
{
    EXPECT_EQ(m_png.DrawPngInDC(m_target.Dc(), 96, 10, 20, 16, 16, nullptr, &m_size), FALSE);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, FarEdgesOfPositionAndExtentWrapAround)
{
    Register(96, IDR_PNG_32);
    CallLog log;
    const GdiPlusCalls calls(log);
    m_png.DrawPngInDC(m_target.Dc(), 144, INT_MAX, INT_MAX, 16, 17, nullptr, nullptr);
    EXPECT_EQ(LinesOf(log, "GdipDrawImageRectRect"),
              (CallLog::LineList{"GdipDrawImageRectRect(graphics, scaled, 2.14748e+09, 2.14748e+09, 16, 17, "
                                 "0, 0, 48, 48, 2, null, null, null)"}));
}

TEST_P(DrawPngInDCAtDpi, ReportsTheScaledSize)
{
    Register(96, IDR_PNG_32);
    EXPECT_EQ(Draw(GetParam().dpi), TRUE);
    EXPECT_TRUE(IsSize(m_size, GetParam().side, GetParam().side));
}

INSTANTIATE_TEST_SUITE_P(OfA32PixelPictureFor96, DrawPngInDCAtDpi,
                         testing::Values(SizeAtDpi{96, 32}, SizeAtDpi{120, 40}, SizeAtDpi{144, 48},
                                         SizeAtDpi{192, 64}, SizeAtDpi{72, 24}, SizeAtDpi{97, 32},
                                         SizeAtDpi{4, 1}));

TEST_F(DrawPngInDC, CutsFractionsOfPixelsOff)
{
    Register(96, IDR_PNG_15);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 18, 18));
}

TEST_F(DrawPngInDC, ScalesWidthAndHeightApart)
{
    Register(96, IDR_PNG_STRIP_16);
    CallLog log;
    const GdiPlusCalls calls(log);
    Draw(144);
    EXPECT_TRUE(IsSize(m_size, 72, 24));
    EXPECT_EQ(
        LinesOf(log, "GdipDrawImageRectRect"),
        (CallLog::LineList{
            "GdipDrawImageRectRect(graphics, scaled, 10, 20, 48, 48, 0, 0, 72, 24, 2, null, null, null)"}));
}

TEST_F(DrawPngInDC, MultipliesInSinglePrecision)
{
    Register(144, IDR_PNG_24);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 20, 20)); // 19.9999995 in double precision
}

TEST_F(DrawPngInDC, DividesInSinglePrecision)
{
    Register(16777217, IDR_PNG_16);
    Draw(16777216);
    EXPECT_TRUE(IsSize(m_size, 16, 16)); // a quotient below 1 in double precision
}

TEST_F(DrawPngInDC, TakesTheSmallestVariantAtOrAboveTheDpi)
{
    Register(96, IDR_PNG_16);
    Register(144, IDR_PNG_24);
    Register(192, IDR_PNG_32);
    Draw(120);
    EXPECT_TRUE(IsSize(m_size, 20, 20));
    Draw(144);
    EXPECT_TRUE(IsSize(m_size, 24, 24));
    Draw(168);
    EXPECT_TRUE(IsSize(m_size, 28, 28));
}

TEST_F(DrawPngInDC, TakesTheLargestVariantBelowTheDpiWhenNoneReachesIt)
{
    Register(96, IDR_PNG_48);
    Register(144, IDR_PNG_24);
    Draw(288);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
}

TEST_F(DrawPngInDC, MovesTheObjectToTheDpi)
{
    Register(96, IDR_PNG_16);
    Draw(144);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(DrawPngInDC, MovesTheObjectToTheDpiEvenWhenNothingIsRegistered)
{
    EXPECT_EQ(Draw(144), FALSE);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(DrawPngInDC, DecodesAnewAtEachCall)
{
    Register(96, IDR_PNG_16);
    CallLog log;
    const GdiPlusCalls calls(log);
    Draw(96);
    Draw(96);
    EXPECT_EQ(LinesOf(log, "GdipCreateBitmapFromStream").size(), 2u);
}

TEST_F(DrawPngInDC, TakesResourcesFromTheFrameworksResourceModule)
{
    Register(96, IDR_DLL_SHARED_ID);
    const ResourceDll otherResources;
    const HINSTANCE previous = AfxGetResourceHandle();
    AfxSetResourceHandle(otherResources.Module());
    EXPECT_EQ(Draw(96, {10, 20, 26, 36}), TRUE);
    AfxSetResourceHandle(previous);
    EXPECT_EQ(m_target.At(18, 28), 0xff2060c0u);
}

TEST_F(DrawPngInDC, NullContextDoesNothing)
{
    Register(96, IDR_PNG_16);
    CallLog log;
    const GdiPlusCalls calls(log);
    EXPECT_EQ(m_png.DrawPngInDC(nullptr, 144, kAt48, nullptr, &m_size), FALSE);
    EXPECT_EQ(log.Lines(), kNoCalls);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 96u);
}

TEST_F(DrawPngInDC, NothingRegisteredGivesFalse)
{
    EXPECT_EQ(CallsOfFailure(144), kNoCalls);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, VariantForDpi0IsRefusedBeforeItIsDecoded)
{
    Register(0, IDR_PNG_16);
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW");
    EXPECT_EQ(CallsOfFailure(96), kNoCalls);
    EXPECT_EQ(find.CallCount(), 0);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, MissingResourceGivesFalse)
{
    Register(96, IDR_MISSING);
    EXPECT_EQ(CallsOfFailure(96), kNoCalls);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, UnreadableResourceGivesFalse)
{
    Register(96, IDR_PNG_GARBAGE);
    EXPECT_EQ(Draw(96), FALSE);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_EQ(m_target.Pixels(), ArgbImage(96, 96, kWhite));
}

TEST_F(DrawPngInDC, WidthOfLessThanAPixelGivesFalse)
{
    Register(96, IDR_PNG_COLUMN);
    EXPECT_EQ(CallsOfFailure(48),
              (CallLog::LineList{"GdipCreateBitmapFromStream()", "GdipDisposeImage(decoded)"}));
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, Dpi0GivesFalse)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(CallsOfFailure(0),
              (CallLog::LineList{"GdipCreateBitmapFromStream()", "GdipDisposeImage(decoded)"}));
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, NoMemoryToScaleIntoGivesFalse)
{
    Register(96, IDR_PNG_32);
    const NoMemoryForScaled failing;
    EXPECT_EQ(CallsOfFailure(144),
              (CallLog::LineList{"GdipCreateBitmapFromStream()", "GdipDisposeImage(decoded)"}));
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_F(DrawPngInDC, HugeDpiThatGdiPlusRefusesGivesFalse)
{
    Register(96, IDR_PNG_16);
    CallLog log;
    const RecordCalls<decltype(Flat::GdipDrawImageRectRect)> draw(log, VxDpiModule(), "gdiplus.dll",
                                                                  "GdipDrawImageRectRect");
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> refuse(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0",
        [&](INT width, INT height, INT, Gdiplus::PixelFormat, BYTE*, Gdiplus::GpBitmap**)
        {
            log.WriteCall("size", width, height);
            return Gdiplus::OutOfMemory;
        });
    EXPECT_EQ(Draw(0xffffffff), FALSE);
    EXPECT_EQ(LinesOf(log, "size"), (CallLog::LineList{"size(715827904, 715827904)"}));
}

TEST_F(DrawPngInDC, SizeIsThatOfTheBitmapThatGdiPlusMade)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipCreateBitmapFromScan0)> failing("GdipCreateBitmapFromScan0");
    EXPECT_EQ(Draw(144), FALSE);
    EXPECT_TRUE(IsSize(m_size, 0, 0));
}

TEST_F(DrawPngInDC, FailureToScaleIsNotNoticed)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectI)> failing("GdipDrawImageRectI");
    EXPECT_EQ(Draw(144), TRUE);
    EXPECT_EQ(m_target.Pixels(), ArgbImage(96, 96, kWhite));
}

TEST_F(DrawPngInDC, FailureToMakeGraphicsToScaleWithIsNotNoticed)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipGetImageGraphicsContext)> failing("GdipGetImageGraphicsContext");
    EXPECT_EQ(Draw(144), TRUE);
}

TEST_F(DrawPngInDC, FailureToMakeGraphicsToDrawWithGivesFalse)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipCreateFromHDC)> failing("GdipCreateFromHDC");
    EXPECT_EQ(Draw(144), FALSE);
    EXPECT_TRUE(IsSize(m_size, 48, 48));
}

TEST_F(DrawPngInDC, FailureToDrawGivesFalse)
{
    Register(96, IDR_PNG_32);
    const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRect)> failing("GdipDrawImageRectRect");
    const CallLog::LineList calls = CallsOfFailure(144);
    ASSERT_EQ(calls.size(), 15u);
    EXPECT_EQ(calls[13], "GdipDisposeImage(scaled)");
    EXPECT_EQ(calls[14], "GdipDeleteGraphics(graphics)");
    EXPECT_TRUE(IsSize(m_size, 48, 48));
}

TEST_F(DrawPngInDC, RefusedModesDoNotStopIt)
{
    Register(96, IDR_PNG_32);
    constexpr int kEvery = 0;
    const FailingGdiPlus<decltype(Flat::GdipSetInterpolationMode)> interpolation("GdipSetInterpolationMode",
                                                                                 kEvery);
    const FailingGdiPlus<decltype(Flat::GdipSetSmoothingMode)> smoothing("GdipSetSmoothingMode", kEvery);
    const FailingGdiPlus<decltype(Flat::GdipSetPixelOffsetMode)> pixelOffset("GdipSetPixelOffsetMode",
                                                                             kEvery);
    const FailingGdiPlus<decltype(Flat::GdipSetCompositingQuality)> quality("GdipSetCompositingQuality",
                                                                            kEvery);
    EXPECT_EQ(Draw(144), TRUE);
}

TEST_F(DrawPngInDC, KeepsNothing)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK([this] { Draw(144); });
}

TEST_F(DrawPngInDC, KeepsNothingWhenTheResourceIsUnreadable)
{
    Register(96, IDR_PNG_GARBAGE);
    EXPECT_NO_LEAK([this] { Draw(144); });
}

TEST_F(DrawPngInDC, KeepsNothingWhenThereIsNoMemoryToScaleInto)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const NoMemoryForScaled failing;
            Draw(144);
        });
}

TEST_F(DrawPngInDC, KeepsNothingWhenASideIsLessThanAPixel)
{
    Register(96, IDR_PNG_COLUMN);
    EXPECT_NO_LEAK([this] { Draw(48); });
}

TEST_F(DrawPngInDC, KeepsNothingWhenItCannotDraw)
{
    Register(96, IDR_PNG_32);
    EXPECT_NO_LEAK(
        [this]
        {
            const FailingGdiPlus<decltype(Flat::GdipDrawImageRectRect)> failing("GdipDrawImageRectRect");
            Draw(144);
        });
}
