#pragma once

#include "StubbedPlatform.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// What is called in place of an imported function.
struct StandIn
{
    const char* pszFunction;
    void* pStandIn;
};

/// @tparam Signature  of the platform's function, which the stand-in has, too.
template<class Signature>
StandIn MakeStandIn(const char* pszFunction, Signature* pStandIn)
{
    return {pszFunction, reinterpret_cast<void*>(pStandIn)};
}

/// Resources and memory blocks.
std::vector<StandIn> ResourceStandIns();

/// Streams and the imaging component.
std::vector<StandIn> ObjectStandIns();

/// Images that are nothing but their size.
std::vector<StandIn> GdiPlusStandIns();

/// Windows, icons and bitmaps.
std::vector<StandIn> WindowStandIns();

/// The answers of the stand-ins that are in place.
const PlatformAnswers& CurrentAnswers();
void SetAnswers(const PlatformAnswers& answers);

/// The pixels of every bitmap.
constexpr std::size_t kLargestSide = 256;
DWORD* StandInPixels();

/// Something that is not null, for what nobody looks into.
template<class Handle>
Handle AnyHandle(std::uintptr_t value = 1)
{
    return reinterpret_cast<Handle>(value);
}

/// @return the function to be called in place of an imported one; null when it is not one to be replaced.
void* StandInFor(const ImportSlot& slot);
