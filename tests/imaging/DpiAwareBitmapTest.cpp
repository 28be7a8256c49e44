#include "imaging/DpiAwareBitmapFixture.h"
#include "imaging/HundredTimes.h"
#include "foundation/ShortMemory.h"
#include "png/LoadingCalls.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"

#include <gtest/gtest.h>

#include <afxdll_.h>

#include <memory>
#include <type_traits>

namespace
{
class CDpiAwareBitmapLife : public DpiAwareBitmap
{
};

// Counts the calls of operations that it hides, which reach it only if they are virtual.
class HidingBitmap : public CDpiAwareBitmap
{
public:
    int Calls() const { return m_calls; }

    void AddResourceForDpi(UINT, UINT, const std::vector<UINT>&) { ++m_calls; }
    BOOL LoadDpiAwareBitmapWithColorMap(UINT, COLORMAP*, int, UINT) { return ++m_calls; }
    BOOL LoadDpiAwareBitmapInternal(UINT, COLORMAP*, int, UINT) { return ++m_calls; }
    BOOL Attach_DpiAware(HBITMAP) { return ++m_calls; }
    BOOL Scale(CWnd*, int, int) { return ++m_calls; }

private:
    int m_calls = 0;
};

class LoadDpiAwareBitmap : public DpiAwareBitmap
{
};

class LoadDpiAwareBitmapWithColorMap : public DpiAwareBitmap
{
protected:
    LoadDpiAwareBitmapWithColorMap() { m_bitmap.Register(96, IDB_MAPPED_COLORS); }

    // How many of the two ways to load were taken.
    struct Loads
    {
        int plain;
        int mapped;
    };

    Loads LoadsWith(UINT flags, COLORMAP* map, int size)
    {
        const PlatformSpy<decltype(::LoadBitmapW)> plain("user32.dll", "LoadBitmapW");
        const PlatformSpy<decltype(::CreateMappedBitmap)> mapped("comctl32.dll", "CreateMappedBitmap");
        EXPECT_TRUE(m_bitmap.LoadDpiAwareBitmapWithColorMap(flags, map, size, 96));
        return {plain.CallCount(), mapped.CallCount()};
    }

    // Grey and magenta become colours that the bitmap does not have.
    COLORMAP m_map[2] = {{RGB(128, 128, 128), RGB(1, 2, 3)}, {RGB(255, 0, 255), RGB(4, 5, 6)}};
};

class AttachDpiAware : public DpiAwareBitmap
{
};
}

TEST_F(CDpiAwareBitmapLife, StartsEmpty)
{
    OpenBitmap bitmap;
    const BitmapFields& fields = bitmap.Fields();
    EXPECT_EQ(fields.nColorMapFlags, 0u);
    EXPECT_EQ(fields.pColorMap, nullptr);
    EXPECT_EQ(fields.nColorMapSize, 0);
    EXPECT_EQ(fields.nCurrentDpi, 96u);
    EXPECT_EQ(fields.nResourceId, 0u);
    EXPECT_EQ(fields.resources.nCurrentDpi, 96u);
    EXPECT_TRUE(fields.resources.pEntries->empty());
    EXPECT_TRUE(HasSizes(bitmap, {0, 0}, {0, 0}));
    EXPECT_TRUE(IsSize(bitmap.GetSize(), 0, 0));
}

TEST_F(CDpiAwareBitmapLife, StartsWithoutBitmaps)
{
    OpenBitmap bitmap;
    EXPECT_EQ(bitmap.Displayed(), nullptr);
    ASSERT_NE(bitmap.Fields().pSource, nullptr);
    EXPECT_EQ(bitmap.Source(), nullptr);
    EXPECT_TRUE(bitmap.Fields().pSource->IsKindOf(RUNTIME_CLASS(CBitmap)));
}

TEST_F(CDpiAwareBitmapLife, IsABitmapThatCannotBeCopied)
{
    static_assert(std::is_base_of_v<CBitmap, CDpiAwareBitmap>);
    static_assert(!std::is_copy_constructible_v<CDpiAwareBitmap>);
    static_assert(!std::is_copy_assignable_v<CDpiAwareBitmap>);
    static_assert(std::has_virtual_destructor_v<CDpiAwareBitmap>);
    EXPECT_TRUE(m_bitmap.IsKindOf(RUNTIME_CLASS(CBitmap)));
}

TEST_F(CDpiAwareBitmapLife, CallsNoOperationOfADerivedClass)
{
    HidingBitmap bitmap;
    bitmap.CDpiAwareBitmap::AddResourceForDpi(144, IDB_24, {});
    const WindowDpiAnswer answer(144);
    EXPECT_TRUE(bitmap.ScaleToDpi(m_window.Object(), DeviceBitmap(4, 4, kWhite).release()));
    EXPECT_TRUE(IsSize(bitmap.GetSize(), 4, 4));
    bitmap.CDpiAwareBitmap::AddResourceForDpi(96, IDB_16, {});
    EXPECT_TRUE(bitmap.LoadDpiAwareBitmap(96));
    EXPECT_TRUE(IsSize(bitmap.GetSize(), 16, 16));
    EXPECT_EQ(bitmap.Calls(), 0);
}

TEST_F(CDpiAwareBitmapLife, OwnsBothBitmapsUntilItDies)
{
    std::unique_ptr<CBitmap> bitmap(new OpenBitmap);
    auto& open = static_cast<OpenBitmap&>(*bitmap);
    open.Attach_DpiAware(DeviceBitmap(4, 4, kWhite).release());
    const HBITMAP displayed = open.Displayed();
    const HBITMAP source = open.Source();
    bitmap.reset();
    EXPECT_TRUE(IsGone(displayed));
    EXPECT_TRUE(IsGone(source));
}

TEST_F(CDpiAwareBitmapLife, TheSourceDiesBeforeTheBitmapToShow)
{
    auto bitmap = std::make_unique<OpenBitmap>();
    bitmap->Attach_DpiAware(DeviceBitmap(4, 4, kWhite).release());
    CallLog log;
    log.Name(bitmap->Displayed(), "displayed");
    log.Name(bitmap->Source(), "source");
    const BitmapCalls calls(log);
    bitmap.reset();
    EXPECT_EQ(log.Lines(), (Lines{"DeleteObject(source)", "DeleteObject(displayed)"}));
}

TEST_F(CDpiAwareBitmapLife, ALifeWithoutUseLeavesNothing)
{
    EXPECT_NO_LEAK([] { HundredTimes([] { const OpenBitmap bitmap; }); });
}

TEST_F(CDpiAwareBitmapLife, RefusesEverythingWithoutMemoryForItsSource)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    std::unique_ptr<OpenBitmap> bitmap;
    {
        const ShortMemory shortMemory(3); // after the registry's lock and list
        bitmap = std::make_unique<OpenBitmap>();
    }
    ASSERT_EQ(bitmap->Fields().pSource, nullptr);
    bitmap->Register(144, IDB_24);
    EXPECT_EQ(bitmap->LoadDpiAwareBitmap(144), FALSE);
    EXPECT_EQ(bitmap->Fields().nCurrentDpi, 96u);
    EXPECT_EQ(bitmap->ScaleToDpi(m_window.Object(), nullptr), FALSE);
    EXPECT_EQ(bitmap->Scale(m_window.Object(), 4, 4), FALSE);
    const auto other = DeviceBitmap(4, 4, kWhite);
    EXPECT_EQ(bitmap->Attach_DpiAware(other.get()), FALSE);
    EXPECT_EQ(bitmap->Displayed(), nullptr);
}

TEST_F(CDpiAwareBitmapLife, ALifeWithResourcesLeavesNothing)
{
    const HeldContexts held(m_window.Handle());
    EXPECT_NO_LEAK(
        [this]
        {
            OpenBitmap bitmap;
            bitmap.AddResourceForDpi(96, IDB_16, {1, 2, 3});
            bitmap.AddResourceForDpi(144, IDB_24, {});
            bitmap.LoadDpiAwareBitmap(96);
            const WindowDpiAnswer answer(144);
            bitmap.ScaleToDpi(m_window.Object(), nullptr);
        });
}

TEST_F(CDpiAwareBitmapLife, ResourcesAreRegisteredUnchanged)
{
    OpenBitmap bitmap;
    bitmap.AddResourceForDpi(120, 7, {5, 6});
    const std::vector<ResourceInfo*>& entries = *bitmap.Fields().resources.pEntries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0]->nDpi, 120u);
    EXPECT_EQ(entries[0]->nResourceId, 7u);
    EXPECT_EQ(entries[0]->values, (std::vector<UINT>{5, 6}));
}

TEST_F(CDpiAwareBitmapLife, ALaterRegistrationForADpiReplacesTheEarlierOne)
{
    OpenBitmap bitmap;
    bitmap.AddResourceForDpi(120, 7, {5, 6});
    bitmap.AddResourceForDpi(120, 8, {});
    const std::vector<ResourceInfo*>& entries = *bitmap.Fields().resources.pEntries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0]->nResourceId, 8u);
}

TEST_F(LoadDpiAwareBitmap, ShowsThePictureDrawnForTheDpi)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(24, 24)));
}

TEST_F(LoadDpiAwareBitmap, ShowsThePictureDrawnForTheNextHigherDpiUnscaled)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(97), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(24, 24)));
}

TEST_F(LoadDpiAwareBitmap, WithoutAHigherDpiShowsThePictureDrawnForTheLargest)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(192), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(24, 24)));
}

TEST_F(LoadDpiAwareBitmap, KnowsTheSizeAndTheResource)
{
    m_bitmap.LoadDpiAwareBitmap(144);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {24, 24}));
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), 24, 24));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 144u);
    EXPECT_EQ(m_bitmap.Fields().resources.nCurrentDpi, 144u);
}

TEST_F(LoadDpiAwareBitmap, TellsWidthAndHeightApart)
{
    m_bitmap.Register(96, IDB_MAPPED_COLORS);
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 4}, {24, 4}));
}

TEST_F(LoadDpiAwareBitmap, ShowsACopyThatIsADibSection)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_NE(m_bitmap.Displayed(), m_bitmap.Source());
    EXPECT_TRUE(IsDibSection(m_bitmap.Displayed()));
    EXPECT_FALSE(IsDibSection(m_bitmap.Source()));
    EXPECT_TRUE(SamePixels(Colors(OpaquePicture(16, 16)), ColorsOf(m_bitmap.Source())));
}

TEST_F(LoadDpiAwareBitmap, TheFrameworkKnowsTheObjectByBothHandles)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(CBitmap::FromHandle(m_bitmap.Displayed()), &m_bitmap);
    EXPECT_EQ(CBitmap::FromHandle(m_bitmap.Source()), m_bitmap.Fields().pSource);
}

TEST_F(LoadDpiAwareBitmap, LoadsCopiesAndMeasures)
{
    EXPECT_EQ(
        CallsOf([this] { m_bitmap.LoadDpiAwareBitmap(96); }),
        (Lines{"LoadBitmapW(program, @201)", "CopyImage(loaded, 0, 0, 0, 8196)", "GetObjectW(copy, 32)"}));
}

TEST_F(LoadDpiAwareBitmap, DeletesBothBitmapsBeforeItLoads)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(CallsOf([this] { m_bitmap.LoadDpiAwareBitmap(144); }),
              (Lines{"DeleteObject(displayed)", "DeleteObject(source)", "LoadBitmapW(program, @202)",
                     "CopyImage(loaded, 0, 0, 0, 8196)", "GetObjectW(copy, 32)"}));
}

TEST_F(LoadDpiAwareBitmap, TheSameResourceIsNotLoadedTwice)
{
    m_bitmap.LoadDpiAwareBitmap(120);
    const HBITMAP displayed = m_bitmap.Displayed();
    const HBITMAP source = m_bitmap.Source();
    EXPECT_EQ(CallsOf([this] { EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), FALSE); }), Lines{});
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
    EXPECT_EQ(m_bitmap.Source(), source);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 24}, {24, 24}));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
}

TEST_F(LoadDpiAwareBitmap, TheSameResourceForAnotherDpiIsNotLoadedTwice)
{
    m_bitmap.Register(144, IDB_16);
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), FALSE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(16, 16)));
}

TEST_F(LoadDpiAwareBitmap, TheDpiIsRememberedEvenWhenNothingIsLoaded)
{
    m_bitmap.LoadDpiAwareBitmap(120);
    m_bitmap.LoadDpiAwareBitmap(130);
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 130u);
    EXPECT_EQ(m_bitmap.Fields().resources.nCurrentDpi, 130u);
}

TEST_F(LoadDpiAwareBitmap, WithoutResourcesNothingIsLoaded)
{
    OpenBitmap bitmap;
    EXPECT_EQ(bitmap.LoadDpiAwareBitmap(144), FALSE);
    EXPECT_EQ(bitmap.Displayed(), nullptr);
    EXPECT_EQ(bitmap.Fields().nCurrentDpi, 144u);
    EXPECT_EQ(bitmap.Fields().resources.nCurrentDpi, 144u);
    EXPECT_EQ(bitmap.Fields().nResourceId, 0u);
}

TEST_F(LoadDpiAwareBitmap, WithoutResourcesAnAttachedBitmapStays)
{
    OpenBitmap bitmap;
    bitmap.Attach_DpiAware(DeviceBitmap(4, 6, kWhite).release());
    const HBITMAP displayed = bitmap.Displayed();
    EXPECT_EQ(bitmap.LoadDpiAwareBitmap(144), FALSE);
    EXPECT_EQ(bitmap.Displayed(), displayed);
    EXPECT_TRUE(HasSizes(bitmap, {4, 6}, {4, 6}));
}

// 0 stands for "nothing loaded".
TEST_F(LoadDpiAwareBitmap, AResourceOfId0CountsAsLoadedAlready)
{
    OpenBitmap bitmap;
    bitmap.Register(96, 0);
    const PlatformSpy<decltype(::LoadBitmapW)> load("user32.dll", "LoadBitmapW");
    EXPECT_EQ(bitmap.LoadDpiAwareBitmap(96), FALSE);
    EXPECT_EQ(load.CallCount(), 0);
}

TEST_F(LoadDpiAwareBitmap, WithoutASourceObjectNothingChanges)
{
    const ChangedField<CBitmap*> noSource(m_bitmap.Fields().pSource, nullptr);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), FALSE);
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 96u);
    EXPECT_EQ(m_bitmap.Fields().resources.nCurrentDpi, 96u);
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
}

TEST_F(LoadDpiAwareBitmap, LooksForTheResourceInTheResourceModule)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, ArgbImage(16, 16, kOtherColor)));
}

TEST_F(LoadDpiAwareBitmap, LooksForTheResourceInTheChainOfLibraries)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(FrameworkModule());
    CDynLinkLibrary chained(dll.Module(), dll.Module());
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, ArgbImage(16, 16, kOtherColor)));
}

TEST_F(LoadDpiAwareBitmap, AResourceThatIsMissingLeavesNoBitmapAndTheSizes)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(192), FALSE);
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
    EXPECT_EQ(m_bitmap.Source(), nullptr);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 192u);
}

TEST_F(LoadDpiAwareBitmap, AResourceThatIsMissingIsNotCopied)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(CallsOf([this] { m_bitmap.LoadDpiAwareBitmap(192); }),
              (Lines{"DeleteObject(displayed)", "DeleteObject(source)", "LoadBitmapW(program, @999)"}));
}

TEST_F(LoadDpiAwareBitmap, AfterAFailureTheFormerResourceCountsAsLoaded)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    m_bitmap.LoadDpiAwareBitmap(192);
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_16));
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(96), FALSE);
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
}

TEST_F(LoadDpiAwareBitmap, AfterAFailureAnotherResourceCanBeLoaded)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(192);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(24, 24)));
}

TEST_F(LoadDpiAwareBitmap, ABitmapThatCannotBeCopiedStaysTheSourceAndIsNotShown)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    {
        const FailCopyImage fail;
        EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), FALSE);
    }
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
    EXPECT_TRUE(HasSize(m_bitmap.Source(), 24, 24));
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_16));
}

TEST_F(LoadDpiAwareBitmap, ABitmapThatCannotBeMeasuredIsShownWithoutSize)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const FailGetObject fail;
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), TRUE);
    EXPECT_EQ(fail.CallCount(), 1);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_NE(m_bitmap.Displayed(), nullptr);
}

// Of an ID the platform takes 16 bits; what is remembered is the whole one.
TEST_F(LoadDpiAwareBitmap, RemembersAllOfAnId)
{
    OpenBitmap bitmap;
    bitmap.Register(96, 0x10000 | IDB_16);
    EXPECT_EQ(bitmap.LoadDpiAwareBitmap(96), TRUE);
    EXPECT_EQ(bitmap.Fields().nResourceId, 0x10000u | IDB_16);
    EXPECT_EQ(bitmap.LoadDpiAwareBitmap(96), FALSE);
    EXPECT_TRUE(HasSizes(bitmap, {16, 16}, {16, 16}));
}

TEST_F(LoadDpiAwareBitmap, MeasuresTheBitmapToShow)
{
    const PlatformSpy<decltype(::CopyImage)> copy("user32.dll", "CopyImage",
                                                  [](HANDLE, UINT, int, int, UINT)
                                                  { return DeviceBitmap(7, 9, kWhite).release(); });
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_TRUE(HasSizes(m_bitmap, {7, 9}, {7, 9}));
}

TEST_F(LoadDpiAwareBitmap, IsTheSameAsLoadingWithoutAMap)
{
    EXPECT_EQ(
        CallsOf([this] { EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapInternal(0, nullptr, 0, 144), TRUE); }),
        (Lines{"LoadBitmapW(program, @202)", "CopyImage(loaded, 0, 0, 0, 8196)", "GetObjectW(copy, 32)"}));
}

TEST_F(LoadDpiAwareBitmap, AThousandLoadsLeaveNothing)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int pair = 0; pair < 50; ++pair)
            {
                m_bitmap.LoadDpiAwareBitmap(96);
                m_bitmap.LoadDpiAwareBitmap(144);
            }
        });
}

TEST_F(LoadDpiAwareBitmap, AThousandLoadsOfTheSameResourceLeaveNothing)
{
    EXPECT_NO_LEAK([this] { HundredTimes([this] { m_bitmap.LoadDpiAwareBitmap(96); }); });
}

TEST_F(LoadDpiAwareBitmap, FailuresLeaveNothing)
{
    m_bitmap.Register(192, IDR_MISSING);
    EXPECT_NO_LEAK(
        [this]
        {
            m_bitmap.LoadDpiAwareBitmap(192);
            const FailCopyImage fail;
            m_bitmap.LoadDpiAwareBitmap(144);
            m_bitmap.LoadDpiAwareBitmap(192);
        });
}

TEST_F(LoadDpiAwareBitmapWithColorMap, MapsColours)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96), TRUE);
    const ArgbImage shown = ColorsOf(m_bitmap.Displayed());
    EXPECT_EQ(shown.At(1, 1), 0x000000u);
    EXPECT_EQ(shown.At(5, 1), 0x010203u);
    EXPECT_EQ(shown.At(9, 1), 0xc0c0c0u);
    EXPECT_EQ(shown.At(21, 1), 0x040506u);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 4}, {24, 4}));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_MAPPED_COLORS));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, PassesFlagsMapAndSizeOn)
{
    CallLog log;
    log.Name(::GetModuleHandleW(nullptr), "program");
    log.Name(m_map, "map");
    const BitmapCalls calls(log);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96), TRUE);
    EXPECT_EQ(log.Lines(), (Lines{"CreateMappedBitmap(program, 204, 1, map, 2)",
                                  "CopyImage(loaded, 0, 0, 0, 8196)", "GetObjectW(copy, 32)"}));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, LoadsForTheDpi)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 120), TRUE);
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 120u);
    EXPECT_EQ(m_bitmap.Fields().resources.nCurrentDpi, 120u);
}

TEST_F(LoadDpiAwareBitmapWithColorMap, InternalDoesTheSame)
{
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapInternal(1, m_map, 2, 96), TRUE);
    EXPECT_EQ(ColorsOf(m_bitmap.Displayed()).At(21, 1), 0x040506u);
}

TEST_F(LoadDpiAwareBitmapWithColorMap, WithoutFlagsNoColoursAreMapped)
{
    const Loads loads = LoadsWith(0, m_map, 2);
    EXPECT_EQ(loads.plain, 1);
    EXPECT_EQ(loads.mapped, 0);
    EXPECT_TRUE(Shows(m_bitmap, MappedColorsPicture(4)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, WithoutAMapNoColoursAreMapped)
{
    const Loads loads = LoadsWith(1, nullptr, 2);
    EXPECT_EQ(loads.plain, 1);
    EXPECT_EQ(loads.mapped, 0);
    EXPECT_TRUE(Shows(m_bitmap, MappedColorsPicture(4)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, WithoutASizeNoColoursAreMapped)
{
    const Loads loads = LoadsWith(1, m_map, 0);
    EXPECT_EQ(loads.plain, 1);
    EXPECT_EQ(loads.mapped, 0);
    EXPECT_TRUE(Shows(m_bitmap, MappedColorsPicture(4)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, ASizeBelowNothingIsPassedOn)
{
    const PlatformSpy<decltype(::CreateMappedBitmap)> mapped(
        "comctl32.dll", "CreateMappedBitmap",
        [this](HINSTANCE, INT_PTR, UINT, COLORMAP* map, int size)
        {
            EXPECT_EQ(map, m_map);
            EXPECT_EQ(size, -1);
            return DeviceBitmap(7, 9, kWhite).release();
        });
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, -1, 96), TRUE);
    EXPECT_EQ(mapped.CallCount(), 1);
    EXPECT_TRUE(HasSizes(m_bitmap, {7, 9}, {7, 9}));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, TheMapIsNotKept)
{
    m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96);
    EXPECT_EQ(m_bitmap.Fields().nColorMapFlags, 0u);
    EXPECT_EQ(m_bitmap.Fields().pColorMap, nullptr);
    EXPECT_EQ(m_bitmap.Fields().nColorMapSize, 0);
}

TEST_F(LoadDpiAwareBitmapWithColorMap, TheSameResourceIsNotLoadedTwice)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96), FALSE);
    EXPECT_TRUE(Shows(m_bitmap, MappedColorsPicture(4)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, LooksForTheResourceInTheResourceModule)
{
    m_bitmap.Register(96, IDB_DLL_SHARED_ID);
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, ArgbImage(16, 16, kOtherColor)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, LooksForTheResourceInTheChainOfLibraries)
{
    m_bitmap.Register(96, IDB_DLL_SHARED_ID);
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(FrameworkModule());
    CDynLinkLibrary chained(dll.Module(), dll.Module());
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96), TRUE);
    EXPECT_TRUE(Shows(m_bitmap, ArgbImage(16, 16, kOtherColor)));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, AResourceThatIsMissingLeavesNoBitmap)
{
    m_bitmap.Register(192, IDR_MISSING);
    m_bitmap.LoadDpiAwareBitmap(96);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 192), FALSE);
    EXPECT_EQ(m_bitmap.Displayed(), nullptr);
    EXPECT_EQ(m_bitmap.Source(), nullptr);
    EXPECT_TRUE(HasSizes(m_bitmap, {24, 4}, {24, 4}));
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_MAPPED_COLORS));
}

TEST_F(LoadDpiAwareBitmapWithColorMap, AThousandLoadsLeaveNothing)
{
    EXPECT_NO_LEAK(
        [this]
        {
            for (int pair = 0; pair < 50; ++pair)
            {
                m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 96);
                m_bitmap.LoadDpiAwareBitmapWithColorMap(1, m_map, 2, 144);
            }
        });
}

TEST_F(AttachDpiAware, TakesTheBitmapOverAndShowsACopy)
{
    const HBITMAP given = DeviceBitmap(OpaquePicture(10, 20)).release();
    EXPECT_EQ(m_bitmap.Attach_DpiAware(given), TRUE);
    EXPECT_EQ(m_bitmap.Source(), given);
    EXPECT_NE(m_bitmap.Displayed(), given);
    EXPECT_TRUE(IsDibSection(m_bitmap.Displayed()));
    EXPECT_TRUE(Shows(m_bitmap, OpaquePicture(10, 20)));
}

TEST_F(AttachDpiAware, KnowsTheSize)
{
    m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release());
    EXPECT_TRUE(HasSizes(m_bitmap, {10, 20}, {10, 20}));
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), 10, 20));
}

TEST_F(AttachDpiAware, ResourceAndDpiStayAsTheyWere)
{
    m_bitmap.LoadDpiAwareBitmap(144);
    m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release());
    EXPECT_EQ(m_bitmap.Fields().nResourceId, static_cast<UINT>(IDB_24));
    EXPECT_EQ(m_bitmap.Fields().nCurrentDpi, 144u);
    EXPECT_EQ(m_bitmap.LoadDpiAwareBitmap(144), FALSE);
    EXPECT_TRUE(IsSize(m_bitmap.GetSize(), 10, 20));
}

TEST_F(AttachDpiAware, ReplacesSourceAndBitmapToShowInThisOrder)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    CallLog log;
    log.Name(m_bitmap.Displayed(), "displayed");
    log.Name(m_bitmap.Source(), "source");
    log.Name(given, "given");
    const BitmapCalls calls(log);
    m_bitmap.Attach_DpiAware(given);
    EXPECT_EQ(log.Lines(), (Lines{"DeleteObject(source)", "CopyImage(given, 0, 0, 0, 8196)",
                                  "GetObjectW(given, 32)", "DeleteObject(displayed)"}));
}

TEST_F(AttachDpiAware, ALaterBitmapReplacesTheEarlierOne)
{
    const HBITMAP first = DeviceBitmap(10, 20, kWhite).release();
    m_bitmap.Attach_DpiAware(first);
    const HBITMAP displayed = m_bitmap.Displayed();
    EXPECT_EQ(m_bitmap.Attach_DpiAware(DeviceBitmap(5, 6, kWhite).release()), TRUE);
    EXPECT_TRUE(IsGone(first));
    EXPECT_NE(m_bitmap.Displayed(), displayed);
    EXPECT_TRUE(HasSize(m_bitmap.Displayed(), 5, 6));
    EXPECT_TRUE(HasSizes(m_bitmap, {5, 6}, {5, 6}));
}

TEST_F(AttachDpiAware, WithoutABitmapNothingChanges)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const HBITMAP source = m_bitmap.Source();
    EXPECT_EQ(CallsOf([this] { EXPECT_EQ(m_bitmap.Attach_DpiAware(nullptr), FALSE); }), Lines{});
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
    EXPECT_EQ(m_bitmap.Source(), source);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(AttachDpiAware, WithoutASourceObjectTheBitmapStaysTheCallers)
{
    const OwnedBitmap given = DeviceBitmap(10, 20, kWhite);
    {
        OpenBitmap bitmap;
        const ChangedField<CBitmap*> noSource(bitmap.Fields().pSource, nullptr);
        EXPECT_EQ(bitmap.Attach_DpiAware(given.get()), FALSE);
        EXPECT_TRUE(HasSizes(bitmap, {0, 0}, {0, 0}));
    }
    EXPECT_FALSE(IsGone(given.get()));
}

TEST_F(AttachDpiAware, ABitmapThatCannotBeCopiedIsTakenOverAndNotShown)
{
    m_bitmap.LoadDpiAwareBitmap(96);
    const HBITMAP displayed = m_bitmap.Displayed();
    const HBITMAP given = DeviceBitmap(10, 20, kWhite).release();
    const FailCopyImage fail;
    EXPECT_EQ(m_bitmap.Attach_DpiAware(given), FALSE);
    EXPECT_EQ(m_bitmap.Source(), given);
    EXPECT_EQ(m_bitmap.Displayed(), displayed);
    EXPECT_TRUE(HasSizes(m_bitmap, {16, 16}, {16, 16}));
}

TEST_F(AttachDpiAware, ABitmapThatCannotBeMeasuredIsShownWithoutSize)
{
    const FailGetObject fail;
    EXPECT_EQ(m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release()), TRUE);
    EXPECT_EQ(fail.CallCount(), 1);
    EXPECT_TRUE(HasSizes(m_bitmap, {0, 0}, {0, 0}));
    EXPECT_NE(m_bitmap.Displayed(), nullptr);
}

TEST_F(AttachDpiAware, MeasuresTheBitmapGiven)
{
    const PlatformSpy<decltype(::CopyImage)> copy("user32.dll", "CopyImage",
                                                  [](HANDLE, UINT, int, int, UINT)
                                                  { return DeviceBitmap(7, 9, kWhite).release(); });
    m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release());
    EXPECT_TRUE(HasSizes(m_bitmap, {10, 20}, {10, 20}));
}

TEST_F(AttachDpiAware, AThousandBitmapsLeaveNothing)
{
    EXPECT_NO_LEAK(
        [this]
        { HundredTimes([this] { m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release()); }); });
}

TEST_F(AttachDpiAware, FailuresLeaveNothing)
{
    EXPECT_NO_LEAK(
        [this]
        {
            const FailCopyImage fail;
            m_bitmap.Attach_DpiAware(DeviceBitmap(10, 20, kWhite).release());
        });
}
