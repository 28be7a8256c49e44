#include "ImportTable.h"

#include <cstddef>

namespace
{
template<class T>
T* At(HMODULE module, std::size_t offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(module) + offset);
}

void AppendImportsFrom(const IMAGE_IMPORT_DESCRIPTOR& dll, HMODULE module, std::vector<ImportSlot>& slots)
{
    const auto* pName = At<IMAGE_THUNK_DATA>(module, dll.OriginalFirstThunk);
    void** ppFunction = At<void*>(module, dll.FirstThunk);
    for (; pName->u1.AddressOfData != 0; ++pName, ++ppFunction)
    {
        if (IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal))
            continue;
        const auto* const pByName = At<IMAGE_IMPORT_BY_NAME>(module, pName->u1.AddressOfData);
        slots.push_back({At<char>(module, dll.Name), pByName->Name, ppFunction});
    }
}

void Store(void** ppFunction, void* pFunction)
{
    DWORD protection = 0;
    ::VirtualProtect(ppFunction, sizeof *ppFunction, PAGE_READWRITE, &protection);
    *ppFunction = pFunction;
    ::VirtualProtect(ppFunction, sizeof *ppFunction, protection, &protection);
}
} // namespace

std::vector<ImportSlot> ImportsOf(HMODULE module)
{
    const auto* const pDos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* const pHeaders = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(pDos->e_lfanew));
    const DWORD start = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    std::vector<ImportSlot> slots;
    for (const auto* pDll = At<IMAGE_IMPORT_DESCRIPTOR>(module, start); pDll->Name != 0; ++pDll)
        AppendImportsFrom(*pDll, module, slots);
    return slots;
}

ReplacedImports::~ReplacedImports()
{
    for (const Original& original : m_originals)
        Store(original.ppFunction, original.pFunction);
}

void ReplacedImports::Replace(void** ppFunction, void* pStandIn)
{
    m_originals.push_back({ppFunction, *ppFunction});
    Store(ppFunction, pStandIn);
}
