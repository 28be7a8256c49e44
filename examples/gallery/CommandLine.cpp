#include "CommandLine.h"

#include <shellapi.h>

#include <vector>

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

// @return the option's text field, or null when the option takes none.
CString* FindValueOf(CommandLine& commandLine, const CString& option)
{
    if (option == L"--page")
        return &commandLine.pageName;
    if (option == L"--capture")
        return &commandLine.captureFile;
    return nullptr;
}
} // namespace

CommandLine ReadCommandLine()
{
    CommandLine commandLine;
    const Arguments arguments = SplitCommandLine();
    for (auto it = arguments.begin(); it != arguments.end(); ++it)
    {
        if (CString* const pValue = FindValueOf(commandLine, *it))
        {
            const CString& option = *it;
            if (++it == arguments.end() || it->IsEmpty())
            {
                Refuse(commandLine, L"an argument is missing after", option);
                return commandLine;
            }
            *pValue = *it;
        }
        else if (*it == L"--list")
            commandLine.action = CommandLine::Action::ListPages;
        else if (*it == L"--help")
            commandLine.action = CommandLine::Action::ShowHelp;
        else
        {
            Refuse(commandLine, L"unknown option", *it);
            return commandLine;
        }
    }
    return commandLine;
}

CString UsageText()
{
    return L"Usage: gallery [--page NAME] [--capture FILE.png]\n"
           L"       gallery --list\n"
           L"  --page NAME         open with this page; upper and lower case are the same\n"
           L"  --capture FILE.png  save a picture of the window to a file, and end\n"
           L"  --list              print the names of the pages, one per line, and end\n"
           L"  --help              print this text, and end\n";
}
