#include <imaging/VariantChoice.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace
{
struct Entry
{
    UINT nDpi;
};

UINT ChosenDpi(std::vector<Entry> entries, UINT nDpi)
{
    std::vector<Entry*> pointers;
    pointers.reserve(entries.size());
    for (Entry& entry : entries)
        pointers.push_back(&entry);
    const Entry* const pChosen = VariantChoice::Choose(pointers, nDpi);
    EXPECT_NE(pChosen, nullptr);
    return pChosen ? pChosen->nDpi : 0;
}

// Slow and obvious, for DPIs as monitors have them: the smallest at or above, else the largest.
UINT ModelDpi(std::vector<Entry> entries, UINT nDpi)
{
    const auto lower = [](const Entry& a, const Entry& b) { return a.nDpi < b.nDpi; };
    std::sort(entries.begin(), entries.end(), lower);
    const auto found = std::lower_bound(entries.begin(), entries.end(), Entry{nDpi}, lower);
    return found == entries.end() ? entries.back().nDpi : found->nDpi;
}
} // namespace

TEST(VariantChoice, NoEntriesGiveNone)
{
    EXPECT_EQ(VariantChoice::Choose(std::vector<Entry*>(), 96), nullptr);
}

TEST(VariantChoice, AnExactMatchWins)
{
    EXPECT_EQ(ChosenDpi({{96}, {144}, {192}}, 96), 96U);
    EXPECT_EQ(ChosenDpi({{96}, {144}, {192}}, 144), 144U);
    EXPECT_EQ(ChosenDpi({{192}, {144}, {96}}, 192), 192U);
}

TEST(VariantChoice, TheSmallestDpiAboveWins)
{
    EXPECT_EQ(ChosenDpi({{96}, {144}, {192}}, 120), 144U);
    EXPECT_EQ(ChosenDpi({{192}, {144}, {96}}, 120), 144U);
    EXPECT_EQ(ChosenDpi({{96}, {144}, {192}}, 168), 192U);
}

TEST(VariantChoice, AHigherDpiBeatsANearerLowerOne)
{
    EXPECT_EQ(ChosenDpi({{96}, {192}}, 120), 192U);
    EXPECT_EQ(ChosenDpi({{120}, {192}}, 121), 192U);
    EXPECT_EQ(ChosenDpi({{192}, {120}}, 121), 192U);
}

TEST(VariantChoice, WithoutAHigherDpiTheLargestWins)
{
    EXPECT_EQ(ChosenDpi({{96}, {192}}, 300), 192U);
    EXPECT_EQ(ChosenDpi({{192}, {96}}, 300), 192U);
    EXPECT_EQ(ChosenDpi({{96}, {144}, {192}}, 240), 192U);
}

TEST(VariantChoice, ZeroDpiGivesTheSmallest)
{
    EXPECT_EQ(ChosenDpi({{144}, {96}, {192}}, 0), 96U);
}

TEST(VariantChoice, OneEntryIsAlwaysChosen)
{
    EXPECT_EQ(ChosenDpi({{144}}, 0), 144U);
    EXPECT_EQ(ChosenDpi({{144}}, 144), 144U);
    EXPECT_EQ(ChosenDpi({{144}}, 600), 144U);
    EXPECT_EQ(ChosenDpi({{0}}, 96), 0U);
}

TEST(VariantChoice, OfTwoEqualDpisTheLaterWins)
{
    Entry first{144};
    Entry later{144};
    EXPECT_EQ(VariantChoice::Choose<Entry>({&first, &later}, 120), &later);
    EXPECT_EQ(VariantChoice::Choose<Entry>({&first, &later}, 144), &later);
    EXPECT_EQ(VariantChoice::Choose<Entry>({&first, &later}, 200), &later);
}

// A distance beyond 31 bits does not count as above; the second walk then measures it as a signed number.
TEST(VariantChoice, AnEntryFartherThan31BitsAboveIsMeasuredSigned)
{
    EXPECT_EQ(ChosenDpi({{0x7FFFFFFF}}, 0), 0x7FFFFFFFU);
    EXPECT_EQ(ChosenDpi({{0x80000000}}, 0), 0x80000000U);
    EXPECT_EQ(ChosenDpi({{0x80000001}, {0xFFFFFFFF}}, 0), 0xFFFFFFFFU);
    EXPECT_EQ(ChosenDpi({{0xFFFFFFFF}, {0x80000001}}, 0), 0xFFFFFFFFU);
    EXPECT_EQ(ChosenDpi({{0x7FFFFFFF}, {0xFFFFFFFF}}, 0), 0x7FFFFFFFU);
    EXPECT_EQ(ChosenDpi({{96}, {0xFFFFFFFF}}, 0), 96U);
    EXPECT_EQ(ChosenDpi({{0xFFFFFFFF}, {0x90000000}}, 96), 0xFFFFFFFFU);
}

// The magnitude of the smallest signed number is itself, hence the smallest distance of all.
TEST(VariantChoice, TheSmallestSignedDifferenceWinsTheSecondWalk)
{
    EXPECT_EQ(VariantChoice::SignedDistance(0x80000000, 0), static_cast<INT>(0x80000000));
    EXPECT_EQ(ChosenDpi({{0xFFFFFFFF}, {0x80000000}}, 0), 0x80000000U);
    EXPECT_EQ(ChosenDpi({{0x80000000}, {0xFFFFFFFF}}, 0), 0x80000000U);
}

TEST(VariantChoice, SignedDistanceIsTheMagnitudeOfTheDifference)
{
    EXPECT_EQ(VariantChoice::SignedDistance(96, 300), 204);
    EXPECT_EQ(VariantChoice::SignedDistance(300, 96), 204);
    EXPECT_EQ(VariantChoice::SignedDistance(96, 96), 0);
    EXPECT_EQ(VariantChoice::SignedDistance(0xFFFFFFFF, 0), 1);
}

// Of two entries equally far below and above, measured signed, the one with the higher DPI stays.
TEST(VariantChoice, OnATieTheHigherDpiStays)
{
    // 10 below the aim and 10 above it by wrapping around: only the second walk sees both.
    EXPECT_EQ(ChosenDpi({{0xFFFFFFF5}, {9}}, 0xFFFFFFFF), 0xFFFFFFF5U);
    EXPECT_EQ(ChosenDpi({{9}, {0xFFFFFFF5}}, 0xFFFFFFFF), 0xFFFFFFF5U);
}

TEST(VariantChoice, RandomSetsAgreeWithTheModel)
{
    std::mt19937 random(20260101);
    std::uniform_int_distribution<UINT> anyDpi(0, 700);
    std::uniform_int_distribution<int> anyCount(1, 9);
    for (int round = 0; round < 100000; ++round)
    {
        std::vector<Entry> entries(static_cast<std::size_t>(anyCount(random)));
        for (Entry& entry : entries)
            entry.nDpi = anyDpi(random);
        const UINT nDpi = anyDpi(random);
        ASSERT_EQ(ChosenDpi(entries, nDpi), ModelDpi(entries, nDpi)) << "round " << round;
    }
}

TEST(VariantChoice, AnyThirtyTwoBitDpisChooseSomeEntry)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<UINT> anyDpi;
    for (int round = 0; round < 100000; ++round)
    {
        std::vector<Entry> entries(3);
        for (Entry& entry : entries)
            entry.nDpi = anyDpi(random);
        const UINT nChosen = ChosenDpi(entries, anyDpi(random));
        ASSERT_TRUE(std::any_of(entries.begin(), entries.end(),
                                [nChosen](const Entry& entry) { return entry.nDpi == nChosen; }));
    }
}
