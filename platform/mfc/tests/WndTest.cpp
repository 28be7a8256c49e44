#include <afxpriv.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "WindowFixture.h"
#include "dll/TestDll.h"

namespace
{

constexpr UINT kThrowMessage = WM_APP + 20;
constexpr UINT kCountMessage = WM_APP + 21;
constexpr UINT kMessageTeller = WM_APP + 22;
constexpr UINT kStateTeller = WM_APP + 23;

/// Writes down its life: which messages and calls came, in order.
class CBiographer : public CWnd
{
public:
    explicit CBiographer(std::string& story) : m_story(story) {}

    BOOL m_bAllowCreate = TRUE;
    int m_nCreateResult = 0;
    BOOL m_bPreCreateResult = TRUE;
    bool m_deletesItself = false;

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override
    {
        return m_bPreCreateResult && CWnd::PreCreateWindow(cs);
    }

    void PreSubclassWindow() override { m_story += "subclass "; }

    void PostNcDestroy() override
    {
        m_story += m_hWnd == nullptr ? "post " : "post-with-handle ";
        if (m_deletesItself)
            delete this;
    }

    afx_msg void OnGetMinMaxInfo(MINMAXINFO* pInfo)
    {
        m_story += m_story.find("minmax") == std::string::npos ? "minmax " : "";
        CWnd::OnGetMinMaxInfo(pInfo);
    }

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT pCreate)
    {
        m_story += "nccreate ";
        return CWnd::OnNcCreate(pCreate) && m_bAllowCreate;
    }

    afx_msg int OnCreate(LPCREATESTRUCT pCreate)
    {
        m_story += "create ";
        return CWnd::OnCreate(pCreate) == -1 ? -1 : m_nCreateResult;
    }

    afx_msg void OnDestroy()
    {
        m_story += "destroy ";
        CWnd::OnDestroy();
    }

    afx_msg void OnNcDestroy()
    {
        m_story += "ncdestroy ";
        CWnd::OnNcDestroy();
    }

    DECLARE_MESSAGE_MAP()

private:
    std::string& m_story;
};

BEGIN_MESSAGE_MAP(CBiographer, CWnd)
    ON_WM_GETMINMAXINFO()
    ON_WM_NCCREATE()
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_NCDESTROY()
END_MESSAGE_MAP()

class CMessagingWnd : public CTestWnd
{
public:
    int m_nCount = 0;
    MSG m_current = {};
    CPoint m_gesturePoint;

    ULONG GetGestureStatus(CPoint ptTouch) override
    {
        m_gesturePoint = ptTouch;
        return CTestWnd::GetGestureStatus(ptTouch) | 1;
    }

protected:
    afx_msg LRESULT OnThrow(WPARAM, LPARAM)
    {
        AfxThrowUserException();
        return 5;
    }

    afx_msg LRESULT OnCount(WPARAM, LPARAM) { return ++m_nCount; }

    afx_msg LRESULT OnTell(WPARAM wParam, LPARAM)
    {
        if (wParam != 0)
            SendMessage(kMessageTeller, 0, 0);
        m_current = *GetCurrentMessage();
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMessagingWnd, CTestWnd)
    ON_MESSAGE(kThrowMessage, &CMessagingWnd::OnThrow)
    ON_MESSAGE(kCountMessage, &CMessagingWnd::OnCount)
    ON_MESSAGE(kMessageTeller, &CMessagingWnd::OnTell)
END_MESSAGE_MAP()

/// Tells which module state its handlers run in.
class CStateWnd : public CTestWnd
{
protected:
    afx_msg LRESULT OnTellState(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(AfxGetModuleState()); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CStateWnd, CTestWnd)
    ON_MESSAGE(kStateTeller, &CStateWnd::OnTellState)
END_MESSAGE_MAP()

/// Makes two windows while it is made itself: one of a class that does not exist, one without an object.
class CMakingWnd : public CTestWnd
{
public:
    CWnd m_failed;
    HWND m_hPlain = nullptr;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT)
    {
        m_failed.CreateEx(0, L"no such class", L"", WS_POPUP, CRect(), nullptr, 0);
        m_hPlain = ::CreateWindow(L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, m_hWnd, nullptr, nullptr, nullptr);
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMakingWnd, CTestWnd)
    ON_WM_CREATE()
END_MESSAGE_MAP()

LRESULT CALLBACK ForbidCreation(int nCode, WPARAM wParam, LPARAM lParam)
{
    return nCode == HCBT_CREATEWND ? 1 : ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

/// Takes or passes on what it is asked to pre-translate.
class CTranslatingWnd : public CTestWnd
{
public:
    int m_nAsked = 0;
    BOOL m_bTakes = FALSE;

    BOOL PreTranslateMessage(MSG*) override
    {
        ++m_nAsked;
        return m_bTakes;
    }
};

/// Fails in WM_CREATE and in WM_PAINT.
class CFailingWnd : public CTestWnd
{
public:
    bool m_failsInCreate = false;
    int m_nPaints = 0;

protected:
    afx_msg int OnCreate(LPCREATESTRUCT)
    {
        if (m_failsInCreate)
            AfxThrowUserException();
        return 0;
    }

    afx_msg void OnPaint()
    {
        ++m_nPaints;
        AfxThrowUserException();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CFailingWnd, CTestWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
END_MESSAGE_MAP()

/// A bar along the top edge, as a parent's layout asks for it.
class CBar : public CTestWnd
{
protected:
    afx_msg LRESULT OnSizeParent(WPARAM, LPARAM lParam)
    {
        reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam)->rect.top += 30;
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBar, CTestWnd)
    ON_MESSAGE(WM_SIZEPARENT, &CBar::OnSizeParent)
END_MESSAGE_MAP()

BOOL CreateTopLevel(CWnd& wnd)
{
    return wnd.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 100), nullptr, 0);
}

CRect WorkArea()
{
    CRect area;
    ::SystemParametersInfo(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

CRect RectOf(const CWnd& wnd)
{
    CRect rect;
    wnd.GetWindowRect(&rect);
    return rect;
}

CRect RectInParent(CWnd& wnd)
{
    CRect rect = RectOf(wnd);
    wnd.GetParent()->ScreenToClient(&rect);
    return rect;
}

} // namespace

TEST(Wnd, ObjectGetsTheFirstMessagesOfItsWindow)
{
    std::string story;
    CBiographer wnd(story);
    ASSERT_TRUE(CreateTopLevel(wnd));
    EXPECT_EQ(story, "subclass minmax nccreate create ");
}

TEST(Wnd, EndComesInTheDocumentedOrder)
{
    std::string story;
    CBiographer wnd(story);
    CreateTopLevel(wnd);
    story.clear();
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(story, "destroy ncdestroy post ");
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, DestroyWithoutAWindowFails)
{
    CWnd wnd;
    EXPECT_FALSE(wnd.DestroyWindow());
}

TEST(Wnd, DestructorDestroysTheWindowBelowTheDerivedClass)
{
    std::string story;
    HWND hWnd = nullptr;
    {
        CBiographer wnd(story);
        CreateTopLevel(wnd);
        hWnd = wnd.m_hWnd;
        story.clear();
    }
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(story, "");
}

TEST(Wnd, RefusedPreCreateCallsPostNcDestroy)
{
    std::string story;
    CBiographer wnd(story);
    wnd.m_bPreCreateResult = FALSE;
    EXPECT_FALSE(CreateTopLevel(wnd));
    EXPECT_EQ(story, "post ");
}

TEST(Wnd, UnknownClassCallsPostNcDestroy)
{
    std::string story;
    CBiographer wnd(story);
    EXPECT_FALSE(wnd.CreateEx(0, L"no such class", L"", WS_POPUP, CRect(), nullptr, 0));
    EXPECT_EQ(story, "post ");
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, ObjectWithAWindowCreatesNoSecondOne)
{
    std::string story;
    CBiographer wnd(story);
    ASSERT_TRUE(CreateTopLevel(wnd));
    const HWND hWnd = wnd;
    const std::string storyOfCreation = story;
    EXPECT_FALSE(CreateTopLevel(wnd));
    EXPECT_EQ(story, storyOfCreation);
    EXPECT_EQ(wnd.m_hWnd, hWnd);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), &wnd);
}

TEST(Wnd, RefusedCreateCallsPostNcDestroyOnce)
{
    std::string story;
    CBiographer wnd(story);
    wnd.m_nCreateResult = -1;
    EXPECT_FALSE(CreateTopLevel(wnd));
    EXPECT_NE(story.find("create "), std::string::npos);
    EXPECT_EQ(story.find("post "), story.rfind("post "));
    EXPECT_NE(story.find("post "), std::string::npos);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, RefusedNcCreateCallsPostNcDestroyOnce)
{
    std::string story;
    CBiographer wnd(story);
    wnd.m_bAllowCreate = FALSE;
    EXPECT_FALSE(CreateTopLevel(wnd));
    EXPECT_EQ(story.find("post "), story.rfind("post "));
    EXPECT_NE(story.find("post "), std::string::npos);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, CreationForbiddenByAHookCallsPostNcDestroyOnce)
{
    const HHOOK hHook = ::SetWindowsHookEx(WH_CBT, &ForbidCreation, nullptr, ::GetCurrentThreadId());
    std::string story;
    CBiographer wnd(story);
    EXPECT_FALSE(CreateTopLevel(wnd));
    ::UnhookWindowsHookEx(hHook);
    EXPECT_EQ(story, "subclass post ");
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, FailedCreationWithinACreationTakesNoOtherWindow)
{
    CMakingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.m_failed.m_hWnd, nullptr);
    EXPECT_NE(wnd.m_hPlain, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hPlain), nullptr);
}

TEST(Wnd, HandlersRunInTheModuleStateOfTheirConstruction)
{
    std::unique_ptr<CStateWnd> pWnd;
    {
        AFX_MANAGE_STATE(testdll::State());
        pWnd = std::make_unique<CStateWnd>();
    }
    ASSERT_TRUE(pWnd->CreateHidden());
    EXPECT_EQ(pWnd->SendMessage(kStateTeller), reinterpret_cast<LRESULT>(testdll::State()));
    EXPECT_NE(AfxGetModuleState(), testdll::State());
}

TEST(Wnd, SelfDeletingObjectSurvivesNoFailedCreate)
{
    std::string story;
    auto* const pWnd = new CBiographer(story);
    pWnd->m_deletesItself = true;
    pWnd->m_nCreateResult = -1;
    EXPECT_FALSE(CreateTopLevel(*pWnd));
    EXPECT_NE(story.find("post "), std::string::npos);
}

TEST(Wnd, ChildInACreatingParentDoesNotDisturbTheParent)
{
    CTestWnd parent;
    CTestWnd child;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 9));
    EXPECT_EQ(CWnd::FromHandlePermanent(::GetDlgItem(parent, 9)), &child);
}

TEST(Wnd, ChildWithoutAnIdGetsOne)
{
    CTestWnd parent;
    CTestWnd child;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 0));
    EXPECT_NE(child.GetDlgCtrlID(), 0);
}

TEST(Wnd, ExceptionInAHandlerEndsInTheWindowProcedure)
{
    CMessagingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kThrowMessage), 0);
    EXPECT_EQ(wnd.SendMessage(kCountMessage), 1);
}

TEST(Wnd, ExceptionInCreateMakesTheCreationFail)
{
    CFailingWnd wnd;
    wnd.m_failsInCreate = true;
    EXPECT_FALSE(wnd.CreateHidden());
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST(Wnd, ExceptionInPaintValidatesTheWindow)
{
    CFailingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden(WS_POPUP | WS_VISIBLE));
    wnd.Invalidate();
    wnd.UpdateWindow();
    const int nPaints = wnd.m_nPaints;
    EXPECT_GT(nPaints, 0);
    wnd.UpdateWindow();
    EXPECT_EQ(wnd.m_nPaints, nPaints);
}

TEST(Wnd, CurrentMessageIsTheOneBeingHandledAlsoAfterANestedOne)
{
    CMessagingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(kMessageTeller, 3, 4);
    EXPECT_EQ(wnd.m_current.message, kMessageTeller);
    EXPECT_EQ(wnd.m_current.wParam, 3u);
    EXPECT_EQ(wnd.m_current.lParam, 4);
    EXPECT_EQ(wnd.m_current.hwnd, wnd.m_hWnd);
}

TEST(Wnd, GestureQueryIsAnsweredByTheVirtualFunction)
{
    CMessagingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    CPoint point(7, 8);
    wnd.ClientToScreen(&point);
    EXPECT_EQ(wnd.SendMessage(0x02CC, 0, MAKELPARAM(point.x, point.y)), 1);
    EXPECT_EQ(wnd.m_gesturePoint, CPoint(7, 8));
}

TEST(Wnd, BaseGestureStatusIsZero)
{
    CTestWnd wnd;
    EXPECT_EQ(wnd.GetGestureStatus(CPoint(1, 1)), 0u);
}

TEST(Wnd, EnableAnswersWhetherItWasDisabled)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_FALSE(wnd.EnableWindow(FALSE));
    EXPECT_TRUE(wnd.EnableWindow(TRUE));
    EXPECT_TRUE(wnd.IsWindowEnabled());
}

TEST(Wnd, ShowAnswersWhetherItWasVisible)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_FALSE(wnd.ShowWindow(SW_SHOW));
    EXPECT_TRUE(wnd.ShowWindow(SW_HIDE));
}

TEST(Wnd, ModifyStyleTellsWhetherSomethingChanged)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_TRUE(wnd.ModifyStyle(WS_MAXIMIZEBOX, WS_VSCROLL));
    EXPECT_EQ(wnd.GetStyle() & WS_MAXIMIZEBOX, 0u);
    EXPECT_NE(wnd.GetStyle() & WS_VSCROLL, 0u);
    EXPECT_FALSE(wnd.ModifyStyle(WS_MAXIMIZEBOX, WS_VSCROLL));
    EXPECT_TRUE(wnd.ModifyStyleEx(0, WS_EX_TOOLWINDOW));
    EXPECT_NE(wnd.GetExStyle() & WS_EX_TOOLWINDOW, 0u);
}

TEST(Wnd, TopMostPlaceMakesTheWindowTopMost)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    constexpr UINT kOrderOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;
    wnd.SetWindowPos(&CWnd::wndTopMost, 0, 0, 0, 0, kOrderOnly);
    EXPECT_NE(wnd.GetExStyle() & WS_EX_TOPMOST, 0u);
    wnd.SetWindowPos(&CWnd::wndNoTopMost, 0, 0, 0, 0, kOrderOnly);
    EXPECT_EQ(wnd.GetExStyle() & WS_EX_TOPMOST, 0u);
}

TEST(Wnd, PlacesInZOrderHaveThePlatformsValues)
{
    EXPECT_EQ(CWnd::wndTop.m_hWnd, HWND_TOP);
    EXPECT_EQ(CWnd::wndBottom.m_hWnd, HWND_BOTTOM);
    EXPECT_EQ(CWnd::wndTopMost.m_hWnd, HWND_TOPMOST);
    EXPECT_EQ(CWnd::wndNoTopMost.m_hWnd, HWND_NOTOPMOST);
}

TEST(Wnd, TextOfAnyLengthComesBackWhole)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    const CString longText(L'x', 1000);
    wnd.SetWindowText(longText);
    CString text;
    wnd.GetWindowText(text);
    EXPECT_EQ(text, longText);
    wchar_t buffer[4];
    EXPECT_EQ(wnd.GetWindowText(buffer, 4), 3);
}

TEST(Wnd, RectanglesAreMappedBetweenWindows)
{
    CTestWnd parent;
    CTestWnd child;
    ASSERT_TRUE(parent.CreateHidden(WS_POPUP));
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    CRect rect(0, 0, 5, 5);
    child.MapWindowPoints(&parent, &rect);
    EXPECT_EQ(rect, CRect(10, 20, 15, 25));
    child.ClientToScreen(&rect);
    child.ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(10, 20, 15, 25));
}

TEST(Wnd, FontOfAControlIsTheOneThatWasSet)
{
    CTestWnd parent;
    ASSERT_TRUE(parent.CreateHidden());
    CButton button;
    ASSERT_TRUE(button.Create(L"", WS_CHILD, CRect(), &parent, 1));
    CFont font;
    font.CreatePointFont(120, L"Tahoma");
    button.SetFont(&font);
    EXPECT_EQ(button.GetFont()->GetSafeHandle(), font.GetSafeHandle());
}

TEST(Wnd, ScrollInfoComesBack)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden(WS_OVERLAPPEDWINDOW | WS_VSCROLL));
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 99, 10, 5, 0};
    EXPECT_TRUE(wnd.SetScrollInfo(SB_VERT, &info));
    SCROLLINFO read = {};
    EXPECT_TRUE(wnd.GetScrollInfo(SB_VERT, &read));
    EXPECT_EQ(read.nMax, 99);
    EXPECT_EQ(read.nPage, 10u);
    EXPECT_EQ(wnd.GetScrollPos(SB_VERT), 5);
    EXPECT_EQ(wnd.GetScrollLimit(SB_VERT), 90);
    EXPECT_EQ(wnd.SetScrollPos(SB_VERT, 8), 5);
}

TEST(Wnd, ItemsAreFoundById)
{
    CTestWnd parent;
    CTestWnd child;
    CTestWnd grandchild;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    ASSERT_TRUE(grandchild.CreateIn(&child, 2));
    HWND hFound = nullptr;
    parent.GetDlgItem(1, &hFound);
    EXPECT_EQ(hFound, child.m_hWnd);
    EXPECT_EQ(parent.GetDlgItem(1), &child);
    EXPECT_EQ(parent.GetDlgItem(2), nullptr);
    EXPECT_EQ(parent.GetDescendantWindow(2), &grandchild);
    EXPECT_EQ(parent.GetDescendantWindow(3), nullptr);
}

TEST(Wnd, DescendantsWithoutObjectCanBeLeftOut)
{
    CTestWnd parent;
    ASSERT_TRUE(parent.CreateHidden());
    const HMENU hId = reinterpret_cast<HMENU>(4);
    ::CreateWindow(L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, parent, hId, nullptr, nullptr);
    EXPECT_NE(parent.GetDescendantWindow(4), nullptr);
    EXPECT_EQ(parent.GetDescendantWindow(4, TRUE), nullptr);
}

TEST(Wnd, MessageToDescendantsReachesAllLevels)
{
    CTestWnd parent;
    CMessagingWnd child;
    CMessagingWnd grandchild;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    ASSERT_TRUE(grandchild.CreateIn(&child, 2));
    parent.SendMessageToDescendants(kCountMessage);
    EXPECT_EQ(child.m_nCount, 1);
    EXPECT_EQ(grandchild.m_nCount, 1);
    parent.SendMessageToDescendants(kCountMessage, 0, 0, FALSE);
    EXPECT_EQ(child.m_nCount, 2);
    EXPECT_EQ(grandchild.m_nCount, 1);
}

TEST(Wnd, PreTranslationGoesUpToTheStopWindow)
{
    CTranslatingWnd top;
    CTranslatingWnd middle;
    CTranslatingWnd inner;
    ASSERT_TRUE(top.CreateHidden());
    ASSERT_TRUE(middle.CreateIn(&top, 1));
    ASSERT_TRUE(inner.CreateIn(&middle, 2));
    MSG message = {inner.m_hWnd, WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(middle, &message));
    EXPECT_EQ(inner.m_nAsked, 1);
    EXPECT_EQ(middle.m_nAsked, 1);
    EXPECT_EQ(top.m_nAsked, 0);
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(nullptr, &message));
    EXPECT_EQ(top.m_nAsked, 1);
}

TEST(Wnd, PreTranslationEndsWithTheWindowThatTakesTheMessage)
{
    CTranslatingWnd top;
    CTranslatingWnd inner;
    ASSERT_TRUE(top.CreateHidden());
    ASSERT_TRUE(inner.CreateIn(&top, 1));
    inner.m_bTakes = TRUE;
    MSG message = {inner.m_hWnd, WM_KEYDOWN, VK_TAB, 1, 0, {}};
    EXPECT_TRUE(CWnd::WalkPreTranslateTree(nullptr, &message));
    EXPECT_EQ(top.m_nAsked, 0);
}

TEST(Wnd, OwnerIsTheParentUntilOneIsSet)
{
    CTestWnd parent;
    CTestWnd child;
    CTestWnd other;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(other.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    EXPECT_EQ(child.GetOwner(), &parent);
    child.SetOwner(&other);
    EXPECT_EQ(child.GetOwner(), &other);
    EXPECT_EQ(child.GetParent(), &parent);
    EXPECT_EQ(child.GetTopLevelOwner(), &other);
}

TEST(Wnd, ParentOwnerSkipsChildren)
{
    CTestWnd parent;
    CTestWnd child;
    CTestWnd grandchild;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    ASSERT_TRUE(grandchild.CreateIn(&child, 2));
    EXPECT_EQ(grandchild.GetParentOwner(), &parent);
}

TEST(Wnd, TopLevelParentIncludesOwners)
{
    CTestWnd owner;
    CTestWnd popup;
    CTestWnd child;
    ASSERT_TRUE(owner.CreateHidden());
    ASSERT_TRUE(popup.CreateHidden(WS_POPUP, &owner));
    ASSERT_TRUE(child.CreateIn(&popup, 1));
    EXPECT_EQ(child.GetTopLevelParent(), &owner);
    EXPECT_EQ(owner.GetTopLevelParent(), &owner);
}

TEST(Wnd, SafeOwnerOfAChildIsItsTopLevelWindow)
{
    CTestWnd parent;
    CTestWnd child;
    ASSERT_TRUE(parent.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    HWND hTop = nullptr;
    EXPECT_EQ(CWnd::GetSafeOwner(&child, &hTop), &parent);
    EXPECT_EQ(hTop, parent.m_hWnd);
}

TEST(Wnd, PopupIsCenteredOverItsVisibleOwner)
{
    CTestWnd owner;
    CTestWnd popup;
    ASSERT_TRUE(owner.CreateHidden(WS_POPUP | WS_VISIBLE));
    owner.MoveWindow(200, 200, 600, 400);
    ASSERT_TRUE(popup.CreateHidden(WS_POPUP, &owner));
    popup.MoveWindow(0, 0, 100, 100);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup), CRect(450, 350, 550, 450));
}

TEST(Wnd, PopupStaysInTheWorkArea)
{
    CTestWnd owner;
    CTestWnd popup;
    ASSERT_TRUE(owner.CreateHidden(WS_POPUP | WS_VISIBLE));
    owner.MoveWindow(0, 0, 40, 40);
    ASSERT_TRUE(popup.CreateHidden(WS_POPUP, &owner));
    popup.MoveWindow(50, 50, 200, 200);
    popup.CenterWindow();
    EXPECT_EQ(RectOf(popup).TopLeft(), WorkArea().TopLeft());
}

TEST(Wnd, UnownedPopupIsCenteredOnTheScreen)
{
    CTestWnd popup;
    ASSERT_TRUE(popup.CreateHidden(WS_POPUP));
    popup.MoveWindow(0, 0, 200, 100);
    popup.CenterWindow();
    const CPoint center = WorkArea().CenterPoint();
    EXPECT_EQ(RectOf(popup), CRect(center.x - 100, center.y - 50, center.x + 100, center.y + 50));
}

TEST(Wnd, DesktopAsOwnerMeansTheScreen)
{
    CTestWnd owner;
    CTestWnd popup;
    ASSERT_TRUE(owner.CreateHidden(WS_POPUP | WS_VISIBLE));
    owner.MoveWindow(0, 0, 400, 400);
    ASSERT_TRUE(popup.CreateHidden(WS_POPUP, &owner));
    popup.MoveWindow(0, 0, 200, 100);
    popup.CenterWindow(CWnd::GetDesktopWindow());
    EXPECT_EQ(RectOf(popup).CenterPoint(), WorkArea().CenterPoint());
}

TEST(Wnd, ChildIsCenteredInItsParent)
{
    CTestWnd parent;
    CTestWnd child;
    ASSERT_TRUE(parent.CreateHidden(WS_POPUP));
    ASSERT_TRUE(child.CreateIn(&parent, 1));
    child.CenterWindow();
    EXPECT_EQ(RectInParent(child), CRect(100, 75, 200, 125));
}

TEST(Wnd, LeftOverWindowGetsWhatBarsLeave)
{
    CTestWnd parent;
    CBar bar;
    CTestWnd pane;
    ASSERT_TRUE(parent.CreateHidden(WS_POPUP));
    ASSERT_TRUE(bar.CreateIn(&parent, 10));
    ASSERT_TRUE(pane.CreateIn(&parent, 11));
    parent.RepositionBars(10, 20, 11);
    EXPECT_EQ(RectInParent(pane), CRect(0, 30, 300, 200));
}

TEST(Wnd, LayoutQueryMovesNothing)
{
    CTestWnd parent;
    CBar bar;
    CTestWnd pane;
    ASSERT_TRUE(parent.CreateHidden(WS_POPUP));
    ASSERT_TRUE(bar.CreateIn(&parent, 10));
    ASSERT_TRUE(pane.CreateIn(&parent, 11));
    const CRect before = RectInParent(pane);
    CRect rest;
    parent.RepositionBars(10, 20, 11, CWnd::reposQuery, &rest);
    EXPECT_EQ(rest, CRect(0, 30, 300, 200));
    EXPECT_EQ(RectInParent(pane), before);
}

TEST(Wnd, LayoutExtraKeepsABorder)
{
    CTestWnd parent;
    CTestWnd pane;
    ASSERT_TRUE(parent.CreateHidden(WS_POPUP));
    ASSERT_TRUE(pane.CreateIn(&parent, 11));
    CRect border(1, 2, 3, 4);
    parent.RepositionBars(10, 20, 11, CWnd::reposExtra, &border);
    EXPECT_EQ(RectInParent(pane), CRect(1, 2, 297, 196));
}

TEST(Wnd, ModalStateOfAPlainWindowDisablesIt)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.BeginModalState();
    EXPECT_FALSE(wnd.IsWindowEnabled());
    wnd.EndModalState();
    EXPECT_TRUE(wnd.IsWindowEnabled());
}

TEST(Wnd, CheckedRadioButtonIsFound)
{
    CTestWnd parent;
    ASSERT_TRUE(parent.CreateHidden());
    CButton first;
    CButton second;
    ASSERT_TRUE(first.Create(L"", WS_CHILD | BS_AUTORADIOBUTTON | WS_GROUP, CRect(), &parent, 30));
    ASSERT_TRUE(second.Create(L"", WS_CHILD | BS_AUTORADIOBUTTON, CRect(), &parent, 31));
    EXPECT_EQ(parent.GetCheckedRadioButton(30, 31), 0);
    parent.CheckRadioButton(30, 31, 31);
    EXPECT_EQ(parent.GetCheckedRadioButton(30, 31), 31);
}

TEST(Wnd, ComparisonIsOfHandles)
{
    CTestWnd first;
    CTestWnd second;
    ASSERT_TRUE(first.CreateHidden());
    ASSERT_TRUE(second.CreateHidden());
    EXPECT_TRUE(first == *CWnd::FromHandle(first));
    EXPECT_TRUE(first != second);
}
