#pragma once

#include <windows.h>

#include <vector>

/// Where a module keeps the address of a function that it imports by name.
struct ImportSlot
{
    const char* pszDll;
    const char* pszFunction;
    void** ppFunction;
};

std::vector<ImportSlot> ImportsOf(HMODULE module);

/// Puts other functions in place of imported ones as long as it lives.
class ReplacedImports
{
public:
    ReplacedImports() = default;
    ReplacedImports(const ReplacedImports&) = delete;
    ReplacedImports& operator=(const ReplacedImports&) = delete;
    ~ReplacedImports();

    void Replace(void** ppFunction, void* pStandIn);

private:
    struct Original
    {
        void** ppFunction;
        void* pFunction;
    };

    std::vector<Original> m_originals;
};
