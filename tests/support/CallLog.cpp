#include "support/CallLog.h"

#include <cstdio>

namespace
{
std::string Braces(std::initializer_list<long> numbers)
{
    std::string list;
    for (const long number : numbers)
        list += (list.empty() ? "" : ", ") + std::to_string(number);
    return "{" + list + "}";
}

std::string ResourceNumber(const void* name)
{
    return "@" + std::to_string(reinterpret_cast<ULONG_PTR>(name));
}
}

void CallLog::Name(const void* handle, const std::string& name)
{
    m_names[handle] = name;
}

void CallLog::Write(const std::string& line)
{
    m_lines.push_back(line);
}

const CallLog::LineList& CallLog::Lines() const
{
    return m_lines;
}

void CallLog::Clear()
{
    m_lines.clear();
}

std::string CallLog::FormatFloat(double value)
{
    char text[32] = {};
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

std::string CallLog::FormatPointer(const void* pointer)
{
    if (pointer == nullptr)
        return "null";

    const auto [entry, isNew] = m_names.try_emplace(pointer);
    if (isNew)
        entry->second = "#" + std::to_string(++m_unnamed);
    return entry->second;
}

std::string CallLog::FormatOther(std::nullptr_t)
{
    return FormatPointer(nullptr);
}

std::string CallLog::FormatOther(const void* pointer)
{
    return FormatPointer(pointer);
}

std::string CallLog::FormatOther(const wchar_t* text)
{
    if (text == nullptr)
        return "null";
    if (IS_INTRESOURCE(text))
        return ResourceNumber(text);

    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), size, nullptr, nullptr);
    narrow.pop_back();
    return "\"" + narrow + "\"";
}

std::string CallLog::FormatOther(const char* text)
{
    if (text == nullptr)
        return "null";
    return IS_INTRESOURCE(text) ? ResourceNumber(text) : "\"" + std::string(text) + "\"";
}

std::string CallLog::FormatOther(const RECT* rect)
{
    return rect == nullptr ? "null" : Braces({rect->left, rect->top, rect->right, rect->bottom});
}

std::string CallLog::FormatOther(const POINT* point)
{
    return point == nullptr ? "null" : FormatOther(*point);
}

std::string CallLog::FormatOther(const SIZE* size)
{
    return size == nullptr ? "null" : Braces({size->cx, size->cy});
}

std::string CallLog::FormatOther(const POINT& point)
{
    return Braces({point.x, point.y});
}

std::string CallLog::FormatOther(const BLENDFUNCTION& blend)
{
    return Braces({blend.BlendOp, blend.BlendFlags, blend.SourceConstantAlpha, blend.AlphaFormat});
}

std::string CallLog::FormatOther(const GUID& id)
{
    char text[40] = {};
    std::snprintf(text, sizeof text, "%08lx-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x", id.Data1, id.Data2,
                  id.Data3, id.Data4[0], id.Data4[1], id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5],
                  id.Data4[6], id.Data4[7]);
    return text;
}

std::string CallLog::FormatOther(wchar_t* buffer)
{
    // Integer resource names are of this type, too.
    return buffer != nullptr && IS_INTRESOURCE(buffer) ? ResourceNumber(buffer) : FormatPointer(buffer);
}

std::string CallLog::FormatOther(char* buffer)
{
    // Integer resource names are of this type, too.
    return buffer != nullptr && IS_INTRESOURCE(buffer) ? ResourceNumber(buffer) : FormatPointer(buffer);
}

std::string CallLog::FormatOther(RECT* rect)
{
    return FormatPointer(rect);
}

std::string CallLog::FormatOther(POINT* point)
{
    return FormatPointer(point);
}

std::string CallLog::FormatOther(SIZE* size)
{
    return FormatPointer(size);
}
