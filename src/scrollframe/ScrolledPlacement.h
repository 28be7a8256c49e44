#pragma once

#include <layout/Placement.h>

/// Where a control goes in a parent that may be smaller than designed, and is scrolled then: rectangles in,
/// rectangles out. Lengths named 96 are at 96 DPI, the others in device pixels.
namespace ScrolledPlacement
{
/// The length that a parent is taken to have along one axis.
struct Extent
{
    LONG length;
    bool fits; ///< whether the parent really has it
};

inline Extent ExtentOf(LONG clientLength, LONG designedLength96, float scale)
{
    const LONG designed = Placement::Scale(designedLength96, scale);
    return clientLength < designed ? Extent{designed, false} : Extent{clientLength, true};
}

/// The end of a stretched control. By contract the margin's place is compared with the control's length, not
/// with its start: a control far from the start may be stretched to less than its designed length.
inline LONG StretchedEnd(LONG end, LONG length, LONG endAtMargin)
{
    return endAtMargin >= length ? endAtMargin : end;
}

/// @param designed  the control's scaled designed place.
/// @param width,height  of the parent.
inline RECT Place(const RECT& designed, Extent width, Extent height, const Placement::Rule& rule, float scale)
{
    RECT rect = designed;
    const LONG marginRight = Placement::Scale(rule.marginRight96, scale);
    const LONG marginBottom = Placement::Scale(rule.marginBottom96, scale);
    if (rule.stretchesWidth)
        rect.right =
            StretchedEnd(rect.right, WrappingWidth(rect), WrappingSubtract(width.length, marginRight));
    if (rule.stretchesHeight)
        rect.bottom =
            StretchedEnd(rect.bottom, WrappingHeight(rect), WrappingSubtract(height.length, marginBottom));
    if (rule.followsRight && width.fits)
        Placement::MoveLeftTo(rect, Placement::StartBefore(width.length, WrappingWidth(rect), marginRight));
    if (rule.followsBottom && height.fits)
        Placement::MoveTopTo(rect, Placement::StartBefore(height.length, WrappingHeight(rect), marginBottom));
    return rect;
}
} // namespace ScrolledPlacement
