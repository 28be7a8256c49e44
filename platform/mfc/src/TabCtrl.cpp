#include "CommonControls.h"

IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)

CTabCtrl::CTabCtrl() = default;

CTabCtrl::~CTabCtrl() = default;

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CTabCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateCommonControl(*this, ICC_TAB_CLASSES, WC_TABCONTROL, dwExStyle, dwStyle, rect, pParentWnd,
                               nID);
}

void CTabCtrl::AdjustRect(BOOL bLarger, LPRECT lpRect)
{
    TabCtrl_AdjustRect(m_hWnd, bLarger, lpRect);
}

LONG CTabCtrl::InsertItem(int nItem, TCITEM* pTabCtrlItem)
{
    return TabCtrl_InsertItem(m_hWnd, nItem, pTabCtrlItem);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(TCIF_TEXT, nItem, lpszItem, 0, 0);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(TCIF_TEXT | TCIF_IMAGE, nItem, lpszItem, nImage, 0);
}

LONG CTabCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam)
{
    return InsertItem(nMask, nItem, lpszItem, nImage, lParam, 0, 0);
}

LONG CTabCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam, DWORD dwState,
                          DWORD dwStateMask)
{
    TCITEM item = {};
    item.mask = nMask;
    item.dwState = dwState;
    item.dwStateMask = dwStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(nItem, &item);
}

BOOL CTabCtrl::GetItem(int nItem, TCITEM* pTabCtrlItem) const
{
    return TabCtrl_GetItem(m_hWnd, nItem, pTabCtrlItem);
}

BOOL CTabCtrl::SetItem(int nItem, TCITEM* pTabCtrlItem)
{
    return TabCtrl_SetItem(m_hWnd, nItem, pTabCtrlItem);
}

BOOL CTabCtrl::DeleteItem(int nItem)
{
    return TabCtrl_DeleteItem(m_hWnd, nItem);
}

BOOL CTabCtrl::DeleteAllItems()
{
    return TabCtrl_DeleteAllItems(m_hWnd);
}

int CTabCtrl::GetItemCount() const
{
    return TabCtrl_GetItemCount(m_hWnd);
}

int CTabCtrl::GetRowCount() const
{
    return TabCtrl_GetRowCount(m_hWnd);
}

BOOL CTabCtrl::GetItemRect(int nItem, LPRECT lpRect) const
{
    return TabCtrl_GetItemRect(m_hWnd, nItem, lpRect);
}

DWORD CTabCtrl::GetItemState(int nItem, DWORD dwMask) const
{
    TCITEM item = {};
    item.mask = TCIF_STATE;
    item.dwStateMask = dwMask;
    return GetItem(nItem, &item) ? item.dwState & dwMask : 0;
}

BOOL CTabCtrl::SetItemState(int nItem, DWORD dwMask, DWORD dwState)
{
    TCITEM item = {};
    item.mask = TCIF_STATE;
    item.dwState = dwState;
    item.dwStateMask = dwMask;
    return SetItem(nItem, &item);
}

BOOL CTabCtrl::SetItemExtra(int nBytes)
{
    return TabCtrl_SetItemExtra(m_hWnd, nBytes);
}

CSize CTabCtrl::SetItemSize(CSize size)
{
    const auto previous = Send<DWORD>(*this, TCM_SETITEMSIZE, 0, MAKELPARAM(size.cx, size.cy));
    return CSize(LOWORD(previous), HIWORD(previous));
}

void CTabCtrl::SetPadding(CSize size)
{
    TabCtrl_SetPadding(m_hWnd, size.cx, size.cy);
}

int CTabCtrl::SetMinTabWidth(int cx)
{
    return TabCtrl_SetMinTabWidth(m_hWnd, cx);
}

int CTabCtrl::GetCurSel() const
{
    return TabCtrl_GetCurSel(m_hWnd);
}

int CTabCtrl::SetCurSel(int nItem)
{
    return TabCtrl_SetCurSel(m_hWnd, nItem);
}

int CTabCtrl::GetCurFocus() const
{
    return TabCtrl_GetCurFocus(m_hWnd);
}

void CTabCtrl::SetCurFocus(int nItem)
{
    TabCtrl_SetCurFocus(m_hWnd, nItem);
}

DWORD CTabCtrl::GetExtendedStyle()
{
    return TabCtrl_GetExtendedStyle(m_hWnd);
}

DWORD CTabCtrl::SetExtendedStyle(DWORD dwNewStyle, DWORD dwExMask)
{
    return Send<DWORD>(*this, TCM_SETEXTENDEDSTYLE, dwExMask, dwNewStyle);
}

int CTabCtrl::HitTest(TCHITTESTINFO* pHitTestInfo) const
{
    return TabCtrl_HitTest(m_hWnd, pHitTestInfo);
}

BOOL CTabCtrl::HighlightItem(int idItem, BOOL fHighlight)
{
    return TabCtrl_HighlightItem(m_hWnd, idItem, fHighlight);
}

void CTabCtrl::DeselectAll(BOOL fExcludeFocus)
{
    TabCtrl_DeselectAll(m_hWnd, fExcludeFocus);
}

CImageList* CTabCtrl::GetImageList() const
{
    return CImageList::FromHandle(TabCtrl_GetImageList(m_hWnd));
}

CImageList* CTabCtrl::SetImageList(CImageList* pImageList)
{
    return CImageList::FromHandle(TabCtrl_SetImageList(m_hWnd, pImageList->GetSafeHandle()));
}

void CTabCtrl::RemoveImage(int nImage)
{
    TabCtrl_RemoveImage(m_hWnd, nImage);
}

void CTabCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CTabCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectDrawItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
