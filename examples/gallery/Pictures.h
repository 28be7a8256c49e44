#pragma once

#include "Canvas.h"

#include <vxdpi/Png.h>

#include <utility>

/// Registers a picture's variants.
/// @param variants  of dpi_images.h: the DPIs that they are drawn for and their resource IDs.
template<size_t nCount>
void AddVariants(CDpiAwarePng& picture, const std::pair<UINT, UINT> (&variants)[nCount])
{
    for (const auto& [nDpi, nResourceId] : variants)
        picture.AddResourceForDpi(nDpi, nResourceId, {});
}

/// @return in pixels; 0 x 0 when there is no bitmap.
CSize SizeOfBitmap(HBITMAP hBitmap);

/// Draws a bitmap pixel by pixel; nothing when there is none.
/// @param corner  the left top one, in units.
void DrawBitmap(const CCanvas& canvas, HBITMAP hBitmap, const CPoint& corner);

/// Draws a part of a bitmap with each of its pixels as a square.
/// @param part  pixels of the bitmap.
/// @param target  pixels of the page.
void DrawPixels(const CCanvas& canvas, HBITMAP hBitmap, const CRect& part, const CRect& target);
