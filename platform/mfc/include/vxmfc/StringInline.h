#pragma once

// Bodies of cstringt.h, which includes this file.

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>

// CSimpleStringT

template<typename BaseType, bool bMFCDLL>
vxmfc::StringStorage* CSimpleStringT<BaseType, bMFCDLL>::Storage() const noexcept
{
    return reinterpret_cast<vxmfc::StringStorage*>(m_pszData) - 1;
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::operator PCXSTR() const noexcept
{
    return m_pszData;
}

template<typename BaseType, bool bMFCDLL>
const BaseType* CSimpleStringT<BaseType, bMFCDLL>::GetString() const noexcept
{
    return m_pszData;
}

template<typename BaseType, bool bMFCDLL>
int CSimpleStringT<BaseType, bMFCDLL>::GetLength() const noexcept
{
    return Storage()->length;
}

template<typename BaseType, bool bMFCDLL>
bool CSimpleStringT<BaseType, bMFCDLL>::IsEmpty() const noexcept
{
    return GetLength() == 0;
}

template<typename BaseType, bool bMFCDLL>
int CSimpleStringT<BaseType, bMFCDLL>::GetAllocLength() const noexcept
{
    return Storage()->capacity;
}

template<typename BaseType, bool bMFCDLL>
BaseType* CSimpleStringT<BaseType, bMFCDLL>::Text(vxmfc::StringStorage* pStorage) noexcept
{
    return reinterpret_cast<PXSTR>(pStorage + 1);
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::CSimpleStringT() noexcept : m_pszData(Text(vxmfc::EmptyStringStorage()))
{
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::CSimpleStringT(const XCHAR* pchSrc, int nLength) : CSimpleStringT()
{
    SetString(pchSrc, nLength);
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::CSimpleStringT(PCXSTR pszSrc) : CSimpleStringT()
{
    SetString(pszSrc);
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::CSimpleStringT(const CSimpleStringT& strSrc) : m_pszData(strSrc.m_pszData)
{
    vxmfc::ShareStringStorage(Storage());
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>::~CSimpleStringT() noexcept
{
    vxmfc::ReleaseStringStorage(Storage());
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>& CSimpleStringT<BaseType, bMFCDLL>::operator=(PCXSTR pszSrc)
{
    SetString(pszSrc);
    return *this;
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>& CSimpleStringT<BaseType, bMFCDLL>::operator=(const CSimpleStringT& strSrc)
{
    // Shared before released: the other string may be this one.
    vxmfc::ShareStringStorage(strSrc.Storage());
    vxmfc::ReleaseStringStorage(Storage());
    m_pszData = strSrc.m_pszData;
    return *this;
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>& CSimpleStringT<BaseType, bMFCDLL>::operator+=(PCXSTR pszSrc)
{
    Append(pszSrc);
    return *this;
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>& CSimpleStringT<BaseType, bMFCDLL>::operator+=(const CSimpleStringT& strSrc)
{
    Append(strSrc);
    return *this;
}

template<typename BaseType, bool bMFCDLL>
CSimpleStringT<BaseType, bMFCDLL>& CSimpleStringT<BaseType, bMFCDLL>::operator+=(XCHAR ch)
{
    AppendChar(ch);
    return *this;
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Empty() noexcept
{
    vxmfc::ReleaseStringStorage(Storage());
    m_pszData = Text(vxmfc::EmptyStringStorage());
}

template<typename BaseType, bool bMFCDLL>
BaseType CSimpleStringT<BaseType, bMFCDLL>::GetAt(int iChar) const
{
    if (iChar < 0 || iChar > GetLength())
        vxmfc::ThrowInvalidStringArgument();
    return m_pszData[iChar];
}

template<typename BaseType, bool bMFCDLL>
BaseType CSimpleStringT<BaseType, bMFCDLL>::operator[](int iChar) const
{
    return GetAt(iChar);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::SetAt(int iChar, XCHAR ch)
{
    if (iChar < 0 || iChar >= GetLength())
        vxmfc::ThrowInvalidStringArgument();
    PrepareWrite(GetLength())[iChar] = ch;
}

template<typename BaseType, bool bMFCDLL>
BaseType* CSimpleStringT<BaseType, bMFCDLL>::GetBuffer()
{
    return PrepareWrite(GetLength());
}

template<typename BaseType, bool bMFCDLL>
BaseType* CSimpleStringT<BaseType, bMFCDLL>::GetBuffer(int nMinBufferLength)
{
    return PrepareWrite(std::max(nMinBufferLength, GetLength()));
}

template<typename BaseType, bool bMFCDLL>
BaseType* CSimpleStringT<BaseType, bMFCDLL>::GetBufferSetLength(int nLength)
{
    PrepareWrite(nLength);
    SetLength(nLength);
    return m_pszData;
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::ReleaseBuffer(int nNewLength)
{
    if (nNewLength >= 0)
        return SetLength(nNewLength);
    const PCXSTR pszEnd = std::find(m_pszData, m_pszData + GetAllocLength(), XCHAR());
    SetLength(static_cast<int>(pszEnd - m_pszData));
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::ReleaseBufferSetLength(int nNewLength)
{
    SetLength(nNewLength);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Preallocate(int nLength)
{
    PrepareWrite(std::max(nLength, GetLength()));
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::FreeExtra()
{
    if (GetLength() == 0)
        Empty();
    else if (GetAllocLength() != GetLength())
        MoveTo(GetLength());
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Truncate(int nNewLength)
{
    if (nNewLength < GetLength())
        SetLength(nNewLength);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Append(const CSimpleStringT& strSrc)
{
    Append(strSrc.m_pszData, strSrc.GetLength());
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Append(PCXSTR pszSrc)
{
    Append(pszSrc, StringLength(pszSrc));
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::Append(PCXSTR pszSrc, int nLength)
{
    const int nOldLength = GetLength();
    if (nLength < 0 || nLength > INT_MAX - nOldLength)
        vxmfc::ThrowInvalidStringArgument();
    const bool bOwnText = PointsInside(pszSrc);
    const std::ptrdiff_t nOffset = bOwnText ? pszSrc - m_pszData : 0;
    const PXSTR pszText = PrepareWrite(nOldLength + nLength);
    CopyCharsOverlapped(pszText + nOldLength, bOwnText ? pszText + nOffset : pszSrc, nLength);
    SetLength(nOldLength + nLength);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::AppendChar(XCHAR ch)
{
    Append(&ch, 1);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::SetString(PCXSTR pszSrc)
{
    SetString(pszSrc, StringLength(pszSrc));
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::SetString(PCXSTR pszSrc, int nLength)
{
    if (nLength == 0)
        return Empty();
    if (nLength < 0 || pszSrc == nullptr)
        vxmfc::ThrowInvalidStringArgument();
    const bool bOwnText = PointsInside(pszSrc);
    const std::ptrdiff_t nOffset = bOwnText ? pszSrc - m_pszData : 0;
    const PXSTR pszText = PrepareWrite(nLength);
    CopyCharsOverlapped(pszText, bOwnText ? pszText + nOffset : pszSrc, nLength);
    SetLength(nLength);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::CopyChars(XCHAR* pchDest, const XCHAR* pchSrc, int nChars) noexcept
{
    if (nChars > 0)
        std::memcpy(pchDest, pchSrc, static_cast<std::size_t>(nChars) * sizeof(XCHAR));
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::CopyCharsOverlapped(XCHAR* pchDest, const XCHAR* pchSrc,
                                                            int nChars) noexcept
{
    if (nChars > 0)
        std::memmove(pchDest, pchSrc, static_cast<std::size_t>(nChars) * sizeof(XCHAR));
}

template<typename BaseType, bool bMFCDLL>
int CSimpleStringT<BaseType, bMFCDLL>::StringLength(PCXSTR psz) noexcept
{
    if (psz == nullptr)
        return 0;
    PCXSTR pszEnd = psz;
    while (*pszEnd != XCHAR())
        ++pszEnd;
    return static_cast<int>(pszEnd - psz);
}

template<typename BaseType, bool bMFCDLL>
bool CSimpleStringT<BaseType, bMFCDLL>::PointsInside(PCXSTR psz) const noexcept
{
    return !std::less<PCXSTR>()(psz, m_pszData) && !std::less<PCXSTR>()(m_pszData + GetLength(), psz);
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::MoveTo(int nCapacity)
{
    vxmfc::StringStorage* const pNew = vxmfc::CreateStringStorage(nCapacity, sizeof(XCHAR));
    pNew->length = std::min(GetLength(), nCapacity);
    CopyChars(Text(pNew), m_pszData, pNew->length);
    Text(pNew)[pNew->length] = XCHAR();
    vxmfc::ReleaseStringStorage(Storage());
    m_pszData = Text(pNew);
}

// Makes the storage this string's alone, with room for nLength characters; keeps the text.
template<typename BaseType, bool bMFCDLL>
BaseType* CSimpleStringT<BaseType, bMFCDLL>::PrepareWrite(int nLength)
{
    if (nLength < 0)
        vxmfc::ThrowInvalidStringArgument();
    const int nCapacity = GetAllocLength();
    if (nLength > nCapacity)
    {
        // Half as much again, so that appending one by one takes linear time.
        const int nRoomy = nCapacity < INT_MAX / 2 ? nCapacity + nCapacity / 2 : nCapacity;
        MoveTo(std::max(nLength, nRoomy));
    }
    else if (Storage()->owners != 1)
    {
        MoveTo(std::max(nLength, GetLength()));
    }
    return m_pszData;
}

template<typename BaseType, bool bMFCDLL>
void CSimpleStringT<BaseType, bMFCDLL>::SetLength(int nLength)
{
    if (nLength < 0 || nLength > GetAllocLength())
        vxmfc::ThrowInvalidStringArgument();
    if (nLength == GetLength() && Storage()->owners != 1)
        return;
    PrepareWrite(nLength);
    Storage()->length = nLength;
    m_pszData[nLength] = XCHAR();
}

// CStringT

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(const Base& strSrc) : Base(strSrc)
{
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(const XCHAR* pch, int nLength) : Base(pch, nLength)
{
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(PCXSTR pszSrc)
{
    if (pszSrc != nullptr && IS_INTRESOURCE(pszSrc))
        LoadString(LOWORD(reinterpret_cast<UINT_PTR>(pszSrc)));
    else
        this->SetString(pszSrc);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(PCYSTR pszSrc)
{
    if (pszSrc != nullptr && IS_INTRESOURCE(pszSrc))
        LoadString(LOWORD(reinterpret_cast<UINT_PTR>(pszSrc)));
    else
        Convert(pszSrc, CSimpleStringT<YCHAR>::StringLength(pszSrc));
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(const YCHAR* pch, int nLength)
{
    Convert(pch, nLength);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>::CStringT(XCHAR ch, int nLength)
{
    if (nLength <= 0)
        return;
    std::fill_n(this->GetBuffer(nLength), nLength, ch);
    this->ReleaseBufferSetLength(nLength);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator=(PCXSTR pszSrc)
{
    this->SetString(pszSrc);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator=(PCYSTR pszSrc)
{
    Convert(pszSrc, CSimpleStringT<YCHAR>::StringLength(pszSrc));
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator=(XCHAR ch)
{
    this->SetString(&ch, 1);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator+=(const Base& strSrc)
{
    this->Append(strSrc);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator+=(PCXSTR pszSrc)
{
    this->Append(pszSrc);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator+=(PCYSTR pszSrc)
{
    return *this += CStringT(pszSrc);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::operator+=(XCHAR ch)
{
    this->AppendChar(ch);
    return *this;
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Compare(PCXSTR psz) const
{
    return StringTraits::Compare(this->GetString(), psz);
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::CompareNoCase(PCXSTR psz) const noexcept
{
    return StringTraits::CompareNoCase(this->GetString(), psz);
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Collate(PCXSTR psz) const noexcept
{
    return StringTraits::Collate(this->GetString(), psz);
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::CollateNoCase(PCXSTR psz) const noexcept
{
    return StringTraits::CollateNoCase(this->GetString(), psz);
}

namespace vxmfc
{

// Where a search ended, as an index.
template<typename CharType>
int IndexOf(const CharType* pszFound, const CharType* pszText) noexcept
{
    return pszFound == nullptr ? -1 : static_cast<int>(pszFound - pszText);
}

} // namespace vxmfc

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Find(PCXSTR pszSub, int iStart) const noexcept
{
    if (pszSub == nullptr || iStart < 0 || iStart > this->GetLength())
        return -1;
    return vxmfc::IndexOf(StringTraits::FindText(this->GetString() + iStart, pszSub), this->GetString());
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Find(XCHAR ch, int iStart) const noexcept
{
    if (iStart < 0 || iStart >= this->GetLength())
        return -1;
    return vxmfc::IndexOf(StringTraits::FindChar(this->GetString() + iStart, ch), this->GetString());
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::FindOneOf(PCXSTR pszCharSet) const noexcept
{
    return vxmfc::IndexOf(StringTraits::FindOneOf(this->GetString(), pszCharSet), this->GetString());
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::ReverseFind(XCHAR ch) const noexcept
{
    return vxmfc::IndexOf(StringTraits::FindLastChar(this->GetString(), ch), this->GetString());
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::Left(int nCount) const
{
    return Mid(0, nCount);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::Right(int nCount) const
{
    return Mid(this->GetLength() - std::min(std::max(nCount, 0), this->GetLength()));
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::Mid(int iFirst) const
{
    return Mid(iFirst, this->GetLength());
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::Mid(int iFirst, int nCount) const
{
    const int iBegin = std::min(std::max(iFirst, 0), this->GetLength());
    const int nRest = this->GetLength() - iBegin;
    if (iBegin == 0 && nCount >= nRest)
        return *this;
    return CStringT(this->GetString() + iBegin, std::min(std::max(nCount, 0), nRest));
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::SpanIncluding(PCXSTR pszCharSet) const
{
    return Left(StringTraits::SpanIncluding(this->GetString(), pszCharSet));
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::SpanExcluding(PCXSTR pszCharSet) const
{
    return Left(StringTraits::SpanExcluding(this->GetString(), pszCharSet));
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> CStringT<BaseType, StringTraits>::Tokenize(PCXSTR pszTokens,
                                                                            int& iStart) const
{
    if (iStart < 0)
        vxmfc::ThrowInvalidStringArgument();
    const XCHAR noTokens[] = {XCHAR()};
    const PCXSTR pszDelimiters = pszTokens == nullptr ? noTokens : pszTokens;
    if (iStart < this->GetLength())
    {
        const int iFirst = iStart + StringTraits::SpanIncluding(this->GetString() + iStart, pszDelimiters);
        const int nToken = StringTraits::SpanExcluding(this->GetString() + iFirst, pszDelimiters);
        if (nToken > 0)
        {
            iStart = iFirst + nToken + 1; // behind the delimiter
            return Mid(iFirst, nToken);
        }
    }
    iStart = -1;
    return CStringT();
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Insert(int iIndex, PCXSTR psz)
{
    const int iAt = std::min(std::max(iIndex, 0), this->GetLength());
    CStringT result(this->GetString(), iAt);
    result += psz;
    result.Append(this->GetString() + iAt, this->GetLength() - iAt);
    *this = result;
    return this->GetLength();
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Insert(int iIndex, XCHAR ch)
{
    const XCHAR text[] = {ch, XCHAR()};
    return Insert(iIndex, text);
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Delete(int iIndex, int nCount)
{
    const int iFirst = std::max(iIndex, 0);
    if (nCount <= 0 || iFirst >= this->GetLength())
        return this->GetLength();
    const int nDeleted = std::min(nCount, this->GetLength() - iFirst);
    const int nTail = this->GetLength() - iFirst - nDeleted;
    const PXSTR pszText = this->GetBuffer();
    this->CopyCharsOverlapped(pszText + iFirst, pszText + iFirst + nDeleted, nTail);
    this->ReleaseBufferSetLength(iFirst + nTail);
    return this->GetLength();
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Remove(XCHAR chRemove)
{
    const int nOldLength = this->GetLength();
    const PXSTR pszText = this->GetBuffer();
    const PXSTR pszEnd = std::remove(pszText, pszText + nOldLength, chRemove);
    this->ReleaseBufferSetLength(static_cast<int>(pszEnd - pszText));
    return nOldLength - this->GetLength();
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Replace(PCXSTR pszOld, PCXSTR pszNew)
{
    const int nOld = this->StringLength(pszOld);
    if (nOld == 0)
        return 0;
    CStringT result;
    int nReplaced = 0;
    int iCopied = 0;
    for (int iFound = Find(pszOld); iFound >= 0; iFound = Find(pszOld, iCopied))
    {
        result.Append(this->GetString() + iCopied, iFound - iCopied);
        result.Append(pszNew);
        iCopied = iFound + nOld;
        ++nReplaced;
    }
    if (nReplaced == 0)
        return 0;
    result.Append(this->GetString() + iCopied, this->GetLength() - iCopied);
    *this = result;
    return nReplaced;
}

template<typename BaseType, class StringTraits>
int CStringT<BaseType, StringTraits>::Replace(XCHAR chOld, XCHAR chNew)
{
    const PCXSTR pszText = this->GetString();
    const auto nReplaced = std::count(pszText, pszText + this->GetLength(), chOld);
    if (chOld == chNew || nReplaced == 0)
        return 0;
    const PXSTR pszBuffer = this->GetBuffer();
    std::replace(pszBuffer, pszBuffer + this->GetLength(), chOld, chNew);
    return static_cast<int>(nReplaced);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::MakeLower()
{
    StringTraits::MakeLower(this->GetBuffer(), this->GetLength());
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::MakeUpper()
{
    StringTraits::MakeUpper(this->GetBuffer(), this->GetLength());
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::MakeReverse()
{
    const PXSTR pszText = this->GetBuffer();
    std::reverse(pszText, pszText + this->GetLength());
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::Trim()
{
    return TrimRight().TrimLeft();
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::Trim(XCHAR chTarget)
{
    return TrimRight(chTarget).TrimLeft(chTarget);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::Trim(PCXSTR pszTargets)
{
    return TrimRight(pszTargets).TrimLeft(pszTargets);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimLeft()
{
    int iFirst = 0;
    while (iFirst < this->GetLength() && StringTraits::IsSpace(this->GetString()[iFirst]))
        ++iFirst;
    KeepRange(iFirst, this->GetLength() - iFirst);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimLeft(XCHAR chTarget)
{
    const XCHAR targets[] = {chTarget, XCHAR()};
    return TrimLeft(targets);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimLeft(PCXSTR pszTargets)
{
    const int iFirst = StringTraits::SpanIncluding(this->GetString(), pszTargets);
    KeepRange(iFirst, this->GetLength() - iFirst);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimRight()
{
    int nKept = this->GetLength();
    while (nKept > 0 && StringTraits::IsSpace(this->GetString()[nKept - 1]))
        --nKept;
    KeepRange(0, nKept);
    return *this;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimRight(XCHAR chTarget)
{
    const XCHAR targets[] = {chTarget, XCHAR()};
    return TrimRight(targets);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits>& CStringT<BaseType, StringTraits>::TrimRight(PCXSTR pszTargets)
{
    int nKept = this->GetLength();
    while (nKept > 0 && StringTraits::FindChar(pszTargets, this->GetString()[nKept - 1]) != nullptr)
        --nKept;
    KeepRange(0, nKept);
    return *this;
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::Format(PCXSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::Format(UINT nFormatID, ...)
{
    CStringT format;
    if (!format.LoadString(nFormatID))
        vxmfc::ThrowInvalidStringArgument();
    va_list args;
    va_start(args, nFormatID);
    FormatV(format, args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::FormatV(PCXSTR pszFormat, va_list args)
{
    CStringT result;
    result.AppendFormatV(pszFormat, args);
    *this = result;
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::AppendFormat(PCXSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    AppendFormatV(pszFormat, args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::AppendFormat(UINT nFormatID, ...)
{
    CStringT format;
    if (!format.LoadString(nFormatID))
        vxmfc::ThrowInvalidStringArgument();
    va_list args;
    va_start(args, nFormatID);
    AppendFormatV(format, args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::AppendFormatV(PCXSTR pszFormat, va_list args)
{
    if (pszFormat == nullptr)
        vxmfc::ThrowInvalidStringArgument();
    va_list argsForLength;
    va_copy(argsForLength, args);
    const int nAdded = StringTraits::FormattedLength(pszFormat, argsForLength);
    va_end(argsForLength);
    const int nOldLength = this->GetLength();
    if (nAdded < 0 || nAdded > INT_MAX - nOldLength)
        vxmfc::ThrowInvalidStringArgument();
    StringTraits::Format(this->GetBuffer(nOldLength + nAdded) + nOldLength, nAdded, pszFormat, args);
    this->ReleaseBufferSetLength(nOldLength + nAdded);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::FormatMessage(PCXSTR pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatMessageV(pszFormat, &args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::FormatMessage(UINT nFormatID, ...)
{
    CStringT format;
    if (!format.LoadString(nFormatID))
        vxmfc::ThrowInvalidStringArgument();
    va_list args;
    va_start(args, nFormatID);
    FormatMessageV(format, &args);
    va_end(args);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::FormatMessageV(PCXSTR pszFormat, va_list* pArgList)
{
    const PXSTR pszMessage = StringTraits::FormatSystemMessage(pszFormat, pArgList);
    if (pszMessage == nullptr)
        vxmfc::ThrowInvalidStringArgument();
    this->SetString(pszMessage);
    ::LocalFree(pszMessage);
}

template<typename BaseType, class StringTraits>
BOOL CStringT<BaseType, StringTraits>::LoadString(UINT nID)
{
    return LoadString(vxmfc::FindStringModule(nID), nID);
}

template<typename BaseType, class StringTraits>
BOOL CStringT<BaseType, StringTraits>::LoadString(HINSTANCE hInstance, UINT nID)
{
    const wchar_t* pText = nullptr;
    const int nLength = vxmfc::FindStringResource(hInstance, nID, &pText);
    if (nLength < 0)
        return FALSE;
    *this = CStringT(pText, nLength);
    return TRUE;
}

template<typename BaseType, class StringTraits>
BOOL CStringT<BaseType, StringTraits>::LoadString(HINSTANCE hInstance, UINT nID, WORD wLanguageID)
{
    const wchar_t* pText = nullptr;
    const int nLength = vxmfc::FindStringResource(hInstance, nID, wLanguageID, &pText);
    if (nLength < 0)
        return FALSE;
    *this = CStringT(pText, nLength);
    return TRUE;
}

template<typename BaseType, class StringTraits>
BSTR CStringT<BaseType, StringTraits>::AllocSysString() const
{
    const CStringT<wchar_t, StrTraitMFC_DLL<wchar_t>> wide(this->GetString(), this->GetLength());
    return vxmfc::CreateSystemString(wide.GetString(), wide.GetLength());
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::Convert(PCYSTR pszSrc, int nLength)
{
    if (nLength <= 0)
        return this->Empty();
    const int nConverted = StringTraits::ConvertedLength(pszSrc, nLength);
    StringTraits::Convert(this->GetBuffer(nConverted), nConverted, pszSrc, nLength);
    this->ReleaseBufferSetLength(nConverted);
}

template<typename BaseType, class StringTraits>
void CStringT<BaseType, StringTraits>::KeepRange(int iFirst, int nCount)
{
    if (iFirst != 0 || nCount != this->GetLength())
        this->SetString(this->GetString() + iFirst, nCount);
}

// Sums and comparisons; a plain text stands on either side.

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(const CStringT<BaseType, StringTraits>& str1,
                                           const CStringT<BaseType, StringTraits>& str2)
{
    CStringT<BaseType, StringTraits> result(str1);
    result += str2;
    return result;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(const CStringT<BaseType, StringTraits>& str1,
                                           typename CStringT<BaseType, StringTraits>::PCXSTR psz2)
{
    CStringT<BaseType, StringTraits> result(str1);
    result += psz2;
    return result;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(typename CStringT<BaseType, StringTraits>::PCXSTR psz1,
                                           const CStringT<BaseType, StringTraits>& str2)
{
    CStringT<BaseType, StringTraits> result;
    result = psz1;
    result += str2;
    return result;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(const CStringT<BaseType, StringTraits>& str1, wchar_t ch2)
{
    return str1 + CStringT<BaseType, StringTraits>(&ch2, 1);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(const CStringT<BaseType, StringTraits>& str1, char ch2)
{
    return str1 + CStringT<BaseType, StringTraits>(&ch2, 1);
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(wchar_t ch1, const CStringT<BaseType, StringTraits>& str2)
{
    return CStringT<BaseType, StringTraits>(&ch1, 1) + str2;
}

template<typename BaseType, class StringTraits>
CStringT<BaseType, StringTraits> operator+(char ch1, const CStringT<BaseType, StringTraits>& str2)
{
    return CStringT<BaseType, StringTraits>(&ch1, 1) + str2;
}

#define VXMFC_COMPARE_STRINGS(op) \
    template<typename BaseType, class StringTraits> \
    bool operator op(const CStringT<BaseType, StringTraits>& str1, \
                     const CStringT<BaseType, StringTraits>& str2) noexcept \
    { \
        return StringTraits::Compare(str1, str2) op 0; \
    } \
    template<typename BaseType, class StringTraits> \
    bool operator op(const CStringT<BaseType, StringTraits>& str1, \
                     typename CStringT<BaseType, StringTraits>::PCXSTR psz2) noexcept \
    { \
        return StringTraits::Compare(str1, psz2) op 0; \
    } \
    template<typename BaseType, class StringTraits> \
    bool operator op(typename CStringT<BaseType, StringTraits>::PCXSTR psz1, \
                     const CStringT<BaseType, StringTraits>& str2) noexcept \
    { \
        return StringTraits::Compare(psz1, str2) op 0; \
    }

VXMFC_COMPARE_STRINGS(==)
VXMFC_COMPARE_STRINGS(!=)
VXMFC_COMPARE_STRINGS(<)
VXMFC_COMPARE_STRINGS(>)
VXMFC_COMPARE_STRINGS(<=)
VXMFC_COMPARE_STRINGS(>=)

#undef VXMFC_COMPARE_STRINGS
