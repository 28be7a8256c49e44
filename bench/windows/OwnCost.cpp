#include "OwnCost.h"

#include "Sampling.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace
{
constexpr int kRounds = 201;

/// Nanoseconds of a unit.
struct Outcome
{
    Spread own;
    double library; // with the stand-ins
};

int AllocationsOf(const std::function<void()>& body)
{
    body(); // what is made once only is made now
    const AllocationCount count;
    body();
    return count.Get();
}

void DoNothing() {}

Outcome Measure(const OwnCost& cost)
{
    constexpr double kNanosecondsPerSecond = 1e9;
    const std::function<void()> byHand = cost.byHand ? cost.byHand : DoNothing;
    const int repetitions = RepetitionsFor(cost.library);
    const double scale = kNanosecondsPerSecond / (static_cast<double>(repetitions) * cost.units);
    std::vector<double> own;
    std::vector<double> library;
    for (int i = 0; i < kRounds; ++i)
    {
        const Sample sample = TakeSample(cost.library, byHand, repetitions, i % 2 == 0);
        own.push_back((sample.library - sample.byHand) * scale);
        library.push_back(sample.library * scale);
    }
    return {SpreadOf(std::move(own)), SpreadOf(std::move(library)).median};
}
} // namespace

bool Report(const OwnCost& cost)
{
    int allocations = 0;
    Outcome outcome = {};
    {
        const StubbedPlatform platform(cost.answers);
        allocations = AllocationsOf(cost.library);
        outcome = Measure(cost);
    }
    const bool isMet = outcome.own.median <= cost.limit && allocations == cost.allocations;
    std::printf("| %s | %s, ns of a %s and allocations | %.2f, %d | %.2f to %.2f | at most %.4g, %d | %s | "
                "%.2f ns with stand-ins |\n",
                kOwnCostKind, cost.name, cost.unit, outcome.own.median, allocations, outcome.own.low,
                outcome.own.high, cost.limit, cost.allocations, isMet ? "met" : "MISSED", outcome.library);
    std::fflush(stdout);
    return isMet;
}
