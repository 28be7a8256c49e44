#include "layout/LayoutFixtures.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr RECT kPlace = {10, 20, 110, 50};
constexpr UINT kId = 1001;
constexpr UINT kOtherId = 1002;
constexpr UINT kMissingId = 1999;

using Lines = CallLog::LineList;

// Answers registration by window with results that no manager gives.
class RegisteringManager : public OpenLayoutManager
{
public:
    using OpenLayoutManager::AddControl;
    using OpenLayoutManager::OpenLayoutManager;

    int AddControl(CWnd* pWnd, LayoutInfo info) override
    {
        pAdded = pWnd;
        added = info;
        return 42;
    }

    int AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize) override
    {
        pAdded = pWnd;
        added = RecordAt({0, 0, 0, 0}, nAnchor, nSizePolicy, 0, 0, bMinSize);
        return 43;
    }

    CWnd* pAdded = nullptr;
    LayoutInfo added;
};

// Steps with results of their own, so that what follows shows whether they were used.
class FixedCapture : public OpenLayoutManager
{
public:
    using OpenLayoutManager::OpenLayoutManager;

    void AutoCaptureRects() override { needDuringCapture = m_bNeedCapture; }

    int needDuringCapture = -1;
};

class FixedConversion : public OpenLayoutManager
{
public:
    using OpenLayoutManager::OpenLayoutManager;

    void ConvertTo96DPIRect(CRect& rc) override
    {
        converted.push_back(Edges(rc));
        rc.SetRect(1, 2, 30 * static_cast<int>(converted.size()), 50 * static_cast<int>(converted.size()));
    }

    std::vector<EdgeList> converted;
};

class FixedControlRect : public OpenLayoutManager
{
public:
    using OpenLayoutManager::OpenLayoutManager;

    CRect GetControlRect(const LayoutInfo& info, const CRect& parentClient) override
    {
        pInfo = &info;
        client = Edges(parentClient);
        return {5, 6, 47, 89};
    }

    const LayoutInfo* pInfo = nullptr;
    EdgeList client = {};
};

class FixedScaledRect : public OpenLayoutManager
{
public:
    using OpenLayoutManager::OpenLayoutManager;

    CRect GetScaledRect(const CRect& rc96) const override
    {
        EXPECT_EQ(Edges(rc96), Edges(10, 20, 110, 50));
        return {1000, 2000, 3000, 4000};
    }
};

// Passes the three steps of a rectangle on as they are, and keeps what they were given.
class HandedOn : public OpenLayoutManager
{
public:
    using OpenLayoutManager::OpenLayoutManager;

    CRect GetScaledRect(const CRect&) const override { return {1, 2, 3, 4}; }

    void ApplySizePolicy(CRect& rc, CRect parentClient, LayoutInfo info) override
    {
        toSize = Edges(rc);
        sizeClient = Edges(parentClient);
        sizeMargin = info.nMarginRight;
        rc.SetRect(5, 6, 7, 8);
    }

    void ApplyAnchor(CRect& rc, CRect parentClient, const LayoutInfo& info) override
    {
        toAnchor = Edges(rc);
        anchorClient = Edges(parentClient);
        pAnchorInfo = &info;
        rc.SetRect(9, 10, 11, 12);
    }

    EdgeList toSize = {};
    EdgeList sizeClient = {};
    int sizeMargin = 0;
    EdgeList toAnchor = {};
    EdgeList anchorClient = {};
    const LayoutInfo* pAnchorInfo = nullptr;
};

// One child of a parent of 400 x 300.
template<typename Manager>
struct OneChild
{
    LayoutParent parent;
    CWnd* pChild = parent.AddChild(kId, kPlace);
    Manager manager{parent.Window()};
};
}

TEST(DerivedLayoutManager, RegistersByIdThroughItsOwnRegistrationByWindow)
{
    OneChild<RegisteringManager> one;
    EXPECT_EQ(one.manager.AddControl(kId, 2u, 3u, 5), 43);
    EXPECT_EQ(one.manager.pAdded, one.pChild);
    EXPECT_EQ(one.manager.added.nAnchor, 2u);
    EXPECT_EQ(one.manager.added.nSizePolicy, 3u);
    EXPECT_EQ(one.manager.added.bMinSize, 5);
    EXPECT_TRUE(one.manager.m_pLayouts->empty());
}

TEST(DerivedLayoutManager, RegistersARecordByIdThroughItsOwnRegistrationByWindow)
{
    OneChild<RegisteringManager> one;
    EXPECT_EQ(one.manager.AddControl(kId, RecordAt({1, 2, 3, 4}, 5, 6, 7, 8, 9)), 42);
    EXPECT_EQ(one.manager.pAdded, one.pChild);
    EXPECT_EQ(Edges(one.manager.added.rcBase96), Edges(1, 2, 3, 4));
    EXPECT_EQ(one.manager.added.nMarginBottom, 8);
    EXPECT_TRUE(one.manager.m_pLayouts->empty());
}

TEST(DerivedLayoutManager, IsNotAskedToRegisterAnItemThatDoesNotExist)
{
    OneChild<RegisteringManager> one;
    EXPECT_EQ(one.manager.AddControl(kMissingId, ANCHOR_RIGHT, 0u, FALSE), 0);
    EXPECT_EQ(one.manager.AddControl(kMissingId, LayoutInfo()), 0);
    EXPECT_EQ(one.manager.pAdded, nullptr);
}

TEST(DerivedLayoutManager, SeesEachFormOfRegistrationCallTheOneForWindowsOnly)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    manager.AddControl(kId, ANCHOR_RIGHT, 0u, FALSE);
    manager.AddControl(kId, LayoutInfo());
    manager.AddControl(pChild, ANCHOR_RIGHT, 0u, FALSE);
    manager.AddControl(pChild, LayoutInfo());
    EXPECT_EQ(steps.Lines(), (Lines{"AddControl(ID, values)", "AddControl(window, values)",
                                    "AddControl(ID, record)", "AddControl(window, record)",
                                    "AddControl(window, values)", "AddControl(window, record)"}));
}

TEST(DerivedLayoutManager, IsAskedForEveryStepOfTheFirstLayoutInOrder)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(2, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    manager.AddControl(children[0], ANCHOR_RIGHT, 0, FALSE);
    manager.AddControl(children[1], ANCHOR_RIGHT, 0, FALSE);
    steps.Clear();
    manager.AdjustLayout();
    EXPECT_EQ(steps.Lines(),
              (Lines{"AdjustLayout", "AutoCaptureRects", "ConvertTo96DPIRect", "ConvertTo96DPIRect",
                     "ConvertTo96DPIRect", "GetControlRect", "GetScaledRect", "ApplySizePolicy",
                     "ApplyAnchor", "GetControlRect", "GetScaledRect", "ApplySizePolicy", "ApplyAnchor"}));
}

TEST(DerivedLayoutManager, IsNotAskedToCaptureForLaterLayouts)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE);
    manager.AdjustLayout();
    steps.Clear();
    manager.AdjustLayout();
    EXPECT_EQ(steps.Lines(),
              (Lines{"AdjustLayout", "GetControlRect", "GetScaledRect", "ApplySizePolicy", "ApplyAnchor"}));
}

TEST(DerivedLayoutManager, IsNotAskedForAControlThatIsPassedOver)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    LayoutInfo info;
    info.nCtrlID = kMissingId;
    manager.AddControl(pChild, info);
    steps.Clear();
    manager.AdjustLayout();
    EXPECT_EQ(steps.Lines(), (Lines{"AdjustLayout", "AutoCaptureRects", "ConvertTo96DPIRect"}));
}

TEST(DerivedLayoutManager, ConvertsTheClientAreaEvenWhenEverythingIsCaptured)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    manager.AddControl(pChild, RecordAt({1, 2, 3, 4}));
    steps.Clear();
    manager.AutoCaptureRects();
    EXPECT_EQ(steps.Lines(), (Lines{"AutoCaptureRects", "ConvertTo96DPIRect"}));
}

TEST(DerivedLayoutManager, LaysOutThroughItsBase)
{
    LayoutParent parent;
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    CDpiLayoutManager& base = manager;
    base.AdjustLayout();
    EXPECT_EQ(steps.Lines(), (Lines{"AdjustLayout"}));
}

TEST(DerivedLayoutManager, MayCaptureInItsOwnWay)
{
    OneChild<FixedCapture> one;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    EXPECT_EQ(Edges(one.manager.RecordOf(one.pChild).rcBase96), Edges(0, 0, 0, 0));
    EXPECT_EQ(one.manager.needDuringCapture, 1);
    EXPECT_EQ(one.manager.m_bNeedCapture, 0);
}

TEST(DerivedLayoutManager, MayCaptureRecordsThatCameLater)
{
    OneChild<OpenLayoutManager> one;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    CWnd* const pLater = one.parent.AddChild(kOtherId, {200, 100, 260, 130});
    one.manager.AddControl(pLater, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AutoCaptureRects();
    EXPECT_EQ(Edges(one.manager.RecordOf(pLater).rcBase96), Edges(200, 100, 260, 130));
    EXPECT_EQ(one.manager.m_bNeedCapture, 0);
}

TEST(DerivedLayoutManager, MayCaptureAllAgain)
{
    OneChild<OpenLayoutManager> one;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AdjustLayout();
    one.pChild->MoveWindow(30, 40, 50, 60);
    (*one.manager.m_pLayouts)[one.pChild->m_hWnd].rcBase96.SetRectEmpty();
    one.manager.m_bNeedCapture = TRUE;
    one.manager.AdjustLayout();
    EXPECT_EQ(Edges(one.manager.RecordOf(one.pChild).rcBase96), Edges(30, 40, 80, 100));
}

TEST(DerivedLayoutManager, ConvertsTheClientAreaFirstAndThenEachControl)
{
    OneChild<FixedConversion> one;
    one.manager.AddControl(one.pChild, ANCHOR_TOPLEFT, 0, FALSE);
    one.manager.AutoCaptureRects();
    EXPECT_EQ(one.manager.converted, (std::vector<EdgeList>{Edges(0, 0, 400, 300), Edges(10, 20, 110, 50)}));
    const LayoutInfo& info = one.manager.RecordOf(one.pChild);
    EXPECT_EQ(Edges(info.rcBase96), Edges(1, 2, 60, 100));
    EXPECT_EQ(info.nMarginRight, 30 - 60);
    EXPECT_EQ(info.nMarginBottom, 50 - 100);
}

TEST(DerivedLayoutManager, MayPlaceAControlItself)
{
    OneChild<FixedControlRect> one;
    one.manager.AddControl(one.pChild, ANCHOR_RIGHT, 0, FALSE);
    one.manager.AdjustLayout();
    EXPECT_EQ(one.parent.PlaceOf(one.pChild), Edges(5, 6, 47, 89));
    EXPECT_EQ(one.manager.pInfo, &one.manager.RecordOf(one.pChild));
    EXPECT_EQ(one.manager.client, Edges(0, 0, 400, 300));
}

TEST(DerivedLayoutManager, MayScaleRectanglesItself)
{
    FixedScaledRect manager(nullptr);
    const LayoutInfo info = RecordAt(kPlace, ANCHOR_RIGHT, 0, 20, 40);
    EXPECT_EQ(Edges(manager.GetControlRect(info, CRect(0, 0, 400, 300))), Edges(280, 2000, 380, 2030));
}

TEST(DerivedLayoutManager, HandsARectangleFromScalingToSizingToAnchoring)
{
    HandedOn manager(nullptr);
    const LayoutInfo info = RecordAt(kPlace, ANCHOR_RIGHT, 0, 20, 40);
    EXPECT_EQ(Edges(manager.GetControlRect(info, CRect(1, 2, 403, 304))), Edges(9, 10, 11, 12));
    EXPECT_EQ(manager.toSize, Edges(1, 2, 3, 4));
    EXPECT_EQ(manager.sizeClient, Edges(1, 2, 403, 304));
    EXPECT_EQ(manager.sizeMargin, 20);
    EXPECT_EQ(manager.toAnchor, Edges(5, 6, 7, 8));
    EXPECT_EQ(manager.anchorClient, Edges(1, 2, 403, 304));
    EXPECT_EQ(manager.pAnchorInfo, &info);
}
