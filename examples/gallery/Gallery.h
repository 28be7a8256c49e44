#pragma once

#include "CommandLine.h"

class CMainFrame;

/// The gallery: a window with one page per family of the library, or a picture of one.
class CGalleryApp : public CWinApp
{
public:
    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    bool DoWithoutWindow(const CommandLine& commandLine);
    bool OpenWindow(const CommandLine& commandLine);
    bool TakePicture(CMainFrame& frame, const PictureOrder& order);
    void TakePictures(const CommandLine& commandLine);

    int m_nExitCode = 0;
    bool m_bComRuns = false;
};
