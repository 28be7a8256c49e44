#include <vxdpi/Png.h>

#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace
{
using BitmapPtr = std::unique_ptr<Gdiplus::Bitmap>;

const Gdiplus::Color kWhiteColor(255, 255, 255, 255);
constexpr std::uint32_t kGreen = 0xff00c040;
constexpr std::uint32_t kHalfRed = 0x80ff0000;

BitmapPtr FlatBitmap(int width, int height, std::uint32_t color)
{
    return BitmapOf(ArgbImage(width, height, color));
}

class BitmapConversion : public testing::Test
{
protected:
    static BitmapPtr Scale(Gdiplus::Bitmap* source, UINT width, UINT height)
    {
        return BitmapPtr(CDpiAwarePng::ScaleBitmap(source, width, height));
    }

    static BitmapPtr Combine(Gdiplus::Bitmap* top, Gdiplus::Bitmap* bottom)
    {
        return BitmapPtr(CDpiAwarePng::CombineBitmaps(top, bottom));
    }

    // The calls of the library while it works on bitmaps of the test, which have no name. The result of the
    // work lives until they are written down.
    template<typename Work>
    static CallLog::LineList CallsOf(const Work& work)
    {
        CallLog log;
        const GdiPlusCalls changes(log);
        const PictureQuestions questions(log);
        const PixelCalls pixels(log);
        const BitmapPtr result = work();
        return log.Lines();
    }

    static CallLog::LineList CallsOfScale(Gdiplus::Bitmap* source, UINT width, UINT height)
    {
        return CallsOf([=] { return Scale(source, width, height); });
    }

    static CallLog::LineList CallsOfCombine(Gdiplus::Bitmap* top, Gdiplus::Bitmap* bottom)
    {
        return CallsOf([=] { return Combine(top, bottom); });
    }

    const GdiPlusSession m_gdiPlus;
};

class ScaleBitmap : public BitmapConversion
{
};

class ConvertToHBITMAP : public BitmapConversion
{
protected:
    static ArgbImage Converted(const ArgbImage& image, Gdiplus::Color background)
    {
        const HBITMAP handle = CDpiAwarePng::ConvertToHBITMAP(BitmapOf(image).get(), background);
        const ArgbImage pixels = PixelsOf(handle);
        ::DeleteObject(handle);
        return pixels;
    }

    static CallLog::LineList CallsOfConvert(Gdiplus::Bitmap* bitmap, Gdiplus::Color background)
    {
        return CallsOf(
            [=]
            {
                ::DeleteObject(CDpiAwarePng::ConvertToHBITMAP(bitmap, background));
                return nullptr;
            });
    }
};

class CombineBitmaps : public BitmapConversion
{
};

class SafeDeleteHBitmap : public testing::Test
{
protected:
    CDpiAwarePng m_png;
    const ImportSpy<decltype(::DeleteObject)> m_deleteObject{VxDpiModule(), "gdi32.dll", "DeleteObject"};
};

bool HasSize(Gdiplus::Bitmap& bitmap, UINT width, UINT height)
{
    return bitmap.GetWidth() == width && bitmap.GetHeight() == height;
}
}

TEST_F(ScaleBitmap, MakesABitmapOfTheSizeAndLeavesTheSource)
{
    const BitmapPtr source = BitmapOf(FramedPicture(16, 16));
    const BitmapPtr scaled = Scale(source.get(), 24, 40);
    ASSERT_NE(scaled, nullptr);
    EXPECT_TRUE(HasSize(*scaled, 24, 40));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*source)));
}

TEST_F(ScaleBitmap, InTheSameSizeIsACopy)
{
    const BitmapPtr source = BitmapOf(FramedPicture(16, 16));
    const BitmapPtr scaled = Scale(source.get(), 16, 16);
    ASSERT_NE(scaled, nullptr);
    EXPECT_NE(scaled, source);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*scaled)));
}

TEST_F(ScaleBitmap, AFlatColourStaysInside)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const BitmapPtr larger = Scale(source.get(), 24, 32);
    const BitmapPtr smaller = Scale(source.get(), 8, 4);
    ASSERT_NE(larger, nullptr);
    ASSERT_NE(smaller, nullptr);
    EXPECT_EQ(PixelsOf(*larger).At(0, 0), kGreen);
    EXPECT_EQ(PixelsOf(*larger).At(20, 28), kGreen);
    EXPECT_EQ(PixelsOf(*smaller).At(6, 2), kGreen);
}

TEST_F(ScaleBitmap, KeepsThePixelFormat)
{
    const BitmapPtr opaque = BitmapOf(OpaquePicture(16, 16), PixelFormat24bppRGB);
    const BitmapPtr premultiplied = BitmapOf(OpaquePicture(16, 16), PixelFormat32bppPARGB);
    const BitmapPtr withAlpha = FlatBitmap(16, 16, kHalfRed);
    EXPECT_EQ(Scale(opaque.get(), 24, 24)->GetPixelFormat(), PixelFormat24bppRGB);
    EXPECT_EQ(Scale(premultiplied.get(), 24, 24)->GetPixelFormat(), PixelFormat32bppPARGB);
    EXPECT_EQ(Scale(withAlpha.get(), 24, 24)->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST_F(ScaleBitmap, WithoutASourceOrASideThereIsNone)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_EQ(Scale(nullptr, 16, 16), nullptr);
    EXPECT_EQ(Scale(source.get(), 0, 16), nullptr);
    EXPECT_EQ(Scale(source.get(), 16, 0), nullptr);
    EXPECT_EQ(CallsOfScale(nullptr, 16, 16), CallLog::LineList{});
    EXPECT_EQ(CallsOfScale(source.get(), 0, 16), CallLog::LineList{});
    EXPECT_EQ(CallsOfScale(source.get(), 16, 0), CallLog::LineList{});
    EXPECT_TRUE(HasSize(*Scale(source.get(), 1, 1), 1, 1));
}

TEST_F(ScaleBitmap, SetsTheInterpolationAndNothingElseAndDrawsTheWhole)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_EQ(CallsOfScale(source.get(), 24, 40),
              (CallLog::LineList{
                  "GdipGetImagePixelFormat(#1)", "GdipCreateBitmapFromScan0(24, 40, 0, 2498570, null)",
                  "GdipGetImageGraphicsContext(scaled)", "GdipSetInterpolationMode(scaler, 7)",
                  "GdipDrawImageRectI(scaler, #1, 0, 0, 24, 40)", "GdipDeleteGraphics(scaler)"}));
}

TEST_F(ScaleBitmap, AFailureToDrawIsNotTold)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const FailNthCall<decltype(Flat::GdipDrawImageRectI)> fail(VxDpiModule(), "gdiplus.dll",
                                                               "GdipDrawImageRectI", 1, Gdiplus::OutOfMemory);
    const BitmapPtr scaled = Scale(source.get(), 24, 24);
    ASSERT_NE(scaled, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(24, 24), PixelsOf(*scaled)));
}

TEST_F(ScaleBitmap, ASizeThatGdiPlusRefusesGivesABitmapWithoutSize)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const FailNthCall<decltype(Flat::GdipCreateBitmapFromScan0)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0", 1, Gdiplus::InvalidParameter);
    const BitmapPtr scaled = Scale(source.get(), 24, 24);
    ASSERT_NE(scaled, nullptr);
    EXPECT_TRUE(HasSize(*scaled, 0, 0));
}

TEST_F(ScaleBitmap, ASideBeyond31BitsIsPassedOnAsANegativeNumber)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_NE(Scale(source.get(), 0x80000000, 0xffffffff), nullptr);
    const CallLog::LineList calls = CallsOfScale(source.get(), 0x80000000, 0xffffffff);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[1], "GdipCreateBitmapFromScan0(-2147483648, -1, 0, 2498570, null)");
}

TEST_F(ScaleBitmap, WithoutMemoryThereIsNone)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const FailGdipAlloc fail;
    EXPECT_EQ(Scale(source.get(), 24, 24), nullptr);
    EXPECT_EQ(CallsOfScale(source.get(), 24, 24), CallLog::LineList{"GdipGetImagePixelFormat(#1)"});
}

TEST_F(ScaleBitmap, LeavesNothingBehindButItsResult)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_NO_LEAK([&] { Scale(source.get(), 24, 24); });
}

TEST_F(ConvertToHBITMAP, MakesA32BitBitmapOfTheSameSize)
{
    const BitmapPtr source = BitmapOf(FramedPicture(24, 10));
    const HBITMAP handle = CDpiAwarePng::ConvertToHBITMAP(source.get(), kWhiteColor);
    BITMAP info = {};
    ASSERT_NE(::GetObjectW(handle, sizeof info, &info), 0);
    EXPECT_EQ(info.bmWidth, 24);
    EXPECT_EQ(info.bmHeight, 10);
    EXPECT_EQ(info.bmBitsPixel, 32);
    EXPECT_NE(::DeleteObject(handle), FALSE);
    EXPECT_TRUE(SamePixels(FramedPicture(24, 10), PixelsOf(*source)));
}

TEST_F(ConvertToHBITMAP, OpaquePixelsStayAsTheyAre)
{
    EXPECT_TRUE(SamePixels(OpaquePicture(16, 16), Converted(OpaquePicture(16, 16), kWhiteColor)));
}

TEST_F(ConvertToHBITMAP, TransparentPixelsAreLaidOverTheBackground)
{
    EXPECT_TRUE(IsNear(Converted(ArgbImage(2, 2, 0x8000ff00), kWhiteColor).At(1, 1), 0x807fff7f));
    EXPECT_TRUE(IsNear(Converted(ArgbImage(2, 2, 0x8000ff00), Gdiplus::Color(0)).At(1, 1), 0x80008000));
    EXPECT_TRUE(IsNear(Converted(ArgbImage(2, 2, 0), Gdiplus::Color(255, 10, 20, 30)).At(0, 0), 0x000a141e));
}

TEST_F(ConvertToHBITMAP, WithoutABitmapThereIsNone)
{
    EXPECT_EQ(CDpiAwarePng::ConvertToHBITMAP(nullptr, kWhiteColor), nullptr);
    EXPECT_EQ(CallsOfConvert(nullptr, kWhiteColor), CallLog::LineList{});
}

TEST_F(ConvertToHBITMAP, AsksGdiPlusOnceWithTheBackgroundAndNoHandleYet)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_EQ(CallsOfConvert(source.get(), Gdiplus::Color(0x80112233)),
              CallLog::LineList{"GdipCreateHBITMAPFromBitmap(#1, null, 2148606515)"});
}

TEST_F(ConvertToHBITMAP, AFailureThatWritesNothingGivesNone)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const FailNthCall<decltype(Flat::GdipCreateHBITMAPFromBitmap)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap", 1, Gdiplus::GenericError);
    EXPECT_EQ(CDpiAwarePng::ConvertToHBITMAP(source.get(), kWhiteColor), nullptr);
}

TEST_F(ConvertToHBITMAP, AHandleThatAFailureWroteIsGivenAllTheSame)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    const auto written = reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(0x1234));
    const ImportSpy<decltype(Flat::GdipCreateHBITMAPFromBitmap)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap",
        [written](Gdiplus::GpBitmap*, HBITMAP* handle, Gdiplus::ARGB)
        {
            *handle = written;
            return Gdiplus::GenericError;
        });
    EXPECT_EQ(CDpiAwarePng::ConvertToHBITMAP(source.get(), kWhiteColor), written);
}

TEST_F(ConvertToHBITMAP, LeavesNothingBehindButItsResult)
{
    const BitmapPtr source = FlatBitmap(16, 16, kGreen);
    EXPECT_NO_LEAK([&] { ::DeleteObject(CDpiAwarePng::ConvertToHBITMAP(source.get(), kWhiteColor)); });
}

TEST_F(CombineBitmaps, MakesASquareAsHighAsTheTopOne)
{
    const BitmapPtr top = FlatBitmap(48, 16, kHalfRed);
    const BitmapPtr bottom = FlatBitmap(7, 99, kGreen);
    const BitmapPtr combined = Combine(top.get(), bottom.get());
    ASSERT_NE(combined, nullptr);
    EXPECT_TRUE(HasSize(*combined, 16, 16));
    EXPECT_EQ(combined->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST_F(CombineBitmaps, TheSquareHasAlphaWhateverTheTopOneHas)
{
    const BitmapPtr top = BitmapOf(OpaquePicture(8, 8), PixelFormat24bppRGB);
    const BitmapPtr combined = Combine(top.get(), top.get());
    ASSERT_NE(combined, nullptr);
    EXPECT_EQ(combined->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST_F(CombineBitmaps, TheTopOneLiesOverTheBottomOne)
{
    ArgbImage hole(16, 16, kGreen);
    hole.At(3, 4) = kTransparentPixel;
    hole.At(4, 4) = kHalfRed;
    const BitmapPtr top = BitmapOf(hole);
    const BitmapPtr bottom = FlatBitmap(16, 16, kOtherColor);
    const ArgbImage pixels = PixelsOf(*Combine(top.get(), bottom.get()));
    EXPECT_EQ(pixels.At(2, 4), kGreen);
    EXPECT_EQ(pixels.At(3, 4), kOtherColor);
    EXPECT_TRUE(IsNear(pixels.At(4, 4), 0xff903060)); // half of ff0000 over 2060c0
}

TEST_F(CombineBitmaps, TheBottomOneStandsInItsOwnSizeAtTheTopLeft)
{
    const BitmapPtr top = FlatBitmap(16, 16, kTransparentPixel);
    const BitmapPtr bottom = BitmapOf(OpaquePicture(6, 20));
    const ArgbImage pixels = PixelsOf(*Combine(top.get(), bottom.get()));
    EXPECT_EQ(pixels.At(0, 0), OpaquePicture(6, 20).At(0, 0));
    EXPECT_EQ(pixels.At(5, 15), OpaquePicture(6, 20).At(5, 15));
    EXPECT_EQ(pixels.At(6, 5), kTransparentPixel);
}

TEST_F(CombineBitmaps, TheTopOneIsStretchedToTheSquare)
{
    ArgbImage halves(48, 16, kGreen);
    for (int y = 0; y < 16; ++y)
    {
        for (int x = 24; x < 48; ++x)
            halves.At(x, y) = kOtherColor;
    }
    const BitmapPtr top = BitmapOf(halves);
    const BitmapPtr bottom = FlatBitmap(16, 16, 0xff000000);
    const ArgbImage pixels = PixelsOf(*Combine(top.get(), bottom.get()));
    EXPECT_EQ(pixels.At(5, 8), kGreen);
    EXPECT_EQ(pixels.At(11, 8), kOtherColor);
}

TEST_F(CombineBitmaps, DrawsTheBottomOneAndThenTheTopOneInDefaultModes)
{
    const BitmapPtr top = FlatBitmap(48, 16, kHalfRed);
    const BitmapPtr bottom = FlatBitmap(7, 9, kGreen);
    EXPECT_EQ(
        CallsOfCombine(top.get(), bottom.get()),
        (CallLog::LineList{"GdipGetImageWidth(#1)", "GdipGetImageHeight(#1)",
                           "GdipCreateBitmapFromScan0(16, 16, 0, 2498570, null)",
                           "GdipGetImageGraphicsContext(scaled)", "GdipGetImageWidth(#2)",
                           "GdipGetImageHeight(#2)", "GdipDrawImageRectI(scaler, #2, 0, 0, 7, 9)",
                           "GdipDrawImageRectI(scaler, #1, 0, 0, 16, 16)", "GdipDeleteGraphics(scaler)"}));
}

TEST_F(CombineBitmaps, LeavesItsArgumentsAsTheyAre)
{
    const BitmapPtr top = BitmapOf(FramedPicture(16, 16));
    const BitmapPtr bottom = BitmapOf(OpaquePicture(24, 24));
    EXPECT_NE(Combine(top.get(), bottom.get()), nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*top)));
    EXPECT_TRUE(SamePixels(OpaquePicture(24, 24), PixelsOf(*bottom)));
}

TEST_F(CombineBitmaps, WithoutOneOfThemThereIsNone)
{
    const BitmapPtr bitmap = FlatBitmap(16, 16, kGreen);
    EXPECT_EQ(Combine(nullptr, bitmap.get()), nullptr);
    EXPECT_EQ(Combine(bitmap.get(), nullptr), nullptr);
    EXPECT_EQ(Combine(nullptr, nullptr), nullptr);
    EXPECT_EQ(CallsOfCombine(nullptr, bitmap.get()), CallLog::LineList{});
    EXPECT_EQ(CallsOfCombine(bitmap.get(), nullptr), CallLog::LineList{});
}

TEST_F(CombineBitmaps, WithoutMemoryThereIsNone)
{
    const BitmapPtr bitmap = FlatBitmap(16, 16, kGreen);
    const FailGdipAlloc fail;
    EXPECT_EQ(Combine(bitmap.get(), bitmap.get()), nullptr);
    EXPECT_EQ(CallsOfCombine(bitmap.get(), bitmap.get()),
              (CallLog::LineList{"GdipGetImageWidth(#1)", "GdipGetImageHeight(#1)"}));
}

TEST_F(CombineBitmaps, AFailureToDrawIsNotTold)
{
    const BitmapPtr bitmap = FlatBitmap(16, 16, kGreen);
    const FailNthCall<decltype(Flat::GdipDrawImageRectI)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipDrawImageRectI",
        FailNthCall<decltype(Flat::GdipDrawImageRectI)>::kEveryCall, Gdiplus::OutOfMemory);
    const BitmapPtr combined = Combine(bitmap.get(), bitmap.get());
    ASSERT_NE(combined, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16), PixelsOf(*combined)));
    EXPECT_EQ(fail.CallCount(), 2);
}

TEST_F(CombineBitmaps, LeavesNothingBehindButItsResult)
{
    const BitmapPtr bitmap = FlatBitmap(16, 16, kGreen);
    EXPECT_NO_LEAK([&] { Combine(bitmap.get(), bitmap.get()); });
}

TEST_F(SafeDeleteHBitmap, DeletesTheBitmapAndClearsTheHandle)
{
    const HBITMAP original = ::CreateBitmap(4, 4, 1, 32, nullptr);
    HBITMAP handle = original;
    m_png.SafeDeleteHBitmap(handle);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(m_deleteObject.CallCount(), 1);
    EXPECT_EQ(::GetObjectType(original), 0u);
}

TEST_F(SafeDeleteHBitmap, DoesNothingWithoutABitmap)
{
    HBITMAP handle = nullptr;
    m_png.SafeDeleteHBitmap(handle);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(m_deleteObject.CallCount(), 0);
}

TEST_F(SafeDeleteHBitmap, KeepsAHandleThatCannotBeDeleted)
{
    const HBITMAP original = ::CreateBitmap(4, 4, 1, 32, nullptr);
    HBITMAP handle = original;
    {
        const FailNthCall<decltype(::DeleteObject)> fail(VxDpiModule(), "gdi32.dll", "DeleteObject", 1,
                                                         FALSE);
        m_png.SafeDeleteHBitmap(handle);
        EXPECT_EQ(handle, original);
        EXPECT_EQ(fail.CallCount(), 1);
    }
    m_png.SafeDeleteHBitmap(handle);
    EXPECT_EQ(handle, nullptr);
}

TEST_F(SafeDeleteHBitmap, KeepsAHandleThatIsGone)
{
    const HBITMAP original = ::CreateBitmap(4, 4, 1, 32, nullptr);
    ::DeleteObject(original);
    HBITMAP handle = original;
    m_png.SafeDeleteHBitmap(handle);
    EXPECT_EQ(handle, original);
}
