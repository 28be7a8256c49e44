#pragma once

#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/ImageFiles.h"
#include "support/Pixels.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

// What the tests of strips share.

using BitmapPtr = std::unique_ptr<Gdiplus::Bitmap>;

// A strip of an application's own class, which may use every step of the way.
class OpenStrip : public CDpiAwarePngSplit
{
public:
    using CDpiAwarePngSplit::ApplyDisabledEffect;
    using CDpiAwarePngSplit::ConvertBitmapToIconFixed;
    using CDpiAwarePngSplit::LoadPngFromResource;
    using CDpiAwarePngSplit::ScaleBitmap;
    using CDpiAwarePngSplit::SplitPngToBitmaps;
    using CDpiAwarePngSplit::SplitPngToIcons;
};

// Icons that are destroyed with this object.
class OwnedIcons
{
public:
    explicit OwnedIcons(std::vector<HICON> icons) : m_icons(std::move(icons)) {}
    ~OwnedIcons();

    OwnedIcons(const OwnedIcons&) = delete;
    OwnedIcons& operator=(const OwnedIcons&) = delete;

    std::size_t Count() const { return m_icons.size(); }
    HICON At(std::size_t index) const { return m_icons.at(index); }

private:
    std::vector<HICON> m_icons;
};

// Bitmaps that are deleted with this object.
class OwnedBitmaps
{
public:
    explicit OwnedBitmaps(std::vector<HBITMAP> bitmaps) : m_bitmaps(std::move(bitmaps)) {}
    ~OwnedBitmaps();

    OwnedBitmaps(const OwnedBitmaps&) = delete;
    OwnedBitmaps& operator=(const OwnedBitmaps&) = delete;

    std::size_t Count() const { return m_bitmaps.size(); }
    HBITMAP At(std::size_t index) const { return m_bitmaps.at(index); }

private:
    std::vector<HBITMAP> m_bitmaps;
};

// Every resource that the library looks for is found and holds these bytes, those of a PNG as a rule.
class ServedResource
{
public:
    explicit ServedResource(const Bytes& bytes);
    explicit ServedResource(const ArgbImage& picture);

private:
    Bytes m_bytes;
    ImportSpy<decltype(::FindResourceW)> m_find;
    ImportSpy<decltype(::SizeofResource)> m_size;
    ImportSpy<decltype(::LoadResource)> m_load;
    ImportSpy<decltype(::LockResource)> m_lock;
};

// The calls of GDI+ with which the library decodes, cuts, scales and converts a strip, without questions. The
// objects on the way are named "strip", "cell", "cutter" (the graphics that a cell is cut with), "scaled",
// "scaler" (the one that it is scaled with) and "lock".
class StripCalls
{
public:
    explicit StripCalls(CallLog& log);

private:
    Gdiplus::GpStatus RecordNewBitmap(INT width, INT height, INT stride, Gdiplus::PixelFormat format,
                                      BYTE* bits, Gdiplus::GpBitmap** bitmap);

    CallLog& m_log;
    // GDI+ is started before each bitmap that is scaled into, and nowhere else.
    bool m_isScaling = false;
    Gdiplus::GpBitmap* m_cell = nullptr;

    ImportSpy<decltype(Gdiplus::GdiplusStartup)> m_start;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> m_fromStream;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> m_fromScan0;
    ImportSpy<decltype(Flat::GdipGetImageGraphicsContext)> m_graphics;
    RecordCalls<decltype(Flat::GdipSetCompositingMode)> m_compositingMode;
    RecordCalls<decltype(Flat::GdipSetCompositingQuality)> m_compositingQuality;
    RecordCalls<decltype(Flat::GdipSetInterpolationMode)> m_interpolation;
    RecordCalls<decltype(Flat::GdipSetSmoothingMode)> m_smoothing;
    RecordCalls<decltype(Flat::GdipSetPixelOffsetMode)> m_pixelOffset;
    RecordCalls<decltype(Flat::GdipDrawImageRectRectI)> m_draw;
    PixelCalls m_pixels;
    ImportSpy<decltype(Flat::GdipCreateHICONFromBitmap)> m_toIcon;
    RecordCalls<decltype(Flat::GdipDeleteGraphics)> m_deleteGraphics;
    RecordCalls<decltype(Flat::GdipDisposeImage)> m_disposeImage;
};

// The lines of a cell of 16 pixels from the strip's column `left` up to the bitmap that it was scaled into,
// then others, then its end.
CallLog::LineList CellLines(int left, int target, const CallLog::LineList& others);

// All lists, one after the other.
CallLog::LineList Joined(const std::vector<CallLog::LineList>& lists);

// The pictures of the cells, from the left, as they are when they are scaled.
class CellsSeen
{
public:
    CellsSeen();

    const std::vector<ArgbImage>& Cells() const { return m_cells; }

private:
    // The first picture that is drawn is the strip.
    Gdiplus::GpImage* m_strip = nullptr;
    std::vector<ArgbImage> m_cells;
    ImportSpy<decltype(Flat::GdipDrawImageRectRectI)> m_draw;
};
