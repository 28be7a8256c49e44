#pragma once

#include "support/ImportSpy.h"

#include <map>
#include <string>
#include <type_traits>
#include <vector>

// Calls written down in their order, so that a test can compare a whole sequence with its arguments.
//
//     CallLog log;
//     log.Name(screenDc, "screen");
//     RecordCalls<decltype(::SetStretchBltMode)> mode(log, L"vxdpi.dll", "gdi32.dll", "SetStretchBltMode");
//     RecordCalls<decltype(::StretchBlt)> stretch(log, L"vxdpi.dll", "gdi32.dll", "StretchBlt");
//     ...
//     EXPECT_EQ(log.Lines(), (CallLog::LineList{"SetStretchBltMode(screen, 4)", "StretchBlt(...)"}));
//
// Numbers are written in decimal (floating point as %g), constant strings quoted, integer resource names as
// "@101", constant rectangles, points and sizes as "{1, 2, 3, 4}", identifiers of classes and interfaces as
// hexadecimal. Handles and other pointers have the name that the test gave them; the others are named "#1",
// "#2", ... when they first appear, so the lines tell which handles are equal without depending on their
// values. Null is "null". For one thread.
class CallLog
{
public:
    using LineList = std::vector<std::string>;

    void Name(const void* handle, const std::string& name);

    void Write(const std::string& line);

    template<typename... Args>
    void WriteCall(const std::string& function, const Args&... args)
    {
        std::string list;
        ((list += (list.empty() ? "" : ", ") + Format(args)), ...);
        Write(function + "(" + list + ")");
    }

    const LineList& Lines() const;

    void Clear();

private:
    template<typename T>
    std::string Format(const T& value)
    {
        if constexpr (std::is_floating_point_v<T>)
            return FormatFloat(static_cast<double>(value));
        else if constexpr (std::is_enum_v<T>)
            return std::to_string(static_cast<long long>(value));
        else if constexpr (std::is_integral_v<T>)
            return std::to_string(value);
        else if constexpr (std::is_pointer_v<T> && std::is_function_v<std::remove_pointer_t<T>>)
            return FormatPointer(reinterpret_cast<const void*>(value));
        else
            return FormatOther(value);
    }

    std::string FormatFloat(double value);
    std::string FormatPointer(const void* pointer);

    std::string FormatOther(std::nullptr_t);
    std::string FormatOther(const void* pointer);
    std::string FormatOther(const wchar_t* text);
    std::string FormatOther(const char* text);
    std::string FormatOther(const RECT* rect);
    std::string FormatOther(const POINT* point);
    std::string FormatOther(const SIZE* size);
    std::string FormatOther(const POINT& point);
    std::string FormatOther(const BLENDFUNCTION& blend);
    std::string FormatOther(const GUID& id);
    // Results that the call is still to write are only named: their content is not there yet.
    std::string FormatOther(wchar_t* buffer);
    std::string FormatOther(char* buffer);
    std::string FormatOther(RECT* rect);
    std::string FormatOther(POINT* point);
    std::string FormatOther(SIZE* size);

    LineList m_lines;
    std::map<const void*, std::string> m_names;
    int m_unnamed = 0;
};

template<typename Signature>
class RecordCalls;

// Writes every call of an imported function with its arguments into a log, then passes it on.
template<typename Result, typename... Args>
class RecordCalls<Result(Args...)> : public ImportSpy<Result(Args...)>
{
public:
    RecordCalls(CallLog& log, const SpiedModule& module, const char* dllName, const char* functionName)
        : ImportSpy<Result(Args...)>(module, dllName, functionName,
                                     [this, &log, name = std::string(functionName)](Args... args) -> Result
                                     {
                                         log.WriteCall(name, args...);
                                         return this->Original()(args...);
                                     })
    {
    }
};
