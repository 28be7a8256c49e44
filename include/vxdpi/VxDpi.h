#pragma once

/// @file
/// Every family of the library.

#include <vxdpi/Dpi.h>
#include <vxdpi/Images.h>
#include <vxdpi/Png.h>
