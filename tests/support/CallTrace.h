#pragma once

#include <windows.h>

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

// The names of calls, in their order.
using CallNames = std::vector<std::string>;

// While it lives, the calls that some modules make of the platform's functions are written down by name, and
// go on to the platform. One at a time, for one thread.
//
//     const CallTrace trace({::GetModuleHandleW(L"vxdpi.dll")});
//     ...
//     EXPECT_EQ(trace.Calls(), (CallNames{"IsWindow", "GetDpiForWindow"}));
//
// Followed are the imports from the platform's drawing and window libraries, and what is used of its kernel
// for resources and memory; what a run-time library calls for itself is not. Methods of COM objects are seen
// only where a stand-in of the test's writes them down. A spy that makes a call fail is started before the
// trace: a trace covers the spies that are there, and the failing call is written down as well.
//
// With a framework, what the modules call of it is written down too, as "CWnd::GetDlgItem", unless it is
// mere bookkeeping; see FrameworkNames.h. What the framework calls of itself is not, not even through
// a module's tables of virtual functions.
//
// What stands in for an import stays for the rest of the run, and only passes calls on when no trace runs: a
// module that is entered for the first time during a trace keeps addresses of imports, as message maps do.
class CallTrace
{
public:
    // Throws std::runtime_error when a module imports nothing that is followed, and std::logic_error when
    // another trace is running.
    explicit CallTrace(const std::vector<HMODULE>& modules, HMODULE framework = nullptr);
    ~CallTrace();

    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;

    const CallNames& Calls() const;

    // Whether the modules import anything of the framework by name.
    bool FollowsFramework() const;

    // Adds a call that goes by no import to the running trace, if there is one.
    static void Write(const std::string& name);

private:
    struct Import
    {
        void** function;
        void* original;
        std::string name;
        bool isOfFramework;
        void* standIn;
    };

    static const Import& StandInFor(void** function, const std::string& name, bool isOfFramework);
    static void* WriteStandIn(unsigned index, const void* original);
    static void Record(unsigned index, const void* caller);

    static CallTrace* s_current;
    static std::deque<Import> s_imports; // of all traces so far

    void Collect(HMODULE module);
    void Add(const char* dllName, const char* functionName, void** function);
    bool IsInFramework(const void* code) const;
    void Take(const Import& import, const void* caller);

    HMODULE m_framework;
    std::vector<const Import*> m_imports;
    CallNames m_calls;

    // The last call of the framework, and where it returns to.
    const Import* m_last = nullptr;
    const void* m_lastCaller = nullptr;
};
