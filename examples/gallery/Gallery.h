#pragma once

#include "CommandLine.h"

/// The gallery: a window with one page per family of the library, or a picture of one.
class CGalleryApp : public CWinApp
{
public:
    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    bool DoWithoutWindow(const CommandLine& commandLine);
    bool OpenWindow(const CString& pageName);
    void Capture(const CString& file);

    int m_nExitCode = 0;
};
