#pragma once

#include <windows.h>

#include <utility>

// Attaching and detaching, alike in every class that owns one handle and is found by it.

/// Ends the entry of a handle unless another object has taken the handle over.
template<class Map, class Object, class Handle>
void RemoveOwnEntry(Map& map, const Object* pObject, Handle handle)
{
    if (map.FindPermanent(handle) == pObject)
        map.RemovePermanent(handle);
}

template<class Map, class Object, class Handle>
BOOL AttachHandle(Map& map, Object* pObject, Handle& member, Handle handle)
{
    if (handle == nullptr)
        return FALSE;

    RemoveOwnEntry(map, pObject, member);
    map.SetPermanent(handle, pObject);
    member = handle;
    return TRUE;
}

template<class Map, class Object, class Handle>
Handle DetachHandle(Map& map, const Object* pObject, Handle& member)
{
    RemoveOwnEntry(map, pObject, member);
    return std::exchange(member, nullptr);
}
