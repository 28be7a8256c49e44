#pragma once

#include <vxdpi/Png.h>

#include <utility>

/// Registers a picture's variants.
/// @param variants  of dpi_images.h: the DPIs that they are drawn for and their resource IDs.
template<size_t nCount>
void AddVariants(CDpiAwarePng& picture, const std::pair<UINT, UINT> (&variants)[nCount])
{
    for (const auto& [nDpi, nResourceId] : variants)
        picture.AddResourceForDpi(nDpi, nResourceId, {});
}
