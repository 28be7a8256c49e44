#pragma once

#include <vxdpi/Fonts.h>
#include <vxdpi/Layout.h>

/// A dialog whose controls follow its size and its DPI.
class CLayoutDialog : public CDialog
{
public:
    CLayoutDialog();

    /// Follows a new DPI; the owner gives the dialog its new size.
    void UpdateDpi(UINT nDpi);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

private:
    void FillControls();
    void UpdateFont(UINT nDpi);
    void AdjustLayout();

    CDpiLayoutManager m_layout;
    CFontDPIAware m_font;
    CSize m_designedSize96; // of the control in the middle
};
