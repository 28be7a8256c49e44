#include "png/DrawingCalls.h"

#include "support/Pixels.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr char kGdiPlus[] = "gdiplus.dll";
constexpr char kGdi[] = "gdi32.dll";
} // namespace

template<typename Object>
Gdiplus::GpStatus GdiPlusCalls::Created(Gdiplus::GpStatus status, Object* const* created, const char* name)
{
    if (status == Gdiplus::Ok)
        m_log.Name(*created, name);
    return status;
}

GdiPlusCalls::GdiPlusCalls(CallLog& log)
    : m_log(log), m_fromStream(VxDpiModule(), kGdiPlus, "GdipCreateBitmapFromStream",
                               [this](IStream* stream, Gdiplus::GpBitmap** bitmap)
                               {
                                   m_log.WriteCall("GdipCreateBitmapFromStream");
                                   return Created(m_fromStream.Original()(stream, bitmap), bitmap, "decoded");
                               }),
      m_fromScan0(VxDpiModule(), kGdiPlus, "GdipCreateBitmapFromScan0",
                  [this](INT width, INT height, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
                         Gdiplus::GpBitmap** bitmap)
                  {
                      m_log.WriteCall("GdipCreateBitmapFromScan0", width, height, stride, format, bits);
                      return Created(m_fromScan0.Original()(width, height, stride, format, bits, bitmap),
                                     bitmap, "scaled");
                  }),
      m_imageGraphics(VxDpiModule(), kGdiPlus, "GdipGetImageGraphicsContext",
                      [this](Gdiplus::GpImage* image, Gdiplus::GpGraphics** graphics)
                      {
                          m_log.WriteCall("GdipGetImageGraphicsContext", image);
                          return Created(m_imageGraphics.Original()(image, graphics), graphics, "scaler");
                      }),
      m_contextGraphics(VxDpiModule(), kGdiPlus, "GdipCreateFromHDC",
                        [this](HDC hdc, Gdiplus::GpGraphics** graphics)
                        {
                            m_log.WriteCall("GdipCreateFromHDC", hdc);
                            return Created(m_contextGraphics.Original()(hdc, graphics), graphics, "graphics");
                        }),
      m_interpolation(log, VxDpiModule(), kGdiPlus, "GdipSetInterpolationMode"),
      m_smoothing(log, VxDpiModule(), kGdiPlus, "GdipSetSmoothingMode"),
      m_pixelOffset(log, VxDpiModule(), kGdiPlus, "GdipSetPixelOffsetMode"),
      m_compositing(log, VxDpiModule(), kGdiPlus, "GdipSetCompositingQuality"),
      m_drawWhole(log, VxDpiModule(), kGdiPlus, "GdipDrawImageRectI"),
      m_drawPart(log, VxDpiModule(), kGdiPlus, "GdipDrawImageRectRect"),
      m_deleteGraphics(log, VxDpiModule(), kGdiPlus, "GdipDeleteGraphics"),
      m_disposeImage(log, VxDpiModule(), kGdiPlus, "GdipDisposeImage")
{
}

GdiCalls::GdiCalls(CallLog& log)
    : m_log(log), m_getDc(log, VxDpiModule(), "user32.dll", "GetDC"),
      m_createDc(VxDpiModule(), kGdi, "CreateCompatibleDC",
                 [this](HDC hdc)
                 {
                     m_log.WriteCall("CreateCompatibleDC", hdc);
                     const HDC created = m_createDc.Original()(hdc);
                     m_log.Name(created, "memory");
                     return created;
                 }),
      m_createDib(VxDpiModule(), kGdi, "CreateDIBSection",
                  [this](HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset) { return RecordDib(hdc, info, usage, bits, section, offset); }),
      m_select(VxDpiModule(), kGdi, "SelectObject",
               [this, isFirst = true](HDC hdc, HGDIOBJ object) mutable
               {
                   m_log.WriteCall("SelectObject", hdc, object);
                   const HGDIOBJ previous = m_select.Original()(hdc, object);
                   if (isFirst)
                       m_log.Name(previous, "previous");
                   isFirst = false;
                   return previous;
               }),
      m_blend(log, VxDpiModule(), "msimg32.dll", "AlphaBlend"),
      m_deleteObject(log, VxDpiModule(), kGdi, "DeleteObject"),
      m_deleteDc(log, VxDpiModule(), kGdi, "DeleteDC"),
      m_frameworkDeleteDc(FrameworkModule(), kGdi, "DeleteDC",
                          [this](HDC hdc)
                          {
                              m_log.WriteCall("framework DeleteDC", hdc);
                              return m_frameworkDeleteDc.Original()(hdc);
                          })
{
}

HBITMAP GdiCalls::RecordDib(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                            DWORD offset)
{
    const BITMAPINFOHEADER& header = info->bmiHeader;
    m_log.WriteCall("CreateDIBSection", hdc, usage, section, offset);
    m_log.WriteCall("  BITMAPINFOHEADER", header.biSize, header.biWidth, header.biHeight, header.biPlanes,
                    header.biBitCount, header.biCompression, header.biSizeImage, header.biXPelsPerMeter,
                    header.biYPelsPerMeter, header.biClrUsed, header.biClrImportant);
    const HBITMAP dib = m_createDib.Original()(hdc, info, usage, bits, section, offset);
    m_log.Name(dib, "dib");
    return dib;
}

CallLog::LineList LinesOf(const CallLog& log, const std::string& functionName)
{
    const std::string start = functionName + "(";
    CallLog::LineList lines;
    std::copy_if(log.Lines().begin(), log.Lines().end(), std::back_inserter(lines),
                 [&](const std::string& line) { return line.compare(0, start.size(), start) == 0; });
    return lines;
}

testing::AssertionResult IsSize(const Gdiplus::Size& size, int width, int height)
{
    if (size.Width == width && size.Height == height)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the size is " << size.Width << 'x' << size.Height;
}

testing::AssertionResult IsNear(std::uint32_t pixel, std::uint32_t expected)
{
    return SamePixels(ArgbImage(1, 1, expected), ArgbImage(1, 1, pixel), 1);
}

testing::AssertionResult IsRoughly(std::uint32_t pixel, std::uint32_t expected)
{
    return SamePixels(ArgbImage(1, 1, expected), ArgbImage(1, 1, pixel), 12);
}
