#include "foundation/WindowDpiAnswer.h"
#include "layout/LayoutFixtures.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"

#include <vxdpi/ScrollFrame.h>

#include <gtest/gtest.h>

namespace
{
using Lines = CallLog::LineList;

// A target of 200 x 150 pixels with a visible child of 300 x 200, a hidden one, and two bars beside it.
class ScrollManagerCalls : public testing::Test
{
protected:
    ScrollManagerCalls()
    {
        m_pShown = m_target.AddChild(1, {10, 20, 310, 220});
        m_pHidden = m_target.AddChild(2, {0, 0, 900, 900});
        m_pHidden->ShowWindow(SW_HIDE);
        m_hBar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(0, 280, 200, 300), m_owner.Window(), 2);
        m_vBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, CRect(380, 0, 400, 200), m_owner.Window(), 3);
        m_otherBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, CRect(340, 0, 360, 200), m_owner.Window(), 4);
        m_log.Name(m_target.Handle(), "target");
        m_log.Name(m_pShown->m_hWnd, "shown");
        m_log.Name(m_pHidden->m_hWnd, "hidden");
        m_log.Name(m_hBar.m_hWnd, "hBar");
        m_log.Name(m_vBar.m_hWnd, "vBar");
        m_log.Name(m_otherBar.m_hWnd, "otherBar");
    }

    void Create(CScrollManager::Modal modal, int reapplyOffset = 0)
    {
        ASSERT_TRUE(m_manager.Create(m_target.Window(), modal, &m_hBar, &m_vBar, reapplyOffset));
    }

    LayoutParent m_owner;
    LayoutParent m_target{200, 150};
    CWnd* m_pShown = nullptr;
    CWnd* m_pHidden = nullptr;
    CScrollBar m_hBar;
    CScrollBar m_vBar;
    CScrollBar m_otherBar;
    CScrollManager m_manager;
    CallLog m_log;
};

class Scrolling
{
public:
    explicit Scrolling(CallLog& log)
        : m_position(log, VxDpiModule(), "user32.dll", "SetScrollPos"),
          m_scroll(log, VxDpiModule(), "user32.dll", "ScrollWindow"),
          m_show(log, VxDpiModule(), "user32.dll", "ShowScrollBar")
    {
    }

private:
    RecordCalls<decltype(::SetScrollPos)> m_position;
    RecordCalls<decltype(::ScrollWindow)> m_scroll;
    RecordCalls<decltype(::ShowScrollBar)> m_show;
};

// The numbers that bars are given: by the library their windows' own bars, by the framework the controls.
class Numbers
{
public:
    Numbers(CallLog& log, const SpiedModule& module)
        : m_set(module, "user32.dll", "SetScrollInfo",
                [this, &log](HWND hWnd, int nBar, LPCSCROLLINFO pInfo, BOOL bRedraw)
                {
                    log.WriteCall("SetScrollInfo", hWnd, nBar, pInfo->nMax, pInfo->nPage, pInfo->nPos,
                                  bRedraw);
                    return m_set.Original()(hWnd, nBar, pInfo, bRedraw);
                })
    {
    }

private:
    ImportSpy<decltype(::SetScrollInfo)> m_set;
};
}

TEST_F(ScrollManagerCalls, AControlIsSetBeforeTheContentIsMoved)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_LINEDOWN, 0, &m_vBar);
    m_manager.StartHScroll(SB_LINEDOWN, 0, &m_hBar);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(vBar, 2, 8, 1)", "ScrollWindow(target, 0, -8, null, null)",
                     "SetScrollPos(hBar, 2, 8, 1)", "ScrollWindow(target, -8, 0, null, null)"}));
}

TEST_F(ScrollManagerCalls, TheBarThatSentTheMessageIsSet)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_PAGEDOWN, 0, &m_otherBar);
    m_manager.StartHScroll(SB_PAGEDOWN, 0, &m_otherBar);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(otherBar, 2, 70, 1)", "ScrollWindow(target, 0, -70, null, null)",
                     "SetScrollPos(otherBar, 2, 120, 1)", "ScrollWindow(target, -120, 0, null, null)"}));
}

TEST_F(ScrollManagerCalls, TheWindowsOwnBarIsSetBeforeTheContentIsMoved)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::WindowScrollBars);
    m_manager.UpdateScrollBars(200, 150);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_LINEDOWN, 0, nullptr);
    m_manager.StartHScroll(SB_LINEDOWN, 0, &m_hBar);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(target, 1, 8, 1)", "ScrollWindow(target, 0, -8, null, null)",
                     "SetScrollPos(target, 0, 8, 1)", "ScrollWindow(target, -8, 0, null, null)"}));
}

TEST_F(ScrollManagerCalls, AWindowThatWasNeverMeasuredIsNotScrolled)
{
    Create(CScrollManager::WindowScrollBars);
    const Scrolling calls(m_log);
    for (const UINT_PTR code : {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_THUMBTRACK})
    {
        m_manager.StartVScroll(code, 50, nullptr);
        m_manager.StartHScroll(code, 50, nullptr);
    }
    EXPECT_EQ(m_log.Lines(), Lines{});
}

TEST_F(ScrollManagerCalls, AWindowWhoseContentFitsIsNotScrolled)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::WindowScrollBars);
    m_manager.UpdateScrollBars(500, 500);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_LINEDOWN, 0, nullptr);
    m_manager.StartHScroll(SB_THUMBTRACK, 50, nullptr);
    EXPECT_EQ(m_log.Lines(), Lines{});
}

// A single pixel without a margin ends at 0, so that each number can be the only one that is not 0.
TEST_F(ScrollManagerCalls, AWindowIsScrolledWhileAnyOfItsNumbersIsNotZero)
{
    const WindowDpiAnswer dpi(0);
    const ImportSpy<decltype(::GetSystemMetricsForDpi)> metrics(
        VxDpiModule(), "user32.dll", "GetSystemMetricsForDpi", [](int, UINT) { return 0; });
    ASSERT_TRUE(m_manager.Create(m_target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0));
    m_pShown->MoveWindow(0, 0, 1, 1);
    m_manager.UpdateScrollBars(-5, -5);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_LINEDOWN, 0, nullptr); // by its page
    m_manager.UpdateScrollBars(-5, 0);
    m_manager.StartVScroll(SB_LINEUP, 0, nullptr); // by its position
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(target, 1, 6, 1)", "ScrollWindow(target, 0, -6, null, null)",
                     "SetScrollPos(target, 1, 1, 1)", "ScrollWindow(target, 0, 5, null, null)",
                     "SetScrollPos(target, 1, 0, 1)", "ScrollWindow(target, 0, 1, null, null)"}));
}

TEST_F(ScrollManagerCalls, AWindowIsScrolledByTheRangeOfTheSameAxis)
{
    const WindowDpiAnswer dpi(96);
    const ImportSpy<decltype(::GetSystemMetricsForDpi)> metrics(
        VxDpiModule(), "user32.dll", "GetSystemMetricsForDpi", [](int, UINT) { return 0; });
    ASSERT_TRUE(m_manager.Create(m_target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0));
    m_manager.UpdateScrollBars(0, 500);
    {
        const Scrolling calls(m_log);
        m_manager.StartHScroll(SB_LINEDOWN, 0, nullptr);
        m_manager.StartVScroll(SB_LINEDOWN, 0, nullptr);
    }
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(target, 0, 8, 1)", "ScrollWindow(target, -8, 0, null, null)"}));
    m_log.Clear();
    m_manager.UpdateScrollBars(500, 0);
    const Scrolling calls(m_log);
    m_manager.StartHScroll(SB_LINEDOWN, 0, nullptr);
    m_manager.StartVScroll(SB_LINEDOWN, 0, nullptr);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(target, 1, 8, 1)", "ScrollWindow(target, 0, -8, null, null)"}));
}

TEST_F(ScrollManagerCalls, WithoutItsWindowOnlyThePositionMoves)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    const Scrolling calls(m_log);
    const HWND hTarget = m_target.Window()->Detach();
    m_manager.StartVScroll(SB_LINEDOWN, 0, &m_vBar);
    EXPECT_EQ(m_log.Lines(), Lines{});
    m_target.Window()->Attach(hTarget);
    m_manager.StartVScroll(SB_LINEDOWN, 0, &m_vBar);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(vBar, 2, 16, 1)", "ScrollWindow(target, 0, -8, null, null)"}));
}

TEST_F(ScrollManagerCalls, AMoveOfNothingMakesNoCall)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    const Scrolling calls(m_log);
    m_manager.StartVScroll(SB_LINEUP, 0, &m_vBar);
    m_manager.StartVScroll(SB_THUMBTRACK, 0, &m_vBar);
    EXPECT_EQ(m_log.Lines(), Lines{});
}

TEST_F(ScrollManagerCalls, TheChildrenAreWalkedInTheirOrderAndHiddenOnesNotMeasured)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    CWnd* const pSecond = m_target.AddChild(3, {300, 210, 330, 230});
    m_log.Name(pSecond->m_hWnd, "second");
    ::SetWindowPos(pSecond->m_hWnd, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ::SetWindowPos(m_pHidden->m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    {
        const RecordCalls<decltype(::GetWindow)> walk(m_log, VxDpiModule(), "user32.dll", "GetWindow");
        const ImportSpy<decltype(::GetWindowLongW)> style(VxDpiModule(), "user32.dll", "GetWindowLongW",
                                                          [&](HWND hWnd, int nIndex)
                                                          {
                                                              m_log.WriteCall("GetWindowLongW", hWnd, nIndex);
                                                              return style.Original()(hWnd, nIndex);
                                                          });
        const ImportSpy<decltype(::GetWindowRect)> place(VxDpiModule(), "user32.dll", "GetWindowRect",
                                                         [&](HWND hWnd, LPRECT pRect)
                                                         {
                                                             m_log.WriteCall("GetWindowRect", hWnd);
                                                             return place.Original()(hWnd, pRect);
                                                         });
        m_manager.UpdateScrollBars(500, 500);
    }
    ASSERT_GE(m_log.Lines().size(), 9u);
    EXPECT_EQ(Lines(m_log.Lines().begin(), m_log.Lines().begin() + 9),
              (Lines{"GetWindow(target, 5)", "GetWindowLongW(hidden, -16)", "GetWindow(hidden, 2)",
                     "GetWindowLongW(shown, -16)", "GetWindowRect(shown)", "GetWindow(shown, 2)",
                     "GetWindowLongW(second, -16)", "GetWindowRect(second)", "GetWindow(second, 2)"}));
    m_manager.UpdateScrollBars(339, 230);
    EXPECT_TRUE(m_hBar.GetStyle() & WS_VISIBLE);  // 10 to 330 and the margin make 340
    EXPECT_FALSE(m_vBar.GetStyle() & WS_VISIBLE); // 20 to 230 and the margin make 230
}

TEST_F(ScrollManagerCalls, WithControlsTheirNumbersAreSetAndTheWindowsOwnLeftAlone)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls, 1);
    m_manager.UpdateScrollBars(200, 150);
    m_manager.StartVScroll(SB_LINEDOWN, 0, &m_vBar);
    {
        const Scrolling calls(m_log);
        m_manager.UpdateScrollBars(190, 400);
    }
    EXPECT_EQ(m_log.Lines(),
              (Lines{"ShowScrollBar(hBar, 2, 1)", "ShowScrollBar(vBar, 2, 0)",
                     "ScrollWindow(target, 0, 0, null, null)", "ScrollWindow(target, 0, 0, null, null)"}));
    SCROLLINFO info = {};
    m_hBar.GetScrollInfo(&info, SIF_ALL);
    EXPECT_EQ(info.nPage, 190u);
    EXPECT_EQ(info.nMax, 319);
    SCROLLINFO own = {sizeof own, SIF_ALL, 0, 0, 0, 0, 0};
    ::GetScrollInfo(m_target.Handle(), SB_HORZ, &own);
    EXPECT_NE(own.nMax, 319);
}

TEST_F(ScrollManagerCalls, WithControlsTheArrowsAreAskedForAllTheSameAndTakeNothingOff)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    {
        const RecordCalls<decltype(::GetSystemMetricsForDpi)> metrics(m_log, VxDpiModule(), "user32.dll",
                                                                      "GetSystemMetricsForDpi");
        m_manager.UpdateScrollBars(200, 150);
    }
    EXPECT_EQ(m_log.Lines(), (Lines{"GetSystemMetricsForDpi(21, 96)", "GetSystemMetricsForDpi(20, 96)"}));
    SCROLLINFO info = {};
    m_hBar.GetScrollInfo(&info, SIF_ALL);
    EXPECT_EQ(info.nPage, 200u);
    m_vBar.GetScrollInfo(&info, SIF_ALL);
    EXPECT_EQ(info.nPage, 150u);
}

TEST_F(ScrollManagerCalls, AGrownPagePullsTheContentAlongByItsControl)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    m_manager.StartHScroll(SB_THUMBTRACK, 120, &m_hBar);
    m_manager.StartVScroll(SB_THUMBTRACK, 70, &m_vBar);
    const Scrolling calls(m_log);
    const Numbers numbers(m_log, FrameworkModule());
    m_manager.UpdateScrollBars(210, 170);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"ShowScrollBar(hBar, 2, 1)", "ShowScrollBar(vBar, 2, 1)",
                     "SetScrollInfo(hBar, 2, 319, 210, 120, 1)", "SetScrollPos(hBar, 2, 110, 1)",
                     "ScrollWindow(target, 10, 0, null, null)", "SetScrollInfo(vBar, 2, 219, 170, 70, 1)",
                     "SetScrollPos(vBar, 2, 50, 1)", "ScrollWindow(target, 0, 20, null, null)"}));
}

TEST_F(ScrollManagerCalls, AGrownPagePullsTheContentAlongByTheWindowsOwnBar)
{
    const WindowDpiAnswer dpi(96);
    ASSERT_TRUE(m_manager.Create(m_target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0));
    m_manager.UpdateScrollBars(200, 150);
    m_manager.StartHScroll(SB_THUMBTRACK, 120, nullptr);
    m_manager.StartVScroll(SB_THUMBTRACK, 70, nullptr);
    const Scrolling calls(m_log);
    const Numbers numbers(m_log, VxDpiModule());
    m_manager.UpdateScrollBars(210, 170);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollInfo(target, 0, 319, 210, 120, 1)", "SetScrollPos(target, 0, 110, 1)",
                     "ScrollWindow(target, 10, 0, null, null)", "SetScrollInfo(target, 1, 219, 170, 70, 1)",
                     "SetScrollPos(target, 1, 50, 1)", "ScrollWindow(target, 0, 20, null, null)"}));
}

TEST_F(ScrollManagerCalls, WhatWasScrolledComesBackWhereNoBarIsNeeded)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls);
    m_manager.UpdateScrollBars(200, 150);
    m_manager.StartHScroll(SB_THUMBTRACK, 30, &m_hBar);
    m_manager.StartVScroll(SB_THUMBTRACK, 20, &m_vBar);
    const Scrolling calls(m_log);
    m_manager.UpdateScrollBars(400, 400);
    EXPECT_EQ(m_log.Lines(), (Lines{"ScrollWindow(target, 30, 0, null, null)", "ShowScrollBar(hBar, 2, 0)",
                                    "ScrollWindow(target, 0, 20, null, null)", "ShowScrollBar(vBar, 2, 0)"}));
}

// 100 of 319 is 200 of 639, and 20 of 219 is 40 of 439.
TEST_F(ScrollManagerCalls, WhatComesBackAtAnotherDpiIsTheOffsetThatBelongsToIt)
{
    Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(96);
        m_manager.UpdateScrollBars(200, 150);
        m_manager.StartHScroll(SB_THUMBTRACK, 100, &m_hBar);
        m_manager.StartVScroll(SB_THUMBTRACK, 20, &m_vBar);
    }
    const WindowDpiAnswer dpi(192);
    m_pShown->MoveWindow(0, 0, 600, 400);
    const Scrolling calls(m_log);
    m_manager.UpdateScrollBars(640, 440);
    EXPECT_EQ(m_log.Lines(), (Lines{"ScrollWindow(target, 200, 0, null, null)", "ShowScrollBar(hBar, 2, 0)",
                                    "ScrollWindow(target, 0, 40, null, null)", "ShowScrollBar(vBar, 2, 0)"}));
}

TEST_F(ScrollManagerCalls, AnOffsetOfOtherKindsIsNeitherTakenBackNorAppliedAgain)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::ScrollBarControls, 2);
    m_manager.UpdateScrollBars(200, 150);
    m_manager.StartVScroll(SB_THUMBTRACK, 20, &m_vBar);
    const Scrolling calls(m_log);
    m_manager.UpdateScrollBars(190, 140);
    m_manager.UpdateScrollBars(400, 400);
    EXPECT_EQ(m_log.Lines(), (Lines{"ShowScrollBar(hBar, 2, 1)", "ShowScrollBar(vBar, 2, 1)",
                                    "ShowScrollBar(hBar, 2, 0)", "ShowScrollBar(vBar, 2, 0)"}));
}

TEST_F(ScrollManagerCalls, MissingControlsAreNotNeeded)
{
    const WindowDpiAnswer dpi(96);
    ASSERT_TRUE(m_manager.Create(m_target.Window(), CScrollManager::ScrollBarControls, nullptr, nullptr, 0));
    const Scrolling calls(m_log);
    m_manager.UpdateScrollBars(200, 150);
    EXPECT_EQ(m_log.Lines(), Lines{});
    m_manager.StartVScroll(SB_LINEDOWN, 0, &m_otherBar);
    EXPECT_EQ(m_log.Lines(),
              (Lines{"SetScrollPos(otherBar, 2, 8, 1)", "ScrollWindow(target, 0, -8, null, null)"}));
}

TEST_F(ScrollManagerCalls, ABarCountsAsVisibleWhenAPageFitsIntoItsRange)
{
    const WindowDpiAnswer dpi(96);
    Create(CScrollManager::WindowScrollBars);
    int asked = 0;
    BOOL isRead = TRUE;
    SCROLLINFO answer = {};
    const ImportSpy<decltype(::GetScrollInfo)> bar(FrameworkModule(), "user32.dll", "GetScrollInfo",
                                                   [&](HWND, int, LPSCROLLINFO pInfo)
                                                   {
                                                       ++asked;
                                                       EXPECT_EQ(pInfo->fMask, static_cast<UINT>(SIF_ALL));
                                                       pInfo->nMin = answer.nMin;
                                                       pInfo->nMax = answer.nMax;
                                                       pInfo->nPage = answer.nPage;
                                                       return isRead;
                                                   });
    const auto pageFor = [&](int nMin, int nMax, UINT nPage)
    {
        answer.nMin = nMin;
        answer.nMax = nMax;
        answer.nPage = nPage;
        m_manager.UpdateScrollBars(200, 150);
        SCROLLINFO info = {sizeof info, SIF_PAGE, 0, 0, 0, 0, 0};
        bar.Original()(m_target.Handle(), SB_HORZ, &info);
        return static_cast<int>(info.nPage);
    };
    const int without = 200 - ::GetSystemMetricsForDpi(SM_CYVSCROLL, 96);
    EXPECT_EQ(pageFor(0, 100, 100), 200);
    EXPECT_EQ(pageFor(0, 100, 101), without);
    EXPECT_EQ(pageFor(10, 100, 91), without);
    EXPECT_EQ(pageFor(10, 100, 90), 200);
    EXPECT_EQ(pageFor(5, 5, 0), without);
    EXPECT_EQ(pageFor(9, 5, 0), without);
    EXPECT_EQ(pageFor(4, 5, 1), 200);
    isRead = FALSE;
    EXPECT_EQ(pageFor(4, 5, 1), without);
    EXPECT_EQ(asked, 16);
}

TEST_F(ScrollManagerCalls, AThousandUpdatesAndMovesLeaveNothing)
{
    Create(CScrollManager::ScrollBarControls);
    EXPECT_NO_LEAK(
        [this]
        {
            for (int i = 0; i < 100; ++i)
            {
                m_manager.UpdateScrollBars(200 - i % 3, 150);
                m_manager.StartVScroll(i % 2 ? SB_LINEUP : SB_LINEDOWN, 0, &m_vBar);
            }
        });
}
