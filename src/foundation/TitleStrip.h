#pragma once

#include "WrappingArithmetic.h"

#include <cstdint>

/// When a window's title bar can be reached with the mouse.
namespace TitleStrip
{
constexpr int kCaptionButtons = 3;
constexpr int kVisiblePercent = 70;
constexpr int kWholePercent = 100;

/// The sizes of a window frame's parts in device pixels, as the system metrics tell them.
struct FrameMetrics
{
    int captionHeight;
    int frameHeight;
    int captionButtonWidth;
};

inline LONG Height(const FrameMetrics& metrics)
{
    return WrappingAdd(metrics.captionHeight, metrics.frameHeight);
}

/// The part of a window's rectangle that the title bar takes up.
inline RECT Of(const RECT& window, const FrameMetrics& metrics)
{
    return {window.left, window.top, window.right, WrappingAdd(window.top, Height(metrics))};
}

/// Whether a visible part, given by its bounding box, leaves enough to grip.
inline bool IsReachable(const RECT& visible, const FrameMetrics& metrics)
{
    const std::int64_t minWidth = std::int64_t{kCaptionButtons} * metrics.captionButtonWidth;
    const std::int64_t minHeight = std::int64_t{kVisiblePercent} * Height(metrics) / kWholePercent;
    return WrappingWidth(visible) >= minWidth && WrappingHeight(visible) >= minHeight;
}

inline POINT CentreOf(const RECT& rect)
{
    return {WrappingAdd(rect.left, rect.right) / 2, WrappingAdd(rect.top, rect.bottom) / 2};
}
} // namespace TitleStrip
