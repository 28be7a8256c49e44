#include <windows.h>

#include "ThreadRecord.h"

// The framework's own module. When the whole process ends nothing is freed: other modules are gone already.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*hInstance*/, DWORD dwReason, LPVOID pReserved)
{
    const bool bUnloaded = dwReason == DLL_PROCESS_DETACH && pReserved == nullptr;
    if (dwReason == DLL_THREAD_DETACH || bUnloaded)
        EndThreadRecord();
    return TRUE;
}
