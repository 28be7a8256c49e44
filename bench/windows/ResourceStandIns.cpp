#include "StandIns.h"

namespace
{
constexpr std::size_t kResourceSize = 2000;

BYTE g_resource[kResourceSize];
BYTE g_block[kResourceSize];

HRSRC WINAPI FindAny(HMODULE, LPCWSTR, LPCWSTR)
{
    return AnyHandle<HRSRC>();
}

HGLOBAL WINAPI LoadAny(HMODULE, HRSRC)
{
    return AnyHandle<HGLOBAL>();
}

HGLOBAL WINAPI AllocateAny(UINT, SIZE_T)
{
    return AnyHandle<HGLOBAL>();
}

HGLOBAL WINAPI FreeAny(HGLOBAL)
{
    return nullptr;
}

BOOL WINAPI FreeOrUnlockAny(HGLOBAL)
{
    return FALSE;
}

DWORD WINAPI SizeOfResource(HMODULE, HRSRC)
{
    return kResourceSize;
}

void* WINAPI Resource(HGLOBAL)
{
    return g_resource;
}

void* WINAPI Block(HGLOBAL)
{
    return g_block;
}
} // namespace

std::vector<StandIn> ResourceStandIns()
{
    return {
        MakeStandIn<decltype(::FindResourceW)>("FindResourceW", FindAny),
        MakeStandIn<decltype(::LoadResource)>("LoadResource", LoadAny),
        MakeStandIn<decltype(::FreeResource)>("FreeResource", FreeOrUnlockAny),
        MakeStandIn<decltype(::GlobalAlloc)>("GlobalAlloc", AllocateAny),
        MakeStandIn<decltype(::GlobalUnlock)>("GlobalUnlock", FreeOrUnlockAny),
        MakeStandIn<decltype(::GlobalFree)>("GlobalFree", FreeAny),
        MakeStandIn<decltype(::SizeofResource)>("SizeofResource", SizeOfResource),
        MakeStandIn<decltype(::LockResource)>("LockResource", Resource),
        MakeStandIn<decltype(::GlobalLock)>("GlobalLock", Block),
    };
}
