#include <vxdpi/ScrollFrame.h>

#include "ScrollLabelFrame.h"
#include "ScrollLabelView.h"

namespace
{
/// The part of a rectangle that lies in the work area of a monitor; all of it when the work area can't be
/// had.
CRect ClipToWorkArea(const CRect& rect, HMONITOR hMonitor)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    CRect clipped = rect;
    if (::GetMonitorInfoA(hMonitor, &info))
        ::IntersectRect(&clipped, &rect, &info.rcWork);
    return clipped;
}

void CopyIcon(const CWnd& source, CWnd& target, BOOL bBigIcon)
{
    if (const HICON hIcon = source.GetIcon(bBigIcon))
        target.SetIcon(hIcon, bBigIcon);
}

/// Keeps a window and what it owns disabled. A temporary object of the window does not live until the end, so
/// the object is looked up anew.
class ModalState
{
public:
    explicit ModalState(HWND hWnd) : m_hWnd(hWnd) { CWnd::FromHandle(m_hWnd)->BeginModalState(); }
    ModalState(const ModalState&) = delete;
    ModalState& operator=(const ModalState&) = delete;
    ~ModalState() { CWnd::FromHandle(m_hWnd)->EndModalState(); }

private:
    HWND m_hWnd;
};
} // namespace

// In the module state of the caller: the template and all objects of windows are the application's.
INT_PTR CreateScrollFrame(const int& nIDTemplate, CDialog& dialog,
                          const std::vector<std::pair<CRealButton*, int>>& buttons, int reapplyOffset)
{
    if (!dialog.Create(static_cast<UINT>(nIDTemplate), nullptr))
        return 0;
    const CWnd* const pParent = dialog.GetParent();
    if (!pParent || !pParent->m_hWnd)
        return 0;
    const HWND hParent = pParent->m_hWnd;
    CString caption;
    dialog.GetWindowText(caption);
    CRect place(0, 0, 0, 0);
    dialog.GetWindowRect(&place);
    const HMONITOR hMonitor = ::MonitorFromWindow(dialog.m_hWnd, MONITOR_DEFAULTTONEAREST);
    if (!hMonitor)
        return 0;

    CScrollLabelFrame frame;
    if (!frame.Create(nullptr, caption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                      ClipToWorkArea(place, hMonitor)))
        return 0;
    CopyIcon(dialog, frame, FALSE);
    CopyIcon(dialog, frame, TRUE);
    CScrollLabelView view;
    if (!view.CreateView(&dialog, buttons, &frame, reapplyOffset))
        return 0;

    const ModalState disabled(hParent);
    frame.ShowWindow(SW_SHOW);
    frame.UpdateWindow();
    return frame.DoModal();
}
