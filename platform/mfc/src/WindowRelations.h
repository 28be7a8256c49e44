#pragma once

#include <windows.h>

namespace vxmfc
{

bool IsChildWindow(HWND hWnd);

/// @return a child's parent, any other window's owner; null when there is none.
HWND ParentOrOwner(HWND hWnd);

/// @return the last one in the chain of parents and owners; the window itself when it has neither.
HWND TopLevelWindow(HWND hWnd);

} // namespace vxmfc
