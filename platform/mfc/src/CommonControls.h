#pragma once

#include "ControlMessages.h"

#include <afxcmn.h>

/// Makes the window class of a common control, and then a control of it, which is always a child.
/// @param dwClasses  the ICC_ value of the class.
inline BOOL CreateCommonControl(CWnd& control, DWORD dwClasses, LPCTSTR lpszClass, DWORD dwExStyle,
                                DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), dwClasses};
    ::InitCommonControlsEx(&classes);
    return control.CWnd::CreateEx(dwExStyle, lpszClass, nullptr, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}
