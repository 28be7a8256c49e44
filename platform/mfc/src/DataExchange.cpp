#include <afxwin.h>

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_hLastControl(nullptr),
      m_bLastControlIsEdit(FALSE)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    const HWND hControl = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC);
    if (hControl == nullptr)
        AfxThrowNotSupportedException();
    m_hLastControl = hControl;
    m_bLastControlIsEdit = FALSE;
    return hControl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const HWND hControl = PrepareCtrl(nIDC);
    m_bLastControlIsEdit = TRUE;
    return hControl;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hLastControl != nullptr)
    {
        ::SetFocus(m_hLastControl);
        if (m_bLastControlIsEdit)
            ::SendMessage(m_hLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange(this, bSaveAndValidate);
    try
    {
        DoDataExchange(&exchange);
        return TRUE;
    }
    catch (CUserException* pException)
    {
        pException->Delete();
        return FALSE;
    }
}

void CWnd::DoDataExchange(CDataExchange*) {}
