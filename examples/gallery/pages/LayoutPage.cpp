#include "LayoutPage.h"

#include "../PageGrid.h"
#include "../resource.h"

namespace
{
const CSize kDesignSize(540, 420);
constexpr int kFrameTop = 104;
constexpr int kFrameWidth = 1;

// @return the dialog's place with the frame around it, in units.
CRect FrameArea(const CSize& page)
{
    return CRect(grid::kMargin, kFrameTop, page.cx - grid::kMargin, page.cy - grid::kMargin);
}
} // namespace

BEGIN_MESSAGE_MAP(CLayoutPage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CLayoutPage::CLayoutPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize) {}

int CLayoutPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    return m_dialog.Create(IDD_LAYOUT, this) ? 0 : -1;
}

void CLayoutPage::UpdateDpi()
{
    m_dialog.UpdateDpi(Style().Dpi());
    CGalleryPage::UpdateDpi();
}

void CLayoutPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    canvas.PageTitle(CRect(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kFrameTop), L"Layout",
                     L"A dialog whose controls are placed by CDpiLayoutManager. Resize the window: "
                     L"each control follows its anchor and its stretch policy, which stand on it.");
    canvas.Frame(FrameArea(size), palette::kLine);
}

void CLayoutPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CRect inside = FrameArea(size);
    inside.DeflateRect(kFrameWidth, kFrameWidth);
    CRect pixels = Style().ToPixels(inside);
    pixels.OffsetRect(origin);
    m_dialog.MoveWindow(&pixels);
}
