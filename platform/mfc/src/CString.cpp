#include <afxwin.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <cwctype>

#include "ModuleSearch.h"

namespace
{

// The empty text: a storage of length 0 with room for the wider terminator behind it.
struct EmptyText
{
    vxmfc::StringStorage storage;
    wchar_t terminator;
};

EmptyText g_empty = {{vxmfc::kSharedForEver, 0, 0, 0}, L'\0'};

constexpr UINT kStringsPerBlock = 16; // of a string table resource

constexpr DWORD kMessageFlags = FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER;

} // namespace

namespace vxmfc
{

StringStorage* EmptyStringStorage() noexcept
{
    return &g_empty.storage;
}

StringStorage* CreateStringStorage(int nCapacity, std::size_t nCharSize)
{
    const std::size_t nBytes = sizeof(StringStorage) + (static_cast<std::size_t>(nCapacity) + 1) * nCharSize;
    auto* const pStorage = static_cast<StringStorage*>(std::malloc(nBytes));
    if (pStorage == nullptr)
        AfxThrowMemoryException();
    *pStorage = {1, 0, nCapacity, 0};
    std::memset(pStorage + 1, 0, nCharSize);
    return pStorage;
}

void ShareStringStorage(StringStorage* pStorage) noexcept
{
    if (pStorage->owners != kSharedForEver)
        ::InterlockedIncrement(&pStorage->owners);
}

void ReleaseStringStorage(StringStorage* pStorage) noexcept
{
    if (pStorage->owners != kSharedForEver && ::InterlockedDecrement(&pStorage->owners) == 0)
        std::free(pStorage);
}

void ThrowInvalidStringArgument()
{
    AfxThrowInvalidArgException();
}

// A module may have the block of a string without the string itself, so each is looked into.
HINSTANCE FindStringModule(UINT nID)
{
    return FindResourceModule(
        [=](HMODULE hModule)
        {
            const wchar_t* pText = nullptr;
            return FindStringResource(hModule, nID, &pText) >= 0;
        });
}

int FindStringResource(HINSTANCE hInstance, UINT nID, const wchar_t** ppText) noexcept
{
    return FindStringResource(hInstance, nID, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), ppText);
}

int FindStringResource(HINSTANCE hInstance, UINT nID, WORD wLanguageID, const wchar_t** ppText) noexcept
{
    const LPCWSTR pszBlock = MAKEINTRESOURCEW(nID / kStringsPerBlock + 1);
    const HRSRC hResource = ::FindResourceExW(hInstance, RT_STRING, pszBlock, wLanguageID);
    const HGLOBAL hBlock = hResource == nullptr ? nullptr : ::LoadResource(hInstance, hResource);
    const auto* pString = hBlock == nullptr ? nullptr : static_cast<const wchar_t*>(::LockResource(hBlock));
    if (pString == nullptr)
        return -1;
    // Each string of a block is its length followed by its characters.
    for (UINT nSkipped = 0; nSkipped < nID % kStringsPerBlock; ++nSkipped)
        pString += 1 + *pString;
    *ppText = pString + 1;
    return *pString == 0 ? -1 : *pString;
}

BSTR CreateSystemString(const wchar_t* pch, int nLength)
{
    const BSTR bstr = ::SysAllocStringLen(pch, static_cast<UINT>(nLength));
    if (bstr == nullptr)
        AfxThrowMemoryException();
    return bstr;
}

// Narrow characters.

int CharOperations<char>::Compare(const char* psz1, const char* psz2) noexcept
{
    return std::strcmp(psz1, psz2);
}

int CharOperations<char>::CompareNoCase(const char* psz1, const char* psz2) noexcept
{
    return ::_stricmp(psz1, psz2);
}

int CharOperations<char>::Collate(const char* psz1, const char* psz2) noexcept
{
    return std::strcoll(psz1, psz2);
}

int CharOperations<char>::CollateNoCase(const char* psz1, const char* psz2) noexcept
{
    return ::_stricoll(psz1, psz2);
}

const char* CharOperations<char>::FindText(const char* psz, const char* pszSub) noexcept
{
    return std::strstr(psz, pszSub);
}

const char* CharOperations<char>::FindChar(const char* psz, char ch) noexcept
{
    return std::strchr(psz, ch);
}

const char* CharOperations<char>::FindLastChar(const char* psz, char ch) noexcept
{
    return std::strrchr(psz, ch);
}

const char* CharOperations<char>::FindOneOf(const char* psz, const char* pszCharSet) noexcept
{
    return std::strpbrk(psz, pszCharSet);
}

int CharOperations<char>::SpanIncluding(const char* psz, const char* pszCharSet) noexcept
{
    return static_cast<int>(std::strspn(psz, pszCharSet));
}

int CharOperations<char>::SpanExcluding(const char* psz, const char* pszCharSet) noexcept
{
    return static_cast<int>(std::strcspn(psz, pszCharSet));
}

bool CharOperations<char>::IsSpace(char ch) noexcept
{
    return std::isspace(static_cast<unsigned char>(ch)) != 0;
}

void CharOperations<char>::MakeLower(char* psz, int nLength) noexcept
{
    ::CharLowerBuffA(psz, static_cast<DWORD>(nLength));
}

void CharOperations<char>::MakeUpper(char* psz, int nLength) noexcept
{
    ::CharUpperBuffA(psz, static_cast<DWORD>(nLength));
}

int CharOperations<char>::FormattedLength(const char* pszFormat, va_list args) noexcept
{
    return ::_vscprintf(pszFormat, args);
}

void CharOperations<char>::Format(char* pszBuffer, int nLength, const char* pszFormat, va_list args) noexcept
{
    ::_vsnprintf(pszBuffer, static_cast<std::size_t>(nLength), pszFormat, args);
}

char* CharOperations<char>::FormatSystemMessage(const char* pszFormat, va_list* pArgs) noexcept
{
    char* pszMessage = nullptr;
    ::FormatMessageA(kMessageFlags, pszFormat, 0, 0, reinterpret_cast<LPSTR>(&pszMessage), 0, pArgs);
    return pszMessage;
}

int CharOperations<char>::ConvertedLength(const wchar_t* pch, int nLength) noexcept
{
    return ::WideCharToMultiByte(CP_THREAD_ACP, 0, pch, nLength, nullptr, 0, nullptr, nullptr);
}

void CharOperations<char>::Convert(char* pchDest, int nDestLength, const wchar_t* pch, int nLength) noexcept
{
    ::WideCharToMultiByte(CP_THREAD_ACP, 0, pch, nLength, pchDest, nDestLength, nullptr, nullptr);
}

// Wide characters.

int CharOperations<wchar_t>::Compare(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return std::wcscmp(psz1, psz2);
}

int CharOperations<wchar_t>::CompareNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return ::_wcsicmp(psz1, psz2);
}

int CharOperations<wchar_t>::Collate(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return std::wcscoll(psz1, psz2);
}

int CharOperations<wchar_t>::CollateNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept
{
    return ::_wcsicoll(psz1, psz2);
}

const wchar_t* CharOperations<wchar_t>::FindText(const wchar_t* psz, const wchar_t* pszSub) noexcept
{
    return std::wcsstr(psz, pszSub);
}

const wchar_t* CharOperations<wchar_t>::FindChar(const wchar_t* psz, wchar_t ch) noexcept
{
    return std::wcschr(psz, ch);
}

const wchar_t* CharOperations<wchar_t>::FindLastChar(const wchar_t* psz, wchar_t ch) noexcept
{
    return std::wcsrchr(psz, ch);
}

const wchar_t* CharOperations<wchar_t>::FindOneOf(const wchar_t* psz, const wchar_t* pszCharSet) noexcept
{
    return std::wcspbrk(psz, pszCharSet);
}

int CharOperations<wchar_t>::SpanIncluding(const wchar_t* psz, const wchar_t* pszCharSet) noexcept
{
    return static_cast<int>(std::wcsspn(psz, pszCharSet));
}

int CharOperations<wchar_t>::SpanExcluding(const wchar_t* psz, const wchar_t* pszCharSet) noexcept
{
    return static_cast<int>(std::wcscspn(psz, pszCharSet));
}

bool CharOperations<wchar_t>::IsSpace(wchar_t ch) noexcept
{
    return std::iswspace(ch) != 0;
}

void CharOperations<wchar_t>::MakeLower(wchar_t* psz, int nLength) noexcept
{
    ::CharLowerBuffW(psz, static_cast<DWORD>(nLength));
}

void CharOperations<wchar_t>::MakeUpper(wchar_t* psz, int nLength) noexcept
{
    ::CharUpperBuffW(psz, static_cast<DWORD>(nLength));
}

int CharOperations<wchar_t>::FormattedLength(const wchar_t* pszFormat, va_list args) noexcept
{
    return ::_vscwprintf(pszFormat, args);
}

void CharOperations<wchar_t>::Format(wchar_t* pszBuffer, int nLength, const wchar_t* pszFormat,
                                     va_list args) noexcept
{
    ::_vsnwprintf(pszBuffer, static_cast<std::size_t>(nLength), pszFormat, args);
}

wchar_t* CharOperations<wchar_t>::FormatSystemMessage(const wchar_t* pszFormat, va_list* pArgs) noexcept
{
    wchar_t* pszMessage = nullptr;
    ::FormatMessageW(kMessageFlags, pszFormat, 0, 0, reinterpret_cast<LPWSTR>(&pszMessage), 0, pArgs);
    return pszMessage;
}

int CharOperations<wchar_t>::ConvertedLength(const char* pch, int nLength) noexcept
{
    return ::MultiByteToWideChar(CP_THREAD_ACP, 0, pch, nLength, nullptr, 0);
}

void CharOperations<wchar_t>::Convert(wchar_t* pchDest, int nDestLength, const char* pch,
                                      int nLength) noexcept
{
    ::MultiByteToWideChar(CP_THREAD_ACP, 0, pch, nLength, pchDest, nDestLength);
}

} // namespace vxmfc

template class CSimpleStringT<char>;
template class CSimpleStringT<wchar_t>;
template class CStringT<char, StrTraitMFC_DLL<char>>;
template class CStringT<wchar_t, StrTraitMFC_DLL<wchar_t>>;
