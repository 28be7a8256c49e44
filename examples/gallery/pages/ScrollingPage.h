#pragma once

#include "../GalleryPage.h"
#include "FormDialog.h"

/// Shows a form that is larger than its place, scrolled in both ways that CScrollManager knows.
class CScrollingPage : public CGalleryPage
{
public:
    explicit CScrollingPage(const CGalleryStyle& style);

    void UpdateDpi() override;
    void ShowScene(int nScene) override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    CWindowBarsForm m_windowBars;
    CBarControlsForm m_barControls;
};
