#pragma once

// No body stands inside the class templates: what is inline by that would not be exported with the rest.

#include <windows.h>

#include <cstdarg>
#include <cstddef>

#include <vxmfc/Export.h>
#include <vxmfc/Macros.h>

#include <vxmfc/StringStorage.h>

/// A character string with value semantics: the storage, which copies share until one of them is changed.
///
/// A string is one pointer in size, and the text it points to ends with a null character. Strings of several
/// threads may share storage; one string must not be used by two threads at once.
template<typename BaseType, bool bMFCDLL = true>
class CSimpleStringT
{
public:
    typedef BaseType XCHAR;
    typedef BaseType* PXSTR;
    typedef const BaseType* PCXSTR;

    CSimpleStringT() noexcept;
    CSimpleStringT(const XCHAR* pchSrc, int nLength);
    CSimpleStringT(PCXSTR pszSrc);
    CSimpleStringT(const CSimpleStringT& strSrc);
    ~CSimpleStringT() noexcept;

    CSimpleStringT& operator=(PCXSTR pszSrc);
    CSimpleStringT& operator=(const CSimpleStringT& strSrc);
    CSimpleStringT& operator+=(PCXSTR pszSrc);
    CSimpleStringT& operator+=(const CSimpleStringT& strSrc);
    CSimpleStringT& operator+=(XCHAR ch);

    operator PCXSTR() const noexcept;
    PCXSTR GetString() const noexcept;
    int GetLength() const noexcept;
    bool IsEmpty() const noexcept;
    void Empty() noexcept;
    int GetAllocLength() const noexcept;

    XCHAR GetAt(int iChar) const; // the terminator at GetLength(); CInvalidArgException beyond
    XCHAR operator[](int iChar) const;
    void SetAt(int iChar, XCHAR ch);

    PXSTR GetBuffer();
    PXSTR GetBuffer(int nMinBufferLength);
    PXSTR GetBufferSetLength(int nLength);
    void ReleaseBuffer(int nNewLength = -1); // -1: up to the terminator
    void ReleaseBufferSetLength(int nNewLength);
    void Preallocate(int nLength);
    void FreeExtra();
    void Truncate(int nNewLength);

    void Append(const CSimpleStringT& strSrc);
    void Append(PCXSTR pszSrc);
    void Append(PCXSTR pszSrc, int nLength);
    void AppendChar(XCHAR ch);
    void SetString(PCXSTR pszSrc);
    void SetString(PCXSTR pszSrc, int nLength);

    static void CopyChars(XCHAR* pchDest, const XCHAR* pchSrc, int nChars) noexcept;
    static void CopyCharsOverlapped(XCHAR* pchDest, const XCHAR* pchSrc, int nChars) noexcept;
    static int StringLength(PCXSTR psz) noexcept;

private:
    vxmfc::StringStorage* Storage() const noexcept;
    static PXSTR Text(vxmfc::StringStorage* pStorage) noexcept;
    bool PointsInside(PCXSTR psz) const noexcept;
    void MoveTo(int nCapacity);
    PXSTR PrepareWrite(int nLength);
    void SetLength(int nLength);

    PXSTR m_pszData;
};

/// What a string needs to know of its character type.
template<typename CharType>
class StrTraitMFC_DLL : public vxmfc::CharOperations<CharType>
{
};

/// The operations of a string.
///
/// Find and its relatives answer -1 when there is nothing to be found. Whatever lengthens a string throws
/// CMemoryException when memory is short.
template<typename BaseType, class StringTraits>
class CStringT : public CSimpleStringT<BaseType>
{
    typedef CSimpleStringT<BaseType> Base;

public:
    typedef typename Base::XCHAR XCHAR;
    typedef typename Base::PXSTR PXSTR;
    typedef typename Base::PCXSTR PCXSTR;
    typedef typename StringTraits::OtherChar YCHAR;
    typedef YCHAR* PYSTR;
    typedef const YCHAR* PCYSTR;

    CStringT() noexcept = default;
    CStringT(const CStringT& strSrc) = default;
    CStringT(const Base& strSrc);
    CStringT(PCXSTR pszSrc); // also MAKEINTRESOURCE of a string resource
    CStringT(PCYSTR pszSrc);
    CStringT(const XCHAR* pch, int nLength);
    CStringT(const YCHAR* pch, int nLength);
    CStringT(XCHAR ch, int nLength = 1);

    CStringT& operator=(const CStringT& strSrc) = default;
    CStringT& operator=(PCXSTR pszSrc);
    CStringT& operator=(PCYSTR pszSrc);
    CStringT& operator=(XCHAR ch);
    CStringT& operator+=(const Base& strSrc);
    CStringT& operator+=(PCXSTR pszSrc);
    CStringT& operator+=(PCYSTR pszSrc);
    CStringT& operator+=(XCHAR ch);

    int Compare(PCXSTR psz) const;
    int CompareNoCase(PCXSTR psz) const noexcept;
    int Collate(PCXSTR psz) const noexcept;
    int CollateNoCase(PCXSTR psz) const noexcept;

    int Find(PCXSTR pszSub, int iStart = 0) const noexcept;
    int Find(XCHAR ch, int iStart = 0) const noexcept;
    int FindOneOf(PCXSTR pszCharSet) const noexcept;
    int ReverseFind(XCHAR ch) const noexcept;

    CStringT Left(int nCount) const;
    CStringT Right(int nCount) const;
    CStringT Mid(int iFirst) const;
    CStringT Mid(int iFirst, int nCount) const;
    CStringT SpanIncluding(PCXSTR pszCharSet) const;
    CStringT SpanExcluding(PCXSTR pszCharSet) const;
    CStringT Tokenize(PCXSTR pszTokens, int& iStart) const;

    int Insert(int iIndex, PCXSTR psz);
    int Insert(int iIndex, XCHAR ch);
    int Delete(int iIndex, int nCount = 1);
    int Remove(XCHAR chRemove);
    int Replace(PCXSTR pszOld, PCXSTR pszNew);
    int Replace(XCHAR chOld, XCHAR chNew);
    CStringT& MakeLower();
    CStringT& MakeUpper();
    CStringT& MakeReverse();

    CStringT& Trim();
    CStringT& Trim(XCHAR chTarget);
    CStringT& Trim(PCXSTR pszTargets);
    CStringT& TrimLeft();
    CStringT& TrimLeft(XCHAR chTarget);
    CStringT& TrimLeft(PCXSTR pszTargets);
    CStringT& TrimRight();
    CStringT& TrimRight(XCHAR chTarget);
    CStringT& TrimRight(PCXSTR pszTargets);

    void AFX_CDECL Format(PCXSTR pszFormat, ...);
    void AFX_CDECL Format(UINT nFormatID, ...);
    void FormatV(PCXSTR pszFormat, va_list args);
    void AFX_CDECL AppendFormat(PCXSTR pszFormat, ...);
    void AFX_CDECL AppendFormat(UINT nFormatID, ...);
    void AFX_CDECL FormatMessage(PCXSTR pszFormat, ...);
    void AFX_CDECL FormatMessage(UINT nFormatID, ...);
    void FormatMessageV(PCXSTR pszFormat, va_list* pArgList);

    BOOL LoadString(UINT nID); // from the module that AfxFindResourceHandle names
    BOOL LoadString(HINSTANCE hInstance, UINT nID);
    BOOL LoadString(HINSTANCE hInstance, UINT nID, WORD wLanguageID);

    BSTR AllocSysString() const;

private:
    void AppendFormatV(PCXSTR pszFormat, va_list args);
    void Convert(PCYSTR pszSrc, int nLength);
    void KeepRange(int iFirst, int nCount);
};

// The bodies are compiled once, in the framework.
extern template class VXMFC_API CSimpleStringT<char>;
extern template class VXMFC_API CSimpleStringT<wchar_t>;
extern template class VXMFC_API CStringT<char, StrTraitMFC_DLL<char>>;
extern template class VXMFC_API CStringT<wchar_t, StrTraitMFC_DLL<wchar_t>>;

#include <vxmfc/StringInline.h>

/// Narrow characters, in the thread's code page where they are converted.
typedef CStringT<char, StrTraitMFC_DLL<char>> CStringA;

/// UTF-16.
typedef CStringT<wchar_t, StrTraitMFC_DLL<wchar_t>> CStringW;

typedef CStringT<TCHAR, StrTraitMFC_DLL<TCHAR>> CString;
