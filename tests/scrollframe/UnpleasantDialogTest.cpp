#include "scrollframe/UnpleasantDialog.h"

#include "foundation/WindowDpiAnswer.h"
#include "support/HandleCount.h"
#include "support/Input.h"

#include <gtest/gtest.h>

namespace
{
// A main window, a work area of 600 x 420, and 96 DPI.
struct SmallMonitor
{
    MainWindow mainWindow;
    WindowDpiAnswer dpi{96};
    ImportSpy<decltype(::GetMonitorInfoA)> area{VxDpiModule(), "user32.dll", "GetMonitorInfoA",
                                                [](HMONITOR, LPMONITORINFO info)
                                                {
                                                    info->rcWork = {0, 0, 600, 420};
                                                    return TRUE;
                                                }};
};

int RangeOf(HWND hBar)
{
    int first = 0;
    int last = 0;
    ::GetScrollRange(hBar, SB_CTL, &first, &last);
    return last - first;
}

void ScrollDownTo(const UnpleasantDialog& dialog, int position)
{
    ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, position),
                   reinterpret_cast<LPARAM>(dialog.VBar()));
}

POINT MiddleOf(HWND hWnd)
{
    const CSize size = ClientSizeOf(hWnd);
    return OnScreen(hWnd, size.cx / 2, size.cy / 2);
}
}

TEST(UnpleasantDialog, FitsTheWorkAreaAndScrollsAllThatIsVisible)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    const INT_PTR result =
        dialog.Run(dialog.Buttons(),
                   [&]
                   {
                       EXPECT_EQ(ScreenPlaceOf(dialog.Frame()), Edges(0, 0, 600, 420));
                       EXPECT_TRUE(::IsWindowVisible(dialog.HBar()));
                       EXPECT_TRUE(::IsWindowVisible(dialog.VBar()));
                       EXPECT_EQ(RangeOf(dialog.HBar()), UnpleasantDialog::kContentWidth + 20 - 1);
                       EXPECT_EQ(RangeOf(dialog.VBar()), UnpleasantDialog::kContentHeight + 20 - 1);
                       const CSize client = ClientSizeOf(dialog.View());
                       EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(2)),
                                 Edges(client.cx - 240, client.cy - 28, client.cx - 165, client.cy - 5));
                       dialog.Close();
                   });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog.log.Lines(), CallLog::LineList());
}

TEST(UnpleasantDialog, ControlsThatAreScrolledIntoViewTakeRealClicks)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               [&]
               {
                   ScrollDownTo(dialog, 400);
                   const HWND hCheck = dialog.Control(UnpleasantDialog::kCheckBoxes, 1);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, hCheck), Edges(120, 90, 220, 110));
                   ClickAtOnce(MiddleOf(hCheck));
                   EXPECT_EQ(::SendMessageW(hCheck, BM_GETCHECK, 0, 0), BST_CHECKED);
                   dialog.Close();
               });
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Clicked(1049)"}));
}

TEST(UnpleasantDialog, ItsOwnScrollBarsAreItsOwn)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               [&]
               {
                   ScrollDownTo(dialog, 300);
                   const HWND hBar = dialog.Control(UnpleasantDialog::kScrollBars, 0);
                   const CSize size = ClientSizeOf(hBar);
                   ClickAtOnce(OnScreen(hBar, size.cx - 4, size.cy / 2));
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, hBar), Edges(10, 70, 110, 90));
                   dialog.Close();
               });
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Scrolled(1036)"}));
}

TEST(UnpleasantDialog, ATabThatIsClickedChangesWhatScrollsWithTheNextSize)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               [&]
               {
                   ScrollDownTo(dialog, 1000);
                   CRect tab;
                   dialog.tabs.GetItemRect(1, &tab);
                   ClickAtOnce(OnScreen(dialog.tabs.m_hWnd, tab.left + 5, tab.top + 5));
                   EXPECT_TRUE(::IsWindowVisible(dialog.SecondTabPage()));
                   EXPECT_EQ(RangeOf(dialog.VBar()), UnpleasantDialog::kContentHeight + 20 - 1);
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   EXPECT_EQ(RangeOf(dialog.VBar()), UnpleasantDialog::kContentHeightOfSecond + 20 - 1);
                   dialog.Close();
               });
}

TEST(UnpleasantDialog, AControlThatMakesItsChildLateWidensTheContentWithTheNextSize)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               [&]
               {
                   dialog.late.MoveWindow(10, 20, 900, 30);
                   EXPECT_TRUE(::IsWindow(dialog.late.child.m_hWnd));
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   EXPECT_EQ(RangeOf(dialog.HBar()), UnpleasantDialog::kContentWidth + 20 - 1);
                   dialog.late.ShowWindow(SW_SHOW);
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   EXPECT_EQ(RangeOf(dialog.HBar()), 900 + 20 - 1);
                   dialog.Close();
               });
}

TEST(UnpleasantDialog, KeysWorkInTheDialogAsTheyDoAlone)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               {[&]
                {
                    ::SetForegroundWindow(dialog.Frame());
                    ::SetFocus(dialog.Control(UnpleasantDialog::kPushButtons, 5));
                    TypeKey(VK_TAB);
                },
                [&]
                {
                    EXPECT_EQ(::GetFocus(), dialog.Control(UnpleasantDialog::kEdits, 0));
                    TypeKey(VK_F5);
                    TypeKey(VK_RETURN); // the hidden default button
                },
                [&] { TypeKey(VK_ESCAPE); },
                [&]
                {
                    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Refresh", "OK", "Cancel"}));
                    ::SetFocus(dialog.Control(UnpleasantDialog::kCheckBoxes, 0));
                    TypeKey(VK_SPACE);
                },
                [&] { TypeKey('Z'); },
                [&]
                {
                    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Refresh", "OK", "Cancel",
                                                                     "Clicked(1048)", "Clicked(1000)"}));
                    dialog.Close();
                }});
}

TEST(UnpleasantDialog, TypingEnablesTheStandInOfAButtonAndItsHandlerDisablesIt)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(), {[&]
                                  {
                                      EXPECT_FALSE(::IsWindowEnabled(dialog.Proxy(2)));
                                      ::SetForegroundWindow(dialog.Frame());
                                      ::SetFocus(dialog.Control(UnpleasantDialog::kEdits, 0));
                                      TypeKey('X');
                                  },
                                  [&]
                                  {
                                      EXPECT_TRUE(::IsWindowEnabled(dialog.Proxy(2)));
                                      ClickAtOnce(MiddleOf(dialog.Proxy(2)));
                                      EXPECT_FALSE(::IsWindowEnabled(dialog.Proxy(2)));
                                      ClickAtOnce(MiddleOf(dialog.Proxy(2)));
                                      EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"Apply"}));
                                      dialog.Close();
                                  }});
}

TEST(UnpleasantDialog, IsTheSameInALargerFrame)
{
    const SmallMonitor monitor;
    UnpleasantDialog dialog;
    dialog.Run(dialog.Buttons(),
               [&]
               {
                   ScrollDownTo(dialog, 200);
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 800, 850, SWP_NOZORDER);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.Control(UnpleasantDialog::kLastRow, 5)),
                             Edges(560, 550, 660, 570));
                   EXPECT_FALSE(::IsWindowVisible(dialog.HBar()));
                   EXPECT_FALSE(::IsWindowVisible(dialog.VBar()));
                   dialog.Close();
               });
}

TEST(UnpleasantDialog, LeavesNothing)
{
    const SmallMonitor monitor;
    EXPECT_NO_LEAK(
        [&]
        {
            UnpleasantDialog dialog;
            dialog.Run(dialog.Buttons(),
                       [&]
                       {
                           ScrollDownTo(dialog, 300);
                           dialog.late.MoveWindow(10, 20, 900, 30);
                           ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0);
                       });
            CWnd::DeleteTempMap();
        });
}
