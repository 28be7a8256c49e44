#pragma once

#include "Canvas.h"

#include <memory>

/// What the screen showed at one moment.
struct Snapshot
{
    std::shared_ptr<CBitmap> pBitmap; // null: none was taken
    CSize size = CSize(0, 0);         // of the bitmap, in pixels
    CRect window = CRect(0, 0, 0, 0); // that the picture is about, in the bitmap; may reach beyond it

    explicit operator bool() const;
};

/// Takes a picture of a part of the screen.
/// @param area  pixels of the screen.
/// @param window  pixels of the screen.
Snapshot TakeSnapshot(const CRect& area, const CRect& window);

/// Draws a snapshot at the upper left corner of an area: pixel by pixel if there is room, else smaller.
/// @param area  in units.
void DrawSnapshot(const CCanvas& canvas, const CRect& area, const Snapshot& snapshot);
