#pragma once

#include "support/TestWindow.h"

#include <afxwin.h>

// A test window as an object of the framework, too.
class FrameworkWindow
{
public:
    explicit FrameworkWindow(DWORD style = WS_OVERLAPPEDWINDOW, HWND owner = nullptr) : m_window(style, owner)
    {
        m_object.Attach(m_window.Handle());
    }

    ~FrameworkWindow() { m_object.Detach(); }

    FrameworkWindow(const FrameworkWindow&) = delete;
    FrameworkWindow& operator=(const FrameworkWindow&) = delete;

    CWnd* Object() { return &m_object; }
    TestWindow& Window() { return m_window; }
    HWND Handle() const { return m_window.Handle(); }

private:
    TestWindow m_window;
    CWnd m_object;
};
