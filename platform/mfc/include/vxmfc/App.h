#pragma once

#include <afx.h>
#include <afxdll_.h>
#include <afxstat_.h>

#include <vxmfc/CmdTarget.h>

/// The function of a worker thread.
typedef UINT(AFX_CDECL* AFX_THREADPROC)(LPVOID);

/// A thread that uses the framework: a worker with a function, or one with a message pump.
///
/// Threads are started by AfxBeginThread or CreateThread. A thread's object deletes itself when the thread
/// has ended, unless m_bAutoDelete is FALSE.
class VXMFC_API CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();
    CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
    ~CWinThread() override; // closes m_hThread

    /// Starts the thread; its module state is the one that is current here.
    /// @return FALSE when the thread is running already or the system refuses.
    BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                      LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);

    operator HANDLE() const;
    int GetThreadPriority();
    BOOL SetThreadPriority(int nPriority);
    DWORD SuspendThread();
    DWORD ResumeThread();
    BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam);

    virtual BOOL InitInstance(); // FALSE, i.e. no pump, unless overridden
    virtual int Run();
    virtual int ExitInstance(); // the exit code
    virtual BOOL PumpMessage(); // FALSE: WM_QUIT was taken
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual BOOL OnIdle(LONG lCount); // TRUE: has more to do
    virtual BOOL IsIdleMessage(MSG* pMsg);
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    virtual CWnd* GetMainWnd();

    BOOL m_bAutoDelete;
    HANDLE m_hThread;
    DWORD m_nThreadID;
    CWnd* m_pMainWnd;
    CWnd* m_pActiveWnd;

private:
    static unsigned __stdcall Main(void* pThis);

    AFX_THREADPROC m_pfnThreadProc;
    LPVOID m_pThreadParam;
    MSG m_lastMessage; // taken from the queue
    POINT m_lastMousePosition;
    UINT m_nLastMouseMessage;
};

/// The application; a program has one global object of a class derived from it, a regular DLL may have one.
class VXMFC_API CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    BOOL InitInstance() override;
    int Run() override;
    int ExitInstance() override;
    BOOL OnIdle(LONG lCount) override;
    LRESULT ProcessWndProcException(CException* e, const MSG* pMsg) override;

    /// Shows what AfxMessageBox asks for.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

    /// Shows the wait cursor (1), shows it again (0) or ends it (-1); calls nest.
    virtual void DoWaitCursor(int nCode);

    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const;
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const;
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const;
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const;

    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;

    // Freed with free; whoever assigns one allocates it with _tcsdup.
    LPCTSTR m_pszAppName;
    LPCTSTR m_pszExeName;

private:
    int m_nWaitCursors;
    HCURSOR m_hCursorBeforeWait;
};

/// Shows the wait cursor until the end of the scope.
class VXMFC_API CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();

    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    void Restore();
};

VXMFC_API CWinApp* AFXAPI AfxGetApp();       // of the current module; null when it has none
VXMFC_API CWinThread* AFXAPI AfxGetThread(); // null in a thread that the framework did not start
VXMFC_API CWnd* AFXAPI AfxGetMainWnd();      // of the current thread; may be null
VXMFC_API LPCTSTR AFXAPI AfxGetAppName();

VXMFC_API HINSTANCE AFXAPI AfxGetInstanceHandle();
VXMFC_API HINSTANCE AFXAPI AfxGetResourceHandle();
VXMFC_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);

/// Finds the module that has a resource: the current resource module, else the first of the current module's
/// chain of libraries that has it, else the current resource module again.
VXMFC_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

/// Starts the framework for the current module; programs with wWinMain need not call it.
VXMFC_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                 int nCmdShow);

/// Ends the framework for the current module.
VXMFC_API void AFXAPI AfxWinTerm();

/// Ends what the framework keeps for the calling thread in the current module.
VXMFC_API void AFXAPI AfxTermThread();

/// Starts a worker thread. @return null when the system refuses.
VXMFC_API CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                            int nPriority = THREAD_PRIORITY_NORMAL, UINT nStackSize = 0,
                                            DWORD dwCreateFlags = 0,
                                            LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);

/// Starts a thread with a message pump. @return null when the object or the thread can't be made.
VXMFC_API CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass,
                                            int nPriority = THREAD_PRIORITY_NORMAL, UINT nStackSize = 0,
                                            DWORD dwCreateFlags = 0,
                                            LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);

/// Ends the calling thread at once; objects on its stack are not destroyed.
[[noreturn]] VXMFC_API void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);

VXMFC_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
VXMFC_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));
