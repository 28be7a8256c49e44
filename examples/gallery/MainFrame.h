#pragma once

#include "PageList.h"
#include "Pages.h"

/// The gallery's window: the list of pages at the left, the chosen page at the right.
class CMainFrame : public CFrameWnd
{
public:
    /// @param size96  of the window, in units of 1/96 inch; with a side of 0 it has the gallery's own size.
    explicit CMainFrame(const CSize& size96);

    /// Creates the window, hidden, sized for its monitor's DPI and kept within the work area.
    BOOL CreateFrame();

    /// Shows a page in place of the one before.
    /// @param nPage  index in GalleryPages().
    void ShowPage(int nPage);

    /// @return the page shown; there is one from the first ShowPage on.
    CGalleryPage& Page();

    void RecalcLayout(BOOL bNotify = TRUE) override;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg void OnMove(int x, int y);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDisplayChange(WPARAM wParam, LPARAM lParam);
    afx_msg void OnPageSelected();
    DECLARE_MESSAGE_MAP()

private:
    void PlaceInWorkArea();

    const CSize m_size96;
    CGalleryStyle m_style;
    CPageList m_pageList;
    std::unique_ptr<CGalleryPage> m_pPage;
};
