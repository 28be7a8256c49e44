#include "CallTrace.h"

#include <vxdpi/Dpi.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace
{
constexpr std::size_t kCodeSize = 64 * 1024;

// Keeps the registers that pass arguments, tells Record which import it is, and goes on to the original.
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
constexpr std::size_t kRecordAt = 54;
constexpr std::size_t kOriginalAt = sizeof kStandIn - 10;

/// The run-time library calls some of the kernel's functions, too: these are the library's own.
bool IsFollowed(const char* pszDll, const char* pszName)
{
    static const char* const s_dlls[] = {"user32.dll", "gdi32.dll",   "gdiplus.dll",
                                         "ole32.dll",  "msimg32.dll", "windowscodecs.dll"};
    static const char* const s_kernel[] = {"FindResourceW", "SizeofResource", "LoadResource", "LockResource",
                                           "FreeResource",  "GlobalAlloc",    "GlobalLock",   "GlobalUnlock",
                                           "GlobalFree",    "MulDiv"};
    const auto isDll = [pszDll](const char* pszOther) { return ::_stricmp(pszDll, pszOther) == 0; };
    const auto isName = [pszName](const char* pszOther) { return std::strcmp(pszName, pszOther) == 0; };
    return std::any_of(std::begin(s_dlls), std::end(s_dlls), isDll) ||
           std::any_of(std::begin(s_kernel), std::end(s_kernel), isName);
}

template<class T>
T* At(HMODULE module, std::size_t offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(module) + offset);
}

void WriteSlot(void** ppFunction, void* pFunction)
{
    DWORD before = 0;
    ::VirtualProtect(ppFunction, sizeof *ppFunction, PAGE_READWRITE, &before);
    *ppFunction = pFunction;
    ::VirtualProtect(ppFunction, sizeof *ppFunction, before, &before);
}

HMODULE LibraryModule()
{
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                             GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&VxSafeGetDpiForWindow), &module);
    return module;
}

std::vector<std::string> CallsOf(const std::function<void()>& body)
{
    const CallTrace trace({LibraryModule(), ::GetModuleHandleW(nullptr)});
    body();
    return trace.Calls();
}

const char* NameAt(const std::vector<std::string>& calls, std::size_t index)
{
    return index < calls.size() ? calls[index].c_str() : "nothing";
}
} // namespace

CallTrace* CallTrace::s_pCurrent = nullptr;

CallTrace::CallTrace(const std::vector<HMODULE>& modules)
    : m_pCode(static_cast<unsigned char*>(
          ::VirtualAlloc(nullptr, kCodeSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE)))
{
    for (const HMODULE module : modules)
        Follow(module);
    s_pCurrent = this;
}

CallTrace::~CallTrace()
{
    s_pCurrent = nullptr;
    for (const Import& import : m_imports)
        WriteSlot(import.ppFunction, import.pOriginal);
    ::VirtualFree(m_pCode, 0, MEM_RELEASE);
}

const std::vector<std::string>& CallTrace::Calls() const
{
    return m_calls;
}

void CallTrace::Follow(HMODULE module)
{
    const auto* const pDos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* const pHeaders = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(pDos->e_lfanew));
    const DWORD start = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* pDll = At<IMAGE_IMPORT_DESCRIPTOR>(module, start); pDll->Name != 0; ++pDll)
    {
        const auto* pName = At<IMAGE_THUNK_DATA>(module, pDll->OriginalFirstThunk);
        void** ppFunction = At<void*>(module, pDll->FirstThunk);
        for (; pName->u1.AddressOfData != 0; ++pName, ++ppFunction)
        {
            if (IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal))
                continue;
            const char* const pszName = At<IMAGE_IMPORT_BY_NAME>(module, pName->u1.AddressOfData)->Name;
            if (IsFollowed(At<char>(module, pDll->Name), pszName))
                Replace(ppFunction, pszName);
        }
    }
}

void CallTrace::Replace(void** ppFunction, const char* pszName)
{
    const auto index = static_cast<unsigned>(m_imports.size());
    unsigned char* const pStandIn = m_pCode + index * sizeof kStandIn;
    if (pStandIn + sizeof kStandIn > m_pCode + kCodeSize)
        return;
    const auto pRecord = reinterpret_cast<void*>(&Record);
    void* const pOriginal = *ppFunction;
    std::memcpy(pStandIn, kStandIn, sizeof kStandIn);
    std::memcpy(pStandIn + kIndexAt, &index, sizeof index);
    std::memcpy(pStandIn + kRecordAt, &pRecord, sizeof pRecord);
    std::memcpy(pStandIn + kOriginalAt, &pOriginal, sizeof pOriginal);
    m_imports.push_back({ppFunction, pOriginal, pszName});
    WriteSlot(ppFunction, pStandIn);
}

void CallTrace::Record(unsigned index)
{
    if (s_pCurrent)
        s_pCurrent->m_calls.push_back(s_pCurrent->m_imports[index].name);
}

bool ReportCalls(const Pair& pair)
{
    pair.library(); // what is made once only is made now
    pair.byHand();
    const std::vector<std::string> library = CallsOf(pair.library);
    const std::vector<std::string> byHand = CallsOf(pair.byHand);
    const std::size_t common = (std::min)(library.size(), byHand.size());
    std::size_t same = 0;
    while (same < common && library[same] == byHand[same])
        ++same;
    const bool areSame = library == byHand;
    if (areSame)
        std::printf("%s: the same %zu calls\n", pair.name, same);
    else
        std::printf("%s: call %zu of %zu is %s in the library, %s of %zu by hand\n", pair.name, same + 1,
                    library.size(), NameAt(library, same), NameAt(byHand, same), byHand.size());
    std::fflush(stdout);
    return areSame && same > 0;
}
