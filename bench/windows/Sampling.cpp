#include "Sampling.h"

#include <windows.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double kShortestSample = 0.0002; // seconds
constexpr double kRankFactor = 0.98; // half of 1.96 standard deviations of a rank, which are sqrt(n) / 2

double Seconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    ::QueryPerformanceCounter(&now);
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}
} // namespace

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

Sample TakeSample(const std::function<void()>& library, const std::function<void()>& byHand, int repetitions,
                  bool libraryFirst)
{
    const double first = TimeOf(libraryFirst ? library : byHand, repetitions);
    const double second = TimeOf(libraryFirst ? byHand : library, repetitions);
    return libraryFirst ? Sample{first, second} : Sample{second, first};
}

Spread SpreadOf(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    const double count = static_cast<double>(samples.size());
    const double reach = kRankFactor * std::sqrt(count);
    const auto low = static_cast<std::size_t>(std::floor((std::max)(count / 2 - reach, 0.0)));
    const auto high = static_cast<std::size_t>(std::ceil((std::min)(count / 2 + reach, count - 1)));
    return {samples[samples.size() / 2], samples[low], samples[high]};
}
