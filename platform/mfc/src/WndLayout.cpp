#include <afxpriv.h>
#include <afxwin.h>

#include <algorithm>

#include "WindowRelations.h"

namespace
{

constexpr UINT kPlaceOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;

// Where an interval of the given length starts that is centered on another one and kept inside a third; one
// that is too long starts where the third starts.
int CenteredStart(int nLength, int nOwnerFirst, int nOwnerLast, int nFirst, int nLast)
{
    const int nCentered = (nOwnerFirst + nOwnerLast - nLength) / 2;
    return (std::max)((std::min)(nCentered, nLast - nLength), nFirst);
}

CRect WorkAreaOf(HWND hWnd)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    ::GetMonitorInfo(::MonitorFromWindow(hWnd, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

bool IsPlaceable(HWND hOwner)
{
    const bool isWindow = hOwner != nullptr && hOwner != ::GetDesktopWindow();
    return isWindow && ::IsWindowVisible(hOwner) && !::IsIconic(hOwner);
}

// The children of an ID range take their space from the rectangle, each in its own way.
void OfferSpaceToBars(HWND hParent, UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver,
                      AFX_SIZEPARENTPARAMS& layout)
{
    for (HWND hChild = ::GetTopWindow(hParent); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        const UINT nID = LOWORD(::GetDlgCtrlID(hChild));
        if (nID != nIDLeftOver && nID >= nIDFirst && nID <= nIDLast)
            ::SendMessage(hChild, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    }
}

} // namespace

void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType)
{
    ::AdjustWindowRectEx(lpClientRect, GetStyle(), FALSE, GetExStyle());
    if (nAdjustType != adjustOutside)
        return;
    if (GetStyle() & WS_VSCROLL)
        lpClientRect->right += ::GetSystemMetrics(SM_CXVSCROLL);
    if (GetStyle() & WS_HSCROLL)
        lpClientRect->bottom += ::GetSystemMetrics(SM_CYHSCROLL);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const HWND hRelative = vxmfc::ParentOrOwner(m_hWnd);
    const HWND hOwner = pAlternateOwner == nullptr ? hRelative : pAlternateOwner->m_hWnd;
    CRect area;
    CRect ownerRect;
    if (vxmfc::IsChildWindow(m_hWnd))
    {
        ::GetClientRect(hRelative, &area);
        ::GetClientRect(hOwner, &ownerRect);
        ::MapWindowPoints(hOwner, hRelative, reinterpret_cast<LPPOINT>(&ownerRect), 2);
    }
    else
    {
        area = WorkAreaOf(hOwner == nullptr ? m_hWnd : hOwner);
        ownerRect = area;
        if (IsPlaceable(hOwner))
            ::GetWindowRect(hOwner, &ownerRect);
    }

    CRect rect;
    GetWindowRect(&rect);
    const int x = CenteredStart(rect.Width(), ownerRect.left, ownerRect.right, area.left, area.right);
    const int y = CenteredStart(rect.Height(), ownerRect.top, ownerRect.bottom, area.top, area.bottom);
    ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, kPlaceOnly);
}

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag, LPRECT lpRectParam,
                          LPCRECT lpRectClient, BOOL bStretch)
{
    AFX_SIZEPARENTPARAMS layout = {};
    layout.bStretch = bStretch;
    if (lpRectClient != nullptr)
        layout.rect = *lpRectClient;
    else
        GetClientRect(&layout.rect);
    if (nFlag != reposQuery)
        layout.hDWP = ::BeginDeferWindowPos(8);
    OfferSpaceToBars(m_hWnd, nIDFirst, nIDLast, nIDLeftOver, layout);
    if (layout.hDWP != nullptr)
        ::EndDeferWindowPos(layout.hDWP);

    if (nFlag == reposQuery)
    {
        *lpRectParam = layout.rect;
        return;
    }
    CRect rest = layout.rect;
    if (nFlag == reposExtra)
        rest.DeflateRect(lpRectParam);
    const HWND hLeftOver = nIDLeftOver == 0 ? nullptr : ::GetDlgItem(m_hWnd, static_cast<int>(nIDLeftOver));
    if (hLeftOver != nullptr)
    {
        ::SetWindowPos(hLeftOver, nullptr, rest.left, rest.top, rest.Width(), rest.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
}
