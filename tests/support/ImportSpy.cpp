#include "support/ImportSpy.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string_view>

namespace
{
BYTE* BaseOf(HMODULE module)
{
    return reinterpret_cast<BYTE*>(module);
}

const IMAGE_IMPORT_DESCRIPTOR* FirstImportedDll(HMODULE module)
{
    BYTE* const base = BaseOf(module);
    const auto* const dosHeader = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dosHeader->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0)
        throw std::runtime_error("the module imports nothing");
    return reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
}

bool IsNamed(BYTE* base, const IMAGE_THUNK_DATA& entry, const char* functionName)
{
    if (IMAGE_SNAP_BY_ORDINAL(entry.u1.Ordinal))
        return false;
    const auto* const byName = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + entry.u1.AddressOfData);
    return std::strcmp(reinterpret_cast<const char*>(byName->Name), functionName) == 0;
}

void AppendImportsOfDll(HMODULE module, const IMAGE_IMPORT_DESCRIPTOR& dll, const char* functionName,
                        std::vector<void**>& found)
{
    // Without this table the names are gone once the loader has stored the addresses over them.
    if (dll.OriginalFirstThunk == 0)
        return;

    BYTE* const base = BaseOf(module);
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + dll.OriginalFirstThunk);
    auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address)
    {
        if (IsNamed(base, *name, functionName))
            found.push_back(reinterpret_cast<void**>(&address->u1.Function));
    }
}

std::string ModuleFileName(HMODULE module)
{
    char path[MAX_PATH] = {};
    ::GetModuleFileNameA(module, path, MAX_PATH);
    const std::string_view whole(path);
    return std::string(whole.substr(whole.find_last_of('\\') + 1));
}

std::string Narrow(const wchar_t* text)
{
    char narrow[MAX_PATH] = {};
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow, MAX_PATH - 1, nullptr, nullptr);
    return narrow;
}

void Store(void** slot, void* value)
{
    DWORD protection = 0;
    if (!::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection))
        throw std::runtime_error("a function pointer cannot be made writable");
    *slot = value;
    ::VirtualProtect(slot, sizeof *slot, protection, &protection);
}
}

std::vector<void**> FindImports(HMODULE module, const char* dllName, const char* functionName)
{
    std::vector<void**> found;
    for (const IMAGE_IMPORT_DESCRIPTOR* dll = FirstImportedDll(module); dll->Name != 0; ++dll)
    {
        const char* const name = reinterpret_cast<const char*>(BaseOf(module) + dll->Name);
        if (dllName == nullptr || ::lstrcmpiA(name, dllName) == 0)
            AppendImportsOfDll(module, *dll, functionName, found);
    }
    if (found.empty())
    {
        throw std::runtime_error(ModuleFileName(module) + " does not import " + functionName + " from " +
                                 (dllName != nullptr ? dllName : "any DLL"));
    }
    return found;
}

SpiedModule::SpiedModule(HMODULE module) : m_module(module)
{
    if (module == nullptr)
        throw std::runtime_error("no module to spy on");
}

SpiedModule::SpiedModule(const wchar_t* name) : m_module(::GetModuleHandleW(name))
{
    if (m_module == nullptr)
        throw std::runtime_error("module not loaded: " + Narrow(name));
}

SpiedModule::SpiedModule(std::nullptr_t) : m_module(::GetModuleHandleW(nullptr)) {}

SpiedModule::operator HMODULE() const
{
    return m_module;
}

void** ComMethodSlot(void* object, std::size_t methodIndex)
{
    if (object == nullptr)
        throw std::runtime_error("no COM object to spy on");
    return *static_cast<void***>(object) + methodIndex;
}

PointerPatch::PointerPatch(std::vector<void**> slots, void* replacement, std::string name)
    : m_slots(std::move(slots)), m_replacement(replacement), m_original(*m_slots.at(0)),
      m_name(std::move(name))
{
    for (void** const slot : m_slots)
        Store(slot, m_replacement);
}

void* PointerPatch::Original() const
{
    return m_original;
}

bool PointerPatch::Restore()
{
    for (void** const slot : m_slots)
    {
        if (*slot != m_replacement)
        {
            ADD_FAILURE() << "spies on " << m_name << " must end in reverse order of their start";
            return false;
        }
    }
    for (void** const slot : m_slots)
        Store(slot, m_original);
    return true;
}
