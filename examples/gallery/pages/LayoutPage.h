#pragma once

#include "../GalleryPage.h"
#include "LayoutDialog.h"

/// Shows a dialog that fills the page and follows its size.
class CLayoutPage : public CGalleryPage
{
public:
    explicit CLayoutPage(const CGalleryStyle& style);

    void UpdateDpi() override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    CLayoutDialog m_dialog;
};
