#include <afxwin.h>

#include <vxmfc/Module.h>

#include <cstdlib>

#include "PumpThread.h"
#include "ThreadRecord.h"
#include "ThreadState.h"
#include "WindowClasses.h"

namespace
{

/// The file name of a module without folder and extension; freed with free.
LPTSTR ModuleTitle(HINSTANCE hInstance)
{
    TCHAR path[MAX_PATH] = {};
    ::GetModuleFileName(hInstance, path, MAX_PATH - 1);
    const CString file = CString(path).Mid(CString(path).ReverseFind(_T('\\')) + 1);
    const int nDot = file.ReverseFind(_T('.'));
    return ::_tcsdup(nDot < 0 ? file : file.Left(nDot));
}

LPTSTR AppTitle(LPCTSTR pszExeName)
{
    CString title;
    return ::_tcsdup(title.LoadString(AFX_IDS_APP_TITLE) ? title.GetString() : pszExeName);
}

void StartApp(CWinApp& app, HINSTANCE hInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    app.m_hInstance = hInstance;
    app.m_lpCmdLine = lpCmdLine;
    app.m_nCmdShow = nCmdShow;
    app.m_hThread = ::GetCurrentThread();
    app.m_nThreadID = ::GetCurrentThreadId();
    if (app.m_pszExeName == nullptr)
        app.m_pszExeName = ModuleTitle(hInstance);
    if (app.m_pszAppName == nullptr)
        app.m_pszAppName = AppTitle(app.m_pszExeName);
    CurrentModuleThreadState().currentThread = &app;
}

} // namespace

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE /*hPrevInstance*/, LPTSTR lpCmdLine, int nCmdShow)
{
    AFX_MODULE_STATE* const pState = AfxGetModuleState();
    pState->m_hCurrentInstanceHandle = hInstance;
    pState->m_hCurrentResourceHandle = hInstance;
    if (CWinApp* const pApp = AfxGetApp())
    {
        StartApp(*pApp, hInstance, lpCmdLine, nCmdShow);
        pState->m_lpszCurrentAppName = pApp->m_pszAppName;
    }
    return TRUE;
}

void AFXAPI AfxWinTerm()
{
    if (AfxGetModuleState()->m_bDLL)
        vxmfc::UnregisterWindowClasses(AfxGetInstanceHandle());
    EndModuleThreadState(*AfxGetModuleState());
}

void AFXAPI AfxTermThread()
{
    EndModuleThreadState(*AfxGetModuleState());
}

int vxmfc::RunProgram(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    CWinApp* const pApp = AfxGetApp();
    if (pApp == nullptr || !AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow))
        return -1;
    const int nExitCode = RunPumpThread(*pApp);
    AfxWinTerm();
    return nExitCode;
}
