#include "PlacementPage.h"

#include "../PageGrid.h"
#include "../ScreenMap.h"

#include <vxdpi/Geometry.h>

#include <iterator>
#include <vector>

namespace
{
const CSize kDesignSize(600, 566);

constexpr int kMapTop = 96;
constexpr int kTableHeight = 238; // with a row for each place
constexpr int kMapShare = 64;     // per cent of the page's width
constexpr int kRowHeight = 21;
constexpr int kGap = 12;

struct SavedPlace
{
    LPCTSTR pszWhat;
    CRect saved;
    CSize referenceSize; // the saved size; another one says that it was saved at 96 DPI
};

struct Restoration
{
    SavedPlace place;
    CRect result; // where the window went
    bool bAtSavedPlace;
};

// A window that is never shown, for the library to place.
class CProbeWindow : public CWnd
{
public:
    BOOL CreateProbe(const CRect& rect)
    {
        return CreateEx(0, ::AfxRegisterWndClass(0), L"", WS_OVERLAPPEDWINDOW, rect, nullptr, 0);
    }

protected:
    afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos)
    {
        CWnd::OnWindowPosChanging(lpwndpos);
        lpwndpos->flags |= SWP_NOACTIVATE; // the gallery stays the active window
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbeWindow, CWnd)
    ON_WM_WINDOWPOSCHANGING()
END_MESSAGE_MAP()

BOOL CALLBACK AddMonitor(HMONITOR hMonitor, HDC, LPRECT, LPARAM lParam)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    if (::GetMonitorInfo(hMonitor, &info))
        reinterpret_cast<std::vector<MONITORINFO>*>(lParam)->push_back(info);
    return TRUE;
}

std::vector<MONITORINFO> AllMonitors()
{
    std::vector<MONITORINFO> monitors;
    ::EnumDisplayMonitors(nullptr, nullptr, &AddMonitor, reinterpret_cast<LPARAM>(&monitors));
    return monitors;
}

CRect WholeScreen(const std::vector<MONITORINFO>& monitors)
{
    CRect screen(0, 0, 0, 0);
    for (const MONITORINFO& monitor : monitors)
        screen.UnionRect(&screen, &monitor.rcMonitor);
    return screen;
}

// @return the work area of the first monitor that is not the one of a work area; empty when there is none.
CRect OtherWorkArea(const std::vector<MONITORINFO>& monitors, const CRect& workArea)
{
    for (const MONITORINFO& monitor : monitors)
    {
        if (workArea != monitor.rcWork)
            return monitor.rcWork;
    }
    return CRect(0, 0, 0, 0);
}

// Makes up places that an application may have saved, around a work area.
std::vector<SavedPlace> MakePlaces(const CGalleryStyle& style, const CRect& workArea,
                                   const std::vector<MONITORINFO>& monitors)
{
    constexpr int kSmallPart = 30; // units, of a title bar; fewer than three buttons are wide
    constexpr int kLargePart = 160;
    constexpr int kLowPart = 4; // units of a title bar that are missing
    constexpr int kHighPart = 22;

    const auto acrossX = [&](int percent)
    { return workArea.left + ::MulDiv(workArea.Width(), percent, 100); };
    const auto acrossY = [&](int percent)
    { return workArea.top + ::MulDiv(workArea.Height(), percent, 100); };
    const CSize size(::MulDiv(workArea.Width(), 20, 100), ::MulDiv(workArea.Height(), 24, 100));
    const CSize size96 = style.ToUnits(size);
    const auto at = [&](int x, int y) { return CRect(CPoint(x, y), size); };

    std::vector<SavedPlace> places = {
        {L"Inside the work area", at(acrossX(5), acrossY(32)), size},
        {L"Partly beyond the right edge", at(workArea.right - style.ToPixels(kLargePart), acrossY(8)), size},
        {L"All but an edge beyond it", at(workArea.right - style.ToPixels(kSmallPart), acrossY(66)), size},
        {L"Title a little above the top", at(acrossX(5), workArea.top - style.ToPixels(kLowPart)), size},
        {L"Title mostly above the top", at(acrossX(36), workArea.top - style.ToPixels(kHighPart)), size},
        {L"Body below the bottom", at(acrossX(14), acrossY(88)), size},
        {L"On a monitor that is gone", at(WholeScreen(monitors).right + size.cx / 4, acrossY(35)), size},
        {L"Saved as a size at 96 DPI", CRect(CPoint(acrossX(42), acrossY(52)), size96), size},
    };
    const CRect other = OtherWorkArea(monitors, workArea);
    if (!other.IsRectEmpty())
    {
        const CPoint corner = other.CenterPoint() - CSize(size.cx / 2, size.cy / 2);
        places.push_back({L"On another monitor", CRect(corner, size), size});
    }
    return places;
}

// Lets the library restore a window that nobody sees, and looks where it went.
Restoration Restore(SavedPlace place, const CRect& firstPlace)
{
    CProbeWindow probe;
    Restoration restoration = {};
    if (probe.CreateProbe(firstPlace))
    {
        CRect reference(CPoint(0, 0), place.referenceSize);
        ::RestoreWindowPositionSafe(&probe, place.saved, reference);
        probe.GetWindowRect(&restoration.result);
        probe.DestroyWindow();
    }
    restoration.bAtSavedPlace = restoration.result.TopLeft() == place.saved.TopLeft();
    restoration.place = place;
    return restoration;
}

std::vector<Restoration> RestoreAll(const std::vector<SavedPlace>& places, const CRect& firstPlace)
{
    std::vector<Restoration> restorations;
    for (const SavedPlace& place : places)
        restorations.push_back(Restore(place, firstPlace));
    return restorations;
}

// @return the part of the screen that shows all monitors and all saved places.
CRect MappedScreen(const std::vector<MONITORINFO>& monitors, const std::vector<Restoration>& restorations)
{
    CRect screen = WholeScreen(monitors);
    for (const Restoration& restoration : restorations)
        screen.UnionRect(&screen, &restoration.place.saved);
    return screen;
}

CString Number(size_t nIndex)
{
    CString text;
    text.Format(L"%u", static_cast<unsigned>(nIndex + 1));
    return text;
}

CString FormatPoint(const CPoint& point)
{
    CString text;
    text.Format(L"%d, %d", point.x, point.y);
    return text;
}

CString FormatSize(const CSize& size)
{
    CString text;
    text.Format(L"%d \u00D7 %d", size.cx, size.cy);
    return text;
}

void DrawSavedWindow(const CCanvas& canvas, const CRect& area, size_t nIndex, bool bAtSavedPlace)
{
    constexpr int kTitleHeight = 5;
    const COLORREF color = bAtSavedPlace ? palette::kGood : palette::kBad;
    canvas.Fill(area, bAtSavedPlace ? palette::kGoodPale : palette::kBadPale);
    canvas.Fill(CRect(area.left, area.top, area.right, area.top + kTitleHeight), color);
    canvas.Frame(area, color);
    const CRect inside(area.left, area.top + kTitleHeight, area.right, area.bottom);
    canvas.Text(inside, Number(nIndex), TextRole::Heading, color, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
}

// @return the bottom of what was drawn.
int DrawMap(const CCanvas& canvas, const CRect& box, const std::vector<MONITORINFO>& monitors,
            const std::vector<Restoration>& restorations)
{
    CRect inside(box);
    inside.DeflateRect(kMapBezel, kMapBezel);
    const ScreenMap map(MappedScreen(monitors, restorations), inside);
    DrawMonitorsOnMap(canvas, map, monitors);
    for (size_t i = 0; i < restorations.size(); ++i)
        DrawSavedWindow(canvas, map.Place(restorations[i].place.saved), i, restorations[i].bAtSavedPlace);
    return map.Area().bottom + kMapBezel;
}

void DrawLegend(const CCanvas& canvas, CRect row)
{
    constexpr int kNoteHeight = 76;
    row.bottom = row.top + kRowHeight;
    DrawLegendEntry(canvas, row, palette::kGood, L"comes back there");
    DrawLegendEntry(canvas, row, palette::kBad, L"is centred instead");
    DrawMonitorLegend(canvas, row);
    const CRect note(row.left, row.top + kGap, row.right, row.top + kGap + kNoteHeight);
    canvas.Text(note,
                L"A hidden window for each rectangle was given to RestoreWindowPositionSafe; "
                L"the page shows where it went.",
                TextRole::Caption, palette::kMuted, DT_LEFT | DT_WORDBREAK);
}

// Draws a line of the table, in columns from the left.
void DrawTableRow(const CCanvas& canvas, const CRect& row, const std::vector<CString>& texts, TextRole role,
                  COLORREF color, COLORREF resultColor)
{
    constexpr int kNumberWidth = 22;
    constexpr int kPointWidth = 88;
    constexpr int kSizeWidth = 88;
    constexpr int kResultWidth = 76;
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER;

    const int kRights[] = {row.right - kResultWidth - kPointWidth - kSizeWidth,
                           row.right - kResultWidth - kSizeWidth, row.right - kResultWidth, row.right};
    CRect cell(row.left, row.top, row.left + kNumberWidth, row.bottom);
    canvas.Text(cell, texts[0], role, color, kFormat | DT_LEFT);
    cell.SetRect(cell.right, row.top, kRights[0] - kPointWidth, row.bottom);
    canvas.Text(cell, texts[1], role, color, kFormat | DT_LEFT);
    for (size_t i = 0; i < std::size(kRights); ++i)
    {
        const bool bResult = i + 1 == std::size(kRights);
        cell.SetRect(cell.right, row.top, kRights[i], row.bottom);
        canvas.Text(cell, texts[i + 2], role, bResult ? resultColor : color, kFormat | DT_RIGHT);
    }
}

void DrawTable(const CCanvas& canvas, const CRect& area, const std::vector<Restoration>& restorations)
{
    canvas.Heading(area, L"Saved places", L"pixels of the screen");
    CRect row(area.left, area.top + grid::kHeadingHeight + 2, area.right, 0);
    row.bottom = row.top + kRowHeight;
    DrawTableRow(canvas, row, {L"", L"", L"saved at", L"went to", L"size", L""}, TextRole::Caption,
                 palette::kMuted, palette::kMuted);
    for (size_t i = 0; i < restorations.size(); ++i)
    {
        const Restoration& restoration = restorations[i];
        row.OffsetRect(0, kRowHeight);
        DrawTableRow(canvas, row,
                     {Number(i), restoration.place.pszWhat, FormatPoint(restoration.place.saved.TopLeft()),
                      FormatPoint(restoration.result.TopLeft()), FormatSize(restoration.result.Size()),
                      restoration.bAtSavedPlace ? L"restored" : L"centred"},
                     TextRole::Body, palette::kInk,
                     restoration.bAtSavedPlace ? palette::kGood : palette::kBad);
    }
}
} // namespace

CPlacementPage::CPlacementPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize) {}

void CPlacementPage::OnMonitorsChanged()
{
    Redraw();
}

void CPlacementPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CWnd* const pFrame = GetTopLevelParent();
    CRect frame;
    pFrame->GetWindowRect(&frame);
    CRect workArea;
    ::GetCurrentScreenWorkArea(pFrame->GetSafeHwnd(), workArea);
    const std::vector<MONITORINFO> monitors = AllMonitors();
    const std::vector<Restoration> restorations =
        RestoreAll(MakePlaces(canvas.Style(), workArea, monitors), frame);

    const CRect title(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kMapTop);
    canvas.PageTitle(title, L"Window placement",
                     L"A saved window comes back where it was, unless its title bar can't be reached there.");
    const CRect map(title.left, kMapTop, title.left + ::MulDiv(title.Width(), kMapShare, 100),
                    size.cy - kTableHeight - kGap);
    const int nMapBottom = DrawMap(canvas, map, monitors, restorations);
    DrawLegend(canvas, CRect(map.right + kGap, map.top, title.right, map.bottom));
    DrawTable(canvas, CRect(title.left, nMapBottom + kGap, title.right, size.cy), restorations);
}
