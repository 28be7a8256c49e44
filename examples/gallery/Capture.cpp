#include "Capture.h"

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

bool CopyWindow(CWnd& window, Gdiplus::Bitmap& picture)
{
    CWindowDC windowDc(&window);
    Gdiplus::Graphics graphics(&picture);
    const HDC hdc = graphics.GetHDC();
    if (hdc == nullptr)
        return false;

    const int nWidth = static_cast<int>(picture.GetWidth());
    const int nHeight = static_cast<int>(picture.GetHeight());
    const BOOL bCopied = ::BitBlt(hdc, 0, 0, nWidth, nHeight, windowDc, 0, 0, SRCCOPY);
    graphics.ReleaseHDC(hdc);
    return bCopied != FALSE;
}
} // namespace

bool SaveWindowAsPng(CWnd& window, const CString& file)
{
    CRect rect;
    window.GetWindowRect(&rect);
    Gdiplus::Bitmap picture(rect.Width(), rect.Height(), PixelFormat24bppRGB);
    CLSID encoder = {};
    return CopyWindow(window, picture) && FindPngEncoder(encoder) &&
           picture.Save(file, &encoder, nullptr) == Gdiplus::Ok;
}
