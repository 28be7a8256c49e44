#pragma once

#include <afxwin.h>

#include <vector>

/// The resource modules of the current module's chain of libraries, in the order in which they are searched.
std::vector<HMODULE> ChainedResourceModules();

/// Finds the module that has something: the current resource module, else the first of the chain that has it,
/// else the current resource module again.
template<class Predicate>
HINSTANCE FindResourceModule(Predicate has)
{
    const HINSTANCE hCurrent = AfxGetResourceHandle();
    if (has(hCurrent))
        return hCurrent;
    for (const HMODULE hModule : ChainedResourceModules())
    {
        if (has(hModule))
            return hModule;
    }
    return hCurrent;
}
