#include <vxdpi/Images.h>

#include "foundation/LibraryModule.h"
#include "imaging/BitmapFields.h"
#include "imaging/HundredTimes.h"
#include "imaging/Icons.h"
#include "foundation/ShortMemory.h"
#include "png/LoadingCalls.h"
#include "support/AtTestDpi.h"
#include "support/CallLog.h"
#include "support/HandleCount.h"
#include "support/ImportSpy.h"
#include "support/ResourceDll.h"
#include "support/TestPictures.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <afxdll_.h>

#include <climits>
#include <memory>
#include <ostream>
#include <type_traits>
#include <vector>

namespace
{
using Sizes = std::vector<UINT>;
using Lines = CallLog::LineList;

class OpenIconSet : public CDpiAwareIcon
{
public:
    using CDpiAwareIcon::FindScaledIcon;
    using CDpiAwareIcon::GetScaledIcon;

    OpenIconSet& operator=(const OpenIconSet& other)
    {
        CDpiAwareIcon::operator=(other);
        return *this;
    }

    IconFields& Fields() { return IconFieldsOf(*this); }
    const Sizes& CurrentSizes() { return *Fields().pCurrentSizes; }
};

// The calls with which icons are loaded and stretched. The module is "program", what was loaded "loaded".
class IconCalls
{
public:
    explicit IconCalls(CallLog& log)
        : m_load(VxDpiModule(), "user32.dll", "LoadImageW",
                 [this, &log](HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags)
                 {
                     log.WriteCall("LoadImageW", module, name, type, cx, cy, flags);
                     const HANDLE icon = m_load.Original()(module, name, type, cx, cy, flags);
                     log.Name(icon, "loaded");
                     return icon;
                 }),
          m_copy(log, VxDpiModule(), "user32.dll", "CopyImage")
    {
        log.Name(::GetModuleHandleW(nullptr), "program");
    }

private:
    ImportSpy<decltype(::LoadImageW)> m_load;
    RecordCalls<decltype(::CopyImage)> m_copy;
};

// The sizes that a set asks LoadImage for, which refuses or answers with an icon of 16 pixels.
class LoadAnswer : public ImportSpy<decltype(::LoadImageW)>
{
public:
    LoadAnswer() : ImportSpy(VxDpiModule(), "user32.dll", "LoadImageW", Handler(*this, nullptr)) {}

    explicit LoadAnswer(OwnedIcon answer)
        : ImportSpy(VxDpiModule(), "user32.dll", "LoadImageW", Handler(*this, answer.get())),
          m_answer(std::move(answer))
    {
    }

    const std::vector<int>& Widths() const { return m_widths; }
    const std::vector<int>& Heights() const { return m_heights; }

private:
    static std::function<HANDLE(HINSTANCE, LPCWSTR, UINT, int, int, UINT)> Handler(LoadAnswer& self,
                                                                                   HICON answer)
    {
        return [&self, answer](HINSTANCE, LPCWSTR, UINT, int cx, int cy, UINT)
        {
            self.m_widths.push_back(cx);
            self.m_heights.push_back(cy);
            return answer;
        };
    }

    std::vector<int> m_widths;
    std::vector<int> m_heights;
    OwnedIcon m_answer;
};

OwnedIcon TestIcon(int size = 16)
{
    return OwnedIcon(static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_16_32),
                                                     IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

// 16 and 32 pixels for 96 DPI, 24 and 48 pixels for 192 DPI: an icon of 16 pixels.
class IconSet : public testing::Test
{
protected:
    IconSet()
    {
        m_icons.AddResourceForDpi(96, IDI_16_32, {16, 32});
        m_icons.AddResourceForDpi(192, IDI_24_48, {24, 48});
    }

    OwnedIcon Create(UINT dpi) { return OwnedIcon(m_icons.CreateAwareIconSpecifyDpi(dpi)); }

    Lines CallsOfCreate(UINT dpi)
    {
        CallLog log;
        const IconCalls calls(log);
        Create(dpi);
        return log.Lines();
    }

    OpenIconSet m_icons;
};

class IconSetRegistration : public testing::Test
{
protected:
    testing::AssertionResult HasRange(UINT smallest, UINT largest)
    {
        const IconFields& fields = m_icons.Fields();
        if (fields.nSmallestSize == smallest && fields.nLargestSize == largest)
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "from " << fields.nSmallestSize << " to " << fields.nLargestSize;
    }

    OpenIconSet m_icons;
};

class FindScaledIcon : public testing::Test
{
protected:
    // A set whose smallest size is 16 and whose largest is 64, and whose chosen resource offers these sizes.
    UINT Found(const Sizes& offered, UINT size)
    {
        OpenIconSet icons;
        icons.AddResourceForDpi(192, IDI_LARGE, {16, 64});
        icons.AddResourceForDpi(96, IDI_16_32, offered);
        OwnedIcon(icons.CreateAwareIconSpecifyDpi(96));
        return icons.FindScaledIcon(size);
    }
};

using GetScaledIcon = IconSet;
using CreateAwareIcon = IconSet;

// An icon of this size drawn for one DPI, and the size that it has for another one.
struct IconSizeForDpi
{
    UINT size;
    UINT resourceDpi;
    UINT dpi;
    int scaled;
};

void PrintTo(const IconSizeForDpi& row, std::ostream* stream)
{
    *stream << row.size << " at " << row.resourceDpi << " DPI, for " << row.dpi << " DPI";
}

class CreateAwareIconOfSize : public testing::TestWithParam<IconSizeForDpi>
{
};
}

TEST_F(IconSetRegistration, StartsEmpty)
{
    EXPECT_TRUE(HasRange(0xFFFFFFFF, 0));
    ASSERT_NE(m_icons.Fields().pCurrentSizes, nullptr);
    EXPECT_TRUE(m_icons.CurrentSizes().empty());
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 96u);
    EXPECT_TRUE(m_icons.Fields().resources.pEntries->empty());
}

TEST_F(IconSetRegistration, KeepsTheResourceUnchanged)
{
    m_icons.AddResourceForDpi(120, 7, {48, 16, 32});
    const std::vector<ResourceInfo*>& entries = *m_icons.Fields().resources.pEntries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0]->nDpi, 120u);
    EXPECT_EQ(entries[0]->nResourceId, 7u);
    EXPECT_EQ(entries[0]->values, (Sizes{48, 16, 32}));
    EXPECT_TRUE(m_icons.CurrentSizes().empty());
}

TEST_F(IconSetRegistration, KnowsTheSmallestAndTheLargestSize)
{
    m_icons.AddResourceForDpi(96, 7, {24, 16, 48, 32});
    EXPECT_TRUE(HasRange(16, 48));
}

TEST_F(IconSetRegistration, OneSizeIsTheSmallestAndTheLargest)
{
    m_icons.AddResourceForDpi(96, 7, {24});
    EXPECT_TRUE(HasRange(24, 24));
}

TEST_F(IconSetRegistration, AllResourcesCount)
{
    m_icons.AddResourceForDpi(96, 7, {24, 32});
    m_icons.AddResourceForDpi(144, 8, {16, 20});
    EXPECT_TRUE(HasRange(16, 32));
    m_icons.AddResourceForDpi(192, 9, {48, 64});
    EXPECT_TRUE(HasRange(16, 64));
    m_icons.AddResourceForDpi(240, 10, {20, 40});
    EXPECT_TRUE(HasRange(16, 64));
}

TEST_F(IconSetRegistration, SizesOfAReplacedResourceGoOnCounting)
{
    m_icons.AddResourceForDpi(96, 7, {16, 64});
    m_icons.AddResourceForDpi(96, 8, {32});
    EXPECT_TRUE(HasRange(16, 64));
    EXPECT_EQ(m_icons.Fields().resources.pEntries->size(), 1u);
}

TEST_F(IconSetRegistration, NoSizesChangeNothing)
{
    m_icons.AddResourceForDpi(96, 7, {});
    EXPECT_TRUE(HasRange(0xFFFFFFFF, 0));
    m_icons.AddResourceForDpi(96, 7, {16, 32});
    m_icons.AddResourceForDpi(144, 8, {});
    EXPECT_TRUE(HasRange(16, 32));
    EXPECT_EQ(m_icons.Fields().resources.pEntries->size(), 2u);
}

TEST_F(IconSetRegistration, SizesHaveNoSign)
{
    m_icons.AddResourceForDpi(96, 7, {0x80000000, 16});
    EXPECT_TRUE(HasRange(16, 0x80000000));
    m_icons.AddResourceForDpi(144, 8, {0xFFFFFFFF, 0});
    EXPECT_TRUE(HasRange(0, 0xFFFFFFFF));
}

TEST_F(IconSetRegistration, ALifeWithoutUseLeavesNothing)
{
    EXPECT_NO_LEAK([] { HundredTimes([] { const OpenIconSet icons; }); });
}

TEST_F(IconSetRegistration, AThousandRegistrationsLeaveNothing)
{
    EXPECT_NO_LEAK([this] { HundredTimes([this] { m_icons.AddResourceForDpi(96, 7, {16, 32, 48}); }); });
}

TEST_F(IconSetRegistration, IsNeitherPolymorphicNorCopied)
{
    static_assert(!std::is_polymorphic_v<CDpiAwareIcon>);
    static_assert(!std::is_copy_constructible_v<CDpiAwareIcon>);
    static_assert(std::is_copy_assignable_v<CDpiAwareIcon>);
}

TEST_F(IconSetRegistration, AssignmentCopiesEveryFieldAsItStands)
{
    OpenIconSet source;
    source.AddResourceForDpi(96, IDI_16_32, {16, 32});
    OwnedIcon(source.CreateAwareIconSpecifyDpi(144));
    const IconFields kept = m_icons.Fields();

    EXPECT_EQ(&(m_icons = source), &m_icons);

    EXPECT_TRUE(HasRange(16, 32));
    EXPECT_EQ(m_icons.Fields().pCurrentSizes, source.Fields().pCurrentSizes);
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 144u);
    EXPECT_EQ(m_icons.Fields().resources.pMutex, source.Fields().resources.pMutex);
    EXPECT_EQ(m_icons.Fields().resources.pEntries, source.Fields().resources.pEntries);
    m_icons.Fields() = kept;
}

TEST_F(IconSetRegistration, AssignmentLeavesTheListsOfTheTargetAllocated)
{
    OpenIconSet source;
    m_icons.AddResourceForDpi(96, 7, {16});
    const IconFields kept = m_icons.Fields();
    m_icons = source;
    m_icons.Fields() = kept;
    EXPECT_EQ(m_icons.Fields().resources.pEntries->size(), 1u);
    EXPECT_TRUE(m_icons.CurrentSizes().empty());
}

TEST_F(IconSetRegistration, AfterAssignmentListsAreSharedAndSizesAreNot)
{
    OpenIconSet source;
    source.AddResourceForDpi(96, IDI_16_32, {16, 32});
    const IconFields kept = m_icons.Fields();
    m_icons = source;
    m_icons.AddResourceForDpi(192, IDI_24_48, {24, 48});
    OwnedIcon(m_icons.CreateAwareIconSpecifyDpi(192));
    EXPECT_EQ(source.Fields().nLargestSize, 32u);
    EXPECT_EQ(source.CurrentSizes(), (Sizes{24, 48}));
    EXPECT_EQ(source.Fields().resources.pEntries->size(), 2u);
    EXPECT_EQ(source.Fields().resources.nCurrentDpi, 96u);
    m_icons.Fields() = kept;
}

TEST_F(FindScaledIcon, ASizeUpToTheSmallestIsTheSmallest)
{
    EXPECT_EQ(Found({20, 32}, 0), 16u);
    EXPECT_EQ(Found({20, 32}, 1), 16u);
    EXPECT_EQ(Found({20, 32}, 16), 16u);
    EXPECT_EQ(Found({48, 16, 32}, 16), 16u);
}

TEST_F(FindScaledIcon, ALargerSizeIsTheFirstThatIsLargeEnough)
{
    EXPECT_EQ(Found({20, 32}, 17), 20u);
    EXPECT_EQ(Found({20, 32}, 20), 20u);
    EXPECT_EQ(Found({20, 32}, 21), 32u);
    EXPECT_EQ(Found({16, 32, 48}, 32), 32u);
    EXPECT_EQ(Found({16, 32, 48}, 33), 48u);
}

TEST_F(FindScaledIcon, TheOrderOfRegistrationGoesBeforeTheSize)
{
    EXPECT_EQ(Found({48, 16, 32}, 20), 48u);
    EXPECT_EQ(Found({48, 16, 32}, 48), 48u);
    EXPECT_EQ(Found({32, 48, 20}, 17), 32u);
    EXPECT_EQ(Found({17, 48, 20}, 18), 48u);
}

TEST_F(FindScaledIcon, ASizeAboveAllIsTheLargestOfAllResources)
{
    EXPECT_EQ(Found({48, 16, 32}, 49), 64u);
    EXPECT_EQ(Found({20, 32}, 100), 64u);
    EXPECT_EQ(Found({20, 32}, 0xFFFFFFFF), 64u);
}

TEST_F(FindScaledIcon, SizesHaveNoSign)
{
    EXPECT_EQ(Found({20, 0x80000000}, 40), 0x80000000u);
    EXPECT_EQ(Found({20, 32}, 0x80000000), 64u);
}

TEST_F(FindScaledIcon, BeforeAnyIconWasMadeNoResourceIsChosen)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_16_32, {16, 32, 48});
    EXPECT_EQ(icons.FindScaledIcon(16), 16u);
    EXPECT_EQ(icons.FindScaledIcon(20), 48u);
}

TEST_F(FindScaledIcon, WithoutSizesTheLargestNumberIsTheSmallest)
{
    OpenIconSet icons;
    EXPECT_EQ(icons.FindScaledIcon(16), 0xFFFFFFFFu);
    EXPECT_EQ(icons.FindScaledIcon(0xFFFFFFFF), 0xFFFFFFFFu);
}

TEST_F(FindScaledIcon, WithoutAListOfSizesThereIsNone)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_16_32, {16, 32});
    const ChangedField<Sizes*> noSizes(icons.Fields().pCurrentSizes, nullptr);
    EXPECT_EQ(icons.FindScaledIcon(16), 0u);
    EXPECT_EQ(icons.FindScaledIcon(20), 0u);
}

TEST_F(GetScaledIcon, LoadsTheSizeThatIsOnOffer)
{
    CallLog log;
    const IconCalls calls(log);
    const OwnedIcon icon(m_icons.GetScaledIcon(16, IDI_16_32));
    EXPECT_EQ(log.Lines(), Lines{"LoadImageW(program, @301, 1, 16, 16, 0)"});
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(icon.get())));
}

TEST_F(GetScaledIcon, StretchesAnotherSize)
{
    CallLog log;
    const IconCalls calls(log);
    const OwnedIcon icon(m_icons.GetScaledIcon(12, IDI_16_32));
    EXPECT_EQ(log.Lines(),
              (Lines{"LoadImageW(program, @301, 1, 16, 16, 0)", "CopyImage(loaded, 1, 12, 12, 12)"}));
    EXPECT_TRUE(HasSize(icon.get(), 12, 12));
}

TEST_F(GetScaledIcon, TakesTheResourceNamedAndTheSizesOfTheChosenOne)
{
    Create(96);
    CallLog log;
    const IconCalls calls(log);
    const OwnedIcon icon(m_icons.GetScaledIcon(20, IDI_24_48));
    EXPECT_EQ(log.Lines(),
              (Lines{"LoadImageW(program, @302, 1, 32, 32, 0)", "CopyImage(loaded, 1, 20, 20, 12)"}));
    EXPECT_TRUE(HasSize(icon.get(), 20, 20));
}

TEST_F(GetScaledIcon, LoadsANewIconEachTime)
{
    const OwnedIcon first(m_icons.GetScaledIcon(16, IDI_16_32));
    const OwnedIcon second(m_icons.GetScaledIcon(16, IDI_16_32));
    EXPECT_NE(first, second);
}

TEST_F(GetScaledIcon, WithoutAListOfSizesNothingIsLoaded)
{
    const ChangedField<Sizes*> noSizes(m_icons.Fields().pCurrentSizes, nullptr);
    const LoadAnswer load;
    EXPECT_EQ(m_icons.GetScaledIcon(16, IDI_16_32), nullptr);
    EXPECT_EQ(load.CallCount(), 0);
}

TEST_F(GetScaledIcon, ASizeOfNothingIsNotLoaded)
{
    m_icons.AddResourceForDpi(144, IDI_LARGE, {0});
    const LoadAnswer load;
    EXPECT_EQ(m_icons.GetScaledIcon(0, IDI_16_32), nullptr);
    EXPECT_EQ(load.CallCount(), 0);
}

TEST_F(GetScaledIcon, AResourceThatIsMissingGivesNothing)
{
    CallLog log;
    const IconCalls calls(log);
    EXPECT_EQ(m_icons.GetScaledIcon(12, IDR_MISSING), nullptr);
    EXPECT_EQ(log.Lines(), Lines{"LoadImageW(program, @999, 1, 16, 16, 0)"});
}

TEST_F(GetScaledIcon, AnIconThatCannotBeStretchedIsReturnedAsItIs)
{
    const FailNthCall<decltype(::CopyImage)> fail(VxDpiModule(), "user32.dll", "CopyImage", 1, nullptr);
    const OwnedIcon icon(m_icons.GetScaledIcon(12, IDI_16_32));
    EXPECT_EQ(fail.CallCount(), 1);
    EXPECT_TRUE(HasSize(icon.get(), 16, 16));
}

TEST_F(GetScaledIcon, LooksInTheResourceModuleOnly)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    const OwnedIcon icon(m_icons.GetScaledIcon(16, IDI_DLL_SHARED_ID));
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(PixelsOf(icon.get()).At(8, 8), kOtherColor);
    EXPECT_EQ(m_icons.GetScaledIcon(16, IDI_24_48), nullptr);
}

TEST_F(GetScaledIcon, LooksInNoOtherLibrary)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(FrameworkModule());
    const CDynLinkLibrary chained(dll.Module(), dll.Module());
    EXPECT_EQ(m_icons.GetScaledIcon(16, IDI_DLL_SHARED_ID), nullptr);
}

TEST_F(GetScaledIcon, AThousandIconsLeaveNothingButThemselves)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int pair = 0; pair < 50; ++pair)
            {
                OwnedIcon(m_icons.GetScaledIcon(16, IDI_16_32));
                OwnedIcon(m_icons.GetScaledIcon(12, IDI_16_32));
            }
        });
}

TEST_F(GetScaledIcon, FailuresLeaveNothing)
{
    EXPECT_NO_LEAK(
        [this]
        {
            m_icons.GetScaledIcon(12, IDR_MISSING);
            const FailNthCall<decltype(::CopyImage)> fail(VxDpiModule(), "user32.dll", "CopyImage", 1,
                                                          nullptr);
            OwnedIcon(m_icons.GetScaledIcon(12, IDI_16_32));
        });
}

TEST_F(CreateAwareIcon, AtTheDpiOfAResourceIsItsImage)
{
    const OwnedIcon icon = Create(96);
    ASSERT_NE(icon, nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(icon.get())));
    EXPECT_EQ(CallsOfCreate(96), Lines{"LoadImageW(program, @301, 1, 16, 16, 0)"});
}

// 16 pixels for 192 DPI are 12 for 144 DPI.
TEST_F(CreateAwareIcon, BelowTheDpiOfTheChosenResourceIsItsSmallestSizeShrunk)
{
    EXPECT_EQ(CallsOfCreate(144),
              (Lines{"LoadImageW(program, @302, 1, 16, 16, 0)", "CopyImage(loaded, 1, 12, 12, 12)"}));
    EXPECT_TRUE(HasSize(Create(144).get(), 12, 12));
}

TEST_F(CreateAwareIcon, AboveTheDpiOfEveryResourceTheFirstSizeThatIsLargeEnoughIsStretched)
{
    EXPECT_EQ(CallsOfCreate(240),
              (Lines{"LoadImageW(program, @302, 1, 24, 24, 0)", "CopyImage(loaded, 1, 20, 20, 12)"}));
    EXPECT_TRUE(HasSize(Create(240).get(), 20, 20));
}

TEST_F(CreateAwareIcon, AboveEverySizeOfTheResourceTheLargestOfAllIsAskedOfIt)
{
    m_icons.AddResourceForDpi(96, IDI_16_32, {16, 32, 64});
    EXPECT_EQ(CallsOfCreate(600),
              (Lines{"LoadImageW(program, @302, 1, 64, 64, 0)", "CopyImage(loaded, 1, 50, 50, 12)"}));
}

TEST_F(CreateAwareIcon, FollowsTheSystemsDpi)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_LARGE, {16, 32, 48});
    const OwnedIcon icon(icons.CreateAwareIconSpecifyDpi(TestDpi()));
    const LONG side = AtTestDpi(16, 20, 24, 32);
    EXPECT_TRUE(HasSize(icon.get(), side, side));
}

TEST_F(CreateAwareIcon, ChoosesTheResourceAsTheRegistryDoes)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_16_32, {16});
    icons.AddResourceForDpi(144, IDI_LARGE, {24});
    icons.AddResourceForDpi(192, IDI_24_48, {32});
    const auto sizesFor = [&icons](UINT dpi)
    {
        OwnedIcon(icons.CreateAwareIconSpecifyDpi(dpi));
        return icons.CurrentSizes();
    };
    EXPECT_EQ(sizesFor(96), Sizes{16});
    EXPECT_EQ(sizesFor(97), Sizes{24});
    EXPECT_EQ(sizesFor(145), Sizes{32});
    EXPECT_EQ(sizesFor(300), Sizes{32});
    EXPECT_EQ(sizesFor(72), Sizes{16});
}

TEST_F(CreateAwareIcon, RemembersDpiAndSizesOfTheResourceInTheirOrder)
{
    m_icons.AddResourceForDpi(120, IDI_LARGE, {48, 16, 32});
    Create(96);
    Create(110);
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 110u);
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{48, 16, 32}));
    Create(96);
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{16, 32}));
}

TEST_F(CreateAwareIcon, TheSizesAreACopy)
{
    Create(96);
    Sizes* const sizes = m_icons.Fields().pCurrentSizes;
    m_icons.AddResourceForDpi(96, IDI_16_32, {20});
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{16, 32}));
    Create(96);
    EXPECT_EQ(m_icons.CurrentSizes(), Sizes{20});
    EXPECT_EQ(m_icons.Fields().pCurrentSizes, sizes);
}

TEST_F(CreateAwareIcon, TheListOfSizesKeepsItsMemory)
{
    m_icons.AddResourceForDpi(96, IDI_16_32, Sizes(1000, 16));
    Create(96);
    const UINT* const sizes = m_icons.CurrentSizes().data();
    Create(192);
    EXPECT_EQ(m_icons.CurrentSizes().data(), sizes);
    EXPECT_GE(m_icons.CurrentSizes().capacity(), 1000u);
}

TEST_F(CreateAwareIcon, ForNoDpiThereIsNoneAndTheSizesAreThoseOfTheLowest)
{
    Create(192);
    const LoadAnswer load;
    EXPECT_EQ(Create(0), nullptr);
    EXPECT_EQ(load.CallCount(), 0);
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 0u);
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{16, 32}));
}

TEST_F(CreateAwareIcon, OfAResourceOfId0ThereIsNoneAndTheSizesAreItsSizes)
{
    m_icons.AddResourceForDpi(120, 0, {20, 40});
    const LoadAnswer load;
    EXPECT_EQ(Create(120), nullptr);
    EXPECT_EQ(load.CallCount(), 0);
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 120u);
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{20, 40}));
}

TEST_F(CreateAwareIcon, WithoutResourcesThereIsNone)
{
    OpenIconSet icons;
    EXPECT_EQ(icons.CreateAwareIconSpecifyDpi(144), nullptr);
    EXPECT_EQ(icons.Fields().resources.nCurrentDpi, 144u);
    EXPECT_TRUE(icons.CurrentSizes().empty());
}

TEST_F(CreateAwareIcon, WithoutAListOfSizesThereIsNoneAndTheDpiStays)
{
    const ChangedField<Sizes*> noSizes(m_icons.Fields().pCurrentSizes, nullptr);
    EXPECT_EQ(m_icons.CreateAwareIconSpecifyDpi(144), nullptr);
    EXPECT_EQ(m_icons.Fields().resources.nCurrentDpi, 96u);
}

TEST_F(CreateAwareIcon, ASetMadeWhenMemoryWasShortHasNoIcons)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    std::unique_ptr<OpenIconSet> icons;
    {
        const ShortMemory shortMemory(1);
        icons = std::make_unique<OpenIconSet>();
    }
    ASSERT_EQ(icons->Fields().pCurrentSizes, nullptr);
    icons->AddResourceForDpi(96, IDI_16_32, {16, 32});
    EXPECT_EQ(icons->FindScaledIcon(16), 0u);
    EXPECT_EQ(icons->GetScaledIcon(16, IDI_16_32), nullptr);
    EXPECT_EQ(icons->CreateAwareIconSpecifyDpi(96), nullptr);
}

TEST_F(CreateAwareIcon, AResourceThatIsMissingGivesNoneAndRemembersItsSizes)
{
    m_icons.AddResourceForDpi(120, IDR_MISSING, {20, 40});
    EXPECT_EQ(Create(120), nullptr);
    EXPECT_EQ(m_icons.CurrentSizes(), (Sizes{20, 40}));
}

// Before a size is known it is the largest number, which is asked for as it is.
TEST_F(CreateAwareIcon, WithoutSizesTheLargestNumberIsAskedFor)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_16_32, {});
    const LoadAnswer load;
    EXPECT_EQ(icons.CreateAwareIconSpecifyDpi(144), nullptr);
    EXPECT_EQ(load.Widths(), std::vector<int>{-1});
    EXPECT_EQ(load.Heights(), std::vector<int>{-1});
}

TEST_F(CreateAwareIcon, WithoutSizesNothingIsStretched)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(96, IDI_16_32, {});
    const LoadAnswer load(TestIcon());
    const ImportSpy<decltype(::CopyImage)> copy(VxDpiModule(), "user32.dll", "CopyImage");
    EXPECT_NE(icons.CreateAwareIconSpecifyDpi(144), nullptr);
    EXPECT_EQ(load.CallCount(), 1);
    EXPECT_EQ(copy.CallCount(), 0);
}

TEST_F(CreateAwareIcon, AResourceWithoutSizesIsAskedForTheSizesOfTheOthers)
{
    m_icons.AddResourceForDpi(120, IDI_LARGE, {});
    EXPECT_EQ(CallsOfCreate(120), Lines{"LoadImageW(program, @303, 1, 16, 16, 0)"});
    EXPECT_EQ(CallsOfCreate(119), (Lines{"LoadImageW(program, @303, 1, 16, 16, 0)"}));
}

TEST_F(CreateAwareIcon, EachIsTheCallersOwn)
{
    const OwnedIcon first = Create(96);
    const OwnedIcon second = Create(96);
    EXPECT_NE(first, second);
    EXPECT_NE(::DestroyIcon(OwnedIcon(Create(96)).release()), FALSE);
}

TEST_F(CreateAwareIcon, AThousandIconsLeaveNothingButThemselves)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int pair = 0; pair < 50; ++pair)
            {
                Create(96);
                Create(144);
            }
        });
}

TEST_F(CreateAwareIcon, AThousandRefusalsLeaveNothing)
{
    EXPECT_NO_LEAK([this] { HundredTimes([this] { Create(0); }); });
}

TEST_P(CreateAwareIconOfSize, IsStretchedToTheScaledSize)
{
    OpenIconSet icons;
    icons.AddResourceForDpi(GetParam().resourceDpi, IDI_16_32, {GetParam().size});
    const LoadAnswer load(TestIcon());
    int stretchedTo = static_cast<int>(GetParam().size);
    const ImportSpy<decltype(::CopyImage)> copy(VxDpiModule(), "user32.dll", "CopyImage",
                                                [&](HANDLE icon, UINT, int cx, int cy, UINT)
                                                {
                                                    EXPECT_EQ(cx, cy);
                                                    stretchedTo = cx;
                                                    return icon;
                                                });
    EXPECT_NE(icons.CreateAwareIconSpecifyDpi(GetParam().dpi), nullptr);
    EXPECT_EQ(stretchedTo, GetParam().scaled);
    EXPECT_EQ(copy.CallCount(), stretchedTo == static_cast<int>(GetParam().size) ? 0 : 1);
    EXPECT_EQ(load.Widths(), std::vector<int>{static_cast<int>(GetParam().size)});
}

INSTANTIATE_TEST_SUITE_P(DrawnFor96Dpi, CreateAwareIconOfSize,
                         testing::Values(IconSizeForDpi{16, 96, 96, 16}, IconSizeForDpi{16, 96, 120, 20},
                                         IconSizeForDpi{16, 96, 144, 24}, IconSizeForDpi{16, 96, 192, 32},
                                         IconSizeForDpi{16, 96, 110, 18}, IconSizeForDpi{15, 96, 144, 23},
                                         IconSizeForDpi{16, 96, 1, 0}, IconSizeForDpi{16, 96, 3, 1}));

INSTANTIATE_TEST_SUITE_P(DrawnForAnotherDpi, CreateAwareIconOfSize,
                         testing::Values(IconSizeForDpi{16, 144, 96, 11}, IconSizeForDpi{24, 144, 120, 20},
                                         IconSizeForDpi{32, 192, 144, 24}, IconSizeForDpi{16, 120, 192, 26},
                                         IconSizeForDpi{16, 144, 144, 16}));

INSTANTIATE_TEST_SUITE_P(AtTheEdgeOf32Bits, CreateAwareIconOfSize,
                         testing::Values(IconSizeForDpi{16, 0, 144, 16}, IconSizeForDpi{16, 96, UINT_MAX, 16},
                                         IconSizeForDpi{16, 96, 0x80000000, 16},
                                         IconSizeForDpi{1, 2, INT_MAX, 0x40000000},
                                         IconSizeForDpi{0x40000000, 1, 2, 0x40000000},
                                         IconSizeForDpi{0x3FFFFFFF, 1, 2, INT_MAX - 1},
                                         IconSizeForDpi{0x80000000, 96, 144, INT_MIN},
                                         IconSizeForDpi{0x80000000, 96, 1, INT_MIN},
                                         IconSizeForDpi{0xFFFFFFFE, 96, 48, -2}));
