#include "RatioTable.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace
{
std::string At(const std::string& name, int argument)
{
    return name + "/" + std::to_string(argument);
}

const char* Verdict(bool isMet)
{
    return isMet ? "met" : "MISSED";
}
} // namespace

bool RatioTable::ReportContext(const Context&)
{
    return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs)
    {
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            m_nanoseconds[run.run_name.function_name +
                          (run.run_name.args.empty() ? "" : "/" + run.run_name.args)] =
                run.GetAdjustedCPUTime();
    }
}

bool RatioTable::Write() const
{
    std::puts("| row | what | ratio | 95 % interval | target | | time |");
    std::puts("|---|---|---|---|---|---|---|");
    bool met = WriteBound("Premultiply", "ReadWrite", 2.4, 1.2);
    met = WriteBound("PremultiplyRandom", "ReadWrite", 6.3, 2.9) && met;
    met = WriteBound("Replace", "ReadWrite", 2.7, 1.35) && met;
    met = WriteBound("Mask", "Read", 2.7, 1.2) && met;
    met = WriteBound("Disable", "ReadWrite", 14, 6.3) && met;
    met = WriteSpeedUp("Premultiply", 7) && met;
    met = WriteSpeedUp("PremultiplyRandom", 6) && met;
    met = WriteSpeedUp("Replace", 3) && met;
    met = WriteSpeedUp("Mask", 6) && met;
    met = WriteSpeedUp("Disable", 3) && met;
    const double four = NanosecondsOf("Lookup/4");
    const double manyMore = NanosecondsOf("Lookup/1024") - four;
    met = WriteCost("Lookup among 4 variants", four, 15) && met;
    met = WriteCost("Lookup, each further variant", manyMore / (1024 - 4), 2) && met;
    met = WriteCost("Layout of a control among 10", NanosecondsOf("Layout/10") / 10, 20) && met;
    met = WriteCost("Layout of a control among 10000", NanosecondsOf("Layout/10000") / 10000, 20) && met;
    met = WriteCost("ScrollUpdate, both axes", NanosecondsOf("ScrollUpdate"), 100) && met;
    met = WriteCost("ViewLayout with 10 buttons", NanosecondsOf("ViewLayout/10"), 50 + 5 * 10) && met;
    met = WriteCost("Scaling, guarded", NanosecondsOf("Scaling"), 3) && met;
    met = WritePixelGrowth("Premultiply", "ReadWrite") && met;
    met = WritePixelGrowth("Replace", "ReadWrite") && met;
    met = WritePixelGrowth("Mask", "Read") && met;
    met = WritePixelGrowth("Disable", "ReadWrite") && met;
    met = WriteGrowth("Lookup", 64, 1024, 1.05) && met;
    met = WriteGrowth("Layout", 100, 1000, 1.05) && met;
    // Beyond the second cache the walk through the map slows down.
    return WriteGrowth("Layout", 1000, 10000, 1.1) && met;
}

double RatioTable::NanosecondsOf(const std::string& name) const
{
    const auto found = m_nanoseconds.find(name);
    return found == m_nanoseconds.end() ? std::nan("") : found->second;
}

bool RatioTable::WriteBound(const std::string& kernel, const std::string& bound, double small,
                            double large) const
{
    const bool isSmallMet = WriteBoundAt(Sides::kSmall, kernel, bound, small);
    return WriteBoundAt(Sides::kLarge, kernel, bound, large) && isSmallMet;
}

bool RatioTable::WriteBoundAt(int side, const std::string& kernel, const std::string& bound,
                              double target) const
{
    const double time = NanosecondsOf(At(kernel, side));
    const double ratio = time / NanosecondsOf(At(bound, side));
    std::printf("| own | %s, %d x %d px, against %s | %.2f | | at most %.2f | %s | %.3f ns/px |\n",
                kernel.c_str(), side, side, bound.c_str(), ratio, target, Verdict(ratio <= target),
                time / side / side);
    return ratio <= target;
}

bool RatioTable::WriteSpeedUp(const std::string& kernel, double target) const
{
    const double time = NanosecondsOf(At(kernel + "Plain", Sides::kSmall));
    const double speedUp = time / NanosecondsOf(At(kernel, Sides::kSmall));
    std::printf("| own | %sPlain, %d x %d px, against %s | %.2f | | at least %.2f | %s | %.3f ns/px |\n",
                kernel.c_str(), Sides::kSmall, Sides::kSmall, kernel.c_str(), speedUp, target,
                Verdict(speedUp >= target), time / Sides::kSmall / Sides::kSmall);
    return speedUp >= target;
}

bool RatioTable::WriteCost(const std::string& what, double nanoseconds, double target) const
{
    std::printf("| own | %s | | | at most %.0f ns | %s | %.1f ns |\n", what.c_str(), target,
                Verdict(nanoseconds <= target), nanoseconds);
    return nanoseconds <= target;
}

bool RatioTable::WriteGrowth(const std::string& name, int from, int to, double target) const
{
    const double exponent = Exponent(name, from, to);
    std::printf("| own | %s, exponent of the growth from %d to %d | %.2f | | at most %.2f | %s | |\n",
                name.c_str(), from, to, exponent, target, Verdict(exponent <= target));
    return exponent <= target;
}

bool RatioTable::WritePixelGrowth(const std::string& kernel, const std::string& bound) const
{
    const bool isCachedMet = WritePixelGrowthIn(Sides::kCached, kernel, bound);
    return WritePixelGrowthIn(Sides::kUncached, kernel, bound) && isCachedMet;
}

/// A side counts twice in the number of pixels. What memory itself takes more for each further pixel is no
/// fault of the kernel.
bool RatioTable::WritePixelGrowthIn(Sides::Span span, const std::string& kernel,
                                    const std::string& bound) const
{
    constexpr double kTolerance = 0.05;
    const double exponent = Exponent(kernel, span.from, span.to) / 2;
    const double boundExponent = Exponent(bound, span.from, span.to) / 2;
    const double target = (std::max)(boundExponent, 1.0) + kTolerance;
    std::printf(
        "| own | %s, exponent of the growth from %d x %d to %d x %d px, %s has %.2f | %.2f | | at most "
        "%.2f | %s | |\n",
        kernel.c_str(), span.from, span.from, span.to, span.to, bound.c_str(), boundExponent, exponent,
        target, Verdict(exponent <= target));
    return exponent <= target;
}

double RatioTable::Exponent(const std::string& name, int from, int to) const
{
    const double growth = NanosecondsOf(At(name, to)) / NanosecondsOf(At(name, from));
    return std::log(growth) / std::log(static_cast<double>(to) / from);
}
