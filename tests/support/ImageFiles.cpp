#include "support/ImageFiles.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace
{
constexpr std::uint32_t kBmpFileHeaderSize = 14;
constexpr std::uint32_t kBmpInfoHeaderSize = 40;
constexpr std::size_t kPaletteSize = 256;

// Up to here an icon's picture is stored uncompressed; the format writes this size as 0.
constexpr int kPngIconSize = 256;
constexpr std::uint32_t kIcoHeaderSize = 6;
constexpr std::uint32_t kIcoEntrySize = 16;

void AppendLittle(Bytes& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendBig(Bytes& bytes, std::uint32_t value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void Append(Bytes& bytes, const Bytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void PadTo4(Bytes& bytes)
{
    while (bytes.size() % 4 != 0)
        bytes.push_back(0);
}

std::uint32_t SizeOf(const Bytes& bytes)
{
    return static_cast<std::uint32_t>(bytes.size());
}

std::uint32_t Crc32(const Bytes& bytes)
{
    constexpr std::uint32_t kPolynomial = 0xedb88320;
    std::uint32_t crc = 0xffffffff;
    for (const std::uint8_t byte : bytes)
    {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? kPolynomial : 0);
    }
    return ~crc;
}

std::uint32_t Adler32(const Bytes& bytes)
{
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::uint8_t byte : bytes)
    {
        low = (low + byte) % kModulus;
        high = (high + low) % kModulus;
    }
    return high << 16 | low;
}

// A zlib stream of stored blocks: nothing to compress with is needed, and any decoder reads it.
Bytes ZlibStored(const Bytes& raw)
{
    constexpr std::size_t kBlockSize = 0xffff;
    Bytes zlib = {0x78, 0x01};
    for (std::size_t start = 0; start < raw.size(); start += kBlockSize)
    {
        const std::size_t size = (std::min)(kBlockSize, raw.size() - start);
        zlib.push_back(start + size == raw.size() ? 1 : 0);
        AppendLittle(zlib, static_cast<std::uint32_t>(size), 2);
        AppendLittle(zlib, ~static_cast<std::uint32_t>(size), 2);
        const auto from = raw.begin() + static_cast<std::ptrdiff_t>(start);
        zlib.insert(zlib.end(), from, from + static_cast<std::ptrdiff_t>(size));
    }
    AppendBig(zlib, Adler32(raw), 4);
    return zlib;
}

void AppendChunk(Bytes& png, std::string_view type, const Bytes& data)
{
    Bytes checked(type.begin(), type.end());
    Append(checked, data);
    AppendBig(png, SizeOf(data), 4);
    Append(png, checked);
    AppendBig(png, Crc32(checked), 4);
}

Bytes PngHeader(const ArgbImage& image, PngAlpha alpha)
{
    constexpr std::uint8_t kRgb = 2;
    constexpr std::uint8_t kRgba = 6;
    Bytes header;
    AppendBig(header, static_cast<std::uint32_t>(image.Width()), 4);
    AppendBig(header, static_cast<std::uint32_t>(image.Height()), 4);
    Append(header, {8, alpha == PngAlpha::Keep ? kRgba : kRgb, 0, 0, 0});
    return header;
}

Bytes PngResolution(int dpi)
{
    constexpr double kMetresPerInch = 0.0254;
    const auto dotsPerMetre = static_cast<std::uint32_t>(dpi / kMetresPerInch + 0.5);
    Bytes resolution;
    AppendBig(resolution, dotsPerMetre, 4);
    AppendBig(resolution, dotsPerMetre, 4);
    resolution.push_back(1);
    return resolution;
}

Bytes PngRows(const ArgbImage& image, PngAlpha alpha)
{
    Bytes rows;
    for (int y = 0; y < image.Height(); ++y)
    {
        rows.push_back(0);
        for (int x = 0; x < image.Width(); ++x)
        {
            const std::uint32_t pixel = image.At(x, y);
            AppendBig(rows, pixel, 3);
            if (alpha == PngAlpha::Keep)
                AppendBig(rows, pixel >> 24, 1);
        }
    }
    return rows;
}

Bytes BmpFile(const ArgbImage& image, int bitsPerPixel, const Bytes& palette, const Bytes& rows)
{
    const std::uint32_t start = kBmpFileHeaderSize + kBmpInfoHeaderSize + SizeOf(palette);
    Bytes file = {'B', 'M'};
    AppendLittle(file, start + SizeOf(rows), 4);
    AppendLittle(file, 0, 4);
    AppendLittle(file, start, 4);
    AppendLittle(file, kBmpInfoHeaderSize, 4);
    AppendLittle(file, static_cast<std::uint32_t>(image.Width()), 4);
    AppendLittle(file, static_cast<std::uint32_t>(image.Height()), 4);
    AppendLittle(file, 1, 2);
    AppendLittle(file, static_cast<std::uint32_t>(bitsPerPixel), 2);
    file.resize(kBmpFileHeaderSize + kBmpInfoHeaderSize);
    Append(file, palette);
    Append(file, rows);
    return file;
}

// 32 bits per pixel and a mask of 1 bit, both bottom-up; the height counts both.
Bytes IconBitmap(const ArgbImage& image)
{
    Bytes bitmap;
    AppendLittle(bitmap, kBmpInfoHeaderSize, 4);
    AppendLittle(bitmap, static_cast<std::uint32_t>(image.Width()), 4);
    AppendLittle(bitmap, static_cast<std::uint32_t>(image.Height()) * 2, 4);
    AppendLittle(bitmap, 1, 2);
    AppendLittle(bitmap, 32, 2);
    bitmap.resize(kBmpInfoHeaderSize);
    for (int y = image.Height() - 1; y >= 0; --y)
    {
        for (int x = 0; x < image.Width(); ++x)
            AppendLittle(bitmap, image.At(x, y), 4);
    }
    for (int y = image.Height() - 1; y >= 0; --y)
    {
        Bytes row(static_cast<std::size_t>(image.Width() + 7) / 8);
        for (int x = 0; x < image.Width(); ++x)
        {
            if (image.At(x, y) >> 24 == 0)
                row[static_cast<std::size_t>(x) / 8] |= static_cast<std::uint8_t>(0x80 >> (x % 8));
        }
        PadTo4(row);
        Append(bitmap, row);
    }
    return bitmap;
}
}

Bytes EncodePng(const ArgbImage& image, PngAlpha alpha, int dpi)
{
    Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    AppendChunk(png, "IHDR", PngHeader(image, alpha));
    if (dpi != 0)
        AppendChunk(png, "pHYs", PngResolution(dpi));
    AppendChunk(png, "IDAT", ZlibStored(PngRows(image, alpha)));
    AppendChunk(png, "IEND", {});
    return png;
}

Bytes EncodeTruncatedPng(const ArgbImage& image)
{
    Bytes png = EncodePng(image);
    png.resize(png.size() / 2);
    return png;
}

Bytes EncodeDamagedPng(const ArgbImage& image)
{
    Bytes png = EncodePng(image);
    png[png.size() / 2] ^= 0xff;
    return png;
}

Bytes EncodeBmp24(const ArgbImage& image)
{
    Bytes rows;
    for (int y = image.Height() - 1; y >= 0; --y)
    {
        for (int x = 0; x < image.Width(); ++x)
            AppendLittle(rows, image.At(x, y), 3);
        PadTo4(rows);
    }
    return BmpFile(image, 24, {}, rows);
}

Bytes EncodeBmp8(const ArgbImage& image)
{
    std::vector<std::uint32_t> colors;
    Bytes rows;
    for (int y = image.Height() - 1; y >= 0; --y)
    {
        for (int x = 0; x < image.Width(); ++x)
        {
            const std::uint32_t color = image.At(x, y) & 0xffffff;
            const auto known = std::find(colors.begin(), colors.end(), color);
            rows.push_back(static_cast<std::uint8_t>(known - colors.begin()));
            if (known == colors.end())
                colors.push_back(color);
        }
        PadTo4(rows);
    }
    if (colors.size() > kPaletteSize)
        throw std::invalid_argument("too many colours for a palette");

    colors.resize(kPaletteSize);
    Bytes palette;
    for (const std::uint32_t color : colors)
        AppendLittle(palette, color, 4);
    return BmpFile(image, 8, palette, rows);
}

Bytes EncodeIco(const std::vector<ArgbImage>& images)
{
    Bytes directory;
    AppendLittle(directory, 0, 2);
    AppendLittle(directory, 1, 2);
    AppendLittle(directory, static_cast<std::uint32_t>(images.size()), 2);

    Bytes pictures;
    const std::uint32_t start = kIcoHeaderSize + kIcoEntrySize * static_cast<std::uint32_t>(images.size());
    for (const ArgbImage& image : images)
    {
        const Bytes picture = image.Width() < kPngIconSize ? IconBitmap(image) : EncodePng(image);
        AppendLittle(directory, static_cast<std::uint32_t>(image.Width()), 1);
        AppendLittle(directory, static_cast<std::uint32_t>(image.Height()), 1);
        AppendLittle(directory, 0, 2);
        AppendLittle(directory, 1, 2);
        AppendLittle(directory, 32, 2);
        AppendLittle(directory, SizeOf(picture), 4);
        AppendLittle(directory, start + SizeOf(pictures), 4);
        Append(pictures, picture);
    }
    Append(directory, pictures);
    return directory;
}
