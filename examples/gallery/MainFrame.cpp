#include "MainFrame.h"

#include "Canvas.h"
#include "resource.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/Geometry.h>

#include <algorithm>

namespace
{
constexpr UINT kPageListId = 1000;

// In units of 1/96 inch.
const CSize kWindowSize(792, 600);
const CSize kMinimumSize(520, 360);
constexpr int kSidebarWidth = 176;
constexpr int kSidebarHeaderHeight = 92;
constexpr int kSidebarIndent = 24;
constexpr int kNameTop = 28;
constexpr int kMottoTop = 58;
} // namespace

BEGIN_MESSAGE_MAP(CMainFrame, CFrameWnd)
    ON_WM_CREATE()
    ON_WM_GETMINMAXINFO()
    ON_WM_MOVE()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_SETFOCUS()
    ON_MESSAGE(WM_DPICHANGED, &CMainFrame::OnDpiChanged)
    ON_MESSAGE(WM_DISPLAYCHANGE, &CMainFrame::OnDisplayChange)
    ON_LBN_SELCHANGE(kPageListId, &CMainFrame::OnPageSelected)
END_MESSAGE_MAP()

CMainFrame::CMainFrame(const CSize& size96)
    : m_size96(size96.cx > 0 && size96.cy > 0 ? size96 : kWindowSize), m_pageList(m_style)
{
}

BOOL CMainFrame::CreateFrame()
{
    const HICON hIcon = ::AfxGetApp()->LoadIcon(IDI_GALLERY);
    const CString className = ::AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW), nullptr, hIcon);
    return Create(className, L"vxdpi gallery", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN);
}

int CMainFrame::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CFrameWnd::OnCreate(lpCreateStruct) == -1)
        return -1;

    // Only now is it known which monitor the window is on, and so its DPI.
    m_style.UpdateDpi(VxSafeGetDpiForWindow(m_hWnd));
    if (!m_pageList.CreateList(this, kPageListId))
        return -1;

    PlaceInWorkArea();
    return 0;
}

void CMainFrame::PlaceInWorkArea()
{
    CRect workArea;
    if (!GetCurrentScreenWorkArea(m_hWnd, workArea))
        return;
    const CSize wanted = m_style.ToPixels(m_size96);
    const CSize size(std::min<int>(wanted.cx, workArea.Width()), std::min<int>(wanted.cy, workArea.Height()));
    const CPoint corner(workArea.left + (workArea.Width() - size.cx) / 2,
                        workArea.top + (workArea.Height() - size.cy) / 2);
    SetWindowPos(nullptr, corner.x, corner.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CMainFrame::ShowPage(int nPage)
{
    m_pageList.SetCurSel(nPage);
    if (m_pPage != nullptr)
        m_pPage->DestroyWindow();
    m_pPage = GalleryPages()[static_cast<size_t>(nPage)].pfnCreate(m_style);
    m_pPage->CreatePage(this);
    RecalcLayout();
}

CGalleryPage& CMainFrame::Page()
{
    return *m_pPage;
}

void CMainFrame::RecalcLayout(BOOL)
{
    if (m_pageList.GetSafeHwnd() == nullptr)
        return; // sized while being created

    CRect client;
    GetClientRect(&client);
    const int nSidebarWidth = m_style.ToPixels(kSidebarWidth);
    const int nLineWidth = m_style.ToPixels(1);
    const int nListTop = m_style.ToPixels(kSidebarHeaderHeight);
    m_pageList.MoveWindow(0, nListTop, nSidebarWidth, std::max<int>(client.bottom - nListTop, 0));
    if (m_pPage != nullptr)
    {
        const int nPageLeft = nSidebarWidth + nLineWidth;
        m_pPage->MoveWindow(nPageLeft, 0, std::max<int>(client.right - nPageLeft, 0), client.bottom);
    }
}

void CMainFrame::OnGetMinMaxInfo(MINMAXINFO* lpMMI)
{
    const CSize minimum = m_style.ToPixels(kMinimumSize);
    lpMMI->ptMinTrackSize = CPoint(minimum);
}

void CMainFrame::OnMove(int x, int y)
{
    CFrameWnd::OnMove(x, y);
    if (m_pPage != nullptr)
        m_pPage->OnMonitorsChanged();
}

BOOL CMainFrame::OnEraseBkgnd(CDC*)
{
    return TRUE; // OnPaint covers what the child windows leave free
}

void CMainFrame::OnPaint()
{
    CPaintDC dc(this);
    const CCanvas canvas(dc, m_style);
    canvas.Fill(CRect(0, 0, kSidebarWidth, kSidebarHeaderHeight), palette::kSidebar);
    const CRect name(kSidebarIndent, kNameTop, kSidebarWidth, kMottoTop);
    canvas.Text(name, L"vxdpi", TextRole::Title, palette::kInk, DT_LEFT | DT_SINGLELINE);
    const CRect motto(kSidebarIndent, kMottoTop, kSidebarWidth, kSidebarHeaderHeight);
    canvas.Text(motto, L"sharp at every DPI", TextRole::Caption, palette::kMuted, DT_LEFT | DT_SINGLELINE);

    CRect client;
    GetClientRect(&client);
    const int nLineLeft = m_style.ToPixels(kSidebarWidth);
    dc.FillSolidRect(CRect(nLineLeft, 0, nLineLeft + m_style.ToPixels(1), client.bottom), palette::kLine);
}

void CMainFrame::OnSetFocus(CWnd*)
{
    m_pageList.SetFocus();
}

LRESULT CMainFrame::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    // First, because sizing the window asks for its minimum size, which depends on the DPI.
    m_style.UpdateDpi(LOWORD(wParam));

    const CRect suggested(*reinterpret_cast<const RECT*>(lParam));
    SetWindowPos(nullptr, suggested.left, suggested.top, suggested.Width(), suggested.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    m_pageList.UpdateDpi();
    if (m_pPage != nullptr)
        m_pPage->UpdateDpi();
    RecalcLayout(); // the suggested size may be the one that the window has
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    return 0;
}

LRESULT CMainFrame::OnDisplayChange(WPARAM, LPARAM)
{
    if (m_pPage != nullptr)
        m_pPage->OnMonitorsChanged();
    return Default();
}

void CMainFrame::OnPageSelected()
{
    ShowPage(m_pageList.GetCurSel());
}
