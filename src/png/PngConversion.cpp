#include <vxdpi/Png.h>

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

    static_cast<void>(pTop->GetWidth()); // asked by contract; the square takes its side from the height alone
    const INT side = static_cast<INT>(pTop->GetHeight());
    std::unique_ptr<Gdiplus::Bitmap> combined(new Gdiplus::Bitmap(side, side, PixelFormat32bppARGB));
    if (!combined)
        return nullptr;

    Gdiplus::Graphics graphics(combined.get());
    const INT bottomWidth = static_cast<INT>(pBottom->GetWidth());
    const INT bottomHeight = static_cast<INT>(pBottom->GetHeight());
    graphics.DrawImage(pBottom, 0, 0, bottomWidth, bottomHeight);
    graphics.DrawImage(pTop, 0, 0, side, side);
    return combined.release();
}
