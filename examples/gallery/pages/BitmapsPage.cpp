#include "BitmapsPage.h"

#include "../PageGrid.h"
#include "../PictureSample.h"
#include "../Pictures.h"
#include "../resource.h"

namespace
{
const CSize kDesignSize(600, 564);
constexpr UINT kBaseDpi = 96;

constexpr int kComparisonTop = 88;
constexpr int kDrawingsTop = 284;
constexpr int kMappedTop = 446;
constexpr int kContentTop = 36; // below a section's top
constexpr int kCaptionHeight = 16;
constexpr int kCaptionGap = 4;

struct Drawing
{
    UINT nDpi;
    UINT nMapId;
    UINT nBalloonId;
};

constexpr Drawing kDrawings[] = {
    {96, IDB_MAP_96, IDB_BALLOON_96},
    {120, IDB_MAP_120, IDB_BALLOON_120},
    {144, IDB_MAP_144, IDB_BALLOON_144},
    {192, IDB_MAP_192, IDB_BALLOON_192},
};

// The colours that stand for black and for white.
struct Duotone
{
    LPCTSTR pszName;
    COLORREF ink;
    COLORREF ground;
};

constexpr Duotone kDuotones[] = {
    {L"as drawn", RGB(0, 0, 0), RGB(255, 255, 255)}, {L"sky", RGB(30, 64, 175), RGB(219, 234, 254)},
    {L"leaf", RGB(20, 83, 45), RGB(220, 252, 231)},  {L"rose", RGB(159, 18, 57), RGB(255, 228, 230)},
    {L"sun", RGB(146, 64, 14), RGB(254, 243, 199)},  {L"night", RGB(253, 224, 71), RGB(30, 27, 75)},
};

constexpr int kShadeCount = 16; // of grey in a balloon
using ColorMap = std::array<COLORMAP, kShadeCount>;

BYTE Blend(BYTE from, BYTE to, int nShade)
{
    constexpr int kLast = kShadeCount - 1;
    return static_cast<BYTE>((from * (kLast - nShade) + to * nShade) / kLast);
}

COLORREF Blend(COLORREF from, COLORREF to, int nShade)
{
    return RGB(Blend(GetRValue(from), GetRValue(to), nShade), Blend(GetGValue(from), GetGValue(to), nShade),
               Blend(GetBValue(from), GetBValue(to), nShade));
}

// Each shade of grey becomes a shade between two colours, so that edges stay smooth.
ColorMap MapShades(const Duotone& duotone)
{
    ColorMap map = {};
    for (int nShade = 0; nShade < kShadeCount; ++nShade)
    {
        map[static_cast<size_t>(nShade)] = {Blend(RGB(0, 0, 0), RGB(255, 255, 255), nShade),
                                            Blend(duotone.ink, duotone.ground, nShade)};
    }
    return map;
}

CString FormatSize(const CSize& size)
{
    CString text;
    text.Format(L"%d \u00D7 %d pixels", size.cx, size.cy);
    return text;
}

void DrawCaption(const CCanvas& canvas, const CRect& column, int top, LPCTSTR pszText, COLORREF color)
{
    canvas.Text(CRect(column.left, top, column.right, top + kCaptionHeight), pszText, TextRole::Caption,
                color, DT_LEFT | DT_SINGLELINE);
}
} // namespace

CBitmapsPage::CBitmapsPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize)
{
    for (const Drawing& drawing : kDrawings)
        m_map.AddResourceForDpi(drawing.nDpi, drawing.nMapId, {});
    m_map.LoadDpiAwareBitmap(kBaseDpi); // there has to be one to scale
    for (size_t i = 0; i < kDrawingCount; ++i)
    {
        m_drawings[i].AddResourceForDpi(kDrawings[i].nDpi, kDrawings[i].nMapId, {});
        m_drawings[i].LoadDpiAwareBitmap(kDrawings[i].nDpi);
    }
    for (CDpiAwareBitmap& balloon : m_balloons)
    {
        for (const Drawing& drawing : kDrawings)
            balloon.AddResourceForDpi(drawing.nDpi, drawing.nBalloonId, {});
    }
}

void CBitmapsPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CRect row(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kComparisonTop);
    canvas.PageTitle(row, L"Bitmaps",
                     L"Bitmap resources, one per DPI, loaded and scaled for the DPI of the window.");

    row.SetRect(row.left, kComparisonTop, row.right, kDrawingsTop);
    DrawLoaded(canvas, grid::Column(row, 2, 0));
    DrawStretched(canvas, grid::Column(row, 2, 1));
    row.SetRect(row.left, kDrawingsTop, row.right, kMappedTop);
    DrawDrawings(canvas, row);
    row.SetRect(row.left, kMappedTop, row.right, size.cy);
    DrawMapped(canvas, row);
}

void CBitmapsPage::DrawLoaded(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"Loaded", L"ScaleToDpi");
    m_map.ScaleToDpi(this, nullptr);

    CRect content(area);
    content.top += kContentTop;
    DrawBitmap(canvas, m_map, content.TopLeft());
    sample::DrawDescription(canvas, content, m_drawings[kDrawingCount - 1], L"Four drawings",
                            L"for 96, 120, 144\nand 192 DPI");
}

void CBitmapsPage::DrawStretched(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"Stretched", L"ScaleBitmap");
    const CSize size = canvas.Style().ToPixels(sample::kPictureSize);
    CBitmap stretched;
    stretched.Attach(ScaleBitmap(m_drawings[0], size.cx, size.cy));
    CBitmap finest;
    finest.Attach(ScaleBitmap(m_drawings[0], sample::kDetailPictureSide, sample::kDetailPictureSide));

    CRect content(area);
    content.top += kContentTop;
    DrawBitmap(canvas, stretched, content.TopLeft());
    sample::DrawDescription(canvas, content, finest, L"One drawing",
                            L"for 96 DPI, brought\nto the same size");
}

void CBitmapsPage::DrawDrawings(const CCanvas& canvas, const CRect& area)
{
    constexpr int kEnlargedSide = 80;
    const CRect part(32, 24, 60, 52); // of a drawing, in units; whole pixels at every DPI

    canvas.Heading(area, L"The drawings, enlarged", L"LoadDpiAwareBitmap");
    for (size_t i = 0; i < kDrawingCount; ++i)
    {
        const CRect column = grid::Column(area, static_cast<int>(kDrawingCount), static_cast<int>(i));
        const CRect enlarged(CPoint(column.left, column.top + kContentTop),
                             CSize(kEnlargedSide, kEnlargedSide));
        const int nDpi = static_cast<int>(kDrawings[i].nDpi);
        const auto toDrawing = [nDpi](int units) { return ::MulDiv(units, nDpi, kBaseDpi); };
        DrawPixels(
            canvas, m_drawings[i],
            CRect(toDrawing(part.left), toDrawing(part.top), toDrawing(part.right), toDrawing(part.bottom)),
            canvas.PictureRect(enlarged.TopLeft(), enlarged.Size()));
        canvas.Frame(enlarged, palette::kLine);

        CString name;
        name.Format(L"for %d DPI", nDpi);
        DrawCaption(canvas, column, enlarged.bottom + kCaptionGap, name, palette::kInk);
        DrawCaption(canvas, column, enlarged.bottom + kCaptionGap + kCaptionHeight,
                    FormatSize(m_drawings[i].GetSize()), palette::kMuted);
    }
}

void CBitmapsPage::DrawMapped(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"Loaded in other colours", L"LoadDpiAwareBitmapWithColorMap");
    UpdateBalloons();
    for (size_t i = 0; i < kBalloonCount; ++i)
    {
        const CRect column = grid::Column(area, static_cast<int>(kBalloonCount), static_cast<int>(i));
        const CPoint corner(column.left, column.top + kContentTop);
        DrawBitmap(canvas, m_balloons[i], corner);
        DrawCaption(canvas, column, corner.y + sample::kPictureSize.cy + kCaptionGap, kDuotones[i].pszName,
                    palette::kMuted);
    }
}

void CBitmapsPage::UpdateBalloons()
{
    for (size_t i = 0; i < kBalloonCount; ++i)
    {
        // Before ScaleToDpi, which would load for a new DPI without a map.
        ColorMap map = MapShades(kDuotones[i]);
        m_balloons[i].LoadDpiAwareBitmapWithColorMap(CMB_MASKED, map.data(), kShadeCount, Style().Dpi());
        m_balloons[i].ScaleToDpi(this, nullptr);
    }
}
