#pragma once

#include <vxdpi/Controls.h>

/// A dialog with a button that is enabled only at times, shown by itself or in a scrolling frame.
class CMessageDialog : public CDialog
{
public:
    CMessageDialog();

    /// Shows the dialog in a scrolling frame and returns when it has been closed.
    /// @return IDOK or IDCANCEL; 0 when the frame can't be shown.
    INT_PTR ShowInFrame();

    /// @return how often the message was sent.
    int SentCount() const;

    const CButton& SendButton() const;
    CWnd* ReadBox() const;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnRead();
    DECLARE_MESSAGE_MAP()

private:
    CRealButton m_send;
    CRealButton m_cancel;
    bool m_bInFrame;
    int m_nSent;
};
