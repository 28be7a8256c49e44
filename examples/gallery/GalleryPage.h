#pragma once

#include "Canvas.h"

/// Base of the gallery's pages: a child window that draws its content off screen and scrolls it.
///
/// A page is drawn once for a size and a DPI; painting and scrolling only copy the result, without flicker.
class CGalleryPage : public CWnd
{
public:
    /// @param style  the window's fonts and measures; must outlive the page.
    /// @param designSize  in units of 1/96 inch, what the content needs; in a smaller window it scrolls.
    CGalleryPage(const CGalleryStyle& style, const CSize& designSize);

    /// Creates the page's window, empty in size, for the parent to place.
    BOOL CreatePage(CWnd* pParent);

    /// Follows a new DPI of the style.
    virtual void UpdateDpi();

    /// Tells the page that the main window was moved, or that the monitors changed.
    virtual void OnMonitorsChanged();

    /// Does what one of the page's scenes shows, see PageEntry; returns when it has been done.
    /// @param nScene  1 or more.
    virtual void ShowScene(int nScene);

    /// Saves a picture of what the page shows as a PNG file: of the whole window, unless overridden.
    /// @param nScene  0 for the page as it opens, or the scene shown last.
    /// @return whether the file was written.
    virtual bool SavePicture(int nScene, const CString& file);

protected:
    /// Draws the page on white paper.
    /// @param size  of the whole content, in units of 1/96 inch; never below the design size.
    virtual void DrawPage(const CCanvas& canvas, const CSize& size) = 0;

    /// Places the page's child windows, whenever the content's size or the DPI has changed.
    /// @param size  as for DrawPage.
    /// @param origin  of the content, in pixels of the client area.
    virtual void PlaceChildren(const CSize& size, const CPoint& origin);

    const CGalleryStyle& Style() const;

    /// Draws the content anew at the next paint.
    void Redraw();

    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    DECLARE_MESSAGE_MAP()

private:
    CSize ContentSize() const;
    CPoint ScrollPosition() const;
    void UpdateScrollBars();
    void SetScrollRange(int nBar, int nContent, int nVisible);
    int FindScrollTarget(int nBar, UINT nCode);
    void ScrollTo(int nBar, int nPosition);
    void RenderContent(CDC& screenDc);

    const CGalleryStyle& m_style;
    const CSize m_designSize;
    CSize m_contentSize; // in pixels
    CBitmap m_content;   // the drawn page, no handle while it has to be drawn anew
};
