#include <vxdpi/Png.h>

#include "foundation/ShortMemory.h"
#include "imaging/RegistryFields.h"
#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

namespace
{
const Gdiplus::Color kRed(255, 255, 0, 0);

using Flat::GdipBitmapLockBits;

class ReplaceColor : public testing::Test
{
protected:
    void Register(UINT dpi, UINT resourceId) { m_png.AddResourceForDpi(dpi, resourceId, {}); }

    std::unique_ptr<Gdiplus::Bitmap> Replace(UINT dpi, Gdiplus::Color color = kRed)
    {
        return std::unique_ptr<Gdiplus::Bitmap>(m_png.ReplaceColor(dpi, color));
    }

    ArgbImage PixelsAfter(UINT resourceId, Gdiplus::Color color)
    {
        Register(96, resourceId);
        const auto bitmap = Replace(96, color);
        if (bitmap == nullptr)
            throw std::runtime_error("no bitmap");
        return PixelsOf(*bitmap);
    }

    // Without the questions for the size, whose order is open.
    CallLog::LineList CallsOf(UINT dpi)
    {
        CallLog log;
        const GdiPlusCalls changes(log);
        const PixelCalls pixels(log);
        const auto result = Replace(dpi);
        return log.Lines();
    }

    const GdiPlusSession m_gdiPlus;
    CDpiAwarePng m_png;
};

// Transparent corners, a frame of one colour, inside another.
ArgbImage FramedIn(int width, int height, std::uint32_t frame, std::uint32_t inside)
{
    ArgbImage image(width, height, inside);
    for (int x = 0; x < width; ++x)
        image.At(x, 0) = image.At(x, height - 1) = frame;
    for (int y = 0; y < height; ++y)
        image.At(0, y) = image.At(width - 1, y) = frame;
    for (const int x : {0, width - 1})
        image.At(x, 0) = image.At(x, height - 1) = 0;
    return image;
}
}

TEST_F(ReplaceColor, CornersStayTransparentAndAllElseTurnsRedWithItsAlpha)
{
    EXPECT_TRUE(SamePixels(FramedIn(16, 16, 0x80ff0000, 0xffff0000), PixelsAfter(IDR_PNG_16, kRed)));
}

TEST_F(ReplaceColor, EachPartOfTheColourIsTakenAndItsAlphaIsNot)
{
    EXPECT_TRUE(SamePixels(FramedIn(15, 15, 0x80123456, 0xff123456),
                           PixelsAfter(IDR_PNG_15, Gdiplus::Color(7, 0x12, 0x34, 0x56))));
    EXPECT_TRUE(SamePixels(FramedIn(48, 48, 0x80000000, 0xff000000),
                           PixelsAfter(IDR_PNG_48, Gdiplus::Color(0, 0, 0, 0))));
}

TEST_F(ReplaceColor, AStripIsReplacedFromItsFirstToItsLastCell)
{
    const ArgbImage cell = FramedIn(16, 16, 0x80ff0000, 0xffff0000);
    const ArgbImage strip = PixelsAfter(IDR_PNG_STRIP_16, kRed);
    ASSERT_EQ(strip.Width(), 48);
    ASSERT_EQ(strip.Height(), 16);
    for (int y = 0; y < 16; ++y)
    {
        for (int x = 0; x < 48; ++x)
            ASSERT_EQ(strip.At(x, y), cell.At(x % 16, y)) << x << ", " << y;
    }
}

TEST_F(ReplaceColor, AnOpaquePictureTurnsIntoOneColour)
{
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, 0xff123456),
                           PixelsAfter(IDR_PNG_RGB_16, Gdiplus::Color(255, 0x12, 0x34, 0x56))));
    EXPECT_TRUE(SamePixels(ArgbImage(1, 16, 0xffff0000), PixelsAfter(IDR_PNG_COLUMN, kRed)));
}

TEST_F(ReplaceColor, ThePictureIsNotScaled)
{
    Register(96, IDR_PNG_16);
    Register(192, IDR_PNG_32);
    EXPECT_EQ(Replace(72)->GetWidth(), 16u);
    EXPECT_EQ(Replace(120)->GetWidth(), 32u);
    EXPECT_EQ(Replace(300)->GetHeight(), 32u);
}

TEST_F(ReplaceColor, MovesTheCurrentDpi)
{
    EXPECT_EQ(Replace(120), nullptr);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 120u);
    Register(96, IDR_PNG_16);
    EXPECT_NE(Replace(144), nullptr);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(ReplaceColor, LooksIntoTheFrameworksResourceModule)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, 0xffff0000), PixelsAfter(IDR_DLL_SHARED_ID, kRed)));
}

TEST_F(ReplaceColor, WithoutAReadableResourceThereIsNone)
{
    EXPECT_EQ(Replace(96), nullptr);
    Register(96, IDR_MISSING);
    EXPECT_EQ(Replace(96), nullptr);
    Register(96, IDR_PNG_DAMAGED);
    EXPECT_EQ(Replace(96), nullptr);
    EXPECT_EQ(CallsOf(96), (CallLog::LineList{"GdipCreateBitmapFromStream()", "GdipDisposeImage(null)"}));
}

TEST_F(ReplaceColor, LocksTheWholePictureForReadingAndWritingOnce)
{
    Register(96, IDR_PNG_STRIP_16);
    EXPECT_EQ(CallsOf(144), (CallLog::LineList{"GdipCreateBitmapFromStream()",
                                               "GdipBitmapLockBits(decoded, 0, 0, 48, 16, 3, 2498570, lock)",
                                               "GdipBitmapUnlockBits(decoded, lock)"}));
}

TEST_F(ReplaceColor, PixelsThatAreFullyTransparentKeepTheirHiddenColour)
{
    Register(96, IDR_PNG_16);
    std::vector<std::uint32_t> pixels = {0x00123456, 0x01123456, 0xff123456, 0x00ffffff,
                                         0x80000000, 0x00654321, 0xfe0a0b0c};
    const FakePixels fake(pixels, 7, 1, 28, 0);
    EXPECT_NE(Replace(96), nullptr);
    EXPECT_EQ(pixels, (std::vector<std::uint32_t>{0x00123456, 0x01ff0000, 0xffff0000, 0x00ffffff, 0x80ff0000,
                                                  0x00654321, 0xfeff0000}));
}

TEST_F(ReplaceColor, WhatStandsBetweenTheRowsIsNotTouched)
{
    Register(96, IDR_PNG_16);
    std::vector<std::uint32_t> pixels(15, 0xffabcdef);
    const FakePixels fake(pixels, 3, 3, 20, 0);
    EXPECT_NE(Replace(96), nullptr);
    const std::uint32_t red = 0xffff0000;
    const std::uint32_t old = 0xffabcdef;
    EXPECT_EQ(pixels, (std::vector<std::uint32_t>{red, red, red, old, old, red, red, red, old, old, red, red,
                                                  red, old, old}));
}

TEST_F(ReplaceColor, RowsMayRunUpwards)
{
    Register(96, IDR_PNG_16);
    std::vector<std::uint32_t> pixels(12, 0xffabcdef);
    const FakePixels fake(pixels, 3, 2, -16, 6);
    EXPECT_NE(Replace(96), nullptr);
    const std::uint32_t red = 0xffff0000;
    const std::uint32_t old = 0xffabcdef;
    EXPECT_EQ(pixels,
              (std::vector<std::uint32_t>{old, old, red, red, red, old, red, red, red, old, old, old}));
}

TEST_F(ReplaceColor, APictureThatCannotBeLockedGivesNoneAndKeepsTheDecodedBitmap)
{
    Register(96, IDR_PNG_16);
    const FailNthCall<decltype(GdipBitmapLockBits)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapLockBits",
        FailNthCall<decltype(GdipBitmapLockBits)>::kEveryCall, Gdiplus::WrongState);
    LiveBitmaps live;
    EXPECT_EQ(CallsOf(96),
              (CallLog::LineList{"GdipCreateBitmapFromStream()",
                                 "GdipBitmapLockBits(decoded, 0, 0, 16, 16, 3, 2498570, lock)"}));
    EXPECT_EQ(live.Count(), 1u);
    EXPECT_EQ(Replace(96), nullptr);
    EXPECT_EQ(live.Count(), 2u);
    live.DeleteAll();
}

TEST_F(ReplaceColor, NothingButTheDecodedBitmapIsKeptWhenItCannotBeLocked)
{
    Register(96, IDR_PNG_16);
    const FailNthCall<decltype(GdipBitmapLockBits)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapLockBits",
        FailNthCall<decltype(GdipBitmapLockBits)>::kEveryCall, Gdiplus::WrongState);
    EXPECT_NO_LEAK(
        [this]
        {
            LiveBitmaps live;
            Replace(96);
            live.DeleteAll();
        });
}

TEST_F(ReplaceColor, WithoutMemoryForTheLockThereIsNoBitmapAndNoneIsKept)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    Register(96, IDR_PNG_16);
    Replace(96); // from here on the registry's mutex needs no memory
    const LiveBitmaps live;
    {
        const ShortMemory failing;
        EXPECT_EQ(Replace(96), nullptr);
        EXPECT_GT(failing.CallCount(), 0);
    }
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(ReplaceColor, LeavesNothingBehindButItsResult)
{
    Register(96, IDR_PNG_16);
    EXPECT_NO_LEAK([this] { Replace(96); });
}
