#pragma once

#include "Canvas.h"

/// A picture, what it is, and a few of its pixels at the finest DPI so large that each can be seen.
namespace sample
{
const CSize kPictureSize(64, 64); // units; the picture stands at the left top corner of the sample
constexpr int kHeight = 150;

// The detail is taken from the picture at the finest DPI, where the difference is largest.
constexpr UINT kDetailDpi = 192;
constexpr int kDetailPictureSide = 128; // pixels of the whole picture at that DPI

/// Draws all but the picture itself, which is to be drawn before.
/// @param hFinest  the picture at kDetailDpi.
void DrawDescription(const CCanvas& canvas, const CRect& area, HBITMAP hFinest, LPCTSTR pszTitle,
                     LPCTSTR pszExplanation);
} // namespace sample
