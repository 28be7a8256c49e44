#include "Modules.h"

#include <vxdpi/Dpi.h>

namespace
{
HMODULE ModuleOf(const void* pAddress)
{
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                             GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         static_cast<LPCWSTR>(pAddress), &module);
    return module;
}
} // namespace

HMODULE LibraryModule()
{
    return ModuleOf(reinterpret_cast<const void*>(&VxSafeGetDpiForWindow));
}

HMODULE FrameworkModule()
{
    return ModuleOf(RUNTIME_CLASS(CWnd));
}

HMODULE ProgramModule()
{
    return ::GetModuleHandleW(nullptr);
}
