#include "ModalLoop.h"

#include <afxpriv.h>

#include "ThreadState.h"

namespace vxmfc
{

namespace
{

// What a thread without an object of its own does for each message; false for WM_QUIT.
bool PumpWithoutThreadObject()
{
    MSG message;
    if (::GetMessage(&message, nullptr, 0, 0) <= 0)
        return false;
    if (CWnd::WalkPreTranslateTree(nullptr, &message))
        return true;
    ::TranslateMessage(&message);
    ::DispatchMessage(&message);
    return true;
}

bool IsIdleMessage(MSG message)
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr || pThread->IsIdleMessage(&message);
}

// True when the thread has more idle work.
bool DoThreadIdle(LONG nCount)
{
    if (CWinThread* const pThread = AfxGetThread())
        return pThread->OnIdle(nCount) != FALSE;
    DeleteTemporaryObjects();
    return false;
}

} // namespace

ModalLoop::ModalLoop(CWnd* pWnd) : m_pWnd(pWnd), m_pOuter(pWnd->m_pModalLoop)
{
    pWnd->m_pModalLoop = this;
}

ModalLoop::~ModalLoop()
{
    if (m_pWnd != nullptr)
        m_pWnd->m_pModalLoop = m_pOuter;
}

void ModalLoop::Run(DWORD dwFlags)
{
    m_dwFlags = dwFlags;
    while (GoesOn())
    {
        MSG next;
        if (::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (!HandleNextMessage(next))
                return;
        }
        else if (m_isIdleDue)
        {
            ServeIdle();
        }
        else
        {
            ::WaitMessage();
        }
    }
}

void ModalLoop::End(int nResult)
{
    m_nResult = nResult;
    m_hasResult = true;
    m_isRunning = false;
    // The call may come from a sent message, while the loop waits for posted ones.
    ::PostThreadMessage(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

void ModalLoop::WindowEnded()
{
    m_pWnd->m_pModalLoop = nullptr;
    for (ModalLoop* pLoop = this; pLoop != nullptr; pLoop = pLoop->m_pOuter)
        pLoop->m_pWnd = nullptr;
    ::PostThreadMessage(::GetCurrentThreadId(), WM_NULL, 0, 0);
}

bool ModalLoop::GoesOn() const
{
    return m_pWnd != nullptr && m_pWnd->ContinueModal();
}

bool ModalLoop::HandleNextMessage(const MSG& next)
{
    CWinThread* const pThread = AfxGetThread();
    const bool pumped = pThread != nullptr ? pThread->PumpMessage() != FALSE : PumpWithoutThreadObject();
    if (!pumped)
    {
        // The loops around this one have to end as well.
        ::PostQuitMessage(next.message == WM_QUIT ? static_cast<int>(next.wParam) : 0);
        return false;
    }
    if (IsIdleMessage(next))
    {
        m_isIdleDue = true;
        m_nIdleCount = 0;
    }
    return true;
}

void ModalLoop::ServeIdle()
{
    ShowWindowOnce();
    TellParent();
    const bool windowHasMore = KickIdle();
    const bool threadHasMore = DoThreadIdle(m_nIdleCount);
    ++m_nIdleCount;
    m_isIdleDue = windowHasMore || threadHasMore;
}

HWND ModalLoop::Window() const
{
    return m_pWnd == nullptr ? nullptr : m_pWnd->m_hWnd;
}

void ModalLoop::ShowWindowOnce()
{
    if (!(m_dwFlags & MLF_SHOWONIDLE))
        return;
    m_dwFlags &= ~static_cast<DWORD>(MLF_SHOWONIDLE);
    if (::IsWindowVisible(Window()))
        return;
    ::ShowWindow(Window(), SW_SHOWNORMAL);
    ::UpdateWindow(Window());
}

void ModalLoop::TellParent() const
{
    const HWND hParent = ::GetParent(Window());
    if (hParent != nullptr && m_nIdleCount == 0 && !(m_dwFlags & MLF_NOIDLEMSG))
        ::SendMessage(hParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(Window()));
}

bool ModalLoop::KickIdle() const
{
    if (m_dwFlags & MLF_NOKICKIDLE)
        return false;
    return ::SendMessage(Window(), WM_KICKIDLE, MSGF_DIALOGBOX, m_nIdleCount) != 0;
}

} // namespace vxmfc
