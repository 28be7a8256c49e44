#include "Canvas.h"

#include "PageGrid.h"

#include <vxdpi/GdiPlus.h>

namespace
{
constexpr int kTitleHeight = 34;
constexpr int kPanelRadius = 6;
constexpr int kLineWidth = 1;

Gdiplus::Color ToGdiPlus(COLORREF color)
{
    return Gdiplus::Color(GetRValue(color), GetGValue(color), GetBValue(color));
}

void FillRoundedRectangle(Gdiplus::Graphics& graphics, const CRect& area, int radius, COLORREF color)
{
    const int diameter = 2 * radius;
    const int right = area.right - diameter;
    const int bottom = area.bottom - diameter;
    Gdiplus::GraphicsPath path;
    path.AddArc(area.left, area.top, diameter, diameter, 180, 90);
    path.AddArc(right, area.top, diameter, diameter, 270, 90);
    path.AddArc(right, bottom, diameter, diameter, 0, 90);
    path.AddArc(area.left, bottom, diameter, diameter, 90, 90);
    path.CloseFigure();

    const Gdiplus::SolidBrush brush(ToGdiPlus(color));
    graphics.FillPath(&brush, &path);
}
} // namespace

CScopedSelection::CScopedSelection(CDC& dc, HGDIOBJ hObject)
    : m_dc(dc), m_hPrevious(::SelectObject(dc.GetSafeHdc(), hObject))
{
}

CScopedSelection::~CScopedSelection()
{
    ::SelectObject(m_dc.GetSafeHdc(), m_hPrevious);
}

CCanvas::CCanvas(CDC& dc, const CGalleryStyle& style) : m_dc(dc), m_style(style) {}

CDC& CCanvas::Dc() const
{
    return m_dc;
}

UINT CCanvas::Dpi() const
{
    return m_style.Dpi();
}

const CGalleryStyle& CCanvas::Style() const
{
    return m_style;
}

CRect CCanvas::ToPixels(const CRect& units) const
{
    return m_style.ToPixels(units);
}

CRect CCanvas::PictureRect(const CPoint& topLeft, const CSize& size) const
{
    return CRect(CPoint(m_style.ToPixels(topLeft.x), m_style.ToPixels(topLeft.y)), m_style.ToPixels(size));
}

void CCanvas::Text(const CRect& area, LPCTSTR pszText, TextRole role, COLORREF color, UINT nFormat) const
{
    Text(area, pszText, m_style.Font(role), color, nFormat);
}

void CCanvas::Text(const CRect& area, LPCTSTR pszText, HFONT hFont, COLORREF color, UINT nFormat) const
{
    const CScopedSelection font(m_dc, hFont);
    m_dc.SetTextColor(color);
    m_dc.SetBkMode(TRANSPARENT);
    CRect pixels = ToPixels(area);
    m_dc.DrawText(pszText, -1, &pixels, nFormat | DT_NOPREFIX);
}

void CCanvas::PageTitle(const CRect& area, LPCTSTR pszTitle, LPCTSTR pszExplanation) const
{
    Text(area, pszTitle, TextRole::Title, palette::kInk, DT_LEFT | DT_SINGLELINE);
    const CRect below(area.left, area.top + kTitleHeight, area.right, area.bottom);
    Text(below, pszExplanation, TextRole::Body, palette::kMuted, DT_LEFT | DT_WORDBREAK);
}

void CCanvas::Heading(const CRect& section, LPCTSTR pszTitle, LPCTSTR pszNote) const
{
    const CRect area(section.left, section.top, section.right, section.top + grid::kHeadingHeight);
    Text(area, pszTitle, TextRole::Heading, palette::kInk, DT_LEFT | DT_SINGLELINE | DT_VCENTER);
    Text(area, pszNote, TextRole::Caption, palette::kAccent, DT_RIGHT | DT_SINGLELINE | DT_VCENTER);
    Line(area.left, area.right, area.bottom);
}

void CCanvas::Fill(const CRect& area, COLORREF color) const
{
    m_dc.FillSolidRect(ToPixels(area), color);
}

void CCanvas::Line(int left, int right, int y) const
{
    CRect pixels = ToPixels(CRect(left, y, right, y));
    pixels.bottom = pixels.top + m_style.ToPixels(kLineWidth);
    m_dc.FillSolidRect(pixels, palette::kLine);
}

void CCanvas::Frame(const CRect& area, COLORREF color) const
{
    const CRect pixels = ToPixels(area);
    const int width = m_style.ToPixels(kLineWidth); // the same on all four sides, wherever they lie
    m_dc.FillSolidRect(CRect(pixels.left, pixels.top, pixels.right, pixels.top + width), color);
    m_dc.FillSolidRect(CRect(pixels.left, pixels.bottom - width, pixels.right, pixels.bottom), color);
    m_dc.FillSolidRect(CRect(pixels.left, pixels.top, pixels.left + width, pixels.bottom), color);
    m_dc.FillSolidRect(CRect(pixels.right - width, pixels.top, pixels.right, pixels.bottom), color);
}

void CCanvas::Panel(const CRect& area, COLORREF fill, COLORREF outline) const
{
    Gdiplus::Graphics graphics(m_dc.GetSafeHdc());
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf); // edges lie between pixels
    const int width = m_style.ToPixels(kLineWidth);
    const int radius = m_style.ToPixels(kPanelRadius);
    CRect pixels = ToPixels(area);
    FillRoundedRectangle(graphics, pixels, radius, outline);
    pixels.DeflateRect(width, width);
    FillRoundedRectangle(graphics, pixels, radius - width, fill);
}
