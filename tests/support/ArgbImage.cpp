#include "support/ArgbImage.h"

#include <iomanip>
#include <ostream>
#include <stdexcept>

namespace
{
constexpr int kLargestWrittenSide = 16;

void WriteRow(std::ostream& stream, const ArgbImage& image, int y)
{
    stream << '\n';
    for (int x = 0; x < image.Width(); ++x)
        stream << std::setw(8) << image.At(x, y) << ' ';
}
}

ArgbImage::ArgbImage(int width, int height, std::uint32_t color)
    : m_width(width), m_height(height),
      m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), color)
{
}

int ArgbImage::Width() const
{
    return m_width;
}

int ArgbImage::Height() const
{
    return m_height;
}

std::uint32_t ArgbImage::At(int x, int y) const
{
    return m_pixels[IndexOf(x, y)];
}

std::uint32_t& ArgbImage::At(int x, int y)
{
    return m_pixels[IndexOf(x, y)];
}

bool ArgbImage::operator==(const ArgbImage& other) const
{
    return m_width == other.m_width && m_height == other.m_height && m_pixels == other.m_pixels;
}

bool ArgbImage::operator!=(const ArgbImage& other) const
{
    return !(*this == other);
}

std::size_t ArgbImage::IndexOf(int x, int y) const
{
    if (x < 0 || x >= m_width || y < 0 || y >= m_height)
        throw std::out_of_range("no such pixel");
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
}

std::ostream& operator<<(std::ostream& stream, const ArgbImage& image)
{
    stream << image.Width() << 'x' << image.Height();
    if (image.Width() > kLargestWrittenSide || image.Height() > kLargestWrittenSide)
        return stream;

    const std::ios_base::fmtflags flags = stream.flags();
    const char fill = stream.fill('0');
    stream << std::hex;
    for (int y = 0; y < image.Height(); ++y)
        WriteRow(stream, image, y);
    stream.fill(fill);
    stream.flags(flags);
    return stream;
}
