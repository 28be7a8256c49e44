#pragma once

#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <string>

// Writes every call into a log, passes it on, and names what it answers: "found1", "found2", ...
template<typename Signature>
class RecordNamed;

template<typename Result, typename... Args>
class RecordNamed<Result(Args...)> : public ImportSpy<Result(Args...)>
{
public:
    RecordNamed(CallLog& log, HMODULE library, const char* dllName, const char* functionName,
                const std::string& resultName)
        : ImportSpy<Result(Args...)>(library, dllName, functionName,
                                     [this, &log, functionName, resultName](Args... args) -> Result
                                     {
                                         log.WriteCall(functionName, args...);
                                         const Result result = this->Original()(args...);
                                         log.Name(result, resultName + std::to_string(this->CallCount()));
                                         return result;
                                     })
    {
    }
};
