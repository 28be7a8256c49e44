#include <png/ColorReplacement.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

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

std::vector<DWORD> Model(std::vector<DWORD> pixels, DWORD color)
{
    for (DWORD& pixel : pixels)
        pixel = ModelPixel(pixel, color);
    return pixels;
}

std::vector<DWORD> RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<DWORD> anyPixel;
    std::vector<DWORD> pixels(count);
    for (DWORD& pixel : pixels)
    {
        pixel = anyPixel(random);
        if (pixel % 3 == 0)
            pixel &= ColorReplacement::kColorMask;
    }
    return pixels;
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
            std::vector<DWORD> pixels(9, 0x00A1B2C3);
            pixels[place] = alpha << 24 | 0x00654321;
            const std::vector<DWORD> expected = Model(pixels, 0x00102030);
            ColorReplacement::ReplaceInRun(pixels.data(), pixels.size(), 0x00102030);
            ASSERT_EQ(pixels, expected) << "alpha " << alpha << " at " << place;
        }
    }
}

TEST(ColorReplacement, RunsOfEveryLengthAgreeWithTheModelAndTouchNothingBehindTheirEnd)
{
    for (std::size_t count = 0; count <= 80; ++count)
    {
        std::vector<DWORD> pixels = RandomPixels(count, static_cast<unsigned>(count));
        const std::vector<DWORD> expected = Model(pixels, kRed);
        pixels.resize(count + 8, kUntouched);
        ColorReplacement::ReplaceInRun(pixels.data(), count, kRed);
        ASSERT_EQ(std::vector<DWORD>(pixels.begin(), pixels.begin() + static_cast<std::ptrdiff_t>(count)),
                  expected);
        ASSERT_EQ(std::vector<DWORD>(pixels.end() - 8, pixels.end()), std::vector<DWORD>(8, kUntouched));
    }
}

TEST(ColorReplacement, ThePlainLoopAndTheBlocksAgree)
{
    std::vector<DWORD> inBlocks = RandomPixels(1000, 42);
    std::vector<DWORD> plain = inBlocks;
    ColorReplacement::ReplaceInRun(inBlocks.data(), inBlocks.size(), 0x00ABCDEF);
    ColorReplacement::ReplaceInRunPlain(plain.data(), plain.size(), 0x00ABCDEF);
    EXPECT_EQ(inBlocks, plain);
    EXPECT_EQ(inBlocks, Model(RandomPixels(1000, 42), 0x00ABCDEF));
}

TEST(ColorReplacement, UnalignedRunsAreServed)
{
    std::vector<DWORD> pixels = RandomPixels(40, 5);
    for (std::size_t start = 0; start < 4; ++start)
    {
        std::vector<DWORD> shifted = pixels;
        std::vector<DWORD> expected = pixels;
        for (std::size_t i = start; i < pixels.size(); ++i)
            expected[i] = ModelPixel(pixels[i], kRed);
        ColorReplacement::ReplaceInRun(shifted.data() + start, shifted.size() - start, kRed);
        ASSERT_EQ(shifted, expected);
    }
}

namespace
{
constexpr std::size_t kRows = 5;

// What a picture with gaps between its rows should become: the gaps stay as they are.
std::vector<DWORD> ModelRows(std::vector<DWORD> pixels, std::size_t width, std::size_t pitch)
{
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = i % pitch < width ? ModelPixel(pixels[i], kRed) : pixels[i];
    return pixels;
}

void ExpectRowsReplaced(std::size_t width, std::size_t gap, bool bottomUp)
{
    const std::size_t pitch = width + gap;
    std::vector<DWORD> pixels = RandomPixels(pitch * kRows, static_cast<unsigned>(width));
    const std::vector<DWORD> expected = ModelRows(pixels, width, pitch);
    const INT stride = static_cast<INT>(pitch * sizeof(DWORD));
    DWORD* const pFirstRow = bottomUp ? pixels.data() + pitch * (kRows - 1) : pixels.data();
    ColorReplacement::ReplaceInImage(pFirstRow, static_cast<UINT>(width), kRows, bottomUp ? -stride : stride,
                                     kRed);
    EXPECT_EQ(pixels, expected) << "width " << width << ", gap " << gap;
}
} // namespace

// Rows that touch are one run; rows with a gap keep what lies in the gap, in either direction.
TEST(ColorReplacement, RowsOfEveryWidthAndStrideAgreeWithTheModel)
{
    for (std::size_t width = 1; width <= 80; ++width)
    {
        for (const std::size_t gap : {std::size_t(0), std::size_t(1), std::size_t(3)})
        {
            ExpectRowsReplaced(width, gap, false);
            ExpectRowsReplaced(width, gap, true);
        }
    }
}

TEST(ColorReplacement, AnImageWithoutPixelsIsLeftAlone)
{
    DWORD pixel = kUntouched;
    ColorReplacement::ReplaceInImage(&pixel, 0, 5, 0, kRed);
    ColorReplacement::ReplaceInImage(&pixel, 1, 0, 4, kRed);
    EXPECT_EQ(pixel, kUntouched);
}
