#include "foundation/CallSequence.h"
#include "layout/LayoutFixtures.h"

#include <vxdpi/Layout.h>

namespace
{
const CallNames kCaptureOne = {"IsWindow", "GetWindowRect", "CWnd::ScreenToClient"};
const CallNames kPlace = {"SetWindowPos", "InvalidateRect"};
const CallNames kPlaceById = {"GetDlgItem", "SetWindowPos", "InvalidateRect"};

// A parent with three controls, the first two registered.
class LayoutSequence : public FrameworkCallSequence
{
protected:
    LayoutSequence()
    {
        m_children = m_parent.AddChildrenInOrder(3, {10, 10, 60, 30});
        m_manager.AddControl(m_children[0], ANCHOR_TOPLEFT, 0, FALSE);
        m_manager.AddControl(m_children[1], ANCHOR_RIGHT, SIZE_STRETCH_WIDTH, TRUE);
    }

    CallNames Adjust()
    {
        return CallsOf([&] { m_manager.AdjustLayout(); });
    }

    CallNames Capture()
    {
        return CallsOf([&] { m_manager.AutoCaptureRects(); });
    }

    LayoutParent m_parent;
    std::vector<CWnd*> m_children;
    OpenLayoutManager m_manager{m_parent.Window()};
};
}

TEST_F(LayoutSequence, AControlIsAskedForItsId)
{
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(m_children[2], ANCHOR_TOPLEFT, 0, FALSE); }),
                         {"CWnd::GetDlgCtrlID"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(3u, ANCHOR_TOPLEFT, 0, FALSE); }),
                         {"CWnd::GetDlgItem", "CWnd::GetDlgCtrlID"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(99u, ANCHOR_TOPLEFT, 0, FALSE); }),
                         {"CWnd::GetDlgItem"}));
}

TEST_F(LayoutSequence, ARecordIsTakenAsItIs)
{
    const LayoutInfo info = RecordAt({1, 2, 3, 4});
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(m_children[2], info); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(3u, info); }), {"CWnd::GetDlgItem"}));
}

TEST_F(LayoutSequence, TheFirstLayoutCapturesAndTheOthersPlaceOnly)
{
    const CallNames placed = InOrder({{"GetClientRect"}, kPlaceById, kPlaceById});
    EXPECT_TRUE(AreCalls(Adjust(), InOrder({{"GetClientRect"}, kCaptureOne, kCaptureOne, placed})));
    EXPECT_TRUE(AreCalls(Adjust(), placed));
    m_manager.UpdateDpi(144);
    EXPECT_TRUE(AreCalls(Adjust(), placed));
}

TEST_F(LayoutSequence, AControlWithoutAnIdIsPlacedByItsWindow)
{
    LayoutInfo info = RecordAt({10, 10, 60, 30});
    info.pWnd = m_children[2];
    m_manager.AddControl(m_children[2], info);
    Adjust();
    EXPECT_TRUE(AreCalls(Adjust(), InOrder({{"GetClientRect"}, kPlaceById, kPlaceById, kPlace})));
}

TEST_F(LayoutSequence, AControlThatIsGoneIsLookedUpAndNotPlaced)
{
    Adjust();
    m_children[0]->DestroyWindow();
    EXPECT_TRUE(AreCalls(Adjust(), InOrder({{"GetClientRect", "GetDlgItem"}, kPlaceById})));
}

TEST_F(LayoutSequence, WhatIsCapturedIsNotCapturedAgain)
{
    EXPECT_TRUE(AreCalls(Capture(), InOrder({{"GetClientRect"}, kCaptureOne, kCaptureOne})));
    EXPECT_TRUE(AreCalls(Capture(), {"GetClientRect"}));
}

TEST_F(LayoutSequence, AControlThatIsGoneIsCapturedByItsIdIfAtAll)
{
    const HWND gone = m_children[0]->Detach();
    ::DestroyWindow(gone);
    m_children[0]->m_hWnd = gone;
    EXPECT_TRUE(
        AreCalls(Capture(), InOrder({{"GetClientRect", "IsWindow", "GetDlgItem", "IsWindow"}, kCaptureOne})));
    m_children[0]->m_hWnd = nullptr;
    m_parent.AddChild(1, {0, 0, 10, 10});
    EXPECT_TRUE(AreCalls(Capture(), InOrder({{"GetClientRect", "IsWindow", "GetDlgItem"}, kCaptureOne})));
}

TEST_F(LayoutSequence, WithoutControlsOrAParentNothingIsAsked)
{
    OpenLayoutManager empty(m_parent.Window());
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.AdjustLayout(); }), {}));
    m_manager.m_pParent = nullptr;
    EXPECT_TRUE(AreCalls(Adjust(), {}));
    EXPECT_TRUE(AreCalls(Capture(), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.AddControl(1u, ANCHOR_TOPLEFT, 0, FALSE); }), {}));
}

TEST_F(LayoutSequence, AChangeOfDpiNeedsNoCall)
{
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_manager.UpdateDpi(144); }), {}));
}
