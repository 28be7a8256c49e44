#pragma once

#include <functional>
#include <vector>

/// In the first column of the table.
constexpr const char* kGrowthKind = "growth";

/// One operation on inputs of several sizes, each in two ways as in a Pair.
struct Growth
{
    struct Point
    {
        int size;
        std::function<void()> library;
        std::function<void()> byHand;
    };

    const char* name;
    int rounds;
    std::vector<Point> points; ///< of growing size
};

/// Compares how both ways' times grow with the size, and writes a line of the table. A round takes a sample
/// of each way at each size. The exponents of growth are those of the rounds' medians.
/// @return whether the library's exponent is close enough to the other.
bool Report(const Growth& growth);
