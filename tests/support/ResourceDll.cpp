#include "support/ResourceDll.h"

#include <stdexcept>

ResourceDll::ResourceDll() : m_module(::LoadLibraryW(Path().c_str()))
{
    if (m_module == nullptr)
        throw std::runtime_error("vxdpi_test_resources.dll is not beside the test program");
}

ResourceDll::~ResourceDll()
{
    ::FreeLibrary(m_module);
}

HMODULE ResourceDll::Module() const
{
    return m_module;
}

std::wstring ResourceDll::Path()
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path(program);
    return path.substr(0, path.find_last_of(L'\\') + 1) + L"vxdpi_test_resources.dll";
}
