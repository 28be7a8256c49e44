#include "CommandLine.h"

#include <shellapi.h>

#include <cwchar>

namespace
{
using Arguments = std::vector<CString>;

// @return the arguments after the program's name, with quotes resolved.
Arguments SplitCommandLine()
{
    int nCount = 0;
    LPWSTR* const ppArguments = ::CommandLineToArgvW(::GetCommandLineW(), &nCount);
    if (ppArguments == nullptr)
        return {};

    const Arguments arguments(ppArguments + (nCount > 0 ? 1 : 0), ppArguments + nCount);
    ::LocalFree(ppArguments);
    return arguments;
}

void Refuse(CommandLine& commandLine, LPCTSTR pszReason, const CString& argument)
{
    commandLine.action = CommandLine::Action::Refuse;
    commandLine.error.Format(L"%s: %s", pszReason, argument.GetString());
}

// @return a length above 0, or 0 when the text is none.
int ReadLength(const CString& text)
{
    constexpr int kMostDigits = 4;
    const bool bDigits = !text.IsEmpty() && text.SpanIncluding(L"0123456789") == text;
    return bDigits && text.GetLength() <= kMostDigits ? static_cast<int>(std::wcstol(text, nullptr, 10)) : 0;
}

void SetPage(CommandLine& commandLine, const CString& name)
{
    commandLine.pageName = name;
}

void AddPicture(CommandLine& commandLine, const CString& file)
{
    commandLine.pictures.push_back({commandLine.pageName, file});
}

void SetSize(CommandLine& commandLine, const CString& text)
{
    const int nCross = text.Find(L'x');
    const CSize size(ReadLength(text.Left(nCross)), ReadLength(text.Mid(nCross + 1)));
    if (nCross < 0 || size.cx == 0 || size.cy == 0)
        Refuse(commandLine, L"not a size, such as 1000x760", text);
    commandLine.size96 = size;
}

using ValueSetter = void (*)(CommandLine& commandLine, const CString& value);

// @return what takes the option's value, or null when the option has none.
ValueSetter FindValueSetter(const CString& option)
{
    if (option == L"--page")
        return &SetPage;
    if (option == L"--capture")
        return &AddPicture;
    if (option == L"--size")
        return &SetSize;
    return nullptr;
}

void ReadPlainOption(CommandLine& commandLine, const CString& option)
{
    if (option == L"--list")
        commandLine.action = CommandLine::Action::ListPages;
    else if (option == L"--help")
        commandLine.action = CommandLine::Action::ShowHelp;
    else
        Refuse(commandLine, L"unknown option", option);
}
} // namespace

CommandLine ReadCommandLine()
{
    CommandLine commandLine;
    const Arguments arguments = SplitCommandLine();
    for (auto it = arguments.begin(); it != arguments.end(); ++it)
    {
        const CString& option = *it;
        const ValueSetter pfnSetValue = FindValueSetter(option);
        if (pfnSetValue == nullptr)
            ReadPlainOption(commandLine, option);
        else if (++it == arguments.end() || it->IsEmpty())
            Refuse(commandLine, L"an argument is missing after", option);
        else
            pfnSetValue(commandLine, *it);
        if (commandLine.action == CommandLine::Action::Refuse)
            return commandLine;
    }
    // A page named after the last picture would never be seen.
    if (!commandLine.pictures.empty() && commandLine.pictures.back().pageName != commandLine.pageName)
        Refuse(commandLine, L"--capture is missing after --page", commandLine.pageName);
    return commandLine;
}

CString UsageText()
{
    return L"Usage: gallery [--size WxH] [--page NAME]\n"
           L"       gallery [--size WxH] [--page NAME] --capture FILE.png [--page NAME --capture "
           L"FILE.png]...\n"
           L"       gallery --list\n"
           L"  --page NAME         open with this page or scene; upper and lower case are the same\n"
           L"  --size WxH          size of the window in pixels at 96 DPI; at most that of the work area\n"
           L"  --capture FILE.png  save a picture of the window with the page named before, and end\n"
           L"  --list              print the names of the pages and their scenes, one per line, and end\n"
           L"  --help              print this text, and end\n";
}
