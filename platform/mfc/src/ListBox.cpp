#include "ControlMessages.h"

IMPLEMENT_DYNAMIC(CListBox, CWnd)

namespace
{
// The low word is the key, the high word the position of the caret.
BOOL ReflectKey(CListBox& listBox, UINT message, WPARAM wParam, LRESULT* pResult)
{
    int nAction = 0;
    if (message == WM_VKEYTOITEM)
        nAction = listBox.VKeyToItem(LOWORD(wParam), HIWORD(wParam));
    else if (message == WM_CHARTOITEM)
        nAction = listBox.CharToItem(LOWORD(wParam), HIWORD(wParam));
    else
        return FALSE;

    if (pResult != nullptr)
        *pResult = nAction;
    return TRUE;
}
} // namespace

CListBox::CListBox() = default;

CListBox::~CListBox() = default;

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_LISTBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListBox::AddString(LPCTSTR lpszItem)
{
    return Send(*this, LB_ADDSTRING, 0, AsParam(lpszItem));
}

int CListBox::InsertString(int nIndex, LPCTSTR lpszItem)
{
    return Send(*this, LB_INSERTSTRING, nIndex, AsParam(lpszItem));
}

int CListBox::DeleteString(UINT nIndex)
{
    return Send(*this, LB_DELETESTRING, nIndex);
}

int CListBox::Dir(UINT attr, LPCTSTR lpszWildCard)
{
    return Send(*this, LB_DIR, attr, AsParam(lpszWildCard));
}

void CListBox::ResetContent()
{
    Send(*this, LB_RESETCONTENT);
}

int CListBox::InitStorage(int nItems, UINT nBytes)
{
    return Send(*this, LB_INITSTORAGE, nItems, nBytes);
}

int CListBox::GetCount() const
{
    return Send(*this, LB_GETCOUNT);
}

int CListBox::FindString(int nStartAfter, LPCTSTR lpszItem) const
{
    return Send(*this, LB_FINDSTRING, nStartAfter, AsParam(lpszItem));
}

int CListBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
{
    return Send(*this, LB_FINDSTRINGEXACT, nIndexStart, AsParam(lpszFind));
}

int CListBox::SelectString(int nStartAfter, LPCTSTR lpszItem)
{
    return Send(*this, LB_SELECTSTRING, nStartAfter, AsParam(lpszItem));
}

int CListBox::GetCurSel() const
{
    return Send(*this, LB_GETCURSEL);
}

int CListBox::SetCurSel(int nSelect)
{
    return Send(*this, LB_SETCURSEL, nSelect);
}

DWORD_PTR CListBox::GetItemData(int nIndex) const
{
    return Send<DWORD_PTR>(*this, LB_GETITEMDATA, nIndex);
}

int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return Send(*this, LB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
}

void* CListBox::GetItemDataPtr(int nIndex) const
{
    return SendForHandle<void*>(*this, LB_GETITEMDATA, nIndex);
}

int CListBox::SetItemDataPtr(int nIndex, void* pData)
{
    return Send(*this, LB_SETITEMDATA, nIndex, AsParam(pData));
}

int CListBox::GetItemHeight(int nIndex) const
{
    return Send(*this, LB_GETITEMHEIGHT, nIndex);
}

int CListBox::SetItemHeight(int nIndex, UINT cyItemHeight)
{
    return Send(*this, LB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0));
}

int CListBox::GetTopIndex() const
{
    return Send(*this, LB_GETTOPINDEX);
}

int CListBox::SetTopIndex(int nIndex)
{
    return Send(*this, LB_SETTOPINDEX, nIndex);
}

LCID CListBox::GetLocale() const
{
    return Send<LCID>(*this, LB_GETLOCALE);
}

LCID CListBox::SetLocale(LCID nNewLocale)
{
    return Send<LCID>(*this, LB_SETLOCALE, nNewLocale);
}

int CListBox::GetSel(int nIndex) const
{
    return Send(*this, LB_GETSEL, nIndex);
}

int CListBox::SetSel(int nIndex, BOOL bSelect)
{
    return Send(*this, LB_SETSEL, bSelect, nIndex);
}

int CListBox::SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem)
{
    return Send(*this, LB_SELITEMRANGE, bSelect, MAKELPARAM(nFirstItem, nLastItem));
}

int CListBox::GetSelCount() const
{
    return Send(*this, LB_GETSELCOUNT);
}

int CListBox::GetSelItems(int nMaxItems, LPINT rgIndex) const
{
    return Send(*this, LB_GETSELITEMS, nMaxItems, AsParam(rgIndex));
}

int CListBox::GetAnchorIndex() const
{
    return Send(*this, LB_GETANCHORINDEX);
}

void CListBox::SetAnchorIndex(int nIndex)
{
    Send(*this, LB_SETANCHORINDEX, nIndex);
}

int CListBox::GetCaretIndex() const
{
    return Send(*this, LB_GETCARETINDEX);
}

int CListBox::SetCaretIndex(int nIndex, BOOL bScroll)
{
    return Send(*this, LB_SETCARETINDEX, nIndex, bScroll);
}

int CListBox::GetText(int nIndex, LPTSTR lpszBuffer) const
{
    return Send(*this, LB_GETTEXT, nIndex, AsParam(lpszBuffer));
}

void CListBox::GetText(int nIndex, CString& rString) const
{
    GetItemString(m_hWnd, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}

int CListBox::GetTextLen(int nIndex) const
{
    return Send(*this, LB_GETTEXTLEN, nIndex);
}

int CListBox::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return Send(*this, LB_GETITEMRECT, nIndex, AsParam(lpRect));
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const auto found = Send<DWORD>(*this, LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
    bOutside = HIWORD(found);
    return LOWORD(found);
}

int CListBox::GetHorizontalExtent() const
{
    return Send(*this, LB_GETHORIZONTALEXTENT);
}

void CListBox::SetHorizontalExtent(int cxExtent)
{
    Send(*this, LB_SETHORIZONTALEXTENT, cxExtent);
}

void CListBox::SetColumnWidth(int cxWidth)
{
    Send(*this, LB_SETCOLUMNWIDTH, cxWidth);
}

DWORD CListBox::GetListBoxInfo() const
{
    return ::GetListBoxInfo(m_hWnd);
}

void CListBox::SetTabStops()
{
    Send(*this, LB_SETTABSTOPS);
}

BOOL CListBox::SetTabStops(const int& cxEachStop)
{
    return Send<BOOL>(*this, LB_SETTABSTOPS, 1, AsParam(&cxEachStop));
}

BOOL CListBox::SetTabStops(int nTabStops, LPINT rgTabStops)
{
    return Send<BOOL>(*this, LB_SETTABSTOPS, nTabStops, AsParam(rgTabStops));
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}

void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}

int CListBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}

void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

int CListBox::VKeyToItem(UINT, UINT)
{
    return -1;
}

int CListBox::CharToItem(UINT, UINT)
{
    return -1;
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectKey(*this, message, wParam, pResult) || ReflectListItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
