#include <afx.h>

#include <cstdarg>

void vxmfc::ReportFailedAssertion(const char* pszCondition, const char* pszFile, int nLine)
{
    WriteTrace(L"%hs(%d): assertion failed: %hs\n", pszFile, nLine, pszCondition);
    ::DebugBreak();
}

void vxmfc::WriteTrace(const wchar_t* pszFormat, ...)
{
    CStringW text;
    va_list args;
    va_start(args, pszFormat);
    text.FormatV(pszFormat, args);
    va_end(args);
    ::OutputDebugStringW(text);
}
