#include <vxdpi/Layout.h>

#include "foundation/LibraryModule.h"
#include "layout/LayoutFixtures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <iterator>
#include <map>
#include <new>
#include <type_traits>

// The virtual functions in their order. Any other class with the same list has the same virtual table. The
// unnamed namespace is not for this one: there, a compiler sees that no class derives from it and takes calls
// for impossible.
class ManagerSlots
{
public:
    virtual ~ManagerSlots() = default;
    virtual int FirstAfterTheDestructor(UINT, LayoutInfo) = 0;
    virtual int Second(CWnd*, LayoutInfo) = 0;
    virtual int Third(UINT, UINT, UINT, int) = 0;
    virtual int Fourth(CWnd*, UINT, UINT, int) = 0;
    virtual void Fifth() = 0;
    virtual void Sixth() = 0;
    virtual CRect Seventh(const LayoutInfo&, const CRect&) = 0;
    virtual CRect Eighth(const CRect&) const = 0;
    virtual void Ninth(CRect&, CRect, LayoutInfo) = 0;
    virtual void Tenth(CRect&, CRect, const LayoutInfo&) = 0;
    virtual void Eleventh(CRect&) = 0;
};

namespace
{
using RecordMap = std::map<HWND, LayoutInfo>;

// The fields of a manager in their order.
struct ManagerFields
{
    const void* const* pVirtualTable;
    CWnd* pParent;
    RecordMap* pLayouts;
    float scale;
    int dpi;
    int bNeedCapture;
};

// By way of a volatile pointer, as a compiler that sees the object's own class takes the calls for
// impossible.
ManagerSlots& SlotsOf(CDpiLayoutManager& manager)
{
    void* volatile object = &manager;
    return *static_cast<ManagerSlots*>(object);
}

// A manager without a parent, so that no step calls another one unless it is told to.
struct SlotCalls
{
    CallLog log;
    RecordingManager manager{nullptr, log};
    ManagerSlots& slots = SlotsOf(manager);
    CRect rc;
};

// By the name as GCC decorates it.
[[maybe_unused]] const void* ExportOf(const char* name)
{
    return reinterpret_cast<const void*>(::GetProcAddress(VxDpiModule(), name));
}
}

static_assert(std::is_standard_layout_v<LayoutInfo> && std::is_copy_constructible_v<LayoutInfo>);
static_assert(sizeof(LayoutInfo) == 48, "pointer, ID, rectangle, five numbers");
static_assert(offsetof(LayoutInfo, pWnd) == 0);
static_assert(offsetof(LayoutInfo, nCtrlID) == 8);
static_assert(offsetof(LayoutInfo, rcBase96) == 12);
static_assert(offsetof(LayoutInfo, nAnchor) == 28);
static_assert(offsetof(LayoutInfo, nSizePolicy) == 32);
static_assert(offsetof(LayoutInfo, bMinSize) == 36);
static_assert(offsetof(LayoutInfo, nMarginRight) == 40);
static_assert(offsetof(LayoutInfo, nMarginBottom) == 44);

static_assert(std::is_same_v<decltype(LayoutInfo::pWnd), CWnd*>);
static_assert(std::is_same_v<decltype(LayoutInfo::nCtrlID), UINT>);
static_assert(std::is_same_v<decltype(LayoutInfo::rcBase96), CRect>);
static_assert(std::is_same_v<decltype(LayoutInfo::nAnchor), UINT>);
static_assert(std::is_same_v<decltype(LayoutInfo::nSizePolicy), UINT>);
static_assert(std::is_same_v<decltype(LayoutInfo::bMinSize), int>);
static_assert(std::is_same_v<decltype(LayoutInfo::nMarginRight), int>);
static_assert(std::is_same_v<decltype(LayoutInfo::nMarginBottom), int>);

static_assert(ANCHOR_TOPLEFT == 1 && ANCHOR_RIGHT == 2 && ANCHOR_BOTTOM == 4 && ANCHOR_BOTTOMRIGHT == 8);
static_assert(SIZE_STRETCH_WIDTH == 1 && SIZE_STRETCH_HEIGHT == 2);

static_assert(sizeof(CDpiLayoutManager) == sizeof(ManagerFields) && sizeof(ManagerFields) == 40);
static_assert(std::is_polymorphic_v<CDpiLayoutManager> && std::has_virtual_destructor_v<CDpiLayoutManager>);
static_assert(std::is_constructible_v<CDpiLayoutManager, CWnd*>);
static_assert(!std::is_default_constructible_v<CDpiLayoutManager>);
static_assert(std::is_copy_constructible_v<CDpiLayoutManager>);
static_assert(std::is_copy_assignable_v<CDpiLayoutManager>);
static_assert(std::is_same_v<decltype(OpenLayoutManager::m_pParent), CWnd*>);
static_assert(std::is_same_v<decltype(OpenLayoutManager::m_pLayouts), RecordMap*>);
static_assert(std::is_same_v<decltype(OpenLayoutManager::m_scale), float>);
static_assert(std::is_same_v<decltype(OpenLayoutManager::m_dpi), int>);
static_assert(std::is_same_v<decltype(OpenLayoutManager::m_bNeedCapture), int>);
static_assert(std::is_same_v<decltype(&CDpiLayoutManager::UpdateDpi), void (CDpiLayoutManager::*)(int)>);
static_assert(std::is_same_v<decltype(&OpenLayoutManager::ScaleX), int (CDpiLayoutManager::*)(int) const>);
static_assert(std::is_same_v<decltype(&OpenLayoutManager::ScaleY), int (CDpiLayoutManager::*)(int) const>);

TEST(ClassLayout, LayoutManagerHasItsFieldsInOrderBehindTheVirtualTable)
{
    LayoutParent parent;
    OpenLayoutManager manager(parent.Window());
    manager.UpdateDpi(144);
    manager.m_bNeedCapture = 7;
    ManagerFields fields = {};
    std::memcpy(&fields, static_cast<const CDpiLayoutManager*>(&manager), sizeof fields);
    EXPECT_NE(fields.pVirtualTable, nullptr);
    EXPECT_EQ(fields.pParent, parent.Window());
    EXPECT_EQ(fields.pLayouts, manager.m_pLayouts);
    EXPECT_EQ(fields.scale, 1.5f);
    EXPECT_EQ(fields.dpi, 144);
    EXPECT_EQ(fields.bNeedCapture, 7);
}

TEST(ClassLayout, DestroyedLayoutManagerNoLongerPointsToItsRecords)
{
    alignas(CDpiLayoutManager) unsigned char memory[sizeof(CDpiLayoutManager)] = {};
    const auto* const manager = new (memory) CDpiLayoutManager(nullptr);
    ManagerFields fields = {};
    std::memcpy(&fields, memory, sizeof fields);
    EXPECT_NE(fields.pLayouts, nullptr);
    manager->~CDpiLayoutManager();
    std::memcpy(&fields, memory, sizeof fields);
    EXPECT_EQ(fields.pLayouts, nullptr);
}

TEST(VirtualSlots, OfALayoutManagerStartWithRegistration)
{
    SlotCalls calls;
    calls.slots.FirstAfterTheDestructor(1, LayoutInfo());
    calls.slots.Second(nullptr, LayoutInfo());
    calls.slots.Third(1, 0, 0, FALSE);
    calls.slots.Fourth(nullptr, 0, 0, FALSE);
    EXPECT_EQ(calls.log.Lines(), (CallLog::LineList{"AddControl(ID, record)", "AddControl(window, record)",
                                                    "AddControl(ID, values)", "AddControl(window, values)"}));
}

TEST(VirtualSlots, OfALayoutManagerGoOnWithLayoutAndCapture)
{
    SlotCalls calls;
    calls.slots.Fifth();
    calls.slots.Sixth();
    EXPECT_EQ(calls.log.Lines(), (CallLog::LineList{"AdjustLayout", "AutoCaptureRects"}));
}

TEST(VirtualSlots, OfALayoutManagerGoOnWithTheRectangleOfAControl)
{
    SlotCalls calls;
    EXPECT_EQ(Edges(calls.slots.Seventh(RecordAt({1, 2, 30, 40}), CRect(0, 0, 0, 0))), Edges(1, 2, 30, 40));
    ASSERT_FALSE(calls.log.Lines().empty());
    EXPECT_EQ(calls.log.Lines().front(), "GetControlRect");
}

TEST(VirtualSlots, OfALayoutManagerEndWithTheStepsOfARectangle)
{
    SlotCalls calls;
    calls.slots.Eighth(calls.rc);
    calls.slots.Ninth(calls.rc, calls.rc, LayoutInfo());
    calls.slots.Tenth(calls.rc, calls.rc, LayoutInfo());
    calls.slots.Eleventh(calls.rc);
    EXPECT_EQ(calls.log.Lines(),
              (CallLog::LineList{"GetScaledRect", "ApplySizePolicy", "ApplyAnchor", "ConvertTo96DPIRect"}));
}

TEST(VirtualSlots, OfALayoutManagerAreInTheExportedTable)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the exported virtual table and functions are found by their GCC names";
#else
    const auto* const table = static_cast<const void* const*>(ExportOf("_ZTV17CDpiLayoutManager"));
    ASSERT_NE(table, nullptr);
    // Two words of run-time type information come first. The destructor has two entries: without and with
    // delete.
    const char* const names[] = {"_ZN17CDpiLayoutManagerD1Ev",
                                 "_ZN17CDpiLayoutManagerD0Ev",
                                 "_ZN17CDpiLayoutManager10AddControlEj10LayoutInfo",
                                 "_ZN17CDpiLayoutManager10AddControlEP4CWnd10LayoutInfo",
                                 "_ZN17CDpiLayoutManager10AddControlEjjji",
                                 "_ZN17CDpiLayoutManager10AddControlEP4CWndjji",
                                 "_ZN17CDpiLayoutManager12AdjustLayoutEv",
                                 "_ZN17CDpiLayoutManager16AutoCaptureRectsEv",
                                 "_ZN17CDpiLayoutManager14GetControlRectERK10LayoutInfoRK5CRect",
                                 "_ZNK17CDpiLayoutManager13GetScaledRectERK5CRect",
                                 "_ZN17CDpiLayoutManager15ApplySizePolicyER5CRectS0_10LayoutInfo",
                                 "_ZN17CDpiLayoutManager11ApplyAnchorER5CRectS0_RK10LayoutInfo",
                                 "_ZN17CDpiLayoutManager18ConvertTo96DPIRectER5CRect"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        EXPECT_EQ(table[i + 2], ExportOf(names[i])) << names[i];
#endif
}

TEST(VirtualSlots, OfALayoutManagerObjectAreTheExportedTable)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the exported virtual table is found by its GCC name";
#else
    const CDpiLayoutManager manager(nullptr);
    ManagerFields fields = {};
    std::memcpy(&fields, static_cast<const void*>(&manager), sizeof fields);
    EXPECT_EQ(fields.pVirtualTable, static_cast<const void* const*>(ExportOf("_ZTV17CDpiLayoutManager")) + 2);
#endif
}
