#include <afxwin.h>

namespace
{

constexpr UINT kNoCommand = 0xFFFF; // the low word of the ID of static text and of popup menus

bool IsButton(const CWnd& control)
{
    return (::SendMessage(control.m_hWnd, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
}

} // namespace

CCmdUI::CCmdUI()
    : m_nID(0), m_nIndex(0), m_pMenu(nullptr), m_pOther(nullptr), m_bContinueRouting(FALSE),
      m_bEnableChanged(FALSE)
{
}

CCmdUI::~CCmdUI() = default;

void CCmdUI::Enable(BOOL bOn)
{
    m_bEnableChanged = TRUE;
    if (m_pMenu != nullptr)
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_GRAYED));
    else if (m_pOther != nullptr)
        m_pOther->EnableWindow(bOn);
}

void CCmdUI::SetCheck(int nCheck)
{
    if (m_pMenu != nullptr)
        m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
    else if (m_pOther != nullptr && IsButton(*m_pOther))
        m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
}

void CCmdUI::SetRadio(BOOL bOn)
{
    SetCheck(bOn ? 1 : 0);
    if (m_pMenu != nullptr && bOn)
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
}

void CCmdUI::SetText(LPCTSTR lpszText)
{
    if (m_pMenu != nullptr)
    {
        MENUITEMINFO info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_STRING;
        info.dwTypeData = const_cast<LPTSTR>(lpszText);
        m_pMenu->SetMenuItemInfo(m_nIndex, &info, TRUE);
    }
    else if (m_pOther != nullptr)
    {
        m_pOther->SetWindowText(lpszText);
    }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    if (m_nID == 0 || LOWORD(m_nID) == kNoCommand)
        return TRUE;

    m_bEnableChanged = FALSE;
    const BOOL handled = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged)
    {
        AFX_CMDHANDLERINFO info = {};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, nullptr, &info));
    }
    return handled;
}

void CCmdUI::ContinueRouting()
{
    m_bContinueRouting = TRUE;
}
