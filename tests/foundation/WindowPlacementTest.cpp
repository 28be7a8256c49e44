#include "foundation/FakeMonitors.h"
#include "foundation/FrameworkWindow.h"
#include "foundation/LibraryModule.h"
#include "foundation/RectFacts.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/AtTestDpi.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <vxdpi/Geometry.h>

#include <gtest/gtest.h>

#include <shellscalingapi.h>

#include <optional>
#include <string>

namespace
{
// The sizes of a window frame at every DPI: the title strip is 30 pixels high, of which 21 have to be
// reachable, on a width of 108.
struct FakeFrame
{
    int captionHeight = 23;
    int frameHeight = 7;
    int captionButtonWidth = 36;

    int SizeOf(int index) const
    {
        switch (index)
        {
        case SM_CYCAPTION:
            return captionHeight;
        case SM_CYSIZEFRAME:
            return frameHeight;
        case SM_CXSIZE:
            return captionButtonWidth;
        default:
            return 1000;
        }
    }
};

// Restores a window on a platform with two monitors, a gap of 200 pixels between them, and writes down what
// is asked and done. The window itself stays where it is.
class RestoringAWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        m_log.Name(m_window.Handle(), "window");
        m_log.Name(FakeMonitors::HandleOf(0), "monitor1");
    }

    // The calls that a window is placed by; "centred" stands for what the framework does.
    CallLog::LineList Moves() const
    {
        CallLog::LineList moves;
        for (const std::string& line : m_log.Lines())
        {
            if (line.rfind("SetWindowPos", 0) == 0 || line == "centred")
                moves.push_back(line);
        }
        return moves;
    }

    CallLog::LineList MovesFor(CRect& saved, CRect reference)
    {
        m_log.Clear();
        EXPECT_EQ(RestoreWindowPositionSafe(m_window.Object(), saved, reference), TRUE);
        return Moves();
    }

    testing::AssertionResult EndsWith(CRect rect, const std::string& lastMove)
    {
        const CRect asked = rect;
        const CallLog::LineList moves = MovesFor(rect, asked);
        m_log.Clear();
        const std::string size = std::to_string(asked.Width()) + ", " + std::to_string(asked.Height());
        if (moves != CallLog::LineList{"SetWindowPos(window, null, 0, 0, " + size + ", 2)", lastMove})
            return testing::AssertionFailure() << testing::PrintToString(moves);
        return IsRect(rect, asked);
    }

    testing::AssertionResult IsPlacedAt(const CRect& rect)
    {
        const std::string origin = std::to_string(rect.left) + ", " + std::to_string(rect.top);
        return EndsWith(rect, "SetWindowPos(window, null, " + origin + ", 0, 0, 1)");
    }

    testing::AssertionResult IsCentred(const CRect& rect) { return EndsWith(rect, "centred"); }

    FrameworkWindow m_window;
    CallLog m_log;
    FakeFrame m_frame;
    FakeMonitors m_monitors{m_log, {{0, 0, 1000, 800}, {1200, -100, 2200, 700}}};
    const WindowDpiAnswer m_dpi{96};
    bool m_diesWhenSized = false;
    bool m_isAlive = true;

private:
    const ImportSpy<decltype(::IsWindow)> m_isWindow{VxDpiModule(), "user32.dll", "IsWindow",
                                                     [this](HWND window)
                                                     { return m_isAlive && m_isWindow.Original()(window); }};
    const ImportSpy<decltype(::GetSystemMetricsForDpi)> m_metrics{
        VxDpiModule(), "user32.dll", "GetSystemMetricsForDpi",
        [this](int index, UINT dpi)
        {
            m_log.WriteCall("GetSystemMetricsForDpi", index, dpi);
            return m_frame.SizeOf(index);
        }};
    const ImportSpy<decltype(::SetWindowPos)> m_setPosition{
        VxDpiModule(), "user32.dll", "SetWindowPos",
        [this](HWND window, HWND after, int x, int y, int width, int height, UINT flags)
        {
            m_log.WriteCall("SetWindowPos", window, after, x, y, width, height, flags);
            m_isAlive = !m_diesWhenSized;
            return TRUE;
        }};
    const ImportSpy<decltype(::SetWindowPos)> m_centre{FrameworkModule(), "user32.dll", "SetWindowPos",
                                                       [this](HWND, HWND, int, int, int, int, UINT)
                                                       {
                                                           m_log.Write("centred");
                                                           return TRUE;
                                                       }};
};

constexpr RECT kInside = {100, 50, 500, 350};

// The window is gone when its title bar is looked at: the monitor at the rectangle's centre tells the DPI.
class RestoringAWindowThatDies : public RestoringAWindow
{
protected:
    RestoringAWindowThatDies() { m_diesWhenSized = true; }

    // What is asked about DPIs.
    CallLog::LineList Questions(CRect rect)
    {
        m_isAlive = true;
        MovesFor(rect, rect);
        CallLog::LineList questions;
        for (const std::string& line : m_log.Lines())
        {
            if (line.find("Monitor") != std::string::npos && line.find("MonitorInfo") == std::string::npos &&
                line.find("DisplayMonitors") == std::string::npos)
                questions.push_back(line);
            if (line.rfind("GetSystemMetricsForDpi(4", 0) == 0)
                questions.push_back(line);
        }
        return questions;
    }

    HRESULT m_answer = S_OK;

private:
    const ImportSpy<decltype(::MonitorFromPoint)> m_fromPoint{VxDpiModule(), "user32.dll", "MonitorFromPoint",
                                                              [this](POINT point, DWORD flags)
                                                              {
                                                                  m_log.WriteCall("MonitorFromPoint", point,
                                                                                  flags);
                                                                  return FakeMonitors::HandleOf(0);
                                                              }};
    const ImportSpy<decltype(::GetDpiForMonitor)> m_getDpi{
        VxDpiModule(), "shcore.dll", "GetDpiForMonitor",
        [this](HMONITOR monitor, MONITOR_DPI_TYPE type, UINT* horizontal, UINT* vertical)
        {
            m_log.WriteCall("GetDpiForMonitor", monitor, type);
            *horizontal = 120;
            *vertical = 192;
            return m_answer;
        }};
};

CRect BoundsOf(const FrameworkWindow& window)
{
    CRect bounds;
    ::GetWindowRect(window.Handle(), &bounds);
    return bounds;
}

CRect WorkAreaOf(const FrameworkWindow& window)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    ::GetMonitorInfoW(::MonitorFromWindow(window.Handle(), MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

// Restores a window with its saved size.
CRect RestoredTo(FrameworkWindow& window, CRect saved)
{
    CRect reference = saved;
    EXPECT_EQ(RestoreWindowPositionSafe(window.Object(), saved, reference), TRUE);
    return BoundsOf(window);
}

bool IsAbove(HWND window, HWND other)
{
    while (window != nullptr && window != other)
        window = ::GetWindow(window, GW_HWNDNEXT);
    return window == other;
}

int MinWidthOf(const FrameworkWindow& window)
{
    return 3 * ::GetSystemMetricsForDpi(SM_CXSIZE, ::GetDpiForWindow(window.Handle()));
}
} // namespace

TEST(RestoreWindowPositionSafe, AReachablePlaceIsTheWindows)
{
    FrameworkWindow window;
    EXPECT_TRUE(IsRect(RestoredTo(window, {200, 150, 620, 460}), {200, 150, 620, 460}));
}

TEST(RestoreWindowPositionSafe, AnotherSizeThanTheReferencesGrowsWithTheRealDpi)
{
    FrameworkWindow window;
    CRect saved(200, 150, 600, 450);
    CRect reference(0, 0, 400, 299);
    EXPECT_EQ(RestoreWindowPositionSafe(window.Object(), saved, reference), TRUE);
    const RECT expected = AtTestDpi<RECT>({200, 150, 600, 450}, {200, 150, 700, 525}, {200, 150, 800, 600},
                                          {200, 150, 1000, 750});
    EXPECT_TRUE(IsRect(saved, expected));
    EXPECT_TRUE(IsRect(BoundsOf(window), expected));
    EXPECT_TRUE(IsRect(reference, {0, 0, 400, 299}));
}

TEST(RestoreWindowPositionSafe, AnUnreachablePlaceIsChangedForTheCentreOfTheWorkArea)
{
    FrameworkWindow window;
    const CRect area = WorkAreaOf(window);
    const CRect bounds = RestoredTo(window, {area.right + 100, 150, area.right + 500, 450});
    EXPECT_EQ(bounds.Size(), CSize(400, 300));
    EXPECT_EQ(bounds.CenterPoint(), area.CenterPoint());
}

TEST(RestoreWindowPositionSafe, AnUnreachablePlaceIsChangedForTheCentreOfTheOwner)
{
    TestWindow owner(WS_POPUP, nullptr, {300, 200, 900, 800});
    owner.Show();
    FrameworkWindow window(WS_OVERLAPPEDWINDOW, owner.Handle());
    EXPECT_TRUE(IsRect(RestoredTo(window, {-5000, -5000, -4600, -4700}), {400, 350, 800, 650}));
}

TEST(RestoreWindowPositionSafe, ThreeCaptionButtonsInsideTheScreenAreEnough)
{
    FrameworkWindow window;
    const CRect area = WorkAreaOf(window);
    const CRect reachable(CPoint(area.right - MinWidthOf(window), 150), CSize(400, 300));
    const CRect unreachable = reachable + CPoint(1, 0);
    EXPECT_TRUE(IsRect(RestoredTo(window, reachable), reachable));
    EXPECT_EQ(RestoredTo(window, unreachable).CenterPoint(), area.CenterPoint());
}

TEST(RestoreWindowPositionSafe, RaisesTheWindow)
{
    FrameworkWindow window;
    FrameworkWindow other;
    window.Window().Show();
    other.Window().Show();
    ::SetWindowPos(other.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_TRUE(IsAbove(other.Handle(), window.Handle()));
    RestoredTo(window, kInside);
    EXPECT_TRUE(IsAbove(window.Handle(), other.Handle()));
}

TEST(RestoreWindowPositionSafe, AWindowThatDestroysItselfWhenSizedDoesNoHarm)
{
    FrameworkWindow window;
    window.Window().OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message == WM_WINDOWPOSCHANGED)
                ::DestroyWindow(window.Handle());
            return std::nullopt;
        });
    CRect saved = kInside;
    CRect reference = saved;
    EXPECT_EQ(RestoreWindowPositionSafe(window.Object(), saved, reference), TRUE);
    EXPECT_EQ(window.Handle(), nullptr);
}

TEST(RestoreWindowPositionSafe, LeavesNothingBehind)
{
    FrameworkWindow window;
    EXPECT_NO_LEAK([&] { RestoredTo(window, kInside); });
    EXPECT_NO_LEAK([&] { RestoredTo(window, {-5000, -5000, -4600, -4700}); });
}

TEST_F(RestoringAWindow, SizesLooksAtTheTitleBarAndMovesInThisOrder)
{
    const WindowDpiAnswer answer(144);
    const ImportSpy<decltype(::CreateRectRgn)> createAll(
        VxDpiModule(), "gdi32.dll", "CreateRectRgn",
        [&](int left, int top, int right, int bottom)
        {
            m_log.WriteCall("CreateRectRgn", left, top, right, bottom);
            const HRGN region = createAll.Original()(left, top, right, bottom);
            m_log.Name(region, "all");
            return region;
        });
    const ImportSpy<decltype(::CreateRectRgnIndirect)> create(
        VxDpiModule(), "gdi32.dll", "CreateRectRgnIndirect",
        [&](const RECT* rect)
        {
            m_log.WriteCall("CreateRectRgnIndirect", rect);
            const HRGN region = create.Original()(rect);
            m_log.Name(region, "region" + std::to_string(create.CallCount()));
            return region;
        });
    const RecordCalls<decltype(::CombineRgn)> combine(m_log, VxDpiModule(), "gdi32.dll", "CombineRgn");
    const ImportSpy<decltype(::GetRgnBox)> box(VxDpiModule(), "gdi32.dll", "GetRgnBox",
                                               [&](HRGN region, RECT* rect)
                                               {
                                                   m_log.WriteCall("GetRgnBox", region);
                                                   return box.Original()(region, rect);
                                               });
    CRect saved = kInside;
    MovesFor(saved, saved);
    EXPECT_EQ(m_log.Lines(),
              (CallLog::LineList{
                  "SetWindowPos(window, null, 0, 0, 400, 300, 2)", "GetSystemMetricsForDpi(4, 144)",
                  "GetSystemMetricsForDpi(33, 144)", "GetSystemMetricsForDpi(30, 144)",
                  "CreateRectRgn(0, 0, 0, 0)", "EnumDisplayMonitors(null, null)",
                  "GetMonitorInfoW(monitor1, 40)", "CreateRectRgnIndirect({0, 0, 1000, 800})",
                  "CombineRgn(all, all, region1, 2)", "GetMonitorInfoW(monitor2, 40)",
                  "CreateRectRgnIndirect({1200, -100, 2200, 700})", "CombineRgn(all, all, region2, 2)",
                  "CreateRectRgnIndirect({100, 50, 500, 80})", "CombineRgn(region3, region3, all, 1)",
                  "GetRgnBox(region3)", "SetWindowPos(window, null, 100, 50, 0, 0, 1)"}));
}

TEST_F(RestoringAWindow, WithoutAWindowNothingIsDone)
{
    CWnd neverCreated;
    CRect saved(100, 50, 500, 350);
    CRect reference(0, 0, 200, 100);
    EXPECT_EQ(RestoreWindowPositionSafe(nullptr, saved, reference), FALSE);
    EXPECT_EQ(RestoreWindowPositionSafe(&neverCreated, saved, reference), FALSE);
    EXPECT_TRUE(IsRect(saved, {100, 50, 500, 350}));
    EXPECT_EQ(m_log.Lines(), CallLog::LineList{});
    EXPECT_EQ(m_dpi.CallCount(), 0);
}

TEST_F(RestoringAWindow, OfADestroyedWindowNothingIsDone)
{
    const WindowDpiAnswer answer(144);
    ::DestroyWindow(m_window.Handle());
    CRect saved(100, 50, 500, 350);
    CRect reference(0, 0, 200, 100);
    EXPECT_EQ(RestoreWindowPositionSafe(m_window.Object(), saved, reference), FALSE);
    EXPECT_TRUE(IsRect(saved, {100, 50, 500, 350}));
    EXPECT_EQ(m_log.Lines(), CallLog::LineList{});
}

TEST_F(RestoringAWindow, AnotherWidthThanTheReferencesMeans96DpiUnits)
{
    const WindowDpiAnswer answer(144);
    CRect saved(100, 50, 500, 350);
    EXPECT_EQ(MovesFor(saved, {0, 0, 399, 300}),
              (CallLog::LineList{"SetWindowPos(window, null, 0, 0, 600, 450, 2)",
                                 "SetWindowPos(window, null, 100, 50, 0, 0, 1)"}));
    EXPECT_TRUE(IsRect(saved, {100, 50, 700, 500}));
}

TEST_F(RestoringAWindow, AnotherHeightThanTheReferencesMeans96DpiUnits)
{
    const WindowDpiAnswer answer(144);
    CRect saved(100, 50, 500, 350);
    EXPECT_EQ(MovesFor(saved, {0, 0, 400, 301}),
              (CallLog::LineList{"SetWindowPos(window, null, 0, 0, 600, 450, 2)",
                                 "SetWindowPos(window, null, 100, 50, 0, 0, 1)"}));
    EXPECT_TRUE(IsRect(saved, {100, 50, 700, 500}));
}

TEST_F(RestoringAWindow, TheReferencesSizeMeansPixelsWhereverTheReferenceIs)
{
    const WindowDpiAnswer answer(144);
    CRect saved(100, 50, 500, 350);
    EXPECT_EQ(MovesFor(saved, {-1000, 2000, -600, 2300}),
              (CallLog::LineList{"SetWindowPos(window, null, 0, 0, 400, 300, 2)",
                                 "SetWindowPos(window, null, 100, 50, 0, 0, 1)"}));
    EXPECT_TRUE(IsRect(saved, {100, 50, 500, 350}));
}

TEST_F(RestoringAWindow, TheSizeGrowsFromTheLeftAndTopEdge)
{
    CRect at120(-40, 50, 361, 351);
    CRect at192(-40, 50, 361, 351);
    {
        const WindowDpiAnswer answer(120);
        MovesFor(at120, {0, 0, 1, 1});
    }
    const WindowDpiAnswer answer(192);
    MovesFor(at192, {0, 0, 1, 1});
    EXPECT_TRUE(IsRect(at120, {-40, 50, 461, 426}));
    EXPECT_TRUE(IsRect(at192, {-40, 50, 762, 652}));
}

TEST_F(RestoringAWindow, AWidthThatLeaves32BitsIsNotScaled)
{
    const WindowDpiAnswer answer(144);
    CRect saved(100, 50, 2000000100, 350);
    EXPECT_EQ(MovesFor(saved, {0, 0, 1, 1}),
              (CallLog::LineList{"SetWindowPos(window, null, 0, 0, 2000000000, 450, 2)",
                                 "SetWindowPos(window, null, 100, 50, 0, 0, 1)"}));
    EXPECT_TRUE(IsRect(saved, {100, 50, 2000000100, 500}));
}

TEST_F(RestoringAWindow, AHeightThatLeaves32BitsIsNotScaled)
{
    const WindowDpiAnswer answer(144);
    CRect saved(100, 50, 500, 2000000050);
    EXPECT_EQ(MovesFor(saved, {0, 0, 1, 1}).front(), "SetWindowPos(window, null, 0, 0, 600, 2000000000, 2)");
    EXPECT_TRUE(IsRect(saved, {100, 50, 700, 2000000050}));
}

TEST_F(RestoringAWindow, TheScaledRectangleIsTheOneThatIsLookedAt)
{
    CRect saved(-100, 50, 0, 150);
    const WindowDpiAnswer answer(200);
    EXPECT_EQ(MovesFor(saved, {0, 0, 1, 1}),
              (CallLog::LineList{"SetWindowPos(window, null, 0, 0, 208, 208, 2)",
                                 "SetWindowPos(window, null, -100, 50, 0, 0, 1)"}));
}

TEST_F(RestoringAWindow, APlaceOnAnyMonitorIsTaken)
{
    EXPECT_TRUE(IsPlacedAt({0, 0, 400, 300}));
    EXPECT_TRUE(IsPlacedAt({1500, -100, 1900, 200}));
}

TEST_F(RestoringAWindow, APlaceAtNegativeCoordinatesIsTaken)
{
    m_monitors.workAreas = {{-2000, -1500, -1000, -500}, {0, 0, 1000, 800}};
    EXPECT_TRUE(IsPlacedAt({-1900, -1400, -1500, -1100}));
    EXPECT_TRUE(IsCentred({-900, -1400, -500, -1100}));
}

TEST_F(RestoringAWindow, APlaceOffEveryMonitorIsNotTaken)
{
    EXPECT_TRUE(IsCentred({3000, 50, 3400, 350}));
    EXPECT_TRUE(IsCentred({100, -400, 500, -30}));
    EXPECT_TRUE(IsCentred({100, 800, 500, 1100}));
}

TEST_F(RestoringAWindow, APlaceInTheGapBetweenMonitorsIsNotTaken)
{
    EXPECT_TRUE(IsCentred({1000, 50, 1200, 350}));
}

TEST_F(RestoringAWindow, ThreeCaptionButtonsHaveToBeReachable)
{
    EXPECT_TRUE(IsPlacedAt({892, 50, 1192, 350}));
    EXPECT_TRUE(IsCentred({893, 50, 1193, 350}));
    EXPECT_TRUE(IsPlacedAt({-292, 50, 108, 350}));
    EXPECT_TRUE(IsCentred({-292, 50, 107, 350}));
}

TEST_F(RestoringAWindow, AWindowNarrowerThanThreeCaptionButtonsIsNotReachable)
{
    EXPECT_TRUE(IsPlacedAt({100, 50, 208, 350}));
    EXPECT_TRUE(IsCentred({100, 50, 207, 350}));
}

TEST_F(RestoringAWindow, SeventyPercentOfTheTitleStripHaveToBeReachable)
{
    EXPECT_TRUE(IsPlacedAt({100, -9, 500, 350}));
    EXPECT_TRUE(IsCentred({100, -10, 500, 350}));
    EXPECT_TRUE(IsPlacedAt({100, 779, 500, 1100}));
    EXPECT_TRUE(IsCentred({100, 780, 500, 1100}));
}

TEST_F(RestoringAWindow, TheFrameAboveTheCaptionIsPartOfTheTitleStrip)
{
    m_frame.frameHeight = 17;
    EXPECT_TRUE(IsPlacedAt({100, 772, 500, 1100}));
    EXPECT_TRUE(IsCentred({100, 773, 500, 1100}));
}

TEST_F(RestoringAWindow, ThePercentageIsCutOff)
{
    m_frame.captionHeight = 19;
    m_frame.frameHeight = 4; // 70 % of 23 is 16.1
    EXPECT_TRUE(IsPlacedAt({100, -7, 500, 350}));
    EXPECT_TRUE(IsCentred({100, -8, 500, 350}));
}

TEST_F(RestoringAWindow, OnlyTheTitleStripCounts)
{
    EXPECT_TRUE(IsCentred({100, -200, 500, 600}));
}

TEST_F(RestoringAWindow, AStripUnderATaskBarIsNotReachable)
{
    m_monitors.workAreas = {{0, 40, 1000, 800}};
    EXPECT_TRUE(IsCentred({100, 0, 500, 300}));
    EXPECT_TRUE(IsCentred({100, 30, 500, 300}));
    EXPECT_TRUE(IsPlacedAt({100, 31, 500, 300}));
}

TEST_F(RestoringAWindow, TwoNarrowEndsCountWithTheGapBetweenThem)
{
    EXPECT_TRUE(IsPlacedAt({999, 50, 1201, 350}));
    EXPECT_TRUE(IsCentred({999, 50, 1200, 350}));
    EXPECT_TRUE(IsCentred({1000, 50, 1201, 350}));
}

TEST_F(RestoringAWindow, TwoLowCornersCountWithTheHeightBetweenThem)
{
    m_monitors.workAreas = {{0, 0, 300, 60}, {300, 70, 1000, 800}};
    EXPECT_TRUE(IsPlacedAt({100, 50, 500, 350}));
    m_monitors.workAreas = {{0, 0, 300, 60}};
    EXPECT_TRUE(IsCentred({100, 50, 500, 350}));
}

TEST_F(RestoringAWindow, OfMonitorsOfDifferentDpiTheWindowsOwnDpiCounts)
{
    const WindowDpiAnswer answer(168);
    const ImportSpy<decltype(::GetDpiForMonitor)> ofMonitor(VxDpiModule(), "shcore.dll", "GetDpiForMonitor");
    CRect saved(1500, 50, 1900, 350);
    MovesFor(saved, saved);
    EXPECT_EQ(m_log.Lines().at(1), "GetSystemMetricsForDpi(4, 168)");
    EXPECT_EQ(ofMonitor.CallCount(), 0);
}

// A window that grows may come to another monitor by that.
TEST_F(RestoringAWindow, TheTitleBarIsTheOneThatTheSizedWindowHas)
{
    const ImportSpy<decltype(::GetDpiForWindow)> answer(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                                                        [this](HWND)
                                                        { return Moves().empty() ? 144u : 192u; });
    CRect saved(kInside);
    EXPECT_EQ(MovesFor(saved, {0, 0, 1, 1}).at(0), "SetWindowPos(window, null, 0, 0, 600, 450, 2)");
    EXPECT_EQ(m_log.Lines().at(1), "GetSystemMetricsForDpi(4, 192)");
}

TEST_F(RestoringAWindow, AFrameThatTakesUpNothingIsNotReachable)
{
    m_frame = {0, 0, 0};
    EXPECT_TRUE(IsCentred(kInside));
}

TEST_F(RestoringAWindow, AMonitorThatDoesNotTellIsLeftOut)
{
    m_monitors.workAreas = {{0, 0, 1000, 800}, {1000, 0, 2000, 800}, {2000, 0, 3000, 800}};
    m_monitors.silent = 1;
    EXPECT_TRUE(IsPlacedAt({100, 50, 500, 350}));
    EXPECT_TRUE(IsCentred({1300, 50, 1700, 350}));
    EXPECT_TRUE(IsPlacedAt({2300, 50, 2700, 350}));
    EXPECT_NO_LEAK([this] { EXPECT_TRUE(IsCentred({1300, 50, 1700, 350})); });
}

TEST_F(RestoringAWindow, WithoutMonitorsItIsCentred)
{
    m_monitors.workAreas.clear();
    EXPECT_NO_LEAK([this] { EXPECT_TRUE(IsCentred(kInside)); });
}

TEST_F(RestoringAWindow, WithoutTheListOfMonitorsItIsCentred)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::EnumDisplayMonitors)> refused(VxDpiModule(), "user32.dll",
                                                                       "EnumDisplayMonitors", 1, FALSE);
            EXPECT_TRUE(IsCentred(kInside));
        });
}

TEST_F(RestoringAWindow, WithoutTheRegionOfAllWorkAreasItIsCentred)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::CreateRectRgn)> refused(VxDpiModule(), "gdi32.dll", "CreateRectRgn",
                                                                 1, nullptr);
            EXPECT_TRUE(IsCentred(kInside));
        });
}

TEST_F(RestoringAWindow, AWorkAreaWithoutRegionIsLeftOut)
{
    using Create = FailNthCall<decltype(::CreateRectRgnIndirect)>;
    EXPECT_NO_LEAK(
        [this]
        {
            const Create refused(VxDpiModule(), "gdi32.dll", "CreateRectRgnIndirect", 1, nullptr);
            EXPECT_TRUE(IsCentred(kInside));
        });
    const Create refused(VxDpiModule(), "gdi32.dll", "CreateRectRgnIndirect", 1, nullptr);
    EXPECT_TRUE(IsPlacedAt({1500, 50, 1900, 350}));
}

TEST_F(RestoringAWindow, WithoutTheRegionOfTheTitleStripItIsCentred)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::CreateRectRgnIndirect)> refused(VxDpiModule(), "gdi32.dll",
                                                                         "CreateRectRgnIndirect", 3, nullptr);
            EXPECT_TRUE(IsCentred(kInside));
        });
}

TEST_F(RestoringAWindow, AWorkAreaThatCannotBeAddedIsLeftOut)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::CombineRgn)> refused(VxDpiModule(), "gdi32.dll", "CombineRgn", 1,
                                                              ERROR);
            EXPECT_TRUE(IsCentred(kInside));
        });
    const FailNthCall<decltype(::CombineRgn)> refused(VxDpiModule(), "gdi32.dll", "CombineRgn", 1, ERROR);
    EXPECT_TRUE(IsPlacedAt({1500, 50, 1900, 350}));
}

TEST_F(RestoringAWindow, ATitleStripThatCannotBeComparedIsNotReachable)
{
    for (const int answer : {ERROR, NULLREGION})
    {
        EXPECT_NO_LEAK(
            [this, answer]
            {
                const FailNthCall<decltype(::CombineRgn)> refused(VxDpiModule(), "gdi32.dll", "CombineRgn", 3,
                                                                  answer);
                EXPECT_TRUE(IsCentred(kInside));
            });
    }
}

TEST_F(RestoringAWindow, AWindowThatCannotBeMovedIsNoFailure)
{
    const FailNthCall<decltype(::SetWindowPos)> refused(VxDpiModule(), "user32.dll", "SetWindowPos",
                                                        FailNthCall<decltype(::SetWindowPos)>::kEveryCall,
                                                        FALSE);
    CRect saved = kInside;
    CRect reference = saved;
    EXPECT_EQ(RestoreWindowPositionSafe(m_window.Object(), saved, reference), TRUE);
    EXPECT_EQ(refused.CallCount(), 2);
}

TEST_F(RestoringAWindowThatDies, TheMonitorAtTheCentreTellsItsVerticalDpi)
{
    EXPECT_EQ(Questions(kInside),
              (CallLog::LineList{"MonitorFromPoint({300, 200}, 2)", "GetDpiForMonitor(monitor1, 0)",
                                 "GetSystemMetricsForDpi(4, 192)"}));
    EXPECT_EQ(m_dpi.CallCount(), 1);
}

TEST_F(RestoringAWindowThatDies, TheCentreIsCutOffTowardsZero)
{
    EXPECT_EQ(Questions({-501, -301, -100, -100}).front(), "MonitorFromPoint({-300, -200}, 2)");
    EXPECT_EQ(Questions({100, 50, 501, 351}).front(), "MonitorFromPoint({300, 200}, 2)");
}

TEST_F(RestoringAWindowThatDies, AnyAnswerThatIsNoErrorCounts)
{
    m_answer = S_FALSE;
    EXPECT_EQ(Questions(kInside).back(), "GetSystemMetricsForDpi(4, 192)");
}

TEST_F(RestoringAWindowThatDies, AMonitorWithoutDpiCountsAs96)
{
    m_answer = E_FAIL;
    EXPECT_EQ(Questions(kInside).back(), "GetSystemMetricsForDpi(4, 96)");
}

TEST_F(RestoringAWindowThatDies, IsStillPlacedOrCentred)
{
    EXPECT_TRUE(IsPlacedAt(kInside));
    m_isAlive = true;
    EXPECT_TRUE(IsCentred({3000, 50, 3400, 350}));
}
