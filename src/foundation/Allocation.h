#pragma once

#include <afxwin.h>

#include <memory>
#include <new>
#include <utility>

/// Makes an object of the framework's family.
/// @return null when memory is short, which the framework and the language tell in ways of their own.
template<class Object, class... Args>
[[nodiscard]] std::unique_ptr<Object> MakeOrNull(Args&&... args)
{
    try
    {
        return std::make_unique<Object>(std::forward<Args>(args)...);
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
    catch (CMemoryException* pException)
    {
        pException->Delete();
        return nullptr;
    }
}
