#include "support/TestWindow.h"

#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/Input.h"
#include "support/TestDpi.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

TEST(TestWindow, IsHiddenUntilShown)
{
    TestWindow window;
    ASSERT_TRUE(::IsWindow(window.Handle()));
    EXPECT_FALSE(::IsWindowVisible(window.Handle()));
    window.Show();
    EXPECT_TRUE(::IsWindowVisible(window.Handle()));
}

TEST(TestWindow, HasTheBoundsAndTheParentAskedFor)
{
    const TestWindow parent;
    const TestWindow child(WS_CHILD, parent.Handle(), {10, 20, 110, 70});
    RECT bounds = {};
    ::GetWindowRect(child.Handle(), &bounds);
    ::MapWindowPoints(nullptr, parent.Handle(), reinterpret_cast<POINT*>(&bounds), 2);
    EXPECT_EQ(bounds.left, 10);
    EXPECT_EQ(bounds.top, 20);
    EXPECT_EQ(bounds.right, 110);
    EXPECT_EQ(bounds.bottom, 70);
    EXPECT_EQ(::GetParent(child.Handle()), parent.Handle());
}

TEST(TestWindow, HandlerAnswersOrLeavesTheDefault)
{
    TestWindow window;
    int seen = 0;
    window.OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            ++seen;
            if (message == WM_APP)
                return 4711;
            return std::nullopt;
        });
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_APP, 0, 0), 4711);
    EXPECT_EQ(::SendMessageW(window.Handle(), WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(seen, 2);
}

TEST(TestWindow, MayBeDestroyedBeforeItsObject)
{
    const TestWindow window;
    ::DestroyWindow(window.Handle());
    EXPECT_EQ(window.Handle(), nullptr);
}

TEST(TestWindow, LeavesNothing)
{
    EXPECT_NO_LEAK([] { const TestWindow window; });
}

TEST(PumpMessages, HandlesPostedMessagesForTheGivenTime)
{
    TestWindow window;
    int timers = 0;
    window.OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message != WM_TIMER)
                return std::nullopt;
            ++timers;
            return 0;
        });
    ::SetTimer(window.Handle(), 1, 20, nullptr);
    const ULONGLONG start = ::GetTickCount64();
    PumpMessages(200);
    EXPECT_GE(::GetTickCount64() - start, 190u);
    EXPECT_GE(timers, 2);
}

TEST(TestDpi, IsTheSystemsAndTheAnnouncedOne)
{
    EXPECT_EQ(TestDpi(), ::GetDpiForSystem());
    EXPECT_EQ(TestDpi(), ::GetDpiForWindow(TestWindow().Handle()));
}

TEST(TestDpi, ADifferenceFromTheAnnouncedOneThrows)
{
    const std::string kept = EnvironmentValue("VX_TEST_DPI");
    ::_putenv_s("VX_TEST_DPI", "97");
    EXPECT_THROW(TestDpi(), std::runtime_error);
    ::_putenv_s("VX_TEST_DPI", kept.c_str());
    EXPECT_NO_THROW(TestDpi());
}

TEST(ThreadDpiUnaware, GivesWindowsOf96DpiForItsScope)
{
    {
        const ThreadDpiUnaware unaware;
        EXPECT_EQ(::GetDpiForWindow(TestWindow().Handle()), 96u);
    }
    EXPECT_EQ(::GetDpiForWindow(TestWindow().Handle()), TestDpi());
}

TEST(DpiWindow, MovesBetween96AndTheSystemsDpi)
{
    DpiWindow window;
    std::vector<UINT> dpiAtMessage;
    window.OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message == WM_DPICHANGED_AFTERPARENT)
                dpiAtMessage.push_back(::GetDpiForWindow(window.Handle()));
            return std::nullopt;
        });
    EXPECT_EQ(::GetDpiForWindow(window.Handle()), TestDpi());
    window.MoveTo(96);
    EXPECT_EQ(::GetDpiForWindow(window.Handle()), 96u);
    window.MoveTo(TestDpi());
    EXPECT_EQ(::GetDpiForWindow(window.Handle()), TestDpi());
    EXPECT_EQ(dpiAtMessage, (std::vector<UINT>{96, TestDpi()}));
    EXPECT_EQ(::GetParent(window.Handle()), window.ParentOf(TestDpi()));
}

TEST(DpiWindow, AnotherDpiThrows)
{
    DpiWindow window;
    EXPECT_THROW(window.MoveTo(97), std::invalid_argument);
}

TEST(Input, AClickReachesTheWindowAtItsPosition)
{
    TestWindow window(WS_POPUP);
    std::vector<LPARAM> pressed;
    window.OnMessage(
        [&](UINT message, WPARAM, LPARAM position) -> std::optional<LRESULT>
        {
            if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP)
                pressed.push_back(position);
            return std::nullopt;
        });
    window.Show();
    Click(OnScreen(window.Handle(), 31, 47));
    EXPECT_EQ(pressed, (std::vector<LPARAM>{MAKELPARAM(31, 47), MAKELPARAM(31, 47)}));
}

TEST(Input, ADragMovesWithTheButtonDown)
{
    TestWindow window(WS_POPUP);
    std::vector<int> columns;
    window.OnMessage(
        [&](UINT message, WPARAM keys, LPARAM position) -> std::optional<LRESULT>
        {
            if (message == WM_MOUSEMOVE && (keys & MK_LBUTTON) != 0)
                columns.push_back(static_cast<short>(LOWORD(position)));
            return std::nullopt;
        });
    window.Show();
    Drag(OnScreen(window.Handle(), 20, 30), OnScreen(window.Handle(), 60, 30));
    ASSERT_FALSE(columns.empty());
    EXPECT_EQ(columns.back(), 60);
    EXPECT_GE(columns.size(), 3u);
}

TEST(Input, AKeyReachesTheFocusedWindow)
{
    TestWindow window;
    WPARAM key = 0;
    window.OnMessage(
        [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT>
        {
            if (message == WM_KEYDOWN)
                key = wParam;
            return std::nullopt;
        });
    window.Show();
    ::SetForegroundWindow(window.Handle());
    ::SetFocus(window.Handle());
    PressKey(VK_RIGHT);
    EXPECT_EQ(key, static_cast<WPARAM>(VK_RIGHT));
}
