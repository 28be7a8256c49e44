#include <vxdpi/Images.h>

#include "IconMask.h"

#include <foundation/Dib.h>
#include <foundation/Guards.h>

#include <wincodec.h>

#include <cstddef>
#include <vector>

namespace
{
/// WICBitmapInterpolationModeHighQualityCubic, which the older of the platform's headers do not name.
constexpr WICBitmapInterpolationMode kHighQualityCubic = static_cast<WICBitmapInterpolationMode>(4);

/// The imaging component's objects stay for the life of the process, one for each way of scaling an icon.
IWICImagingFactory* g_pFactoryForResources = nullptr;
IWICImagingFactory* g_pFactoryForHandles = nullptr;

bool EnsureFactory(IWICImagingFactory*& pFactory)
{
    if (pFactory)
        return true;
    return SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory2, nullptr, CLSCTX_INPROC_SERVER,
                                        IID_IWICImagingFactory, reinterpret_cast<void**>(&pFactory)));
}

/// As many bytes as the platform reads: its rows end at even bytes, those of the mask follow each other
/// without a gap, and the rest stays transparent. Both agree where the width is a multiple of 16.
std::vector<BYTE> PackMask(const DWORD* pPixels, UINT width, UINT height)
{
    constexpr std::size_t kBitsPerRowUnit = 16;
    constexpr std::size_t kBytesPerRowUnit = 2;
    const std::size_t platformRow = (width + kBitsPerRowUnit - 1) / kBitsPerRowUnit * kBytesPerRowUnit;
    std::vector<BYTE> mask(platformRow * height, IconMask::kAllTransparent);
    IconMask::Pack(pPixels, static_cast<std::size_t>(width) * height, mask.data());
    return mask;
}

HICON IconFromPixels(IWICFormatConverter& pixels)
{
    UINT width = 0;
    UINT height = 0;
    pixels.GetSize(&width, &height);

    void* pBits = nullptr;
    const UniqueBitmap color(
        CreateDib32(ScreenDc().Get(), static_cast<LONG>(width), -static_cast<LONG>(height), &pBits));
    if (!color)
        return nullptr;
    const WICRect whole = {0, 0, static_cast<INT>(width), static_cast<INT>(height)};
    const UINT stride = width * static_cast<UINT>(sizeof(DWORD));
    pixels.CopyPixels(&whole, stride, stride * height, static_cast<BYTE*>(pBits));

    const std::vector<BYTE> bits = PackMask(static_cast<const DWORD*>(pBits), width, height);
    const UniqueBitmap mask(
        ::CreateBitmap(static_cast<int>(width), static_cast<int>(height), 1, 1, bits.data()));
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmMask = mask.get();
    info.hbmColor = color.get();
    return ::CreateIconIndirect(&info);
}

HICON Resample(IWICImagingFactory& factory, HICON hIcon, UINT nTargetSize)
{
    IWICBitmap* pSource = nullptr;
    if (FAILED(factory.CreateBitmapFromHICON(hIcon, &pSource)))
        return nullptr;
    const UniqueCom<IWICBitmap> source(pSource);

    IWICBitmapScaler* pScaler = nullptr;
    if (FAILED(factory.CreateBitmapScaler(&pScaler)))
        return nullptr;
    const UniqueCom<IWICBitmapScaler> scaler(pScaler);
    if (FAILED(scaler->Initialize(source.get(), nTargetSize, nTargetSize, kHighQualityCubic)))
        return nullptr;

    IWICFormatConverter* pConverter = nullptr;
    if (FAILED(factory.CreateFormatConverter(&pConverter)))
        return nullptr;
    const UniqueCom<IWICFormatConverter> converter(pConverter);
    if (FAILED(converter->Initialize(scaler.get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                     nullptr, 0.0, WICBitmapPaletteTypeCustom)))
        return nullptr;
    return IconFromPixels(*converter);
}

/// Width of an icon's colour bitmap; 0 when it has none.
UINT WidthOf(const ICONINFO& info)
{
    BITMAP bm = {};
    ::GetObjectW(info.hbmColor, sizeof(BITMAP), &bm);
    return static_cast<UINT>(bm.bmWidth);
}
} // namespace

HICON StretchIcon(HICON hIcon, int cx, int cy)
{
    const HANDLE hCopy = ::CopyImage(hIcon, IMAGE_ICON, cx, cy, LR_COPYRETURNORG | LR_COPYDELETEORG);
    return hCopy ? static_cast<HICON>(hCopy) : hIcon;
}

HICON CreateScaledIcon(UINT nTargetSize, UINT nResourceId, UINT nLoadSize)
{
    const int loadSize = static_cast<int>(nLoadSize);
    const HICON hLoaded =
        static_cast<HICON>(::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nResourceId), IMAGE_ICON,
                                        loadSize, loadSize, LR_DEFAULTCOLOR));
    if (!hLoaded || nLoadSize == nTargetSize)
        return hLoaded;
    if (!EnsureFactory(g_pFactoryForResources))
        return nullptr; // kept by contract: the loaded icon stays allocated
    const UniqueIcon source(hLoaded);
    return Resample(*g_pFactoryForResources, source.get(), nTargetSize);
}

HICON CreateScaledIcon(UINT nTargetSize, HICON hIcon)
{
    ICONINFO info = {};
    if (!hIcon || !::GetIconInfo(hIcon, &info))
        return nullptr;
    UniqueBitmap mask(info.hbmMask);
    UniqueBitmap color(info.hbmColor);
    const UINT width = WidthOf(info);
    color.reset();
    mask.reset();
    if (width == nTargetSize)
        return hIcon;
    if (!EnsureFactory(g_pFactoryForHandles))
        return nullptr;
    const UniqueIcon source(hIcon); // consumed from here on, also when it can't be resampled
    return Resample(*g_pFactoryForHandles, source.get(), nTargetSize);
}
