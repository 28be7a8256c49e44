#pragma once

#include "support/ArgbImage.h"
#include "support/GdiPlusSession.h"

#include <gtest/gtest.h>

// A 32-bit top-down DIB section selected into a memory DC of its own: something to draw on and look at.
class Dib32
{
public:
    Dib32(int width, int height, std::uint32_t color = 0);
    ~Dib32();

    Dib32(const Dib32&) = delete;
    Dib32& operator=(const Dib32&) = delete;

    HDC Dc() const;
    // Stays owned by this object and selected into Dc().
    HBITMAP Bitmap() const;

    void Fill(std::uint32_t color);
    std::uint32_t At(int x, int y) const;
    ArgbImage Pixels() const;

private:
    int m_width;
    int m_height;
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    std::uint32_t* m_bits = nullptr;
};

// The colour that GDI reads, 0x00RRGGBB, without alpha. Throws outside the surface.
std::uint32_t PixelAt(HDC dc, int x, int y);

// All pixels with the alpha byte that the object holds. Throw when the object cannot be read; a bitmap must
// not be selected into a DC. Of an icon, these are the pixels of its colour bitmap.
ArgbImage PixelsOf(HBITMAP bitmap);
ArgbImage PixelsOf(HICON icon);
ArgbImage PixelsOf(Gdiplus::Bitmap& bitmap);

// The width and height of a bitmap, or of an icon's bitmaps. Throws when there is none.
SIZE SizeOf(HBITMAP bitmap);
SIZE SizeOf(HICON icon);

// Compares size and every channel of every pixel, tells the first difference and how many there are.
testing::AssertionResult SamePixels(const ArgbImage& expected, const ArgbImage& actual, int tolerance = 0);
