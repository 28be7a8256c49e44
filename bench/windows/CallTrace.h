#pragma once

#include "PairedRounds.h"

#include <windows.h>

#include <string>
#include <vector>

/// While it lives, the calls that some modules make of the platform's functions are written down by name. One
/// at a time, for one thread. Calls of COM methods and of the framework's are not seen.
class CallTrace
{
public:
    explicit CallTrace(const std::vector<HMODULE>& modules);
    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;
    ~CallTrace();

    const std::vector<std::string>& Calls() const;

private:
    void Follow(HMODULE module);
    void Replace(void** ppFunction, const char* pszName);

    struct Import
    {
        void** ppFunction;
        void* pOriginal;
        std::string name;
    };

    static void Record(unsigned index);

    static CallTrace* s_pCurrent;

    unsigned char* m_pCode; // a page of stand-ins, one for each import
    std::vector<Import> m_imports;
    std::vector<std::string> m_calls;
};

/// Writes whether both ways of a pair make the same calls in the same order, and the first one that differs.
bool ReportCalls(const Pair& pair);
