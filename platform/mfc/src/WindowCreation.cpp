#include "WindowCreation.h"

#include <utility>

#include "ThreadState.h"

namespace vxmfc
{

namespace
{

// The input method makes a window of its own along with a thread's first window.
bool IsInputMethodWindow(HWND hWnd)
{
    wchar_t name[8] = {};
    ::GetClassNameW(hWnd, name, ARRAYSIZE(name));
    return ::lstrcmpiW(name, L"IME") == 0;
}

} // namespace

WindowCreation::WindowCreation(CWnd* pWnd)
    : m_pWnd(pWnd), m_pOuterWnd(CurrentThreadState().windowBeingCreated),
      m_hOuterHook(CurrentThreadState().creationHook)
{
    ThreadState& state = CurrentThreadState();
    state.windowBeingCreated = pWnd;
    state.creationHook = ::SetWindowsHookEx(WH_CBT, &OnHook, nullptr, ::GetCurrentThreadId());
    pWnd->m_pCreation = this;
}

WindowCreation::~WindowCreation()
{
    RemoveHook();
    if (m_pWnd != nullptr)
        m_pWnd->m_pCreation = nullptr;
}

BOOL WindowCreation::Finish(HWND hWnd)
{
    RemoveHook();
    // A dialog that ends in its first message is reported as created.
    if (hWnd != nullptr || m_pWnd == nullptr)
        return m_pWnd != nullptr;

    CWnd* const pWnd = m_pWnd;
    ObjectEnded();
    pWnd->ReleaseWindow();
    pWnd->EndFailedCreation();
    return FALSE;
}

void WindowCreation::ObjectEnded()
{
    m_pWnd->m_pCreation = nullptr;
    m_pWnd = nullptr;
}

void WindowCreation::RemoveHook()
{
    ThreadState& state = CurrentThreadState();
    if (state.creationHook == m_hOuterHook)
        return;
    ::UnhookWindowsHookEx(state.creationHook);
    state.creationHook = m_hOuterHook;
    state.windowBeingCreated = m_pOuterWnd;
}

LRESULT CALLBACK WindowCreation::OnHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    ThreadState& state = CurrentThreadState();
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_CREATEWND && state.windowBeingCreated != nullptr && !IsInputMethodWindow(hWnd))
        std::exchange(state.windowBeingCreated, nullptr)->AdoptWindow(hWnd);
    return ::CallNextHookEx(state.creationHook, nCode, wParam, lParam);
}

} // namespace vxmfc
