#pragma once

#include "foundation/LibraryModule.h"

#include <stdexcept>
#include <string>

// A second library: a copy of the file, loaded under its own name, with its own data.
class LibraryCopy
{
public:
    LibraryCopy()
    {
        wchar_t original[MAX_PATH] = {};
        wchar_t folder[MAX_PATH] = {};
        ::GetModuleFileNameW(VxDpiModule(), original, MAX_PATH);
        ::GetTempPathW(MAX_PATH, folder);
        m_path = std::wstring(folder) + L"vxdpi_copy_" + std::to_wstring(::GetCurrentProcessId()) + L".dll";
        if (::CopyFileW(original, m_path.c_str(), FALSE))
            m_module = ::LoadLibraryW(m_path.c_str());
        if (m_module == nullptr)
            throw std::runtime_error("no second library");
    }

    ~LibraryCopy()
    {
        Unload();
        ::DeleteFileW(m_path.c_str());
    }

    LibraryCopy(const LibraryCopy&) = delete;
    LibraryCopy& operator=(const LibraryCopy&) = delete;

    HMODULE Module() const { return m_module; }

    void Unload()
    {
        if (m_module != nullptr)
            ::FreeLibrary(m_module);
        m_module = nullptr;
    }

    // The copy of an exported function of the library: it stands at the same place in its module.
    template<typename Function>
    Function* CopyOf(Function* function) const
    {
        const auto offset =
            reinterpret_cast<const char*>(function) - reinterpret_cast<const char*>(VxDpiModule());
        return reinterpret_cast<Function*>(reinterpret_cast<char*>(m_module) + offset);
    }

private:
    std::wstring m_path;
    HMODULE m_module = nullptr;
};
