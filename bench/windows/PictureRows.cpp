#include "IconsByHand.h"
#include "PicturesByHand.h"
#include "Rows.h"
#include "Strip.h"
#include "resource.h"

#include <vxdpi/Images.h>
#include <vxdpi/Png.h>

#include "strip_images.h"
#include "tile_images.h"

namespace
{
using ByHand::StripStyle;

constexpr double kTarget = 1.02;
constexpr int kRounds = 201;
constexpr int kRoundsOfSlowRow = 51;
constexpr UINT kBase = 96;
constexpr UINT kScaled = 144;
constexpr int kLargestSide = 768;

/// A memory context with a bitmap that it may be deleted without.
class Canvas
{
public:
    Canvas()
    {
        const HDC hdcScreen = ::GetDC(nullptr);
        m_hBitmap = ::CreateCompatibleBitmap(hdcScreen, kLargestSide, kLargestSide);
        ::ReleaseDC(nullptr, hdcScreen);
        m_hdc = MakeContext();
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        ::DeleteDC(m_hdc);
        ::DeleteObject(m_hBitmap);
    }

    HDC Get() const { return m_hdc; }

    /// The caller deletes it, and with it the selection.
    HDC MakeContext() const
    {
        const HDC hdc = ::CreateCompatibleDC(nullptr);
        ::SelectObject(hdc, m_hBitmap);
        return hdc;
    }

private:
    HBITMAP m_hBitmap;
    HDC m_hdc;
};

void VisitDrawing(const Visit& visit, CDpiAwarePng& small, CDpiAwarePng& large)
{
    const Canvas canvas;
    const HDC hdc = canvas.Get();
    const RECT rc64 = {0, 0, 64, 64};
    const RECT rc96 = {0, 0, 96, 96};
    const RECT rc768 = {0, 0, kLargestSide, kLargestSide};
    visit({"1", "DrawPngInDC, 64 px at 96 DPI", kTarget, kRounds, 1,
           [&] { small.DrawPngInDC(hdc, kBase, rc64, nullptr, nullptr); },
           [&] { ByHand::DrawPngInDC(hdc, IDR_TILE_96, 64, rc64); }});
    visit({"1", "DrawPngInDC, 64 px at 144 DPI", kTarget, kRounds, 1,
           [&] { small.DrawPngInDC(hdc, kScaled, rc96, nullptr, nullptr); },
           [&] { ByHand::DrawPngInDC(hdc, IDR_TILE_96, 96, rc96); }});
    visit({"2", "DrawPngInDC, 512 px at 144 DPI", kTarget, kRoundsOfSlowRow, 1,
           [&] { large.DrawPngInDC(hdc, kScaled, rc768, nullptr, nullptr); },
           [&] { ByHand::DrawPngInDC(hdc, IDR_TILE_768, kLargestSide, rc768); }});
}

/// Each call consumes its context.
void VisitMetaDrawing(const Visit& visit, CDpiAwarePng& small)
{
    const Canvas canvas;
    const RECT rc96 = {0, 0, 96, 96};
    visit({"3", "DrawPngInMetaDC, 64 px at 144 DPI", kTarget, kRounds, 1,
           [&] { small.DrawPngInMetaDC(canvas.MakeContext(), kScaled, rc96, nullptr, nullptr); },
           [&] { ByHand::DrawPngInMetaDC(canvas.MakeContext(), IDR_TILE_96, 96, rc96); }});
}

void VisitConversions(const Visit& visit, CDpiAwarePng& small, CDpiAwarePng& large)
{
    Gdiplus::Size size;
    visit({"4", "ScalePngResource, 64 px at 144 DPI", kTarget, kRounds, 1,
           [&] { ::DeleteObject(small.ScalePngResource(kScaled, &size, Gdiplus::Color())); },
           [&] { ::DeleteObject(ByHand::ScalePngResource(IDR_TILE_96, 96, size)); }});
    visit({"4", "ReplaceColor, 512 px, against no loop", kTarget, kRounds, 1,
           [&] { delete large.ReplaceColor(kBase, Gdiplus::Color(255, 20, 40, 60)); },
           [] { ByHand::LockPixels(IDR_TILE_768); }});
}

void VisitStrips(const Visit& visit)
{
    Strip twentySmall(IDR_STRIP_20_96, 16);
    Strip fiveLarge(IDR_STRIP_5_384, 64);
    Strip twentyLarge(IDR_STRIP_20_384, 64);
    visit({"5", "CreatePngSplit, 20 x 16 px at 144 DPI", kTarget, kRounds, 1,
           [&] { twentySmall.Split(FALSE); }, [&] { twentySmall.SplitByHand(StripStyle::Plain); }});
    visit({"6", "CreatePngSplit, fixed, 20 x 16 px at 144 DPI", kTarget, kRounds, 1,
           [&] { twentySmall.Split(TRUE); }, [&] { twentySmall.SplitByHand(StripStyle::Fixed); }});
    visit({"6", "CreatePngSplit, fixed, 5 x 64 px at 144 DPI", kTarget, kRounds, 1,
           [&] { fiveLarge.Split(TRUE); }, [&] { fiveLarge.SplitByHand(StripStyle::Fixed); }});
    visit({"7", "CreateDisabledStylePngSplit, 20 x 64 px at 144 DPI, against no loops", kTarget, kRounds, 1,
           [&] { twentyLarge.SplitDisabled(); }, [&] { twentyLarge.SplitByHand(StripStyle::Disabled); }});
}

void VisitIcons(const Visit& visit)
{
    visit({"8", "CreateScaledIcon, 48 to 32 px, against no loop", kTarget, kRounds, 1,
           [] { ::DestroyIcon(CreateScaledIcon(32, IDI_24_48, 48)); },
           [] { ::DestroyIcon(ByHand::CreateScaledIcon(32, IDI_24_48, 48)); }});
    visit({"8", "CreateScaledIcon, 48 to 256 px, against no loop", kTarget, kRounds, 1,
           [] { ::DestroyIcon(CreateScaledIcon(256, IDI_24_48, 48)); },
           [] { ::DestroyIcon(ByHand::CreateScaledIcon(256, IDI_24_48, 48)); }});
}
} // namespace

void VisitPictureRows(const Visit& visit)
{
    CDpiAwarePng small;
    CDpiAwarePng large;
    small.AddResourceForDpi(kBase, IDR_TILE_96, {});
    large.AddResourceForDpi(kBase, IDR_TILE_768, {});
    VisitDrawing(visit, small, large);
    VisitMetaDrawing(visit, small);
    VisitConversions(visit, small, large);
    VisitStrips(visit);
    VisitIcons(visit);
}
