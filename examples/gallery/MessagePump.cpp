#include "MessagePump.h"

namespace
{
constexpr DWORD kQuietMilliseconds = 120;
constexpr ULONGLONG kLongestSettleMilliseconds = 3000;
} // namespace

bool RunUntilQuiet()
{
    CWinApp& app = *::AfxGetApp();
    const ULONGLONG end = ::GetTickCount64() + kLongestSettleMilliseconds;
    while (::GetTickCount64() < end &&
           ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuietMilliseconds, QS_ALLINPUT) != WAIT_TIMEOUT)
    {
        MSG message = {};
        while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE))
        {
            if (!app.PumpMessage())
                return false;
        }
    }
    return true;
}
