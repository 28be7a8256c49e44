#pragma once

#include <windows.h>

#include <utility>

// Attaching and detaching, alike in every class that owns one handle and is found by it.

template<class Map, class Object, class Handle>
BOOL AttachHandle(Map& map, Object* pObject, Handle& member, Handle handle)
{
    if (handle == nullptr)
        return FALSE;

    map.SetPermanent(handle, pObject);
    member = handle;
    return TRUE;
}

template<class Map, class Handle>
Handle DetachHandle(Map& map, Handle& member)
{
    if (member != nullptr)
        map.RemovePermanent(member);
    return std::exchange(member, nullptr);
}
