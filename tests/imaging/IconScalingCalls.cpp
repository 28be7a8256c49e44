#include "imaging/IconScalingCalls.h"

namespace
{
constexpr char kUser[] = "user32.dll";
constexpr char kGdi[] = "gdi32.dll";

std::vector<std::uint8_t> BytesOfMask(int width, int height, const void* bits)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(bits);
    return std::vector<std::uint8_t>(bytes, bytes + (width + 15) / 16 * 2 * height);
}
}

IconScalingCalls::IconScalingCalls(CallLog& log, HMODULE library)
    : m_loadImage(log, library, kUser, "LoadImageW", "loaded"),
      m_getInfo(library, kUser, "GetIconInfo",
                [this, &log](HICON icon, ICONINFO* info)
                {
                    log.WriteCall("GetIconInfo", icon);
                    const BOOL isIcon = m_getInfo.Original()(icon, info);
                    log.Name(info->hbmColor, "colors");
                    log.Name(info->hbmMask, "mask");
                    return isIcon;
                }),
      m_getObject(library, kGdi, "GetObjectW",
                  [this, &log](HANDLE object, int size, void* buffer)
                  {
                      log.WriteCall("GetObjectW", object, size);
                      return m_getObject.Original()(object, size, buffer);
                  }),
      m_deleteObject(log, library, kGdi, "DeleteObject"), m_getDc(log, library, kUser, "GetDC", "screen"),
      m_releaseDc(log, library, kUser, "ReleaseDC"),
      m_createSection(
          library, kGdi, "CreateDIBSection",
          [this, &log](HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset)
          {
              const BITMAPINFOHEADER& header = info->bmiHeader;
              log.WriteCall("BITMAPINFOHEADER", header.biSize, header.biWidth, header.biHeight,
                            header.biPlanes, header.biBitCount, header.biCompression, header.biSizeImage,
                            header.biXPelsPerMeter, header.biYPelsPerMeter, header.biClrUsed,
                            header.biClrImportant);
              log.WriteCall("CreateDIBSection", dc, usage, section, offset);
              const HBITMAP bitmap = m_createSection.Original()(dc, info, usage, bits, section, offset);
              log.Name(bitmap, "pixels");
              log.Name(*bits, "bits");
              return bitmap;
          }),
      m_createMask(library, kGdi, "CreateBitmap",
                   [this, &log](int width, int height, UINT planes, UINT bitCount, const void* bits)
                   {
                       log.WriteCall("CreateBitmap", width, height, planes, bitCount);
                       m_maskBytes = BytesOfMask(width, height, bits);
                       const HBITMAP mask = m_createMask.Original()(width, height, planes, bitCount, bits);
                       log.Name(mask, "newMask");
                       return mask;
                   }),
      m_createIcon(library, kUser, "CreateIconIndirect",
                   [this, &log](ICONINFO* info)
                   {
                       log.WriteCall("CreateIconIndirect", info->fIcon, info->xHotspot, info->yHotspot,
                                     info->hbmMask, info->hbmColor);
                       const HICON icon = m_createIcon.Original()(info);
                       log.Name(icon, "newIcon");
                       return icon;
                   }),
      m_destroyIcon(log, library, kUser, "DestroyIcon")
{
}
