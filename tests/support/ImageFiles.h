#pragma once

#include "support/ArgbImage.h"

#include <cstdint>
#include <vector>

// Pictures as the bytes of image files, for resources, streams and files of the tests. Needs nothing of
// Windows.

using Bytes = std::vector<std::uint8_t>;

enum class PngAlpha
{
    Keep, // colour type RGBA
    Drop  // colour type RGB
};

// dpi 0 leaves the resolution out of the file.
Bytes EncodePng(const ArgbImage& image, PngAlpha alpha = PngAlpha::Keep, int dpi = 0);

// A PNG that ends in the middle of its pixels.
Bytes EncodeTruncatedPng(const ArgbImage& image);

// A PNG whose pixels do not match their checksum.
Bytes EncodeDamagedPng(const ArgbImage& image);

// A .bmp file with 24 bits per pixel, bottom-up; alpha is dropped.
Bytes EncodeBmp24(const ArgbImage& image);

// A .bmp file with 8 bits per pixel and a palette of the picture's colours. Throws when it has more than 256.
Bytes EncodeBmp8(const ArgbImage& image);

// An .ico file with the pictures in this order: 32 bits per pixel with a mask, from 256 pixels on as PNG.
Bytes EncodeIco(const std::vector<ArgbImage>& images);
