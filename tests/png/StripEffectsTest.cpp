#include <vxdpi/Png.h>

#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

namespace
{
using Pixels = std::vector<std::uint32_t>;

const HINSTANCE kProgram = ::GetModuleHandleW(nullptr);

class DisabledEffect : public testing::Test
{
protected:
    ArgbImage Disabled(const ArgbImage& image)
    {
        const BitmapPtr bitmap = BitmapOf(image);
        m_strip.ApplyDisabledEffect(bitmap.get());
        return PixelsOf(*bitmap);
    }

    std::uint32_t Disabled(std::uint32_t color) { return Disabled(ArgbImage(1, 1, color)).At(0, 0); }

    // Greys pixels in plain memory, which the bitmap claims to be its own.
    void DisableFakePixels(Pixels& pixels, UINT width, UINT height, INT stride, std::size_t firstPixel)
    {
        const BitmapPtr bitmap = BitmapOf(ArgbImage(1, 1));
        const FakePixels fake(pixels, width, height, stride, firstPixel);
        m_strip.ApplyDisabledEffect(bitmap.get());
        EXPECT_EQ(fake.LockCount(), 1);
    }

    CallLog::LineList CallsOfDisabling(Gdiplus::Bitmap* bitmap)
    {
        CallLog log;
        const StripCalls calls(log);
        m_strip.ApplyDisabledEffect(bitmap);
        return log.Lines();
    }

    OpenStrip m_strip;

private:
    const GdiPlusSession m_gdiPlus;
};

class Premultiplication : public testing::Test
{
protected:
    // Cuts one cell, which claims that pixels in plain memory are its own.
    void CutFakeCell(Pixels& pixels, UINT width, UINT height, INT stride, std::size_t firstPixel)
    {
        const ServedResource served(ArgbImage(4, 4));
        const FakePixels fake(pixels, width, height, stride, firstPixel);
        const OwnedBitmaps bitmaps(m_strip.SplitPngToBitmaps(1, 4, 4, kProgram, 0));
        EXPECT_EQ(bitmaps.Count(), 1u);
        EXPECT_EQ(fake.LockCount(), 1);
    }

    Pixels Premultiplied(Pixels pixels)
    {
        const UINT width = static_cast<UINT>(pixels.size());
        CutFakeCell(pixels, width, 1, static_cast<INT>(width * 4), 0);
        return pixels;
    }

    OpenStrip m_strip;

private:
    const GdiPlusSession m_gdiPlus;
};

// A cell of StripPicture in premultiplied colours.
ArgbImage PremultipliedCell(int size, std::uint32_t inside)
{
    constexpr std::uint32_t kPremultipliedFrame = 0x80802008; // 80ff4010
    ArgbImage cell(size, size, inside);
    for (int i = 0; i < size; ++i)
        cell.At(i, 0) = cell.At(i, size - 1) = cell.At(0, i) = cell.At(size - 1, i) = kPremultipliedFrame;
    cell.At(0, 0) = cell.At(size - 1, 0) = cell.At(0, size - 1) = cell.At(size - 1, size - 1) = 0;
    return cell;
}
} // namespace

TEST_F(DisabledEffect, WhiteStaysAndBlackTurnsDarkGrey)
{
    EXPECT_EQ(Disabled(0xffffffff), 0xffffffffu);
    EXPECT_EQ(Disabled(0xff000000), 0xff4c4c4cu); // 76
}

TEST_F(DisabledEffect, EachPrimaryCountsByItsBrightness)
{
    EXPECT_EQ(Disabled(0xffff0000), 0xff818181u); // 129
    EXPECT_EQ(Disabled(0xff00ff00), 0xffb4b4b4u); // 180
    EXPECT_EQ(Disabled(0xff0000ff), 0xff606060u); // 96
}

// 128 in all channels sums up to 127.99999999999999.
TEST_F(DisabledEffect, AGreyWhoseSumStaysBelowItIsTruncatedFirst)
{
    EXPECT_EQ(Disabled(0xff808080), 0xffa5a5a5u); // 165
}

TEST_F(DisabledEffect, MixedColoursAreSummedUpAndTruncatedTwice)
{
    EXPECT_EQ(Disabled(0xff2060c0), 0xff898989u); // 87.81 -> 87, 137.4 -> 137
    EXPECT_EQ(Disabled(0xff010203), 0xff4d4d4du); // 1.815 -> 1, 77.2 -> 77
    EXPECT_EQ(Disabled(0xfffefdfc), 0xfffdfdfdu); // 253.185 -> 253, 253.6 -> 253
}

TEST_F(DisabledEffect, AlphaStaysAlsoWhereNothingIsVisible)
{
    Pixels pixels = {0x80ff0000, 0x01000000, 0x00ff0000, 0x7fffffff, 0x00000000, 0xfe0000ff};
    DisableFakePixels(pixels, 6, 1, 24, 0);
    EXPECT_EQ(pixels, (Pixels{0x80818181, 0x014c4c4c, 0x00818181, 0x7fffffff, 0x004c4c4c, 0xfe606060}));
}

TEST_F(DisabledEffect, EveryPixelOfTheBitmapIsChanged)
{
    EXPECT_TRUE(SamePixels(ArgbImage(17, 9, 0xffa5a5a5), Disabled(ArgbImage(17, 9, 0xff808080))));
}

TEST_F(DisabledEffect, WhatStandsBetweenTheRowsIsNotTouched)
{
    Pixels pixels(15, 0xff000000);
    DisableFakePixels(pixels, 3, 3, 20, 0);
    const std::uint32_t old = 0xff000000;
    const std::uint32_t grey = 0xff4c4c4c;
    EXPECT_EQ(pixels,
              (Pixels{grey, grey, grey, old, old, grey, grey, grey, old, old, grey, grey, grey, old, old}));
}

TEST_F(DisabledEffect, RowsMayRunUpwards)
{
    Pixels pixels(12, 0xff000000);
    DisableFakePixels(pixels, 3, 2, -16, 6);
    const std::uint32_t old = 0xff000000;
    const std::uint32_t grey = 0xff4c4c4c;
    EXPECT_EQ(pixels, (Pixels{old, old, grey, grey, grey, old, grey, grey, grey, old, old, old}));
}

TEST_F(DisabledEffect, LocksTheWholeForReadingAndWritingOnce)
{
    const BitmapPtr bitmap = BitmapOf(ArgbImage(7, 5));
    EXPECT_EQ(CallsOfDisabling(bitmap.get()),
              (CallLog::LineList{"GdipBitmapLockBits(#1, 0, 0, 7, 5, 3, 2498570, lock)",
                                 "GdipBitmapUnlockBits(#1, lock)"}));
}

TEST_F(DisabledEffect, NullIsLeftAlone)
{
    EXPECT_EQ(CallsOfDisabling(nullptr), CallLog::LineList{});
}

TEST_F(DisabledEffect, ABitmapThatCannotBeLockedIsLeftAlone)
{
    const BitmapPtr bitmap = BitmapOf(ArgbImage(4, 4, 0xff000000));
    {
        const FailingGdiPlus<decltype(Flat::GdipBitmapLockBits)> fail("GdipBitmapLockBits");
        EXPECT_EQ(CallsOfDisabling(bitmap.get()),
                  CallLog::LineList{"GdipBitmapLockBits(#1, 0, 0, 4, 4, 3, 2498570, lock)"});
    }
    EXPECT_TRUE(SamePixels(ArgbImage(4, 4, 0xff000000), PixelsOf(*bitmap)));
}

TEST_F(DisabledEffect, LeavesNothingBehind)
{
    const BitmapPtr bitmap = BitmapOf(ArgbImage(4, 4, 0xff000000));
    EXPECT_NO_LEAK([&] { m_strip.ApplyDisabledEffect(bitmap.get()); });
}

TEST_F(Premultiplication, ColoursAreMultipliedByTheirAlphaAndRounded)
{
    EXPECT_EQ(Premultiplied({0x80ffc801, 0x01ff7e01, 0x7fffff00, 0xfeff80ff}),
              (Pixels{0x80806401, 0x01010000, 0x7f7f7f00, 0xfefe7ffe}));
}

// 127 / 255 stays below a half, 128 / 255 does not.
TEST_F(Premultiplication, LessThanAHalfIsRoundedDown)
{
    EXPECT_EQ(Premultiplied({0x017f0000, 0x01800000, 0x01007f00, 0x01008000, 0x0100007f, 0x01000080}),
              (Pixels{0x01000000, 0x01010000, 0x01000000, 0x01000100, 0x01000000, 0x01000001}));
}

TEST_F(Premultiplication, OpaqueAndFullyTransparentPixelsStayAsTheyAre)
{
    const Pixels pixels = {0xff123456, 0x00123456, 0xffffffff, 0x00ffffff, 0x00000000, 0xff000000};
    EXPECT_EQ(Premultiplied(pixels), pixels);
}

TEST_F(Premultiplication, WhatStandsBetweenTheRowsIsNotTouched)
{
    Pixels pixels(15, 0x80ff0000);
    CutFakeCell(pixels, 3, 3, 20, 0);
    const std::uint32_t old = 0x80ff0000;
    const std::uint32_t now = 0x80800000;
    EXPECT_EQ(pixels, (Pixels{now, now, now, old, old, now, now, now, old, old, now, now, now, old, old}));
}

TEST_F(Premultiplication, RowsMayRunUpwards)
{
    Pixels pixels(12, 0x80ff0000);
    CutFakeCell(pixels, 3, 2, -16, 6);
    const std::uint32_t old = 0x80ff0000;
    const std::uint32_t now = 0x80800000;
    EXPECT_EQ(pixels, (Pixels{old, old, now, now, now, old, now, now, now, old, old, old}));
}

TEST_F(Premultiplication, EveryCellOfIconsAndBitmapsIsScaledInPremultipliedColours)
{
    {
        const CellsSeen seen;
        const OwnedIcons icons(m_strip.SplitPngToIcons(IDR_PNG_STRIP_16, 24, 16, kProgram, 0, 0));
        ASSERT_EQ(seen.Cells().size(), 3u);
        EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xff00a000), seen.Cells()[0]));
        EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xff0000c0), seen.Cells()[1]));
        EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xffc00000), seen.Cells()[2]));
    }
    const CellsSeen seen;
    const OwnedBitmaps bitmaps(m_strip.SplitPngToBitmaps(IDR_PNG_STRIP_16, 24, 16, kProgram, 0));
    ASSERT_EQ(seen.Cells().size(), 3u);
    EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xff00a000), seen.Cells()[0]));
    EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xff0000c0), seen.Cells()[1]));
    EXPECT_TRUE(SamePixels(PremultipliedCell(16, 0xffc00000), seen.Cells()[2]));
}

TEST_F(Premultiplication, ACellThatCannotBeLockedIsScaledAsItWasDrawn)
{
    const FailNthCall<decltype(Flat::GdipBitmapLockBits)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapLockBits",
        FailNthCall<decltype(Flat::GdipBitmapLockBits)>::kEveryCall, Gdiplus::WrongState);
    const ImportSpy<decltype(Flat::GdipBitmapUnlockBits)> unlock(VxDpiModule(), "gdiplus.dll",
                                                                 "GdipBitmapUnlockBits");
    const ServedResource served(StripPicture(1, 16));
    {
        const CellsSeen seen;
        const OwnedIcons icons(m_strip.SplitPngToIcons(1, 24, 16, kProgram, 0, 0));
        EXPECT_EQ(icons.Count(), 1u);
        ASSERT_EQ(seen.Cells().size(), 1u);
        EXPECT_TRUE(SamePixels(StripPicture(1, 16), seen.Cells()[0]));
    }
    const CellsSeen seen;
    const OwnedBitmaps bitmaps(m_strip.SplitPngToBitmaps(1, 24, 16, kProgram, 0));
    EXPECT_EQ(bitmaps.Count(), 1u);
    ASSERT_EQ(seen.Cells().size(), 1u);
    EXPECT_TRUE(SamePixels(StripPicture(1, 16), seen.Cells()[0]));
    EXPECT_EQ(unlock.CallCount(), 0);
}
