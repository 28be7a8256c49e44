#include <png/ColorReplacement.h>

#include "PixelOperation.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace
{
constexpr DWORD kRed = 0x00FF0000;
constexpr DWORD kUntouched = 0xCDCDCDCD;

// Byte by byte, as the picture lies in memory: blue, green, red, alpha.
DWORD ModelPixel(DWORD pixel, DWORD color)
{
    BYTE bytes[4];
    std::memcpy(bytes, &pixel, sizeof(bytes));
    if (bytes[3] != 0)
    {
        bytes[0] = static_cast<BYTE>(color & 0xFF);
        bytes[1] = static_cast<BYTE>(color >> 8 & 0xFF);
        bytes[2] = static_cast<BYTE>(color >> 16 & 0xFF);
    }
    DWORD result = 0;
    std::memcpy(&result, bytes, sizeof(result));
    return result;
}

PixelList Model(PixelList pixels, DWORD color)
{
    for (DWORD& pixel : pixels)
        pixel = ModelPixel(pixel, color);
    return pixels;
}

PixelList RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<DWORD> anyPixel;
    PixelList pixels(count);
    for (DWORD& pixel : pixels)
    {
        pixel = anyPixel(random);
        if (pixel % 3 == 0)
            pixel &= ColorReplacement::kColorMask;
    }
    return pixels;
}

PixelOperation OperationUnderTest()
{
    const auto replace = [](DWORD pixel) { return ModelPixel(pixel, kRed); };
    const auto replaceInRun = [](DWORD* pPixels, std::size_t count)
    { ColorReplacement::ReplaceInRun(pPixels, count, kRed); };
    const auto replaceInImage = [](DWORD* pFirstRow, UINT width, UINT height, INT stride)
    { ColorReplacement::ReplaceInImage(pFirstRow, width, height, stride, kRed); };
    return {replace, RandomPixels, replaceInRun, replaceInImage};
}
} // namespace

TEST(ColorReplacement, VisiblePixelsTakeTheColourAndKeepTheirAlpha)
{
    EXPECT_EQ(ColorReplacement::ReplaceInPixel(0xFF123456, kRed), 0xFFFF0000U);
    EXPECT_EQ(ColorReplacement::ReplaceInPixel(0x80123456, kRed), 0x80FF0000U);
    EXPECT_EQ(ColorReplacement::ReplaceInPixel(0x01FFFFFF, 0), 0x01000000U);
}

TEST(ColorReplacement, FullyTransparentPixelsStayAsTheyAre)
{
    EXPECT_EQ(ColorReplacement::ReplaceInPixel(0x00123456, kRed), 0x00123456U);
    EXPECT_EQ(ColorReplacement::ReplaceInPixel(0, kRed), 0U);
}

TEST(ColorReplacement, EveryAlphaAtEveryPlaceOfARunAgreesWithTheModel)
{
    for (DWORD alpha = 0; alpha < 256; ++alpha)
    {
        for (std::size_t place = 0; place < 9; ++place)
        {
            PixelList pixels(9, 0x00A1B2C3);
            pixels[place] = alpha << 24 | 0x00654321;
            const PixelList expected = Model(pixels, 0x00102030);
            ColorReplacement::ReplaceInRun(pixels.data(), pixels.size(), 0x00102030);
            ASSERT_EQ(pixels, expected) << "alpha " << alpha << " at " << place;
        }
    }
}

TEST(ColorReplacement, RunsOfEveryLengthAgreeWithTheModelAndTouchNothingBehindTheirEnd)
{
    OperationUnderTest().ExpectRunsOfEveryLengthAgree();
}

TEST(ColorReplacement, ARunEndsWithItsMemory)
{
    OperationUnderTest().ExpectRunsToEndWithTheirMemory();
}

TEST(ColorReplacement, UnalignedRunsAreServed)
{
    OperationUnderTest().ExpectUnalignedRunsAgree();
}

TEST(ColorReplacement, ThePlainLoopAndTheBlocksAgree)
{
    PixelList inBlocks = RandomPixels(1000, 42);
    PixelList plain = inBlocks;
    ColorReplacement::ReplaceInRun(inBlocks.data(), inBlocks.size(), 0x00ABCDEF);
    ColorReplacement::ReplaceInRunPlain(plain.data(), plain.size(), 0x00ABCDEF);
    EXPECT_EQ(inBlocks, plain);
    EXPECT_EQ(inBlocks, Model(RandomPixels(1000, 42), 0x00ABCDEF));
}

// Rows that touch are one run; rows with a gap keep what lies in the gap, in either direction.
TEST(ColorReplacement, RowsOfEveryWidthAndStrideAgreeWithTheModel)
{
    OperationUnderTest().ExpectRowsOfEveryWidthAndStrideAgree();
}

TEST(ColorReplacement, AnImageWithoutPixelsIsLeftAlone)
{
    DWORD pixel = kUntouched;
    ColorReplacement::ReplaceInImage(&pixel, 0, 5, 0, kRed);
    ColorReplacement::ReplaceInImage(&pixel, 1, 0, 4, kRed);
    EXPECT_EQ(pixel, kUntouched);
}
