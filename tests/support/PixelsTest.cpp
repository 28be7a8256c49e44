#include "support/Pixels.h"

#include "support/ArgbImage.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
constexpr std::uint32_t kColor = 0x80112233;

ArgbImage TwoPixels(std::uint32_t left, std::uint32_t right)
{
    ArgbImage image(2, 1, left);
    image.At(1, 0) = right;
    return image;
}
}

TEST(ArgbImage, KeepsPixelsByColumnAndRow)
{
    ArgbImage image(3, 2, 5);
    image.At(2, 1) = 7;
    EXPECT_EQ(image.At(2, 1), 7u);
    EXPECT_EQ(image.At(1, 1), 5u);
    EXPECT_THROW(image.At(3, 0), std::out_of_range);
    EXPECT_THROW(image.At(0, -1), std::out_of_range);
    EXPECT_NE(image, ArgbImage(3, 2, 5));
    EXPECT_NE(ArgbImage(3, 2, 5), ArgbImage(2, 3, 5));
}

TEST(ArgbImage, IsWrittenWithItsPixels)
{
    std::ostringstream text;
    text << TwoPixels(0xff, kColor);
    EXPECT_EQ(text.str(), "2x1\n000000ff 80112233 ");
}

TEST(Dib32, IsDrawnOnByGdiAndReadFromTheTopWithAlpha)
{
    Dib32 dib(4, 3, kColor);
    EXPECT_EQ(dib.At(0, 0), kColor);
    ::SetPixel(dib.Dc(), 3, 1, RGB(1, 2, 3));
    EXPECT_EQ(dib.At(3, 1) & 0xffffff, 0x010203u);
    EXPECT_EQ(dib.At(3, 2), kColor);
    EXPECT_EQ(dib.Pixels().At(3, 1), dib.At(3, 1));
    EXPECT_EQ(PixelAt(dib.Dc(), 3, 1), 0x010203u);
    EXPECT_THROW(dib.At(4, 0), std::out_of_range);
    EXPECT_THROW(PixelAt(dib.Dc(), 4, 0), std::out_of_range);
}

TEST(Dib32, AnImpossibleSizeThrows)
{
    EXPECT_THROW(Dib32(0, 5), std::runtime_error);
}

TEST(PixelsOf, ReadsABitmapWithAlpha)
{
    const std::uint32_t rows[] = {0x01020304, 0xff000000, 0x00ff0000, 0x80808080};
    const HBITMAP bitmap = ::CreateBitmap(2, 2, 1, 32, rows);
    const ArgbImage pixels = PixelsOf(bitmap);
    const SIZE size = SizeOf(bitmap);
    ::DeleteObject(bitmap);
    EXPECT_EQ(pixels.At(0, 0), 0x01020304u);
    EXPECT_EQ(pixels.At(1, 0), 0xff000000u);
    EXPECT_EQ(pixels.At(0, 1), 0x00ff0000u);
    EXPECT_EQ(pixels.At(1, 1), 0x80808080u);
    EXPECT_EQ(size.cx, 2);
    EXPECT_EQ(size.cy, 2);
}

TEST(PixelsOf, ReadsAGdiPlusBitmap)
{
    const GdiPlusSession gdiPlus;
    Gdiplus::Bitmap bitmap(3, 2, PixelFormat32bppARGB);
    bitmap.SetPixel(2, 1, Gdiplus::Color(kColor));
    const ArgbImage pixels = PixelsOf(bitmap);
    EXPECT_EQ(pixels.Width(), 3);
    EXPECT_EQ(pixels.Height(), 2);
    EXPECT_EQ(pixels.At(2, 1), kColor);
    EXPECT_EQ(pixels.At(1, 1), 0u);
}

TEST(PixelsOf, AMissingObjectThrows)
{
    EXPECT_THROW(PixelsOf(static_cast<HBITMAP>(nullptr)), std::runtime_error);
    EXPECT_THROW(PixelsOf(static_cast<HICON>(nullptr)), std::runtime_error);
    EXPECT_THROW(SizeOf(static_cast<HBITMAP>(nullptr)), std::runtime_error);
}

TEST(SamePixels, TellsTheFirstDifferenceAndTheirNumber)
{
    const testing::AssertionResult result =
        SamePixels(TwoPixels(kColor, kColor), TwoPixels(kColor, 0x80112234));
    EXPECT_FALSE(result);
    EXPECT_STREQ(result.message(), "1 different pixels, first (1, 0): 80112234, expected 80112233");
    EXPECT_TRUE(SamePixels(TwoPixels(kColor, kColor), TwoPixels(kColor, kColor)));
}

TEST(SamePixels, ToleranceHoldsForEveryChannelByItself)
{
    const ArgbImage expected(1, 1, 0x10101010);
    EXPECT_TRUE(SamePixels(expected, ArgbImage(1, 1, 0x120e120e), 2));
    EXPECT_FALSE(SamePixels(expected, ArgbImage(1, 1, 0x10101310), 2));
    EXPECT_FALSE(SamePixels(expected, ArgbImage(1, 1, 0x0d101010), 2));
}

TEST(SamePixels, AnotherSizeDiffers)
{
    EXPECT_STREQ(SamePixels(ArgbImage(2, 1), ArgbImage(1, 2)).message(), "the picture is 1x2, expected 2x1");
}

TEST(TestPictures, FramedHasTransparentCornersAFrameAndAGradient)
{
    const ArgbImage picture = FramedPicture(16, 16);
    EXPECT_EQ(picture.At(0, 0), kTransparentPixel);
    EXPECT_EQ(picture.At(15, 0), kTransparentPixel);
    EXPECT_EQ(picture.At(0, 15), kTransparentPixel);
    EXPECT_EQ(picture.At(15, 15), kTransparentPixel);
    EXPECT_EQ(picture.At(7, 0), kFrameColor);
    EXPECT_EQ(picture.At(15, 7), kFrameColor);
    EXPECT_EQ(picture.At(1, 1), 0xff050540u);
    EXPECT_EQ(picture.At(2, 1), 0xff0a05ffu);
    EXPECT_EQ(picture.At(14, 14), 0xff464640u);
}

TEST(TestPictures, StripHasOneColorPerCell)
{
    const ArgbImage strip = StripPicture(3, 16);
    EXPECT_EQ(strip.Width(), 48);
    EXPECT_EQ(strip.At(16, 0), kTransparentPixel);
    EXPECT_EQ(strip.At(15, 5), kFrameColor);
    EXPECT_EQ(strip.At(8, 8), 0xff00a000u);
    EXPECT_EQ(strip.At(24, 8), 0xff0000c0u);
    EXPECT_EQ(strip.At(40, 8), StripCellColor(2));
}
