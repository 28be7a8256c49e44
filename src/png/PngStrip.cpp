#include <vxdpi/Png.h>

#include "DisabledEffect.h"
#include "PngImage.h"
#include "Premultiplication.h"

#include <foundation/Dib.h>
#include <foundation/GuardedScaling.h>
#include <foundation/Guards.h>
#include <foundation/ResourceMemory.h>
#include <imaging/VariantLookup.h>
#include <vxdpi/Dpi.h>

#include <memory>
#include <optional>
#include <vector>

namespace
{
constexpr COLORREF kVisibleInMask = RGB(255, 255, 255);
constexpr COLORREF kTransparentInMask = RGB(0, 0, 0);
constexpr UINT kReadAndWrite = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeWrite;

/// What an entry asks for at a DPI; lengths of a side in pixels.
struct Cut
{
    UINT nResourceId;
    int nTargetSize;
    int nCellSize;
};

std::optional<Cut> ChooseCut(CDpiAwareRes& resources, UINT nDpi)
{
    const ResourceInfo* const pBest = ChooseResource(resources, nDpi);
    if (!pBest || pBest->values.empty())
        return std::nullopt;
    const UINT nCellSize = pBest->values.front();
    const UINT nTargetSize = GuardedScaleUnsigned(nCellSize, nDpi, pBest->nDpi);
    return Cut{pBest->nResourceId, static_cast<int>(nTargetSize), static_cast<int>(nCellSize)};
}

/// Calls change(pScan0, width, height, stride) on a bitmap's pixels; a bitmap that can't be locked is left
/// alone.
template<class Change>
void ChangePixels(Gdiplus::Bitmap& bitmap, const Gdiplus::Rect& area, Change change)
{
    Gdiplus::BitmapData data;
    if (bitmap.LockBits(&area, kReadAndWrite, PixelFormat32bppARGB, &data) != Gdiplus::Ok)
        return;
    change(data.Scan0, data.Width, data.Height, data.Stride);
    bitmap.UnlockBits(&data);
}

/// One square of a strip, as it is stored. The drawing surface lives as long as the square.
class Cell
{
public:
    explicit Cell(int nSize)
        : m_nSize(nSize), m_bitmap(nSize, nSize, PixelFormat32bppARGB), m_graphics(&m_bitmap)
    {
        m_graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
    }

    Gdiplus::Status CopyFrom(Gdiplus::Bitmap& strip, int index)
    {
        const Gdiplus::Rect whole(0, 0, m_nSize, m_nSize);
        return m_graphics.DrawImage(&strip, whole, index * m_nSize, 0, m_nSize, m_nSize, Gdiplus::UnitPixel);
    }

    /// Keeps the format of straight alpha: scaling is to see colours that are multiplied already.
    void Premultiply()
    {
        ChangePixels(m_bitmap, Gdiplus::Rect(0, 0, m_nSize, m_nSize), Premultiplication::PremultiplyImage);
    }

    Gdiplus::Bitmap* Get() { return &m_bitmap; }

private:
    int m_nSize;
    Gdiplus::Bitmap m_bitmap;
    Gdiplus::Graphics m_graphics;
};

bool IsUsable(Gdiplus::Bitmap* pBitmap)
{
    return pBitmap && pBitmap->GetLastStatus() == Gdiplus::Ok;
}

/// A scaled cell, owned; null when it is not usable.
std::unique_ptr<Gdiplus::Bitmap> TakeScaled(Gdiplus::Bitmap* pScaled)
{
    if (!IsUsable(pScaled))
        return nullptr; // kept by contract: a scaled cell that failed stays allocated
    return std::unique_ptr<Gdiplus::Bitmap>(pScaled);
}

HICON ConvertToIcon(Gdiplus::Bitmap& bitmap)
{
    HICON hIcon = nullptr;
    bitmap.GetHICON(&hIcon);
    return hIcon;
}

void DrawMask(HDC hdcMask, Gdiplus::Bitmap& bitmap, int width, int height)
{
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            Gdiplus::Color color; // opaque black, which a pixel that can't be read stays
            bitmap.GetPixel(x, y, &color);
            ::SetPixel(hdcMask, x, y, color.GetAlpha() != 0 ? kVisibleInMask : kTransparentInMask);
        }
    }
}

HICON MakeIcon(HBITMAP hMask, HBITMAP hColor)
{
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmMask = hMask;
    info.hbmColor = hColor;
    return ::CreateIconIndirect(&info);
}
} // namespace

CDpiAwarePngSplit::CDpiAwarePngSplit() = default;

CDpiAwarePngSplit& CDpiAwarePngSplit::operator=(const CDpiAwarePngSplit& other) = default;

CDpiAwarePngSplit& CDpiAwarePngSplit::operator=(CDpiAwarePngSplit&& other) = default;

CDpiAwarePngSplit::~CDpiAwarePngSplit() = default;

void CDpiAwarePngSplit::AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values)
{
    m_resources.RegisterIconResource(nDpi, nResourceId, values);
}

std::vector<HICON> CDpiAwarePngSplit::CreatePngSplit(UINT nDpi, HINSTANCE hInstance, int bFixedIcons)
{
    const std::optional<Cut> cut = ChooseCut(m_resources, nDpi);
    if (!cut)
        return {};
    return SplitPngToIcons(cut->nResourceId, cut->nTargetSize, cut->nCellSize, hInstance, bFixedIcons, FALSE);
}

std::vector<HICON> CDpiAwarePngSplit::CreateDisabledStylePngSplit(UINT nDpi)
{
    const std::optional<Cut> cut = ChooseCut(m_resources, nDpi);
    if (!cut)
        return {};
    return SplitPngToIcons(cut->nResourceId, cut->nTargetSize, cut->nCellSize, AfxGetResourceHandle(), FALSE,
                           TRUE);
}

std::vector<HBITMAP> CDpiAwarePngSplit::CreatePngSplitBitmap(UINT nDpi, HINSTANCE hInstance, DWORD background)
{
    const std::optional<Cut> cut = ChooseCut(m_resources, nDpi);
    if (!cut)
        return {};
    return SplitPngToBitmaps(cut->nResourceId, cut->nTargetSize, cut->nCellSize, hInstance, background);
}

void CDpiAwarePngSplit::DestroyIcons(std::vector<HICON>& icons)
{
    for (const HICON hIcon : icons)
    {
        if (hIcon)
            ::DestroyIcon(hIcon);
    }
    icons.clear();
}

Gdiplus::Bitmap* CDpiAwarePngSplit::LoadPngFromResource(UINT nResourceId, const wchar_t* type,
                                                        HINSTANCE hInstance)
{
    const ResourceBytes found = FindResourceBytes([hInstance] { return hInstance; }, nResourceId, type);
    if (!found.pBytes)
        return nullptr;
    LockedBlock copy = CopyToLockedMemory(found.pBytes, found.size);
    if (!copy.block)
        return nullptr;

    IStream* pNewStream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(copy.block.get(), TRUE, &pNewStream)) || !pNewStream)
        return nullptr;
    static_cast<void>(copy.block.release()); // the stream's from here on
    const UniqueCom<IStream> stream(pNewStream);
    Gdiplus::Bitmap* const pBitmap = new Gdiplus::Bitmap(stream.get(), FALSE);
    copy.lock.reset();
    return pBitmap;
}

Gdiplus::Bitmap* CDpiAwarePngSplit::ScaleBitmap(Gdiplus::Bitmap* pSource, int nSize)
{
    if (!pSource || nSize <= 0)
        return nullptr;
    StartupGdiPlusByVxDpi(); // kept by contract: each scaling starts GDI+ once more

    const UINT nHeight = pSource->GetHeight();
    const INT nWidth = static_cast<INT>(pSource->GetWidth());
    const INT nScaledWidth = GuardedScale(nWidth, static_cast<UINT>(nSize), nHeight);
    std::unique_ptr<Gdiplus::Bitmap> scaled(new Gdiplus::Bitmap(nScaledWidth, nSize, PixelFormat32bppARGB));
    if (!scaled)
        return nullptr;

    Gdiplus::Graphics graphics(scaled.get());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    const PixelSize size = SizeOf(*pSource);
    graphics.DrawImage(pSource, Gdiplus::Rect(0, 0, nScaledWidth, nSize), 0, 0, static_cast<INT>(size.width),
                       static_cast<INT>(size.height), Gdiplus::UnitPixel);
    return scaled.release();
}

void CDpiAwarePngSplit::ApplyDisabledEffect(Gdiplus::Bitmap* pBitmap)
{
    if (!pBitmap)
        return;
    const PixelSize size = SizeOf(*pBitmap);
    const Gdiplus::Rect whole(0, 0, static_cast<INT>(size.width), static_cast<INT>(size.height));
    ChangePixels(*pBitmap, whole, DisabledEffect::GreyOutImage);
}

HICON CDpiAwarePngSplit::ConvertBitmapToIconFixed(Gdiplus::Bitmap* pBitmap)
{
    if (!pBitmap)
        return nullptr;
    const PixelSize size = SizeOf(*pBitmap);
    const int width = static_cast<int>(size.width);
    const int height = static_cast<int>(size.height);
    std::optional<Gdiplus::Graphics> graphics; // ends after the context that it draws into

    const ScreenDc screen;
    if (!screen.Get())
        return nullptr;
    const UniqueMemoryDc colorDc(::CreateCompatibleDC(screen.Get()));
    if (!colorDc)
        return nullptr;
    const UniqueMemoryDc maskDc(::CreateCompatibleDC(screen.Get()));
    if (!maskDc)
        return nullptr;
    void* pBits = nullptr;
    const UniqueBitmap color(CreateDib32(screen.Get(), width, height, &pBits));
    if (!color)
        return nullptr;
    const UniqueBitmap mask(::CreateBitmap(width, height, 1, 1, nullptr));
    if (!mask)
        return nullptr;

    const Selection colorSelected(colorDc.get(), color.get());
    const Selection maskSelected(maskDc.get(), mask.get());
    graphics.emplace(colorDc.get());
    graphics->DrawImage(pBitmap, 0, 0, width, height);
    DrawMask(maskDc.get(), *pBitmap, width, height);
    return MakeIcon(mask.get(), color.get());
}

std::vector<HICON> CDpiAwarePngSplit::SplitPngToIcons(UINT nResourceId, int nTargetSize, int nCellSize,
                                                      HINSTANCE hInstance, int bFixedIcons, int bDisabled)
{
    std::vector<HICON> icons;
    if (nCellSize == 0)
        return icons;
    const std::unique_ptr<Gdiplus::Bitmap> strip(LoadPngFromResource(nResourceId, kPngType, hInstance));
    if (!IsUsable(strip.get()))
        return icons;

    const UINT nCount = strip->GetWidth() / static_cast<UINT>(nCellSize);
    icons.reserve(nCount);
    for (UINT i = 0; i < nCount; ++i)
    {
        Cell cell(nCellSize);
        cell.CopyFrom(*strip, static_cast<int>(i));
        cell.Premultiply();
        Gdiplus::Bitmap* const pScaled = ScaleBitmap(cell.Get(), nTargetSize);
        if (bDisabled)
            ApplyDisabledEffect(pScaled);
        const std::unique_ptr<Gdiplus::Bitmap> scaled = TakeScaled(pScaled);
        if (!scaled)
            continue;
        const HICON hIcon = bFixedIcons ? ConvertBitmapToIconFixed(scaled.get()) : ConvertToIcon(*scaled);
        if (hIcon)
            icons.push_back(hIcon);
    }
    return icons;
}

std::vector<HBITMAP> CDpiAwarePngSplit::SplitPngToBitmaps(UINT nResourceId, int nTargetSize, int nCellSize,
                                                          HINSTANCE hInstance, DWORD background)
{
    std::vector<HBITMAP> bitmaps;
    std::unique_ptr<Gdiplus::Bitmap> strip(LoadPngFromResource(nResourceId, kPngType, hInstance));
    if (!IsUsable(strip.get()))
    {
        static_cast<void>(strip.release()); // kept by contract: a strip that is no image stays allocated
        return bitmaps;
    }

    const UINT nCount =
        strip->GetWidth() / static_cast<UINT>(nCellSize); // kept by contract: 0 is not refused
    bitmaps.reserve(nCount);
    for (UINT i = 0; i < nCount; ++i)
    {
        Cell cell(nCellSize);
        if (cell.CopyFrom(*strip, static_cast<int>(i)) != Gdiplus::Ok)
            continue;
        cell.Premultiply();
        const std::unique_ptr<Gdiplus::Bitmap> scaled = TakeScaled(ScaleBitmap(cell.Get(), nTargetSize));
        if (!scaled)
            continue;
        const HBITMAP hBitmap = CDpiAwarePng::ConvertToHBITMAP(scaled.get(), Gdiplus::Color(background));
        if (hBitmap)
            bitmaps.push_back(hBitmap);
    }
    return bitmaps;
}
