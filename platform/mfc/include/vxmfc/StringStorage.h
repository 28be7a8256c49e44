#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstdarg>
#include <cstddef>

#include <vxmfc/Export.h>

namespace vxmfc
{

/// What stands in front of a string's characters.
struct StringStorage
{
    volatile LONG owners; ///< strings that share the storage; kSharedForEver of the empty text
    int length;           ///< characters before the terminator
    int capacity;         ///< characters for which there is room before the terminator
    int reserved;         ///< keeps the characters aligned
};

constexpr LONG kSharedForEver = -1;

/// The empty text of every string that has none; it takes no memory and never ends.
VXMFC_API StringStorage* EmptyStringStorage() noexcept;

/// @return storage of one owner and length 0, with its terminator set; CMemoryException when memory is short.
VXMFC_API StringStorage* CreateStringStorage(int nCapacity, std::size_t nCharSize);

VXMFC_API void ShareStringStorage(StringStorage* pStorage) noexcept;
VXMFC_API void ReleaseStringStorage(StringStorage* pStorage) noexcept; // frees it after the last owner

/// Throws CInvalidArgException.
[[noreturn]] VXMFC_API void ThrowInvalidStringArgument();

/// The string resource nID of a module, which is not terminated.
/// @return the length, or -1 when the module has no such string.
VXMFC_API int FindStringResource(HINSTANCE hInstance, UINT nID, const wchar_t** ppText) noexcept;
VXMFC_API int FindStringResource(HINSTANCE hInstance, UINT nID, WORD wLanguageID,
                                 const wchar_t** ppText) noexcept;

/// A system string of the caller's; CMemoryException when memory is short.
VXMFC_API BSTR CreateSystemString(const wchar_t* pch, int nLength);

/// The module that has a string resource, in the order of AfxFindResourceHandle.
VXMFC_API HINSTANCE FindStringModule(UINT nID);

/// The operations on characters that depend on their type; lengths count characters.
template<typename CharType>
struct CharOperations;

template<>
struct VXMFC_API CharOperations<char>
{
    typedef wchar_t OtherChar;

    static int Compare(const char* psz1, const char* psz2) noexcept;
    static int CompareNoCase(const char* psz1, const char* psz2) noexcept;
    static int Collate(const char* psz1, const char* psz2) noexcept;
    static int CollateNoCase(const char* psz1, const char* psz2) noexcept;
    static const char* FindText(const char* psz, const char* pszSub) noexcept;
    static const char* FindChar(const char* psz, char ch) noexcept;
    static const char* FindLastChar(const char* psz, char ch) noexcept;
    static const char* FindOneOf(const char* psz, const char* pszCharSet) noexcept;
    static int SpanIncluding(const char* psz, const char* pszCharSet) noexcept;
    static int SpanExcluding(const char* psz, const char* pszCharSet) noexcept;
    static bool IsSpace(char ch) noexcept;
    static void MakeLower(char* psz, int nLength) noexcept;
    static void MakeUpper(char* psz, int nLength) noexcept;
    static int FormattedLength(const char* pszFormat, va_list args) noexcept; // -1: the format is wrong
    static void Format(char* pszBuffer, int nLength, const char* pszFormat, va_list args) noexcept;
    static char* FormatSystemMessage(const char* pszFormat, va_list* pArgs) noexcept; // ends with LocalFree
    static int ConvertedLength(const wchar_t* pch, int nLength) noexcept;
    static void Convert(char* pchDest, int nDestLength, const wchar_t* pch, int nLength) noexcept;
};

template<>
struct VXMFC_API CharOperations<wchar_t>
{
    typedef char OtherChar;

    static int Compare(const wchar_t* psz1, const wchar_t* psz2) noexcept;
    static int CompareNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept;
    static int Collate(const wchar_t* psz1, const wchar_t* psz2) noexcept;
    static int CollateNoCase(const wchar_t* psz1, const wchar_t* psz2) noexcept;
    static const wchar_t* FindText(const wchar_t* psz, const wchar_t* pszSub) noexcept;
    static const wchar_t* FindChar(const wchar_t* psz, wchar_t ch) noexcept;
    static const wchar_t* FindLastChar(const wchar_t* psz, wchar_t ch) noexcept;
    static const wchar_t* FindOneOf(const wchar_t* psz, const wchar_t* pszCharSet) noexcept;
    static int SpanIncluding(const wchar_t* psz, const wchar_t* pszCharSet) noexcept;
    static int SpanExcluding(const wchar_t* psz, const wchar_t* pszCharSet) noexcept;
    static bool IsSpace(wchar_t ch) noexcept;
    static void MakeLower(wchar_t* psz, int nLength) noexcept;
    static void MakeUpper(wchar_t* psz, int nLength) noexcept;
    static int FormattedLength(const wchar_t* pszFormat, va_list args) noexcept; // -1: the format is wrong
    static void Format(wchar_t* pszBuffer, int nLength, const wchar_t* pszFormat, va_list args) noexcept;
    static wchar_t* FormatSystemMessage(const wchar_t* pszFormat,
                                        va_list* pArgs) noexcept; // ends with LocalFree
    static int ConvertedLength(const char* pch, int nLength) noexcept;
    static void Convert(wchar_t* pchDest, int nDestLength, const char* pch, int nLength) noexcept;
};

} // namespace vxmfc
