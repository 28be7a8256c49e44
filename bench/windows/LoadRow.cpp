#include "Modules.h"
#include "Rows.h"

#include <stdexcept>
#include <string>

namespace
{
std::wstring PathBesideProgram(const wchar_t* pszName)
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(ProgramModule(), program, MAX_PATH);
    const std::wstring path(program);
    return path.substr(0, path.find_last_of(L'\\') + 1) + pszName;
}

/// A DLL beside the program that is not loaded otherwise.
class Dll
{
public:
    /// Throws std::runtime_error when the DLL does not load.
    explicit Dll(const wchar_t* pszName) : m_path(PathBesideProgram(pszName))
    {
        if (::GetModuleHandleW(pszName) || !LoadAndFree() || ::GetModuleHandleW(pszName))
            throw std::runtime_error("a DLL is not loaded and freed");
    }

    bool LoadAndFree() const
    {
        const HMODULE module = ::LoadLibraryW(m_path.c_str());
        return module && ::FreeLibrary(module);
    }

private:
    std::wstring m_path;
};
} // namespace

void VisitLoadRow(const Visit& visit)
{
    constexpr double kTarget = 1.7;
    constexpr int kRounds = 201;
    const Dll library(L"vxdpi_bench_library.dll");
    const Dll empty(L"vxdpi_bench_empty.dll");
    visit({"13", "LoadLibrary and FreeLibrary, against an empty DLL", kTarget, kRounds, 1,
           [&] { library.LoadAndFree(); }, [&] { empty.LoadAndFree(); }});
}
