#pragma once

#include "DpiDialog.h"

#include <functional>

/// The buttons of a page that shows a dialog of its own.
class CToolStrip : public CPageDialog
{
public:
    struct Commands
    {
        std::function<void()> play;
        std::function<void()> openDialog;
        std::function<void()> openFrame;
    };

    explicit CToolStrip(Commands commands);

    BOOL CreateStrip(CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnPlay();
    afx_msg void OnOpenDialog();
    afx_msg void OnOpenFrame();
    DECLARE_MESSAGE_MAP()

private:
    const Commands m_commands;
    CBrush m_background;
};
