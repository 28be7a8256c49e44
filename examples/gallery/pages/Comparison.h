#pragma once

#include "../Snapshot.h"

/// Draws two views of a monitor with a dialog that it has no room for, side by side: by itself, and in a
/// scrolling frame.
/// @param byItself,inFrame  snapshots of the whole monitor at the style's DPI.
/// @param bitmap  empty; gets the drawing.
/// @return whether it could be drawn.
bool DrawComparison(const CGalleryStyle& style, const Snapshot& byItself, const Snapshot& inFrame,
                    CBitmap& bitmap);
