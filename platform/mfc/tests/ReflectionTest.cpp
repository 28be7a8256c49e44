#include <afxcmn.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>

#include "WindowFixture.h"

namespace
{

constexpr UINT kButtonId = 40;

/// Writes down who was asked, in order: c for the control, p for the parent.
std::string g_order;

class CReflectingButton : public CButton
{
public:
    BOOL m_bSettle = TRUE; // of the _EX handlers
    CBrush m_brush;
    UINT m_nScrollCode = 0;
    UINT m_nParentNotification = 0;

protected:
    afx_msg void OnClicked() { g_order += 'c'; }

    afx_msg BOOL OnDoubleClicked()
    {
        g_order += 'c';
        return m_bSettle;
    }

    afx_msg void OnNotifyClick(NMHDR*, LRESULT* pResult)
    {
        g_order += 'c';
        *pResult = 7;
    }

    afx_msg BOOL OnNotifyDoubleClick(NMHDR*, LRESULT*)
    {
        g_order += 'c';
        return m_bSettle;
    }

    afx_msg HBRUSH CtlColor(CDC*, UINT)
    {
        g_order += 'c';
        return static_cast<HBRUSH>(m_brush.GetSafeHandle());
    }

    afx_msg void HScroll(UINT nSBCode, UINT)
    {
        g_order += 'c';
        m_nScrollCode = nSBCode;
    }

    afx_msg int CharToItem(UINT, UINT) { return 12; }
    afx_msg void ParentNotify(UINT message, LPARAM) { m_nParentNotification = LOWORD(message); }
    void DrawItem(LPDRAWITEMSTRUCT) override { g_order += 'd'; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingButton, CButton)
    ON_CONTROL_REFLECT(BN_CLICKED, &CReflectingButton::OnClicked)
    ON_CONTROL_REFLECT_EX(BN_DOUBLECLICKED, &CReflectingButton::OnDoubleClicked)
    ON_NOTIFY_REFLECT(NM_CLICK, &CReflectingButton::OnNotifyClick)
    ON_NOTIFY_REFLECT_EX(NM_DBLCLK, &CReflectingButton::OnNotifyDoubleClick)
    ON_WM_CTLCOLOR_REFLECT()
    ON_WM_HSCROLL_REFLECT()
    ON_WM_CHARTOITEM_REFLECT()
    ON_WM_PARENTNOTIFY_REFLECT()
END_MESSAGE_MAP()

/// A parent that listens to all of it, and passes on to its base class when it is told to.
class CListeningParent : public CTestWnd
{
public:
    bool m_callsBase = true;
    bool m_passesNoScrollBar = false;
    bool m_answersCommands = false;
    CBrush m_brush;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        return m_answersCommands ? TRUE : CTestWnd::OnCommand(wParam, lParam);
    }

    afx_msg void OnButton() { g_order += 'p'; }

    afx_msg void OnButtonNotify(NMHDR*, LRESULT* pResult)
    {
        g_order += 'p';
        *pResult = 9;
    }

    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
    {
        g_order += 'p';
        if (m_callsBase)
            return CTestWnd::OnCtlColor(pDC, pWnd, nCtlColor);
        return static_cast<HBRUSH>(m_brush.GetSafeHandle());
    }

    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
    {
        g_order += 'p';
        if (m_callsBase)
            CTestWnd::OnHScroll(nSBCode, nPos, m_passesNoScrollBar ? nullptr : pScrollBar);
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CListeningParent, CTestWnd)
    ON_BN_CLICKED(kButtonId, &CListeningParent::OnButton)
    ON_BN_DOUBLECLICKED(kButtonId, &CListeningParent::OnButton)
    ON_NOTIFY(NM_CLICK, kButtonId, &CListeningParent::OnButtonNotify)
    ON_NOTIFY(NM_DBLCLK, kButtonId, &CListeningParent::OnButtonNotify)
    ON_WM_CTLCOLOR()
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

constexpr UINT kEndOfParent = BN_HILITE;

/// Ends its parent when it is told to, and lets the parent handle the message, too.
class CEndingButton : public CButton
{
protected:
    afx_msg BOOL OnEndOfParent()
    {
        GetParent()->DestroyWindow();
        return FALSE;
    }

    afx_msg BOOL OnNotifyEndOfParent(NMHDR*, LRESULT*) { return OnEndOfParent(); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CEndingButton, CButton)
    ON_CONTROL_REFLECT_EX(kEndOfParent, &CEndingButton::OnEndOfParent)
    ON_NOTIFY_REFLECT_EX(NM_CLICK, &CEndingButton::OnNotifyEndOfParent)
END_MESSAGE_MAP()

/// Deletes itself with its window; counts the routing that comes to it afterwards.
class CVanishingParent : public CTestWnd
{
public:
    explicit CVanishingParent(int& nRouted) : m_nRouted(nRouted) {}

    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override
    {
        ++m_nRouted;
        return CTestWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }

protected:
    void PostNcDestroy() override { delete this; }

private:
    int& m_nRouted;
};

class Reflection : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateHidden());
        ASSERT_TRUE(m_button.Create(L"", WS_CHILD, CRect(0, 0, 50, 20), &m_parent, kButtonId));
        g_order.clear();
    }

    LPARAM ButtonHandle() const { return reinterpret_cast<LPARAM>(m_button.m_hWnd); }

    LRESULT Command(UINT nCode)
    {
        return m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButtonId, nCode), ButtonHandle());
    }

    LRESULT Notify(UINT nCode)
    {
        NMHDR header = {m_button, kButtonId, nCode};
        return m_parent.SendMessage(WM_NOTIFY, kButtonId, reinterpret_cast<LPARAM>(&header));
    }

    HBRUSH AskColor()
    {
        CClientDC dc(&m_button);
        const LRESULT result =
            m_parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.m_hDC), ButtonHandle());
        return reinterpret_cast<HBRUSH>(result);
    }

    void Scroll() { m_parent.SendMessage(WM_HSCROLL, SB_LINERIGHT, ButtonHandle()); }

    CListeningParent m_parent;
    CReflectingButton m_button;
};

} // namespace

TEST_F(Reflection, BaseHasTheValueThatMessageTablesState)
{
    EXPECT_EQ(WM_REFLECT_BASE + WM_COMMAND, 0xBD11u);
}

TEST_F(Reflection, ControlSettlesItsCommand)
{
    Command(BN_CLICKED);
    EXPECT_EQ(g_order, "c");
}

TEST_F(Reflection, ClickByMessageReachesTheControl)
{
    m_button.SendMessage(BM_CLICK);
    EXPECT_EQ(g_order.find('p'), std::string::npos);
    EXPECT_NE(g_order.find('c'), std::string::npos);
}

TEST_F(Reflection, CommandHandlerThatAnswersFalseLetsTheParentHandleToo)
{
    m_button.m_bSettle = FALSE;
    Command(BN_DOUBLECLICKED);
    EXPECT_EQ(g_order, "cp");
}

TEST_F(Reflection, CommandHandlerThatAnswersTrueKeepsItFromTheParent)
{
    Command(BN_DOUBLECLICKED);
    EXPECT_EQ(g_order, "c");
}

TEST_F(Reflection, ParentThatOverridesOnCommandIsAskedFirst)
{
    m_parent.m_answersCommands = true;
    Command(BN_CLICKED);
    EXPECT_EQ(g_order, "");
}

TEST_F(Reflection, NotificationGoesToTheControlFirst)
{
    EXPECT_EQ(Notify(NM_CLICK), 7);
    EXPECT_EQ(g_order, "c");
}

TEST_F(Reflection, NotificationGoesOnWhenTheControlAnswersFalse)
{
    m_button.m_bSettle = FALSE;
    EXPECT_EQ(Notify(NM_DBLCLK), 9);
    EXPECT_EQ(g_order, "cp");
}

TEST_F(Reflection, NotificationEndsWhenTheControlAnswersTrue)
{
    Notify(NM_DBLCLK);
    EXPECT_EQ(g_order, "c");
}

TEST_F(Reflection, ColorIsAskedOfTheParentFirst)
{
    m_button.m_brush.CreateSolidBrush(RGB(9, 8, 7));
    EXPECT_EQ(AskColor(), m_button.m_brush.GetSafeHandle());
    EXPECT_EQ(g_order, "pc");
}

TEST_F(Reflection, ParentWithoutBaseCallOverridesTheControlsColor)
{
    m_parent.m_brush.CreateSolidBrush(RGB(1, 1, 1));
    m_parent.m_callsBase = false;
    EXPECT_EQ(AskColor(), m_parent.m_brush.GetSafeHandle());
    EXPECT_EQ(g_order, "p");
}

TEST_F(Reflection, ControlWithoutAColorLeavesTheDefault)
{
    EXPECT_NE(AskColor(), nullptr);
    EXPECT_EQ(g_order, "pc");
}

TEST_F(Reflection, ScrollIsAskedOfTheParentFirst)
{
    Scroll();
    EXPECT_EQ(g_order, "pc");
    EXPECT_EQ(m_button.m_nScrollCode, static_cast<UINT>(SB_LINERIGHT));
}

TEST_F(Reflection, ParentWithoutBaseCallKeepsTheScroll)
{
    m_parent.m_callsBase = false;
    Scroll();
    EXPECT_EQ(g_order, "p");
}

TEST_F(Reflection, ReflectedResultIsTheMessagesResult)
{
    EXPECT_EQ(m_parent.SendMessage(WM_CHARTOITEM, MAKEWPARAM(L'a', 0), ButtonHandle()), 12);
}

TEST_F(Reflection, ControlWithoutAnIdGetsItsCommand)
{
    CReflectingButton button;
    ASSERT_TRUE(button.SubclassWindow(
        ::CreateWindow(L"BUTTON", L"", WS_CHILD, 0, 0, 9, 9, m_parent, nullptr, nullptr, nullptr)));
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(g_order, "c");
}

TEST_F(Reflection, BaseHandlerUsesTheMessageAndNotItsArguments)
{
    m_parent.m_passesNoScrollBar = true;
    Scroll();
    EXPECT_EQ(g_order, "pc");
}

TEST_F(Reflection, ParentThatTheControlEndedIsNotAskedAnyMore)
{
    int nRouted = 0;
    auto* const pParent = new CVanishingParent(nRouted);
    ASSERT_TRUE(pParent->CreateHidden());
    CEndingButton button;
    ASSERT_TRUE(button.Create(L"", WS_CHILD, CRect(0, 0, 50, 20), pParent, kButtonId));
    const auto lParam = reinterpret_cast<LPARAM>(button.m_hWnd);
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(kButtonId, kEndOfParent), lParam);
    EXPECT_EQ(nRouted, 0);
    EXPECT_EQ(button.m_hWnd, nullptr);
}

TEST_F(Reflection, ParentThatTheControlEndedGetsNoNotification)
{
    int nRouted = 0;
    auto* const pParent = new CVanishingParent(nRouted);
    ASSERT_TRUE(pParent->CreateHidden());
    CEndingButton button;
    ASSERT_TRUE(button.Create(L"", WS_CHILD, CRect(0, 0, 50, 20), pParent, kButtonId));
    NMHDR header = {button, kButtonId, static_cast<UINT>(NM_CLICK)};
    pParent->SendMessage(WM_NOTIFY, kButtonId, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(nRouted, 0);
    EXPECT_EQ(button.m_hWnd, nullptr);
}

TEST_F(Reflection, OwnerDrawnButtonDrawsItself)
{
    CClientDC dc(&m_button);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.CtlID = kButtonId;
    item.hwndItem = m_button;
    item.hDC = dc;
    m_parent.SendMessage(WM_DRAWITEM, kButtonId, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(g_order, "d");
}

TEST_F(Reflection, ChildIsToldOfTheParentsNotificationOfItsEnd)
{
    m_parent.SendMessage(WM_PARENTNOTIFY, MAKEWPARAM(WM_DESTROY, kButtonId), ButtonHandle());
    EXPECT_EQ(m_button.m_nParentNotification, static_cast<UINT>(WM_DESTROY));
}

TEST_F(Reflection, ControlWithoutAnObjectIsLeftToTheParent)
{
    const HWND hButton = m_button.UnsubclassWindow();
    m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButtonId, BN_CLICKED), reinterpret_cast<LPARAM>(hButton));
    EXPECT_EQ(g_order, "p");
}
