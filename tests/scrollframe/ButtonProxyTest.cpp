#include "foundation/LibraryModule.h"
#include "scrollframe/FrameFixtures.h"
#include "scrollframe/InternalClasses.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace
{
constexpr LRESULT kDefaultResult = 77;

// What the framework does for the first proxy of a dialog when the DPI of its parent changes. The default
// procedure is not reached by such a message.
class FollowingCalls
{
public:
    explicit FollowingCalls(const StepDialog& dialog) : m_hProxy(dialog.Proxy(0))
    {
        m_log.Name(m_hProxy, "proxy");
    }

    void Name(const void* handle, const char* name) { m_log.Name(handle, name); }
    const CallLog::LineList& Lines() const { return m_log.Lines(); }

private:
    LRESULT CallDefault(WNDPROC pProcedure, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != WM_DPICHANGED && message != WM_DPICHANGED_AFTERPARENT)
            return m_default.Original()(pProcedure, hWnd, message, wParam, lParam);
        m_log.WriteCall("default", hWnd, message, wParam, lParam);
        return kDefaultResult;
    }

    LRESULT Send(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_SETFONT)
            m_log.WriteCall("SetFont", hWnd, reinterpret_cast<const void*>(wParam), lParam);
        return m_send.Original()(hWnd, message, wParam, lParam);
    }

    HWND m_hProxy;
    CallLog m_log;
    ImportSpy<decltype(::CallWindowProcW)> m_default{
        FrameworkModule(), "user32.dll", "CallWindowProcW",
        [this](WNDPROC pProcedure, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        { return CallDefault(pProcedure, hWnd, message, wParam, lParam); }};
    ImportSpy<decltype(::SendMessageW)> m_send{FrameworkModule(), "user32.dll", "SendMessageW",
                                               [this](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                                               { return Send(hWnd, message, wParam, lParam); }};
    RecordCalls<decltype(::SetWindowPos)> m_place{m_log, FrameworkModule(), "user32.dll", "SetWindowPos"};
};
}

TEST(ButtonProxy, AChangeOfDpiIsHandledByDefaultAsThatOfAFrameAndThenTheButtonIsFollowed)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CFont font;
    font.CreatePointFont(140, L"Tahoma");
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   dialog.ok.MoveWindow(3, 4, 90, 40);
                   dialog.ok.SetFont(&font);
                   FollowingCalls calls(dialog);
                   calls.Name(font.m_hObject, "font");
                   EXPECT_EQ(::SendMessageW(dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 11, 22),
                             kDefaultResult);
                   EXPECT_EQ(calls.Lines(), (CallLog::LineList{"default(proxy, 736, 11, 22)",
                                                               "SetWindowPos(proxy, null, 0, 0, 90, 40, 6)",
                                                               "SetFont(proxy, font, 1)"}));
                   dialog.Close();
               });
}

TEST(ButtonProxy, WithoutItsButtonItKeepsItsSizeAndFontAtAnotherDpi)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   dialog.ok.DestroyWindow();
                   const FollowingCalls calls(dialog);
                   EXPECT_EQ(::SendMessageW(dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 11, 22),
                             kDefaultResult);
                   EXPECT_EQ(calls.Lines(), (CallLog::LineList{"default(proxy, 736, 11, 22)"}));
                   dialog.Close();
               });
}

TEST(ButtonProxy, AClickIsOneOnItsButtonEvenWhenThatIsDisabled)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CallLog log;
    dialog.Run({{&dialog.ok, 0}},
               [&]
               {
                   log.Name(dialog.ok.m_hWnd, "ok");
                   ::EnableWindow(dialog.ok.m_hWnd, FALSE);
                   {
                       const ImportSpy<decltype(::SendMessageW)> send(
                           FrameworkModule(), "user32.dll", "SendMessageW",
                           [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                           {
                               if (hWnd == dialog.ok.m_hWnd)
                                   log.WriteCall("SendMessage", hWnd, message, wParam, lParam);
                               return send.Original()(hWnd, message, wParam, lParam);
                           });
                       ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0);
                   }
                   dialog.Close();
               });
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"SendMessage(ok, 245, 0, 0)"}));
}

TEST(ButtonProxy, AClickIsHandledWhileTheLoopThatItEndsStillRuns)
{
    MainWindow mainWindow;
    StepDialog dialog;
    BOOL goesOn = FALSE;
    dialog.whenOk = [&] { goesOn = CWnd::FromHandlePermanent(dialog.Frame())->ContinueModal(); };
    EXPECT_EQ(dialog.Run({{&dialog.ok, 1}}, [&] { ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0); }), 1);
    EXPECT_TRUE(goesOn);
}

// The main window is disabled just before the loop and enabled just after it.
TEST(ButtonProxy, OutsideOfTheLoopAClickReachesTheButtonAndEndsNothing)
{
#if defined(__MINGW32__)
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    MainWindow mainWindow;
    StepDialog dialog;
    mainWindow.Window().OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message == WM_ENABLE)
                ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0);
            return std::nullopt;
        });
    std::vector<int> ends;
    const VirtualFunctionSpy<void(CObject*, int)> end(object.get(), &CWnd::EndModalLoop,
                                                      [&](CObject* pFrame, int nResult)
                                                      {
                                                          ends.push_back(nResult);
                                                          end.Original()(pFrame, nResult);
                                                      });
    EXPECT_EQ(dialog.Run({{&dialog.ok, 7}}, [&] { dialog.Close(); }), IDCANCEL);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK", "OK"}));
    EXPECT_EQ(ends, std::vector<int>{IDCANCEL});
#else
    GTEST_SKIP() << "the place in the virtual table is known for GCC";
#endif
}

TEST(ButtonProxy, OutsideOfAFrameAClickReachesTheButtonAndEndsNothing)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CWnd panel;
    ASSERT_TRUE(panel.CreateEx(0, L"STATIC", nullptr, WS_POPUP, CRect(0, 0, 200, 100), nullptr, 0));
    const INT_PTR result = dialog.Run(dialog.BothButtons(),
                                      [&]
                                      {
                                          const HWND hProxy = dialog.Proxy(0);
                                          ::SetParent(hProxy, panel.m_hWnd);
                                          ::SendMessageW(hProxy, BM_CLICK, 0, 0);
                                          dialog.Close();
                                      });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK"}));
    panel.DestroyWindow();
}
