#pragma once

#include "Canvas.h"

#include <vector>

/// Shows a part of the screen, which may have several monitors, to scale in a box of a page.
class ScreenMap
{
public:
    /// @param screen  what the map shows, in pixels.
    /// @param box  in units; the map fills its width or its height, at its upper left corner.
    ScreenMap(const CRect& screen, const CRect& box);

    /// @return where the part of the screen lies on the page.
    CRect Area() const;

    /// @return where a rectangle of the screen lies on the page.
    CRect Place(const CRect& rect) const;

private:
    CPoint Place(const CPoint& point) const;

    CRect m_screen;
    CRect m_area;
};

/// Units that a drawn monitor reaches beyond its place on the map.
constexpr int kMapBezel = 5;

/// Draws monitors with their work areas.
void DrawMonitorsOnMap(const CCanvas& canvas, const ScreenMap& map, const std::vector<MONITORINFO>& monitors);

/// Draws a swatch of a colour and what it stands for, and goes on to the row below.
void DrawLegendEntry(const CCanvas& canvas, CRect& row, COLORREF color, LPCTSTR pszText);

/// Draws the two legend entries of DrawMonitorsOnMap.
void DrawMonitorLegend(const CCanvas& canvas, CRect& row);
