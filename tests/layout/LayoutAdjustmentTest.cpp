#include "foundation/LibraryModule.h"
#include "layout/LayoutFixtures.h"
#include "support/ImportSpy.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr RECT kPlace = {10, 20, 110, 50};
constexpr RECT kElsewhere = {200, 100, 260, 130};
constexpr RECT kButton96 = {10, 10, 110, 30};
constexpr RECT kParent = {0, 0, 400, 300};
// A rectangle as another step may hand it on: nothing in it follows from a record.
constexpr RECT kAnywhere = {3, 4, 53, 64};
constexpr UINT kStretchBoth = SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT;
constexpr UINT kId = 1001;
constexpr UINT kOtherId = 1002;
constexpr UINT kMissingId = 1999;

using Lines = CallLog::LineList;

EdgeList Scaled(int dpi, const RECT& rc96)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    return Edges(manager.GetScaledRect(rc96));
}

EdgeList Sized(int dpi, const RECT& rect, const RECT& parent, const LayoutInfo& info)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    CRect rc(rect);
    manager.ApplySizePolicy(rc, parent, info);
    return Edges(rc);
}

EdgeList Anchored(int dpi, const RECT& rect, const RECT& parent, const LayoutInfo& info)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    CRect rc(rect);
    manager.ApplyAnchor(rc, parent, info);
    return Edges(rc);
}

EdgeList Placed(int dpi, const RECT& parent, const LayoutInfo& info)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    return Edges(manager.GetControlRect(info, parent));
}

// A parent of 400 x 300 with one child and what is done to it.
struct OneChild
{
    LayoutParent parent;
    CWnd* pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager{parent.Window()};

    // The calls that lay out one record under the child's handle.
    Lines LayOut(LayoutInfo info)
    {
        manager.AddControl(pChild, info);
        MovingCalls moves;
        moves.Name(pChild, "child");
        manager.AdjustLayout();
        return moves.Lines();
    }

    LayoutInfo Record(const RECT& base96, UINT nAnchor = ANCHOR_TOPLEFT)
    {
        LayoutInfo info = RecordAt(base96, nAnchor);
        info.pWnd = pChild;
        return info;
    }
};

// Three children, registered from the last handle to the first.
struct ThreeChildren
{
    LayoutParent parent;
    std::vector<CWnd*> children = parent.AddChildrenInOrder(3, kPlace);
    OpenLayoutManager manager{parent.Window()};

    ThreeChildren()
    {
        manager.AddControl(children[2], ANCHOR_BOTTOMRIGHT, 0, FALSE);
        manager.AddControl(children[1], ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH, FALSE);
        manager.AddControl(children[0], ANCHOR_RIGHT, 0, FALSE);
    }

    Lines LayOut()
    {
        MovingCalls moves;
        moves.Name(children[0], "first");
        moves.Name(children[1], "second");
        moves.Name(children[2], "third");
        manager.AdjustLayout();
        return moves.Lines();
    }
};

// What the three children get in a parent of 500 x 350.
const Lines kThreeMoved = {
    "SetWindowPos(first, null, 110, 20, 100, 30, 4)", "InvalidateRect(first, null, 1)",
    "SetWindowPos(second, null, 10, 20, 200, 30, 4)", "InvalidateRect(second, null, 1)",
    "SetWindowPos(third, null, 110, 70, 100, 30, 4)", "InvalidateRect(third, null, 1)"};
}

TEST(GetScaledRect, At96IsTheSame)
{
    EXPECT_EQ(Scaled(96, {-1, 2, 33, 44}), Edges(-1, 2, 33, 44));
}

TEST(GetScaledRect, At120RoundsEachEdge)
{
    EXPECT_EQ(Scaled(120, {1, 2, 3, 4}), Edges(1, 3, 4, 5));
    EXPECT_EQ(Scaled(120, {-1, -2, -3, -4}), Edges(-1, -3, -4, -5));
}

TEST(GetScaledRect, At144RoundsEachEdgeByItself)
{
    EXPECT_EQ(Scaled(144, kButton96), Edges(15, 15, 165, 45));
    EXPECT_EQ(Scaled(144, {1, 2, 4, 7}), Edges(2, 3, 6, 11));
    EXPECT_EQ(Scaled(144, {-1, -3, -5, -7}), Edges(-2, -5, -8, -11));
}

TEST(GetScaledRect, At192AndAtTheEndMultiplies)
{
    EXPECT_EQ(Scaled(192, {1, 2, 3, 4}), Edges(2, 4, 6, 8));
    EXPECT_EQ(Scaled(576, {1, 2, 3, -4}), Edges(6, 12, 18, -24));
}

TEST(GetScaledRect, FollowsTheScaleAndNotTheDpi)
{
    OpenLayoutManager manager(nullptr);
    manager.m_scale = 2.0f;
    EXPECT_EQ(Edges(manager.GetScaledRect({1, 2, 3, 4})), Edges(2, 4, 6, 8));
}

TEST(ApplySizePolicy, WithoutFlagsGivesTheDesignedSizeScaled)
{
    EXPECT_EQ(Sized(96, kAnywhere, kParent, RecordAt(kButton96)), Edges(3, 4, 103, 24));
    EXPECT_EQ(Sized(120, kAnywhere, kParent, RecordAt(kButton96)), Edges(3, 4, 128, 29));
    EXPECT_EQ(Sized(144, kAnywhere, kParent, RecordAt(kButton96)), Edges(3, 4, 153, 34));
    EXPECT_EQ(Sized(192, kAnywhere, kParent, RecordAt(kButton96)), Edges(3, 4, 203, 44));
}

TEST(ApplySizePolicy, ScalesTheSizeAndNotTheEdges)
{
    EXPECT_EQ(Sized(144, {2, 2, 0, 0}, kParent, RecordAt({1, 1, 4, 6})), Edges(2, 2, 7, 10));
}

TEST(ApplySizePolicy, OtherFlagsDoNotStretch)
{
    EXPECT_EQ(Sized(96, kAnywhere, kParent, RecordAt(kButton96, 0, 0xFFFFFFFC, 20, 40)),
              Edges(3, 4, 103, 24));
}

TEST(ApplySizePolicy, StretchesTheWidthUpToTheScaledMargin)
{
    EXPECT_EQ(Sized(144, {15, 15, 0, 0}, kParent, RecordAt(kButton96, 0, SIZE_STRETCH_WIDTH, 20, 40)),
              Edges(15, 15, 370, 45));
    EXPECT_EQ(Sized(120, kAnywhere, kParent, RecordAt({11, 10, 110, 30}, 0, SIZE_STRETCH_WIDTH, 22, 40)),
              Edges(3, 4, 361, 29));
}

TEST(ApplySizePolicy, StretchesTheHeightDownToTheScaledMargin)
{
    EXPECT_EQ(Sized(144, {15, 15, 0, 0}, kParent, RecordAt(kButton96, 0, SIZE_STRETCH_HEIGHT, 20, 40)),
              Edges(15, 15, 165, 240));
    EXPECT_EQ(Sized(120, kAnywhere, kParent, RecordAt({10, 11, 110, 31}, 0, SIZE_STRETCH_HEIGHT, 20, 42)),
              Edges(3, 4, 128, 237));
}

TEST(ApplySizePolicy, StretchesBothAndIgnoresOtherFlags)
{
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, kParent, RecordAt(kButton96, 0, kStretchBoth, 20, 40)),
              Edges(10, 10, 380, 260));
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, kParent, RecordAt(kButton96, 0, 0xFFFFFFFF, 20, 40)),
              Edges(10, 10, 380, 260));
}

TEST(ApplySizePolicy, ScalesStartAndMarginEachByItself)
{
    EXPECT_EQ(Sized(144, {0, 0, 0, 0}, kParent, RecordAt({1, 1, 2, 2}, 0, kStretchBoth, 1, 1)),
              Edges(0, 0, 396, 296));
}

TEST(ApplySizePolicy, TakesTheSizeOfAParentThatDoesNotStartAtZero)
{
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {100, 200, 400, 300}, RecordAt(kButton96, 0, kStretchBoth, 20, 40)),
              Edges(10, 10, 280, 60));
}

TEST(ApplySizePolicy, ANegativeMarginStretchesBeyondTheParent)
{
    EXPECT_EQ(Sized(144, {15, 15, 0, 0}, kParent, RecordAt(kButton96, 0, kStretchBoth, -10, -3)),
              Edges(15, 15, 415, 305));
}

TEST(ApplySizePolicy, ShrinksBelowZeroWhereTheDesignedSizeIsNotKept)
{
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 25, 45}, RecordAt(kButton96, 0, kStretchBoth, 20, 40)),
              Edges(10, 10, 5, 5));
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 30, 50}, RecordAt(kButton96, 0, kStretchBoth, 20, 40)),
              Edges(10, 10, 10, 10));
}

TEST(ApplySizePolicy, KeepsTheDesignedSizeWhereAsked)
{
    const LayoutInfo info = RecordAt(kButton96, 0, kStretchBoth, 20, 40, TRUE);
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 25, 45}, info), Edges(10, 10, 110, 30));
    EXPECT_EQ(Sized(144, {15, 15, 0, 0}, {0, 0, 100, 100}, info), Edges(15, 15, 165, 45));
}

TEST(ApplySizePolicy, KeepsTheDesignedSizeForAnyTruth)
{
    for (const int bMinSize : {1, 2, -1})
    {
        EXPECT_EQ(
            Sized(96, {10, 10, 0, 0}, {0, 0, 25, 45}, RecordAt(kButton96, 0, kStretchBoth, 20, 40, bMinSize)),
            Edges(10, 10, 110, 30));
    }
}

TEST(ApplySizePolicy, KeepsWidthAndHeightEachByItself)
{
    const LayoutInfo info = RecordAt(kButton96, 0, kStretchBoth, 20, 40, TRUE);
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 129, 71}, info), Edges(10, 10, 110, 31));
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 131, 69}, info), Edges(10, 10, 111, 30));
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, {0, 0, 130, 70}, info), Edges(10, 10, 110, 30));
}

TEST(ApplySizePolicy, KeepingTheDesignedSizeStillLetsItGrow)
{
    EXPECT_EQ(Sized(96, {10, 10, 0, 0}, kParent, RecordAt(kButton96, 0, kStretchBoth, 20, 40, TRUE)),
              Edges(10, 10, 380, 260));
}

TEST(ApplySizePolicy, ANegativeDesignedSizeIsComparedWithItsSign)
{
    EXPECT_EQ(Sized(96, {0, 0, 0, 0}, {0, 0, 5, 5}, RecordAt({10, 10, 5, 5}, 0, kStretchBoth, 0, 0, TRUE)),
              Edges(0, 0, -5, -5));
    EXPECT_EQ(Sized(96, {0, 0, 0, 0}, {0, 0, 6, 6}, RecordAt({10, 10, 5, 5}, 0, kStretchBoth, 0, 0, TRUE)),
              Edges(0, 0, -4, -4));
}

TEST(ApplyAnchor, RightKeepsTheScaledMarginAndTheTop)
{
    const LayoutInfo info = RecordAt(kButton96, ANCHOR_RIGHT, 0, 20, 40);
    EXPECT_EQ(Anchored(96, kAnywhere, kParent, info), Edges(330, 4, 380, 64));
    EXPECT_EQ(Anchored(120, kAnywhere, kParent, info), Edges(325, 4, 375, 64));
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, info), Edges(320, 4, 370, 64));
    EXPECT_EQ(Anchored(192, kAnywhere, kParent, info), Edges(310, 4, 360, 64));
}

TEST(ApplyAnchor, BottomKeepsTheScaledMarginAndTheLeft)
{
    const LayoutInfo info = RecordAt(kButton96, ANCHOR_BOTTOM, 0, 20, 40);
    EXPECT_EQ(Anchored(96, kAnywhere, kParent, info), Edges(3, 200, 53, 260));
    EXPECT_EQ(Anchored(120, kAnywhere, kParent, info), Edges(3, 190, 53, 250));
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, info), Edges(3, 180, 53, 240));
    EXPECT_EQ(Anchored(192, kAnywhere, kParent, info), Edges(3, 160, 53, 220));
}

TEST(ApplyAnchor, BottomRightKeepsBothMargins)
{
    const LayoutInfo info = RecordAt(kButton96, ANCHOR_BOTTOMRIGHT, 0, 20, 40);
    EXPECT_EQ(Anchored(96, kAnywhere, kParent, info), Edges(330, 200, 380, 260));
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, info), Edges(320, 180, 370, 240));
}

TEST(ApplyAnchor, TopLeftMovesToTheScaledDesignedPlace)
{
    const LayoutInfo info = RecordAt({11, 21, 110, 50}, ANCHOR_TOPLEFT, 0, 20, 40);
    EXPECT_EQ(Anchored(96, kAnywhere, kParent, info), Edges(11, 21, 61, 81));
    EXPECT_EQ(Anchored(120, kAnywhere, kParent, info), Edges(14, 26, 64, 86));
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, info), Edges(17, 32, 67, 92));
    EXPECT_EQ(Anchored(192, kAnywhere, kParent, info), Edges(22, 42, 72, 102));
}

TEST(ApplyAnchor, AnyOtherValueIsTopLeft)
{
    for (const UINT nAnchor : {0u, 3u, 5u, 6u, 7u, 9u, 10u, 12u, 15u, 16u, 0x80000002u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(Anchored(96, kAnywhere, kParent, RecordAt({11, 21, 110, 50}, nAnchor, 0, 20, 40)),
                  Edges(11, 21, 61, 81))
            << nAnchor;
    }
}

TEST(ApplyAnchor, TakesTheEndsOfAParentThatDoesNotStartAtZero)
{
    EXPECT_EQ(
        Anchored(96, kAnywhere, {100, 200, 400, 300}, RecordAt(kButton96, ANCHOR_BOTTOMRIGHT, 0, 20, 40)),
        Edges(330, 200, 380, 260));
}

TEST(ApplyAnchor, RoundsMarginsAwayFromZero)
{
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, RecordAt(kButton96, ANCHOR_BOTTOMRIGHT, 0, 1, 3)),
              Edges(348, 235, 398, 295));
    EXPECT_EQ(Anchored(144, kAnywhere, kParent, RecordAt(kButton96, ANCHOR_BOTTOMRIGHT, 0, -1, -3)),
              Edges(352, 245, 402, 305));
}

TEST(ApplyAnchor, KeepsANegativeSize)
{
    EXPECT_EQ(Anchored(96, {10, 10, 5, 2}, kParent, RecordAt(kButton96, ANCHOR_BOTTOMRIGHT, 0, 20, 40)),
              Edges(385, 268, 380, 260));
}

TEST(GetControlRect, OfAFixedControlIsItsScaledDesignedRectangle)
{
    EXPECT_EQ(Placed(96, kParent, RecordAt(kButton96)), Edges(10, 10, 110, 30));
    EXPECT_EQ(Placed(120, kParent, RecordAt(kButton96)), Edges(13, 13, 138, 38));
    EXPECT_EQ(Placed(144, kParent, RecordAt(kButton96)), Edges(15, 15, 165, 45));
    EXPECT_EQ(Placed(192, kParent, RecordAt(kButton96)), Edges(20, 20, 220, 60));
    EXPECT_EQ(Placed(576, kParent, RecordAt(kButton96)), Edges(60, 60, 660, 180));
}

TEST(GetControlRect, OfAStretchedControlEndsAtTheScaledMargins)
{
    EXPECT_EQ(Placed(144, kParent, RecordAt(kButton96, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH, 20, 40)),
              Edges(15, 15, 370, 45));
    EXPECT_EQ(Placed(144, kParent, RecordAt(kButton96, ANCHOR_TOPLEFT, kStretchBoth, 20, 40)),
              Edges(15, 15, 370, 240));
}

TEST(GetControlRect, RightAnchorKeepsTheScaledTop)
{
    EXPECT_EQ(Placed(144, kParent, RecordAt(kButton96, ANCHOR_RIGHT, 0, 20, 40)), Edges(220, 15, 370, 45));
}

TEST(GetControlRect, BottomAnchorKeepsTheScaledLeft)
{
    EXPECT_EQ(Placed(144, kParent, RecordAt(kButton96, ANCHOR_BOTTOM, 0, 20, 40)), Edges(15, 210, 165, 240));
}

TEST(GetControlRect, AnchorMovesTheStretchedSize)
{
    EXPECT_EQ(
        Placed(96, {0, 0, 60, 300}, RecordAt(kButton96, ANCHOR_RIGHT, SIZE_STRETCH_WIDTH, 20, 40, TRUE)),
        Edges(-60, 10, 40, 30));
    EXPECT_EQ(Placed(96, {0, 0, 25, 300}, RecordAt(kButton96, ANCHOR_RIGHT, SIZE_STRETCH_WIDTH, 20, 40)),
              Edges(10, 10, 5, 30));
}

TEST(GetControlRect, ChangesNoState)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(144);
    manager.GetControlRect(RecordAt(kButton96), kParent);
    EXPECT_EQ(manager.m_dpi, 144);
    EXPECT_EQ(manager.m_scale, 1.5f);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(AdjustLayout, MovesAndInvalidatesOneControlAfterTheOtherInTheOrderOfTheirHandles)
{
    ThreeChildren three;
    three.manager.AutoCaptureRects();
    three.parent.Resize(500, 350);
    EXPECT_EQ(three.LayOut(), kThreeMoved);
}

TEST(AdjustLayout, ReallyMovesTheControls)
{
    ThreeChildren three;
    three.manager.AutoCaptureRects();
    three.parent.Resize(500, 350);
    three.LayOut();
    EXPECT_EQ(three.parent.PlaceOf(three.children[0]), Edges(110, 20, 210, 50));
    EXPECT_EQ(three.parent.PlaceOf(three.children[1]), Edges(10, 20, 210, 50));
    EXPECT_EQ(three.parent.PlaceOf(three.children[2]), Edges(110, 70, 210, 100));
}

TEST(AdjustLayout, LeavesTheOrderOfTheWindowsAlone)
{
    ThreeChildren three;
    const HWND top = ::GetTopWindow(three.parent.Handle());
    const HWND next = ::GetWindow(top, GW_HWNDNEXT);
    three.LayOut();
    EXPECT_EQ(::GetTopWindow(three.parent.Handle()), top);
    EXPECT_EQ(::GetWindow(top, GW_HWNDNEXT), next);
}

TEST(AdjustLayout, IgnoresAControlThatRefusesToMove)
{
    ThreeChildren three;
    three.manager.AutoCaptureRects();
    three.parent.Resize(500, 350);
    MovingCalls moves;
    moves.Name(three.children[0], "first");
    moves.Name(three.children[1], "second");
    moves.Name(three.children[2], "third");
    {
        const ImportSpy<decltype(::SetWindowPos)> refused(VxDpiModule(), "user32.dll", "SetWindowPos",
                                                          [&](auto... args)
                                                          {
                                                              refused.Original()(args...);
                                                              return FALSE;
                                                          });
        const ImportSpy<decltype(::InvalidateRect)> unpainted(VxDpiModule(), "user32.dll", "InvalidateRect",
                                                              [&](auto... args)
                                                              {
                                                                  unpainted.Original()(args...);
                                                                  return FALSE;
                                                              });
        three.manager.AdjustLayout();
    }
    EXPECT_EQ(moves.Lines(), kThreeMoved);
}

TEST(AdjustLayout, HasWholeControlsPaintedWithTheirBackground)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    parent.Window()->ShowWindow(SW_SHOWNOACTIVATE);
    PumpMessages(50);
    parent.Window()->UpdateWindow();
    pChild->UpdateWindow();
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    ::ValidateRect(pChild->m_hWnd, nullptr);
    manager.AdjustLayout();
    RECT update = {};
    ::GetUpdateRect(pChild->m_hWnd, &update, FALSE);
    EXPECT_EQ(Edges(update), Edges(0, 0, 100, 30));
}

TEST(AdjustLayout, ForTheFirstTimeCapturesBefore)
{
    OneChild one;
    one.manager.UpdateDpi(144);
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    const LayoutInfo& info = one.manager.RecordOf(one.pChild);
    EXPECT_EQ(Edges(info.rcBase96), Edges(7, 13, 73, 33));
    EXPECT_EQ(info.nMarginRight, 194);
    EXPECT_EQ(info.nMarginBottom, 167);
    EXPECT_EQ(one.manager.m_bNeedCapture, 0);
    EXPECT_EQ(one.parent.PlaceOf(one.pChild), Edges(11, 20, 110, 50));
}

TEST(AdjustLayout, CapturesOnlyOnce)
{
    OneChild one;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    CWnd* const pLater = one.parent.AddChild(kOtherId, kElsewhere);
    one.manager.AddControl(pLater, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    EXPECT_EQ(Edges(one.manager.RecordOf(pLater).rcBase96), Edges(0, 0, 0, 0));
    EXPECT_EQ(one.manager.RecordOf(pLater).nMarginRight, 0);
    EXPECT_EQ(one.parent.PlaceOf(pLater), Edges(0, 0, 0, 0));
    EXPECT_EQ(one.parent.PlaceOf(one.pChild), Edges(10, 20, 110, 50));
}

TEST(AdjustLayout, CapturesForAnyNeed)
{
    OneChild one;
    one.manager.m_bNeedCapture = 2;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    EXPECT_EQ(Edges(one.manager.RecordOf(one.pChild).rcBase96), Edges(10, 20, 110, 50));
    EXPECT_EQ(one.manager.m_bNeedCapture, 0);
}

TEST(AdjustLayout, WithoutRecordsDoesNotAskTheParentAndStillNeedsToCapture)
{
    LayoutParent parent;
    parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    const ImportSpy<decltype(::GetClientRect)> size(VxDpiModule(), "user32.dll", "GetClientRect");
    manager.AdjustLayout();
    EXPECT_EQ(steps.Lines(), (Lines{"AdjustLayout"}));
    EXPECT_EQ(size.CallCount(), 0);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(AdjustLayout, WithoutAParentDoesNothingAndStillNeedsToCapture)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(nullptr, steps);
    LayoutInfo info = RecordAt({1, 2, 3, 4});
    info.pWnd = pChild;
    manager.OpenLayoutManager::AddControl(pChild, info);
    steps.Clear();
    const MovingCalls moves;
    manager.AdjustLayout();
    EXPECT_EQ(steps.Lines(), (Lines{"AdjustLayout"}));
    EXPECT_EQ(moves.Lines(), Lines());
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(AdjustLayout, AsksForTheParentsSizeAfterTheCapture)
{
    OneChild one;
    CallLog log;
    log.Name(one.parent.Handle(), "parent");
    log.Name(one.pChild->m_hWnd, "child");
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    const ImportSpy<decltype(::GetClientRect)> size(VxDpiModule(), "user32.dll", "GetClientRect",
                                                    [&](HWND hWnd, RECT* rect)
                                                    {
                                                        log.WriteCall("GetClientRect", hWnd);
                                                        return size.Original()(hWnd, rect);
                                                    });
    const ImportSpy<decltype(::GetWindowRect)> place(VxDpiModule(), "user32.dll", "GetWindowRect",
                                                     [&](HWND hWnd, RECT* rect)
                                                     {
                                                         log.WriteCall("GetWindowRect", hWnd);
                                                         return place.Original()(hWnd, rect);
                                                     });
    one.manager.AdjustLayout();
    EXPECT_EQ(log.Lines(), (Lines{"GetClientRect(parent)", "GetWindowRect(child)", "GetClientRect(parent)"}));
}

TEST(AdjustLayout, DoesNotAskForTheDpi)
{
    OneChild one;
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow");
    EXPECT_EQ(one.LayOut(one.Record({30, 40, 60, 80})),
              (Lines{"SetWindowPos(child, null, 30, 40, 30, 40, 4)", "InvalidateRect(child, null, 1)"}));
    EXPECT_EQ(dpi.CallCount(), 0);
}

TEST(AdjustLayout, TakesTheParentsSizeInItsOwnPixels)
{
    OneChild one;
    one.manager.UpdateDpi(192);
    LayoutInfo info = one.Record({10, 10, 60, 30}, ANCHOR_BOTTOMRIGHT);
    info.nMarginRight = 20;
    info.nMarginBottom = 40;
    EXPECT_EQ(one.LayOut(info),
              (Lines{"SetWindowPos(child, null, 260, 180, 100, 40, 4)", "InvalidateRect(child, null, 1)"}));
}

TEST(AdjustLayout, GivesNegativeSizesOnAsTheyAre)
{
    OneChild one;
    LayoutInfo info = one.Record({10, 10, 60, 30});
    info.nSizePolicy = kStretchBoth;
    info.nMarginRight = 410;
    info.nMarginBottom = 305;
    EXPECT_EQ(one.LayOut(info),
              (Lines{"SetWindowPos(child, null, 10, 10, -20, -15, 4)", "InvalidateRect(child, null, 1)"}));
}

TEST(AdjustLayout, FindsAControlByItsIdAndNotByItsWindow)
{
    OneChild one;
    CWnd* const pOther = one.parent.AddChild(kOtherId, kElsewhere);
    LayoutInfo info = one.Record({30, 40, 60, 80});
    info.nCtrlID = kOtherId;
    EXPECT_EQ(one.LayOut(info).size(), 2u);
    EXPECT_EQ(one.parent.PlaceOf(one.pChild), Edges(10, 20, 110, 50));
    EXPECT_EQ(one.parent.PlaceOf(pOther), Edges(30, 40, 60, 80));
}

TEST(AdjustLayout, FindsAControlByItsIdWithoutAWindow)
{
    OneChild one;
    LayoutInfo info = RecordAt({30, 40, 60, 80});
    info.nCtrlID = kId;
    EXPECT_EQ(one.LayOut(info),
              (Lines{"SetWindowPos(child, null, 30, 40, 30, 40, 4)", "InvalidateRect(child, null, 1)"}));
}

TEST(AdjustLayout, FindsAControlByItsIdWhenItsWindowIsGone)
{
    OneChild one;
    CWnd* const pGone = one.parent.AddChild(kOtherId, kElsewhere);
    ::DestroyWindow(pGone->m_hWnd);
    LayoutInfo info = RecordAt({30, 40, 60, 80});
    info.pWnd = pGone;
    info.nCtrlID = kId;
    EXPECT_EQ(one.LayOut(info),
              (Lines{"SetWindowPos(child, null, 30, 40, 30, 40, 4)", "InvalidateRect(child, null, 1)"}));
}

TEST(AdjustLayout, PassesOverAnIdThatTheParentLacks)
{
    OneChild one;
    LayoutInfo info = one.Record({30, 40, 60, 80});
    info.nCtrlID = kMissingId;
    EXPECT_EQ(one.LayOut(info), Lines());
    EXPECT_EQ(one.parent.PlaceOf(one.pChild), Edges(10, 20, 110, 50));
}

TEST(AdjustLayout, PassesOverARecordWithNeitherWindowNorId)
{
    OneChild one;
    EXPECT_EQ(one.LayOut(RecordAt({30, 40, 60, 80})), Lines());
    EXPECT_EQ(one.manager.m_bNeedCapture, 0);
}

TEST(AdjustLayout, PassesOverAWindowObjectThatHasNoWindow)
{
    OneChild one;
    CWnd detached;
    LayoutInfo info = RecordAt({30, 40, 60, 80});
    info.pWnd = &detached;
    EXPECT_EQ(one.LayOut(info), Lines());
}

TEST(AdjustLayout, GoesOnBehindAControlThatItPassesOver)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(2, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(children[0], LayoutInfo());
    manager.AddControl(children[1], ANCHOR_TOPLEFT, 0, FALSE);
    MovingCalls moves;
    moves.Name(children[1], "second");
    manager.AdjustLayout();
    EXPECT_EQ(moves.Lines(),
              (Lines{"SetWindowPos(second, null, 10, 20, 100, 30, 4)", "InvalidateRect(second, null, 1)"}));
}

TEST(AdjustLayout, GoesOnBehindAWindowThatIsGone)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(2, kPlace);
    OpenLayoutManager manager(parent.Window());
    LayoutInfo info = RecordAt({30, 40, 60, 80});
    info.pWnd = children[0];
    manager.AddControl(children[0], info);
    manager.AddControl(children[1], ANCHOR_TOPLEFT, 0, FALSE);
    ::DestroyWindow(children[0]->m_hWnd);
    children[1]->MoveWindow(&kElsewhere);
    MovingCalls moves;
    moves.Name(children[0], "gone");
    moves.Name(children[1], "second");
    manager.AdjustLayout();
    EXPECT_EQ(moves.Lines(),
              (Lines{"SetWindowPos(gone, null, 30, 40, 30, 40, 4)", "InvalidateRect(gone, null, 1)",
                     "SetWindowPos(second, null, 200, 100, 60, 30, 4)", "InvalidateRect(second, null, 1)"}));
    EXPECT_EQ(parent.PlaceOf(children[1]), Edges(200, 100, 260, 130));
    EXPECT_EQ(Edges(manager.RecordOf(children[1]).rcBase96), Edges(200, 100, 260, 130));
}

TEST(AdjustLayout, PlacesTheFirstOfControlsThatShareAnId)
{
    LayoutParent parent;
    CWnd* const pFirst = parent.AddChild(kId, kPlace);
    CWnd* const pSecond = parent.AddChild(kId, kElsewhere);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pSecond, ANCHOR_TOPLEFT, 0, FALSE);
    const CWnd* const pFound = CWnd::FromHandle(::GetDlgItem(parent.Handle(), kId));
    manager.AdjustLayout();
    EXPECT_EQ(pFound, pFirst);
    EXPECT_EQ(parent.PlaceOf(pFirst), Edges(200, 100, 260, 130));
    EXPECT_EQ(parent.PlaceOf(pSecond), Edges(200, 100, 260, 130));
}

TEST(AdjustLayout, PlacesAControlOfAnotherWindowThatHasNoId)
{
    LayoutParent other;
    CWnd* const pChild = other.AddChild(0, kPlace);
    LayoutParent parent(600, 500);
    OpenLayoutManager manager(parent.Window());
    LayoutInfo info = RecordAt({10, 20, 110, 50}, ANCHOR_BOTTOMRIGHT, 0, 300, 300);
    info.pWnd = pChild;
    manager.AddControl(pChild, info);
    manager.AdjustLayout();
    EXPECT_EQ(other.PlaceOf(pChild), Edges(200, 170, 300, 200));
}

TEST(AdjustLayout, TakesAParentThatIsGoneAsEmpty)
{
    LayoutParent other;
    CWnd* const pChild = other.AddChild(0, kPlace);
    LayoutParent parent;
    OpenLayoutManager manager(parent.Window());
    LayoutInfo info = RecordAt({10, 20, 110, 50}, ANCHOR_BOTTOMRIGHT, kStretchBoth, 5, 7);
    info.pWnd = pChild;
    manager.AddControl(pChild, info);
    ::DestroyWindow(parent.Handle());
    MovingCalls moves;
    moves.Name(pChild, "child");
    manager.AdjustLayout();
    EXPECT_EQ(moves.Lines(),
              (Lines{"SetWindowPos(child, null, 10, 20, -15, -27, 4)", "InvalidateRect(child, null, 1)"}));
}

TEST(AdjustLayout, ChangesNoRecordAfterTheCapture)
{
    OneChild one;
    one.manager.m_bNeedCapture = FALSE;
    LayoutInfo info = one.Record({30, 40, 60, 80}, ANCHOR_BOTTOM);
    info.nMarginRight = 3;
    info.nMarginBottom = 4;
    one.LayOut(info);
    const LayoutInfo& after = one.manager.RecordOf(one.pChild);
    EXPECT_EQ(Edges(after.rcBase96), Edges(30, 40, 60, 80));
    EXPECT_EQ(after.nMarginRight, 3);
    EXPECT_EQ(after.nMarginBottom, 4);
    EXPECT_EQ(after.pWnd, one.pChild);
    EXPECT_EQ(one.manager.m_dpi, 96);
    EXPECT_EQ(one.manager.m_scale, 1.0f);
}
