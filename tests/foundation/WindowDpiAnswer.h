#pragma once

#include "foundation/LibraryModule.h"
#include "support/ImportSpy.h"

// While it lives, the platform tells the library this DPI for every live window.
class WindowDpiAnswer : public ImportSpy<decltype(::GetDpiForWindow)>
{
public:
    explicit WindowDpiAnswer(UINT dpi)
        : ImportSpy(VxDpiModule(), "user32.dll", "GetDpiForWindow", [dpi](HWND) { return dpi; })
    {
    }
};
