#pragma once

#include <afxwin.h>

#include <vector>

/// A page, and the file that a picture of it goes to.
struct PictureOrder
{
    CString pageName; // or that of a scene; empty: the first page
    CString file;
};

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Action
    {
        ShowWindow,
        ListPages,
        ShowHelp,
        Refuse,
    };

    Action action = Action::ShowWindow;
    CString pageName;                   // or that of a scene, to open with; empty: the first page
    CSize size96 = CSize(0, 0);         // of the window; none: the gallery's own
    std::vector<PictureOrder> pictures; // to take one after the other; none: the window stays open
    CString error;                      // why the command line is refused
};

/// Reads the process's command line.
CommandLine ReadCommandLine();

/// @return the text of --help.
CString UsageText();
