#include "Growth.h"

#include "Sampling.h"

#include <cmath>
#include <cstdio>

namespace
{
constexpr double kTarget = 0.05;
constexpr double kWidestInterval = 0.05;

/// What was measured at one size.
struct Samples
{
    std::vector<double> ratios; // of the library's times to the others
    std::vector<double> byHand; // seconds of one operation
};

/// How much each size counts for the slope of a least-squares line over the logarithms of the sizes.
std::vector<double> WeightsOf(const std::vector<Growth::Point>& points)
{
    double sum = 0;
    for (const Growth::Point& point : points)
        sum += std::log(point.size);
    const double mean = sum / static_cast<double>(points.size());
    std::vector<double> weights;
    double squares = 0;
    for (const Growth::Point& point : points)
    {
        weights.push_back(std::log(point.size) - mean);
        squares += weights.back() * weights.back();
    }
    for (double& weight : weights)
        weight /= squares;
    return weights;
}

std::vector<int> WarmUp(const std::vector<Growth::Point>& points)
{
    std::vector<int> repetitions;
    for (const Growth::Point& point : points)
    {
        point.library();
        point.byHand();
        repetitions.push_back(RepetitionsFor(point.byHand));
    }
    return repetitions;
}

void AddRound(std::vector<Samples>& all, const std::vector<Growth::Point>& points,
              const std::vector<int>& repetitions, bool libraryFirst)
{
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const Sample sample = TakeSample(points[i].library, points[i].byHand, repetitions[i], libraryFirst);
        all[i].ratios.push_back(sample.library / sample.byHand);
        all[i].byHand.push_back(sample.byHand / repetitions[i]);
    }
}

struct Outcome
{
    double byHand;     // exponent
    Spread difference; // of the library's exponent to it
};

/// The library's exponent is larger by the slope of the ratios. The sizes' intervals, which do not depend on
/// each other, add up as squares.
Outcome OutcomeOf(const std::vector<Samples>& all, const std::vector<double>& weights)
{
    double byHand = 0;
    double difference = 0;
    double squares = 0;
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        const Spread ratio = SpreadOf(all[i].ratios);
        const double reach = weights[i] * std::log(ratio.high / ratio.low) / 2;
        byHand += weights[i] * std::log(SpreadOf(all[i].byHand).median);
        difference += weights[i] * std::log(ratio.median);
        squares += reach * reach;
    }
    const double reach = std::sqrt(squares);
    return {byHand, {difference, difference - reach, difference + reach}};
}
} // namespace

bool Report(const Growth& growth)
{
    const std::vector<int> repetitions = WarmUp(growth.points);
    std::vector<Samples> all(growth.points.size());
    for (int i = 0; i < growth.rounds; ++i)
        AddRound(all, growth.points, repetitions, i % 2 == 0);

    const auto [byHand, difference] = OutcomeOf(all, WeightsOf(growth.points));
    const bool isMet = std::abs(difference.median) <= kTarget;
    const bool isUnsure = difference.high - difference.low > kWidestInterval;
    std::printf("| %s | %s: exponents %.2f and by hand %.2f, difference | %.3f | %.3f to %.3f "
                "| at most %.2f | %s%s | |\n",
                kGrowthKind, growth.name, byHand + difference.median, byHand, difference.median,
                difference.low, difference.high, kTarget, isMet ? "met" : "MISSED",
                isUnsure ? ", unsure" : "");
    std::fflush(stdout);
    return isMet;
}
