#pragma once

#include <vxmfc/GdiObjects.h>

/// The handle of an object as the platform's type for it; null for a null object.
template<class Handle>
Handle HandleOf(const CGdiObject* pObject)
{
    return static_cast<Handle>(pObject->GetSafeHandle());
}
