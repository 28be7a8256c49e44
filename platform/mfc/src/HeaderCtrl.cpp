#include "CommonControls.h"

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)

CHeaderCtrl::CHeaderCtrl() = default;

CHeaderCtrl::~CHeaderCtrl() = default;

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CHeaderCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateCommonControl(*this, ICC_LISTVIEW_CLASSES, WC_HEADER, dwExStyle, dwStyle, rect, pParentWnd,
                               nID);
}

int CHeaderCtrl::GetItemCount() const
{
    return Header_GetItemCount(m_hWnd);
}

BOOL CHeaderCtrl::GetItem(int nPos, HDITEM* pHeaderItem) const
{
    return Header_GetItem(m_hWnd, nPos, pHeaderItem);
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEM* pHeaderItem)
{
    return Header_SetItem(m_hWnd, nPos, pHeaderItem);
}

int CHeaderCtrl::InsertItem(int nPos, HDITEM* phdi)
{
    return Header_InsertItem(m_hWnd, nPos, phdi);
}

BOOL CHeaderCtrl::DeleteItem(int nPos)
{
    return Header_DeleteItem(m_hWnd, nPos);
}

BOOL CHeaderCtrl::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return Header_GetItemRect(m_hWnd, nIndex, lpRect);
}

BOOL CHeaderCtrl::Layout(HDLAYOUT* pHeaderLayout)
{
    return Header_Layout(m_hWnd, pHeaderLayout);
}

int CHeaderCtrl::OrderToIndex(int nOrder) const
{
    return Header_OrderToIndex(m_hWnd, nOrder);
}

BOOL CHeaderCtrl::GetOrderArray(LPINT piArray, int iCount)
{
    return Header_GetOrderArray(m_hWnd, iCount, piArray);
}

BOOL CHeaderCtrl::SetOrderArray(int iCount, LPINT piArray)
{
    return Header_SetOrderArray(m_hWnd, iCount, piArray);
}

int CHeaderCtrl::HitTest(LPHDHITTESTINFO phdhti)
{
    return Send(*this, HDM_HITTEST, 0, AsParam(phdhti));
}

CImageList* CHeaderCtrl::GetImageList() const
{
    return CImageList::FromHandle(Header_GetImageList(m_hWnd));
}

CImageList* CHeaderCtrl::SetImageList(CImageList* pImageList)
{
    return CImageList::FromHandle(Header_SetImageList(m_hWnd, pImageList->GetSafeHandle()));
}

CImageList* CHeaderCtrl::CreateDragImage(int nIndex)
{
    return CImageList::FromHandle(Header_CreateDragImage(m_hWnd, nIndex));
}

int CHeaderCtrl::GetBitmapMargin() const
{
    return Header_GetBitmapMargin(m_hWnd);
}

int CHeaderCtrl::SetBitmapMargin(int nWidth)
{
    return Header_SetBitmapMargin(m_hWnd, nWidth);
}

int CHeaderCtrl::SetHotDivider(CPoint pt)
{
    return Send(*this, HDM_SETHOTDIVIDER, TRUE, MAKELPARAM(pt.x, pt.y));
}

int CHeaderCtrl::SetHotDivider(int nIndex)
{
    return Send(*this, HDM_SETHOTDIVIDER, FALSE, nIndex);
}

void CHeaderCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CHeaderCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectDrawItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
