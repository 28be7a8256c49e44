#pragma once

#include "support/Pixels.h"

#include <memory>
#include <string>
#include <vector>

struct IconDestruction
{
    void operator()(HICON icon) const { ::DestroyIcon(icon); }
};

using OwnedIcon = std::unique_ptr<HICON__, IconDestruction>;

// An icon with these pixels, alpha straight.
OwnedIcon IconOf(const ArgbImage& image);

OwnedIcon IconOf(int width, int height, std::uint32_t color);

// An icon of two colours, which has no colour bitmap.
OwnedIcon MonochromeIcon(int width, int height);

bool IsIcon(HICON icon);

testing::AssertionResult HasSize(HICON icon, LONG width, LONG height);

// The rows of an icon's mask: '#' is a transparent pixel, '.' a drawn one.
std::vector<std::string> MaskOf(HICON icon);
