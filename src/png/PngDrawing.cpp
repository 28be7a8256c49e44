#include <vxdpi/Png.h>

#include "PngImage.h"

#include <foundation/Dib.h>
#include <foundation/Guards.h>
#include <foundation/WrappingArithmetic.h>
#include <imaging/VariantLookup.h>

#include <memory>
#include <utility>

namespace
{
constexpr BLENDFUNCTION kPremultipliedOver = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};

Gdiplus::RectF ToRectF(const RECT& rect)
{
    return Gdiplus::RectF(static_cast<float>(rect.left), static_cast<float>(rect.top),
                          static_cast<float>(WrappingWidth(rect)), static_cast<float>(WrappingHeight(rect)));
}

Gdiplus::RectF WholeOf(const PixelSize& size)
{
    return Gdiplus::RectF(0, 0, static_cast<float>(size.width), static_cast<float>(size.height));
}

void SetSmoothDrawing(Gdiplus::Graphics& graphics)
{
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHighQuality);
}

Gdiplus::Status DrawPart(Gdiplus::Graphics& graphics, Gdiplus::Bitmap& bitmap, const Gdiplus::RectF& target,
                         const Gdiplus::RectF& source)
{
    return graphics.DrawImage(&bitmap, target, source.X, source.Y, source.Width, source.Height,
                              Gdiplus::UnitPixel);
}

BOOL DrawIntoContext(HDC hdc, std::unique_ptr<Gdiplus::Bitmap> scaled, const Gdiplus::RectF& target,
                     const Gdiplus::RectF& source)
{
    Gdiplus::Graphics graphics(hdc);
    SetSmoothDrawing(graphics);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    const Gdiplus::Status status = DrawPart(graphics, *scaled, target, source);
    scaled.reset();
    return status == Gdiplus::Ok ? TRUE : FALSE;
}

void DrawIntoMemory(HDC hdc, std::unique_ptr<Gdiplus::Bitmap> scaled, const PixelSize& size)
{
    Gdiplus::Graphics graphics(hdc);
    SetSmoothDrawing(graphics);
    const Gdiplus::RectF source = WholeOf(SizeOf(*scaled));
    DrawPart(graphics, *scaled, WholeOf(size), source);
    scaled.reset();
}

void ObtainMainWindowContext()
{
    const CWnd* const pMainWindow = AfxGetMainWnd();
    if (pMainWindow && pMainWindow->m_hWnd)
        ::GetDC(pMainWindow->m_hWnd); // kept by contract: neither used nor released
}
} // namespace

BOOL CDpiAwarePng::DrawPngInDC(HDC hdc, UINT nDpi, const RECT& rcDest, const RECT* prcSource,
                               Gdiplus::Size* pSize)
{
    if (!hdc)
        return FALSE;
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest || pBest->nDpi == 0)
        return FALSE;
    std::unique_ptr<Gdiplus::Bitmap> decoded(CreateBitmapFromPngResource(pBest->nResourceId));
    if (!decoded)
        return FALSE;

    const PixelSize size = ScaledSize(*decoded, SingleScaleFactor(nDpi, pBest->nDpi));
    std::unique_ptr<Gdiplus::Bitmap> scaled(ScaleBitmap(decoded.get(), size.width, size.height));
    if (!scaled)
        return FALSE;
    ReportSize(*scaled, pSize);
    decoded.reset();
    return DrawIntoContext(hdc, std::move(scaled), ToRectF(rcDest),
                           prcSource ? ToRectF(*prcSource) : WholeOf(size));
}

BOOL CDpiAwarePng::DrawPngInDC(HDC hdc, UINT nDpi, int x, int y, int cx, int cy, const RECT* prcSource,
                               Gdiplus::Size* pSize)
{
    const RECT rcDest = {x, y, WrappingAdd(x, cx), WrappingAdd(y, cy)};
    return DrawPngInDC(hdc, nDpi, rcDest, prcSource, pSize);
}

BOOL CDpiAwarePng::DrawPngInMetaDC(HDC hdc, UINT nDpi, const RECT& rcDest, const RECT* /*prcSource*/,
                                   Gdiplus::Size* pSize)
{
    if (!hdc)
        return FALSE;
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest)
        return FALSE;
    std::unique_ptr<Gdiplus::Bitmap> decoded(CreateBitmapFromPngResource(pBest->nResourceId));
    if (!decoded || pBest->nDpi == 0)
        return FALSE;

    const PixelSize size = ScaledSize(*decoded, SingleScaleFactor(nDpi, pBest->nDpi));
    if (size.width == 0 || size.height == 0)
        return FALSE;
    const int width = static_cast<int>(size.width);
    const int height = static_cast<int>(size.height);
    if (pSize)
        *pSize = Gdiplus::Size(width, height);
    ObtainMainWindowContext();

    UniqueMemoryDc memoryDc(::CreateCompatibleDC(nullptr));
    if (!memoryDc)
        return FALSE;
    void* pBits = nullptr;
    const HBITMAP hDib = CreateDib32(memoryDc.get(), width, WrappingSubtract(0, height), &pBits);
    if (!hDib || !pBits)
        return FALSE; // kept by contract: a bitmap whose pixels can't be reached stays allocated
    UniqueBitmap dib(hDib);
    Selection selection(memoryDc.get(), dib.get());

    std::unique_ptr<Gdiplus::Bitmap> scaled(ScaleBitmap(decoded.get(), size.width, size.height));
    decoded.reset();
    if (!scaled)
        return FALSE;
    DrawIntoMemory(memoryDc.get(), std::move(scaled), size);

    // Both wrappers delete what they wrap, the caller's context last: callers count on it being consumed.
    CDC target;
    CDC memory;
    memory.Attach(memoryDc.get());
    target.Attach(hdc);
    const BOOL bBlended =
        ::AlphaBlend(hdc, rcDest.left, rcDest.top, WrappingWidth(rcDest), WrappingHeight(rcDest),
                     memoryDc.get(), 0, 0, width, height, kPremultipliedOver);
    selection.Restore();
    dib.reset();
    memoryDc.reset();
    return bBlended;
}
