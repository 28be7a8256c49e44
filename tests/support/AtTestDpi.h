#pragma once

#include "support/TestDpi.h"

#include <stdexcept>

// What a test expects at the DPI that it runs at.
template<typename Value>
Value AtTestDpi(Value at96, Value at120, Value at144, Value at192)
{
    switch (TestDpi())
    {
    case 96:
        return at96;
    case 120:
        return at120;
    case 144:
        return at144;
    case 192:
        return at192;
    default:
        throw std::runtime_error("nothing is written down for this DPI");
    }
}
