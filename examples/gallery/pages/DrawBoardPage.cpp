#include "DrawBoardPage.h"

#include "../PageGrid.h"
#include "../resource.h"

#include <dpi_images.h>

#include <utility>

namespace
{
const CSize kDesignSize(600, 556);
constexpr int kSceneTop = 88;
constexpr int kAreasTop = 124;
constexpr int kAreaGap = 14;
constexpr int kAreaPadding = 8;
constexpr int kCaptionHeight = 20;
constexpr int kCaptionGap = 4;

enum Image : UINT
{
    kWall,
    kClock,
    kDesk,
    kLamp,
    kPlant,
    kScreen,
    kEditor,
    kChart,
    kMessage,
    kKeyboard,
    kMug,
};

// In units of the scene, and so at 96 DPI.
const CSize kSceneSize(320, 208);

struct Placed
{
    Image nImage;
    int x;
    int y;
};

constexpr Placed kPlacedImages[] = {
    {kClock, 12, 14},  {kDesk, 0, 168},   {kLamp, 2, 78},       {kPlant, 264, 108}, {kScreen, 60, 34},
    {kEditor, 74, 46}, {kChart, 166, 58}, {kKeyboard, 98, 180}, {kMug, 232, 152},
};

template<size_t nCount>
void AddVariants(CDrawBoard& board, Image nImage, const std::pair<UINT, UINT> (&variants)[nCount])
{
    for (const auto& [nDpi, nResourceId] : variants)
        board.AddImageResource(nImage, nDpi, nResourceId, L"PNG");
}

// The areas that the scene is drawn in, without their captions, in units.
struct Areas
{
    explicit Areas(const CSize& page)
    {
        // Per cent of the height and of the width.
        constexpr int kUpperShare = 58;
        constexpr int kControlShare = 62;
        constexpr int kWideShare = 78;
        const CRect all(grid::kMargin, kAreasTop, page.cx - grid::kMargin, page.cy - kAreaPadding);
        const int nMiddle = all.top + ::MulDiv(all.Height(), kUpperShare, 100);
        const CRect upper(all.left, all.top, all.right, nMiddle - kAreaGap / 2 - kCaptionHeight);
        const CRect lower(all.left, nMiddle + kAreaGap / 2, all.right, all.bottom - kCaptionHeight);
        Split(upper, kControlShare, control, square);
        Split(lower, kWideShare, wide, tall);
    }

    static void Split(const CRect& row, int nShare, CRect& left, CRect& right)
    {
        const int nMiddle = row.left + ::MulDiv(row.Width(), nShare, 100);
        left.SetRect(row.left, row.top, nMiddle - kAreaGap / 2, row.bottom);
        right.SetRect(nMiddle + kAreaGap / 2, row.top, row.right, row.bottom);
    }

    CRect control;
    CRect square;
    CRect wide;
    CRect tall;
};

CRect Inside(CRect area)
{
    area.DeflateRect(kAreaPadding, kAreaPadding);
    return area;
}

void DrawArea(const CCanvas& canvas, const CRect& area, LPCTSTR pszKind)
{
    canvas.Panel(area, palette::kPanel, palette::kLine);
    const CSize size = canvas.ToPixels(Inside(area)).Size();
    CString text;
    text.Format(L"%s%d \u00D7 %d", pszKind, size.cx, size.cy);
    const CRect caption(area.left, area.bottom + kCaptionGap, area.right, area.bottom + kCaptionHeight);
    canvas.Text(caption, text, TextRole::Caption, palette::kMuted, DT_LEFT | DT_SINGLELINE);
}
} // namespace

BEGIN_MESSAGE_MAP(CDrawBoardPage, CGalleryPage)
    ON_WM_CREATE()
    ON_WM_CTLCOLOR()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CDrawBoardPage::CDrawBoardPage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize), m_panelBrush(palette::kPanel)
{
    AddVariants(m_board, kWall, dpi_images::kSceneWall);
    AddVariants(m_board, kClock, dpi_images::kSceneClock);
    AddVariants(m_board, kDesk, dpi_images::kSceneDesk);
    AddVariants(m_board, kLamp, dpi_images::kSceneLamp);
    AddVariants(m_board, kPlant, dpi_images::kScenePlant);
    AddVariants(m_board, kScreen, dpi_images::kSceneScreen);
    AddVariants(m_board, kEditor, dpi_images::kSceneEditor);
    AddVariants(m_board, kChart, dpi_images::kSceneChart);
    AddVariants(m_board, kMessage, dpi_images::kSceneMessage);
    AddVariants(m_board, kKeyboard, dpi_images::kSceneKeyboard);
    AddVariants(m_board, kMug, dpi_images::kSceneMug);
    m_board.SetDrawBoardSize(kSceneSize);
}

int CDrawBoardPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | SS_BITMAP;
    return m_picture.Create(L"", kStyle, CRect(0, 0, 0, 0), this, IDC_SCENE) ? 0 : -1;
}

void CDrawBoardPage::OnDestroy()
{
    ::DeleteObject(m_picture.SetBitmap(nullptr)); // controls delete no bitmap that they were given
    CGalleryPage::OnDestroy();
}

HBRUSH CDrawBoardPage::OnCtlColor(CDC*, CWnd*, UINT)
{
    return m_panelBrush; // the control is transparent around the scene
}

int CDrawBoardPage::ComposeScene()
{
    if (!m_board.DrawImageToBoard(kWall, CRect(CPoint(0, 0), kSceneSize)))
        return FALSE;
    for (const Placed& placed : kPlacedImages)
    {
        if (!m_board.DrawImageToBoard(placed.nImage, CPoint(placed.x, placed.y)))
            return FALSE;
    }
    return m_board.DrawImageToBoard(kMessage, CRect(118, 92, 203, 142)); // larger than it is
}

void CDrawBoardPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    const CRect page(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kSceneTop);
    canvas.PageTitle(page, L"Draw board",
                     L"A scene composed at 96 DPI, which fills any area and keeps its proportions.");
    canvas.Heading(CRect(page.left, kSceneTop, page.right, kAreasTop), L"One scene of eleven images",
                   L"CDrawBoard::DrawImage");

    const Areas areas(size);
    DrawArea(canvas, areas.control, L"a static control, ");
    DrawArea(canvas, areas.square, L"");
    DrawArea(canvas, areas.wide, L"");
    DrawArea(canvas, areas.tall, L"");
    m_board.SetDpi(canvas.Dpi());
    for (const CRect& area : {areas.square, areas.wide, areas.tall})
        m_board.DrawImage(canvas.Dc(), canvas.ToPixels(Inside(area)), [this] { return ComposeScene(); });
}

void CDrawBoardPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CRect pixels = Style().ToPixels(Inside(Areas(size).control));
    pixels.OffsetRect(origin);
    m_picture.MoveWindow(&pixels);
    m_board.SetDpi(Style().Dpi());
    m_board.DrawImage(m_picture, [this] { return ComposeScene(); });
}
