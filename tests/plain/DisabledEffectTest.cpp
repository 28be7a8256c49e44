#include <png/DisabledEffect.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{
using Pixels = std::vector<DWORD>;

constexpr DWORD kUntouched = 0x40CDCDCD;
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

Pixels Model(Pixels pixels)
{
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), ModelPixel);
    return pixels;
}

Pixels RandomPixels(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<DWORD> anyPixel;
    Pixels pixels(count);
    std::generate(pixels.begin(), pixels.end(), [&] { return anyPixel(random); });
    return pixels;
}

// The colours from `first` on, with alphas of all kinds.
Pixels Colors(DWORD first)
{
    Pixels pixels(kColorsPerRun);
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
        Pixels inVectors = Colors(first);
        Pixels plain = inVectors;
        const Pixels expected = Model(plain);
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
    for (std::size_t count = 0; count <= 80; ++count)
    {
        Pixels pixels = RandomPixels(count, static_cast<unsigned>(count));
        Pixels expected = Model(pixels);
        pixels.resize(count + 8, kUntouched);
        expected.resize(count + 8, kUntouched);
        DisabledEffect::GreyOutRun(pixels.data(), count);
        ASSERT_EQ(pixels, expected) << count;
    }
}

TEST(DisabledEffect, ARunEndsWithItsMemory)
{
    for (std::size_t count = 1; count <= 33; ++count)
    {
        Pixels pixels(count, 0x80000000);
        pixels.shrink_to_fit();
        DisabledEffect::GreyOutRun(pixels.data(), count);
        ASSERT_EQ(pixels, Pixels(count, 0x804C4C4C)) << count;
    }
}

TEST(DisabledEffect, UnalignedRunsAreServed)
{
    const Pixels pixels = RandomPixels(40, 5);
    for (std::size_t start = 0; start < 4; ++start)
    {
        Pixels changed = pixels;
        Pixels expected = Model(pixels);
        std::copy_n(pixels.begin(), start, expected.begin());
        DisabledEffect::GreyOutRun(changed.data() + start, changed.size() - start);
        ASSERT_EQ(changed, expected) << start;
    }
}

namespace
{
constexpr std::size_t kRows = 5;

// What a picture with gaps between its rows should become: the gaps stay as they are.
Pixels ModelRows(Pixels pixels, std::size_t width, std::size_t pitch)
{
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = i % pitch < width ? ModelPixel(pixels[i]) : pixels[i];
    return pixels;
}

void ExpectRowsGreyed(std::size_t width, std::size_t gap, bool bottomUp)
{
    const std::size_t pitch = width + gap;
    Pixels pixels = RandomPixels(pitch * kRows, static_cast<unsigned>(width));
    const Pixels expected = ModelRows(pixels, width, pitch);
    const INT stride = static_cast<INT>(pitch * sizeof(DWORD));
    DWORD* const pFirstRow = bottomUp ? pixels.data() + pitch * (kRows - 1) : pixels.data();
    DisabledEffect::GreyOutImage(pFirstRow, static_cast<UINT>(width), kRows, bottomUp ? -stride : stride);
    EXPECT_EQ(pixels, expected) << "width " << width << ", gap " << gap;
}
} // namespace

TEST(DisabledEffect, RowsOfEveryWidthAndStrideAgreeWithTheModel)
{
    for (std::size_t width = 1; width <= 80; ++width)
    {
        for (const std::size_t gap : {std::size_t(0), std::size_t(1), std::size_t(3)})
        {
            ExpectRowsGreyed(width, gap, false);
            ExpectRowsGreyed(width, gap, true);
        }
    }
}
