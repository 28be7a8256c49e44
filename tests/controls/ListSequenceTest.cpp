#include "foundation/CallSequence.h"
#include "foundation/FrameworkWindow.h"
#include "support/ImportSpy.h"

#include <vxdpi/Controls.h>

namespace
{
class OpenHeader : public CDpiAwareHeaderCtrl
{
public:
    using CDpiAwareHeaderCtrl::m_dragColumn;
    using CDpiAwareHeaderCtrl::m_lastPoint;
    using CDpiAwareHeaderCtrl::OnLButtonDown;
    using CDpiAwareHeaderCtrl::OnMouseMove;
};

class OpenList : public CDPIAwareListCtrl
{
public:
    using CDPIAwareListCtrl::GetHeaderTextLength;
    using CDPIAwareListCtrl::m_header;
    using CDPIAwareListCtrl::OnDPIChangedAfterParent;
};

class OpenTouchList : public CDPIAwareListCtrlW
{
public:
    using CDPIAwareListCtrlW::GetGestureStatus;
};

const CallNames kSend = {"SendMessageW"};
const CallNames kDpiQuery = {"IsWindow", "GetDpiForWindow"};

const CallNames kSetWidth = InOrder({kSend, kDpiQuery, {"MulDiv"}});
const CallNames kMeasureHeading =
    InOrder({kDpiQuery,
             kSend,
             {"CClientDC::CClientDC"},
             kSend,
             {"SelectObject", "GetTextExtentPoint32W", "SelectObject", "CClientDC::~CClientDC", "MulDiv"}});

CallNames UpdateOf(std::size_t columns)
{
    return InOrder({kDpiQuery, Times(columns, InOrder({{"MulDiv"}, kSetWidth}))});
}

HWND MakeList(HWND parent, DWORD style)
{
    return ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | style, 0, 0, 380, 200, parent,
                             nullptr, nullptr, nullptr);
}

// Answers one message to a list in its place.
class ListAnswer : public ImportSpy<decltype(::SendMessageW)>
{
public:
    ListAnswer(UINT message, LRESULT answer)
        : ImportSpy(VxDpiModule(), "user32.dll", "SendMessageW",
                    [this, message, answer](HWND hWnd, UINT sent, WPARAM wParam, LPARAM lParam)
                    { return sent == message ? answer : Original()(hWnd, sent, wParam, lParam); })
    {
    }
};

class LeftButton : public ImportSpy<decltype(::GetAsyncKeyState)>
{
public:
    explicit LeftButton(bool isDown)
        : ImportSpy(VxDpiModule(), "user32.dll", "GetAsyncKeyState",
                    [isDown](int) { return static_cast<SHORT>(isDown ? 0x8000 : 0); })
    {
    }
};

class ListSequence : public FrameworkCallSequence
{
protected:
    ListSequence() { m_list.SubclassWindow(MakeList(m_parent.Handle(), LVS_REPORT)); }

    CallNames Insert(int nCol, int nWidth)
    {
        return CallsOf([&] { m_list.InsertColumn(nCol, L"A heading", LVCFMT_LEFT, nWidth, -1); });
    }

    CallNames InsertRecord(int nCol, UINT mask, int cx)
    {
        wchar_t heading[] = L"A heading";
        LVCOLUMNW column = {};
        column.mask = mask | LVCF_TEXT;
        column.pszText = heading;
        column.cx = cx;
        return CallsOf([&] { m_list.InsertColumn(nCol, &column); });
    }

    CDpiAwareHeaderCtrl& Header() { return m_list.m_header; }

    // The header follows a drag of column 0 that came to 100.
    void Follow()
    {
        Insert(0, 100);
        Header().*& OpenHeader::m_dragColumn = 0;
        Header().*& OpenHeader::m_lastPoint = CPoint(100, 5);
    }

    CallNames MoveTo(int x)
    {
        return CallsOf([&] { (Header().*&OpenHeader::OnMouseMove)(0, CPoint(x, 5)); });
    }

    FrameworkWindow m_parent;
    OpenList m_list;
};
}

TEST_F(ListSequence, AWidthIsSetAndThenTakenTo96Dpi)
{
    Insert(0, 100);
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_list.SetColumnWidth(0, 150); }), kSetWidth));
    const ListAnswer refused(LVM_SETCOLUMNWIDTH, -1);
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_list.SetColumnWidth(0, 150); }), kSend));
}

TEST_F(ListSequence, AColumnWithAWidthIsInsertedAndAllAreUpdated)
{
    EXPECT_TRUE(AreCalls(Insert(0, 100), InOrder({{"CListCtrl::InsertColumn"}, UpdateOf(1)})));
    EXPECT_TRUE(AreCalls(Insert(1, 100), InOrder({{"CListCtrl::InsertColumn"}, UpdateOf(2)})));
    EXPECT_TRUE(AreCalls(InsertRecord(2, LVCF_WIDTH, 100), InOrder({kSend, UpdateOf(3)})));
}

TEST_F(ListSequence, AColumnWithANegativeWidthIsAskedForItsOwn)
{
    EXPECT_TRUE(AreCalls(Insert(0, -2), InOrder({{"CListCtrl::InsertColumn"}, kSend, UpdateOf(1)})));
    EXPECT_TRUE(AreCalls(InsertRecord(1, LVCF_WIDTH, -2), InOrder({kSend, kSend, UpdateOf(2)})));
}

TEST_F(ListSequence, AHeadingIsMeasuredWhereThereIsNoWidth)
{
    EXPECT_TRUE(AreCalls(InsertRecord(0, 0, 0), InOrder({kSend, kMeasureHeading, UpdateOf(1)})));
    const ListAnswer none(LVM_GETCOLUMNWIDTH, 0);
    EXPECT_TRUE(
        AreCalls(InsertRecord(1, LVCF_WIDTH, -1), InOrder({kSend, kSend, kMeasureHeading, UpdateOf(2)})));
    EXPECT_TRUE(
        AreCalls(Insert(2, -1), InOrder({{"CListCtrl::InsertColumn"}, kSend, kMeasureHeading, UpdateOf(3)})));
}

TEST_F(ListSequence, AHeadingThatCannotBeReadIsNotMeasured)
{
    const ListAnswer none(LVM_GETCOLUMNW, FALSE);
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_list.GetHeaderTextLength(0); }), InOrder({kDpiQuery, kSend})));
}

TEST_F(ListSequence, WhatIsNotInsertedIsNotRecorded)
{
    const ListAnswer refused(LVM_INSERTCOLUMNW, -1);
    EXPECT_TRUE(AreCalls(InsertRecord(0, LVCF_WIDTH, 100), kSend));
}

TEST_F(ListSequence, AnIndexThatIsNoneEndsTheTextFormToo)
{
    EXPECT_TRUE(AreCalls(Insert(-1, 100), {"CListCtrl::InsertColumn"}));
}

TEST_F(ListSequence, AChangeOfDpiAsksOnceAndSetsEachColumn)
{
    const auto change = [&] { m_list.OnDPIChangedAfterParent(0, 0); };
    EXPECT_TRUE(AreCalls(CallsOf(change), {}));
    Insert(0, 100);
    Insert(1, 100);
    EXPECT_TRUE(AreCalls(CallsOf(change), UpdateOf(2)));
}

TEST_F(ListSequence, TheHeaderIsSubclassedWhereThereIsOne)
{
    OpenList report;
    OpenList icons;
    const HWND withHeader = MakeList(m_parent.Handle(), LVS_REPORT);
    const HWND withoutHeader = MakeList(m_parent.Handle(), LVS_ICON);
    const CallNames asked = {"CWnd::PreSubclassWindow", "CListCtrl::GetHeaderCtrl"};
    EXPECT_TRUE(AreCalls(CallsOf([&] { report.SubclassWindow(withHeader); }),
                         InOrder({asked, {"CWnd::SubclassWindow"}})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { icons.SubclassWindow(withoutHeader); }), asked));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_list.GetHeaderCtrl(); }), {}));
}

TEST_F(ListSequence, APressIsHandledBeforeItIsLookedAt)
{
    EXPECT_TRUE(AreCalls(CallsOf([&] { (Header().*&OpenHeader::OnLButtonDown)(MK_LBUTTON, CPoint(5, 5)); }),
                         {"CWnd::OnLButtonDown", "SendMessageW"}));
}

TEST_F(ListSequence, AMoveWithoutADragIsOnlyPassedOn)
{
    EXPECT_TRUE(AreCalls(MoveTo(110), {"CWnd::OnMouseMove"}));
}

TEST_F(ListSequence, ADragSetsTheWidthBeforeTheMoveIsPassedOn)
{
    const LeftButton down(true);
    Follow();
    const CallNames followed = {"GetAsyncKeyState", "IsWindow"};
    const CallNames passedOn = {"CWnd::OnMouseMove"};
    EXPECT_TRUE(AreCalls(MoveTo(100), InOrder({followed, passedOn})));
    EXPECT_TRUE(AreCalls(MoveTo(110), InOrder({followed, kSend, kSetWidth, passedOn})));
    const ListAnswer none(LVM_GETCOLUMNWIDTH, -1);
    EXPECT_TRUE(AreCalls(MoveTo(120), InOrder({followed, kSend})));
}

TEST_F(ListSequence, AReleasedButtonEndsTheDrag)
{
    const LeftButton up(false);
    Follow();
    EXPECT_TRUE(AreCalls(MoveTo(110), {"GetAsyncKeyState", "CWnd::OnMouseMove"}));
    EXPECT_TRUE(AreCalls(MoveTo(120), {"CWnd::OnMouseMove"}));
}

TEST_F(ListSequence, AListForTouchAsksOnceForItsGestures)
{
    OpenTouchList list;
    EXPECT_TRUE(AreCalls(CallsOf([&] { list.GetGestureStatus(CPoint(1, 1)); }), {"CWnd::GetGestureStatus"}));
}

TEST_F(ListSequence, AnyButtonIsEnabledByOneCall)
{
    CRealButton real;
    real.Create(L"OK", WS_CHILD, CRect(0, 0, 75, 23), m_parent.Object(), IDOK);
    EXPECT_TRUE(AreCalls(CallsOf([&] { real.EnableWindow(FALSE); }), {"CWnd::EnableWindow"}));
    CButton standIn;
    standIn.Create(L"OK", WS_CHILD, CRect(80, 0, 155, 23), m_parent.Object(), 2000);
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { real.SetProxyButton(reinterpret_cast<CButtonProxy*>(&standIn)); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { real.EnableWindow(TRUE); }), {"CWnd::EnableWindow"}));
}
