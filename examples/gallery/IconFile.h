#pragma once

#include <afxwin.h>

#include <vector>

/// The sides, in pixels, of the images that an icon has.
using IconSizes = std::vector<int>;

/// Reads which icons a program or library has, in the order in which its resources are enumerated.
/// @return nothing when the file can't be read.
std::vector<IconSizes> ListIcons(LPCTSTR pszPath);
