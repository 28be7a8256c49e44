#include "PairedRounds.h"

#include "Sampling.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <vector>

namespace
{
constexpr int kWarmUps = 3;
constexpr int kRuns = 3;
constexpr int kRoundsWhenUnsure = 801;
constexpr double kWidestInterval = 0.04;
constexpr double kTimeForMoreRounds = 10; // seconds

Outcome MeasureOnce(const Pair& pair, int rounds, int repetitions)
{
    std::vector<double> ratios;
    std::vector<double> byHand;
    for (int i = 0; i < rounds; ++i)
    {
        const Sample sample = TakeSample(pair.library, pair.byHand, repetitions, i % 2 == 0);
        ratios.push_back(sample.library / sample.byHand);
        byHand.push_back(sample.byHand / (static_cast<double>(repetitions) * pair.callsPerBody));
    }
    return {SpreadOf(std::move(ratios)), SpreadOf(std::move(byHand)).median};
}

bool IsUnsure(const Outcome& outcome)
{
    return outcome.ratio.high - outcome.ratio.low > kWidestInterval;
}
} // namespace

Outcome Measure(const Pair& pair)
{
    for (int i = 0; i < kWarmUps; ++i)
    {
        pair.library();
        pair.byHand();
    }
    const int repetitions = RepetitionsFor(pair.byHand);
    std::array<Outcome, kRuns> runs = {};
    for (Outcome& run : runs)
        run = MeasureOnce(pair, pair.rounds, repetitions);
    std::sort(runs.begin(), runs.end(),
              [](const Outcome& a, const Outcome& b) { return a.ratio.median < b.ratio.median; });

    const Outcome& median = runs[kRuns / 2];
    const double secondsPerRound = 2 * median.byHandSeconds * repetitions * pair.callsPerBody;
    if (IsUnsure(median) && kRoundsWhenUnsure * secondsPerRound < kTimeForMoreRounds)
        return MeasureOnce(pair, kRoundsWhenUnsure, repetitions);
    return median;
}

bool Report(const Pair& pair)
{
    constexpr double kMicrosecondsPerSecond = 1e6;
    const Outcome outcome = Measure(pair);
    const bool isMet = outcome.ratio.median <= pair.target;
    std::printf("| %s | %s | %.3f | %.3f to %.3f | at most %.2f | %s%s | %.2f us |\n", pair.number, pair.name,
                outcome.ratio.median, outcome.ratio.low, outcome.ratio.high, pair.target,
                isMet ? "met" : "MISSED", IsUnsure(outcome) ? ", unsure" : "",
                outcome.byHandSeconds * kMicrosecondsPerSecond);
    std::fflush(stdout);
    return isMet;
}
