#include "foundation/CallSequence.h"
#include "foundation/WindowDpiAnswer.h"
#include "layout/LayoutFixtures.h"

#include <vxdpi/ScrollFrame.h>

#include <memory>

namespace
{
const CallNames kMetrics = {"GetDpiForWindow", "GetSystemMetricsForDpi", "GetSystemMetricsForDpi"};

// Each child of the target, and the end of the walk.
const CallNames kHiddenChild = {"GetWindow", "GetWindowLongW"};
const CallNames kShownChild = InOrder({kHiddenChild, {"GetWindowRect", "CWnd::ScreenToClient"}});
const CallNames kMeasure =
    InOrder({kMetrics, kShownChild, kShownChild, {"UnionRect"}, kHiddenChild, {"GetWindow", "IsRectEmpty"}});

const CallNames kShowNumbers = {"CScrollBar::SetScrollInfo", "GetWindowLongW"};
const CallNames kScroll = {"SetScrollPos", "ScrollWindow"};

// A target with two visible children, of 300 x 200 together, and a hidden one.
class ScrollSequence : public FrameworkCallSequence
{
protected:
    ScrollSequence()
    {
        m_target.AddChild(1, {0, 0, 300, 100});
        m_target.AddChild(2, {0, 100, 100, 200});
        m_target.AddChild(3, {0, 0, 900, 900})->ShowWindow(SW_HIDE);
        m_hBar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(0, 280, 200, 300), m_owner.Window(), 2);
        m_vBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, CRect(380, 0, 400, 200), m_owner.Window(), 3);
    }

    void UseControls(int reapplyOffset = 0)
    {
        m_manager.Create(m_target.Window(), CScrollManager::ScrollBarControls, &m_hBar, &m_vBar,
                         reapplyOffset);
    }

    void UseWindow()
    {
        m_manager.Create(m_target.Window(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0);
    }

    CallNames Update(int cx, int cy)
    {
        return CallsOf([&] { m_manager.UpdateScrollBars(cx, cy); });
    }

    CallNames ScrollDown(UINT_PTR nSBCode, CScrollBar* pBar, UINT_PTR nPos = 0)
    {
        return CallsOf([&] { m_manager.StartVScroll(nSBCode, nPos, pBar); });
    }

    std::unique_ptr<WindowDpiAnswer> m_dpi = std::make_unique<WindowDpiAnswer>(96);
    LayoutParent m_owner;
    LayoutParent m_target{200, 150};
    CScrollBar m_hBar;
    CScrollBar m_vBar;
    CScrollManager m_manager;
};

// The manager with its steps open, and two controls.
class ScrollLayoutSequence : public FrameworkCallSequence
{
protected:
    class OpenManager : public CScrollLayoutManager
    {
    public:
        using CScrollLayoutManager::AutoCaptureRects;
        using CScrollLayoutManager::CScrollLayoutManager;
        using CScrollLayoutManager::GetControlRect;
        using CScrollLayoutManager::m_pParent;
    };

    ScrollLayoutSequence()
    {
        m_children = m_parent.AddChildrenInOrder(2, {10, 10, 60, 30});
        for (CWnd* const pChild : m_children)
            m_manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    }

    CallNames Adjust()
    {
        return CallsOf([&] { m_manager.AdjustLayout(); });
    }

    LayoutParent m_parent;
    std::vector<CWnd*> m_children;
    OpenManager m_manager{m_parent.Window()};
};
}

TEST_F(ScrollSequence, BindingNeedsNoCall)
{
    EXPECT_TRUE(AreCalls(CallsOf([&] { UseControls(); }), {}));
}

TEST_F(ScrollSequence, AnUpdateShowsBothBarsThenTheirNumbers)
{
    UseControls();
    EXPECT_TRUE(AreCalls(
        Update(200, 150),
        InOrder({kMeasure, {"MulDiv", "ShowScrollBar", "ShowScrollBar"}, kShowNumbers, kShowNumbers})));
}

TEST_F(ScrollSequence, AChangeOfDpiScalesBothPositions)
{
    UseControls();
    Update(200, 150);
    m_dpi.reset();
    m_dpi = std::make_unique<WindowDpiAnswer>(144);
    EXPECT_TRUE(
        AreCalls(Update(200, 150), InOrder({kMeasure,
                                            {"MulDiv", "MulDiv", "ShowScrollBar", "MulDiv", "ShowScrollBar"},
                                            kShowNumbers,
                                            kShowNumbers})));
}

TEST_F(ScrollSequence, ContentThatFitsIsScrolledBackBeforeItsBarIsHidden)
{
    UseControls();
    EXPECT_TRUE(AreCalls(Update(500, 500), InOrder({kMeasure,
                                                    {"MulDiv"},
                                                    Times(2, {"ScrollWindow", "ShowScrollBar"}),
                                                    kShowNumbers,
                                                    kShowNumbers})));
}

TEST_F(ScrollSequence, ContentThatIsLaidOutAnewIsScrolledAtTheEndInstead)
{
    UseControls(1);
    EXPECT_TRUE(AreCalls(Update(500, 500), InOrder({kMeasure,
                                                    {"MulDiv", "ShowScrollBar", "ShowScrollBar"},
                                                    kShowNumbers,
                                                    kShowNumbers,
                                                    {"ScrollWindow", "ScrollWindow"}})));
}

TEST_F(ScrollSequence, APageThatGrowsPullsTheContentAlong)
{
    UseControls();
    Update(200, 150);
    ScrollDown(SB_THUMBTRACK, &m_vBar, 70);
    EXPECT_TRUE(AreCalls(
        Update(200, 170),
        InOrder(
            {kMeasure, {"MulDiv", "ShowScrollBar", "ShowScrollBar"}, kShowNumbers, kShowNumbers, kScroll})));
}

TEST_F(ScrollSequence, AWindowIsAskedForItsBarsFirst)
{
    UseWindow();
    const CallNames children = CallNames(kMeasure.begin() + 3, kMeasure.end());
    EXPECT_TRUE(AreCalls(Update(200, 150), InOrder({kMetrics,
                                                    {"CWnd::GetScrollInfo", "CWnd::GetScrollInfo"},
                                                    children,
                                                    {"MulDiv", "SetScrollInfo", "SetScrollInfo"}})));
}

TEST_F(ScrollSequence, WithoutVisibleContentOnlyTheMetricsAreAskedFor)
{
    LayoutParent empty;
    m_manager.Create(empty.Window(), CScrollManager::ScrollBarControls, &m_hBar, &m_vBar, 0);
    EXPECT_TRUE(AreCalls(Update(200, 150), InOrder({kMetrics, {"GetWindow", "IsRectEmpty"}})));
    CScrollManager unbound;
    EXPECT_TRUE(AreCalls(CallsOf([&] { unbound.UpdateScrollBars(200, 150); }), {}));
}

TEST_F(ScrollSequence, AControlIsSetBeforeTheContentIsScrolled)
{
    UseControls();
    Update(200, 150);
    const CallNames asked = {"GetWindowLongW"};
    EXPECT_TRUE(AreCalls(ScrollDown(SB_LINEDOWN, &m_vBar), InOrder({asked, kScroll})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.StartHScroll(SB_PAGERIGHT, 0, &m_hBar); }),
                         InOrder({asked, kScroll})));
    EXPECT_TRUE(AreCalls(ScrollDown(SB_ENDSCROLL, &m_vBar), asked));
    EXPECT_TRUE(AreCalls(ScrollDown(SB_THUMBTRACK, &m_vBar, 8), asked));
    EXPECT_TRUE(AreCalls(ScrollDown(SB_LINEDOWN, nullptr), {}));
}

TEST_F(ScrollSequence, AWindowsBarIsSetBeforeTheContentIsScrolled)
{
    UseWindow();
    EXPECT_TRUE(AreCalls(ScrollDown(SB_LINEDOWN, nullptr), {}));
    Update(200, 150);
    EXPECT_TRUE(AreCalls(ScrollDown(SB_LINEDOWN, nullptr), kScroll));
    EXPECT_TRUE(AreCalls(ScrollDown(SB_TOP, nullptr), {}));
}

TEST_F(ScrollLayoutSequence, AllControlsArePlacedInOneBatch)
{
    const CallNames place = {"IsWindow", "GetClientRect", "DeferWindowPos"};
    const CallNames placed = InOrder({{"BeginDeferWindowPos"}, place, place, {"EndDeferWindowPos"}});
    const CallNames capture = {"IsWindow", "GetWindowRect", "CWnd::ScreenToClient"};
    EXPECT_TRUE(AreCalls(Adjust(), InOrder({{"GetClientRect"}, capture, capture, placed})));
    EXPECT_TRUE(AreCalls(Adjust(), placed));
    ::DestroyWindow(m_children[0]->m_hWnd);
    EXPECT_TRUE(
        AreCalls(Adjust(), InOrder({{"BeginDeferWindowPos", "IsWindow"}, place, {"EndDeferWindowPos"}})));
}

TEST_F(ScrollLayoutSequence, WithoutABatchNothingIsPlaced)
{
    Adjust();
    const FailNthCall<decltype(::BeginDeferWindowPos)> noBatch(VxDpiModule(), "user32.dll",
                                                               "BeginDeferWindowPos", 1, nullptr);
    EXPECT_TRUE(AreCalls(Adjust(), {"BeginDeferWindowPos"}));
}

TEST_F(ScrollLayoutSequence, WithoutControlsOrAParentNothingIsAsked)
{
    OpenManager empty(m_parent.Window());
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.AdjustLayout(); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.SetParent(nullptr); }), {}));
    EXPECT_TRUE(AreCalls(Adjust(), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AutoCaptureRects(); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.GetControlRect(nullptr); }), {}));
}
