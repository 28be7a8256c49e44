#pragma once

#include <afxwin.h>

// What the framework offers to the two small objects that are linked into programs and DLLs.

namespace vxmfc
{

/// The state of the program, also when a DLL's state is current.
VXMFC_API AFX_MODULE_STATE* ProgramModuleState();

/// Starts the framework, runs the application object and ends the framework.
/// @return the program's exit code; -1 without an application object.
VXMFC_API int RunProgram(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);

} // namespace vxmfc
