#include "foundation/FakeMonitors.h"
#include "foundation/LibraryModule.h"
#include "foundation/RectFacts.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <vxdpi/Geometry.h>

#include <gtest/gtest.h>

namespace
{
constexpr RECT kUntouched = {-1, -2, -3, -4};

// A platform with two monitors whose nearest one the test chooses.
class WorkAreaOfFakeMonitors : public testing::Test
{
protected:
    HMONITOR m_nearest = FakeMonitors::HandleOf(1);
    const TestWindow m_window;
    CallLog m_log;
    FakeMonitors m_monitors{m_log, {{0, 0, 1000, 800}, {-1240, -60, -40, 900}}};
    const ImportSpy<decltype(::MonitorFromWindow)> m_fromWindow{
        VxDpiModule(), "user32.dll", "MonitorFromWindow",
        [this](HWND window, DWORD flags)
        {
            m_log.WriteCall("MonitorFromWindow", window, flags);
            return m_nearest;
        }};
    RECT m_area = kUntouched;

    void SetUp() override
    {
        m_log.Name(m_window.Handle(), "window");
        m_log.Name(FakeMonitors::HandleOf(1), "second");
    }
};

RECT WorkAreaAt(POINT point)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    ::GetMonitorInfoW(::MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcWork;
}
} // namespace

TEST(GetCurrentScreenWorkArea, IsThatOfTheWindowsMonitor)
{
    const TestWindow window;
    RECT area = kUntouched;
    EXPECT_EQ(GetCurrentScreenWorkArea(window.Handle(), area), TRUE);
    EXPECT_TRUE(IsRect(area, WorkAreaAt({50, 50})));
    EXPECT_FALSE(::IsRectEmpty(&area));
}

TEST(GetCurrentScreenWorkArea, OfADestroyedWindowIsThatOfThePrimaryMonitor)
{
    const TestWindow window;
    const HWND destroyed = window.Handle();
    ::DestroyWindow(destroyed);
    RECT area = kUntouched;
    EXPECT_EQ(GetCurrentScreenWorkArea(destroyed, area), TRUE);
    EXPECT_TRUE(IsRect(area, WorkAreaAt({0, 0})));
}

TEST(GetCurrentScreenWorkArea, LeavesNothingBehind)
{
    const TestWindow window;
    RECT area = {};
    EXPECT_NO_LEAK([&] { GetCurrentScreenWorkArea(window.Handle(), area); });
}

TEST_F(WorkAreaOfFakeMonitors, IsThatOfTheNearestMonitor)
{
    EXPECT_EQ(GetCurrentScreenWorkArea(m_window.Handle(), m_area), TRUE);
    EXPECT_TRUE(IsRect(m_area, {-1240, -60, -40, 900}));
    EXPECT_EQ(m_log.Lines(),
              (CallLog::LineList{"MonitorFromWindow(window, 2)", "GetMonitorInfoW(second, 104)"}));
}

TEST_F(WorkAreaOfFakeMonitors, WithoutAWindowNothingIsAsked)
{
    EXPECT_EQ(GetCurrentScreenWorkArea(nullptr, m_area), FALSE);
    EXPECT_TRUE(IsRect(m_area, kUntouched));
    EXPECT_EQ(m_log.Lines(), CallLog::LineList{});
}

TEST_F(WorkAreaOfFakeMonitors, WithoutAMonitorThereIsNone)
{
    m_nearest = nullptr;
    EXPECT_EQ(GetCurrentScreenWorkArea(m_window.Handle(), m_area), FALSE);
    EXPECT_TRUE(IsRect(m_area, kUntouched));
    EXPECT_EQ(m_log.Lines(), CallLog::LineList{"MonitorFromWindow(window, 2)"});
}

TEST_F(WorkAreaOfFakeMonitors, OfAMonitorThatDoesNotTellThereIsNone)
{
    m_monitors.silent = 1;
    EXPECT_EQ(GetCurrentScreenWorkArea(m_window.Handle(), m_area), FALSE);
    EXPECT_TRUE(IsRect(m_area, kUntouched));
}

TEST_F(WorkAreaOfFakeMonitors, AHandleThatIsNoWindowIsNotRefused)
{
    const ImportSpy<decltype(::IsWindow)> isWindow(VxDpiModule(), "user32.dll", "IsWindow");
    EXPECT_EQ(GetCurrentScreenWorkArea(reinterpret_cast<HWND>(static_cast<INT_PTR>(-5)), m_area), TRUE);
    EXPECT_EQ(isWindow.CallCount(), 0);
}
