#pragma once

#include <functional>
#include <vector>

/// The median of samples and its 95 % interval.
struct Spread
{
    double median;
    double low;
    double high;
};

/// @return seconds that so many calls take.
double TimeOf(const std::function<void()>& body, int repetitions);

/// @return how many calls last long enough for the clock.
int RepetitionsFor(const std::function<void()>& body);

/// What one sample of each way takes, in seconds.
struct Sample
{
    double library;
    double byHand;
};

/// @param libraryFirst  to be alternated: load that comes and goes meets both.
Sample TakeSample(const std::function<void()>& library, const std::function<void()>& byHand, int repetitions,
                  bool libraryFirst);

Spread SpreadOf(std::vector<double> samples);
