#include <afxwin.h>

#include "WindowRelations.h"

namespace vxmfc
{

bool IsChildWindow(HWND hWnd)
{
    return (::GetWindowLongPtr(hWnd, GWL_STYLE) & WS_CHILD) != 0;
}

HWND ParentOrOwner(HWND hWnd)
{
    return IsChildWindow(hWnd) ? ::GetParent(hWnd) : ::GetWindow(hWnd, GW_OWNER);
}

HWND TopLevelWindow(HWND hWnd)
{
    while (const HWND hNext = ParentOrOwner(hWnd))
        hWnd = hNext;
    return hWnd;
}

} // namespace vxmfc

namespace
{

CFrameWnd* AsFrame(CWnd* pWnd)
{
    return DYNAMIC_DOWNCAST(CFrameWnd, pWnd);
}

HWND FindDescendant(HWND hParent, int nID, BOOL bOnlyPerm)
{
    const HWND hDirect = ::GetDlgItem(hParent, nID);
    if (hDirect != nullptr && (!bOnlyPerm || CWnd::FromHandlePermanent(hDirect) != nullptr))
        return hDirect;
    for (HWND hChild = ::GetTopWindow(hParent); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (const HWND hFound = FindDescendant(hChild, nID, bOnlyPerm))
            return hFound;
    }
    return nullptr;
}

void SendToDescendants(HWND hParent, const MSG& message, BOOL bDeep, BOOL bOnlyPerm)
{
    HWND hNext = nullptr;
    for (HWND hChild = ::GetTopWindow(hParent); hChild != nullptr; hChild = hNext)
    {
        hNext = ::GetWindow(hChild, GW_HWNDNEXT); // the message may end the child
        if (!bOnlyPerm || CWnd::FromHandlePermanent(hChild) != nullptr)
            ::SendMessage(hChild, message.message, message.wParam, message.lParam);
        if (bDeep)
            SendToDescendants(hChild, message, bDeep, bOnlyPerm);
    }
}

} // namespace

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* pWndNewParent)
{
    return FromHandle(::SetParent(m_hWnd, pWndNewParent->GetSafeHwnd()));
}

CWnd* CWnd::GetOwner() const
{
    return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent();
}

void CWnd::SetOwner(CWnd* pOwnerWnd)
{
    m_hWndOwner = pOwnerWnd->GetSafeHwnd();
}

CWnd* CWnd::GetParentOwner() const
{
    HWND hWnd = vxmfc::ParentOrOwner(m_hWnd);
    while (hWnd != nullptr && vxmfc::IsChildWindow(hWnd))
        hWnd = ::GetParent(hWnd);
    return FromHandle(hWnd);
}

CFrameWnd* CWnd::GetParentFrame() const
{
    for (HWND hWnd = ::GetParent(m_hWnd); hWnd != nullptr; hWnd = ::GetParent(hWnd))
    {
        if (CFrameWnd* const pFrame = AsFrame(FromHandlePermanent(hWnd)))
            return pFrame;
    }
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* pFrame = AsFrame(const_cast<CWnd*>(this));
    CFrameWnd* pNext = pFrame == nullptr ? GetParentFrame() : pFrame;
    while (pNext != nullptr)
    {
        pFrame = pNext;
        pNext = pFrame->GetParentFrame();
    }
    return pFrame;
}

CWnd* CWnd::GetTopLevelParent() const
{
    return m_hWnd == nullptr ? nullptr : FromHandle(vxmfc::TopLevelWindow(m_hWnd));
}

CWnd* CWnd::GetTopLevelOwner() const
{
    if (m_hWnd == nullptr)
        return nullptr;
    HWND hWnd = m_hWnd;
    for (;;)
    {
        const CWnd* const pWnd = FromHandlePermanent(hWnd);
        const bool hasNamedOwner = pWnd != nullptr && pWnd->m_hWndOwner != nullptr;
        const HWND hOwner = hasNamedOwner ? pWnd->m_hWndOwner : vxmfc::ParentOrOwner(hWnd);
        if (hOwner == nullptr)
            return FromHandle(hWnd);
        hWnd = hOwner;
    }
}

CWnd* CWnd::GetAncestor(UINT gaFlags) const
{
    return FromHandle(::GetAncestor(m_hWnd, gaFlags));
}

CWnd* CWnd::GetWindow(UINT nCmd) const
{
    return FromHandle(::GetWindow(m_hWnd, nCmd));
}

CWnd* CWnd::GetNextWindow(UINT nFlag) const
{
    return GetWindow(nFlag);
}

CWnd* CWnd::GetTopWindow() const
{
    return FromHandle(::GetTopWindow(m_hWnd));
}

CWnd* CWnd::GetLastActivePopup() const
{
    return FromHandle(::GetLastActivePopup(m_hWnd));
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

void CWnd::GetDlgItem(int nID, HWND* phWnd) const
{
    *phWnd = ::GetDlgItem(m_hWnd, nID);
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const
{
    return FromHandle(FindDescendant(m_hWnd, nID, bOnlyPerm));
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

int CWnd::SetDlgCtrlID(int nID)
{
    return static_cast<int>(::SetWindowLongPtr(m_hWnd, GWLP_ID, nID));
}

BOOL CWnd::IsChild(const CWnd* pWnd) const
{
    return ::IsChild(m_hWnd, pWnd->GetSafeHwnd());
}

CWnd* CWnd::ChildWindowFromPoint(POINT point) const
{
    return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
}

CWnd* CWnd::ChildWindowFromPoint(POINT point, UINT nFlags) const
{
    return FromHandle(::ChildWindowFromPointEx(m_hWnd, point, nFlags));
}

CWnd* PASCAL CWnd::WindowFromPoint(POINT point)
{
    return FromHandle(::WindowFromPoint(point));
}

CWnd* PASCAL CWnd::FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName)
{
    return FromHandle(::FindWindow(lpszClassName, lpszWindowName));
}

CWnd* CWnd::FindWindowEx(HWND hwndParent, HWND hwndChildAfter, LPCTSTR lpszClass, LPCTSTR lpszWindow)
{
    return FromHandle(::FindWindowEx(hwndParent, hwndChildAfter, lpszClass, lpszWindow));
}

CWnd* PASCAL CWnd::GetDesktopWindow()
{
    return FromHandle(::GetDesktopWindow());
}

CWnd* PASCAL CWnd::GetForegroundWindow()
{
    return FromHandle(::GetForegroundWindow());
}

BOOL CWnd::SetForegroundWindow()
{
    return ::SetForegroundWindow(m_hWnd);
}

CWnd* PASCAL CWnd::GetActiveWindow()
{
    return FromHandle(::GetActiveWindow());
}

CWnd* CWnd::SetActiveWindow()
{
    return FromHandle(::SetActiveWindow(m_hWnd));
}

CWnd* PASCAL CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* CWnd::SetFocus()
{
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* PASCAL CWnd::GetCapture()
{
    return FromHandle(::GetCapture());
}

CWnd* CWnd::SetCapture()
{
    return FromHandle(::SetCapture(m_hWnd));
}

CWnd* CWnd::GetSafeOwner(CWnd* pParent, HWND* pWndTop)
{
    HWND hOwner = pParent->GetSafeHwnd();
    if (hOwner == nullptr)
        hOwner = ::GetLastActivePopup(AfxGetMainWnd()->GetSafeHwnd());
    while (hOwner != nullptr && vxmfc::IsChildWindow(hOwner))
        hOwner = ::GetParent(hOwner);
    if (pWndTop != nullptr)
        *pWndTop = hOwner == nullptr ? nullptr : vxmfc::TopLevelWindow(hOwner);
    return FromHandle(hOwner);
}

void CWnd::ShowOwnedPopups(BOOL bShow)
{
    ::ShowOwnedPopups(m_hWnd, bShow);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    SendToDescendants(m_hWnd, {nullptr, message, wParam, lParam, 0, {}}, bDeep, bOnlyPerm);
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd))
    {
        CWnd* const pWnd = FromHandlePermanent(hWnd);
        if (pWnd != nullptr && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (hWnd == hWndStop)
            break;
    }
    return FALSE;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    for (HWND hChild = ::GetTopWindow(m_hWnd); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        CCmdUI element;
        element.m_pOther = FromHandle(hChild);
        element.m_nID = LOWORD(::GetDlgCtrlID(hChild));
        element.DoUpdate(pTarget, bDisableIfNoHndler);
    }
}
