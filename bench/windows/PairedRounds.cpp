#include "PairedRounds.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace
{
constexpr int kWarmUps = 3;
constexpr double kShortestSample = 0.0002; // seconds
constexpr int kRuns = 3;
constexpr int kRoundsWhenUnsure = 801;
constexpr double kWidestInterval = 0.04;
constexpr double kTimeForMoreRounds = 20; // seconds
constexpr double kRankFactor = 0.98;      // half of 1.96 standard deviations of a rank, which are sqrt(n) / 2

double Seconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    ::QueryPerformanceCounter(&now);
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double TimeOf(const std::function<void()>& body, int repetitions)
{
    const double start = Seconds();
    for (int i = 0; i < repetitions; ++i)
        body();
    return Seconds() - start;
}

int RepetitionsFor(const std::function<void()>& body)
{
    int repetitions = 1;
    while (TimeOf(body, repetitions) < kShortestSample)
        repetitions *= 2;
    return repetitions;
}

double MedianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Outcome OutcomeOf(std::vector<double> ratios, const std::vector<double>& byHand)
{
    std::sort(ratios.begin(), ratios.end());
    const double count = static_cast<double>(ratios.size());
    const double reach = kRankFactor * std::sqrt(count);
    const auto low = static_cast<std::size_t>(std::floor((std::max)(count / 2 - reach, 0.0)));
    const auto high = static_cast<std::size_t>(std::ceil((std::min)(count / 2 + reach, count - 1)));
    return {ratios[ratios.size() / 2], ratios[low], ratios[high], MedianOf(byHand)};
}

Outcome MeasureOnce(const Pair& pair, int rounds, int repetitions)
{
    std::vector<double> ratios;
    std::vector<double> byHand;
    for (int i = 0; i < rounds; ++i)
    {
        const bool libraryFirst = i % 2 == 0;
        const double first = TimeOf(libraryFirst ? pair.library : pair.byHand, repetitions);
        const double second = TimeOf(libraryFirst ? pair.byHand : pair.library, repetitions);
        const double library = libraryFirst ? first : second;
        const double raw = libraryFirst ? second : first;
        ratios.push_back(library / raw);
        byHand.push_back(raw / (static_cast<double>(repetitions) * pair.callsPerBody));
    }
    return OutcomeOf(std::move(ratios), byHand);
}

bool IsUnsure(const Outcome& outcome)
{
    return outcome.high - outcome.low > kWidestInterval;
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
    std::sort(runs.begin(), runs.end(), [](const Outcome& a, const Outcome& b) { return a.ratio < b.ratio; });

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
    const bool isMet = outcome.ratio <= pair.target;
    std::printf("| %s | %s | %.3f | %.3f to %.3f | at most %.2f | %s%s | %.2f us |\n", pair.number, pair.name,
                outcome.ratio, outcome.low, outcome.high, pair.target, isMet ? "met" : "MISSED",
                IsUnsure(outcome) ? ", unsure" : "", outcome.byHandSeconds * kMicrosecondsPerSecond);
    std::fflush(stdout);
    return isMet;
}
