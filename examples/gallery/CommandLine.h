#pragma once

#include <afxwin.h>

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
    CString pageName;    // empty: the first page
    CString captureFile; // empty: the window stays open
    CString error;       // why the command line is refused
};

/// Reads the process's command line.
CommandLine ReadCommandLine();

/// @return the text of --help.
CString UsageText();
