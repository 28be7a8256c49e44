#pragma once

#include "PngScale.h"

#include <vxdpi/GdiPlus.h>

/// Name of the resource type.
constexpr wchar_t kPngType[] = L"PNG";

/// A picture's size in device pixels.
struct PixelSize
{
    UINT width;
    UINT height;
};

inline PixelSize SizeOf(Gdiplus::Bitmap& bitmap)
{
    const UINT nWidth = bitmap.GetWidth();
    const UINT nHeight = bitmap.GetHeight();
    return {nWidth, nHeight};
}

inline PixelSize ScaledSize(Gdiplus::Bitmap& bitmap, float factor)
{
    const PixelSize size = SizeOf(bitmap);
    return {ScaledLength(size.width, factor), ScaledLength(size.height, factor)};
}

/// Tells a caller who asked for it how large a bitmap is.
inline void ReportSize(Gdiplus::Bitmap& bitmap, Gdiplus::Size* pSize)
{
    if (!pSize)
        return;
    const PixelSize size = SizeOf(bitmap);
    *pSize = Gdiplus::Size(static_cast<INT>(size.width), static_cast<INT>(size.height));
}
