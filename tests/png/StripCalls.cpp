#include "png/StripCalls.h"

#include <stdexcept>
#include <utility>

namespace
{
constexpr char kKernel[] = "kernel32.dll";
constexpr char kGdiPlus[] = "gdiplus.dll";

template<typename Handle>
Handle AnyHandle(INT_PTR number)
{
    return reinterpret_cast<Handle>(number);
}

// The pixels of a bitmap whose owner is the library's.
ArgbImage PixelsOfForeign(Gdiplus::GpImage* image)
{
    UINT width = 0;
    UINT height = 0;
    Flat::GdipGetImageWidth(image, &width);
    Flat::GdipGetImageHeight(image, &height);
    ArgbImage pixels(static_cast<int>(width), static_cast<int>(height));
    for (int y = 0; y < pixels.Height(); ++y)
    {
        for (int x = 0; x < pixels.Width(); ++x)
        {
            Gdiplus::ARGB color = 0;
            if (Flat::GdipBitmapGetPixel(static_cast<Gdiplus::GpBitmap*>(image), x, y, &color) != Gdiplus::Ok)
                throw std::runtime_error("a bitmap of the library cannot be read");
            pixels.At(x, y) = color;
        }
    }
    return pixels;
}
} // namespace

OwnedIcons::~OwnedIcons()
{
    for (const HICON icon : m_icons)
        ::DestroyIcon(icon);
}

OwnedBitmaps::~OwnedBitmaps()
{
    for (const HBITMAP bitmap : m_bitmaps)
        ::DeleteObject(bitmap);
}

ServedResource::ServedResource(const Bytes& bytes)
    : m_bytes(bytes), m_find(VxDpiModule(), kKernel, "FindResourceW",
                             [](HMODULE, LPCWSTR, LPCWSTR) { return AnyHandle<HRSRC>(0x1000); }),
      m_size(VxDpiModule(), kKernel, "SizeofResource",
             [this](HMODULE, HRSRC) { return static_cast<DWORD>(m_bytes.size()); }),
      m_load(VxDpiModule(), kKernel, "LoadResource",
             [](HMODULE, HRSRC) { return AnyHandle<HGLOBAL>(0x2000); }),
      m_lock(VxDpiModule(), kKernel, "LockResource", [this](HGLOBAL) { return m_bytes.data(); })
{
}

ServedResource::ServedResource(const ArgbImage& picture) : ServedResource(EncodePng(picture)) {}

StripCalls::StripCalls(CallLog& log)
    : m_log(log), m_start(VxDpiModule(), kGdiPlus, "GdiplusStartup",
                          [this](ULONG_PTR* token, const Gdiplus::GdiplusStartupInput* input,
                                 Gdiplus::GdiplusStartupOutput* output)
                          {
                              m_log.Write("GdiplusStartup()");
                              m_isScaling = true;
                              return m_start.Original()(token, input, output);
                          }),
      m_fromStream(VxDpiModule(), kGdiPlus, "GdipCreateBitmapFromStream",
                   [this](IStream* stream, Gdiplus::GpBitmap** bitmap)
                   {
                       m_log.Write("GdipCreateBitmapFromStream()");
                       const Gdiplus::GpStatus status = m_fromStream.Original()(stream, bitmap);
                       m_log.Name(*bitmap, "strip");
                       return status;
                   }),
      m_fromScan0(VxDpiModule(), kGdiPlus, "GdipCreateBitmapFromScan0",
                  [this](INT width, INT height, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
                         Gdiplus::GpBitmap** bitmap)
                  { return RecordNewBitmap(width, height, stride, format, bits, bitmap); }),
      m_graphics(VxDpiModule(), kGdiPlus, "GdipGetImageGraphicsContext",
                 [this](Gdiplus::GpImage* image, Gdiplus::GpGraphics** graphics)
                 {
                     m_log.WriteCall("GdipGetImageGraphicsContext", image);
                     const Gdiplus::GpStatus status = m_graphics.Original()(image, graphics);
                     m_log.Name(*graphics, image == m_cell ? "cutter" : "scaler");
                     return status;
                 }),
      m_compositingMode(log, VxDpiModule(), kGdiPlus, "GdipSetCompositingMode"),
      m_compositingQuality(log, VxDpiModule(), kGdiPlus, "GdipSetCompositingQuality"),
      m_interpolation(log, VxDpiModule(), kGdiPlus, "GdipSetInterpolationMode"),
      m_smoothing(log, VxDpiModule(), kGdiPlus, "GdipSetSmoothingMode"),
      m_pixelOffset(log, VxDpiModule(), kGdiPlus, "GdipSetPixelOffsetMode"),
      m_draw(log, VxDpiModule(), kGdiPlus, "GdipDrawImageRectRectI"), m_pixels(log),
      m_toIcon(VxDpiModule(), kGdiPlus, "GdipCreateHICONFromBitmap",
               [this](Gdiplus::GpBitmap* bitmap, HICON* icon)
               {
                   m_log.WriteCall("GdipCreateHICONFromBitmap", bitmap, *icon);
                   return m_toIcon.Original()(bitmap, icon);
               }),
      m_deleteGraphics(log, VxDpiModule(), kGdiPlus, "GdipDeleteGraphics"),
      m_disposeImage(log, VxDpiModule(), kGdiPlus, "GdipDisposeImage")
{
}

Gdiplus::GpStatus StripCalls::RecordNewBitmap(INT width, INT height, INT stride, Gdiplus::PixelFormat format,
                                              BYTE* bits, Gdiplus::GpBitmap** bitmap)
{
    m_log.WriteCall("GdipCreateBitmapFromScan0", width, height, stride, format, bits);
    const Gdiplus::GpStatus status = m_fromScan0.Original()(width, height, stride, format, bits, bitmap);
    const bool isCell = !std::exchange(m_isScaling, false);
    m_cell = isCell ? *bitmap : m_cell;
    if (status == Gdiplus::Ok)
        m_log.Name(*bitmap, isCell ? "cell" : "scaled");
    return status;
}

CallLog::LineList CellLines(int left, int target, const CallLog::LineList& others)
{
    const std::string column = std::to_string(left);
    const std::string side = std::to_string(target);
    const std::string square = "0, 0, " + side + ", " + side;
    return Joined(
        {{"GdipCreateBitmapFromScan0(16, 16, 0, 2498570, null)", "GdipGetImageGraphicsContext(cell)",
          "GdipSetCompositingMode(cutter, 1)",
          "GdipDrawImageRectRectI(cutter, strip, 0, 0, 16, 16, " + column +
              ", 0, 16, 16, 2, null, null, null)",
          "GdipBitmapLockBits(cell, 0, 0, 16, 16, 3, 2498570, lock)", "GdipBitmapUnlockBits(cell, lock)",
          "GdiplusStartup()", "GdipCreateBitmapFromScan0(" + side + ", " + side + ", 0, 2498570, null)",
          "GdipGetImageGraphicsContext(scaled)", "GdipSetInterpolationMode(scaler, 7)",
          "GdipSetPixelOffsetMode(scaler, 4)",
          "GdipDrawImageRectRectI(scaler, cell, " + square + ", 0, 0, 16, 16, 2, null, null, null)",
          "GdipDeleteGraphics(scaler)"},
         others,
         {"GdipDisposeImage(scaled)", "GdipDeleteGraphics(cutter)", "GdipDisposeImage(cell)"}});
}

CallLog::LineList Joined(const std::vector<CallLog::LineList>& lists)
{
    CallLog::LineList all;
    for (const CallLog::LineList& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

CellsSeen::CellsSeen()
    : m_draw(VxDpiModule(), kGdiPlus, "GdipDrawImageRectRectI",
             [this](Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image, INT x, INT y, INT width,
                    INT height, INT sourceX, INT sourceY, INT sourceWidth, INT sourceHeight,
                    Gdiplus::GpUnit unit, const Gdiplus::GpImageAttributes* attributes,
                    Gdiplus::DrawImageAbort abort, void* context)
             {
                 if (m_strip == nullptr)
                     m_strip = image;
                 if (image != m_strip)
                     m_cells.push_back(PixelsOfForeign(image));
                 return m_draw.Original()(graphics, image, x, y, width, height, sourceX, sourceY, sourceWidth,
                                          sourceHeight, unit, attributes, abort, context);
             })
{
}
