#pragma once

#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

inline bool Imports(HMODULE module, const char* dllName, const char* functionName)
{
    try
    {
        return !FindImports(module, dllName, functionName).empty();
    }
    catch (const std::runtime_error&)
    {
        return false;
    }
}

template<typename Signature>
class PlatformSpy;

// Replaces a function for the library and for the framework: where the library works with an object of the
// framework, the framework makes the call.
template<typename Result, typename... Args>
class PlatformSpy<Result(Args...)>
{
public:
    using Handler = std::function<Result(Args...)>;

    // An empty handler only counts.
    PlatformSpy(const char* dllName, const char* functionName, const Handler& handler = nullptr)
    {
        for (const HMODULE module : {VxDpiModule(), FrameworkModule()})
        {
            if (Imports(module, dllName, functionName))
                m_spies.push_back(std::make_unique<Spy>(module, dllName, functionName, handler));
        }
        if (m_spies.empty())
            throw std::runtime_error(std::string("nobody imports ") + functionName);
    }

    PlatformSpy(const PlatformSpy&) = delete;
    PlatformSpy& operator=(const PlatformSpy&) = delete;

    Result CallOriginal(Args... args) const { return m_spies.front()->Original()(args...); }

    int CallCount() const
    {
        int calls = 0;
        for (const auto& spy : m_spies)
            calls += spy->CallCount();
        return calls;
    }

private:
    using Spy = ImportSpy<Result(Args...)>;

    std::vector<std::unique_ptr<Spy>> m_spies;
};

template<typename Signature>
class FailPlatformCall;

// Makes one call fail, counted from 1 and without regard to who makes it.
template<typename Result, typename... Args>
class FailPlatformCall<Result(Args...)> : public PlatformSpy<Result(Args...)>
{
public:
    FailPlatformCall(const char* dllName, const char* functionName, int failingCall, Result failure)
        : PlatformSpy<Result(Args...)>(dllName, functionName,
                                       [this, failingCall, failure](Args... args) -> Result
                                       {
                                           if (this->CallCount() == failingCall)
                                               return failure;
                                           return this->CallOriginal(args...);
                                       })
    {
    }
};

template<typename Signature>
class RecordPlatformCalls;

// Writes every call into a log, then passes it on and lets the answer be named.
template<typename Result, typename... Args>
class RecordPlatformCalls<Result(Args...)> : public PlatformSpy<Result(Args...)>
{
public:
    using Namer = std::function<void(Result)>;

    RecordPlatformCalls(CallLog& log, const char* dllName, const char* functionName,
                        const Namer& nameResult = nullptr)
        : PlatformSpy<Result(Args...)>(dllName, functionName,
                                       [this, &log, functionName, nameResult](Args... args) -> Result
                                       {
                                           log.WriteCall(functionName, args...);
                                           const Result result = this->CallOriginal(args...);
                                           if (nameResult)
                                               nameResult(result);
                                           return result;
                                       })
    {
    }
};
