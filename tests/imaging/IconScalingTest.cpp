#include <vxdpi/Images.h>

#include "foundation/LibraryCopy.h"
#include "imaging/ComThread.h"
#include "imaging/FakeImaging.h"
#include "imaging/IconScalingCalls.h"
#include "imaging/Icons.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace
{
using Lines = CallLog::LineList;

const auto kScaleHandle = static_cast<HICON (*)(UINT, HICON)>(&CreateScaledIcon);
const auto kScaleResource = static_cast<HICON (*)(UINT, UINT, UINT)>(&CreateScaledIcon);

constexpr std::uint32_t kHalfRed = 0x80FF4010;

Lines Joined(std::initializer_list<Lines> parts)
{
    Lines all;
    for (const Lines& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

HMODULE Program()
{
    return ::GetModuleHandleW(nullptr);
}

// Puts the framework's resource module back at the end of a scope.
class ResourcesFrom
{
public:
    explicit ResourcesFrom(HINSTANCE module) : m_kept(AfxGetResourceHandle())
    {
        AfxSetResourceHandle(module);
    }

    ~ResourcesFrom() { AfxSetResourceHandle(m_kept); }

    ResourcesFrom(const ResourcesFrom&) = delete;
    ResourcesFrom& operator=(const ResourcesFrom&) = delete;

private:
    HINSTANCE m_kept;
};

class FakeCopyImage : public ImportSpy<decltype(::CopyImage)>
{
public:
    explicit FakeCopyImage(HANDLE answer)
        : ImportSpy(VxDpiModule(), "user32.dll", "CopyImage",
                    [answer](HANDLE, UINT, int, int, UINT) { return answer; })
    {
    }
};
}

TEST(StretchIcon, GivesAnIconOfTheSizeAskedFor)
{
    const OwnedIcon icon(StretchIcon(IconOf(32, 32, kOtherColor).release(), 24, 20));
    ASSERT_TRUE(HasSize(icon.get(), 24, 20));
    EXPECT_TRUE(SamePixels(ArgbImage(24, 20, kOtherColor), PixelsOf(icon.get())));
}

TEST(StretchIcon, EnlargesAsWell)
{
    const OwnedIcon icon(StretchIcon(IconOf(16, 16, kOtherColor).release(), 33, 48));
    ASSERT_TRUE(HasSize(icon.get(), 33, 48));
    EXPECT_TRUE(SamePixels(ArgbImage(33, 48, kOtherColor), PixelsOf(icon.get())));
}

TEST(StretchIcon, AtTheSameSizeTheIconLooksTheSame)
{
    const OwnedIcon icon(StretchIcon(IconOf(FramedPicture(16, 16)).release(), 16, 16));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(icon.get())));
}

TEST(StretchIcon, ConsumesTheIcon)
{
    const HICON source = IconOf(32, 32, kOtherColor).release();
    const OwnedIcon icon(StretchIcon(source, 16, 16));
    ASSERT_NE(icon.get(), source);
    EXPECT_FALSE(IsIcon(source));
}

TEST(StretchIcon, AsksThePlatformOnceToCopyAndToDeleteOrReturnTheOriginal)
{
    CallLog log;
    const RecordCalls<decltype(::CopyImage)> copies(log, VxDpiModule(), "user32.dll", "CopyImage");
    const ImportSpy<decltype(::DestroyIcon)> destroyed(VxDpiModule(), "user32.dll", "DestroyIcon");
    HICON source = IconOf(32, 32, kOtherColor).release();
    log.Name(source, "icon");
    const OwnedIcon icon(StretchIcon(source, 24, 20));
    EXPECT_EQ(log.Lines(), Lines{"CopyImage(icon, 1, 24, 20, 12)"});
    EXPECT_EQ(destroyed.CallCount(), 0);
}

TEST(StretchIcon, SizesThatAreNoneArePassedOnAsTheyAre)
{
    CallLog log;
    log.Name(reinterpret_cast<HICON>(0x1234), "icon");
    const FakeCopyImage fake(nullptr);
    const RecordCalls<decltype(::CopyImage)> copies(log, VxDpiModule(), "user32.dll", "CopyImage");
    StretchIcon(reinterpret_cast<HICON>(0x1234), 0, -5);
    EXPECT_EQ(log.Lines(), Lines{"CopyImage(icon, 1, 0, -5, 12)"});
}

TEST(StretchIcon, ReturnsWhatThePlatformAnswers)
{
    const OwnedIcon source = IconOf(16, 16, kOtherColor);
    const OwnedIcon copy = IconOf(24, 24, kOtherColor);
    const FakeCopyImage fake(copy.get());
    EXPECT_EQ(StretchIcon(source.get(), 24, 24), copy.get());
}

TEST(StretchIcon, ReturnsTheIconItselfWhenThePlatformDoes)
{
    const OwnedIcon source = IconOf(16, 16, kOtherColor);
    const FakeCopyImage fake(source.get());
    EXPECT_EQ(StretchIcon(source.get(), 16, 16), source.get());
    EXPECT_TRUE(IsIcon(source.get()));
}

TEST(StretchIcon, ReturnsTheIconUnharmedWhenThePlatformRefuses)
{
    const OwnedIcon source = IconOf(16, 16, kOtherColor);
    const FakeCopyImage fake(nullptr);
    EXPECT_EQ(StretchIcon(source.get(), 24, 24), source.get());
    EXPECT_TRUE(HasSize(source.get(), 16, 16));
}

TEST(StretchIcon, ReturnsAHandleThatIsNoIcon)
{
    const HICON dead = IconOf(16, 16, kOtherColor).release();
    ::DestroyIcon(dead);
    EXPECT_EQ(StretchIcon(dead, 24, 24), dead);
    EXPECT_EQ(StretchIcon(nullptr, 24, 24), nullptr);
}

TEST(StretchIcon, LeavesNothingBehindButItsResult)
{
    EXPECT_NO_LEAK([] { OwnedIcon(StretchIcon(IconOf(32, 32, kOtherColor).release(), 20, 20)); });
    EXPECT_NO_LEAK([] { StretchIcon(nullptr, 20, 20); });
}

namespace
{
enum class Overload
{
    Handle,
    Resource
};

// A library of its own, whose imaging factories are still to be made, with an imaging component of ours. Both
// overloads resample in the same way; the parameter tells which one is called.
class Resampling : public testing::TestWithParam<Overload>
{
protected:
    // The component answers with this picture, whatever it is asked for.
    void Answer(const ArgbImage& picture)
    {
        m_imaging.emplace(m_log, picture);
        m_log.Name(Program(), "program");
    }

    FakeImaging& Imaging()
    {
        if (!m_imaging)
            Answer(FramedPicture(24, 24));
        return *m_imaging;
    }

    // An icon of 32 pixels.
    OwnedIcon Scale(UINT targetSize)
    {
        Imaging();
        m_source = GetParam() == Overload::Handle ? IconOf(FramedPicture(32, 32)).release() : nullptr;
        m_log.Name(m_source, "icon");
        const ImportSpy<decltype(::LoadImageW)> remember(
            m_library.Module(), "user32.dll", "LoadImageW",
            [&](HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags)
            {
                m_source = static_cast<HICON>(remember.Original()(module, name, type, cx, cy, flags));
                return static_cast<HANDLE>(m_source);
            });
        const ImportSpy<decltype(::CoCreateInstance)> create(
            m_library.Module(), "ole32.dll", "CoCreateInstance",
            [&](REFCLSID component, IUnknown* outer, DWORD context, REFIID interfaceId, void** created)
            { return CreateInstance(component, outer, context, interfaceId, created); });
        const IconScalingCalls calls(m_log, m_library.Module());
        OwnedIcon icon(GetParam() == Overload::Handle
                           ? m_library.CopyOf(kScaleHandle)(targetSize, m_source)
                           : m_library.CopyOf(kScaleResource)(targetSize, IDI_16_32, 32));
        m_maskBytes = calls.MaskBytes();
        return icon;
    }

    // Keeps no calls, for counts of what is left behind. Tells whether there was an icon.
    bool ScaleUnrecorded()
    {
        const bool succeeded = Scale(24) != nullptr;
        m_log = CallLog();
        return succeeded;
    }

    CallLog::LineList CallsOf(UINT targetSize, bool succeeds)
    {
        m_log.Clear();
        EXPECT_EQ(Scale(targetSize) != nullptr, succeeds);
        return m_log.Lines();
    }

    // What happens before the imaging component is asked for.
    Lines Before() const
    {
        if (GetParam() == Overload::Resource)
            return {"LoadImageW(program, @301, 1, 32, 32, 0)"};
        return {"GetIconInfo(icon)", "GetObjectW(colors, 32)", "DeleteObject(colors)", "DeleteObject(mask)"};
    }

    Lines Created() const
    {
        return {"CoCreateInstance(317d06e8-5f24-433d-bdf7-79ce68d8abc2, null, 1, "
                "ec5ec8a9-c395-4314-9c77-54d7a935ff70)"};
    }

    Lines Destroyed() const
    {
        return {GetParam() == Overload::Resource ? "DestroyIcon(loaded1)" : "DestroyIcon(icon)"};
    }

    Lines Sourced() const
    {
        return {GetParam() == Overload::Resource ? "factory.CreateBitmapFromHICON(loaded1)"
                                                 : "factory.CreateBitmapFromHICON(icon)"};
    }

    CallLog m_log;
    LibraryCopy m_library;
    std::optional<FakeImaging> m_imaging;
    HRESULT m_creation = S_OK;
    HICON m_source = nullptr;
    std::vector<std::uint8_t> m_maskBytes;

private:
    HRESULT CreateInstance(REFCLSID component, IUnknown* outer, DWORD context, REFIID interfaceId,
                           void** created)
    {
        m_log.WriteCall("CoCreateInstance", component, outer, context, interfaceId);
        *created = SUCCEEDED(m_creation) ? m_imaging->Factory() : nullptr;
        return m_creation;
    }
};

const Lines kScaled = {"factory.CreateBitmapScaler()", "scaler.Initialize(source, 24, 24, 4)"};
const Lines kConverted = {
    "factory.CreateFormatConverter()",
    "converter.Initialize(scaler, 6fddc324-4e03-4bfe-b185-3d77768dc90f, 0, null, 0, 0)"};
const Lines kSection = {"converter.GetSize()", "GetDC(null)",
                        "BITMAPINFOHEADER(40, 24, -24, 1, 32, 0, 0, 0, 0, 0, 0)",
                        "CreateDIBSection(screen1, 0, null, 0)", "ReleaseDC(null, screen1)"};
const Lines kPixels = {"converter.CopyPixels(0, 0, 24, 24, 96, 2304, bits)", "CreateBitmap(24, 24, 1, 1)"};
const Lines kIcon = {"CreateIconIndirect(1, 0, 0, newMask, pixels)"};
const Lines kBitmapsDeleted = {"DeleteObject(newMask)", "DeleteObject(pixels)"};
const Lines kConverterReleased = {"converter.Release()"};
const Lines kScalerReleased = {"scaler.Release()"};
const Lines kSourceReleased = {"source.Release()"};
const Lines kAllReleased = {"converter.Release()", "scaler.Release()", "source.Release()"};

INSTANTIATE_TEST_SUITE_P(CreateScaledIcon, Resampling, testing::Values(Overload::Handle, Overload::Resource),
                         [](const testing::TestParamInfo<Overload>& overload)
                         { return overload.param == Overload::Handle ? "OfHandle" : "OfResource"; });
}

TEST_P(Resampling, MakesEveryStepInThisOrder)
{
    EXPECT_EQ(CallsOf(24, true), Joined({Before(), Created(), Sourced(), kScaled, kConverted, kSection,
                                         kPixels, kIcon, kBitmapsDeleted, kAllReleased, Destroyed()}));
    EXPECT_EQ(Imaging().References(), 0);
}

TEST_P(Resampling, TheIconShowsThePixelsAsTheyComeWithStraightAlpha)
{
    Answer(FramedPicture(24, 24));
    const OwnedIcon icon = Scale(24);
    ASSERT_TRUE(HasSize(icon.get(), 24, 24));
    EXPECT_TRUE(SamePixels(FramedPicture(24, 24), PixelsOf(icon.get())));
}

TEST_P(Resampling, TheSourceIsConsumed)
{
    EXPECT_NE(Scale(24), nullptr);
    EXPECT_FALSE(IsIcon(m_source));
}

TEST_P(Resampling, TheFactoryIsMadeOnceAndKept)
{
    Scale(24);
    const Lines second = CallsOf(24, true);
    EXPECT_EQ(second.at(Before().size()).find("factory.CreateBitmapFromHICON("), 0u);
    EXPECT_EQ(Imaging().FactoryReferences(), 1);
}

TEST_P(Resampling, TheFactoryIsKeptAfterAFailureToo)
{
    Imaging().FailAt(ImagingStep::CreateSource);
    EXPECT_EQ(Scale(24), nullptr);
    Imaging().FailAt(ImagingStep::None);
    const Lines second = CallsOf(24, true);
    EXPECT_EQ(second.at(Before().size()).find("factory.CreateBitmapFromHICON("), 0u);
    EXPECT_EQ(Imaging().FactoryReferences(), 1);
}

TEST_P(Resampling, WithoutAFactoryThereIsNoIconAndTheSourceLives)
{
    m_creation = REGDB_E_CLASSNOTREG;
    EXPECT_EQ(CallsOf(24, false), Joined({Before(), Created()}));
    EXPECT_TRUE(IsIcon(m_source));
    ::DestroyIcon(m_source);
}

TEST_P(Resampling, AFactoryThatCouldNotBeMadeIsAskedForAgain)
{
    m_creation = REGDB_E_CLASSNOTREG;
    Scale(24);
    ::DestroyIcon(m_source);
    m_creation = S_OK;
    const Lines second = CallsOf(24, true);
    EXPECT_EQ(second.at(Before().size()), Created().front());
}

TEST_P(Resampling, WithoutASourceNothingElseIsAskedFor)
{
    Imaging().FailAt(ImagingStep::CreateSource);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(), Created(), Sourced(), Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
}

TEST_P(Resampling, WithoutAScalerTheSourceIsReleased)
{
    Imaging().FailAt(ImagingStep::CreateScaler);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(),
                                          Created(),
                                          Sourced(),
                                          {"factory.CreateBitmapScaler()"},
                                          kSourceReleased,
                                          Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
}

TEST_P(Resampling, AScalerThatDoesNotStartIsReleasedBeforeTheSource)
{
    Imaging().FailAt(ImagingStep::InitializeScaler);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(), Created(), Sourced(), kScaled, kScalerReleased,
                                          kSourceReleased, Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
}

TEST_P(Resampling, WithoutAConverterScalerAndSourceAreReleased)
{
    Imaging().FailAt(ImagingStep::CreateConverter);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(),
                                          Created(),
                                          Sourced(),
                                          kScaled,
                                          {"factory.CreateFormatConverter()"},
                                          kScalerReleased,
                                          kSourceReleased,
                                          Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
}

TEST_P(Resampling, AConverterThatDoesNotStartIsReleasedFirst)
{
    Imaging().FailAt(ImagingStep::InitializeConverter);
    EXPECT_EQ(CallsOf(24, false),
              Joined({Before(), Created(), Sourced(), kScaled, kConverted, kAllReleased, Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
    EXPECT_EQ(Imaging().References(), 0);
}

TEST_P(Resampling, WithoutASizeThereIsNoSectionAndNoIcon)
{
    Imaging().FailAt(ImagingStep::GetSize);
    EXPECT_EQ(
        CallsOf(24, false),
        Joined({Before(),
                Created(),
                Sourced(),
                kScaled,
                kConverted,
                {"converter.GetSize()", "GetDC(null)", "BITMAPINFOHEADER(40, 0, 0, 1, 32, 0, 0, 0, 0, 0, 0)",
                 "CreateDIBSection(screen1, 0, null, 0)", "ReleaseDC(null, screen1)"},
                kAllReleased,
                Destroyed()}));
}

TEST_P(Resampling, WithoutASectionThereIsNoIcon)
{
    const FailNthCall<decltype(::CreateDIBSection)> fail(m_library.Module(), "gdi32.dll", "CreateDIBSection",
                                                         1, nullptr);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(), Created(), Sourced(), kScaled, kConverted, kSection,
                                          kAllReleased, Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
    EXPECT_EQ(Imaging().References(), 0);
}

TEST_P(Resampling, PixelsThatCannotBeCopiedStayZeroAndTheIconIsMade)
{
    Imaging().FailAt(ImagingStep::CopyPixels);
    EXPECT_EQ(CallsOf(24, true), Joined({Before(), Created(), Sourced(), kScaled, kConverted, kSection,
                                         kPixels, kIcon, kBitmapsDeleted, kAllReleased, Destroyed()}));
}

TEST_P(Resampling, AMissingMaskIsLeftToThePlatform)
{
    const FailNthCall<decltype(::CreateBitmap)> fail(m_library.Module(), "gdi32.dll", "CreateBitmap", 1,
                                                     nullptr);
    const Lines calls = CallsOf(24, false);
    EXPECT_EQ(calls, Joined({Before(),
                             Created(),
                             Sourced(),
                             kScaled,
                             kConverted,
                             kSection,
                             kPixels,
                             {"CreateIconIndirect(1, 0, 0, null, pixels)", "DeleteObject(pixels)"},
                             kAllReleased,
                             Destroyed()}));
}

TEST_P(Resampling, WithoutANewIconItsBitmapsAreDeletedAllTheSame)
{
    const FailNthCall<decltype(::CreateIconIndirect)> fail(m_library.Module(), "user32.dll",
                                                           "CreateIconIndirect", 1, nullptr);
    EXPECT_EQ(CallsOf(24, false), Joined({Before(), Created(), Sourced(), kScaled, kConverted, kSection,
                                          kPixels, kIcon, kBitmapsDeleted, kAllReleased, Destroyed()}));
    EXPECT_FALSE(IsIcon(m_source));
}

// The component is asked for a square, but what counts is what it says it made.
TEST_P(Resampling, TheIconHasTheSizeThatTheConverterTells)
{
    Answer(ArgbImage(10, 6, kOtherColor));
    const Lines calls = CallsOf(24, true);
    EXPECT_EQ(calls,
              Joined({Before(),
                      Created(),
                      Sourced(),
                      kScaled,
                      kConverted,
                      {"converter.GetSize()", "GetDC(null)",
                       "BITMAPINFOHEADER(40, 10, -6, 1, 32, 0, 0, 0, 0, 0, 0)",
                       "CreateDIBSection(screen1, 0, null, 0)", "ReleaseDC(null, screen1)",
                       "converter.CopyPixels(0, 0, 10, 6, 40, 240, bits)", "CreateBitmap(10, 6, 1, 1)"},
                      kIcon,
                      kBitmapsDeleted,
                      kAllReleased,
                      Destroyed()}));
}

TEST_P(Resampling, AnOblongResultKeepsItsSides)
{
    Answer(ArgbImage(10, 6, kOtherColor));
    const OwnedIcon icon = Scale(24);
    ASSERT_TRUE(HasSize(icon.get(), 10, 6));
    EXPECT_TRUE(SamePixels(ArgbImage(10, 6, kOtherColor), PixelsOf(icon.get())));
}

TEST_P(Resampling, TheSizeIsAskedForAsItIs)
{
    Scale(24);
    for (const UINT size : {0u, 1u, 33u, 256u, 100000u, 0xFFFFFFFFu})
    {
        const std::string side = std::to_string(size);
        EXPECT_EQ(CallsOf(size, true).at(Before().size() + 2),
                  "scaler.Initialize(source, " + side + ", " + side + ", 4)");
    }
}

TEST_P(Resampling, EveryAlphaButZeroIsDrawnInTheMask)
{
    ArgbImage picture(16, 1);
    const std::uint32_t alphas[] = {0, 1, 2, 127, 128, 129, 254, 255, 255, 254, 128, 64, 1, 0, 0, 1};
    for (int x = 0; x < 16; ++x)
        picture.At(x, 0) = alphas[x] << 24 | 0x00FFFFFF;
    Answer(picture);
    const OwnedIcon icon = Scale(24);
    EXPECT_EQ(m_maskBytes, (std::vector<std::uint8_t>{0x80, 0x06}));
    EXPECT_EQ(MaskOf(icon.get()), std::vector<std::string>{"#............##."});
}

// 400 bits in 50 bytes: row 1 starts in the middle of byte 2.
TEST_P(Resampling, TheMaskOf20PixelsARowHasNoPadding)
{
    ArgbImage picture(20, 20);
    for (int row = 0; row < 20; ++row)
        picture.At(0, row) = kHalfRed;
    Answer(picture);
    Scale(24);
    const std::vector<std::uint8_t> twoRows = {0x7F, 0xFF, 0xF7, 0xFF, 0xFF};
    ASSERT_GE(m_maskBytes.size(), 50u);
    for (std::size_t start = 0; start < 50; start += twoRows.size())
    {
        const auto first = m_maskBytes.begin() + static_cast<std::ptrdiff_t>(start);
        EXPECT_EQ(std::vector<std::uint8_t>(first, first + 5), twoRows) << "byte " << start;
    }
}

// The platform reads 4 bytes for each row of 20 pixels, so it takes the bits of the next rows early.
TEST_P(Resampling, TheMaskOf20PixelsARowIsOutOfStepInTheIcon)
{
    ArgbImage picture(20, 20, kHalfRed);
    for (int x = 0; x < 20; ++x)
        picture.At(x, 1) = 0;
    Answer(picture);
    const std::vector<std::string> mask = MaskOf(Scale(24).get());
    ASSERT_EQ(mask.size(), 20u);
    EXPECT_EQ(mask[0], "....................");
    EXPECT_EQ(mask[1], "########............");
    EXPECT_EQ(mask[2], "....................");
}

// 13 rows of 4 bytes are more than the 50 bytes of the mask.
TEST_P(Resampling, WhatThePlatformReadsBehindTheMaskIsTransparent)
{
    Answer(ArgbImage(20, 20, kHalfRed));
    const OwnedIcon icon = Scale(24);
    ASSERT_EQ(m_maskBytes.size(), 80u);
    for (std::size_t i = 0; i < 80; ++i)
        EXPECT_EQ(m_maskBytes[i], i < 50 ? 0x00 : 0xFF) << "byte " << i;
    const std::vector<std::string> mask = MaskOf(icon.get());
    EXPECT_EQ(mask[11], "....................");
    EXPECT_EQ(mask[12], "................####");
    EXPECT_EQ(mask[13], "####################");
    EXPECT_EQ(mask[19], "####################");
}

TEST_P(Resampling, BitsBehindTheLastPixelAreTransparent)
{
    Answer(ArgbImage(3, 1, kHalfRed));
    Scale(24);
    EXPECT_EQ(m_maskBytes, (std::vector<std::uint8_t>{0x1F, 0xFF}));
}

TEST_P(Resampling, TheMaskOf32PixelsARowFitsTheIcon)
{
    ArgbImage picture(32, 3, kHalfRed);
    picture.At(0, 0) = 0x00FFFFFF;
    picture.At(31, 1) = 0;
    picture.At(15, 2) = 0;
    picture.At(16, 2) = 0;
    Answer(picture);
    const std::vector<std::string> expected = {"#...............................",
                                               "...............................#",
                                               "...............##..............."};
    EXPECT_EQ(MaskOf(Scale(24).get()), expected);
}

TEST_P(Resampling, ASinglePixelIsAnIconToo)
{
    Answer(ArgbImage(1, 1, kHalfRed));
    const OwnedIcon icon = Scale(24);
    EXPECT_EQ(m_maskBytes, (std::vector<std::uint8_t>{0x7F, 0xFF}));
    EXPECT_TRUE(HasSize(icon.get(), 1, 1));
}

TEST_P(Resampling, NothingIsLeftBehind)
{
    Scale(24);
    EXPECT_NO_LEAK([this] { ScaleUnrecorded(); });
}

TEST_P(Resampling, NothingIsLeftBehindWhenAStepFails)
{
    Scale(24);
    for (const ImagingStep step :
         {ImagingStep::CreateSource, ImagingStep::CreateScaler, ImagingStep::InitializeScaler,
          ImagingStep::CreateConverter, ImagingStep::InitializeConverter, ImagingStep::GetSize})
    {
        Imaging().FailAt(step);
        EXPECT_NO_LEAK([this] { EXPECT_FALSE(ScaleUnrecorded()); }) << static_cast<int>(step);
    }
}

TEST_P(Resampling, NothingIsLeftBehindWithoutASection)
{
    const FailNthCall<decltype(::CreateDIBSection)> fail(
        m_library.Module(), "gdi32.dll", "CreateDIBSection",
        FailNthCall<decltype(::CreateDIBSection)>::kEveryCall, nullptr);
    EXPECT_NO_LEAK([this] { EXPECT_FALSE(ScaleUnrecorded()); });
}

TEST_P(Resampling, NothingIsLeftBehindWithoutANewIcon)
{
    const FailNthCall<decltype(::CreateIconIndirect)> fail(
        m_library.Module(), "user32.dll", "CreateIconIndirect",
        FailNthCall<decltype(::CreateIconIndirect)>::kEveryCall, nullptr);
    EXPECT_NO_LEAK([this] { EXPECT_FALSE(ScaleUnrecorded()); });
}

namespace
{
class ImagingFactories : public testing::Test
{
protected:
    // How often each overload asks for a factory when it scales once more.
    int AskedByHandle()
    {
        return AskedBy([this] { ScaleHandle(); });
    }
    int AskedByResource()
    {
        return AskedBy([this] { ScaleResource(); });
    }

    void ScaleHandle()
    {
        OwnedIcon(m_library.CopyOf(kScaleHandle)(24, IconOf(32, 32, kOtherColor).release()));
    }

    void ScaleResource() { OwnedIcon(m_library.CopyOf(kScaleResource)(24, IDI_16_32, 32)); }

    CallLog m_log;
    const LibraryCopy m_library;

private:
    int AskedBy(const std::function<void()>& scale)
    {
        const ImportSpy<decltype(::CoCreateInstance)> create(
            m_library.Module(), "ole32.dll", "CoCreateInstance",
            [this](REFCLSID, IUnknown*, DWORD, REFIID, void** created)
            {
                *created = m_imaging.Factory();
                return S_OK;
            });
        scale();
        return create.CallCount();
    }

    FakeImaging m_imaging{m_log, ArgbImage(24, 24, kOtherColor)};
};

// An icon with alpha keeps its colours, its mask, and the colours once more as they are drawn.
constexpr HandleGrowth kOneIcon = {{HandleKind::Icon, 1}, {HandleKind::Bitmap, 3}};
}

TEST_F(ImagingFactories, EachOverloadHasItsOwn)
{
    EXPECT_EQ(AskedByHandle(), 1);
    EXPECT_EQ(AskedByHandle(), 0);
    EXPECT_EQ(AskedByResource(), 1);
    EXPECT_EQ(AskedByResource(), 0);
    EXPECT_EQ(AskedByHandle(), 0);
}

TEST_F(ImagingFactories, TheOrderOfTheOverloadsDoesNotMatter)
{
    EXPECT_EQ(AskedByResource(), 1);
    EXPECT_EQ(AskedByHandle(), 1);
}

TEST_F(ImagingFactories, WithoutComThereIsNone)
{
    const HICON icon = IconOf(32, 32, kOtherColor).release();
    HICON scaled = icon;
    std::thread([&] { scaled = m_library.CopyOf(kScaleHandle)(24, icon); }).join();
    EXPECT_EQ(scaled, nullptr);
    EXPECT_TRUE(HasSize(icon, 32, 32));
    ::DestroyIcon(icon);
}

TEST_F(ImagingFactories, WithoutOneAResourceLeavesItsLoadedIconBehind)
{
    const FailNthCall<decltype(::CoCreateInstance)> fail(
        m_library.Module(), "ole32.dll", "CoCreateInstance",
        FailNthCall<decltype(::CoCreateInstance)>::kEveryCall, E_FAIL);
    const auto scale = m_library.CopyOf(kScaleResource);
    EXPECT_TRUE(LeavesPerCall(kOneIcon, [&] { EXPECT_EQ(scale(24, IDI_16_32, 32), nullptr); }));
}

TEST_F(ImagingFactories, WithoutOneAHandleIsNotCopiedEither)
{
    const FailNthCall<decltype(::CoCreateInstance)> fail(
        m_library.Module(), "ole32.dll", "CoCreateInstance",
        FailNthCall<decltype(::CoCreateInstance)>::kEveryCall, E_FAIL);
    const auto scale = m_library.CopyOf(kScaleHandle);
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    EXPECT_NO_LEAK([&] { EXPECT_EQ(scale(24, icon.get()), nullptr); });
    EXPECT_TRUE(IsIcon(icon.get()));
}

TEST_F(ImagingFactories, NoneIsMadeForAResourceOfTheRightSize)
{
    const ImportSpy<decltype(::CoCreateInstance)> create(m_library.Module(), "ole32.dll", "CoCreateInstance");
    const OwnedIcon icon(m_library.CopyOf(kScaleResource)(32, IDI_16_32, 32));
    EXPECT_TRUE(SamePixels(FramedPicture(32, 32), PixelsOf(icon.get())));
    EXPECT_EQ(create.CallCount(), 0);
}

TEST_F(ImagingFactories, NoneIsMadeForAHandleOfTheRightSize)
{
    const ImportSpy<decltype(::CoCreateInstance)> create(m_library.Module(), "ole32.dll", "CoCreateInstance");
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    EXPECT_EQ(m_library.CopyOf(kScaleHandle)(32, icon.get()), icon.get());
    EXPECT_EQ(create.CallCount(), 0);
}

namespace
{
// The platform's own imaging component, in the library that the program is linked to.
class CreateScaledIconOfHandle : public testing::Test
{
protected:
    CreateScaledIconOfHandle() { NeedCom(); }

    static OwnedIcon Scale(UINT targetSize, OwnedIcon icon)
    {
        return OwnedIcon(CreateScaledIcon(targetSize, icon.release()));
    }
};

class CreateScaledIconOfResource : public testing::Test
{
protected:
    CreateScaledIconOfResource() { NeedCom(); }

    // The calls until the imaging component is reached, and the destruction of icons.
    static Lines CallsOf(UINT targetSize, UINT resourceId, UINT loadSize)
    {
        CallLog log;
        log.Name(Program(), "program");
        const RecordNamed<decltype(::LoadImageW)> load(log, VxDpiModule(), "user32.dll", "LoadImageW",
                                                       "loaded");
        const RecordCalls<decltype(::DestroyIcon)> destroy(log, VxDpiModule(), "user32.dll", "DestroyIcon");
        OwnedIcon(CreateScaledIcon(targetSize, resourceId, loadSize));
        return log.Lines();
    }
};

class FakeLoadImage : public ImportSpy<decltype(::LoadImageW)>
{
public:
    explicit FakeLoadImage(HANDLE answer)
        : ImportSpy(VxDpiModule(), "user32.dll", "LoadImageW",
                    [answer](HINSTANCE, LPCWSTR, UINT, int, int, UINT) { return answer; })
    {
    }
};
}

TEST_F(CreateScaledIconOfHandle, GivesASquareOfTheTargetSize)
{
    for (const UINT size : {1u, 15u, 16u, 24u, 33u, 48u, 64u, 256u})
    {
        const OwnedIcon icon = Scale(size, IconOf(32, 32, kOtherColor));
        const LONG side = static_cast<LONG>(size);
        ASSERT_TRUE(HasSize(icon.get(), side, side));
        EXPECT_TRUE(SamePixels(ArgbImage(side, side, kOtherColor), PixelsOf(icon.get())));
    }
}

TEST_F(CreateScaledIconOfHandle, KeepsHalfTransparency)
{
    const OwnedIcon icon = Scale(48, IconOf(32, 32, kHalfRed));
    ASSERT_TRUE(HasSize(icon.get(), 48, 48));
    EXPECT_TRUE(SamePixels(ArgbImage(48, 48, kHalfRed), PixelsOf(icon.get())));
    EXPECT_EQ(MaskOf(icon.get()), std::vector<std::string>(48, std::string(48, '.')));
}

TEST_F(CreateScaledIconOfHandle, WhereTheIconWasTransparentTheResultIs)
{
    ArgbImage picture(32, 32, kHalfRed);
    for (int y = 0; y < 32; ++y)
    {
        for (int x = 0; x < 16; ++x)
            picture.At(x, y) = 0;
    }
    const OwnedIcon icon = Scale(64, IconOf(picture));
    const std::vector<std::string> mask = MaskOf(icon.get());
    ASSERT_EQ(mask.size(), 64u);
    for (const std::string& row : mask)
    {
        EXPECT_EQ(row.substr(0, 24), std::string(24, '#'));
        EXPECT_EQ(row.substr(40), std::string(24, '.'));
    }
    EXPECT_EQ(PixelsOf(icon.get()).At(10, 32) >> 24, 0u);
    EXPECT_EQ(PixelsOf(icon.get()).At(54, 32), kHalfRed);
}

TEST_F(CreateScaledIconOfHandle, ConsumesTheIcon)
{
    const HICON source = IconOf(32, 32, kOtherColor).release();
    const OwnedIcon icon(CreateScaledIcon(24, source));
    EXPECT_TRUE(HasSize(icon.get(), 24, 24));
    EXPECT_FALSE(IsIcon(source));
}

TEST_F(CreateScaledIconOfHandle, ReturnsAnIconOfTheTargetSizeItself)
{
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    EXPECT_EQ(CreateScaledIcon(32, icon.get()), icon.get());
    EXPECT_TRUE(HasSize(icon.get(), 32, 32));
}

TEST_F(CreateScaledIconOfHandle, OnlyTheWidthTellsWhetherAnIconHasTheSize)
{
    const OwnedIcon icon = IconOf(32, 16, kOtherColor);
    EXPECT_EQ(CreateScaledIcon(32, icon.get()), icon.get());
}

TEST_F(CreateScaledIconOfHandle, AnOblongIconBecomesASquare)
{
    EXPECT_TRUE(HasSize(Scale(16, IconOf(32, 16, kOtherColor)).get(), 16, 16));
}

TEST_F(CreateScaledIconOfHandle, AnIconOfTwoColoursIsResampledEvenToItsOwnSize)
{
    const HICON source = MonochromeIcon(32, 32).release();
    const OwnedIcon icon(CreateScaledIcon(32, source));
    EXPECT_NE(icon.get(), source);
    EXPECT_TRUE(HasSize(icon.get(), 32, 32));
    EXPECT_FALSE(IsIcon(source));
}

TEST_F(CreateScaledIconOfHandle, AnIconOfTwoColoursCountsAs0Wide)
{
    const OwnedIcon icon = MonochromeIcon(32, 32);
    EXPECT_EQ(CreateScaledIcon(0, icon.get()), icon.get());
}

TEST_F(CreateScaledIconOfHandle, AnIconWhoseColoursCannotBeMeasuredCountsAs0Wide)
{
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    const FailNthCall<decltype(::GetObjectW)> fail(VxDpiModule(), "gdi32.dll", "GetObjectW", 1, 0);
    EXPECT_EQ(CreateScaledIcon(0, icon.get()), icon.get());
}

TEST_F(CreateScaledIconOfHandle, AllBitsOfTheWidthCount)
{
    const HICON source = IconOf(32, 32, kOtherColor).release();
    const ImportSpy<decltype(::GetObjectW)> wide(VxDpiModule(), "gdi32.dll", "GetObjectW",
                                                 [&](HANDLE object, int size, void* buffer)
                                                 {
                                                     const int written =
                                                         wide.Original()(object, size, buffer);
                                                     static_cast<BITMAP*>(buffer)->bmWidth += 0x10000;
                                                     return written;
                                                 });
    const OwnedIcon icon(CreateScaledIcon(32, source));
    EXPECT_FALSE(IsIcon(source));
    EXPECT_TRUE(HasSize(icon.get(), 32, 32));
}

TEST_F(CreateScaledIconOfHandle, ATargetOf0GivesNothingAndConsumesTheIcon)
{
    const HICON source = IconOf(32, 32, kOtherColor).release();
    EXPECT_EQ(CreateScaledIcon(0, source), nullptr);
    EXPECT_FALSE(IsIcon(source));
}

TEST_F(CreateScaledIconOfHandle, ATargetThatIsTooLargeGivesNothingAndConsumesTheIcon)
{
    for (const UINT size : {1000000u, 0x40000000u, 0x7FFFFFFFu, 0xFFFFFFFFu})
    {
        const HICON source = IconOf(32, 32, kOtherColor).release();
        EXPECT_EQ(CreateScaledIcon(size, source), nullptr) << size;
        EXPECT_FALSE(IsIcon(source)) << size;
    }
}

TEST_F(CreateScaledIconOfHandle, WithoutAnIconThePlatformIsNotAsked)
{
    const ImportSpy<decltype(::GetIconInfo)> getInfo(VxDpiModule(), "user32.dll", "GetIconInfo");
    EXPECT_EQ(CreateScaledIcon(32, HICON(nullptr)), nullptr);
    EXPECT_EQ(getInfo.CallCount(), 0);
}

TEST_F(CreateScaledIconOfHandle, AHandleThatIsNoIconGivesNothing)
{
    const ImportSpy<decltype(::DestroyIcon)> destroy(VxDpiModule(), "user32.dll", "DestroyIcon");
    const HICON dead = IconOf(32, 32, kOtherColor).release();
    ::DestroyIcon(dead);
    EXPECT_EQ(CreateScaledIcon(32, dead), nullptr);
    EXPECT_EQ(CreateScaledIcon(24, dead), nullptr);
    EXPECT_EQ(destroy.CallCount(), 0);
}

TEST_F(CreateScaledIconOfHandle, AnIconThatCannotBeExaminedStaysTheCallers)
{
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    const FailNthCall<decltype(::GetIconInfo)> fail(VxDpiModule(), "user32.dll", "GetIconInfo", 1, FALSE);
    EXPECT_EQ(CreateScaledIcon(24, icon.get()), nullptr);
    EXPECT_TRUE(IsIcon(icon.get()));
}

TEST_F(CreateScaledIconOfHandle, LeavesNothingBehindButItsResult)
{
    EXPECT_NO_LEAK([] { Scale(20, IconOf(32, 32, kOtherColor)); });
    EXPECT_NO_LEAK([] { Scale(32, IconOf(32, 32, kOtherColor)); });
    EXPECT_NO_LEAK([] { Scale(0, IconOf(32, 32, kOtherColor)); });
    EXPECT_NO_LEAK([] { Scale(20, MonochromeIcon(32, 32)); });
}

TEST_F(CreateScaledIconOfResource, GivesASquareOfTheTargetSize)
{
    const ResourceDll dll;
    const ResourcesFrom resources(dll.Module());
    for (const UINT size : {1u, 16u, 19u, 33u, 64u, 256u})
    {
        const OwnedIcon icon(CreateScaledIcon(size, IDI_DLL_20, 20));
        const LONG side = static_cast<LONG>(size);
        ASSERT_TRUE(HasSize(icon.get(), side, side));
        EXPECT_TRUE(SamePixels(ArgbImage(side, side, kOtherColor), PixelsOf(icon.get())));
    }
}

TEST_F(CreateScaledIconOfResource, LoadsFromTheFrameworksResourceModule)
{
    const OwnedIcon ofProgram(CreateScaledIcon(16, IDI_16_32, 16));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(ofProgram.get())));
    const ResourceDll dll;
    const ResourcesFrom resources(dll.Module());
    const OwnedIcon ofDll(CreateScaledIcon(16, IDI_16_32, 16));
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(ofDll.get())));
}

TEST_F(CreateScaledIconOfResource, AsksForAnIconInTheLoadSizeWithoutFlags)
{
    EXPECT_EQ(CallsOf(24, IDI_24_48, 48),
              (Lines{"LoadImageW(program, @302, 1, 48, 48, 0)", "DestroyIcon(loaded1)"}));
}

TEST_F(CreateScaledIconOfResource, ReturnsAnIconOfTheTargetSizeAsItWasLoaded)
{
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    const FakeLoadImage fake(icon.get());
    EXPECT_EQ(CreateScaledIcon(48, IDI_16_32, 48), icon.get());
    EXPECT_TRUE(IsIcon(icon.get()));
}

TEST_F(CreateScaledIconOfResource, ReturnsTheIconAsItWasLoadedForTwoSizesOf0)
{
    const OwnedIcon icon = IconOf(32, 32, kOtherColor);
    const FakeLoadImage fake(icon.get());
    EXPECT_EQ(CreateScaledIcon(0, IDI_16_32, 0), icon.get());
    EXPECT_TRUE(IsIcon(icon.get()));
}

// What counts is the size asked for, not that of the icon that came.
TEST_F(CreateScaledIconOfResource, ResamplesWhenTheSizesDifferWhateverWasLoaded)
{
    const HICON loaded = IconOf(24, 24, kOtherColor).release();
    const FakeLoadImage fake(loaded);
    const OwnedIcon icon(CreateScaledIcon(24, IDI_16_32, 32));
    EXPECT_NE(icon.get(), loaded);
    EXPECT_TRUE(HasSize(icon.get(), 24, 24));
    EXPECT_FALSE(IsIcon(loaded));
}

TEST_F(CreateScaledIconOfResource, ThePixelsAreThoseOfTheLoadedIcon)
{
    const FakeLoadImage fake(IconOf(32, 32, kHalfRed).release());
    const OwnedIcon icon(CreateScaledIcon(20, IDI_16_32, 32));
    EXPECT_TRUE(SamePixels(ArgbImage(20, 20, kHalfRed), PixelsOf(icon.get())));
}

TEST_F(CreateScaledIconOfResource, AnIconThatIsNowhereGivesNothing)
{
    EXPECT_EQ(CreateScaledIcon(24, IDR_MISSING, 32), nullptr);
    EXPECT_EQ(CreateScaledIcon(32, IDR_MISSING, 32), nullptr);
    EXPECT_EQ(CallsOf(24, IDR_MISSING, 32), Lines{"LoadImageW(program, @999, 1, 32, 32, 0)"});
}

TEST_F(CreateScaledIconOfResource, AnIdIsLookedUpByItsLow16Bits)
{
    EXPECT_EQ(CallsOf(32, 0xFFFF0000u + IDI_16_32, 32), Lines{"LoadImageW(program, @301, 1, 32, 32, 0)"});
}

TEST_F(CreateScaledIconOfResource, SizesArePassedOnAsTheyAre)
{
    const FakeLoadImage fake(nullptr);
    EXPECT_EQ(CallsOf(24, IDI_16_32, 0), Lines{"LoadImageW(program, @301, 1, 0, 0, 0)"});
    EXPECT_EQ(CallsOf(24, IDI_16_32, 0xFFFFFFFF), Lines{"LoadImageW(program, @301, 1, -1, -1, 0)"});
}

TEST_F(CreateScaledIconOfResource, ATargetOf0GivesNothing)
{
    EXPECT_EQ(CallsOf(0, IDI_16_32, 32),
              (Lines{"LoadImageW(program, @301, 1, 32, 32, 0)", "DestroyIcon(loaded1)"}));
    EXPECT_EQ(CreateScaledIcon(0, IDI_16_32, 32), nullptr);
}

TEST_F(CreateScaledIconOfResource, LeavesNothingBehindButItsResult)
{
    EXPECT_NO_LEAK([] { OwnedIcon(CreateScaledIcon(20, IDI_16_32, 32)); });
    EXPECT_NO_LEAK([] { OwnedIcon(CreateScaledIcon(32, IDI_16_32, 32)); });
    EXPECT_NO_LEAK([] { CreateScaledIcon(0, IDI_16_32, 32); });
    EXPECT_NO_LEAK([] { CreateScaledIcon(20, IDR_MISSING, 32); });
}
