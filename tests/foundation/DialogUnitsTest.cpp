#include "fonts/FontRecords.h"
#include "foundation/FrameworkWindow.h"
#include "foundation/LibraryModule.h"
#include "foundation/RectFacts.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <vxdpi/Geometry.h>

#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace
{
// What the platform tells about a font.
struct Measured
{
    LONG lettersWidth;
    LONG height;
};

TEXTMETRICW MetricsOfHeight(LONG height)
{
    TEXTMETRICW metrics = {};
    metrics.tmHeight = height;
    metrics.tmAscent = 901;
    metrics.tmDescent = 902;
    metrics.tmInternalLeading = 903;
    metrics.tmExternalLeading = 904;
    metrics.tmAveCharWidth = 905;
    metrics.tmMaxCharWidth = 906;
    return metrics;
}

// Measures the library's fonts: the first one with the first answer, and over again after the last.
class FakeMeasures
{
public:
    explicit FakeMeasures(std::vector<Measured> answers)
        : m_answers(std::move(answers)), m_metrics(VxDpiModule(), "gdi32.dll", "GetTextMetricsW",
                                                   [this](HDC, TEXTMETRICW* metrics)
                                                   {
                                                       *metrics = MetricsOfHeight(Current().height);
                                                       return TRUE;
                                                   }),
          m_extent(VxDpiModule(), "gdi32.dll", "GetTextExtentPoint32W",
                   [this](HDC, const wchar_t*, int, SIZE* extent)
                   {
                       *extent = {Current().lettersWidth, 907};
                       return TRUE;
                   })
    {
    }

    int CallCount() const { return m_metrics.CallCount(); }

private:
    const Measured& Current() const
    {
        return m_answers.at(static_cast<std::size_t>(m_metrics.CallCount() - 1) % m_answers.size());
    }

    const std::vector<Measured> m_answers;
    ImportSpy<decltype(::GetTextMetricsW)> m_metrics;
    ImportSpy<decltype(::GetTextExtentPoint32W)> m_extent;
};

testing::AssertionResult IsSize(const SIZE& size, LONG cx, LONG cy)
{
    if (size.cx == cx && size.cy == cy)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << size.cx << " x " << size.cy;
}

LOGFONTW TahomaOf(LONG height)
{
    LOGFONTW logFont = {};
    logFont.lfHeight = height;
    logFont.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(logFont.lfFaceName, L"Tahoma", LF_FACESIZE);
    return logFont;
}

class FontBasedDialogUnits : public testing::Test
{
protected:
    FontBasedDialogUnits() { m_dc.CreateCompatibleDC(nullptr); }

    // The units of a font with these measures; whether they count as a success.
    testing::AssertionResult UnitsAre(const Measured& measured, LONG cx, LONG cy, BOOL isSuccess)
    {
        const FakeMeasures measures({measured});
        m_units = {-7, -8};
        if (GetFontBasedDialogUnits(m_dc, m_units) != isSuccess)
            return testing::AssertionFailure() << "the result is not " << isSuccess;
        return IsSize(m_units, cx, cy);
    }

    CDC m_dc;
    SIZE m_units = {-7, -8};
};

// A window of 96 DPI with a client area of 400 x 300 pixels and a font.
class ClientSizeForDpi : public testing::Test
{
protected:
    ClientSizeForDpi()
    {
        m_window.Window().OnMessage(
            [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
            {
                if (message != WM_GETFONT)
                    return std::nullopt;
                return reinterpret_cast<LRESULT>(m_font.get());
            });
    }

    CRect ClientAt144() { return GetClientSizeForDpi(m_window.Object(), 144); }

    testing::AssertionResult NothingIsAskedFor(CWnd* window, UINT dpi)
    {
        const ImportSpy<decltype(::GetDC)> getDc(FrameworkModule(), "user32.dll", "GetDC");
        const testing::AssertionResult isNothing = IsRect(GetClientSizeForDpi(window, dpi), {0, 0, 0, 0});
        if (getDc.CallCount() != 0)
            return testing::AssertionFailure() << "a device context was asked for";
        return isNothing;
    }

    OwnedFont m_font{[]
                     {
                         const LOGFONTW logFont = EveryFieldDifferent(-11, 7);
                         return ::CreateFontIndirectW(&logFont);
                     }()};
    FrameworkWindow m_window{WS_POPUP};
    const WindowDpiAnswer m_dpi{96};
};

// What a font measures at 96 and at 144 DPI.
const std::vector<Measured> kFrom7x13To10x20 = {{364, 13}, {520, 20}};

using CreateIndirect = decltype(::CreateFontIndirectW);

class FailingFont : public FailNthCall<CreateIndirect>
{
public:
    explicit FailingFont(int call)
        : FailNthCall(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW", call, nullptr)
    {
    }
};

struct MeasuresCase
{
    Measured now;
    Measured then;
};

class ClientSizeForDpiWithoutUnits : public ClientSizeForDpi, public testing::WithParamInterface<MeasuresCase>
{
};
} // namespace

TEST_F(FontBasedDialogUnits, AreTheMeanWidthOfTheLettersAndTheHeight)
{
    EXPECT_TRUE(UnitsAre({364, 13}, 7, 13, TRUE));
    EXPECT_TRUE(UnitsAre({52, 1}, 1, 1, TRUE));
}

TEST_F(FontBasedDialogUnits, RoundTheWidthWithHalvesUp)
{
    EXPECT_TRUE(UnitsAre({390, 13}, 8, 13, TRUE));
    EXPECT_TRUE(UnitsAre({389, 13}, 7, 13, TRUE));
    EXPECT_TRUE(UnitsAre({338, 13}, 7, 13, TRUE));
    EXPECT_TRUE(UnitsAre({26, 13}, 1, 13, TRUE));
}

TEST_F(FontBasedDialogUnits, AreCalculatedInDoublePrecision)
{
    EXPECT_TRUE(UnitsAre({INT_MAX, INT_MAX}, 41297762, INT_MAX, TRUE));
}

TEST_F(FontBasedDialogUnits, BelowOneAreWrittenButNoSuccess)
{
    EXPECT_TRUE(UnitsAre({25, 13}, 0, 13, FALSE));
    EXPECT_TRUE(UnitsAre({364, 0}, 7, 0, FALSE));
    EXPECT_TRUE(UnitsAre({364, -13}, 7, -13, FALSE));
}

TEST_F(FontBasedDialogUnits, OfLettersWithoutWidthAreNotWritten)
{
    EXPECT_TRUE(UnitsAre({0, 13}, -7, -8, FALSE));
    EXPECT_TRUE(UnitsAre({-364, 13}, -7, -8, FALSE));
    EXPECT_TRUE(UnitsAre({1, 13}, 0, 13, FALSE));
}

TEST_F(FontBasedDialogUnits, MeasureTheHeightAndThenThe52Letters)
{
    CallLog log;
    log.Name(m_dc.m_hDC, "dc");
    const RecordCalls<decltype(::GetTextMetricsW)> metrics(log, VxDpiModule(), "gdi32.dll",
                                                           "GetTextMetricsW");
    const RecordCalls<decltype(::GetTextExtentPoint32W)> extent(log, VxDpiModule(), "gdi32.dll",
                                                                "GetTextExtentPoint32W");
    EXPECT_EQ(GetFontBasedDialogUnits(m_dc, m_units), TRUE);
    EXPECT_EQ(log.Lines(),
              (CallLog::LineList{"GetTextMetricsW(dc, #1)",
                                 "GetTextExtentPoint32W(dc, "
                                 "\"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\", 52, #2)"}));
}

TEST_F(FontBasedDialogUnits, OfARealDialogFontAreSixByThirteen)
{
    const LOGFONTW logFont = TahomaOf(-11);
    const OwnedFont font(::CreateFontIndirectW(&logFont));
    const HGDIOBJ previous = ::SelectObject(m_dc, font.get());
    EXPECT_EQ(GetFontBasedDialogUnits(m_dc, m_units), TRUE);
    ::SelectObject(m_dc, previous);
    EXPECT_TRUE(IsSize(m_units, 6, 13));
}

TEST_F(FontBasedDialogUnits, WithoutAContextThereAreNone)
{
    EXPECT_EQ(GetFontBasedDialogUnits(nullptr, m_units), FALSE);
    EXPECT_TRUE(IsSize(m_units, -7, -8));
}

TEST_F(FontBasedDialogUnits, WithoutMetricsNothingIsMeasured)
{
    const FakeMeasures measures({{364, 13}});
    const ImportSpy<decltype(::GetTextMetricsW)> metrics(VxDpiModule(), "gdi32.dll", "GetTextMetricsW",
                                                         [](HDC, TEXTMETRICW* written)
                                                         {
                                                             *written = MetricsOfHeight(13);
                                                             return FALSE;
                                                         });
    const ImportSpy<decltype(::GetTextExtentPoint32W)> extent(VxDpiModule(), "gdi32.dll",
                                                              "GetTextExtentPoint32W");
    EXPECT_EQ(GetFontBasedDialogUnits(m_dc, m_units), FALSE);
    EXPECT_TRUE(IsSize(m_units, -7, -8));
    EXPECT_EQ(extent.CallCount(), 0);
}

TEST_F(FontBasedDialogUnits, LettersThatCannotBeMeasuredGiveNone)
{
    const ImportSpy<decltype(::GetTextExtentPoint32W)> extent(VxDpiModule(), "gdi32.dll",
                                                              "GetTextExtentPoint32W",
                                                              [](HDC, const wchar_t*, int, SIZE* written)
                                                              {
                                                                  *written = {364, 13};
                                                                  return FALSE;
                                                              });
    EXPECT_EQ(GetFontBasedDialogUnits(m_dc, m_units), FALSE);
    EXPECT_TRUE(IsSize(m_units, -7, -8));
}

TEST_F(FontBasedDialogUnits, LeaveNothingBehind)
{
    EXPECT_NO_LEAK([this] { GetFontBasedDialogUnits(m_dc, m_units); });
}

TEST_F(ClientSizeForDpi, GrowsAsTheFontsMeasuresDo)
{
    const FakeMeasures measures(kFrom7x13To10x20);
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 571, 462}));
}

TEST_F(ClientSizeForDpi, ScalesAllFourEdgesWithTheirOwnUnit)
{
    const FakeMeasures measures(kFrom7x13To10x20);
    const ImportSpy<decltype(::GetClientRect)> client(VxDpiModule(), "user32.dll", "GetClientRect",
                                                      [this](HWND asked, RECT* rect)
                                                      {
                                                          EXPECT_EQ(asked, m_window.Handle());
                                                          *rect = {11, 22, 300, 400};
                                                          return TRUE;
                                                      });
    EXPECT_TRUE(IsRect(ClientAt144(), {16, 34, 429, 615}));
}

TEST_F(ClientSizeForDpi, AnEdgeThatLeaves32BitsIsNotScaled)
{
    const FakeMeasures measures(kFrom7x13To10x20);
    const ImportSpy<decltype(::GetClientRect)> client(
        VxDpiModule(), "user32.dll", "GetClientRect",
        [](HWND, RECT* rect)
        {
            *rect = {-300000000, -200000000, 214748364, 107374183};
            return TRUE;
        });
    EXPECT_TRUE(IsRect(ClientAt144(), {-300000000, -200000000, 306783377, 107374183}));
}

TEST_F(ClientSizeForDpi, AtTheSameDpiTheSizeStays)
{
    EXPECT_TRUE(IsRect(GetClientSizeForDpi(m_window.Object(), 96), {0, 0, 400, 300}));
}

TEST_F(ClientSizeForDpi, FollowsARealFontWhoseHeightGrowsFrom13To27)
{
    const LOGFONTW logFont = TahomaOf(-11);
    m_font.reset(::CreateFontIndirectW(&logFont));
    EXPECT_TRUE(IsRect(GetClientSizeForDpi(m_window.Object(), 192), {0, 0, 800, 623}));
}

TEST_F(ClientSizeForDpi, MeasuresFontsOfBothDpisThatDifferOnlyInHeight)
{
    std::vector<LOGFONTW> made;
    const ImportSpy<CreateIndirect> create(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
                                           [&](const LOGFONTW* logFont)
                                           {
                                               made.push_back(*logFont);
                                               return create.Original()(logFont);
                                           });
    ClientAt144();
    ASSERT_EQ(made.size(), 2u);
    EXPECT_TRUE(IsWithSize(made[0], EveryFieldDifferent(0, 0), -11, 7));
    EXPECT_TRUE(IsWithSize(made[1], EveryFieldDifferent(0, 0), -17, 7));
}

TEST_F(ClientSizeForDpi, ScalesTheFontFromTheWindowsDpi)
{
    const WindowDpiAnswer answer(144);
    std::vector<LONG> heights;
    const ImportSpy<CreateIndirect> create(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
                                           [&](const LOGFONTW* logFont)
                                           {
                                               heights.push_back(logFont->lfHeight);
                                               return create.Original()(logFont);
                                           });
    GetClientSizeForDpi(m_window.Object(), 96);
    GetClientSizeForDpi(m_window.Object(), 192);
    EXPECT_EQ(heights, (std::vector<LONG>{-11, -7, -11, -15}));
}

TEST_F(ClientSizeForDpi, AFontThatLeaves32BitsIsNotScaled)
{
    std::vector<LONG> heights;
    const ImportSpy<CreateIndirect> create(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
                                           [&](const LOGFONTW* logFont)
                                           {
                                               heights.push_back(logFont->lfHeight);
                                               return create.Original()(logFont);
                                           });
    GetClientSizeForDpi(m_window.Object(), 195225787);
    EXPECT_EQ(heights, (std::vector<LONG>{-11, -11}));
}

TEST_F(ClientSizeForDpi, AsksForTheContextBeforeTheFont)
{
    CallLog log;
    const ImportSpy<decltype(::GetDC)> getDc(FrameworkModule(), "user32.dll", "GetDC",
                                             [&](HWND window)
                                             {
                                                 log.Write("GetDC");
                                                 return getDc.Original()(window);
                                             });
    m_window.Window().OnMessage(
        [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message == WM_GETFONT)
                log.Write("WM_GETFONT");
            return std::nullopt;
        });
    ClientAt144();
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"GetDC", "WM_GETFONT"}));
}

TEST_F(ClientSizeForDpi, IsNothingWhenTheFrameworkIsShortOfMemory)
{
    const ImportSpy<decltype(::GetDC)> getDc(FrameworkModule(), "user32.dll", "GetDC",
                                             [](HWND) -> HDC { AfxThrowMemoryException(); });
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0}));
    EXPECT_EQ(getDc.CallCount(), 1);
}

TEST_F(ClientSizeForDpi, SelectsEachFontMeasuresItAndPutsThePreviousBack)
{
    CallLog log;
    log.Name(m_window.Handle(), "window");
    const ImportSpy<decltype(::GetDC)> getDc(FrameworkModule(), "user32.dll", "GetDC",
                                             [&](HWND window)
                                             {
                                                 log.WriteCall("GetDC", window);
                                                 const HDC dc = getDc.Original()(window);
                                                 log.Name(dc, "dc");
                                                 return dc;
                                             });
    const ImportSpy<CreateIndirect> create(VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
                                           [&](const LOGFONTW* logFont)
                                           {
                                               log.WriteCall("CreateFontIndirectW", logFont->lfHeight);
                                               const HFONT font = create.Original()(logFont);
                                               log.Name(font, "font" + std::to_string(create.CallCount()));
                                               return font;
                                           });
    const ImportSpy<decltype(::SelectObject)> select(VxDpiModule(), "gdi32.dll", "SelectObject",
                                                     [&](HDC dc, HGDIOBJ object)
                                                     {
                                                         log.WriteCall("SelectObject", dc, object);
                                                         const HGDIOBJ previous =
                                                             select.Original()(dc, object);
                                                         if (select.CallCount() == 1)
                                                             log.Name(previous, "previous");
                                                         return previous;
                                                     });
    const ImportSpy<decltype(::GetTextMetricsW)> measure(VxDpiModule(), "gdi32.dll", "GetTextMetricsW",
                                                         [&](HDC dc, TEXTMETRICW* metrics)
                                                         {
                                                             log.WriteCall("GetTextMetricsW", dc);
                                                             return measure.Original()(dc, metrics);
                                                         });
    const RecordCalls<decltype(::DeleteObject)> deleteObject(log, VxDpiModule(), "gdi32.dll", "DeleteObject");
    const ImportSpy<decltype(::GetClientRect)> client(VxDpiModule(), "user32.dll", "GetClientRect",
                                                      [&](HWND window, RECT* rect)
                                                      {
                                                          log.WriteCall("GetClientRect", window);
                                                          return client.Original()(window, rect);
                                                      });
    ClientAt144();
    EXPECT_EQ(
        log.Lines(),
        (CallLog::LineList{"GetDC(window)", "CreateFontIndirectW(-11)", "SelectObject(dc, font1)",
                           "GetTextMetricsW(dc)", "SelectObject(dc, previous)", "DeleteObject(font1)",
                           "CreateFontIndirectW(-17)", "SelectObject(dc, font2)", "GetTextMetricsW(dc)",
                           "SelectObject(dc, previous)", "DeleteObject(font2)", "GetClientRect(window)"}));
}

TEST_F(ClientSizeForDpi, LeavesNothingBehind)
{
    EXPECT_NO_LEAK([this] { ClientAt144(); });
}

TEST_F(ClientSizeForDpi, LeavesTheWindowsFontAlone)
{
    ClientAt144();
    EXPECT_TRUE(IsWithSize(LogFontOf(m_font.get()), EveryFieldDifferent(0, 0), -11, 7));
}

TEST_F(ClientSizeForDpi, WithoutAWindowIsNothing)
{
    CWnd neverCreated;
    EXPECT_TRUE(NothingIsAskedFor(nullptr, 144));
    EXPECT_TRUE(NothingIsAskedFor(&neverCreated, 144));
}

TEST_F(ClientSizeForDpi, ForNoDpiIsNothing)
{
    EXPECT_TRUE(NothingIsAskedFor(m_window.Object(), 0));
}

TEST_F(ClientSizeForDpi, ADpiOfOneCounts)
{
    const FakeMeasures measures(kFrom7x13To10x20);
    EXPECT_TRUE(IsRect(GetClientSizeForDpi(m_window.Object(), 1), {0, 0, 571, 462}));
    const WindowDpiAnswer answer(1);
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 571, 462}));
}

TEST_F(ClientSizeForDpi, OfADestroyedWindowIsNothing)
{
    ::DestroyWindow(m_window.Handle());
    EXPECT_NO_LEAK([this] { EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0})); });
}

TEST_F(ClientSizeForDpi, OfAWindowWithoutFontIsNothing)
{
    m_font.reset();
    const FakeMeasures measures(kFrom7x13To10x20);
    EXPECT_NO_LEAK([this] { EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0})); });
    EXPECT_EQ(measures.CallCount(), 0);
}

TEST_F(ClientSizeForDpi, OfAFontThatDoesNotTellItsDescriptionIsNothing)
{
    using ReadObject = decltype(::GetObjectW);
    const FakeMeasures measures(kFrom7x13To10x20);
    const FailNthCall<ReadObject> unread(FrameworkModule(), "gdi32.dll", "GetObjectW",
                                         FailNthCall<ReadObject>::kEveryCall, 0);
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0}));
    EXPECT_GT(unread.CallCount(), 0);
    EXPECT_EQ(measures.CallCount(), 0);
}

TEST_F(ClientSizeForDpi, WithoutADeviceContextIsNothingAndLetsNothingOut)
{
    const FakeMeasures measures(kFrom7x13To10x20);
    EXPECT_NO_LEAK(
        [this]
        {
            const FailNthCall<decltype(::GetDC)> refused(FrameworkModule(), "user32.dll", "GetDC", 1,
                                                         nullptr);
            EXPECT_NO_THROW(EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0})));
            EXPECT_EQ(refused.CallCount(), 1);
        });
    EXPECT_EQ(measures.CallCount(), 0);
}

TEST_F(ClientSizeForDpi, WithoutTheFontOfTodayIsNothing)
{
    const FakeMeasures measures({{520, 20}});
    EXPECT_NO_LEAK(
        [this]
        {
            const FailingFont refused(1);
            EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0}));
            EXPECT_EQ(refused.CallCount(), 2);
        });
}

TEST_F(ClientSizeForDpi, WithoutTheFontOfTheNewDpiIsNothing)
{
    const FakeMeasures measures({{364, 13}});
    EXPECT_NO_LEAK(
        [this]
        {
            const FailingFont refused(2);
            EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0}));
        });
}

TEST_F(ClientSizeForDpi, OfAFontThatCannotBeMeasuredIsNothing)
{
    for (const int call : {1, 2})
    {
        EXPECT_NO_LEAK(
            [this, call]
            {
                const FailNthCall<decltype(::GetTextMetricsW)> refused(VxDpiModule(), "gdi32.dll",
                                                                       "GetTextMetricsW", call, FALSE);
                EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0}));
            });
    }
}

TEST_F(ClientSizeForDpi, UnitsOfOnePixelCount)
{
    const FakeMeasures measures({{52, 1}, {104, 2}});
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 800, 600}));
    const FakeMeasures shrinking({{104, 2}, {52, 1}});
    EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 200, 150}));
}

TEST_P(ClientSizeForDpiWithoutUnits, IsNothing)
{
    const FakeMeasures measures({GetParam().now, GetParam().then});
    EXPECT_NO_LEAK([this] { EXPECT_TRUE(IsRect(ClientAt144(), {0, 0, 0, 0})); });
}

INSTANTIATE_TEST_SUITE_P(BelowOnePixel, ClientSizeForDpiWithoutUnits,
                         testing::Values(MeasuresCase{{25, 13}, {520, 20}}, MeasuresCase{{364, 0}, {520, 20}},
                                         MeasuresCase{{364, 13}, {25, 20}}, MeasuresCase{{364, 13}, {520, 0}},
                                         MeasuresCase{{364, -1}, {520, 20}},
                                         MeasuresCase{{364, 13}, {520, -1}}));
