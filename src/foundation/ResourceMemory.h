#pragma once

#include "Guards.h"

#include <cstring>
#include <utility>

/// A resource's bytes, in place in its module.
struct ResourceBytes
{
    DWORD size = 0;
    HGLOBAL hResource = nullptr;  ///< null when the resource is missing or empty
    const void* pBytes = nullptr; ///< null when it can't be read
};

/// Finds, loads and locks a resource.
/// @param module  gives the module; asked before each call that takes one, because it may change in between.
/// @param nResourceId  integer resource ID, of which the low 16 bits are used.
template<class ModuleSource>
[[nodiscard]] ResourceBytes FindResourceBytes(ModuleSource module, UINT nResourceId, LPCWSTR pszType)
{
    ResourceBytes found;
    const HRSRC hInfo = ::FindResourceW(module(), MAKEINTRESOURCEW(nResourceId), pszType);
    if (!hInfo)
        return found;
    found.size = ::SizeofResource(module(), hInfo);
    if (found.size == 0)
        return found;
    found.hResource = ::LoadResource(module(), hInfo);
    if (found.hResource)
        found.pBytes = ::LockResource(found.hResource);
    return found;
}

/// Bytes in a movable memory block of their own, as a stream wants it.
struct LockedBlock
{
    UniqueGlobalMemory block; ///< null when memory is short
    GlobalMemoryLock lock;    ///< unlocks the block before it is freed
};

/// Copies bytes into a block and leaves it locked.
[[nodiscard]] inline LockedBlock CopyToLockedMemory(const void* pBytes, DWORD size)
{
    LockedBlock copy;
    UniqueGlobalMemory block(::GlobalAlloc(GMEM_MOVEABLE, size));
    if (!block)
        return copy;
    void* const pBlock = ::GlobalLock(block.get());
    if (!pBlock)
        return copy;
    std::memcpy(pBlock, pBytes, size);
    copy.block = std::move(block);
    copy.lock.reset(copy.block.get());
    return copy;
}

/// Copies bytes into a block that is not locked.
/// @return the block; null when memory is short.
[[nodiscard]] inline UniqueGlobalMemory CopyToGlobalMemory(const void* pBytes, DWORD size)
{
    LockedBlock copy = CopyToLockedMemory(pBytes, size);
    copy.lock.reset();
    return std::move(copy.block);
}
