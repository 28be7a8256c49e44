#include <vxdpi/VxDpi.h>

#include "abi/ModuleExports.h"
#include "foundation/LibraryModule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

// Which virtual functions a class replaces and which it adds, read from the virtual tables that the modules
// export.

namespace
{
using NameList = std::vector<std::string>;

/// Adds a virtual function, which comes behind those of the base.
template<class Base>
class WithOneMore : public Base
{
public:
    virtual void OneMore() {}
};

/// How many entries the table of a class has. The destructor has two: without and with delete.
template<class Class>
std::size_t SlotCount()
{
    // A pointer to a virtual function begins with the offset of its entry, plus 1.
    const auto pointer = &WithOneMore<Class>::OneMore;
    std::size_t offset = 0;
    static_assert(sizeof pointer >= sizeof offset);
    std::memcpy(&offset, &pointer, sizeof offset);
    return (offset - 1) / sizeof(void*);
}

// A function of another module is reached by a jump through the table of imports.
const void* FollowJump(const void* function)
{
    const auto* const code = static_cast<const unsigned char*>(function);
    if (code[0] != 0xff || code[1] != 0x25)
        return function;
    int distance = 0;
    std::memcpy(&distance, code + 2, sizeof distance);
    return *reinterpret_cast<const void* const*>(code + 6 + distance);
}

/// The virtual table of a class, as a module exports it.
class VirtualTable
{
public:
    /// @param pszClass  the name as GCC decorates it, such as "5CFont".
    VirtualTable(HMODULE module, const char* pszClass)
        : m_entries(static_cast<const void* const*>(FindExport(module, std::string("_ZTV") + pszClass)))
    {
    }

    bool IsExported() const { return m_entries != nullptr; }

    const void* Function(std::size_t slot) const { return FollowJump(m_entries[slot + kTypeInformation]); }

private:
    static constexpr std::size_t kTypeInformation = 2;

    const void* const* m_entries;
};

NameList NamesOf(const VirtualTable& table, std::size_t begin, std::size_t end)
{
    NameList names;
    for (std::size_t slot = begin; slot < end; ++slot)
        names.push_back(NameOfExport(VxDpiModule(), table.Function(slot)));
    return names;
}

/// The library's functions that stand in the place of the base's, in the order of the table.
NameList Replacements(const VirtualTable& table, const VirtualTable& baseTable, std::size_t count)
{
    NameList names;
    for (std::size_t slot = 0; slot < count; ++slot)
    {
        if (table.Function(slot) != baseTable.Function(slot))
            names.push_back(NameOfExport(VxDpiModule(), table.Function(slot)));
    }
    return names;
}

class VirtualTables : public testing::Test
{
protected:
    void SetUp() override
    {
#if !defined(__MINGW32__)
        GTEST_SKIP() << "the exported virtual tables and functions are found by their GCC names";
#endif
    }

    /// Expects a class without a base to have a virtual destructor and nothing else.
    template<class Class>
    static void ExpectDestructorOnly(const std::string& name)
    {
        EXPECT_EQ(SlotCount<Class>(), 2u);
        const VirtualTable table(VxDpiModule(), name.c_str());
        ASSERT_TRUE(table.IsExported());
        EXPECT_EQ(NamesOf(table, 0, 2), (NameList{"_ZN" + name + "D1Ev", "_ZN" + name + "D0Ev"}));
    }

    /// Expects a class to replace its destructor and the named functions of its base, and to add none.
    template<class Class, class Base>
    static void ExpectReplacements(const std::string& name, const VirtualTable& baseTable, NameList expected)
    {
        expected.insert(expected.begin(), {"_ZN" + name + "D1Ev", "_ZN" + name + "D0Ev"});
        EXPECT_EQ(SlotCount<Class>(), SlotCount<Base>());
        const VirtualTable table(VxDpiModule(), name.c_str());
        ASSERT_TRUE(table.IsExported());
        ASSERT_TRUE(baseTable.IsExported());
        NameList replacements = Replacements(table, baseTable, SlotCount<Base>());
        std::sort(replacements.begin(), replacements.end());
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(replacements, expected);
    }
};
} // namespace

TEST_F(VirtualTables, OfTheGdiPlusInitializerHasTheDestructor)
{
    ExpectDestructorOnly<CGdiPlusInitializer>("19CGdiPlusInitializer");
}

TEST_F(VirtualTables, OfAnImageResourceHasTheDestructor)
{
    ExpectDestructorOnly<CImageResource>("14CImageResource");
}

TEST_F(VirtualTables, OfADrawBoardHasTheDestructor)
{
    ExpectDestructorOnly<CDrawBoard>("10CDrawBoard");
}

TEST_F(VirtualTables, OfAFontReplacesTheDestructor)
{
    ExpectReplacements<CFontDPIAware, CFont>("13CFontDPIAware", VirtualTable(FrameworkModule(), "5CFont"),
                                             {});
}

TEST_F(VirtualTables, OfABitmapReplacesTheDestructor)
{
    ExpectReplacements<CDpiAwareBitmap, CBitmap>("15CDpiAwareBitmap",
                                                 VirtualTable(FrameworkModule(), "7CBitmap"), {});
}

TEST_F(VirtualTables, OfARealButtonReplacesTheDestructor)
{
    ExpectReplacements<CRealButton, CButton>("11CRealButton", VirtualTable(FrameworkModule(), "7CButton"),
                                             {});
}

TEST_F(VirtualTables, OfAListHeaderReplacesTheDestructorAndTheMessageMap)
{
    ExpectReplacements<CDpiAwareHeaderCtrl, CHeaderCtrl>("19CDpiAwareHeaderCtrl",
                                                         VirtualTable(FrameworkModule(), "11CHeaderCtrl"),
                                                         {"_ZNK19CDpiAwareHeaderCtrl13GetMessageMapEv"});
}

TEST_F(VirtualTables, OfAListReplacesTheDestructorTheMessageMapAndTheStartOfSubclassing)
{
    ExpectReplacements<CDPIAwareListCtrl, CListCtrl>(
        "17CDPIAwareListCtrl", VirtualTable(FrameworkModule(), "9CListCtrl"),
        {"_ZNK17CDPIAwareListCtrl13GetMessageMapEv", "_ZN17CDPIAwareListCtrl17PreSubclassWindowEv"});
}

TEST_F(VirtualTables, OfAListWithGesturesReplacesTheDestructorAndTheGestureStatus)
{
    ExpectReplacements<CDPIAwareListCtrlW, CDPIAwareListCtrl>(
        "18CDPIAwareListCtrlW", VirtualTable(VxDpiModule(), "17CDPIAwareListCtrl"),
        {"_ZN18CDPIAwareListCtrlW16GetGestureStatusE6CPoint"});
}

TEST_F(VirtualTables, OfAScrollLayoutManagerReplacesLayoutAndCaptureAndAddsTheRectangleByHandle)
{
    const std::size_t baseCount = SlotCount<CDpiLayoutManager>();
    EXPECT_EQ(SlotCount<CScrollLayoutManager>(), baseCount + 1);
    const VirtualTable table(VxDpiModule(), "20CScrollLayoutManager");
    const VirtualTable baseTable(VxDpiModule(), "17CDpiLayoutManager");
    ASSERT_TRUE(table.IsExported() && baseTable.IsExported());
    EXPECT_EQ(Replacements(table, baseTable, baseCount),
              (NameList{"_ZN20CScrollLayoutManagerD1Ev", "_ZN20CScrollLayoutManagerD0Ev",
                        "_ZN20CScrollLayoutManager12AdjustLayoutEv",
                        "_ZN20CScrollLayoutManager16AutoCaptureRectsEv"}));
    EXPECT_EQ(NamesOf(table, baseCount, baseCount + 1),
              (NameList{"_ZN20CScrollLayoutManager14GetControlRectEP6HWND__"}));
}
