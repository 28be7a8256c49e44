#pragma once

#include <windows.h>

#include <vxmfc/Export.h>
#include <vxmfc/Forward.h>
#include <vxmfc/Macros.h>

/// The state of one module: the program, or a regular DLL on the shared framework.
///
/// Which module's state is current is a property of the thread; see AfxSetModuleState.
class VXMFC_API AFX_MODULE_STATE
{
public:
    AFX_MODULE_STATE(BOOL bDLL, WNDPROC pfnAfxWndProc, DWORD dwVersion);
    ~AFX_MODULE_STATE();

    AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
    AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

    BOOL m_bDLL;
    DWORD m_dwVersion;
    WNDPROC m_pfnAfxWndProc; ///< the window procedure of windows that this module creates or subclasses
    HINSTANCE m_hCurrentInstanceHandle;
    HINSTANCE m_hCurrentResourceHandle;
    CWinApp* m_pCurrentWinApp;
    LPCTSTR m_lpszCurrentAppName;
    CDynLinkLibrary* m_pFirstLibrary; ///< chain of extension modules, the newest first

    /// Different for every state that a process ever has, also of DLLs loaded one after the other.
    UINT SerialNumber() const { return m_nSerial; }

private:
    const UINT m_nSerial;
};

/// The framework version that module states are stamped with.
constexpr DWORD kAfxVersion = 0x0E00;

VXMFC_API AFX_MODULE_STATE* AFXAPI AfxGetModuleState();
VXMFC_API AFX_MODULE_STATE* AFXAPI
AfxSetModuleState(AFX_MODULE_STATE* pNewState);     // returns the previous state
AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState(); // of the module that the caller is linked into

/// Makes a module's state current for the rest of the scope.
class VXMFC_API AFX_MAINTAIN_STATE2
{
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pNewState);
    ~AFX_MAINTAIN_STATE2();

    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_pPreviousState;
};

#define AFX_MANAGE_STATE(p) AFX_MAINTAIN_STATE2 _ctlState(p)
