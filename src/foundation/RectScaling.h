#pragma once

#include "Rounding.h"

/// Scales each edge by itself, so that touching rectangles still touch; a width may differ by one from the
/// scaled width.
inline RECT ScaleEdges(const RECT& rect, float factor)
{
    const auto scale = [factor](LONG edge) { return RoundHalfAway(static_cast<float>(edge) * factor); };
    return {scale(rect.left), scale(rect.top), scale(rect.right), scale(rect.bottom)};
}
