#pragma once

#include "../GalleryPage.h"

#include <vxdpi/Png.h>

#include <afxcmn.h>

/// Shows a strip of toolbar pictures that is cut into icons and bitmaps, on a toolbar and in a list.
class CStripsPage : public CGalleryPage
{
public:
    explicit CStripsPage(const CGalleryStyle& style);

    void UpdateDpi() override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    void DrawStrip(const CCanvas& canvas, const CRect& area);
    void DrawCells(const CCanvas& canvas, const CRect& area);
    void DrawIconRow(const CCanvas& canvas, const CRect& row, LPCTSTR pszName, LPCTSTR pszNote,
                     std::vector<HICON> icons);
    bool CreateToolbar();
    bool CreateList();
    void UpdateImages();
    void UpdateFont();

    CDpiAwarePngSplit m_tools;
    CDpiAwarePng m_wholeStrip;

    // What the controls show and do not own; so they are destroyed first.
    CFont m_font;
    CImageList m_images;
    CImageList m_disabledImages;
    CToolBarCtrl m_toolbar;
    CListCtrl m_list;
};
