#include <afxwin.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "dll/TestDll.h"
#include "support/HandleCount.h"

namespace
{

constexpr DWORD kLongEnough = 10000; // milliseconds
constexpr UINT kUserMessage = WM_APP + 10;

struct WorkerRecord
{
    std::atomic<DWORD> threadId{0};
    std::atomic<CWinThread*> thread{nullptr};
    std::atomic<AFX_MODULE_STATE*> state{nullptr};
    std::atomic<CWnd*> mainWnd{nullptr};
};

UINT AFX_CDECL Record(LPVOID pParam)
{
    auto& record = *static_cast<WorkerRecord*>(pParam);
    record.threadId = ::GetCurrentThreadId();
    record.thread = AfxGetThread();
    record.state = AfxGetModuleState();
    record.mainWnd = AfxGetMainWnd();
    return 5;
}

UINT AFX_CDECL EndEarly(LPVOID)
{
    AfxEndThread(9);
}

// A worker whose object stays, so that its exit code can be asked for.
class StayingWorker
{
public:
    explicit StayingWorker(AFX_THREADPROC pfnThreadProc, LPVOID pParam = nullptr)
        : m_pThread(AfxBeginThread(pfnThreadProc, pParam, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED))
    {
        m_pThread->m_bAutoDelete = FALSE;
    }

    ~StayingWorker() { delete m_pThread; }

    StayingWorker(const StayingWorker&) = delete;
    StayingWorker& operator=(const StayingWorker&) = delete;

    CWinThread* Thread() { return m_pThread; }

    DWORD RunToEnd()
    {
        m_pThread->ResumeThread();
        ::WaitForSingleObject(*m_pThread, kLongEnough);
        DWORD nExitCode = 0;
        ::GetExitCodeThread(*m_pThread, &nExitCode);
        return nExitCode;
    }

private:
    CWinThread* m_pThread;
};

std::atomic<int> g_nPumpThreads{0};

class CPumpThread : public CWinThread
{
    DECLARE_DYNCREATE(CPumpThread)

public:
    CPumpThread() { ++g_nPumpThreads; }
    ~CPumpThread() override { --g_nPumpThreads; }

    BOOL InitInstance() override { return m_bRuns; }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        m_nSeen += pMsg->message == kUserMessage ? 1 : 0;
        return CWinThread::PreTranslateMessage(pMsg);
    }

    int ExitInstance() override
    {
        ++m_nExits;
        return CWinThread::ExitInstance();
    }

    BOOL m_bRuns = TRUE;
    std::atomic<int> m_nSeen{0};
    std::atomic<int> m_nExits{0};
};

IMPLEMENT_DYNCREATE(CPumpThread, CWinThread)

// A pump of the test's own thread: posts what it is told, runs until WM_QUIT.
class CIdleCounter : public CWinThread
{
public:
    BOOL OnIdle(LONG lCount) override
    {
        m_counts.push_back(lCount);
        return m_onIdle(lCount);
    }

    std::vector<LONG> m_counts;
    std::function<BOOL(LONG)> m_onIdle;
};

MSG MessageOf(UINT nMessage, LONG x = 0, LONG y = 0)
{
    MSG message = {};
    message.message = nMessage;
    message.pt = CPoint(x, y);
    return message;
}

bool IsIdle(CWinThread& thread, MSG message)
{
    return thread.IsIdleMessage(&message) != FALSE;
}

TEST(WorkerThreadTest, RunsItsFunctionInAnotherThread)
{
    WorkerRecord record;
    StayingWorker worker(Record, &record);
    const DWORD nThreadID = worker.Thread()->m_nThreadID;
    EXPECT_EQ(5u, worker.RunToEnd());
    EXPECT_NE(::GetCurrentThreadId(), record.threadId.load());
    EXPECT_EQ(nThreadID, record.threadId.load());
}

TEST(WorkerThreadTest, HasItsObjectAndNoMainWindow)
{
    CWnd window;
    AfxGetApp()->m_pMainWnd = &window;
    WorkerRecord record;
    StayingWorker worker(Record, &record);
    worker.RunToEnd();
    EXPECT_EQ(worker.Thread(), record.thread.load());
    EXPECT_EQ(nullptr, record.mainWnd.load());
    AfxGetApp()->m_pMainWnd = nullptr;
}

TEST(WorkerThreadTest, RunsInTheStateThatWasCurrentWhenItWasStarted)
{
    WorkerRecord record;
    AFX_MANAGE_STATE(testdll::State());
    StayingWorker worker(Record, &record);
    worker.RunToEnd();
    EXPECT_EQ(testdll::State(), record.state.load());
    EXPECT_EQ(worker.Thread(), record.thread.load());
}

TEST(WorkerThreadTest, AThreadOfAnotherOriginHasNoObject)
{
    CWinThread* pSeen = AfxGetApp();
    std::thread([&] { pSeen = AfxGetThread(); }).join();
    EXPECT_EQ(nullptr, pSeen);
}

TEST(WorkerThreadTest, EndsEarlyWithTheGivenCode)
{
    StayingWorker worker(EndEarly);
    EXPECT_EQ(9u, worker.RunToEnd());
}

TEST(WorkerThreadTest, IsStartedWithTheGivenPriority)
{
    WorkerRecord record;
    CWinThread* const pThread =
        AfxBeginThread(Record, &record, THREAD_PRIORITY_BELOW_NORMAL, 0, CREATE_SUSPENDED);
    EXPECT_EQ(THREAD_PRIORITY_BELOW_NORMAL, pThread->GetThreadPriority());
    EXPECT_EQ(0u, record.threadId.load());
    HANDLE hThread = nullptr; // outlives the object, which deletes itself
    ::DuplicateHandle(::GetCurrentProcess(), *pThread, ::GetCurrentProcess(), &hThread, 0, FALSE,
                      DUPLICATE_SAME_ACCESS);
    pThread->ResumeThread();
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(hThread, kLongEnough));
    EXPECT_NE(0u, record.threadId.load());
    ::CloseHandle(hThread);
}

TEST(WorkerThreadTest, IsNotStartedTwice)
{
    WorkerRecord record;
    StayingWorker worker(Record, &record);
    EXPECT_FALSE(worker.Thread()->CreateThread());
    worker.RunToEnd();
}

TEST(PumpThreadTest, DeletesItsObjectAtTheEnd)
{
    auto* const pThread =
        AfxBeginThread(RUNTIME_CLASS(CPumpThread), THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(nullptr, pThread);
    EXPECT_EQ(1, g_nPumpThreads);
    HANDLE hThread = nullptr;
    ::DuplicateHandle(::GetCurrentProcess(), *pThread, ::GetCurrentProcess(), &hThread, 0, FALSE,
                      DUPLICATE_SAME_ACCESS);
    static_cast<CPumpThread*>(pThread)->m_bRuns = FALSE;
    pThread->ResumeThread();
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(hThread, kLongEnough));
    EXPECT_EQ(0, g_nPumpThreads);
    ::CloseHandle(hThread);
}

TEST(PumpThreadTest, WithoutInitInstanceItEndsThroughExitInstance)
{
    CPumpThread thread;
    thread.m_bAutoDelete = FALSE;
    thread.m_bRuns = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(thread, kLongEnough));
    EXPECT_EQ(1, thread.m_nExits);
}

TEST(PumpThreadTest, PumpsThreadMessagesUntilQuitWhoseParameterIsTheExitCode)
{
    CPumpThread thread;
    thread.m_bAutoDelete = FALSE;
    ASSERT_TRUE(thread.CreateThread());
    // The system makes the queue with the thread's first look at it.
    while (!thread.PostThreadMessage(kUserMessage, 0, 0))
        ::Sleep(1);
    thread.PostThreadMessage(kUserMessage, 0, 0);
    thread.PostThreadMessage(WM_QUIT, 33, 0);
    ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(thread, kLongEnough));
    DWORD nExitCode = 0;
    ::GetExitCodeThread(thread, &nExitCode);
    EXPECT_EQ(33u, nExitCode);
    EXPECT_EQ(2, thread.m_nSeen);
    EXPECT_EQ(1, thread.m_nExits);
}

TEST(PumpThreadTest, AClassWithoutDynamicCreationStartsNothing)
{
    EXPECT_EQ(nullptr, AfxBeginThread(RUNTIME_CLASS(CWinThread)));
}

TEST(PumpThreadTest, AnotherClassThanAThreadStartsNothing)
{
    EXPECT_EQ(nullptr, AfxBeginThread(RUNTIME_CLASS(CDllObject)));
}

TEST(MessagePumpTest, RunsIdleWorkWithRisingCountsUntilItHasNoMore)
{
    CIdleCounter thread;
    thread.m_onIdle = [](LONG lCount)
    {
        if (lCount == 2)
            ::PostQuitMessage(4);
        return lCount < 2;
    };
    EXPECT_EQ(4, thread.Run());
    EXPECT_EQ((std::vector<LONG>{0, 1, 2}), thread.m_counts);
}

TEST(MessagePumpTest, StartsIdleWorkAnewAfterAMessage)
{
    CIdleCounter thread;
    int nRounds = 0;
    thread.m_onIdle = [&](LONG lCount)
    {
        if (lCount == 1 && ++nRounds == 1)
            ::PostThreadMessage(::GetCurrentThreadId(), kUserMessage, 0, 0);
        else if (lCount == 1)
            ::PostQuitMessage(0);
        return lCount < 1;
    };
    thread.Run();
    EXPECT_EQ((std::vector<LONG>{0, 1, 0, 1}), thread.m_counts);
}

TEST(MessagePumpTest, PumpMessageTakesOneMessageAndTellsOfQuit)
{
    CPumpThread thread;
    ::PostThreadMessage(::GetCurrentThreadId(), kUserMessage, 0, 0);
    ::PostThreadMessage(::GetCurrentThreadId(), kUserMessage, 0, 0);
    EXPECT_TRUE(thread.PumpMessage());
    EXPECT_EQ(1, thread.m_nSeen);
    EXPECT_TRUE(thread.PumpMessage());
    ::PostQuitMessage(6);
    EXPECT_FALSE(thread.PumpMessage());
    EXPECT_EQ(6, thread.ExitInstance());
}

TEST(MessagePumpTest, WithoutQuitTheExitCodeIsZero)
{
    CPumpThread thread;
    ::PostThreadMessage(::GetCurrentThreadId(), kUserMessage, 77, 0);
    thread.PumpMessage();
    EXPECT_EQ(0, thread.ExitInstance());
}

TEST(IdleMessageTest, PaintingAndTheCaretAreNoReasonForIdleWork)
{
    CWinThread thread;
    EXPECT_FALSE(IsIdle(thread, MessageOf(WM_PAINT)));
    EXPECT_FALSE(IsIdle(thread, MessageOf(0x0118)));
    EXPECT_TRUE(IsIdle(thread, MessageOf(WM_KEYDOWN)));
}

TEST(IdleMessageTest, AMouseMessageCountsOnceForAPosition)
{
    CWinThread thread;
    EXPECT_TRUE(IsIdle(thread, MessageOf(WM_MOUSEMOVE, 1, 1)));
    EXPECT_FALSE(IsIdle(thread, MessageOf(WM_MOUSEMOVE, 1, 1)));
    EXPECT_TRUE(IsIdle(thread, MessageOf(WM_MOUSEMOVE, 2, 1)));
    EXPECT_TRUE(IsIdle(thread, MessageOf(WM_NCMOUSEMOVE, 2, 1)));
}

TEST(IdleWorkTest, EndsTemporaryObjects)
{
    const HWND hWnd = ::GetDesktopWindow();
    const CWnd* const pTemporary = CWnd::FromHandle(hWnd);
    ASSERT_EQ(pTemporary, CWnd::FromHandle(hWnd));
    AfxGetThread()->OnIdle(0);
    // Objects that take the freed place, so that the next temporary one can't stand there again.
    const auto fillers = std::make_unique<CWnd[]>(100);
    EXPECT_NE(pTemporary, CWnd::FromHandle(hWnd));
    EXPECT_TRUE(::IsWindow(hWnd));
}

TEST(ThreadEndTest, LeavesNothingBehindOfAWorker)
{
    const auto work = []
    {
        StayingWorker worker(
            [](LPVOID) -> UINT
            {
                CWnd::FromHandle(::GetDesktopWindow());
                return 0;
            });
        worker.RunToEnd();
    };
    EXPECT_NO_LEAK(work);
}

TEST(ThreadEndTest, LeavesNothingBehindOfAThreadOfAnotherOrigin)
{
    const auto work = []
    {
        std::thread(
            []
            {
                CWnd::FromHandle(::GetDesktopWindow());
                testdll::KnowsWindowInside(::GetDesktopWindow());
            })
            .join();
    };
    EXPECT_NO_LEAK(work);
}

TEST(ProcessExceptionTest, AFailedWmCreateRefusesTheWindow)
{
    CWinThread thread;
    CUserException exception(FALSE);
    MSG message = MessageOf(WM_CREATE);
    EXPECT_EQ(-1, thread.ProcessWndProcException(&exception, &message));
    message = MessageOf(WM_COMMAND);
    EXPECT_EQ(0, thread.ProcessWndProcException(&exception, &message));
}

TEST(ProcessExceptionTest, AFailedWmPaintValidatesTheWindow)
{
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50),
                                nullptr, 0));
    ::InvalidateRect(window, nullptr, FALSE);
    ASSERT_TRUE(::GetUpdateRect(window, nullptr, FALSE));
    CWinThread thread;
    CUserException exception(FALSE);
    MSG message = MessageOf(WM_PAINT);
    message.hwnd = window;
    EXPECT_EQ(0, thread.ProcessWndProcException(&exception, &message));
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE));
    window.DestroyWindow();
}

} // namespace
