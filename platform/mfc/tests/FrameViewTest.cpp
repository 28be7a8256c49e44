#include <afxext.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include "DialogResources.h"
#include "WindowFixture.h"

namespace
{

int g_nFrames = 0;
int g_nViews = 0;

class CTestView : public CView
{
    DECLARE_DYNCREATE(CTestView)

public:
    CTestView() { ++g_nViews; }
    ~CTestView() override { --g_nViews; }

    int m_nDraws = 0;
    int m_nPrepares = 0;
    int m_nInitialUpdates = 0;
    int m_nUpdates = 0;
    int m_nActivations = 0;
    int m_nDeactivations = 0;
    int m_nCommands = 0;
    UINT m_nScrollCode = 0;
    bool m_endsFrameAtFirst = false;
    bool m_endsOnFrameActivation = false;
    static bool s_refusesCreation;

    void OnInitialUpdate() override
    {
        ++m_nInitialUpdates;
        CView::OnInitialUpdate();
        if (m_endsFrameAtFirst)
            GetParentFrame()->DestroyWindow();
    }

    void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo) override
    {
        ++m_nPrepares;
        CView::OnPrepareDC(pDC, pInfo);
    }

protected:
    void OnDraw(CDC*) override { ++m_nDraws; }

    void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint) override
    {
        ++m_nUpdates;
        CView::OnUpdate(pSender, lHint, pHint);
    }

    void OnActivateView(BOOL bActivate, CView* pActivate, CView* pDeactive) override
    {
        ++(bActivate ? m_nActivations : m_nDeactivations);
        CView::OnActivateView(bActivate, pActivate, pDeactive);
    }

    void OnActivateFrame(UINT nState, CFrameWnd* pFrameWnd) override
    {
        CView::OnActivateFrame(nState, pFrameWnd);
        if (m_endsOnFrameActivation)
            DestroyWindow();
    }

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct)
    {
        return s_refusesCreation ? -1 : CView::OnCreate(lpCreateStruct);
    }

    afx_msg void OnCommandInView() { ++m_nCommands; }
    afx_msg void OnVScroll(UINT nSBCode, UINT, CScrollBar*) { m_nScrollCode = nSBCode; }

    DECLARE_MESSAGE_MAP()
};

bool CTestView::s_refusesCreation = false;

IMPLEMENT_DYNCREATE(CTestView, CView)

BEGIN_MESSAGE_MAP(CTestView, CView)
    ON_WM_CREATE()
    ON_WM_VSCROLL()
    ON_COMMAND(ID_EDIT_COPY, &CTestView::OnCommandInView)
    ON_COMMAND(ID_EDIT_CUT, &CTestView::OnCommandInView)
END_MESSAGE_MAP()

class CTestFrame : public CFrameWnd
{
    DECLARE_DYNCREATE(CTestFrame)

public:
    CTestFrame() { ++g_nFrames; }
    ~CTestFrame() override { --g_nFrames; }

    int m_nCommands = 0;
    int m_nLayouts = 0;

    void RecalcLayout(BOOL bNotify) override
    {
        ++m_nLayouts;
        CFrameWnd::RecalcLayout(bNotify);
    }

protected:
    afx_msg void OnCommandInFrame() { ++m_nCommands; }

    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNCREATE(CTestFrame, CFrameWnd)

BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
    ON_COMMAND(ID_EDIT_CUT, &CTestFrame::OnCommandInFrame)
    ON_COMMAND(ID_EDIT_PASTE, &CTestFrame::OnCommandInFrame)
    ON_COMMAND(ID_FRAME_COMMAND, &CTestFrame::OnCommandInFrame)
END_MESSAGE_MAP()

/// A frame as an automatic object: it must not delete itself.
class CStackFrame : public CFrameWnd
{
public:
    int m_nEnds = 0;

protected:
    void PostNcDestroy() override
    {
        ++m_nEnds;
        CWnd::PostNcDestroy();
    }
};

constexpr UINT kEndLoop = WM_APP + 50;

/// A view as an automatic object that is modal for a while.
class CStackView : public CTestView
{
public:
    int m_nEnds = 0;

    /// Reached through the entry of the base class's map below.
    virtual LRESULT OnEndLoop(WPARAM wParam, LPARAM) = 0;

protected:
    void PostNcDestroy() override
    {
        ++m_nEnds;
        CWnd::PostNcDestroy();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CStackView, CTestView)
    ON_MESSAGE(kEndLoop, &CStackView::OnEndLoop)
END_MESSAGE_MAP()

class CModalView : public CStackView
{
public:
    HWND m_hFocusAtEnd = nullptr;

    LRESULT OnEndLoop(WPARAM wParam, LPARAM) override
    {
        m_hFocusAtEnd = ::GetFocus();
        EndModalLoop(static_cast<int>(wParam));
        return 0;
    }
};

/// Ends without the base class's handler.
class CCarelessView : public CTestView
{
protected:
    afx_msg void OnDestroy() { CWnd::OnDestroy(); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CCarelessView, CTestView)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

class CViewDialog : public CDialog
{
public:
    CViewDialog() = default;
};

/// A control that takes reflected scrolling.
class CReflectedScrollBar : public CScrollBar
{
public:
    int m_nScrolls = 0;

protected:
    afx_msg void VScroll(UINT, UINT) { ++m_nScrolls; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectedScrollBar, CScrollBar)
    ON_WM_VSCROLL_REFLECT()
END_MESSAGE_MAP()

/// A frame with a view, ended with the test.
class FrameView : public testing::Test
{
protected:
    void SetUp() override
    {
        m_context.m_pNewViewClass = RUNTIME_CLASS(CTestView);
        m_pFrame = new CTestFrame;
        ASSERT_TRUE(m_pFrame->Create(nullptr, L"frame", WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300), nullptr,
                                     nullptr, 0, &m_context));
        m_pView = static_cast<CTestView*>(m_pFrame->GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE));
        ASSERT_NE(m_pView, nullptr);
    }

    void TearDown() override
    {
        if (m_pFrame != nullptr)
            m_pFrame->DestroyWindow();
        EXPECT_EQ(g_nFrames, 0);
        EXPECT_EQ(g_nViews, 0);
    }

    CCreateContext m_context;
    CTestFrame* m_pFrame = nullptr;
    CTestView* m_pView = nullptr;
};

CRect ClientRectOf(const CWnd& wnd)
{
    CRect rect;
    wnd.GetClientRect(&rect);
    return rect;
}

CRect RectIn(const CWnd& parent, const CWnd& child)
{
    CRect rect;
    child.GetWindowRect(&rect);
    parent.ScreenToClient(&rect);
    return rect;
}

} // namespace

TEST_F(FrameView, ViewIsMadeFromTheContext)
{
    EXPECT_EQ(m_pView->GetDlgCtrlID(), AFX_IDW_PANE_FIRST);
    EXPECT_EQ(m_pView->GetParent(), m_pFrame);
    EXPECT_NE(m_pView->GetStyle() & WS_VISIBLE, 0u);
}

TEST_F(FrameView, ViewFillsTheClientArea)
{
    EXPECT_EQ(RectIn(*m_pFrame, *m_pView), ClientRectOf(*m_pFrame));
    m_pFrame->MoveWindow(0, 0, 600, 500);
    EXPECT_EQ(RectIn(*m_pFrame, *m_pView), ClientRectOf(*m_pFrame));
}

TEST_F(FrameView, SizingCallsTheVirtualLayout)
{
    const int nBefore = m_pFrame->m_nLayouts;
    m_pFrame->SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(100, 100));
    EXPECT_EQ(m_pFrame->m_nLayouts, nBefore + 1);
    m_pFrame->SendMessage(WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(m_pFrame->m_nLayouts, nBefore + 1);
}

TEST_F(FrameView, InitialUpdateReachesTheViewOnceAndShowsTheFrame)
{
    m_pFrame->InitialUpdateFrame(nullptr, TRUE);
    EXPECT_EQ(m_pView->m_nInitialUpdates, 1);
    EXPECT_EQ(m_pView->m_nUpdates, 1);
    EXPECT_EQ(m_pFrame->GetActiveView(), m_pView);
    EXPECT_TRUE(m_pFrame->IsWindowVisible());
}

TEST_F(FrameView, InitialUpdateOfAHiddenFrameOnlyChoosesTheView)
{
    m_pFrame->InitialUpdateFrame(nullptr, FALSE);
    EXPECT_EQ(m_pFrame->GetActiveView(), m_pView);
    EXPECT_EQ(m_pView->m_nInitialUpdates, 0);
    EXPECT_FALSE(m_pFrame->IsWindowVisible());
}

TEST_F(FrameView, PaintingPreparesAndDraws)
{
    m_pFrame->InitialUpdateFrame(nullptr, TRUE);
    m_pView->UpdateWindow();
    const int nBefore = m_pView->m_nDraws;
    m_pView->Invalidate();
    m_pView->UpdateWindow();
    EXPECT_EQ(m_pView->m_nDraws, nBefore + 1);
    EXPECT_EQ(m_pView->m_nPrepares, m_pView->m_nDraws);
    EXPECT_FALSE(m_pView->GetUpdateRect(nullptr));
}

TEST_F(FrameView, ActiveViewIsNotified)
{
    m_pFrame->SetActiveView(m_pView);
    EXPECT_EQ(m_pView->m_nActivations, 1);
    m_pFrame->SetActiveView(nullptr);
    EXPECT_EQ(m_pView->m_nDeactivations, 1);
    EXPECT_EQ(m_pFrame->GetActiveView(), nullptr);
}

TEST_F(FrameView, ActivationWithoutNotificationIsSilent)
{
    m_pFrame->SetActiveView(m_pView, FALSE);
    EXPECT_EQ(m_pView->m_nActivations, 0);
    EXPECT_EQ(m_pFrame->GetActiveView(), m_pView);
}

TEST_F(FrameView, FocusOfTheFrameGoesToTheView)
{
    m_pFrame->InitialUpdateFrame(nullptr, TRUE);
    m_pFrame->SetFocus();
    EXPECT_EQ(CWnd::GetFocus(), m_pView);
}

TEST_F(FrameView, EndOfTheViewLeavesTheFrameWithoutOne)
{
    m_pFrame->SetActiveView(m_pView);
    m_pView->DestroyWindow();
    EXPECT_EQ(m_pFrame->GetActiveView(), nullptr);
    EXPECT_EQ(g_nViews, 0);
}

TEST_F(FrameView, EndOfAViewThatLeavesOutItsBaseLeavesTheFrameWithoutOne)
{
    auto* const pView = new CCarelessView;
    ASSERT_TRUE(pView->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(), m_pFrame, AFX_IDW_PANE_LAST));
    m_pFrame->SetActiveView(pView);
    pView->DestroyWindow();
    EXPECT_EQ(m_pFrame->GetActiveView(), nullptr);
}

TEST_F(FrameView, DeletedViewLeavesTheFrameWithoutOne)
{
    m_pFrame->SetActiveView(m_pView);
    delete m_pView;
    EXPECT_EQ(m_pFrame->GetActiveView(), nullptr);
}

TEST_F(FrameView, EndOfTheFrameDeletesFrameAndView)
{
    m_pFrame->DestroyWindow();
    m_pFrame = nullptr;
    EXPECT_EQ(g_nFrames, 0);
    EXPECT_EQ(g_nViews, 0);
}

TEST_F(FrameView, CloseDestroysTheFrame)
{
    m_pFrame->SendMessage(WM_CLOSE);
    m_pFrame = nullptr;
    EXPECT_EQ(g_nFrames, 0);
}

TEST_F(FrameView, CommandGoesToTheViewThenToTheFrame)
{
    m_pFrame->SetActiveView(m_pView);
    m_pFrame->SendMessage(WM_COMMAND, ID_EDIT_CUT);
    EXPECT_EQ(m_pView->m_nCommands, 1);
    EXPECT_EQ(m_pFrame->m_nCommands, 0);
    m_pFrame->SendMessage(WM_COMMAND, ID_EDIT_PASTE);
    EXPECT_EQ(m_pFrame->m_nCommands, 1);
}

TEST_F(FrameView, CommandWithoutAnActiveViewGoesToTheFrame)
{
    m_pFrame->SendMessage(WM_COMMAND, ID_EDIT_CUT);
    EXPECT_EQ(m_pFrame->m_nCommands, 1);
    EXPECT_EQ(m_pView->m_nCommands, 0);
}

TEST_F(FrameView, ScrollOfTheFrameGoesToTheView)
{
    m_pFrame->SetActiveView(m_pView);
    m_pFrame->SendMessage(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_EQ(m_pView->m_nScrollCode, static_cast<UINT>(SB_PAGEDOWN));
}

TEST_F(FrameView, ScrollWithoutAnActiveViewGoesToTheControl)
{
    CReflectedScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_VERT, CRect(0, 0, 20, 90), m_pFrame, 7));
    m_pFrame->SendMessage(WM_VSCROLL, SB_PAGEDOWN, reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(bar.m_nScrolls, 1);
}

TEST_F(FrameView, ViewMayEndWhenTheFrameIsActivated)
{
    m_pFrame->InitialUpdateFrame(nullptr, TRUE);
    m_pView->m_endsOnFrameActivation = true;
    m_pFrame->SendMessage(WM_ACTIVATE, WA_ACTIVE);
    EXPECT_EQ(m_pFrame->GetActiveView(), nullptr);
    EXPECT_EQ(g_nViews, 0);
}

TEST_F(FrameView, FrameMayEndInTheFirstUpdate)
{
    m_pView->m_endsFrameAtFirst = true;
    m_pFrame->InitialUpdateFrame(nullptr, TRUE);
    m_pFrame = nullptr;
    EXPECT_EQ(g_nFrames, 0);
}

TEST_F(FrameView, FrameIsTheParentFrameOfAllInside)
{
    CTestWnd inner;
    ASSERT_TRUE(inner.CreateIn(m_pView, 1));
    EXPECT_EQ(inner.GetParentFrame(), m_pFrame);
    EXPECT_EQ(m_pView->GetParentFrame(), m_pFrame);
    EXPECT_EQ(m_pFrame->GetParentFrame(), nullptr);
    EXPECT_EQ(inner.GetTopLevelFrame(), m_pFrame);
    EXPECT_EQ(m_pFrame->GetTopLevelFrame(), m_pFrame);
}

TEST_F(FrameView, ModalStateDisablesTheFrameAndWhatItOwns)
{
    CTestWnd owned;
    CTestWnd disabled;
    CTestWnd foreign;
    ASSERT_TRUE(owned.CreateHidden(WS_POPUP, m_pFrame));
    ASSERT_TRUE(disabled.CreateHidden(WS_POPUP | WS_DISABLED, m_pFrame));
    ASSERT_TRUE(foreign.CreateHidden());
    m_pFrame->BeginModalState();
    EXPECT_TRUE(m_pFrame->InModalState());
    EXPECT_FALSE(m_pFrame->IsWindowEnabled());
    EXPECT_FALSE(owned.IsWindowEnabled());
    EXPECT_TRUE(foreign.IsWindowEnabled());
    m_pFrame->EndModalState();
    EXPECT_FALSE(m_pFrame->InModalState());
    EXPECT_TRUE(m_pFrame->IsWindowEnabled());
    EXPECT_TRUE(owned.IsWindowEnabled());
    EXPECT_FALSE(disabled.IsWindowEnabled());
}

TEST_F(FrameView, ModalStatesNest)
{
    m_pFrame->BeginModalState();
    m_pFrame->BeginModalState();
    m_pFrame->EndModalState();
    EXPECT_FALSE(m_pFrame->IsWindowEnabled());
    m_pFrame->EndModalState();
    EXPECT_TRUE(m_pFrame->IsWindowEnabled());
}

TEST(Frame, EndOfAModalFrameEndsItsModalState)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    auto* const pFrame = new CTestFrame;
    ASSERT_TRUE(pFrame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, &owner));
    pFrame->BeginModalState();
    ASSERT_FALSE(owner.IsWindowEnabled());
    pFrame->DestroyWindow();
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST_F(FrameView, MenuItemsAreEnabledByTheirHandlers)
{
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_FRAME));
    CMenu* const pPopup = menu.GetSubMenu(0);
    m_pFrame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(pPopup->m_hMenu), 0);
    EXPECT_EQ(menu.GetMenuState(ID_FRAME_COMMAND, MF_BYCOMMAND) & MF_GRAYED, 0u);
    EXPECT_NE(menu.GetMenuState(ID_FRAME_UNHANDLED, MF_BYCOMMAND) & MF_GRAYED, 0u);
}

TEST_F(FrameView, ClickActivatesTheView)
{
    m_pView->SendMessage(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(m_pFrame->m_hWnd),
                         MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_EQ(m_pFrame->GetActiveView(), m_pView);
}

TEST(Frame, LoadFrameTakesTitleMenuAndAccelerators)
{
    auto* const pFrame = new CTestFrame;
    ASSERT_TRUE(pFrame->LoadFrame(IDR_FRAME));
    CString title;
    pFrame->GetWindowText(title);
    EXPECT_EQ(title, L"Frame title");
    EXPECT_NE(pFrame->GetMenu(), nullptr);
    MSG message = {pFrame->m_hWnd, WM_KEYDOWN, VK_F9, 1, 0, {}};
    EXPECT_TRUE(pFrame->PreTranslateMessage(&message));
    EXPECT_EQ(pFrame->m_nCommands, 1);
    pFrame->DestroyWindow();
}

TEST(Frame, MissingMenuFailsAndDeletesTheFrame)
{
    auto* const pFrame = new CTestFrame;
    EXPECT_FALSE(pFrame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr,
                                MAKEINTRESOURCE(IDD_MISSING)));
    EXPECT_EQ(g_nFrames, 0);
}

TEST(Frame, FailedCreateDeletesTheFrame)
{
    auto* const pFrame = new CTestFrame;
    EXPECT_FALSE(pFrame->Create(L"no such class", L""));
    EXPECT_EQ(g_nFrames, 0);
}

TEST(Frame, ViewThatCannotBeCreatedMakesTheFrameFail)
{
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CTestView);
    CTestView::s_refusesCreation = true;
    auto* const pFrame = new CTestFrame;
    EXPECT_FALSE(pFrame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr, nullptr,
                                0, &context));
    CTestView::s_refusesCreation = false;
    EXPECT_EQ(g_nFrames, 0);
    EXPECT_EQ(g_nViews, 0);
}

TEST(Frame, DefaultRectangleLetsTheSystemChoose)
{
    auto* const pFrame = new CTestFrame;
    ASSERT_TRUE(pFrame->Create(nullptr, L""));
    EXPECT_GT(ClientRectOf(*pFrame).Width(), 50);
    EXPECT_GT(ClientRectOf(*pFrame).Height(), 50);
    pFrame->DestroyWindow();
}

TEST(Frame, AutomaticFrameMaySwitchSelfDeletionOff)
{
    CStackFrame frame;
    ASSERT_TRUE(frame.Create(nullptr, L""));
    frame.DestroyWindow();
    EXPECT_EQ(frame.m_nEnds, 1);
    EXPECT_EQ(frame.m_hWnd, nullptr);
}

TEST(Frame, DestructorEndsTheWindowOfAnAutomaticFrameWithoutDeletingTwice)
{
    HWND hWnd = nullptr;
    {
        CTestFrame frame;
        ASSERT_TRUE(frame.Create(nullptr, L""));
        hWnd = frame.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(g_nFrames, 0);
}

TEST(Frame, ActivatedViewOfAnOwnedFrameGetsTheFocus)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    owner.ShowWindow(SW_SHOW);
    CStackFrame frame;
    ASSERT_TRUE(frame.Create(nullptr, L"", WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 200), &owner));
    frame.ShowWindow(SW_SHOW);
    CModalView view;
    ASSERT_TRUE(view.Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(), &frame, AFX_IDW_PANE_FIRST));
    ASSERT_EQ(::GetActiveWindow(), frame.m_hWnd);
    frame.SetActiveView(&view);
    EXPECT_EQ(::GetFocus(), view.m_hWnd);
    frame.DestroyWindow();
}

TEST(Frame, AutomaticFrameAndViewRunAModalLoopAroundADialog)
{
    CStackFrame frame;
    CModalView view;
    CViewDialog dialog;
    ASSERT_TRUE(frame.Create(nullptr, L"frame"));
    ASSERT_TRUE(view.Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(), &frame, AFX_IDW_PANE_FIRST));
    frame.RecalcLayout();
    frame.SetActiveView(&view);
    frame.ShowWindow(SW_SHOW);
    EXPECT_EQ(RectIn(frame, view), ClientRectOf(frame));

    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    dialog.ModifyStyle(WS_POPUP | WS_CAPTION, WS_CHILD);
    dialog.SetParent(&view);
    dialog.ShowWindow(SW_SHOW);
    EXPECT_EQ(dialog.GetParentFrame(), &frame);
    dialog.GotoDlgCtrl(dialog.GetDlgItem(IDC_TEXT));
    dialog.GetDlgItem(IDC_TEXT)->PostMessage(WM_KEYDOWN, VK_TAB, 1);
    view.SetTimer(1, 100, [](HWND hWnd, UINT, UINT_PTR, DWORD) { ::SendMessage(hWnd, kEndLoop, 5, 0); });
    EXPECT_EQ(view.RunModalLoop(), 5);
    EXPECT_EQ(view.m_hFocusAtEnd, ::GetDlgItem(dialog, IDC_NUMBER));

    frame.PostMessage(WM_CLOSE);
    EXPECT_EQ(view.RunModalLoop(), -1);
    EXPECT_EQ(frame.m_nEnds, 1);
    EXPECT_EQ(view.m_nEnds, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Frame, EndOfTheMainWindowPostsQuit)
{
    auto* const pFrame = new CTestFrame;
    ASSERT_TRUE(pFrame->Create(nullptr, L""));
    AfxGetThread()->m_pMainWnd = pFrame;
    pFrame->SendMessage(WM_CLOSE);
    MSG message = {};
    EXPECT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(AfxGetThread()->m_pMainWnd, nullptr);
}

TEST(Frame, MainWindowThatCannotBeCreatedIsForgotten)
{
    for (const LPCTSTR lpszMenu : {LPCTSTR(MAKEINTRESOURCE(IDD_MISSING)), LPCTSTR(nullptr)})
    {
        auto* const pFrame = new CTestFrame;
        AfxGetThread()->m_pMainWnd = pFrame;
        EXPECT_FALSE(pFrame->Create(L"no such class", L"", WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault,
                                    nullptr, lpszMenu));
        EXPECT_EQ(AfxGetThread()->m_pMainWnd, nullptr);
        AfxGetThread()->m_pMainWnd = nullptr; // the object is gone in any case
    }
    MSG message = {};
    EXPECT_FALSE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST(Frame, EndOfAnotherWindowPostsNoQuit)
{
    auto* const pFrame = new CTestFrame;
    ASSERT_TRUE(pFrame->Create(nullptr, L""));
    pFrame->SendMessage(WM_CLOSE);
    MSG message = {};
    EXPECT_FALSE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}
