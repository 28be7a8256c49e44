#pragma once

#include <afxwin.h>

// What the classes of controls are written with: messages to their own window, and their owner's messages.

/// Sends a message that answers a number.
template<class Result = int>
Result Send(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return static_cast<Result>(::SendMessage(control.m_hWnd, message, wParam, lParam));
}

/// Sends a message that answers a handle or an address.
template<class Handle>
Handle SendForHandle(const CWnd& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return reinterpret_cast<Handle>(::SendMessage(control.m_hWnd, message, wParam, lParam));
}

/// An address or a handle as the parameter of a message.
template<class Pointer>
LPARAM AsParam(Pointer* pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}

/// Text of an item by the messages of a list box or combo box; throws CInvalidArgException for a bad index.
inline void GetItemString(HWND hList, UINT lengthMessage, UINT textMessage, int nIndex, CString& text)
{
    const auto nLength = static_cast<int>(::SendMessage(hList, lengthMessage, nIndex, 0));
    if (nLength < 0)
        AfxThrowInvalidArgException();
    ::SendMessage(hList, textMessage, nIndex, AsParam(text.GetBuffer(nLength + 1)));
    text.ReleaseBuffer();
}

/// The text that an empty field shows, by the message that reads it.
inline CString GetCueBannerText(const CWnd& control, UINT message)
{
    constexpr int kLongestText = 256;
    CString text;
    Send(control, message, reinterpret_cast<WPARAM>(text.GetBuffer(kLongestText)), kLongestText);
    text.ReleaseBuffer();
    return text;
}

/// Gives WM_DRAWITEM to the control's virtual function.
template<class Control>
BOOL ReflectDrawItem(Control& control, UINT message, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return FALSE;

    control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != nullptr)
        *pResult = TRUE;
    return TRUE;
}

/// Gives the messages of a list that its owner draws to the control's virtual functions.
template<class Control>
BOOL ReflectListItem(Control& control, UINT message, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = TRUE;
    switch (message)
    {
    case WM_MEASUREITEM:
        control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        break;
    case WM_COMPAREITEM:
        result = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        break;
    case WM_DELETEITEM:
        control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        break;
    default:
        return ReflectDrawItem(control, message, lParam, pResult);
    }
    if (pResult != nullptr)
        *pResult = result;
    return TRUE;
}
