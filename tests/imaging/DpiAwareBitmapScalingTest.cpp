#include "imaging/DpiAwareBitmapFixture.h"
#include "imaging/HundredTimes.h"
#include "support/AtTestDpi.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"

#include <gtest/gtest.h>

#include <climits>
#include <ostream>

namespace
{
class ScaleToDpi : public DpiAwareBitmap
{
};

class BitmapScale : public DpiAwareBitmap
{
};

// A window's and a resource's DPI, and what becomes of 10 x 20 pixels.
struct SizeForDpis
{
    UINT windowDpi;
    UINT resourceDpi;
    LONG cx;
    LONG cy;
};

void PrintTo(const SizeForDpis& row, std::ostream* stream)
{
    *stream << row.resourceDpi << " to " << row.windowDpi << " gives " << row.cx << 'x' << row.cy;
}

class ScaleToDpiOf10x20 : public testing::TestWithParam<SizeForDpis>
{
};
}

TEST_P(ScaleToDpiOf10x20, HasTheScaledSize)
{
    const FrameworkWindow window;
    const WindowDpiAnswer answer(GetParam().windowDpi);
    OpenBitmap bitmap;
    // Nothing is loaded for a resource of ID 0: it lends its DPI to the bitmap attached.
    bitmap.Register(GetParam().resourceDpi, 0);
    EXPECT_EQ(bitmap.ScaleToDpi(CWnd::FromHandle(window.Handle()), DeviceBitmap(10, 20, kWhite).release()),
              TRUE);
    EXPECT_TRUE(HasSizes(bitmap, {10, 20}, {GetParam().cx, GetParam().cy}));
    EXPECT_TRUE(HasSize(bitmap.Displayed(), GetParam().cx, GetParam().cy));
}

INSTANTIATE_TEST_SUITE_P(ForAResourceOf96Dpi, ScaleToDpiOf10x20,
                         testing::Values(SizeForDpis{96, 96, 10, 20}, SizeForDpis{120, 96, 13, 25},
                                         SizeForDpis{144, 96, 15, 30}, SizeForDpis{192, 96, 20, 40},
                                         SizeForDpis{72, 96, 8, 15}, SizeForDpis{110, 96, 11, 23},
                                         SizeForDpis{10, 96, 1, 2}));

INSTANTIATE_TEST_SUITE_P(ForAnotherResource, ScaleToDpiOf10x20,
                         testing::Values(SizeForDpis{96, 144, 7, 13}, SizeForDpis{120, 144, 8, 17},
                                         SizeForDpis{144, 144, 10, 20}, SizeForDpis{144, 192, 8, 15},
                                         SizeForDpis{192, 120, 16, 32}, SizeForDpis{240, 80, 30, 60}));

INSTANTIATE_TEST_SUITE_P(ThatCannotBeScaled, ScaleToDpiOf10x20,
                         testing::Values(SizeForDpis{144, 0, 10, 20}, SizeForDpis{UINT_MAX, 96, 10, 20},
                                         SizeForDpis{0x80000000, 96, 10, 20},
                                         SizeForDpis{214748364, 107374182, 20, 20},
                                         SizeForDpis{214748365, 107374182, 10, 20},
                                         SizeForDpis{107374182, 107374182, 10, 20}));

TEST_F(ScaleToDpi, FollowsTheDpiOfARealWindow)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.ScaleToDpi(m_window.Object(), nullptr), TRUE);
    const LONG side = AtTestDpi(16, 20, 24, 32);
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), side, side));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), side, side));
}

TEST_F(ScaleToDpi, FollowsAWindowToAnotherDpiAndBack)
{
    DpiWindow window;
    CWnd object;
    object.Attach(window.Handle());
    m_bitmap.LoadDpiAwareBitmap(TestDpi());
    const UINT loaded = m_bitmap.Fields().nResourceId;
    const LONG side = TestDpi() == 96 ? 16 : 24;
    const auto scaled = [&](UINT dpi)
    {
        window.MoveTo(dpi);
        EXPECT_EQ(m_bitmap.ScaleToDpi(&object, nullptr), TRUE);
        EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, dpi);
        return m_bitmap.GetSize().cx;
    };
    EXPECT_EQ(scaled(96), ::MulDiv(side, 96, TestDpi() == 96 ? 96 : 144));
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
    EXPECT_EQ(scaled(TestDpi()), ::MulDiv(16, static_cast<int>(TestDpi()), 96));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, loaded);
    object.Detach();
}

TEST_F(ScaleToDpi, AsksThePlatformOnceForTheWindowsDpi)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    HWND asked = nullptr;
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                                                     [&](HWND window)
                                                     {
                                                         asked = window;
                                                         return 96u;
                                                     });
    m_bitmap.ScaleToDpi(m_window.Object(), nullptr);
    EXPECT_EQ(asked, m_window.Handle());
    EXPECT_EQ(dpi.CallCount(), 1);
}

TEST_F(ScaleToDpi, WithoutAWindowNothingChanges)
{
    m_bitmap.LoadDpiAwareBitmap(144);
    const OwnedBitmap given = DeviceBitmap(10, 20, kWhite);
    EXPECT_EQ(CallsOf(
                  [&]
                  {
                      const WindowDpiAnswer dpi(96);
                      EXPECT_EQ(m_bitmap.ScaleToDpi(nullptr, nullptr), FALSE);
                      EXPECT_EQ(m_bitmap.ScaleToDpi(nullptr, given.get()), FALSE);
                      EXPECT_EQ(dpi.CallCount(), 0);
                  }),
              Lines{});
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {24, 24}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 144u);
}

TEST_F(ScaleToDpi, WithoutADpiNothingChanges)
{
    m_bitmap.LoadDpiAwareBitmap(144);
    const OwnedBitmap given = DeviceBitmap(10, 20, kWhite);
    EXPECT_EQ(CallsOf(
                  [&]
                  {
                      EXPECT_EQ(ScaleAt(0), FALSE);
                      EXPECT_EQ(ScaleAt(0, given.get()), FALSE);
                  }),
              Lines{});
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {24, 24}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 144u);
    EXPECT_FALSE(IsGone(given.get()));
}

TEST_F(ScaleToDpi, AWindowObjectWithoutAWindowHasNoDpi)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    CWnd nothing;
    EXPECT_EQ(m_bitmap.ScaleToDpi(&nothing, nullptr), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(ScaleToDpi, WithoutABitmapNothingChanges)
{
    EXPECT_EQ(CallsOf([this] { EXPECT_EQ(ScaleAt(144), FALSE); }), Lines{});
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 96u);
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
}

TEST_F(ScaleToDpi, AfterAFailedLoadThereIsNoBitmapAndTheSizesStay)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    m_bitmap.LoadDpiAwareBitmap(192);
    EXPECT_EQ(ScaleAt(96), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(ScaleToDpi, ABitmapThatIsLoadedAndNotShownIsScaled)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    {
        const FailCopyImage fail;
        m_bitmap.LoadDpiAwareBitmap(144);
    }
    ASSERT_EQ(m_bitmap.Displayed(), nullptr);
    EXPECT_EQ(ScaleAt(144), TRUE);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 16, 16));
}

TEST_F(ScaleToDpi, WithoutASourceObjectTheDpiIsNotAskedFor)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const OwnedBitmap given = DeviceBitmap(10, 20, kWhite);
    const ChangedField<CBitmap*> noSource(m_bitmap.Fields().pSource, nullptr);
    const WindowDpiAnswer dpi(96);
    EXPECT_EQ(m_bitmap.ScaleToDpi(m_window.Object(), nullptr), FALSE);
    EXPECT_EQ(m_bitmap.ScaleToDpi(m_window.Object(), given.get()), FALSE);
    EXPECT_EQ(dpi.CallCount(), 0);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(ScaleToDpi, AtTheDpiOfTheLoadOnlyScales)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(
        CallsOf([this] { EXPECT_EQ(ScaleAt(96), TRUE); }),
        (Lines{"GetDC(window)", "CreateCompatibleDC(client)", "CreateCompatibleBitmap(client, 16, 16)",
               "SelectObject(dc1, scaled)", "CreateCompatibleDC(client)", "SelectObject(dc2, source)",
               "SetStretchBltMode(dc1, 4)", "SetStretchBltMode(dc2, 4)", "SetBrushOrgEx(dc1, 0, 0, null)",
               "SetBrushOrgEx(dc2, 0, 0, null)", "StretchBlt(dc1, 0, 0, 16, 16, dc2, 0, 0, 16, 16, 13369376)",
               "SelectObject(dc2, stock)", "SelectObject(dc1, stock)", "DeleteObject(displayed)",
               "DeleteDC(dc2)", "DeleteDC(dc1)", "DeleteDC(client)", "ReleaseDC(window, null)"}));
}

TEST_F(ScaleToDpi, AtTheDpiOfTheLoadShowsACopyInTheFormatOfTheWindow)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(ScaleAt(96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
    EXPECT_FALSE(IsDibSection(m_bitmap.Displayed()));
    EXPECT_NE(m_bitmap.Displayed(), m_bitmap.Source());
}

TEST_F(ScaleToDpi, AtAnotherDpiLoadsTheBestResourceAndThenScales)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const Lines calls = CallsOf([this] { EXPECT_EQ(ScaleAt(120), TRUE); });
    ASSERT_EQ(calls.size(), 23u);
    EXPECT_EQ(Lines(calls.begin(), calls.begin() + 8),
              (Lines{"DeleteObject(displayed)", "DeleteObject(source)", "LoadBitmapW(program, @202)",
                     "CopyImage(loaded, 0, 0, 0, 8196)", "GetObjectW(copy, 32)", "GetDC(window)",
                     "CreateCompatibleDC(client)", "CreateCompatibleBitmap(client, 20, 20)"}));
    EXPECT_EQ(calls[10], "SelectObject(dc2, loaded)");
    EXPECT_EQ(calls[15], "StretchBlt(dc1, 0, 0, 20, 20, dc2, 0, 0, 24, 24, 13369376)");
    EXPECT_EQ(calls[18], "DeleteObject(copy)");
}

TEST_F(ScaleToDpi, AtAnotherDpiKnowsTheNewSizeAndResource)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(ScaleAt(120), TRUE);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {20, 20}));
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), 20, 20));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 20, 20));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 120u);
    EXPECT_EQ(m_bitmap.Fields().resources.nCurrentDpi, 120u);
}

// 16 pixels for 96 DPI are 24 for 144 DPI; the resource loaded next has 24 pixels for 192 DPI.
TEST_F(ScaleToDpi, TheSizeIsThatOfTheFormerResource)
{
    OpenBitmap bitmap;
    bitmap.Register(96, IDB_16);
    bitmap.Register(192, IDB_24);
    bitmap.LoadDpiAwareBitmap(96);
    const WindowDpiAnswer answer(144);
    EXPECT_EQ(bitmap.ScaleToDpi(m_window.Object(), nullptr), TRUE);
    EXPECT_TRUE(HasSizes(bitmap, {24, 24}, {24, 24}));
    EXPECT_EQ(bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
}

TEST_F(ScaleToDpi, TheNextSizeIsThatOfTheResourceLoadedMeanwhile)
{
    OpenBitmap bitmap;
    bitmap.Register(96, IDB_16);
    bitmap.Register(192, IDB_24);
    bitmap.LoadDpiAwareBitmap(96);
    {
        const WindowDpiAnswer answer(144);
        bitmap.ScaleToDpi(m_window.Object(), nullptr);
    }
    const WindowDpiAnswer answer(96);
    EXPECT_EQ(bitmap.ScaleToDpi(m_window.Object(), nullptr), TRUE);
    EXPECT_TRUE(HasSizes(bitmap, {16, 16}, {12, 12}));
}

TEST_F(ScaleToDpi, RepeatedScalingDoesNotAddUp)
{
    OpenBitmap bitmap;
    bitmap.Register(96, IDB_MAPPED_COLORS);
    bitmap.LoadDpiAwareBitmap(96);
    for (const UINT dpi : {144u, 192u, 72u, 144u})
    {
        const WindowDpiAnswer answer(dpi);
        bitmap.ScaleToDpi(m_window.Object(), nullptr);
    }
    EXPECT_TRUE(HasSizes(bitmap, {24, 4}, {36, 6}));
}

TEST_F(ScaleToDpi, IsNotLoadedAgainForTheSameResource)
{
    m_bitmap.LoadDpiAwareBitmap(144);
    const HBITMAP source = m_bitmap.Source();
    EXPECT_EQ(ScaleAt(192), TRUE);
    EXPECT_EQ(m_bitmap.Source(), source);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {32, 32}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 192u);
}

TEST_F(ScaleToDpi, AResourceRegisteredLaterCountsAtTheNextDpi)
{
    m_bitmap.LoadDpiAwareBitmap(192);
    m_bitmap.Register(192, IDB_32);
    EXPECT_EQ(ScaleAt(192), TRUE);
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_EQ(ScaleAt(190), TRUE);
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_32));
}

// Black, grey and white appear between black and white in the HALFTONE mode alone.
TEST_F(ScaleToDpi, EnlargingAddsColoursBetween)
{
    OpenBitmap bitmap;
    const WindowDpiAnswer answer(384);
    bitmap.ScaleToDpi(m_window.Object(), DeviceBitmap(Row({kBlack, kWhite})).release());
    const ArgbImage shown = ColorsOf(bitmap.Displayed());
    ASSERT_EQ(shown.Width(), 8);
    int between = 0;
    for (int x = 0; x < 8; ++x)
        between += shown.At(x, 0) != kBlack && shown.At(x, 0) != kWhite ? 1 : 0;
    EXPECT_GT(between, 0);
}

TEST_F(ScaleToDpi, AFlatColourFillsTheWholeBitmap)
{
    OpenBitmap bitmap;
    const WindowDpiAnswer answer(144);
    bitmap.ScaleToDpi(m_window.Object(), DeviceBitmap(6, 8, kOtherColor).release());
    EXPECT_TRUE(Shows(bitmap, ArgbImage(9, 12, kOtherColor)));
}

TEST_F(ScaleToDpi, TakesABitmapOver)
{
    OpenBitmap bitmap;
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    const WindowDpiAnswer answer(144);
    EXPECT_EQ(bitmap.ScaleToDpi(m_window.Object(), given), TRUE);
    EXPECT_EQ(bitmap.Source(), given);
    EXPECT_TRUE(HasSizes(bitmap, {10, 20}, {15, 30}));
    EXPECT_EQ(bitmap.Fields().nCurrentDpi, 144u);
}

TEST_F(ScaleToDpi, ABitmapTakenOverIsScaledAgainWithoutBeingGiven)
{
    OpenBitmap bitmap;
    {
        const WindowDpiAnswer answer(144);
        bitmap.ScaleToDpi(m_window.Object(), DeviceBitmap(10, 20, kWhite).release());
    }
    const WindowDpiAnswer answer(192);
    EXPECT_EQ(bitmap.ScaleToDpi(m_window.Object(), nullptr), TRUE);
    EXPECT_TRUE(HasSizes(bitmap, {10, 20}, {20, 40}));
}

TEST_F(ScaleToDpi, AttachesCopiesAndScales)
{
    OpenBitmap bitmap;
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    CallLog log;
    log.Name(given, "given");
    log.Name(m_window.Handle(), "window");
    const WindowDpiAnswer answer(96);
    const BitmapCalls calls(log);
    bitmap.ScaleToDpi(m_window.Object(), given);
    ASSERT_EQ(log.Lines().size(), 20u);
    EXPECT_EQ(Lines(log.Lines().begin(), log.Lines().begin() + 3),
              (Lines{"CopyImage(given, 0, 0, 0, 8196)", "GetObjectW(given, 32)", "GetDC(window)"}));
    EXPECT_EQ(log.Lines()[12], "StretchBlt(dc1, 0, 0, 10, 20, dc2, 0, 0, 10, 20, 13369376)");
}

// The platform may answer a DIB section itself instead of a copy, which would have two owners then.
TEST_F(ScaleToDpi, ADibSectionThatIsAnsweredItselfIsCopied)
{
    std::vector<UINT> flags;
    const PlatformSpy<decltype(::CopyImage)> copy("user32.dll", "CopyImage",
                                                  [&](HANDLE given, UINT type, int cx, int cy, UINT asked)
                                                  {
                                                      flags.push_back(asked);
                                                      if (asked & LR_COPYRETURNORG)
                                                          return given;
                                                      return copy.CallOriginal(given, type, cx, cy, asked);
                                                  });
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(flags, (std::vector<UINT>{LR_CREATEDIBSECTION | LR_COPYRETURNORG, LR_CREATEDIBSECTION}));
    EXPECT_NE(m_bitmap.Displayed(), m_bitmap.Source());
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(ScaleAt(96), TRUE);
        EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
        EXPECT_FALSE(IsGone(m_bitmap.Source()));
    }
}

TEST_F(ScaleToDpi, WithoutAContextOfTheWindowTheSizesAreLostAndTheDpiIsKept)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    {
        const FailGetDc fail;
        EXPECT_EQ(ScaleAt(144), FALSE);
        EXPECT_EQ(fail.CallCount(), 1);
    }
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 144u);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(24, 24)));
}

TEST_F(ScaleToDpi, AtAnotherDpiAResourceReplacesTheBitmapTakenOver)
{
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    EXPECT_EQ(ScaleAt(144, given), TRUE);
    EXPECT_TRUE(IsGone(given));
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {15, 30}));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 15, 30));
}

TEST_F(ScaleToDpi, ReloadsWithTheObjectsOwnMap)
{
    COLORMAP map = {RGB(255, 0, 255), RGB(4, 5, 6)};
    m_bitmap.Register(144, IDB_MAPPED_COLORS);
    m_bitmap.LoadDpiAwareBitmap(96);
    BitmapFields& fields = m_bitmap.Fields();
    const ChangedField<UINT> flags(fields.nColorMapFlags, 1);
    const ChangedField<COLORMAP*> colors(fields.pColorMap, &map);
    const ChangedField<int> size(fields.nColorMapSize, 1);
    CallLog log;
    log.Name(::GetModuleHandleW(nullptr), "program");
    log.Name(&map, "map");
    const BitmapCalls calls(log);
    EXPECT_EQ(ScaleAt(144), TRUE);
    EXPECT_EQ(LinesBetween(log, "CreateMapped", "CreateMapped"),
              Lines{"CreateMappedBitmap(program, 204, 1, map, 1)"});
}

TEST_F(ScaleToDpi, ReloadsWithoutTheMapOfTheLoad)
{
    COLORMAP map = {RGB(255, 0, 255), RGB(4, 5, 6)};
    m_bitmap.Register(144, IDB_MAPPED_COLORS);
    m_bitmap.LoadDpiAwareBitmapWithColorMap(1, &map, 1, 96);
    EXPECT_EQ(ScaleAt(144), TRUE);
    EXPECT_TRUE(SamePixels(Colors(MappedColorsPicture(4)), ColorsOf(m_bitmap.Source())));
}

TEST_F(ScaleToDpi, AFailureToReloadIsNotTold)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    const PlatformSpy<decltype(::StretchBlt)> stretch(
        "gdi32.dll", "StretchBlt",
        [](HDC, int, int, int, int, HDC, int, int, int, int, DWORD) { return TRUE; });
    EXPECT_EQ(ScaleAt(192), TRUE);
    EXPECT_EQ(m_bitmap.Source(), nullptr);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {32, 32}));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 32, 32));
    EXPECT_EQ(stretch.CallCount(), 1);
}

TEST_F(ScaleToDpi, ABitmapThatIsGoneGivesNoSize)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const HBITMAP gone = DeviceBitmap(10, 20, kWhite).release();
    ::DeleteObject(gone);
    EXPECT_EQ(ScaleAt(96, gone), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Source(), gone);
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
}

TEST_F(ScaleToDpi, ABitmapThatCannotBeCopiedGivesNoSize)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    const FailCopyImage fail;
    const PlatformSpy<decltype(::GetDC)> getDc("user32.dll", "GetDC");
    EXPECT_EQ(ScaleAt(144, given), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Source(), given);
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 96u);
    EXPECT_EQ(getDc.CallCount(), 0);
}

TEST_F(ScaleToDpi, AFailureToDrawGivesNoSizeAndANewBitmap)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const FailStretch fail;
    EXPECT_EQ(ScaleAt(192), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), 0, 0));
    EXPECT_TRUE(IsGone(displayed));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 32, 32));
    EXPECT_TRUE(HasSize(m_bitmap.Source(), 24, 24));
}

TEST_F(ScaleToDpi, AfterAFailureTheBitmapHasNoSizeToScale)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    {
        const FailStretch fail;
        ScaleAt(96);
    }
    const Lines calls = CallsOf([this] { ScaleAt(96); });
    ASSERT_GT(calls.size(), 3u);
    EXPECT_EQ(calls[2], "CreateCompatibleBitmap(client, 0, 0)");
}

TEST_F(ScaleToDpi, ABitmapThatCannotBeMadeGivesNoSizeAndLeavesTheShownOne)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const FailCreateBitmap fail;
    EXPECT_EQ(ScaleAt(96), FALSE);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
    EXPECT_TRUE(HasSize(m_bitmap.Source(), 16, 16));
}

TEST_F(ScaleToDpi, AThousandCallsAtOneDpiLeaveNothing)
{
    const HeldContexts held(m_window.Handle());
    m_bitmap.LoadDpiAwareBitmap(96);
    const WindowDpiAnswer answer(96);
    EXPECT_NO_LEAK([this] { HundredTimes([this] { m_bitmap.ScaleToDpi(m_window.Object(), nullptr); }); });
}

TEST_F(ScaleToDpi, AThousandChangesOfTheDpiLeaveNothing)
{
    const HeldContexts held(m_window.Handle());
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_NO_LEAK(
        [this]
        {
            for (int pair = 0; pair < 50; ++pair)
            {
                ScaleAt(144);
                ScaleAt(96);
            }
        });
}

TEST_F(ScaleToDpi, AThousandBitmapsTakenOverLeaveNothing)
{
    const HeldContexts held(m_window.Handle());
    OpenBitmap bitmap;
    const WindowDpiAnswer answer(96);
    EXPECT_NO_LEAK(
        [&] {
            HundredTimes([&]
                         { bitmap.ScaleToDpi(m_window.Object(), DeviceBitmap(10, 20, kWhite).release()); });
        });
}

TEST_F(BitmapScale, StretchesTheSourceToTheSize)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), TRUE);
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 40, 8));
    EXPECT_TRUE(HasSize(m_bitmap.Source(), 16, 16));
    EXPECT_TRUE(SamePixels(Colors(OpaquePicture(16, 16)), ColorsOf(m_bitmap.Source())));
}

TEST_F(BitmapScale, LeavesTheSizesToItsCaller)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    m_bitmap.Scale(m_window.Object(), 40, 8);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(BitmapScale, TakesAsMuchOfTheSourceAsTheBaseSizeSays)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const ChangedField<CSize> base(m_bitmap.Fields().sizeBase, CSize(8, 4));
    const Lines calls = CallsOf([this] { m_bitmap.Scale(m_window.Object(), 8, 4); });
    ASSERT_EQ(calls.size(), 18u);
    EXPECT_EQ(calls[10], "StretchBlt(dc1, 0, 0, 8, 4, dc2, 0, 0, 8, 4, 13369376)");
    EXPECT_EQ(ColorsOf(m_bitmap.Displayed()).At(7, 3), OpaquePicture(16, 16).At(7, 3) & 0xffffff);
}

TEST_F(BitmapScale, TheFrameworkKnowsTheObjectByItsNewHandle)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    m_bitmap.Scale(m_window.Object(), 40, 8);
    EXPECT_EQ(CBitmap::FromHandle(m_bitmap.Displayed()), &m_bitmap);
}

TEST_F(BitmapScale, WithoutASourceObjectNothingIsDone)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const ChangedField<CBitmap*> noSource(m_bitmap.Fields().pSource, nullptr);
    CallLog log;
    const BitmapCalls calls(log);
    EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE);
    EXPECT_EQ(log.Lines(), Lines{});
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
}

TEST_F(BitmapScale, WithoutAContextForTheResultNothingIsReplaced)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const FailCreateDc fail;
    EXPECT_EQ(CallsOf([this] { EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE); }),
              (Lines{"GetDC(window)", "CreateCompatibleDC(client)", "ReleaseDC(window, client)"}));
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
}

TEST_F(BitmapScale, WithoutABitmapForTheResultNothingIsReplaced)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const FailCreateBitmap fail;
    EXPECT_EQ(CallsOf([this] { EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE); }),
              (Lines{"GetDC(window)", "CreateCompatibleDC(client)", "CreateCompatibleBitmap(client, 40, 8)",
                     "DeleteDC(dc1)", "ReleaseDC(window, client)"}));
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
}

TEST_F(BitmapScale, WithoutAContextForTheSourceTheOtherStepsAreDone)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const FailCreateDc fail(2);
    EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE);
    EXPECT_EQ(fail.CallCount(), 2);
    EXPECT_TRUE(IsGone(displayed));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 40, 8));
}

TEST_F(BitmapScale, AFailureToDrawReplacesTheBitmapAllTheSame)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const FailStretch fail;
    EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE);
    EXPECT_TRUE(IsGone(displayed));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 40, 8));
    EXPECT_FALSE(IsGone(m_bitmap.Source()));
}

TEST_F(BitmapScale, WithoutAWindowTheFormatIsThatOfTheScreen)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    CallLog log;
    const BitmapCalls calls(log);
    EXPECT_EQ(m_bitmap.Scale(nullptr, 40, 8), TRUE);
    EXPECT_EQ(LinesBetween(log, "GetDC", "CreateCompatibleBitmap"),
              (Lines{"GetDC(null)", "CreateCompatibleDC(screen)", "CreateCompatibleBitmap(screen, 40, 8)"}));
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 40, 8));
}

// The framework's own failure, which passes through.
TEST_F(BitmapScale, WithoutAContextOfTheWindowNothingIsReplaced)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const FailGetDc fail;
    EXPECT_EQ(m_bitmap.Scale(m_window.Object(), 40, 8), FALSE);
    EXPECT_EQ(fail.CallCount(), 1);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
    EXPECT_FALSE(IsGone(m_bitmap.Source()));
}

TEST_F(BitmapScale, TheNextContextOfTheWindowWorks)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    m_bitmap.Scale(m_window.Object(), 40, 8);
    const HDC dc = ::GetDC(m_window.Handle());
    EXPECT_NE(dc, nullptr);
    EXPECT_EQ(::ReleaseDC(m_window.Handle(), dc), 1);
}

TEST_F(BitmapScale, FailuresLeaveNothing)
{
    const HeldContexts held(m_window.Handle());
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_NO_LEAK(
        [this]
        {
            const FailCreateDc fail(1);
            EXPECT_FALSE(m_bitmap.Scale(m_window.Object(), 40, 8));
        });
    EXPECT_NO_LEAK(
        [this]
        {
            const FailCreateDc fail(2);
            EXPECT_FALSE(m_bitmap.Scale(m_window.Object(), 40, 8));
        });
    EXPECT_NO_LEAK(
        [this]
        {
            const FailCreateBitmap fail;
            EXPECT_FALSE(m_bitmap.Scale(m_window.Object(), 40, 8));
        });
    EXPECT_NO_LEAK(
        [this]
        {
            const FailStretch fail;
            EXPECT_FALSE(m_bitmap.Scale(m_window.Object(), 40, 8));
        });
}
