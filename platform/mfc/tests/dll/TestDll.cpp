#include "TestDll.h"

namespace
{

class CTellingWnd : public CWnd
{
protected:
    afx_msg LRESULT OnTellState(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(AfxGetModuleState()); }

    // Made with new; lives as long as its window.
    void PostNcDestroy() override { delete this; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTellingWnd, CWnd)
    ON_MESSAGE(testdll::kTellState, &CTellingWnd::OnTellState)
END_MESSAGE_MAP()

HINSTANCE FindString(UINT nID)
{
    constexpr UINT kStringsPerBlock = 16;
    return AfxFindResourceHandle(MAKEINTRESOURCE(nID / kStringsPerBlock + 1), RT_STRING);
}

CString Load(UINT nID)
{
    CString text;
    text.LoadString(nID);
    return text;
}

} // namespace

IMPLEMENT_DYNCREATE(CDllObject, CObject)

namespace testdll
{

AFX_MODULE_STATE* State()
{
    return AfxGetStaticModuleState();
}

BOOL IsStateCurrent()
{
    return AfxGetModuleState() == AfxGetStaticModuleState();
}

HINSTANCE InstanceInside()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetInstanceHandle();
}

HINSTANCE InstanceOutside()
{
    return AfxGetInstanceHandle();
}

HINSTANCE ResourceHandleInside()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetResourceHandle();
}

HINSTANCE ResourceHandleOutside()
{
    return AfxGetResourceHandle();
}

HINSTANCE FindStringInside(UINT nID)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return FindString(nID);
}

HINSTANCE FindStringOutside(UINT nID)
{
    return FindString(nID);
}

CString LoadInside(UINT nID)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return Load(nID);
}

CString LoadOutside(UINT nID)
{
    return Load(nID);
}

CWinApp* AppInside()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetApp();
}

CWinThread* ThreadInside()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetThread();
}

CWnd* MainWndInside()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetMainWnd();
}

BOOL KnowsWindowInside(HWND hWnd)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return CWnd::FromHandlePermanent(hWnd) != nullptr;
}

LRESULT SendInside(HWND hWnd, UINT nMessage)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return ::SendMessage(hWnd, nMessage, 0, 0);
}

HWND CreateDllWindow()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    auto* const pWnd = new CTellingWnd;
    const BOOL bMade =
        pWnd->CreateEx(0, AfxRegisterWndClass(0), _T("of the DLL"), WS_POPUP, CRect(), nullptr, 0);
    return bMade ? pWnd->m_hWnd : nullptr;
}

void ThrowResourceException()
{
    AfxThrowResourceException();
}

CObject* CreateByName(LPCSTR lpszClassName)
{
    return CRuntimeClass::CreateObject(lpszClassName);
}

} // namespace testdll
