#pragma once

#include "Style.h"

/// Puts an object into a device context for the length of a scope.
class CScopedSelection
{
public:
    CScopedSelection(CDC& dc, HGDIOBJ hObject);
    ~CScopedSelection();

    CScopedSelection(const CScopedSelection&) = delete;
    CScopedSelection& operator=(const CScopedSelection&) = delete;

private:
    CDC& m_dc;
    HGDIOBJ m_hPrevious;
};

/// Draws a page: every position and size is in units of 1/96 inch and lands on the device's pixels.
///
/// Edges are scaled, not widths, so that things that touch at 96 DPI touch at every DPI.
class CCanvas
{
public:
    CCanvas(CDC& dc, const CGalleryStyle& style);

    CDC& Dc() const;
    UINT Dpi() const;
    const CGalleryStyle& Style() const;

    CRect ToPixels(const CRect& units) const;

    /// @return the device rectangle of a picture; its size depends on its own size alone, not on its place.
    CRect PictureRect(const CPoint& topLeft, const CSize& size) const;

    void Text(const CRect& area, LPCTSTR pszText, TextRole role, COLORREF color,
              UINT nFormat = DT_LEFT) const;
    void Text(const CRect& area, LPCTSTR pszText, HFONT hFont, COLORREF color, UINT nFormat = DT_LEFT) const;

    /// Draws the page's name and a sentence about it at the top of an area.
    void PageTitle(const CRect& area, LPCTSTR pszTitle, LPCTSTR pszExplanation) const;

    /// Draws, at the top of a section, its name, a note in small type at the right end, and a line below.
    void Heading(const CRect& section, LPCTSTR pszTitle, LPCTSTR pszNote = L"") const;

    void Fill(const CRect& area, COLORREF color) const;
    void Line(int left, int right, int y) const;

    /// Draws a frame of one unit inside the area.
    void Frame(const CRect& area, COLORREF color) const;

    /// Draws a filled box with rounded corners and a thin outline.
    void Panel(const CRect& area, COLORREF fill, COLORREF outline) const;

private:
    CDC& m_dc;
    const CGalleryStyle& m_style;
};
