#pragma once

#include <string>

// What a function of the framework is called in the source, such as "CWnd::GetDlgItem", by the name that GCC
// exports it under. Empty for data, for exports by other compilers, and for bookkeeping that does nothing
// with a window, a drawing or a resource: strings, module and class records, message maps, and the
// construction and destruction of objects other than device contexts.
std::string FrameworkFunctionName(const std::string& exported);
