#pragma once

#include "../GalleryPage.h"

#include <vxdpi/Png.h>

/// Shows PNG pictures that are drawn, recoloured and combined at the window's DPI.
class CPngPage : public CGalleryPage
{
public:
    explicit CPngPage(const CGalleryStyle& style);

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;

private:
    void DrawVariants(const CCanvas& canvas, const CRect& area);
    void DrawRecoloured(const CCanvas& canvas, const CRect& area);
    void DrawCombined(const CCanvas& canvas, const CRect& area);
    void DrawPart(const CCanvas& canvas, const CRect& area);
    void DrawAsBitmap(const CCanvas& canvas, const CRect& area);
    void DrawBlended(const CCanvas& canvas, const CRect& area);
    void UpdateBlended(const CCanvas& canvas);

    CDpiAwarePng m_desktop;
    CDpiAwarePng m_desktop96Only;
    CDpiAwarePng m_compass;
    CDpiAwarePng m_landscape;
    CDpiAwarePng m_badge;
    CDpiAwarePng m_bell;
    CDpiAwarePng m_gear;

    CBitmap m_blended; // what AlphaBlend drew, at m_nBlendedDpi
    UINT m_nBlendedDpi = 0;
};
