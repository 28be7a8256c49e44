#include "PicturesByHand.h"

#include <cstring>

namespace
{
constexpr wchar_t kPngType[] = L"PNG";
constexpr UINT kReadAndWrite = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeWrite;

struct Png
{
    HGLOBAL hResource;
    const void* pBytes;
    DWORD size;
};

Png FindPng(UINT nResourceId)
{
    const HRSRC hInfo = ::FindResourceW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nResourceId), kPngType);
    const DWORD size = ::SizeofResource(AfxGetResourceHandle(), hInfo);
    const HGLOBAL hResource = ::LoadResource(AfxGetResourceHandle(), hInfo);
    return {hResource, ::LockResource(hResource), size};
}

/// Left locked.
HGLOBAL CopyToBlock(const Png& png)
{
    const HGLOBAL hBlock = ::GlobalAlloc(GMEM_MOVEABLE, png.size);
    std::memcpy(::GlobalLock(hBlock), png.pBytes, png.size);
    return hBlock;
}

Gdiplus::RectF Square(UINT nSize)
{
    return Gdiplus::RectF(0, 0, static_cast<float>(nSize), static_cast<float>(nSize));
}

std::unique_ptr<Gdiplus::Bitmap> Scale(Gdiplus::Bitmap& source, UINT nSize)
{
    const INT size = static_cast<INT>(nSize);
    auto scaled = std::make_unique<Gdiplus::Bitmap>(size, size, source.GetPixelFormat());
    Gdiplus::Graphics graphics(scaled.get());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.DrawImage(&source, 0, 0, size, size);
    return scaled;
}

void SetSmoothDrawing(Gdiplus::Graphics& graphics)
{
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHighQuality);
}

void AskSize(Gdiplus::Bitmap& bitmap)
{
    bitmap.GetWidth();
    bitmap.GetHeight();
}

HBITMAP CreateDib(HDC hdc, int nWidth, int nHeight)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = nWidth;
    info.bmiHeader.biHeight = nHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* pBits = nullptr;
    return ::CreateDIBSection(hdc, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
}

void LockAndUnlock(Gdiplus::Bitmap& bitmap, const Gdiplus::Rect& area)
{
    Gdiplus::BitmapData data;
    if (bitmap.LockBits(&area, kReadAndWrite, PixelFormat32bppARGB, &data) == Gdiplus::Ok)
        bitmap.UnlockBits(&data);
}

std::unique_ptr<Gdiplus::Bitmap> LoadStrip(UINT nResourceId)
{
    const HGLOBAL hBlock = CopyToBlock(FindPng(nResourceId));
    IStream* pStream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(hBlock, TRUE, &pStream)))
        return nullptr;
    auto strip = std::make_unique<Gdiplus::Bitmap>(pStream, FALSE);
    ::GlobalUnlock(hBlock);
    pStream->Release();
    return strip;
}

std::unique_ptr<Gdiplus::Bitmap> ScaleCell(Gdiplus::Bitmap& cell, int nSize)
{
    static ULONG_PTR s_token = 0;
    const Gdiplus::GdiplusStartupInput input(nullptr, FALSE, FALSE);
    Gdiplus::GdiplusStartup(&s_token, &input, nullptr);

    const UINT nHeight = cell.GetHeight();
    const UINT nWidth = cell.GetWidth();
    const int nScaledWidth = ::MulDiv(static_cast<int>(nWidth), nSize, static_cast<int>(nHeight));
    auto scaled = std::make_unique<Gdiplus::Bitmap>(nScaledWidth, nSize, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(scaled.get());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    const INT nSourceWidth = static_cast<INT>(cell.GetWidth());
    const INT nSourceHeight = static_cast<INT>(cell.GetHeight());
    graphics.DrawImage(&cell, Gdiplus::Rect(0, 0, nScaledWidth, nSize), 0, 0, nSourceWidth, nSourceHeight,
                       Gdiplus::UnitPixel);
    return scaled;
}

void DrawMask(HDC hdc, Gdiplus::Bitmap& bitmap, int nSize)
{
    for (int y = 0; y < nSize; ++y)
    {
        for (int x = 0; x < nSize; ++x)
        {
            Gdiplus::Color color;
            bitmap.GetPixel(x, y, &color);
            ::SetPixel(hdc, x, y, color.GetAlpha() != 0 ? RGB(255, 255, 255) : RGB(0, 0, 0));
        }
    }
}

HICON CreateIconOf(HBITMAP hMask, HBITMAP hColor)
{
    ICONINFO info = {};
    info.fIcon = TRUE;
    info.hbmMask = hMask;
    info.hbmColor = hColor;
    return ::CreateIconIndirect(&info);
}

HICON ConvertFixed(Gdiplus::Bitmap& bitmap)
{
    bitmap.GetWidth();
    const int nSize = static_cast<int>(bitmap.GetHeight());
    const HDC hdcScreen = ::GetDC(nullptr);
    const HDC hdcColor = ::CreateCompatibleDC(hdcScreen);
    const HDC hdcMask = ::CreateCompatibleDC(hdcScreen);
    const HBITMAP hColor = CreateDib(hdcScreen, nSize, nSize);
    const HBITMAP hMask = ::CreateBitmap(nSize, nSize, 1, 1, nullptr);
    const HGDIOBJ hOldColor = ::SelectObject(hdcColor, hColor);
    const HGDIOBJ hOldMask = ::SelectObject(hdcMask, hMask);
    Gdiplus::Graphics graphics(hdcColor); // ends after its context
    graphics.DrawImage(&bitmap, 0, 0, nSize, nSize);
    DrawMask(hdcMask, bitmap, nSize);
    const HICON hIcon = CreateIconOf(hMask, hColor);

    ::SelectObject(hdcMask, hOldMask);
    ::SelectObject(hdcColor, hOldColor);
    ::DeleteObject(hMask);
    ::DeleteObject(hColor);
    ::DeleteDC(hdcMask);
    ::DeleteDC(hdcColor);
    ::ReleaseDC(nullptr, hdcScreen);
    return hIcon;
}

HICON CreateCellIcon(Gdiplus::Bitmap& strip, int nIndex, int nCellSize, int nTargetSize,
                     ByHand::StripStyle style)
{
    const Gdiplus::Rect whole(0, 0, nCellSize, nCellSize);
    Gdiplus::Bitmap cell(nCellSize, nCellSize, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(&cell);
    graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
    graphics.DrawImage(&strip, whole, nIndex * nCellSize, 0, nCellSize, nCellSize, Gdiplus::UnitPixel);
    LockAndUnlock(cell, whole);

    const std::unique_ptr<Gdiplus::Bitmap> scaled = ScaleCell(cell, nTargetSize);
    if (style == ByHand::StripStyle::Disabled)
    {
        AskSize(*scaled);
        LockAndUnlock(*scaled, Gdiplus::Rect(0, 0, nTargetSize, nTargetSize));
    }
    if (style == ByHand::StripStyle::Fixed)
        return ConvertFixed(*scaled);
    HICON hIcon = nullptr;
    scaled->GetHICON(&hIcon);
    return hIcon;
}
} // namespace

std::unique_ptr<Gdiplus::Bitmap> ByHand::DecodePng(UINT nResourceId)
{
    const Png png = FindPng(nResourceId);
    const HGLOBAL hBlock = CopyToBlock(png);
    ::GlobalUnlock(hBlock);
    ::FreeResource(png.hResource);
    IStream* pStream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(hBlock, TRUE, &pStream)))
        return nullptr;
    auto decoded = std::make_unique<Gdiplus::Bitmap>(pStream, FALSE);
    pStream->Release();
    return decoded;
}

void ByHand::DrawPngInDC(HDC hdc, UINT nResourceId, UINT nSize, const RECT& rcDest)
{
    std::unique_ptr<Gdiplus::Bitmap> decoded = DecodePng(nResourceId);
    AskSize(*decoded);
    std::unique_ptr<Gdiplus::Bitmap> scaled = Scale(*decoded, nSize);
    decoded.reset();

    Gdiplus::Graphics graphics(hdc);
    SetSmoothDrawing(graphics);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    const Gdiplus::RectF target(static_cast<float>(rcDest.left), static_cast<float>(rcDest.top),
                                static_cast<float>(rcDest.right - rcDest.left),
                                static_cast<float>(rcDest.bottom - rcDest.top));
    const Gdiplus::RectF source = Square(nSize);
    graphics.DrawImage(scaled.get(), target, source.X, source.Y, source.Width, source.Height,
                       Gdiplus::UnitPixel);
    scaled.reset();
}

void ByHand::DrawPngInMetaDC(HDC hdc, UINT nResourceId, int nSize, const RECT& rcDest)
{
    std::unique_ptr<Gdiplus::Bitmap> decoded = DecodePng(nResourceId);
    AskSize(*decoded);
    const HDC hdcMemory = ::CreateCompatibleDC(nullptr);
    const HBITMAP hDib = CreateDib(hdcMemory, nSize, -nSize);
    const HGDIOBJ hOld = ::SelectObject(hdcMemory, hDib);

    std::unique_ptr<Gdiplus::Bitmap> scaled = Scale(*decoded, static_cast<UINT>(nSize));
    decoded.reset();
    {
        Gdiplus::Graphics graphics(hdcMemory);
        SetSmoothDrawing(graphics);
        AskSize(*scaled);
        const Gdiplus::RectF all = Square(static_cast<UINT>(nSize));
        graphics.DrawImage(scaled.get(), all, all.X, all.Y, all.Width, all.Height, Gdiplus::UnitPixel);
        scaled.reset();
    }

    CDC target;
    CDC memory;
    memory.Attach(hdcMemory);
    target.Attach(hdc);
    constexpr BLENDFUNCTION kPremultipliedOver = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::AlphaBlend(hdc, rcDest.left, rcDest.top, rcDest.right - rcDest.left, rcDest.bottom - rcDest.top,
                 hdcMemory, 0, 0, nSize, nSize, kPremultipliedOver);
    ::SelectObject(hdcMemory, hOld);
    ::DeleteObject(hDib);
    ::DeleteDC(hdcMemory);
}

HBITMAP ByHand::ScalePngResource(UINT nResourceId, UINT nSize, Gdiplus::Size& size)
{
    std::unique_ptr<Gdiplus::Bitmap> decoded = DecodePng(nResourceId);
    AskSize(*decoded);
    const std::unique_ptr<Gdiplus::Bitmap> scaled = Scale(*decoded, nSize);
    const UINT nWidth = scaled->GetWidth();
    const UINT nHeight = scaled->GetHeight();
    size = Gdiplus::Size(static_cast<INT>(nWidth), static_cast<INT>(nHeight));
    decoded.reset();
    HBITMAP hBitmap = nullptr;
    scaled->GetHBITMAP(Gdiplus::Color(), &hBitmap);
    return hBitmap;
}

std::unique_ptr<Gdiplus::Bitmap> ByHand::LockPixels(UINT nResourceId)
{
    std::unique_ptr<Gdiplus::Bitmap> decoded = DecodePng(nResourceId);
    const INT nWidth = static_cast<INT>(decoded->GetWidth());
    const INT nHeight = static_cast<INT>(decoded->GetHeight());
    LockAndUnlock(*decoded, Gdiplus::Rect(0, 0, nWidth, nHeight));
    return decoded;
}

std::vector<HICON> ByHand::SplitPng(UINT nResourceId, int nCellSize, int nDpi, StripStyle style)
{
    constexpr int kBaseDpi = 96;
    const int nTargetSize = ::MulDiv(nCellSize, nDpi, kBaseDpi);
    const std::unique_ptr<Gdiplus::Bitmap> strip = LoadStrip(nResourceId);
    const int nCount = static_cast<int>(strip->GetWidth()) / nCellSize;
    std::vector<HICON> icons;
    icons.reserve(static_cast<std::size_t>(nCount));
    for (int i = 0; i < nCount; ++i)
        icons.push_back(CreateCellIcon(*strip, i, nCellSize, nTargetSize, style));
    return icons;
}
