#pragma once

#include <afxwin.h>

namespace ByHand
{
/// What CreateScaledIcon asks of the platform, call by call, without the loop over pixels: the mask stays
/// empty.
HICON CreateScaledIcon(UINT nTargetSize, UINT nResourceId, UINT nLoadSize);
} // namespace ByHand
