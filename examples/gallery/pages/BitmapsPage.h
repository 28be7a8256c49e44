#pragma once

#include "../GalleryPage.h"

#include <vxdpi/Images.h>

#include <array>

/// Shows bitmaps that are loaded and scaled for the window's DPI.
class CBitmapsPage : public CGalleryPage
{
public:
    explicit CBitmapsPage(const CGalleryStyle& style);

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;

private:
    void DrawLoaded(const CCanvas& canvas, const CRect& area);
    void DrawStretched(const CCanvas& canvas, const CRect& area);
    void DrawDrawings(const CCanvas& canvas, const CRect& area);
    void DrawMapped(const CCanvas& canvas, const CRect& area);
    void UpdateBalloons();

    static constexpr size_t kDrawingCount = 4; // for 96, 120, 144 and 192 DPI
    static constexpr size_t kBalloonCount = 6;

    CDpiAwareBitmap m_map;                                 // of all drawings
    std::array<CDpiAwareBitmap, kDrawingCount> m_drawings; // one each, never scaled
    std::array<CDpiAwareBitmap, kBalloonCount> m_balloons; // in one colour each
};
