#pragma once

#include "Sides.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Keeps the median processor time of each benchmark, and writes how they relate to each other.
class RatioTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// @return whether all targets are met.
    bool Write() const;

private:
    double NanosecondsOf(const std::string& name) const;
    bool WriteBound(const std::string& kernel, const std::string& bound, double small, double large) const;
    bool WriteBoundAt(int side, const std::string& kernel, const std::string& bound, double target) const;
    bool WriteSpeedUp(const std::string& kernel, double target) const;
    bool WriteCost(const std::string& what, double nanoseconds, double target) const;
    bool WriteGrowth(const std::string& name, int from, int to, double target) const;
    bool WritePixelGrowth(const std::string& kernel, const std::string& bound) const;
    bool WritePixelGrowthIn(Sides::Span span, const std::string& kernel, const std::string& bound) const;
    double Exponent(const std::string& name, int from, int to) const;

    std::map<std::string, double> m_nanoseconds;
};
