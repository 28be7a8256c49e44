#pragma once

#include "Style.h"

/// The list of pages at the left: a list box that draws its entries as calm, wide rows.
class CPageList : public CListBox
{
public:
    /// @param style  the window's fonts and measures; must outlive the list.
    explicit CPageList(const CGalleryStyle& style);

    /// Creates the list with one row per page, empty in size, for the parent to place.
    BOOL CreateList(CWnd* pParent, UINT nId);

    /// Follows a new DPI of the style.
    void UpdateDpi();

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;

protected:
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    DECLARE_MESSAGE_MAP()

private:
    const CGalleryStyle& m_style;
    CBrush m_background;
};
