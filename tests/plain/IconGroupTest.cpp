#include "IconGroupFuzz.h"
#include "IconGroupModel.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>
#include <vector>

namespace
{
using Directory = std::vector<BYTE>;

struct Entry
{
    int width;
    int height;
    int id;
};

void AppendWord(Directory& bytes, int value)
{
    bytes.push_back(static_cast<BYTE>(value));
    bytes.push_back(static_cast<BYTE>(value >> 8));
}

// Every field that does not count is filled, so that a choice by the wrong bytes shows.
void AppendEntry(Directory& bytes, const Entry& entry)
{
    const BYTE colorCount = 0xEE;
    const BYTE reserved = 0xDD;
    bytes.insert(bytes.end(),
                 {static_cast<BYTE>(entry.width), static_cast<BYTE>(entry.height), colorCount, reserved});
    AppendWord(bytes, 0xBBCC); // planes
    AppendWord(bytes, 0x99AA); // bits per pixel
    AppendWord(bytes, 0x7788); // size of the image, in two halves
    AppendWord(bytes, 0x5566);
    AppendWord(bytes, entry.id);
}

Directory DirectoryOf(int promised, const std::vector<Entry>& entries)
{
    Directory bytes;
    AppendWord(bytes, 0x1122); // reserved
    AppendWord(bytes, 0x3344); // type
    AppendWord(bytes, promised);
    for (const Entry& entry : entries)
        AppendEntry(bytes, entry);
    return bytes;
}

Directory DirectoryOf(const std::vector<Entry>& entries)
{
    return DirectoryOf(static_cast<int>(entries.size()), entries);
}

// The ID and size of the image that is chosen.
using Choice = std::pair<int, int>;

Choice ChooseIn(const Directory& bytes, int target)
{
    const IconGroup::Image image = IconGroup::Choose(bytes.data(), bytes.size(), target);
    return {image.nId, image.nSize};
}

Choice Choose(const std::vector<Entry>& entries, int target)
{
    return ChooseIn(DirectoryOf(entries), target);
}

const Choice kNone(0, 0);

// Square images whose IDs are 101, 102, ...
std::vector<Entry> Squares(const std::vector<int>& sizes)
{
    std::vector<Entry> entries;
    entries.reserve(sizes.size());
    for (const int size : sizes)
        entries.push_back({size, size, 101 + static_cast<int>(entries.size())});
    return entries;
}

Choice ChooseSquare(const std::vector<int>& sizes, int target)
{
    return Choose(Squares(sizes), target);
}
}

TEST(IconGroup, TheSmallestImageThatReachesTheTargetIsChosen)
{
    EXPECT_EQ(ChooseSquare({16, 32, 48, 0}, 24), Choice(102, 32));
    EXPECT_EQ(ChooseSquare({48, 32, 16}, 17), Choice(102, 32));
    EXPECT_EQ(ChooseSquare({48, 32, 16}, 1), Choice(103, 16));
    EXPECT_EQ(ChooseSquare({24, 64, 40, 20}, 33), Choice(103, 40));
}

TEST(IconGroup, AnImageOfExactlyTheTargetIsChosen)
{
    EXPECT_EQ(ChooseSquare({16, 32, 48}, 16), Choice(101, 16));
    EXPECT_EQ(ChooseSquare({16, 32, 48}, 32), Choice(102, 32));
    EXPECT_EQ(ChooseSquare({16, 32, 48}, 48), Choice(103, 48));
    EXPECT_EQ(ChooseSquare({254, 255}, 255), Choice(102, 255));
}

TEST(IconGroup, TheLargestImageIsChosenWhenNoneReachesTheTarget)
{
    EXPECT_EQ(ChooseSquare({16, 32, 48, 0}, 64), Choice(103, 48));
    EXPECT_EQ(ChooseSquare({16, 48, 32}, 49), Choice(102, 48));
    EXPECT_EQ(ChooseSquare({16}, 256), Choice(101, 16));
    EXPECT_EQ(ChooseSquare({16, 48, 32}, INT_MAX), Choice(102, 48));
}

TEST(IconGroup, AnImageOf256PixelsIsStoredAs0AndReachesNoTarget)
{
    EXPECT_EQ(ChooseSquare({0, 16}, 255), Choice(102, 16));
    EXPECT_EQ(ChooseSquare({0, 16}, 1), Choice(102, 16));
    EXPECT_EQ(ChooseSquare({0, 0}, 1), kNone);
    EXPECT_EQ(ChooseSquare({0}, 256), kNone);
}

TEST(IconGroup, AmongEqualSizesThatReachTheTargetTheFirstIsChosen)
{
    EXPECT_EQ(ChooseSquare({48, 32, 32, 32}, 20), Choice(102, 32));
}

TEST(IconGroup, AmongEqualLargestSizesTheFirstIsChosen)
{
    EXPECT_EQ(ChooseSquare({16, 32, 32}, 40), Choice(102, 32));
}

TEST(IconGroup, TheLongerSideIsTheSize)
{
    EXPECT_EQ(Choose({{16, 32, 1}, {24, 20, 2}}, 21), Choice(2, 24));
    EXPECT_EQ(Choose({{16, 32, 1}, {24, 20, 2}}, 25), Choice(1, 32));
    EXPECT_EQ(Choose({{0, 20, 1}}, 18), Choice(1, 20));
    EXPECT_EQ(Choose({{20, 0, 1}}, 18), Choice(1, 20));
}

TEST(IconGroup, ATargetOf0TakesTheSmallestImageThatTellsItsSize)
{
    EXPECT_EQ(ChooseSquare({16, 32}, 0), Choice(101, 16));
    EXPECT_EQ(ChooseSquare({0, 32, 16}, 0), Choice(103, 16));
    EXPECT_EQ(ChooseSquare({32, 0, 16}, 0), Choice(103, 16));
    EXPECT_EQ(ChooseSquare({32, 16, 0}, 0), Choice(102, 16));
    EXPECT_EQ(ChooseSquare({32, 0}, 0), Choice(101, 32));
    EXPECT_EQ(ChooseSquare({0, 0, 32, 0}, 0), Choice(103, 32));
    EXPECT_EQ(ChooseSquare({0, 32, 32}, 0), Choice(102, 32));
}

TEST(IconGroup, ATargetOf0TakesTheFirstWhenAllAreStoredAs0)
{
    EXPECT_EQ(ChooseSquare({0, 0, 0}, 0), Choice(101, 0));
}

TEST(IconGroup, ANegativeTargetIsReachedByAllLike0)
{
    EXPECT_EQ(ChooseSquare({0, 32, 16}, -1), Choice(103, 16));
    EXPECT_EQ(ChooseSquare({0, 32, 16}, INT_MIN), Choice(103, 16));
    EXPECT_EQ(ChooseSquare({0, 0}, INT_MIN), Choice(101, 0));
}

TEST(IconGroup, AnImageWithoutIdKeepsOthersAwayAndThenGivesWayToTheLargest)
{
    EXPECT_EQ(Choose({{32, 32, 0}, {48, 48, 5}, {64, 64, 6}}, 24), Choice(6, 64));
    EXPECT_EQ(Choose({{32, 32, 0}, {28, 28, 5}, {64, 64, 6}}, 24), Choice(5, 28));
    EXPECT_EQ(Choose({{32, 32, 5}, {28, 28, 0}, {64, 64, 6}}, 24), Choice(6, 64));
    EXPECT_EQ(Choose({{0, 0, 0}, {0, 0, 5}}, 0), kNone);
}

TEST(IconGroup, TheLargestMayHaveNoId)
{
    EXPECT_EQ(Choose({{32, 32, 0}, {16, 16, 5}}, 24), Choice(0, 32));
    EXPECT_EQ(Choose({{16, 16, 5}, {32, 32, 0}}, 64), Choice(0, 32));
}

TEST(IconGroup, IdsUseAll16Bits)
{
    EXPECT_EQ(Choose({{16, 16, 0xFFFF}}, 16), Choice(0xFFFF, 16));
    EXPECT_EQ(Choose({{16, 16, 0x1234}}, 16), Choice(0x1234, 16));
    EXPECT_EQ(Choose({{16, 16, 0x0100}}, 16), Choice(0x0100, 16));
}

TEST(IconGroup, OnlyThePromisedEntriesAreRead)
{
    EXPECT_EQ(ChooseIn(DirectoryOf(2, Squares({16, 32, 48})), 40), Choice(102, 32));
    EXPECT_EQ(ChooseIn(DirectoryOf(1, Squares({16, 32, 48})), 40), Choice(101, 16));
    EXPECT_EQ(ChooseIn(DirectoryOf(0, Squares({16, 32, 48})), 40), kNone);
}

TEST(IconGroup, ThePromisedCountHas16Bits)
{
    std::vector<Entry> entries(300, Entry{16, 16, 1});
    entries[257] = {32, 32, 2};
    EXPECT_EQ(ChooseIn(DirectoryOf(0x0101, entries), 40), Choice(1, 16));
    EXPECT_EQ(ChooseIn(DirectoryOf(0x0102, entries), 40), Choice(2, 32));
    EXPECT_EQ(ChooseIn(DirectoryOf(0x0002, entries), 40), Choice(1, 16));
}

TEST(IconGroup, OfMorePromisedThanThereAreTheWholeOnesAreRead)
{
    EXPECT_EQ(ChooseIn(DirectoryOf(4, Squares({16, 32, 48})), 40), Choice(103, 48));
    EXPECT_EQ(ChooseIn(DirectoryOf(0xFFFF, Squares({16, 32, 48})), 40), Choice(103, 48));
    EXPECT_EQ(ChooseIn(DirectoryOf(0xFFFF, {}), 40), kNone);
}

TEST(IconGroup, AnEntryThatIsCutOffIsNotRead)
{
    const Directory whole = DirectoryOf(Squares({16, 32}));
    ASSERT_EQ(whole.size(), 34u);
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        const Directory cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const Choice expected = size == 34 ? Choice(102, 32) : size >= 20 ? Choice(101, 16) : kNone;
        EXPECT_EQ(ChooseIn(cut, 24), expected) << size << " bytes";
    }
}

TEST(IconGroup, BytesBehindTheLastEntryDoNotMatter)
{
    Directory bytes = DirectoryOf(Squares({16, 32}));
    bytes.resize(bytes.size() + 13, 0xFF);
    EXPECT_EQ(ChooseIn(bytes, 24), Choice(102, 32));
}

TEST(IconGroup, WithoutBytesThereIsNoImage)
{
    const IconGroup::Image image = IconGroup::Choose(nullptr, 0, 16);
    EXPECT_EQ(image.nId, 0);
    EXPECT_EQ(image.nSize, 0);
}

TEST(IconGroup, AllDirectoriesOf3EntriesAgreeWithTheModel)
{
    std::vector<Entry> kinds;
    for (const int size : {0, 15, 16, 17, 255})
    {
        for (const int id : {0, 1, 2})
            kinds.push_back({size, size, id});
    }
    const std::size_t count = kinds.size();
    for (std::size_t i = 0; i < count * count * count; ++i)
    {
        const Directory bytes =
            DirectoryOf({kinds[i / count / count], kinds[i / count % count], kinds[i % count]});
        for (const int target : {INT_MIN, -1, 0, 1, 15, 16, 17, 18, 255, 256, INT_MAX})
            ASSERT_TRUE(IconGroupModel::AgreesWithLibrary(bytes, target)) << "case " << i << ", " << target;
    }
}

TEST(IconGroup, RandomDirectoriesAgreeWithTheModel)
{
    std::mt19937 random(1);
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    for (int round = 0; round < 20000; ++round)
    {
        std::vector<Entry> entries;
        for (int count = below(12); count > 0; --count)
            entries.push_back({below(4) * 16, below(4) * 16, below(5)});
        const int promised = static_cast<int>(entries.size()) + below(5) - 2;
        Directory bytes = DirectoryOf(promised, entries);
        bytes.resize(bytes.size() - static_cast<std::size_t>(below(6)));
        const int target = below(70) - 3;
        ASSERT_TRUE(IconGroupModel::AgreesWithLibrary(bytes, target)) << "round " << round;
    }
}

TEST(IconGroup, RandomBytesAgreeWithTheModel)
{
    std::mt19937 random(2);
    for (int round = 0; round < 20000; ++round)
    {
        Directory bytes(random() % 100);
        for (BYTE& byte : bytes)
            byte = static_cast<BYTE>(random());
        const int target = static_cast<int>(random() % 300) - 20;
        ASSERT_TRUE(IconGroupModel::AgreesWithLibrary(bytes, target)) << "round " << round;
    }
}

// What the fuzzer has found worth keeping; see icon_groups/README.md.
TEST(IconGroup, TheInputsOfTheFuzzerAgreeWithTheModel)
{
    int inputs = 0;
    for (const auto& file : std::filesystem::directory_iterator(VXDPI_PLAIN_TESTS_DIR "/icon_groups/corpus"))
    {
        std::ifstream stream(file.path(), std::ios::binary);
        const Directory bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        const IconGroupInput input = ReadIconGroupInput(bytes.data(), bytes.size());
        EXPECT_TRUE(IconGroupModel::AgreesWithLibrary(input.directory, input.target)) << file.path();
        ++inputs;
    }
    EXPECT_GE(inputs, 20);
}
