#pragma once

#include "StubbedPlatform.h"

#include <functional>

/// In the first column of the table.
constexpr const char* kOwnCostKind = "own";

/// An operation with a platform that answers at once: what is left is the library's own work.
struct OwnCost
{
    const char* name;
    const char* unit; ///< what the limit holds for, such as a call or a cell
    int units;        ///< in one body
    double limit;     ///< nanoseconds of the library's own for a unit
    int allocations;  ///< that a body makes of its own
    PlatformAnswers answers;
    std::function<void()> library;
    /// The calls of the platform that the library makes, whose time is not its own. May be empty where a unit
    /// makes none.
    std::function<void()> byHand;
};

/// Measures the difference between both ways, counts the allocations, and writes a line of the table.
/// @return whether the limit is kept, and there are as many allocations as expected.
bool Report(const OwnCost& cost);
