#pragma once

#include <windows.h>

#include <functional>
#include <optional>

// Handles the calling thread's messages for this long, sent and posted ones.
void PumpMessages(DWORD milliseconds);

// A real window with an optional message handler. Destroyed with the object unless it is gone already.
class TestWindow
{
public:
    // Returns the result of a message that it handles, nothing for the default processing.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

    static constexpr RECT kDefaultBounds = {50, 50, 450, 350};

    // A hidden top-level window; Show makes it visible. Throws when the system refuses.
    TestWindow();
    // style as for CreateWindow; bounds in pixels, of the whole window and in the parent's client area if
    // there is one.
    explicit TestWindow(DWORD style, HWND parent = nullptr, const RECT& bounds = kDefaultBounds);
    ~TestWindow();

    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND Handle() const;

    // Makes the window visible and lets it paint.
    void Show();

    void OnMessage(Handler handler);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    static void RegisterClassOnce();

    HWND m_handle = nullptr;
    Handler m_handler;
};
