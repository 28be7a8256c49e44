#include "Gallery.h"

#include "Capture.h"
#include "Console.h"
#include "MainFrame.h"
#include "Pages.h"

#include <vxdpi/Dpi.h>

namespace
{
constexpr int kExitFailed = 1;
constexpr int kExitRefused = 2;

constexpr ULONGLONG kSettleMilliseconds = 500;

CString ListOfPages()
{
    CString text;
    for (const PageEntry& page : GalleryPages())
    {
        text += page.pszName;
        text += L"\n";
    }
    return text;
}

// Lets the program's windows draw themselves for a while.
// @return false when the program was told to end meanwhile.
bool RunFor(CWinApp& app, ULONGLONG milliseconds)
{
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    for (ULONGLONG now = ::GetTickCount64(); now < end; now = ::GetTickCount64())
    {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message = {};
        while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (!app.PumpMessage())
                return false;
        }
    }
    return true;
}
} // namespace

CGalleryApp theApp;

BOOL CGalleryApp::InitInstance()
{
    CWinApp::InitInstance();
    const CommandLine commandLine = ReadCommandLine();
    if (DoWithoutWindow(commandLine))
        return FALSE;

    if (!StartupGdiPlusByVxDpi() || !OpenWindow(commandLine.pageName))
    {
        ReportError(L"the window can't be opened");
        m_nExitCode = kExitFailed;
        return FALSE;
    }
    if (commandLine.captureFile.IsEmpty())
        return TRUE;

    Capture(commandLine.captureFile);
    return FALSE;
}

int CGalleryApp::ExitInstance()
{
    ShutdownGdiPlusByVxDpi();
    CWinApp::ExitInstance();
    return m_nExitCode;
}

// @return whether the command line is done with.
bool CGalleryApp::DoWithoutWindow(const CommandLine& commandLine)
{
    switch (commandLine.action)
    {
    case CommandLine::Action::ListPages:
        PrintText(ListOfPages());
        return true;
    case CommandLine::Action::ShowHelp:
        PrintText(UsageText());
        return true;
    case CommandLine::Action::Refuse:
        ReportError(commandLine.error + L"\n" + UsageText());
        m_nExitCode = kExitRefused;
        return true;
    default:
        break;
    }
    if (commandLine.pageName.IsEmpty() || FindPage(commandLine.pageName) != kNoPage)
        return false;

    ReportError(L"no such page: " + commandLine.pageName + L"\nThe pages are:\n" + ListOfPages());
    m_nExitCode = kExitRefused;
    return true;
}

bool CGalleryApp::OpenWindow(const CString& pageName)
{
    auto* const pFrame = new CMainFrame; // deletes itself when its window is destroyed
    m_pMainWnd = pFrame;
    if (!pFrame->CreateFrame())
    {
        m_pMainWnd = nullptr;
        return false;
    }
    pFrame->ShowPage(pageName.IsEmpty() ? 0 : FindPage(pageName));
    pFrame->ShowWindow(m_nCmdShow);
    pFrame->UpdateWindow();
    return true;
}

void CGalleryApp::Capture(const CString& file)
{
    const bool bStillOpen = RunFor(*this, kSettleMilliseconds);
    if (!bStillOpen || !SaveWindowAsPng(*m_pMainWnd, file))
    {
        ReportError(L"the picture can't be saved: " + file);
        m_nExitCode = kExitFailed;
    }
    if (bStillOpen)
        m_pMainWnd->DestroyWindow();
}
