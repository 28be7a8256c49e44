#pragma once

#include <afxwin.h>

/// Lets the program's windows handle their messages and draw themselves until nothing more happens.
/// @return false when the program was told to end meanwhile.
bool RunUntilQuiet();
