#include "support/TestPictures.h"

#include <iterator>

namespace
{
constexpr std::uint32_t kOpaque = 0xff000000;

// Steps that keep neighbours apart in every channel and stay below 256 up to 48 pixels a side.
constexpr std::uint32_t kRedStep = 5;
constexpr std::uint32_t kGreenStep = 5;

constexpr std::uint32_t kCellColors[] = {0xff00a000, 0xff0000c0, 0xffc00000, 0xff808000};
constexpr std::uint32_t kMappedColors[] = {0xff000000, 0xff808080, 0xffc0c0c0,
                                           0xffffffff, 0xff0000ff, 0xffff00ff};

std::uint32_t Gradient(int x, int y)
{
    const std::uint32_t red = (static_cast<std::uint32_t>(x) * kRedStep) & 0xff;
    const std::uint32_t green = (static_cast<std::uint32_t>(y) * kGreenStep) & 0xff;
    const std::uint32_t blue =
        ((static_cast<std::uint32_t>(x) ^ static_cast<std::uint32_t>(y)) & 1) != 0 ? 0xff : 0x40;
    return kOpaque | red << 16 | green << 8 | blue;
}

bool IsEdge(int position, int length)
{
    return position == 0 || position == length - 1;
}

std::uint32_t Framed(int x, int y, int width, int height, std::uint32_t inside)
{
    const bool atSide = IsEdge(x, width);
    const bool atTopOrBottom = IsEdge(y, height);
    if (atSide && atTopOrBottom)
        return kTransparentPixel;
    return atSide || atTopOrBottom ? kFrameColor : inside;
}

template<typename ColorOf>
ArgbImage Painted(int width, int height, ColorOf colorOf)
{
    ArgbImage image(width, height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
            image.At(x, y) = colorOf(x, y);
    }
    return image;
}
}

ArgbImage FramedPicture(int width, int height)
{
    return Painted(width, height, [=](int x, int y) { return Framed(x, y, width, height, Gradient(x, y)); });
}

ArgbImage OpaquePicture(int width, int height)
{
    return Painted(width, height, Gradient);
}

ArgbImage StripPicture(int cellCount, int cellSize)
{
    return Painted(cellCount * cellSize, cellSize,
                   [=](int x, int y)
                   { return Framed(x % cellSize, y, cellSize, cellSize, StripCellColor(x / cellSize)); });
}

std::uint32_t StripCellColor(int cell)
{
    return kCellColors[static_cast<std::size_t>(cell) % std::size(kCellColors)];
}

ArgbImage MappedColorsPicture(int cellSize)
{
    const int width = static_cast<int>(std::size(kMappedColors)) * cellSize;
    return Painted(width, cellSize, [=](int x, int) { return kMappedColors[x / cellSize]; });
}
