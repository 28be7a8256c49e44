#pragma once

#include <windows.h>

#include <string>

// vxdpi_test_resources.dll, loaded for as long as the object lives. Throws when it is not beside the test
// program.
class ResourceDll
{
public:
    ResourceDll();
    ~ResourceDll();

    ResourceDll(const ResourceDll&) = delete;
    ResourceDll& operator=(const ResourceDll&) = delete;

    HMODULE Module() const;

    // The file's full path, for functions that open it themselves; needs no loaded module.
    static std::wstring Path();

private:
    HMODULE m_module;
};
