#pragma once

#include <afxwin.h>

#if defined(TEST_DLL_BUILDING)
#define TEST_DLL_API __declspec(dllexport)
#else
#define TEST_DLL_API __declspec(dllimport)
#endif

/// A class that can be created by name and is implemented in the DLL.
class TEST_DLL_API CDllObject : public CObject
{
    DECLARE_DYNCREATE(CDllObject)

public:
    int m_nAnswer = 42;
};

// What a regular DLL answers, from code that makes the DLL's module state current first ("inside") and from
// code that does not ("outside").
namespace testdll
{

TEST_DLL_API AFX_MODULE_STATE* State();
TEST_DLL_API BOOL IsStateCurrent();
TEST_DLL_API HINSTANCE InstanceInside();
TEST_DLL_API HINSTANCE InstanceOutside();
TEST_DLL_API HINSTANCE ResourceHandleInside();
TEST_DLL_API HINSTANCE ResourceHandleOutside();
TEST_DLL_API HINSTANCE FindStringInside(UINT nID);
TEST_DLL_API HINSTANCE FindStringOutside(UINT nID);
TEST_DLL_API CString LoadInside(UINT nID);
TEST_DLL_API CString LoadOutside(UINT nID);
TEST_DLL_API CWinApp* AppInside();
TEST_DLL_API CWinThread* ThreadInside();
TEST_DLL_API CWnd* MainWndInside();
TEST_DLL_API BOOL KnowsWindowInside(HWND hWnd);

/// Sends a message while the DLL's state is current.
TEST_DLL_API LRESULT SendInside(HWND hWnd, UINT nMessage);

/// A window whose object lives in the DLL; it answers kTellState with the module state of its handlers.
constexpr UINT kTellState = WM_APP + 1;
TEST_DLL_API HWND CreateDllWindow();

TEST_DLL_API void ThrowResourceException();
TEST_DLL_API CObject* CreateByName(LPCSTR lpszClassName);

} // namespace testdll
