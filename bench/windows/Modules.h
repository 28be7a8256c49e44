#pragma once

#include <windows.h>

/// @return the library's DLL; it stays loaded.
HMODULE LibraryModule();

/// @return the framework's DLL; it stays loaded.
HMODULE FrameworkModule();

/// @return the program itself.
HMODULE ProgramModule();
