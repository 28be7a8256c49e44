#pragma once

#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The monitors that the platform lists to the library, "monitor1" and so on in a log. Each has a border of 40
// pixels around its work area.
class FakeMonitors
{
public:
    FakeMonitors(CallLog& log, std::vector<RECT> areas)
        : workAreas(std::move(areas)), m_log(log),
          m_enumerate(VxDpiModule(), "user32.dll", "EnumDisplayMonitors",
                      [this](HDC dc, const RECT* clip, MONITORENUMPROC add, LPARAM data)
                      { return Enumerate(dc, clip, add, data); }),
          m_getInfo(VxDpiModule(), "user32.dll", "GetMonitorInfoW",
                    [this](HMONITOR monitor, MONITORINFO* info) { return GetInfo(monitor, *info); })
    {
    }

    static HMONITOR HandleOf(std::size_t index)
    {
        return reinterpret_cast<HMONITOR>(static_cast<INT_PTR>(0x1000 + index));
    }

    std::vector<RECT> workAreas;
    // A monitor that does not tell about itself.
    std::optional<std::size_t> silent;

private:
    BOOL Enumerate(HDC dc, const RECT* clip, MONITORENUMPROC add, LPARAM data)
    {
        m_log.WriteCall("EnumDisplayMonitors", dc, clip);
        for (std::size_t index = 0; index < workAreas.size(); ++index)
        {
            RECT bounds = BoundsOf(index);
            m_log.Name(HandleOf(index), "monitor" + std::to_string(index + 1));
            if (!add(HandleOf(index), nullptr, &bounds, data))
                return FALSE;
        }
        return TRUE;
    }

    // Fills the record in any case: a failure alone tells that it does not count.
    BOOL GetInfo(HMONITOR monitor, MONITORINFO& info)
    {
        m_log.WriteCall("GetMonitorInfoW", monitor, info.cbSize);
        const std::size_t index = reinterpret_cast<std::size_t>(monitor) - 0x1000;
        info.rcMonitor = BoundsOf(index);
        info.rcWork = workAreas.at(index);
        return index != silent;
    }

    RECT BoundsOf(std::size_t index) const
    {
        RECT bounds = workAreas.at(index);
        ::InflateRect(&bounds, 40, 40);
        return bounds;
    }

    CallLog& m_log;
    ImportSpy<decltype(::EnumDisplayMonitors)> m_enumerate;
    ImportSpy<decltype(::GetMonitorInfoW)> m_getInfo;
};
