#pragma once

#include "../GalleryPage.h"
#include "ListDialog.h"

/// Shows a report list whose columns follow the DPI, and the widths that it records.
class CListPage : public CGalleryPage
{
public:
    explicit CListPage(const CGalleryStyle& style);

    void UpdateDpi() override;
    void ShowScene(int nScene) override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    void DrawWidth(const CCanvas& canvas, const CRect& strip, const CListDialog::Column& column);

    CListDialog m_dialog;
};
