#include "ControlMessages.h"

IMPLEMENT_DYNAMIC(CEdit, CWnd)

namespace
{
// One half of a packed selection; all bits set stand for -1.
int SelectionEdge(WORD edge)
{
    return edge == MAXWORD ? -1 : edge;
}
} // namespace

CEdit::CEdit() = default;

CEdit::~CEdit() = default;

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_EDIT, nullptr, dwStyle, rect, pParentWnd, nID);
}

DWORD CEdit::GetSel() const
{
    return Send<DWORD>(*this, EM_GETSEL);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0;
    DWORD end = 0;
    Send(*this, EM_GETSEL, reinterpret_cast<WPARAM>(&start), AsParam(&end));
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll)
{
    SetSel(SelectionEdge(LOWORD(dwSelection)), SelectionEdge(HIWORD(dwSelection)), bNoScroll);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    Send(*this, EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll)
        Send(*this, EM_SCROLLCARET);
}

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo)
{
    Send(*this, EM_REPLACESEL, bCanUndo, AsParam(lpszNewText));
}

int CEdit::GetLineCount() const
{
    return Send(*this, EM_GETLINECOUNT);
}

int CEdit::GetFirstVisibleLine() const
{
    return Send(*this, EM_GETFIRSTVISIBLELINE);
}

void CEdit::LineScroll(int nLines, int nChars)
{
    Send(*this, EM_LINESCROLL, nChars, nLines);
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer) const
{
    return Send(*this, EM_GETLINE, nIndex, AsParam(lpszBuffer));
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const
{
    // The message takes the buffer's size from its first character.
    lpszBuffer[0] = static_cast<TCHAR>(nMaxLength);
    return GetLine(nIndex, lpszBuffer);
}

int CEdit::LineFromChar(int nIndex) const
{
    return Send(*this, EM_LINEFROMCHAR, nIndex);
}

int CEdit::LineIndex(int nLine) const
{
    return Send(*this, EM_LINEINDEX, nLine);
}

int CEdit::LineLength(int nLine) const
{
    return Send(*this, EM_LINELENGTH, nLine);
}

int CEdit::CharFromPos(CPoint pt) const
{
    return Send(*this, EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y));
}

CPoint CEdit::PosFromChar(UINT nChar) const
{
    const auto position = Send<DWORD>(*this, EM_POSFROMCHAR, nChar);
    return CPoint(static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)));
}

void CEdit::LimitText(int nChars)
{
    Send(*this, EM_LIMITTEXT, nChars);
}

void CEdit::SetLimitText(UINT nMax)
{
    Send(*this, EM_SETLIMITTEXT, nMax);
}

UINT CEdit::GetLimitText() const
{
    return Send<UINT>(*this, EM_GETLIMITTEXT);
}

BOOL CEdit::GetModify() const
{
    return Send<BOOL>(*this, EM_GETMODIFY);
}

void CEdit::SetModify(BOOL bModified)
{
    Send(*this, EM_SETMODIFY, bModified);
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly)
{
    return Send<BOOL>(*this, EM_SETREADONLY, bReadOnly);
}

TCHAR CEdit::GetPasswordChar() const
{
    return Send<TCHAR>(*this, EM_GETPASSWORDCHAR);
}

void CEdit::SetPasswordChar(TCHAR ch)
{
    Send(*this, EM_SETPASSWORDCHAR, ch);
}

DWORD CEdit::GetMargins() const
{
    return Send<DWORD>(*this, EM_GETMARGINS);
}

void CEdit::SetMargins(UINT nLeft, UINT nRight)
{
    Send(*this, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(nLeft, nRight));
}

void CEdit::GetRect(LPRECT lpRect) const
{
    Send(*this, EM_GETRECT, 0, AsParam(lpRect));
}

void CEdit::SetRect(LPCRECT lpRect)
{
    Send(*this, EM_SETRECT, 0, AsParam(lpRect));
}

void CEdit::SetRectNP(LPCRECT lpRect)
{
    Send(*this, EM_SETRECTNP, 0, AsParam(lpRect));
}

void CEdit::SetTabStops()
{
    Send(*this, EM_SETTABSTOPS);
}

BOOL CEdit::SetTabStops(const int& cxEachStop)
{
    return Send<BOOL>(*this, EM_SETTABSTOPS, 1, AsParam(&cxEachStop));
}

BOOL CEdit::SetTabStops(int nTabStops, LPINT rgTabStops)
{
    return Send<BOOL>(*this, EM_SETTABSTOPS, nTabStops, AsParam(rgTabStops));
}

BOOL CEdit::CanUndo() const
{
    return Send<BOOL>(*this, EM_CANUNDO);
}

BOOL CEdit::Undo()
{
    return Send<BOOL>(*this, EM_UNDO);
}

void CEdit::EmptyUndoBuffer()
{
    Send(*this, EM_EMPTYUNDOBUFFER);
}

void CEdit::Clear()
{
    Send(*this, WM_CLEAR);
}

void CEdit::Copy()
{
    Send(*this, WM_COPY);
}

void CEdit::Cut()
{
    Send(*this, WM_CUT);
}

void CEdit::Paste()
{
    Send(*this, WM_PASTE);
}

BOOL CEdit::FmtLines(BOOL bAddEOL)
{
    return Send<BOOL>(*this, EM_FMTLINES, bAddEOL);
}

HLOCAL CEdit::GetHandle() const
{
    return SendForHandle<HLOCAL>(*this, EM_GETHANDLE);
}

void CEdit::SetHandle(HLOCAL hBuffer)
{
    Send(*this, EM_SETHANDLE, reinterpret_cast<WPARAM>(hBuffer));
}

BOOL CEdit::GetCueBanner(LPWSTR lpszText, int cchText) const
{
    return Send<BOOL>(*this, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(lpszText), cchText);
}

CString CEdit::GetCueBanner() const
{
    return GetCueBannerText(*this, EM_GETCUEBANNER);
}

BOOL CEdit::SetCueBanner(LPCWSTR lpszText)
{
    return SetCueBanner(lpszText, FALSE);
}

BOOL CEdit::SetCueBanner(LPCWSTR lpszText, BOOL fDrawWhenFocused)
{
    return Send<BOOL>(*this, EM_SETCUEBANNER, fDrawWhenFocused, AsParam(lpszText));
}
