#include "Capture.h"

#include "Canvas.h"

#include <vxdpi/GdiPlus.h>

#include <vector>

namespace
{
bool FindPngEncoder(CLSID& encoder)
{
    UINT nCount = 0;
    UINT nBytes = 0;
    if (Gdiplus::GetImageEncodersSize(&nCount, &nBytes) != Gdiplus::Ok || nBytes == 0)
        return false;

    // The records are followed, in the same block, by the texts that they point to.
    std::vector<Gdiplus::ImageCodecInfo> codecs(nBytes / sizeof(Gdiplus::ImageCodecInfo) + 1);
    if (Gdiplus::GetImageEncoders(nCount, nBytes, codecs.data()) != Gdiplus::Ok)
        return false;

    for (UINT i = 0; i < nCount; ++i)
    {
        if (codecs[i].FormatID == Gdiplus::ImageFormatPNG)
        {
            encoder = codecs[i].Clsid;
            return true;
        }
    }
    return false;
}

bool CopyToPicture(HDC hSource, Gdiplus::Bitmap& picture)
{
    Gdiplus::Graphics graphics(&picture);
    const HDC hdc = graphics.GetHDC();
    if (hdc == nullptr)
        return false;

    const int nWidth = static_cast<int>(picture.GetWidth());
    const int nHeight = static_cast<int>(picture.GetHeight());
    const BOOL bCopied = ::BitBlt(hdc, 0, 0, nWidth, nHeight, hSource, 0, 0, SRCCOPY);
    graphics.ReleaseHDC(hdc);
    return bCopied != FALSE;
}

bool SaveAsPng(HDC hSource, const CSize& size, const CString& file)
{
    Gdiplus::Bitmap picture(size.cx, size.cy, PixelFormat24bppRGB);
    CLSID encoder = {};
    return CopyToPicture(hSource, picture) && FindPngEncoder(encoder) &&
           picture.Save(file, &encoder, nullptr) == Gdiplus::Ok;
}
} // namespace

bool SaveWindowAsPng(CWnd& window, const CString& file)
{
    CRect rect;
    window.GetWindowRect(&rect);
    CWindowDC windowDc(&window);
    return SaveAsPng(windowDc, rect.Size(), file);
}

bool SaveBitmapAsPng(CBitmap& bitmap, const CString& file)
{
    BITMAP description = {};
    CDC memoryDc;
    if (bitmap.GetBitmap(&description) == 0 || !memoryDc.CreateCompatibleDC(nullptr))
        return false;

    const CScopedSelection selected(memoryDc, bitmap.GetSafeHandle());
    return SaveAsPng(memoryDc, CSize(description.bmWidth, description.bmHeight), file);
}

bool CopyScreen(const CRect& area, CBitmap& bitmap)
{
    CClientDC screenDc(nullptr);
    CDC memoryDc;
    if (!memoryDc.CreateCompatibleDC(&screenDc) ||
        !bitmap.CreateCompatibleBitmap(&screenDc, area.Width(), area.Height()))
        return false;

    const CScopedSelection selected(memoryDc, bitmap.GetSafeHandle());
    return memoryDc.BitBlt(0, 0, area.Width(), area.Height(), &screenDc, area.left, area.top, SRCCOPY) !=
           FALSE;
}
