#include "StandIns.h"

#include <map>
#include <string>

namespace
{
PlatformAnswers g_answers = {};
DWORD g_pixels[kLargestSide * kLargestSide];

/// Most calls just succeed.
std::uintptr_t AnswerOne()
{
    return 1;
}

/// Which is the way of GDI+ to succeed.
std::uintptr_t AnswerZero()
{
    return 0;
}

using StandInMap = std::map<std::string, void*>;

StandInMap MakeMap()
{
    StandInMap map;
    for (const auto& standIns : {ResourceStandIns(), ObjectStandIns(), GdiPlusStandIns(), WindowStandIns()})
    {
        for (const StandIn& standIn : standIns)
            map[standIn.pszFunction] = standIn.pStandIn;
    }
    return map;
}

bool IsFrom(const ImportSlot& slot, const char* pszDll)
{
    return ::lstrcmpiA(slot.pszDll, pszDll) == 0;
}
} // namespace

const PlatformAnswers& CurrentAnswers()
{
    return g_answers;
}

void SetAnswers(const PlatformAnswers& answers)
{
    g_answers = answers;
}

DWORD* StandInPixels()
{
    return g_pixels;
}

void* StandInFor(const ImportSlot& slot)
{
    static const StandInMap s_map = MakeMap();
    const auto found = s_map.find(slot.pszFunction);
    if (found != s_map.end())
        return found->second;
    if (IsFrom(slot, "gdiplus.dll"))
        return reinterpret_cast<void*>(&AnswerZero);
    const bool isReplaced = IsFrom(slot, "user32.dll") || IsFrom(slot, "gdi32.dll") ||
                            IsFrom(slot, "msimg32.dll") || IsFrom(slot, "ole32.dll");
    return isReplaced ? reinterpret_cast<void*>(&AnswerOne) : nullptr;
}
