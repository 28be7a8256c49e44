#include "drawboard/BoardCalls.h"

namespace
{
constexpr char kGdiPlus[] = "gdiplus.dll";
constexpr std::size_t kReleaseIndex = 2;

template<typename Object>
Gdiplus::GpStatus Named(CallLog& log, Gdiplus::GpStatus status, Object* const* created, const char* name)
{
    if (status == Gdiplus::Ok)
        log.Name(*created, name);
    return status;
}
} // namespace

StreamCalls::StreamCalls(CallLog& log)
    : m_log(log), m_load(VxDpiModule(), kGdiPlus, "GdipLoadImageFromStream",
                         [this](IStream* stream, Gdiplus::GpImage** image)
                         {
                             WatchRelease(stream);
                             m_log.WriteCall("GdipLoadImageFromStream", stream);
                             m_isInGdiPlus = true;
                             const Gdiplus::GpStatus status = m_load.Original()(stream, image);
                             m_isInGdiPlus = false;
                             return status;
                         })
{
}

void StreamCalls::WatchRelease(IStream* stream)
{
    m_log.Name(stream, "stream");
    if (m_release)
        return;
    m_release.emplace(stream, kReleaseIndex, "Release",
                      [this](IStream* released)
                      {
                          if (!m_isInGdiPlus)
                              m_log.WriteCall("Release", released);
                          return m_release->Original()(released);
                      });
}

BoardCalls::BoardCalls(CallLog& log)
    : m_log(log), m_load(VxDpiModule(), kGdiPlus, "GdipLoadImageFromStream",
                         [this](IStream* stream, Gdiplus::GpImage** image)
                         { return Named(m_log, m_load.Original()(stream, image), image, "image"); }),
      m_board(VxDpiModule(), kGdiPlus, "GdipCreateBitmapFromScan0",
              [this](INT width, INT height, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
                     Gdiplus::GpBitmap** bitmap)
              {
                  m_log.WriteCall("GdipCreateBitmapFromScan0", width, height, stride, format, bits);
                  return Named(m_log, m_board.Original()(width, height, stride, format, bits, bitmap), bitmap,
                               "board");
              }),
      m_surface(VxDpiModule(), kGdiPlus, "GdipGetImageGraphicsContext",
                [this](Gdiplus::GpImage* image, Gdiplus::GpGraphics** graphics)
                {
                    m_log.WriteCall("GdipGetImageGraphicsContext", image);
                    return Named(m_log, m_surface.Original()(image, graphics), graphics, "surface");
                }),
      m_clear(log, VxDpiModule(), kGdiPlus, "GdipGraphicsClear"),
      m_drawStretched(log, VxDpiModule(), kGdiPlus, "GdipDrawImageRectI"),
      m_graphics(VxDpiModule(), kGdiPlus, "GdipCreateFromHDC",
                 [this](HDC hdc, Gdiplus::GpGraphics** graphics)
                 {
                     m_log.WriteCall("GdipCreateFromHDC", hdc);
                     return Named(m_log, m_graphics.Original()(hdc, graphics), graphics, "graphics");
                 }),
      m_drawUnscaled(log, VxDpiModule(), kGdiPlus, "GdipDrawImageI"),
      m_handle(VxDpiModule(), kGdiPlus, "GdipCreateHBITMAPFromBitmap",
               [this](Gdiplus::GpBitmap* bitmap, HBITMAP* handle, Gdiplus::ARGB background)
               {
                   m_log.WriteCall("GdipCreateHBITMAPFromBitmap", bitmap, background);
                   return Named(m_log, m_handle.Original()(bitmap, handle, background), handle, "handle");
               }),
      m_deleteGraphics(log, VxDpiModule(), kGdiPlus, "GdipDeleteGraphics"),
      m_disposeImage(log, VxDpiModule(), kGdiPlus, "GdipDisposeImage"),
      m_deleteObject(log, VxDpiModule(), "gdi32.dll", "DeleteObject")
{
}

LookedUp::LookedUp()
    : m_find(VxDpiModule(), "kernel32.dll", "FindResourceW",
             [this](HMODULE module, LPCWSTR name, LPCWSTR type)
             {
                 m_ids.push_back(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(name)));
                 return m_find.Original()(module, name, type);
             })
{
}
