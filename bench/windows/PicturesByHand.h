#pragma once

#include <vxdpi/GdiPlus.h>

#include <memory>
#include <vector>

/// What CDpiAwarePng and CDpiAwarePngSplit ask of the platform, call by call, with sizes known beforehand and
/// without the loops over pixels.
namespace ByHand
{
std::unique_ptr<Gdiplus::Bitmap> DecodePng(UINT nResourceId);

void DrawPngInDC(HDC hdc, UINT nResourceId, UINT nSize, const RECT& rcDest);

/// Deletes the context.
void DrawPngInMetaDC(HDC hdc, UINT nResourceId, int nSize, const RECT& rcDest);

HBITMAP ScalePngResource(UINT nResourceId, UINT nSize, Gdiplus::Size& size);

std::unique_ptr<Gdiplus::Bitmap> LockPixels(UINT nResourceId);

enum class StripStyle
{
    Plain,
    Fixed,
    Disabled
};

/// The strip is one of 96 DPI.
std::vector<HICON> SplitPng(UINT nResourceId, int nCellSize, int nDpi, StripStyle style);
} // namespace ByHand
