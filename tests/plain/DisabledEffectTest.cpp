#include <png/DisabledEffect.h>

#include "PixelOperation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
constexpr DWORD kColorCount = 0x1000000;
constexpr DWORD kColorsPerRun = 0x10000;

BYTE Brightness(double red, double green, double blue)
{
    const double sum = red * 0.299 + green * 0.587 + blue * 0.114;
    return static_cast<BYTE>(sum);
}

// In double precision, truncated to a byte after each step.
DWORD ModelPixel(DWORD pixel)
{
    const BYTE dark = Brightness(pixel / 0x10000 % 256, pixel / 0x100 % 256, pixel % 256);
    const double lightened = dark + (255 - dark) * 0.3;
    const DWORD grey = static_cast<BYTE>(lightened);
    return pixel / 0x1000000 * 0x1000000 + grey * 0x10000 + grey * 0x100 + grey;
}

PixelList Model(PixelList pixels)
{
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), ModelPixel);
    return pixels;
}

PixelList RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<DWORD> anyPixel;
    PixelList pixels(count);
    std::generate(pixels.begin(), pixels.end(), [&] { return anyPixel(random); });
    return pixels;
}

// The colours from `first` on, with alphas of all kinds.
PixelList Colors(DWORD first)
{
    PixelList pixels(kColorsPerRun);
    for (DWORD i = 0; i < kColorsPerRun; ++i)
        pixels[i] = (first + i) | (first / kColorsPerRun + i) << 24;
    return pixels;
}

// The grey by whole numbers, exact where doubles are not.
DWORD ExactGrey(DWORD color)
{
    const DWORD thousandths = color / 0x10000 * 299 + color / 0x100 % 256 * 587 + color % 256 * 114;
    const DWORD dark = thousandths / 1000;
    return (dark * 10 + (255 - dark) * 3) / 10;
}

PixelOperation OperationUnderTest()
{
    return {ModelPixel, RandomPixels, DisabledEffect::GreyOutRun, DisabledEffect::GreyOutImage};
}
} // namespace

TEST(DisabledEffect, GreysKnownColours)
{
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFFFFFFFF), 0xFFFFFFFFU);
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFF000000), 0xFF4C4C4CU); // 76
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFFFF0000), 0xFF818181U); // 129
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFF00FF00), 0xFFB4B4B4U); // 180
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFF0000FF), 0xFF606060U); // 96
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0xFF808080), 0xFFA5A5A5U); // 165
}

TEST(DisabledEffect, AlphaStaysAndTransparentPixelsTurnGreyToo)
{
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0x00FF0000), 0x00818181U);
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0x80FF0000), 0x80818181U);
    EXPECT_EQ(DisabledEffect::GreyOutPixel(0x01FFFFFF), 0x01FFFFFFU);
}

TEST(DisabledEffect, EveryColourAgreesWithTheModel)
{
    for (DWORD first = 0; first < kColorCount; first += kColorsPerRun)
    {
        PixelList inVectors = Colors(first);
        PixelList plain = inVectors;
        const PixelList expected = Model(plain);
        DisabledEffect::GreyOutRun(inVectors.data(), inVectors.size());
        DisabledEffect::GreyOutRunPlain(plain.data(), plain.size());
        ASSERT_EQ(inVectors, expected) << "from " << first;
        ASSERT_EQ(plain, expected) << "from " << first;
    }
}

// The sum of doubles falls below a whole number here and there, as that of 808080 does.
TEST(DisabledEffect, DoublesAreDarkerThanWholeNumbersAt2432Colours)
{
    DWORD darker = 0;
    for (DWORD color = 0; color < kColorCount; ++color)
    {
        const DWORD grey = DisabledEffect::GreyOutPixel(color) & 0xFF;
        const DWORD exact = ExactGrey(color);
        ASSERT_TRUE(grey == exact || grey + 1 == exact) << color;
        darker += exact - grey;
    }
    EXPECT_EQ(darker, 2432U);
}

TEST(DisabledEffect, RunsOfEveryLengthAgreeWithTheModelAndTouchNothingBehindTheirEnd)
{
    OperationUnderTest().ExpectRunsOfEveryLengthAgree();
}

TEST(DisabledEffect, ARunEndsWithItsMemory)
{
    OperationUnderTest().ExpectRunsToEndWithTheirMemory();
}

TEST(DisabledEffect, UnalignedRunsAreServed)
{
    OperationUnderTest().ExpectUnalignedRunsAgree();
}

TEST(DisabledEffect, RowsOfEveryWidthAndStrideAgreeWithTheModel)
{
    OperationUnderTest().ExpectRowsOfEveryWidthAndStrideAgree();
}
