#include "foundation/ShortMemory.h"
#include "layout/LayoutFixtures.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <memory>
#include <vector>

namespace
{
constexpr RECT kPlace = {10, 20, 110, 50};
constexpr UINT kId = 1001;
constexpr UINT kOtherId = 1002;
constexpr UINT kMissingId = 1999;

// A value for every field, none of them a default.
LayoutInfo FullRecord(CWnd* pWnd)
{
    LayoutInfo info = RecordAt({1, 2, 3, 4}, 5, 6, 7, 8, 9);
    info.pWnd = pWnd;
    info.nCtrlID = 10;
    return info;
}

void ExpectSame(const LayoutInfo& info, const LayoutInfo& expected)
{
    EXPECT_EQ(info.pWnd, expected.pWnd);
    EXPECT_EQ(info.nCtrlID, expected.nCtrlID);
    EXPECT_EQ(Edges(info.rcBase96), Edges(expected.rcBase96));
    EXPECT_EQ(info.nAnchor, expected.nAnchor);
    EXPECT_EQ(info.nSizePolicy, expected.nSizePolicy);
    EXPECT_EQ(info.bMinSize, expected.bMinSize);
    EXPECT_EQ(info.nMarginRight, expected.nMarginRight);
    EXPECT_EQ(info.nMarginBottom, expected.nMarginBottom);
}

OpenLayoutManager ManagerWithoutRecords(CWnd* pParent)
{
    const ShortMemory noMemory;
    return OpenLayoutManager(pParent);
}

// How often the library frees one block while this lives.
class FreesOf
{
public:
    explicit FreesOf(const void* block)
        : m_free(VxDpiModule(), nullptr, "free",
                 [this, block](void* freed)
                 {
                     m_count += freed == block;
                     m_free.Original()(freed);
                 })
    {
    }

    int Count() const { return m_count; }

private:
    int m_count = 0;
    ImportSpy<void(void*)> m_free;
};

void ExpectDpi(const OpenLayoutManager& manager, int dpi, float scale)
{
    EXPECT_EQ(manager.m_dpi, dpi);
    EXPECT_EQ(manager.m_scale, scale);
}

void ExpectScaled(int dpi, int value, int scaled)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(dpi);
    EXPECT_EQ(manager.ScaleX(value), scaled) << value << " at " << dpi;
    EXPECT_EQ(manager.ScaleY(value), scaled) << value << " at " << dpi;
}
}

TEST(LayoutInfo, StartsWithNothing)
{
    const LayoutInfo info;
    EXPECT_EQ(info.pWnd, nullptr);
    EXPECT_EQ(info.nCtrlID, 0u);
    EXPECT_EQ(Edges(info.rcBase96), Edges(0, 0, 0, 0));
    EXPECT_EQ(info.nAnchor, 0u);
    EXPECT_EQ(info.nSizePolicy, 0u);
    EXPECT_EQ(info.bMinSize, 0);
    EXPECT_EQ(info.nMarginRight, 0);
    EXPECT_EQ(info.nMarginBottom, 0);
}

TEST(LayoutManager, StartsAt96DpiWithoutRecordsAndUncaptured)
{
    LayoutParent parent;
    const OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.m_pParent, parent.Window());
    ASSERT_NE(manager.m_pLayouts, nullptr);
    EXPECT_TRUE(manager.m_pLayouts->empty());
    ExpectDpi(manager, 96, 1.0f);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(LayoutManager, MayHaveNoParent)
{
    const OpenLayoutManager manager(nullptr);
    EXPECT_EQ(manager.m_pParent, nullptr);
    EXPECT_NE(manager.m_pLayouts, nullptr);
}

TEST(LayoutManager, AsksItsParentNothingWhenItIsMade)
{
    LayoutParent parent;
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow");
    const ImportSpy<decltype(::GetClientRect)> size(VxDpiModule(), "user32.dll", "GetClientRect");
    const OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(dpi.CallCount(), 0);
    EXPECT_EQ(size.CallCount(), 0);
}

TEST(LayoutManager, FreesItsRecords)
{
    LayoutParent parent;
    const std::vector<CWnd*> children = parent.AddChildrenInOrder(30, kPlace);
    EXPECT_NO_LEAK(
        [&]
        {
            OpenLayoutManager manager(parent.Window());
            for (CWnd* const pChild : children)
                manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE);
        });
}

TEST(LayoutManager, DeletesItselfThroughItsBase)
{
    EXPECT_NO_LEAK(
        []
        {
            const std::unique_ptr<CDpiLayoutManager> manager = std::make_unique<OpenLayoutManager>(nullptr);
            manager->AddControl(nullptr, LayoutInfo());
        });
}

TEST(LayoutManager, DoesNotOwnItsParentOrTheControls)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    {
        OpenLayoutManager manager(parent.Window());
        manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE);
    }
    EXPECT_TRUE(::IsWindow(parent.Handle()));
    EXPECT_TRUE(::IsWindow(pChild->m_hWnd));
}

TEST(AddControl, WithAWindowStoresItsIdAndTheValues)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(pChild, 2, 3, 5), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    LayoutInfo expected = RecordAt({0, 0, 0, 0}, 2, 3, 0, 0, 5);
    expected.pWnd = pChild;
    expected.nCtrlID = kId;
    ExpectSame(manager.RecordOf(pChild), expected);
}

TEST(AddControl, WithAWindowNeedsNoParent)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(nullptr);
    EXPECT_EQ(manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE), 1);
    EXPECT_EQ(manager.RecordOf(pChild).nCtrlID, kId);
}

TEST(AddControl, TwiceKeepsOnlyTheSecondRecord)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, FullRecord(nullptr));
    EXPECT_EQ(manager.AddControl(pChild, ANCHOR_BOTTOM, SIZE_STRETCH_HEIGHT, TRUE), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    LayoutInfo expected = RecordAt({0, 0, 0, 0}, ANCHOR_BOTTOM, SIZE_STRETCH_HEIGHT, 0, 0, TRUE);
    expected.pWnd = pChild;
    expected.nCtrlID = kId;
    ExpectSame(manager.RecordOf(pChild), expected);
}

TEST(AddControl, KeepsOneRecordForEachWindow)
{
    LayoutParent parent;
    CWnd* const pFirst = parent.AddChild(kId, kPlace);
    CWnd* const pSecond = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pFirst, ANCHOR_RIGHT, 0, FALSE);
    manager.AddControl(pSecond, ANCHOR_BOTTOM, 0, FALSE);
    EXPECT_EQ(manager.m_pLayouts->size(), 2u);
    EXPECT_EQ(manager.RecordOf(pFirst).nAnchor, 2u);
    EXPECT_EQ(manager.RecordOf(pSecond).nAnchor, 4u);
}

TEST(AddControl, WithoutAWindowStoresNothing)
{
    LayoutParent parent;
    parent.AddChild(0, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(nullptr, ANCHOR_RIGHT, 0, FALSE), 0);
    EXPECT_EQ(manager.AddControl(nullptr, FullRecord(nullptr)), 0);
    EXPECT_TRUE(manager.m_pLayouts->empty());
}

TEST(AddControl, WithAnIdStoresTheValuesForTheItem)
{
    LayoutParent parent;
    parent.AddChild(kOtherId, kPlace);
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(kId, 8u, 1u, 3), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    LayoutInfo expected = RecordAt({0, 0, 0, 0}, 8, 1, 0, 0, 3);
    expected.pWnd = pChild;
    expected.nCtrlID = kId;
    ExpectSame(manager.RecordOf(pChild), expected);
}

TEST(AddControl, WithAnIdTakesIdZeroLikeAnyOther)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(0, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(0u, 8u, 1u, 3), 1);
    EXPECT_EQ(manager.RecordOf(pChild).nCtrlID, 0u);
}

TEST(AddControl, WithAnIdThatTheParentLacksStoresNothing)
{
    LayoutParent parent;
    parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(kMissingId, ANCHOR_RIGHT, 0u, FALSE), 0);
    EXPECT_EQ(manager.AddControl(kMissingId, FullRecord(nullptr)), 0);
    EXPECT_TRUE(manager.m_pLayouts->empty());
}

TEST(AddControl, WithAnIdNeedsAParent)
{
    OpenLayoutManager manager(nullptr);
    EXPECT_EQ(manager.AddControl(kId, ANCHOR_RIGHT, 0u, FALSE), 0);
    EXPECT_EQ(manager.AddControl(kId, FullRecord(nullptr)), 0);
    EXPECT_TRUE(manager.m_pLayouts->empty());
}

TEST(AddControl, WithAWindowStoresAReadyRecordUnchanged)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(pChild, FullRecord(parent.Window())), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    ExpectSame(manager.RecordOf(pChild), FullRecord(parent.Window()));
}

TEST(AddControl, WithAnIdStoresAReadyRecordUnchanged)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(kId, FullRecord(parent.Window())), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    ExpectSame(manager.RecordOf(pChild), FullRecord(parent.Window()));
}

TEST(AddControl, DoesNotFillInAnEmptyRecord)
{
    LayoutParent parent;
    CWnd* const pFirst = parent.AddChild(kId, kPlace);
    CWnd* const pSecond = parent.AddChild(kOtherId, kPlace);
    OpenLayoutManager manager(parent.Window());
    EXPECT_EQ(manager.AddControl(pFirst, LayoutInfo()), 1);
    EXPECT_EQ(manager.AddControl(kOtherId, LayoutInfo()), 1);
    ExpectSame(manager.RecordOf(pFirst), LayoutInfo());
    ExpectSame(manager.RecordOf(pSecond), LayoutInfo());
}

TEST(AddControl, AReadyRecordReplacesTheOneBefore)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    manager.AddControl(pChild, ANCHOR_BOTTOM, SIZE_STRETCH_HEIGHT, TRUE);
    EXPECT_EQ(manager.AddControl(pChild, FullRecord(nullptr)), 1);
    ASSERT_EQ(manager.m_pLayouts->size(), 1u);
    ExpectSame(manager.RecordOf(pChild), FullRecord(nullptr));
}

TEST(AddControl, NeitherMovesNorCaptures)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    const MovingCalls moves;
    const ImportSpy<decltype(::GetWindowRect)> places(VxDpiModule(), "user32.dll", "GetWindowRect");
    manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE);
    manager.AddControl(kId, FullRecord(pChild));
    EXPECT_EQ(moves.Lines(), CallLog::LineList());
    EXPECT_EQ(places.CallCount(), 0);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(LayoutManagerWithoutMemory, HasNoListOfRecords)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    LayoutParent parent;
    const OpenLayoutManager manager = ManagerWithoutRecords(parent.Window());
    EXPECT_EQ(manager.m_pLayouts, nullptr);
    EXPECT_EQ(manager.m_pParent, parent.Window());
    ExpectDpi(manager, 96, 1.0f);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(LayoutManagerWithoutMemory, RegistersNothing)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager = ManagerWithoutRecords(parent.Window());
    EXPECT_EQ(manager.AddControl(pChild, ANCHOR_RIGHT, 0, FALSE), 0);
    EXPECT_EQ(manager.AddControl(kId, ANCHOR_RIGHT, 0u, FALSE), 0);
    EXPECT_EQ(manager.AddControl(pChild, FullRecord(pChild)), 0);
    EXPECT_EQ(manager.AddControl(kId, FullRecord(pChild)), 0);
}

TEST(LayoutManagerWithoutMemory, NeitherCapturesNorLaysOut)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    LayoutParent parent;
    parent.AddChild(kId, kPlace);
    OpenLayoutManager manager = ManagerWithoutRecords(parent.Window());
    const MovingCalls moves;
    const ImportSpy<decltype(::GetClientRect)> size(VxDpiModule(), "user32.dll", "GetClientRect");
    manager.AdjustLayout();
    manager.AutoCaptureRects();
    EXPECT_EQ(moves.Lines(), CallLog::LineList());
    EXPECT_EQ(size.CallCount(), 0);
    EXPECT_EQ(manager.m_bNeedCapture, 1);
}

TEST(LayoutManagerWithoutMemory, StillScales)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    OpenLayoutManager manager = ManagerWithoutRecords(nullptr);
    manager.UpdateDpi(144);
    EXPECT_EQ(manager.ScaleX(10), 15);
}

TEST(LayoutManagerWithoutMemory, LeavesNothingBehind)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    EXPECT_NO_LEAK([] { ManagerWithoutRecords(nullptr); });
}

TEST(LayoutManagerCopy, HasTheFieldsAsTheyStandAndSharesTheRecords)
{
    LayoutParent parent;
    OpenLayoutManager manager(parent.Window());
    manager.UpdateDpi(144);
    manager.m_bNeedCapture = FALSE;
    OpenLayoutManager copy(manager);
    EXPECT_EQ(copy.m_pParent, parent.Window());
    EXPECT_EQ(copy.m_pLayouts, manager.m_pLayouts);
    ExpectDpi(copy, 144, 1.5f);
    EXPECT_EQ(copy.m_bNeedCapture, 0);
    copy.m_pLayouts = nullptr;
}

TEST(LayoutManagerCopy, OfFieldsThatDoNotFitIsExact)
{
    OpenLayoutManager manager(nullptr);
    manager.m_dpi = 7;
    manager.m_scale = 0.25f;
    manager.m_bNeedCapture = 5;
    OpenLayoutManager copy(manager);
    ExpectDpi(copy, 7, 0.25f);
    EXPECT_EQ(copy.m_bNeedCapture, 5);
    copy.m_pLayouts = nullptr;
}

TEST(LayoutManagerCopy, SeesRecordsThatAreAddedLater)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    OpenLayoutManager manager(parent.Window());
    OpenLayoutManager copy(manager);
    manager.AddControl(pChild, ANCHOR_BOTTOM, 0, FALSE);
    EXPECT_EQ(copy.RecordOf(pChild).nAnchor, 4u);
    copy.m_pLayouts = nullptr;
}

TEST(LayoutManagerCopy, HasItsOwnDpi)
{
    OpenLayoutManager manager(nullptr);
    OpenLayoutManager copy(manager);
    copy.UpdateDpi(192);
    ExpectDpi(manager, 96, 1.0f);
    copy.m_pLayouts = nullptr;
}

TEST(LayoutManagerCopy, ByAssignmentIsTheSame)
{
    LayoutParent parent;
    OpenLayoutManager manager(parent.Window());
    manager.UpdateDpi(144);
    manager.m_bNeedCapture = FALSE;
    OpenLayoutManager other(nullptr);
    auto* const pOwnRecords = other.m_pLayouts;
    EXPECT_EQ(&(static_cast<CDpiLayoutManager&>(other) = manager), &other);
    EXPECT_EQ(other.m_pParent, parent.Window());
    EXPECT_EQ(other.m_pLayouts, manager.m_pLayouts);
    ExpectDpi(other, 144, 1.5f);
    EXPECT_EQ(other.m_bNeedCapture, 0);
    other.m_pLayouts = pOwnRecords;
}

TEST(LayoutManagerCopy, ByAssignmentDoesNotFreeTheRecordsThatItHad)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    OpenLayoutManager manager(nullptr);
    OpenLayoutManager other(nullptr);
    auto* const pOwnRecords = other.m_pLayouts;
    const FreesOf frees(pOwnRecords);
    other = manager;
    EXPECT_EQ(frees.Count(), 0);
    other.m_pLayouts = pOwnRecords;
}

TEST(LayoutManagerCopy, OfAManagerWithoutMemoryHasNoRecordsEither)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const OpenLayoutManager manager = ManagerWithoutRecords(nullptr);
    const OpenLayoutManager copy(manager);
    EXPECT_EQ(copy.m_pLayouts, nullptr);
}

TEST(LayoutManagerCopy, FreesTheSharedRecordsWhenItIsDestroyed)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    OpenLayoutManager manager(nullptr);
    const FreesOf frees(manager.m_pLayouts);
    {
        const OpenLayoutManager copy(manager);
    }
    EXPECT_EQ(frees.Count(), 1);
    manager.m_pLayouts = nullptr;
}

TEST(LayoutManagerCopy, MayOutliveTheOriginalThatLetGoOfTheRecords)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    auto manager = std::make_unique<OpenLayoutManager>(nullptr);
    const OpenLayoutManager copy(*manager);
    const FreesOf frees(copy.m_pLayouts);
    manager->m_pLayouts = nullptr;
    manager.reset();
    EXPECT_EQ(frees.Count(), 0);
    EXPECT_TRUE(copy.m_pLayouts->empty());
}

TEST(UpdateDpi, SetsDpiAndScale)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(120);
    ExpectDpi(manager, 120, 1.25f);
    manager.UpdateDpi(144);
    ExpectDpi(manager, 144, 1.5f);
    manager.UpdateDpi(192);
    ExpectDpi(manager, 192, 2.0f);
    manager.UpdateDpi(96);
    ExpectDpi(manager, 96, 1.0f);
}

TEST(UpdateDpi, ScalesInSinglePrecision)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(97);
    ExpectDpi(manager, 97, 1.01041663f);
    manager.UpdateDpi(575);
    ExpectDpi(manager, 575, 5.98958349f);
}

TEST(UpdateDpi, TakesUpTo576)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(576);
    ExpectDpi(manager, 576, 6.0f);
    manager.UpdateDpi(577);
    ExpectDpi(manager, 576, 6.0f);
}

TEST(UpdateDpi, IgnoresWhatIsOutOfRange)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(144);
    for (const int dpi : {95, 577, 48, 1, 0, -1, -144, 1000, INT_MAX, INT_MIN})
    {
        manager.UpdateDpi(dpi);
        ExpectDpi(manager, 144, 1.5f);
    }
}

TEST(UpdateDpi, WithTheCurrentDpiLeavesTheScaleAlone)
{
    OpenLayoutManager manager(nullptr);
    manager.UpdateDpi(144);
    manager.m_scale = 3.0f;
    manager.UpdateDpi(144);
    ExpectDpi(manager, 144, 3.0f);
}

TEST(UpdateDpi, NeitherCapturesNorLaysOut)
{
    LayoutParent parent;
    CWnd* const pChild = parent.AddChild(kId, kPlace);
    CallLog steps;
    RecordingManager manager(parent.Window(), steps);
    manager.AddControl(pChild, ANCHOR_TOPLEFT, 0, FALSE);
    steps.Clear();
    const MovingCalls moves;
    manager.UpdateDpi(144);
    EXPECT_EQ(steps.Lines(), CallLog::LineList());
    EXPECT_EQ(moves.Lines(), CallLog::LineList());
    EXPECT_EQ(manager.m_bNeedCapture, 1);
    EXPECT_EQ(Edges(manager.RecordOf(pChild).rcBase96), Edges(0, 0, 0, 0));
}

TEST(UpdateDpi, DoesNotCaptureAgain)
{
    OpenLayoutManager manager(nullptr);
    manager.m_bNeedCapture = FALSE;
    manager.UpdateDpi(144);
    EXPECT_EQ(manager.m_bNeedCapture, 0);
}

TEST(ScaleXAndScaleY, At96AreTheSame)
{
    ExpectScaled(96, 0, 0);
    ExpectScaled(96, 1, 1);
    ExpectScaled(96, -7, -7);
}

TEST(ScaleXAndScaleY, At120RoundToTheNearest)
{
    ExpectScaled(120, 1, 1);
    ExpectScaled(120, 2, 3);
    ExpectScaled(120, 3, 4);
    ExpectScaled(120, 4, 5);
    ExpectScaled(120, -1, -1);
    ExpectScaled(120, -2, -3);
    ExpectScaled(120, 16, 20);
}

TEST(ScaleXAndScaleY, At144RoundHalvesAwayFromZero)
{
    ExpectScaled(144, 0, 0);
    ExpectScaled(144, 1, 2);
    ExpectScaled(144, -1, -2);
    ExpectScaled(144, 3, 5);
    ExpectScaled(144, -3, -5);
    ExpectScaled(144, 100, 150);
}

TEST(ScaleXAndScaleY, At192AndAtTheEndDouble)
{
    ExpectScaled(192, 1, 2);
    ExpectScaled(192, -33, -66);
    ExpectScaled(576, 100, 600);
}

TEST(ScaleXAndScaleY, CalculateInSinglePrecision)
{
    ExpectScaled(96, 16777217, 16777216);
    ExpectScaled(144, 16777217, 25165824);
}

TEST(ScaleXAndScaleY, FollowTheScaleAndNotTheDpi)
{
    OpenLayoutManager manager(nullptr);
    manager.m_scale = 0.25f;
    EXPECT_EQ(manager.ScaleX(10), 3);
    EXPECT_EQ(manager.ScaleY(-10), -3);
}
