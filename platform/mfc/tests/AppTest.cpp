#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{

constexpr DWORD kLongEnough = 20000; // milliseconds
constexpr int kRanExitInstance = 100;

// The exit code of a program in the tests' folder; -1 when it doesn't start or end.
int RunProgram(const CString& file, const CString& task)
{
    TCHAR folder[MAX_PATH] = {};
    ::GetModuleFileName(nullptr, folder, MAX_PATH);
    const CString program = CString(folder).Left(CString(folder).ReverseFind(_T('\\'))) + _T('\\') + file;
    CString commandLine = _T("\"") + program + _T("\" ") + task;

    STARTUPINFO startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!::CreateProcess(program, commandLine.GetBuffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &startup, &process))
    {
        return -1;
    }
    DWORD nExitCode = static_cast<DWORD>(-1);
    if (::WaitForSingleObject(process.hProcess, kLongEnough) == WAIT_OBJECT_0)
        ::GetExitCodeProcess(process.hProcess, &nExitCode);
    else
        ::TerminateProcess(process.hProcess, 1);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(nExitCode);
}

// The program with the framework's entry point.
int RunTestApp(const CString& task)
{
    return RunProgram(_T("framework_test_app.exe"), task);
}

/// Records what is asked of the message box, which it does not show.
class CSilentApp : public CWinApp
{
public:
    explicit CSilentApp(LPCTSTR lpszAppName = nullptr) : CWinApp(lpszAppName) {}

    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override
    {
        m_prompt = lpszPrompt;
        m_nType = nType;
        m_nIDPrompt = nIDPrompt;
        return IDYES;
    }

    CString m_prompt;
    UINT m_nType = 0;
    UINT m_nIDPrompt = 0;
};

/// Makes another application object the current one for a test.
class AppTest : public testing::Test
{
protected:
    AppTest() : m_pPreviousApp(AfxGetApp()), m_pApp(std::make_unique<CSilentApp>(_T("silent"))) {}

    ~AppTest() override
    {
        m_pApp.reset();
        AfxGetModuleState()->m_pCurrentWinApp = m_pPreviousApp;
        AfxWinInit(::GetModuleHandle(nullptr), nullptr, m_pPreviousApp->m_lpCmdLine,
                   m_pPreviousApp->m_nCmdShow);
    }

    CWinApp* const m_pPreviousApp;
    std::unique_ptr<CSilentApp> m_pApp;
};

TEST(ProgramTest, RunsInItsStateWithItsApplicationObject)
{
    EXPECT_EQ(kRanExitInstance + 31, RunTestApp(_T("state")));
}

TEST(ProgramTest, TheParameterOfQuitIsTheExitCodeThroughExitInstance)
{
    EXPECT_EQ(kRanExitInstance + 7, RunTestApp(_T("quit")));
}

TEST(ProgramTest, EndsWhenItsMainWindowIsClosed)
{
    EXPECT_EQ(kRanExitInstance, RunTestApp(_T("close")));
}

TEST(ProgramTest, EndsThroughExitInstanceWhenInitInstanceRefuses)
{
    EXPECT_EQ(kRanExitInstance, RunTestApp(_T("refuse")));
}

TEST(ProgramTest, IdleWorkOfAnApplicationHasTwoLevels)
{
    EXPECT_EQ(kRanExitInstance + 20 + 1, RunTestApp(_T("idle")));
}

TEST(ProgramTest, AConsoleProgramWorksWithoutAnApplicationObject)
{
    EXPECT_EQ(31, RunProgram(_T("framework_test_console.exe"), _T("")));
}

TEST_F(AppTest, TheNewestApplicationObjectIsTheModules)
{
    EXPECT_EQ(m_pApp.get(), AfxGetApp());
    EXPECT_EQ(m_pApp.get(), AfxGetThread());
}

TEST_F(AppTest, IsNotDeletedByItsThread)
{
    EXPECT_FALSE(m_pApp->m_bAutoDelete);
}

TEST_F(AppTest, StartingFillsInHandlesAndNames)
{
    TCHAR commandLine[] = _T("arguments");
    ASSERT_TRUE(AfxWinInit(::GetModuleHandle(nullptr), nullptr, commandLine, SW_SHOWMINIMIZED));
    EXPECT_EQ(::GetModuleHandle(nullptr), m_pApp->m_hInstance);
    EXPECT_STREQ(_T("arguments"), m_pApp->m_lpCmdLine);
    EXPECT_EQ(SW_SHOWMINIMIZED, m_pApp->m_nCmdShow);
    EXPECT_EQ(::GetCurrentThreadId(), m_pApp->m_nThreadID);
    EXPECT_STREQ(_T("silent"), m_pApp->m_pszAppName);
    EXPECT_STREQ(_T("framework_tests"), m_pApp->m_pszExeName);
    EXPECT_STREQ(_T("silent"), AfxGetAppName());
}

TEST_F(AppTest, AfxMessageBoxAsksTheApplicationObject)
{
    EXPECT_EQ(IDYES, AfxMessageBox(_T("prompt"), MB_YESNO, 12));
    EXPECT_STREQ(_T("prompt"), m_pApp->m_prompt);
    EXPECT_EQ(static_cast<UINT>(MB_YESNO), m_pApp->m_nType);
    EXPECT_EQ(12u, m_pApp->m_nIDPrompt);
}

TEST_F(AppTest, AnExceptionIsReportedInAMessageBox)
{
    CMemoryException exception(FALSE);
    MSG message = {};
    message.message = WM_CREATE;
    EXPECT_EQ(-1, m_pApp->ProcessWndProcException(&exception, &message));
    EXPECT_STREQ(_T("There is not enough memory."), m_pApp->m_prompt);
}

TEST_F(AppTest, AUserExceptionIsNotReportedAgain)
{
    CUserException exception(FALSE);
    MSG message = {};
    message.message = WM_COMMAND;
    m_pApp->ProcessWndProcException(&exception, &message);
    EXPECT_STREQ(_T(""), m_pApp->m_prompt);
}

TEST_F(AppTest, WaitCursorsNest)
{
    const HCURSOR hArrow = m_pApp->LoadStandardCursor(IDC_ARROW);
    const HCURSOR hWait = m_pApp->LoadStandardCursor(IDC_WAIT);
    ::SetCursor(hArrow);
    {
        const CWaitCursor outer;
        EXPECT_EQ(hWait, ::GetCursor());
        {
            CWaitCursor inner;
            ::SetCursor(hArrow);
            inner.Restore();
            EXPECT_EQ(hWait, ::GetCursor());
        }
        EXPECT_EQ(hWait, ::GetCursor());
    }
    EXPECT_EQ(hArrow, ::GetCursor());
}

TEST_F(AppTest, LoadsStandardIconsAndCursors)
{
    EXPECT_NE(nullptr, m_pApp->LoadStandardIcon(IDI_APPLICATION));
    EXPECT_NE(nullptr, m_pApp->LoadStandardCursor(IDC_IBEAM));
    EXPECT_EQ(nullptr, m_pApp->LoadCursor(4711u));
    EXPECT_EQ(nullptr, m_pApp->LoadIcon(4711u));
}

} // namespace
