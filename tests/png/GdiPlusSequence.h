#pragma once

#include "foundation/CallSequence.h"

// What the whole call sequences of pictures have in common.

// An object made with new, and deleted.
const CallNames kNewBitmap = {"GdipAlloc", "GdipCreateBitmapFromScan0"};
const CallNames kDeleteImage = {"GdipDisposeImage", "GdipFree"};

const CallNames kAskSize = {"GdipGetImageWidth", "GdipGetImageHeight"};

// From a resource that is found to its bytes in a block of their own, and on to an image.
const CallNames kLockResource = {"LoadResource", "LockResource"};
const CallNames kCopyBytes = {"GlobalAlloc", "GlobalLock", "GlobalUnlock"};
const CallNames kDecode = {"CreateStreamOnHGlobal", "GdipAlloc", "GdipCreateBitmapFromStream"};

// A picture scaled into a new bitmap of its format.
const CallNames kScalePicture = InOrder({{"GdipGetImagePixelFormat"},
                                         kNewBitmap,
                                         {"GdipGetImageGraphicsContext", "GdipSetInterpolationMode",
                                          "GdipDrawImageRectI", "GdipDeleteGraphics"}});
