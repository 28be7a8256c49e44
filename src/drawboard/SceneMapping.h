#pragma once

#include <foundation/Rounding.h>
#include <foundation/WrappingArithmetic.h>

#include <algorithm>

/// How a scene in 96-DPI units fits into a board of pixels: one scale on both axes, centred, truncated toward
/// zero.
namespace SceneMapping
{
/// Pixels of the board that one unit of the scene takes.
inline float ScaleOfAxis(LONG logicalLength, LONG deviceLength)
{
    return logicalLength != 0 ? static_cast<float>(deviceLength) / static_cast<float>(logicalLength) : 1.0f;
}

/// Pixels that the scene leaves free before its start.
inline LONG Offset(LONG logicalLength, LONG deviceLength, float scale)
{
    const LONG used = TruncateToSigned(static_cast<float>(logicalLength) * scale);
    return WrappingSubtract(deviceLength, used) / 2;
}

/// One axis of the mapping.
struct Axis
{
    LONG logicalStart;
    LONG offset;
    float scale;

    LONG ToDevice(LONG logical) const
    {
        const LONG distance = WrappingSubtract(logical, logicalStart);
        return WrappingAdd(offset, TruncateToSigned(static_cast<float>(distance) * scale));
    }
};

struct Axes
{
    Axis x;
    Axis y;
};

/// Not for a scene of 0 x 0.
inline Axes Fit(const RECT& logical, const RECT& device)
{
    const LONG logicalWidth = WrappingWidth(logical);
    const LONG logicalHeight = WrappingHeight(logical);
    const LONG deviceWidth = WrappingWidth(device);
    const LONG deviceHeight = WrappingHeight(device);
    const float scale =
        (std::min)(ScaleOfAxis(logicalWidth, deviceWidth), ScaleOfAxis(logicalHeight, deviceHeight));
    return {{logical.left, Offset(logicalWidth, deviceWidth, scale), scale},
            {logical.top, Offset(logicalHeight, deviceHeight, scale), scale}};
}

/// A scene of 0 x 0 is not scaled: one unit is one pixel, even where single precision would round.
inline RECT ToDevice(const RECT& rect, const RECT& logical, const RECT& device)
{
    if (WrappingWidth(logical) == 0 && WrappingHeight(logical) == 0)
        return rect;
    const Axes axes = Fit(logical, device);
    return {axes.x.ToDevice(rect.left), axes.y.ToDevice(rect.top), axes.x.ToDevice(rect.right),
            axes.y.ToDevice(rect.bottom)};
}
} // namespace SceneMapping
