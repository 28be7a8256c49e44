#pragma once

#include "support/ArgbImage.h"

// The pictures of the test resources, computed, so that a test can compare any pixel. Needs nothing of
// Windows.

constexpr std::uint32_t kTransparentPixel = 0x00000000;
constexpr std::uint32_t kFrameColor = 0x80ff4010;

// Transparent corners, a half-transparent frame (kFrameColor) of one pixel, inside an opaque gradient
// in which no two pixels of a row or column are alike.
ArgbImage FramedPicture(int width, int height);

// The gradient alone, opaque everywhere.
ArgbImage OpaquePicture(int width, int height);

// Cells side by side, as wide as high, each with transparent corners, the half-transparent frame and its own
// colour.
ArgbImage StripPicture(int cellCount, int cellSize);

// The opaque colour of a strip's cell, counted from 0.
std::uint32_t StripCellColor(int cell);

// One colour everywhere.
constexpr std::uint32_t kOtherColor = 0xff2060c0;

// Opaque squares of the greys and colours that a toolbar bitmap maps to the user's system colours:
// 000000, 808080, c0c0c0, ffffff, 0000ff (blue), ff00ff (magenta) from left to right in columns of cellSize
// pixels.
ArgbImage MappedColorsPicture(int cellSize);
