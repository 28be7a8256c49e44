#include "support/Pixels.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace
{
BITMAPINFO TopDown32(int width, int height)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

// The bitmaps that GetIconInfo makes for its caller.
class IconBitmaps
{
public:
    explicit IconBitmaps(HICON icon)
    {
        if (!::GetIconInfo(icon, &m_info))
            throw std::runtime_error("no icon to read");
    }

    ~IconBitmaps()
    {
        ::DeleteObject(m_info.hbmColor);
        ::DeleteObject(m_info.hbmMask);
    }

    IconBitmaps(const IconBitmaps&) = delete;
    IconBitmaps& operator=(const IconBitmaps&) = delete;

    HBITMAP Color() const
    {
        if (m_info.hbmColor == nullptr)
            throw std::runtime_error("the icon has no colours");
        return m_info.hbmColor;
    }

private:
    ICONINFO m_info = {};
};

ArgbImage ImageFromRows(int width, int height, const std::uint32_t* firstRow, std::ptrdiff_t pixelsPerRow)
{
    ArgbImage image(width, height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
            image.At(x, y) = firstRow[y * pixelsPerRow + x];
    }
    return image;
}

int LargestChannelDifference(std::uint32_t left, std::uint32_t right)
{
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8)
    {
        const int leftChannel = static_cast<int>(left >> shift & 0xff);
        const int rightChannel = static_cast<int>(right >> shift & 0xff);
        largest = (std::max)(largest, std::abs(leftChannel - rightChannel));
    }
    return largest;
}

std::string Hex(std::uint32_t color)
{
    char text[9] = {};
    std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(color));
    return text;
}

std::vector<POINT> Differences(const ArgbImage& expected, const ArgbImage& actual, int tolerance)
{
    std::vector<POINT> different;
    for (int y = 0; y < expected.Height(); ++y)
    {
        for (int x = 0; x < expected.Width(); ++x)
        {
            if (LargestChannelDifference(expected.At(x, y), actual.At(x, y)) > tolerance)
                different.push_back({x, y});
        }
    }
    return different;
}
}

Dib32::Dib32(int width, int height, std::uint32_t color)
    : m_width(width), m_height(height), m_dc(::CreateCompatibleDC(nullptr))
{
    const BITMAPINFO info = TopDown32(width, height);
    void* bits = nullptr;
    m_bitmap = ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (m_dc == nullptr || m_bitmap == nullptr)
    {
        ::DeleteDC(m_dc);
        throw std::runtime_error("no bitmap to draw on");
    }
    m_bits = static_cast<std::uint32_t*>(bits);
    m_previous = ::SelectObject(m_dc, m_bitmap);
    Fill(color);
}

Dib32::~Dib32()
{
    ::SelectObject(m_dc, m_previous);
    ::DeleteDC(m_dc);
    ::DeleteObject(m_bitmap);
}

HDC Dib32::Dc() const
{
    return m_dc;
}

HBITMAP Dib32::Bitmap() const
{
    return m_bitmap;
}

void Dib32::Fill(std::uint32_t color)
{
    ::GdiFlush();
    std::fill_n(m_bits, static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), color);
}

std::uint32_t Dib32::At(int x, int y) const
{
    if (x < 0 || x >= m_width || y < 0 || y >= m_height)
        throw std::out_of_range("no such pixel");
    ::GdiFlush();
    return m_bits[static_cast<std::ptrdiff_t>(y) * m_width + x];
}

ArgbImage Dib32::Pixels() const
{
    ::GdiFlush();
    return ImageFromRows(m_width, m_height, m_bits, m_width);
}

std::uint32_t PixelAt(HDC dc, int x, int y)
{
    const COLORREF color = ::GetPixel(dc, x, y);
    if (color == CLR_INVALID)
        throw std::out_of_range("no such pixel");
    return static_cast<std::uint32_t>(GetRValue(color)) << 16 |
           static_cast<std::uint32_t>(GetGValue(color)) << 8 | GetBValue(color);
}

ArgbImage PixelsOf(HBITMAP bitmap)
{
    const SIZE size = SizeOf(bitmap);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    BITMAPINFO info = TopDown32(size.cx, size.cy);

    const HDC dc = ::CreateCompatibleDC(nullptr);
    const int rows =
        ::GetDIBits(dc, bitmap, 0, static_cast<UINT>(size.cy), pixels.data(), &info, DIB_RGB_COLORS);
    ::DeleteDC(dc);
    if (rows != size.cy)
        throw std::runtime_error("the bitmap cannot be read");
    return ImageFromRows(size.cx, size.cy, pixels.data(), size.cx);
}

ArgbImage PixelsOf(HICON icon)
{
    return PixelsOf(IconBitmaps(icon).Color());
}

ArgbImage PixelsOf(Gdiplus::Bitmap& bitmap)
{
    const int width = static_cast<int>(bitmap.GetWidth());
    const int height = static_cast<int>(bitmap.GetHeight());
    const Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data;
    if (bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok)
        throw std::runtime_error("the image cannot be read");

    const ArgbImage image = ImageFromRows(width, height, static_cast<const std::uint32_t*>(data.Scan0),
                                          data.Stride / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t)));
    bitmap.UnlockBits(&data);
    return image;
}

SIZE SizeOf(HBITMAP bitmap)
{
    BITMAP info = {};
    if (::GetObjectW(bitmap, sizeof info, &info) == 0)
        throw std::runtime_error("no bitmap to read");
    return {info.bmWidth, info.bmHeight};
}

SIZE SizeOf(HICON icon)
{
    return SizeOf(IconBitmaps(icon).Color());
}

testing::AssertionResult SamePixels(const ArgbImage& expected, const ArgbImage& actual, int tolerance)
{
    if (expected.Width() != actual.Width() || expected.Height() != actual.Height())
    {
        return testing::AssertionFailure() << "the picture is " << actual.Width() << 'x' << actual.Height()
                                           << ", expected " << expected.Width() << 'x' << expected.Height();
    }
    const std::vector<POINT> different = Differences(expected, actual, tolerance);
    if (different.empty())
        return testing::AssertionSuccess();

    const POINT first = different.front();
    return testing::AssertionFailure() << different.size() << " different pixels, first (" << first.x << ", "
                                       << first.y << "): " << Hex(actual.At(first.x, first.y))
                                       << ", expected " << Hex(expected.At(first.x, first.y));
}
