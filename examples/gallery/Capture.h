#pragma once

#include <afxwin.h>

/// Saves a picture of a whole window, with its frame and caption, as a PNG file. GDI+ must be running.
/// @return whether the file was written.
bool SaveWindowAsPng(CWnd& window, const CString& file);
