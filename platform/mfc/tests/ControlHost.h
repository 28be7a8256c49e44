#pragma once

#include <afxwin.h>

/// A hidden window of the framework that controls are created in.
class ControlHost : public CWnd
{
public:
    static constexpr UINT kControlId = 100;

    ControlHost()
    {
        const LPCTSTR lpszClass = AfxRegisterWndClass(0);
        VERIFY(CWnd::CreateEx(0, lpszClass, L"host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr));
    }

    ~ControlHost() override { DestroyWindow(); }

    /// Counts the notifications of controls, for tests that expect one or none.
    int m_nCommands = 0;
    int m_nNotifications = 0;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        ++m_nCommands;
        return CWnd::OnCommand(wParam, lParam);
    }

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        ++m_nNotifications;
        return CWnd::OnNotify(wParam, lParam, pResult);
    }
};
