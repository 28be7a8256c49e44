#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <vector>

// A picture in plain memory: rows from the top, each pixel 0xAARRGGBB with straight alpha unless a source
// says otherwise. Needs nothing of Windows.
class ArgbImage
{
public:
    ArgbImage() = default;
    ArgbImage(int width, int height, std::uint32_t color = 0);

    int Width() const;
    int Height() const;

    // Throw std::out_of_range outside the picture.
    std::uint32_t At(int x, int y) const;
    std::uint32_t& At(int x, int y);

    bool operator==(const ArgbImage& other) const;
    bool operator!=(const ArgbImage& other) const;

private:
    std::size_t IndexOf(int x, int y) const;

    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_pixels;
};

// Writes the size and, of a small picture, every pixel.
std::ostream& operator<<(std::ostream& stream, const ArgbImage& image);
