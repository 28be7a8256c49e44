#include "GalleryPage.h"

#include "Capture.h"

#include <algorithm>

namespace
{
constexpr int kScrollStep = 24; // units of 1/96 inch per arrow click
constexpr int kStepsPerWheelNotch = 3;
constexpr LONG kWidestContent = 840; // units of 1/96 inch; rows that are longer are hard to read
constexpr UINT kPageId = 1001;
} // namespace

BEGIN_MESSAGE_MAP(CGalleryPage, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_SIZE()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

CGalleryPage::CGalleryPage(const CGalleryStyle& style, const CSize& designSize)
    : m_style(style), m_designSize(designSize), m_contentSize(0, 0)
{
}

BOOL CGalleryPage::CreatePage(CWnd* pParent)
{
    const CString className = ::AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    const DWORD nStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    return Create(className, L"", nStyle, CRect(0, 0, 0, 0), pParent, kPageId);
}

void CGalleryPage::UpdateDpi()
{
    UpdateScrollBars();
    Redraw();
}

void CGalleryPage::OnMonitorsChanged() {}

void CGalleryPage::ShowScene(int) {}

bool CGalleryPage::SavePicture(int, const CString& file)
{
    return SaveWindowAsPng(*GetTopLevelFrame(), file);
}

void CGalleryPage::PlaceChildren(const CSize&, const CPoint&) {}

const CGalleryStyle& CGalleryPage::Style() const
{
    return m_style;
}

CSize CGalleryPage::ContentSize() const
{
    const CSize size = m_style.ToUnits(m_contentSize);
    return CSize((std::min)(size.cx, kWidestContent), size.cy);
}

CPoint CGalleryPage::ScrollPosition() const
{
    return CPoint(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
}

void CGalleryPage::Redraw()
{
    m_content.DeleteObject();
    Invalidate(FALSE);
}

BOOL CGalleryPage::OnEraseBkgnd(CDC* pDC)
{
    // OnPaint covers every pixel of the page; controls that lie flat on it ask for their ground.
    if (::WindowFromDC(*pDC) != m_hWnd)
    {
        CRect area;
        pDC->GetClipBox(&area);
        pDC->FillSolidRect(&area, palette::kPaper);
    }
    return TRUE;
}

void CGalleryPage::OnPaint()
{
    CPaintDC dc(this);
    if (m_content.GetSafeHandle() == nullptr)
        RenderContent(dc);

    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&dc);
    const CScopedSelection content(memoryDc, m_content.GetSafeHandle());
    const CPoint origin = ScrollPosition();
    CRect client;
    GetClientRect(&client);
    dc.BitBlt(0, 0, client.Width(), client.Height(), &memoryDc, origin.x, origin.y, SRCCOPY);
}

void CGalleryPage::RenderContent(CDC& screenDc)
{
    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&screenDc);
    m_content.CreateCompatibleBitmap(&screenDc, m_contentSize.cx, m_contentSize.cy);
    const CScopedSelection content(memoryDc, m_content.GetSafeHandle());
    memoryDc.FillSolidRect(CRect(CPoint(0, 0), m_contentSize), palette::kPaper);
    DrawPage(CCanvas(memoryDc, m_style), ContentSize());
}

void CGalleryPage::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    UpdateScrollBars();
}

void CGalleryPage::UpdateScrollBars()
{
    const CPoint scrolledBefore = ScrollPosition();
    // Measured from the whole window: the client area changes while bars appear, which sends WM_SIZE again.
    CRect window;
    GetWindowRect(&window);
    const CSize design = m_style.ToPixels(m_designSize);
    const int nBarWidth = ::GetSystemMetricsForDpi(SM_CXVSCROLL, m_style.Dpi());
    const int nBarHeight = ::GetSystemMetricsForDpi(SM_CYHSCROLL, m_style.Dpi());

    bool bVertical = design.cy > window.Height();
    const bool bHorizontal = design.cx > window.Width() - (bVertical ? nBarWidth : 0);
    bVertical = design.cy > window.Height() - (bHorizontal ? nBarHeight : 0);

    const CSize visible(window.Width() - (bVertical ? nBarWidth : 0),
                        window.Height() - (bHorizontal ? nBarHeight : 0));
    const CSize content((std::max)(visible.cx, design.cx), (std::max)(visible.cy, design.cy));
    SetScrollRange(SB_HORZ, content.cx, visible.cx);
    SetScrollRange(SB_VERT, content.cy, visible.cy);
    if (content != m_contentSize)
    {
        m_contentSize = content;
        Redraw();
    }
    else if (ScrollPosition() != scrolledBefore)
        Invalidate(FALSE); // there is less to scroll than before
    PlaceChildren(ContentSize(), -ScrollPosition());
}

void CGalleryPage::SetScrollRange(int nBar, int nContent, int nVisible)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = nContent - 1;
    info.nPage = static_cast<UINT>((std::max)(nVisible, 0));
    SetScrollInfo(nBar, &info);
}

void CGalleryPage::OnHScroll(UINT nSBCode, UINT, CScrollBar*)
{
    ScrollTo(SB_HORZ, FindScrollTarget(SB_HORZ, nSBCode));
}

void CGalleryPage::OnVScroll(UINT nSBCode, UINT, CScrollBar*)
{
    ScrollTo(SB_VERT, FindScrollTarget(SB_VERT, nSBCode));
}

BOOL CGalleryPage::OnMouseWheel(UINT, short zDelta, CPoint)
{
    const int nSteps = ::MulDiv(zDelta, kStepsPerWheelNotch, WHEEL_DELTA);
    ScrollTo(SB_VERT, GetScrollPos(SB_VERT) - nSteps * m_style.ToPixels(kScrollStep));
    return TRUE;
}

int CGalleryPage::FindScrollTarget(int nBar, UINT nCode)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    GetScrollInfo(nBar, &info);
    const int nStep = m_style.ToPixels(kScrollStep);
    switch (nCode)
    {
    case SB_LINEUP:
        return info.nPos - nStep;
    case SB_LINEDOWN:
        return info.nPos + nStep;
    case SB_PAGEUP:
        return info.nPos - static_cast<int>(info.nPage);
    case SB_PAGEDOWN:
        return info.nPos + static_cast<int>(info.nPage);
    case SB_THUMBTRACK:
        return info.nTrackPos;
    case SB_TOP:
        return info.nMin;
    case SB_BOTTOM:
        return info.nMax;
    default:
        return info.nPos;
    }
}

void CGalleryPage::ScrollTo(int nBar, int nPosition)
{
    const int nPrevious = SetScrollPos(nBar, nPosition);
    const int nShift = nPrevious - GetScrollPos(nBar); // the bar keeps the position within its range
    ScrollWindow(nBar == SB_HORZ ? nShift : 0, nBar == SB_VERT ? nShift : 0);
}
