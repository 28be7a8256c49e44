#include "foundation/LibraryModule.h"
#include "scrollframe/FrameFixtures.h"
#include "support/HandleCount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace
{
// The calls that build a frame, from the framework and from the library, in one list. Starts with the dialog
// made: give Start as its `created`.
class BuildingCalls
{
public:
    BuildingCalls(StepDialog& dialog, HWND mainWindow) : m_dialog(dialog)
    {
        m_log.Name(mainWindow, "main");
        dialog.created = [this] { Start(); };
    }

    BuildingCalls(const BuildingCalls&) = delete;
    BuildingCalls& operator=(const BuildingCalls&) = delete;

    CallLog Log() const { return m_log; }

    // Where the button was on the screen when the last child was made.
    CPoint OkPlace() const { return m_okPlace.TopLeft(); }

    void Pause() { m_isRecording = false; }
    void GoOn() { m_isRecording = true; }
    void Write(const std::string& line) { m_log.Write(line); }
    void Name(const void* handle, const char* name) { m_log.Name(handle, name); }

private:
    void Start()
    {
        m_log.Name(m_dialog.m_hWnd, "dialog");
        m_log.Name(m_dialog.ok.m_hWnd, "ok");
        m_log.Name(m_dialog.cancel.m_hWnd, "cancel");
        m_isRecording = true;
    }

    template<typename... Args>
    void Record(const char* function, const Args&... args)
    {
        if (m_isRecording)
            m_log.WriteCall(function, args...);
    }

    HWND Create(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx,
                int cy, HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParameter)
    {
        const auto nId = reinterpret_cast<UINT_PTR>(hMenu);
        Record("CreateWindow", dwExStyle, pszName, dwStyle, x, y, cx, cy, hParent, nId);
        if (m_isRecording)
            m_dialog.ok.GetWindowRect(&m_okPlace);
        const bool wasRecording = m_isRecording;
        m_isRecording = false; // what the new window does is its own affair
        const HWND hWnd = m_create.Original()(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent,
                                              hMenu, hInstance, pParameter);
        m_isRecording = wasRecording;
        if (wasRecording)
            m_log.Name(hWnd, NameOf(nId));
        return hWnd;
    }

    static std::string NameOf(UINT_PTR nId)
    {
        switch (nId)
        {
        case 0:
            return "frame";
        case AFX_IDW_PANE_FIRST:
            return "view";
        default:
            return "child" + std::to_string(nId);
        }
    }

    LRESULT Send(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_GETICON || message == WM_SETICON)
            Record("SendMessage", hWnd, message, wParam, reinterpret_cast<const void*>(lParam));
        return m_send.Original()(hWnd, message, wParam, lParam);
    }

    StepDialog& m_dialog;
    CallLog m_log;
    bool m_isRecording = false;
    CRect m_okPlace;

    ImportSpy<decltype(::CreateWindowExW)> m_create{
        FrameworkModule(), "user32.dll", "CreateWindowExW",
        [this](DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx,
               int cy, HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParameter) {
            return Create(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent, hMenu, hInstance,
                          pParameter);
        }};
    ImportSpy<decltype(::SendMessageW)> m_send{FrameworkModule(), "user32.dll", "SendMessageW",
                                               [this](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                                               { return Send(hWnd, message, wParam, lParam); }};
    ImportSpy<decltype(::SetParent)> m_setParent{FrameworkModule(), "user32.dll", "SetParent",
                                                 [this](HWND hWnd, HWND hParent)
                                                 {
                                                     Record("SetParent", hWnd, hParent);
                                                     return m_setParent.Original()(hWnd, hParent);
                                                 }};
    ImportSpy<decltype(::ShowWindow)> m_show{FrameworkModule(), "user32.dll", "ShowWindow",
                                             [this](HWND hWnd, int nShow)
                                             {
                                                 Record("ShowWindow", hWnd, nShow);
                                                 return m_show.Original()(hWnd, nShow);
                                             }};
    ImportSpy<decltype(::UpdateWindow)> m_update{FrameworkModule(), "user32.dll", "UpdateWindow",
                                                 [this](HWND hWnd)
                                                 {
                                                     Record("UpdateWindow", hWnd);
                                                     return m_update.Original()(hWnd);
                                                 }};
    ImportSpy<decltype(::EnableWindow)> m_enable{FrameworkModule(), "user32.dll", "EnableWindow",
                                                 [this](HWND hWnd, BOOL bEnable)
                                                 {
                                                     Record("EnableWindow", hWnd, bEnable);
                                                     return m_enable.Original()(hWnd, bEnable);
                                                 }};
    ImportSpy<decltype(::DestroyWindow)> m_destroy{FrameworkModule(), "user32.dll", "DestroyWindow",
                                                   [this](HWND hWnd)
                                                   {
                                                       Record("DestroyWindow", hWnd);
                                                       return m_destroy.Original()(hWnd);
                                                   }};
    ImportSpy<decltype(::MonitorFromWindow)> m_monitor{VxDpiModule(), "user32.dll", "MonitorFromWindow",
                                                       [this](HWND hWnd, DWORD dwFlags)
                                                       {
                                                           Record("MonitorFromWindow", hWnd, dwFlags);
                                                           const HMONITOR hMonitor =
                                                               m_monitor.Original()(hWnd, dwFlags);
                                                           m_log.Name(hMonitor, "monitor");
                                                           return hMonitor;
                                                       }};
    ImportSpy<decltype(::GetMonitorInfoA)> m_info{VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                  [this](HMONITOR hMonitor, LPMONITORINFO pInfo)
                                                  {
                                                      Record("GetMonitorInfoA", hMonitor, pInfo->cbSize);
                                                      return m_info.Original()(hMonitor, pInfo);
                                                  }};
    ImportSpy<decltype(::SetLastError)> m_lastError{VxDpiModule(), "kernel32.dll", "SetLastError",
                                                    [this](DWORD dwError)
                                                    {
                                                        Record("SetLastError", dwError);
                                                        m_lastError.Original()(dwError);
                                                    }};
    ImportSpy<decltype(::SetWindowLongPtrW)> m_setStyle{VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                                                        [this](HWND hWnd, int nIndex, LONG_PTR value)
                                                        {
                                                            Record("SetWindowLongPtr", hWnd, nIndex,
                                                                   static_cast<DWORD>(value));
                                                            return m_setStyle.Original()(hWnd, nIndex, value);
                                                        }};
    ImportSpy<decltype(::GetSysColorBrush)> m_brush{VxDpiModule(), "user32.dll", "GetSysColorBrush",
                                                    [this](int nColor)
                                                    {
                                                        Record("GetSysColorBrush", nColor);
                                                        return m_brush.Original()(nColor);
                                                    }};
};

// What is written as the style with an index while a dialog of these styles is shown.
DWORD StyleWritten(DWORD style, DWORD exStyle, int index)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.created = [&]
    {
        ::SetWindowLongPtrW(dialog.m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(style));
        ::SetWindowLongPtrW(dialog.m_hWnd, GWL_EXSTYLE, static_cast<LONG_PTR>(exStyle));
    };
    DWORD written = 0;
    const ImportSpy<decltype(::SetWindowLongPtrW)> write(VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                                                         [&](HWND hWnd, int nIndex, LONG_PTR value)
                                                         {
                                                             EXPECT_EQ(hWnd, dialog.m_hWnd);
                                                             if (nIndex == index)
                                                                 written = static_cast<DWORD>(value);
                                                             return write.Original()(hWnd, nIndex, value);
                                                         });
    dialog.Run({}, [&] { dialog.Close(); });
    return written;
}

// What a window is made with, by its ID.
struct Made
{
    std::wstring className;
    DWORD style = 0;
    DWORD exStyle = 0xFFFFFFFF;
    CRect place;
    HWND parent = nullptr;
};

// Shows the dialog and tells how the window of an ID was made.
Made HowItIsMade(StepDialog& dialog, const ButtonList& buttons, UINT_PTR nId)
{
    Made made;
    const ImportSpy<decltype(::CreateWindowExW)> create(
        FrameworkModule(), "user32.dll", "CreateWindowExW",
        [&](DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx, int cy,
            HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParameter)
        {
            if (reinterpret_cast<UINT_PTR>(hMenu) == nId)
                made = {pszClass, dwStyle, dwExStyle, CRect(CPoint(x, y), CSize(cx, cy)), hParent};
            return create.Original()(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent, hMenu,
                                     hInstance, pParameter);
        });
    dialog.Run(buttons, [&] { dialog.Close(); });
    return made;
}
}

TEST(ScrollFrameCreation, TheWholeCallMakesShowsAndEndsItsWindowsInThisOrder)
{
    MainWindow mainWindow;
    StepDialog dialog;
    BuildingCalls calls(dialog, mainWindow.Handle());
    const HICON smallIcon = ::LoadIconW(nullptr, IDI_WARNING);
    const HICON bigIcon = ::LoadIconW(nullptr, IDI_ERROR);
    calls.Name(smallIcon, "small");
    calls.Name(bigIcon, "big");
    const Steps start = dialog.created;
    dialog.created = [&]
    {
        dialog.SetIcon(smallIcon, FALSE);
        dialog.SetIcon(bigIcon, TRUE);
        start();
    };
    dialog.Run({{&dialog.ok, IDOK}},
               [&]
               {
                   calls.Pause();
                   dialog.Close();
                   calls.Write("(loop ends)");
                   calls.GoOn();
               });
    const CPoint okPlace = calls.OkPlace(); // on the screen, and so in the view
    const std::string place = std::to_string(okPlace.x) + ", " + std::to_string(okPlace.y);
    EXPECT_EQ(calls.Log().Lines(),
              (CallLog::LineList{
                  "MonitorFromWindow(dialog, 2)",
                  "GetMonitorInfoA(monitor, 40)",
                  "CreateWindow(0, \"Settings\", 47120384, 20, 20, 500, 500, null, 0)",
                  "SendMessage(dialog, 127, 0, null)",
                  "SendMessage(frame, 128, 0, small)",
                  "SendMessage(dialog, 127, 1, null)",
                  "SendMessage(frame, 128, 1, big)",
                  "CreateWindow(0, null, 1384120320, 0, 0, 0, 0, frame, 59648)",
                  "CreateWindow(0, null, 1342177280, 0, 0, 0, 0, view, 10011)",
                  "CreateWindow(0, null, 1342177281, 0, 0, 0, 0, view, 10012)",
                  "SetParent(dialog, view)",
                  "SetLastError(0)",
                  "SetWindowLongPtr(dialog, -16, 1342177412)",
                  "SetLastError(0)",
                  "SetWindowLongPtr(dialog, -20, 0)",
                  "CreateWindow(0, \"OK\", 1342177280, " + place + ", 75, 23, view, 10001)",
                  "ShowWindow(ok, 0)",
                  "GetSysColorBrush(15)",
                  "EnableWindow(main, 0)",
                  "ShowWindow(frame, 5)",
                  "UpdateWindow(frame)",
                  "(loop ends)",
                  "EnableWindow(main, 1)",
                  "DestroyWindow(child10001)",
                  "DestroyWindow(view)",
                  "DestroyWindow(frame)",
              }));
}

TEST(ScrollFrameCreation, IconsThatTheDialogHasNotAreNotSet)
{
    MainWindow mainWindow;
    StepDialog dialog;
    BuildingCalls calls(dialog, mainWindow.Handle());
    const HICON bigIcon = ::LoadIconW(nullptr, IDI_ERROR);
    calls.Name(bigIcon, "big");
    const Steps start = dialog.created;
    dialog.created = [&]
    {
        dialog.SetIcon(bigIcon, TRUE);
        start();
    };
    dialog.Run({}, [&] { dialog.Close(); });
    CallLog::LineList icons;
    const CallLog log = calls.Log();
    std::copy_if(log.Lines().begin(), log.Lines().end(), std::back_inserter(icons),
                 [](const std::string& line) { return line.find("SendMessage") == 0; });
    EXPECT_EQ(icons,
              (CallLog::LineList{"SendMessage(dialog, 127, 0, null)", "SendMessage(dialog, 127, 1, null)",
                                 "SendMessage(frame, 128, 1, big)"}));
}

TEST(ScrollFrameCreation, TheDialogIsMadeFromTheTemplateWithoutAParentOfItsOwn)
{
    class AskedDialog : public StepDialog
    {
    public:
        BOOL Create(UINT nIDTemplate, CWnd* pParentWnd) override
        {
            pAskedParent = pParentWnd;
            return StepDialog::Create(nIDTemplate, pParentWnd);
        }

        CWnd* pAskedParent = this;
    };
    MainWindow mainWindow;
    AskedDialog dialog;
    EXPECT_EQ(dialog.Run({}, [&] { dialog.Close(); }), 2);
    EXPECT_EQ(dialog.nTemplate, 4711u);
    EXPECT_EQ(dialog.pAskedParent, nullptr);
}

TEST(ScrollFrameCreation, TheStyleLosesWhatATopLevelWindowHas)
{
    // With WS_CLIPCHILDREN, WS_VSCROLL exchanged for nothing; WS_DISABLED, WS_MAXIMIZE and the dialog's own.
    EXPECT_EQ(StyleWritten(0x84CF0000, 0x10100, GWL_STYLE), 0x50000000u);
    EXPECT_EQ(StyleWritten(0x860F00C4, 0x10100, GWL_STYLE) & 0x030F00C4, 0x020000C4u);
    EXPECT_EQ(StyleWritten(0x80000C44, 0x10100, GWL_STYLE), 0x50000C44u);
    EXPECT_EQ(StyleWritten(0x8000000A, 0x10100, GWL_STYLE), 0x5000000Au);
}

TEST(ScrollFrameCreation, EachTopLevelStyleIsTakenAwayByItself)
{
    for (const DWORD lost : {0x04000000u, 0x00C00000u, 0x00800000u, 0x00400000u, 0x00080000u, 0x00040000u,
                             0x00020000u, 0x00010000u})
        EXPECT_EQ(StyleWritten(0x80000000 | lost, 0x10100, GWL_STYLE), 0x50000000u) << std::hex << lost;
    for (const DWORD kept : {0x02000000u, 0x00000040u, 0x00000400u})
        EXPECT_EQ(StyleWritten(0x80000000 | kept, 0x10100, GWL_STYLE), 0x50000000u | kept)
            << std::hex << kept;
}

TEST(ScrollFrameCreation, TheExtendedStyleLosesItsEdgesAndTheWayForTheTabKey)
{
    for (const DWORD lost : {0x1u, 0x200u, 0x20000u, 0x20201u})
        EXPECT_EQ(StyleWritten(0x80000000, 0x10000 | lost, GWL_EXSTYLE), 0u) << std::hex << lost;
    EXPECT_EQ(StyleWritten(0x80C00000, 0x10100, GWL_EXSTYLE), 0u);
    for (const DWORD kept : {0x4u, 0x10u, 0x400u, 0x1000u})
        EXPECT_EQ(StyleWritten(0x80000000, 0x10000 | kept, GWL_EXSTYLE), kept) << std::hex << kept;
}

TEST(ScrollFrameCreation, TheDialogIsAVisibleChildOfTheView)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   EXPECT_EQ(::GetAncestor(dialog.m_hWnd, GA_PARENT), dialog.View());
                   EXPECT_EQ(::GetAncestor(dialog.View(), GA_PARENT), dialog.Frame());
                   EXPECT_EQ(::GetDlgCtrlID(dialog.View()), 0xE900);
                   EXPECT_TRUE(dialog.IsWindowVisible());
                   EXPECT_EQ(dialog.GetStyle() & 0xD4CF0000, 0x50000000u);
                   EXPECT_EQ(dialog.GetExStyle() & 0x30301, 0u);
                   EXPECT_EQ(::GetWindow(dialog.Frame(), GW_OWNER), nullptr);
                   dialog.Close();
               });
}

TEST(ScrollFrameCreation, TheViewFillsTheFrame)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   const CSize client = ClientSizeOf(dialog.Frame());
                   EXPECT_EQ(PlaceIn(dialog.Frame(), dialog.View()), Edges(0, 0, client.cx, client.cy));
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 350, SWP_NOZORDER | SWP_NOMOVE);
                   const CSize smaller = ClientSizeOf(dialog.Frame());
                   EXPECT_EQ(PlaceIn(dialog.Frame(), dialog.View()), Edges(0, 0, smaller.cx, smaller.cy));
                   dialog.Close();
               });
}

TEST(ScrollFrameCreation, TheBarsAreScrollBarControlsOfTheView)
{
    MainWindow mainWindow;
    for (const UINT_PTR nId : {10011, 10012})
    {
        StepDialog dialog;
        const Made bar = HowItIsMade(dialog, {}, nId);
        EXPECT_EQ(::lstrcmpiW(bar.className.c_str(), L"SCROLLBAR"), 0);
        EXPECT_EQ(bar.exStyle, 0u);
        EXPECT_EQ(Edges(bar.place), Edges(0, 0, 0, 0));
    }
}

TEST(ScrollFrameCreation, AProxyIsShownWhateverItsButtonIsAndKeepsTheOtherStyles)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.okStyle = WS_CHILD | WS_DISABLED | WS_TABSTOP | BS_DEFPUSHBUTTON;
    const Made proxy = HowItIsMade(dialog, {{&dialog.ok, IDOK}}, kFirstProxy);
    EXPECT_EQ(proxy.style, 0x58010001u);
    EXPECT_EQ(::lstrcmpiW(proxy.className.c_str(), L"BUTTON"), 0);
}

TEST(ScrollFrameCreation, ADialogBeyondItsWorkAreaHasAFrameWithoutAPlace)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const ImportSpy<decltype(::GetMonitorInfoA)> monitor(VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                         [](HMONITOR, LPMONITORINFO info)
                                                         {
                                                             info->rcWork = {700, 0, 1000, 730};
                                                             return TRUE;
                                                         });
    EXPECT_EQ(Edges(HowItIsMade(dialog, {}, 0).place), Edges(0, 0, 0, 0));
}

TEST(ScrollFrameCreation, EachEdgeOfTheWorkAreaCuts)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const ImportSpy<decltype(::GetMonitorInfoA)> monitor(VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                         [](HMONITOR, LPMONITORINFO info)
                                                         {
                                                             info->rcMonitor = {0, 0, 5000, 5000};
                                                             info->rcWork = {31, 42, 503, 404};
                                                             return TRUE;
                                                         });
    const Made frame = HowItIsMade(dialog, {}, 0);
    EXPECT_EQ(Edges(frame.place), Edges(31, 42, 503, 404));
    EXPECT_EQ(frame.style, 0x02CF0000u);
    EXPECT_EQ(frame.exStyle, 0u);
    EXPECT_EQ(frame.parent, nullptr);
}

TEST(ScrollFrameCreation, AMonitorThatTellsNothingDoesNotCut)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.place = CRect(-50, -60, 5000, 4000);
    const ImportSpy<decltype(::GetMonitorInfoA)> monitor(VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                         [](HMONITOR, LPMONITORINFO info)
                                                         {
                                                             info->rcWork = {31, 42, 503, 404};
                                                             return FALSE;
                                                         });
    CRect real;
    dialog.created = [&] { dialog.GetWindowRect(&real); };
    const Made frame = HowItIsMade(dialog, {}, 0);
    EXPECT_EQ(Edges(frame.place), Edges(real));
    EXPECT_LT(real.left, 31);
}

TEST(ScrollFrameCreation, ProxyNumbersCountOnPastThoseOfTheBars)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CRealButton more[12];
    dialog.created = [&]
    {
        for (CRealButton& button : more)
            button.Create(L"more", WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 10), &dialog, 500);
    };
    ButtonList buttons;
    for (CRealButton& button : more)
        buttons.emplace_back(&button, 0);
    const INT_PTR result = dialog.Run(buttons,
                                      [&]
                                      {
                                          for (int i = 0; i < 12; ++i)
                                          {
                                              CWnd* const pProxy =
                                                  reinterpret_cast<CWnd*>(more[i].SetProxyButton(nullptr));
                                              ASSERT_NE(pProxy, nullptr);
                                              EXPECT_EQ(pProxy->GetDlgCtrlID(), 10001 + i);
                                              EXPECT_FALSE(more[i].IsWindowVisible());
                                          }
                                          dialog.Close();
                                      });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(ScrollFrameCreation, AButtonIsHiddenBeforeItKnowsItsProxy)
{
    MainWindow mainWindow;
    StepDialog dialog;
    int hidden = 0;
    const ImportSpy<decltype(::ShowWindow)> hide(FrameworkModule(), "user32.dll", "ShowWindow",
                                                 [&](HWND hWnd, int nShow)
                                                 {
                                                     if (hWnd == dialog.ok.m_hWnd)
                                                     {
                                                         ++hidden;
                                                         EXPECT_EQ(dialog.ok.SetProxyButton(nullptr),
                                                                   nullptr);
                                                     }
                                                     return hide.Original()(hWnd, nShow);
                                                 });
    dialog.Run({{&dialog.ok, IDOK}}, [&] { dialog.Close(); });
    EXPECT_EQ(hidden, 1);
    EXPECT_NE(dialog.ok.SetProxyButton(nullptr), nullptr);
}

TEST(ScrollFrameCreation, TheModalStateOfTheMainWindowIsItsOwnAffair)
{
    class AskedWindow : public CWnd
    {
    public:
        void BeginModalState() override { log.Write("begin"); }
        void EndModalState() override { log.Write("end"); }

        CallLog log;
    };
    TestWindow window;
    AskedWindow asked;
    asked.Attach(window.Handle());
    AfxGetApp()->m_pMainWnd = &asked;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   asked.log.Write("loop");
                   EXPECT_TRUE(asked.IsWindowEnabled());
                   dialog.Close();
               });
    AfxGetApp()->m_pMainWnd = nullptr;
    asked.Detach();
    EXPECT_EQ(asked.log.Lines(), (CallLog::LineList{"begin", "loop", "end"}));
}

TEST(ScrollFrameCreation, TheWindowThatOwnsTheDialogIsDisabledThoughItIsNotTheMainOne)
{
    class OwnedDialog : public StepDialog
    {
    public:
        BOOL Create(UINT nIDTemplate, CWnd*) override { return StepDialog::Create(nIDTemplate, pOwner); }

        CWnd* pOwner = nullptr;
    };
    MainWindow mainWindow;
    FrameworkWindow owner;
    OwnedDialog dialog;
    dialog.pOwner = owner.Object();
    dialog.Run({},
               [&]
               {
                   EXPECT_FALSE(::IsWindowEnabled(owner.Handle()));
                   EXPECT_TRUE(::IsWindowEnabled(mainWindow.Handle()));
                   dialog.Close();
               });
    EXPECT_TRUE(::IsWindowEnabled(owner.Handle()));
}

TEST(ScrollFrameCreation, TheLoopRunsWithoutFlags)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the framework's function is found by its GCC name";
#endif
    MainWindow mainWindow;
    StepDialog dialog;
    const ImportSpy<int(CWnd*, DWORD)> loop(VxDpiModule(), nullptr, "_ZN4CWnd12RunModalLoopEm",
                                            [](CWnd*, DWORD dwFlags)
                                            {
                                                EXPECT_EQ(dwFlags, 0u);
                                                return 17;
                                            });
    EXPECT_EQ(dialog.Run({}, Steps()), 17);
    EXPECT_EQ(loop.CallCount(), 1);
}

TEST(ScrollFrameCreation, TheViewIsMadeWithAnEmptyContext)
{
    MainWindow mainWindow;
    StepDialog dialog;
    int views = 0;
    const ImportSpy<decltype(::CreateWindowExW)> create(
        FrameworkModule(), "user32.dll", "CreateWindowExW",
        [&](DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx, int cy,
            HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParameter)
        {
            if (reinterpret_cast<UINT_PTR>(hMenu) == AFX_IDW_PANE_FIRST)
            {
                ++views;
                const auto* const pContext = static_cast<const CCreateContext*>(pParameter);
                EXPECT_TRUE(pContext && !pContext->m_pCurrentDoc && !pContext->m_pCurrentFrame &&
                            !pContext->m_pNewViewClass);
            }
            return create.Original()(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent, hMenu,
                                     hInstance, pParameter);
        });
    dialog.Run({}, [&] { dialog.Close(); });
    EXPECT_EQ(views, 1);
}
