#include <afxwin.h>

#include <vxmfc/Module.h>

#include <algorithm>
#include <mutex>

#include "ModuleSearch.h"
#include "ThreadRecord.h"
#include "ThreadState.h"

namespace
{

// Windows of the program are called in the program's state, also when a DLL made its own current and then
// sent them a message.
LRESULT CALLBACK ProgramWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    AFX_MANAGE_STATE(vxmfc::ProgramModuleState());
    return AfxWndProc(hWnd, nMsg, wParam, lParam);
}

UINT NextSerialNumber()
{
    static volatile LONG nLast = 0;
    return static_cast<UINT>(::InterlockedIncrement(&nLast));
}

/// Guards the chains of libraries of all module states, and the list of all states.
std::mutex& ChainMutex()
{
    static std::mutex mutex;
    return mutex;
}

// Guarded by ChainMutex.
std::vector<AFX_MODULE_STATE*>& AllModuleStates()
{
    static std::vector<AFX_MODULE_STATE*> states;
    return states;
}

CDynLinkLibrary* FindLibrary(const AFX_MODULE_STATE& state, HMODULE hModule)
{
    const std::lock_guard<std::mutex> lock(ChainMutex());
    CDynLinkLibrary* pLibrary = state.m_pFirstLibrary;
    while (pLibrary != nullptr && pLibrary->m_hModule != hModule)
        pLibrary = pLibrary->m_pNextDLL;
    return pLibrary;
}

void DeleteLibraries(const AFX_MODULE_STATE& state, HMODULE hModule)
{
    while (CDynLinkLibrary* const pLibrary = FindLibrary(state, hModule))
        delete pLibrary;
}

std::vector<AFX_MODULE_STATE*> CopyOfAllModuleStates()
{
    const std::lock_guard<std::mutex> lock(ChainMutex());
    return AllModuleStates();
}

} // namespace

std::vector<HMODULE> ChainedResourceModules()
{
    const AFX_MODULE_STATE& state = *AfxGetModuleState();
    const std::lock_guard<std::mutex> lock(ChainMutex());
    std::vector<HMODULE> modules;
    for (const BOOL bSystem : {FALSE, TRUE})
    {
        for (const CDynLinkLibrary* pLibrary = state.m_pFirstLibrary; pLibrary;
             pLibrary = pLibrary->m_pNextDLL)
        {
            if (pLibrary->m_bSystem == bSystem)
                modules.push_back(pLibrary->m_hResource);
        }
    }
    return modules;
}

AFX_MODULE_STATE::AFX_MODULE_STATE(BOOL bDLL, WNDPROC pfnAfxWndProc, DWORD dwVersion)
    : m_bDLL(bDLL), m_dwVersion(dwVersion), m_pfnAfxWndProc(pfnAfxWndProc), m_hCurrentInstanceHandle(nullptr),
      m_hCurrentResourceHandle(nullptr), m_pCurrentWinApp(nullptr), m_lpszCurrentAppName(nullptr),
      m_pFirstLibrary(nullptr), m_nSerial(NextSerialNumber())
{
    const std::lock_guard<std::mutex> lock(ChainMutex());
    AllModuleStates().push_back(this);
}

AFX_MODULE_STATE::~AFX_MODULE_STATE()
{
    while (m_pFirstLibrary != nullptr)
        delete m_pFirstLibrary;
    // Once more: the destructors of the module's static objects came after AfxWinTerm.
    EndModuleThreadState(*this);
    if (CurrentThreadState().moduleState == this)
        CurrentThreadState().moduleState = nullptr;

    const std::lock_guard<std::mutex> lock(ChainMutex());
    auto& states = AllModuleStates();
    states.erase(std::remove(states.begin(), states.end(), this), states.end());
}

AFX_MODULE_STATE* vxmfc::ProgramModuleState()
{
    // Never destroyed: it is current again whenever the state of a DLL ends.
    static AFX_MODULE_STATE* const pState = new AFX_MODULE_STATE(FALSE, ProgramWndProc, kAfxVersion);
    return pState;
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pNextDLL(nullptr), m_bSystem(bSystem),
      m_pOwner(AfxGetModuleState())
{
    EnterChain();
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_pNextDLL(nullptr), m_bSystem(FALSE),
      m_pOwner(AfxGetModuleState())
{
    EnterChain();
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    const std::lock_guard<std::mutex> lock(ChainMutex());
    CDynLinkLibrary** ppLink = &m_pOwner->m_pFirstLibrary;
    while (*ppLink != nullptr && *ppLink != this)
        ppLink = &(*ppLink)->m_pNextDLL;
    if (*ppLink == this)
        *ppLink = m_pNextDLL;
}

void CDynLinkLibrary::EnterChain()
{
    const std::lock_guard<std::mutex> lock(ChainMutex());
    m_pNextDLL = m_pOwner->m_pFirstLibrary;
    m_pOwner->m_pFirstLibrary = this;
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (!state.bInitialized)
        state = {TRUE, hModule, hModule};
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    if (!state.bInitialized)
        return;
    if (!bAll)
        return DeleteLibraries(*AfxGetModuleState(), state.hModule);
    for (const AFX_MODULE_STATE* pState : CopyOfAllModuleStates())
        DeleteLibraries(*pState, state.hModule);
}

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource)
{
    AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    return FindResourceModule([=](HMODULE hModule)
                              { return ::FindResource(hModule, lpszName, lpszType) != nullptr; });
}

HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName)
{
    return ::LoadLibrary(lpszModuleName);
}

HINSTANCE AFXAPI AfxLoadLibraryEx(LPCTSTR lpFileName, HANDLE hFile, DWORD dwFlags)
{
    return ::LoadLibraryEx(lpFileName, hFile, dwFlags);
}

BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib)
{
    return ::FreeLibrary(hInstLib);
}
