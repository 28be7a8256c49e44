#include <vxdpi/Fonts.h>

#include "fonts/FontRecords.h"
#include "foundation/LibraryModule.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/AtTestDpi.h"
#include "support/CallLog.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
HFONT CreateOfPoints(HWND window, int points)
{
    return CreateFont_DPIAware(window, points, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                               L"Tahoma");
}

LONG HeightOfPoints(HWND window, int points)
{
    const OwnedFont font(CreateOfPoints(window, points));
    return LogFontOf(font.get()).lfHeight;
}

// The height that a font designed at 96 DPI gets.
LONG HeightOfDesigned(HWND window, LONG height)
{
    LOGFONTW logFont = EveryFieldDifferent(height, 0);
    const OwnedFont font(CreateFontIndirect_DPIAware(&logFont, window));
    EXPECT_EQ(LogFontOf(font.get()).lfHeight, logFont.lfHeight);
    return logFont.lfHeight;
}

HWND DestroyedWindow()
{
    const TestWindow window;
    return window.Handle();
}

class CreateFontForDpi : public testing::TestWithParam<SizeForDpi>
{
protected:
    const TestWindow m_window;
    const WindowDpiAnswer m_answer{GetParam().dpi};
};

using CreateFontOfPointsForDpi = CreateFontForDpi;
using CreateFontIndirectForDpi = CreateFontForDpi;
} // namespace

TEST_P(CreateFontOfPointsForDpi, HasTheHeightOfItsPoints)
{
    EXPECT_EQ(HeightOfPoints(m_window.Handle(), GetParam().size), GetParam().scaled);
}

INSTANTIATE_TEST_SUITE_P(Points, CreateFontOfPointsForDpi,
                         testing::Values(SizeForDpi{9, 96, -12}, SizeForDpi{9, 120, -15},
                                         SizeForDpi{9, 144, -18}, SizeForDpi{9, 192, -24},
                                         SizeForDpi{9, 72, -9}, SizeForDpi{0, 144, 0},
                                         SizeForDpi{-9, 144, 18}));

INSTANTIATE_TEST_SUITE_P(RoundedToNearest, CreateFontOfPointsForDpi,
                         testing::Values(SizeForDpi{8, 96, -11}, SizeForDpi{8, 120, -13},
                                         SizeForDpi{7, 108, -11}, SizeForDpi{-7, 108, 11},
                                         SizeForDpi{1, 36, -1}, SizeForDpi{1, 35, 0}));

INSTANTIATE_TEST_SUITE_P(
    AtTheEdgeOf32Bits, CreateFontOfPointsForDpi,
    testing::Values(SizeForDpi{INT_MAX, 1, -29826162}, SizeForDpi{1073741824, 2, -1073741824},
                    SizeForDpi{-1073741824, 2, 29826162}, SizeForDpi{-1073741825, 2, 1073741825},
                    SizeForDpi{2000000000, 144, -2000000000}, SizeForDpi{-2000000000, 144, 2000000000},
                    SizeForDpi{INT_MIN, 144, INT_MIN}, SizeForDpi{1, UINT_MAX, -1},
                    SizeForDpi{0, UINT_MAX, 0}));

TEST(CreateFont_DPIAware, FollowsTheDpiOfARealWindow)
{
    const TestWindow window;
    EXPECT_EQ(HeightOfPoints(window.Handle(), 9), AtTestDpi(-12, -15, -18, -24));
}

TEST(CreateFont_DPIAware, FollowsAWindowToAnotherDpi)
{
    DpiWindow window;
    window.MoveTo(96);
    EXPECT_EQ(HeightOfPoints(window.Handle(), 9), -12);
}

TEST(CreateFont_DPIAware, NoWindowCountsAs96Dpi)
{
    const WindowDpiAnswer answer(192);
    EXPECT_EQ(HeightOfPoints(nullptr, 9), -12);
}

TEST(CreateFont_DPIAware, ADestroyedWindowCountsAs96Dpi)
{
    EXPECT_EQ(HeightOfPoints(DestroyedWindow(), 9), -12);
}

TEST(CreateFont_DPIAware, PassesEveryOtherArgumentOnUnchanged)
{
    const TestWindow window;
    const WindowDpiAnswer answer(144);
    CallLog log;
    const RecordCalls<decltype(::CreateFontW)> create(log, VxDpiModule(), "gdi32.dll", "CreateFontW");
    const OwnedFont font(CreateFont_DPIAware(window.Handle(), 9, 101, 102, 103, 104, 1105, 1106, 1107, 1108,
                                             1109, 1110, 1111, 1112, L"Some Face"));
    const OwnedFont faceless(
        CreateFont_DPIAware(window.Handle(), 9, -1, -2, -3, -4, 5, 6, 7, 8, 9, 10, 11, UINT_MAX, nullptr));
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"CreateFontW(-18, 101, 102, 103, 104, 1105, 1106, 1107, 1108, "
                                              "1109, 1110, 1111, 1112, \"Some Face\")",
                                              "CreateFontW(-18, -1, -2, -3, -4, 5, 6, 7, 8, 9, 10, 11, "
                                              "4294967295, null)"}));
}

TEST(CreateFont_DPIAware, GivesThePlatformsHandleToTheCaller)
{
    const auto made = reinterpret_cast<HFONT>(static_cast<INT_PTR>(0x1234));
    const FailNthCall<decltype(::CreateFontW)> create(VxDpiModule(), "gdi32.dll", "CreateFontW", 1, made);
    EXPECT_EQ(CreateOfPoints(nullptr, 9), made);
    EXPECT_EQ(create.CallCount(), 1);
}

TEST(CreateFont_DPIAware, GivesNothingWhenTheFontCannotBeMade)
{
    EXPECT_NO_LEAK(
        []
        {
            const FailNthCall<decltype(::CreateFontW)> create(VxDpiModule(), "gdi32.dll", "CreateFontW", 1,
                                                              nullptr);
            EXPECT_EQ(CreateOfPoints(nullptr, 9), nullptr);
            EXPECT_EQ(create.CallCount(), 1);
        });
}

TEST(CreateFont_DPIAware, LeavesExactlyTheFontToTheCaller)
{
    const TestWindow window;
    EXPECT_TRUE(LeavesPerCall({{HandleKind::Font, 1}}, [&] { CreateOfPoints(window.Handle(), 9); }));
    EXPECT_NO_LEAK([&] { const OwnedFont font(CreateOfPoints(window.Handle(), 9)); });
}

TEST_P(CreateFontIndirectForDpi, HasTheScaledHeight)
{
    EXPECT_EQ(HeightOfDesigned(m_window.Handle(), GetParam().size), GetParam().scaled);
}

INSTANTIATE_TEST_SUITE_P(Heights, CreateFontIndirectForDpi,
                         testing::Values(SizeForDpi{-12, 96, -12}, SizeForDpi{-12, 120, -15},
                                         SizeForDpi{-12, 144, -18}, SizeForDpi{-12, 192, -24},
                                         SizeForDpi{12, 144, 18}, SizeForDpi{0, 192, 0}));

INSTANTIATE_TEST_SUITE_P(RoundedToNearest, CreateFontIndirectForDpi,
                         testing::Values(SizeForDpi{-11, 120, -14}, SizeForDpi{-11, 144, -17},
                                         SizeForDpi{11, 144, 17}, SizeForDpi{-11, 108, -12},
                                         SizeForDpi{-1, 48, -1}, SizeForDpi{-1, 47, 0}));

INSTANTIATE_TEST_SUITE_P(
    AtTheEdgeOf32Bits, CreateFontIndirectForDpi,
    testing::Values(SizeForDpi{INT_MAX, 1, 22369621}, SizeForDpi{1073741824, 2, 1073741824},
                    SizeForDpi{-1073741824, 2, -22369621}, SizeForDpi{-1073741825, 2, -1073741825},
                    SizeForDpi{2000000000, 192, 2000000000}, SizeForDpi{-2000000000, 192, -2000000000},
                    SizeForDpi{-12, UINT_MAX, -12}));

TEST(CreateFontIndirect_DPIAware, FollowsTheDpiOfARealWindow)
{
    const TestWindow window;
    EXPECT_EQ(HeightOfDesigned(window.Handle(), -11), AtTestDpi(-11, -14, -17, -22));
}

TEST(CreateFontIndirect_DPIAware, WithoutAWindowTheHeightStays)
{
    const WindowDpiAnswer answer(192);
    EXPECT_EQ(HeightOfDesigned(nullptr, -11), -11);
}

TEST(CreateFontIndirect_DPIAware, ADestroyedWindowCountsAs96Dpi)
{
    EXPECT_EQ(HeightOfDesigned(DestroyedWindow(), -11), -11);
}

TEST(CreateFontIndirect_DPIAware, WithoutARecordNothingIsMade)
{
    const TestWindow window;
    const WindowDpiAnswer dpi(144);
    const ImportSpy<decltype(::CreateFontIndirectW)> create(VxDpiModule(), "gdi32.dll",
                                                            "CreateFontIndirectW");
    EXPECT_EQ(CreateFontIndirect_DPIAware(nullptr, window.Handle()), nullptr);
    EXPECT_EQ(dpi.CallCount(), 0);
    EXPECT_EQ(create.CallCount(), 0);
}

TEST(CreateFontIndirect_DPIAware, ChangesOnlyTheHeightOfTheCallersRecord)
{
    const TestWindow window;
    const WindowDpiAnswer answer(144);
    LOGFONTW logFont = EveryFieldDifferent(-12, 7);
    const OwnedFont font(CreateFontIndirect_DPIAware(&logFont, window.Handle()));
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), -18, 7));
    EXPECT_TRUE(IsWithSize(LogFontOf(font.get()), EveryFieldDifferent(0, 0), -18, 7));
}

TEST(CreateFontIndirect_DPIAware, ASecondCallScalesASecondTime)
{
    const TestWindow window;
    const WindowDpiAnswer answer(144);
    LOGFONTW logFont = EveryFieldDifferent(-12, 0);
    const OwnedFont first(CreateFontIndirect_DPIAware(&logFont, window.Handle()));
    const OwnedFont second(CreateFontIndirect_DPIAware(&logFont, window.Handle()));
    EXPECT_EQ(LogFontOf(first.get()).lfHeight, -18);
    EXPECT_EQ(LogFontOf(second.get()).lfHeight, -27);
    EXPECT_EQ(logFont.lfHeight, -27);
}

TEST(CreateFontIndirect_DPIAware, MakesTheFontFromTheCallersOwnRecord)
{
    const TestWindow window;
    const WindowDpiAnswer answer(144);
    LOGFONTW logFont = EveryFieldDifferent(-12, 0);
    const auto made = reinterpret_cast<HFONT>(static_cast<INT_PTR>(0x1234));
    const ImportSpy<decltype(::CreateFontIndirectW)> create(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
                                                            [&](const LOGFONTW* given)
                                                            {
                                                                EXPECT_EQ(given, &logFont);
                                                                EXPECT_EQ(given->lfHeight, -18);
                                                                return made;
                                                            });
    EXPECT_EQ(CreateFontIndirect_DPIAware(&logFont, window.Handle()), made);
    EXPECT_EQ(create.CallCount(), 1);
}

TEST(CreateFontIndirect_DPIAware, TheHeightIsScaledEvenWhenTheFontCannotBeMade)
{
    const TestWindow window;
    const WindowDpiAnswer answer(144);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailNthCall<decltype(::CreateFontIndirectW)> create(VxDpiModule(), "gdi32.dll",
                                                                      "CreateFontIndirectW", 1, nullptr);
            LOGFONTW logFont = EveryFieldDifferent(-12, 7);
            EXPECT_EQ(CreateFontIndirect_DPIAware(&logFont, window.Handle()), nullptr);
            EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), -18, 7));
        });
}

TEST(CreateFontIndirect_DPIAware, LeavesExactlyTheFontToTheCaller)
{
    const TestWindow window;
    const auto create = [&]
    {
        LOGFONTW logFont = EveryFieldDifferent(-12, 0);
        return CreateFontIndirect_DPIAware(&logFont, window.Handle());
    };
    EXPECT_TRUE(LeavesPerCall({{HandleKind::Font, 1}}, create));
    EXPECT_NO_LEAK([&] { const OwnedFont font(create()); });
}
