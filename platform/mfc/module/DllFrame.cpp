#include <afxdllx.h>

#include <vxmfc/Module.h>

// Linked into every regular DLL: its module state, and what starts and ends the framework for it.

namespace
{

LRESULT CALLBACK ModuleWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxWndProc(hWnd, nMsg, wParam, lParam);
}

/// The DLL's state, which is current while the DLL's static objects are made: an application object among
/// them enters it.
class ModuleFrame
{
public:
    ModuleFrame() : m_state(TRUE, ModuleWndProc, kAfxVersion), m_pLoadersState(AfxSetModuleState(&m_state)) {}

    AFX_MODULE_STATE* State() { return &m_state; }

    // Once, when the static objects are made.
    void RestoreLoadersState() { AfxSetModuleState(m_pLoadersState); }

private:
    AFX_MODULE_STATE m_state;
    AFX_MODULE_STATE* const m_pLoadersState;
};

// Made before every other static object of the DLL and destroyed after them.
constexpr int kFirstOfAll = 101;
[[gnu::init_priority(kFirstOfAll)]] ModuleFrame g_frame;

AFX_EXTENSION_MODULE g_extension = {};
TCHAR g_emptyCommandLine[] = _T("");

BOOL Start(HINSTANCE hInstance)
{
    if (!AfxWinInit(hInstance, nullptr, g_emptyCommandLine, 0))
        return FALSE;
    AfxInitExtensionModule(g_extension, hInstance);
    new CDynLinkLibrary(g_extension); // AfxTermExtensionModule deletes it
    CWinApp* const pApp = AfxGetApp();
    return pApp == nullptr || pApp->InitInstance(); // after FALSE the system detaches the DLL again
}

void End()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->ExitInstance();
    AfxTermExtensionModule(g_extension, TRUE);
    AfxWinTerm();
}

} // namespace

AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState()
{
    return g_frame.State();
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID /*pReserved*/)
{
    if (dwReason == DLL_PROCESS_ATTACH)
    {
        const BOOL bStarted = Start(hInstance);
        g_frame.RestoreLoadersState();
        return bStarted;
    }

    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    if (dwReason == DLL_THREAD_DETACH)
        AfxTermThread();
    else if (dwReason == DLL_PROCESS_DETACH)
        End();
    return TRUE;
}
