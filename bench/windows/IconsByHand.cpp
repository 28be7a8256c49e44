#include "IconsByHand.h"

#include <wincodec.h>

#include <vector>

namespace
{
constexpr WICBitmapInterpolationMode kHighQualityCubic = static_cast<WICBitmapInterpolationMode>(4);

/// Made once, as in the library.
IWICImagingFactory& Factory()
{
    static IWICImagingFactory* const s_pFactory = []
    {
        void* pNew = nullptr;
        ::CoCreateInstance(CLSID_WICImagingFactory2, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                           &pNew);
        return static_cast<IWICImagingFactory*>(pNew);
    }();
    return *s_pFactory;
}

HBITMAP CreateTopDownDib(UINT width, UINT height, void** ppBits)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = static_cast<LONG>(width);
    info.bmiHeader.biHeight = -static_cast<LONG>(height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    const HDC hdcScreen = ::GetDC(nullptr);
    const HBITMAP hDib = ::CreateDIBSection(hdcScreen, &info, DIB_RGB_COLORS, ppBits, nullptr, 0);
    ::ReleaseDC(nullptr, hdcScreen);
    return hDib;
}

HICON IconFrom(IWICFormatConverter& pixels, const std::vector<BYTE>& mask)
{
    UINT width = 0;
    UINT height = 0;
    pixels.GetSize(&width, &height);
    void* pBits = nullptr;
    const HBITMAP hColor = CreateTopDownDib(width, height, &pBits);
    const WICRect whole = {0, 0, static_cast<INT>(width), static_cast<INT>(height)};
    const UINT stride = width * sizeof(DWORD);
    pixels.CopyPixels(&whole, stride, stride * height, static_cast<BYTE*>(pBits));

    const HBITMAP hMask =
        ::CreateBitmap(static_cast<int>(width), static_cast<int>(height), 1, 1, mask.data());
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmMask = hMask;
    info.hbmColor = hColor;
    const HICON hIcon = ::CreateIconIndirect(&info);
    ::DeleteObject(hMask);
    ::DeleteObject(hColor);
    return hIcon;
}
} // namespace

HICON ByHand::CreateScaledIcon(UINT nTargetSize, UINT nResourceId, UINT nLoadSize)
{
    constexpr std::size_t kLargestMask = 256 * 256 / 8;
    static const std::vector<BYTE> s_mask(kLargestMask);
    const int loadSize = static_cast<int>(nLoadSize);
    const HICON hLoaded =
        static_cast<HICON>(::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nResourceId), IMAGE_ICON,
                                        loadSize, loadSize, LR_DEFAULTCOLOR));
    IWICBitmap* pSource = nullptr;
    IWICBitmapScaler* pScaler = nullptr;
    IWICFormatConverter* pConverter = nullptr;
    Factory().CreateBitmapFromHICON(hLoaded, &pSource);
    Factory().CreateBitmapScaler(&pScaler);
    pScaler->Initialize(pSource, nTargetSize, nTargetSize, kHighQualityCubic);
    Factory().CreateFormatConverter(&pConverter);
    pConverter->Initialize(pScaler, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr, 0.0,
                           WICBitmapPaletteTypeCustom);
    const HICON hIcon = IconFrom(*pConverter, s_mask);
    pConverter->Release();
    pScaler->Release();
    pSource->Release();
    ::DestroyIcon(hLoaded);
    return hIcon;
}
