#include <afxwin.h>

#include <algorithm>
#include <cstdlib>

#include "ThreadState.h"

namespace
{

// The window that a message box disables: the active one of the main window and its popups.
HWND MessageBoxOwner()
{
    const HWND hMain = AfxGetMainWnd()->GetSafeHwnd();
    return hMain == nullptr ? ::GetActiveWindow() : ::GetLastActivePopup(hMain);
}

int ShowMessageBox(LPCTSTR lpszPrompt, UINT nType)
{
    const LPCTSTR pszTitle = AfxGetAppName();
    return ::MessageBox(MessageBoxOwner(), lpszPrompt, pszTitle == nullptr ? _T("") : pszTitle, nType);
}

} // namespace

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_hInstance(nullptr), m_lpCmdLine(nullptr), m_nCmdShow(SW_SHOWNORMAL),
      m_pszAppName(lpszAppName == nullptr ? nullptr : ::_tcsdup(lpszAppName)), m_pszExeName(nullptr),
      m_nWaitCursors(0), m_hCursorBeforeWait(nullptr)
{
    m_bAutoDelete = FALSE;
    m_pModuleState->m_pCurrentWinApp = this;
    CurrentModuleThreadState().currentThread = this;
}

CWinApp::~CWinApp()
{
    AFX_MANAGE_STATE(m_pModuleState);
    m_pModuleState->m_pCurrentWinApp = nullptr;
    m_pModuleState->m_lpszCurrentAppName = nullptr;
    CurrentModuleThreadState().currentThread = nullptr;
    std::free(const_cast<LPTSTR>(m_pszAppName));
    std::free(const_cast<LPTSTR>(m_pszExeName));
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::Run()
{
    return CWinThread::Run();
}

int CWinApp::ExitInstance()
{
    return CWinThread::ExitInstance();
}

// Idle work comes in two levels, 0 and 1; overrides do theirs beside it.
BOOL CWinApp::OnIdle(LONG lCount)
{
    CWinThread::OnIdle(lCount);
    return lCount < 1;
}

LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    // The user was told of a CUserException when it was thrown.
    if (!e->IsKindOf(RUNTIME_CLASS(CUserException)))
        e->ReportError(MB_ICONEXCLAMATION);
    return CWinThread::ProcessWndProcException(e, pMsg);
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT /*nIDPrompt*/)
{
    return ShowMessageBox(lpszPrompt, nType);
}

void CWinApp::DoWaitCursor(int nCode)
{
    const bool bWaited = m_nWaitCursors > 0;
    m_nWaitCursors = std::max(m_nWaitCursors + nCode, 0);
    if (m_nWaitCursors > 0)
    {
        const HCURSOR hPrevious = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
        if (!bWaited)
            m_hCursorBeforeWait = hPrevious;
    }
    else if (bWaited)
    {
        ::SetCursor(m_hCursorBeforeWait);
    }
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HCURSOR CWinApp::LoadCursor(UINT nIDResource) const
{
    return LoadCursor(MAKEINTRESOURCE(nIDResource));
}

HCURSOR CWinApp::LoadStandardCursor(LPCTSTR lpszCursorName) const
{
    return ::LoadCursor(nullptr, lpszCursorName);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

HICON CWinApp::LoadIcon(UINT nIDResource) const
{
    return LoadIcon(MAKEINTRESOURCE(nIDResource));
}

HICON CWinApp::LoadStandardIcon(LPCTSTR lpszIconName) const
{
    return ::LoadIcon(nullptr, lpszIconName);
}

CWaitCursor::CWaitCursor()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(1);
}

CWaitCursor::~CWaitCursor()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(-1);
}

void CWaitCursor::Restore()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(0);
}

CWinApp* AFXAPI AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? nullptr : pThread->GetMainWnd();
}

LPCTSTR AFXAPI AfxGetAppName()
{
    return AfxGetModuleState()->m_lpszCurrentAppName;
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    CWinApp* const pApp = AfxGetApp();
    return pApp == nullptr ? ShowMessageBox(lpszText, nType) : pApp->DoMessageBox(lpszText, nType, nIDHelp);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString prompt;
    VERIFY(prompt.LoadString(nIDPrompt));
    const bool bOwnHelp = nIDHelp != static_cast<UINT>(-1);
    return AfxMessageBox(prompt, nType, bOwnHelp ? nIDHelp : nIDPrompt);
}
