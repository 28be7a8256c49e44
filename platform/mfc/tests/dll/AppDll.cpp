#include <afxwin.h>

#include <cwchar>

#include "AppDll.h"

namespace
{

AppDllRecord& Record()
{
    wchar_t address[32] = {};
    ::GetEnvironmentVariable(APP_DLL_RECORD, address, 32);
    return *reinterpret_cast<AppDllRecord*>(std::wcstoull(address, nullptr, 16));
}

bool IsOwnStateCurrent()
{
    return AfxGetModuleState() == AfxGetStaticModuleState();
}

class CDllApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        ++Record().nInitCalls;
        Record().bInitInOwnState = IsOwnStateCurrent() && AfxGetApp() == this;
        Record().bInitSeesOwnInstance =
            m_hInstance == AfxGetInstanceHandle() && m_hInstance != ::GetModuleHandle(nullptr);
        return ::GetEnvironmentVariable(APP_DLL_REFUSES, nullptr, 0) == 0;
    }

    int ExitInstance() override
    {
        ++Record().nExitCalls;
        Record().bExitInOwnState = IsOwnStateCurrent();
        return CWinApp::ExitInstance();
    }
};

CDllApp g_app;

} // namespace

extern "C" __declspec(dllexport) AFX_MODULE_STATE* AppDllState()
{
    return AfxGetStaticModuleState();
}
