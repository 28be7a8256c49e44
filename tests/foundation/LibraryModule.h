#pragma once

#include <vxdpi/Dpi.h>

#include <stdexcept>

// Modules as they are loaded, whatever the build calls their files.

template<typename Function>
HMODULE ModuleOf(Function* function)
{
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!::GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(function), &module))
        throw std::runtime_error("the function's module is not loaded");
    return module;
}

inline HMODULE VxDpiModule()
{
    return ModuleOf(&VxSafeGetDpiForWindow);
}

inline HMODULE FrameworkModule()
{
    return ModuleOf(&AfxWinInit);
}
