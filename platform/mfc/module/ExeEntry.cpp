#include <vxmfc/Module.h>

// Linked into every program: its module state is the program's, and its entry point runs the application
// object. A program with an entry point of its own, such as a console program, calls AfxWinInit itself.

AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState()
{
    return vxmfc::ProgramModuleState();
}

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow)
{
    return vxmfc::RunProgram(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
