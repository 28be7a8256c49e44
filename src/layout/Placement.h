#pragma once

#include <foundation/Rounding.h>
#include <foundation/WrappingArithmetic.h>

/// Where a control goes in its parent: rectangles in, rectangles out. Lengths named 96 are at 96 DPI, the
/// others in device pixels.
namespace Placement
{
/// How a control follows its parent.
struct Rule
{
    RECT base96; ///< place in the parent's client area
    LONG marginRight96;
    LONG marginBottom96;
    bool stretchesWidth;
    bool stretchesHeight;
    bool keepsDesignedSize; ///< stretching never makes it smaller than designed
    bool followsRight;
    bool followsBottom;
};

inline LONG Scale(LONG length96, float scale)
{
    return RoundHalfAway(static_cast<float>(length96) * scale);
}

/// The length that fills a parent between the control's designed start and its margin at the end.
inline LONG StretchedLength(LONG parentLength, LONG start, LONG margin, LONG designedLength,
                            bool keepsDesignedSize)
{
    const LONG length = WrappingSubtract(parentLength, WrappingAdd(start, margin));
    return keepsDesignedSize && length < designedLength ? designedLength : length;
}

inline LONG Width(const Rule& rule, const RECT& parent, float scale)
{
    const LONG designed = Scale(WrappingWidth(rule.base96), scale);
    if (!rule.stretchesWidth)
        return designed;
    return StretchedLength(WrappingWidth(parent), Scale(rule.base96.left, scale),
                           Scale(rule.marginRight96, scale), designed, rule.keepsDesignedSize);
}

inline LONG Height(const Rule& rule, const RECT& parent, float scale)
{
    const LONG designed = Scale(WrappingHeight(rule.base96), scale);
    if (!rule.stretchesHeight)
        return designed;
    return StretchedLength(WrappingHeight(parent), Scale(rule.base96.top, scale),
                           Scale(rule.marginBottom96, scale), designed, rule.keepsDesignedSize);
}

inline void ApplySizePolicy(RECT& rect, const RECT& parent, const Rule& rule, float scale)
{
    rect.right = WrappingAdd(rect.left, Width(rule, parent, scale));
    rect.bottom = WrappingAdd(rect.top, Height(rule, parent, scale));
}

inline void MoveLeftTo(RECT& rect, LONG left)
{
    rect.right = WrappingAdd(left, WrappingWidth(rect));
    rect.left = left;
}

inline void MoveTopTo(RECT& rect, LONG top)
{
    rect.bottom = WrappingAdd(top, WrappingHeight(rect));
    rect.top = top;
}

/// The start that leaves a margin between a control's end and its parent's.
inline LONG StartBefore(LONG parentEnd, LONG length, LONG margin)
{
    return WrappingSubtract(WrappingSubtract(parentEnd, length), margin);
}

inline void ApplyAnchor(RECT& rect, const RECT& parent, const Rule& rule, float scale)
{
    if (rule.followsRight)
        MoveLeftTo(rect, StartBefore(parent.right, WrappingWidth(rect), Scale(rule.marginRight96, scale)));
    if (rule.followsBottom)
        MoveTopTo(rect, StartBefore(parent.bottom, WrappingHeight(rect), Scale(rule.marginBottom96, scale)));
    if (rule.followsRight || rule.followsBottom)
        return;
    MoveLeftTo(rect, Scale(rule.base96.left, scale));
    MoveTopTo(rect, Scale(rule.base96.top, scale));
}
} // namespace Placement
