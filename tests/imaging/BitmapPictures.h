#pragma once

#include "support/Pixels.h"

#include <memory>

struct BitmapDeleter
{
    void operator()(HBITMAP bitmap) const { ::DeleteObject(bitmap); }
};

using OwnedBitmap = std::unique_ptr<HBITMAP__, BitmapDeleter>;

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xffffff;

// A bitmap that is not a DIB section, with the pixels of a picture.
inline OwnedBitmap DeviceBitmap(const ArgbImage& image)
{
    std::vector<std::uint32_t> bits;
    for (int y = 0; y < image.Height(); ++y)
    {
        for (int x = 0; x < image.Width(); ++x)
            bits.push_back(image.At(x, y));
    }
    return OwnedBitmap(::CreateBitmap(image.Width(), image.Height(), 1, 32, bits.data()));
}

inline OwnedBitmap DeviceBitmap(int width, int height, std::uint32_t color)
{
    return DeviceBitmap(ArgbImage(width, height, color));
}

inline OwnedBitmap DibSection(int width, int height, std::uint32_t color)
{
    const OwnedBitmap bitmap = DeviceBitmap(width, height, color);
    return OwnedBitmap(
        static_cast<HBITMAP>(::CopyImage(bitmap.get(), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}

// A picture of one row.
inline ArgbImage Row(std::initializer_list<std::uint32_t> colors)
{
    ArgbImage image(static_cast<int>(colors.size()), 1);
    int x = 0;
    for (const std::uint32_t color : colors)
        image.At(x++, 0) = color;
    return image;
}

// The colours alone: what the alpha byte of a bitmap without alpha holds is up to the platform.
inline ArgbImage Colors(ArgbImage image)
{
    for (int y = 0; y < image.Height(); ++y)
    {
        for (int x = 0; x < image.Width(); ++x)
            image.At(x, y) &= 0xffffff;
    }
    return image;
}

inline ArgbImage ColorsOf(HBITMAP bitmap)
{
    return Colors(PixelsOf(bitmap));
}

// Whether a bitmap has this size.
inline testing::AssertionResult HasSize(HBITMAP bitmap, LONG width, LONG height)
{
    const SIZE size = SizeOf(bitmap);
    if (size.cx == width && size.cy == height)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the bitmap is " << size.cx << 'x' << size.cy;
}

inline bool IsDibSection(HBITMAP bitmap)
{
    DIBSECTION section = {};
    return ::GetObjectW(bitmap, sizeof section, &section) == sizeof section;
}

inline bool IsGone(HGDIOBJ object)
{
    return ::GetObjectType(object) == 0;
}
