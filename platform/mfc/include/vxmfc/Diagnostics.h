#pragma once

#include <vxmfc/Export.h>

namespace vxmfc
{

/// Writes the failed condition to the debugger's output and stops the program in a debugger.
VXMFC_API void ReportFailedAssertion(const char* pszCondition, const char* pszFile, int nLine);

/// Writes a formatted text to the debugger's output.
VXMFC_API void WriteTrace(const wchar_t* pszFormat, ...);

} // namespace vxmfc

#define DEBUG_NEW new

#if defined(_DEBUG)
#define ASSERT(condition) \
    static_cast<void>((condition) || (vxmfc::ReportFailedAssertion(#condition, __FILE__, __LINE__), false))
#define VERIFY(condition) ASSERT(condition)
#define TRACE(...) vxmfc::WriteTrace(__VA_ARGS__)
#else
#define ASSERT(condition) static_cast<void>(0)
#define VERIFY(condition) static_cast<void>(condition)
#define TRACE(...) static_cast<void>(0)
#endif
