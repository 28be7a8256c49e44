#pragma once

#include <vxdpi/Fonts.h>
#include <vxdpi/Layout.h>

/// Base of the gallery's dialogs, which follow their DPI by themselves.
class CDpiDialog : public CDialog
{
protected:
    /// @param nIDTemplate  for DoModal; 0 for a dialog that is only created.
    explicit CDpiDialog(UINT nIDTemplate = 0);

    BOOL OnInitDialog() override;

    /// Gives the dialog and all its controls a font of the designed size for a DPI.
    void UpdateFont(UINT nDpi);

private:
    CFontDPIAware m_font;
};

/// Base of the dialogs that are a part of a page: no key closes them.
class CPageDialog : public CDpiDialog
{
public:
    CPageDialog();

    /// Follows a new DPI; the owner gives the dialog its new size.
    virtual void UpdateDpi(UINT nDpi);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

    /// Registers the controls that follow the dialog's DPI: all of them, at their designed places, unless
    /// overridden. Each needs an ID of its own, labels too.
    virtual void AddControls(CDpiLayoutManager& layout);

    /// Lays the controls out.
    virtual void AdjustLayout();

private:
    CDpiLayoutManager m_layout;
    bool m_bReady; // the designed places have been captured
};
