#include "CommonControls.h"

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

namespace
{
constexpr int kFirstTextSize = 128; // characters

// Check boxes are the first two state images.
constexpr int kUncheckedStateImage = 1;
constexpr int kCheckedStateImage = 2;

// A null position ends a walk through the items, so positions are numbered from 1.
POSITION PositionOf(int nItem)
{
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(nItem) + 1);
}

int ItemAt(POSITION position)
{
    return static_cast<int>(reinterpret_cast<INT_PTR>(position) - 1);
}

LVITEM DescribeItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                    UINT nStateMask, LPARAM lParam)
{
    LVITEM item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return item;
}
} // namespace

CListCtrl::CListCtrl() = default;

CListCtrl::~CListCtrl() = default;

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CListCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateCommonControl(*this, ICC_LISTVIEW_CLASSES, WC_LISTVIEW, dwExStyle, dwStyle, rect, pParentWnd,
                               nID);
}

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn)
{
    return ListView_InsertColumn(m_hWnd, nCol, pColumn);
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1)
    {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1)
    {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::DeleteColumn(int nCol)
{
    return ListView_DeleteColumn(m_hWnd, nCol);
}

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const
{
    return ListView_GetColumn(m_hWnd, nCol, pColumn);
}

BOOL CListCtrl::SetColumn(int nCol, const LVCOLUMN* pColumn)
{
    return ListView_SetColumn(m_hWnd, nCol, pColumn);
}

int CListCtrl::GetColumnWidth(int nCol) const
{
    return ListView_GetColumnWidth(m_hWnd, nCol);
}

BOOL CListCtrl::SetColumnWidth(int nCol, int cx)
{
    return Send<BOOL>(*this, LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0));
}

BOOL CListCtrl::GetColumnOrderArray(LPINT piArray, int iCount)
{
    const int nColumns = iCount == -1 ? Header_GetItemCount(ListView_GetHeader(m_hWnd)) : iCount;
    return ListView_GetColumnOrderArray(m_hWnd, nColumns, piArray);
}

BOOL CListCtrl::SetColumnOrderArray(int iCount, LPINT piArray)
{
    return ListView_SetColumnOrderArray(m_hWnd, iCount, piArray);
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl()
{
    return static_cast<CHeaderCtrl*>(CWnd::FromHandle(ListView_GetHeader(m_hWnd)));
}

UINT CListCtrl::GetSelectedColumn() const
{
    return ListView_GetSelectedColumn(m_hWnd);
}

LRESULT CListCtrl::SetSelectedColumn(int iCol)
{
    return Send<LRESULT>(*this, LVM_SETSELECTEDCOLUMN, iCol);
}

int CListCtrl::InsertItem(const LVITEM* pItem)
{
    return ListView_InsertItem(m_hWnd, pItem);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    const LVITEM item = DescribeItem(nItem, 0, nMask, lpszItem, nImage, nState, nStateMask, lParam);
    return InsertItem(&item);
}

BOOL CListCtrl::DeleteItem(int nItem)
{
    return ListView_DeleteItem(m_hWnd, nItem);
}

BOOL CListCtrl::DeleteAllItems()
{
    return ListView_DeleteAllItems(m_hWnd);
}

int CListCtrl::GetItemCount() const
{
    return ListView_GetItemCount(m_hWnd);
}

void CListCtrl::SetItemCount(int nItems)
{
    ListView_SetItemCount(m_hWnd, nItems);
}

BOOL CListCtrl::SetItemCountEx(int iCount, DWORD dwFlags)
{
    return Send<BOOL>(*this, LVM_SETITEMCOUNT, iCount, dwFlags);
}

BOOL CListCtrl::GetItem(LVITEM* pItem) const
{
    return ListView_GetItem(m_hWnd, pItem);
}

BOOL CListCtrl::SetItem(const LVITEM* pItem)
{
    return ListView_SetItem(m_hWnd, pItem);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam)
{
    return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam, int nIndent)
{
    LVITEM item = DescribeItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam);
    item.iIndent = nIndent;
    return SetItem(&item);
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    return Send(*this, LVM_GETITEMTEXT, nItem, AsParam(&item));
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    // The control does not tell the length: a full buffer may mean that there is more.
    CString text;
    int nSize = kFirstTextSize;
    while (GetItemText(nItem, nSubItem, text.GetBuffer(nSize), nSize) >= nSize - 1)
    {
        text.ReleaseBuffer();
        nSize *= 2;
    }
    text.ReleaseBuffer();
    return text;
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    LVITEM item = {};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return Send<BOOL>(*this, LVM_SETITEMTEXT, nItem, AsParam(&item));
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const
{
    return ListView_GetItemState(m_hWnd, nItem, nMask);
}

BOOL CListCtrl::SetItemState(int nItem, LVITEM* pItem)
{
    return Send<BOOL>(*this, LVM_SETITEMSTATE, nItem, AsParam(pItem));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEM item = {};
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

BOOL CListCtrl::GetCheck(int nItem) const
{
    return ListView_GetCheckState(m_hWnd, nItem) == TRUE;
}

BOOL CListCtrl::SetCheck(int nItem, BOOL fCheck)
{
    const int nStateImage = fCheck ? kCheckedStateImage : kUncheckedStateImage;
    return SetItemState(nItem, INDEXTOSTATEIMAGEMASK(nStateImage), LVIS_STATEIMAGEMASK);
}

int CListCtrl::FindItem(LVFINDINFO* pFindInfo, int nStart) const
{
    return ListView_FindItem(m_hWnd, nStart, pFindInfo);
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    return ListView_GetNextItem(m_hWnd, nItem, nFlags);
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return PositionOf(GetNextItem(-1, LVNI_SELECTED));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    const int nItem = ItemAt(pos);
    pos = PositionOf(GetNextItem(nItem, LVNI_SELECTED));
    return nItem;
}

UINT CListCtrl::GetSelectedCount() const
{
    return ListView_GetSelectedCount(m_hWnd);
}

int CListCtrl::GetSelectionMark()
{
    return ListView_GetSelectionMark(m_hWnd);
}

int CListCtrl::SetSelectionMark(int iIndex)
{
    return ListView_SetSelectionMark(m_hWnd, iIndex);
}

int CListCtrl::HitTest(LVHITTESTINFO* pHitTestInfo) const
{
    return ListView_HitTest(m_hWnd, pHitTestInfo);
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO info = {};
    info.pt = pt;
    const int nItem = HitTest(&info);
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return nItem;
}

int CListCtrl::SubItemHitTest(LPLVHITTESTINFO pInfo)
{
    return ListView_SubItemHitTest(m_hWnd, pInfo);
}

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK)
{
    return ListView_EnsureVisible(m_hWnd, nItem, bPartialOK);
}

BOOL CListCtrl::IsItemVisible(int index) const
{
    return Send<BOOL>(*this, LVM_ISITEMVISIBLE, index);
}

BOOL CListCtrl::RedrawItems(int nFirst, int nLast)
{
    return ListView_RedrawItems(m_hWnd, nFirst, nLast);
}

BOOL CListCtrl::Update(int nItem)
{
    return ListView_Update(m_hWnd, nItem);
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
{
    return ListView_SortItems(m_hWnd, pfnCompare, dwData);
}

BOOL CListCtrl::SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
{
    return ListView_SortItemsEx(m_hWnd, pfnCompare, dwData);
}

CEdit* CListCtrl::EditLabel(int nItem)
{
    return static_cast<CEdit*>(CWnd::FromHandle(ListView_EditLabel(m_hWnd, nItem)));
}

CEdit* CListCtrl::GetEditControl() const
{
    return static_cast<CEdit*>(CWnd::FromHandle(ListView_GetEditControl(m_hWnd)));
}

void CListCtrl::CancelEditLabel()
{
    Send(*this, LVM_CANCELEDITLABEL);
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    lpRect->left = static_cast<LONG>(nCode);
    return Send<BOOL>(*this, LVM_GETITEMRECT, nItem, AsParam(lpRect));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref)
{
    CRect rect(nArea, iSubItem, 0, 0);
    if (!Send<BOOL>(*this, LVM_GETSUBITEMRECT, iItem, AsParam(&rect)))
        return FALSE;
    ref = rect;
    return TRUE;
}

BOOL CListCtrl::GetItemPosition(int nItem, LPPOINT lpPoint) const
{
    return ListView_GetItemPosition(m_hWnd, nItem, lpPoint);
}

BOOL CListCtrl::SetItemPosition(int nItem, POINT pt)
{
    return Send<BOOL>(*this, LVM_SETITEMPOSITION32, nItem, AsParam(&pt));
}

BOOL CListCtrl::GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const
{
    const auto spacing = Send<DWORD>(*this, LVM_GETITEMSPACING, fSmall);
    *pnHorzSpacing = LOWORD(spacing);
    *pnVertSpacing = HIWORD(spacing);
    return TRUE;
}

CSize CListCtrl::SetIconSpacing(int cx, int cy)
{
    const auto previous = Send<DWORD>(*this, LVM_SETICONSPACING, 0, MAKELPARAM(cx, cy));
    return CSize(LOWORD(previous), HIWORD(previous));
}

CSize CListCtrl::SetIconSpacing(CSize size)
{
    return SetIconSpacing(size.cx, size.cy);
}

int CListCtrl::GetStringWidth(LPCTSTR lpsz) const
{
    return ListView_GetStringWidth(m_hWnd, lpsz);
}

int CListCtrl::GetTopIndex() const
{
    return ListView_GetTopIndex(m_hWnd);
}

int CListCtrl::GetCountPerPage() const
{
    return ListView_GetCountPerPage(m_hWnd);
}

BOOL CListCtrl::GetOrigin(LPPOINT lpPoint) const
{
    return ListView_GetOrigin(m_hWnd, lpPoint);
}

BOOL CListCtrl::GetViewRect(LPRECT lpRect) const
{
    return ListView_GetViewRect(m_hWnd, lpRect);
}

BOOL CListCtrl::Scroll(CSize size)
{
    return ListView_Scroll(m_hWnd, size.cx, size.cy);
}

CSize CListCtrl::ApproximateViewRect(CSize sz, int iCount) const
{
    const auto packed = Send<DWORD>(*this, LVM_APPROXIMATEVIEWRECT, iCount, MAKELPARAM(sz.cx, sz.cy));
    return CSize(LOWORD(packed), HIWORD(packed));
}

BOOL CListCtrl::Arrange(UINT nCode)
{
    return ListView_Arrange(m_hWnd, nCode);
}

DWORD CListCtrl::GetExtendedStyle()
{
    return ListView_GetExtendedListViewStyle(m_hWnd);
}

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle)
{
    return ListView_SetExtendedListViewStyle(m_hWnd, dwNewStyle);
}

DWORD CListCtrl::GetView() const
{
    return Send<DWORD>(*this, LVM_GETVIEW);
}

DWORD CListCtrl::SetView(int iView)
{
    return Send<DWORD>(*this, LVM_SETVIEW, iView);
}

COLORREF CListCtrl::GetBkColor() const
{
    return ListView_GetBkColor(m_hWnd);
}

BOOL CListCtrl::SetBkColor(COLORREF cr)
{
    return ListView_SetBkColor(m_hWnd, cr);
}

COLORREF CListCtrl::GetTextColor() const
{
    return ListView_GetTextColor(m_hWnd);
}

BOOL CListCtrl::SetTextColor(COLORREF cr)
{
    return ListView_SetTextColor(m_hWnd, cr);
}

COLORREF CListCtrl::GetTextBkColor() const
{
    return ListView_GetTextBkColor(m_hWnd);
}

BOOL CListCtrl::SetTextBkColor(COLORREF cr)
{
    return ListView_SetTextBkColor(m_hWnd, cr);
}

CImageList* CListCtrl::GetImageList(int nImageList) const
{
    return CImageList::FromHandle(ListView_GetImageList(m_hWnd, nImageList));
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageListType)
{
    const HIMAGELIST hImages = pImageList->GetSafeHandle();
    return CImageList::FromHandle(ListView_SetImageList(m_hWnd, hImages, nImageListType));
}

CImageList* CListCtrl::CreateDragImage(int nItem, LPPOINT lpPoint)
{
    const HIMAGELIST hImages = ListView_CreateDragImage(m_hWnd, nItem, lpPoint);
    if (hImages == nullptr)
        return nullptr;

    CImageList* const pImages = new CImageList;
    pImages->Attach(hImages);
    return pImages;
}

BOOL CListCtrl::GetTileViewInfo(PLVTILEVIEWINFO ptvi) const
{
    return Send<BOOL>(*this, LVM_GETTILEVIEWINFO, 0, AsParam(ptvi));
}

BOOL CListCtrl::SetTileViewInfo(PLVTILEVIEWINFO ptvi)
{
    return Send<BOOL>(*this, LVM_SETTILEVIEWINFO, 0, AsParam(ptvi));
}

HCURSOR CListCtrl::GetHotCursor()
{
    return ListView_GetHotCursor(m_hWnd);
}

int CListCtrl::GetHotItem()
{
    return ListView_GetHotItem(m_hWnd);
}

DWORD CListCtrl::GetHoverTime() const
{
    return ListView_GetHoverTime(m_hWnd);
}

DWORD CListCtrl::SetHoverTime(DWORD dwHoverTime)
{
    return ListView_SetHoverTime(m_hWnd, dwHoverTime);
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectDrawItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
