#pragma once

#include <afxwin.h>

/// Saves a picture of a whole window, with its frame and caption, as a PNG file. GDI+ must be running.
/// @return whether the file was written.
bool SaveWindowAsPng(CWnd& window, const CString& file);

/// Saves a bitmap as a PNG file. GDI+ must be running.
/// @param bitmap  selected into no device context.
/// @return whether the file was written.
bool SaveBitmapAsPng(CBitmap& bitmap, const CString& file);

/// Copies a part of what the screen shows.
/// @param area  pixels of the screen.
/// @param bitmap  empty; gets the size of the area.
bool CopyScreen(const CRect& area, CBitmap& bitmap);
