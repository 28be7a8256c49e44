#include <vxdpi/Fonts.h>

#include "fonts/FontRecords.h"
#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/TestDpi.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <ostream>
#include <type_traits>

namespace
{
// The object's own fields in their order, which is part of the library's binary interface.
struct FontFields
{
    UINT baseDpi;
    LONG baseHeight;
    LONG baseWidth;
    BOOL isInitialised;
};

const FontFields& FieldsOf(const CFontDPIAware& font)
{
    static_assert(sizeof(CFontDPIAware) == sizeof(CFont) + sizeof(FontFields));
    return *reinterpret_cast<const FontFields*>(reinterpret_cast<const char*>(&font) + sizeof(CFont));
}

testing::AssertionResult HasFields(const CFontDPIAware& font, const FontFields& expected)
{
    const FontFields& fields = FieldsOf(font);
    if (std::memcmp(&fields, &expected, sizeof fields) == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "DPI " << fields.baseDpi << ", height " << fields.baseHeight << ", width " << fields.baseWidth
           << ", initialised " << fields.isInitialised;
}

testing::AssertionResult RemembersNothing(const CFontDPIAware& font)
{
    return HasFields(font, {96, 0, 0, FALSE});
}

testing::AssertionResult Remembers(const CFontDPIAware& font, LONG height, LONG width, UINT dpi)
{
    return HasFields(font, {dpi, height, width, TRUE});
}

// The font's height after it was made anew.
LONG HeightAt(CFontDPIAware& font, LOGFONTW& logFont, UINT dpi)
{
    font.DeleteObject();
    EXPECT_TRUE(font.CreateFontIndirectW(&logFont, dpi));
    return LogFontOf(font).lfHeight;
}

BOOL CreatePlain(CFontDPIAware& font, UINT dpi, int height, int width)
{
    font.DeleteObject();
    return font.CreateFontW(dpi, height, width, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                            CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Tahoma");
}

testing::AssertionResult HasSize(const CFontDPIAware& font, LONG height, LONG width)
{
    const LOGFONTW logFont = LogFontOf(font.m_hObject);
    if (logFont.lfHeight == height && logFont.lfWidth == width)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "height " << logFont.lfHeight << ", width " << logFont.lfWidth;
}

// A device context of the DPI that a test chooses, as the library sees it. For the framework it has 720 dots
// per inch: a tenth of a point is one pixel, so that the font's height tells the size that was asked for.
class PointContext
{
public:
    explicit PointContext(int dpi)
        : m_dpi(dpi), m_libraryCaps(VxDpiModule(), "gdi32.dll", "GetDeviceCaps",
                                    [this](HDC dc, int index) { return LibraryAnswer(dc, index); }),
          m_frameworkCaps(FrameworkModule(), "gdi32.dll", "GetDeviceCaps",
                          [this](HDC dc, int index)
                          {
                              const bool isMine = dc == m_dc.m_hAttribDC && index == LOGPIXELSY;
                              return isMine ? 720 : m_frameworkCaps.Original()(dc, index);
                          })
    {
        m_dc.CreateCompatibleDC(nullptr);
    }

    CDC* Get() { return &m_dc; }
    void SetDpi(int dpi) { m_dpi = dpi; }
    int QuestionCount() const { return m_libraryCaps.CallCount(); }

private:
    int LibraryAnswer(HDC dc, int index) const
    {
        EXPECT_EQ(dc, m_dc.m_hDC);
        EXPECT_EQ(index, 90);
        return m_dpi;
    }

    CDC m_dc;
    int m_dpi;
    ImportSpy<decltype(::GetDeviceCaps)> m_libraryCaps;
    ImportSpy<decltype(::GetDeviceCaps)> m_frameworkCaps;
};

BOOL CreateOfPoints(CFontDPIAware& font, UINT dpi, int tenthPoints, CDC* dc)
{
    font.DeleteObject();
    return font.CreatePointFont(dpi, tenthPoints, L"Some Face", dc);
}

BOOL CreateOfPoints(CFontDPIAware& font, UINT dpi, LOGFONTW& logFont, CDC* dc)
{
    font.DeleteObject();
    return font.CreatePointFontIndirect(dpi, &logFont, dc);
}

// The size in tenths of a point that a font was made with through a PointContext.
LONG TenthPointsOf(CFontDPIAware& font)
{
    return -LogFontOf(font).lfHeight;
}

// One way to make a font of the same size at any DPI.
struct Creation
{
    const char* name;
    BOOL (*create)(CFontDPIAware& font, UINT dpi);
};

void PrintTo(const Creation& creation, std::ostream* stream)
{
    *stream << creation.name;
}

CDC& SomeContext()
{
    static CDC s_context;
    if (s_context.m_hDC == nullptr)
        s_context.CreateCompatibleDC(nullptr);
    return s_context;
}

class CFontDPIAwareMadeAnew : public testing::TestWithParam<Creation>
{
};
} // namespace

TEST(CFontDPIAware, StartsWithoutAFontAndWithoutASize)
{
    const CFontDPIAware font;
    EXPECT_EQ(font.m_hObject, nullptr);
    EXPECT_TRUE(RemembersNothing(font));
}

TEST(CFontDPIAware, IsAFontThatCannotBeCopied)
{
    static_assert(std::is_base_of_v<CFont, CFontDPIAware>);
    static_assert(!std::is_copy_constructible_v<CFontDPIAware> && !std::is_copy_assignable_v<CFontDPIAware>);
    const CFontDPIAware font;
    EXPECT_TRUE(font.IsKindOf(RUNTIME_CLASS(CFont)));
}

TEST(CFontDPIAware, OwnsItsFontUntilItDies)
{
    EXPECT_NO_LEAK(
        []
        {
            const std::unique_ptr<CFont> font(new CFontDPIAware);
            LOGFONTW logFont = EveryFieldDifferent(-12, 0);
            static_cast<CFontDPIAware&>(*font).CreateFontIndirectW(&logFont, 96);
            EXPECT_EQ(CFont::FromHandle(*font), font.get());
        });
}

TEST(InitFontSize, RemembersASize)
{
    CFontDPIAware font;
    font.InitFontSize(-13, 7, 120);
    EXPECT_TRUE(Remembers(font, -13, 7, 120));
    EXPECT_EQ(font.m_hObject, nullptr);
}

TEST(InitFontSize, RemembersTheSizeOfADescription)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-13, 7);
    font.InitFontSize(&logFont, 120);
    EXPECT_TRUE(Remembers(font, -13, 7, 120));
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), -13, 7));
}

TEST(InitFontSize, KeepsTheFirstSize)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-20, 9);
    font.InitFontSize(-13, 7, 120);
    font.InitFontSize(-20, 9, 192);
    font.InitFontSize(&logFont, 192);
    EXPECT_TRUE(Remembers(font, -13, 7, 120));
}

TEST(InitFontSize, KeepsASizeOfNothing)
{
    CFontDPIAware font;
    font.InitFontSize(0, 0, 0);
    font.InitFontSize(-13, 7, 120);
    EXPECT_TRUE(Remembers(font, 0, 0, 0));
}

TEST(CFontDPIAwareCreateFontIndirect, WithoutADescriptionNothingChanges)
{
    CFontDPIAware font;
    EXPECT_EQ(font.CreateFontIndirectW(nullptr, 144), FALSE);
    EXPECT_TRUE(RemembersNothing(font));
    EXPECT_EQ(font.m_hObject, nullptr);
}

TEST(CFontDPIAwareCreateFontIndirect, TheFirstSizeCountsAsMeantForItsDpi)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-13, 7);
    EXPECT_EQ(font.CreateFontIndirectW(&logFont, 144), TRUE);
    EXPECT_TRUE(Remembers(font, -13, 7, 144));
    EXPECT_TRUE(IsWithSize(LogFontOf(font), EveryFieldDifferent(0, 0), -13, 7));
}

TEST(CFontDPIAwareCreateFontIndirect, ScalesTheRememberedHeightNotTheGivenOne)
{
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(-12, 0);
    LOGFONTW second = EveryFieldDifferent(-20, 0);
    EXPECT_EQ(HeightAt(font, first, 96), -12);
    EXPECT_EQ(HeightAt(font, second, 144), -18);
    EXPECT_EQ(second.lfHeight, -18);
}

TEST(CFontDPIAwareCreateFontIndirect, HasTheScaledHeightAtEachDpi)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-11, 0);
    EXPECT_EQ(HeightAt(font, logFont, 96), -11);
    EXPECT_EQ(HeightAt(font, logFont, 120), -14);
    EXPECT_EQ(HeightAt(font, logFont, 144), -17);
    EXPECT_EQ(HeightAt(font, logFont, 192), -22);
    EXPECT_EQ(HeightAt(font, logFont, 96), -11);
    EXPECT_EQ(HeightAt(font, logFont, 0), 0);
}

TEST(CFontDPIAwareCreateFontIndirect, ScalesARememberedWidthOverTheGivenOne)
{
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(-12, 5);
    LOGFONTW second = EveryFieldDifferent(-20, 0);
    HeightAt(font, first, 96);
    HeightAt(font, second, 144);
    EXPECT_TRUE(IsWithSize(second, EveryFieldDifferent(0, 0), -18, 8));
    EXPECT_TRUE(IsWithSize(LogFontOf(font), EveryFieldDifferent(0, 0), -18, 8));
}

TEST(CFontDPIAwareCreateFontIndirect, WithoutARememberedWidthTheGivenOneStays)
{
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(-12, 0);
    LOGFONTW second = EveryFieldDifferent(-20, 5);
    HeightAt(font, first, 96);
    HeightAt(font, second, 144);
    EXPECT_TRUE(IsWithSize(second, EveryFieldDifferent(0, 0), -18, 5));
    EXPECT_TRUE(HasSize(font, -18, 5));
}

TEST(CFontDPIAwareCreateFontIndirect, TakesTheOtherAttributesFromEachCall)
{
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(-12, 0);
    LOGFONTW second = {};
    second.lfWeight = 700;
    HeightAt(font, first, 96);
    HeightAt(font, second, 144);
    EXPECT_TRUE(IsWithSize(LogFontOf(font), second, -18, 0));
    EXPECT_EQ(LogFontOf(font).lfWeight, 700);
}

TEST(CFontDPIAwareCreateFontIndirect, ASizeMeantForNoDpiIsNotScaled)
{
    CFontDPIAware font;
    font.InitFontSize(-12, 5, 0);
    LOGFONTW logFont = EveryFieldDifferent(-20, 9);
    EXPECT_EQ(font.CreateFontIndirectW(&logFont, 144), TRUE);
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), -12, 5));
}

TEST(CFontDPIAwareCreateFontIndirect, ASizeThatLeaves32BitsIsNotScaled)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(2000000000, -2000000000);
    HeightAt(font, logFont, 96);
    EXPECT_EQ(HeightAt(font, logFont, 192), 2000000000);
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 2000000000, -2000000000));
}

TEST(CFontDPIAwareCreateFontIndirect, MakesTheFontFromTheCallersOwnRecord)
{
    CFontDPIAware font;
    font.InitFontSize(-12, 5, 96);
    LOGFONTW logFont = EveryFieldDifferent(-20, 9);
    HFONT made = nullptr;
    const ImportSpy<decltype(::CreateFontIndirectW)> create(
        VxDpiModule(), "gdi32.dll", "CreateFontIndirectW",
        [&](const LOGFONTW* given)
        {
            EXPECT_EQ(given, &logFont);
            EXPECT_TRUE(IsWithSize(*given, EveryFieldDifferent(0, 0), -18, 8));
            made = create.Original()(given);
            return made;
        });
    EXPECT_EQ(font.CreateFontIndirectW(&logFont, 144), TRUE);
    EXPECT_EQ(create.CallCount(), 1);
    EXPECT_EQ(font.m_hObject, made);
}

TEST(CFontDPIAwareCreateFontIndirect, AFailureIsToldAndTheSizesAreKept)
{
    EXPECT_NO_LEAK(
        []
        {
            const FailNthCall<decltype(::CreateFontIndirectW)> refused(VxDpiModule(), "gdi32.dll",
                                                                       "CreateFontIndirectW", 1, nullptr);
            CFontDPIAware font;
            LOGFONTW logFont = EveryFieldDifferent(-12, 5);
            font.InitFontSize(&logFont, 96);
            EXPECT_EQ(font.CreateFontIndirectW(&logFont, 144), FALSE);
            EXPECT_EQ(font.m_hObject, nullptr);
            EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), -18, 8));
            EXPECT_TRUE(Remembers(font, -12, 5, 96));
        });
}

TEST(CFontDPIAwareCreateFontIndirect, AFailedFirstCreationRemembersItsSize)
{
    const FailNthCall<decltype(::CreateFontIndirectW)> refused(VxDpiModule(), "gdi32.dll",
                                                               "CreateFontIndirectW", 1, nullptr);
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-12, 5);
    EXPECT_EQ(font.CreateFontIndirectW(&logFont, 96), FALSE);
    EXPECT_TRUE(Remembers(font, -12, 5, 96));
}

TEST(CFontDPIAwareCreateFontIndirect, DoesNotDeleteTheFontThatIsStillAttached)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(-12, 0);
    font.CreateFontIndirectW(&logFont, 96);
    const HFONT first = font;
    font.CreateFontIndirectW(&logFont, 144);
    EXPECT_EQ(LogFontOf(first).lfHeight, -12);
    EXPECT_TRUE(HasSize(font, -18, 0));
    font.DeleteObject();
    font.Attach(first);
}

TEST(CFontDPIAwareCreateFont, TheFirstSizeCountsAsMeantForItsDpi)
{
    CFontDPIAware font;
    EXPECT_EQ(CreatePlain(font, 144, -13, 7), TRUE);
    EXPECT_TRUE(Remembers(font, -13, 7, 144));
    EXPECT_TRUE(HasSize(font, -13, 7));
}

TEST(CFontDPIAwareCreateFont, ScalesTheRememberedSizeNotTheGivenOne)
{
    CFontDPIAware font;
    CreatePlain(font, 96, -12, 5);
    CreatePlain(font, 144, -20, 9);
    EXPECT_TRUE(HasSize(font, -18, 8));
}

TEST(CFontDPIAwareCreateFont, AWidthOfNothingInTheCallIsPassedOn)
{
    CFontDPIAware font;
    CreatePlain(font, 96, -12, 5);
    CreatePlain(font, 144, -12, 0);
    EXPECT_TRUE(HasSize(font, -18, 0));
    EXPECT_TRUE(Remembers(font, -12, 5, 96));
}

TEST(CFontDPIAwareCreateFont, ARememberedWidthOfNothingStaysNothing)
{
    CFontDPIAware font;
    CreatePlain(font, 96, -12, 0);
    CreatePlain(font, 144, -12, 5);
    EXPECT_TRUE(HasSize(font, -18, 0));
}

TEST(CFontDPIAwareCreateFont, ASizeMeantForNoDpiIsNotScaled)
{
    CFontDPIAware font;
    font.InitFontSize(-12, 5, 0);
    CreatePlain(font, 144, -20, 9);
    EXPECT_TRUE(HasSize(font, -12, 5));
}

TEST(CFontDPIAwareCreateFont, ASizeThatLeaves32BitsIsNotScaled)
{
    CFontDPIAware font;
    CreatePlain(font, 96, 2000000000, -2000000000);
    CreatePlain(font, 192, 1, 1);
    EXPECT_TRUE(HasSize(font, 2000000000, -2000000000));
}

TEST(CFontDPIAwareCreateFont, PassesEveryOtherArgumentOnUnchanged)
{
    CFontDPIAware font;
    font.InitFontSize(-12, 5, 96);
    CallLog log;
    const RecordCalls<decltype(::CreateFontW)> create(log, VxDpiModule(), "gdi32.dll", "CreateFontW");
    EXPECT_EQ(
        font.CreateFontW(144, -20, 9, 103, 104, 105, 201, 202, 203, 204, 205, 206, 207, 208, L"Some Face"),
        TRUE);
    font.DeleteObject();
    EXPECT_EQ(font.CreateFontW(192, -20, 9, -1, -2, -3, 4, 5, 6, 7, 8, 9, 10, 255, nullptr), TRUE);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"CreateFontW(-18, 8, 103, 104, 105, 201, 202, 203, 204, 205, "
                                              "206, 207, 208, \"Some Face\")",
                                              "CreateFontW(-24, 10, -1, -2, -3, 4, 5, 6, 7, 8, 9, 10, 255, "
                                              "null)"}));
}

TEST(CFontDPIAwareCreateFont, AFailureIsTold)
{
    EXPECT_NO_LEAK(
        []
        {
            const FailNthCall<decltype(::CreateFontW)> refused(VxDpiModule(), "gdi32.dll", "CreateFontW", 1,
                                                               nullptr);
            CFontDPIAware font;
            EXPECT_EQ(CreatePlain(font, 144, -12, 5), FALSE);
            EXPECT_EQ(font.m_hObject, nullptr);
            EXPECT_TRUE(Remembers(font, -12, 5, 144));
        });
}

TEST(CFontDPIAwareCreatePointFont, WithoutAContextNothingChanges)
{
    CFontDPIAware font;
    EXPECT_EQ(font.CreatePointFont(144, 100, L"Some Face", nullptr), FALSE);
    EXPECT_TRUE(RemembersNothing(font));
    EXPECT_EQ(font.m_hObject, nullptr);
}

TEST(CFontDPIAwareCreatePointFont, TheFirstSizeCountsAsMeantForTheContextsDpi)
{
    PointContext context(96);
    CFontDPIAware font;
    EXPECT_EQ(CreateOfPoints(font, 120, 100, context.Get()), TRUE);
    EXPECT_TRUE(Remembers(font, 100, 0, 96));
    EXPECT_EQ(TenthPointsOf(font), 125);
    EXPECT_EQ(context.QuestionCount(), 1);
}

TEST(CFontDPIAwareCreatePointFont, ScalesTheRememberedSizeNotTheGivenOne)
{
    PointContext context(96);
    CFontDPIAware font;
    CreateOfPoints(font, 96, 83, context.Get());
    EXPECT_EQ(TenthPointsOf(font), 83);
    CreateOfPoints(font, 144, 50, context.Get());
    EXPECT_EQ(TenthPointsOf(font), 125);
    CreateOfPoints(font, 192, 50, context.Get());
    EXPECT_EQ(TenthPointsOf(font), 166);
}

TEST(CFontDPIAwareCreatePointFont, AsksForTheContextsDpiOnlyForTheFirstSize)
{
    PointContext context(96);
    CFontDPIAware font;
    CreateOfPoints(font, 96, 100, context.Get());
    context.SetDpi(192);
    CreateOfPoints(font, 192, 100, context.Get());
    EXPECT_EQ(context.QuestionCount(), 1);
    EXPECT_EQ(TenthPointsOf(font), 200);
    EXPECT_TRUE(Remembers(font, 100, 0, 96));
}

TEST(CFontDPIAwareCreatePointFont, ScalesASizeThatWasRememberedAsAHeight)
{
    PointContext context(192);
    CFontDPIAware font;
    font.InitFontSize(100, 7, 96);
    CreateOfPoints(font, 144, 50, context.Get());
    EXPECT_EQ(TenthPointsOf(font), 150);
    EXPECT_EQ(LogFontOf(font).lfWidth, 0);
    EXPECT_TRUE(Remembers(font, 100, 7, 96));
    EXPECT_EQ(context.QuestionCount(), 0);
}

TEST(CFontDPIAwareCreatePointFont, AContextWithoutADpiLeavesTheSize)
{
    PointContext context(0);
    CFontDPIAware font;
    CreateOfPoints(font, 144, 100, context.Get());
    EXPECT_TRUE(Remembers(font, 100, 0, 0));
    EXPECT_EQ(TenthPointsOf(font), 100);
}

TEST(CFontDPIAwareCreatePointFont, ASizeThatLeaves32BitsIsNotScaled)
{
    PointContext context(96);
    CFontDPIAware font;
    CreateOfPoints(font, 192, 2000000000, context.Get());
    EXPECT_EQ(TenthPointsOf(font), 2000000000);
}

TEST(CFontDPIAwareCreatePointFont, HasTheGivenFace)
{
    PointContext context(96);
    CFontDPIAware font;
    CreateOfPoints(font, 96, 100, context.Get());
    EXPECT_STREQ(LogFontOf(font).lfFaceName, L"Some Face");
}

TEST(CFontDPIAwareCreatePointFont, ARealContextTurnsPointsIntoPixels)
{
    CDC context;
    context.CreateCompatibleDC(nullptr);
    CFontDPIAware font;
    CreateOfPoints(font, TestDpi(), 720, &context);
    EXPECT_TRUE(HasSize(font, -static_cast<LONG>(TestDpi()), 0));
    CreateOfPoints(font, 2 * TestDpi(), 720, &context);
    EXPECT_TRUE(HasSize(font, -2 * static_cast<LONG>(TestDpi()), 0));
    EXPECT_TRUE(Remembers(font, 720, 0, TestDpi()));
}

TEST(CFontDPIAwareCreatePointFont, TheOutputContextsDpiCounts)
{
    CDC output;
    CDC attributes;
    output.CreateCompatibleDC(nullptr);
    attributes.CreateCompatibleDC(nullptr);
    const HDC outputDc = output.m_hDC;
    output.SetAttribDC(attributes.m_hDC);
    const ImportSpy<decltype(::GetDeviceCaps)> caps(VxDpiModule(), "gdi32.dll", "GetDeviceCaps",
                                                    [&](HDC dc, int) { return dc == outputDc ? 160 : 80; });
    CFontDPIAware byPoints;
    CFontDPIAware byDescription;
    LOGFONTW logFont = EveryFieldDifferent(100, 0);
    CreateOfPoints(byPoints, 160, 100, &output);
    CreateOfPoints(byDescription, 160, logFont, &output);
    output.ReleaseAttribDC();
    EXPECT_TRUE(Remembers(byPoints, 100, 0, 160));
    EXPECT_TRUE(Remembers(byDescription, 100, 0, 160));
}

TEST(CFontDPIAwareCreatePointFont, AContextThatWasNeverMadeDoesNoHarm)
{
    CDC context;
    CFontDPIAware font;
    CreateOfPoints(font, 144, 100, &context);
    EXPECT_TRUE(Remembers(font, 100, 0, 0));
}

TEST(CFontDPIAwareCreatePointFont, AFailureIsTold)
{
    PointContext context(96);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailNthCall<decltype(::CreateFontIndirectW)> refused(FrameworkModule(), "gdi32.dll",
                                                                       "CreateFontIndirectW", 1, nullptr);
            CFontDPIAware font;
            EXPECT_EQ(CreateOfPoints(font, 144, 100, context.Get()), FALSE);
            EXPECT_EQ(font.m_hObject, nullptr);
            EXPECT_TRUE(Remembers(font, 100, 0, 96));
        });
}

TEST(CFontDPIAwareCreatePointFontIndirect, WithoutAContextNothingChanges)
{
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(100, 7);
    EXPECT_EQ(font.CreatePointFontIndirect(144, &logFont, nullptr), FALSE);
    EXPECT_TRUE(RemembersNothing(font));
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 100, 7));
}

TEST(CFontDPIAwareCreatePointFontIndirect, WithoutADescriptionNothingChanges)
{
    PointContext context(96);
    CFontDPIAware font;
    EXPECT_EQ(font.CreatePointFontIndirect(144, nullptr, context.Get()), FALSE);
    EXPECT_TRUE(RemembersNothing(font));
    EXPECT_EQ(context.QuestionCount(), 0);
}

TEST(CFontDPIAwareCreatePointFontIndirect, TheFirstSizeCountsAsMeantForTheContextsDpi)
{
    PointContext context(96);
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(100, 7);
    EXPECT_EQ(CreateOfPoints(font, 120, logFont, context.Get()), TRUE);
    EXPECT_TRUE(Remembers(font, 100, 7, 96));
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 125, 9));
    EXPECT_TRUE(IsWithSize(LogFontOf(font), EveryFieldDifferent(0, 0), -125, 9));
}

TEST(CFontDPIAwareCreatePointFontIndirect, ScalesTheRememberedSizeNotTheGivenOne)
{
    PointContext context(96);
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(100, 5);
    LOGFONTW second = EveryFieldDifferent(50, 0);
    CreateOfPoints(font, 96, first, context.Get());
    CreateOfPoints(font, 144, second, context.Get());
    EXPECT_TRUE(IsWithSize(second, EveryFieldDifferent(0, 0), 150, 8));
    EXPECT_TRUE(HasSize(font, -150, 8));
}

TEST(CFontDPIAwareCreatePointFontIndirect, WithoutARememberedWidthTheGivenOneStays)
{
    PointContext context(96);
    CFontDPIAware font;
    LOGFONTW first = EveryFieldDifferent(100, 0);
    LOGFONTW second = EveryFieldDifferent(50, 5);
    CreateOfPoints(font, 96, first, context.Get());
    CreateOfPoints(font, 144, second, context.Get());
    EXPECT_TRUE(IsWithSize(second, EveryFieldDifferent(0, 0), 150, 5));
    EXPECT_TRUE(HasSize(font, -150, 5));
}

TEST(CFontDPIAwareCreatePointFontIndirect, AsksForTheContextsDpiEachTimeAndKeepsTheFirst)
{
    PointContext context(96);
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(100, 0);
    CreateOfPoints(font, 96, logFont, context.Get());
    context.SetDpi(192);
    CreateOfPoints(font, 192, logFont, context.Get());
    EXPECT_EQ(context.QuestionCount(), 2);
    EXPECT_EQ(TenthPointsOf(font), 200);
    EXPECT_TRUE(Remembers(font, 100, 0, 96));
}

TEST(CFontDPIAwareCreatePointFontIndirect, AContextWithoutADpiLeavesTheSize)
{
    PointContext context(0);
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(100, 7);
    CreateOfPoints(font, 144, logFont, context.Get());
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 100, 7));
}

TEST(CFontDPIAwareCreatePointFontIndirect, ASizeThatLeaves32BitsIsNotScaled)
{
    PointContext context(96);
    CFontDPIAware font;
    LOGFONTW logFont = EveryFieldDifferent(2000000000, -2000000000);
    CreateOfPoints(font, 192, logFont, context.Get());
    EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 2000000000, -2000000000));
    EXPECT_TRUE(HasSize(font, -2000000000, -2000000000));
}

TEST(CFontDPIAwareCreatePointFontIndirect, AFailureIsToldAndTheSizesAreKept)
{
    PointContext context(96);
    EXPECT_NO_LEAK(
        [&]
        {
            const FailNthCall<decltype(::CreateFontIndirectW)> refused(FrameworkModule(), "gdi32.dll",
                                                                       "CreateFontIndirectW", 1, nullptr);
            CFontDPIAware font;
            LOGFONTW logFont = EveryFieldDifferent(100, 5);
            EXPECT_EQ(CreateOfPoints(font, 144, logFont, context.Get()), FALSE);
            EXPECT_EQ(font.m_hObject, nullptr);
            EXPECT_TRUE(IsWithSize(logFont, EveryFieldDifferent(0, 0), 150, 8));
            EXPECT_TRUE(Remembers(font, 100, 5, 96));
        });
}

TEST_P(CFontDPIAwareMadeAnew, EndsAtItsFirstHeightAndLeavesNothing)
{
    CFontDPIAware font;
    ASSERT_TRUE(GetParam().create(font, 96));
    const LOGFONTW first = LogFontOf(font);
    const HandleCount before = HandleCount::Now();
    for (int round = 0; round < 100; ++round)
    {
        for (const UINT dpi : {96u, 120u, 144u, 192u, 96u})
        {
            font.DeleteObject();
            ASSERT_TRUE(GetParam().create(font, dpi));
        }
    }
    EXPECT_TRUE(HasSize(font, first.lfHeight, first.lfWidth));
    EXPECT_TRUE(SameHandlesAs(before));
}

TEST_P(CFontDPIAwareMadeAnew, BelongsToTheObject)
{
    EXPECT_NO_LEAK(
        []
        {
            CFontDPIAware font;
            ASSERT_TRUE(GetParam().create(font, 144));
            EXPECT_EQ(CFont::FromHandle(font), &font);
        });
}

INSTANTIATE_TEST_SUITE_P(ByEachCreation, CFontDPIAwareMadeAnew,
                         testing::Values(Creation{"CreateFontIndirect",
                                                  [](CFontDPIAware& font, UINT dpi)
                                                  {
                                                      LOGFONTW logFont = EveryFieldDifferent(-11, 7);
                                                      return font.CreateFontIndirectW(&logFont, dpi);
                                                  }},
                                         Creation{"CreateFont", [](CFontDPIAware& font, UINT dpi)
                                                  { return CreatePlain(font, dpi, -11, 7); }},
                                         Creation{"CreatePointFont", [](CFontDPIAware& font, UINT dpi)
                                                  { return CreateOfPoints(font, dpi, 83, &SomeContext()); }},
                                         Creation{"CreatePointFontIndirect",
                                                  [](CFontDPIAware& font, UINT dpi)
                                                  {
                                                      LOGFONTW logFont = EveryFieldDifferent(83, 7);
                                                      return CreateOfPoints(font, dpi, logFont,
                                                                            &SomeContext());
                                                  }}),
                         [](const auto& info) { return info.param.name; });
