#include <imaging/IconMask.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
constexpr DWORD kDrawn = 0xFF000000;
constexpr DWORD kTransparent = 0x00FFFFFF;
constexpr BYTE kUntouched = 0xCD;

// One bit after the other, as a reader of the mask sees them: 1 is transparent.
std::vector<int> BitsOf(const std::vector<BYTE>& mask)
{
    std::vector<int> bits;
    for (const BYTE byte : mask)
    {
        for (int place = 7; place >= 0; --place)
            bits.push_back(byte >> place & 1);
    }
    return bits;
}

// What the bits of the pixels should be, with those that fill up the last byte.
std::vector<int> ModelBits(const std::vector<DWORD>& pixels)
{
    std::vector<int> bits;
    bits.reserve(pixels.size() + 7);
    for (const DWORD pixel : pixels)
        bits.push_back(pixel < 0x01000000 ? 1 : 0);
    while (bits.size() % 8 != 0)
        bits.push_back(1);
    return bits;
}

using Packer = void (*)(const DWORD*, std::size_t, BYTE*);

// The vector is as long as the mask, so that a sanitizer sees any byte written behind its end; the same holds
// for the pixels that are read.
std::vector<BYTE> MaskBy(Packer pack, const std::vector<DWORD>& pixels)
{
    std::vector<BYTE> mask(IconMask::ByteCount(pixels.size()), kUntouched);
    pack(pixels.data(), pixels.size(), mask.data());
    return mask;
}

std::vector<BYTE> Mask(const std::vector<DWORD>& pixels)
{
    std::vector<BYTE> mask = MaskBy(IconMask::Pack, pixels);
    EXPECT_EQ(mask, MaskBy(IconMask::PackPlain, pixels));
    return mask;
}

std::vector<DWORD> RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<DWORD> pixels(count);
    for (DWORD& pixel : pixels)
    {
        const DWORD color = static_cast<DWORD>(random());
        pixel = random() % 2 == 0 ? color & kTransparent : color;
    }
    return pixels;
}

constexpr std::size_t kLongestRun = 49; // three blocks of sixteen and one more

std::vector<DWORD> RunWith(DWORD alpha, std::size_t place, DWORD surrounding)
{
    std::vector<DWORD> pixels(kLongestRun, surrounding);
    pixels[place] = alpha << 24 | 0x00A1B2C3;
    return pixels;
}

void ExpectModelBits(const std::vector<DWORD>& pixels)
{
    EXPECT_EQ(BitsOf(Mask(pixels)), ModelBits(pixels)) << testing::PrintToString(pixels);
}
}

TEST(IconMask, HasOneBitForEachPixelAndWholeBytes)
{
    EXPECT_EQ(IconMask::ByteCount(0), 0u);
    EXPECT_EQ(IconMask::ByteCount(1), 1u);
    EXPECT_EQ(IconMask::ByteCount(7), 1u);
    EXPECT_EQ(IconMask::ByteCount(8), 1u);
    EXPECT_EQ(IconMask::ByteCount(9), 2u);
    EXPECT_EQ(IconMask::ByteCount(256), 32u);
    EXPECT_EQ(IconMask::ByteCount(400), 50u);
    EXPECT_EQ(IconMask::ByteCount(225), 29u);
}

TEST(IconMask, ASetBitIsATransparentPixel)
{
    EXPECT_EQ(Mask(std::vector<DWORD>(8, kTransparent)), std::vector<BYTE>{0xFF});
    EXPECT_EQ(Mask(std::vector<DWORD>(8, kDrawn)), std::vector<BYTE>{0x00});
}

TEST(IconMask, TheFirstPixelIsTheMostSignificantBit)
{
    std::vector<DWORD> pixels(16, kTransparent);
    pixels[0] = kDrawn;
    pixels[15] = kDrawn;
    EXPECT_EQ(Mask(pixels), (std::vector<BYTE>{0x7F, 0xFE}));
    EXPECT_EQ(Mask({kTransparent, kDrawn, kDrawn, kDrawn, kDrawn, kDrawn, kDrawn, kDrawn}),
              std::vector<BYTE>{0x80});
}

TEST(IconMask, BitsBehindTheLastPixelAreSet)
{
    EXPECT_EQ(Mask({kDrawn}), std::vector<BYTE>{0x7F});
    EXPECT_EQ(Mask({kDrawn, kDrawn, kDrawn}), std::vector<BYTE>{0x1F});
    EXPECT_EQ(Mask(std::vector<DWORD>(17, kDrawn)), (std::vector<BYTE>{0x00, 0x00, 0x7F}));
}

TEST(IconMask, AHalfTransparentPixelIsDrawn)
{
    EXPECT_EQ(Mask({0x80FFFFFF, 0x01FFFFFF, 0x00FFFFFF, 0xFE000000, 0x00000000, 0x01000000, 0x7F123456, 0}),
              std::vector<BYTE>{0x29});
}

// Rows of 20 pixels whose first pixel alone is drawn start at bits 0, 20, 40 and 60.
TEST(IconMask, RowsFollowEachOtherWithoutPadding)
{
    std::vector<DWORD> pixels(80, kTransparent);
    for (std::size_t row = 0; row < 4; ++row)
        pixels[row * 20] = kDrawn;
    EXPECT_EQ(Mask(pixels), (std::vector<BYTE>{0x7F, 0xFF, 0xF7, 0xFF, 0xFF, 0x7F, 0xFF, 0xF7, 0xFF, 0xFF}));
}

TEST(IconMask, OnlyTheAlphaDecidesWhateverTheColourIs)
{
    for (const DWORD color : {0x00000000u, 0x00FFFFFFu, 0x00800000u, 0x00000001u, 0x00FF00FFu})
    {
        EXPECT_EQ(Mask(std::vector<DWORD>(24, color)), (std::vector<BYTE>{0xFF, 0xFF, 0xFF})) << color;
        EXPECT_EQ(Mask(std::vector<DWORD>(24, color | 0x01000000)), (std::vector<BYTE>{0x00, 0x00, 0x00}))
            << color;
    }
}

TEST(IconMask, EveryAlphaAtEveryPlaceOfARunAgreesWithTheModel)
{
    for (std::size_t place = 0; place < kLongestRun; ++place)
    {
        for (DWORD alpha = 0; alpha < 256; ++alpha)
        {
            ExpectModelBits(RunWith(alpha, place, kDrawn));
            ExpectModelBits(RunWith(alpha, place, kTransparent));
        }
    }
}

TEST(IconMask, EverySquareFrom1To80AgreesWithTheModel)
{
    for (std::size_t width = 1; width <= 80; ++width)
    {
        const std::vector<DWORD> pixels = RandomPixels(width * width, static_cast<unsigned>(width));
        ASSERT_EQ(BitsOf(Mask(pixels)), ModelBits(pixels)) << "width " << width;
    }
}

TEST(IconMask, EveryWidthFrom1To80InFewRowsAgreesWithTheModel)
{
    for (std::size_t width = 1; width <= 80; ++width)
    {
        for (std::size_t height = 1; height <= 5; ++height)
        {
            const auto seed = static_cast<unsigned>(width * 100 + height);
            const std::vector<DWORD> pixels = RandomPixels(width * height, seed);
            ASSERT_EQ(BitsOf(Mask(pixels)), ModelBits(pixels)) << width << " x " << height;
        }
    }
}

TEST(IconMask, AllPatternsOfABlockAgreeWithThePlainLoop)
{
    std::vector<DWORD> pixels(16);
    for (unsigned pattern = 0; pattern <= 0xFFFF; ++pattern)
    {
        for (unsigned i = 0; i < 16; ++i)
            pixels[i] = (pattern >> (15 - i) & 1) != 0 ? kTransparent : kDrawn;
        BYTE mask[2] = {};
        IconMask::Pack(pixels.data(), pixels.size(), mask);
        ASSERT_EQ(static_cast<unsigned>(mask[0] << 8 | mask[1]), pattern);
        IconMask::PackPlain(pixels.data(), pixels.size(), mask);
        ASSERT_EQ(static_cast<unsigned>(mask[0] << 8 | mask[1]), pattern);
    }
}

TEST(IconMask, PixelsAndMaskMayLieAnywhere)
{
    const std::vector<DWORD> pixels = RandomPixels(60, 7);
    for (std::size_t start = 0; start < 4; ++start)
    {
        const std::vector<DWORD> part(pixels.begin() + static_cast<std::ptrdiff_t>(start), pixels.end());
        std::vector<BYTE> mask(IconMask::ByteCount(part.size()) + start, kUntouched);
        IconMask::Pack(pixels.data() + start, part.size(), mask.data() + start);
        mask.erase(mask.begin(), mask.begin() + static_cast<std::ptrdiff_t>(start));
        ASSERT_EQ(BitsOf(mask), ModelBits(part)) << start;
    }
}

TEST(IconMask, NothingBehindTheLastByteIsTouched)
{
    for (std::size_t count = 0; count <= 80; ++count)
    {
        const std::vector<DWORD> pixels = RandomPixels(count, static_cast<unsigned>(count));
        const std::size_t size = IconMask::ByteCount(count);
        std::vector<BYTE> mask(size + 16, kUntouched);
        IconMask::Pack(pixels.data(), count, mask.data());
        for (std::size_t i = size; i < mask.size(); ++i)
            ASSERT_EQ(mask[i], kUntouched) << count << " pixels, byte " << i;
    }
}

TEST(IconMask, WithoutPixelsNothingIsWritten)
{
    const DWORD pixel = kDrawn;
    BYTE mask = kUntouched;
    IconMask::Pack(&pixel, 0, &mask);
    IconMask::PackPlain(&pixel, 0, &mask);
    EXPECT_EQ(mask, kUntouched);
}
