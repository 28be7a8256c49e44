#include <png/Premultiplication.h>

#include "PixelOperation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
DWORD ModelChannel(DWORD color, DWORD alpha)
{
    return alpha > 0 && alpha < 255 ? (color * alpha + 127) / 255 : color;
}

DWORD ModelPixel(DWORD pixel)
{
    const DWORD alpha = pixel / 0x1000000;
    const DWORD red = ModelChannel(pixel / 0x10000 % 256, alpha);
    const DWORD green = ModelChannel(pixel / 0x100 % 256, alpha);
    const DWORD blue = ModelChannel(pixel % 256, alpha);
    return ((alpha * 256 + red) * 256 + green) * 256 + blue;
}

PixelList Model(PixelList pixels)
{
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), ModelPixel);
    return pixels;
}

// A third each: opaque, fully transparent, any alpha.
PixelList RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<DWORD> anyPixel;
    PixelList pixels(count);
    for (DWORD& pixel : pixels)
    {
        pixel = anyPixel(random);
        const DWORD kind = anyPixel(random) % 3;
        if (kind == 0)
            pixel |= 0xFF000000;
        if (kind == 1)
            pixel &= 0x00FFFFFF;
    }
    return pixels;
}

// Every pair of an alpha and a colour, the colour in the channel that starts at this bit.
PixelList AllPairs(int shift)
{
    PixelList pixels;
    for (DWORD alpha = 0; alpha < 256; ++alpha)
    {
        for (DWORD color = 0; color < 256; ++color)
            pixels.push_back(alpha << 24 | (0x00A53CE7u & ~(0xFFu << shift)) | color << shift);
    }
    return pixels;
}

PixelOperation OperationUnderTest()
{
    return {ModelPixel, RandomPixels, Premultiplication::PremultiplyRun, Premultiplication::PremultiplyImage};
}
} // namespace

TEST(Premultiplication, PartlyTransparentColoursAreMultipliedAndRounded)
{
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0x80FFC801), 0x80806401U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0x01FF7E01), 0x01010000U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0x01808080), 0x01010101U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0xFEFF80FF), 0xFEFE7FFEU);
}

TEST(Premultiplication, OpaqueAndFullyTransparentPixelsStayAsTheyAre)
{
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0xFF123456), 0xFF123456U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0x00123456), 0x00123456U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0), 0U);
    EXPECT_EQ(Premultiplication::PremultiplyPixel(0xFFFFFFFF), 0xFFFFFFFFU);
}

TEST(Premultiplication, EveryAlphaAndColourInEachChannelAgreeWithTheModel)
{
    for (const int shift : {0, 8, 16})
    {
        PixelList plain = AllPairs(shift);
        PixelList inBlocks = plain;
        const PixelList expected = Model(plain);
        Premultiplication::PremultiplyRunPlain(plain.data(), plain.size());
        Premultiplication::PremultiplyRun(inBlocks.data(), inBlocks.size());
        EXPECT_EQ(plain, expected) << "channel " << shift;
        EXPECT_EQ(inBlocks, expected) << "channel " << shift;
    }
}

namespace
{
void ExpectTheModelAtEveryPlace(DWORD others, DWORD alpha)
{
    for (std::size_t place = 0; place < 17; ++place)
    {
        PixelList pixels(17, others);
        pixels[place] = alpha << 24 | 0x00F0E1D2;
        const PixelList expected = Model(pixels);
        Premultiplication::PremultiplyRun(pixels.data(), pixels.size());
        ASSERT_EQ(pixels, expected) << "alpha " << alpha << " at " << place;
    }
}
} // namespace

// A block whose other pixels need no change may be left as it is only without the one that does.
TEST(Premultiplication, EveryAlphaAtEveryPlaceOfARunAgreesWithTheModel)
{
    for (const DWORD others : {0xFF99AABBu, 0x0099AABBu, 0x7F99AABBu})
    {
        for (DWORD alpha = 0; alpha < 256; ++alpha)
            ExpectTheModelAtEveryPlace(others, alpha);
    }
}

namespace
{
bool AreAllUnchanged(const PixelList& eight)
{
    const __m128i* const pPixels = reinterpret_cast<const __m128i*>(eight.data());
    return Premultiplication::AreAllUnchanged(_mm_loadu_si128(pPixels), _mm_loadu_si128(pPixels + 1));
}
} // namespace

// What need not be stored is most of an icon.
TEST(Premultiplication, EightPixelsAreUnchangedWithoutOneThatIsPartlyTransparent)
{
    EXPECT_TRUE(AreAllUnchanged(PixelList(8, 0x00FFFFFF)));
    EXPECT_TRUE(AreAllUnchanged(PixelList(8, 0xFFFFFFFF)));
    EXPECT_TRUE(AreAllUnchanged(PixelList(8, 0xFF000000)));
    EXPECT_TRUE(
        AreAllUnchanged({0, 0xFF123456, 0x00123456, 0xFF000000, 0xFF000001, 0, 0x00800000, 0xFF800000}));
    for (DWORD alpha = 1; alpha < 255; ++alpha)
    {
        for (std::size_t place = 0; place < 8; ++place)
        {
            PixelList pixels(8, place % 2 == 0 ? 0xFF0A0B0C : 0x000A0B0C);
            pixels[place] = alpha << 24;
            ASSERT_FALSE(AreAllUnchanged(pixels)) << "alpha " << alpha << " at " << place;
        }
    }
}

TEST(Premultiplication, RunsOfEveryLengthAgreeWithTheModelAndTouchNothingBehindTheirEnd)
{
    OperationUnderTest().ExpectRunsOfEveryLengthAgree();
}

TEST(Premultiplication, ARunEndsWithItsMemory)
{
    OperationUnderTest().ExpectRunsToEndWithTheirMemory();
}

TEST(Premultiplication, UnalignedRunsAreServed)
{
    OperationUnderTest().ExpectUnalignedRunsAgree();
}

TEST(Premultiplication, ThePlainLoopAndTheBlocksAgree)
{
    for (unsigned seed = 0; seed < 20; ++seed)
    {
        PixelList inBlocks = RandomPixels(10007, seed);
        PixelList plain = inBlocks;
        Premultiplication::PremultiplyRun(inBlocks.data(), inBlocks.size());
        Premultiplication::PremultiplyRunPlain(plain.data(), plain.size());
        ASSERT_EQ(inBlocks, plain) << seed;
    }
}

TEST(Premultiplication, RowsOfEveryWidthAndStrideAgreeWithTheModel)
{
    OperationUnderTest().ExpectRowsOfEveryWidthAndStrideAgree();
}
