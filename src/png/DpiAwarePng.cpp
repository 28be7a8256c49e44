#include <vxdpi/Png.h>

#include "ColorReplacement.h"
#include "PngImage.h"

#include <foundation/Allocation.h>
#include <foundation/ResourceMemory.h>
#include <imaging/VariantLookup.h>

#include <memory>
#include <utility>

namespace
{
enum class OnShortMemory
{
    FreeResource,
    KeepResource
};

std::unique_ptr<Gdiplus::Bitmap> DecodeFromMemory(UniqueGlobalMemory block)
{
    IStream* pNewStream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(block.get(), TRUE, &pNewStream)))
        return nullptr;
    static_cast<void>(block.release()); // the stream's from here on

    const UniqueCom<IStream> stream(pNewStream);
    return std::unique_ptr<Gdiplus::Bitmap>(new Gdiplus::Bitmap(stream.get(), FALSE));
}

template<class ModuleSource>
Gdiplus::Bitmap* DecodePngResource(UINT nResourceId, ModuleSource module, OnShortMemory onShortMemory)
{
    const ResourceBytes found = FindResourceBytes(module, nResourceId, kPngType);
    UniqueLoadedResource resource(found.hResource);
    if (!found.pBytes)
        return nullptr;

    UniqueGlobalMemory block = CopyToGlobalMemory(found.pBytes, found.size);
    if (!block && onShortMemory == OnShortMemory::KeepResource)
        static_cast<void>(resource.release());
    if (!block)
        return nullptr;
    resource.reset();

    std::unique_ptr<Gdiplus::Bitmap> bitmap = DecodeFromMemory(std::move(block));
    const bool isImage = bitmap && bitmap->GetLastStatus() == Gdiplus::Ok;
    return isImage ? bitmap.release() : nullptr;
}

/// Makes the picture of one DPI ready for a caller who wants an HBITMAP.
/// @param decoded  the entry's picture as it is stored; null when it can't be had.
HBITMAP ScaleToHandle(std::unique_ptr<Gdiplus::Bitmap> decoded, float factor, Gdiplus::Size* pSize,
                      Gdiplus::Color background)
{
    if (!decoded)
        return nullptr;
    const PixelSize size = ScaledSize(*decoded, factor);
    const std::unique_ptr<Gdiplus::Bitmap> scaled(
        CDpiAwarePng::ScaleBitmap(decoded.get(), size.width, size.height));
    if (!scaled)
    {
        static_cast<void>(decoded.release()); // kept by contract: the decoded bitmap outlives a failed scale
        return nullptr;
    }
    ReportSize(*scaled, pSize);
    decoded.reset();
    return CDpiAwarePng::ConvertToHBITMAP(scaled.get(), background);
}
} // namespace

CDpiAwarePng::CDpiAwarePng() = default;

CDpiAwarePng& CDpiAwarePng::operator=(const CDpiAwarePng& other) = default;

CDpiAwarePng& CDpiAwarePng::operator=(CDpiAwarePng&& other) = default;

CDpiAwarePng::~CDpiAwarePng() = default;

void CDpiAwarePng::AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values)
{
    m_resources.RegisterIconResource(nDpi, nResourceId, values);
}

BOOL CDpiAwarePng::Empty()
{
    return m_resources.Empty();
}

Gdiplus::Bitmap* CDpiAwarePng::GetGdiplusBitmap(UINT nDpi)
{
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    return pBest ? CreateBitmapFromPngResource(pBest->nResourceId) : nullptr;
}

HBITMAP CDpiAwarePng::ScalePngResource(UINT nDpi, Gdiplus::Size* pSize, Gdiplus::Color background)
{
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest)
        return nullptr;
    std::unique_ptr<Gdiplus::Bitmap> decoded(CreateBitmapFromPngResource(pBest->nResourceId));
    return ScaleToHandle(std::move(decoded), RoundedScaleFactor(nDpi, pBest->nDpi), pSize, background);
}

HBITMAP CDpiAwarePng::ScalePngResource(UINT nDpi, HINSTANCE hInstance, Gdiplus::Size* pSize,
                                       Gdiplus::Color background)
{
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest)
        return nullptr;
    std::unique_ptr<Gdiplus::Bitmap> decoded(CreateBitmapFromPngResource(pBest->nResourceId, hInstance));
    return ScaleToHandle(std::move(decoded), RoundedScaleFactor(nDpi, pBest->nDpi), pSize, background);
}

Gdiplus::Bitmap* CDpiAwarePng::ReplaceColor(UINT nDpi, Gdiplus::Color color)
{
    std::unique_ptr<Gdiplus::Bitmap> bitmap(GetGdiplusBitmap(nDpi));
    if (!bitmap)
        return nullptr;

    const PixelSize size = SizeOf(*bitmap);
    const Gdiplus::Rect whole(0, 0, static_cast<INT>(size.width), static_cast<INT>(size.height));
    const auto lock = MakeOrNull<Gdiplus::BitmapData>();
    if (!lock)
        return nullptr;
    if (bitmap->LockBits(&whole, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeWrite,
                         PixelFormat32bppARGB, lock.get()) != Gdiplus::Ok)
    {
        static_cast<void>(bitmap.release()); // kept by contract: the decoded bitmap outlives a failed lock
        return nullptr;
    }
    ColorReplacement::ReplaceInImage(lock->Scan0, lock->Width, lock->Height, lock->Stride,
                                     color.GetValue() & ColorReplacement::kColorMask);
    bitmap->UnlockBits(lock.get());
    return bitmap.release();
}

void CDpiAwarePng::SafeDeleteHBitmap(HBITMAP& hBitmap)
{
    if (hBitmap && ::DeleteObject(hBitmap))
        hBitmap = nullptr;
}

Gdiplus::Bitmap* CDpiAwarePng::CreateBitmapFromPngResource(UINT nResourceId)
{
    return DecodePngResource(
        nResourceId, [] { return AfxGetResourceHandle(); }, OnShortMemory::FreeResource);
}

Gdiplus::Bitmap* CDpiAwarePng::CreateBitmapFromPngResource(UINT nResourceId, HINSTANCE hInstance)
{
    return DecodePngResource(
        nResourceId, [hInstance] { return hInstance; }, OnShortMemory::KeepResource);
}
