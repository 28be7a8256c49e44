#pragma once

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Replaces functions that a module calls, for the length of a scope.
//
//     int asked = 0;
//     ImportSpy<decltype(::GetDpiForWindow)> spy(L"vxdpi.dll", "user32.dll", "GetDpiForWindow",
//                                                [&](HWND) { ++asked; return 144u; });
//
// Only the calls of the named module are replaced; other modules, and the test itself, still reach the
// platform. A compiler may read an import's address once at the start of a function: start a spy before the
// module is entered, and spy on the test program only for calls made in functions of their own. Every problem
// (module not loaded, function not imported) throws, which fails the test. Spies on one function end in
// reverse order of their start; another order is reported as a failure.

// The addresses in a module's import table that hold functionName, in any imported DLL when dllName is null.
// Throws std::runtime_error when there is none.
std::vector<void**> FindImports(HMODULE module, const char* dllName, const char* functionName);

// A loaded module, given by handle or by file name; nullptr is the test program itself.
class SpiedModule
{
public:
    SpiedModule(HMODULE module);
    // Throws std::runtime_error when the module is not loaded.
    SpiedModule(const wchar_t* name);
    SpiedModule(std::nullptr_t);

    operator HMODULE() const;

private:
    HMODULE m_module;
};

// The place of a method in the method table of a COM object.
void** ComMethodSlot(void* object, std::size_t methodIndex);

// A value stored into a set of function pointers; the pointers get their old values back with Restore.
class PointerPatch
{
public:
    PointerPatch(std::vector<void**> slots, void* replacement, std::string name);

    void* Original() const;

    // Returns false, with a test failure reported, when something patched over this one is still in place.
    bool Restore();

private:
    std::vector<void**> m_slots;
    void* m_replacement;
    void* m_original;
    std::string m_name;
};

template<typename Signature>
class FunctionSpy;

// What all spies share: a stand-in function of the right signature that forwards to a handler.
//
// A stand-in has to be a plain function, yet two spies on one signature need to tell their calls apart. So
// every signature owns a few of them, each with its own entry in a table, and a spy borrows one: the compiler
// passes the arguments, whatever their number and types.
template<typename Result, typename... Args>
class FunctionSpy<Result(Args...)>
{
public:
    using Function = Result(WINAPI*)(Args...);
    using Handler = std::function<Result(Args...)>;

    FunctionSpy(const FunctionSpy&) = delete;
    FunctionSpy& operator=(const FunctionSpy&) = delete;

    // The function as it was before this spy, i.e. the platform's or that of an outer spy.
    Function Original() const { return m_standIn.original; }

    int CallCount() const { return m_standIn.callCount; }

protected:
    // An empty handler only counts.
    FunctionSpy(std::vector<void**> slots, const std::string& name, Handler handler)
        : m_index(Borrow(name)), m_standIn(s_standIns[m_index]),
          m_patch(std::move(slots), reinterpret_cast<void*>(kEntries[m_index]), name)
    {
        m_standIn.original = reinterpret_cast<Function>(m_patch.Original());
        m_standIn.handler = std::move(handler);
    }

    ~FunctionSpy()
    {
        const bool unreachable = m_patch.Restore();
        m_standIn.handler = nullptr;
        // A stand-in that can still be reached is not lent again: it passes calls on for the rest of the run.
        if (unreachable)
            m_standIn.borrowed = false;
    }

private:
    static constexpr std::size_t kStandInCount = 16;

    struct StandIn
    {
        std::atomic<bool> borrowed{false};
        std::atomic<int> callCount{0};
        Function original = nullptr;
        Handler handler;

        Result Call(Args... args)
        {
            ++callCount;
            return handler ? handler(args...) : original(args...);
        }
    };

    template<std::size_t Index>
    static Result WINAPI Enter(Args... args)
    {
        return s_standIns[Index].Call(args...);
    }

    template<std::size_t... Indexes>
    static constexpr std::array<Function, kStandInCount> Entries(std::index_sequence<Indexes...>)
    {
        return {&Enter<Indexes>...};
    }

    static std::size_t Borrow(const std::string& name)
    {
        for (std::size_t i = 0; i < kStandInCount; ++i)
        {
            if (s_standIns[i].borrowed.exchange(true))
                continue;

            s_standIns[i].callCount = 0;
            return i;
        }
        throw std::runtime_error("too many spies at once on functions of the signature of " + name);
    }

    static inline std::array<StandIn, kStandInCount> s_standIns;
    static inline const std::array<Function, kStandInCount> kEntries =
        Entries(std::make_index_sequence<kStandInCount>());

    std::size_t m_index;
    StandIn& m_standIn;
    PointerPatch m_patch;
};

// Replaces a function that a module imports.
template<typename Signature>
class ImportSpy : public FunctionSpy<Signature>
{
public:
    using typename FunctionSpy<Signature>::Handler;

    // dllName is the DLL that the module imports from, or null for any. functionName is the exported name
    // ("LoadImageW").
    ImportSpy(const SpiedModule& module, const char* dllName, const char* functionName,
              Handler handler = nullptr)
        : FunctionSpy<Signature>(FindImports(module, dllName, functionName), functionName, std::move(handler))
    {
    }
};

// Replaces a method of a COM class: all objects of the class that share the method table with this one. The
// signature starts with the interface pointer; methodIndex counts from QueryInterface = 0.
template<typename Signature>
class ComMethodSpy : public FunctionSpy<Signature>
{
public:
    using typename FunctionSpy<Signature>::Handler;

    ComMethodSpy(void* object, std::size_t methodIndex, const char* name, Handler handler = nullptr)
        : FunctionSpy<Signature>({ComMethodSlot(object, methodIndex)}, name, std::move(handler))
    {
    }
};

template<typename Signature>
class FailNthCall;

// Makes one call of a function fail and passes all others through. failingCall counts from 1;
// kEveryCall makes them all fail. The failing call does not reach the platform.
template<typename Result, typename... Args>
class FailNthCall<Result(Args...)> : public ImportSpy<Result(Args...)>
{
public:
    static constexpr int kEveryCall = 0;

    FailNthCall(const SpiedModule& module, const char* dllName, const char* functionName, int failingCall,
                Result failure, DWORD lastError = ERROR_SUCCESS)
        : ImportSpy<Result(Args...)>(module, dllName, functionName,
                                     [this, failingCall, failure, lastError](Args... args) -> Result
                                     {
                                         if (failingCall != kEveryCall && failingCall != this->CallCount())
                                             return this->Original()(args...);
                                         ::SetLastError(lastError);
                                         return failure;
                                     })
    {
    }
};
