#include <afxpriv.h>
#include <afxwin.h>

#include "WindowClasses.h"
#include "WindowRelations.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
    ON_WM_CREATE()
    ON_WM_CLOSE()
    ON_WM_SIZE()
    ON_WM_ACTIVATE()
    ON_WM_SETFOCUS()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_INITMENUPOPUP()
END_MESSAGE_MAP()

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

namespace
{

constexpr UINT kPopupMenu = static_cast<UINT>(-1); // in place of an item's ID

// The system's choice of a position includes the size along the same axis.
int Extent(LONG nFirst, LONG nLast)
{
    return nFirst == CW_USEDEFAULT ? CW_USEDEFAULT : nLast - nFirst;
}

bool IsOwnedBy(HWND hWnd, HWND hOwner)
{
    while (hWnd != nullptr && hWnd != hOwner)
        hWnd = ::GetWindow(hWnd, GW_OWNER);
    return hWnd != nullptr;
}

struct OwnedWindows
{
    HWND hOwner;
    std::vector<HWND> enabled;
};

BOOL CALLBACK CollectOwned(HWND hWnd, LPARAM lParam)
{
    auto& owned = *reinterpret_cast<OwnedWindows*>(lParam);
    if (::IsWindowEnabled(hWnd) && IsOwnedBy(hWnd, owned.hOwner))
        owned.enabled.push_back(hWnd);
    return TRUE;
}

// The owner itself and all top-level windows that it owns, directly or not, as far as they are enabled.
std::vector<HWND> EnabledWindowsOf(HWND hOwner)
{
    OwnedWindows owned = {hOwner, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), &CollectOwned, reinterpret_cast<LPARAM>(&owned));
    return owned.enabled;
}

int ShowCommandToActivate(const CWnd& frame)
{
    if (!frame.IsWindowVisible())
        return SW_SHOWNORMAL;
    return frame.IsIconic() ? SW_RESTORE : SW_SHOW;
}

} // namespace

CFrameWnd::CFrameWnd()
    : m_bAutoMenuEnable(TRUE), m_pActiveView(nullptr), m_hAccelTable(nullptr), m_nModalDepth(0),
      m_bInLayout(FALSE)
{
}

CFrameWnd::~CFrameWnd()
{
    EnableDisabledWindows(); // nobody can end the modal state any more
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = vxmfc::FrameOrViewClass();
    return CWnd::PreCreateWindow(cs);
}

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, LPCTSTR lpszMenuName, DWORD dwExStyle, CCreateContext* pContext)
{
    CMenu menu;
    if (lpszMenuName != nullptr && !menu.LoadMenu(lpszMenuName))
    {
        EndFailedCreation();
        return FALSE;
    }
    const HMENU hMenu = menu.Detach(); // the window's, once that exists
    const int nWidth = Extent(rect.left, rect.right);
    const int nHeight = Extent(rect.top, rect.bottom);
    const BOOL isCreated = CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                                    nWidth, nHeight, pParentWnd->GetSafeHwnd(), hMenu, pContext);
    if (!isCreated && ::IsMenu(hMenu))
        ::DestroyMenu(hMenu);
    return isCreated;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd, CCreateContext* pContext)
{
    const LPCTSTR lpszResource = MAKEINTRESOURCE(nIDResource);
    CString strings;
    CString title;
    if (strings.LoadString(nIDResource))
        AfxExtractSubString(title, strings, 0);
    const HICON hIcon = ::LoadIcon(AfxFindResourceHandle(lpszResource, RT_GROUP_ICON), lpszResource);
    const LPCTSTR lpszClass =
        AfxRegisterWndClass(CS_DBLCLKS, nullptr, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), hIcon);
    if (!Create(lpszClass, title, dwDefaultStyle, rectDefault, pParentWnd, lpszResource, 0, pContext))
        return FALSE;
    LoadAccelTable(lpszResource);
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName)
{
    const HINSTANCE hModule = AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR);
    m_hAccelTable = ::LoadAccelerators(hModule, lpszResourceName);
    return m_hAccelTable != nullptr;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!OnCreateClient(lpCreateStruct, static_cast<CCreateContext*>(lpCreateStruct->lpCreateParams)))
        return -1;
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* pContext)
{
    if (pContext == nullptr || pContext->m_pNewViewClass == nullptr)
        return TRUE;
    return CreateView(pContext) != nullptr;
}

CWnd* CFrameWnd::CreateView(CCreateContext* pContext, UINT nID)
{
    CObject* const pObject = pContext->m_pNewViewClass->CreateObject();
    CWnd* const pView = DYNAMIC_DOWNCAST(CWnd, pObject);
    if (pView == nullptr)
    {
        delete pObject;
        return nullptr;
    }
    // A view that can't be created has deleted itself.
    const BOOL isCreated =
        pView->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), this, nID, pContext);
    return isCreated ? pView : nullptr;
}

void CFrameWnd::InitialUpdateFrame(CDocument*, BOOL bMakeVisible)
{
    CView* const pFirst = DYNAMIC_DOWNCAST(CView, GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE));
    if (m_pActiveView == nullptr && pFirst != nullptr)
        SetActiveView(pFirst, FALSE);
    if (!bMakeVisible)
        return;

    const HWND hWnd = m_hWnd;
    SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
    if (!::IsWindow(hWnd))
        return; // a view gave up, and ended the frame
    ActivateFrame();
    if (m_pActiveView != nullptr)
        m_pActiveView->OnActivateView(TRUE, m_pActiveView, m_pActiveView);
}

void CFrameWnd::ActivateFrame(int nCmdShow)
{
    ShowWindow(nCmdShow == -1 ? ShowCommandToActivate(*this) : nCmdShow);
    BringWindowToTop();
}

CFrameWnd* CFrameWnd::GetActiveFrame()
{
    return this;
}

CView* CFrameWnd::GetActiveView() const
{
    return m_pActiveView;
}

void CFrameWnd::SetActiveView(CView* pViewNew, BOOL bNotify)
{
    CView* const pViewOld = m_pActiveView;
    if (pViewNew == pViewOld)
        return;
    m_pActiveView = nullptr;
    if (pViewOld != nullptr)
        pViewOld->OnActivateView(FALSE, pViewNew, pViewOld);
    m_pActiveView = pViewNew;
    if (pViewNew != nullptr && bNotify)
        pViewNew->OnActivateView(TRUE, pViewNew, pViewOld);
}

void CFrameWnd::RecalcLayout(BOOL)
{
    // Placing a window may change the size of the frame's client area.
    if (m_bInLayout)
        return;
    m_bInLayout = TRUE;
    RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST);
    m_bInLayout = FALSE;
}

void CFrameWnd::BeginModalState()
{
    if (m_nModalDepth++ > 0)
        return;
    m_disabledWindows = EnabledWindowsOf(vxmfc::TopLevelWindow(m_hWnd));
    for (const HWND hWnd : m_disabledWindows)
        ::EnableWindow(hWnd, FALSE);
}

void CFrameWnd::EndModalState()
{
    if (m_nModalDepth == 0 || --m_nModalDepth > 0)
        return;
    EnableDisabledWindows();
}

void CFrameWnd::EnableDisabledWindows()
{
    for (const HWND hWnd : m_disabledWindows)
        ::EnableWindow(hWnd, TRUE);
    m_disabledWindows.clear();
}

BOOL CFrameWnd::InModalState() const
{
    return m_nModalDepth != 0;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool isKey = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    return isKey && m_hAccelTable != nullptr && ::TranslateAccelerator(m_hWnd, m_hAccelTable, pMsg);
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (m_pActiveView != nullptr && m_pActiveView->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinApp* const pApp = AfxGetApp();
    return pApp != nullptr && pApp->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CFrameWnd::PostNcDestroy()
{
    delete this;
}

void CFrameWnd::OnClose()
{
    DestroyWindow();
}

void CFrameWnd::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (nType != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized)
{
    CWnd::OnActivate(nState, pWndOther, bMinimized);
    if (m_pActiveView == nullptr)
        return;
    m_pActiveView->OnActivateFrame(nState, this);
    const bool isActivated = nState != WA_INACTIVE && !bMinimized;
    if (isActivated && m_pActiveView != nullptr) // the view may have ended
        m_pActiveView->OnActivateView(TRUE, m_pActiveView, m_pActiveView);
}

void CFrameWnd::OnSetFocus(CWnd* pOldWnd)
{
    if (m_pActiveView != nullptr)
        m_pActiveView->SetFocus();
    else
        CWnd::OnSetFocus(pOldWnd);
}

void CFrameWnd::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    if (m_pActiveView != nullptr)
        ForwardScroll(WM_HSCROLL, nSBCode, nPos, pScrollBar);
    else
        CWnd::OnHScroll(nSBCode, nPos, pScrollBar);
}

void CFrameWnd::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    if (m_pActiveView != nullptr)
        ForwardScroll(WM_VSCROLL, nSBCode, nPos, pScrollBar);
    else
        CWnd::OnVScroll(nSBCode, nPos, pScrollBar);
}

void CFrameWnd::ForwardScroll(UINT message, UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_pActiveView->SendMessage(message, MAKEWPARAM(nSBCode, nPos),
                               reinterpret_cast<LPARAM>(pScrollBar->GetSafeHwnd()));
}

void CFrameWnd::OnInitMenuPopup(CMenu* pPopupMenu, UINT, BOOL bSysMenu)
{
    Default();
    if (bSysMenu)
        return;
    const UINT nCount = pPopupMenu->GetMenuItemCount();
    for (UINT nIndex = 0; nIndex < nCount; ++nIndex)
    {
        CCmdUI item;
        item.m_pMenu = pPopupMenu;
        item.m_nIndex = nIndex;
        item.m_nID = pPopupMenu->GetMenuItemID(static_cast<int>(nIndex));
        if (item.m_nID != kPopupMenu)
            item.DoUpdate(this, m_bAutoMenuEnable);
    }
}
