#include <afxpriv.h>
#include <afxwin.h>

#include "WindowClasses.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
    ON_WM_PAINT()
    ON_WM_DESTROY()
    ON_WM_NCDESTROY()
    ON_WM_MOUSEACTIVATE()
    ON_MESSAGE(WM_INITIALUPDATE, &CView::OnInitialUpdateMessage)
END_MESSAGE_MAP()

CView::CView() = default;

CView::~CView()
{
    LeaveFrame();
}

void CView::LeaveFrame()
{
    if (m_hWnd == nullptr)
        return;
    CFrameWnd* const pFrame = GetParentFrame();
    if (pFrame != nullptr && pFrame->m_pActiveView == this)
        pFrame->m_pActiveView = nullptr;
}

BOOL CView::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = vxmfc::FrameOrViewClass();
    return CWnd::PreCreateWindow(cs);
}

void CView::OnInitialUpdate()
{
    OnUpdate(nullptr, 0, nullptr);
}

LRESULT CView::OnInitialUpdateMessage(WPARAM, LPARAM)
{
    OnInitialUpdate();
    return 0;
}

void CView::OnUpdate(CView*, LPARAM, CObject*)
{
    Invalidate();
}

void CView::OnPaint()
{
    CPaintDC dc(this);
    OnPrepareDC(&dc);
    OnDraw(&dc);
}

void CView::OnPrepareDC(CDC*, CPrintInfo*) {}

void CView::OnActivateView(BOOL bActivate, CView* pActivateView, CView*)
{
    if (!bActivate || pActivateView != this)
        return;
    // The top-level parent would be the owner of an owned frame, which is not active then.
    const bool isActive = ::GetActiveWindow() == ::GetAncestor(m_hWnd, GA_ROOT);
    const HWND hFocus = ::GetFocus();
    if (isActive && hFocus != m_hWnd && !::IsChild(m_hWnd, hFocus))
        SetFocus();
}

void CView::OnActivateFrame(UINT, CFrameWnd*) {}

void CView::PostNcDestroy()
{
    delete this;
}

void CView::OnDestroy()
{
    LeaveFrame();
    CWnd::OnDestroy();
}

void CView::OnNcDestroy()
{
    LeaveFrame(); // for a derived class that handles WM_DESTROY all by itself
    CWnd::OnNcDestroy();
}

int CView::OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message)
{
    const int nResult = CWnd::OnMouseActivate(pDesktopWnd, nHitTest, message);
    CFrameWnd* const pFrame = GetParentFrame();
    if (pFrame != nullptr && nResult != MA_NOACTIVATE && nResult != MA_NOACTIVATEANDEAT)
        pFrame->SetActiveView(this);
    return nResult;
}
