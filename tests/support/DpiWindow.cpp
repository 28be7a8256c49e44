#include "support/DpiWindow.h"

#include "support/TestDpi.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace
{
constexpr RECT kChildBounds = {0, 0, 200, 100};

std::unique_ptr<TestWindow> MakeUnawareWindow()
{
    const ThreadDpiUnaware unaware;
    return std::make_unique<TestWindow>();
}
}

ThreadDpiUnaware::ThreadDpiUnaware()
    : m_previous(::SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE))
{
    if (m_previous == nullptr)
        throw std::runtime_error("the thread cannot be made unaware of DPI");
}

ThreadDpiUnaware::~ThreadDpiUnaware()
{
    ::SetThreadDpiAwarenessContext(m_previous);
}

DpiWindow::DpiWindow()
    : m_unawareParent(MakeUnawareWindow()), m_child(WS_CHILD, m_systemParent.Handle(), kChildBounds)
{
    if (::GetDpiForWindow(m_unawareParent->Handle()) != USER_DEFAULT_SCREEN_DPI)
        throw std::runtime_error("no window of 96 DPI can be made");
}

HWND DpiWindow::Handle() const
{
    return m_child.Handle();
}

void DpiWindow::OnMessage(TestWindow::Handler handler)
{
    m_child.OnMessage(std::move(handler));
}

HWND DpiWindow::ParentOf(UINT dpi) const
{
    if (dpi == TestDpi())
        return m_systemParent.Handle();
    if (dpi == USER_DEFAULT_SCREEN_DPI)
        return m_unawareParent->Handle();
    throw std::invalid_argument("no parent window of DPI " + std::to_string(dpi));
}

void DpiWindow::MoveTo(UINT dpi)
{
    Move(m_child.Handle(), dpi);
}

void DpiWindow::Move(HWND child, UINT dpi) const
{
    ::SetParent(child, ParentOf(dpi));
    if (::GetDpiForWindow(child) != dpi)
        throw std::runtime_error("the window did not get DPI " + std::to_string(dpi));
    ::SendMessageW(child, WM_DPICHANGED_AFTERPARENT, 0, 0);
}
