#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestDpi.h"
#include "support/TestWindow.h"

#include <vxdpi/Dpi.h>

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace
{
// Writes down what the library asks the platform about DPIs. The platform answers unless the test sets
// another answer.
class DpiQuestions
{
public:
    explicit DpiQuestions(HWND window)
        : m_isWindow(m_log, VxDpiModule(), "user32.dll", "IsWindow"),
          m_getDpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                   [this](HWND asked)
                   {
                       m_log.WriteCall("GetDpiForWindow", asked);
                       return windowDpi ? *windowDpi : m_getDpi.Original()(asked);
                   }),
          m_getDc(VxDpiModule(), "user32.dll", "GetDC",
                  [this](HWND asked)
                  {
                      m_log.WriteCall("GetDC", asked);
                      const HDC dc = screenIsRefused ? nullptr : m_getDc.Original()(asked);
                      m_log.Name(dc, "screen");
                      return dc;
                  }),
          m_getCaps(VxDpiModule(), "gdi32.dll", "GetDeviceCaps",
                    [this](HDC dc, int index)
                    {
                        m_log.WriteCall("GetDeviceCaps", dc, index);
                        return screenDpi ? *screenDpi : m_getCaps.Original()(dc, index);
                    }),
          m_releaseDc(m_log, VxDpiModule(), "user32.dll", "ReleaseDC")
    {
        m_log.Name(window, "window");
    }

    const CallLog::LineList& Lines() const { return m_log.Lines(); }

    std::optional<UINT> windowDpi;
    std::optional<int> screenDpi;
    bool screenIsRefused = false;

private:
    CallLog m_log;
    RecordCalls<decltype(::IsWindow)> m_isWindow;
    ImportSpy<decltype(::GetDpiForWindow)> m_getDpi;
    ImportSpy<decltype(::GetDC)> m_getDc;
    ImportSpy<decltype(::GetDeviceCaps)> m_getCaps;
    RecordCalls<decltype(::ReleaseDC)> m_releaseDc;
};

HWND DestroyedWindow()
{
    const TestWindow window;
    return window.Handle();
}

const CallLog::LineList kWholeChain = {"IsWindow(window)", "GetDpiForWindow(window)", "GetDC(null)",
                                       "GetDeviceCaps(screen, 88)", "ReleaseDC(null, screen)"};
}

TEST(VxSafeGetDpiForWindow, NoWindowGives96WithoutAQuestion)
{
    const DpiQuestions questions(nullptr);
    EXPECT_EQ(VxSafeGetDpiForWindow(nullptr), 96u);
    EXPECT_EQ(questions.Lines(), CallLog::LineList{});
}

TEST(VxSafeGetDpiForWindow, ADestroyedWindowGives96WithoutAskingForItsDpi)
{
    const HWND destroyed = DestroyedWindow();
    const DpiQuestions questions(destroyed);
    EXPECT_EQ(VxSafeGetDpiForWindow(destroyed), 96u);
    EXPECT_EQ(questions.Lines(), CallLog::LineList{"IsWindow(window)"});
}

TEST(VxSafeGetDpiForWindow, AHandleThatNeverWasAWindowGives96)
{
    EXPECT_EQ(VxSafeGetDpiForWindow(reinterpret_cast<HWND>(static_cast<INT_PTR>(-5))), 96u);
}

TEST(VxSafeGetDpiForWindow, AWindowGivesItsOwnDpi)
{
    const TestWindow window;
    const DpiQuestions questions(window.Handle());
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), TestDpi());
    EXPECT_EQ(questions.Lines(), (CallLog::LineList{"IsWindow(window)", "GetDpiForWindow(window)"}));
}

TEST(VxSafeGetDpiForWindow, AWindowThatDoesNotFollowTheDpiGives96)
{
    const ThreadDpiUnaware unaware;
    const TestWindow window;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 96u);
}

TEST(VxSafeGetDpiForWindow, FollowsAWindowToAnotherDpi)
{
    DpiWindow window;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), TestDpi());
    window.MoveTo(96);
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 96u);
    window.MoveTo(TestDpi());
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), TestDpi());
}

TEST(VxSafeGetDpiForWindow, AnyDpiOfAWindowIsTakenAsItIs)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 1;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 1u);
    questions.windowDpi = 0xFFFFFFFF;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 0xFFFFFFFFu);
}

TEST(VxSafeGetDpiForWindow, AWindowWithoutADpiGivesTheScreens)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 0;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), TestDpi());
    EXPECT_EQ(questions.Lines(), kWholeChain);
}

TEST(VxSafeGetDpiForWindow, AnyDpiOfTheScreenIsTakenAsItIs)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 0;
    questions.screenDpi = 1;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 1u);
    questions.screenDpi = 203;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 203u);
}

TEST(VxSafeGetDpiForWindow, WithoutAnyDpiItIs96)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 0;
    questions.screenDpi = 0;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 96u);
    EXPECT_EQ(questions.Lines(), kWholeChain);
}

TEST(VxSafeGetDpiForWindow, WithoutAScreenContextItIs96AndNothingIsReleased)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 0;
    questions.screenDpi = 144;
    questions.screenIsRefused = true;
    EXPECT_EQ(VxSafeGetDpiForWindow(window.Handle()), 96u);
    EXPECT_EQ(questions.Lines(),
              (CallLog::LineList{"IsWindow(window)", "GetDpiForWindow(window)", "GetDC(null)"}));
}

TEST(VxSafeGetDpiForWindow, LeavesNothingBehind)
{
    const TestWindow window;
    DpiQuestions questions(window.Handle());
    questions.windowDpi = 0;
    questions.screenDpi = 0;
    for (int call = 0; call < 100; ++call)
        VxSafeGetDpiForWindow(window.Handle());
    const HandleCount before = HandleCount::Now();
    for (int call = 0; call < 100; ++call)
        VxSafeGetDpiForWindow(window.Handle());
    EXPECT_TRUE(SameHandlesAs(before));
}

TEST(VxSafeGetDpiForWindow, AnyThreadMayAskForAWindow)
{
    const TestWindow window;
    unsigned int dpi = 0;
    std::thread([&] { dpi = VxSafeGetDpiForWindow(window.Handle()); }).join();
    EXPECT_EQ(dpi, TestDpi());
}
