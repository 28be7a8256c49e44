#include <vxdpi/Png.h>

#include "foundation/ResourceFailures.h"
#include "png/DrawingCalls.h"
#include "png/LoadingCalls.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
using BitmapPtr = std::unique_ptr<Gdiplus::Bitmap>;

class LoadablePng : public CDpiAwarePng
{
public:
    BitmapPtr Load(UINT resourceId) { return BitmapPtr(CreateBitmapFromPngResource(resourceId)); }

    BitmapPtr Load(UINT resourceId, HINSTANCE module)
    {
        return BitmapPtr(CreateBitmapFromPngResource(resourceId, module));
    }
};

class PngLoading : public testing::Test
{
protected:
    BitmapPtr LoadFromProgram(UINT resourceId) { return m_png.Load(resourceId); }

    BitmapPtr LoadFrom(HINSTANCE module, UINT resourceId) { return m_png.Load(resourceId, module); }

    CallLog::LineList CallsOf(const std::function<BitmapPtr()>& load, bool succeeds)
    {
        CallLog log;
        log.Name(m_program, "program");
        const ResourceCalls resourceCalls(log);
        const GdiPlusCalls pictureCalls(log);
        const BitmapPtr bitmap = load();
        EXPECT_EQ(bitmap != nullptr, succeeds);
        return log.Lines();
    }

    CallLog::LineList FailingCallsFromProgram()
    {
        return CallsOf([this] { return LoadFromProgram(IDR_PNG_16); }, false);
    }

    CallLog::LineList FailingCallsFromModule()
    {
        return CallsOf([this] { return LoadFrom(m_program, IDR_PNG_16); }, false);
    }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);

private:
    const GdiPlusSession m_gdiPlus;
    LoadablePng m_png;
};

// The first calls that read the picture of 16 pixels from the program, then others.
CallLog::LineList CallsAfter(std::size_t first, const CallLog::LineList& others)
{
    const HMODULE program = ::GetModuleHandleW(nullptr);
    const DWORD size =
        ::SizeofResource(program, ::FindResourceW(program, MAKEINTRESOURCEW(IDR_PNG_16), L"PNG"));
    CallLog::LineList lines = {"FindResourceW(program, @101, \"PNG\")",
                               "SizeofResource(program, found)",
                               "LoadResource(program, found)",
                               "LockResource(resource)",
                               "GlobalAlloc(2, " + std::to_string(size) + ")",
                               "GlobalLock(block)",
                               "GlobalUnlock(block)",
                               "FreeResource(resource)",
                               "CreateStreamOnHGlobal(block, 1)",
                               "GdipCreateBitmapFromStream()"};
    lines.resize(first);
    lines.insert(lines.end(), others.begin(), others.end());
    return lines;
}
}

TEST_F(PngLoading, AResourceOfTheProgramIsDecodedPixelByPixel)
{
    const BitmapPtr bitmap = LoadFromProgram(IDR_PNG_16);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetPixelFormat(), PixelFormat32bppARGB);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*bitmap)));
}

TEST_F(PngLoading, AResourceOfAModuleIsDecodedPixelByPixel)
{
    const ResourceDll dll;
    const BitmapPtr bitmap = LoadFrom(dll.Module(), IDR_DLL_PNG_24);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(24, 24, kOtherColor), PixelsOf(*bitmap)));
}

TEST_F(PngLoading, TheModuleDecidesWhichResourceAnIdMeans)
{
    const ResourceDll dll;
    const BitmapPtr ofProgram = LoadFromProgram(IDR_PNG_16);
    const BitmapPtr ofDll = LoadFrom(dll.Module(), IDR_PNG_16);
    ASSERT_NE(ofProgram, nullptr);
    ASSERT_NE(ofDll, nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(*ofProgram)));
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*ofDll)));
}

TEST_F(PngLoading, WithoutAModuleTheFrameworksResourceModuleIsTaken)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    const BitmapPtr bitmap = LoadFromProgram(IDR_PNG_16);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*bitmap)));
}

TEST_F(PngLoading, AGivenModuleIsTakenWhateverTheFrameworksIs)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    EXPECT_NE(LoadFrom(m_program, IDR_PNG_24), nullptr);
    EXPECT_EQ(LoadFrom(m_program, IDR_DLL_PNG_24), nullptr);
}

TEST_F(PngLoading, AnOpaquePictureKeepsItsFormat)
{
    const BitmapPtr bitmap = LoadFromProgram(IDR_PNG_RGB_32);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetPixelFormat(), PixelFormat24bppRGB);
    EXPECT_TRUE(SamePixels(OpaquePicture(32, 32), PixelsOf(*bitmap)));
}

TEST_F(PngLoading, APictureMadeByOthersIsDecoded)
{
    const BitmapPtr bitmap = LoadFromProgram(IDR_PNG_SAVE_22);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetWidth(), 22u);
    EXPECT_EQ(bitmap->GetHeight(), 22u);
}

TEST_F(PngLoading, AnIdIsLookedUpByItsLow16Bits)
{
    EXPECT_NE(LoadFromProgram(0x10000 + IDR_PNG_16), nullptr);
    EXPECT_NE(LoadFrom(m_program, 0xFFFF0000 + IDR_PNG_16), nullptr);
}

TEST_F(PngLoading, AnIdThatIsNowhereGivesNothing)
{
    for (const UINT id : {0u, static_cast<UINT>(IDR_MISSING), 0xFFFFu, 0xFFFFFFFFu})
    {
        EXPECT_EQ(LoadFromProgram(id), nullptr) << id;
        EXPECT_EQ(LoadFrom(m_program, id), nullptr) << id;
    }
}

TEST_F(PngLoading, AResourceOfAnotherTypeIsNotFound)
{
    EXPECT_EQ(LoadFromProgram(IDR_IMAGE_ONLY), nullptr);
    EXPECT_EQ(LoadFrom(m_program, IDR_IMAGE_ONLY), nullptr);
}

TEST_F(PngLoading, WhatIsNoPictureGivesNothing)
{
    for (const UINT id : {IDR_PNG_TRUNCATED, IDR_PNG_DAMAGED, IDR_PNG_GARBAGE})
    {
        EXPECT_EQ(LoadFromProgram(id), nullptr) << id;
        EXPECT_EQ(LoadFrom(m_program, id), nullptr) << id;
    }
}

TEST_F(PngLoading, ReadsCopiesFreesAndDecodesInThisOrder)
{
    EXPECT_EQ(CallsOf([this] { return LoadFromProgram(IDR_PNG_16); }, true), CallsAfter(10, {}));
    EXPECT_EQ(CallsOf([this] { return LoadFrom(m_program, IDR_PNG_16); }, true), CallsAfter(10, {}));
}

// Loading and locking answer the same address, so only a lock of other bytes tells them apart.
TEST_F(PngLoading, TheLockedBytesAreReadAndTheLoadedResourceIsFreed)
{
    Bytes bytes = EncodePng(ArgbImage(16, 16, kOtherColor));
    bytes.resize(2000); // at least as long as the resource
    const ImportSpy<decltype(::LockResource)> lock(VxDpiModule(), "kernel32.dll", "LockResource",
                                                   [&](HGLOBAL) { return bytes.data(); });
    EXPECT_EQ(CallsOf([this] { return LoadFromProgram(IDR_PNG_16); }, true), CallsAfter(10, {}));
    const BitmapPtr bitmap = LoadFromProgram(IDR_PNG_16);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(*bitmap)));
}

TEST_F(PngLoading, NullAsAModuleIsPassedOnAsItIs)
{
    CallLog log;
    const ResourceCalls calls(log);
    EXPECT_NE(LoadFrom(nullptr, IDR_PNG_16), nullptr);
    ASSERT_GE(log.Lines().size(), 3u);
    EXPECT_EQ(log.Lines()[0], "FindResourceW(null, @101, \"PNG\")");
    EXPECT_EQ(log.Lines()[1], "SizeofResource(null, found)");
    EXPECT_EQ(log.Lines()[2], "LoadResource(null, found)");
}

// Each of the three calls here changes the framework's resource module, as other code may at any time.
TEST_F(PngLoading, TheFrameworksResourceModuleIsAskedBeforeEachUse)
{
    const auto module = [](INT_PTR number) { return reinterpret_cast<HINSTANCE>(number << 16); };
    const KeepResourceModule keep;
    std::vector<HINSTANCE> asked;
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW",
                                                    [&](HMODULE used, LPCWSTR name, LPCWSTR type)
                                                    {
                                                        asked.push_back(used);
                                                        AfxSetResourceHandle(module(2));
                                                        return find.Original()(m_program, name, type);
                                                    });
    const ImportSpy<decltype(::SizeofResource)> size(VxDpiModule(), "kernel32.dll", "SizeofResource",
                                                     [&](HMODULE used, HRSRC found)
                                                     {
                                                         asked.push_back(used);
                                                         AfxSetResourceHandle(module(3));
                                                         return size.Original()(m_program, found);
                                                     });
    const ImportSpy<decltype(::LoadResource)> load(VxDpiModule(), "kernel32.dll", "LoadResource",
                                                   [&](HMODULE used, HRSRC found)
                                                   {
                                                       asked.push_back(used);
                                                       return load.Original()(m_program, found);
                                                   });
    AfxSetResourceHandle(module(1));
    EXPECT_NE(LoadFromProgram(IDR_PNG_16), nullptr);
    EXPECT_EQ(asked, (std::vector<HINSTANCE>{module(1), module(2), module(3)}));
}

TEST_F(PngLoading, AMissingResourceEndsTheAttempt)
{
    const FailKernelCall<decltype(::FindResourceW)> fail("FindResourceW", nullptr);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(1, {}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(1, {}));
}

TEST_F(PngLoading, AnEmptyResourceIsNotLoaded)
{
    const FailKernelCall<decltype(::SizeofResource)> fail("SizeofResource", 0u);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(2, {}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(2, {}));
}

TEST_F(PngLoading, AResourceThatCannotBeLoadedIsNotFreed)
{
    const FailKernelCall<decltype(::LoadResource)> fail("LoadResource", nullptr);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(3, {}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(3, {}));
}

TEST_F(PngLoading, AResourceThatCannotBeReadIsFreed)
{
    const FailLockResource fail("LockResource", nullptr);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(4, {"FreeResource(resource)"}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(4, {"FreeResource(resource)"}));
}

TEST_F(PngLoading, WithoutMemoryOnlyTheProgramsResourceIsFreed)
{
    const FailGlobalAlloc fail("GlobalAlloc", nullptr);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(5, {"FreeResource(resource)"}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(5, {}));
}

TEST_F(PngLoading, MemoryThatCannotBeLockedIsFreedAndOnlyTheProgramsResourceToo)
{
    const FailGlobalLock fail("GlobalLock", nullptr);
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(6, {"GlobalFree(block)", "FreeResource(resource)"}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(6, {"GlobalFree(block)"}));
}

TEST_F(PngLoading, WithoutAStreamTheMemoryIsFreed)
{
    const FailStream fail;
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(9, {"GlobalFree(block)"}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(9, {"GlobalFree(block)"}));
}

TEST_F(PngLoading, WithoutMemoryForTheBitmapNothingIsDecoded)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(FailingCallsFromProgram(), CallsAfter(9, {}));
    EXPECT_EQ(FailingCallsFromModule(), CallsAfter(9, {}));
}

TEST_F(PngLoading, ABitmapWithABadStatusIsDeleted)
{
    const ImportSpy<decltype(Gdiplus::DllExports::GdipCreateBitmapFromStream)> fail(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* stream, Gdiplus::GpBitmap** bitmap)
        {
            fail.Original()(stream, bitmap);
            return Gdiplus::GenericError;
        });
    LiveBitmaps live;
    EXPECT_EQ(FailingCallsFromProgram().size(), 11u);
    EXPECT_EQ(FailingCallsFromModule().size(), 11u);
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(PngLoading, TheStreamIsReleasedBeforeABadBitmapIsDeleted)
{
    CallLog log;
    IStream* pAnyStream = nullptr;
    ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &pAnyStream), S_OK);
    {
        const ImportSpy<decltype(Gdiplus::DllExports::GdipCreateBitmapFromStream)> fail(
            VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
            [](IStream*, Gdiplus::GpBitmap**) { return Gdiplus::GenericError; });
        const RecordCalls<decltype(Gdiplus::DllExports::GdipDisposeImage)> dispose(
            log, VxDpiModule(), "gdiplus.dll", "GdipDisposeImage");
        ComMethodSpy<ULONG(IStream*)> release(pAnyStream, 2, "Release",
                                              [&](IStream* pStream)
                                              {
                                                  log.Write("Release");
                                                  return release.Original()(pStream);
                                              });
        EXPECT_EQ(LoadFromProgram(IDR_PNG_16), nullptr);
    }
    pAnyStream->Release();
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"Release", "GdipDisposeImage(null)"}));
}

TEST_F(PngLoading, AllIsReleasedWithTheBitmap)
{
    EXPECT_NO_LEAK([this] { LoadFromProgram(IDR_PNG_16); });
    EXPECT_NO_LEAK([this] { LoadFrom(m_program, IDR_PNG_16); });
}

TEST_F(PngLoading, TheStreamIsReleasedWithTheBitmapAtTheLatest)
{
    IStream* stream = nullptr;
    const ImportSpy<decltype(Gdiplus::DllExports::GdipCreateBitmapFromStream)> decode(
        VxDpiModule(), "gdiplus.dll", "GdipCreateBitmapFromStream",
        [&](IStream* given, Gdiplus::GpBitmap** bitmap)
        {
            stream = given;
            stream->AddRef();
            return decode.Original()(given, bitmap);
        });
    LoadFromProgram(IDR_PNG_16).reset();
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(stream->Release(), 0u);
}

TEST_F(PngLoading, AllIsReleasedWhenTheResourceIsNoPicture)
{
    EXPECT_NO_LEAK([this] { LoadFromProgram(IDR_PNG_GARBAGE); });
    EXPECT_NO_LEAK([this] { LoadFrom(m_program, IDR_PNG_TRUNCATED); });
}

TEST_F(PngLoading, AllIsReleasedWhenACallFails)
{
    const auto loadBoth = [this]
    {
        LoadFromProgram(IDR_PNG_16);
        LoadFrom(m_program, IDR_PNG_16);
    };
    {
        const FailLockResource fail("LockResource", nullptr);
        EXPECT_NO_LEAK(loadBoth);
    }
    {
        const FailGlobalLock fail("GlobalLock", nullptr);
        EXPECT_NO_LEAK(loadBoth);
    }
    {
        const FailStream fail;
        EXPECT_NO_LEAK(loadBoth);
    }
    {
        const FailGdipAlloc fail;
        EXPECT_NO_LEAK(loadBoth);
    }
}
