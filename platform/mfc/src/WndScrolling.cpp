#include <afxwin.h>

// Scroll bars. A control that GetScrollBarCtrl names stands for the window's own bar everywhere.

HWND CWnd::ScrollTarget(int& nBar) const
{
    if (nBar != SB_CTL)
    {
        if (const CScrollBar* const pControl = GetScrollBarCtrl(nBar))
        {
            nBar = SB_CTL;
            return pControl->m_hWnd;
        }
    }
    return m_hWnd;
}

CScrollBar* CWnd::GetScrollBarCtrl(int) const
{
    return nullptr;
}

BOOL CWnd::EnableScrollBar(int nSBFlags, UINT nArrowFlags)
{
    return ::EnableScrollBar(m_hWnd, static_cast<UINT>(nSBFlags), nArrowFlags);
}

void CWnd::ShowScrollBar(UINT nBar, BOOL bShow)
{
    ::ShowScrollBar(m_hWnd, static_cast<int>(nBar), bShow);
}

int CWnd::GetScrollPos(int nBar) const
{
    const HWND hTarget = ScrollTarget(nBar);
    return ::GetScrollPos(hTarget, nBar);
}

int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw)
{
    const HWND hTarget = ScrollTarget(nBar);
    return ::SetScrollPos(hTarget, nBar, nPos, bRedraw);
}

void CWnd::GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const
{
    const HWND hTarget = ScrollTarget(nBar);
    ::GetScrollRange(hTarget, nBar, lpMinPos, lpMaxPos);
}

void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw)
{
    const HWND hTarget = ScrollTarget(nBar);
    ::SetScrollRange(hTarget, nBar, nMinPos, nMaxPos, bRedraw);
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    const HWND hTarget = ScrollTarget(nBar);
    lpScrollInfo->cbSize = sizeof(*lpScrollInfo);
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(hTarget, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    const HWND hTarget = ScrollTarget(nBar);
    lpScrollInfo->cbSize = sizeof(*lpScrollInfo);
    ::SetScrollInfo(hTarget, nBar, lpScrollInfo, bRedraw);
    return TRUE;
}

int CWnd::GetScrollLimit(int nBar)
{
    SCROLLINFO info = {};
    if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE))
        return 0;
    const int nPage = static_cast<int>(info.nPage);
    return nPage > 1 ? info.nMax - (nPage - 1) : info.nMax;
}

void CWnd::ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect, LPCRECT lpClipRect)
{
    ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect);
}

int CWnd::ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                         LPRECT lpRectUpdate, UINT flags)
{
    const HRGN hUpdate = static_cast<HRGN>(prgnUpdate->GetSafeHandle());
    return ::ScrollWindowEx(m_hWnd, dx, dy, lpRectScroll, lpRectClip, hUpdate, lpRectUpdate, flags);
}
