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
} // namespace

/// vxdpi_bench [TEXT]: only the rows whose names have the text in them. The status is 1 when a target is
/// missed.
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
    bool isGood = true;
    const Visit visit = [text, comparesCalls, &isGood](const Pair& pair)
    {
        if (std::strstr(pair.name, text))
            isGood = (comparesCalls ? ReportCalls(pair) : Report(pair)) && isGood;
    };
    if (!comparesCalls)
    {
        std::puts("| row | what | ratio | 95 % interval | target | | by hand |");
        std::puts("|---|---|---|---|---|---|---|");
    }
    VisitPictureRows(visit);
    VisitWindowRows(visit);
    return isGood ? 0 : 1;
}
