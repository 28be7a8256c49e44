#pragma once

#include <afxwin.h>

/// Runs a thread's object from InitInstance to ExitInstance.
/// @return the thread's exit code.
int RunPumpThread(CWinThread& thread);
