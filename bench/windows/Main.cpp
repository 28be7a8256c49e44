#include "CallComparison.h"
#include "Rows.h"

#include <vxdpi/Dpi.h>

#include <objbase.h>

#include <cstdio>
#include <cstring>

namespace
{
CWinApp g_application;

bool StartPlatform()
{
    return AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_HIDE) &&
           SUCCEEDED(::CoInitialize(nullptr));
}

bool CompareCalls()
{
    bool areSame = true;
    const Visit visit = [&areSame](const Pair& pair) { areSame = ReportCalls(pair) && areSame; };
    VisitPictureRows(visit);
    VisitWindowRows(visit);
    VisitGrowthRows(
        [&visit](const Growth& growth)
        {
            for (const Growth::Point& point : growth.points)
                visit({kGrowthKind, growth.name, 0, 0, 1, point.library, point.byHand});
        });
    VisitOwnCostRows(
        [&visit](const OwnCost& cost)
        {
            const StubbedPlatform platform(cost.answers);
            if (cost.byHand)
                visit({kOwnCostKind, cost.name, 0, 0, 1, cost.library, cost.byHand});
        });
    return areSame;
}

/// What stands in the first column.
const char* KindOf(const Pair& pair)
{
    return pair.number;
}

const char* KindOf(const Growth&)
{
    return kGrowthKind;
}

const char* KindOf(const OwnCost&)
{
    return kOwnCostKind;
}

bool MeasureRows(const char* text)
{
    std::puts("| row | what | ratio | 95 % interval | target | | by hand |");
    std::puts("|---|---|---|---|---|---|---|");
    bool isMet = true;
    const auto measure = [text, &isMet](const auto& row)
    {
        if (std::strcmp(KindOf(row), text) == 0 || std::strstr(row.name, text))
            isMet = Report(row) && isMet;
    };
    VisitPictureRows(measure);
    VisitWindowRows(measure);
    VisitLoadRow(measure);
    VisitGrowthRows(measure);
    VisitOwnCostRows(measure);
    return isMet;
}
} // namespace

/// vxdpi_bench [TEXT]: only the rows whose names have the text in them or whose kind it is. The status is 1
/// when a target is missed.
/// vxdpi_bench --calls: measures nothing, and compares the calls that both ways of each row make. The status
/// is 1 when they differ.
int main(int argc, char** argv)
{
    if (!StartPlatform())
    {
        std::puts("the platform does not start");
        return 2;
    }
    const CGdiPlusInitializer gdiPlus;
    const bool comparesCalls = argc > 1 && std::strcmp(argv[1], "--calls") == 0;
    const char* const text = argc > 1 && !comparesCalls ? argv[1] : "";
    return (comparesCalls ? CompareCalls() : MeasureRows(text)) ? 0 : 1;
}
