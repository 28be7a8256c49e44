#include "support/CallTrace.h"

#include "support/FrameworkNames.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <stdexcept>

namespace
{
// Keeps the registers that pass arguments, tells Record which import it is and who
// calls it, and goes on to the original.
constexpr unsigned char kStandIn[] = {
    0x48, 0x81, 0xEC, 0x98, 0,    0,    0,                   // sub rsp, 98h
    0x48, 0x89, 0x4C, 0x24, 0x20,                            // mov [rsp + 20h], rcx
    0x48, 0x89, 0x54, 0x24, 0x28,                            // mov [rsp + 28h], rdx
    0x4C, 0x89, 0x44, 0x24, 0x30,                            // mov [rsp + 30h], r8
    0x4C, 0x89, 0x4C, 0x24, 0x38,                            // mov [rsp + 38h], r9
    0x0F, 0x11, 0x44, 0x24, 0x40,                            // movups [rsp + 40h], xmm0
    0x0F, 0x11, 0x4C, 0x24, 0x50,                            // movups [rsp + 50h], xmm1
    0x0F, 0x11, 0x54, 0x24, 0x60,                            // movups [rsp + 60h], xmm2
    0x0F, 0x11, 0x5C, 0x24, 0x70,                            // movups [rsp + 70h], xmm3
    0xB9, 0,    0,    0,    0,                               // mov ecx, index
    0x48, 0x8B, 0x94, 0x24, 0x98, 0,    0,    0,             // mov rdx, [rsp + 98h]
    0x48, 0xB8, 0,    0,    0,    0,    0,    0,    0,    0, // mov rax, Record
    0xFF, 0xD0,                                              // call rax
    0x48, 0x8B, 0x4C, 0x24, 0x20,                            // and back
    0x48, 0x8B, 0x54, 0x24, 0x28, 0x4C, 0x8B, 0x44, 0x24, 0x30, 0x4C, 0x8B, 0x4C, 0x24,
    0x38, 0x0F, 0x10, 0x44, 0x24, 0x40, 0x0F, 0x10, 0x4C, 0x24, 0x50, 0x0F, 0x10, 0x54,
    0x24, 0x60, 0x0F, 0x10, 0x5C, 0x24, 0x70, 0x48, 0x81, 0xC4, 0x98, 0,    0,    0, // add rsp, 98h
    0x48, 0xB8, 0,    0,    0,    0,    0,    0,    0,    0,                         // mov rax, original
    0xFF, 0xE0,                                                                      // jmp rax
};
constexpr std::size_t kIndexAt = 48;
constexpr std::size_t kRecordAt = 62;
constexpr std::size_t kOriginalAt = sizeof kStandIn - 10;

constexpr std::size_t kBlockSize = 64 * 1024; // of memory for stand-ins

bool IsFollowed(const char* dllName, const char* functionName)
{
    static const char* const s_dlls[] = {"comctl32.dll", "gdi32.dll",  "gdiplus.dll", "msimg32.dll",
                                         "ole32.dll",    "shcore.dll", "user32.dll",  "windowscodecs.dll"};
    // The first is also found in a library whose name tells of its version.
    static const char* const s_functions[] = {
        "GetDpiForMonitor", "EnumResourceNamesW", "FindResourceW", "FreeLibrary",   "FreeResource",
        "GlobalAlloc",      "GlobalFree",         "GlobalLock",    "GlobalUnlock",  "LoadLibraryExW",
        "LoadResource",     "LockResource",       "MulDiv",        "SizeofResource"};
    const auto isDll = [dllName](const char* other) { return ::lstrcmpiA(dllName, other) == 0; };
    const auto isFunction = [functionName](const char* other)
    { return std::strcmp(functionName, other) == 0; };
    return std::any_of(std::begin(s_dlls), std::end(s_dlls), isDll) ||
           std::any_of(std::begin(s_functions), std::end(s_functions), isFunction);
}

template<class T>
T* At(HMODULE module, std::size_t offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(module) + offset);
}

void Store(void** function, void* value)
{
    DWORD protection = 0;
    if (!::VirtualProtect(function, sizeof *function, PAGE_READWRITE, &protection))
        throw std::runtime_error("an import cannot be made writable");
    *function = value;
    ::VirtualProtect(function, sizeof *function, protection, &protection);
}
}

CallTrace* CallTrace::s_current = nullptr;
std::deque<CallTrace::Import> CallTrace::s_imports;

CallTrace::CallTrace(const std::vector<HMODULE>& modules, HMODULE framework) : m_framework(framework)
{
    if (s_current)
        throw std::logic_error("a trace is running already");
    for (const HMODULE module : modules)
        Collect(module);
    for (const Import* const import : m_imports)
        Store(import->function, import->standIn);
    s_current = this;
}

CallTrace::~CallTrace()
{
    s_current = nullptr;
    for (const Import* const import : m_imports)
        Store(import->function, import->original);
}

const CallNames& CallTrace::Calls() const
{
    return m_calls;
}

bool CallTrace::FollowsFramework() const
{
    return std::any_of(m_imports.begin(), m_imports.end(),
                       [](const Import* import) { return import->isOfFramework; });
}

void CallTrace::Write(const std::string& name)
{
    if (s_current)
        s_current->m_calls.push_back(name);
}

void CallTrace::Collect(HMODULE module)
{
    if (!module)
        throw std::runtime_error("no module to follow");
    const std::size_t before = m_imports.size();
    const auto* const dosHeader = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* const headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dosHeader->e_lfanew));
    const DWORD start = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* dll = At<IMAGE_IMPORT_DESCRIPTOR>(module, start); start != 0 && dll->Name != 0; ++dll)
    {
        const auto* name = At<IMAGE_THUNK_DATA>(module, dll->OriginalFirstThunk);
        void** function = At<void*>(module, dll->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++function)
        {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                continue;
            Add(At<char>(module, dll->Name), At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData)->Name,
                function);
        }
    }
    if (m_imports.size() == before)
        throw std::runtime_error("the module imports nothing that is followed");
}

void CallTrace::Add(const char* dllName, const char* functionName, void** function)
{
    if (IsFollowed(dllName, functionName))
    {
        m_imports.push_back(&StandInFor(function, functionName, false));
        return;
    }
    const std::string name = FrameworkFunctionName(functionName);
    if (!name.empty() && IsInFramework(*function))
        m_imports.push_back(&StandInFor(function, name, true));
}

bool CallTrace::IsInFramework(const void* code) const
{
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return m_framework && ::GetModuleHandleExW(flags, static_cast<LPCWSTR>(code), &module) &&
           module == m_framework;
}

const CallTrace::Import& CallTrace::StandInFor(void** function, const std::string& name, bool isOfFramework)
{
    const auto isThis = [&](const Import& import)
    { return import.function == function && import.original == *function && import.name == name; };
    const auto known = std::find_if(s_imports.begin(), s_imports.end(), isThis);
    if (known != s_imports.end())
        return *known;

    void* const standIn = WriteStandIn(static_cast<unsigned>(s_imports.size()), *function);
    s_imports.push_back({function, *function, name, isOfFramework, standIn});
    return s_imports.back();
}

void* CallTrace::WriteStandIn(unsigned index, const void* original)
{
    static unsigned char* s_place = nullptr;
    static std::size_t s_room = 0;
    if (s_room < sizeof kStandIn)
    {
        s_place = static_cast<unsigned char*>(
            ::VirtualAlloc(nullptr, kBlockSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
        s_room = s_place ? kBlockSize : 0;
    }
    if (!s_place)
        throw std::runtime_error("no memory for the stand-ins");
    unsigned char* const code = s_place;
    s_place += sizeof kStandIn;
    s_room -= sizeof kStandIn;

    const auto record = reinterpret_cast<void*>(&Record);
    std::memcpy(code, kStandIn, sizeof kStandIn);
    std::memcpy(code + kIndexAt, &index, sizeof index);
    std::memcpy(code + kRecordAt, &record, sizeof record);
    std::memcpy(code + kOriginalAt, &original, sizeof original);
    return code;
}

void CallTrace::Record(unsigned index, const void* caller)
{
    const DWORD error = ::GetLastError();
    if (s_current)
        s_current->Take(s_imports[index], caller);
    ::SetLastError(error);
}

void CallTrace::Take(const Import& import, const void* caller)
{
    if (import.isOfFramework)
    {
        if (IsInFramework(caller))
            return;
        // A function of the framework that ends in a call of another leaves its own caller to it.
        if (m_last && m_last != &import && m_lastCaller == caller)
            return;
        m_last = &import;
        m_lastCaller = caller;
    }
    m_calls.push_back(import.name);
}
