#include "support/HandleCount.h"

#include "support/GdiPlusSession.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <sstream>
#include <vector>

namespace
{
std::string TextOf(const HandleCount& counts)
{
    std::ostringstream text;
    text << counts;
    return text.str();
}
}

TEST(HandleCount, TwoCountsInARowAreEqual)
{
    const HandleCount first = HandleCount::Now();
    const HandleCount second = HandleCount::Now();
    EXPECT_EQ(first, second);
    EXPECT_EQ(TextOf(second - first), "nothing");
}

TEST(HandleCount, AnObjectGrowsItsKindAndItsTotalByOne)
{
    const HandleCount before = HandleCount::Now();
    const HBITMAP bitmap = ::CreateBitmap(1, 1, 1, 1, nullptr);
    const HandleCount growth = (HandleCount::Now() - before).WithoutHeaps();
    ::DeleteObject(bitmap);

    if (HandleCount::IsKnown(HandleKind::Bitmap))
        EXPECT_EQ(TextOf(growth), "bitmaps 1, GDI total 1");
    else
        EXPECT_EQ(TextOf(growth), "GDI total 1");
}

TEST(HandleCount, AnIconCountsOnce)
{
    if (!HandleCount::IsKnown(HandleKind::Icon))
        GTEST_SKIP() << "the system counts by itself";

    const BYTE bits[32] = {};
    const HandleCount before = HandleCount::Now();
    const HICON icon = ::CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
    const HandleCount growth = HandleCount::Now() - before;
    ::DestroyIcon(icon);
    EXPECT_EQ(growth[HandleKind::Icon], 1) << growth;
}

TEST(HandleCount, AChildAndAMessageWindowCount)
{
    const auto makeWindow = [](HWND parent)
    { return ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, parent, nullptr, nullptr, nullptr); };
    const auto makeChild = [](HWND parent)
    { return ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, parent, nullptr, nullptr, nullptr); };

    const HandleCount before = HandleCount::Now();
    const HWND frame = makeWindow(nullptr);
    makeChild(frame);
    const HWND messages = makeWindow(HWND_MESSAGE);
    const HandleCount growth = HandleCount::Now() - before;
    ::DestroyWindow(messages);
    ::DestroyWindow(frame);

    EXPECT_EQ(growth[HandleKind::UserTotal], 3) << growth;
    EXPECT_TRUE(SameHandlesAs(before));
}

TEST(SameHandlesAs, ReportsWhatGrew)
{
    const HandleCount before = HandleCount::Now();
    const HRGN region = ::CreateRectRgn(0, 0, 1, 1);
    const testing::AssertionResult result = SameHandlesAs(before);
    ::DeleteObject(region);

    EXPECT_FALSE(result);
    EXPECT_NE(std::string(result.message()).find("GDI total 1"), std::string::npos) << result.message();
    EXPECT_TRUE(SameHandlesAs(before));
}

TEST(LeavesPerCall, WorkThatFreesEverythingPasses)
{
    const GdiPlusSession gdiPlus;
    EXPECT_NO_LEAK(
        []
        {
            const auto bitmap = std::make_unique<Gdiplus::Bitmap>(4, 4, PixelFormat32bppARGB);
            HICON icon = nullptr;
            bitmap->GetHICON(&icon);
            ::DestroyIcon(icon);
        });
}

TEST(LeavesPerCall, ALeakFailsAndIsNamed)
{
    std::vector<HFONT> fonts;
    const testing::AssertionResult result = LeavesPerCall({},
                                                          [&]
                                                          {
                                                              const LOGFONTW font = {};
                                                              fonts.push_back(::CreateFontIndirectW(&font));
                                                          });
    for (const HFONT font : fonts)
        ::DeleteObject(font);

    EXPECT_FALSE(result);
    EXPECT_NE(std::string(result.message()).find("GDI total 10"), std::string::npos) << result.message();
}

TEST(LeavesPerCall, ALeakOfOneGdiPlusObjectFails)
{
    const GdiPlusSession gdiPlus;
    Gdiplus::Bitmap* kept[100] = {};
    Gdiplus::Bitmap** next = kept;
    EXPECT_FALSE(LeavesPerCall({}, [&] { *next++ = new Gdiplus::Bitmap(4, 4, PixelFormat32bppARGB); }));
    for (Gdiplus::Bitmap* const bitmap : kept)
        delete bitmap;
}

TEST(LeavesPerCall, ALeakOfOneCrtBlockFails)
{
    void* kept[100] = {};
    void** next = kept;
    EXPECT_FALSE(LeavesPerCall({}, [&] { *next++ = ::operator new(24); }));
    for (void* const block : kept)
        ::operator delete(block);
}

TEST(LeavesPerCall, ALeakInOneCallOfSeveralFails)
{
    std::vector<HRGN> kept;
    int call = 0;
    EXPECT_FALSE(LeavesPerCall({},
                               [&]
                               {
                                   if (++call % 7 == 0)
                                       kept.push_back(::CreateRectRgn(0, 0, 1, 1));
                               }));
    for (const HRGN region : kept)
        ::DeleteObject(region);
}

TEST(LeavesPerCall, ADeclaredLeakIsExpectedExactly)
{
    std::vector<HDC> kept;
    const auto keepDc = [&] { kept.push_back(::CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr)); };
    EXPECT_TRUE(LeavesPerCall({{HandleKind::WindowDc, 1}}, keepDc));
    EXPECT_FALSE(LeavesPerCall({{HandleKind::WindowDc, 2}}, keepDc));
    EXPECT_FALSE(LeavesPerCall({{HandleKind::WindowDc, 1}}, [] {}));
    for (const HDC dc : kept)
        ::DeleteDC(dc);
}

TEST(LeavesPerCall, ACacheThatFillsOnceIsNoLeak)
{
    std::unique_ptr<int> cache;
    int call = 0;
    EXPECT_NO_LEAK(
        [&]
        {
            if (++call == 5)
                cache = std::make_unique<int>(1);
        });
}
