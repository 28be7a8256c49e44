#include <afxwin.h>

// Functions of the platform that take a window, as members.

namespace
{

// A null object stands for "none" wherever the platform takes a handle.
HRGN HandleOf(const CRgn* pRegion)
{
    return static_cast<HRGN>(pRegion->GetSafeHandle());
}

HICON IconOf(LRESULT answer)
{
    return reinterpret_cast<HICON>(answer);
}

WPARAM IconSize(BOOL bBigIcon)
{
    return bBigIcon ? ICON_BIG : ICON_SMALL;
}

int ReadText(HWND hWnd, CString& rText)
{
    const int nLength = ::GetWindowTextLength(hWnd);
    const int nRead = ::GetWindowText(hWnd, rText.GetBuffer(nLength + 1), nLength + 1);
    rText.ReleaseBuffer(nRead);
    return nRead;
}

void SendToPrint(HWND hWnd, UINT message, CDC* pDC, DWORD dwFlags)
{
    const auto wParam = reinterpret_cast<WPARAM>(pDC->GetSafeHdc());
    ::SendMessage(hWnd, message, wParam, static_cast<LPARAM>(dwFlags));
}

BOOL ChangeStyle(HWND hWnd, int nIndex, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const DWORD dwOld = static_cast<DWORD>(::GetWindowLongPtr(hWnd, nIndex));
    const DWORD dwNew = (dwOld & ~dwRemove) | dwAdd;
    if (dwNew == dwOld)
        return FALSE;
    ::SetWindowLongPtr(hWnd, nIndex, static_cast<LONG_PTR>(dwNew));
    constexpr UINT kKeepPlace = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, nFlags | kKeepPlace);
    return TRUE;
}

} // namespace

CWnd::operator HWND() const
{
    return GetSafeHwnd();
}

BOOL CWnd::operator==(const CWnd& wnd) const
{
    return m_hWnd == wnd.m_hWnd;
}

BOOL CWnd::operator!=(const CWnd& wnd) const
{
    return m_hWnd != wnd.m_hWnd;
}

HWND CWnd::GetSafeHwnd() const
{
    return this == nullptr ? nullptr : m_hWnd;
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_EXSTYLE));
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ChangeStyle(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ChangeStyle(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    return ::EnableWindow(m_hWnd, bEnable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    return ::ShowWindow(m_hWnd, nCmdShow);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::IsZoomed() const
{
    return ::IsZoomed(m_hWnd);
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    const CRect rect(lpRect);
    MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    return ::SetWindowPos(m_hWnd, pWndInsertAfter->GetSafeHwnd(), x, y, cx, cy, nFlags);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const
{
    lpwndpl->length = sizeof(*lpwndpl);
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl)
{
    WINDOWPLACEMENT placement = *lpwndpl;
    placement.length = sizeof(placement);
    return ::SetWindowPlacement(m_hWnd, &placement);
}

void CWnd::BringWindowToTop()
{
    ::BringWindowToTop(m_hWnd);
}

void CWnd::GetWindowRect(LPRECT lpRect) const
{
    ::GetWindowRect(m_hWnd, lpRect);
}

void CWnd::GetClientRect(LPRECT lpRect) const
{
    ::GetClientRect(m_hWnd, lpRect);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const
{
    ::ClientToScreen(m_hWnd, lpPoint);
}

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    MapWindowPoints(nullptr, lpRect);
}

void CWnd::ScreenToClient(LPPOINT lpPoint) const
{
    ::ScreenToClient(m_hWnd, lpPoint);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const
{
    ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const
{
    ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), lpPoint, nCount);
}

int CWnd::SetWindowRgn(HRGN hRgn, BOOL bRedraw)
{
    return ::SetWindowRgn(m_hWnd, hRgn, bRedraw);
}

int CWnd::GetWindowRgn(HRGN hRgn) const
{
    return ::GetWindowRgn(m_hWnd, hRgn);
}

BOOL CWnd::SetLayeredWindowAttributes(COLORREF crKey, BYTE bAlpha, DWORD dwFlags)
{
    return ::SetLayeredWindowAttributes(m_hWnd, crKey, bAlpha, dwFlags);
}

BOOL CWnd::GetWindowInfo(PWINDOWINFO pwi) const
{
    return ::GetWindowInfo(m_hWnd, pwi);
}

BOOL CWnd::FlashWindow(BOOL bInvert)
{
    return ::FlashWindow(m_hWnd, bInvert);
}

void CWnd::SetWindowText(LPCTSTR lpszString)
{
    ::SetWindowText(m_hWnd, lpszString);
}

int CWnd::GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const
{
    return ::GetWindowText(m_hWnd, lpszStringBuf, nMaxCount);
}

void CWnd::GetWindowText(CString& rString) const
{
    ReadText(m_hWnd, rString);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLength(m_hWnd);
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont->GetSafeHandle()), bRedraw);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessage(m_hWnd, WM_GETFONT, 0, 0)));
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon)
{
    return IconOf(SendMessage(WM_SETICON, IconSize(bBigIcon), reinterpret_cast<LPARAM>(hIcon)));
}

HICON CWnd::GetIcon(BOOL bBigIcon) const
{
    return IconOf(::SendMessage(m_hWnd, WM_GETICON, IconSize(bBigIcon), 0));
}

CMenu* CWnd::GetMenu() const
{
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

BOOL CWnd::SetMenu(CMenu* pMenu)
{
    return ::SetMenu(m_hWnd, pMenu->GetSafeHmenu());
}

CMenu* CWnd::GetSystemMenu(BOOL bRevert) const
{
    return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert));
}

void CWnd::DrawMenuBar()
{
    ::DrawMenuBar(m_hWnd);
}

CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint)
{
    return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint));
}

void CWnd::EndPaint(LPPAINTSTRUCT lpPaint)
{
    ::EndPaint(m_hWnd, lpPaint);
}

CDC* CWnd::GetDC()
{
    return CDC::FromHandle(::GetDC(m_hWnd));
}

CDC* CWnd::GetWindowDC()
{
    return CDC::FromHandle(::GetWindowDC(m_hWnd));
}

CDC* CWnd::GetDCEx(CRgn* prgnClip, DWORD flags)
{
    return CDC::FromHandle(::GetDCEx(m_hWnd, HandleOf(prgnClip), flags));
}

int CWnd::ReleaseDC(CDC* pDC)
{
    return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc());
}

void CWnd::UpdateWindow()
{
    ::UpdateWindow(m_hWnd);
}

void CWnd::SetRedraw(BOOL bRedraw)
{
    SendMessage(WM_SETREDRAW, static_cast<WPARAM>(bRedraw));
}

BOOL CWnd::GetUpdateRect(LPRECT lpRect, BOOL bErase)
{
    return ::GetUpdateRect(m_hWnd, lpRect, bErase);
}

int CWnd::GetUpdateRgn(CRgn* pRgn, BOOL bErase)
{
    return ::GetUpdateRgn(m_hWnd, HandleOf(pRgn), bErase);
}

void CWnd::Invalidate(BOOL bErase)
{
    ::InvalidateRect(m_hWnd, nullptr, bErase);
}

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase)
{
    ::InvalidateRect(m_hWnd, lpRect, bErase);
}

void CWnd::InvalidateRgn(CRgn* pRgn, BOOL bErase)
{
    ::InvalidateRgn(m_hWnd, HandleOf(pRgn), bErase);
}

void CWnd::ValidateRect(LPCRECT lpRect)
{
    ::ValidateRect(m_hWnd, lpRect);
}

void CWnd::ValidateRgn(CRgn* pRgn)
{
    ::ValidateRgn(m_hWnd, HandleOf(pRgn));
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags)
{
    return ::RedrawWindow(m_hWnd, lpRectUpdate, HandleOf(prgnUpdate), flags);
}

BOOL CWnd::LockWindowUpdate()
{
    return ::LockWindowUpdate(m_hWnd);
}

void CWnd::UnlockWindowUpdate()
{
    ::LockWindowUpdate(nullptr);
}

void CWnd::Print(CDC* pDC, DWORD dwFlags) const
{
    SendToPrint(m_hWnd, WM_PRINT, pDC, dwFlags);
}

void CWnd::PrintClient(CDC* pDC, DWORD dwFlags) const
{
    SendToPrint(m_hWnd, WM_PRINTCLIENT, pDC, dwFlags);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendNotifyMessage(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendDlgItemMessage(m_hWnd, nID, message, wParam, lParam);
}

BOOL CWnd::IsDialogMessage(LPMSG lpMsg)
{
    return ::IsDialogMessage(m_hWnd, lpMsg);
}

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse,
                        void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD))
{
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent)
{
    return ::KillTimer(m_hWnd, nIDEvent);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    return ::MessageBox(m_hWnd, lpszText, lpszCaption, nType);
}

void CWnd::DragAcceptFiles(BOOL bAccept)
{
    ::DragAcceptFiles(m_hWnd, bAccept);
}

void CWnd::CreateSolidCaret(int nWidth, int nHeight)
{
    ::CreateCaret(m_hWnd, nullptr, nWidth, nHeight);
}

void CWnd::ShowCaret()
{
    ::ShowCaret(m_hWnd);
}

void CWnd::HideCaret()
{
    ::HideCaret(m_hWnd);
}

CPoint PASCAL CWnd::GetCaretPos()
{
    CPoint point;
    ::GetCaretPos(&point);
    return point;
}

void PASCAL CWnd::SetCaretPos(POINT point)
{
    ::SetCaretPos(point.x, point.y);
}

BOOL CWnd::OpenClipboard()
{
    return ::OpenClipboard(m_hWnd);
}

void CWnd::CheckDlgButton(int nIDButton, UINT nCheck)
{
    ::CheckDlgButton(m_hWnd, nIDButton, nCheck);
}

UINT CWnd::IsDlgButtonChecked(int nIDButton) const
{
    return ::IsDlgButtonChecked(m_hWnd, nIDButton);
}

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
{
    ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton)
{
    for (int nID = nIDFirstButton; nID <= nIDLastButton; ++nID)
    {
        if (IsDlgButtonChecked(nID) != BST_UNCHECKED)
            return nID;
    }
    return 0;
}

int CWnd::GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const
{
    return static_cast<int>(::GetDlgItemText(m_hWnd, nID, lpStr, nMaxCount));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    return ReadText(::GetDlgItem(m_hWnd, nID), rString);
}

void CWnd::SetDlgItemText(int nID, LPCTSTR lpszString)
{
    ::SetDlgItemText(m_hWnd, nID, lpszString);
}

UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const
{
    return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned)
{
    ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const
{
    return FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
}

CWnd* CWnd::GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious) const
{
    return FromHandle(::GetNextDlgGroupItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious));
}
