#include "ControlHost.h"

#include <afxcmn.h>

#include <gtest/gtest.h>

namespace
{
constexpr RECT kBounds = {0, 0, 300, 200};
constexpr UINT kId = ControlHost::kControlId;

// As a derived class may hide what it does in another way, and call the base's.
class HidingList : public CListCtrl
{
public:
    int InsertColumn(int nCol, const wchar_t* lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1)
    {
        return CListCtrl::InsertColumn(nCol, lpszColumnHeading, nFormat, nWidth, nSubItem);
    }

    CHeaderCtrl* GetHeaderCtrl() { return &m_header; }

    bool SubclassHeader()
    {
        CHeaderCtrl* const pHeader = CListCtrl::GetHeaderCtrl();
        return pHeader != nullptr && m_header.SubclassWindow(pHeader->GetSafeHwnd());
    }

    CHeaderCtrl m_header;
};

// Keeps what it was asked for by the message that sets the width of a column.
class WidthRecorder : public CListCtrl
{
public:
    LPARAM m_width = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == LVM_SETCOLUMNWIDTH)
            m_width = lParam;
        return CListCtrl::WindowProc(message, wParam, lParam);
    }
};

class ListTest : public testing::Test
{
protected:
    void Create(CListCtrl& listCtrl, DWORD dwStyle = LVS_REPORT)
    {
        ASSERT_TRUE(listCtrl.Create(WS_CHILD | WS_VISIBLE | dwStyle, kBounds, &m_host, kId));
    }

    void CreateFilled(CListCtrl& listCtrl)
    {
        Create(listCtrl);
        listCtrl.InsertColumn(0, L"name", LVCFMT_LEFT, 100);
        for (LPCTSTR lpszText : {L"one", L"two", L"three"})
            listCtrl.InsertItem(listCtrl.GetItemCount(), lpszText);
    }

    ControlHost m_host;
};

int CALLBACK ComparePlain(LPARAM first, LPARAM second, LPARAM)
{
    return static_cast<int>(first - second);
}
} // namespace

TEST_F(ListTest, IsAlwaysAChild)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(LVS_REPORT, kBounds, &m_host, kId));
    EXPECT_NE(list.GetStyle() & WS_CHILD, 0u);
    EXPECT_EQ(list.GetParent(), &m_host);
    EXPECT_EQ(list.GetDlgCtrlID(), static_cast<int>(kId));
}

TEST_F(ListTest, ColumnsAnswerTheirIndexAndKeepTheirWidth)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    EXPECT_EQ(listCtrl.InsertColumn(0, L"first", LVCFMT_LEFT, 80), 0);
    EXPECT_EQ(listCtrl.InsertColumn(1, L"second", LVCFMT_RIGHT, 90, 1), 1);
    EXPECT_EQ(listCtrl.GetColumnWidth(0), 80);
    EXPECT_EQ(listCtrl.GetColumnWidth(1), 90);

    LVCOLUMN column = {};
    column.mask = LVCF_FMT | LVCF_SUBITEM;
    EXPECT_TRUE(listCtrl.GetColumn(1, &column));
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(column.iSubItem, 1);
}

TEST_F(ListTest, ColumnWithoutAWidthTakesThatOfThePlatform)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    listCtrl.InsertColumn(0, L"first");
    LVCOLUMN plain = {};
    plain.mask = LVCF_TEXT | LVCF_FMT;
    plain.pszText = const_cast<LPTSTR>(L"first");
    listCtrl.InsertColumn(1, &plain);
    EXPECT_EQ(listCtrl.GetColumnWidth(0), listCtrl.GetColumnWidth(1));
}

TEST_F(ListTest, SetColumnWidthKeepsTheLowWord)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    listCtrl.InsertColumn(0, L"first", LVCFMT_LEFT, 80);
    EXPECT_TRUE(listCtrl.SetColumnWidth(0, 0x10000 + 120));
    EXPECT_EQ(listCtrl.GetColumnWidth(0), 120);
}

TEST_F(ListTest, NegativeColumnWidthIsSentInTheLowWord)
{
    WidthRecorder listCtrl;
    Create(listCtrl);
    listCtrl.InsertColumn(0, L"first", LVCFMT_LEFT, 80);
    listCtrl.SetColumnWidth(0, LVSCW_AUTOSIZE);
    EXPECT_EQ(listCtrl.m_width, 0xffff);
}

TEST_F(ListTest, ColumnOrderIsExchanged)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    listCtrl.InsertColumn(0, L"first", LVCFMT_LEFT, 80);
    listCtrl.InsertColumn(1, L"second", LVCFMT_LEFT, 80);
    int order[] = {1, 0};
    EXPECT_TRUE(listCtrl.SetColumnOrderArray(2, order));
    int read[] = {-1, -1};
    EXPECT_TRUE(listCtrl.GetColumnOrderArray(read));
    EXPECT_EQ(read[0], 1);
    EXPECT_EQ(read[1], 0);
}

TEST_F(ListTest, HeaderOfAReportIsATemporaryObject)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    CHeaderCtrl* const pHeader = listCtrl.GetHeaderCtrl();
    ASSERT_NE(pHeader, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(*pHeader), nullptr);
}

TEST_F(ListTest, IconViewHasNoHeader)
{
    CListCtrl listCtrl;
    Create(listCtrl, LVS_ICON);
    EXPECT_EQ(listCtrl.GetHeaderCtrl(), nullptr);
}

TEST_F(ListTest, DerivedClassMayHideColumnFunctionsAndSubclassTheHeader)
{
    HidingList listCtrl;
    Create(listCtrl);
    ASSERT_TRUE(listCtrl.SubclassHeader());
    EXPECT_EQ(listCtrl.InsertColumn(0, L"first", LVCFMT_LEFT, 80), 0);
    EXPECT_EQ(listCtrl.GetHeaderCtrl()->GetItemCount(), 1);
    EXPECT_EQ(static_cast<CListCtrl&>(listCtrl).GetHeaderCtrl(), &listCtrl.m_header);
}

TEST_F(ListTest, SubclassedHeaderIsEmptyAfterTheListIsDestroyed)
{
    HidingList listCtrl;
    Create(listCtrl);
    ASSERT_TRUE(listCtrl.SubclassHeader());
    listCtrl.DestroyWindow();
    EXPECT_EQ(listCtrl.m_header.m_hWnd, nullptr);
}

TEST_F(ListTest, TextOfItemsAndSubItemsIsKept)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.InsertColumn(1, L"value", LVCFMT_LEFT, 80, 1);
    EXPECT_TRUE(listCtrl.SetItemText(1, 1, L"2"));
    EXPECT_EQ(listCtrl.GetItemText(1, 0), L"two");
    EXPECT_EQ(listCtrl.GetItemText(1, 1), L"2");
}

TEST_F(ListTest, LongTextIsReadWhole)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    const CString text(L'x', 200);
    listCtrl.SetItemText(0, 0, text);
    EXPECT_EQ(listCtrl.GetItemText(0, 0), text);
}

TEST_F(ListTest, TextThatFillsTheFirstBufferIsReadOnce)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    const CString text(L'x', 127);
    listCtrl.SetItemText(0, 0, text);
    EXPECT_EQ(listCtrl.GetItemText(0, 0), text);
}

TEST_F(ListTest, ItemDataIsKept)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    constexpr DWORD_PTR kWide = 0x123456789abcdef0;
    EXPECT_TRUE(listCtrl.SetItemData(1, kWide));
    EXPECT_EQ(listCtrl.GetItemData(1), kWide);
}

TEST_F(ListTest, SelectedItemsAreWalked)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    listCtrl.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(listCtrl.GetSelectedCount(), 2u);
    POSITION position = listCtrl.GetFirstSelectedItemPosition();
    EXPECT_EQ(listCtrl.GetNextSelectedItem(position), 0);
    EXPECT_EQ(listCtrl.GetNextSelectedItem(position), 2);
    EXPECT_EQ(position, nullptr);
}

TEST_F(ListTest, NoSelectionGivesANullPosition)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    EXPECT_EQ(listCtrl.GetFirstSelectedItemPosition(), nullptr);
}

TEST_F(ListTest, StateOfMinusOneIsSetInAllItems)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(listCtrl.GetSelectedCount(), 3u);
}

TEST_F(ListTest, ExtendedStylesAreReplaced)
{
    CListCtrl listCtrl;
    Create(listCtrl);
    listCtrl.SetExtendedStyle(LVS_EX_GRIDLINES);
    EXPECT_EQ(listCtrl.SetExtendedStyle(LVS_EX_FULLROWSELECT), static_cast<DWORD>(LVS_EX_GRIDLINES));
    EXPECT_EQ(listCtrl.GetExtendedStyle(), static_cast<DWORD>(LVS_EX_FULLROWSELECT));
}

TEST_F(ListTest, ChecksAreSetAndRead)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.SetExtendedStyle(LVS_EX_CHECKBOXES);
    EXPECT_FALSE(listCtrl.GetCheck(1));
    EXPECT_TRUE(listCtrl.SetCheck(1));
    EXPECT_TRUE(listCtrl.GetCheck(1));
    listCtrl.SetCheck(1, FALSE);
    EXPECT_FALSE(listCtrl.GetCheck(1));
}

TEST_F(ListTest, SortComparesItemData)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.SetItemData(0, 3);
    listCtrl.SetItemData(1, 1);
    listCtrl.SetItemData(2, 2);
    EXPECT_TRUE(listCtrl.SortItems(ComparePlain, 0));
    EXPECT_EQ(listCtrl.GetItemText(0, 0), L"two");
    EXPECT_EQ(listCtrl.GetItemText(2, 0), L"one");
}

TEST_F(ListTest, HitTestFindsTheItemAndItsPart)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    CRect label;
    ASSERT_TRUE(listCtrl.GetItemRect(1, &label, LVIR_LABEL));
    UINT nFlags = 0;
    EXPECT_EQ(listCtrl.HitTest(CPoint(label.left + 3, label.CenterPoint().y), &nFlags), 1);
    EXPECT_NE(nFlags & LVHT_ONITEM, 0u);
}

TEST_F(ListTest, SubItemRectangleIsThatOfTheColumn)
{
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.InsertColumn(1, L"value", LVCFMT_LEFT, 80, 1);
    CRect rect;
    ASSERT_TRUE(listCtrl.GetSubItemRect(0, 1, LVIR_BOUNDS, rect));
    EXPECT_EQ(rect.left, 100);
    EXPECT_EQ(rect.Width(), 80);
}

TEST_F(ListTest, EditLabelGivesAnEditControl)
{
    CListCtrl listCtrl;
    Create(listCtrl, LVS_REPORT | LVS_EDITLABELS);
    m_host.ShowWindow(SW_SHOWNOACTIVATE);
    listCtrl.InsertColumn(0, L"name", LVCFMT_LEFT, 100);
    listCtrl.InsertItem(0, L"one");
    listCtrl.SetFocus();
    CEdit* const pEdit = listCtrl.EditLabel(0);
    ASSERT_NE(pEdit, nullptr);
    EXPECT_EQ(listCtrl.GetEditControl(), pEdit);
    CString text;
    pEdit->GetWindowText(text);
    EXPECT_EQ(text, L"one");
    listCtrl.CancelEditLabel();
}

TEST_F(ListTest, ControlDestroysItsImageLists)
{
    const HIMAGELIST hImages = ::ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    CListCtrl listCtrl;
    Create(listCtrl);
    listCtrl.SetImageList(CImageList::FromHandle(hImages), LVSIL_SMALL);
    EXPECT_EQ(listCtrl.GetImageList(LVSIL_SMALL)->m_hImageList, hImages);
    listCtrl.DestroyWindow();
    CImageList::DeleteTempMap();
    int cx = 0;
    int cy = 0;
    EXPECT_FALSE(::ImageList_GetIconSize(hImages, &cx, &cy));
}

TEST_F(ListTest, ControlKeepsSharedImageLists)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 1, 1);
    CListCtrl listCtrl;
    Create(listCtrl, LVS_REPORT | LVS_SHAREIMAGELISTS);
    listCtrl.SetImageList(&images, LVSIL_SMALL);
    EXPECT_EQ(listCtrl.GetImageList(LVSIL_SMALL), &images);
    listCtrl.DestroyWindow();
    EXPECT_TRUE(images.DeleteImageList());
}

TEST_F(ListTest, DragImageBelongsToTheCaller)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 1, 1);
    images.Add(::LoadIcon(nullptr, IDI_APPLICATION));
    CListCtrl listCtrl;
    CreateFilled(listCtrl);
    listCtrl.SetImageList(&images, LVSIL_SMALL);
    CPoint point;
    CImageList* const pDragImage = listCtrl.CreateDragImage(0, &point);
    ASSERT_NE(pDragImage, nullptr);
    EXPECT_EQ(CImageList::FromHandlePermanent(*pDragImage), pDragImage);
    delete pDragImage;
    listCtrl.SetImageList(nullptr, LVSIL_SMALL);
}

TEST_F(ListTest, HeaderItemsAreInsertedAndHit)
{
    CHeaderCtrl header;
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ, CRect(0, 0, 300, 20), &m_host, kId));
    HDITEM item = {};
    item.mask = HDI_WIDTH;
    item.cxy = 70;
    EXPECT_EQ(header.InsertItem(0, &item), 0);
    EXPECT_EQ(header.InsertItem(99, &item), 1);
    EXPECT_EQ(header.GetItemCount(), 2);

    CRect rect;
    EXPECT_TRUE(header.GetItemRect(1, &rect));
    EXPECT_EQ(rect.left, 70);

    HDHITTESTINFO hit = {};
    hit.pt = CPoint(100, 5);
    EXPECT_EQ(header.HitTest(&hit), 1);
}

TEST_F(ListTest, HeaderKeepsTheCallersImageList)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 1, 1);
    CHeaderCtrl header;
    ASSERT_TRUE(header.Create(WS_CHILD | HDS_HORZ, CRect(0, 0, 300, 20), &m_host, kId));
    EXPECT_EQ(header.SetImageList(&images), nullptr);
    EXPECT_EQ(header.GetImageList(), &images);
    header.DestroyWindow();
    EXPECT_TRUE(images.DeleteImageList());
}
