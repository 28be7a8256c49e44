#include "imaging/RegistryFields.h"
#include "foundation/ShortMemory.h"
#include "support/HandleCount.h"

#include <vxdpi/Images.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <initializer_list>
#include <memory>
#include <system_error>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
using Values = std::vector<UINT>;

class Registry : public CDpiAwareRes
{
public:
    using CDpiAwareRes::ReleaseAllResources;
};

// The ID of an entry is its DPI plus this.
constexpr UINT kIdOffset = 1000;

void Register(CDpiAwareRes& registry, std::initializer_list<UINT> dpis)
{
    for (const UINT dpi : dpis)
        registry.RegisterIconResource(dpi, dpi + kIdOffset, {});
}

UINT BestDpi(CDpiAwareRes& registry, UINT currentDpi)
{
    registry.UpdateCurrentDpi(currentDpi);
    const ResourceInfo* const best = registry.FindBestResource();
    if (best == nullptr)
    {
        ADD_FAILURE() << "no entry for " << currentDpi;
        return 0;
    }
    EXPECT_EQ(best->nResourceId, best->nDpi + kIdOffset);
    return best->nDpi;
}

UINT BestDpi(std::initializer_list<UINT> dpis, UINT currentDpi)
{
    CDpiAwareRes registry;
    Register(registry, dpis);
    return BestDpi(registry, currentDpi);
}

// An entry that tells of its destruction.
class WatchedEntry : public ResourceInfo
{
public:
    explicit WatchedEntry(int& destroyed) : m_destroyed(destroyed) {}

    ~WatchedEntry() override { ++m_destroyed; }

private:
    int& m_destroyed;
};

// Makes a registry while one of its two allocations fails.
std::unique_ptr<Registry> RegistryWithout(int failingAllocation)
{
    const ShortMemory shortMemory(failingAllocation);
    return std::make_unique<Registry>();
}

// Whether work, done on another thread, waits for as long as this thread holds the lock.
bool WaitsFor(std::mutex& mutex, const std::function<void()>& work)
{
    using namespace std::chrono_literals;

    std::promise<void> started;
    std::unique_lock<std::mutex> lock(mutex);
    std::future<void> done = std::async(std::launch::async,
                                        [&]
                                        {
                                            started.set_value();
                                            work();
                                        });
    started.get_future().wait();
    const bool waits = done.wait_for(50ms) == std::future_status::timeout;
    lock.unlock();
    EXPECT_EQ(done.wait_for(10s), std::future_status::ready);
    return waits;
}

constexpr int kMutex = 1;
constexpr int kList = 2;
}

TEST(ResourceInfo, IsEmptyByDefault)
{
    const ResourceInfo info;
    EXPECT_EQ(info.nDpi, 0u);
    EXPECT_EQ(info.nResourceId, 0u);
    EXPECT_TRUE(info.values.empty());
}

TEST(ResourceInfo, KeepsWhatItIsGivenInThisOrder)
{
    const ResourceInfo info(144, 11, {32, 16});
    EXPECT_EQ(info.nDpi, 144u);
    EXPECT_EQ(info.nResourceId, 11u);
    EXPECT_EQ(info.values, (Values{32, 16}));
}

TEST(ResourceInfo, IsDestroyedThroughItsBase)
{
    static_assert(std::has_virtual_destructor_v<ResourceInfo>);
    int destroyed = 0;
    const ResourceInfo* const info = new WatchedEntry(destroyed);
    delete info;
    EXPECT_EQ(destroyed, 1);
}

TEST(CDpiAwareRes, IsEmptyAtFirst)
{
    CDpiAwareRes registry;
    EXPECT_EQ(registry.Empty(), TRUE);
    EXPECT_EQ(registry.FindBestResource(), nullptr);
}

TEST(CDpiAwareRes, StartsWithItsFieldsAt96DpiAndALockAndAListOfItsOwn)
{
    CDpiAwareRes registry;
    const RegistryFields& fields = FieldsOf(registry);
    EXPECT_EQ(fields.nCurrentDpi, 96u);
    EXPECT_EQ(fields.nReserved, 0u);
    ASSERT_NE(fields.pMutex, nullptr);
    ASSERT_NE(fields.pEntries, nullptr);
    EXPECT_TRUE(fields.pEntries->empty());
}

TEST(CDpiAwareRes, LooksFor96DpiUntilToldOtherwise)
{
    CDpiAwareRes registry;
    Register(registry, {48, 95, 96, 97, 192});
    ASSERT_NE(registry.FindBestResource(), nullptr);
    EXPECT_EQ(registry.FindBestResource()->nDpi, 96u);
}

TEST(CDpiAwareRes, HasNoVirtualFunctions)
{
    static_assert(!std::is_polymorphic_v<CDpiAwareRes>);
    static_assert(!std::is_copy_constructible_v<CDpiAwareRes>);
}

TEST(CDpiAwareRes, ARegisteredEntryKeepsDpiIdAndValuesInTheirOrder)
{
    CDpiAwareRes registry;
    registry.RegisterIconResource(144, 11, {48, 16, 32});
    EXPECT_EQ(registry.Empty(), FALSE);
    const ResourceInfo* const best = registry.FindBestResource();
    ASSERT_NE(best, nullptr);
    EXPECT_EQ(best->nDpi, 144u);
    EXPECT_EQ(best->nResourceId, 11u);
    EXPECT_EQ(best->values, (Values{48, 16, 32}));
}

TEST(CDpiAwareRes, ARegisteredEntryHasItsOwnCopyOfTheValues)
{
    CDpiAwareRes registry;
    Values values = {16, 32};
    registry.RegisterIconResource(96, 11, values);
    values.assign(2, 99);
    EXPECT_EQ(registry.FindBestResource()->values, (Values{16, 32}));
}

TEST(CDpiAwareRes, RegisteringADpiAgainChangesItsEntryInPlace)
{
    CDpiAwareRes registry;
    registry.RegisterIconResource(144, 11, {16, 32});
    const ResourceInfo* const first = registry.FindBestResource();
    registry.RegisterIconResource(144, 12, {48});
    EXPECT_EQ(FieldsOf(registry).pEntries->size(), 1u);
    EXPECT_EQ(registry.FindBestResource(), first);
    EXPECT_EQ(first->nDpi, 144u);
    EXPECT_EQ(first->nResourceId, 12u);
    EXPECT_EQ(first->values, Values{48});
}

TEST(CDpiAwareRes, RegisteringADpiAgainLeavesTheOthersAlone)
{
    CDpiAwareRes registry;
    Register(registry, {96, 144, 192});
    registry.RegisterIconResource(144, 7, {5});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(registry).pEntries;
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0]->nResourceId, 1096u);
    EXPECT_EQ(entries[1]->nResourceId, 7u);
    EXPECT_EQ(entries[2]->nResourceId, 1192u);
    EXPECT_EQ(entries[2]->values, Values{});
}

TEST(CDpiAwareRes, EntriesStandInTheOrderOfTheirRegistration)
{
    CDpiAwareRes registry;
    Register(registry, {192, 96, 144});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(registry).pEntries;
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0]->nDpi, 192u);
    EXPECT_EQ(entries[1]->nDpi, 96u);
    EXPECT_EQ(entries[2]->nDpi, 144u);
}

TEST(CDpiAwareRes, AnyNumbersCanBeRegistered)
{
    CDpiAwareRes registry;
    registry.RegisterIconResource(0, 0, {});
    registry.RegisterIconResource(0xFFFFFFFF, 0xFFFFFFFF, Values(1000, 0xFFFFFFFF));
    const std::vector<ResourceInfo*>& entries = *FieldsOf(registry).pEntries;
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0]->nDpi, 0u);
    EXPECT_EQ(entries[1]->nDpi, 0xFFFFFFFFu);
    EXPECT_EQ(entries[1]->nResourceId, 0xFFFFFFFFu);
    EXPECT_EQ(entries[1]->values, Values(1000, 0xFFFFFFFF));
}

TEST(CDpiAwareRes, AnExactMatchIsTheBest)
{
    EXPECT_EQ(BestDpi({96, 144, 192}, 96), 96u);
    EXPECT_EQ(BestDpi({96, 144, 192}, 144), 144u);
    EXPECT_EQ(BestDpi({96, 144, 192}, 192), 192u);
}

TEST(CDpiAwareRes, TheNextHigherDpiIsBetterThanANearerLowerOne)
{
    EXPECT_EQ(BestDpi({96, 144, 192}, 120), 144u);
    EXPECT_EQ(BestDpi({96, 144, 192}, 168), 192u);
    EXPECT_EQ(BestDpi({96, 192}, 120), 192u);
    EXPECT_EQ(BestDpi({192, 96}, 97), 192u);
    EXPECT_EQ(BestDpi({120, 192}, 121), 192u);
}

TEST(CDpiAwareRes, WithoutAHigherDpiTheLargestIsTheBest)
{
    EXPECT_EQ(BestDpi({96, 144, 192}, 240), 192u);
    EXPECT_EQ(BestDpi({96, 192}, 300), 192u);
    EXPECT_EQ(BestDpi({192, 96}, 300), 192u);
}

TEST(CDpiAwareRes, ForDpi0TheSmallestIsTheBest)
{
    EXPECT_EQ(BestDpi({144, 96, 192}, 0), 96u);
}

TEST(CDpiAwareRes, ForAHugeDpiTheDistanceIsSigned)
{
    EXPECT_EQ(BestDpi({96, 192}, 0x7FFFFFFF), 192u);
    EXPECT_EQ(BestDpi({0x80000001, 0xFFFFFFFF}, 0), 0xFFFFFFFFu);
}

TEST(CDpiAwareRes, TheFarthestDpiAboveCounts)
{
    EXPECT_EQ(BestDpi({0x7FFFFFFF}, 0), 0x7FFFFFFFu);
}

// One entry 10 below the aim, the other 10 above it by wrapping around.
TEST(CDpiAwareRes, OfTwoEntriesEquallyFarTheOneForTheHigherDpiIsTheBest)
{
    EXPECT_EQ(BestDpi({0xFFFFFFF5, 9}, 0xFFFFFFFF), 0xFFFFFFF5u);
    EXPECT_EQ(BestDpi({9, 0xFFFFFFF5}, 0xFFFFFFFF), 0xFFFFFFF5u);
}

TEST(CDpiAwareRes, OfTwoEqualEntriesTheLaterIsTheBest)
{
    CDpiAwareRes registry;
    Register(registry, {144, 192});
    FieldsOf(registry).pEntries->back()->nDpi = 144;
    EXPECT_EQ(registry.FindBestResource(), FieldsOf(registry).pEntries->back());
    registry.UpdateCurrentDpi(300);
    EXPECT_EQ(registry.FindBestResource(), FieldsOf(registry).pEntries->back());
}

TEST(CDpiAwareRes, TheCurrentDpiStaysUntilItIsUpdatedAgain)
{
    CDpiAwareRes registry;
    Register(registry, {96, 144, 192});
    EXPECT_EQ(BestDpi(registry, 144), 144u);
    EXPECT_EQ(registry.FindBestResource()->nDpi, 144u);
    registry.RegisterIconResource(120, 1120, {});
    EXPECT_EQ(FieldsOf(registry).nCurrentDpi, 144u);
    EXPECT_EQ(BestDpi(registry, 120), 120u);
    EXPECT_EQ(BestDpi(registry, 96), 96u);
}

TEST(CDpiAwareRes, UpdatingTheCurrentDpiChangesNothingElse)
{
    CDpiAwareRes registry;
    registry.UpdateCurrentDpi(144);
    EXPECT_EQ(registry.Empty(), TRUE);
    registry.RegisterIconResource(96, 11, {16});
    const RegistryFields before = FieldsOf(registry);
    const std::vector<ResourceInfo*> entries = *before.pEntries;
    registry.UpdateCurrentDpi(192);
    EXPECT_EQ(FieldsOf(registry).nCurrentDpi, 192u);
    EXPECT_EQ(FieldsOf(registry).nReserved, 0u);
    EXPECT_EQ(FieldsOf(registry).pMutex, before.pMutex);
    EXPECT_EQ(FieldsOf(registry).pEntries, before.pEntries);
    EXPECT_EQ(*before.pEntries, entries);
    EXPECT_EQ(entries[0]->nResourceId, 11u);
    EXPECT_EQ(entries[0]->values, Values{16});
    EXPECT_EQ(registry.Empty(), FALSE);
}

TEST(CDpiAwareRes, LookingUpChangesNothing)
{
    CDpiAwareRes registry;
    Register(registry, {192, 96});
    const std::vector<ResourceInfo*> entries = *FieldsOf(registry).pEntries;
    EXPECT_EQ(BestDpi(registry, 120), 192u);
    EXPECT_EQ(*FieldsOf(registry).pEntries, entries);
    EXPECT_EQ(FieldsOf(registry).nCurrentDpi, 120u);
}

TEST(CDpiAwareRes, ReleasingEmptiesTheRegistryAndKeepsTheCurrentDpi)
{
    Registry registry;
    Register(registry, {96, 144});
    registry.UpdateCurrentDpi(144);
    registry.ReleaseAllResources();
    EXPECT_EQ(registry.Empty(), TRUE);
    EXPECT_EQ(registry.FindBestResource(), nullptr);
    EXPECT_TRUE(FieldsOf(registry).pEntries->empty());
    EXPECT_EQ(FieldsOf(registry).nCurrentDpi, 144u);
}

TEST(CDpiAwareRes, AReleasedRegistryCanBeFilledAgain)
{
    Registry registry;
    Register(registry, {96, 144});
    registry.ReleaseAllResources();
    registry.ReleaseAllResources();
    registry.RegisterIconResource(192, 1192, {});
    EXPECT_EQ(BestDpi(registry, 96), 192u);
}

TEST(CDpiAwareRes, ReleasingDeletesEveryEntryThroughItsBaseAndSkipsNull)
{
    int destroyed = 0;
    Registry registry;
    FieldsOf(registry).pEntries->assign({new WatchedEntry(destroyed), nullptr, new WatchedEntry(destroyed)});
    registry.ReleaseAllResources();
    EXPECT_EQ(destroyed, 2);
    EXPECT_EQ(registry.Empty(), TRUE);
}

TEST(CDpiAwareRes, DestructionDeletesEveryEntry)
{
    int destroyed = 0;
    {
        CDpiAwareRes registry;
        FieldsOf(registry).pEntries->assign({new WatchedEntry(destroyed), new WatchedEntry(destroyed)});
    }
    EXPECT_EQ(destroyed, 2);
}

TEST(CDpiAwareRes, NothingIsLeftBehindByItsLife)
{
    EXPECT_NO_LEAK(
        []
        {
            Registry registry;
            registry.RegisterIconResource(96, 11, {16, 32, 48});
            registry.RegisterIconResource(144, 12, {24, 48});
            registry.RegisterIconResource(96, 13, {16});
            registry.UpdateCurrentDpi(144);
            registry.FindBestResource();
            registry.ReleaseAllResources();
            registry.RegisterIconResource(192, 14, {64});
        });
}

TEST(CDpiAwareRes, NothingIsLeftBehindByALifeWithoutUse)
{
    EXPECT_NO_LEAK([] { const CDpiAwareRes registry; });
}

TEST(CDpiAwareRes, AssignmentSharesLockAndListAndCopiesTheRest)
{
    CDpiAwareRes source;
    CDpiAwareRes target;
    const KeepFields keepTarget(FieldsOf(target));
    Register(source, {96, 144});
    source.UpdateCurrentDpi(144);
    FieldsOf(source).nReserved = 5;

    EXPECT_EQ(&(target = source), &target);

    EXPECT_EQ(FieldsOf(target).nCurrentDpi, 144u);
    EXPECT_EQ(FieldsOf(target).nReserved, 5u);
    EXPECT_EQ(FieldsOf(target).pMutex, FieldsOf(source).pMutex);
    EXPECT_EQ(FieldsOf(target).pEntries, FieldsOf(source).pEntries);
    EXPECT_EQ(target.FindBestResource(), source.FindBestResource());
}

TEST(CDpiAwareRes, AfterAssignmentEntriesAreSharedAndTheCurrentDpiIsNot)
{
    CDpiAwareRes source;
    CDpiAwareRes target;
    const KeepFields keepTarget(FieldsOf(target));
    Register(source, {96});
    target = source;
    target.RegisterIconResource(192, 1192, {});
    target.UpdateCurrentDpi(192);
    EXPECT_EQ(FieldsOf(source).nCurrentDpi, 96u);
    EXPECT_EQ(BestDpi(source, 300), 192u);
    EXPECT_EQ(target.FindBestResource()->nDpi, 192u);
}

TEST(CDpiAwareRes, AssignmentToItselfChangesNothing)
{
    CDpiAwareRes registry;
    Register(registry, {96, 144});
    CDpiAwareRes& same = registry;
    registry = same;
    EXPECT_EQ(BestDpi(registry, 120), 144u);
}

TEST(CDpiAwareRes, EveryOperationWaitsForTheLock)
{
    Registry registry;
    Register(registry, {96});
    std::mutex& mutex = *FieldsOf(registry).pMutex;
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.RegisterIconResource(144, 1144, {}); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.RegisterIconResource(96, 1, {}); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.UpdateCurrentDpi(144); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.UpdateCurrentDpi(144); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.FindBestResource(); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.Empty(); }));
    EXPECT_TRUE(WaitsFor(mutex, [&] { registry.ReleaseAllResources(); }));
}

TEST(CDpiAwareRes, EveryOperationGivesTheLockBack)
{
    Registry registry;
    std::mutex& mutex = *FieldsOf(registry).pMutex;
    const auto isFree = [&mutex]
    { return std::unique_lock<std::mutex>(mutex, std::try_to_lock).owns_lock(); };
    registry.FindBestResource();
    EXPECT_TRUE(isFree());
    registry.RegisterIconResource(96, 1, {});
    EXPECT_TRUE(isFree());
    registry.RegisterIconResource(96, 2, {});
    EXPECT_TRUE(isFree());
    registry.UpdateCurrentDpi(96);
    EXPECT_TRUE(isFree());
    registry.FindBestResource();
    EXPECT_TRUE(isFree());
    registry.UpdateCurrentDpi(144);
    registry.FindBestResource();
    EXPECT_TRUE(isFree());
    registry.Empty();
    EXPECT_TRUE(isFree());
    registry.ReleaseAllResources();
    EXPECT_TRUE(isFree());
}

TEST(CDpiAwareRes, ManyThreadsMayUseOneRegistry)
{
    constexpr UINT kThreads = 8;
    constexpr UINT kDpis = 40;
    constexpr UINT kRounds = 400;
    CDpiAwareRes registry;
    std::vector<std::thread> threads;
    for (UINT thread = 0; thread < kThreads; ++thread)
    {
        threads.emplace_back(
            [&registry, thread]
            {
                for (UINT round = 0; round < kRounds; ++round)
                {
                    const UINT dpi = 1 + (round * 7 + thread) % kDpis;
                    registry.RegisterIconResource(dpi, dpi + kIdOffset, Values(dpi, dpi));
                    registry.UpdateCurrentDpi(dpi);
                    registry.FindBestResource();
                    registry.Empty();
                }
            });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(FieldsOf(registry).pEntries->size(), kDpis);
    for (UINT dpi = 1; dpi <= kDpis; ++dpi)
    {
        EXPECT_EQ(BestDpi(registry, dpi), dpi);
        EXPECT_EQ(registry.FindBestResource()->values, Values(dpi, dpi));
    }
}

TEST(CDpiAwareRes, WithoutALockItStaysEmpty)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const std::unique_ptr<Registry> registry = RegistryWithout(kMutex);
    ASSERT_EQ(FieldsOf(*registry).pMutex, nullptr);
    ASSERT_NE(FieldsOf(*registry).pEntries, nullptr);
    registry->RegisterIconResource(96, 11, {16});
    EXPECT_TRUE(FieldsOf(*registry).pEntries->empty());
    EXPECT_EQ(registry->Empty(), TRUE);
    EXPECT_EQ(registry->FindBestResource(), nullptr);
}

TEST(CDpiAwareRes, WithoutALockTheListIsNotLookedAt)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const std::unique_ptr<Registry> registry = RegistryWithout(kMutex);
    ResourceInfo entry(96, 11, {});
    FieldsOf(*registry).pEntries->push_back(&entry);
    EXPECT_EQ(registry->Empty(), TRUE);
    EXPECT_EQ(registry->FindBestResource(), nullptr);
    registry->RegisterIconResource(96, 12, {});
    EXPECT_EQ(entry.nResourceId, 11u);
    registry->ReleaseAllResources();
    ASSERT_EQ(FieldsOf(*registry).pEntries->size(), 1u);
    FieldsOf(*registry).pEntries->clear();
}

TEST(CDpiAwareRes, WithoutALockTheCurrentDpiStays)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const std::unique_ptr<Registry> registry = RegistryWithout(kMutex);
    registry->UpdateCurrentDpi(144);
    EXPECT_EQ(FieldsOf(*registry).nCurrentDpi, 96u);
}

TEST(CDpiAwareRes, WithoutAListItStaysEmpty)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const std::unique_ptr<Registry> registry = RegistryWithout(kList);
    ASSERT_NE(FieldsOf(*registry).pMutex, nullptr);
    ASSERT_EQ(FieldsOf(*registry).pEntries, nullptr);
    registry->RegisterIconResource(96, 11, {16});
    EXPECT_EQ(FieldsOf(*registry).pEntries, nullptr);
    EXPECT_EQ(registry->Empty(), TRUE);
    EXPECT_EQ(registry->FindBestResource(), nullptr);
    registry->ReleaseAllResources();
}

TEST(CDpiAwareRes, WithoutAListTheCurrentDpiFollows)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    const std::unique_ptr<Registry> registry = RegistryWithout(kList);
    registry->UpdateCurrentDpi(144);
    EXPECT_EQ(FieldsOf(*registry).nCurrentDpi, 144u);
}

TEST(CDpiAwareRes, ARegistryShortOfMemoryLeavesNothingBehind)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    EXPECT_NO_LEAK([] { RegistryWithout(kMutex)->Empty(); });
    EXPECT_NO_LEAK([] { RegistryWithout(kList)->Empty(); });
}

// Entry, values and place in the list are allocated one after the other.
TEST(CDpiAwareRes, RegistrationThrowsWhenMemoryIsShortAndChangesNothing)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwareRes registry;
    Register(registry, {96});
    for (const int failingAllocation : {1, 2, 3})
    {
        const ShortMemory shortMemory(failingAllocation);
        EXPECT_THROW(registry.RegisterIconResource(144, 11, {16}), std::bad_alloc) << failingAllocation;
        EXPECT_EQ(FieldsOf(registry).pEntries->size(), 1u);
    }
    EXPECT_FALSE(WaitsFor(*FieldsOf(registry).pMutex, [] {}));
    EXPECT_EQ(BestDpi(registry, 144), 96u);
}

TEST(CDpiAwareRes, ReplacingThrowsWhenMemoryIsShortWithTheIdReplacedAlready)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwareRes registry;
    registry.RegisterIconResource(96, 11, {16});
    {
        const ShortMemory shortMemory(1);
        EXPECT_THROW(registry.RegisterIconResource(96, 12, {24, 32}), std::bad_alloc);
    }
    ASSERT_NE(registry.FindBestResource(), nullptr);
    EXPECT_EQ(registry.FindBestResource()->nResourceId, 12u);
    EXPECT_EQ(registry.FindBestResource()->values, Values{16});
}

// A mutex allocates what it needs when it is locked for the first time.
TEST(CDpiAwareRes, AFailureToLockIsThrown)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    Registry registry;
    const auto throwsWithoutLock = [](const std::function<void()>& work)
    {
        const ShortMemory noLock(1);
        EXPECT_THROW(work(), std::system_error);
    };
    throwsWithoutLock([&] { registry.Empty(); });
    throwsWithoutLock([&] { registry.FindBestResource(); });
    throwsWithoutLock([&] { registry.UpdateCurrentDpi(144); });
    throwsWithoutLock([&] { registry.RegisterIconResource(144, 11, {}); });
    throwsWithoutLock([&] { registry.ReleaseAllResources(); });
    EXPECT_EQ(FieldsOf(registry).nCurrentDpi, 96u);
    EXPECT_TRUE(FieldsOf(registry).pEntries->empty());
}
