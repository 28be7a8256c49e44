#include "foundation/FrameworkWindow.h"
#include "foundation/LibraryModule.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/CallLog.h"
#include "support/Input.h"
#include "support/TestDpi.h"

#include <vxdpi/Controls.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <new>
#include <optional>
#include <string>

namespace
{
using WidthRecord = std::map<int, int>;
using Lines = CallLog::LineList;

class OpenHeader : public CDpiAwareHeaderCtrl
{
public:
    using CDpiAwareHeaderCtrl::GetThisMessageMap;
    using CDpiAwareHeaderCtrl::m_dragColumn;
    using CDpiAwareHeaderCtrl::m_lastPoint;
    using CDpiAwareHeaderCtrl::m_parentList;
    using CDpiAwareHeaderCtrl::OnMouseMove;
};

class OpenList : public CDPIAwareListCtrl
{
public:
    using CDPIAwareListCtrl::GetHeaderTextLength;
    using CDPIAwareListCtrl::GetThisMessageMap;
    using CDPIAwareListCtrl::m_columnWidths96;
    using CDPIAwareListCtrl::m_header;
    using CDPIAwareListCtrl::OnDPIChangedAfterParent;
    using CDPIAwareListCtrl::PreSubclassWindow;
    using CDPIAwareListCtrl::UpdateColumnWidth;
};

HWND MakeReportList(HWND parent)
{
    return ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 380, 200,
                             parent, nullptr, nullptr, nullptr);
}

class ListColumns : public testing::Test
{
protected:
    ListColumns() { m_list.SubclassWindow(MakeReportList(m_parent.Handle())); }

    CDpiAwareHeaderCtrl& Header() { return m_list.m_header; }
    int& DragColumn() { return Header().*&OpenHeader::m_dragColumn; }
    CPoint& LastPoint() { return Header().*&OpenHeader::m_lastPoint; }
    CListCtrl*& ParentList() { return Header().*&OpenHeader::m_parentList; }

    void Move(int x, int y) { Header().SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y)); }

    FrameworkWindow m_parent;
    OpenList m_list;
};

// What the library sends to windows and asks about them, in its order. An answer of the test's own replaces
// the list's.
class ListCalls
{
public:
    explicit ListCalls(HWND list)
        : m_dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                [this](HWND)
                {
                    m_log.Write("DPI");
                    return 144u;
                }),
          m_send(VxDpiModule(), "user32.dll", "SendMessageW",
                 [this, list](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT
                 {
                     EXPECT_EQ(hWnd, list);
                     m_log.Write(Describe(message, wParam, lParam));
                     if (message == m_answered && m_answer)
                         return *m_answer;
                     return m_send.Original()(hWnd, message, wParam, lParam);
                 })
    {
    }

    void Answer(UINT message, LRESULT answer)
    {
        m_answered = message;
        m_answer = answer;
    }

    const Lines& Log() const { return m_log.Lines(); }

private:
    static std::string Describe(UINT message, WPARAM wParam, LPARAM lParam)
    {
        const std::string column = std::to_string(static_cast<int>(wParam));
        switch (message)
        {
        case LVM_INSERTCOLUMNW:
            return "insert " + column;
        case LVM_SETCOLUMNWIDTH:
            return "set " + column + " to " + std::to_string(lParam);
        case LVM_GETCOLUMNWIDTH:
            return "width of " + column;
        case LVM_GETCOLUMNW:
        {
            const auto& asked = *reinterpret_cast<const LVCOLUMNW*>(lParam);
            return "heading of " + column + ", mask " + std::to_string(asked.mask) + ", room for " +
                   std::to_string(asked.cchTextMax);
        }
        case WM_GETFONT:
            return "font";
        default:
            return "message " + std::to_string(message);
        }
    }

    CallLog m_log;
    UINT m_answered = 0;
    std::optional<LRESULT> m_answer;
    ImportSpy<decltype(::GetDpiForWindow)> m_dpi;
    ImportSpy<decltype(::SendMessageW)> m_send;
};

LVCOLUMNW Column(UINT mask, int cx)
{
    static wchar_t heading[] = L"A heading";
    LVCOLUMNW column = {};
    column.mask = mask;
    column.pszText = heading;
    column.cx = cx;
    return column;
}

class LeftButton : public ImportSpy<decltype(::GetAsyncKeyState)>
{
public:
    explicit LeftButton(int state)
        : ImportSpy(VxDpiModule(), "user32.dll", "GetAsyncKeyState",
                    [state](int key)
                    {
                        EXPECT_EQ(key, VK_LBUTTON);
                        return static_cast<SHORT>(state);
                    })
    {
    }
};

constexpr int kDown = 0x8000;
constexpr int kPressedSinceLastAsked = 0x0001;

// The moves that reach the window procedure that the header had before.
class DefaultMoves
{
public:
    DefaultMoves()
        : m_procedure(FrameworkModule(), "user32.dll", "CallWindowProcW",
                      [this](WNDPROC pfn, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                      {
                          m_count += message == WM_MOUSEMOVE;
                          return m_procedure.Original()(pfn, hWnd, message, wParam, lParam);
                      })
    {
    }

    int Count() const { return m_count; }

private:
    int m_count = 0;
    ImportSpy<decltype(::CallWindowProcW)> m_procedure;
};

#if defined(__MINGW32__)
std::vector<UINT> MessagesOf(const AFX_MSGMAP& map)
{
    std::vector<UINT> messages;
    for (const AFX_MSGMAP_ENTRY* pEntry = map.pEntries; pEntry->pfnInvoke; ++pEntry)
        messages.push_back(pEntry->nMessage);
    return messages;
}
#endif
}

TEST_F(ListColumns, AGivenWidthIsRecordedAndThenAllAreApplied)
{
    m_list.m_columnWidths96 = {{3, 20}};
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, 100);
    const ListCalls calls(m_list.m_hWnd);
    EXPECT_EQ(m_list.InsertColumn(0, &column), 0);
    EXPECT_EQ(calls.Log(), (Lines{"insert 0", "DPI", "set 0 to 150", "DPI", "set 3 to 30", "DPI"}));
}

TEST_F(ListColumns, AWidthOfZeroIsGiven)
{
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, 0);
    EXPECT_EQ(m_list.InsertColumn(0, &column), 0);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{0, 0}}));
    EXPECT_EQ(m_list.InsertColumn(1, L"B", LVCFMT_LEFT, 0), 1);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{0, 0}, {1, 0}}));
}

TEST_F(ListColumns, WithoutAWidthInTheRecordTheHeadingIsMeasuredAndTheListNotAsked)
{
    const LVCOLUMNW column = Column(LVCF_TEXT, 100);
    const ListCalls calls(m_list.m_hWnd);
    m_list.InsertColumn(0, &column);
    const int width96 = m_list.m_columnWidths96.at(0);
    ASSERT_GE(calls.Log().size(), 4u);
    EXPECT_EQ(Lines(calls.Log().begin(), calls.Log().begin() + 4),
              (Lines{"insert 0", "DPI", "heading of 0, mask 4, room for 256", "font"}));
    EXPECT_NE(width96, 100);
    EXPECT_GT(width96, 10);
}

TEST_F(ListColumns, ANegativeWidthIsTakenAsTheListReadsIt)
{
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, -1);
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_GETCOLUMNWIDTH, 1);
    m_list.InsertColumn(0, &column);
    EXPECT_EQ(calls.Log(), (Lines{"insert 0", "width of 0", "DPI", "set 0 to 2", "DPI"}));
}

TEST_F(ListColumns, AWidthThatTheListReadsAsZeroIsReplacedByTheHeadings)
{
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, -1);
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_GETCOLUMNWIDTH, 0);
    m_list.InsertColumn(0, &column);
    ASSERT_GE(calls.Log().size(), 5u);
    EXPECT_EQ(Lines(calls.Log().begin(), calls.Log().begin() + 5),
              (Lines{"insert 0", "width of 0", "DPI", "heading of 0, mask 4, room for 256", "font"}));
    EXPECT_GT(m_list.m_columnWidths96.at(0), 10);
}

TEST_F(ListColumns, NothingFollowsARefusedColumn)
{
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, 100);
    const ListCalls calls(m_list.m_hWnd);
    EXPECT_EQ(m_list.InsertColumn(-7, &column), -1);
    EXPECT_EQ(calls.Log(), (Lines{"insert -7"}));
    EXPECT_EQ(m_list.InsertColumn(-7, L"A", LVCFMT_LEFT, 100), -1);
    EXPECT_EQ(calls.Log().size(), 1u);
    EXPECT_TRUE(m_list.m_columnWidths96.empty());
}

TEST_F(ListColumns, ARefusalIsAnsweredAsTheListWordsIt)
{
    const LVCOLUMNW column = Column(LVCF_TEXT | LVCF_WIDTH, 100);
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_INSERTCOLUMNW, -2);
    EXPECT_EQ(m_list.InsertColumn(0, &column), -2);
    EXPECT_EQ(calls.Log(), (Lines{"insert 0"}));
    const ImportSpy<decltype(::SendMessageW)> list(
        FrameworkModule(), "user32.dll", "SendMessageW",
        [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        { return message == LVM_INSERTCOLUMNW ? -3 : list.Original()(hWnd, message, wParam, lParam); });
    EXPECT_EQ(m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100), -3);
    EXPECT_TRUE(m_list.m_columnWidths96.empty());
}

TEST_F(ListColumns, WithoutAColumnTheListsAnswerIsPassedOnAndNothingRecorded)
{
    const LVCOLUMNW* const none = nullptr;
    const LRESULT own = ::SendMessageW(m_list.m_hWnd, LVM_INSERTCOLUMNW, 0, 0);
    EXPECT_EQ(m_list.InsertColumn(0, none), own);
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_INSERTCOLUMNW, 3);
    EXPECT_EQ(m_list.InsertColumn(5, none), 3);
    EXPECT_EQ(calls.Log(), (Lines{"insert 5"}));
    EXPECT_TRUE(m_list.m_columnWidths96.empty());
}

TEST_F(ListColumns, WithoutAColumnAListWithoutAWindowAnswersZeroAndRecordsNothing)
{
    OpenList list;
    const LVCOLUMNW* const none = nullptr;
    EXPECT_EQ(list.InsertColumn(0, none), 0);
    EXPECT_TRUE(list.m_columnWidths96.empty());
}

// The list appends a column whose index is too large, and has none at that index.
TEST_F(ListColumns, TheIndexThatWasAskedForIsMeasuredAndRecorded)
{
    const LVCOLUMNW given = Column(LVCF_TEXT | LVCF_WIDTH, 70);
    EXPECT_EQ(m_list.InsertColumn(5, &given), 0);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{5, 70}}));

    const LVCOLUMNW untold = Column(LVCF_TEXT, 0);
    const LVCOLUMNW negative = Column(LVCF_TEXT | LVCF_WIDTH, -2);
    const auto questions = [this](auto insert)
    {
        m_list.m_columnWidths96.clear();
        const ListCalls calls(m_list.m_hWnd);
        insert();
        Lines lines;
        for (const std::string& line : calls.Log())
        {
            if (line.find(" of ") != std::string::npos)
                lines.push_back(line);
        }
        return lines;
    };
    const std::string heading = "heading of 7, mask 4, room for 256";
    EXPECT_EQ(questions([&] { m_list.InsertColumn(7, &untold); }), (Lines{heading}));
    EXPECT_EQ(questions([&] { m_list.InsertColumn(7, &negative); }), (Lines{"width of 7", heading}));
    EXPECT_EQ(questions([&] { m_list.InsertColumn(7, L"A", LVCFMT_LEFT, -2); }),
              (Lines{"width of 7", heading}));
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{7, 0}}));
}

TEST_F(ListColumns, TheTextFormHandsAllItsArgumentsOn)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 10);
    m_list.InsertColumn(1, L"A heading", LVCFMT_RIGHT, 40, 7);
    wchar_t text[32] = {};
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
    column.pszText = text;
    column.cchTextMax = 32;
    ASSERT_TRUE(m_list.GetColumn(1, &column));
    EXPECT_STREQ(text, L"A heading");
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(column.iSubItem, 7);
}

TEST_F(ListColumns, ASetWidthIsSentInSixteenBitsAndRecordedWhole)
{
    const ListCalls calls(m_list.m_hWnd);
    m_list.SetColumnWidth(2, 0x12345);
    EXPECT_EQ(calls.Log(), (Lines{"set 2 to 9029", "DPI"}));
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{2, 49710}}));
}

TEST_F(ListColumns, ARefusedWidthIsRecordedUnlessTheAnswerIsMinusOne)
{
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_SETCOLUMNWIDTH, 0);
    EXPECT_EQ(m_list.SetColumnWidth(2, 150), 0);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{2, 100}}));
    calls.Answer(LVM_SETCOLUMNWIDTH, -2);
    EXPECT_EQ(m_list.SetColumnWidth(3, 150), -2);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{2, 100}, {3, 100}}));
    calls.Answer(LVM_SETCOLUMNWIDTH, -1);
    EXPECT_EQ(m_list.SetColumnWidth(2, 300), -1);
    EXPECT_EQ(m_list.SetColumnWidth(4, 300), -1);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{2, 100}, {3, 100}}));
}

TEST_F(ListColumns, AChangeOfDpiAppliesTheRecordsInAscendingOrderAndRecordsThemAgain)
{
    m_list.m_columnWidths96 = {{4, 33}, {0, 10}, {2, 0x7FFFFFFF}};
    const ListCalls calls(m_list.m_hWnd);
    EXPECT_EQ(m_list.OnDPIChangedAfterParent(1, 2), 0);
    EXPECT_EQ(calls.Log(),
              (Lines{"DPI", "set 0 to 15", "DPI", "set 2 to 65535", "DPI", "set 4 to 50", "DPI"}));
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{0, 10}, {2, 0x7FFFFFFF}, {4, 33}}));
}

TEST_F(ListColumns, AChangeOfDpiIsKeptFromTheListItself)
{
    int reached = 0;
    const ImportSpy<decltype(::CallWindowProcW)> procedure(
        FrameworkModule(), "user32.dll", "CallWindowProcW",
        [&](WNDPROC pfn, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        {
            reached += message == WM_DPICHANGED_AFTERPARENT;
            return procedure.Original()(pfn, hWnd, message, wParam, lParam);
        });
    EXPECT_EQ(m_list.SendMessage(WM_DPICHANGED_AFTERPARENT, 0, 0), 0);
    EXPECT_EQ(reached, 0);
}

TEST_F(ListColumns, WithoutRecordsNothingIsAsked)
{
    const ListCalls calls(m_list.m_hWnd);
    m_list.UpdateColumnWidth();
    EXPECT_TRUE(calls.Log().empty());
}

TEST_F(ListColumns, TheHeadingIsMeasuredInTheFontOfTheListAndTheContextLeftAsItWas)
{
    m_list.InsertColumn(0, L"A heading", LVCFMT_LEFT, 40);
    LOGFONTW description = {};
    description.lfHeight = -40;
    const HFONT hFont = ::CreateFontIndirectW(&description);
    m_list.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);
    const WindowDpiAnswer dpi(192);
    CallLog log;
    log.Name(hFont, "font");
    {
        const RecordCalls<decltype(::SelectObject)> select(log, VxDpiModule(), "gdi32.dll", "SelectObject");
        const ImportSpy<decltype(::GetTextExtentPoint32W)> extent(
            VxDpiModule(), "gdi32.dll", "GetTextExtentPoint32W",
            [&](HDC, LPCWSTR text, int length, LPSIZE pSize) -> BOOL
            {
                log.WriteCall("GetTextExtentPoint32W", text, length);
                pSize->cx = 203;
                return TRUE;
            });
        EXPECT_EQ(m_list.GetHeaderTextLength(0), 102); // 203 pixels at twice the base
    }
    ASSERT_EQ(log.Lines().size(), 3u);
    EXPECT_EQ(log.Lines()[0].substr(log.Lines()[0].find(',')), ", font)");
    EXPECT_EQ(log.Lines()[1], "GetTextExtentPoint32W(\"A heading\", 9)");
    EXPECT_NE(log.Lines()[2].substr(log.Lines()[2].find(',')), ", font)");
    EXPECT_EQ(m_list.GetHeaderTextLength(9), 0);
    m_list.SendMessage(WM_SETFONT, 0, FALSE);
    ::DeleteObject(hFont);
}

TEST_F(ListColumns, AHeadingThatLeavesNoRoomForItsEndIsMeasuredWhole)
{
    const ImportSpy<decltype(::SendMessageW)> list(
        VxDpiModule(), "user32.dll", "SendMessageW",
        [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT
        {
            if (message != LVM_GETCOLUMNW)
                return list.Original()(hWnd, message, wParam, lParam);
            const auto& asked = *reinterpret_cast<const LVCOLUMNW*>(lParam);
            EXPECT_EQ(asked.fmt, 0);
            EXPECT_EQ(asked.cx, 0);
            EXPECT_EQ(asked.iSubItem, 0);
            EXPECT_EQ(asked.iOrder, 0);
            std::fill_n(asked.pszText, asked.cchTextMax, L'w');
            return TRUE;
        });
    int length = 0;
    const ImportSpy<decltype(::GetTextExtentPoint32W)> extent(VxDpiModule(), "gdi32.dll",
                                                              "GetTextExtentPoint32W",
                                                              [&](HDC, LPCWSTR, int count, LPSIZE) -> BOOL
                                                              {
                                                                  length = count;
                                                                  return TRUE;
                                                              });
    m_list.GetHeaderTextLength(0);
    EXPECT_EQ(length, 256);
}

TEST_F(ListColumns, TheDpiIsThatOfTheListAndNotOfItsParent)
{
    m_list.InsertColumn(0, L"A heading", LVCFMT_LEFT, 40);
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                                                     [&](HWND hWnd)
                                                     {
                                                         EXPECT_EQ(hWnd, m_list.m_hWnd);
                                                         return 192u;
                                                     });
    const int inPixels = 2 * m_list.GetHeaderTextLength(0);
    m_list.SetColumnWidth(0, inPixels);
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{0, inPixels / 2}}));
    m_list.UpdateColumnWidth();
    EXPECT_EQ(m_list.GetColumnWidth(0), inPixels);
    EXPECT_EQ(dpi.CallCount(), 4);
}

TEST_F(ListColumns, TheMapsHaveTheseEntriesAndNoOthers)
{
#if defined(__MINGW32__)
    EXPECT_EQ(MessagesOf(*OpenList::GetThisMessageMap()),
              (std::vector<UINT>{0x02E3, 0x0201, 0x0200, 0x0202, 0x0020}));
    EXPECT_EQ(MessagesOf(*OpenHeader::GetThisMessageMap()), (std::vector<UINT>{0x0201, 0x0200}));
#else
    GTEST_SKIP() << "the tables of another framework than the subset are its own affair";
#endif
}

TEST_F(ListColumns, WithoutAWindowTheWidthsStayAsTheyAre)
{
    OpenList list;
    list.m_columnWidths96 = {{0, 100}};
    list.UpdateColumnWidth();
    EXPECT_EQ(list.m_columnWidths96, (WidthRecord{{0, 100}}));
    EXPECT_EQ(list.GetHeaderTextLength(0), 0);
}

TEST_F(ListColumns, TheHeaderIsTakenAfterTheBaseIsPreparedWhateverComesOfIt)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the base's functions are found by their GCC names";
#endif
    OpenList list;
    CListCtrl*& parentList = list.m_header.*&OpenHeader::m_parentList;
    CallLog log;
    const ImportSpy<void(CWnd*)> base(VxDpiModule(), nullptr, "_ZN4CWnd17PreSubclassWindowEv",
                                      [&](CWnd* pWnd)
                                      {
                                          EXPECT_EQ(pWnd, &list);
                                          log.Write("prepare");
                                      });
    const ImportSpy<BOOL(CWnd*, HWND)> subclass(VxDpiModule(), nullptr, "_ZN4CWnd14SubclassWindowEP6HWND__",
                                                [&](CWnd* pWnd, HWND hWnd)
                                                {
                                                    EXPECT_EQ(pWnd, &list.m_header);
                                                    EXPECT_EQ(hWnd, ListView_GetHeader(list.m_hWnd));
                                                    EXPECT_EQ(parentList, nullptr);
                                                    log.Write("take the header");
                                                    return FALSE;
                                                });
    list.PreSubclassWindow();
    EXPECT_EQ(log.Lines(), Lines{});
    list.m_hWnd = MakeReportList(m_parent.Handle());
    list.PreSubclassWindow();
    ::DestroyWindow(list.m_hWnd);
    list.m_hWnd = nullptr;
    EXPECT_EQ(log.Lines(), (Lines{"prepare", "take the header"}));
    EXPECT_EQ(parentList, &list);
}

TEST_F(ListColumns, TheHeaderKnowsItsList)
{
    EXPECT_EQ(ParentList(), &m_list);
    EXPECT_EQ(DragColumn(), -1);
    EXPECT_EQ(LastPoint(), CPoint(0, 0));
    OpenHeader alone;
    EXPECT_EQ(alone.m_parentList, nullptr);
    alone.m_dragColumn = 4;
    alone.m_lastPoint = CPoint(5, 6);
    alone.SetParentListCtrl(&m_list);
    EXPECT_EQ(alone.m_parentList, &m_list);
    EXPECT_EQ(alone.m_dragColumn, 4);
    EXPECT_EQ(alone.m_lastPoint, CPoint(5, 6));
}

TEST_F(ListColumns, AHeaderForgetsItsListAtItsEnd)
{
    alignas(CDpiAwareHeaderCtrl) unsigned char memory[sizeof(CDpiAwareHeaderCtrl)];
    auto* const pHeader = new (memory) CDpiAwareHeaderCtrl;
    pHeader->SetParentListCtrl(&m_list);
    const auto* const field = reinterpret_cast<const unsigned char*>(&(pHeader->*&OpenHeader::m_parentList));
    const std::ptrdiff_t offset = field - memory;
    CListCtrl* pList = nullptr;
    std::memcpy(&pList, memory + offset, sizeof pList);
    EXPECT_EQ(pList, &m_list);
    pHeader->~CDpiAwareHeaderCtrl();
    std::memcpy(&pList, memory + offset, sizeof pList);
    EXPECT_EQ(pList, nullptr);
}

TEST_F(ListColumns, APressIsTheHeadersBeforeItsPlaceIsAsked)
{
    CallLog log;
    const ImportSpy<decltype(::CallWindowProcW)> procedure(
        FrameworkModule(), "user32.dll", "CallWindowProcW",
        [&](WNDPROC pfn, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_LBUTTONDOWN)
                log.Write("default");
            return procedure.Original()(pfn, hWnd, message, wParam, lParam);
        });
    const ImportSpy<decltype(::SendMessageW)> send(VxDpiModule(), "user32.dll", "SendMessageW",
                                                   [&](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                                                   {
                                                       if (message == HDM_HITTEST)
                                                           log.Write("hit test");
                                                       return send.Original()(hWnd, message, wParam, lParam);
                                                   });
    Header().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    EXPECT_EQ(log.Lines(), (Lines{"default", "hit test"}));
    Header().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
}

TEST_F(ListColumns, APressOnADividerIsFollowedFromItsPoint)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    const int edge = m_list.GetColumnWidth(0) - 2;
    DragColumn() = 5;
    LastPoint() = CPoint(1, 1);
    Header().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    EXPECT_EQ(DragColumn(), 5);
    EXPECT_EQ(LastPoint(), CPoint(1, 1));
    Header().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
    Header().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge, 5));
    EXPECT_EQ(DragColumn(), 0);
    EXPECT_EQ(LastPoint(), CPoint(edge, 5));
    Header().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(edge, 5));
}

TEST_F(ListColumns, OnlyAHitOnTheDividerOfAColumnIsFollowed)
{
    struct Hit
    {
        int column;
        UINT flags;
        int followed;
    };
    for (const Hit hit :
         {Hit{1, HHT_ONDIVOPEN, -1}, Hit{1, HHT_ONHEADER, -1}, Hit{-1, HHT_ONDIVIDER, -1},
          Hit{-2, HHT_ONDIVIDER, -1}, Hit{0, HHT_ONDIVIDER, 0}, Hit{1, HHT_ONDIVIDER | HHT_ONDIVOPEN, 1}})
    {
        const ImportSpy<decltype(::SendMessageW)> test(
            VxDpiModule(), "user32.dll", "SendMessageW",
            [&](HWND hWnd, UINT message, WPARAM, LPARAM lParam) -> LRESULT
            {
                EXPECT_EQ(hWnd, Header().m_hWnd);
                EXPECT_EQ(message, static_cast<UINT>(HDM_HITTEST));
                auto& asked = *reinterpret_cast<HDHITTESTINFO*>(lParam);
                EXPECT_EQ(CPoint(asked.pt), CPoint(20, 5));
                asked.flags = hit.flags;
                return hit.column;
            });
        DragColumn() = -1;
        Header().SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
        EXPECT_EQ(DragColumn(), hit.followed) << hit.column << ", " << hit.flags;
        Header().SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
    }
}

TEST_F(ListColumns, AMoveWidensTheColumnByItsWayAndIsThenTheHeaders)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    const int width = m_list.GetColumnWidth(0);
    DragColumn() = 0;
    LastPoint() = CPoint(50, 3);
    const LeftButton button(kDown);
    const DefaultMoves moves;
    Move(43, 9);
    EXPECT_EQ(m_list.GetColumnWidth(0), width - 7);
    EXPECT_EQ(LastPoint(), CPoint(43, 9));
    EXPECT_EQ(DragColumn(), 0);
    EXPECT_EQ(moves.Count(), 1);
}

TEST_F(ListColumns, AVerticalMoveKeepsThePoint)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    DragColumn() = 0;
    LastPoint() = CPoint(50, 3);
    const LeftButton button(kDown);
    const DefaultMoves moves;
    Move(50, 9);
    EXPECT_EQ(LastPoint(), CPoint(50, 3));
    EXPECT_EQ(DragColumn(), 0);
    EXPECT_EQ(moves.Count(), 1);
}

TEST_F(ListColumns, OnlyAButtonThatIsDownNowDrags)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    const int width = m_list.GetColumnWidth(0);
    DragColumn() = 0;
    const LeftButton button(kPressedSinceLastAsked);
    const DefaultMoves moves;
    Move(50, 5);
    EXPECT_EQ(DragColumn(), -1);
    EXPECT_EQ(m_list.GetColumnWidth(0), width);
    EXPECT_EQ(moves.Count(), 1);
}

TEST_F(ListColumns, WithoutAListTheDragEnds)
{
    const LeftButton button(kDown);
    const DefaultMoves moves;
    DragColumn() = 0;
    ParentList() = nullptr;
    Move(50, 5);
    EXPECT_EQ(DragColumn(), -1);
    EXPECT_EQ(moves.Count(), 1);
    EXPECT_EQ(button.CallCount(), 0);
}

TEST_F(ListColumns, WithoutADragTheButtonIsNotAsked)
{
    const LeftButton button(kDown);
    const DefaultMoves moves;
    DragColumn() = -3;
    Move(50, 5);
    EXPECT_EQ(DragColumn(), -1);
    EXPECT_EQ(button.CallCount(), 0);
    EXPECT_EQ(moves.Count(), 1);
}

TEST_F(ListColumns, WithADeadListTheDragEnds)
{
    const LeftButton button(kDown);
    const DefaultMoves moves;
    OpenList dead;
    const HWND hDead = MakeReportList(m_parent.Handle());
    ::DestroyWindow(hDead);
    for (const HWND hWnd : {HWND(), hDead})
    {
        dead.m_hWnd = hWnd;
        DragColumn() = 0;
        ParentList() = &dead;
        Move(50, 5);
        EXPECT_EQ(DragColumn(), -1);
    }
    dead.m_hWnd = nullptr;
    EXPECT_TRUE(dead.m_columnWidths96.empty());
    EXPECT_EQ(button.CallCount(), 2);
    EXPECT_EQ(moves.Count(), 2);
}

TEST_F(ListColumns, AnotherKindOfListEndsTheDragAndKeepsItsWidth)
{
    CListCtrl other;
    other.SubclassWindow(MakeReportList(m_parent.Handle()));
    other.InsertColumn(0, L"A", LVCFMT_LEFT, 60);
    const LeftButton button(kDown);
    const DefaultMoves moves;
    DragColumn() = 0;
    ParentList() = &other;
    Move(50, 5);
    EXPECT_EQ(DragColumn(), -1);
    EXPECT_EQ(LastPoint(), CPoint(0, 0));
    EXPECT_EQ(other.GetColumnWidth(0), 60);
    EXPECT_EQ(moves.Count(), 1);
    other.DestroyWindow();
}

TEST_F(ListColumns, AMoveWithoutAWidthIsKeptFromTheHeader)
{
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    const LeftButton button(kDown);
    DragColumn() = 0;
    const DefaultMoves moves;
    {
        ListCalls calls(m_list.m_hWnd);
        calls.Answer(LVM_GETCOLUMNWIDTH, -1);
        Move(50, 5);
        EXPECT_EQ(calls.Log(), (Lines{"width of 0"}));
    }
    EXPECT_EQ(moves.Count(), 0);
    EXPECT_EQ(DragColumn(), 0);
    EXPECT_EQ(LastPoint(), CPoint(0, 0));
    ListCalls calls(m_list.m_hWnd);
    calls.Answer(LVM_GETCOLUMNWIDTH, 0); // not negative: a width like any other
    Move(50, 5);
    EXPECT_EQ(calls.Log(), (Lines{"width of 0", "set 0 to 50", "DPI"}));
}

TEST_F(ListColumns, ARealDragAndAChangeOfDpiKeepTheProportion)
{
    m_parent.Window().Show();
    m_list.InsertColumn(0, L"A", LVCFMT_LEFT, 40);
    m_list.InsertColumn(1, L"B", LVCFMT_LEFT, 80);
    const int edge = m_list.GetColumnWidth(0) + m_list.GetColumnWidth(1);
    Drag(OnScreen(Header().m_hWnd, edge - 2, 5), OnScreen(Header().m_hWnd, edge + 58, 5));
    const int dragged = m_list.GetColumnWidth(1);
    EXPECT_GT(dragged, ::MulDiv(80, static_cast<int>(TestDpi()), 96) + 40);
    const int dragged96 = ::MulDiv(dragged, 96, static_cast<int>(TestDpi()));
    EXPECT_EQ(m_list.m_columnWidths96, (WidthRecord{{0, 40}, {1, dragged96}}));
    const WindowDpiAnswer dpi(240);
    m_list.SendMessage(WM_DPICHANGED_AFTERPARENT, 0, 0);
    EXPECT_EQ(m_list.GetColumnWidth(0), 100);
    EXPECT_EQ(m_list.GetColumnWidth(1), ::MulDiv(dragged96, 240, 96));
}
