#include "foundation/LibraryModule.h"
#include "layout/LayoutFixtures.h"
#include "support/ImportSpy.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace
{
constexpr RECT kPlace = {10, 20, 110, 50};
constexpr RECT kElsewhere = {200, 100, 260, 130};
constexpr UINT kId = 1001;
constexpr UINT kOtherId = 1002;
constexpr UINT kMissingId = 1999;

void ExpectCaptured(const LayoutInfo& info, const EdgeList& base96, int nMarginRight, int nMarginBottom)
{
    EXPECT_EQ(Edges(info.rcBase96), base96);
    EXPECT_EQ(info.nMarginRight, nMarginRight);
    EXPECT_EQ(info.nMarginBottom, nMarginBottom);
}

// What a child in a client area is captured as at a DPI.
LayoutInfo CapturedAt(int dpi, int width, int height, const RECT& place)
{
    LayoutParent parent(width, height);
    CWnd* const pChild = parent.AddChild(kId, place);
    OpenLayoutManager manager(parent.Window());
    manager.UpdateDpi(dpi);
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    return manager.RecordOf(pChild);
}

// A record that finds its control by a window object or, when that is gone, by its ID. The margins tell
// whether anything was stored.
LayoutInfo UncapturedRecord(CWnd* pWnd, UINT nCtrlID)
{
    LayoutInfo info = RecordAt({0, 0, 0, 0}, ANCHOR_TOPLEFT, 0, 7, 9);
    info.pWnd = pWnd;
    info.nCtrlID = nCtrlID;
    return info;
}

// One record in a parent of 400 x 300.
struct CaptureOfOne
{
    LayoutParent parent;
    CWnd* pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager{parent.Window()};

    const LayoutInfo& Capture(const LayoutInfo& info)
    {
        manager.AddControl(pChild, info);
        manager.AutoCaptureRects();
        return manager.RecordOf(pChild);
    }
};

// A rectangle at a DPI as 96-DPI units.
EdgeList At96(int dpi, CRect rc)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    manager.ConvertTo96DPIRect(rc);
    return Edges(rc);
}
}

TEST(ConvertTo96DPIRect, At96ChangesNothing)
{
    EXPECT_EQ(At96(96, {-3, 0, 7, 1201}), Edges(-3, 0, 7, 1201));
}

TEST(ConvertTo96DPIRect, At120RoundsEachEdge)
{
    EXPECT_EQ(At96(120, {1, 2, 3, 4}), Edges(1, 2, 2, 3));
    EXPECT_EQ(At96(120, {-1, -2, -3, -4}), Edges(-1, -2, -2, -3));
    EXPECT_EQ(At96(120, {5, 10, 500, 1000}), Edges(4, 8, 400, 800));
}

TEST(ConvertTo96DPIRect, At144TakesTwoThirds)
{
    EXPECT_EQ(At96(144, {15, 15, 165, 45}), Edges(10, 10, 110, 30));
    EXPECT_EQ(At96(144, {1, 2, 4, 5}), Edges(1, 1, 3, 3));
}

TEST(ConvertTo96DPIRect, At192RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(At96(192, {1, 2, 3, 5}), Edges(1, 1, 2, 3));
    EXPECT_EQ(At96(192, {-1, -2, -3, -5}), Edges(-1, -1, -2, -3));
}

TEST(ConvertTo96DPIRect, At576TakesASixth)
{
    EXPECT_EQ(At96(576, {2, 3, 600, 1200}), Edges(0, 1, 100, 200));
}

TEST(ConvertTo96DPIRect, FollowsTheDpiAndNotTheScale)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(144);
    manager.m_scale = 5.0f;
    CRect rc(15, 15, 165, 45);
    manager.ConvertTo96DPIRect(rc);
    EXPECT_EQ(Edges(rc), Edges(10, 10, 110, 30));
}

TEST(ConvertTo96DPIRect, TakesADpiBelow96FromADerivedClass)
{
    OpenLayoutManager manager(nullptr);
    manager.m_dpi = 1;
    CRect rc(1, 2, -3, 4);
    manager.ConvertTo96DPIRect(rc);
    EXPECT_EQ(Edges(rc), Edges(96, 192, -288, 384));
}

TEST(ConvertTo96DPIRect, WithoutADpiChangesNothing)
{
    OpenLayoutManager manager(nullptr);
    manager.m_dpi = 0;
    CRect rc(15, 16, 165, 45);
    manager.ConvertTo96DPIRect(rc);
    EXPECT_EQ(Edges(rc), Edges(15, 16, 165, 45));
}

TEST(AutoCaptureRects, At96TakesThePlaceAndTheDistancesToTheParentsEnds)
{
    ExpectCaptured(CapturedAt(96, 400, 300, kPlace), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, At120Takes96DpiUnits)
{
    ExpectCaptured(CapturedAt(120, 500, 375, {15, 25, 140, 65}), Edges(12, 20, 112, 52), 288, 248);
}

TEST(AutoCaptureRects, At144Takes96DpiUnits)
{
    ExpectCaptured(CapturedAt(144, 600, 450, {15, 15, 165, 45}), Edges(10, 10, 110, 30), 290, 270);
}

TEST(AutoCaptureRects, At192Takes96DpiUnits)
{
    ExpectCaptured(CapturedAt(192, 800, 600, {20, 40, 220, 100}), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, TakesMarginsFromTheRoundedEdges)
{
    ExpectCaptured(CapturedAt(120, 402, 402, {1, 1, 103, 103}), Edges(1, 1, 82, 82), 240, 240);
    ExpectCaptured(CapturedAt(144, 401, 302, {1, 2, 99, 49}), Edges(1, 1, 66, 33), 201, 168);
}

TEST(AutoCaptureRects, TakesAControlThatIsPartlyOutside)
{
    ExpectCaptured(CapturedAt(96, 400, 300, {-5, -7, 420, 330}), Edges(-5, -7, 420, 330), -20, -30);
}

TEST(AutoCaptureRects, CountsFromTheClientAreaAndNotFromTheFrame)
{
    LayoutParent parent(WS_OVERLAPPEDWINDOW, {60, 70, 460, 370});
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    RECT client = {};
    ::GetClientRect(parent.Handle(), &client);
    ASSERT_LT(client.bottom, 300);
    ExpectCaptured(manager.RecordOf(pChild), Edges(10, 20, 110, 50), client.right - 110, client.bottom - 50);
}

TEST(AutoCaptureRects, TakesTheWholeWindowOfAControlWithABorder)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    pChild->ModifyStyle(0, WS_BORDER | WS_VSCROLL, SWP_FRAMECHANGED);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, TakesAControlOfAnotherWindowInItsOwnParentsClientArea)
{
    LayoutParent parent(WS_POPUP, {100, 50, 500, 350});
    LayoutParent other(WS_POPUP, {130, 90, 330, 190});
    CWnd* const pChild = other.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(40, 60, 140, 90), 260, 210);
}

TEST(AutoCaptureRects, TakesAllRecordsInTheOrderOfTheirHandles)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(3, kPlace);
    OpenLayoutManager manager(parent.Window());
    for (const std::size_t i : {1u, 2u, 0u})
        manager.AddControl(children[i], ANCHOR_TOPLEFT, 0, FALSE);

    std::vector<HWND> asked;
    const ImportSpy<decltype(::GetWindowRect)> places(VxDpiModule(), "user32.dll", "GetWindowRect",
                                                      [&](HWND hWnd, RECT* rect)
                                                      {
                                                          asked.push_back(hWnd);
                                                          return places.Original()(hWnd, rect);
                                                      });
    manager.AutoCaptureRects();
    EXPECT_EQ(asked, (std::vector<HWND>{children[0]->m_hWnd, children[1]->m_hWnd, children[2]->m_hWnd}));
    for (const CWnd* const pChild : children)
        ExpectCaptured(manager.RecordOf(pChild), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, ChangesNothingElseInARecord)
{
    CaptureOfOne one;
    LayoutInfo info = RecordAt({0, 0, 0, 0}, ANCHOR_BOTTOM, SIZE_STRETCH_HEIGHT, 0, 0, 5);
    info.pWnd = one.pChild;
    info.nCtrlID = kOtherId;
    const LayoutInfo& captured = one.Capture(info);
    ExpectCaptured(captured, Edges(10, 20, 110, 50), 290, 250);
    EXPECT_EQ(captured.pWnd, one.pChild);
    EXPECT_EQ(captured.nCtrlID, kOtherId);
    EXPECT_EQ(captured.nAnchor, 4u);
    EXPECT_EQ(captured.nSizePolicy, 2u);
    EXPECT_EQ(captured.bMinSize, 5);
}

TEST(AutoCaptureRects, LeavesARecordWithARectangleAlone)
{
    CaptureOfOne one;
    LayoutInfo info = RecordAt({1, 2, 3, 4}, ANCHOR_TOPLEFT, 0, 7, 9);
    info.pWnd = one.pChild;
    info.nCtrlID = kId;
    ExpectCaptured(one.Capture(info), Edges(1, 2, 3, 4), 7, 9);
}

TEST(AutoCaptureRects, LeavesARecordAloneWhenAnyEdgeIsNotZero)
{
    for (const RECT& base96 :
         {RECT{1, 0, 0, 0}, RECT{0, 1, 0, 0}, RECT{0, 0, 1, 0}, RECT{0, 0, 0, 1}, RECT{-1, 0, 0, 0}})
    {
        CaptureOfOne one;
        LayoutInfo info = RecordAt(base96, ANCHOR_TOPLEFT, 0, 7, 9);
        info.pWnd = one.pChild;
        ExpectCaptured(one.Capture(info), Edges(base96), 7, 9);
    }
}

TEST(AutoCaptureRects, LeavesAnEmptyRectangleAwayFromTheOriginAlone)
{
    CaptureOfOne one;
    LayoutInfo info = RecordAt({5, 5, 5, 5});
    info.pWnd = one.pChild;
    ExpectCaptured(one.Capture(info), Edges(5, 5, 5, 5), 0, 0);
}

TEST(AutoCaptureRects, GoesOnBehindARecordThatItLeavesAlone)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(3, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(children[0], RecordAt({1, 2, 3, 4}));
    manager.AddControl(children[1], UncapturedRecord(nullptr, kMissingId));
    manager.AddControl(children[2], ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(children[2]), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, CapturesARecordOnce)
{
    CaptureOfOne one;
    one.Capture(UncapturedRecord(one.pChild, kId));
    one.pChild->MoveWindow(&kElsewhere);
    one.parent.Resize(800, 600);
    one.manager.UpdateDpi(144);
    one.manager.AutoCaptureRects();
    ExpectCaptured(one.manager.RecordOf(one.pChild), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, CapturesAControlWithoutSizeAtTheOriginAgainEachTime)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, {0, 0, 0, 0});
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(0, 0, 0, 0), 400, 300);
    parent.Resize(500, 350);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(0, 0, 0, 0), 500, 350);
    pChild->MoveWindow(&kPlace);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(10, 20, 110, 50), 390, 300);
}

TEST(AutoCaptureRects, TakesTheWindowAndNotTheItemWhenBothExist)
{
    CaptureOfOne one;
    one.parent.AddChild(kOtherId, kElsewhere);
    ExpectCaptured(one.Capture(UncapturedRecord(one.pChild, kOtherId)), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, TakesTheWindowThoughTheParentHasNoSuchItem)
{
    CaptureOfOne one;
    ExpectCaptured(one.Capture(UncapturedRecord(one.pChild, kMissingId)), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, TakesTheItemWithTheIdWhenTheWindowIsGone)
{
    CaptureOfOne one;
    CWnd* const pGone = one.parent.AddChild(kOtherId, {1, 1, 2, 2});
    ::DestroyWindow(pGone->m_hWnd);
    one.parent.AddChild(kOtherId, kElsewhere);
    const LayoutInfo& captured = one.Capture(UncapturedRecord(pGone, kOtherId));
    ExpectCaptured(captured, Edges(200, 100, 260, 130), 140, 170);
    EXPECT_EQ(captured.pWnd, pGone);
    EXPECT_EQ(captured.nCtrlID, kOtherId);
    EXPECT_EQ(one.manager.m_pLayouts->size(), 1u);
}

TEST(AutoCaptureRects, TakesTheItemWithIdZeroLikeAnyOtherWhenTheWindowIsGone)
{
    CaptureOfOne one;
    CWnd* const pGone = one.parent.AddChild(kOtherId, {1, 1, 2, 2});
    ::DestroyWindow(pGone->m_hWnd);
    one.parent.AddChild(0, kElsewhere);
    ExpectCaptured(one.Capture(UncapturedRecord(pGone, 0)), Edges(200, 100, 260, 130), 140, 170);
}

TEST(AutoCaptureRects, TakesTheItemForAWindowObjectThatHasNoWindow)
{
    CaptureOfOne one;
    CWnd detached;
    ExpectCaptured(one.Capture(UncapturedRecord(&detached, kId)), Edges(10, 20, 110, 50), 290, 250);
}

TEST(AutoCaptureRects, StoresNothingWhenTheWindowIsGoneAndTheItemToo)
{
    CaptureOfOne one;
    CWnd* const pGone = one.parent.AddChild(kOtherId, kElsewhere);
    ::DestroyWindow(pGone->m_hWnd);
    ExpectCaptured(one.Capture(UncapturedRecord(pGone, kOtherId)), Edges(0, 0, 0, 0), 7, 9);
}

TEST(AutoCaptureRects, StoresNothingForARecordWithoutAWindowObject)
{
    CaptureOfOne one;
    ExpectCaptured(one.Capture(UncapturedRecord(nullptr, kId)), Edges(0, 0, 0, 0), 7, 9);
    ExpectCaptured(one.Capture(UncapturedRecord(nullptr, 0)), Edges(0, 0, 0, 0), 7, 9);
}

TEST(AutoCaptureRects, WithoutAParentDoesNothing)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(nullptr);
    manager.AddControl(pChild, UncapturedRecord(pChild, kId));
    const ImportSpy<decltype(::GetClientRect)> size(VxDpiModule(), "user32.dll", "GetClientRect");
    manager.AutoCaptureRects();
    EXPECT_EQ(size.CallCount(), 0);
    ExpectCaptured(manager.RecordOf(pChild), Edges(0, 0, 0, 0), 7, 9);
}

TEST(AutoCaptureRects, TakesAParentThatIsGoneAsEmpty)
{
    LayoutParent parent;
    LayoutParent other(WS_POPUP, {100, 50, 500, 350});
    CWnd* const pChild = other.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    ::DestroyWindow(parent.Handle());
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(110, 70, 210, 100), -210, -100);
}

TEST(AutoCaptureRects, TakesAControlWhosePlaceIsRefusedAsTheOriginOfTheScreen)
{
    LayoutParent parent(WS_POPUP, {100, 50, 500, 350});
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    const FailNthCall<decltype(::GetWindowRect)> refused(VxDpiModule(), "user32.dll", "GetWindowRect", 1,
                                                         FALSE);
    manager.AutoCaptureRects();
    ExpectCaptured(manager.RecordOf(pChild), Edges(-100, -50, -100, -50), 500, 350);
}

TEST(AutoCaptureRects, NeitherMovesControlsNorEndsTheNeedToCapture)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.UpdateDpi(144);
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    const MovingCalls moves;
    manager.AutoCaptureRects();
    EXPECT_EQ(moves.Lines(), CallLog::LineList());
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}
