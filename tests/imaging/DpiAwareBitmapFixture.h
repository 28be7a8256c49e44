#pragma once

#include <vxdpi/Images.h>

#include "foundation/FrameworkWindow.h"
#include "foundation/WindowDpiAnswer.h"
#include "imaging/BitmapCalls.h"
#include "imaging/BitmapFields.h"
#include "imaging/BitmapPictures.h"
#include "support/HeldContexts.h"
#include "support/TestPictures.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

using Lines = CallLog::LineList;

// The class with its protected operations and its fields.
class OpenBitmap : public CDpiAwareBitmap
{
public:
    using CDpiAwareBitmap::Attach_DpiAware;
    using CDpiAwareBitmap::LoadDpiAwareBitmapInternal;
    using CDpiAwareBitmap::Scale;

    BitmapFields& Fields() { return BitmapFieldsOf(*this); }
    HBITMAP Displayed() const { return *this; }
    HBITMAP Source() { return *Fields().pSource; }

    void Register(UINT dpi, UINT id) { AddResourceForDpi(dpi, id, {}); }
};

inline testing::AssertionResult IsSize(const CSize& size, LONG cx, LONG cy)
{
    if (size.cx == cx && size.cy == cy)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the size is " << size.cx << 'x' << size.cy;
}

// The base size and the current size.
inline testing::AssertionResult HasSizes(OpenBitmap& bitmap, const CSize& base, const CSize& current)
{
    const BitmapFields& fields = bitmap.Fields();
    if (fields.sizeBase == base && fields.sizeCurrent == current)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "base " << fields.sizeBase.cx << 'x' << fields.sizeBase.cy << ", current "
           << fields.sizeCurrent.cx << 'x' << fields.sizeCurrent.cy;
}

inline testing::AssertionResult Shows(const OpenBitmap& bitmap, const ArgbImage& picture)
{
    return SamePixels(Colors(picture), ColorsOf(bitmap.Displayed()));
}

// The bitmap with a picture of 16 pixels for 96 DPI and one of 24 pixels for 144 DPI.
class DpiAwareBitmap : public testing::Test
{
protected:
    DpiAwareBitmap()
    {
        m_bitmap.Register(96, IDB_16);
        m_bitmap.Register(144, IDB_24);
    }

    BOOL ScaleAt(UINT dpi, HBITMAP bitmap = nullptr)
    {
        const WindowDpiAnswer answer(dpi);
        return m_bitmap.ScaleToDpi(m_window.Object(), bitmap);
    }

    // The calls of work, with the bitmaps and the window named as they are before it.
    template<typename Work>
    Lines CallsOf(const Work& work)
    {
        CallLog log;
        log.Name(::GetModuleHandleW(nullptr), "program");
        log.Name(m_window.Handle(), "window");
        log.Name(m_bitmap.Displayed(), "displayed");
        log.Name(m_bitmap.Source(), "source");
        const BitmapCalls calls(log);
        work();
        return log.Lines();
    }

    FrameworkWindow m_window;
    OpenBitmap m_bitmap;
};
