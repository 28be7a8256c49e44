#include <vxdpi/VxDpi.h>

#include "abi/ExportList.h"
#include "abi/ModuleExports.h"
#include "foundation/LibraryModule.h"
#include "support/GdiPlusSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
using NameList = std::vector<std::string>;

NameList ListedNames()
{
    std::istringstream lines(kExportList);
    NameList list;
    for (std::string line; std::getline(lines, line);)
        list.push_back(line);
    return list;
}

NameList OnlyInFirst(const NameList& first, const NameList& second)
{
    NameList difference;
    std::set_difference(first.begin(), first.end(), second.begin(), second.end(),
                        std::back_inserter(difference));
    return difference;
}

template<typename T>
T FieldAt(const void* object, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(object) + offset, sizeof value);
    return value;
}

std::size_t OffsetIn(const void* object, const void* field)
{
    return static_cast<std::size_t>(static_cast<const char*>(field) - static_cast<const char*>(object));
}
} // namespace

static_assert(sizeof(CGdiPlusInitializer) == 16, "virtual table, token");
static_assert(sizeof(ResourceInfo) == 40, "virtual table, two numbers, vector");
static_assert(sizeof(CDpiAwareRes) == 24, "two numbers, two pointers");
static_assert(sizeof(CDpiAwarePng) == sizeof(CDpiAwareRes), "a registry and nothing else");

static_assert(std::is_polymorphic_v<CGdiPlusInitializer>);
static_assert(std::has_virtual_destructor_v<CGdiPlusInitializer>);
static_assert(std::is_copy_constructible_v<CGdiPlusInitializer> &&
              std::is_copy_assignable_v<CGdiPlusInitializer>);
static_assert(std::has_virtual_destructor_v<ResourceInfo>);
static_assert(!std::is_polymorphic_v<CDpiAwareRes> && !std::is_polymorphic_v<CDpiAwarePng>);
static_assert(std::is_copy_assignable_v<CDpiAwareRes>);
static_assert(std::is_same_v<decltype(std::declval<CDpiAwarePng&>() = std::declval<const CDpiAwarePng&>()),
                             CDpiAwarePng&>);
static_assert(
    std::is_same_v<decltype(std::declval<CDpiAwarePng&>() = std::declval<CDpiAwarePng&&>()), CDpiAwarePng&>);

// After an intended change, `objdump -p vxdpi.dll` shows the new names; sort them bytewise.
TEST(Exports, AreExactlyTheListedNames)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the list holds the names as GCC decorates them";
#endif
    const NameList exported = ExportedNames(VxDpiModule());
    const NameList listed = ListedNames();
    EXPECT_EQ(OnlyInFirst(listed, exported), NameList()) << "no longer exported";
    EXPECT_EQ(OnlyInFirst(exported, listed), NameList()) << "exported and not in the list";
}

TEST(Exports, ListIsSortedAndHasNoNameTwice)
{
    const NameList listed = ListedNames();
    EXPECT_FALSE(listed.empty());
    EXPECT_EQ(std::adjacent_find(listed.begin(), listed.end(), std::greater_equal<>()), listed.end());
}

TEST(Exports, NoneIsWithoutAName)
{
    const IMAGE_EXPORT_DIRECTORY& directory = ExportDirectory(VxDpiModule());
    EXPECT_EQ(directory.NumberOfFunctions, directory.NumberOfNames);
}

TEST(ClassLayout, GdiPlusInitializerHasItsTokenBehindTheVirtualTable)
{
    const GdiPlusSession session;
    const CGdiPlusInitializer initializer;
    EXPECT_EQ(OffsetIn(&initializer, &initializer.m_token), 8u);
}

TEST(ClassLayout, ResourceInfoHasDpiThenIdThenValuesBehindTheVirtualTable)
{
    const ResourceInfo info(144, 7, {1, 2});
    EXPECT_EQ(OffsetIn(&info, &info.nDpi), 8u);
    EXPECT_EQ(OffsetIn(&info, &info.nResourceId), 12u);
    EXPECT_EQ(OffsetIn(&info, &info.values), 16u);
}

TEST(ClassLayout, RegistryStartsWithTheCurrentDpi)
{
    CDpiAwareRes registry;
    EXPECT_EQ(FieldAt<UINT>(&registry, 0), 96u);
    registry.UpdateCurrentDpi(144);
    EXPECT_EQ(FieldAt<UINT>(&registry, 0), 144u);
}

TEST(ClassLayout, RegistryHasAReservedZeroSecond)
{
    CDpiAwareRes registry;
    registry.UpdateCurrentDpi(144);
    EXPECT_EQ(FieldAt<UINT>(&registry, 4), 0u);
}

TEST(ClassLayout, RegistryHasItsMutexThird)
{
    CDpiAwareRes registry;
    auto* const mutex = FieldAt<std::mutex*>(&registry, 8);
    ASSERT_NE(mutex, nullptr);
    ASSERT_TRUE(mutex->try_lock());
    mutex->unlock();
}

TEST(ClassLayout, RegistryHasItsEntriesLastInOrderOfRegistration)
{
    CDpiAwareRes registry;
    registry.RegisterIconResource(192, 11, {});
    registry.RegisterIconResource(96, 12, {16, 24});
    const auto* const entries = FieldAt<std::vector<ResourceInfo*>*>(&registry, 16);
    ASSERT_EQ(entries->size(), 2u);
    EXPECT_EQ(entries->at(0)->nResourceId, 11u);
    EXPECT_EQ(entries->at(1)->values, (std::vector<UINT>{16, 24}));
}

TEST(ClassLayout, PngIsLaidOutLikeARegistry)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(144, 21, {5});
    EXPECT_EQ(FieldAt<UINT>(&png, 0), 96u);
    EXPECT_EQ(FieldAt<UINT>(&png, 4), 0u);
    EXPECT_NE(FieldAt<std::mutex*>(&png, 8), nullptr);
    const auto* const entries = FieldAt<std::vector<ResourceInfo*>*>(&png, 16);
    ASSERT_EQ(entries->size(), 1u);
    EXPECT_EQ(entries->front()->nDpi, 144u);
}
