#pragma once

#include <afxwin.h>

/// What a proxy has to know of its frame before it ends the frame's modal loop. The frame's own family
/// answers: it knows proxies, and they don't know it.
/// @param frame  a frame that has proxies; taken for one without a test.
bool IsInModalLoop(const CFrameWnd& frame);
