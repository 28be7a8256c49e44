#pragma once

#include <afx.h>

/// What the framework knows of a DLL whose resources others shall find; a static object of that DLL.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

/// Names a DLL's modules; DllMain calls it at process attach. @return TRUE.
VXMFC_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);

/// Takes the DLL out of the current module's chain of libraries, or out of every module's with bAll.
VXMFC_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// An entry of the current module's chain of libraries: AfxFindResourceHandle searches it from now on.
///
/// Made with new; AfxTermExtensionModule deletes it.
class VXMFC_API CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    ~CDynLinkLibrary() override; // leaves the chain

    HMODULE m_hModule;
    HMODULE m_hResource;
    CDynLinkLibrary* m_pNextDLL;
    BOOL m_bSystem; // searched after the libraries that are not

private:
    void EnterChain();

    AFX_MODULE_STATE* m_pOwner;
};

VXMFC_API HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName);
VXMFC_API HINSTANCE AFXAPI AfxLoadLibraryEx(LPCTSTR lpFileName, HANDLE hFile, DWORD dwFlags);
VXMFC_API BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib);
