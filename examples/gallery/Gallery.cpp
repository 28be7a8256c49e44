#include "Gallery.h"

#include "Console.h"
#include "MainFrame.h"
#include "MessagePump.h"
#include "Pages.h"

#include <vxdpi/Dpi.h>

namespace
{
constexpr int kExitFailed = 1;
constexpr int kExitRefused = 2;

CString ListOfPages()
{
    CString text;
    for (const CString& name : SceneNames())
        text += name + L"\n";
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
        if (FindScene(name).nPage == kNoPage)
            return name;
    }
    return CString();
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
    const PageScene scene = FindScene(commandLine.pageName);
    pFrame->ShowPage(scene.nPage);
    pFrame->ShowWindow(m_nCmdShow);
    pFrame->UpdateWindow();
    if (commandLine.pictures.empty() && scene.nScene > 0)
        pFrame->Page().ShowScene(scene.nScene);
    return true;
}

bool CGalleryApp::TakePicture(CMainFrame& frame, const PictureOrder& order)
{
    const PageScene scene = FindScene(order.pageName);
    frame.ShowPage(scene.nPage);
    if (!RunUntilQuiet())
        return false;
    if (scene.nScene > 0)
    {
        frame.Page().ShowScene(scene.nScene);
        if (!RunUntilQuiet())
            return false;
    }
    if (frame.Page().SavePicture(scene.nScene, order.file))
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
