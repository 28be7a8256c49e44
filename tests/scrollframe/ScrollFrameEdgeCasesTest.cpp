#include "foundation/LibraryModule.h"
#include "foundation/WindowDpiAnswer.h"
#include "scrollframe/FrameFixtures.h"
#include "support/HandleCount.h"
#include "support/Input.h"

#include <gtest/gtest.h>

namespace
{
// The places of the parts of a view whose margins, bars and gaps are multiples of 5 pixels.
void ExpectParts(const StepDialog& dialog, int five, int band)
{
    const HWND view = dialog.View();
    const CSize client = ClientSizeOf(view);
    const int right = client.cx - 4 * five;
    const int bottom = client.cy - 4 * five - band;
    EXPECT_EQ(PlaceIn(view, dialog.m_hWnd), Edges(2 * five, 2 * five, right, bottom));
    EXPECT_EQ(PlaceIn(view, ::GetDlgItem(view, kHScrollBar)),
              Edges(2 * five, bottom, right, bottom + 4 * five));
    EXPECT_EQ(PlaceIn(view, ::GetDlgItem(view, kVScrollBar)),
              Edges(right, 2 * five, right + 4 * five, bottom));
}
}

TEST(ScrollFrameEdgeCases, TheFrameIsTheDialogsPartOfTheWorkArea)
{
    MainWindow mainWindow;
    const ImportSpy<decltype(::GetMonitorInfoA)> monitor(VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                         [](HMONITOR, LPMONITORINFO info)
                                                         {
                                                             EXPECT_EQ(info->cbSize, 40u);
                                                             info->rcWork = {0, 30, 1000, 730};
                                                             return TRUE;
                                                         });
    StepDialog dialog;
    dialog.place = CRect(40, 10, 540, 910);
    EXPECT_EQ(dialog.Run({},
                         [&]
                         {
                             EXPECT_EQ(ScreenPlaceOf(dialog.Frame()), Edges(40, 30, 540, 730));
                             dialog.Close();
                         }),
              IDCANCEL);
    EXPECT_EQ(dialog.nTemplate, static_cast<UINT>(kScrolledTemplate));
}

TEST(ScrollFrameEdgeCases, TheButtonsStandInABandFromTheRightToTheLeft)
{
    MainWindow mainWindow;
    const WindowDpiAnswer dpi(96);
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(0)),
                             Edges(client.cx - 80, client.cy - 28, client.cx - 5, client.cy - 5));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(1)),
                             Edges(client.cx - 160, client.cy - 28, client.cx - 85, client.cy - 5));
                   ExpectParts(dialog, 5, 33);
                   EXPECT_FALSE(dialog.ok.IsWindowVisible());
                   EXPECT_TRUE(::IsWindowVisible(dialog.Proxy(0)));
                   dialog.Close();
               });
}

TEST(ScrollFrameEdgeCases, WithoutButtonsThereIsNoBand)
{
    MainWindow mainWindow;
    const WindowDpiAnswer dpi(96);
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   ExpectParts(dialog, 5, 0);
                   dialog.Close();
               });
}

TEST(ScrollFrameEdgeCases, MarginsAndBarsFollowTheDpi)
{
    MainWindow mainWindow;
    const WindowDpiAnswer dpi(192);
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   ExpectParts(dialog, 10, 43);
                   dialog.Close();
               });

    const WindowDpiAnswer other(144);
    StepDialog atOther;
    atOther.Run({},
                [&]
                {
                    const CSize client = ClientSizeOf(atOther.View());
                    EXPECT_EQ(PlaceIn(atOther.View(), atOther.m_hWnd),
                              Edges(15, 15, client.cx - 30, client.cy - 30));
                    atOther.Close();
                });
}

TEST(ScrollFrameEdgeCases, ClosingEndsTheLoopAndNotTheFrame)
{
    MainWindow mainWindow;
    StepDialog dialog;
    bool wasFrameAlive = false;
    const INT_PTR result = dialog.Run(dialog.BothButtons(),
                                      [&]
                                      {
                                          const HWND frame = dialog.Frame();
                                          EXPECT_FALSE(::IsWindowEnabled(mainWindow.Handle()));
                                          dialog.Close();
                                          wasFrameAlive = ::IsWindow(frame) != FALSE;
                                      });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(wasFrameAlive);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindowEnabled(mainWindow.Handle()));
    EXPECT_EQ(dialog.log.Lines(), CallLog::LineList());
}

TEST(ScrollFrameEdgeCases, AClickOnAProxyIsHandledByTheDialogAndThenEndsTheLoopWithItsCode)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const INT_PTR result =
        dialog.Run({{&dialog.ok, 0}, {&dialog.cancel, -7}},
                   {[&]
                    {
                        ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0);
                        EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK"}));
                    },
                    [&] { ::SendMessageW(dialog.Proxy(1), BM_CLICK, 0, 0); }}); // the loop goes on
    EXPECT_EQ(result, -7);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK", "Cancel"}));
}

TEST(ScrollFrameEdgeCases, AProxyWithoutARealButtonEndsTheLoopAllTheSame)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const INT_PTR result = dialog.Run({{&dialog.ok, IDOK}},
                                      [&]
                                      {
                                          const HWND proxy = dialog.Proxy(0);
                                          dialog.ok.DestroyWindow();
                                          ::SendMessageW(proxy, BM_CLICK, 0, 0);
                                      });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(dialog.log.Lines(), CallLog::LineList());
}

TEST(ScrollFrameEdgeCases, RealClicksReachProxiesAndBars)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const INT_PTR result =
        dialog.Run({{&dialog.ok, 0}, {&dialog.cancel, 5}},
                   [&]
                   {
                       ::SetWindowPos(dialog.Frame(), nullptr, 20, 20, 300, 300, SWP_NOZORDER);
                       const LONG before = PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd)[1];
                       const HWND bar = ::GetDlgItem(dialog.View(), kVScrollBar);
                       ASSERT_TRUE(::IsWindowVisible(bar));
                       const CSize size = ClientSizeOf(bar);
                       ClickAtOnce(OnScreen(bar, size.cx / 2, size.cy - 5));
                       EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd)[1], before - 8);
                       ClickAtOnce(OnScreen(dialog.Proxy(1), 5, 5));
                   });
    EXPECT_EQ(result, 5);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Cancel"}));
}

TEST(ScrollFrameEdgeCases, DisablingARealButtonDisablesWhatIsSeen)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   EXPECT_FALSE(dialog.ok.EnableWindow(FALSE));
                   EXPECT_TRUE(dialog.ok.IsWindowEnabled());
                   EXPECT_FALSE(::IsWindowEnabled(dialog.Proxy(0)));
                   EXPECT_TRUE(dialog.ok.EnableWindow(TRUE));
                   EXPECT_TRUE(::IsWindowEnabled(dialog.Proxy(0)));
                   dialog.Close();
               });
}

TEST(ScrollFrameEdgeCases, AProxyLooksLikeItsButtonAndFollowsIt)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CFont font;
    font.CreatePointFont(140, L"Tahoma");
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   const CWnd* const pProxy = CWnd::FromHandlePermanent(dialog.Proxy(0));
                   ASSERT_NE(pProxy, nullptr);
                   CString text;
                   pProxy->GetWindowText(text);
                   EXPECT_EQ(text, L"OK");
                   const CPoint start(PlaceIn(dialog.View(), pProxy->m_hWnd)[0], 0);
                   dialog.ok.MoveWindow(0, 0, 90, 40);
                   dialog.ok.SetFont(&font);
                   ::SendMessageW(dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 0, 0);
                   EXPECT_EQ(ClientSizeOf(dialog.Proxy(0)), CSize(90, 40));
                   EXPECT_EQ(PlaceIn(dialog.View(), pProxy->m_hWnd)[0], start.x);
                   EXPECT_EQ(pProxy->GetFont(), &font);
                   dialog.Close();
               });
}

TEST(ScrollFrameEdgeCases, AProxyIsGivenTheFontOfItsButtonAndRedrawn)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CFont font;
    font.CreatePointFont(140, L"Tahoma");
    dialog.created = [&] { dialog.ok.SetFont(&font); };
    CallLog log;
    log.Name(font.m_hObject, "font");
    const ImportSpy<decltype(::SendMessageW)> send(
        FrameworkModule(), "user32.dll", "SendMessageW",
        [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_SETFONT && ::GetParent(hWnd) != dialog.m_hWnd)
                log.WriteCall("SetFont", ::GetDlgCtrlID(hWnd), reinterpret_cast<const void*>(wParam), lParam);
            return send.Original()(hWnd, message, wParam, lParam);
        });
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   ::SendMessageW(dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 0, 0);
                   ::SendMessageW(dialog.Proxy(1), WM_DPICHANGED_AFTERPARENT, 0, 0);
                   dialog.Close();
               });
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"SetFont(10001, font, 1)", "SetFont(10001, font, 1)"}));
}

TEST(ScrollFrameEdgeCases, TheFrameHasTheDialogsCaptionAndIconsAndFollowsADpiChange)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   const CWnd* const pFrame = CWnd::FromHandlePermanent(dialog.Frame());
                   CString caption;
                   pFrame->GetWindowText(caption);
                   EXPECT_EQ(caption, L"Settings");
                   EXPECT_EQ(pFrame->GetStyle() & WS_OVERLAPPEDWINDOW,
                             static_cast<DWORD>(WS_OVERLAPPEDWINDOW));
                   const RECT suggested = {60, 70, 460, 370};
                   ::SendMessageW(dialog.Frame(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                                  reinterpret_cast<LPARAM>(&suggested));
                   EXPECT_EQ(ScreenPlaceOf(dialog.Frame()), Edges(suggested));
                   ::SendMessageW(dialog.Frame(), WM_DPICHANGED, MAKEWPARAM(144, 144), 0);
                   EXPECT_EQ(ScreenPlaceOf(dialog.Frame()), Edges(suggested));
                   dialog.Close();
               });
}

TEST(ScrollFrameEdgeCases, NothingIsShownWithoutADialogOrAMainWindow)
{
    StepDialog dialog;
    dialog.createsWindow = false;
    EXPECT_EQ(dialog.Run({}, Steps()), 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);

    dialog.createsWindow = true;
    EXPECT_EQ(dialog.Run({}, Steps()), 0);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
}

TEST(ScrollFrameEdgeCases, ADialogWithoutExtendedStylesIsRefusedAndGoesWithTheView)
{
    MainWindow mainWindow;
    mainWindow.Window().Show();
    StepDialog dialog;
    dialog.style = WS_CHILD;
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(ScrollFrameEdgeCases, AButtonThatHasNoWindowUndoesAllProxies)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CRealButton none;
    EXPECT_EQ(dialog.Run({{&dialog.ok, IDOK}, {&none, 1}}, Steps()), 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_NE(dialog.ok.SetProxyButton(nullptr), nullptr);
    EXPECT_EQ(none.SetProxyButton(nullptr), nullptr);
}

// The dialog's own three controls come first, then the frame, the view, the two bars and the two proxies.
TEST(ScrollFrameEdgeCases, AWindowThatCannotBeMadeLeavesTheDialogOnlyWhenItIsNoChildYet)
{
    MainWindow mainWindow;
    mainWindow.Window().Show();
    for (int failing = 4; failing <= 9; ++failing)
    {
        const HandleCount before = HandleCount::Now();
        {
            StepDialog dialog;
            const FailNthCall<decltype(::CreateWindowExW)> create(FrameworkModule(), "user32.dll",
                                                                  "CreateWindowExW", failing, nullptr);
            EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0) << failing;
            EXPECT_EQ(create.CallCount(), failing);
            EXPECT_EQ(dialog.m_hWnd != nullptr, failing <= 7) << failing;
            EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
        }
        EXPECT_TRUE(SameHandlesAs(before)) << failing;
    }
}

TEST(ScrollFrameEdgeCases, AFrameInAFrameLeavesTheOuterOneAsItWas)
{
    MainWindow mainWindow;
    StepDialog outer;
    StepDialog inner;
    const INT_PTR result = outer.Run(
        {{&outer.ok, 11}},
        [&]
        {
            EXPECT_EQ(inner.Run({{&inner.ok, 12}}, [&] { ::SendMessageW(inner.Proxy(0), BM_CLICK, 0, 0); }),
                      12);
            EXPECT_EQ(inner.m_hWnd, nullptr);
            const HDC hdc = ::GetDC(outer.View());
            EXPECT_TRUE(::SendMessageW(outer.View(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0));
            ::ReleaseDC(outer.View(), hdc);
            ::SendMessageW(outer.Proxy(0), BM_CLICK, 0, 0);
        });
    EXPECT_EQ(result, 11);
    EXPECT_TRUE(::IsWindowEnabled(mainWindow.Handle()));
}

TEST(ScrollFrameEdgeCases, NothingIsLeftBehind)
{
    MainWindow mainWindow;
    EXPECT_NO_LEAK(
        [&]
        {
            StepDialog dialog;
            dialog.Run(dialog.BothButtons(), [&] { ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0); });
            CWnd::DeleteTempMap();
        });
}
