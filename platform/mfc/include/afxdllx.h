#pragma once

// For the source of an extension DLL that holds its DllMain.

#include <afxdll_.h>
#include <afxstat_.h>
