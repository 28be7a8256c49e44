#pragma once

#include <windef.h>

#include <foundation/WrappingArithmetic.h>

/// One axis of a scrolled area: the numbers of whoever keeps them, in device pixels.
struct ScrollAxis
{
    int& content;  ///< length of what is scrolled
    int& position; ///< how far it is shifted
    int& page;     ///< visible length; 0 without a bar
    int& maximum;  ///< end of the bar's range, which starts at 0; 0 without a bar
};

/// What a bar asks for.
enum class ScrollCommand
{
    LineBack,
    LineForward,
    PageBack,
    PageForward,
    FollowThumb,
};

/// The way that a command asks for, whether it leads beyond the ends or not.
/// @param thumb  where the thumb is; for FollowThumb only.
inline int WayOf(const ScrollAxis& axis, ScrollCommand command, int lineStep, int thumb)
{
    switch (command)
    {
    case ScrollCommand::LineBack:
        return -lineStep;
    case ScrollCommand::LineForward:
        return lineStep;
    case ScrollCommand::PageBack:
        return WrappingSubtract(0, axis.page);
    case ScrollCommand::PageForward:
        return axis.page;
    case ScrollCommand::FollowThumb:
        return WrappingSubtract(thumb, axis.position);
    }
    return 0;
}

/// Shifts the position, from the start of the content to where its end is seen at most.
/// @return the way that it went.
inline int Shift(const ScrollAxis& axis, int way)
{
    const int target = WrappingAdd(axis.position, way);
    const int end = WrappingSubtract(axis.content, axis.page);
    int reached = target;
    if (target < 0)
        reached = 0;
    else if (target > end)
        reached = end;
    const int gone = WrappingSubtract(reached, axis.position);
    axis.position = reached;
    return gone;
}

/// Takes over a visible length, for a content that was measured anew.
/// @param keepsProportion  whether the position keeps its place in proportion to the range instead of its
///        distance from the start, as after a change of DPI.
inline void TakeOver(const ScrollAxis& axis, int visible, bool keepsProportion)
{
    const int oldMaximum = axis.maximum;
    axis.maximum = axis.content > 1 ? axis.content - 1 : 0;
    if (keepsProportion)
        axis.position = oldMaximum != 0 ? MulDiv(axis.position, axis.maximum, oldMaximum) : 0;
    if (axis.position < 0)
        axis.position = 0;
    axis.page = visible;
}

inline bool NeedsBar(const ScrollAxis& axis)
{
    return axis.page < axis.content;
}

inline void RemoveBar(const ScrollAxis& axis)
{
    axis.maximum = 0;
    axis.position = 0;
    axis.page = 0;
}
