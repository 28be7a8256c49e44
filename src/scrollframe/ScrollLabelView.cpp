#include "ScrollLabelView.h"

#include "ButtonBand.h"
#include "ScrollLabelFrame.h"
#include "ViewPlaces.h"

#include <controls/ButtonProxy.h>
#include <foundation/Allocation.h>
#include <foundation/BaseDpi.h>

#include <afxext.h>

#include <memory>

namespace
{
constexpr int kGap96 = 5;     // around each button of the band
constexpr int kMargin96 = 10; // above the dialog and to its left
constexpr int kBarThickness96 = 20;

constexpr UINT kFirstProxyId = 10001;
constexpr UINT kHScrollBarId = 10011;
constexpr UINT kVScrollBarId = 10012;

constexpr DWORD kTopLevelStyles =
    WS_POPUP | WS_CLIPSIBLINGS | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr DWORD kTopLevelExStyles =
    WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT | WS_EX_STATICEDGE;

int Pixels(int length96, UINT nDpi)
{
    return ::MulDiv(length96, static_cast<int>(nDpi), kBaseDpi);
}

void Place(HWND hWnd, const RECT& place)
{
    ::SetWindowPos(hWnd, nullptr, place.left, place.top, WrappingWidth(place), WrappingHeight(place),
                   SWP_NOZORDER);
}

/// Turns a dialog that was made as a window of its own into a plain child.
bool MakeChildStyled(const CWnd& dialog)
{
    const DWORD dwStyle = (dialog.GetStyle() & ~kTopLevelStyles) | WS_CHILD | WS_VISIBLE;
    const DWORD dwExStyle = dialog.GetExStyle() & ~kTopLevelExStyles;
    ::SetLastError(ERROR_SUCCESS);
    if (!::SetWindowLongPtrW(dialog.m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(dwStyle)) &&
        ::GetLastError() != ERROR_SUCCESS)
        return false;
    ::SetLastError(ERROR_SUCCESS);
    // Kept by contract: a dialog that had no extended style at all counts as a failure.
    return ::SetWindowLongPtrW(dialog.m_hWnd, GWL_EXSTYLE, static_cast<LONG_PTR>(dwExStyle)) != 0;
}
} // namespace

IMPLEMENT_DYNCREATE(CScrollLabelView, CView)

BEGIN_MESSAGE_MAP(CScrollLabelView, CView)
    ON_WM_SIZE()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

CScrollLabelView::CScrollLabelView() : m_pContent(nullptr) {}

// The windows go while all of the object is there to handle their last messages.
CScrollLabelView::~CScrollLabelView()
{
    DestroyProxies();
    CView::DestroyWindow();
}

BOOL CScrollLabelView::CreateView(CWnd* pContent, const ButtonList& buttons, CScrollLabelFrame* pFrame,
                                  int reapplyOffset)
{
    if (!pContent->GetSafeHwnd())
        return FALSE;

    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_BORDER;
    CCreateContext context;
    if (!Create(nullptr, nullptr, kStyle, CRect(0, 0, 0, 0), pFrame, AFX_IDW_PANE_FIRST, &context) ||
        !CreateBars())
        return FALSE;
    if (!m_scrollManager.Create(pContent, CScrollManager::ScrollBarControls, &m_hScrollBar, &m_vScrollBar,
                                reapplyOffset))
        return FALSE;

    m_pContent = pContent;
    m_pContent->SetParent(this);
    if (!MakeChildStyled(*m_pContent) || !CreateProxies(buttons))
        return FALSE;
    m_backgroundBrush.Attach(::GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

BOOL CScrollLabelView::CreateBars()
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE;
    const CRect nowhere(0, 0, 0, 0);
    return m_hScrollBar.Create(kStyle | SBS_HORZ, nowhere, this, kHScrollBarId) &&
           m_vScrollBar.Create(kStyle | SBS_VERT, nowhere, this, kVScrollBarId);
}

BOOL CScrollLabelView::CreateProxies(const ButtonList& buttons)
{
    m_proxies.reserve(buttons.size());
    UINT nId = kFirstProxyId;
    for (const auto& [pReal, endCode] : buttons)
    {
        std::unique_ptr<CButtonProxy> proxy = MakeOrNull<CButtonProxy>(pReal, endCode);
        if (!proxy || !proxy->Create(this, nId))
        {
            proxy.reset();
            DestroyProxies();
            return FALSE;
        }
        pReal->ShowWindow(SW_HIDE);
        pReal->SetProxyButton(proxy.get());
        m_proxies.push_back(proxy.release());
        ++nId;
    }
    return TRUE;
}

int CScrollLabelView::LayoutProxies()
{
    const int nGap = Pixels(kGap96, ::GetDpiForWindow(m_hWnd));
    CRect client(0, 0, 0, 0);
    GetClientRect(&client);
    ButtonBand band(client, nGap);
    for (const CButtonProxy* const pProxy : m_proxies)
    {
        if (pProxy->m_hWnd)
            Place(pProxy->m_hWnd, band.Add(pProxy->GetRealButtonRect().Size()));
    }
    return band.Height();
}

void CScrollLabelView::DestroyProxies()
{
    for (const CButtonProxy* const pProxy : m_proxies)
        delete pProxy;
    m_proxies.clear();
}

void CScrollLabelView::OnSize(UINT nType, int cx, int cy)
{
    CView::OnSize(nType, cx, cy);
    if (!m_pContent->GetSafeHwnd())
        return;

    const UINT nDpi = ::GetDpiForWindow(m_hWnd);
    const int nBand = LayoutProxies();
    CRect client(0, 0, 0, 0);
    GetClientRect(&client);
    const ViewPlaces places =
        PlacesIn(client.Size(), Pixels(kMargin96, nDpi), Pixels(kBarThickness96, nDpi), nBand);
    Place(m_pContent->m_hWnd, places.content);
    Place(m_hScrollBar.m_hWnd, places.horizontalBar);
    Place(m_vScrollBar.m_hWnd, places.verticalBar);
    m_scrollManager.UpdateScrollBars(WrappingWidth(places.content), WrappingHeight(places.content));
}

void CScrollLabelView::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scrollManager.StartHScroll(nSBCode, nPos, pScrollBar);
}

void CScrollLabelView::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scrollManager.StartVScroll(nSBCode, nPos, pScrollBar);
}

BOOL CScrollLabelView::OnEraseBkgnd(CDC* pDC)
{
    if (!pDC)
        return FALSE;
    if (!m_backgroundBrush.GetSafeHandle())
        return CView::OnEraseBkgnd(pDC);
    CRect client(0, 0, 0, 0);
    GetClientRect(&client);
    pDC->FillRect(&client, &m_backgroundBrush);
    return TRUE;
}

// The children cover all that there is to see.
void CScrollLabelView::OnDraw(CDC*) {}

// A view's own way is to delete the object.
void CScrollLabelView::PostNcDestroy() {}
