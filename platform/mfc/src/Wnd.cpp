#include <afxwin.h>

#include <tpcshrd.h>

#include "ModalLoop.h"
#include "ThreadState.h"
#include "WindowClasses.h"
#include "WindowCreation.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY()
    ON_WM_CTLCOLOR()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_WM_DELETEITEM()
    ON_WM_COMPAREITEM()
    ON_WM_CHARTOITEM()
    ON_WM_VKEYTOITEM()
    ON_WM_PARENTNOTIFY()
    ON_MESSAGE(WM_TABLET_QUERYSYSTEMGESTURESTATUS, &CWnd::OnQuerySystemGestureStatus)
END_MESSAGE_MAP()

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

namespace
{

bool IsPlaceInZOrder(const CWnd* pWnd)
{
    return pWnd == &CWnd::wndTop || pWnd == &CWnd::wndBottom || pWnd == &CWnd::wndTopMost ||
           pWnd == &CWnd::wndNoTopMost;
}

// Only the thread of a window gets its messages, and only there they find the window's object.
bool IsWindowOfThread(HWND hWnd)
{
    return ::GetWindowThreadProcessId(hWnd, nullptr) == ::GetCurrentThreadId();
}

// The thread must not keep a pointer to an object that may delete itself.
// @return true when the window was the thread's main window.
bool LeaveThread(CWinThread* pThread, const CWnd* pWnd)
{
    if (pThread == nullptr)
        return false;
    if (pThread->m_pActiveWnd == pWnd)
        pThread->m_pActiveWnd = nullptr;
    if (pThread->m_pMainWnd != pWnd)
        return false;
    pThread->m_pMainWnd = nullptr;
    return true;
}

// The thread ends with its main window. A DLL's application object has no say in that: it does not pump.
void EndAsMainWindow(const CWnd* pWnd)
{
    CWinThread* const pThread = AfxGetThread();
    if (!LeaveThread(pThread, pWnd))
        return;
    const bool hasPump = !AfxGetModuleState()->m_bDLL || pThread != AfxGetApp();
    if (hasPump)
        ::PostQuitMessage(0);
}

} // namespace

CWnd* WndTraits::Create(HWND hWnd)
{
    return new CWnd(hWnd);
}

void WndTraits::Release(CWnd* pWnd)
{
    pWnd->m_hWnd = nullptr;
    delete pWnd;
}

CWnd::CWnd() : CWnd(nullptr) {}

CWnd::CWnd(HWND hWnd)
    : m_hWnd(hWnd), m_hWndOwner(nullptr), m_pfnSuper(nullptr), m_pCreation(nullptr), m_pModalLoop(nullptr)
{
}

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && !IsPlaceInZOrder(this))
    {
        CWnd::DestroyWindow();
        Detach();
    }
    if (m_pModalLoop != nullptr)
        m_pModalLoop->WindowEnded();
    if (m_pCreation != nullptr)
        m_pCreation->ObjectEnded();
}

BOOL CWnd::Attach(HWND hWndNew)
{
    if (hWndNew == nullptr || m_hWnd != nullptr)
        return FALSE;
    m_hWnd = hWndNew;
    CurrentModuleThreadState().windows.SetPermanent(hWndNew, this);
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND hWnd = m_hWnd;
    m_hWnd = nullptr;
    if (hWnd != nullptr && FromHandlePermanent(hWnd) == this)
        CurrentModuleThreadState().windows.RemovePermanent(hWnd);
    return hWnd;
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    return CurrentModuleThreadState().windows.FromHandle(hWnd);
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    return CurrentModuleThreadState().windows.FindPermanent(hWnd);
}

void PASCAL CWnd::DeleteTempMap()
{
    CurrentModuleThreadState().windows.DeleteTemporaries();
}

void CWnd::AdoptWindow(HWND hWnd)
{
    Attach(hWnd);
    PreSubclassWindow();
    const WNDPROC pfnOwn = AfxGetModuleState()->m_pfnAfxWndProc;
    const LONG_PTR previous = ::SetWindowLongPtr(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnOwn));
    const WNDPROC pfnPrevious = reinterpret_cast<WNDPROC>(previous);
    // A class may have been registered with the framework's procedure, which ends here and not in itself.
    const bool isFrameworks = pfnPrevious == pfnOwn || pfnPrevious == &AfxWndProc;
    m_pfnSuper = isFrameworks ? nullptr : pfnPrevious;
}

HWND CWnd::ReleaseWindow()
{
    if (m_hWnd != nullptr && m_pfnSuper != nullptr)
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    m_pfnSuper = nullptr;
    return Detach();
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (m_hWnd != nullptr || !IsWindowOfThread(hWnd) || FromHandlePermanent(hWnd) != nullptr)
        return FALSE;
    AdoptWindow(hWnd);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    return SubclassWindow(::GetDlgItem(pParent->GetSafeHwnd(), static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow()
{
    return ReleaseWindow();
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = vxmfc::PlainWindowClass();
    if (cs.hMenu == nullptr && (cs.style & WS_CHILD) != 0)
        cs.hMenu = reinterpret_cast<HMENU>(this); // an ID that no other child has
    return TRUE;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* pContext)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    const HMENU hMenuOrID = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID));
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, pParentWnd->GetSafeHwnd(), hMenuOrID,
                    lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    if (m_hWnd != nullptr)
        return FALSE; // without PostNcDestroy: the object's window lives on
    CREATESTRUCT cs = {};
    cs.lpCreateParams = lpParam;
    cs.hInstance = AfxGetInstanceHandle();
    cs.hMenu = nIDorHMenu;
    cs.hwndParent = hWndParent;
    cs.cy = nHeight;
    cs.cx = nWidth;
    cs.y = y;
    cs.x = x;
    cs.style = static_cast<LONG>(dwStyle);
    cs.lpszName = lpszWindowName;
    cs.lpszClass = lpszClassName;
    cs.dwExStyle = dwExStyle;
    if (!PreCreateWindow(cs))
    {
        EndFailedCreation();
        return FALSE;
    }

    vxmfc::WindowCreation creation(this);
    const DWORD dwFinalStyle = static_cast<DWORD>(cs.style);
    return creation.Finish(::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, dwFinalStyle, cs.x, cs.y,
                                            cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance,
                                            cs.lpCreateParams));
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
        return FALSE;
    const HWND hWnd = m_hWnd;
    CWnd* const pPermanent = FromHandlePermanent(hWnd);
    const BOOL isDestroyed = ::DestroyWindow(hWnd);
    // A window that was attached only does not tell its object; any other object may be gone by now.
    if (isDestroyed && pPermanent != nullptr && FromHandlePermanent(hWnd) == pPermanent)
        pPermanent->Detach();
    return isDestroyed;
}

void CWnd::OnNcDestroy()
{
    EndAsMainWindow(this);
    Default();
    ReleaseWindow();
    if (m_pModalLoop != nullptr)
        m_pModalLoop->WindowEnded();
    if (m_pCreation != nullptr)
        m_pCreation->ObjectEnded();
    PostNcDestroy();
}

void CWnd::EndFailedCreation()
{
    LeaveThread(AfxGetThread(), this);
    PostNcDestroy();
}

void CWnd::PostNcDestroy() {}

LRESULT CWnd::OnQuerySystemGestureStatus(WPARAM, LPARAM lParam)
{
    CPoint point(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
    ScreenToClient(&point);
    return static_cast<LRESULT>(GetGestureStatus(point));
}

ULONG CWnd::GetGestureStatus(CPoint)
{
    return 0;
}

int CWnd::RunModalLoop(DWORD dwFlags)
{
    vxmfc::ModalLoop loop(this);
    loop.Run(dwFlags);
    return loop.Result();
}

BOOL CWnd::ContinueModal()
{
    return m_pModalLoop != nullptr && m_pModalLoop->IsRunning();
}

void CWnd::EndModalLoop(int nResult)
{
    if (m_pModalLoop != nullptr)
        m_pModalLoop->End(nResult);
}

void CWnd::BeginModalState()
{
    ::EnableWindow(m_hWnd, FALSE);
}

void CWnd::EndModalState()
{
    ::EnableWindow(m_hWnd, TRUE);
}
