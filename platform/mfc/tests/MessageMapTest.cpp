#include <afxwin.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "WindowFixture.h"

namespace
{

constexpr UINT kMessage = WM_APP + 10;
constexpr UINT kVirtualMessage = WM_APP + 11;
constexpr UINT kUnhandledMessage = WM_APP + 12;
constexpr UINT kFirstCommand = 0x8001;
constexpr UINT kSecondCommand = 0x8002;
constexpr UINT kLastCommand = 0x8005;
constexpr UINT kControlId = 77;

const UINT kRegisteredMessage = ::RegisterWindowMessage(L"framework test message");

template<class Kind, class Handler>
using EntryOf = decltype(Kind::Entry(0u, std::declval<Handler>()));

template<class Kind, class Handler, class = void>
struct Accepts : std::false_type
{
};

template<class Kind, class Handler>
struct Accepts<Kind, Handler, std::void_t<EntryOf<Kind, Handler>>> : std::true_type
{
};

/// Records what its handlers were called with.
class CHandlingWnd : public CTestWnd
{
public:
    UINT m_nFlags = 0;
    CPoint m_point;
    CSize m_size;
    CPoint m_movedTo;
    short m_zDelta = 0;
    UINT m_nCommand = 0;
    int m_nCommands = 0;
    int m_nNotifications = 0;
    UINT m_nNotifier = 0;
    BOOL m_bHandle = TRUE;
    UINT m_nColorKind = 0;
    HWND m_hColored = nullptr;
    CBrush m_brush;

protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point)
    {
        m_nFlags = nFlags;
        m_point = point;
    }

    afx_msg void OnSize(UINT, int cx, int cy) { m_size = CSize(cx, cy); }
    afx_msg void OnMove(int x, int y) { m_movedTo = CPoint(x, y); }

    afx_msg BOOL OnMouseWheel(UINT, short zDelta, CPoint pt)
    {
        m_zDelta = zDelta;
        m_point = pt;
        return TRUE;
    }

    afx_msg LRESULT OnMessage(WPARAM wParam, LPARAM lParam)
    {
        return static_cast<LRESULT>(wParam) * 100 + lParam;
    }

    virtual LRESULT OnVirtualMessage(WPARAM, LPARAM) { return 1; }

    afx_msg HBRUSH OnCtlColor(CDC*, CWnd* pWnd, UINT nCtlColor)
    {
        m_nColorKind = nCtlColor;
        m_hColored = pWnd->m_hWnd;
        return static_cast<HBRUSH>(m_brush.GetSafeHandle());
    }

    afx_msg void OnFirstCommand() { Count(kFirstCommand); }

    afx_msg BOOL OnSecondCommand(UINT nID)
    {
        Count(nID);
        return m_bHandle;
    }

    afx_msg void OnCommandRange(UINT nID) { Count(nID); }
    afx_msg void OnChange() { Count(kControlId); }

    afx_msg void OnItemNotify(NMHDR* pHeader, LRESULT* pResult)
    {
        m_nNotifier = static_cast<UINT>(pHeader->idFrom);
        *pResult = 55;
        ++m_nNotifications;
    }

    afx_msg BOOL OnRangeNotify(UINT nID, NMHDR*, LRESULT* pResult)
    {
        m_nNotifier = nID;
        *pResult = 66;
        ++m_nNotifications;
        return m_bHandle;
    }

    afx_msg void OnUpdateSecond(CCmdUI* pCmdUI) { pCmdUI->Enable(m_bHandle); }

    DECLARE_MESSAGE_MAP()

private:
    void Count(UINT nID)
    {
        m_nCommand = nID;
        ++m_nCommands;
    }
};

BEGIN_MESSAGE_MAP(CHandlingWnd, CTestWnd)
    ON_WM_LBUTTONDOWN()
    ON_WM_SIZE()
    ON_WM_MOVE()
    ON_WM_MOUSEWHEEL()
    ON_WM_CTLCOLOR()
    ON_MESSAGE(kMessage, &CHandlingWnd::OnMessage)
    ON_MESSAGE(kVirtualMessage, &CHandlingWnd::OnVirtualMessage)
    ON_REGISTERED_MESSAGE(kRegisteredMessage, &CHandlingWnd::OnMessage)
    ON_COMMAND(kFirstCommand, &CHandlingWnd::OnFirstCommand)
    ON_COMMAND_EX(kSecondCommand, &CHandlingWnd::OnSecondCommand)
    ON_COMMAND_RANGE(kSecondCommand, kLastCommand, &CHandlingWnd::OnCommandRange)
    ON_UPDATE_COMMAND_UI(kSecondCommand, &CHandlingWnd::OnUpdateSecond)
    ON_EN_CHANGE(kControlId, &CHandlingWnd::OnChange)
    ON_NOTIFY(NM_CLICK, kControlId, &CHandlingWnd::OnItemNotify)
    ON_NOTIFY_EX_RANGE(NM_DBLCLK, 10, 20, &CHandlingWnd::OnRangeNotify)
END_MESSAGE_MAP()

/// Overrides the virtual handler without an entry of its own, and names a handler that only CWnd has.
class CDerivedWnd : public CHandlingWnd
{
protected:
    LRESULT OnVirtualMessage(WPARAM, LPARAM) override { return 2; }
    afx_msg void OnMove(int x, int y) { CHandlingWnd::OnMove(x + 1, y + 1); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedWnd, CHandlingWnd)
    ON_WM_MOVE()
    ON_WM_RBUTTONDOWN()
END_MESSAGE_MAP()

template<class Tag>
class CTemplateWnd : public CTestWnd
{
protected:
    afx_msg LRESULT OnMessage(WPARAM, LPARAM) { return 5; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_TEMPLATE_MESSAGE_MAP(CTemplateWnd, Tag, CTestWnd)
ON_MESSAGE(kMessage, &CTemplateWnd<Tag>::OnMessage)
END_MESSAGE_MAP
()

    /// Keeps commands and notifications from its message map.
    class CDeafWnd : public CHandlingWnd
{
protected:
    BOOL OnCommand(WPARAM, LPARAM) override { return TRUE; }
    BOOL OnNotify(WPARAM, LPARAM, LRESULT*) override { return TRUE; }
};

LRESULT Notify(CWnd& wnd, UINT nID, UINT nCode)
{
    NMHDR header = {nullptr, nID, nCode};
    return wnd.SendMessage(WM_NOTIFY, nID, reinterpret_cast<LPARAM>(&header));
}

LRESULT SendControlCommand(CWnd& wnd, UINT nID, UINT nCode, HWND hControl)
{
    return wnd.SendMessage(WM_COMMAND, MAKEWPARAM(nID, nCode), reinterpret_cast<LPARAM>(hControl));
}

using SizeFunction = void (CHandlingWnd::*)(UINT, int, int);

} // namespace

TEST(MessageMap, EntryTakesTheExactSignatureOfItsMessage)
{
    EXPECT_TRUE((Accepts<vxmfc::SizeHandler, SizeFunction>::value));
}

TEST(MessageMap, EntryRefusesOtherParameters)
{
    EXPECT_FALSE((Accepts<vxmfc::SizeHandler, void (CHandlingWnd::*)(UINT, int)>::value));
    EXPECT_FALSE((Accepts<vxmfc::SizeHandler, void (CHandlingWnd::*)(UINT, long, long)>::value));
}

TEST(MessageMap, EntryRefusesAnotherResult)
{
    EXPECT_FALSE((Accepts<vxmfc::SizeHandler, int (CHandlingWnd::*)(UINT, int, int)>::value));
}

TEST(MessageMap, RawEntryTakesBothParametersOnly)
{
    EXPECT_TRUE((Accepts<vxmfc::RawHandler, LRESULT (CHandlingWnd::*)(WPARAM, LPARAM)>::value));
    EXPECT_FALSE((Accepts<vxmfc::RawHandler, LRESULT (CHandlingWnd::*)()>::value));
    EXPECT_FALSE((Accepts<vxmfc::RawHandler, void (CHandlingWnd::*)(WPARAM, LPARAM)>::value));
}

TEST(MessageMap, RawHandlerGetsParametersAndGivesResult)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kMessage, 7, 3), 703);
}

TEST(MessageMap, RegisteredMessageReachesItsHandler)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kRegisteredMessage, 1, 2), 102);
}

TEST(MessageMap, UnknownMessageGetsDefaultProcessing)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kUnhandledMessage, 1, 2), 0);
}

TEST(MessageMap, MouseHandlerGetsSignedPoint)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(-3, 40));
    EXPECT_EQ(wnd.m_nFlags, static_cast<UINT>(MK_LBUTTON | MK_SHIFT));
    EXPECT_EQ(wnd.m_point, CPoint(-3, 40));
}

TEST(MessageMap, SizeHandlerGetsUnsignedExtents)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(40000, 20));
    EXPECT_EQ(wnd.m_size, CSize(40000, 20));
}

TEST(MessageMap, MoveHandlerGetsSignedPosition)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_MOVE, 0, MAKELPARAM(-5, -6));
    EXPECT_EQ(wnd.m_movedTo, CPoint(-5, -6));
}

TEST(MessageMap, WheelHandlerGetsSignedDelta)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), MAKELPARAM(5, 6)), TRUE);
    EXPECT_EQ(wnd.m_zDelta, -120);
}

TEST(MessageMap, DerivedMapComesBeforeItsBase)
{
    CDerivedWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_MOVE, 0, MAKELPARAM(10, 20));
    EXPECT_EQ(wnd.m_movedTo, CPoint(11, 21));
}

TEST(MessageMap, DerivedClassInheritsEntries)
{
    CDerivedWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kMessage, 1, 1), 101);
}

TEST(MessageMap, EntryCallsTheOverrideOfAVirtualHandler)
{
    CDerivedWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kVirtualMessage), 2);
}

TEST(MessageMap, EntryMayNameTheHandlerOfCWndItself)
{
    CDerivedWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_RBUTTONDOWN, 0, MAKELPARAM(1, 1));
    EXPECT_EQ(wnd.m_nDefaults, 1);
}

TEST(MessageMap, TemplateClassHasAMap)
{
    CTemplateWnd<int> wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(wnd.SendMessage(kMessage), 5);
}

TEST(MessageMap, ControlColorsShareOneEntry)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_brush.CreateSolidBrush(RGB(1, 2, 3));
    CClientDC dc(&wnd);
    const HWND hControl = ::CreateWindow(L"EDIT", L"", WS_CHILD, 0, 0, 9, 9, wnd, nullptr, nullptr, nullptr);
    const LRESULT result = wnd.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.m_hDC),
                                           reinterpret_cast<LPARAM>(hControl));
    EXPECT_EQ(result, reinterpret_cast<LRESULT>(wnd.m_brush.GetSafeHandle()));
    EXPECT_EQ(wnd.m_nColorKind, static_cast<UINT>(CTLCOLOR_EDIT));
    EXPECT_EQ(wnd.m_hColored, hControl);
}

TEST(MessageMap, CommandReachesItsHandler)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_COMMAND, kFirstCommand);
    EXPECT_EQ(wnd.m_nCommand, kFirstCommand);
    EXPECT_EQ(wnd.m_nCommands, 1);
}

TEST(MessageMap, FirstEntryForACommandWins)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_TRUE(wnd.OnCmdMsg(kSecondCommand, CN_COMMAND, nullptr, nullptr));
    EXPECT_EQ(wnd.m_nCommands, 1);
}

TEST(MessageMap, CommandHandlerThatAnswersFalseLetsRoutingGoOn)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_bHandle = FALSE;
    EXPECT_FALSE(wnd.OnCmdMsg(kSecondCommand, CN_COMMAND, nullptr, nullptr));
}

TEST(MessageMap, RangeEntryGetsTheCommand)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_COMMAND, kLastCommand);
    EXPECT_EQ(wnd.m_nCommand, kLastCommand);
    wnd.SendMessage(WM_COMMAND, kLastCommand + 1);
    EXPECT_EQ(wnd.m_nCommands, 1);
}

TEST(MessageMap, DisabledCommandOfAnAcceleratorIsNotCarriedOut)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.m_bHandle = FALSE;
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kSecondCommand, 1));
    EXPECT_EQ(wnd.m_nCommands, 0);
}

TEST(MessageMap, HandlerInfoIsFilledInsteadOfCalling)
{
    CHandlingWnd wnd;
    AFX_CMDHANDLERINFO info = {};
    EXPECT_TRUE(wnd.OnCmdMsg(kFirstCommand, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, &wnd);
    EXPECT_EQ(wnd.m_nCommands, 0);
}

TEST(MessageMap, ControlEntryNeedsItsCode)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    SendControlCommand(wnd, kControlId, EN_UPDATE, wnd);
    EXPECT_EQ(wnd.m_nCommands, 0);
    SendControlCommand(wnd, kControlId, EN_CHANGE, wnd);
    EXPECT_EQ(wnd.m_nCommands, 1);
}

TEST(MessageMap, NotifyHandlerSetsTheResult)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(Notify(wnd, kControlId, NM_CLICK), 55);
    EXPECT_EQ(wnd.m_nNotifier, kControlId);
}

TEST(MessageMap, NotifyEntryNeedsItsIdAndCode)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    Notify(wnd, kControlId + 1, NM_CLICK);
    Notify(wnd, kControlId, NM_RETURN);
    EXPECT_EQ(wnd.m_nNotifications, 0);
}

TEST(MessageMap, NotifyRangeIncludesBothEnds)
{
    CHandlingWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(Notify(wnd, 10, NM_DBLCLK), 66);
    EXPECT_EQ(Notify(wnd, 20, NM_DBLCLK), 66);
    EXPECT_EQ(wnd.m_nNotifier, 20u);
    Notify(wnd, 21, NM_DBLCLK);
    EXPECT_EQ(wnd.m_nNotifications, 2);
}

TEST(MessageMap, OnCommandWithoutItsBaseSwitchesEntriesOff)
{
    CDeafWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    wnd.SendMessage(WM_COMMAND, kFirstCommand);
    EXPECT_EQ(wnd.m_nCommands, 0);
}

TEST(MessageMap, OnNotifyWithoutItsBaseSwitchesEntriesOff)
{
    CDeafWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    Notify(wnd, kControlId, NM_CLICK);
    EXPECT_EQ(wnd.m_nNotifications, 0);
}

TEST(MessageMap, UpdateHandlerEnablesAMenuItem)
{
    CHandlingWnd wnd;
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, kSecondCommand, L"second");
    CCmdUI item;
    item.m_pMenu = &menu;
    item.m_nID = kSecondCommand;
    wnd.m_bHandle = FALSE;
    EXPECT_TRUE(item.DoUpdate(&wnd, TRUE));
    EXPECT_NE(menu.GetMenuState(kSecondCommand, MF_BYCOMMAND) & MF_GRAYED, 0u);
}

TEST(MessageMap, MenuItemWithoutAnyHandlerIsDisabled)
{
    CHandlingWnd wnd;
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 0x9000, L"nobody's");
    CCmdUI item;
    item.m_pMenu = &menu;
    item.m_nID = 0x9000;
    EXPECT_FALSE(item.DoUpdate(&wnd, TRUE));
    EXPECT_NE(menu.GetMenuState(0x9000, MF_BYCOMMAND) & MF_GRAYED, 0u);
}
