#pragma once

#include <afxwin.h>

namespace vxmfc
{

/// One modal loop of a window. Loops of one window nest; the object may end while its loop runs.
class ModalLoop
{
public:
    explicit ModalLoop(CWnd* pWnd);
    ~ModalLoop();

    ModalLoop(const ModalLoop&) = delete;
    ModalLoop& operator=(const ModalLoop&) = delete;

    /// Handles messages until the loop has been ended or the window or the thread's queue comes to its end.
    void Run(DWORD dwFlags);

    void End(int nResult);

    /// The window is gone: ends this loop and those around it.
    void WindowEnded();

    bool HasWindow() const { return m_pWnd != nullptr; } ///< false: the object may be gone
    bool IsRunning() const { return m_isRunning; }
    bool HasResult() const { return m_hasResult; }
    int Result() const { return m_nResult; }

private:
    bool GoesOn() const;
    bool HandleNextMessage(const MSG& next);
    void ServeIdle();
    HWND Window() const; // null when it has ended, which every platform call takes for "no window"
    void ShowWindowOnce();
    void TellParent() const;
    bool KickIdle() const;

    CWnd* m_pWnd; // null when the window has ended
    ModalLoop* const m_pOuter;
    DWORD m_dwFlags = 0;
    bool m_isRunning = true;
    bool m_hasResult = false;
    bool m_isIdleDue = true;
    LONG m_nIdleCount = 0;
    int m_nResult = -1;
};

} // namespace vxmfc
