#pragma once

#include "support/TestWindow.h"

#include <memory>

// While it lives, windows of the calling thread are created for 96 DPI whatever the system's DPI is.
class ThreadDpiUnaware
{
public:
    ThreadDpiUnaware();
    ~ThreadDpiUnaware();

    ThreadDpiUnaware(const ThreadDpiUnaware&) = delete;
    ThreadDpiUnaware& operator=(const ThreadDpiUnaware&) = delete;

private:
    DPI_AWARENESS_CONTEXT m_previous;
};

// A window whose DPI really changes: a child that moves between a parent of 96 DPI and one of the system's
// DPI. At a system DPI of 96 both are the same.
class DpiWindow
{
public:
    // The child starts at the system's DPI, hidden together with its parent.
    DpiWindow();

    HWND Handle() const;
    void OnMessage(TestWindow::Handler handler);

    // The parent that gives its children a DPI of 96 or of the system; other values throw.
    HWND ParentOf(UINT dpi) const;

    // Moves the child to the parent of this DPI and sends it WM_DPICHANGED_AFTERPARENT.
    // Throws when the child does not have this DPI then.
    void MoveTo(UINT dpi);

    // The same for another child window; its own children follow only when they are moved themselves.
    void Move(HWND child, UINT dpi) const;

private:
    TestWindow m_systemParent;
    std::unique_ptr<TestWindow> m_unawareParent;
    TestWindow m_child;
};
