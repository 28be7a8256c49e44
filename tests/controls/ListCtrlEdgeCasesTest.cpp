#include "foundation/FrameworkWindow.h"
#include "foundation/LibraryModule.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/Input.h"
#include "support/TestDpi.h"

#include <vxdpi/Controls.h>

#include <gtest/gtest.h>

#include <map>

namespace
{
using WidthRecord = std::map<int, int>;

class OpenHeader : public CDpiAwareHeaderCtrl
{
public:
    using CDpiAwareHeaderCtrl::m_dragColumn;
};

int DraggedColumn(const CDpiAwareHeaderCtrl& header)
{
    return header.*&OpenHeader::m_dragColumn;
}

template<class List>
class OpenListOf : public List
{
public:
    using List::GetGestureStatus;
    using List::GetHeaderTextLength;
    using List::m_columnWidths96;
    using List::m_header;
};

using OpenList = OpenListOf<CDPIAwareListCtrl>;

HWND MakeReportList(HWND parent)
{
    return ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 380, 200,
                             parent, nullptr, nullptr, nullptr);
}

// A list as a dialog gives it to its object: made first, subclassed afterwards.
struct SubclassedList
{
    SubclassedList() { list.SubclassWindow(MakeReportList(parent.Handle())); }

    FrameworkWindow parent;
    OpenList list;
};

// The library as it is told of a mouse whose left button is down.
class LeftButtonDown : public ImportSpy<decltype(::GetAsyncKeyState)>
{
public:
    LeftButtonDown()
        : ImportSpy(VxDpiModule(), "user32.dll", "GetAsyncKeyState",
                    [](int key) { return static_cast<SHORT>(key == VK_LBUTTON ? 0x8000 : 0); })
    {
    }
};
}

TEST(ListColumnEdgeCases, AGivenWidthIsForNinetySixDpiAndASetOneInPixels)
{
    SubclassedList window;
    const WindowDpiAnswer dpi(144);
    EXPECT_EQ(window.list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100), 0);
    EXPECT_EQ(window.list.GetColumnWidth(0), 150);
    EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, 100}}));
    EXPECT_EQ(window.list.SetColumnWidth(0, 150), TRUE);
    EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, 100}}));
}

TEST(ListColumnEdgeCases, ADraggedWidthIsRecordedAndAppliedAtTheNextDpi)
{
    SubclassedList window;
    {
        const WindowDpiAnswer dpi(120);
        for (int i = 0; i < 3; ++i)
            window.list.InsertColumn(i, L"Column", LVCFMT_LEFT, 80); // 100 pixels
        const LeftButtonDown button;
        const HWND header = window.list.m_header.m_hWnd;
        ASSERT_TRUE(::IsWindow(header));
        ::SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(298, 5));
        ::SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(323, 5));
        EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, 80}, {1, 80}, {2, 100}}));
        EXPECT_EQ(window.list.GetColumnWidth(2), 125);
        ::SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(323, 5));
    }
    const WindowDpiAnswer dpi(192);
    EXPECT_EQ(::SendMessageW(window.list.m_hWnd, WM_DPICHANGED_AFTERPARENT, 0, 0), 0);
    EXPECT_EQ(window.list.GetColumnWidth(2), 200);
}

TEST(ListColumnEdgeCases, AWidthThatCannotBeScaledIsTakenAsItIs)
{
    SubclassedList window;
    window.list.InsertColumn(0, L"Name", LVCFMT_LEFT, 10);
    const WindowDpiAnswer dpi(144);
    constexpr int kHuge = 30000000; // times 96 is beyond 32 bits
    window.list.SetColumnWidth(0, kHuge);
    EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, kHuge}}));
    window.list.InsertColumn(1, L"Name", LVCFMT_LEFT, kHuge);
    EXPECT_EQ(window.list.m_columnWidths96.at(1), kHuge);
}

TEST(ListColumnEdgeCases, AWidthOfZeroForAColumnWithoutOneIsReplacedByThatOfItsHeading)
{
    SubclassedList window;
    window.list.InsertColumn(0, L"A heading", LVCFMT_LEFT, -1);
    // Wide enough to be no padding of another text, and gone with an empty heading.
    const int nHeading = window.list.GetHeaderTextLength(0);
    EXPECT_GT(nHeading, 20);
    const WindowDpiAnswer dpi(192);
    const ImportSpy<decltype(::SendMessageW)> list(
        VxDpiModule(), "user32.dll", "SendMessageW",
        [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        { return message == LVM_GETCOLUMNWIDTH ? 0 : list.Original()(hWnd, message, wParam, lParam); });
    window.list.InsertColumn(0, L"A heading", LVCFMT_LEFT, -1);
    EXPECT_EQ(window.list.m_columnWidths96.at(0),
              ::MulDiv(::MulDiv(nHeading, static_cast<int>(TestDpi()), 96), 96, 192));
}

TEST(ListColumnEdgeCases, TheWidthIsRecordedUnderTheIndexThatWasAskedFor)
{
    SubclassedList window;
    window.list.InsertColumn(0, L"A", LVCFMT_LEFT, 40);
    window.list.InsertColumn(1, L"B", LVCFMT_LEFT, 50);
    EXPECT_EQ(window.list.InsertColumn(5, L"C", LVCFMT_LEFT, 60), 2);
    EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, 40}, {1, 50}, {5, 60}}));
}

TEST(ListColumnEdgeCases, AColumnRecordIsTakenWithItsThreeKindsOfWidth)
{
    SubclassedList window;
    LVCOLUMNW column = {};
    wchar_t heading[] = L"A heading";
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = heading;
    column.cx = 70;
    EXPECT_EQ(window.list.InsertColumn(0, &column), 0);
    column.cx = -2; // the list fills up what is left
    EXPECT_EQ(window.list.InsertColumn(1, &column), 1);
    column.mask = LVCF_TEXT;
    EXPECT_EQ(window.list.InsertColumn(2, &column), 2);
    EXPECT_EQ(window.list.m_columnWidths96.at(0), 70);
    EXPECT_GT(window.list.m_columnWidths96.at(1), 70);
    EXPECT_EQ(window.list.m_columnWidths96.at(2), window.list.GetHeaderTextLength(2));
    EXPECT_EQ(window.list.InsertColumn(-1, &column), -1);
    EXPECT_EQ(window.list.m_columnWidths96.size(), 3u);
}

TEST(ListColumnEdgeCases, AMoveWithoutWayIsLeftToTheHeader)
{
    SubclassedList window;
    window.list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    const LeftButtonDown button;
    CDpiAwareHeaderCtrl& header = window.list.m_header;
    const int nEdge = window.list.GetColumnWidth(0) - 2;
    header.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(nEdge, 5));
    EXPECT_EQ(DraggedColumn(header), 0);
    int moves = 0;
    const ImportSpy<decltype(::CallWindowProcW)> procedure(
        FrameworkModule(), "user32.dll", "CallWindowProcW",
        [&](WNDPROC pfn, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        {
            moves += message == WM_MOUSEMOVE;
            return procedure.Original()(pfn, hWnd, message, wParam, lParam);
        });
    header.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(nEdge, 7));
    EXPECT_EQ(moves, 1);
    EXPECT_EQ(window.list.m_columnWidths96, (WidthRecord{{0, 100}}));
    header.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(nEdge, 7));
}

TEST(ListColumnEdgeCases, ADragEndsWithTheFirstMoveAfterTheRelease)
{
    SubclassedList window;
    window.parent.Window().Show();
    window.list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    CDpiAwareHeaderCtrl& header = window.list.m_header;
    const int nEdge = window.list.GetColumnWidth(0);
    Drag(OnScreen(header.m_hWnd, nEdge - 2, 5), OnScreen(header.m_hWnd, nEdge + 38, 5));
    EXPECT_EQ(window.list.GetColumnWidth(0), nEdge + 40);
    EXPECT_EQ(window.list.m_columnWidths96,
              (WidthRecord{{0, ::MulDiv(nEdge + 40, 96, static_cast<int>(TestDpi()))}}));
    MoveMouse(OnScreen(header.m_hWnd, nEdge + 50, 5));
    EXPECT_EQ(DraggedColumn(header), -1);
    EXPECT_EQ(window.list.GetColumnWidth(0), nEdge + 40);
}

TEST(ListColumnEdgeCases, APressElsewhereThanOnADividerStartsNoDrag)
{
    SubclassedList window;
    window.list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    CDpiAwareHeaderCtrl& header = window.list.m_header;
    header.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    EXPECT_EQ(DraggedColumn(header), -1);
    header.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
    header.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2000, 5));
    EXPECT_EQ(DraggedColumn(header), -1);
    header.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(2000, 5));
}

TEST(ListColumnEdgeCases, TheHeaderFollowsListsThatHaveItWhenTheyAreSubclassed)
{
    FrameworkWindow parent;
    OpenList made;
    ASSERT_TRUE(made.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 300, 100), parent.Object(), 1));
    EXPECT_EQ(made.GetHeaderCtrl(), &made.m_header);
    EXPECT_EQ(made.m_header.m_hWnd, nullptr);

    SubclassedList window;
    EXPECT_EQ(window.list.GetHeaderCtrl(), &window.list.m_header);
    EXPECT_EQ(window.list.m_header.m_hWnd, ListView_GetHeader(window.list.m_hWnd));
}

TEST(ListColumnEdgeCases, AnotherDpiIsFollowedThereAndBack)
{
    const DpiWindow monitors;
    OpenList list;
    list.SubclassWindow(MakeReportList(monitors.ParentOf(TestDpi())));
    list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    monitors.Move(list.m_hWnd, 96);
    EXPECT_EQ(list.GetColumnWidth(0), 100);
    monitors.Move(list.m_hWnd, TestDpi());
    EXPECT_EQ(list.GetColumnWidth(0), ::MulDiv(100, static_cast<int>(TestDpi()), 96));
    EXPECT_EQ(list.m_columnWidths96, (WidthRecord{{0, 100}}));
    list.DestroyWindow();
}

TEST(ListColumnEdgeCases, PressAndHoldIsEnabledWhereTheBaseDisablesIt)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the base's function is found by its GCC name";
#endif
    ULONG answer = 0;
    const ImportSpy<ULONG(CWnd*, CPoint)> base(VxDpiModule(), nullptr, "_ZN4CWnd16GetGestureStatusE6CPoint",
                                               [&](CWnd*, CPoint touch)
                                               {
                                                   EXPECT_EQ(touch, CPoint(3, 4));
                                                   return answer;
                                               });
    OpenListOf<CDPIAwareListCtrlW> list;
    answer = 0x00000001;
    EXPECT_EQ(list.GetGestureStatus(CPoint(3, 4)), 0x00000000u);
    answer = 0x00010001;
    EXPECT_EQ(list.GetGestureStatus(CPoint(3, 4)), 0x00010000u);
    OpenList plain;
    EXPECT_EQ(plain.GetGestureStatus(CPoint(3, 4)), 0x00000000u);
}

TEST(ListColumnEdgeCases, AListLeavesNothingBehind)
{
    FrameworkWindow parent;
    EXPECT_NO_LEAK(
        [&]
        {
            OpenList list;
            list.SubclassWindow(MakeReportList(parent.Handle()));
            list.InsertColumn(0, L"A heading", LVCFMT_LEFT, -1);
            list.SetColumnWidth(0, 50);
            list.DestroyWindow();
            CWnd::DeleteTempMap();
        });
}
