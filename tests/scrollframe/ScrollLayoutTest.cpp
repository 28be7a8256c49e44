#include "foundation/LibraryModule.h"
#include "layout/LayoutFixtures.h"
#include "support/HandleCount.h"

#include <vxdpi/ScrollFrame.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{
// The manager with its steps and fields open to tests; writes each step that it calls down by its name.
class StepLayout : public CScrollLayoutManager
{
public:
    using CScrollLayoutManager::CScrollLayoutManager;

    using CScrollLayoutManager::m_bNeedCapture;
    using CScrollLayoutManager::m_clientSize96;
    using CScrollLayoutManager::m_pLayouts;
    using CScrollLayoutManager::m_pParent;
    using CScrollLayoutManager::m_scale;

    void AutoCaptureRects() override
    {
        log.WriteCall("AutoCaptureRects", m_bNeedCapture);
        CScrollLayoutManager::AutoCaptureRects();
    }

    using CScrollLayoutManager::GetControlRect;

    CRect GetControlRect(HWND hWnd) override
    {
        log.WriteCall("GetControlRect", hWnd);
        return CScrollLayoutManager::GetControlRect(hWnd);
    }

    CRect GetScaledRect(const CRect& rc96) const override
    {
        log.WriteCall("GetScaledRect", static_cast<const RECT*>(&rc96));
        return CScrollLayoutManager::GetScaledRect(rc96);
    }

    void ConvertTo96DPIRect(CRect& rc) override
    {
        log.WriteCall("ConvertTo96DPIRect", static_cast<const RECT*>(&rc));
        CScrollLayoutManager::ConvertTo96DPIRect(rc);
    }

    const LayoutInfo& RecordOf(const CWnd* pWnd) const { return m_pLayouts->at(pWnd->m_hWnd); }

    mutable CallLog log;
};

// One control, captured at 96 DPI at (300, 250) to (380, 280) in a client area of 400 x 300, and laid out at
// another DPI in another area.
EdgeList PlacedAt(UINT nDpi, CSize area, UINT nAnchor, UINT nSizePolicy = 0, int bMinSize = FALSE)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {300, 250, 380, 280});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, nAnchor, nSizePolicy, bMinSize);
    manager.AdjustLayout();
    manager.UpdateDpi(static_cast<int>(nDpi));
    parent.Resize(area.cx, area.cy);
    manager.AdjustLayout();
    return parent.PlaceOf(pControl);
}

constexpr UINT kBothSizes = SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT;
}

TEST(ScrollLayout, AnchorsHoldInALargerParentAt96Dpi)
{
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_TOPLEFT), Edges(300, 250, 380, 280));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_RIGHT), Edges(400, 250, 480, 280));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_BOTTOM), Edges(300, 550, 380, 580));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_BOTTOMRIGHT), Edges(400, 550, 480, 580));
}

TEST(ScrollLayout, NoAnchorHoldsInASmallerParent)
{
    for (const UINT nAnchor : {ANCHOR_TOPLEFT, ANCHOR_RIGHT, ANCHOR_BOTTOM, ANCHOR_BOTTOMRIGHT})
        EXPECT_EQ(PlacedAt(96, {399, 299}, nAnchor), Edges(300, 250, 380, 280)) << nAnchor;
}

TEST(ScrollLayout, EachAxisFitsByItself)
{
    EXPECT_EQ(PlacedAt(96, {410, 299}, ANCHOR_BOTTOMRIGHT), Edges(310, 250, 390, 280));
    EXPECT_EQ(PlacedAt(96, {399, 310}, ANCHOR_BOTTOMRIGHT), Edges(300, 260, 380, 290));
    EXPECT_EQ(PlacedAt(96, {399, 310}, ANCHOR_RIGHT), Edges(300, 250, 380, 280));
    EXPECT_EQ(PlacedAt(96, {410, 299}, ANCHOR_BOTTOM), Edges(300, 250, 380, 280));
}

// A margin of its own would move the control even in the designed size.
TEST(ScrollLayout, AnAxisThatDoesNotFitDoesNotFollowTheMargin)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {0, 0, 1, 1});
    StepLayout manager(parent.Window());
    LayoutInfo info = RecordAt({10, 20, 110, 50}, ANCHOR_BOTTOMRIGHT, 0, 55, 66);
    info.pWnd = pControl;
    manager.AddControl(pControl, info);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(245, 204, 345, 234));
    parent.Resize(399, 300);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(10, 204, 110, 234));
    parent.Resize(400, 299);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(245, 20, 345, 50));
}

TEST(ScrollLayout, AValueThatIsNoAnchorIsTopLeft)
{
    for (const UINT nAnchor : {0u, 3u, 6u, 10u, 12u, 16u})
        EXPECT_EQ(PlacedAt(96, {500, 600}, nAnchor), Edges(300, 250, 380, 280)) << nAnchor;
}

TEST(ScrollLayout, AnchorsHoldAt120Dpi)
{
    EXPECT_EQ(PlacedAt(120, {500, 375}, ANCHOR_BOTTOMRIGHT), Edges(375, 313, 475, 350)); // 312.5 rounded up
    EXPECT_EQ(PlacedAt(120, {600, 374}, ANCHOR_BOTTOMRIGHT), Edges(475, 313, 575, 350));
    EXPECT_EQ(PlacedAt(120, {499, 475}, ANCHOR_BOTTOMRIGHT), Edges(375, 413, 475, 450));
}

TEST(ScrollLayout, AnchorsHoldAt192Dpi)
{
    EXPECT_EQ(PlacedAt(192, {800, 600}, ANCHOR_BOTTOMRIGHT), Edges(600, 500, 760, 560));
    EXPECT_EQ(PlacedAt(192, {801, 602}, ANCHOR_BOTTOMRIGHT), Edges(601, 502, 761, 562));
    EXPECT_EQ(PlacedAt(192, {799, 602}, ANCHOR_BOTTOMRIGHT), Edges(600, 502, 760, 562));
}

// The scale is 101 / 96: a client area of 420.83 x 315.63, a control from (315.63, 263.02) to (399.79,
// 294.58), margins of 21.04.
TEST(ScrollLayout, LengthsAreRoundedAtAnOddDpi)
{
    EXPECT_EQ(PlacedAt(101, {420, 315}, ANCHOR_BOTTOMRIGHT), Edges(316, 263, 400, 295));
    EXPECT_EQ(PlacedAt(101, {421, 316}, ANCHOR_BOTTOMRIGHT), Edges(316, 263, 400, 295));
    EXPECT_EQ(PlacedAt(101, {431, 326}, ANCHOR_BOTTOMRIGHT), Edges(326, 273, 410, 305));
    EXPECT_EQ(PlacedAt(101, {431, 326}, ANCHOR_TOPLEFT, kBothSizes), Edges(316, 263, 410, 305));
}

TEST(ScrollLayout, StretchingReachesTheMarginOfTheParentOrOfItsDesignedSize)
{
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH), Edges(300, 250, 480, 280));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_TOPLEFT, SIZE_STRETCH_HEIGHT), Edges(300, 250, 380, 580));
    EXPECT_EQ(PlacedAt(96, {100, 100}, ANCHOR_TOPLEFT, kBothSizes), Edges(300, 250, 380, 280));
    EXPECT_EQ(PlacedAt(192, {900, 500}, ANCHOR_TOPLEFT, kBothSizes), Edges(600, 500, 860, 560));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_TOPLEFT, 4), Edges(300, 250, 380, 280));
}

TEST(ScrollLayout, AStretchedControlIsAnchoredWithItsNewSize)
{
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_BOTTOMRIGHT, kBothSizes), Edges(300, 250, 480, 580));
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_RIGHT, SIZE_STRETCH_HEIGHT), Edges(400, 250, 480, 580));
}

// The end at the margin is compared with the length of 100, so it may come before the start of 200.
TEST(ScrollLayout, StretchingComparesAnEndWithALength)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {0, 0, 1, 1});
    StepLayout manager(parent.Window());
    const auto place = [&](int margin)
    {
        LayoutInfo info = RecordAt({200, 150, 300, 250}, ANCHOR_TOPLEFT, kBothSizes, margin, margin - 100);
        info.pWnd = pControl;
        info.bMinSize = TRUE;
        manager.AddControl(pControl, info);
        manager.AdjustLayout();
        return Edges(manager.GetControlRect(pControl->m_hWnd));
    };
    EXPECT_EQ(place(300), Edges(200, 150, 100, 100));
    EXPECT_EQ(place(301), Edges(200, 150, 300, 250));
    EXPECT_EQ(place(299), Edges(200, 150, 101, 101));
}

TEST(ScrollLayout, TheMinimumSizeIsNotAskedFor)
{
    EXPECT_EQ(PlacedAt(96, {500, 600}, ANCHOR_BOTTOMRIGHT, kBothSizes, TRUE), Edges(300, 250, 480, 580));
    EXPECT_EQ(PlacedAt(144, {500, 200}, ANCHOR_BOTTOMRIGHT, kBothSizes, TRUE), Edges(450, 375, 570, 420));
}

TEST(ScrollLayout, TheFirstLayoutCapturesAt96Dpi)
{
    LayoutParent parent(600, 450);
    CWnd* const pControl = parent.AddChild(7, {30, 60, 300, 390});
    StepLayout manager(parent.Window());
    manager.UpdateDpi(144);
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    manager.log.Name(pControl->m_hWnd, "control");
    manager.AdjustLayout();
    EXPECT_EQ(manager.m_clientSize96, CSize(400, 300));
    const LayoutInfo& record = manager.RecordOf(pControl);
    EXPECT_EQ(Edges(record.rcBase96), Edges(20, 40, 200, 260));
    EXPECT_EQ(record.nMarginRight, 200);
    EXPECT_EQ(record.nMarginBottom, 40);
    EXPECT_EQ(
        manager.log.Lines(),
        (CallLog::LineList{"AutoCaptureRects(1)", // the flag is cleared afterwards
                           "ConvertTo96DPIRect({0, 0, 600, 450})", "ConvertTo96DPIRect({30, 60, 300, 390})",
                           "GetControlRect(control)", "GetScaledRect({20, 40, 200, 260})"}));
}

TEST(ScrollLayout, AControlOfAPanelIsCapturedInThePanelsParent)
{
    LayoutParent parent(400, 300);
    CWnd* const pPanel = parent.AddChild(7, {50, 40, 250, 240});
    CWnd* const pControl = parent.AddChild(8, {10, 20, 110, 70});
    ::SetParent(pControl->m_hWnd, pPanel->m_hWnd);
    StepLayout manager(parent.Window());
    manager.UpdateDpi(96);
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(60, 60, 160, 110));
    EXPECT_EQ(manager.RecordOf(pControl).nMarginRight, 240);
}

TEST(ScrollLayout, LaterLayoutsCaptureNothing)
{
    LayoutParent parent(400, 300);
    CWnd* const pFirst = parent.AddChild(7, {10, 20, 30, 40});
    CWnd* const pLater = parent.AddChild(8, {50, 60, 70, 80});
    StepLayout manager(parent.Window());
    manager.AddControl(pFirst, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    parent.Resize(200, 100);
    manager.AddControl(pLater, ANCHOR_TOPLEFT, 0, FALSE);
    manager.log.Clear();
    manager.AdjustLayout();
    EXPECT_EQ(manager.log.Lines().size(), 4u); // two controls, two steps
    EXPECT_EQ(manager.m_clientSize96, CSize(400, 300));
    EXPECT_EQ(parent.PlaceOf(pLater), Edges(0, 0, 0, 0)); // never captured
}

TEST(ScrollLayout, CapturingIsAskedForByItsFlagAlone)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    parent.Resize(200, 100);
    manager.m_bNeedCapture = TRUE;
    manager.AdjustLayout();
    EXPECT_EQ(manager.m_clientSize96, CSize(200, 100));
    EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(10, 20, 30, 40));
    EXPECT_EQ(manager.RecordOf(pControl).nMarginRight, 370); // not captured again
    EXPECT_EQ(manager.m_bNeedCapture, FALSE);
}

TEST(ScrollLayout, OnlyARectangleOfNothingButZerosIsCaptured)
{
    for (const RECT base : {RECT{1, 0, 0, 0}, RECT{0, 1, 0, 0}, RECT{0, 0, 1, 0}, RECT{0, 0, 0, 1}})
    {
        LayoutParent parent(400, 300);
        CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
        StepLayout manager(parent.Window());
        LayoutInfo info = RecordAt(base, ANCHOR_TOPLEFT, 0, 55, 66);
        info.pWnd = pControl;
        manager.AddControl(pControl, info);
        manager.AdjustLayout();
        EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(base));
        EXPECT_EQ(manager.RecordOf(pControl).nMarginRight, 55);
        EXPECT_EQ(manager.RecordOf(pControl).nMarginBottom, 66);
    }
}

TEST(ScrollLayout, ARecordIsCapturedFromItsObjectAndPlacedByItsHandle)
{
    LayoutParent parent(400, 300);
    CWnd* const pPlaced = parent.AddChild(7, {10, 20, 30, 40});
    CWnd* const pCaptured = parent.AddChild(8, {100, 110, 150, 170});
    StepLayout manager(parent.Window());
    LayoutInfo info = RecordAt({0, 0, 0, 0});
    info.pWnd = pCaptured;
    manager.AddControl(pPlaced, info);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pPlaced), Edges(100, 110, 150, 170));
    EXPECT_EQ(manager.RecordOf(pPlaced).nMarginRight, 250);
    EXPECT_EQ(manager.RecordOf(pPlaced).nMarginBottom, 130);
}

TEST(ScrollLayout, ARecordWithoutALivingObjectIsNotCapturedByItsNumber)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    CWnd* const pDead = parent.AddChild(8, {50, 60, 70, 80});
    StepLayout manager(parent.Window());
    for (CWnd* const pObject : {static_cast<CWnd*>(nullptr), pDead})
    {
        pDead->DestroyWindow();
        LayoutInfo info = RecordAt({0, 0, 0, 0});
        info.pWnd = pObject;
        info.nCtrlID = 7;
        manager.AddControl(pControl, info);
        manager.m_bNeedCapture = TRUE;
        manager.AdjustLayout();
        EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(0, 0, 0, 0));
    }
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(0, 0, 0, 0)); // placed all the same
}

TEST(ScrollLayout, AParentThatIsGoneHasNoClientArea)
{
    LayoutParent parent(400, 300);
    LayoutParent other(400, 300);
    CWnd* const pControl = other.AddChild(7, {0, 0, 1, 1});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, RecordAt({10, 20, 40, 30}, ANCHOR_BOTTOMRIGHT, 0, 5, 6));
    manager.m_clientSize96 = CSize(0, 0);
    ::DestroyWindow(parent.Handle());
    EXPECT_EQ(Edges(manager.GetControlRect(pControl->m_hWnd)), Edges(-35, -16, -5, -6));
    manager.m_clientSize96 = CSize(1, 1);
    EXPECT_EQ(Edges(manager.GetControlRect(pControl->m_hWnd)), Edges(10, 20, 40, 30));
}

// The parent's client area starts at (100, 50).
TEST(ScrollLayout, AControlWhosePlaceIsNotToldIsCapturedAsAPointOfTheScreen)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    const FailNthCall<decltype(::GetWindowRect)> place(VxDpiModule(), "user32.dll", "GetWindowRect", 1,
                                                       FALSE);
    manager.AdjustLayout();
    EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(-100, -50, -100, -50));
    EXPECT_EQ(manager.RecordOf(pControl).nMarginRight, 500);
}

TEST(ScrollLayout, ADeadWindowIsNotPlacedByItsNumber)
{
    LayoutParent parent(400, 300);
    CWnd* const pDead = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    manager.AddControl(pDead, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    pDead->DestroyWindow();
    CWnd* const pOther = parent.AddChild(7, {100, 110, 120, 130});
    manager.log.Clear();
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pOther), Edges(100, 110, 120, 130));
    EXPECT_EQ(manager.log.Lines(), CallLog::LineList());
}

TEST(ScrollLayout, TheDpiIsNotReadAgain)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                                                     [](HWND) { return 192u; });
    manager.AdjustLayout();
    EXPECT_EQ(dpi.CallCount(), 0);
    EXPECT_EQ(manager.m_scale, 1.0f);
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(10, 20, 30, 40));
}

TEST(ScrollLayout, AParentThatIsExchangedKeepsWhatWasCaptured)
{
    LayoutParent parent(400, 300);
    LayoutParent other(500, 600);
    CWnd* const pControl = parent.AddChild(7, {300, 250, 380, 280});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, ANCHOR_BOTTOMRIGHT, 0, FALSE);
    manager.AdjustLayout();
    manager.SetParent(other.Window());
    EXPECT_EQ(manager.m_pParent, other.Window());
    EXPECT_EQ(manager.m_clientSize96, CSize(400, 300));
    EXPECT_EQ(manager.m_bNeedCapture, FALSE);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(400, 550, 480, 580));
    manager.SetParent(nullptr);
    parent.Resize(900, 900);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(400, 550, 480, 580));
}

TEST(ScrollLayout, WithoutAListNothingHasAPlace)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    std::map<HWND, LayoutInfo>* const pLayouts = manager.m_pLayouts;
    manager.m_pLayouts = nullptr;
    EXPECT_EQ(Edges(manager.GetControlRect(pControl->m_hWnd)), Edges(0, 0, 0, 0));
    manager.AdjustLayout();
    manager.AutoCaptureRects();
    EXPECT_EQ(manager.m_bNeedCapture, TRUE);
    EXPECT_EQ(manager.log.Lines().size(), 2u); // the two that the test called
    manager.m_pLayouts = pLayouts;
}

TEST(ScrollLayout, NothingIsCapturedWithoutAParent)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager;
    EXPECT_EQ(manager.m_pParent, nullptr);
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    manager.AdjustLayout();
    EXPECT_EQ(Edges(manager.RecordOf(pControl).rcBase96), Edges(0, 0, 0, 0));
    EXPECT_EQ(manager.m_bNeedCapture, TRUE);
}

TEST(ScrollLayout, AFailedBatchStillCapturesAndIsNotEnded)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {10, 20, 30, 40});
    StepLayout manager(parent.Window());
    manager.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    const FailNthCall<decltype(::BeginDeferWindowPos)> begin(VxDpiModule(), "user32.dll",
                                                             "BeginDeferWindowPos", 1, nullptr);
    const ImportSpy<decltype(::DeferWindowPos)> defer(VxDpiModule(), "user32.dll", "DeferWindowPos");
    const ImportSpy<decltype(::EndDeferWindowPos)> end(VxDpiModule(), "user32.dll", "EndDeferWindowPos");
    manager.AdjustLayout();
    EXPECT_EQ(manager.m_clientSize96, CSize(400, 300));
    EXPECT_EQ(manager.m_bNeedCapture, FALSE);
    EXPECT_EQ(defer.CallCount(), 0);
    EXPECT_EQ(end.CallCount(), 0);
}

TEST(ScrollLayout, AControlThatCannotJoinTheBatchDoesNotKeepTheOthersOut)
{
    LayoutParent parent(400, 300);
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(3, {10, 20, 60, 50});
    StepLayout manager(parent.Window());
    for (CWnd* const pChild : children)
        manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    manager.UpdateDpi(192);
    const FailNthCall<decltype(::DeferWindowPos)> defer(VxDpiModule(), "user32.dll", "DeferWindowPos", 2,
                                                        nullptr);
    manager.AdjustLayout();
    EXPECT_EQ(defer.CallCount(), 3);
    EXPECT_EQ(parent.PlaceOf(children[0]), Edges(20, 40, 120, 100));
    EXPECT_EQ(parent.PlaceOf(children[1]), Edges(10, 20, 60, 50));
    EXPECT_EQ(parent.PlaceOf(children[2]), Edges(20, 40, 120, 100));
}

TEST(ScrollLayout, IsALayoutManagerWithAParentThatMayBeLeftOut)
{
    EXPECT_TRUE((std::is_base_of_v<CDpiLayoutManager, CScrollLayoutManager>));
    EXPECT_TRUE((std::is_convertible_v<CWnd*, CScrollLayoutManager>));
    EXPECT_TRUE(std::is_default_constructible_v<CScrollLayoutManager>);
    StepLayout manager;
    EXPECT_EQ(manager.m_bNeedCapture, TRUE);
    EXPECT_EQ(manager.m_scale, 1.0f);
    ASSERT_NE(manager.m_pLayouts, nullptr);
    EXPECT_TRUE(manager.m_pLayouts->empty());
}

TEST(ScrollLayout, IsLaidOutThroughItsBase)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {300, 250, 380, 280});
    CScrollLayoutManager manager(parent.Window());
    CDpiLayoutManager& base = manager;
    base.AddControl(7u, ANCHOR_RIGHT, 0, FALSE);
    base.AdjustLayout();
    parent.Resize(200, 100);
    base.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(300, 250, 380, 280)); // not squeezed
}

TEST(ScrollLayout, AThousandLayoutsLeaveNothing)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {300, 250, 380, 280});
    EXPECT_NO_LEAK(
        [&]
        {
            for (int i = 0; i < 33; ++i)
            {
                CScrollLayoutManager manager(parent.Window());
                manager.AddControl(pControl, ANCHOR_BOTTOMRIGHT, kBothSizes, FALSE);
                manager.AdjustLayout();
            }
        });
}
