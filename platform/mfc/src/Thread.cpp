#include <afxwin.h>

#include <process.h>

#include <new>

#include "PumpThread.h"
#include "ThreadRecord.h"
#include "ThreadState.h"

namespace
{

constexpr UINT kCaretBlinkMessage = 0x0118; // of the system's caret timer; has no name

bool IsMouseMove(const MSG& message)
{
    return message.message == WM_MOUSEMOVE || message.message == WM_NCMOUSEMOVE;
}

// Ends what the framework keeps for the calling thread, and its object when that is wanted.
void EndCurrentThread(BOOL bDelete)
{
    CWinThread* const pThread = AfxGetThread();
    CurrentModuleThreadState().currentThread = nullptr;
    if (pThread != nullptr && bDelete && pThread->m_bAutoDelete)
        delete pThread;
    EndModuleThreadState(*AfxGetModuleState());
}

// Starts a new thread's object; takes it over.
CWinThread* StartThread(std::unique_ptr<CWinThread> pThread, int nPriority, UINT nStackSize,
                        DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    // The thread waits until its priority is set: once it runs, its object may be gone at any time.
    if (!pThread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs))
        return nullptr;
    CWinThread* const pStarted = pThread.release();
    pStarted->SetThreadPriority(nPriority);
    if ((dwCreateFlags & CREATE_SUSPENDED) == 0)
        pStarted->ResumeThread();
    return pStarted;
}

} // namespace

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

CWinThread::CWinThread() : CWinThread(nullptr, nullptr) {}

CWinThread::CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam)
    : m_bAutoDelete(TRUE), m_hThread(nullptr), m_nThreadID(0), m_pMainWnd(nullptr), m_pActiveWnd(nullptr),
      m_pfnThreadProc(pfnThreadProc), m_pThreadParam(pParam), m_lastMessage(), m_lastMousePosition(),
      m_nLastMouseMessage(WM_NULL)
{
}

CWinThread::~CWinThread()
{
    if (m_hThread != nullptr)
        ::CloseHandle(m_hThread);
}

BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    if (m_hThread != nullptr)
        return FALSE;
    unsigned nThreadID = 0;
    const auto hThread =
        ::_beginthreadex(lpSecurityAttrs, nStackSize, Main, this, CREATE_SUSPENDED, &nThreadID);
    if (hThread == 0)
        return FALSE;
    m_hThread = reinterpret_cast<HANDLE>(hThread);
    m_nThreadID = nThreadID;
    if ((dwCreateFlags & CREATE_SUSPENDED) == 0)
        ::ResumeThread(reinterpret_cast<HANDLE>(hThread));
    return TRUE;
}

unsigned __stdcall CWinThread::Main(void* pThis)
{
    auto* const pThread = static_cast<CWinThread*>(pThis);
    AfxSetModuleState(pThread->m_pModuleState);
    CurrentModuleThreadState().currentThread = pThread;
    const int nExitCode = pThread->m_pfnThreadProc == nullptr
                              ? RunPumpThread(*pThread)
                              : static_cast<int>(pThread->m_pfnThreadProc(pThread->m_pThreadParam));
    EndCurrentThread(TRUE);
    return static_cast<unsigned>(nExitCode);
}

CWinThread::operator HANDLE() const
{
    return m_hThread;
}

int CWinThread::GetThreadPriority()
{
    return ::GetThreadPriority(m_hThread);
}

BOOL CWinThread::SetThreadPriority(int nPriority)
{
    return ::SetThreadPriority(m_hThread, nPriority);
}

DWORD CWinThread::SuspendThread()
{
    return ::SuspendThread(m_hThread);
}

DWORD CWinThread::ResumeThread()
{
    return ::ResumeThread(m_hThread);
}

BOOL CWinThread::PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostThreadMessage(m_nThreadID, message, wParam, lParam);
}

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::Run()
{
    bool bIdle = true;
    LONG nIdleCount = 0;
    for (;;)
    {
        MSG next;
        while (bIdle && !::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE))
            bIdle = OnIdle(nIdleCount++) != FALSE;
        if (!PumpMessage())
            return ExitInstance();
        if (IsIdleMessage(&m_lastMessage))
        {
            bIdle = true;
            nIdleCount = 0;
        }
    }
}

int CWinThread::ExitInstance()
{
    return m_lastMessage.message == WM_QUIT ? static_cast<int>(m_lastMessage.wParam) : 0;
}

BOOL CWinThread::PumpMessage()
{
    MSG message;
    const BOOL bTaken = ::GetMessage(&message, nullptr, 0, 0);
    m_lastMessage = message;
    if (bTaken <= 0)
        return FALSE;
    if (!PreTranslateMessage(&message))
    {
        ::TranslateMessage(&message);
        ::DispatchMessage(&message);
    }
    return TRUE;
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::WalkPreTranslateTree(GetMainWnd()->GetSafeHwnd(), pMsg);
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    DeleteTemporaryObjects();
    return lCount < 0;
}

// Mouse messages come without a movement, too, and must not make an idle program busy.
BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    if (pMsg->message == WM_PAINT || pMsg->message == kCaretBlinkMessage)
        return FALSE;
    if (!IsMouseMove(*pMsg))
        return TRUE;
    const bool bMoved = pMsg->message != m_nLastMouseMessage || CPoint(pMsg->pt) != m_lastMousePosition;
    m_nLastMouseMessage = pMsg->message;
    m_lastMousePosition = pMsg->pt;
    return bMoved;
}

LRESULT CWinThread::ProcessWndProcException(CException* /*e*/, const MSG* pMsg)
{
    if (pMsg->message == WM_CREATE)
        return -1;
    // An invalid window would get WM_PAINT, and fail, again and again.
    if (pMsg->message == WM_PAINT)
        ::ValidateRect(pMsg->hwnd, nullptr);
    return 0;
}

CWnd* CWinThread::GetMainWnd()
{
    return m_pMainWnd;
}

int RunPumpThread(CWinThread& thread)
{
    if (thread.InitInstance())
        return thread.Run();
    if (thread.m_pMainWnd != nullptr)
        thread.m_pMainWnd->DestroyWindow();
    return thread.ExitInstance();
}

CWinThread* AFXAPI AfxGetThread()
{
    return CurrentModuleThreadState().currentThread;
}

CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    return StartThread(std::make_unique<CWinThread>(pfnThreadProc, pParam), nPriority, nStackSize,
                       dwCreateFlags, lpSecurityAttrs);
}

CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    std::unique_ptr<CObject> pObject(pThreadClass->CreateObject());
    auto* const pThread = DYNAMIC_DOWNCAST(CWinThread, pObject.get());
    if (pThread == nullptr)
        return nullptr;
    pObject.release();
    return StartThread(std::unique_ptr<CWinThread>(pThread), nPriority, nStackSize, dwCreateFlags,
                       lpSecurityAttrs);
}

void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete)
{
    EndCurrentThread(bDelete);
    ::_endthreadex(nExitCode);
    ::ExitThread(nExitCode); // not reached; _endthreadex is not declared as ending
}
