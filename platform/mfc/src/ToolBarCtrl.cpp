#include "CommonControls.h"

IMPLEMENT_DYNAMIC(CToolBarCtrl, CWnd)

CToolBarCtrl::CToolBarCtrl() = default;

CToolBarCtrl::~CToolBarCtrl() = default;

BOOL CToolBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateEx(0, dwStyle, rect, pParentWnd, nID);
}

BOOL CToolBarCtrl::CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    if (!CreateCommonControl(*this, ICC_BAR_CLASSES, TOOLBARCLASSNAME, dwExStyle, dwStyle, rect, pParentWnd,
                             nID))
        return FALSE;

    // Told before the first button, the tool bar knows which version of the structure its caller uses.
    SetButtonStructSize(sizeof(TBBUTTON));
    return TRUE;
}

BOOL CToolBarCtrl::AddButtons(int nNumButtons, LPTBBUTTON lpButtons)
{
    return Send<BOOL>(*this, TB_ADDBUTTONS, nNumButtons, AsParam(lpButtons));
}

BOOL CToolBarCtrl::InsertButton(int nIndex, LPTBBUTTON lpButton)
{
    return Send<BOOL>(*this, TB_INSERTBUTTON, nIndex, AsParam(lpButton));
}

BOOL CToolBarCtrl::DeleteButton(int nIndex)
{
    return Send<BOOL>(*this, TB_DELETEBUTTON, nIndex);
}

int CToolBarCtrl::GetButtonCount() const
{
    return Send(*this, TB_BUTTONCOUNT);
}

BOOL CToolBarCtrl::GetButton(int nIndex, LPTBBUTTON lpButton) const
{
    return Send<BOOL>(*this, TB_GETBUTTON, nIndex, AsParam(lpButton));
}

UINT CToolBarCtrl::CommandToIndex(UINT nID) const
{
    return Send<UINT>(*this, TB_COMMANDTOINDEX, nID);
}

int CToolBarCtrl::AddBitmap(int nNumButtons, UINT nBitmapID)
{
    const TBADDBITMAP bitmap = {AfxFindResourceHandle(MAKEINTRESOURCE(nBitmapID), RT_BITMAP), nBitmapID};
    return Send(*this, TB_ADDBITMAP, nNumButtons, AsParam(&bitmap));
}

int CToolBarCtrl::AddBitmap(int nNumButtons, CBitmap* pBitmap)
{
    const TBADDBITMAP bitmap = {nullptr, reinterpret_cast<UINT_PTR>(pBitmap->GetSafeHandle())};
    return Send(*this, TB_ADDBITMAP, nNumButtons, AsParam(&bitmap));
}

int CToolBarCtrl::AddStrings(LPCTSTR lpszStrings)
{
    return Send(*this, TB_ADDSTRING, 0, AsParam(lpszStrings));
}

BOOL CToolBarCtrl::EnableButton(int nID, BOOL bEnable)
{
    return Send<BOOL>(*this, TB_ENABLEBUTTON, nID, MAKELPARAM(bEnable, 0));
}

BOOL CToolBarCtrl::CheckButton(int nID, BOOL bCheck)
{
    return Send<BOOL>(*this, TB_CHECKBUTTON, nID, MAKELPARAM(bCheck, 0));
}

BOOL CToolBarCtrl::PressButton(int nID, BOOL bPress)
{
    return Send<BOOL>(*this, TB_PRESSBUTTON, nID, MAKELPARAM(bPress, 0));
}

BOOL CToolBarCtrl::HideButton(int nID, BOOL bHide)
{
    return Send<BOOL>(*this, TB_HIDEBUTTON, nID, MAKELPARAM(bHide, 0));
}

BOOL CToolBarCtrl::IsButtonEnabled(int nID) const
{
    return Send<BOOL>(*this, TB_ISBUTTONENABLED, nID);
}

BOOL CToolBarCtrl::IsButtonChecked(int nID) const
{
    return Send<BOOL>(*this, TB_ISBUTTONCHECKED, nID);
}

BOOL CToolBarCtrl::IsButtonPressed(int nID) const
{
    return Send<BOOL>(*this, TB_ISBUTTONPRESSED, nID);
}

BOOL CToolBarCtrl::IsButtonHidden(int nID) const
{
    return Send<BOOL>(*this, TB_ISBUTTONHIDDEN, nID);
}

int CToolBarCtrl::GetState(int nID) const
{
    return Send(*this, TB_GETSTATE, nID);
}

BOOL CToolBarCtrl::SetState(int nID, UINT nState)
{
    return Send<BOOL>(*this, TB_SETSTATE, nID, MAKELPARAM(nState, 0));
}

BOOL CToolBarCtrl::SetButtonSize(CSize size)
{
    return Send<BOOL>(*this, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.cx, size.cy));
}

CSize CToolBarCtrl::GetButtonSize() const
{
    const auto size = Send<DWORD>(*this, TB_GETBUTTONSIZE);
    return CSize(LOWORD(size), HIWORD(size));
}

BOOL CToolBarCtrl::SetBitmapSize(CSize size)
{
    return Send<BOOL>(*this, TB_SETBITMAPSIZE, 0, MAKELPARAM(size.cx, size.cy));
}

BOOL CToolBarCtrl::GetItemRect(int nIndex, LPRECT lpRect) const
{
    return Send<BOOL>(*this, TB_GETITEMRECT, nIndex, AsParam(lpRect));
}

BOOL CToolBarCtrl::GetRect(int nID, LPRECT lpRect) const
{
    return Send<BOOL>(*this, TB_GETRECT, nID, AsParam(lpRect));
}

BOOL CToolBarCtrl::GetMaxSize(LPSIZE pSize) const
{
    return Send<BOOL>(*this, TB_GETMAXSIZE, 0, AsParam(pSize));
}

void CToolBarCtrl::SetButtonStructSize(int nSize)
{
    Send(*this, TB_BUTTONSTRUCTSIZE, nSize);
}

int CToolBarCtrl::HitTest(LPPOINT ppt) const
{
    return Send(*this, TB_HITTEST, 0, AsParam(ppt));
}

void CToolBarCtrl::AutoSize()
{
    Send(*this, TB_AUTOSIZE);
}

DWORD CToolBarCtrl::GetExtendedStyle() const
{
    return Send<DWORD>(*this, TB_GETEXTENDEDSTYLE);
}

DWORD CToolBarCtrl::SetExtendedStyle(DWORD dwExStyle)
{
    return Send<DWORD>(*this, TB_SETEXTENDEDSTYLE, 0, dwExStyle);
}

CImageList* CToolBarCtrl::GetImageList() const
{
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_GETIMAGELIST));
}

CImageList* CToolBarCtrl::SetImageList(CImageList* pImageList)
{
    const LPARAM images = AsParam(pImageList->GetSafeHandle());
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_SETIMAGELIST, 0, images));
}

CImageList* CToolBarCtrl::GetDisabledImageList() const
{
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_GETDISABLEDIMAGELIST));
}

CImageList* CToolBarCtrl::SetDisabledImageList(CImageList* pImageList)
{
    const LPARAM images = AsParam(pImageList->GetSafeHandle());
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_SETDISABLEDIMAGELIST, 0, images));
}

CImageList* CToolBarCtrl::GetHotImageList() const
{
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_GETHOTIMAGELIST));
}

CImageList* CToolBarCtrl::SetHotImageList(CImageList* pImageList)
{
    const LPARAM images = AsParam(pImageList->GetSafeHandle());
    return CImageList::FromHandle(SendForHandle<HIMAGELIST>(*this, TB_SETHOTIMAGELIST, 0, images));
}
