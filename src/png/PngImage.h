#pragma once

#include "PngScale.h"

#include <vxdpi/GdiPlus.h>

/// A picture's size in device pixels.
struct PixelSize
{
    UINT width;
    UINT height;
};

inline PixelSize ScaledSize(Gdiplus::Bitmap& bitmap, float factor)
{
    const UINT nWidth = ScaledLength(bitmap.GetWidth(), factor);
    const UINT nHeight = ScaledLength(bitmap.GetHeight(), factor);
    return {nWidth, nHeight};
}

/// Tells a caller who asked for it how large a bitmap is.
inline void ReportSize(Gdiplus::Bitmap& bitmap, Gdiplus::Size* pSize)
{
    if (!pSize)
        return;
    pSize->Width = static_cast<INT>(bitmap.GetWidth());
    pSize->Height = static_cast<INT>(bitmap.GetHeight());
}
