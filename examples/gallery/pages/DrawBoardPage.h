#pragma once

#include "../GalleryPage.h"

#include <vxdpi/DrawBoard.h>

/// Shows one scene, composed of many images, in areas of different proportions and in a static control.
class CDrawBoardPage : public CGalleryPage
{
public:
    explicit CDrawBoardPage(const CGalleryStyle& style);

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    int ComposeScene();

    CDrawBoard m_board;
    CStatic m_picture;
    CBrush m_panelBrush;
};
