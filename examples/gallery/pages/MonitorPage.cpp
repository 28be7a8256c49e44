#include "MonitorPage.h"

#include "../PageGrid.h"
#include "../Pictures.h"
#include "../ScreenMap.h"

#include <dpi_images.h>
#include <vxdpi/Dpi.h>

#include <iterator>
#include <utility>

namespace
{
const CSize kDesignSize(600, 556);
constexpr UINT kBaseDpi = 96;

const CSize kIllustrationSize(176, 112);
constexpr int kIllustrationTop = 16;
constexpr int kCardsTop = 144;
constexpr int kCardHeight = 60;
constexpr int kCardGap = 12;
constexpr int kCardPadding = 12;
constexpr int kColumnsTop = 224;
constexpr int kRowHeight = 21;
constexpr int kSectionGap = 16;

// What the page shows, asked once per drawing.
struct MonitorFacts
{
    UINT nDpi;
    MONITORINFO monitor;
    CRect window;
    bool bGdiPlusRuns;
    bool bTokenHeld;
};

MonitorFacts AskFacts(const CWnd& page)
{
    const CWnd* const pFrame = page.GetTopLevelParent();
    MonitorFacts facts = {};
    facts.nDpi = VxSafeGetDpiForWindow(pFrame->GetSafeHwnd());
    pFrame->GetWindowRect(&facts.window);

    facts.monitor.cbSize = sizeof facts.monitor;
    ::GetMonitorInfo(::MonitorFromWindow(pFrame->GetSafeHwnd(), MONITOR_DEFAULTTONEAREST), &facts.monitor);

    // GDI+ refuses every object until it was started.
    Gdiplus::Bitmap probe(1, 1, PixelFormat32bppARGB);
    facts.bGdiPlusRuns = probe.GetLastStatus() == Gdiplus::Ok;
    ULONG_PTR token = 0;
    facts.bTokenHeld = GetGdiPlusTokenFromVxDpi(token) != FALSE;
    return facts;
}

CString FormatSize(const CSize& size)
{
    CString text;
    text.Format(L"%d \u00D7 %d", size.cx, size.cy);
    return text;
}

CString FormatPlace(const CRect& rect)
{
    CString text;
    text.Format(L"%d, %d  \u2013  %d, %d", rect.left, rect.top, rect.right, rect.bottom);
    return text;
}

CString FormatNumber(LPCTSTR pszFormat, int value)
{
    CString text;
    text.Format(pszFormat, value);
    return text;
}

void DrawCard(const CCanvas& canvas, const CRect& area, LPCTSTR pszName, LPCTSTR pszValue)
{
    canvas.Panel(area, palette::kPanel, palette::kLine);
    CRect inside(area);
    inside.DeflateRect(kCardPadding, kCardPadding - 2);
    canvas.Text(inside, pszName, TextRole::Caption, palette::kMuted, DT_LEFT | DT_SINGLELINE | DT_TOP);
    canvas.Text(inside, pszValue, TextRole::Figure, palette::kAccent, DT_LEFT | DT_SINGLELINE | DT_BOTTOM);
}

void DrawCards(const CCanvas& canvas, int width, const MonitorFacts& facts)
{
    struct Card
    {
        LPCTSTR pszName;
        CString value;
        int share; // of the width that all cards have together
    };
    const Card cards[] = {
        {L"DPI of this window", FormatNumber(L"%d", static_cast<int>(facts.nDpi)), 10},
        {L"Scale", FormatNumber(L"%d %%", ::MulDiv(100, static_cast<int>(facts.nDpi), kBaseDpi)), 7},
        {L"Monitor", FormatSize(CRect(facts.monitor.rcMonitor).Size()), 12},
        {L"GDI+", facts.bGdiPlusRuns ? L"running" : L"stopped", 8},
    };
    constexpr int kCount = static_cast<int>(std::size(cards));
    constexpr int kAllShares = 37;
    const int cardsWidth = width - 2 * grid::kMargin - (kCount - 1) * kCardGap;
    const auto toWidth = [=](int shares) { return ::MulDiv(cardsWidth, shares, kAllShares); };
    int left = grid::kMargin;
    int shares = 0;
    for (const Card& card : cards)
    {
        const int right = left + toWidth(shares + card.share) - toWidth(shares);
        DrawCard(canvas, CRect(left, kCardsTop, right, kCardsTop + kCardHeight), card.pszName, card.value);
        left = right + kCardGap;
        shares += card.share;
    }
}

void DrawRow(const CCanvas& canvas, const CRect& area, LPCTSTR pszName, LPCTSTR pszValue)
{
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER;
    canvas.Text(area, pszName, TextRole::Body, palette::kMuted, kFormat | DT_LEFT);
    canvas.Text(area, pszValue, TextRole::Body, palette::kInk, kFormat | DT_RIGHT);
}

// @return the bottom of what was drawn.
int DrawPlaces(const CCanvas& canvas, const CRect& column, const MonitorFacts& facts)
{
    canvas.Heading(column, L"Rectangles", L"pixels");
    CRect row(column.left, column.top + grid::kHeadingHeight + 4, column.right, 0);
    row.bottom = row.top + kRowHeight;
    const std::pair<LPCTSTR, CString> rows[] = {
        {L"Monitor", FormatPlace(facts.monitor.rcMonitor)},
        {L"Work area", FormatPlace(facts.monitor.rcWork)},
        {L"This window", FormatPlace(facts.window)},
        {L"Its size", FormatSize(facts.window.Size())},
        {L"Its size at 96 DPI", FormatSize(canvas.Style().ToUnits(facts.window.Size()))},
        {L"GDI+ token in the library", facts.bTokenHeld ? L"held" : L"none"},
    };
    for (const auto& [pszName, value] : rows)
    {
        DrawRow(canvas, row, pszName, value);
        row.OffsetRect(0, kRowHeight);
    }
    return row.top;
}

void DrawMetrics(const CCanvas& canvas, const CRect& column, UINT nDpi)
{
    struct Metric
    {
        LPCTSTR pszName;
        int nIndex;
    };
    constexpr Metric kMetrics[] = {
        {L"Caption height", SM_CYCAPTION},
        {L"Sizing border", SM_CXSIZEFRAME},
        {L"Scroll bar width", SM_CXVSCROLL},
        {L"Small icon", SM_CXSMICON},
        {L"Icon", SM_CXICON},
    };
    constexpr int kValueWidth = 56;
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_RIGHT;

    const CRect heading(column.left, column.top, column.right, column.top + grid::kHeadingHeight);
    canvas.Heading(column, L"System metrics");
    CRect now(column.right - kValueWidth, heading.top, column.right, heading.bottom);
    CRect base(now);
    base.OffsetRect(-kValueWidth, 0);
    canvas.Text(base, L"96 DPI", TextRole::Caption, palette::kMuted, kFormat);
    canvas.Text(now, FormatNumber(L"%d DPI", static_cast<int>(nDpi)), TextRole::Caption, palette::kAccent,
                kFormat);

    int top = heading.bottom + 4;
    for (const Metric& metric : kMetrics)
    {
        const CRect row(column.left, top, column.right, top + kRowHeight);
        const CString valueNow = FormatNumber(L"%d", ::GetSystemMetricsForDpi(metric.nIndex, nDpi));
        const CString valueBase = FormatNumber(L"%d", ::GetSystemMetricsForDpi(metric.nIndex, kBaseDpi));
        DrawRow(canvas, row, metric.pszName, valueNow);
        canvas.Text(CRect(base.left, row.top, base.right, row.bottom), valueBase, TextRole::Body,
                    palette::kMuted, kFormat);
        top += kRowHeight;
    }
}

void DrawWindowOnMap(const CCanvas& canvas, const CRect& window)
{
    constexpr int kCaptionHeight = 8;
    constexpr int kSidebarShare = 4;
    canvas.Fill(window, palette::kPaper);
    const CRect sidebar(window.left, window.top, window.left + window.Width() / kSidebarShare, window.bottom);
    canvas.Fill(sidebar, palette::kLine);
    canvas.Fill(CRect(window.left, window.top, window.right, window.top + kCaptionHeight), palette::kAccent);
    canvas.Frame(window, palette::kAccent);
}

void DrawMap(const CCanvas& canvas, const CRect& column, const MonitorFacts& facts)
{
    constexpr int kLegendRows = 3;
    canvas.Heading(column, L"Map", L"to scale");

    CRect box(column.left, column.top + grid::kHeadingHeight + kSectionGap, column.right, column.bottom);
    box.bottom -= kLegendRows * kRowHeight + kSectionGap;
    box.DeflateRect(kMapBezel, kMapBezel);
    const ScreenMap map(facts.monitor.rcMonitor, box);
    DrawMonitorsOnMap(canvas, map, {facts.monitor});
    CRect visible;
    if (visible.IntersectRect(&facts.window, &facts.monitor.rcMonitor))
        DrawWindowOnMap(canvas, map.Place(visible));

    CRect row(column.left, map.Area().bottom + kMapBezel + kSectionGap - 4, column.right, 0);
    row.bottom = row.top + kRowHeight;
    DrawMonitorLegend(canvas, row);
    DrawLegendEntry(canvas, row, palette::kAccent, L"this window");
}
} // namespace

CMonitorPage::CMonitorPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize)
{
    AddVariants(m_illustration, dpi_images::kMonitors);
}

void CMonitorPage::OnMonitorsChanged()
{
    Redraw();
}

void CMonitorPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    const MonitorFacts facts = AskFacts(*this);

    const CPoint illustration(size.cx - grid::kMargin - kIllustrationSize.cx, kIllustrationTop);
    canvas.PageTitle(CRect(grid::kMargin, grid::kTitleTop, illustration.x - grid::kColumnGap, kCardsTop),
                     L"Monitor",
                     L"The DPI of the monitor that this window is on decides every size in it. "
                     L"Move the window or change the scale: the page follows.");
    m_illustration.DrawPngInDC(canvas.Dc(), canvas.Dpi(), canvas.PictureRect(illustration, kIllustrationSize),
                               nullptr, nullptr);
    DrawCards(canvas, size.cx, facts);

    const CRect columns(grid::kMargin, kColumnsTop, size.cx - grid::kMargin, size.cy - grid::kMargin);
    const CRect column = grid::Column(columns, 2, 0);
    CRect metrics(column);
    metrics.top = DrawPlaces(canvas, column, facts) + kSectionGap;
    DrawMetrics(canvas, metrics, facts.nDpi);
    DrawMap(canvas, grid::Column(columns, 2, 1), facts);
}
