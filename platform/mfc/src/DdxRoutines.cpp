#include "ControlMessages.h"

#include <cfloat>
#include <cwchar>
#include <limits>

namespace
{
CString ReadText(HWND hControl)
{
    const int nLength = ::GetWindowTextLength(hControl);
    CString text;
    ::GetWindowText(hControl, text.GetBuffer(nLength + 1), nLength + 1);
    text.ReleaseBuffer();
    return text;
}

// Rewriting equal text would move the caret and raise a change notification.
void WriteText(HWND hControl, const CString& text)
{
    if (ReadText(hControl) != text)
        ::SetWindowText(hControl, text);
}

bool IsEndOfNumber(const wchar_t* rest)
{
    while (*rest == L' ' || *rest == L'\t')
        ++rest;
    return *rest == L'\0';
}

template<class Integer>
bool ParseNumber(LPCTSTR text, Integer& value)
{
    // A number too long to be parsed comes back as a limit of the widest type, which is out of range as well.
    static_assert(sizeof(Integer) < sizeof(long long));
    wchar_t* rest = nullptr;
    const long long parsed = std::wcstoll(text, &rest, 10);
    const bool inRange =
        parsed >= (std::numeric_limits<Integer>::min)() && parsed <= (std::numeric_limits<Integer>::max)();
    if (rest == text || !IsEndOfNumber(rest) || !inRange)
        return false;
    value = static_cast<Integer>(parsed);
    return true;
}

bool ParseNumber(LPCTSTR text, double& value)
{
    wchar_t* rest = nullptr;
    const double parsed = std::wcstod(text, &rest);
    if (rest == text || !IsEndOfNumber(rest))
        return false;
    value = parsed;
    return true;
}

bool ParseNumber(LPCTSTR text, float& value)
{
    double parsed = 0;
    if (!ParseNumber(text, parsed))
        return false;
    value = static_cast<float>(parsed);
    return true;
}

CString FormatNumber(long long value)
{
    CString text;
    text.Format(L"%lld", value);
    return text;
}

CString FormatNumber(double value, int nDigits)
{
    CString text;
    text.Format(L"%.*g", nDigits, value);
    return text;
}

template<class Number>
void ReadNumber(CDataExchange* pDX, HWND hEdit, Number& value, LPCTSTR lpszPrompt)
{
    if (ParseNumber(ReadText(hEdit), value))
        return;
    AfxMessageBox(lpszPrompt);
    pDX->Fail();
}

constexpr LPCTSTR kBytePrompt = L"Please enter an integer between 0 and 255.";
constexpr LPCTSTR kIntegerPrompt = L"Please enter an integer.";
constexpr LPCTSTR kUnsignedPrompt = L"Please enter a positive integer.";
constexpr LPCTSTR kNumberPrompt = L"Please enter a number.";

template<class Integer>
void ExchangeInteger(CDataExchange* pDX, int nIDC, Integer& value, LPCTSTR lpszPrompt)
{
    const HWND hEdit = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ReadNumber(pDX, hEdit, value, lpszPrompt);
    else
        WriteText(hEdit, FormatNumber(static_cast<long long>(value)));
}

template<class Float>
void ExchangeFloat(CDataExchange* pDX, int nIDC, Float& value, int nDigits)
{
    const HWND hEdit = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ReadNumber(pDX, hEdit, value, kNumberPrompt);
    else
        WriteText(hEdit, FormatNumber(value, nDigits));
}

void ExchangeIndex(CDataExchange* pDX, int nIDC, int& index, UINT readMessage, UINT writeMessage)
{
    const HWND hList = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessage(hList, readMessage, 0, 0));
    else
        ::SendMessage(hList, writeMessage, index, 0);
}

LPARAM TextParam(const CString& text)
{
    return AsParam(text.GetString());
}

// Selects the item whose whole text matches; nothing is selected when there is none.
void SelectExactly(HWND hList, UINT findMessage, UINT selectMessage, const CString& text)
{
    const LRESULT nItem = ::SendMessage(hList, findMessage, static_cast<WPARAM>(-1), TextParam(text));
    ::SendMessage(hList, selectMessage, nItem, 0);
}

void ReadSelectedText(HWND hListBox, CString& value)
{
    const auto nItem = static_cast<int>(::SendMessage(hListBox, LB_GETCURSEL, 0, 0));
    if (nItem == LB_ERR)
        value.Empty();
    else
        GetItemString(hListBox, LB_GETTEXTLEN, LB_GETTEXT, nItem, value);
}

bool IsRadioButton(HWND hControl)
{
    return (::SendMessage(hControl, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

// The next control of the group, or null at the group's end.
HWND NextInGroup(HWND hControl)
{
    const HWND hNext = ::GetWindow(hControl, GW_HWNDNEXT);
    const bool startsGroup = hNext != nullptr && (::GetWindowLong(hNext, GWL_STYLE) & WS_GROUP) != 0;
    return startsGroup ? nullptr : hNext;
}

int CheckedRadioButton(HWND hFirst)
{
    int nIndex = 0;
    for (HWND hButton = hFirst; hButton != nullptr; hButton = NextInGroup(hButton))
    {
        if (!IsRadioButton(hButton))
            continue;
        if (::SendMessage(hButton, BM_GETCHECK, 0, 0) != BST_UNCHECKED)
            return nIndex;
        ++nIndex;
    }
    return -1;
}

void CheckRadioButtonOfGroup(HWND hFirst, int nChecked)
{
    int nIndex = 0;
    for (HWND hButton = hFirst; hButton != nullptr; hButton = NextInGroup(hButton))
    {
        if (!IsRadioButton(hButton))
            continue;
        ::SendMessage(hButton, BM_SETCHECK, nIndex == nChecked ? BST_CHECKED : BST_UNCHECKED, 0);
        ++nIndex;
    }
}
} // namespace

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr)
        return;
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(hControl))
        AfxThrowNotSupportedException();
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value)
{
    ExchangeInteger(pDX, nIDC, value, kBytePrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value)
{
    ExchangeInteger(pDX, nIDC, value, kIntegerPrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    ExchangeInteger(pDX, nIDC, value, kIntegerPrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    ExchangeInteger(pDX, nIDC, value, kUnsignedPrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{
    ExchangeInteger(pDX, nIDC, value, kIntegerPrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value)
{
    ExchangeInteger(pDX, nIDC, value, kUnsignedPrompt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hEdit = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ReadText(hEdit);
    else
        WriteText(hEdit, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value)
{
    ExchangeFloat(pDX, nIDC, value, FLT_DIG);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    ExchangeFloat(pDX, nIDC, value, DBL_DIG);
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hButton = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessage(hButton, BM_GETCHECK, 0, 0));
    else
        ::SendMessage(hButton, BM_SETCHECK, value, 0);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hFirst = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = CheckedRadioButton(hFirst);
    else
        CheckRadioButtonOfGroup(hFirst, value);
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    ExchangeIndex(pDX, nIDC, index, LB_GETCURSEL, LB_SETCURSEL);
}

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hList = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ReadSelectedText(hList, value);
    else
        ::SendMessage(hList, LB_SELECTSTRING, static_cast<WPARAM>(-1), TextParam(value));
}

void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hList = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ReadSelectedText(hList, value);
    else
        SelectExactly(hList, LB_FINDSTRINGEXACT, LB_SETCURSEL, value);
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    ExchangeIndex(pDX, nIDC, index, CB_GETCURSEL, CB_SETCURSEL);
}

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hCombo = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        value = ReadText(hCombo);
        return;
    }

    // Text that is no item is shown in the edit part all the same.
    if (::SendMessage(hCombo, CB_SELECTSTRING, static_cast<WPARAM>(-1), TextParam(value)) == CB_ERR)
        WriteText(hCombo, value);
}

void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value)
{
    const HWND hCombo = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        value = ReadText(hCombo);
        return;
    }

    SelectExactly(hCombo, CB_FINDSTRINGEXACT, CB_SETCURSEL, value);
    WriteText(hCombo, value);
}

void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND hScrollBar = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = ::GetScrollPos(hScrollBar, SB_CTL);
    else
        ::SetScrollPos(hScrollBar, SB_CTL, value, TRUE);
}
