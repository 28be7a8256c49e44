#include <png/PixelRuns.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace
{
using Run = std::pair<DWORD*, std::size_t>;
using Runs = std::vector<Run>;

Runs RunsOf(DWORD* pFirstRow, UINT width, UINT height, INT stride)
{
    Runs runs;
    ForEachRun(pFirstRow, width, height, stride,
               [&](DWORD* pPixels, std::size_t count) { runs.emplace_back(pPixels, count); });
    return runs;
}

std::size_t PixelCountOf(const Runs& runs)
{
    std::size_t count = 0;
    for (const Run& run : runs)
        count += run.second;
    return count;
}
} // namespace

TEST(PixelRuns, RowsThatTouchAreOneRun)
{
    std::vector<DWORD> pixels(12);
    EXPECT_EQ(RunsOf(pixels.data(), 4, 3, 16), (Runs{{pixels.data(), 12}}));
    EXPECT_EQ(RunsOf(pixels.data(), 1, 5, 4), (Runs{{pixels.data(), 5}}));
}

TEST(PixelRuns, RowsWithAGapAreARunEach)
{
    std::vector<DWORD> pixels(12);
    DWORD* const p = pixels.data();
    EXPECT_EQ(RunsOf(p, 3, 3, 16), (Runs{{p, 3}, {p + 4, 3}, {p + 8, 3}}));
}

TEST(PixelRuns, RowsThatRunUpwardsAreARunEach)
{
    std::vector<DWORD> pixels(12);
    DWORD* const p = pixels.data();
    EXPECT_EQ(RunsOf(p + 8, 4, 3, -16), (Runs{{p + 8, 4}, {p + 4, 4}, {p, 4}}));
    EXPECT_EQ(RunsOf(p + 8, 3, 3, -16), (Runs{{p + 8, 3}, {p + 4, 3}, {p, 3}}));
}

TEST(PixelRuns, AnImageWithoutPixelsHasNone)
{
    std::vector<DWORD> pixels(4);
    DWORD* const p = pixels.data();
    EXPECT_EQ(RunsOf(p, 3, 0, 16), Runs{});
    EXPECT_EQ(PixelCountOf(RunsOf(p, 4, 0, 16)), 0U);
    EXPECT_EQ(PixelCountOf(RunsOf(p, 0, 5, 16)), 0U);
    EXPECT_EQ(PixelCountOf(RunsOf(p, 0, 5, 0)), 0U);
}

// More pixels than 32 bits count; none of them is touched here.
TEST(PixelRuns, ALargeImageIsCountedInFull)
{
    DWORD pixel = 0;
    EXPECT_EQ(RunsOf(&pixel, 0x1FFFFFFF, 16, 0x7FFFFFFC), (Runs{{&pixel, std::size_t{0x1FFFFFFF0}}}));
}
