#include "foundation/CallSequence.h"
#include "scrollframe/FrameFixtures.h"
#include "support/ImportSpy.h"

#include <algorithm>
#include <optional>

namespace
{
const CallNames kReadDialog = {"CWnd::GetParent", "CWnd::GetWindowTextW", "CWnd::GetWindowRect",
                               "MonitorFromWindow"};
const CallNames kCreateFrame = {"GetMonitorInfoA", "IntersectRect", "CFrameWnd::Create"};
const CallNames kAskIcons = {"CWnd::GetIcon", "CWnd::GetIcon"};

// A new window is told its size, which is of no interest yet.
const CallNames kCreateView = {"CWnd::Create", "CWnd::OnSize"};
const CallNames kCreateBars = {"CScrollBar::Create", "CScrollBar::Create"};
const CallNames kAdopt = {"CWnd::SetParent", "CWnd::GetStyle", "CWnd::GetExStyle"};
const CallNames kWriteStyles = {"SetWindowLongPtrW", "SetWindowLongPtrW"};

const CallNames kCreateProxy = {"CWnd::GetWindowTextW", "CWnd::GetStyle", "CWnd::GetWindowRect",
                                "CButton::Create", "CWnd::GetFont"};
const CallNames kHideReal = {"CWnd::ShowWindow"};
const CallNames kBrush = {"GetSysColorBrush", "CGdiObject::Attach"};

const CallNames kUpToView = InOrder({kReadDialog, kCreateFrame, kAskIcons, kCreateView});
const CallNames kUpToDialog = InOrder({kUpToView, kCreateBars, kAdopt, kWriteStyles});

// From the view to the frame, each with its window.
const CallNames kDestroy = {"CWnd::DestroyWindow", "CWnd::DestroyWindow"};

// The parent is disabled and enabled through the tables of its class.
const CallNames kRun = {"CWnd::FromHandle", "CWnd::ShowWindow", "CWnd::UpdateWindow", "CWnd::RunModalLoop",
                        "CWnd::FromHandle"};

// Those of the calls that have one of these names.
CallNames OnlyOf(const CallNames& calls, const CallNames& names)
{
    CallNames rest;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(rest),
                 [&](const std::string& name)
                 { return std::find(names.begin(), names.end(), name) != names.end(); });
    return rest;
}

class FrameSequence : public FrameworkCallSequence
{
protected:
    // The calls that show the dialog, once it is made, and of a loop that ends at once.
    CallNames CallsToShow(const Steps& whenMade = nullptr)
    {
        std::optional<CallTrace> trace;
        m_dialog.created = [&]
        {
            if (whenMade)
                whenMade();
            trace.emplace(std::vector<HMODULE>{VxDpiModule()}, FrameworkModule());
        };
        m_dialog.Run(m_dialog.BothButtons(), [&] { m_dialog.Close(); });
        return trace->Calls();
    }

    // Those before the parent is looked up to be disabled.
    static CallNames UpToShowing(const CallNames& calls)
    {
        return CallNames(calls.begin(), std::find(calls.begin(), calls.end(), "CWnd::FromHandle"));
    }

    // The calls of what is done while a frame is shown that is smaller than its content.
    CallNames CallsInFrame(const Steps& work)
    {
        CallNames calls;
        m_dialog.Run({{&m_dialog.ok, 0}, {&m_dialog.cancel, IDCANCEL}},
                     [&]
                     {
                         ::SetWindowPos(m_dialog.Frame(), nullptr, 20, 20, 300, 300, SWP_NOZORDER);
                         calls = CallsOf(work);
                         if (m_dialog.m_hWnd)
                             m_dialog.Close();
                     });
        return calls;
    }

    CallNames CallsOfMessage(
        const std::function<HWND()>& window, UINT message, WPARAM wParam = 0,
        const std::function<LPARAM()>& lParam = [] { return LPARAM{0}; })
    {
        return CallsInFrame([&] { ::SendMessageW(window(), message, wParam, lParam()); });
    }

    MainWindow m_main;
    StepDialog m_dialog;
};

// The framework makes no window any more, from one on.
class NoWindowFrom : public ImportSpy<decltype(::CreateWindowExW)>
{
public:
    explicit NoWindowFrom(int call)
        : ImportSpy(FrameworkModule(), "user32.dll", "CreateWindowExW",
                    [this, call](DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x,
                                 int y, int cx, int cy, HWND hParent, HMENU hMenu, HINSTANCE hInstance,
                                 LPVOID pParameter) -> HWND
                    {
                        if (CallCount() >= call)
                            return nullptr;
                        return Original()(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent, hMenu,
                                          hInstance, pParameter);
                    })
    {
    }
};
}

TEST_F(FrameSequence, EverythingIsMadeBeforeTheParentIsDisabled)
{
    const CallNames proxy = InOrder({kCreateProxy, kHideReal});
    EXPECT_TRUE(AreCalls(UpToShowing(CallsToShow()), InOrder({kUpToDialog, proxy, proxy, kBrush})));
}

TEST_F(FrameSequence, AFontAndIconsAreHandedOn)
{
    const auto addFontAndIcons = [&]
    {
        const HICON icon = ::LoadIconW(nullptr, IDI_APPLICATION);
        m_dialog.ok.SetFont(CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))));
        m_dialog.SetIcon(icon, FALSE);
        m_dialog.SetIcon(icon, TRUE);
    };
    EXPECT_TRUE(AreCalls(UpToShowing(CallsToShow(addFontAndIcons)),
                         InOrder({kReadDialog,
                                  kCreateFrame,
                                  Times(2, {"CWnd::GetIcon", "CWnd::SetIcon"}),
                                  kCreateView,
                                  kCreateBars,
                                  kAdopt,
                                  kWriteStyles,
                                  kCreateProxy,
                                  {"CWnd::SetFont"},
                                  kHideReal,
                                  kCreateProxy,
                                  kHideReal,
                                  kBrush})));
}

TEST_F(FrameSequence, TheLoopRunsBetweenDisablingTheParentAndTheEnd)
{
    const CallNames all = CallsToShow();
    const CallNames shown(all.begin() + static_cast<std::ptrdiff_t>(UpToShowing(all).size()), all.end());
    // What the windows do when they are sized and painted meanwhile is another matter.
    EXPECT_TRUE(AreCalls(OnlyOf(shown, InOrder({kRun, kDestroy})), InOrder({kRun, kDestroy})));
}

TEST_F(FrameSequence, NothingIsMadeWithoutADialogAMonitorOrAParent)
{
    StepDialog none;
    none.createsWindow = false;
    EXPECT_TRUE(AreCalls(CallsOf([&] { none.Run({}, Steps()); }), {}));
    {
        const FailNthCall<decltype(::MonitorFromWindow)> noMonitor(VxDpiModule(), "user32.dll",
                                                                   "MonitorFromWindow", 1, nullptr);
        EXPECT_TRUE(AreCalls(CallsToShow(), kReadDialog));
    }
    m_dialog.DestroyWindow();
    AfxGetApp()->m_pMainWnd = nullptr;
    EXPECT_TRUE(AreCalls(CallsToShow(), {"CWnd::GetParent"}));
}

TEST_F(FrameSequence, AWorkAreaThatIsNotToldClipsNothing)
{
    const FailNthCall<decltype(::GetMonitorInfoA)> silent(VxDpiModule(), "user32.dll", "GetMonitorInfoA", 1,
                                                          FALSE);
    const CallNames proxy = InOrder({kCreateProxy, kHideReal});
    EXPECT_TRUE(AreCalls(UpToShowing(CallsToShow()), InOrder({kReadDialog,
                                                              {"GetMonitorInfoA", "CFrameWnd::Create"},
                                                              kAskIcons,
                                                              kCreateView,
                                                              kCreateBars,
                                                              kAdopt,
                                                              kWriteStyles,
                                                              proxy,
                                                              proxy,
                                                              kBrush})));
}

TEST_F(FrameSequence, WindowsThatCannotBeMadeEndItWithWhatIsThere)
{
    std::optional<NoWindowFrom> noWindow;
    const auto callsWithoutWindow = [&](int number)
    {
        m_dialog.DestroyWindow();
        CallNames calls = CallsToShow([&] { noWindow.emplace(number); });
        noWindow.reset();
        return calls;
    };
    EXPECT_TRUE(
        AreCalls(callsWithoutWindow(1), InOrder({kReadDialog, kCreateFrame, {"CWnd::DestroyWindow"}})));
    const CallNames framed = InOrder({kReadDialog, kCreateFrame, kAskIcons});
    EXPECT_TRUE(AreCalls(callsWithoutWindow(2), InOrder({framed, {"CWnd::Create"}, kDestroy})));
    EXPECT_TRUE(AreCalls(callsWithoutWindow(3), InOrder({kUpToView, {"CScrollBar::Create"}, kDestroy})));
    EXPECT_TRUE(AreCalls(callsWithoutWindow(4), InOrder({kUpToView, kCreateBars, kDestroy})));
    const CallNames noProxy(kCreateProxy.begin(), kCreateProxy.end() - 1);
    EXPECT_TRUE(AreCalls(callsWithoutWindow(5), InOrder({kUpToDialog, noProxy, kDestroy})));
}

TEST_F(FrameSequence, AStyleThatCannotBeWrittenEndsItToo)
{
    const FailNthCall<decltype(::SetWindowLongPtrW)> noStyle(VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                                                             1, 0, ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_TRUE(
        AreCalls(CallsToShow(), InOrder({kUpToView, kCreateBars, kAdopt, {"SetWindowLongPtrW"}, kDestroy})));
}

TEST_F(FrameSequence, ASizeMovesTheProxiesThenTheRestThenTheBars)
{
    const CallNames proxy = {"CWnd::GetWindowRect", "SetWindowPos"};
    const CallNames band = {"GetDpiForWindow", "MulDiv", "CWnd::GetClientRect"};
    const CallNames hiddenChild = {"GetWindow", "GetWindowLongW"};
    const CallNames bars = {"CScrollBar::SetScrollInfo", "GetWindowLongW"};
    EXPECT_TRUE(AreCalls(CallsOfMessage([&] { return m_dialog.View(); }, WM_SIZE),
                         InOrder({{"CWnd::OnSize", "GetDpiForWindow"},
                                  band,
                                  proxy,
                                  proxy,
                                  {"CWnd::GetClientRect", "MulDiv", "MulDiv"},
                                  Times(3, {"SetWindowPos"}),
                                  {"GetDpiForWindow"},
                                  Times(2, {"GetSystemMetricsForDpi"}),
                                  hiddenChild,
                                  {"GetWindowRect", "CWnd::ScreenToClient"},
                                  hiddenChild,
                                  hiddenChild,
                                  {"GetWindow", "IsRectEmpty", "MulDiv"},
                                  Times(2, {"ShowScrollBar"}),
                                  bars,
                                  bars})));
}

TEST_F(FrameSequence, ScrollingAndErasingAreLeftToOthers)
{
    const auto view = [&] { return m_dialog.View(); };
    const auto vBar = [&] { return reinterpret_cast<LPARAM>(m_dialog.VBar()); };
    const CallNames scrolled = {"GetWindowLongW", "SetScrollPos", "ScrollWindow"};
    EXPECT_TRUE(AreCalls(CallsOfMessage(view, WM_VSCROLL, SB_LINEDOWN, vBar), scrolled));
    const HDC memory = ::CreateCompatibleDC(nullptr);
    EXPECT_TRUE(AreCalls(CallsOfMessage(view, WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory)),
                         {"CWnd::GetClientRect", "CDC::FillRect"}));
    ::DeleteDC(memory);
    EXPECT_TRUE(AreCalls(CallsOfMessage(view, WM_ERASEBKGND), {}));
}

TEST_F(FrameSequence, AFrameFollowsTheSuggestedPlace)
{
    RECT place = {};
    const auto frame = [&] { return m_dialog.Frame(); };
    const auto samePlace = [&]
    {
        ::GetWindowRect(m_dialog.Frame(), &place);
        return reinterpret_cast<LPARAM>(&place);
    };
    EXPECT_TRUE(AreCalls(CallsOfMessage(frame, WM_DPICHANGED, 0, samePlace),
                         {"CWnd::DefWindowProcW", "CWnd::SetWindowPos"}));
    EXPECT_TRUE(AreCalls(CallsOfMessage(frame, WM_DPICHANGED), {"CWnd::DefWindowProcW"}));
    EXPECT_TRUE(AreCalls(CallsOfMessage(frame, WM_CLOSE), {"CWnd::EndModalLoop"}));
}

TEST_F(FrameSequence, AProxyFollowsItsButton)
{
    const auto proxy = [&] { return m_dialog.Proxy(0); };
    const CallNames followed = {"CWnd::DefWindowProcW", "CWnd::GetWindowRect", "CWnd::SetWindowPos",
                                "CWnd::GetFont"};
    EXPECT_TRUE(AreCalls(CallsOfMessage(proxy, WM_DPICHANGED_AFTERPARENT), followed));
    CFont font;
    font.CreatePointFont(90, L"Tahoma");
    const auto change = [&]
    {
        m_dialog.ok.SetFont(&font);
        ::SendMessageW(m_dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 0, 0);
    };
    EXPECT_TRUE(AreCalls(CallsInFrame(change), InOrder({followed, {"CWnd::SetFont"}})));
}

TEST_F(FrameSequence, AClickGoesToTheButtonBeforeTheLoopEnds)
{
    const auto ok = [&] { return m_dialog.Proxy(0); };
    const auto cancel = [&] { return m_dialog.Proxy(1); };
    EXPECT_TRUE(AreCalls(CallsOfMessage(ok, BM_CLICK), {"CWnd::SendMessageW"}));
    EXPECT_TRUE(AreCalls(CallsOfMessage(cancel, BM_CLICK),
                         {"CWnd::SendMessageW", "CWnd::GetParentFrame", "CWnd::EndModalLoop"}));
}
