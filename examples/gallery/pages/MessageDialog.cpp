#include "MessageDialog.h"

#include "../resource.h"
#include "FrameParts.h"

#include <vxdpi/ScrollFrame.h>

BEGIN_MESSAGE_MAP(CMessageDialog, CDialog)
    ON_BN_CLICKED(IDC_MESSAGE_READ, &CMessageDialog::OnRead)
END_MESSAGE_MAP()

CMessageDialog::CMessageDialog() : CDialog(IDD_MESSAGE), m_bInFrame(false), m_nSent(0) {}

INT_PTR CMessageDialog::ShowInFrame()
{
    m_bInFrame = true;
    const INT_PTR nResult =
        ::CreateScrollFrame(IDD_MESSAGE, *this, {{&m_cancel, IDCANCEL}, {&m_send, IDOK}}, 0);
    m_bInFrame = false;
    m_send.SetProxyButton(nullptr); // the stand-ins have gone with the frame
    m_cancel.SetProxyButton(nullptr);
    return nResult;
}

int CMessageDialog::SentCount() const
{
    return m_nSent;
}

const CButton& CMessageDialog::SendButton() const
{
    return m_send;
}

CWnd* CMessageDialog::ReadBox() const
{
    return GetDlgItem(IDC_MESSAGE_READ);
}

void CMessageDialog::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDOK, m_send);
    DDX_Control(pDX, IDCANCEL, m_cancel);
}

BOOL CMessageDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetGalleryIcon(*this);
    CheckDlgButton(IDC_MESSAGE_READ, BST_CHECKED);
    if (m_bInFrame)
        GrowForFrame(*this);
    return TRUE;
}

void CMessageDialog::OnRead()
{
    m_send.EnableWindow(IsDlgButtonChecked(IDC_MESSAGE_READ) == BST_CHECKED);
}

void CMessageDialog::OnOK()
{
    ++m_nSent;
    EndModal(*this, IDOK);
}

void CMessageDialog::OnCancel()
{
    EndModal(*this, IDCANCEL);
}
