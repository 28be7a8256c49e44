#include "ControlMessages.h"

IMPLEMENT_DYNAMIC(CComboBox, CWnd)

CComboBox::CComboBox() = default;

CComboBox::~CComboBox() = default;

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_COMBOBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::AddString(LPCTSTR lpszString)
{
    return Send(*this, CB_ADDSTRING, 0, AsParam(lpszString));
}

int CComboBox::InsertString(int nIndex, LPCTSTR lpszString)
{
    return Send(*this, CB_INSERTSTRING, nIndex, AsParam(lpszString));
}

int CComboBox::DeleteString(UINT nIndex)
{
    return Send(*this, CB_DELETESTRING, nIndex);
}

int CComboBox::Dir(UINT attr, LPCTSTR lpszWildCard)
{
    return Send(*this, CB_DIR, attr, AsParam(lpszWildCard));
}

void CComboBox::ResetContent()
{
    Send(*this, CB_RESETCONTENT);
}

int CComboBox::InitStorage(int nItems, UINT nBytes)
{
    return Send(*this, CB_INITSTORAGE, nItems, nBytes);
}

int CComboBox::GetCount() const
{
    return Send(*this, CB_GETCOUNT);
}

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const
{
    return Send(*this, CB_FINDSTRING, nStartAfter, AsParam(lpszString));
}

int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
{
    return Send(*this, CB_FINDSTRINGEXACT, nIndexStart, AsParam(lpszFind));
}

int CComboBox::SelectString(int nStartAfter, LPCTSTR lpszString)
{
    return Send(*this, CB_SELECTSTRING, nStartAfter, AsParam(lpszString));
}

int CComboBox::GetCurSel() const
{
    return Send(*this, CB_GETCURSEL);
}

int CComboBox::SetCurSel(int nSelect)
{
    return Send(*this, CB_SETCURSEL, nSelect);
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const
{
    return Send<DWORD_PTR>(*this, CB_GETITEMDATA, nIndex);
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return Send(*this, CB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData));
}

void* CComboBox::GetItemDataPtr(int nIndex) const
{
    return SendForHandle<void*>(*this, CB_GETITEMDATA, nIndex);
}

int CComboBox::SetItemDataPtr(int nIndex, void* pData)
{
    return Send(*this, CB_SETITEMDATA, nIndex, AsParam(pData));
}

int CComboBox::GetItemHeight(int nIndex) const
{
    return Send(*this, CB_GETITEMHEIGHT, nIndex);
}

int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight)
{
    return Send(*this, CB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0));
}

int CComboBox::GetTopIndex() const
{
    return Send(*this, CB_GETTOPINDEX);
}

int CComboBox::SetTopIndex(int nIndex)
{
    return Send(*this, CB_SETTOPINDEX, nIndex);
}

LCID CComboBox::GetLocale() const
{
    return Send<LCID>(*this, CB_GETLOCALE);
}

LCID CComboBox::SetLocale(LCID nNewLocale)
{
    return Send<LCID>(*this, CB_SETLOCALE, nNewLocale);
}

int CComboBox::GetLBText(int nIndex, LPTSTR lpszText) const
{
    return Send(*this, CB_GETLBTEXT, nIndex, AsParam(lpszText));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    GetItemString(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

int CComboBox::GetLBTextLen(int nIndex) const
{
    return Send(*this, CB_GETLBTEXTLEN, nIndex);
}

int CComboBox::GetDroppedWidth() const
{
    return Send(*this, CB_GETDROPPEDWIDTH);
}

int CComboBox::SetDroppedWidth(UINT nWidth)
{
    return Send(*this, CB_SETDROPPEDWIDTH, nWidth);
}

UINT CComboBox::GetHorizontalExtent() const
{
    return Send<UINT>(*this, CB_GETHORIZONTALEXTENT);
}

void CComboBox::SetHorizontalExtent(UINT nExtent)
{
    Send(*this, CB_SETHORIZONTALEXTENT, nExtent);
}

void CComboBox::GetDroppedControlRect(LPRECT lprect) const
{
    Send(*this, CB_GETDROPPEDCONTROLRECT, 0, AsParam(lprect));
}

BOOL CComboBox::GetDroppedState() const
{
    return Send<BOOL>(*this, CB_GETDROPPEDSTATE);
}

void CComboBox::ShowDropDown(BOOL bShowIt)
{
    Send(*this, CB_SHOWDROPDOWN, bShowIt);
}

int CComboBox::GetMinVisible() const
{
    return Send(*this, CB_GETMINVISIBLE);
}

BOOL CComboBox::SetMinVisibleItems(int iMinVisible)
{
    return Send<BOOL>(*this, CB_SETMINVISIBLE, iMinVisible);
}

DWORD CComboBox::GetEditSel() const
{
    return Send<DWORD>(*this, CB_GETEDITSEL);
}

BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar)
{
    return Send<BOOL>(*this, CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar));
}

BOOL CComboBox::LimitText(int nMaxChars)
{
    return Send<BOOL>(*this, CB_LIMITTEXT, nMaxChars);
}

BOOL CComboBox::GetExtendedUI() const
{
    return Send<BOOL>(*this, CB_GETEXTENDEDUI);
}

int CComboBox::SetExtendedUI(BOOL bExtended)
{
    return Send(*this, CB_SETEXTENDEDUI, bExtended);
}

CString CComboBox::GetCueBanner() const
{
    return GetCueBannerText(*this, CB_GETCUEBANNER);
}

BOOL CComboBox::GetCueBanner(LPTSTR lpszText, int cchText) const
{
    return Send<BOOL>(*this, CB_GETCUEBANNER, reinterpret_cast<WPARAM>(lpszText), cchText);
}

BOOL CComboBox::SetCueBanner(LPCTSTR lpszText)
{
    return Send<BOOL>(*this, CB_SETCUEBANNER, 0, AsParam(lpszText));
}

BOOL CComboBox::GetComboBoxInfo(PCOMBOBOXINFO pcbi) const
{
    return ::GetComboBoxInfo(m_hWnd, pcbi);
}

void CComboBox::Clear()
{
    Send(*this, WM_CLEAR);
}

void CComboBox::Copy()
{
    Send(*this, WM_COPY);
}

void CComboBox::Cut()
{
    Send(*this, WM_CUT);
}

void CComboBox::Paste()
{
    Send(*this, WM_PASTE);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}

int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT)
{
    return 0;
}

void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectListItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
