#include "ListPage.h"

#include "../Mouse.h"
#include "../PageGrid.h"
#include "../resource.h"

namespace
{
const CSize kDesignSize(600, 400);
constexpr int kFrameTop = 104;
constexpr int kFrameWidth = 1;
constexpr int kWidthsHeight = 86; // of what stands below the list
constexpr int kGap = 14;

// @return the list's place with the frame around it, in units.
CRect FrameArea(const CSize& page)
{
    return CRect(grid::kMargin, kFrameTop, page.cx - grid::kMargin,
                 page.cy - grid::kMargin - kWidthsHeight - kGap);
}

CString FormatNumber(LPCTSTR pszFormat, int nNumber)
{
    CString text;
    text.Format(pszFormat, nNumber);
    return text;
}

// Draws a line with a tick at each end.
void DrawMeasure(const CCanvas& canvas, int left, int right, int y, COLORREF color)
{
    constexpr int kTick = 4;
    canvas.Fill(CRect(left, y, right, y + 1), color);
    canvas.Fill(CRect(left, y - kTick, left + 1, y + kTick + 1), color);
    canvas.Fill(CRect(right - 1, y - kTick, right, y + kTick + 1), color);
}
} // namespace

BEGIN_MESSAGE_MAP(CListPage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CListPage::CListPage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize), m_dialog([this] { Redraw(); })
{
}

int CListPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    return m_dialog.Create(IDD_LIST, this) ? 0 : -1;
}

void CListPage::UpdateDpi()
{
    m_dialog.UpdateDpi(Style().Dpi());
    CGalleryPage::UpdateDpi();
}

void CListPage::ShowScene(int)
{
    constexpr int kInside = 3; // pixels from the column's edge to a place where it can be taken
    constexpr int kWider = 20; // units
    const CRect header = m_dialog.Columns().front().screenRect;
    const CPoint divider(header.right - kInside, header.CenterPoint().y);
    DragMouse(divider, divider + CSize(Style().ToPixels(kWider), 0));
}

void CListPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    canvas.PageTitle(CRect(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kFrameTop), L"List",
                     L"A CDPIAwareListCtrl keeps the width of each column at 96 DPI and applies it at every "
                     L"other. Drag a divider: that is kept, too.");
    const CRect frame = FrameArea(size);
    canvas.Frame(frame, palette::kLine);

    const CRect widths(frame.left, frame.bottom + kGap, frame.right, frame.bottom + kGap + kWidthsHeight);
    canvas.Heading(widths, L"Recorded at 96 DPI",
                   FormatNumber(L"below: pixels at %d DPI", static_cast<int>(canvas.Dpi())));
    for (const CListDialog::Column& column : m_dialog.Columns())
        DrawWidth(canvas, CRect(widths.left, widths.top + grid::kHeadingHeight, widths.right, widths.bottom),
                  column);
}

void CListPage::DrawWidth(const CCanvas& canvas, const CRect& strip, const CListDialog::Column& column)
{
    constexpr int kMeasureY = 14;
    constexpr int kTextTop = 22;
    constexpr int kLineHeight = 18;
    constexpr UINT kFormat = DT_CENTER | DT_SINGLELINE | DT_VCENTER;

    CRect dialog;
    m_dialog.GetWindowRect(&dialog);
    const int left =
        strip.left + kFrameWidth + Style().ToUnits(CSize(column.screenRect.left - dialog.left, 0)).cx;
    const int right = left + column.nWidth96;
    if (left < strip.left || right > strip.right)
        return; // scrolled out of sight

    const COLORREF color = column.bDesigned ? palette::kMuted : palette::kAccent;
    DrawMeasure(canvas, left, right - 1, strip.top + kMeasureY, color);
    const CRect upper(left, strip.top + kTextTop, right, strip.top + kTextTop + kLineHeight);
    canvas.Text(upper, FormatNumber(L"%d", column.nWidth96), TextRole::Heading,
                column.bDesigned ? palette::kInk : palette::kAccent, kFormat);
    canvas.Text(CRect(left, upper.bottom, right, upper.bottom + kLineHeight),
                FormatNumber(L"%d px", column.nWidth), TextRole::Caption, color, kFormat);
}

void CListPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CRect inside = FrameArea(size);
    inside.DeflateRect(kFrameWidth, kFrameWidth);
    CRect pixels(Style().ToPixels(inside.left), Style().ToPixels(inside.top), Style().ToPixels(inside.right),
                 Style().ToPixels(inside.bottom));
    pixels.OffsetRect(origin);
    m_dialog.MoveWindow(&pixels);
    Redraw(); // the columns may have been scrolled by their new place
}
