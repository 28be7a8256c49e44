#include "FrameParts.h"

#include "../resource.h"

#include <vxdpi/Dpi.h>

namespace
{
constexpr int kBaseDpi = 96;
constexpr int kLongestClassName = 256;
const CSize kFrameRoom96(40, 36);

// A dialog that is shown by itself is a popup.
bool IsInFrame(const CDialog& dialog)
{
    return (dialog.GetStyle() & WS_CHILD) != 0;
}

bool HasClass(const CWnd& window, LPCTSTR pszClass)
{
    wchar_t name[kLongestClassName] = {};
    ::GetClassName(window.m_hWnd, name, kLongestClassName);
    return ::lstrcmpi(name, pszClass) == 0;
}

CString TextOf(const CWnd& window)
{
    CString text;
    window.GetWindowText(text);
    return text;
}

// @return the first window beside a dialog in its frame that a test holds for; null by itself or without one.
template<class Test>
CWnd* FindBeside(const CDialog& dialog, Test test)
{
    CWnd* pWindow = IsInFrame(dialog) ? dialog.GetWindow(GW_HWNDFIRST) : nullptr;
    while (pWindow != nullptr && !test(*pWindow))
        pWindow = pWindow->GetNextWindow();
    return pWindow;
}

CWnd* FindVerticalBar(const CDialog& dialog)
{
    return FindBeside(dialog, [](const CWnd& window)
                      { return HasClass(window, L"ScrollBar") && (window.GetStyle() & SBS_VERT) != 0; });
}
} // namespace

void SetGalleryIcon(CDialog& dialog)
{
    const HICON hIcon = ::AfxGetApp()->LoadIcon(IDI_GALLERY);
    dialog.SetIcon(hIcon, FALSE);
    dialog.SetIcon(hIcon, TRUE);
}

void GrowForFrame(CDialog& dialog)
{
    const int nDpi = static_cast<int>(VxSafeGetDpiForWindow(dialog.m_hWnd));
    CRect rect;
    dialog.GetWindowRect(&rect);
    dialog.SetWindowPos(nullptr, 0, 0, rect.Width() + ::MulDiv(kFrameRoom96.cx, nDpi, kBaseDpi),
                        rect.Height() + ::MulDiv(kFrameRoom96.cy, nDpi, kBaseDpi),
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void EndModal(CDialog& dialog, int nResult)
{
    if (IsInFrame(dialog))
        dialog.GetParentFrame()->EndModalLoop(nResult);
    else
        dialog.EndDialog(nResult);
}

CWnd* FindStandIn(const CDialog& dialog, const CButton& button)
{
    // It has the same text, and is no part of the interface.
    const CString text = TextOf(button);
    return FindBeside(dialog, [&](const CWnd& window)
                      { return HasClass(window, L"Button") && TextOf(window) == text; });
}

bool CanScrollDown(const CDialog& dialog)
{
    const CWnd* const pBar = FindVerticalBar(dialog);
    return pBar != nullptr && pBar->IsWindowVisible();
}

void ScrollPageDown(const CDialog& dialog)
{
    const CWnd* const pBar = FindVerticalBar(dialog);
    if (pBar != nullptr)
        dialog.GetParent()->SendMessage(WM_VSCROLL, SB_PAGEDOWN, reinterpret_cast<LPARAM>(pBar->m_hWnd));
}

void ClickButton(CWnd* pButton)
{
    if (pButton != nullptr)
        pButton->SendMessage(BM_CLICK);
}
