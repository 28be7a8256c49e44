#include <afxpriv.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <thread>

#include "WindowFixture.h"

namespace
{

constexpr UINT kEndLoop = WM_APP + 40;
constexpr UINT kRunInnerLoop = WM_APP + 41;
constexpr UINT kDestroy = WM_APP + 42;

class CModalWnd : public CTestWnd
{
public:
    int m_nKicks = 0;
    int m_nWantedKicks = 0;
    int m_nEnterIdles = 0;
    int m_nInnerResult = 0;
    int m_nExtraTurns = 0; // of ContinueModal after the loop was ended
    BOOL m_bEndsWhenIdle = FALSE;
    BOOL m_bVisibleWhenIdle = FALSE;

    BOOL ContinueModal() override { return CTestWnd::ContinueModal() || m_nExtraTurns-- > 0; }

protected:
    afx_msg LRESULT OnEndLoop(WPARAM wParam, LPARAM)
    {
        EndModalLoop(static_cast<int>(wParam));
        return 0;
    }

    afx_msg LRESULT OnRunInnerLoop(WPARAM, LPARAM)
    {
        PostMessage(kEndLoop, 2);
        m_nInnerResult = RunModalLoop();
        return 0;
    }

    afx_msg LRESULT OnDestroyRequest(WPARAM, LPARAM) { return DestroyWindow(); }

    afx_msg LRESULT OnKickIdle(WPARAM, LPARAM)
    {
        m_bVisibleWhenIdle = IsWindowVisible();
        if (m_bEndsWhenIdle)
            EndModalLoop(6);
        return ++m_nKicks < m_nWantedKicks;
    }

    afx_msg void OnEnterIdle(UINT nWhy, CWnd* pWho)
    {
        if (nWhy == MSGF_DIALOGBOX && pWho != nullptr)
            ++m_nEnterIdles;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CModalWnd, CTestWnd)
    ON_MESSAGE(kEndLoop, &CModalWnd::OnEndLoop)
    ON_MESSAGE(kRunInnerLoop, &CModalWnd::OnRunInnerLoop)
    ON_MESSAGE(kDestroy, &CModalWnd::OnDestroyRequest)
    ON_MESSAGE(WM_KICKIDLE, &CModalWnd::OnKickIdle)
    ON_WM_ENTERIDLE()
END_MESSAGE_MAP()

/// Deletes itself with its window, as frames do.
class CVanishingWnd : public CModalWnd
{
protected:
    void PostNcDestroy() override { delete this; }
};

HWND MakeTemporary()
{
    return ::CreateWindow(L"STATIC", L"", WS_OVERLAPPED, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
}

} // namespace

TEST(ModalLoop, ResultIsTheArgumentThatEndedIt)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.PostMessage(kEndLoop, 9);
    EXPECT_EQ(wnd.RunModalLoop(), 9);
}

TEST(ModalLoop, InnerLoopEndsWithoutTheOuterOne)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.PostMessage(kRunInnerLoop);
    wnd.SetTimer(1, 50, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::PostMessage(hWnd, kEndLoop, 3, 0); });
    EXPECT_EQ(wnd.RunModalLoop(), 3);
    EXPECT_EQ(wnd.m_nInnerResult, 2);
}

TEST(ModalLoop, EndingOutsideALoopDoesNothing)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.EndModalLoop(4);
    EXPECT_FALSE(wnd.ContinueModal());
    wnd.PostMessage(kEndLoop, 9);
    EXPECT_EQ(wnd.RunModalLoop(), 9);
}

TEST(ModalLoop, LoopGoesOnWhileContinueModalSaysSo)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.PostMessage(kEndLoop, 9);
    wnd.m_nExtraTurns = 2;
    EXPECT_EQ(wnd.RunModalLoop(), 9);
    EXPECT_EQ(wnd.m_nExtraTurns, -1);
}

TEST(ModalLoop, EndFromIdleProcessingEndsTheLoop)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_bEndsWhenIdle = TRUE;
    EXPECT_EQ(wnd.RunModalLoop(), 6);
}

TEST(ModalLoop, MessageSentByAnotherThreadEndsAWaitingLoop)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    constexpr UINT kTooLate = 3000; // milliseconds, after which the timer ends the loop with another result
    wnd.SetTimer(1, kTooLate, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::SendMessage(hWnd, kEndLoop, 1, 0); });
    const HWND hWnd = wnd;
    std::thread sender(
        [hWnd]
        {
            ::Sleep(200);
            ::SendMessage(hWnd, kEndLoop, 5, 0);
        });
    EXPECT_EQ(wnd.RunModalLoop(), 5);
    sender.join();
}

TEST(ModalLoop, WindowIsKickedAsLongAsItAsks)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_nWantedKicks = 3;
    wnd.SetTimer(1, 80, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::SendMessage(hWnd, kEndLoop, 1, 0); });
    EXPECT_EQ(wnd.RunModalLoop(), 1);
    EXPECT_GE(wnd.m_nKicks, 3);
}

TEST(ModalLoop, NoKickIdleFlagKeepsTheWindowFromBeingKicked)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SetTimer(1, 30, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::SendMessage(hWnd, kEndLoop, 1, 0); });
    wnd.RunModalLoop(MLF_NOKICKIDLE);
    EXPECT_EQ(wnd.m_nKicks, 0);
}

TEST(ModalLoop, OwnerIsToldOfIdleTimeUnlessTheFlagForbids)
{
    CModalWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden(WS_POPUP, &owner));
    wnd.m_bEndsWhenIdle = TRUE;
    wnd.RunModalLoop(MLF_NOIDLEMSG);
    EXPECT_EQ(owner.m_nEnterIdles, 0);
    wnd.RunModalLoop();
    EXPECT_EQ(owner.m_nEnterIdles, 1);
}

TEST(ModalLoop, ShowOnIdleFlagShowsTheWindow)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_bEndsWhenIdle = TRUE;
    wnd.RunModalLoop();
    EXPECT_FALSE(wnd.m_bVisibleWhenIdle);
    wnd.RunModalLoop(MLF_SHOWONIDLE);
    EXPECT_TRUE(wnd.m_bVisibleWhenIdle);
}

TEST(ModalLoop, IdleProcessingEndsTemporaryObjects)
{
    const HWND hForeign = MakeTemporary();
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    CWnd::FromHandle(hForeign)->SetOwner(&wnd);
    wnd.SetTimer(1, 30, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::SendMessage(hWnd, kEndLoop, 1, 0); });
    wnd.RunModalLoop();
    EXPECT_EQ(CWnd::FromHandle(hForeign)->GetOwner(), nullptr);
    ::DestroyWindow(hForeign);
}

TEST(ModalLoop, ThreadWithoutAnObjectRunsALoopToo)
{
    int nResult = 0;
    BOOL bHadObject = TRUE;
    std::thread(
        [&]
        {
            CModalWnd wnd;
            wnd.CreateHidden();
            wnd.PostMessage(kEndLoop, 9);
            bHadObject = AfxGetThread() != nullptr;
            nResult = wnd.RunModalLoop();
        })
        .join();
    EXPECT_FALSE(bHadObject);
    EXPECT_EQ(nResult, 9);
}

TEST(ModalLoop, EndOfTheWindowEndsTheLoop)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.PostMessage(kDestroy);
    EXPECT_EQ(wnd.RunModalLoop(), -1);
}

TEST(ModalLoop, EndOfTheObjectEndsTheLoop)
{
    auto* const pWnd = new CVanishingWnd;
    ASSERT_TRUE(pWnd->CreateHidden());
    pWnd->PostMessage(kDestroy);
    EXPECT_EQ(pWnd->RunModalLoop(), -1);
}

TEST(ModalLoop, QuitEndsTheLoopAndStaysInTheQueue)
{
    CModalWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    ::PostQuitMessage(12);
    EXPECT_EQ(wnd.RunModalLoop(), -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 12u);
}
