#include "foundation/FrameworkWindow.h"
#include "foundation/RectFacts.h"
#include "support/TestDpi.h"

#include <vxdpi/Geometry.h>

#include <gtest/gtest.h>

namespace
{
// A window on real monitors: the primary one at (0, 0, 700, 900), another one at (-900, 0, -200, 1200), and a
// bar of 40 pixels at the top of both. Started by platform/wine/two-monitors.
class OnTwoMonitors : public testing::Test
{
protected:
    void SetUp() override
    {
        if (EnvironmentValue("VX_TEST_MONITORS").empty())
            GTEST_SKIP() << "needs two monitors, which only a display of its own has";
        ASSERT_EQ(::GetSystemMetrics(SM_CMONITORS), 2);
    }

    RECT RestoredTo(CRect saved)
    {
        CRect reference = saved;
        EXPECT_EQ(RestoreWindowPositionSafe(m_window.Object(), saved, reference), TRUE);
        RECT bounds = {};
        ::GetWindowRect(m_window.Handle(), &bounds);
        return bounds;
    }

    FrameworkWindow m_window{WS_POPUP};
};

constexpr RECT kCentred = {150, 320, 550, 620}; // of 400 x 300 pixels
} // namespace

TEST_F(OnTwoMonitors, EachWindowHasTheWorkAreaOfItsMonitor)
{
    RECT area = {};
    GetCurrentScreenWorkArea(m_window.Handle(), area);
    EXPECT_TRUE(IsRect(area, {0, 40, 700, 900}));
    ::SetWindowPos(m_window.Handle(), nullptr, -850, 100, 400, 300, 0);
    GetCurrentScreenWorkArea(m_window.Handle(), area);
    EXPECT_TRUE(IsRect(area, {-900, 40, -200, 1200}));
}

TEST_F(OnTwoMonitors, PlacesOnBothAreTaken)
{
    EXPECT_TRUE(IsRect(RestoredTo({200, 100, 600, 400}), {200, 100, 600, 400}));
    EXPECT_TRUE(IsRect(RestoredTo({-850, 1000, -450, 1300}), {-850, 1000, -450, 1300}));
}

TEST_F(OnTwoMonitors, APlaceBelowTheSmallerOneIsNotTaken)
{
    EXPECT_TRUE(IsRect(RestoredTo({200, 1000, 600, 1300}), kCentred));
}

TEST_F(OnTwoMonitors, APlaceInTheGapIsNotTaken)
{
    EXPECT_TRUE(IsRect(RestoredTo({-200, 100, 0, 400}), {250, 320, 450, 620}));
}

TEST_F(OnTwoMonitors, APlaceThatReachesOverTheGapIsTaken)
{
    EXPECT_TRUE(IsRect(RestoredTo({-210, 100, 10, 400}), {-210, 100, 10, 400}));
}

TEST_F(OnTwoMonitors, APlaceUnderTheBarIsNotTaken)
{
    EXPECT_TRUE(IsRect(RestoredTo({200, 5, 600, 305}), kCentred));
    EXPECT_TRUE(IsRect(RestoredTo({200, 40, 600, 340}), {200, 40, 600, 340}));
}
