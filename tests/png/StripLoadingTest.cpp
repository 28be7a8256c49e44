#include <vxdpi/Png.h>

#include "foundation/ResourceFailures.h"
#include "png/StripCalls.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{
constexpr wchar_t kPng[] = L"PNG";

class StripLoading : public testing::Test
{
protected:
    BitmapPtr Load(UINT resourceId, const wchar_t* type, HINSTANCE module)
    {
        return BitmapPtr(m_strip.LoadPngFromResource(resourceId, type, module));
    }

    BitmapPtr Load(UINT resourceId) { return Load(resourceId, kPng, m_program); }

    CallLog::LineList CallsOfLoading(bool succeeds)
    {
        CallLog log;
        log.Name(m_program, "program");
        const ResourceCalls resourceCalls(log);
        const GdiPlusCalls pictureCalls(log);
        const BitmapPtr bitmap = Load(IDR_PNG_16);
        EXPECT_EQ(bitmap != nullptr, succeeds);
        return log.Lines();
    }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);

private:
    const GdiPlusSession m_gdiPlus;
    OpenStrip m_strip;
};

// The first calls that read the picture of 16 pixels from the program, then others.
CallLog::LineList CallsAfter(std::size_t first, const CallLog::LineList& others)
{
    const HMODULE program = ::GetModuleHandleW(nullptr);
    const DWORD size =
        ::SizeofResource(program, ::FindResourceW(program, MAKEINTRESOURCEW(IDR_PNG_16), kPng));
    CallLog::LineList lines = {"FindResourceW(program, @101, \"PNG\")",
                               "SizeofResource(program, found)",
                               "LoadResource(program, found)",
                               "LockResource(resource)",
                               "GlobalAlloc(2, " + std::to_string(size) + ")",
                               "GlobalLock(block)",
                               "CreateStreamOnHGlobal(block, 1)",
                               "GdipCreateBitmapFromStream()",
                               "GlobalUnlock(block)"};
    lines.resize(first);
    lines.insert(lines.end(), others.begin(), others.end());
    return lines;
}

// A stream is promised and not given.
class NullStream : public ImportSpy<decltype(::CreateStreamOnHGlobal)>
{
public:
    NullStream()
        : ImportSpy(VxDpiModule(), "ole32.dll", "CreateStreamOnHGlobal",
                    [](HGLOBAL, BOOL, IStream** stream)
                    {
                        *stream = nullptr;
                        return S_OK;
                    })
    {
    }
};

ULONG ReferencesOf(IStream* stream)
{
    stream->AddRef();
    return stream->Release();
}
} // namespace

TEST_F(StripLoading, AResourceIsDecodedPixelByPixel)
{
    const BitmapPtr bitmap = Load(IDR_PNG_STRIP_16);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetLastStatus(), Gdiplus::Ok);
    EXPECT_EQ(bitmap->GetPixelFormat(), PixelFormat32bppARGB);
    EXPECT_TRUE(SamePixels(StripPicture(3, 16), PixelsOf(*bitmap)));
}

TEST_F(StripLoading, AnOpaquePictureKeepsItsFormat)
{
    const BitmapPtr bitmap = Load(IDR_PNG_RGB_32);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetPixelFormat(), PixelFormat24bppRGB);
    EXPECT_TRUE(SamePixels(OpaquePicture(32, 32), PixelsOf(*bitmap)));
}

TEST_F(StripLoading, TheModuleDecidesWhichResourceAnIdMeans)
{
    const ResourceDll dll;
    const BitmapPtr ofProgram = Load(IDR_PNG_16);
    const BitmapPtr ofDll = Load(IDR_DLL_SHARED_ID, kPng, dll.Module());
    ASSERT_NE(ofProgram, nullptr);
    ASSERT_NE(ofDll, nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*ofProgram)));
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*ofDll)));
}

TEST_F(StripLoading, TheGivenModuleIsTakenWhateverTheFrameworksIs)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    EXPECT_NE(Load(IDR_PNG_24), nullptr);
    EXPECT_EQ(Load(IDR_DLL_PNG_24), nullptr);
}

TEST_F(StripLoading, TheTypeDecidesWhichResourceAnIdMeans)
{
    const BitmapPtr image = Load(IDR_IMAGE_SHARED_ID, L"IMAGE", m_program);
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(SamePixels(OpaquePicture(24, 24), PixelsOf(*image)));
    EXPECT_NE(Load(IDR_IMAGE_ONLY, L"IMAGE", m_program), nullptr);
    EXPECT_EQ(Load(IDR_IMAGE_ONLY), nullptr);
}

TEST_F(StripLoading, AnIdIsLookedUpByItsLow16Bits)
{
    EXPECT_NE(Load(0x10000 + IDR_PNG_16), nullptr);
    EXPECT_NE(Load(0xFFFF0000 + IDR_PNG_16), nullptr);
}

TEST_F(StripLoading, AnIdThatIsNowhereGivesNothing)
{
    for (const UINT id : {0u, static_cast<UINT>(IDR_MISSING), 0xFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(Load(id), nullptr) << id;
}

TEST_F(StripLoading, WhatIsNoPictureGivesABitmapWhoseStatusTellsSo)
{
    for (const UINT id : {IDR_PNG_TRUNCATED, IDR_PNG_DAMAGED, IDR_PNG_GARBAGE})
    {
        const BitmapPtr bitmap = Load(id);
        ASSERT_NE(bitmap, nullptr) << id;
        EXPECT_NE(bitmap->GetLastStatus(), Gdiplus::Ok) << id;
    }
}

TEST_F(StripLoading, TheCopyStaysLockedWhileItIsDecodedAndTheResourceIsNotFreed)
{
    EXPECT_EQ(CallsOfLoading(true), CallsAfter(9, {}));
}

// Loading and locking answer the same address, so only a lock of other bytes tells them apart.
TEST_F(StripLoading, TheLockedBytesAreRead)
{
    const ServedResource served(ArgbImage(16, 16, kOtherColor));
    const BitmapPtr bitmap = Load(IDR_MISSING);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*bitmap)));
}

TEST_F(StripLoading, NullAsAModuleIsPassedOnAsItIs)
{
    CallLog log;
    const ResourceCalls calls(log);
    EXPECT_NE(Load(IDR_PNG_16, kPng, nullptr), nullptr);
    ASSERT_GE(log.Lines().size(), 3u);
    EXPECT_EQ(log.Lines()[0], "FindResourceW(null, @101, \"PNG\")");
    EXPECT_EQ(log.Lines()[1], "SizeofResource(null, found)");
    EXPECT_EQ(log.Lines()[2], "LoadResource(null, found)");
}

TEST_F(StripLoading, AMissingResourceEndsTheAttempt)
{
    const FailKernelCall<decltype(::FindResourceW)> fail("FindResourceW", nullptr);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(1, {}));
}

TEST_F(StripLoading, AnEmptyResourceIsNotLoaded)
{
    const FailKernelCall<decltype(::SizeofResource)> fail("SizeofResource", 0u);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(2, {}));
}

TEST_F(StripLoading, AResourceThatCannotBeLoadedIsNotLocked)
{
    const FailKernelCall<decltype(::LoadResource)> fail("LoadResource", nullptr);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(3, {}));
}

TEST_F(StripLoading, AResourceThatCannotBeReadIsNotFreed)
{
    const FailLockResource fail("LockResource", nullptr);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(4, {}));
}

TEST_F(StripLoading, WithoutMemoryNothingIsFreed)
{
    const FailGlobalAlloc fail("GlobalAlloc", nullptr);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(5, {}));
}

TEST_F(StripLoading, MemoryThatCannotBeLockedIsFreed)
{
    const FailGlobalLock fail("GlobalLock", nullptr);
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(6, {"GlobalFree(block)"}));
}

TEST_F(StripLoading, WithoutAStreamTheMemoryIsUnlockedAndFreed)
{
    const FailStream fail;
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(7, {"GlobalUnlock(block)", "GlobalFree(block)"}));
}

TEST_F(StripLoading, ANullStreamCountsAsNone)
{
    const NullStream none;
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(7, {"GlobalUnlock(block)", "GlobalFree(block)"}));
}

TEST_F(StripLoading, WithoutMemoryForTheBitmapNothingIsDecodedAndAllIsReleased)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(CallsOfLoading(false), CallsAfter(7, {"GlobalUnlock(block)"}));
    EXPECT_NO_LEAK([this] { Load(IDR_PNG_16); });
}

TEST_F(StripLoading, ABitmapWithABadStatusIsReturned)
{
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> fail(VxDpiModule(), "gdiplus.dll",
                                                                     "GdipCreateBitmapFromStream",
                                                                     [](IStream*, Gdiplus::GpBitmap** bitmap)
                                                                     {
                                                                         *bitmap = nullptr;
                                                                         return Gdiplus::OutOfMemory;
                                                                     });
    LiveBitmaps live;
    const BitmapPtr bitmap = Load(IDR_PNG_16);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetLastStatus(), Gdiplus::OutOfMemory);
    EXPECT_EQ(live.Count(), 1u);
}

TEST_F(StripLoading, TheStreamIsReleasedAfterTheCopyIsUnlocked)
{
    IStream* stream = nullptr;
    ULONG whenUnlocked = 0;
    const ImportSpy<decltype(Flat::GdipCreateBitmapFromStream)> decode(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* given, Gdiplus::GpBitmap** bitmap)
        {
            stream = given;
            stream->AddRef();
            return decode.Original()(given, bitmap);
        });
    const ImportSpy<decltype(::GlobalUnlock)> unlock(VxDpiModule(), "kernel32.dll", "GlobalUnlock",
                                                     [&](HGLOBAL block)
                                                     {
                                                         whenUnlocked = ReferencesOf(stream);
                                                         return unlock.Original()(block);
                                                     });
    BitmapPtr bitmap = Load(IDR_PNG_16);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(ReferencesOf(stream), whenUnlocked - 1);
    bitmap.reset();
    EXPECT_EQ(stream->Release(), 0u);
}

TEST_F(StripLoading, TheCopyIsUnlockedOnceAndGoesWithTheStream)
{
    HGLOBAL block = nullptr;
    const ImportSpy<decltype(::GlobalUnlock)> unlock(VxDpiModule(), "kernel32.dll", "GlobalUnlock",
                                                     [&](HGLOBAL given)
                                                     {
                                                         block = given;
                                                         return unlock.Original()(given);
                                                     });
    BitmapPtr bitmap = Load(IDR_PNG_16);
    EXPECT_EQ(unlock.CallCount(), 1);
    EXPECT_EQ(::GlobalFlags(block) & GMEM_LOCKCOUNT, 0u);
    bitmap.reset();
    EXPECT_EQ(::GlobalFlags(block), static_cast<UINT>(GMEM_INVALID_HANDLE));
}

TEST_F(StripLoading, AllIsReleasedWithTheBitmap)
{
    EXPECT_NO_LEAK([this] { Load(IDR_PNG_16); });
    EXPECT_NO_LEAK([this] { Load(IDR_PNG_GARBAGE); });
    EXPECT_NO_LEAK([this] { Load(IDR_MISSING); });
}

TEST_F(StripLoading, AllIsReleasedWhenACallFails)
{
    {
        const FailGlobalLock fail("GlobalLock", nullptr);
        EXPECT_NO_LEAK([this] { Load(IDR_PNG_16); });
    }
    {
        const FailStream fail;
        EXPECT_NO_LEAK([this] { Load(IDR_PNG_16); });
    }
    {
        const NullStream none;
        EXPECT_NO_LEAK([this] { Load(IDR_PNG_16); });
    }
}
