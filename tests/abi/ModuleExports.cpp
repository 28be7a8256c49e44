#include "abi/ModuleExports.h"

#include <algorithm>

namespace
{
template<typename T>
const T* AtRva(HMODULE module, DWORD rva)
{
    return reinterpret_cast<const T*>(reinterpret_cast<const BYTE*>(module) + rva);
}
} // namespace

const IMAGE_EXPORT_DIRECTORY& ExportDirectory(HMODULE module)
{
    const auto* const header = AtRva<IMAGE_DOS_HEADER>(module, 0);
    const auto* const ntHeaders = AtRva<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(header->e_lfanew));
    const IMAGE_DATA_DIRECTORY& entry = ntHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    return *AtRva<IMAGE_EXPORT_DIRECTORY>(module, entry.VirtualAddress);
}

std::vector<std::string> ExportedNames(HMODULE module)
{
    const IMAGE_EXPORT_DIRECTORY& directory = ExportDirectory(module);
    const DWORD* const names = AtRva<DWORD>(module, directory.AddressOfNames);
    std::vector<std::string> list;
    for (DWORD i = 0; i < directory.NumberOfNames; ++i)
        list.emplace_back(AtRva<char>(module, names[i]));
    std::sort(list.begin(), list.end());
    return list;
}

const void* FindExport(HMODULE module, const std::string& name)
{
    return reinterpret_cast<const void*>(::GetProcAddress(module, name.c_str()));
}

std::string NameOfExport(HMODULE module, const void* address)
{
    for (const std::string& name : ExportedNames(module))
    {
        if (FindExport(module, name) == address)
            return name;
    }
    return "(not exported)";
}
