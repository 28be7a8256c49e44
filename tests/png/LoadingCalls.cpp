#include "png/LoadingCalls.h"

#include <utility>

namespace
{
constexpr char kKernel[] = "kernel32.dll";
constexpr char kGdiPlus[] = "gdiplus.dll";
}

ResourceCalls::ResourceCalls(CallLog& log)
    : m_find(log, kKernel, "FindResourceW", "found"), m_size(log, VxDpiModule(), kKernel, "SizeofResource"),
      m_load(log, kKernel, "LoadResource", "resource"), m_lock(log, VxDpiModule(), kKernel, "LockResource"),
      m_allocate(log, kKernel, "GlobalAlloc", "block"), m_lockBlock(log, kKernel, "GlobalLock", "copy"),
      m_unlockBlock(log, VxDpiModule(), kKernel, "GlobalUnlock"),
      m_freeBlock(log, VxDpiModule(), kKernel, "GlobalFree"),
      m_free(log, VxDpiModule(), kKernel, "FreeResource"),
      m_stream(VxDpiModule(), "ole32.dll", "CreateStreamOnHGlobal",
               [this, &log](HGLOBAL block, BOOL deleteOnRelease, IStream** stream)
               {
                   log.WriteCall("CreateStreamOnHGlobal", block, deleteOnRelease);
                   return m_stream.Original()(block, deleteOnRelease, stream);
               })
{
}

PictureQuestions::PictureQuestions(CallLog& log)
    : m_width(VxDpiModule(), kGdiPlus, "GdipGetImageWidth",
              [this, &log](Gdiplus::GpImage* image, UINT* width)
              {
                  log.WriteCall("GdipGetImageWidth", image);
                  return m_width.Original()(image, width);
              }),
      m_height(VxDpiModule(), kGdiPlus, "GdipGetImageHeight",
               [this, &log](Gdiplus::GpImage* image, UINT* height)
               {
                   log.WriteCall("GdipGetImageHeight", image);
                   return m_height.Original()(image, height);
               }),
      m_format(VxDpiModule(), kGdiPlus, "GdipGetImagePixelFormat",
               [this, &log](Gdiplus::GpImage* image, Gdiplus::PixelFormat* format)
               {
                   log.WriteCall("GdipGetImagePixelFormat", image);
                   return m_format.Original()(image, format);
               })
{
}

PixelCalls::PixelCalls(CallLog& log)
    : m_lock(VxDpiModule(), kGdiPlus, "GdipBitmapLockBits",
             [this, &log](Gdiplus::GpBitmap* bitmap, const Gdiplus::Rect* rect, UINT flags,
                          Gdiplus::PixelFormat format, Gdiplus::BitmapData* data)
             {
                 log.Name(data, "lock");
                 log.WriteCall("GdipBitmapLockBits", bitmap, rect->X, rect->Y, rect->Width, rect->Height,
                               flags, format, data);
                 return m_lock.Original()(bitmap, rect, flags, format, data);
             }),
      m_unlock(log, VxDpiModule(), kGdiPlus, "GdipBitmapUnlockBits"),
      m_toHandle(VxDpiModule(), kGdiPlus, "GdipCreateHBITMAPFromBitmap",
                 [this, &log](Gdiplus::GpBitmap* bitmap, HBITMAP* handle, Gdiplus::ARGB background)
                 {
                     log.WriteCall("GdipCreateHBITMAPFromBitmap", bitmap, *handle, background);
                     return m_toHandle.Original()(bitmap, handle, background);
                 })
{
}

std::unique_ptr<Gdiplus::Bitmap> BitmapOf(const ArgbImage& image, Gdiplus::PixelFormat format)
{
    auto bitmap = std::make_unique<Gdiplus::Bitmap>(image.Width(), image.Height(), format);
    for (int y = 0; y < image.Height(); ++y)
    {
        for (int x = 0; x < image.Width(); ++x)
            bitmap->SetPixel(x, y, Gdiplus::Color(image.At(x, y)));
    }
    return bitmap;
}

FakePixels::FakePixels(std::vector<std::uint32_t>& pixels, UINT width, UINT height, INT stride,
                       std::size_t firstPixel)
    : m_lock(VxDpiModule(), kGdiPlus, "GdipBitmapLockBits",
             [this, &pixels, width, height, stride, firstPixel](Gdiplus::GpBitmap*, const Gdiplus::Rect*,
                                                                UINT, Gdiplus::PixelFormat,
                                                                Gdiplus::BitmapData* data)
             {
                 m_locked = pixels;
                 data->Width = width;
                 data->Height = height;
                 data->Stride = stride;
                 data->Scan0 = &m_locked.at(firstPixel);
                 return Gdiplus::Ok;
             }),
      m_unlock(VxDpiModule(), kGdiPlus, "GdipBitmapUnlockBits",
               [this, &pixels](Gdiplus::GpBitmap*, Gdiplus::BitmapData*)
               {
                   pixels = m_locked;
                   return Gdiplus::Ok;
               })
{
}

LiveBitmaps::LiveBitmaps()
    : m_allocate(VxDpiModule(), kGdiPlus, "GdipAlloc",
                 [this](std::size_t size)
                 {
                     void* const block = m_allocate.Original()(size);
                     if (block != nullptr)
                         m_bitmaps.insert(block);
                     return block;
                 }),
      m_free(VxDpiModule(), kGdiPlus, "GdipFree",
             [this](void* block)
             {
                 m_bitmaps.erase(block);
                 m_free.Original()(block);
             })
{
}

std::size_t LiveBitmaps::Count() const
{
    return m_bitmaps.size();
}

void LiveBitmaps::DeleteAll()
{
    const std::set<void*> kept = std::move(m_bitmaps);
    m_bitmaps.clear();
    for (void* const bitmap : kept)
        delete static_cast<Gdiplus::Bitmap*>(bitmap);
}

KeepResourceModule::KeepResourceModule() : m_kept(AfxGetResourceHandle()) {}

KeepResourceModule::~KeepResourceModule()
{
    AfxSetResourceHandle(m_kept);
}
