#include <afxwin.h>

#include <initializer_list>

namespace
{

// Replaces %1, %2 … in one pass: what a replacement contains stays as it is.
CString ReplaceNumbered(const CString& format, std::initializer_list<LPCTSTR> replacements)
{
    CString result;
    for (int i = 0; i < format.GetLength(); ++i)
    {
        const TCHAR chNumber = format[i] == _T('%') ? format[i + 1] : _T('\0');
        const int iReplacement = chNumber - _T('1');
        if (iReplacement < 0 || iReplacement >= static_cast<int>(replacements.size()))
        {
            result.AppendChar(format[i]);
            continue;
        }
        result += replacements.begin()[iReplacement];
        ++i;
    }
    return result;
}

CString LoadedString(UINT nID)
{
    CString text;
    VERIFY(text.LoadString(nID));
    return text;
}

} // namespace

BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString, TCHAR chSep)
{
    rString.Empty();
    if (lpszFullString == nullptr || iSubString < 0)
        return FALSE;
    LPCTSTR pszPiece = lpszFullString;
    for (int iPiece = 0; iPiece < iSubString; ++iPiece)
    {
        pszPiece = ::_tcschr(pszPiece, chSep);
        if (pszPiece == nullptr)
            return FALSE;
        ++pszPiece;
    }
    const LPCTSTR pszEnd = ::_tcschr(pszPiece, chSep);
    rString = pszEnd == nullptr ? CString(pszPiece) : CString(pszPiece, static_cast<int>(pszEnd - pszPiece));
    return TRUE;
}

void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1)
{
    rString = ReplaceNumbered(LoadedString(nIDS), {lpsz1});
}

void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2)
{
    rString = ReplaceNumbered(LoadedString(nIDS), {lpsz1, lpsz2});
}
