#include "support/TestResources.h"

#include "support/Pixels.h"
#include "support/ResourceDll.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{
// A bitmap resource is the file without this header.
constexpr std::ptrdiff_t kBmpFileHeaderSize = 14;
constexpr int kIconDirectoryCountOffset = 4;

const wchar_t* TypeOf(ResourceKind kind)
{
    switch (kind)
    {
    case ResourceKind::Png:
        return L"PNG";
    case ResourceKind::Image:
        return L"IMAGE";
    case ResourceKind::Bitmap:
        return RT_BITMAP;
    default:
        return RT_GROUP_ICON;
    }
}

Bytes BytesInModule(HMODULE module, const wchar_t* type, int id)
{
    const HRSRC resource = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const auto* const data =
        static_cast<const std::uint8_t*>(::LockResource(::LoadResource(module, resource)));
    return data != nullptr ? Bytes(data, data + ::SizeofResource(module, resource)) : Bytes();
}

HMODULE ModuleOf(ResourcePlace place, const ResourceDll& dll)
{
    return place == ResourcePlace::Dll ? dll.Module() : ::GetModuleHandleW(nullptr);
}

Bytes ExpectedBytes(const TestResource& resource)
{
    if (resource.kind != ResourceKind::Bitmap)
        return resource.bytes;
    return Bytes(resource.bytes.begin() + kBmpFileHeaderSize, resource.bytes.end());
}

std::unique_ptr<Gdiplus::Bitmap> Decode(const Bytes& bytes)
{
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::copy(bytes.begin(), bytes.end(), static_cast<std::uint8_t*>(::GlobalLock(memory)));
    ::GlobalUnlock(memory);
    IStream* stream = nullptr;
    ::CreateStreamOnHGlobal(memory, TRUE, &stream);
    auto bitmap = std::make_unique<Gdiplus::Bitmap>(stream);
    stream->Release();
    return bitmap;
}

std::unique_ptr<Gdiplus::Bitmap> DecodeResource(int id)
{
    return Decode(BytesInModule(nullptr, L"PNG", id));
}
}

TEST(TestResources, AreInTheirModulesAsComputed)
{
    const ResourceDll dll;
    for (const TestResource& resource : ComputedResources())
    {
        const HMODULE module = ModuleOf(resource.place, dll);
        const Bytes found = BytesInModule(module, TypeOf(resource.kind), resource.id);
        if (resource.kind == ResourceKind::Icon)
        {
            ASSERT_FALSE(found.empty()) << resource.fileName;
            EXPECT_EQ(found[kIconDirectoryCountOffset], resource.bytes[kIconDirectoryCountOffset])
                << resource.fileName;
        }
        else
        {
            EXPECT_TRUE(found == ExpectedBytes(resource)) << resource.fileName;
        }
    }
}

TEST(TestResources, PngsDecodeToTheirPictures)
{
    const GdiPlusSession gdiPlus;
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*DecodeResource(IDR_PNG_16))));
    EXPECT_TRUE(SamePixels(FramedPicture(48, 48), PixelsOf(*DecodeResource(IDR_PNG_48))));
    EXPECT_TRUE(SamePixels(FramedPicture(15, 15), PixelsOf(*DecodeResource(IDR_PNG_15))));
    EXPECT_TRUE(SamePixels(StripPicture(3, 24), PixelsOf(*DecodeResource(IDR_PNG_STRIP_24))));
    EXPECT_TRUE(SamePixels(OpaquePicture(1, 16), PixelsOf(*DecodeResource(IDR_PNG_COLUMN))));
    EXPECT_TRUE(SamePixels(OpaquePicture(32, 32), PixelsOf(*DecodeResource(IDR_PNG_RGB_32))));
    EXPECT_EQ(DecodeResource(IDR_PNG_RGB_32)->GetPixelFormat(), PixelFormat24bppRGB);
    EXPECT_EQ(DecodeResource(IDR_PNG_16)->GetPixelFormat(), PixelFormat32bppARGB);
}

TEST(TestResources, ThePngWithAResolutionSays144Dpi)
{
    const GdiPlusSession gdiPlus;
    EXPECT_NEAR(DecodeResource(IDR_PNG_144_DPI)->GetHorizontalResolution(), 144.0f, 0.05f);
}

TEST(TestResources, BrokenPngsDoNotDecode)
{
    const GdiPlusSession gdiPlus;
    for (const int id : {IDR_PNG_TRUNCATED, IDR_PNG_DAMAGED, IDR_PNG_GARBAGE})
        EXPECT_NE(DecodeResource(id)->GetLastStatus(), Gdiplus::Ok) << id;
}

TEST(TestResources, TangoIconsHaveTheirSizes)
{
    const GdiPlusSession gdiPlus;
    EXPECT_EQ(DecodeResource(IDR_PNG_SAVE_16)->GetWidth(), 16u);
    EXPECT_EQ(DecodeResource(IDR_PNG_SAVE_22)->GetWidth(), 22u);
    EXPECT_EQ(DecodeResource(IDR_PNG_SAVE_32)->GetHeight(), 32u);
}

TEST(TestResources, IconsLoadWithTheirPictures)
{
    for (const int size : {16, 32})
    {
        const auto icon =
            static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_16_32),
                                            IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
        ASSERT_NE(icon, nullptr);
        const ArgbImage pixels = PixelsOf(icon);
        EXPECT_EQ(SizeOf(icon).cx, size);
        ::DestroyIcon(icon);
        EXPECT_TRUE(SamePixels(FramedPicture(size, size), pixels));
    }
}

TEST(TestResources, BitmapsLoadWithTheirPictures)
{
    const HBITMAP bitmap = ::LoadBitmapW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_24));
    ASSERT_NE(bitmap, nullptr);
    const ArgbImage pixels = PixelsOf(bitmap);
    ::DeleteObject(bitmap);
    EXPECT_EQ(pixels.Width(), 24);
    EXPECT_EQ(pixels.At(5, 7) & 0xffffff, OpaquePicture(24, 24).At(5, 7) & 0xffffff);
}

TEST(TestResources, TheMissingIdIsMissing)
{
    const ResourceDll dll;
    for (const ResourceKind kind :
         {ResourceKind::Png, ResourceKind::Image, ResourceKind::Bitmap, ResourceKind::Icon})
    {
        EXPECT_EQ(::FindResourceW(nullptr, MAKEINTRESOURCEW(IDR_MISSING), TypeOf(kind)), nullptr);
        EXPECT_EQ(::FindResourceW(dll.Module(), MAKEINTRESOURCEW(IDR_MISSING), TypeOf(kind)), nullptr);
    }
}
