#include "ControlMessages.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)

CStatic::CStatic() = default;

CStatic::~CStatic() = default;

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_STATIC, lpszText, dwStyle, rect, pParentWnd, nID);
}

HICON CStatic::SetIcon(HICON hIcon)
{
    return SendForHandle<HICON>(*this, STM_SETICON, reinterpret_cast<WPARAM>(hIcon));
}

HICON CStatic::GetIcon() const
{
    return SendForHandle<HICON>(*this, STM_GETICON);
}

HBITMAP CStatic::SetBitmap(HBITMAP hBitmap)
{
    return SendForHandle<HBITMAP>(*this, STM_SETIMAGE, IMAGE_BITMAP, AsParam(hBitmap));
}

HBITMAP CStatic::GetBitmap() const
{
    return SendForHandle<HBITMAP>(*this, STM_GETIMAGE, IMAGE_BITMAP);
}

HCURSOR CStatic::SetCursor(HCURSOR hCursor)
{
    return SendForHandle<HCURSOR>(*this, STM_SETIMAGE, IMAGE_CURSOR, AsParam(hCursor));
}

HCURSOR CStatic::GetCursor()
{
    return SendForHandle<HCURSOR>(*this, STM_GETIMAGE, IMAGE_CURSOR);
}

HENHMETAFILE CStatic::SetEnhMetaFile(HENHMETAFILE hMetaFile)
{
    return SendForHandle<HENHMETAFILE>(*this, STM_SETIMAGE, IMAGE_ENHMETAFILE, AsParam(hMetaFile));
}

HENHMETAFILE CStatic::GetEnhMetaFile() const
{
    return SendForHandle<HENHMETAFILE>(*this, STM_GETIMAGE, IMAGE_ENHMETAFILE);
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectDrawItem(*this, message, lParam, pResult) ||
           CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
