#include "Console.h"

#include <vector>

namespace
{
// @return a standard stream that can be written to, or null.
HANDLE FindStream(DWORD nStdHandle)
{
    HANDLE hStream = ::GetStdHandle(nStdHandle);
    // A program with windows has no console of its own, but may have been started from one.
    if (hStream == nullptr && ::AttachConsole(ATTACH_PARENT_PROCESS))
        hStream = ::GetStdHandle(nStdHandle);
    return hStream == INVALID_HANDLE_VALUE ? nullptr : hStream;
}

std::vector<char> ToUtf8(const CString& text)
{
    const int nLength = text.GetLength();
    const int nBytes = ::WideCharToMultiByte(CP_UTF8, 0, text, nLength, nullptr, 0, nullptr, nullptr);
    std::vector<char> bytes(static_cast<size_t>(nBytes));
    ::WideCharToMultiByte(CP_UTF8, 0, text, nLength, bytes.data(), nBytes, nullptr, nullptr);
    return bytes;
}

bool WriteToStream(DWORD nStdHandle, const CString& text)
{
    const HANDLE hStream = FindStream(nStdHandle);
    if (hStream == nullptr)
        return false;

    // A console takes wide characters; a file or a pipe gets UTF-8.
    DWORD nWritten = 0;
    if (::WriteConsoleW(hStream, text.GetString(), static_cast<DWORD>(text.GetLength()), &nWritten, nullptr))
        return true;
    const std::vector<char> bytes = ToUtf8(text);
    return ::WriteFile(hStream, bytes.data(), static_cast<DWORD>(bytes.size()), &nWritten, nullptr) != FALSE;
}
} // namespace

void PrintText(const CString& text)
{
    if (!WriteToStream(STD_OUTPUT_HANDLE, text))
        ::AfxMessageBox(text, MB_OK | MB_ICONINFORMATION);
}

void ReportError(const CString& message)
{
    if (!WriteToStream(STD_ERROR_HANDLE, L"gallery: " + message + L"\n"))
        ::AfxMessageBox(message, MB_OK | MB_ICONEXCLAMATION);
}
