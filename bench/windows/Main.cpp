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
int main(int argc, char** argv)
{
    if (!StartPlatform())
    {
        std::puts("the platform does not start");
        return 2;
    }
    const CGdiPlusInitializer gdiPlus;
    const char* const text = argc > 1 ? argv[1] : "";
    bool allMet = true;
    const Visit visit = [text, &allMet](const Pair& pair)
    {
        if (std::strstr(pair.name, text))
            allMet = Report(pair) && allMet;
    };
    std::puts("| row | what | ratio | 95 % interval | target | | by hand |");
    std::puts("|---|---|---|---|---|---|---|");
    VisitPictureRows(visit);
    VisitWindowRows(visit);
    return allMet ? 0 : 1;
}
