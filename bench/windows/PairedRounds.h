#pragma once

#include "Sampling.h"

#include <functional>

/// One operation in two ways: by the library, and by the platform calls that it makes, written by hand. Both
/// leave everything as they found it, so that any number of calls gives the same work.
struct Pair
{
    const char* number; ///< of the row in the table
    const char* name;
    double target; ///< largest good ratio of the library's time to the other
    int rounds;
    int callsPerBody; ///< how often a body does the operation: more than once where a call takes nanoseconds
    std::function<void()> library;
    std::function<void()> byHand;
};

struct Outcome
{
    Spread ratio;         ///< of the rounds
    double byHandSeconds; ///< of one operation, the median
};

/// Compares a pair in rounds of one sample each, in alternating order: load that comes and goes meets both.
Outcome Measure(const Pair& pair);

/// Measures a pair and writes its line of the table.
/// @return whether the ratio is within the target.
bool Report(const Pair& pair);
