#include <vxdpi/Png.h>

#include "PngImage.h"

#include <memory>

Gdiplus::Bitmap* CDpiAwarePng::ScaleBitmap(Gdiplus::Bitmap* pSource, UINT nWidth, UINT nHeight)
{
    if (!pSource || nWidth == 0 || nHeight == 0)
        return nullptr;

    const INT width = static_cast<INT>(nWidth);
    const INT height = static_cast<INT>(nHeight);
    const Gdiplus::PixelFormat format = pSource->GetPixelFormat();
    std::unique_ptr<Gdiplus::Bitmap> scaled(new Gdiplus::Bitmap(width, height, format));
    if (!scaled)
        return nullptr;

    Gdiplus::Graphics graphics(scaled.get());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.DrawImage(pSource, 0, 0, width, height);
    return scaled.release();
}

HBITMAP CDpiAwarePng::ConvertToHBITMAP(Gdiplus::Bitmap* pBitmap, Gdiplus::Color background)
{
    if (!pBitmap)
        return nullptr;

    HBITMAP hBitmap = nullptr;
    pBitmap->GetHBITMAP(background, &hBitmap);
    return hBitmap;
}

Gdiplus::Bitmap* CDpiAwarePng::CombineBitmaps(Gdiplus::Bitmap* pTop, Gdiplus::Bitmap* pBottom)
{
    if (!pTop || !pBottom)
        return nullptr;

    const INT side = static_cast<INT>(SizeOf(*pTop).height);
    std::unique_ptr<Gdiplus::Bitmap> combined(new Gdiplus::Bitmap(side, side, PixelFormat32bppARGB));
    if (!combined)
        return nullptr;

    Gdiplus::Graphics graphics(combined.get());
    const PixelSize bottom = SizeOf(*pBottom);
    graphics.DrawImage(pBottom, 0, 0, static_cast<INT>(bottom.width), static_cast<INT>(bottom.height));
    graphics.DrawImage(pTop, 0, 0, side, side);
    return combined.release();
}
