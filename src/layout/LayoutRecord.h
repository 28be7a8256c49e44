#pragma once

#include <vxdpi/Layout.h>

#include "Placement.h"

// What every manager does with a record.

/// A record as the placement arithmetic takes it.
inline Placement::Rule RuleOf(const LayoutInfo& info)
{
    Placement::Rule rule = {};
    rule.base96 = info.rcBase96;
    rule.marginRight96 = info.nMarginRight;
    rule.marginBottom96 = info.nMarginBottom;
    rule.stretchesWidth = (info.nSizePolicy & SIZE_STRETCH_WIDTH) != 0;
    rule.stretchesHeight = (info.nSizePolicy & SIZE_STRETCH_HEIGHT) != 0;
    rule.keepsDesignedSize = info.bMinSize != FALSE;
    rule.followsRight = info.nAnchor == ANCHOR_RIGHT || info.nAnchor == ANCHOR_BOTTOMRIGHT;
    rule.followsBottom = info.nAnchor == ANCHOR_BOTTOM || info.nAnchor == ANCHOR_BOTTOMRIGHT;
    return rule;
}

/// Stores the captured place of a control.
/// @param client96  the parent's client area.
inline void StorePlace(LayoutInfo& info, const CRect& rect96, const CRect& client96)
{
    info.nMarginRight = WrappingSubtract(client96.right, rect96.right);
    info.nMarginBottom = WrappingSubtract(client96.bottom, rect96.bottom);
    info.rcBase96 = rect96;
}
