#include <afxwin.h>

// A console program that has no application object. Each bit of its exit code is one fact.

int main()
{
    const bool bStarted = AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), 0) != FALSE;
    const bool bNoObjects = AfxGetApp() == nullptr && AfxGetThread() == nullptr && AfxGetMainWnd() == nullptr;
    const bool bInstance = AfxGetInstanceHandle() == ::GetModuleHandle(nullptr);
    CWnd window;
    const BOOL bMade = window.CreateEx(0, AfxRegisterWndClass(0), _T("title"), WS_POPUP, CRect(), nullptr, 0);
    CString title;
    window.GetWindowText(title);
    window.DestroyWindow();
    {
        const CWaitCursor nobodyShowsIt;
    }
    AfxWinTerm();
    return (bStarted ? 1 : 0) | (bNoObjects ? 2 : 0) | (bInstance ? 4 : 0) | (bMade ? 8 : 0) |
           (title == _T("title") ? 16 : 0);
}
