#pragma once

#include <windef.h>

#include <foundation/WrappingArithmetic.h>

/// Where the parts of a scrolling view go.
struct ViewPlaces
{
    RECT content;
    RECT horizontalBar; ///< below the content
    RECT verticalBar;   ///< to the right of the content
};

/// The content starts after a margin and ends where the bars do, whether they are shown or not.
/// @param margin  to the left and above.
/// @param band  height below everything.
inline ViewPlaces PlacesIn(SIZE client, LONG margin, LONG barThickness, LONG band)
{
    const LONG right = WrappingSubtract(client.cx, barThickness);
    const LONG bottom = WrappingSubtract(client.cy, WrappingAdd(band, barThickness));
    return {{margin, margin, right, bottom},
            {margin, bottom, right, WrappingAdd(bottom, barThickness)},
            {right, margin, WrappingAdd(right, barThickness), bottom}};
}
