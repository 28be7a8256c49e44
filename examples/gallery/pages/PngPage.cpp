#include "PngPage.h"

#include "../PageGrid.h"
#include "../PictureSample.h"
#include "../Pictures.h"

#include <dpi_images.h>

#include <memory>

namespace
{
using BitmapPtr = std::unique_ptr<Gdiplus::Bitmap>;

const CSize kDesignSize(600, 556);
const CSize kPictureSize = sample::kPictureSize;
const CSize kBellSize(40, 40);

constexpr int kVariantsTop = 88;
constexpr int kSecondRowTop = 286;
constexpr int kThirdRowTop = 422;
constexpr int kContentTop = 36; // below a section's top
constexpr int kNameTop = 104;   // below a section's top
constexpr int kCaptionHeight = 16;

// Names, below a section's pictures, the operation that made them.
void DrawOperationName(const CCanvas& canvas, const CRect& section, LPCTSTR pszText)
{
    const CRect caption(section.left, section.top + kNameTop, section.right,
                        section.top + kNameTop + kCaptionHeight);
    canvas.Text(caption, pszText, TextRole::Caption, palette::kAccent,
                DT_LEFT | DT_SINGLELINE | DT_END_ELLIPSIS);
}

// Draws a GDI+ picture, which needs no certain size, into a rectangle in pixels.
void DrawPicture(const CCanvas& canvas, const BitmapPtr& bitmap, const CRect& pixels)
{
    if (bitmap == nullptr)
        return;
    Gdiplus::Graphics graphics(canvas.Dc().GetSafeHdc());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    graphics.DrawImage(bitmap.get(), pixels.left, pixels.top, pixels.Width(), pixels.Height());
}

// Draws a light chequered ground, which lets transparent parts of a picture be seen.
void DrawChequers(const CCanvas& canvas, const CPoint& corner)
{
    constexpr int kSquare = 8;
    const CRect ground(corner, kPictureSize);
    canvas.Fill(ground, palette::kPanel);
    for (int y = ground.top; y < ground.bottom; y += kSquare)
    {
        const int nIndent = (y - ground.top) / kSquare % 2 * kSquare;
        for (int x = ground.left + nIndent; x < ground.right; x += 2 * kSquare)
            canvas.Fill(CRect(CPoint(x, y), CSize(kSquare, kSquare)), palette::kLine);
    }
}

void DrawOperator(const CCanvas& canvas, const CPoint& corner, int width, LPCTSTR pszOperator)
{
    const CRect area(corner, CSize(width, kPictureSize.cy));
    canvas.Text(area, pszOperator, TextRole::Figure, palette::kMuted, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
}

// Draws a picture at the window's DPI, and what it is.
void DrawVariantGroup(const CCanvas& canvas, CDpiAwarePng& picture, const CRect& area, LPCTSTR pszTitle,
                      LPCTSTR pszExplanation)
{
    picture.DrawPngInDC(canvas.Dc(), canvas.Dpi(), canvas.PictureRect(area.TopLeft(), kPictureSize), nullptr,
                        nullptr);

    const CRect all(0, 0, sample::kDetailPictureSide, sample::kDetailPictureSide);
    CBitmap finest;
    finest.CreateCompatibleBitmap(&canvas.Dc(), all.Width(), all.Height());
    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&canvas.Dc());
    {
        const CScopedSelection selection(memoryDc, finest.GetSafeHandle());
        memoryDc.FillSolidRect(all, palette::kPaper);
        picture.DrawPngInDC(memoryDc, sample::kDetailDpi, all, nullptr, nullptr);
    }
    sample::DrawDescription(canvas, area, finest, pszTitle, pszExplanation);
}
} // namespace

CPngPage::CPngPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize)
{
    AddVariants(m_desktop, dpi_images::kDesktop);
    AddVariants(m_compass, dpi_images::kCompass);
    AddVariants(m_landscape, dpi_images::kLandscape);
    AddVariants(m_badge, dpi_images::kBadge);
    AddVariants(m_bell, dpi_images::kBell);
    AddVariants(m_gear, dpi_images::kGear);
    m_desktop96Only.AddResourceForDpi(96, IDR_DESKTOP_96, {});
}

void CPngPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CRect row(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kVariantsTop);
    canvas.PageTitle(row, L"PNG images",
                     L"PNG resources, one per DPI, decoded and drawn at the DPI of the window.");

    row.SetRect(row.left, kVariantsTop, row.right, kSecondRowTop);
    DrawVariants(canvas, row);
    row.SetRect(row.left, kSecondRowTop, row.right, kThirdRowTop);
    DrawRecoloured(canvas, grid::Column(row, 2, 0));
    DrawCombined(canvas, grid::Column(row, 2, 1));
    row.SetRect(row.left, kThirdRowTop, row.right, size.cy);
    DrawPart(canvas, grid::Column(row, 3, 0));
    DrawAsBitmap(canvas, grid::Column(row, 3, 1));
    DrawBlended(canvas, grid::Column(row, 3, 2));
}

void CPngPage::DrawVariants(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"One picture at the DPI of the window", L"DrawPngInDC");
    CRect groups(area);
    groups.top += kContentTop;
    DrawVariantGroup(canvas, m_desktop, grid::Column(groups, 2, 0), L"Three variants",
                     L"drawn for 96, 144\nand 192 DPI");
    DrawVariantGroup(canvas, m_desktop96Only, grid::Column(groups, 2, 1), L"One variant",
                     L"drawn for 96 DPI,\nscaled to the others");
}

void CPngPage::DrawRecoloured(const CCanvas& canvas, const CRect& area)
{
    const Gdiplus::Color colors[] = {
        Gdiplus::Color(37, 99, 235),  Gdiplus::Color(20, 184, 166), Gdiplus::Color(22, 163, 74),
        Gdiplus::Color(245, 158, 11), Gdiplus::Color(225, 29, 72),
    };
    constexpr int kBellStep = 52;

    canvas.Heading(area, L"Recoloured");
    CPoint corner(area.left, area.top + kContentTop + (kPictureSize.cy - kBellSize.cy) / 2);
    for (const Gdiplus::Color& color : colors)
    {
        const BitmapPtr bell(m_bell.ReplaceColor(canvas.Dpi(), color));
        DrawPicture(canvas, bell, canvas.PictureRect(corner, kBellSize));
        corner.x += kBellStep;
    }
    DrawOperationName(canvas, area, L"ReplaceColor");
}

void CPngPage::DrawCombined(const CCanvas& canvas, const CRect& area)
{
    constexpr int kOperatorWidth = 26;
    const int nStep = kPictureSize.cx + kOperatorWidth;

    canvas.Heading(area, L"Combined");
    const CPoint landscape(area.left, area.top + kContentTop);
    const CPoint badge(landscape.x + nStep, landscape.y);
    const CPoint combined(badge.x + nStep, landscape.y);
    const BitmapPtr landscapeBitmap(m_landscape.GetGdiplusBitmap(canvas.Dpi()));
    const BitmapPtr badgeBitmap(m_badge.GetGdiplusBitmap(canvas.Dpi()));
    const BitmapPtr combinedBitmap(CDpiAwarePng::CombineBitmaps(badgeBitmap.get(), landscapeBitmap.get()));

    DrawPicture(canvas, landscapeBitmap, canvas.PictureRect(landscape, kPictureSize));
    DrawOperator(canvas, CPoint(landscape.x + kPictureSize.cx, landscape.y), kOperatorWidth, L"+");
    DrawChequers(canvas, badge);
    DrawPicture(canvas, badgeBitmap, canvas.PictureRect(badge, kPictureSize));
    DrawOperator(canvas, CPoint(badge.x + kPictureSize.cx, badge.y), kOperatorWidth, L"=");
    DrawPicture(canvas, combinedBitmap, canvas.PictureRect(combined, kPictureSize));
    DrawOperationName(canvas, area, L"CombineBitmaps");
}

void CPngPage::DrawPart(const CCanvas& canvas, const CRect& area)
{
    // In units of the picture: the right upper quarter of the dial.
    const CRect part(32, 0, 64, 32);
    constexpr int kGap = 16;

    canvas.Heading(area, L"Part of a picture");
    const CPoint whole(area.left, area.top + kContentTop);
    m_compass.DrawPngInDC(canvas.Dc(), canvas.Dpi(), canvas.PictureRect(whole, kPictureSize), nullptr,
                          nullptr);
    CRect mark(part);
    mark.OffsetRect(whole);
    canvas.Frame(mark, palette::kAccent);

    const CPoint enlarged(whole.x + kPictureSize.cx + kGap, whole.y);
    const CRect source = canvas.ToPixels(part);
    m_compass.DrawPngInDC(canvas.Dc(), canvas.Dpi(), canvas.PictureRect(enlarged, kPictureSize), &source,
                          nullptr);
    canvas.Frame(CRect(enlarged, kPictureSize), palette::kAccent);
    DrawOperationName(canvas, area, L"DrawPngInDC");
}

void CPngPage::DrawAsBitmap(const CCanvas& canvas, const CRect& area)
{
    constexpr int kGap = 16;
    const COLORREF grounds[] = {palette::kAccentPale, palette::kInk};

    canvas.Heading(area, L"As a bitmap");
    CPoint corner(area.left, area.top + kContentTop);
    for (const COLORREF ground : grounds)
    {
        const Gdiplus::Color background(GetRValue(ground), GetGValue(ground), GetBValue(ground));
        HBITMAP hBitmap = m_gear.ScalePngResource(canvas.Dpi(), nullptr, background);
        DrawBitmap(canvas, hBitmap, corner);
        m_gear.SafeDeleteHBitmap(hBitmap);
        corner.x += kPictureSize.cx + kGap;
    }
    DrawOperationName(canvas, area, L"ScalePngResource");
}

void CPngPage::DrawBlended(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"Alpha-blended");
    UpdateBlended(canvas);
    DrawBitmap(canvas, m_blended, CPoint(area.left, area.top + kContentTop));
    DrawOperationName(canvas, area, L"DrawPngInMetaDC");
}

// Draws the blended picture once per DPI: each drawing costs a device context of the main window.
void CPngPage::UpdateBlended(const CCanvas& canvas)
{
    if (m_nBlendedDpi == canvas.Dpi())
        return;

    m_nBlendedDpi = canvas.Dpi();
    m_blended.DeleteObject();
    const CRect area(CPoint(0, 0), canvas.Style().ToPixels(kPictureSize));
    m_blended.CreateCompatibleBitmap(&canvas.Dc(), area.Width(), area.Height());

    // DrawPngInMetaDC deletes the context that it draws into, so it gets a plain handle of its own.
    const HDC hTarget = ::CreateCompatibleDC(canvas.Dc());
    ::SelectObject(hTarget, m_blended);
    const CBrush ground(palette::kAccentPale);
    ::FillRect(hTarget, &area, static_cast<HBRUSH>(ground.GetSafeHandle()));
    const BOOL bDrawn = m_gear.DrawPngInMetaDC(hTarget, canvas.Dpi(), area, nullptr, nullptr);
    if (!bDrawn && ::GetObjectType(hTarget) == OBJ_MEMDC)
        ::DeleteDC(hTarget); // refused before it was consumed
}
