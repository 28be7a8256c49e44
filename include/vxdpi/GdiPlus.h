#pragma once

/// @file
/// GDI+ as the image families need it, included in the order that its headers ask for.
///
/// The GDI+ headers call `min` and `max` unqualified and expect COM's object interfaces to be declared before
/// them; this header sees to both, whether or not the application defines NOMINMAX.

#include <afxwin.h>

#include <objidl.h>

#include <algorithm>

namespace Gdiplus
{
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>
