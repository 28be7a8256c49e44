#include "ScreenMap.h"

#include <algorithm>

namespace
{
constexpr COLORREF kBezelColor = RGB(30, 41, 59);
constexpr COLORREF kTaskBarColor = RGB(148, 163, 184);
} // namespace

ScreenMap::ScreenMap(const CRect& screen, const CRect& box) : m_screen(screen)
{
    // An empty part of the screen must not lead to a division by 0.
    m_screen.right = (std::max)(m_screen.right, m_screen.left + 1);
    m_screen.bottom = (std::max)(m_screen.bottom, m_screen.top + 1);
    CSize size(box.Width(), ::MulDiv(box.Width(), m_screen.Height(), m_screen.Width()));
    if (size.cy > box.Height())
        size = CSize(::MulDiv(box.Height(), m_screen.Width(), m_screen.Height()), box.Height());
    m_area = CRect(box.TopLeft(), size);
}

CRect ScreenMap::Area() const
{
    return m_area;
}

CRect ScreenMap::Place(const CRect& rect) const
{
    return CRect(Place(rect.TopLeft()), Place(rect.BottomRight()));
}

CPoint ScreenMap::Place(const CPoint& point) const
{
    return CPoint(m_area.left + ::MulDiv(point.x - m_screen.left, m_area.Width(), m_screen.Width()),
                  m_area.top + ::MulDiv(point.y - m_screen.top, m_area.Height(), m_screen.Height()));
}

void DrawMonitorsOnMap(const CCanvas& canvas, const ScreenMap& map, const std::vector<MONITORINFO>& monitors)
{
    // All bezels first: that of a monitor reaches into its neighbour.
    for (const MONITORINFO& monitor : monitors)
    {
        CRect bezel = map.Place(monitor.rcMonitor);
        bezel.InflateRect(kMapBezel, kMapBezel);
        canvas.Panel(bezel, kBezelColor, kBezelColor);
    }
    for (const MONITORINFO& monitor : monitors)
    {
        const CRect area = map.Place(monitor.rcMonitor);
        canvas.Fill(area, kTaskBarColor);
        canvas.Fill(map.Place(monitor.rcWork), palette::kAccentPale);
        canvas.Frame(area, kBezelColor);
    }
}

void DrawLegendEntry(const CCanvas& canvas, CRect& row, COLORREF color, LPCTSTR pszText)
{
    constexpr int kSwatchSize = 11;
    constexpr int kSwatchGap = 8;
    const CPoint corner(row.left, row.top + (row.Height() - kSwatchSize) / 2);
    canvas.Fill(CRect(corner, CSize(kSwatchSize, kSwatchSize)), color);
    const CRect text(row.left + kSwatchSize + kSwatchGap, row.top, row.right, row.bottom);
    canvas.Text(text, pszText, TextRole::Body, palette::kMuted, DT_LEFT | DT_SINGLELINE | DT_VCENTER);
    row.OffsetRect(0, row.Height());
}

void DrawMonitorLegend(const CCanvas& canvas, CRect& row)
{
    DrawLegendEntry(canvas, row, palette::kAccentPale, L"work area");
    DrawLegendEntry(canvas, row, kTaskBarColor, L"the rest of the monitor");
}
