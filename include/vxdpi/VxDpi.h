#pragma once

/// @file
/// Every family of the library.

#include <vxdpi/Controls.h>
#include <vxdpi/Dpi.h>
#include <vxdpi/DrawBoard.h>
#include <vxdpi/Fonts.h>
#include <vxdpi/Geometry.h>
#include <vxdpi/Images.h>
#include <vxdpi/Layout.h>
#include <vxdpi/Png.h>
#include <vxdpi/ScrollFrame.h>
