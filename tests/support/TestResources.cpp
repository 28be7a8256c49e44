#include "support/TestResources.h"

#include <string_view>
#include <utility>

namespace
{
Bytes Garbage()
{
    constexpr std::string_view text = "This is text where a picture was announced.\n";
    return Bytes(text.begin(), text.end());
}

ArgbImage OtherPicture(int size)
{
    return ArgbImage(size, size, kOtherColor);
}

TestResource Png(int id, const char* fileName, Bytes bytes)
{
    return {ResourcePlace::Program, ResourceKind::Png, id, fileName, std::move(bytes)};
}

TestResource Bitmap(int id, const char* fileName, Bytes bytes)
{
    return {ResourcePlace::Program, ResourceKind::Bitmap, id, fileName, std::move(bytes)};
}

TestResource Icon(int id, const char* fileName, const std::vector<ArgbImage>& images)
{
    return {ResourcePlace::Program, ResourceKind::Icon, id, fileName, EncodeIco(images)};
}

TestResource InDll(ResourceKind kind, int id, const char* fileName, Bytes bytes)
{
    return {ResourcePlace::Dll, kind, id, fileName, std::move(bytes)};
}
}

std::vector<TestResource> ComputedResources()
{
    return {
        Png(IDR_PNG_16, "png_16.png", EncodePng(FramedPicture(16, 16))),
        Png(IDR_PNG_24, "png_24.png", EncodePng(FramedPicture(24, 24))),
        Png(IDR_PNG_32, "png_32.png", EncodePng(FramedPicture(32, 32))),
        Png(IDR_PNG_48, "png_48.png", EncodePng(FramedPicture(48, 48))),
        Png(IDR_PNG_15, "png_15.png", EncodePng(FramedPicture(15, 15))),

        Png(IDR_PNG_STRIP_16, "png_strip_16.png", EncodePng(StripPicture(3, 16))),
        Png(IDR_PNG_STRIP_24, "png_strip_24.png", EncodePng(StripPicture(3, 24))),
        Png(IDR_PNG_STRIP_32, "png_strip_32.png", EncodePng(StripPicture(3, 32))),

        Png(IDR_PNG_COLUMN, "png_column.png", EncodePng(OpaquePicture(1, 16))),
        Png(IDR_PNG_RGB_16, "png_rgb_16.png", EncodePng(OpaquePicture(16, 16), PngAlpha::Drop)),
        Png(IDR_PNG_RGB_32, "png_rgb_32.png", EncodePng(OpaquePicture(32, 32), PngAlpha::Drop)),
        Png(IDR_PNG_144_DPI, "png_144_dpi.png", EncodePng(FramedPicture(32, 32), PngAlpha::Keep, 144)),

        Png(IDR_PNG_TRUNCATED, "png_truncated.png", EncodeTruncatedPng(FramedPicture(16, 16))),
        Png(IDR_PNG_DAMAGED, "png_damaged.png", EncodeDamagedPng(FramedPicture(16, 16))),
        Png(IDR_PNG_GARBAGE, "png_garbage.png", Garbage()),

        {ResourcePlace::Program, ResourceKind::Image, IDR_IMAGE_SHARED_ID, "image_shared_id.png",
         EncodePng(OpaquePicture(24, 24))},
        {ResourcePlace::Program, ResourceKind::Image, IDR_IMAGE_ONLY, "png_32.png",
         EncodePng(FramedPicture(32, 32))},

        Bitmap(IDB_16, "bitmap_16.bmp", EncodeBmp24(OpaquePicture(16, 16))),
        Bitmap(IDB_24, "bitmap_24.bmp", EncodeBmp24(OpaquePicture(24, 24))),
        Bitmap(IDB_32, "bitmap_32.bmp", EncodeBmp24(OpaquePicture(32, 32))),
        Bitmap(IDB_MAPPED_COLORS, "bitmap_mapped_colors.bmp", EncodeBmp8(MappedColorsPicture(4))),

        Icon(IDI_16_32, "icon_16_32.ico", {FramedPicture(16, 16), FramedPicture(32, 32)}),
        Icon(IDI_24_48, "icon_24_48.ico", {FramedPicture(24, 24), FramedPicture(48, 48)}),
        Icon(IDI_LARGE, "icon_large.ico",
             {FramedPicture(16, 16), FramedPicture(32, 32), FramedPicture(48, 48),
              ArgbImage(256, 256, kOtherColor)}),

        InDll(ResourceKind::Png, IDR_DLL_SHARED_ID, "dll/png_shared_id.png", EncodePng(OtherPicture(16))),
        InDll(ResourceKind::Png, IDR_DLL_PNG_24, "dll/png_24.png", EncodePng(OtherPicture(24))),
        InDll(ResourceKind::Bitmap, IDB_DLL_SHARED_ID, "dll/bitmap_shared_id.bmp",
              EncodeBmp24(OtherPicture(16))),
        InDll(ResourceKind::Icon, IDI_DLL_SHARED_ID, "dll/icon_shared_id.ico", EncodeIco({OtherPicture(16)})),
        InDll(ResourceKind::Icon, IDI_DLL_20, "dll/icon_20.ico", EncodeIco({OtherPicture(20)})),
    };
}
