#include <vxdpi/Png.h>

#include "imaging/RegistryFields.h"
#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <optional>
#include <type_traits>
#include <utility>

namespace
{
using Lines = CallLog::LineList;
using Values = std::vector<UINT>;

constexpr DWORD kWhite = 0xffffffff;

// The three operations that create images; they choose and measure alike.
enum class Creation
{
    Icons,
    DisabledIcons,
    Bitmaps
};

class StripCreation : public testing::Test
{
protected:
    void Register(UINT dpi, UINT resourceId, const Values& values)
    {
        m_strip.AddResourceForDpi(dpi, resourceId, values);
    }

    OwnedIcons Icons(UINT dpi, int fixed = FALSE)
    {
        return OwnedIcons(m_strip.CreatePngSplit(dpi, m_program, fixed));
    }

    OwnedIcons DisabledIcons(UINT dpi) { return OwnedIcons(m_strip.CreateDisabledStylePngSplit(dpi)); }

    OwnedBitmaps Bitmaps(UINT dpi, DWORD background = kWhite)
    {
        return OwnedBitmaps(m_strip.CreatePngSplitBitmap(dpi, m_program, background));
    }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);
    CDpiAwarePngSplit m_strip;

private:
    const GdiPlusSession m_gdiPlus;
};

class AnyStripCreation : public StripCreation, public testing::WithParamInterface<Creation>
{
protected:
    std::size_t Create(UINT dpi)
    {
        switch (GetParam())
        {
        case Creation::Icons:
            return Icons(dpi).Count();
        case Creation::DisabledIcons:
            return DisabledIcons(dpi).Count();
        default:
            return Bitmaps(dpi).Count();
        }
    }

    // The side that the first cell is scaled to; nothing when none is. Nothing is drawn, so that the side may
    // be any number.
    std::optional<INT> Target(UINT dpi)
    {
        std::optional<INT> side;
        LiveBitmaps live;
        bool isScaling = false; // GDI+ is started before each bitmap that is scaled into, and nowhere else
        const ImportSpy<decltype(Gdiplus::GdiplusStartup)> start(
            VxDpiModule(), "gdiplus.dll", "GdiplusStartup",
            [&](ULONG_PTR* token, const Gdiplus::GdiplusStartupInput* input,
                Gdiplus::GdiplusStartupOutput* output)
            {
                isScaling = true;
                return start.Original()(token, input, output);
            });
        const ImportSpy<decltype(Flat::GdipCreateBitmapFromScan0)> create(
            VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0",
            [&](INT width, INT height, INT stride, Gdiplus::PixelFormat format, BYTE* bits,
                Gdiplus::GpBitmap** bitmap)
            {
                if (!std::exchange(isScaling, false))
                    return create.Original()(width, height, stride, format, bits, bitmap);
                if (!side)
                    side = height;
                EXPECT_EQ(width, height);
                return Gdiplus::OutOfMemory;
            });
        EXPECT_EQ(Create(dpi), 0u);
        live.DeleteAll();
        return side;
    }

    Lines ResourceCallsOf(UINT dpi)
    {
        CallLog log;
        log.Name(m_program, "program");
        const ResourceCalls calls(log);
        Create(dpi);
        return log.Lines();
    }
};

std::string NameOf(const testing::TestParamInfo<Creation>& info)
{
    switch (info.param)
    {
    case Creation::Icons:
        return "Icons";
    case Creation::DisabledIcons:
        return "DisabledIcons";
    default:
        return "Bitmaps";
    }
}

INSTANTIATE_TEST_SUITE_P(EachOperation, AnyStripCreation,
                         testing::Values(Creation::Icons, Creation::DisabledIcons, Creation::Bitmaps),
                         NameOf);

class DestroyIcons : public StripCreation
{
};

HICON SmallIcon()
{
    const BYTE mask[2] = {};
    return ::CreateIcon(nullptr, 1, 1, 1, 1, mask, mask);
}
} // namespace

TEST(CDpiAwarePngSplit, ConsistsOfOneRegistry)
{
    static_assert(!std::is_polymorphic_v<CDpiAwarePngSplit>);
    static_assert(!std::is_copy_constructible_v<CDpiAwarePngSplit>);
    static_assert(sizeof(CDpiAwarePngSplit) == sizeof(CDpiAwareRes));
    CDpiAwarePngSplit strip;
    EXPECT_EQ(FieldsOf(strip).nCurrentDpi, 96u);
    EXPECT_EQ(FieldsOf(strip).nReserved, 0u);
    ASSERT_NE(FieldsOf(strip).pMutex, nullptr);
    ASSERT_NE(FieldsOf(strip).pEntries, nullptr);
    EXPECT_TRUE(FieldsOf(strip).pEntries->empty());
}

TEST(CDpiAwarePngSplit, AddingAResourceRegistersItWithAllItsValues)
{
    CDpiAwarePngSplit strip;
    strip.AddResourceForDpi(144, 12, {24, 3});
    strip.AddResourceForDpi(96, 11, {});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(strip).pEntries;
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0]->nDpi, 144u);
    EXPECT_EQ(entries[0]->nResourceId, 12u);
    EXPECT_EQ(entries[0]->values, (Values{24, 3}));
    EXPECT_EQ(entries[1]->nDpi, 96u);
    EXPECT_EQ(entries[1]->nResourceId, 11u);
    EXPECT_EQ(entries[1]->values, Values{});
}

TEST(CDpiAwarePngSplit, AddingAResourceForTheSameDpiReplacesTheEarlier)
{
    CDpiAwarePngSplit strip;
    strip.AddResourceForDpi(144, 11, {24});
    strip.AddResourceForDpi(144, 12, {25, 26});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(strip).pEntries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0]->nResourceId, 12u);
    EXPECT_EQ(entries[0]->values, (Values{25, 26}));
}

TEST(CDpiAwarePngSplit, CopyAssignmentSharesTheRegistry)
{
    CDpiAwarePngSplit source;
    CDpiAwarePngSplit copy;
    source.AddResourceForDpi(96, 11, {16});
    FieldsOf(source).nCurrentDpi = 120;
    FieldsOf(source).nReserved = 5;
    const KeepFields keep(FieldsOf(copy));
    EXPECT_EQ(&(copy = source), &copy);
    EXPECT_EQ(FieldsOf(copy).nCurrentDpi, 120u);
    EXPECT_EQ(FieldsOf(copy).nReserved, 5u);
    EXPECT_EQ(FieldsOf(copy).pMutex, FieldsOf(source).pMutex);
    EXPECT_EQ(FieldsOf(copy).pEntries, FieldsOf(source).pEntries);
}

TEST(CDpiAwarePngSplit, MoveAssignmentDoesTheSameAndLeavesTheSource)
{
    CDpiAwarePngSplit source;
    CDpiAwarePngSplit copy;
    source.AddResourceForDpi(96, 11, {16});
    FieldsOf(source).nCurrentDpi = 120;
    FieldsOf(source).nReserved = 5;
    const RegistryFields before = FieldsOf(source);
    const KeepFields keep(FieldsOf(copy));
    EXPECT_EQ(&(copy = std::move(source)), &copy);
    EXPECT_EQ(FieldsOf(copy).nCurrentDpi, 120u);
    EXPECT_EQ(FieldsOf(copy).nReserved, 5u);
    EXPECT_EQ(FieldsOf(copy).pMutex, before.pMutex);
    EXPECT_EQ(FieldsOf(copy).pEntries, before.pEntries);
    EXPECT_EQ(FieldsOf(source).pMutex, before.pMutex);
    EXPECT_EQ(FieldsOf(source).pEntries, before.pEntries);
}

TEST(CDpiAwarePngSplit, DestructionFreesTheRegistry)
{
    EXPECT_NO_LEAK(
        []
        {
            CDpiAwarePngSplit strip;
            strip.AddResourceForDpi(96, 11, {16});
            strip.AddResourceForDpi(144, 12, {24});
        });
}

TEST_P(AnyStripCreation, MovesTheCurrentDpiEvenWithoutAResource)
{
    EXPECT_EQ(Create(120), 0u);
    EXPECT_EQ(FieldsOf(m_strip).nCurrentDpi, 120u);
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Create(144), 3u);
    EXPECT_EQ(FieldsOf(m_strip).nCurrentDpi, 144u);
    EXPECT_EQ(Create(0), 0u);
    EXPECT_EQ(FieldsOf(m_strip).nCurrentDpi, 0u);
}

TEST_P(AnyStripCreation, WithoutAResourceNothingIsLoaded)
{
    EXPECT_EQ(ResourceCallsOf(96), Lines{});
}

TEST_P(AnyStripCreation, WithoutValuesNothingIsLoaded)
{
    Register(96, IDR_PNG_STRIP_16, {});
    EXPECT_EQ(Create(96), 0u);
    EXPECT_EQ(ResourceCallsOf(96), Lines{});
}

TEST_P(AnyStripCreation, WithoutValuesAResourceDrawnFor0DpiIsNotLoaded)
{
    Register(0, IDR_PNG_STRIP_16, {});
    EXPECT_EQ(Create(96), 0u);
    EXPECT_EQ(ResourceCallsOf(96), Lines{});
}

TEST_P(AnyStripCreation, TheFirstValueIsTheLengthOfACell)
{
    Register(96, IDR_PNG_STRIP_16, {16, 32});
    EXPECT_EQ(Create(96), 3u);
    EXPECT_EQ(Target(96), 16);
    Register(96, IDR_PNG_STRIP_16, {24, 16});
    EXPECT_EQ(Create(96), 2u);
    EXPECT_EQ(Target(96), 24);
}

TEST_P(AnyStripCreation, TheTargetFollowsTheDpi)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Target(96), 16);
    EXPECT_EQ(Target(120), 20);
    EXPECT_EQ(Target(144), 24);
    EXPECT_EQ(Target(192), 32);
    EXPECT_EQ(Target(48), 8);
}

TEST_P(AnyStripCreation, TheTargetIsRoundedToNearestWithHalvesUp)
{
    Register(96, IDR_PNG_STRIP_16, {15});
    EXPECT_EQ(Target(144), 23); // 22.5
    EXPECT_EQ(Target(100), 16); // 15.625
    EXPECT_EQ(Target(99), 15);  // 15.47
    EXPECT_EQ(Target(4), 1);    // 0.625
}

TEST_P(AnyStripCreation, TheBestResourceAndItsDpiDecide)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    Register(144, IDR_PNG_STRIP_24, {24});
    Register(192, IDR_PNG_STRIP_32, {32});
    EXPECT_EQ(Target(120), 20); // 24 * 120 / 144
    EXPECT_EQ(Target(168), 28); // 32 * 168 / 192
    EXPECT_EQ(Target(240), 40);
    EXPECT_EQ(Target(72), 12);
    EXPECT_EQ(ResourceCallsOf(120).at(0), "FindResourceW(program, @112, \"PNG\")");
    EXPECT_EQ(ResourceCallsOf(168).at(0), "FindResourceW(program, @113, \"PNG\")");
    EXPECT_EQ(ResourceCallsOf(96).at(0), "FindResourceW(program, @111, \"PNG\")");
}

TEST_P(AnyStripCreation, AResourceDrawnFor0DpiIsNotScaled)
{
    Register(0, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Target(96), 16);
    EXPECT_EQ(Target(300), 16);
    EXPECT_EQ(Target(0), 16);
    EXPECT_EQ(Create(300), 3u);
}

TEST_P(AnyStripCreation, ADpiOf0ScalesToNothing)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Create(0), 0u);
    EXPECT_EQ(Target(0), std::nullopt);
}

TEST_P(AnyStripCreation, AProductWithin31BitsIsScaled)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Target(0x07ffffff), 22369621); // 2147483632 / 96
    Register(96, IDR_PNG_STRIP_16, {1});
    EXPECT_EQ(Target(0x7fffffff), 22369621);
}

TEST_P(AnyStripCreation, AProductBeyond31BitsLeavesTheCellUnscaled)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Target(0x08000000), 16);
    EXPECT_EQ(Target(0x10000006), 16); // 96 in 32 bits
    EXPECT_EQ(Target(0xffffffff), 16);
    Register(96, IDR_PNG_STRIP_16, {1});
    EXPECT_EQ(Target(0x80000000), 1);
    EXPECT_EQ(Target(0xffffffff), 1);
}

TEST_P(AnyStripCreation, ALengthBeyond31BitsGivesNone)
{
    Register(96, IDR_PNG_STRIP_16, {0xffffffff});
    EXPECT_EQ(Create(96), 0u);
    Register(96, IDR_PNG_STRIP_16, {0x80000000});
    EXPECT_EQ(Create(96), 0u);
}

TEST_P(AnyStripCreation, ADamagedResourceGivesNone)
{
    LiveBitmaps live;
    Register(96, IDR_PNG_DAMAGED, {16});
    EXPECT_EQ(Create(96), 0u);
    Register(96, IDR_MISSING, {16});
    EXPECT_EQ(Create(96), 0u);
    live.DeleteAll();
}

TEST_P(AnyStripCreation, NothingIsKeptBetweenCalls)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    const Lines first = ResourceCallsOf(96);
    EXPECT_EQ(first.size(), 8u);
    EXPECT_EQ(ResourceCallsOf(96), first);
}

TEST_P(AnyStripCreation, LeavesNothingBehindOnceDestroyed)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_NO_LEAK([this] { Create(120); });
}

TEST_P(AnyStripCreation, AThousandCallsLeaveNothingBehindOnceDestroyed)
{
    const ServedResource served(ArgbImage(2, 2, 0x80ff4010));
    Register(96, 1, {2});
    for (int warmUp = 0; warmUp < 10; ++warmUp)
        Create(96);
    const HandleCount before = HandleCount::Now();
    for (int call = 0; call < 1000; ++call)
        Create(96);
    EXPECT_TRUE(SameHandlesAs(before));
    const HandleCount growth = HandleCount::Now() - before; // of the heaps, but for what they cache
    EXPECT_LT(growth[HandleKind::HeapBlock], 100);
    EXPECT_LT(growth[HandleKind::CrtBlock], 100);
}

TEST_P(AnyStripCreation, StartsGdiPlusOnceForEachCell)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    const ImportSpy<decltype(Gdiplus::GdiplusStartup)> start(VxDpiModule(), "gdiplus.dll", "GdiplusStartup");
    EXPECT_EQ(Create(96), 3u);
    EXPECT_EQ(start.CallCount(), 3);
}

TEST_F(StripCreation, FiveCellsGiveFiveIconsOfTheMonitorsSize)
{
    const ServedResource served(StripPicture(5, 16));
    Register(96, 1, {16});
    for (const auto& [dpi, side] : {SizeAtDpi{144, 24}, SizeAtDpi{96, 16}, SizeAtDpi{192, 32}})
    {
        const OwnedIcons icons = Icons(dpi);
        ASSERT_EQ(icons.Count(), 5u);
        for (std::size_t i = 0; i < 5; ++i)
        {
            EXPECT_EQ(SizeOf(icons.At(i)).cx, side);
            EXPECT_EQ(SizeOf(icons.At(i)).cy, side);
        }
    }
}

TEST_F(StripCreation, FixedIconsAreMadeByGdiAndOthersByGdiPlus)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    const ImportSpy<decltype(Flat::GdipCreateHICONFromBitmap)> gdiPlus(VxDpiModule(), "gdiplus.dll",
                                                                       "GdipCreateHICONFromBitmap");
    const ImportSpy<decltype(::CreateIconIndirect)> gdi(VxDpiModule(), "user32.dll", "CreateIconIndirect");
    EXPECT_EQ(Icons(96, FALSE).Count(), 3u);
    EXPECT_EQ(gdiPlus.CallCount(), 3);
    EXPECT_EQ(gdi.CallCount(), 0);
    EXPECT_EQ(Icons(96, 2).Count(), 3u);
    EXPECT_EQ(gdiPlus.CallCount(), 3);
    EXPECT_EQ(gdi.CallCount(), 3);
    EXPECT_EQ(DisabledIcons(96).Count(), 3u);
    EXPECT_EQ(gdiPlus.CallCount(), 6);
    EXPECT_EQ(gdi.CallCount(), 3);
}

TEST_F(StripCreation, OnlyDisabledIconsAreGrey)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(PixelsOf(Icons(96).At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(Icons(96, TRUE).At(0)).At(8, 8), 0xff00a000u);
    EXPECT_EQ(PixelsOf(DisabledIcons(96).At(0)).At(8, 8), 0xff8d8d8du);
    EXPECT_EQ(PixelsOf(Bitmaps(96).At(0)).At(8, 8), 0xff00a000u);
}

TEST_F(StripCreation, BitmapsAreLaidOverTheBackground)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    CallLog log;
    const PixelCalls calls(log);
    EXPECT_EQ(PixelsOf(Bitmaps(96, 0xff0a141e).At(0)).At(0, 0) & 0xffffff, 0x0a141eu);
    EXPECT_EQ(LinesOf(log, "GdipCreateHBITMAPFromBitmap").at(0),
              "GdipCreateHBITMAPFromBitmap(#2, null, 4278850590)");
}

TEST_F(StripCreation, IconsAndBitmapsAreOfTheGivenModule)
{
    const ResourceDll dll;
    Register(96, IDR_DLL_SHARED_ID, {16});
    const OwnedIcons icons(m_strip.CreatePngSplit(96, dll.Module(), FALSE));
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), kOtherColor);
    const OwnedBitmaps bitmaps(m_strip.CreatePngSplitBitmap(96, dll.Module(), kWhite));
    ASSERT_EQ(bitmaps.Count(), 1u);
    EXPECT_EQ(PixelsOf(bitmaps.At(0)).At(8, 8), kOtherColor);
}

TEST_F(StripCreation, DisabledIconsAreOfTheFrameworksResourceModule)
{
    const ResourceDll dll;
    Register(96, IDR_DLL_PNG_24, {24});
    EXPECT_EQ(DisabledIcons(96).Count(), 0u);
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    const OwnedIcons icons = DisabledIcons(96);
    ASSERT_EQ(icons.Count(), 1u);
    EXPECT_EQ(PixelsOf(icons.At(0)).At(8, 8), 0xff898989u); // of 2060c0
}

TEST_F(StripCreation, IconsDoNotAskForTheFrameworksResourceModule)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_EQ(Icons(96).Count(), 3u);
    EXPECT_EQ(Bitmaps(96).Count(), 3u);
    EXPECT_EQ(DisabledIcons(96).Count(), 0u);
}

TEST_F(StripCreation, ACellOf0PixelsGivesNoIcons)
{
    Register(96, IDR_PNG_STRIP_16, {0});
    EXPECT_EQ(Icons(96).Count(), 0u);
    EXPECT_EQ(DisabledIcons(96).Count(), 0u);
}

TEST_F(DestroyIcons, EveryIconIsDestroyedInOrderAndNullPassedOver)
{
    std::vector<HICON> icons = {SmallIcon(), nullptr, SmallIcon(), SmallIcon(), nullptr};
    const std::vector<HICON> originals = {icons[0], icons[2], icons[3]};
    std::vector<HICON> destroyed;
    const ImportSpy<decltype(::DestroyIcon)> destroy(VxDpiModule(), "user32.dll", "DestroyIcon",
                                                     [&](HICON icon)
                                                     {
                                                         destroyed.push_back(icon);
                                                         return destroy.Original()(icon);
                                                     });
    m_strip.DestroyIcons(icons);
    EXPECT_EQ(destroyed, originals);
    ICONINFO info = {};
    EXPECT_EQ(::GetIconInfo(originals[0], &info), FALSE);
    EXPECT_EQ(::GetIconInfo(originals[2], &info), FALSE);
}

TEST_F(DestroyIcons, TheListIsEmptyAndKeepsItsRoom)
{
    std::vector<HICON> icons(5, nullptr);
    m_strip.DestroyIcons(icons);
    EXPECT_TRUE(icons.empty());
    EXPECT_EQ(icons.capacity(), 5u);
}

TEST_F(DestroyIcons, AnIconThatCannotBeDestroyedIsDroppedToo)
{
    std::vector<HICON> icons = {SmallIcon(), SmallIcon()};
    const std::vector<HICON> originals = icons;
    {
        const FailNthCall<decltype(::DestroyIcon)> fail(VxDpiModule(), "user32.dll", "DestroyIcon", 1, FALSE);
        m_strip.DestroyIcons(icons);
        EXPECT_EQ(fail.CallCount(), 2);
    }
    EXPECT_TRUE(icons.empty());
    EXPECT_NE(::DestroyIcon(originals[0]), FALSE);
}

TEST_F(DestroyIcons, AnEmptyListStaysEmpty)
{
    std::vector<HICON> icons;
    m_strip.DestroyIcons(icons);
    EXPECT_TRUE(icons.empty());
}

TEST_F(DestroyIcons, FreesWhatASplitCreated)
{
    Register(96, IDR_PNG_STRIP_16, {16});
    EXPECT_NO_LEAK(
        [this]
        {
            std::vector<HICON> icons = m_strip.CreatePngSplit(96, m_program, TRUE);
            m_strip.DestroyIcons(icons);
        });
}
