#include "support/TestWindow.h"

#include <stdexcept>
#include <utility>

namespace
{
constexpr wchar_t kClassName[] = L"TestWindow";
constexpr DWORD kTimeToPaint = 50;
}

void PumpMessages(DWORD milliseconds)
{
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    for (;;)
    {
        MSG message = {};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        const ULONGLONG now = ::GetTickCount64();
        if (now >= end)
            return;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    }
}

TestWindow::TestWindow() : TestWindow(WS_OVERLAPPEDWINDOW) {}

TestWindow::TestWindow(DWORD style, HWND parent, const RECT& bounds)
{
    RegisterClassOnce();
    ::CreateWindowExW(0, kClassName, L"Test", style, bounds.left, bounds.top, bounds.right - bounds.left,
                      bounds.bottom - bounds.top, parent, nullptr, ::GetModuleHandleW(nullptr), this);
    if (m_handle == nullptr)
        throw std::runtime_error("no test window; is there a display?");
}

TestWindow::~TestWindow()
{
    m_handler = nullptr;
    if (m_handle != nullptr)
        ::DestroyWindow(m_handle);
}

HWND TestWindow::Handle() const
{
    return m_handle;
}

void TestWindow::Show()
{
    ::ShowWindow(m_handle, SW_SHOW);
    ::UpdateWindow(m_handle);
    PumpMessages(kTimeToPaint);
}

void TestWindow::OnMessage(Handler handler)
{
    m_handler = std::move(handler);
}

LRESULT CALLBACK TestWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
    {
        auto* const created =
            static_cast<TestWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->m_handle = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }

    auto* const self = reinterpret_cast<TestWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_NCDESTROY)
        self->m_handle = nullptr;
    if (self != nullptr && self->m_handler)
    {
        if (const std::optional<LRESULT> result = self->m_handler(message, wParam, lParam))
            return *result;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

void TestWindow::RegisterClassOnce()
{
    static const ATOM s_class = []
    {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = ::GetModuleHandleW(nullptr);
        windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
        windowClass.lpszClassName = kClassName;
        return ::RegisterClassW(&windowClass);
    }();
    if (s_class == 0)
        throw std::runtime_error("no class for test windows");
}
