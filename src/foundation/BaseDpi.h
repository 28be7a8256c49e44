#pragma once

#include <windef.h>

/// The DPI that sizes are designed at: 100 %, as the platform defines it (USER_DEFAULT_SCREEN_DPI).
constexpr UINT kBaseDpi = 96;
