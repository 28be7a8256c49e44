#include <vxdpi/Png.h>

#include "imaging/RegistryFields.h"
#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{
const Gdiplus::Color kWhiteColor(255, 255, 255, 255);
const Gdiplus::Size kUntouchedSize(-7, -8);

class PngPicture : public testing::Test
{
protected:
    void Register(UINT dpi, UINT resourceId) { m_png.AddResourceForDpi(dpi, resourceId, {}); }

    const GdiPlusSession m_gdiPlus;
    CDpiAwarePng m_png;
};

class GetGdiplusBitmap : public PngPicture
{
protected:
    std::unique_ptr<Gdiplus::Bitmap> Get(UINT dpi)
    {
        return std::unique_ptr<Gdiplus::Bitmap>(m_png.GetGdiplusBitmap(dpi));
    }
};

using Sides = std::pair<LONG, LONG>;

// Both overloads do the same but for the module; the parameter tells whether one is given.
class ScalePngResource : public PngPicture, public testing::WithParamInterface<bool>
{
protected:
    ~ScalePngResource() override { DeleteHandle(); }

    HBITMAP Scale(UINT dpi, Gdiplus::Size* size, Gdiplus::Color background = kWhiteColor)
    {
        DeleteHandle();
        m_handle = GetParam() ? m_png.ScalePngResource(dpi, ::GetModuleHandleW(nullptr), size, background)
                              : m_png.ScalePngResource(dpi, size, background);
        return m_handle;
    }

    HBITMAP Scale(UINT dpi) { return Scale(dpi, &m_size); }

    // The sizes that the bitmap has and that the operation tells, which agree.
    Sides ScaledSize(UINT dpi)
    {
        const HBITMAP handle = Scale(dpi);
        if (handle == nullptr)
        {
            ADD_FAILURE() << "no bitmap for " << dpi;
            return {};
        }
        const SIZE size = SizeOf(handle);
        EXPECT_TRUE(IsSize(m_size, size.cx, size.cy));
        return {size.cx, size.cy};
    }

    bool SizeIsUntouched() const { return IsSize(m_size, kUntouchedSize.Width, kUntouchedSize.Height); }

    CallLog::LineList CallsOf(UINT dpi, Gdiplus::Size* size, Gdiplus::Color background)
    {
        CallLog log;
        const GdiPlusCalls changes(log);
        const PictureQuestions questions(log);
        const PixelCalls pixels(log);
        Scale(dpi, size, background);
        return log.Lines();
    }

    Gdiplus::Size m_size = kUntouchedSize;

private:
    void DeleteHandle()
    {
        if (m_handle != nullptr)
            ::DeleteObject(m_handle);
        m_handle = nullptr;
    }

    HBITMAP m_handle = nullptr;
};

using Flat::GdipCreateBitmapFromScan0;
using Flat::GdipCreateHBITMAPFromBitmap;
using Flat::GdipGetImageHeight;
using Flat::GdipGetImageWidth;
}

TEST(CDpiAwarePng, ConsistsOfOneRegistry)
{
    static_assert(!std::is_polymorphic_v<CDpiAwarePng>);
    static_assert(!std::is_copy_constructible_v<CDpiAwarePng>);
    static_assert(sizeof(CDpiAwarePng) == sizeof(CDpiAwareRes));
    CDpiAwarePng png;
    EXPECT_EQ(FieldsOf(png).nCurrentDpi, 96u);
    EXPECT_EQ(FieldsOf(png).nReserved, 0u);
    ASSERT_NE(FieldsOf(png).pMutex, nullptr);
    ASSERT_NE(FieldsOf(png).pEntries, nullptr);
    EXPECT_TRUE(FieldsOf(png).pEntries->empty());
}

TEST(CDpiAwarePng, IsEmptyUntilAResourceIsAdded)
{
    CDpiAwarePng png;
    EXPECT_EQ(png.Empty(), TRUE);
    png.AddResourceForDpi(96, IDR_PNG_16, {});
    EXPECT_EQ(png.Empty(), FALSE);
}

TEST(CDpiAwarePng, AddingAResourceRegistersItWithAllItsValues)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(144, 12, {5, 3});
    png.AddResourceForDpi(96, 11, {});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(png).pEntries;
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0]->nDpi, 144u);
    EXPECT_EQ(entries[0]->nResourceId, 12u);
    EXPECT_EQ(entries[0]->values, (std::vector<UINT>{5, 3}));
    EXPECT_EQ(entries[1]->nDpi, 96u);
    EXPECT_EQ(entries[1]->nResourceId, 11u);
}

TEST(CDpiAwarePng, AddingAResourceForTheSameDpiReplacesTheEarlier)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(144, 11, {5});
    png.AddResourceForDpi(144, 12, {6, 7});
    const std::vector<ResourceInfo*>& entries = *FieldsOf(png).pEntries;
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0]->nResourceId, 12u);
    EXPECT_EQ(entries[0]->values, (std::vector<UINT>{6, 7}));
}

TEST(CDpiAwarePng, NothingIsLeftBehindByItsLife)
{
    EXPECT_NO_LEAK(
        []
        {
            CDpiAwarePng png;
            png.AddResourceForDpi(96, 11, {1, 2, 3});
            png.AddResourceForDpi(144, 12, {});
        });
}

TEST(CDpiAwarePng, AssignmentSharesLockAndListAndCopiesTheRest)
{
    CDpiAwarePng source;
    CDpiAwarePng target;
    const KeepFields keepTarget(FieldsOf(target));
    source.AddResourceForDpi(96, 11, {});
    FieldsOf(source).nCurrentDpi = 144;
    FieldsOf(source).nReserved = 5;

    EXPECT_EQ(&(target = source), &target);

    EXPECT_EQ(FieldsOf(target).nCurrentDpi, 144u);
    EXPECT_EQ(FieldsOf(target).nReserved, 5u);
    EXPECT_EQ(FieldsOf(target).pMutex, FieldsOf(source).pMutex);
    EXPECT_EQ(FieldsOf(target).pEntries, FieldsOf(source).pEntries);
}

TEST(CDpiAwarePng, MovingSharesLikeAssignmentAndEmptiesNothing)
{
    CDpiAwarePng source;
    CDpiAwarePng target;
    const KeepFields keepTarget(FieldsOf(target));
    source.AddResourceForDpi(96, 11, {});
    FieldsOf(source).nCurrentDpi = 144;
    FieldsOf(source).nReserved = 5;
    const RegistryFields before = FieldsOf(source);

    EXPECT_EQ(&(target = std::move(source)), &target);

    for (const RegistryFields& fields : {FieldsOf(source), FieldsOf(target)})
    {
        EXPECT_EQ(fields.nCurrentDpi, 144u);
        EXPECT_EQ(fields.nReserved, 5u);
        EXPECT_EQ(fields.pMutex, before.pMutex);
        EXPECT_EQ(fields.pEntries, before.pEntries);
    }
    EXPECT_EQ(FieldsOf(source).pEntries->size(), 1u);
}

TEST_F(GetGdiplusBitmap, GivesThePictureUnscaled)
{
    Register(96, IDR_PNG_16);
    const auto bitmap = Get(144);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*bitmap)));
}

TEST_F(GetGdiplusBitmap, OnlyDecodes)
{
    Register(96, IDR_PNG_16);
    CallLog log;
    const ResourceCalls resourceCalls(log);
    const GdiPlusCalls changes(log);
    const PictureQuestions questions(log);
    const PixelCalls pixels(log);
    const auto bitmap = Get(144);
    EXPECT_NE(bitmap, nullptr);
    EXPECT_EQ(log.Lines().size(), 10u);
    EXPECT_EQ(log.Lines().back(), "GdipCreateBitmapFromStream()");
}

TEST_F(GetGdiplusBitmap, TakesTheSmallestAtOrAboveTheDpiElseTheLargest)
{
    Register(96, IDR_PNG_16);
    Register(144, IDR_PNG_24);
    Register(192, IDR_PNG_32);
    EXPECT_EQ(Get(0)->GetWidth(), 16u);
    EXPECT_EQ(Get(96)->GetWidth(), 16u);
    EXPECT_EQ(Get(120)->GetWidth(), 24u);
    EXPECT_EQ(Get(144)->GetWidth(), 24u);
    EXPECT_EQ(Get(168)->GetWidth(), 32u);
    EXPECT_EQ(Get(192)->GetWidth(), 32u);
    EXPECT_EQ(Get(240)->GetWidth(), 32u);
}

TEST_F(GetGdiplusBitmap, LooksIntoTheFrameworksResourceModule)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    Register(96, IDR_DLL_SHARED_ID);
    AfxSetResourceHandle(dll.Module());
    const auto bitmap = Get(96);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*bitmap)));
}

TEST_F(GetGdiplusBitmap, DecodesAnewForEachCaller)
{
    Register(96, IDR_PNG_16);
    const auto first = Get(96);
    const auto second = Get(96);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    first->SetPixel(5, 5, Gdiplus::Color(0xff112233));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*second)));
}

TEST_F(GetGdiplusBitmap, MovesTheCurrentDpi)
{
    EXPECT_EQ(Get(120), nullptr);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 120u);
    Register(96, IDR_PNG_16);
    Get(144);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_F(GetGdiplusBitmap, WithoutAReadableResourceThereIsNone)
{
    EXPECT_EQ(Get(96), nullptr);
    Register(96, IDR_MISSING);
    EXPECT_EQ(Get(96), nullptr);
    Register(96, IDR_PNG_GARBAGE);
    EXPECT_EQ(Get(96), nullptr);
}

TEST_F(GetGdiplusBitmap, DecodesWithoutTheRegistrysLock)
{
    Register(96, IDR_PNG_16);
    std::mutex& mutex = *FieldsOf(m_png).pMutex;
    bool isFree = false;
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW",
                                                    [&](HMODULE module, LPCWSTR name, LPCWSTR type)
                                                    {
                                                        isFree = mutex.try_lock();
                                                        if (isFree)
                                                            mutex.unlock();
                                                        return find.Original()(module, name, type);
                                                    });
    EXPECT_NE(Get(96), nullptr);
    EXPECT_TRUE(isFree);
}

TEST_F(GetGdiplusBitmap, ServesSeveralThreadsAtOnce)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 20;
    Register(96, IDR_PNG_16);
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < kRounds; ++round)
                {
                    const auto bitmap = Get(96);
                    good += bitmap != nullptr && PixelsOf(*bitmap) == FramedPicture(16, 16) ? 1 : 0;
                }
            });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(good, 80);
}

TEST_F(GetGdiplusBitmap, LeavesNothingBehind)
{
    Register(96, IDR_PNG_16);
    EXPECT_NO_LEAK([this] { Get(144); });
}

TEST_P(ScalePngResource, AtTheSameDpiKeepsTheSize)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(96), Sides(16, 16));
}

TEST_P(ScalePngResource, At120GivesFiveQuarters)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(120), Sides(20, 20));
}

TEST_P(ScalePngResource, At144GivesThreeHalves)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(144), Sides(24, 24));
}

TEST_P(ScalePngResource, At192GivesTheDouble)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(192), Sides(32, 32));
}

TEST_P(ScalePngResource, At72ShrinksThePictureFor96)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(72), Sides(12, 12));
}

TEST_P(ScalePngResource, FractionsAreCutOff)
{
    Register(96, IDR_PNG_15);
    EXPECT_EQ(ScaledSize(120), Sides(18, 18));
    EXPECT_EQ(ScaledSize(144), Sides(22, 22));
}

TEST_P(ScalePngResource, WidthAndHeightAreScaledApart)
{
    Register(96, IDR_PNG_STRIP_16);
    EXPECT_EQ(ScaledSize(144), Sides(72, 24));
    Register(96, IDR_PNG_COLUMN);
    EXPECT_EQ(ScaledSize(144), Sides(1, 24));
    EXPECT_EQ(ScaledSize(192), Sides(2, 32));
}

TEST_P(ScalePngResource, ScalesTheEntryThatFitsBest)
{
    Register(96, IDR_PNG_16);
    Register(144, IDR_PNG_48);
    EXPECT_EQ(ScaledSize(96), Sides(16, 16));
    EXPECT_EQ(ScaledSize(120), Sides(40, 40));
    EXPECT_EQ(ScaledSize(144), Sides(48, 48));
    EXPECT_EQ(ScaledSize(192), Sides(64, 64));
}

// 24 x (84 / 72) is 28 in single precision; in double precision the single quotient gives a little less.
TEST_P(ScalePngResource, TheProductIsSinglePrecision)
{
    Register(72, IDR_PNG_24);
    EXPECT_EQ(ScaledSize(84), Sides(28, 28));
    EXPECT_EQ(ScaledSize(120), Sides(40, 40));
}

// In single precision both numbers are 16777220, and the quotient 1.
TEST_P(ScalePngResource, TheQuotientIsDoublePrecision)
{
    Register(16777220, IDR_PNG_16);
    EXPECT_EQ(ScaledSize(16777219), Sides(15, 15));
}

TEST_P(ScalePngResource, AResolutionInTheFileDoesNotMatter)
{
    Register(96, IDR_PNG_144_DPI);
    EXPECT_EQ(ScaledSize(144), Sides(48, 48));
}

TEST_P(ScalePngResource, UnscaledPixelsAreLaidOverTheBackground)
{
    Register(96, IDR_PNG_16);
    const HBITMAP handle = Scale(96);
    ASSERT_NE(handle, nullptr);
    const ArgbImage pixels = PixelsOf(handle);
    EXPECT_TRUE(IsNear(pixels.At(0, 0), 0x00ffffff));
    EXPECT_TRUE(IsNear(pixels.At(5, 0), 0x80ff9f87));
    EXPECT_EQ(pixels.At(5, 6), FramedPicture(16, 16).At(5, 6));
}

TEST_P(ScalePngResource, DecodesScalesTellsTheSizeAndConvertsInThisOrder)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(CallsOf(144, &m_size, Gdiplus::Color(0x80112233)),
              (CallLog::LineList{
                  "GdipCreateBitmapFromStream()", "GdipGetImageWidth(decoded)", "GdipGetImageHeight(decoded)",
                  "GdipGetImagePixelFormat(decoded)", "GdipCreateBitmapFromScan0(24, 24, 0, 2498570, null)",
                  "GdipGetImageGraphicsContext(scaled)", "GdipSetInterpolationMode(scaler, 7)",
                  "GdipDrawImageRectI(scaler, decoded, 0, 0, 24, 24)", "GdipDeleteGraphics(scaler)",
                  "GdipGetImageWidth(scaled)", "GdipGetImageHeight(scaled)", "GdipDisposeImage(decoded)",
                  "GdipCreateHBITMAPFromBitmap(scaled, null, 2148606515)", "GdipDisposeImage(scaled)"}));
}

TEST_P(ScalePngResource, WithoutAPlaceForTheSizeTheScaledBitmapIsNotAsked)
{
    Register(96, IDR_PNG_16);
    EXPECT_EQ(CallsOf(144, nullptr, kWhiteColor),
              (CallLog::LineList{
                  "GdipCreateBitmapFromStream()", "GdipGetImageWidth(decoded)", "GdipGetImageHeight(decoded)",
                  "GdipGetImagePixelFormat(decoded)", "GdipCreateBitmapFromScan0(24, 24, 0, 2498570, null)",
                  "GdipGetImageGraphicsContext(scaled)", "GdipSetInterpolationMode(scaler, 7)",
                  "GdipDrawImageRectI(scaler, decoded, 0, 0, 24, 24)", "GdipDeleteGraphics(scaler)",
                  "GdipDisposeImage(decoded)", "GdipCreateHBITMAPFromBitmap(scaled, null, 4294967295)",
                  "GdipDisposeImage(scaled)"}));
}

// The first question for each side goes to the decoded bitmap, the second to the scaled one.
TEST_P(ScalePngResource, TellsTheSizeThatTheScaledBitmapHas)
{
    Register(96, IDR_PNG_16);
    const ImportSpy<decltype(GdipGetImageWidth)> width(VxDpiModule(), "gdiplus.dll", "GdipGetImageWidth",
                                                       [&](Gdiplus::GpImage* image, UINT* answer)
                                                       {
                                                           const auto status =
                                                               width.Original()(image, answer);
                                                           *answer = width.CallCount() == 2 ? 77 : *answer;
                                                           return status;
                                                       });
    const ImportSpy<decltype(GdipGetImageHeight)> height(VxDpiModule(), "gdiplus.dll", "GdipGetImageHeight",
                                                         [&](Gdiplus::GpImage* image, UINT* answer)
                                                         {
                                                             const auto status =
                                                                 height.Original()(image, answer);
                                                             *answer = height.CallCount() == 2 ? 88 : *answer;
                                                             return status;
                                                         });
    EXPECT_NE(Scale(144), nullptr);
    EXPECT_TRUE(IsSize(m_size, 77, 88));
}

TEST_P(ScalePngResource, MovesTheCurrentDpi)
{
    EXPECT_EQ(Scale(120), nullptr);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 120u);
    Register(96, IDR_PNG_16);
    EXPECT_NE(Scale(144), nullptr);
    EXPECT_EQ(FieldsOf(m_png).nCurrentDpi, 144u);
}

TEST_P(ScalePngResource, WithoutAReadableResourceThereIsNoneAndTheSizeIsUntouched)
{
    EXPECT_EQ(Scale(96), nullptr);
    Register(96, IDR_MISSING);
    EXPECT_EQ(Scale(96), nullptr);
    Register(96, IDR_PNG_TRUNCATED);
    EXPECT_EQ(Scale(96), nullptr);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_P(ScalePngResource, ASideThatComesOutAs0GivesNone)
{
    Register(96, IDR_PNG_COLUMN);
    EXPECT_EQ(Scale(95), nullptr);
    EXPECT_EQ(Scale(0), nullptr);
    Register(96, IDR_PNG_16);
    EXPECT_EQ(Scale(0), nullptr);
    EXPECT_EQ(Scale(5), nullptr);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_EQ(ScaledSize(6), Sides(1, 1));
}

TEST_P(ScalePngResource, AnEntryFor0DpiGivesNone)
{
    Register(0, IDR_PNG_16);
    EXPECT_EQ(Scale(0), nullptr);
    EXPECT_EQ(Scale(96), nullptr);
    EXPECT_TRUE(SizeIsUntouched());
}

TEST_P(ScalePngResource, KeepsTheDecodedBitmapWhenItCannotBeScaled)
{
    Register(96, IDR_PNG_COLUMN);
    LiveBitmaps live;
    EXPECT_EQ(CallsOf(48, &m_size, kWhiteColor),
              (CallLog::LineList{"GdipCreateBitmapFromStream()", "GdipGetImageWidth(decoded)",
                                 "GdipGetImageHeight(decoded)"}));
    EXPECT_EQ(live.Count(), 1u);
    Scale(48);
    EXPECT_EQ(live.Count(), 2u);
    live.DeleteAll();
}

TEST_P(ScalePngResource, NothingButTheDecodedBitmapIsKeptWhenItCannotBeScaled)
{
    Register(0, IDR_PNG_16);
    EXPECT_NO_LEAK(
        [this]
        {
            LiveBitmaps live;
            Scale(96);
            live.DeleteAll();
        });
}

TEST_P(ScalePngResource, WithoutMemoryForTheScaledBitmapTheDecodedOneIsKept)
{
    Register(96, IDR_PNG_16);
    const FailGdipAlloc fail(2);
    LiveBitmaps live;
    EXPECT_EQ(Scale(144), nullptr);
    EXPECT_TRUE(SizeIsUntouched());
    EXPECT_EQ(live.Count(), 1u);
    live.DeleteAll();
}

TEST_P(ScalePngResource, AFailedConversionGivesNoneAndTellsTheSizeAllTheSame)
{
    Register(96, IDR_PNG_16);
    const FailNthCall<decltype(GdipCreateHBITMAPFromBitmap)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateHBITMAPFromBitmap", 1, Gdiplus::OutOfMemory);
    LiveBitmaps live;
    EXPECT_EQ(Scale(144), nullptr);
    EXPECT_TRUE(IsSize(m_size, 24, 24));
    EXPECT_EQ(live.Count(), 0u);
}

TEST_P(ScalePngResource, AScaledBitmapThatGdiPlusRefusesHasNoSizeAndNoHandle)
{
    Register(96, IDR_PNG_16);
    const FailNthCall<decltype(GdipCreateBitmapFromScan0)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromScan0", 1, Gdiplus::OutOfMemory);
    LiveBitmaps live;
    EXPECT_EQ(Scale(144), nullptr);
    EXPECT_TRUE(IsSize(m_size, 0, 0));
    EXPECT_EQ(live.Count(), 0u);
}

TEST_P(ScalePngResource, LeavesNothingBehindButItsResult)
{
    Register(96, IDR_PNG_16);
    EXPECT_NO_LEAK(
        [this]
        {
            Scale(144);
            Scale(96);
        });
    LiveBitmaps live;
    Scale(144);
    EXPECT_EQ(live.Count(), 0u);
}

INSTANTIATE_TEST_SUITE_P(BothOverloads, ScalePngResource, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& hasModule) -> std::string
                         { return hasModule.param ? "WithModule" : "WithoutModule"; });

namespace
{
class ScalePngResourceOfDll : public PngPicture
{
protected:
    // The colour in the middle of what the picture of the shared ID becomes at 144 DPI.
    std::uint32_t MiddleOf(HBITMAP handle)
    {
        if (handle == nullptr)
            throw std::runtime_error("no bitmap");
        const std::uint32_t middle = PixelsOf(handle).At(12, 12);
        ::DeleteObject(handle);
        return middle;
    }

    const ResourceDll m_dll;
    const KeepResourceModule m_keep;
};
}

TEST_F(ScalePngResourceOfDll, AGivenModuleIsLookedInto)
{
    Register(96, IDR_DLL_SHARED_ID);
    EXPECT_EQ(MiddleOf(m_png.ScalePngResource(144, m_dll.Module(), nullptr, kWhiteColor)), kOtherColor);
    EXPECT_NE(MiddleOf(m_png.ScalePngResource(144, nullptr, kWhiteColor)), kOtherColor);
}

TEST_F(ScalePngResourceOfDll, WithoutAModuleTheFrameworksResourceModuleIsLookedInto)
{
    Register(96, IDR_DLL_SHARED_ID);
    AfxSetResourceHandle(m_dll.Module());
    EXPECT_EQ(MiddleOf(m_png.ScalePngResource(144, nullptr, kWhiteColor)), kOtherColor);
    EXPECT_NE(MiddleOf(m_png.ScalePngResource(144, ::GetModuleHandleW(nullptr), nullptr, kWhiteColor)),
              kOtherColor);
}

TEST_F(ScalePngResourceOfDll, OnlyThatModuleIsLookedInto)
{
    Register(96, IDR_DLL_PNG_24);
    EXPECT_EQ(m_png.ScalePngResource(96, nullptr, kWhiteColor), nullptr);
    Register(96, IDR_PNG_48);
    EXPECT_EQ(m_png.ScalePngResource(96, m_dll.Module(), nullptr, kWhiteColor), nullptr);
}
