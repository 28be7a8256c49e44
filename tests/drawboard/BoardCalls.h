#pragma once

#include <vxdpi/DrawBoard.h>

#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <optional>
#include <vector>

// The calls with which the library loads images, composes them on a board and shows the board, written down
// in their order. The objects that it makes on the way are named after their part in it: "stream", "image",
// "board", "surface" (the graphics that draws on the board), "graphics" (the one that draws on a device
// context), "handle" (the board as a GDI bitmap). A spy that makes one of the calls fail has to start before
// the recorder, which then writes the failing call down as well.

// What happens to the stream that an image is made of. What GDI+ does with it while it makes the image is
// left out.
class StreamCalls
{
public:
    explicit StreamCalls(CallLog& log);

private:
    using ReleaseSpy = ComMethodSpy<ULONG(IStream*)>;

    void WatchRelease(IStream* stream);

    CallLog& m_log;
    bool m_isInGdiPlus = false;

    std::optional<ReleaseSpy> m_release;
    ImportSpy<decltype(Flat::GdipLoadImageFromStream)> m_load;
};

// Making, drawing, showing and deleting boards, and deleting images. That images are loaded is not written
// down.
class BoardCalls
{
public:
    explicit BoardCalls(CallLog& log);

private:
    CallLog& m_log;

    ImportSpy<decltype(Flat::GdipLoadImageFromStream)> m_load;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> m_board;
    ImportSpy<decltype(Flat::GdipGetImageGraphicsContext)> m_surface;
    RecordCalls<decltype(Flat::GdipGraphicsClear)> m_clear;
    RecordCalls<decltype(Flat::GdipDrawImageRectI)> m_drawStretched;
    ImportSpy<decltype(Flat::GdipCreateFromHDC)> m_graphics;
    RecordCalls<decltype(Flat::GdipDrawImageI)> m_drawUnscaled;
    ImportSpy<decltype(Flat::GdipCreateHBITMAPFromBitmap)> m_handle;
    RecordCalls<decltype(Flat::GdipDeleteGraphics)> m_deleteGraphics;
    RecordCalls<decltype(Flat::GdipDisposeImage)> m_disposeImage;
    RecordCalls<decltype(::DeleteObject)> m_deleteObject;
};

// The resources that the library looks for, by their IDs.
class LookedUp
{
public:
    LookedUp();

    std::vector<UINT> Ids() const { return m_ids; }

private:
    std::vector<UINT> m_ids;
    ImportSpy<decltype(::FindResourceW)> m_find;
};
