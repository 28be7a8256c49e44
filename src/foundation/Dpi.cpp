#include <vxdpi/Dpi.h>

#include "BaseDpi.h"
#include "Guards.h"

namespace
{
unsigned int ScreenDpi()
{
    const ScreenDc screen;
    return screen.Get() ? static_cast<unsigned int>(::GetDeviceCaps(screen.Get(), LOGPIXELSX)) : 0;
}
} // namespace

unsigned int VxSafeGetDpiForWindow(HWND hwnd)
{
    if (!hwnd)
        return kBaseDpi;
    if (!::IsWindow(hwnd))
        return kBaseDpi;
    if (const UINT nDpi = ::GetDpiForWindow(hwnd))
        return nDpi;
    const unsigned int nScreenDpi = ScreenDpi();
    return nScreenDpi ? nScreenDpi : kBaseDpi;
}
