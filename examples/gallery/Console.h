#pragma once

#include <afxwin.h>

/// Writes text to the program's standard output; without one, shows it in a message box.
void PrintText(const CString& text);

/// Writes a message, and a line end, to the standard error; without one, shows it in a message box.
void ReportError(const CString& message);
