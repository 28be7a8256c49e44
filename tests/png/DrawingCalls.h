#pragma once

#include <vxdpi/Png.h>

#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

// The calls with which the library decodes, scales and draws a picture, written down in their order. The
// objects that it makes on the way are named after their part in it: "decoded", "scaled", "scaler" (the
// graphics that the picture is scaled with), "graphics" (the one that it is drawn with), "memory" (the device
// context), "dib", "previous".

namespace Flat = Gdiplus::DllExports;

// Calls of GDI+ that change something; questions for sizes and formats are left out.
class GdiPlusCalls
{
public:
    explicit GdiPlusCalls(CallLog& log);

private:
    template<typename Object>
    Gdiplus::GpStatus Created(Gdiplus::GpStatus status, Object* const* created, const char* name);

    CallLog& m_log;

    ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> m_fromStream;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> m_fromScan0;
    ImportSpy<decltype(Flat::GdipGetImageGraphicsContext)> m_imageGraphics;
    ImportSpy<decltype(Flat::GdipCreateFromHDC)> m_contextGraphics;
    RecordCalls<decltype(Flat::GdipSetInterpolationMode)> m_interpolation;
    RecordCalls<decltype(Flat::GdipSetSmoothingMode)> m_smoothing;
    RecordCalls<decltype(Flat::GdipSetPixelOffsetMode)> m_pixelOffset;
    RecordCalls<decltype(Flat::GdipSetCompositingQuality)> m_compositing;
    RecordCalls<decltype(Flat::GdipDrawImageRectI)> m_drawWhole;
    RecordCalls<decltype(Flat::GdipDrawImageRectRect)> m_drawPart;
    RecordCalls<decltype(Flat::GdipDeleteGraphics)> m_deleteGraphics;
    RecordCalls<decltype(Flat::GdipDisposeImage)> m_disposeImage;
};

// Calls of GDI by the library, and the device contexts that the framework deletes on its behalf.
class GdiCalls
{
public:
    explicit GdiCalls(CallLog& log);

private:
    HBITMAP RecordDib(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset);

    CallLog& m_log;

    RecordCalls<decltype(::GetDC)> m_getDc;
    ImportSpy<decltype(::CreateCompatibleDC)> m_createDc;
    ImportSpy<decltype(::CreateDIBSection)> m_createDib;
    ImportSpy<decltype(::SelectObject)> m_select;
    RecordCalls<decltype(::AlphaBlend)> m_blend;
    RecordCalls<decltype(::DeleteObject)> m_deleteObject;
    RecordCalls<decltype(::DeleteDC)> m_deleteDc;
    ImportSpy<decltype(::DeleteDC)> m_frameworkDeleteDc;
};

// Makes the library's n-th call of a GDI+ function fail.
template<typename Signature>
class FailingGdiPlus : public FailNthCall<Signature>
{
public:
    FailingGdiPlus(const char* functionName, int failingCall = 1)
        : FailNthCall<Signature>(VxDpiModule(), "gdiplus.dll", functionName, failingCall,
                                 Gdiplus::OutOfMemory)
    {
    }
};

// Leaves the second GDI+ object, the bitmap to scale into, without memory.
class NoMemoryForScaled : public FailNthCall<decltype(Flat::GdipAlloc)>
{
public:
    NoMemoryForScaled() : FailNthCall(VxDpiModule(), "gdiplus.dll", "GdipAlloc", 2, nullptr) {}
};

// The lines of one function.
CallLog::LineList LinesOf(const CallLog& log, const std::string& functionName);

// What the sizes of a square picture are expected to be.
struct SizeAtDpi
{
    UINT dpi;
    int side;
};

testing::AssertionResult IsSize(const Gdiplus::Size& size, int width, int height);

// Whether no channel differs by more than 1, as blending may round either way.
testing::AssertionResult IsNear(std::uint32_t pixel, std::uint32_t expected);

// The same for pixels of a picture that was scaled within an area of about one colour.
testing::AssertionResult IsRoughly(std::uint32_t pixel, std::uint32_t expected);
