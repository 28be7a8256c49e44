#include "ControlMessages.h"

IMPLEMENT_DYNAMIC(CButton, CWnd)

CButton::CButton() = default;

CButton::~CButton() = default;

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_BUTTON, lpszCaption, dwStyle, rect, pParentWnd, nID);
}

UINT CButton::GetState() const
{
    return Send<UINT>(*this, BM_GETSTATE);
}

void CButton::SetState(BOOL bHighlight)
{
    Send(*this, BM_SETSTATE, bHighlight);
}

int CButton::GetCheck() const
{
    return Send(*this, BM_GETCHECK);
}

void CButton::SetCheck(int nCheck)
{
    Send(*this, BM_SETCHECK, nCheck);
}

UINT CButton::GetButtonStyle() const
{
    // A control's own styles are the low word of the window style.
    return LOWORD(GetStyle());
}

void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw)
{
    Send(*this, BM_SETSTYLE, nStyle, bRedraw);
}

HICON CButton::SetIcon(HICON hIcon)
{
    return SendForHandle<HICON>(*this, BM_SETIMAGE, IMAGE_ICON, AsParam(hIcon));
}

HICON CButton::GetIcon() const
{
    return SendForHandle<HICON>(*this, BM_GETIMAGE, IMAGE_ICON);
}

HBITMAP CButton::SetBitmap(HBITMAP hBitmap)
{
    return SendForHandle<HBITMAP>(*this, BM_SETIMAGE, IMAGE_BITMAP, AsParam(hBitmap));
}

HBITMAP CButton::GetBitmap() const
{
    return SendForHandle<HBITMAP>(*this, BM_GETIMAGE, IMAGE_BITMAP);
}

HCURSOR CButton::SetCursor(HCURSOR hCursor)
{
    return SendForHandle<HCURSOR>(*this, BM_SETIMAGE, IMAGE_CURSOR, AsParam(hCursor));
}

HCURSOR CButton::GetCursor()
{
    return SendForHandle<HCURSOR>(*this, BM_GETIMAGE, IMAGE_CURSOR);
}

BOOL CButton::GetIdealSize(SIZE* psize)
{
    return Send<BOOL>(*this, BCM_GETIDEALSIZE, 0, AsParam(psize));
}

BOOL CButton::SetImageList(PBUTTON_IMAGELIST pbuttonImagelist)
{
    return Send<BOOL>(*this, BCM_SETIMAGELIST, 0, AsParam(pbuttonImagelist));
}

BOOL CButton::GetImageList(PBUTTON_IMAGELIST pbuttonImagelist)
{
    return Send<BOOL>(*this, BCM_GETIMAGELIST, 0, AsParam(pbuttonImagelist));
}

BOOL CButton::SetTextMargin(RECT* pmargin)
{
    return Send<BOOL>(*this, BCM_SETTEXTMARGIN, 0, AsParam(pmargin));
}

BOOL CButton::GetTextMargin(RECT* pmargin)
{
    return Send<BOOL>(*this, BCM_GETTEXTMARGIN, 0, AsParam(pmargin));
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectDrawItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
