#include "foundation/LibraryModule.h"
#include "layout/LayoutFixtures.h"
#include "support/CallLog.h"

#include <vxdpi/ScrollFrame.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace
{
class OpenScrollLayout : public CScrollLayoutManager
{
public:
    using CScrollLayoutManager::CScrollLayoutManager;

    using CScrollLayoutManager::AutoCaptureRects;
    using CScrollLayoutManager::GetControlRect;
    using CScrollLayoutManager::m_bNeedCapture;
    using CScrollLayoutManager::m_clientSize96;
    using CScrollLayoutManager::m_pLayouts;
    using CScrollLayoutManager::m_pParent;
};

// Captured at 96 DPI in a client area of 400 x 300.
struct CapturedAt96
{
    explicit CapturedAt96(UINT nAnchor, UINT nSizePolicy = 0)
    {
        pControl = parent.AddChild(7, {300, 250, 380, 280});
        manager.AddControl(pControl, nAnchor, nSizePolicy, FALSE);
        manager.AdjustLayout();
    }

    EdgeList PlaceAt144In(int width, int height)
    {
        manager.UpdateDpi(144);
        parent.Resize(width, height);
        manager.AdjustLayout();
        return parent.PlaceOf(pControl);
    }

    LayoutParent parent{400, 300};
    OpenScrollLayout manager{parent.Window()};
    CWnd* pControl = nullptr;
};

HDWP WINAPI RefuseBatch(int)
{
    return nullptr;
}
}

TEST(ScrollLayoutEdgeCases, AnAnchorHoldsOnlyAlongAnAxisThatFits)
{
    CapturedAt96 layout(ANCHOR_BOTTOMRIGHT);
    EXPECT_EQ(layout.manager.m_clientSize96, CSize(400, 300));
    EXPECT_EQ(layout.PlaceAt144In(500, 600), Edges(450, 525, 570, 570));
    EXPECT_EQ(layout.PlaceAt144In(700, 200), Edges(550, 375, 670, 420));
}

TEST(ScrollLayoutEdgeCases, AStretchedControlIsNotSqueezed)
{
    CapturedAt96 layout(ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT);
    EXPECT_EQ(layout.PlaceAt144In(700, 600), Edges(450, 375, 670, 570));
    EXPECT_EQ(layout.PlaceAt144In(300, 200), Edges(450, 375, 570, 420));
}

TEST(ScrollLayoutEdgeCases, AStretchedControlKeepsItsEndWhereTheMarginLeavesLessThanItsLength)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {0, 0, 1, 1});
    OpenScrollLayout manager(parent.Window());
    LayoutInfo info = RecordAt({10, 10, 110, 30}, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH, 301);
    info.pWnd = pControl;
    manager.AddControl(pControl, info);
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(10, 10, 110, 30)); // 400 - 301 = 99 < 100
    manager.m_pLayouts->begin()->second.nMarginRight = 300;
    manager.AdjustLayout();
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(10, 10, 100, 30)); // 100 is not less than the width of 100
}

TEST(ScrollLayoutEdgeCases, ARecordThatCameWithItsPlaceIsNotCapturedButTheClientSizeIs)
{
    LayoutParent parent(400, 300);
    CWnd* const pControl = parent.AddChild(7, {50, 60, 70, 80});
    OpenScrollLayout manager;
    manager.SetParent(parent.Window());
    LayoutInfo info = RecordAt({10, 10, 110, 30});
    info.pWnd = pControl;
    manager.AddControl(pControl, info);
    manager.AdjustLayout();
    EXPECT_EQ(manager.m_clientSize96, CSize(400, 300));
    EXPECT_EQ(parent.PlaceOf(pControl), Edges(10, 10, 110, 30));
    EXPECT_EQ(manager.m_pLayouts->begin()->second.nMarginRight, 0);
    EXPECT_FALSE(manager.m_bNeedCapture);
}

TEST(ScrollLayoutEdgeCases, AllAreMovedInOneBatchThatGoesByItsFirstHandle)
{
    LayoutParent parent(400, 300);
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(3, {10, 20, 60, 50});
    OpenScrollLayout manager(parent.Window());
    for (CWnd* const pChild : children)
        manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AdjustLayout();
    children[1]->DestroyWindow();

    CallLog log;
    log.Name(children[0]->m_hWnd, "first");
    log.Name(children[2]->m_hWnd, "third");
    const ImportSpy<decltype(::BeginDeferWindowPos)> begin(VxDpiModule(), "user32.dll", "BeginDeferWindowPos",
                                                           [&](int count)
                                                           {
                                                               const HDWP hBatch = begin.Original()(count);
                                                               log.Name(hBatch, "batch");
                                                               log.WriteCall("BeginDeferWindowPos", count);
                                                               return hBatch;
                                                           });
    int nOther = 0;
    const ImportSpy<decltype(::DeferWindowPos)> defer(
        VxDpiModule(), "user32.dll", "DeferWindowPos",
        [&](HDWP hBatch, HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
        {
            log.WriteCall("DeferWindowPos", hBatch, hWnd, hAfter, x, y, cx, cy, flags);
            defer.Original()(hBatch, hWnd, hAfter, x, y, cx, cy, flags);
            return reinterpret_cast<HDWP>(&nOther);
        });
    const RecordCalls<decltype(::EndDeferWindowPos)> end(log, VxDpiModule(), "user32.dll",
                                                         "EndDeferWindowPos");
    manager.AdjustLayout();
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"BeginDeferWindowPos(3)",
                                              "DeferWindowPos(batch, first, null, 10, 20, 50, 30, 20)",
                                              "DeferWindowPos(batch, third, null, 10, 20, 50, 30, 20)",
                                              "EndDeferWindowPos(batch)"}));
}

TEST(ScrollLayoutEdgeCases, NothingIsMovedWithoutABatch)
{
    CapturedAt96 layout(ANCHOR_BOTTOMRIGHT);
    const ImportSpy<decltype(::BeginDeferWindowPos)> begin(VxDpiModule(), "user32.dll", "BeginDeferWindowPos",
                                                           RefuseBatch);
    EXPECT_EQ(layout.PlaceAt144In(700, 600), Edges(300, 250, 380, 280));
}

TEST(ScrollLayoutEdgeCases, AHandleWithoutARecordHasNoPlace)
{
    CapturedAt96 layout(ANCHOR_BOTTOMRIGHT);
    EXPECT_EQ(Edges(layout.manager.GetControlRect(nullptr)), Edges(0, 0, 0, 0));
    EXPECT_EQ(Edges(layout.manager.GetControlRect(layout.parent.Handle())), Edges(0, 0, 0, 0));
    EXPECT_EQ(Edges(layout.manager.GetControlRect(layout.pControl->m_hWnd)), Edges(300, 250, 380, 280));
    (*layout.manager.m_pLayouts)[nullptr] = RecordAt({1, 2, 30, 40});
    EXPECT_EQ(Edges(layout.manager.GetControlRect(nullptr)), Edges(0, 0, 0, 0));
    // The base's form is not hidden.
    EXPECT_EQ(Edges(layout.manager.GetControlRect(RecordAt({1, 2, 30, 40}), CRect(0, 0, 400, 300))),
              Edges(1, 2, 30, 40));
}

TEST(ScrollLayoutEdgeCases, NothingHappensWithoutParentOrRecords)
{
    OpenScrollLayout manager;
    EXPECT_TRUE(manager.m_bNeedCapture);
    manager.AdjustLayout();
    manager.AutoCaptureRects();
    EXPECT_TRUE(manager.m_bNeedCapture);
    LayoutParent parent;
    manager.SetParent(parent.Window());
    EXPECT_EQ(manager.m_pParent, parent.Window());
    manager.AdjustLayout();
    EXPECT_TRUE(manager.m_bNeedCapture);
}

TEST(ScrollLayoutEdgeCases, CopiesAndMovesShareTheRecords)
{
    CapturedAt96 layout(ANCHOR_BOTTOMRIGHT);
    const auto expectShared = [&](OpenScrollLayout& other)
    {
        EXPECT_EQ(other.m_pLayouts, layout.manager.m_pLayouts);
        EXPECT_NE(layout.manager.m_pLayouts, nullptr);
        EXPECT_EQ(other.m_clientSize96, CSize(400, 300));
        EXPECT_EQ(other.m_pParent, layout.parent.Window());
        EXPECT_FALSE(other.m_bNeedCapture);
        other.m_pLayouts = nullptr; // freed once, by the first
    };
    OpenScrollLayout copied(layout.manager);
    expectShared(copied);
    OpenScrollLayout moved(std::move(layout.manager));
    expectShared(moved);
    copied = layout.manager;
    expectShared(copied);
    moved = std::move(layout.manager);
    expectShared(moved);
}
