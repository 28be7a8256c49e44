#include <vxdpi/Png.h>

#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <map>

namespace
{
using Lines = CallLog::LineList;

constexpr char kGdi[] = "gdi32.dll";
constexpr char kUser[] = "user32.dll";
constexpr std::uint32_t kGreen = 0xff00c040;

// The calls with which the library makes an icon of a picture. The objects on the way are named "screen",
// "color dc", "mask dc", "color", "mask", "graphics" and "icon". What a context had before is named after it,
// although the platform gives both the same bitmap.
class FixedIconCalls
{
public:
    explicit FixedIconCalls(CallLog& log);

private:
    HDC RecordNewContext(HDC screen);
    HBITMAP RecordDib(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset);
    HGDIOBJ RecordSelection(HDC hdc, HGDIOBJ object);
    HICON RecordIcon(ICONINFO* info);

    CallLog& m_log;
    std::map<HGDIOBJ, HGDIOBJ> m_previous; // by what stands for it

    ImportSpy<decltype(::GetDC)> m_getDc;
    ImportSpy<decltype(::CreateCompatibleDC)> m_createDc;
    ImportSpy<decltype(::CreateDIBSection)> m_createDib;
    ImportSpy<decltype(::CreateBitmap)> m_createBitmap;
    ImportSpy<decltype(::SelectObject)> m_select;
    ImportSpy<decltype(Flat::GdipCreateFromHDC)> m_graphics;
    RecordCalls<decltype(Flat::GdipDrawImageRectI)> m_draw;
    ImportSpy<decltype(Flat::GdipBitmapGetPixel)> m_getPixel;
    RecordCalls<decltype(::SetPixel)> m_setPixel;
    ImportSpy<decltype(::CreateIconIndirect)> m_createIcon;
    RecordCalls<decltype(::DeleteObject)> m_deleteObject;
    RecordCalls<decltype(::DeleteDC)> m_deleteDc;
    RecordCalls<decltype(::ReleaseDC)> m_releaseDc;
    RecordCalls<decltype(Flat::GdipDeleteGraphics)> m_deleteGraphics;
    RecordCalls<decltype(Flat::GdipSetInterpolationMode)> m_interpolation;
    RecordCalls<decltype(Flat::GdipSetPixelOffsetMode)> m_pixelOffset;
    RecordCalls<decltype(Flat::GdipSetCompositingMode)> m_compositingMode;
    RecordCalls<decltype(Flat::GdipSetCompositingQuality)> m_compositingQuality;
    RecordCalls<decltype(Flat::GdipSetSmoothingMode)> m_smoothing;
};

FixedIconCalls::FixedIconCalls(CallLog& log)
    : m_log(log), m_getDc(VxDpiModule(), kUser, "GetDC",
                          [this](HWND window)
                          {
                              m_log.WriteCall("GetDC", window);
                              const HDC screen = m_getDc.Original()(window);
                              m_log.Name(screen, "screen");
                              return screen;
                          }),
      m_createDc(VxDpiModule(), kGdi, "CreateCompatibleDC",
                 [this](HDC screen) { return RecordNewContext(screen); }),
      m_createDib(VxDpiModule(), kGdi, "CreateDIBSection",
                  [this](HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset) { return RecordDib(hdc, info, usage, bits, section, offset); }),
      m_createBitmap(VxDpiModule(), kGdi, "CreateBitmap",
                     [this](int width, int height, UINT planes, UINT bits, const void* pixels)
                     {
                         m_log.WriteCall("CreateBitmap", width, height, planes, bits, pixels);
                         const HBITMAP mask = m_createBitmap.Original()(width, height, planes, bits, pixels);
                         m_log.Name(mask, "mask");
                         return mask;
                     }),
      m_select(VxDpiModule(), kGdi, "SelectObject",
               [this](HDC hdc, HGDIOBJ object) { return RecordSelection(hdc, object); }),
      m_graphics(VxDpiModule(), "gdiplus.dll", "GdipCreateFromHDC",
                 [this](HDC hdc, Gdiplus::GpGraphics** graphics)
                 {
                     m_log.WriteCall("GdipCreateFromHDC", hdc);
                     const Gdiplus::GpStatus status = m_graphics.Original()(hdc, graphics);
                     m_log.Name(*graphics, "graphics");
                     return status;
                 }),
      m_draw(log, VxDpiModule(), "gdiplus.dll", "GdipDrawImageRectI"),
      m_getPixel(VxDpiModule(), "gdiplus.dll", "GdipBitmapGetPixel",
                 [this](Gdiplus::GpBitmap* bitmap, INT x, INT y, Gdiplus::ARGB* color)
                 {
                     m_log.WriteCall("GdipBitmapGetPixel", bitmap, x, y);
                     return m_getPixel.Original()(bitmap, x, y, color);
                 }),
      m_setPixel(log, VxDpiModule(), kGdi, "SetPixel"),
      m_createIcon(VxDpiModule(), kUser, "CreateIconIndirect",
                   [this](ICONINFO* info) { return RecordIcon(info); }),
      m_deleteObject(log, VxDpiModule(), kGdi, "DeleteObject"),
      m_deleteDc(log, VxDpiModule(), kGdi, "DeleteDC"), m_releaseDc(log, VxDpiModule(), kUser, "ReleaseDC"),
      m_deleteGraphics(log, VxDpiModule(), "gdiplus.dll", "GdipDeleteGraphics"),
      m_interpolation(log, VxDpiModule(), "gdiplus.dll", "GdipSetInterpolationMode"),
      m_pixelOffset(log, VxDpiModule(), "gdiplus.dll", "GdipSetPixelOffsetMode"),
      m_compositingMode(log, VxDpiModule(), "gdiplus.dll", "GdipSetCompositingMode"),
      m_compositingQuality(log, VxDpiModule(), "gdiplus.dll", "GdipSetCompositingQuality"),
      m_smoothing(log, VxDpiModule(), "gdiplus.dll", "GdipSetSmoothingMode")
{
}

HDC FixedIconCalls::RecordNewContext(HDC screen)
{
    m_log.WriteCall("CreateCompatibleDC", screen);
    const HDC created = m_createDc.Original()(screen);
    m_log.Name(created, m_createDc.CallCount() == 1 ? "color dc" : "mask dc");
    return created;
}

HBITMAP FixedIconCalls::RecordDib(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                  DWORD offset)
{
    const BITMAPINFOHEADER& header = info->bmiHeader;
    m_log.WriteCall("CreateDIBSection", hdc, usage, section, offset);
    m_log.WriteCall("  BITMAPINFOHEADER", header.biSize, header.biWidth, header.biHeight, header.biPlanes,
                    header.biBitCount, header.biCompression, header.biSizeImage, header.biXPelsPerMeter,
                    header.biYPelsPerMeter, header.biClrUsed, header.biClrImportant);
    const HBITMAP dib = m_createDib.Original()(hdc, info, usage, bits, section, offset);
    m_log.Name(dib, "color");
    return dib;
}

HGDIOBJ FixedIconCalls::RecordSelection(HDC hdc, HGDIOBJ object)
{
    m_log.WriteCall("SelectObject", hdc, object);
    const auto known = m_previous.find(object);
    if (known != m_previous.end())
        return m_select.Original()(hdc, known->second);

    const HGDIOBJ previous = m_select.Original()(hdc, object);
    const auto standIn = reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(0x7001 + m_previous.size()));
    m_log.Name(standIn, m_previous.empty() ? "first previous" : "second previous");
    m_previous[standIn] = previous;
    return standIn;
}

HICON FixedIconCalls::RecordIcon(ICONINFO* info)
{
    m_log.WriteCall("CreateIconIndirect", info->fIcon, info->xHotspot, info->yHotspot, info->hbmMask,
                    info->hbmColor);
    return m_createIcon.Original()(info);
}

// An icon that is destroyed with this object, and what GetIconInfo tells about it.
class ReadIcon
{
public:
    explicit ReadIcon(HICON icon) : m_icon(icon), m_isIcon(::GetIconInfo(icon, &m_info) != FALSE) {}

    ~ReadIcon()
    {
        if (m_isIcon)
        {
            ::DeleteObject(m_info.hbmMask);
            ::DeleteObject(m_info.hbmColor);
        }
        if (m_icon != nullptr)
            ::DestroyIcon(m_icon);
    }

    ReadIcon(const ReadIcon&) = delete;
    ReadIcon& operator=(const ReadIcon&) = delete;

    bool IsIcon() const { return m_isIcon; }
    const ICONINFO& Info() const { return m_info; }
    ArgbImage Colors() const { return PixelsOf(m_info.hbmColor); }

private:
    HICON m_icon;
    ICONINFO m_info = {};
    bool m_isIcon;
};

class FixedIcon : public testing::Test
{
protected:
    HICON Convert(Gdiplus::Bitmap* bitmap) { return m_strip.ConvertBitmapToIconFixed(bitmap); }

    HICON Convert(const ArgbImage& image) { return Convert(BitmapOf(image).get()); }

    // The bitmap has no name in these lines.
    Lines CallsOfConverting(const ArgbImage& image)
    {
        const BitmapPtr bitmap = BitmapOf(image);
        CallLog log;
        const FixedIconCalls calls(log);
        const HICON icon = Convert(bitmap.get());
        if (icon != nullptr)
            ::DestroyIcon(icon);
        return log.Lines();
    }

    // The colours that are put into the mask, row by row.
    std::vector<COLORREF> MaskOf(const ArgbImage& image)
    {
        std::vector<COLORREF> mask;
        const ImportSpy<decltype(::SetPixel)> set(VxDpiModule(), kGdi, "SetPixel",
                                                  [&](HDC hdc, int x, int y, COLORREF color)
                                                  {
                                                      mask.push_back(color);
                                                      return set.Original()(hdc, x, y, color);
                                                  });
        const HICON icon = Convert(image);
        EXPECT_NE(icon, nullptr);
        ::DestroyIcon(icon);
        return mask;
    }

private:
    const GdiPlusSession m_gdiPlus;
    OpenStrip m_strip;
};

constexpr COLORREF kVisible = 0xffffff;
constexpr COLORREF kHidden = 0;

const Lines kContexts = {"GetDC(null)", "CreateCompatibleDC(screen)", "CreateCompatibleDC(screen)"};
const Lines kBitmaps = {"CreateDIBSection(screen, 0, null, 0)",
                        "  BITMAPINFOHEADER(40, 2, 1, 1, 32, 0, 0, 0, 0, 0, 0)",
                        "CreateBitmap(2, 1, 1, 1, null)"};
const Lines kDrawing = {"SelectObject(color dc, color)",
                        "SelectObject(mask dc, mask)",
                        "GdipCreateFromHDC(color dc)",
                        "GdipDrawImageRectI(graphics, #1, 0, 0, 2, 1)",
                        "GdipBitmapGetPixel(#1, 0, 0)",
                        "SetPixel(mask dc, 0, 0, 16777215)",
                        "GdipBitmapGetPixel(#1, 1, 0)",
                        "SetPixel(mask dc, 1, 0, 0)",
                        "CreateIconIndirect(1, 0, 0, mask, color)"};
const Lines kReleasing = {"SelectObject(mask dc, second previous)",
                          "SelectObject(color dc, first previous)",
                          "DeleteObject(mask)",
                          "DeleteObject(color)",
                          "DeleteDC(mask dc)",
                          "DeleteDC(color dc)",
                          "ReleaseDC(null, screen)",
                          "GdipDeleteGraphics(graphics)"};

// One pixel that is visible and one that is not.
ArgbImage TwoPixels()
{
    ArgbImage image(2, 1, kGreen);
    image.At(1, 0) = 0;
    return image;
}

class FailGetDc : public FailNthCall<decltype(::GetDC)>
{
public:
    FailGetDc() : FailNthCall(VxDpiModule(), kUser, "GetDC", 1, nullptr) {}
};

class FailContext : public FailNthCall<decltype(::CreateCompatibleDC)>
{
public:
    explicit FailContext(int failingCall)
        : FailNthCall(VxDpiModule(), kGdi, "CreateCompatibleDC", failingCall, nullptr)
    {
    }
};

class FailColor : public FailNthCall<decltype(::CreateDIBSection)>
{
public:
    FailColor() : FailNthCall(VxDpiModule(), kGdi, "CreateDIBSection", 1, nullptr) {}
};

class FailMask : public FailNthCall<decltype(::CreateBitmap)>
{
public:
    FailMask() : FailNthCall(VxDpiModule(), kGdi, "CreateBitmap", 1, nullptr) {}
};

class FailIcon : public FailNthCall<decltype(::CreateIconIndirect)>
{
public:
    FailIcon() : FailNthCall(VxDpiModule(), kUser, "CreateIconIndirect", 1, nullptr) {}
};
} // namespace

TEST_F(FixedIcon, IsAnIconOfTheBitmapsSize)
{
    const ReadIcon icon(Convert(ArgbImage(5, 3, kGreen)));
    ASSERT_TRUE(icon.IsIcon());
    EXPECT_EQ(icon.Info().fIcon, TRUE);
    EXPECT_EQ(SizeOf(icon.Info().hbmColor).cx, 5);
    EXPECT_EQ(SizeOf(icon.Info().hbmColor).cy, 3);
    EXPECT_EQ(SizeOf(icon.Info().hbmMask).cx, 5);
}

TEST_F(FixedIcon, OpaquePixelsStayAsTheyAre)
{
    const ReadIcon icon(Convert(OpaquePicture(16, 16)));
    ASSERT_TRUE(icon.IsIcon());
    EXPECT_TRUE(SamePixels(OpaquePicture(16, 16), icon.Colors()));
}

TEST_F(FixedIcon, ColoursAreMultipliedByTheirAlpha)
{
    const ReadIcon icon(Convert(ArgbImage(4, 4, 0x80ff4010)));
    ASSERT_TRUE(icon.IsIcon());
    EXPECT_TRUE(IsNear(icon.Colors().At(2, 1), 0x80802008));
}

TEST_F(FixedIcon, TransparentPixelsAreEmpty)
{
    const ReadIcon icon(Convert(FramedPicture(16, 16)));
    ASSERT_TRUE(icon.IsIcon());
    EXPECT_EQ(icon.Colors().At(0, 0), 0u);
    EXPECT_EQ(icon.Colors().At(15, 15), 0u);
}

TEST_F(FixedIcon, TheMaskIsWhiteWhereAnythingIsVisible)
{
    ArgbImage image(5, 1, kGreen);
    image.At(1, 0) = 0x00000000;
    image.At(2, 0) = 0x01ff0000;
    image.At(3, 0) = 0x00ffffff;
    image.At(4, 0) = 0x80000000;
    EXPECT_EQ(MaskOf(image), (std::vector<COLORREF>{kVisible, kHidden, kVisible, kHidden, kVisible}));
}

TEST_F(FixedIcon, TheIconKeepsTheMask)
{
    ArgbImage image(20, 2, kGreen);
    image.At(3, 0) = 0;
    image.At(19, 1) = 0;
    const ReadIcon icon(Convert(image));
    ASSERT_TRUE(icon.IsIcon());
    const ArgbImage mask = PixelsOf(icon.Info().hbmMask);
    EXPECT_EQ(mask.At(0, 0) & 0xffffff, 0xffffffu);
    EXPECT_EQ(mask.At(3, 0) & 0xffffff, 0u);
    EXPECT_EQ(mask.At(19, 0) & 0xffffff, 0xffffffu);
    EXPECT_EQ(mask.At(19, 1) & 0xffffff, 0u);
}

TEST_F(FixedIcon, APixelThatCannotBeReadIsVisible)
{
    const ImportSpy<decltype(Flat::GdipBitmapGetPixel)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipBitmapGetPixel",
        [&](Gdiplus::GpBitmap* bitmap, INT x, INT y, Gdiplus::ARGB* color)
        { return x == 1 ? Gdiplus::InvalidParameter : fail.Original()(bitmap, x, y, color); });
    EXPECT_EQ(MaskOf(ArgbImage(3, 1)), (std::vector<COLORREF>{kHidden, kVisible, kHidden}));
}

TEST_F(FixedIcon, IsMadeAndEverythingReleasedInThisOrder)
{
    EXPECT_EQ(CallsOfConverting(TwoPixels()), Joined({kContexts, kBitmaps, kDrawing, kReleasing}));
}

TEST_F(FixedIcon, PixelsAreReadRowByRow)
{
    const BitmapPtr bitmap = BitmapOf(ArgbImage(2, 2, kGreen));
    CallLog log;
    const FixedIconCalls calls(log);
    const ReadIcon icon(Convert(bitmap.get()));
    EXPECT_EQ(LinesOf(log, "GdipBitmapGetPixel"),
              (Lines{"GdipBitmapGetPixel(#1, 0, 0)", "GdipBitmapGetPixel(#1, 1, 0)",
                     "GdipBitmapGetPixel(#1, 0, 1)", "GdipBitmapGetPixel(#1, 1, 1)"}));
    EXPECT_EQ(LinesOf(log, "SetPixel"),
              (Lines{"SetPixel(mask dc, 0, 0, 16777215)", "SetPixel(mask dc, 1, 0, 16777215)",
                     "SetPixel(mask dc, 0, 1, 16777215)", "SetPixel(mask dc, 1, 1, 16777215)"}));
}

TEST_F(FixedIcon, WithoutABitmapThereIsNone)
{
    CallLog log;
    const FixedIconCalls calls(log);
    EXPECT_EQ(Convert(nullptr), nullptr);
    EXPECT_EQ(log.Lines(), Lines{});
}

TEST_F(FixedIcon, WithoutAScreenThereIsNone)
{
    const FailGetDc fail;
    EXPECT_EQ(CallsOfConverting(TwoPixels()), Lines{"GetDC(null)"});
}

TEST_F(FixedIcon, WithoutAContextForTheColoursTheScreenIsReleased)
{
    const FailContext fail(1);
    EXPECT_EQ(CallsOfConverting(TwoPixels()),
              (Lines{"GetDC(null)", "CreateCompatibleDC(screen)", "ReleaseDC(null, screen)"}));
}

TEST_F(FixedIcon, WithoutAContextForTheMaskTheOtherIsDeleted)
{
    const FailContext fail(2);
    EXPECT_EQ(CallsOfConverting(TwoPixels()),
              Joined({kContexts, {"DeleteDC(color dc)", "ReleaseDC(null, screen)"}}));
}

TEST_F(FixedIcon, WithoutABitmapForTheColoursBothContextsAreDeleted)
{
    const FailColor fail;
    EXPECT_EQ(CallsOfConverting(TwoPixels()), Joined({kContexts,
                                                      {kBitmaps[0], kBitmaps[1], "DeleteDC(mask dc)",
                                                       "DeleteDC(color dc)", "ReleaseDC(null, screen)"}}));
}

TEST_F(FixedIcon, WithoutABitmapForTheMaskTheOtherIsDeleted)
{
    const FailMask fail;
    EXPECT_EQ(CallsOfConverting(TwoPixels()), Joined({kContexts,
                                                      kBitmaps,
                                                      {"DeleteObject(color)", "DeleteDC(mask dc)",
                                                       "DeleteDC(color dc)", "ReleaseDC(null, screen)"}}));
}

TEST_F(FixedIcon, AllIsReleasedWhenTheIconCannotBeMade)
{
    const FailIcon fail;
    EXPECT_EQ(CallsOfConverting(TwoPixels()), Joined({kContexts, kBitmaps, kDrawing, kReleasing}));
}

TEST_F(FixedIcon, AnIconThatCannotBeMadeGivesNone)
{
    const FailIcon fail;
    EXPECT_EQ(Convert(TwoPixels()), nullptr);
}

TEST_F(FixedIcon, LeavesNothingBehindOnceDestroyed)
{
    const BitmapPtr bitmap = BitmapOf(FramedPicture(8, 8));
    EXPECT_NO_LEAK([&] { ::DestroyIcon(Convert(bitmap.get())); });
}

TEST_F(FixedIcon, AFailureLeavesNothingBehind)
{
    const BitmapPtr bitmap = BitmapOf(FramedPicture(8, 8));
    EXPECT_NO_LEAK(
        [&]
        {
            const FailContext fail(2);
            EXPECT_EQ(Convert(bitmap.get()), nullptr);
        });
    EXPECT_NO_LEAK(
        [&]
        {
            const FailMask fail;
            EXPECT_EQ(Convert(bitmap.get()), nullptr);
        });
    EXPECT_NO_LEAK(
        [&]
        {
            const FailIcon fail;
            EXPECT_EQ(Convert(bitmap.get()), nullptr);
        });
}
