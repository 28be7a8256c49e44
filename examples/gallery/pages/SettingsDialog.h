#pragma once

#include "DpiDialog.h"

#include <vxdpi/Controls.h>
#include <vxdpi/ScrollFrame.h>

/// The settings of a backup program: more than a small screen has room for.
class CSettingsDialog : public CDpiDialog
{
public:
    CSettingsDialog();

    /// Shows the dialog in a scrolling frame and returns when it has been closed.
    /// @return IDOK or IDCANCEL; 0 when the frame can't be shown.
    INT_PTR ShowInFrame();

    const CButton& CancelButton() const;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDpiChangedAfterParent(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnFocusFirst(WPARAM wParam, LPARAM lParam);
    afx_msg void OnRemove();
    afx_msg void OnDefaults();
    afx_msg void OnFieldChanged(UINT nId);
    DECLARE_MESSAGE_MAP()

private:
    void FillFields();
    void AddControls();
    void ArrangeControls();
    bool IsComplete() const;

    CRealButton m_ok;
    CRealButton m_cancel;
    CRealButton m_defaults;
    CScrollLayoutManager m_layout;
    UINT m_nDpi; // that the controls are laid out for; 0 before the first time
    bool m_bInFrame;
};
