#pragma once

#include <afxwin.h>

/// A window that counts what reaches default processing. Ends with its window when it goes out of scope.
class CTestWnd : public CWnd
{
public:
    ~CTestWnd() override { DestroyWindow(); }

    BOOL CreateHidden(DWORD dwStyle = WS_OVERLAPPEDWINDOW, CWnd* pOwner = nullptr)
    {
        return CreateEx(0, nullptr, L"test", dwStyle, CRect(100, 100, 400, 300), pOwner, 0);
    }

    BOOL CreateIn(CWnd* pParent, UINT nID, DWORD dwStyle = WS_VISIBLE)
    {
        return Create(nullptr, nullptr, dwStyle, CRect(10, 20, 110, 70), pParent, nID);
    }

    int m_nDefaults = 0; // mouse messages that got default processing

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
            ++m_nDefaults;
        return CWnd::DefWindowProc(message, wParam, lParam);
    }
};

/// Handles posted messages until the queue is empty.
inline void DrainQueue()
{
    MSG message;
    while (::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&message);
        ::DispatchMessage(&message);
    }
}
