#include <vxdpi/Png.h>

#include "foundation/ShortMemory.h"
#include "imaging/RegistryFields.h"
#include "png/DrawingCalls.h"
#include "resources/resource_ids.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

// What passes between the library and a program that has its own C++ run-time library.

namespace
{
// A picture of an application's own class, which may decode what it likes.
class OwnPicture : public CDpiAwarePng
{
public:
    using CDpiAwarePng::CreateBitmapFromPngResource;
};

class PngAcrossModules : public testing::Test
{
protected:
    const GdiPlusSession m_gdiPlus;
};

// Waits until two threads have come here.
class MeetingPoint
{
public:
    bool Meet()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_arrived;
        m_change.notify_all();
        return m_change.wait_for(lock, std::chrono::seconds(20), [this] { return m_arrived >= 2; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    int m_arrived = 0;
};

std::uint32_t DrawnPixel(CDpiAwarePng& png)
{
    const Dib32 target(32, 32);
    png.DrawPngInDC(target.Dc(), 96, {0, 0, 32, 32}, nullptr, nullptr);
    return target.At(5, 7);
}
} // namespace

TEST_F(PngAcrossModules, ValuesOfTheProgramAreCopied)
{
    CDpiAwareRes registry;
    {
        std::vector<UINT> values = {16, 24, 32};
        registry.RegisterIconResource(96, 7, values);
        values[0] = 0;
    }
    const ResourceInfo* const found = registry.FindBestResource();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->values, (std::vector<UINT>{16, 24, 32}));
}

TEST_F(PngAcrossModules, ManyValuesReplaceFewInPlace)
{
    CDpiAwareRes registry;
    registry.RegisterIconResource(96, 7, {1});
    const ResourceInfo* const found = registry.FindBestResource();
    registry.RegisterIconResource(96, 7, std::vector<UINT>(1000, 5));
    EXPECT_EQ(found->values, std::vector<UINT>(1000, 5));
}

TEST_F(PngAcrossModules, RegistryFreesWhatTheProgramRegistered)
{
    EXPECT_NO_LEAK(
        []
        {
            CDpiAwarePng png;
            png.AddResourceForDpi(96, 1, std::vector<UINT>(1000, 5));
            png.AddResourceForDpi(144, 2, {1, 2});
            png.AddResourceForDpi(96, 3, {});
        });
}

// A mutex takes memory when it is locked first: without it, a picture that was never used cannot be locked.

TEST_F(PngAcrossModules, FailureToLockReachesTheProgramAsSystemError)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    const ShortMemory failing;
    EXPECT_THROW(png.Empty(), std::system_error);
}

TEST_F(PngAcrossModules, FailureToLockForRegisteringReachesTheProgramAsSystemError)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    {
        const ShortMemory failing;
        EXPECT_THROW(png.AddResourceForDpi(96, IDR_PNG_32, {}), std::system_error);
    }
    EXPECT_EQ(png.Empty(), TRUE);
}

TEST_F(PngAcrossModules, FailureToLockForDecodingReachesTheProgramAsSystemError)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    const ShortMemory failing;
    EXPECT_THROW(png.GetGdiplusBitmap(96), std::system_error);
}

TEST_F(PngAcrossModules, FailureToLockForDrawingReachesTheProgramAsSystemError)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    const Dib32 target(32, 32);
    const ShortMemory failing;
    EXPECT_THROW(png.DrawPngInDC(target.Dc(), 144, {0, 0, 32, 32}, nullptr, nullptr), std::system_error);
    EXPECT_EQ(FieldsOf(png).nCurrentDpi, 96u);
}

TEST_F(PngAcrossModules, FailureToLockForMetafilesLeavesTheContext)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    const Dib32 target(32, 32);
    const ShortMemory failing;
    EXPECT_THROW(png.DrawPngInMetaDC(target.Dc(), 144, {0, 0, 32, 32}, nullptr, nullptr), std::system_error);
    EXPECT_EQ(::GetObjectType(target.Dc()), static_cast<DWORD>(OBJ_MEMDC));
}

TEST_F(PngAcrossModules, ShortMemoryReachesTheProgramAsBadAlloc)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    CDpiAwarePng png;
    ASSERT_EQ(png.Empty(), TRUE); // from here on it can be locked
    {
        const ShortMemory failing;
        EXPECT_THROW(png.AddResourceForDpi(96, IDR_PNG_32, {}), std::bad_alloc);
    }
    EXPECT_EQ(png.Empty(), TRUE);
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    EXPECT_EQ(DrawnPixel(png), 0xff192340u);
}

TEST_F(PngAcrossModules, ProgramDeletesTheBitmapsThatItIsGiven)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    EXPECT_NO_LEAK(
        [&]
        {
            const std::unique_ptr<Gdiplus::Bitmap> decoded(png.GetGdiplusBitmap(96));
            const std::unique_ptr<Gdiplus::Bitmap> red(png.ReplaceColor(96, Gdiplus::Color(255, 0, 0)));
            const std::unique_ptr<Gdiplus::Bitmap> scaled(CDpiAwarePng::ScaleBitmap(decoded.get(), 48, 48));
            const std::unique_ptr<Gdiplus::Bitmap> both(
                CDpiAwarePng::CombineBitmaps(red.get(), scaled.get()));
            EXPECT_EQ(both->GetWidth(), 32u);
        });
}

TEST_F(PngAcrossModules, ProgramMayAskAGivenBitmapForItsStatus)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    const std::unique_ptr<Gdiplus::Bitmap> bitmap(png.GetGdiplusBitmap(96));
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetLastStatus(), Gdiplus::Ok);
    const std::unique_ptr<Gdiplus::Image> clone(bitmap->Clone());
    EXPECT_EQ(clone->GetWidth(), 32u);
}

TEST_F(PngAcrossModules, LibraryScalesABitmapOfTheProgram)
{
    Gdiplus::Bitmap own(10, 20, PixelFormat32bppARGB);
    const std::unique_ptr<Gdiplus::Bitmap> scaled(CDpiAwarePng::ScaleBitmap(&own, 30, 40));
    ASSERT_NE(scaled, nullptr);
    EXPECT_EQ(scaled->GetWidth(), 30u);
    EXPECT_EQ(scaled->GetHeight(), 40u);
}

TEST_F(PngAcrossModules, SubclassOfTheProgramDecodesFromAnyModule)
{
    OwnPicture picture;
    const ResourceDll resources;
    const std::unique_ptr<Gdiplus::Bitmap> bitmap(
        picture.CreateBitmapFromPngResource(IDR_DLL_PNG_24, resources.Module()));
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(PixelsOf(*bitmap), ArgbImage(24, 24, 0xff2060c0));
}

TEST_F(PngAcrossModules, AssignedPictureSharesWhatIsRegisteredLater)
{
    CDpiAwarePng png;
    CDpiAwarePng copy;
    const KeepFields keep(FieldsOf(copy));
    copy = png;
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    EXPECT_EQ(copy.Empty(), FALSE);
    EXPECT_EQ(DrawnPixel(copy), 0xff192340u);
}

TEST_F(PngAcrossModules, TwoThreadsDecodeOnePictureAtOnce)
{
    CDpiAwarePng png;
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    MeetingPoint inside;
    ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> decode(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* stream, Gdiplus::GpBitmap** bitmap)
        {
            EXPECT_TRUE(inside.Meet()) << "one thread waits for the other's decoding to end";
            return decode.Original()(stream, bitmap);
        });
    std::uint32_t other = 0;
    std::thread thread([&] { other = DrawnPixel(png); });
    const std::uint32_t mine = DrawnPixel(png);
    thread.join();
    EXPECT_EQ(mine, 0xff192340u);
    EXPECT_EQ(other, 0xff192340u);
}

TEST_F(PngAcrossModules, TwoThreadsDrawManyTimes)
{
    constexpr int kTimes = 100;
    CDpiAwarePng png;
    png.AddResourceForDpi(96, IDR_PNG_32, {});
    int otherGood = 0;
    int good = 0;
    std::thread thread(
        [&]
        {
            for (int i = 0; i < kTimes; ++i)
                otherGood += DrawnPixel(png) == 0xff192340u;
        });
    for (int i = 0; i < kTimes; ++i)
        good += DrawnPixel(png) == 0xff192340u;
    thread.join();
    EXPECT_EQ(good, kTimes);
    EXPECT_EQ(otherGood, kTimes);
}
