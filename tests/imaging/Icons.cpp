#include "imaging/Icons.h"

#include <stdexcept>

namespace
{
// The bitmaps that GetIconInfo makes for its caller.
struct IconParts
{
    explicit IconParts(HICON icon) : isIcon(::GetIconInfo(icon, &info) != FALSE) {}

    ~IconParts()
    {
        ::DeleteObject(info.hbmColor);
        ::DeleteObject(info.hbmMask);
    }

    IconParts(const IconParts&) = delete;
    IconParts& operator=(const IconParts&) = delete;

    ICONINFO info = {};
    bool isIcon;
};

std::vector<std::uint32_t> PixelsInRows(const ArgbImage& image)
{
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < image.Height(); ++y)
    {
        for (int x = 0; x < image.Width(); ++x)
            pixels.push_back(image.At(x, y));
    }
    return pixels;
}

// Rows of a monochrome bitmap end at even bytes.
std::size_t MonochromeRowSize(int width)
{
    return static_cast<std::size_t>((width + 15) / 16 * 2);
}

std::string RowOf(const std::uint8_t* bits, int width)
{
    std::string row;
    for (int x = 0; x < width; ++x)
        row += (bits[x / 8] >> (7 - x % 8) & 1) != 0 ? '#' : '.';
    return row;
}
}

OwnedIcon IconOf(const ArgbImage& image)
{
    const std::vector<std::uint8_t> drawn(MonochromeRowSize(image.Width()) *
                                          static_cast<std::size_t>(image.Height()));
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmMask = ::CreateBitmap(image.Width(), image.Height(), 1, 1, drawn.data());
    info.hbmColor = ::CreateBitmap(image.Width(), image.Height(), 1, 32, PixelsInRows(image).data());
    OwnedIcon icon(::CreateIconIndirect(&info));
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    if (icon == nullptr)
        throw std::runtime_error("no icon");
    return icon;
}

OwnedIcon IconOf(int width, int height, std::uint32_t color)
{
    return IconOf(ArgbImage(width, height, color));
}

OwnedIcon MonochromeIcon(int width, int height)
{
    const std::vector<std::uint8_t> bits(MonochromeRowSize(width) * static_cast<std::size_t>(height));
    OwnedIcon icon(::CreateIcon(nullptr, width, height, 1, 1, bits.data(), bits.data()));
    if (icon == nullptr)
        throw std::runtime_error("no icon");
    return icon;
}

bool IsIcon(HICON icon)
{
    return IconParts(icon).isIcon;
}

testing::AssertionResult HasSize(HICON icon, LONG width, LONG height)
{
    if (!IsIcon(icon))
        return testing::AssertionFailure() << "there is no icon";
    const SIZE size = SizeOf(icon);
    if (size.cx == width && size.cy == height)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the icon is " << size.cx << 'x' << size.cy;
}

std::vector<std::string> MaskOf(HICON icon)
{
    const IconParts parts(icon);
    const SIZE size = SizeOf(parts.info.hbmMask);
    const std::size_t rowSize = MonochromeRowSize(size.cx);
    std::vector<std::uint8_t> bits(rowSize * static_cast<std::size_t>(size.cy));
    if (::GetBitmapBits(parts.info.hbmMask, static_cast<LONG>(bits.size()), bits.data()) == 0)
        throw std::runtime_error("the mask cannot be read");

    std::vector<std::string> rows;
    for (std::size_t start = 0; start < bits.size(); start += rowSize)
        rows.push_back(RowOf(bits.data() + start, size.cx));
    return rows;
}
