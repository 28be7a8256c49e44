#include "StubbedPlatform.h"

#include "Modules.h"
#include "StandIns.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace
{
int g_allocations = 0;

void* CountedMalloc(std::size_t size)
{
    ++g_allocations;
    return std::malloc(size);
}

void* CountedCalloc(std::size_t count, std::size_t size)
{
    ++g_allocations;
    return std::calloc(count, size);
}

void* CountedRealloc(void* pBlock, std::size_t size)
{
    ++g_allocations;
    return std::realloc(pBlock, size);
}

/// operator new comes here, too.
void* CountedFor(const char* pszFunction)
{
    if (std::strcmp(pszFunction, "malloc") == 0)
        return reinterpret_cast<void*>(&CountedMalloc);
    if (std::strcmp(pszFunction, "calloc") == 0)
        return reinterpret_cast<void*>(&CountedCalloc);
    if (std::strcmp(pszFunction, "realloc") == 0)
        return reinterpret_cast<void*>(&CountedRealloc);
    return nullptr;
}
} // namespace

StubbedPlatform::StubbedPlatform(const PlatformAnswers& answers)
{
    SetAnswers(answers);
    for (const HMODULE module : {LibraryModule(), FrameworkModule(), ProgramModule()})
    {
        for (const ImportSlot& slot : ImportsOf(module))
        {
            if (void* const pStandIn = StandInFor(slot))
                m_replaced.Replace(slot.ppFunction, pStandIn);
        }
    }
}

AllocationCount::AllocationCount()
{
    bool isSeen = false;
    for (const ImportSlot& slot : ImportsOf(LibraryModule()))
    {
        void* const pCounted = CountedFor(slot.pszFunction);
        if (!pCounted)
            continue;
        m_replaced.Replace(slot.ppFunction, pCounted);
        isSeen = true;
    }
    if (!isSeen)
        throw std::runtime_error("the library's allocations are not seen");
    g_allocations = 0;
}

int AllocationCount::Get() const
{
    return g_allocations;
}
