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

constexpr DWORD kQuietMilliseconds = 120;
constexpr ULONGLONG kLongestSettleMilliseconds = 3000;

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

// @return the first page named that there is none of, else an empty text.
CString FindMissingPage(const CommandLine& commandLine)
{
    std::vector<CString> names = {commandLine.pageName};
    for (const PictureOrder& order : commandLine.pictures)
        names.push_back(order.pageName);
    for (const CString& name : names)
    {
        if (FindPage(name) == kNoPage)
            return name;
    }
    return CString();
}

// Lets the program's windows draw themselves until nothing more happens.
// @return false when the program was told to end meanwhile.
bool RunUntilQuiet(CWinApp& app)
{
    const ULONGLONG end = ::GetTickCount64() + kLongestSettleMilliseconds;
    while (::GetTickCount64() < end &&
           ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuietMilliseconds, QS_ALLINPUT) != WAIT_TIMEOUT)
    {
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

    // Icons are resampled by a COM component.
    m_bComRuns = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    if (!StartupGdiPlusByVxDpi() || !OpenWindow(commandLine))
    {
        ReportError(L"the window can't be opened");
        m_nExitCode = kExitFailed;
        return FALSE;
    }
    if (commandLine.pictures.empty())
        return TRUE;

    TakePictures(commandLine);
    return FALSE;
}

int CGalleryApp::ExitInstance()
{
    ShutdownGdiPlusByVxDpi();
    if (m_bComRuns)
        ::CoUninitialize();
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
    const CString missing = FindMissingPage(commandLine);
    if (missing.IsEmpty())
        return false;

    ReportError(L"no such page: " + missing + L"\nThe pages are:\n" + ListOfPages());
    m_nExitCode = kExitRefused;
    return true;
}

bool CGalleryApp::OpenWindow(const CommandLine& commandLine)
{
    auto* const pFrame = new CMainFrame(commandLine.size96); // deletes itself when its window is destroyed
    m_pMainWnd = pFrame;
    if (!pFrame->CreateFrame())
    {
        m_pMainWnd = nullptr;
        return false;
    }
    pFrame->ShowPage(FindPage(commandLine.pageName));
    pFrame->ShowWindow(m_nCmdShow);
    pFrame->UpdateWindow();
    return true;
}

bool CGalleryApp::TakePicture(CMainFrame& frame, const PictureOrder& order)
{
    frame.ShowPage(FindPage(order.pageName));
    if (!RunUntilQuiet(*this))
        return false;
    if (SaveWindowAsPng(frame, order.file))
        return true;

    ReportError(L"the picture can't be saved: " + order.file);
    m_nExitCode = kExitFailed;
    return true;
}

void CGalleryApp::TakePictures(const CommandLine& commandLine)
{
    auto& frame = *static_cast<CMainFrame*>(m_pMainWnd);
    for (const PictureOrder& order : commandLine.pictures)
    {
        if (!TakePicture(frame, order))
        {
            ReportError(L"ended before the picture was taken: " + order.file);
            m_nExitCode = kExitFailed;
            return;
        }
    }
    frame.DestroyWindow();
}
