#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

// What a loaded module exports, by the names that its compiler gave.

const IMAGE_EXPORT_DIRECTORY& ExportDirectory(HMODULE module);

/// @return all names, sorted bytewise.
std::vector<std::string> ExportedNames(HMODULE module);

/// @return null when there is no such name.
const void* FindExport(HMODULE module, const std::string& name);

/// @return a name of what is exported at an address, the first in bytewise order; "(not exported)" for
/// others.
std::string NameOfExport(HMODULE module, const void* address);
