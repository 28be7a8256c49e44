#include <afxwin.h>

// A program with a message pump, whose command line says what it shall do. What it has seen is its exit code.

namespace
{

constexpr int kRanExitInstance = 100; // added to the exit code

class CTestApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        const CString task(m_lpCmdLine);
        if (task == _T("refuse"))
            return FALSE;
        if (task == _T("state"))
            ::PostQuitMessage(StateCode());
        if (task == _T("quit"))
            ::PostQuitMessage(7);
        if (task == _T("close"))
            CloseMainWindow();
        return TRUE;
    }

    BOOL OnIdle(LONG lCount) override
    {
        const BOOL bMore = CWinApp::OnIdle(lCount);
        const CString task(m_lpCmdLine);
        if (task == _T("idle") && !bMore)
            ::PostQuitMessage(static_cast<int>(lCount) + 20); // the last idle count
        return bMore;
    }

    int ExitInstance() override { return CWinApp::ExitInstance() + kRanExitInstance; }

private:
    // Each bit is one fact.
    int StateCode() const
    {
        const HINSTANCE hProgram = ::GetModuleHandle(nullptr);
        return (AfxGetModuleState() == AfxGetStaticModuleState() ? 1 : 0) |
               (AfxGetInstanceHandle() == hProgram ? 2 : 0) | (AfxGetResourceHandle() == hProgram ? 4 : 0) |
               (AfxGetApp() == this && AfxGetThread() == this ? 8 : 0) |
               (CString(AfxGetAppName()) == _T("framework_test_app") ? 16 : 0);
    }

    void CloseMainWindow()
    {
        m_frame.CreateEx(0, AfxRegisterWndClass(0), _T("main"), WS_OVERLAPPEDWINDOW, CRect(0, 0, 100, 100),
                         nullptr, 0);
        m_pMainWnd = &m_frame;
        m_frame.PostMessage(WM_CLOSE);
    }

    CWnd m_frame;
};

CTestApp g_app;

} // namespace
