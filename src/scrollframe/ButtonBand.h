#pragma once

#include <windef.h>

#include <foundation/WrappingArithmetic.h>

/// Places buttons along the bottom of an area, from the right to the left, all ending at one height.
class ButtonBand
{
public:
    /// @param gap  between the buttons, to the right edge, and below and above the buttons.
    ButtonBand(const RECT& area, LONG gap)
        : m_gap(gap), m_left(area.right), m_bottom(WrappingSubtract(area.bottom, gap)), m_height(0)
    {
    }

    /// @return the place of the next button.
    RECT Add(SIZE button)
    {
        m_left = WrappingSubtract(m_left, WrappingAdd(button.cx, m_gap));
        const LONG needed = WrappingAdd(button.cy, WrappingAdd(m_gap, m_gap));
        if (needed > m_height)
            m_height = needed;
        return {m_left, WrappingSubtract(m_bottom, button.cy), WrappingAdd(m_left, button.cx), m_bottom};
    }

    /// @return the height that the buttons need with the gaps; 0 without buttons.
    LONG Height() const { return m_height; }

private:
    LONG m_gap;
    LONG m_left; // of the last button
    LONG m_bottom;
    LONG m_height;
};
