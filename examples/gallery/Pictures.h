#pragma once

#include <vxdpi/Png.h>

/// Registers a picture's three variants.
/// @param nId96,nId144,nId192  resource IDs of type "PNG" in the program.
void AddVariants(CDpiAwarePng& picture, UINT nId96, UINT nId144, UINT nId192);
