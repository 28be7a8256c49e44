#pragma once

#include <afxwin.h>

namespace vxmfc
{

/// One creation of a window for a CWnd: the thread's next window is the object's before its first message.
///
/// The object may delete itself while the creation runs, when the window refuses to be created.
class WindowCreation
{
public:
    explicit WindowCreation(CWnd* pWnd);
    ~WindowCreation();

    WindowCreation(const WindowCreation&) = delete;
    WindowCreation& operator=(const WindowCreation&) = delete;

    /// To be called with the outcome of the platform's call. Tells a failure to PostNcDestroy, unless the
    /// window's own end has done so.
    /// @return TRUE when the window exists.
    BOOL Finish(HWND hWnd);

    /// The object has been detached from its window for good, or is being destroyed.
    void ObjectEnded();

private:
    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);

    void RemoveHook();

    CWnd* m_pWnd; // null when the object may be gone
    CWnd* const m_pOuterWnd;
    const HHOOK m_hOuterHook;
};

} // namespace vxmfc
