#include "ScrollingPage.h"

#include "../PageGrid.h"
#include "../resource.h"

namespace
{
const CSize kDesignSize(600, 440);
constexpr int kTop = 104;
constexpr int kFrameWidth = 1;
constexpr int kGap = 12;
constexpr int kLineHeight = 18;
constexpr int kStateHeight = 2 * kLineHeight; // of the lines below a form
constexpr int kColumns = 2;
constexpr UINT kBarControlsId = 1;

CRect Column(const CSize& page, int nIndex)
{
    const CRect row(grid::kMargin, kTop, page.cx - grid::kMargin, page.cy - grid::kMargin);
    return grid::Column(row, kColumns, nIndex);
}

// @return the form's place with the frame around it, in units.
CRect FrameArea(const CSize& page, int nIndex)
{
    CRect area = Column(page, nIndex);
    area.top += grid::kHeadingHeight + kGap;
    area.bottom -= kStateHeight + kGap;
    return area;
}

CString DescribeBar(LPCTSTR pszDirection, const SCROLLINFO& info)
{
    const int nLast = info.nPos + static_cast<int>(info.nPage);
    CString text;
    if (info.nMax > 0)
        text.Format(L"%s: pixels %d to %d of %d", pszDirection, info.nPos, nLast, info.nMax + 1);
    else
        text.Format(L"%s: all of it", pszDirection);
    return text;
}

void DrawState(const CCanvas& canvas, const CSize& page, int nIndex, const SCROLLINFO& across,
               const SCROLLINFO& down)
{
    const CRect frame = FrameArea(page, nIndex);
    canvas.Frame(frame, palette::kLine);
    CRect line(frame.left, frame.bottom + kGap, frame.right, frame.bottom + kGap + kLineHeight);
    canvas.Text(line, DescribeBar(L"Down", down), TextRole::Body, palette::kMuted, DT_LEFT | DT_SINGLELINE);
    line.OffsetRect(0, kLineHeight);
    canvas.Text(line, DescribeBar(L"Across", across), TextRole::Body, palette::kMuted,
                DT_LEFT | DT_SINGLELINE);
}

SCROLLINFO InfoOf(CWnd& window, int nBar)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    window.GetScrollInfo(nBar, &info);
    return info;
}

SCROLLINFO InfoOf(CScrollBar& bar)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    bar.GetScrollInfo(&info);
    return info;
}
} // namespace

BEGIN_MESSAGE_MAP(CScrollingPage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CScrollingPage::CScrollingPage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize), m_windowBars([this] { Redraw(); }),
      m_barControls([this] { Redraw(); })
{
}

int CScrollingPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    return m_windowBars.Create(IDD_FORM, this) && m_barControls.CreateForm(this, kBarControlsId) ? 0 : -1;
}

void CScrollingPage::UpdateDpi()
{
    m_windowBars.UpdateDpi(Style().Dpi());
    m_barControls.UpdateDpi(Style().Dpi());
    CGalleryPage::UpdateDpi();
}

void CScrollingPage::ShowScene(int)
{
    // As if the trough of the vertical bar were clicked once, and an arrow of the horizontal one some times.
    constexpr int kSteps = 6;
    const auto vertical = reinterpret_cast<LPARAM>(m_barControls.VerticalBar().m_hWnd);
    const auto horizontal = reinterpret_cast<LPARAM>(m_barControls.HorizontalBar().m_hWnd);
    m_windowBars.SendMessage(WM_VSCROLL, SB_PAGEDOWN);
    m_barControls.SendMessage(WM_VSCROLL, SB_PAGEDOWN, vertical);
    for (int nStep = 0; nStep < kSteps; ++nStep)
    {
        m_windowBars.SendMessage(WM_HSCROLL, SB_LINERIGHT);
        m_barControls.SendMessage(WM_HSCROLL, SB_LINERIGHT, horizontal);
    }
}

void CScrollingPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    canvas.PageTitle(CRect(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kTop), L"Scrolling",
                     L"A CScrollManager scrolls the children of a window, and shows a bar where they need "
                     L"more room than there is. The same form, with each kind of bars:");
    canvas.Heading(Column(size, 0), L"Bars of the window", L"WindowScrollBars");
    DrawState(canvas, size, 0, InfoOf(m_windowBars, SB_HORZ), InfoOf(m_windowBars, SB_VERT));
    canvas.Heading(Column(size, 1), L"Bar controls", L"ScrollBarControls");
    DrawState(canvas, size, 1, InfoOf(m_barControls.HorizontalBar()), InfoOf(m_barControls.VerticalBar()));
}

void CScrollingPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CWnd* const forms[] = {&m_windowBars, &m_barControls};
    for (int i = 0; i < kColumns; ++i)
    {
        CRect inside = FrameArea(size, i);
        inside.DeflateRect(kFrameWidth, kFrameWidth);
        CRect pixels(Style().ToPixels(inside.left), Style().ToPixels(inside.top),
                     Style().ToPixels(inside.right), Style().ToPixels(inside.bottom));
        pixels.OffsetRect(origin);
        forms[i]->MoveWindow(&pixels);
    }
}
