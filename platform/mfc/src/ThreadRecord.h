#pragma once

#include <afxstat_.h>

/// Ends what the calling thread keeps within a module; made anew when it is needed again.
void EndModuleThreadState(const AFX_MODULE_STATE& moduleState);

/// Ends all that the framework keeps for the calling thread.
void EndThreadRecord();
