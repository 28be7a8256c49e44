#include "ControlHost.h"

#include <gtest/gtest.h>

namespace
{
constexpr RECT kBounds = {10, 10, 110, 90};
constexpr UINT kId = ControlHost::kControlId;

// Controls whose virtual functions note that they were called.
class DrawnButton : public CButton
{
public:
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override { m_nDrawnId = lpDrawItemStruct->CtlID; }
    UINT m_nDrawnId = 0;
};

class DrawnStatic : public CStatic
{
public:
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override { m_nDrawnId = lpDrawItemStruct->CtlID; }
    UINT m_nDrawnId = 0;
};

class OwnerListBox : public CListBox
{
public:
    void DrawItem(LPDRAWITEMSTRUCT) override { ++m_nDrawn; }
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override
    {
        lpMeasureItemStruct->itemHeight = 33;
    }
    int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct) override
    {
        // The other way round than numbers are usually sorted.
        return lpCompareItemStruct->itemData1 < lpCompareItemStruct->itemData2 ? 1 : -1;
    }
    void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct) override
    {
        m_deleted = lpDeleteItemStruct->itemData;
    }
    int CharToItem(UINT nKey, UINT) override { return nKey == L'x' ? 2 : -1; }

    int m_nDrawn = 0;
    ULONG_PTR m_deleted = 0;
};

class OwnerComboBox : public CComboBox
{
public:
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override
    {
        ++m_nMeasured;
        lpMeasureItemStruct->itemHeight = 33;
    }
    int m_nMeasured = 0;
};

void CreateListBox(CListBox& listBox, CWnd& parent, DWORD dwStyle = 0)
{
    ASSERT_TRUE(listBox.Create(WS_CHILD | WS_VISIBLE | LBS_NOTIFY | dwStyle, kBounds, &parent, kId));
}

void CreateComboBox(CComboBox& comboBox, CWnd& parent, DWORD dwStyle)
{
    ASSERT_TRUE(comboBox.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | dwStyle, kBounds, &parent, kId));
}

HBITMAP CreateTestBitmap()
{
    return ::CreateBitmap(8, 8, 1, 32, nullptr);
}
} // namespace

TEST(Control, IsAPermanentObjectWithItsIdAndParent)
{
    ControlHost host;
    CButton button;
    ASSERT_TRUE(button.Create(L"text", WS_CHILD, kBounds, &host, kId));
    EXPECT_EQ(CWnd::FromHandlePermanent(button), &button);
    EXPECT_EQ(button.GetDlgCtrlID(), static_cast<int>(kId));
    EXPECT_EQ(button.GetParent(), &host);
    EXPECT_EQ(host.GetDlgItem(kId), &button);
}

TEST(Control, IsDestroyedWithItsObject)
{
    ControlHost host;
    HWND hWnd = nullptr;
    {
        CEdit edit;
        ASSERT_TRUE(edit.Create(WS_CHILD, kBounds, &host, kId));
        hWnd = edit;
    }
    EXPECT_FALSE(::IsWindow(hWnd));
}

TEST(Static, SetBitmapAnswersThePreviousHandleAndFreesNothing)
{
    ControlHost host;
    CStatic control;
    ASSERT_TRUE(control.Create(nullptr, WS_CHILD | SS_BITMAP, kBounds, &host));
    const HBITMAP hFirst = CreateTestBitmap();
    const HBITMAP hSecond = CreateTestBitmap();
    EXPECT_EQ(control.SetBitmap(hFirst), nullptr);
    EXPECT_EQ(control.SetBitmap(hSecond), hFirst);
    EXPECT_EQ(control.GetBitmap(), hSecond);
    control.DestroyWindow();
    EXPECT_TRUE(::DeleteObject(hFirst));
    EXPECT_TRUE(::DeleteObject(hSecond));
}

TEST(Static, TakesTheSizeOfItsBitmap)
{
    ControlHost host;
    CStatic control;
    ASSERT_TRUE(control.Create(nullptr, WS_CHILD | SS_BITMAP, kBounds, &host));
    const HBITMAP hBitmap = CreateTestBitmap();
    control.SetBitmap(hBitmap);
    CRect rect;
    control.GetWindowRect(&rect);
    EXPECT_EQ(rect.Size(), CSize(8, 8));
    control.DestroyWindow();
    ::DeleteObject(hBitmap);
}

TEST(Static, SetIconAnswersThePreviousIcon)
{
    ControlHost host;
    CStatic control;
    ASSERT_TRUE(control.Create(nullptr, WS_CHILD | SS_ICON, kBounds, &host));
    const HICON hIcon = ::LoadIcon(nullptr, IDI_APPLICATION);
    EXPECT_EQ(control.SetIcon(hIcon), nullptr);
    EXPECT_EQ(control.GetIcon(), hIcon);
}

TEST(Static, HasTheDefaultIdOfStaticControls)
{
    ControlHost host;
    CStatic control;
    ASSERT_TRUE(control.Create(L"text", WS_CHILD, kBounds, &host));
    EXPECT_EQ(static_cast<WORD>(control.GetDlgCtrlID()), 0xffff);
}

TEST(Static, DrawItemIsReflected)
{
    ControlHost host;
    DrawnStatic control;
    ASSERT_TRUE(control.Create(nullptr, WS_CHILD | WS_VISIBLE | SS_OWNERDRAW, kBounds, &host, kId));
    host.ShowWindow(SW_SHOWNOACTIVATE);
    control.RedrawWindow();
    EXPECT_EQ(control.m_nDrawnId, kId);
}

TEST(Button, CheckIsRemembered)
{
    ControlHost host;
    CButton button;
    ASSERT_TRUE(button.Create(L"text", WS_CHILD | BS_AUTO3STATE, kBounds, &host, kId));
    button.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(button.GetCheck(), BST_INDETERMINATE);
}

TEST(Button, GetButtonStyleLeavesWindowStylesOut)
{
    ControlHost host;
    CButton button;
    ASSERT_TRUE(button.Create(L"text", WS_CHILD | WS_TABSTOP | BS_AUTOCHECKBOX, kBounds, &host, kId));
    EXPECT_EQ(button.GetButtonStyle(), static_cast<UINT>(BS_AUTOCHECKBOX));
}

TEST(Button, SetBitmapKeepsTheCallersBitmap)
{
    ControlHost host;
    CButton button;
    ASSERT_TRUE(button.Create(nullptr, WS_CHILD | BS_BITMAP, kBounds, &host, kId));
    const HBITMAP hBitmap = CreateTestBitmap();
    EXPECT_EQ(button.SetBitmap(hBitmap), nullptr);
    EXPECT_EQ(button.GetBitmap(), hBitmap);
    button.DestroyWindow();
    EXPECT_TRUE(::DeleteObject(hBitmap));
}

TEST(Button, DrawItemIsReflected)
{
    ControlHost host;
    DrawnButton button;
    ASSERT_TRUE(button.Create(L"text", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, kBounds, &host, kId));
    host.ShowWindow(SW_SHOWNOACTIVATE);
    button.RedrawWindow();
    EXPECT_EQ(button.m_nDrawnId, kId);
}

TEST(Button, ClickNotifiesTheParent)
{
    ControlHost host;
    CButton button;
    ASSERT_TRUE(button.Create(L"text", WS_CHILD, kBounds, &host, kId));
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(host.m_nCommands, 1);
}

TEST(Edit, SelectionIsReplaced)
{
    ControlHost host;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, kBounds, &host, kId));
    edit.SetWindowText(L"one two");
    edit.SetSel(4, 7);
    int nStart = 0;
    int nEnd = 0;
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(nStart, 4);
    EXPECT_EQ(nEnd, 7);
    edit.ReplaceSel(L"three");
    CString text;
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"one three");
}

TEST(Edit, PackedSelectionOfZeroAndMinusOneIsAll)
{
    ControlHost host;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, kBounds, &host, kId));
    edit.SetWindowText(L"one two");
    edit.SetSel(MAKELONG(0, -1));
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(0, 7)));
}

TEST(Edit, LineIsReadWithoutATerminator)
{
    ControlHost host;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | ES_MULTILINE, kBounds, &host, kId));
    edit.SetWindowText(L"ab\r\ncdef");
    EXPECT_EQ(edit.GetLineCount(), 2);
    TCHAR buffer[] = L"......";
    EXPECT_EQ(edit.GetLine(1, buffer, 4), 4);
    EXPECT_STREQ(buffer, L"cdef..");
    EXPECT_EQ(edit.LineLength(edit.LineIndex(1)), 4);
}

TEST(Edit, LimitAndModificationAreRemembered)
{
    ControlHost host;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, kBounds, &host, kId));
    edit.SetLimitText(12);
    EXPECT_EQ(edit.GetLimitText(), 12u);
    edit.SetModify();
    EXPECT_TRUE(edit.GetModify());
    edit.SetModify(FALSE);
    EXPECT_FALSE(edit.GetModify());
}

TEST(Edit, MarginsAreLeftAndRight)
{
    ControlHost host;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, kBounds, &host, kId));
    edit.SetMargins(5, 9);
    EXPECT_EQ(edit.GetMargins(), static_cast<DWORD>(MAKELONG(5, 9)));
}

TEST(ListBox, SelectionByProgramSendsNoNotification)
{
    ControlHost host;
    CListBox listBox;
    CreateListBox(listBox, host);
    listBox.AddString(L"one");
    listBox.AddString(L"two");
    EXPECT_EQ(listBox.SetCurSel(1), 1);
    EXPECT_EQ(listBox.GetCurSel(), 1);
    EXPECT_EQ(host.m_nCommands, 0);
}

TEST(ListBox, InsertStringDoesNotSort)
{
    ControlHost host;
    CListBox listBox;
    CreateListBox(listBox, host, LBS_SORT);
    listBox.AddString(L"b");
    EXPECT_EQ(listBox.AddString(L"a"), 0);
    EXPECT_EQ(listBox.InsertString(0, L"z"), 0);
    CString text;
    listBox.GetText(0, text);
    EXPECT_EQ(text, L"z");
}

TEST(ListBox, TextOfABadIndexThrows)
{
    ControlHost host;
    CListBox listBox;
    CreateListBox(listBox, host);
    CString text;
    bool thrown = false;
    try
    {
        listBox.GetText(0, text);
    }
    catch (CInvalidArgException* pException)
    {
        thrown = true;
        pException->Delete();
    }
    EXPECT_TRUE(thrown);
}

TEST(ListBox, ItemDataHasTheWidthOfAPointer)
{
    ControlHost host;
    CListBox listBox;
    CreateListBox(listBox, host);
    listBox.AddString(L"one");
    constexpr DWORD_PTR kWide = 0x123456789abcdef0;
    listBox.SetItemData(0, kWide);
    EXPECT_EQ(listBox.GetItemData(0), kWide);
}

TEST(ListBox, ItemFromPointTellsWhetherThePointIsOutside)
{
    ControlHost host;
    CListBox listBox;
    CreateListBox(listBox, host);
    listBox.AddString(L"one");
    BOOL bOutside = TRUE;
    EXPECT_EQ(listBox.ItemFromPoint(CPoint(2, 2), bOutside), 0u);
    EXPECT_FALSE(bOutside);
    listBox.ItemFromPoint(CPoint(2, 5000), bOutside);
    EXPECT_TRUE(bOutside);
}

TEST(ListBox, OwnerDrawItemsAreMeasuredAtCreation)
{
    ControlHost host;
    OwnerListBox listBox;
    CreateListBox(listBox, host, LBS_OWNERDRAWFIXED);
    EXPECT_EQ(listBox.GetItemHeight(0), 33);
}

TEST(ListBox, OwnerDrawItemsAreDrawnComparedAndDeleted)
{
    ControlHost host;
    OwnerListBox listBox;
    CreateListBox(listBox, host, LBS_OWNERDRAWFIXED | LBS_SORT);
    for (const INT_PTR data : {7, 5, 9})
        listBox.AddString(reinterpret_cast<LPCTSTR>(data));
    EXPECT_EQ(listBox.GetItemData(0), 9u);
    EXPECT_EQ(listBox.GetItemData(1), 7u);
    EXPECT_EQ(listBox.GetItemData(2), 5u);
    host.ShowWindow(SW_SHOWNOACTIVATE);
    listBox.RedrawWindow();
    EXPECT_GT(listBox.m_nDrawn, 0);
    listBox.DeleteString(0);
    EXPECT_EQ(listBox.m_deleted, 9u);
}

TEST(ListBox, CharactersAreOfferedToTheObject)
{
    ControlHost host;
    OwnerListBox listBox;
    CreateListBox(listBox, host, LBS_OWNERDRAWFIXED | LBS_WANTKEYBOARDINPUT);
    for (int i = 0; i < 4; ++i)
        listBox.AddString(nullptr);
    listBox.SendMessage(WM_CHAR, L'x', 0);
    EXPECT_EQ(listBox.GetCurSel(), 2);
}

TEST(ComboBox, ClearingTheSelectionAnswersAnError)
{
    ControlHost host;
    CComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWNLIST);
    comboBox.AddString(L"one");
    EXPECT_EQ(comboBox.SetCurSel(0), 0);
    EXPECT_EQ(comboBox.SetCurSel(-1), CB_ERR);
    EXPECT_EQ(comboBox.GetCurSel(), CB_ERR);
}

TEST(ComboBox, TextOfAnItemIsRead)
{
    ControlHost host;
    CComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWNLIST);
    comboBox.AddString(L"one");
    CString text;
    comboBox.GetLBText(0, text);
    EXPECT_EQ(text, L"one");
    EXPECT_EQ(comboBox.GetLBTextLen(0), 3);
}

TEST(ComboBox, TextOfABadIndexThrows)
{
    ControlHost host;
    CComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWNLIST);
    CString text;
    bool thrown = false;
    try
    {
        comboBox.GetLBText(3, text);
    }
    catch (CInvalidArgException* pException)
    {
        thrown = true;
        pException->Delete();
    }
    EXPECT_TRUE(thrown);
}

TEST(ComboBox, ItemHeightOfMinusOneIsThatOfTheEditPart)
{
    ControlHost host;
    CComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWNLIST);
    const int nEditHeight = comboBox.GetItemHeight(-1);
    const int nListHeight = comboBox.GetItemHeight(0);
    comboBox.SetItemHeight(-1, nEditHeight + 20);
    EXPECT_GE(comboBox.GetItemHeight(-1), nEditHeight + 20);
    EXPECT_EQ(comboBox.GetItemHeight(0), nListHeight);
}

TEST(ComboBox, OwnerDrawItemsAreMeasuredAtCreation)
{
    ControlHost host;
    OwnerComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED);
    EXPECT_GT(comboBox.m_nMeasured, 0);
    EXPECT_EQ(comboBox.GetItemHeight(0), 33);
}

TEST(ComboBox, OwnerDrawItemsAreNotMeasuredAfterSubclassing)
{
    ControlHost host;
    const HWND hWnd = ::CreateWindow(WC_COMBOBOX, L"", WS_CHILD | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, 0, 0,
                                     50, 80, host, nullptr, nullptr, nullptr);
    OwnerComboBox comboBox;
    ASSERT_TRUE(comboBox.SubclassWindow(hWnd));
    comboBox.AddString(L"one");
    EXPECT_EQ(comboBox.m_nMeasured, 0);
    comboBox.SetItemHeight(0, 44);
    EXPECT_EQ(comboBox.GetItemHeight(0), 44);
}

TEST(ComboBox, ControlInfoReachesTheList)
{
    ControlHost host;
    CComboBox comboBox;
    CreateComboBox(comboBox, host, CBS_DROPDOWN);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(comboBox.GetComboBoxInfo(&info));
    EXPECT_TRUE(::IsWindow(info.hwndList));
    EXPECT_TRUE(::IsWindow(info.hwndItem));
}

TEST(ScrollBar, InfoCarriesPositionsOf32Bits)
{
    ControlHost host;
    CScrollBar scrollBar;
    ASSERT_TRUE(scrollBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, kBounds, &host, kId));
    SCROLLINFO info = {};
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = 200000;
    info.nPage = 1000;
    info.nPos = 100000;
    scrollBar.SetScrollInfo(&info);

    SCROLLINFO read = {};
    EXPECT_TRUE(scrollBar.GetScrollInfo(&read));
    EXPECT_EQ(read.nPos, 100000);
    EXPECT_EQ(read.nPage, 1000u);
    EXPECT_EQ(read.nMax, 200000);
}

TEST(ScrollBar, LimitLeavesRoomForThePage)
{
    ControlHost host;
    CScrollBar scrollBar;
    ASSERT_TRUE(scrollBar.Create(WS_CHILD | SBS_HORZ, kBounds, &host, kId));
    SCROLLINFO info = {};
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = 99;
    info.nPage = 10;
    scrollBar.SetScrollInfo(&info);
    EXPECT_EQ(scrollBar.GetScrollLimit(), 90);
}

TEST(ScrollBar, SetScrollPosAnswersThePreviousPosition)
{
    ControlHost host;
    CScrollBar scrollBar;
    ASSERT_TRUE(scrollBar.Create(WS_CHILD | SBS_HORZ, kBounds, &host, kId));
    scrollBar.SetScrollRange(0, 50);
    scrollBar.SetScrollPos(20);
    EXPECT_EQ(scrollBar.SetScrollPos(30), 20);
    EXPECT_EQ(scrollBar.GetScrollPos(), 30);
}

TEST(ScrollBar, ShowScrollBarHidesTheControl)
{
    ControlHost host;
    CScrollBar scrollBar;
    ASSERT_TRUE(scrollBar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, kBounds, &host, kId));
    scrollBar.ShowScrollBar(FALSE);
    EXPECT_EQ(scrollBar.GetStyle() & WS_VISIBLE, 0u);
    scrollBar.ShowScrollBar();
    EXPECT_NE(scrollBar.GetStyle() & WS_VISIBLE, 0u);
}
