#include "abi/FieldAccess.h"
#include "foundation/FrameworkWindow.h"
#include "foundation/WindowDpiAnswer.h"
#include "layout/LayoutFixtures.h"
#include "support/CallLog.h"

#include <vxdpi/ScrollFrame.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

// The manager's own question about its bars, which it answers for controls, too.
struct ScrollBarQuery
{
    friend constexpr auto FieldsOf(ScrollBarQuery);
};
template struct Reveal<ScrollBarQuery, &CScrollManager::IsScrollBarVisible>;

namespace
{
// The fields of a manager in their order.
struct Fields
{
    int contentWidth, contentHeight, hPos, vPos, hPage, vPage, lineStep, hMax, vMax, reapplyOffset;
    UINT_PTR dpi;
    CWnd* pWnd;
    CScrollManager::Modal modal;
    CScrollBar* pHScrollBar;
    CScrollBar* pVScrollBar;
};

static_assert(sizeof(CScrollManager) == sizeof(Fields));

Fields FieldsOf(const CScrollManager& manager)
{
    Fields fields = {};
    std::memcpy(&fields, &manager, sizeof fields);
    return fields;
}

BOOL IsScrollBarVisible(CScrollManager& manager, int nBar)
{
    return (manager.*std::get<0>(FieldsOf(ScrollBarQuery())))(nBar);
}

using Axis = std::array<int, 4>; // content, position, page, maximum

Axis HorizontalOf(const CScrollManager& manager)
{
    const Fields fields = FieldsOf(manager);
    return {fields.contentWidth, fields.hPos, fields.hPage, fields.hMax};
}

Axis VerticalOf(const CScrollManager& manager)
{
    const Fields fields = FieldsOf(manager);
    return {fields.contentHeight, fields.vPos, fields.vPage, fields.vMax};
}

// A target of 200 x 150 pixels with one child, and two bars beside it.
struct ScrolledWindow
{
    explicit ScrolledWindow(SIZE content = {300, 200})
    {
        pChild = target.AddChild(1, {10, 20, 10 + content.cx, 20 + content.cy});
        hBar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(0, 280, 200, 300), owner.Window(), 2);
        vBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, CRect(380, 0, 400, 200), owner.Window(), 3);
    }

    void Create(CScrollManager::Modal modal, int reapplyOffset = 0)
    {
        EXPECT_TRUE(manager.Create(target.Window(), modal, &hBar, &vBar, reapplyOffset));
    }

    void Show()
    {
        ::ShowWindow(owner.Handle(), SW_SHOWNA);
        ::ShowWindow(target.Handle(), SW_SHOWNA);
    }

    CPoint ChildPlace() const
    {
        const EdgeList place = target.PlaceOf(pChild);
        return CPoint(place[0], place[1]);
    }

    LayoutParent owner;
    LayoutParent target{200, 150};
    CWnd* pChild = nullptr;
    CScrollBar hBar;
    CScrollBar vBar;
    CScrollManager manager;
};

// A target that updates its own bars whenever its size changes, as it does when a bar comes up. Its child is
// laid out anew before, or stays where it was scrolled to.
class SelfUpdatingWindow
{
public:
    explicit SelfUpdatingWindow(bool laysOut) : m_laysOut(laysOut)
    {
        m_window.Window().OnMessage([this](UINT message, WPARAM, LPARAM lParam)
                                    { return OnMessage(message, lParam); });
        m_child = ::CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE, 10, kTop, 300, 200,
                                    m_window.Handle(), nullptr, nullptr, nullptr);
        EXPECT_TRUE(m_manager.Create(m_window.Object(), CScrollManager::WindowScrollBars, nullptr, nullptr,
                                     laysOut ? 1 : 0));
        m_window.Window().Show();
    }

    void Resize(int width, int height)
    {
        m_tops.clear();
        ::SetWindowPos(m_window.Handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOMOVE);
    }

    void ScrollDownTo(UINT_PTR position) { m_manager.StartVScroll(SB_THUMBTRACK, position, nullptr); }

    // Where the child was after each update since the last resizing, in the order of their ends.
    const std::vector<LONG>& Tops() const { return m_tops; }

private:
    std::optional<LRESULT> OnMessage(UINT message, LPARAM lParam)
    {
        if (message != WM_SIZE || !m_child)
            return std::nullopt;
        if (m_laysOut)
            ::SetWindowPos(m_child, nullptr, 10, kTop, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
        m_manager.UpdateScrollBars(LOWORD(lParam), HIWORD(lParam));
        m_tops.push_back(PlaceIn(m_window.Handle(), m_child)[1]);
        return 0;
    }

    static constexpr int kTop = 20;

    bool m_laysOut;
    FrameworkWindow m_window{WS_POPUP};
    HWND m_child = nullptr;
    CScrollManager m_manager;
    std::vector<LONG> m_tops;
};

SCROLLINFO InfoOf(CScrollBar& bar)
{
    SCROLLINFO info = {};
    bar.GetScrollInfo(&info, SIF_ALL);
    return info;
}
}

TEST(ScrollManagerEdgeCases, StartsWithoutAnything)
{
    const CScrollManager manager;
    const Fields fields = FieldsOf(manager);
    EXPECT_EQ(HorizontalOf(manager), (Axis{0, 0, 0, 0}));
    EXPECT_EQ(VerticalOf(manager), (Axis{0, 0, 0, 0}));
    EXPECT_EQ(fields.lineStep, 8);
    EXPECT_EQ(fields.reapplyOffset, 0);
    EXPECT_EQ(fields.dpi, 0u);
    EXPECT_EQ(fields.pWnd, nullptr);
    EXPECT_EQ(fields.modal, CScrollManager::WindowScrollBars);
    EXPECT_EQ(fields.pHScrollBar, nullptr);
    EXPECT_EQ(fields.pVScrollBar, nullptr);
}

TEST(ScrollManagerEdgeCases, IsNotCreatedWithoutAWindow)
{
    ScrolledWindow window;
    CWnd none;
    CScrollManager manager;
    EXPECT_FALSE(manager.Create(nullptr, CScrollManager::ScrollBarControls, &window.hBar, &window.vBar, 1));
    EXPECT_FALSE(manager.Create(&none, CScrollManager::ScrollBarControls, &window.hBar, &window.vBar, 1));
    EXPECT_EQ(FieldsOf(manager).pWnd, nullptr);
    EXPECT_EQ(FieldsOf(manager).pHScrollBar, nullptr);
    EXPECT_EQ(FieldsOf(manager).reapplyOffset, 0);
    manager.UpdateScrollBars(100, 100);
    manager.StartHScroll(SB_LINEDOWN, 0, &window.hBar);
    EXPECT_EQ(HorizontalOf(manager), (Axis{0, 0, 0, 0}));
}

TEST(ScrollManagerEdgeCases, ABarIsShownForOnePixelThatDoesNotFit)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(320, 220);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 0, 0}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 0, 0}));
    EXPECT_FALSE(window.hBar.GetStyle() & WS_VISIBLE);
    EXPECT_FALSE(window.vBar.GetStyle() & WS_VISIBLE);

    window.manager.UpdateScrollBars(319, 220);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 319, 319}));
    EXPECT_TRUE(window.hBar.GetStyle() & WS_VISIBLE);
    EXPECT_FALSE(window.vBar.GetStyle() & WS_VISIBLE);
    const SCROLLINFO info = InfoOf(window.hBar);
    EXPECT_EQ(info.nMin, 0);
    EXPECT_EQ(info.nMax, 319);
    EXPECT_EQ(info.nPage, 319u);
}

TEST(ScrollManagerEdgeCases, TheMarginFollowsTheDpi)
{
    const WindowDpiAnswer dpi(144);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(100, 100);
    EXPECT_EQ(FieldsOf(window.manager).contentWidth, 330);
    EXPECT_EQ(FieldsOf(window.manager).contentHeight, 230);
    EXPECT_EQ(FieldsOf(window.manager).dpi, 144u);
}

TEST(ScrollManagerEdgeCases, ThePositionKeepsItsProportionAtAnotherDpi)
{
    ScrolledWindow window({480, 480});
    window.Show();
    window.Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(96);
        window.manager.UpdateScrollBars(200, 200);
        window.manager.StartHScroll(SB_THUMBTRACK, 100, &window.hBar);
        ASSERT_EQ(HorizontalOf(window.manager), (Axis{500, 100, 200, 499}));
    }
    const WindowDpiAnswer dpi(192);
    ::SetWindowPos(window.pChild->m_hWnd, nullptr, 0, 0, 960, 960, SWP_NOZORDER);
    window.manager.UpdateScrollBars(400, 400);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{1000, 200, 400, 999}));
    EXPECT_EQ(InfoOf(window.hBar).nPos, 200);
}

// 100 of 499 is 200 of 999, and 50 of 499 is 100 of 999.
TEST(ScrollManagerEdgeCases, BothPositionsKeepTheirProportionAtASmallerDpi)
{
    ScrolledWindow window({960, 960});
    window.Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(192);
        window.manager.UpdateScrollBars(400, 400);
        window.manager.StartHScroll(SB_THUMBTRACK, 200, &window.hBar);
        window.manager.StartVScroll(SB_THUMBTRACK, 100, &window.vBar);
    }
    const WindowDpiAnswer dpi(96);
    ::SetWindowPos(window.pChild->m_hWnd, nullptr, 0, 0, 480, 480, SWP_NOZORDER);
    window.manager.UpdateScrollBars(200, 200);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{500, 100, 200, 499}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{500, 50, 200, 499}));
}

// 100 of 479 is 104 of 499.
TEST(ScrollManagerEdgeCases, APositionKeepsItsProportionAfterADpiOfZero)
{
    ScrolledWindow window({480, 480});
    window.Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(0);
        window.manager.UpdateScrollBars(200, 200);
        window.manager.StartHScroll(SB_THUMBTRACK, 100, &window.hBar);
    }
    const WindowDpiAnswer dpi(96);
    window.manager.UpdateScrollBars(200, 200);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{500, 104, 200, 499}));
}

// 100 of 499 is 96 of 479.
TEST(ScrollManagerEdgeCases, ADpiOfZeroIsFollowedLikeAnyOther)
{
    ScrolledWindow window({480, 480});
    window.Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(96);
        window.manager.UpdateScrollBars(200, 200);
        window.manager.StartHScroll(SB_THUMBTRACK, 100, &window.hBar);
    }
    const WindowDpiAnswer dpi(0);
    window.manager.UpdateScrollBars(200, 200);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{480, 96, 200, 479}));
    EXPECT_EQ(FieldsOf(window.manager).dpi, 0u);
}

TEST(ScrollManagerEdgeCases, PositionsStayWhereTheyAreWhileTheDpiIsTheSame)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window({480, 480});
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 200);
    window.manager.StartHScroll(SB_THUMBTRACK, 100, &window.hBar);
    window.manager.StartVScroll(SB_THUMBTRACK, 50, &window.vBar);
    ::SetWindowPos(window.pChild->m_hWnd, nullptr, 0, 0, 980, 980, SWP_NOZORDER);
    window.manager.UpdateScrollBars(200, 200);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{1000, 100, 200, 999}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{1000, 50, 200, 999}));
}

TEST(ScrollManagerEdgeCases, AnArrowScrollsByTheLineStepOfTheManager)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 150);
    const int lineStep = 5;
    std::memcpy(reinterpret_cast<std::byte*>(&window.manager) + offsetof(Fields, lineStep), &lineStep,
                sizeof lineStep);
    window.manager.StartHScroll(SB_LINERIGHT, 0, &window.hBar);
    window.manager.StartVScroll(SB_PAGEDOWN, 0, &window.vBar);
    window.manager.StartVScroll(SB_LINEUP, 0, &window.vBar);
    EXPECT_EQ(FieldsOf(window.manager).hPos, 5);
    EXPECT_EQ(FieldsOf(window.manager).vPos, 65);
}

TEST(ScrollManagerEdgeCases, AWayEndsWhereTheContentEnds)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window({280, 280});
    window.Show();
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 200);
    const CPoint start = window.ChildPlace();
    window.manager.StartVScroll(SB_THUMBTRACK, 95, &window.vBar);
    EXPECT_EQ(window.ChildPlace(), start - CSize(0, 95));
    window.manager.StartVScroll(SB_LINEDOWN, 0, &window.vBar);
    EXPECT_EQ(VerticalOf(window.manager), (Axis{300, 100, 200, 299}));
    EXPECT_EQ(window.ChildPlace(), start - CSize(0, 100));
    EXPECT_EQ(window.vBar.GetScrollPos(), 100);

    window.manager.StartVScroll(SB_THUMBTRACK, 30, &window.vBar);
    window.manager.StartVScroll(SB_PAGEUP, 0, &window.vBar);
    EXPECT_EQ(FieldsOf(window.manager).vPos, 0);
    EXPECT_EQ(window.ChildPlace(), start);

    window.manager.StartHScroll(SB_LINERIGHT, 0, &window.hBar);
    EXPECT_EQ(window.ChildPlace(), start - CSize(8, 0));
    window.manager.StartHScroll(SB_PAGERIGHT, 0, &window.hBar);
    EXPECT_EQ(window.ChildPlace(), start - CSize(100, 0));
    window.manager.StartHScroll(SB_LINELEFT, 0, &window.hBar);
    EXPECT_EQ(window.ChildPlace(), start - CSize(92, 0));
}

TEST(ScrollManagerEdgeCases, OtherCodesThanThoseOfMovementChangeNothing)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 150);
    for (const UINT_PTR code : {SB_THUMBPOSITION, SB_TOP, SB_BOTTOM, SB_ENDSCROLL, 9})
    {
        window.manager.StartHScroll(code, 50, &window.hBar);
        window.manager.StartVScroll(code, 50, &window.vBar);
    }
    EXPECT_EQ(FieldsOf(window.manager).hPos, 0);
    EXPECT_EQ(FieldsOf(window.manager).vPos, 0);
}

TEST(ScrollManagerEdgeCases, OnlyAVisibleControlIsListenedTo)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 150);
    window.manager.StartVScroll(SB_LINEDOWN, 0, nullptr);
    window.vBar.ShowWindow(SW_HIDE);
    window.manager.StartVScroll(SB_LINEDOWN, 0, &window.vBar);
    EXPECT_EQ(FieldsOf(window.manager).vPos, 0);
    window.vBar.ShowWindow(SW_SHOW); // inside a hidden window: its own style counts
    window.manager.StartVScroll(SB_LINEDOWN, 0, &window.vBar);
    EXPECT_EQ(FieldsOf(window.manager).vPos, 8);
}

TEST(ScrollManagerEdgeCases, WithoutVisibleChildrenOnlyTheDpiIsTaken)
{
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    {
        const WindowDpiAnswer dpi(96);
        window.manager.UpdateScrollBars(200, 150);
        window.manager.StartVScroll(SB_LINEDOWN, 0, &window.vBar);
    }
    const WindowDpiAnswer dpi(192);
    window.pChild->ShowWindow(SW_HIDE);
    window.manager.UpdateScrollBars(20, 15);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 200, 319}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 8, 150, 219}));
    EXPECT_EQ(FieldsOf(window.manager).dpi, 192u);
}

TEST(ScrollManagerEdgeCases, AChildWithoutAnAreaIsNoContent)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(200, 150);
    for (const CSize size : {CSize(0, 90), CSize(90, 0)})
    {
        ::SetWindowPos(window.pChild->m_hWnd, nullptr, 10, 10, size.cx, size.cy, SWP_NOZORDER);
        window.manager.UpdateScrollBars(20, 15);
        EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 200, 319}));
        EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 150, 219}));
    }
}

TEST(ScrollManagerEdgeCases, TheSpaceOfEachMissingWindowBarIsTakenOffByItself)
{
    const WindowDpiAnswer dpi(96);
    const ImportSpy<decltype(::GetSystemMetricsForDpi)> metrics(
        VxDpiModule(), "user32.dll", "GetSystemMetricsForDpi",
        [](int nIndex, UINT) { return nIndex == SM_CXHSCROLL ? 30 : 11; });
    ScrolledWindow window;
    EXPECT_TRUE(
        window.manager.Create(window.target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0));
    window.manager.UpdateScrollBars(400, 150); // only the vertical one is needed
    window.manager.UpdateScrollBars(319, 150);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 319, 319}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 150 - 30, 219}));

    window.manager.UpdateScrollBars(200, 400); // only the horizontal one is needed
    window.manager.UpdateScrollBars(200, 219);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 200 - 11, 319}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 219, 219}));
}

TEST(ScrollManagerEdgeCases, AControlCountsAsVisibleWhenAPageFitsIntoItsRange)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    CScrollManager nothing;
    EXPECT_FALSE(IsScrollBarVisible(nothing, SB_HORZ));
    window.Create(CScrollManager::ScrollBarControls);
    window.manager.UpdateScrollBars(400, 150);
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_HORZ));
    EXPECT_TRUE(IsScrollBarVisible(window.manager, SB_VERT));
    window.manager.UpdateScrollBars(200, 400);
    EXPECT_TRUE(IsScrollBarVisible(window.manager, SB_HORZ));
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_VERT));
    window.manager.UpdateScrollBars(200, 150);
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_CTL));
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_BOTH));

    EXPECT_TRUE(window.manager.Create(window.target.Window(), CScrollManager::ScrollBarControls, nullptr,
                                      nullptr, 0));
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_HORZ));
    EXPECT_FALSE(IsScrollBarVisible(window.manager, SB_VERT));
}

TEST(ScrollManagerEdgeCases, TheSpaceOfAMissingWindowBarIsTakenOff)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Show();
    EXPECT_TRUE(
        window.manager.Create(window.target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0));
    window.manager.UpdateScrollBars(200, 150);
    const int nWidth = 200 - ::GetSystemMetricsForDpi(SM_CYVSCROLL, 96);
    const int nHeight = 150 - ::GetSystemMetricsForDpi(SM_CXHSCROLL, 96);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, nWidth, 319}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, nHeight, 219}));
    window.manager.UpdateScrollBars(190, 140);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 190, 319}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 140, 219}));
    window.manager.StartVScroll(SB_PAGEDOWN, 0, nullptr);
    EXPECT_EQ(::GetScrollPos(window.target.Handle(), SB_VERT), 80);
    window.manager.UpdateScrollBars(190, 170);
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 50, 170, 219}));
    EXPECT_EQ(::GetScrollPos(window.target.Handle(), SB_VERT), 50);
}

TEST(ScrollManagerEdgeCases, AnUpdateMakesItsCallsInOrder)
{
    ScrolledWindow window;
    window.Create(CScrollManager::WindowScrollBars);
    CallLog log;
    log.Name(window.target.Handle(), "target");
    log.Name(window.hBar.m_hWnd, "hBar");
    log.Name(window.vBar.m_hWnd, "vBar");
    const WindowDpiAnswer dpi(96);
    const RecordCalls<decltype(::GetSystemMetricsForDpi)> metrics(log, VxDpiModule(), "user32.dll",
                                                                  "GetSystemMetricsForDpi");
    const RecordCalls<decltype(::ShowScrollBar)> show(log, VxDpiModule(), "user32.dll", "ShowScrollBar");
    const RecordCalls<decltype(::ScrollWindow)> scroll(log, VxDpiModule(), "user32.dll", "ScrollWindow");
    const ImportSpy<decltype(::SetScrollInfo)> info(VxDpiModule(), "user32.dll", "SetScrollInfo",
                                                    [&](HWND hWnd, int nBar, LPCSCROLLINFO pInfo, BOOL redraw)
                                                    {
                                                        log.WriteCall("SetScrollInfo", hWnd, nBar,
                                                                      pInfo->fMask, pInfo->nMin, pInfo->nMax,
                                                                      pInfo->nPage, pInfo->nPos, redraw);
                                                        return info.Original()(hWnd, nBar, pInfo, redraw);
                                                    });
    window.manager.UpdateScrollBars(500, 100);
    EXPECT_EQ(log.Lines(),
              (CallLog::LineList{"GetSystemMetricsForDpi(21, 96)", "GetSystemMetricsForDpi(20, 96)",
                                 "ScrollWindow(target, 0, 0, null, null)", "ShowScrollBar(hBar, 2, 0)",
                                 "ShowScrollBar(vBar, 2, 1)", "SetScrollInfo(target, 0, 7, 0, 0, 0, 0, 1)",
                                 "SetScrollInfo(target, 1, 7, 0, 219, 83, 0, 1)"}));
}

TEST(ScrollManagerEdgeCases, AnOffsetIsAppliedAgainWhereTheChildrenAreLaidOutAnew)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    window.Show();
    window.Create(CScrollManager::ScrollBarControls, 1);
    window.manager.UpdateScrollBars(200, 150);
    const CPoint start = window.ChildPlace();
    window.manager.StartVScroll(SB_LINEDOWN, 0, &window.vBar);
    window.manager.StartHScroll(SB_LINEDOWN, 0, &window.hBar);
    ::SetWindowPos(window.pChild->m_hWnd, nullptr, start.x, start.y, 300, 200, SWP_NOZORDER);
    window.manager.UpdateScrollBars(190, 140);
    EXPECT_EQ(window.ChildPlace(), start - CSize(8, 8));
}

// The horizontal bar comes up inside the update for the smaller window, and makes the window less high.
TEST(ScrollManagerEdgeCases, AnUpdateWithinAnUpdateAppliesTheOffsetOnceMore)
{
    const WindowDpiAnswer dpi(96);
    SelfUpdatingWindow window(true);
    window.Resize(500, 150);
    window.ScrollDownTo(50);
    window.Resize(200, 150);
    EXPECT_EQ(window.Tops(), (std::vector<LONG>{-30, -80}));
}

TEST(ScrollManagerEdgeCases, AnUpdateWithinAnUpdateLeavesAnOffsetThatIsNotAppliedAgain)
{
    const WindowDpiAnswer dpi(96);
    SelfUpdatingWindow window(false);
    window.Resize(500, 150);
    window.ScrollDownTo(50);
    window.Resize(200, 150);
    EXPECT_EQ(window.Tops(), (std::vector<LONG>{-30, -30}));
}

// What is taken off the least number gives one of the largest, into which all content fits.
TEST(ScrollManagerEdgeCases, TheLeastSizeWrapsWhereTheSpaceOfWindowBarsIsTakenOff)
{
    const WindowDpiAnswer dpi(96);
    ScrolledWindow window;
    constexpr int kLeast = (std::numeric_limits<int>::min)();
    window.Create(CScrollManager::WindowScrollBars);
    window.manager.UpdateScrollBars(kLeast, kLeast);
    EXPECT_EQ(HorizontalOf(window.manager), (Axis{320, 0, 0, 0}));
    EXPECT_EQ(VerticalOf(window.manager), (Axis{220, 0, 0, 0}));
}

TEST(ScrollManagerEdgeCases, ACopyHasEveryField)
{
    ScrolledWindow window;
    window.Create(CScrollManager::ScrollBarControls, 1);
    window.manager.UpdateScrollBars(200, 150);
    CScrollManager other;
    EXPECT_EQ(&(other = window.manager), &other);
    EXPECT_EQ(HorizontalOf(other), HorizontalOf(window.manager));
    EXPECT_EQ(VerticalOf(other), VerticalOf(window.manager));
    const Fields fields = FieldsOf(other);
    EXPECT_EQ(fields.lineStep, 8);
    EXPECT_EQ(fields.reapplyOffset, 1);
    EXPECT_EQ(fields.dpi, ::GetDpiForWindow(window.target.Handle()));
    EXPECT_EQ(fields.pWnd, window.target.Window());
    EXPECT_EQ(fields.modal, CScrollManager::ScrollBarControls);
    EXPECT_EQ(fields.pHScrollBar, &window.hBar);
    EXPECT_EQ(fields.pVScrollBar, &window.vBar);
}
