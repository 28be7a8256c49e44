#pragma once

#include <afxwin.h>

namespace vxmfc
{

/// Unregisters what AfxRegisterClass registered for a DLL; to be called when the DLL is unloaded.
void UnregisterWindowClasses(HINSTANCE hInstance);

/// @return the default classes of windows without a class name of their own.
LPCTSTR PlainWindowClass();
LPCTSTR FrameOrViewClass();

} // namespace vxmfc
