#pragma once

#include <vxdpi/Images.h>

/// Moves a registry to a DPI and chooses the entry for it; null when nothing is registered.
inline const ResourceInfo* ChooseResource(CDpiAwareRes& resources, UINT nDpi)
{
    resources.UpdateCurrentDpi(nDpi);
    return resources.FindBestResource();
}
