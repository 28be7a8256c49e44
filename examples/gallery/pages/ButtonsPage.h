#pragma once

#include "../GalleryPage.h"
#include "../Snapshot.h"
#include "ToolStrip.h"

class CMessageDialog;

/// Shows what becomes of a dialog's button while another one stands in for it.
class CButtonsPage : public CGalleryPage
{
public:
    explicit CButtonsPage(const CGalleryStyle& style);

    void UpdateDpi() override;
    void ShowScene(int nScene) override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
    void PlaceChildren(const CSize& size, const CPoint& origin) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    // What was seen of the dialog, by itself or in its frame.
    struct Showing
    {
        std::vector<Snapshot> pictures; // while its button is enabled, and while it is disabled
        std::vector<CString> states;    // of the button, for each picture
        std::vector<CString> standInStates;
        CString result;
    };

    void Play();
    Showing PlayOnce(const std::function<INT_PTR(CMessageDialog& dialog)>& show);
    void DrawShowing(const CCanvas& canvas, const CRect& column, const Showing& showing);

    CToolStrip m_tools;
    Showing m_byItself;
    Showing m_inFrame;
};
