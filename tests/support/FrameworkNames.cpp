#include "support/FrameworkNames.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>

namespace
{
// Reads names off the front of what is left of an export: each stands behind its length.
class Reader
{
public:
    explicit Reader(const std::string& text) : m_text(text) {}

    bool Skip(const std::string& token)
    {
        if (m_text.compare(m_at, token.size(), token) != 0)
            return false;
        m_at += token.size();
        return true;
    }

    std::string ReadName()
    {
        std::size_t length = 0;
        while (m_at < m_text.size() && std::isdigit(static_cast<unsigned char>(m_text[m_at])))
            length = length * 10 + static_cast<std::size_t>(m_text[m_at++] - '0');
        const std::string name = m_text.substr((std::min)(m_at, m_text.size()), length);
        m_at += name.size();
        return name;
    }

    bool IsAtEnd() const { return m_at >= m_text.size(); }

private:
    const std::string& m_text;
    std::size_t m_at = 0;
};

bool IsBookkeeping(const std::string& name)
{
    static const char* const s_names[] = {"AfxGetApp",
                                          "AfxInitExtensionModule",
                                          "AfxSetModuleState",
                                          "AfxTermExtensionModule",
                                          "AfxTermThread",
                                          "AfxWinInit",
                                          "AfxWinTerm",
                                          "AfxWndProc",
                                          "CGdiObject::GetSafeHandle",
                                          "CWnd::GetMessageMap",
                                          "CWnd::GetSafeHwnd"};
    return std::any_of(std::begin(s_names), std::end(s_names),
                       [&name](const char* other) { return name == other; });
}

bool EndsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string MemberName(Reader& reader)
{
    static_cast<void>(reader.Skip("K"));
    const std::string className = reader.ReadName();
    const bool isOfContext = EndsWith(className, "DC");
    if (reader.Skip("C1E") || reader.Skip("C2E"))
        return isOfContext ? className + "::" + className : std::string();
    if (reader.Skip("D1E") || reader.Skip("D2E"))
        return isOfContext ? className + "::~" + className : std::string();
    const std::string member = reader.ReadName();
    // Static data have no parameters.
    const bool isFunction = !className.empty() && !member.empty() && reader.Skip("E") && !reader.IsAtEnd();
    const bool isRecord =
        member == "GetThisMessageMap" || member == "GetRuntimeClass" || className == "vxmfc";
    return isFunction && !isRecord ? className + "::" + member : std::string();
}
}

std::string FrameworkFunctionName(const std::string& exported)
{
    Reader reader(exported);
    if (!reader.Skip("_Z"))
        return {};
    const std::string name = reader.Skip("N") ? MemberName(reader) : reader.ReadName();
    return IsBookkeeping(name) ? std::string() : name;
}
