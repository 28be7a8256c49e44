#include "PictureSample.h"

#include "Pictures.h"

namespace
{
constexpr int kDetailSourceSide = 32; // pixels that are enlarged
const CPoint kDetailSource(40, 32);   // their corner in the picture
constexpr int kDetailSide = 128;      // units that they are enlarged to
constexpr int kDetailGap = 4;
constexpr int kCaptionHeight = 16;

// Frames the part of the picture that is enlarged.
void MarkDetail(const CCanvas& canvas, const CPoint& picture)
{
    const auto toUnits = [](int pixels)
    { return pixels * sample::kPictureSize.cx / sample::kDetailPictureSide; };
    const CPoint corner(picture.x + toUnits(kDetailSource.x), picture.y + toUnits(kDetailSource.y));
    const int nSide = toUnits(kDetailSourceSide);
    canvas.Frame(CRect(corner, CSize(nSide, nSide)), palette::kAccent);
}

void DrawDetail(const CCanvas& canvas, const CPoint& corner, HBITMAP hFinest)
{
    const CSize size(kDetailSide, kDetailSide);
    const CRect part(kDetailSource, CSize(kDetailSourceSide, kDetailSourceSide));
    DrawPixels(canvas, hFinest, part, canvas.PictureRect(corner, size));
    canvas.Frame(CRect(corner, size), palette::kAccent);

    const int top = corner.y + kDetailSide + kDetailGap;
    const CRect caption(corner.x, top, corner.x + kDetailSide, top + kCaptionHeight);
    canvas.Text(caption, L"enlarged, at 192 DPI", TextRole::Caption, palette::kMuted,
                DT_LEFT | DT_SINGLELINE);
}
} // namespace

void sample::DrawDescription(const CCanvas& canvas, const CRect& area, HBITMAP hFinest, LPCTSTR pszTitle,
                             LPCTSTR pszExplanation)
{
    constexpr int kTitleOffset = 76;
    constexpr int kExplanationOffset = 94;
    const CRect title(area.left, area.top + kTitleOffset, area.right - kDetailSide,
                      area.top + kExplanationOffset);
    canvas.Text(title, pszTitle, TextRole::Heading, palette::kInk, DT_LEFT | DT_SINGLELINE);
    const CRect explanation(title.left, title.bottom, title.right, area.top + kHeight);
    canvas.Text(explanation, pszExplanation, TextRole::Caption, palette::kMuted, DT_LEFT | DT_WORDBREAK);
    MarkDetail(canvas, area.TopLeft());
    DrawDetail(canvas, CPoint(area.right - kDetailSide, area.top), hFinest);
}
