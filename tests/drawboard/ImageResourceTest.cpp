#include <vxdpi/DrawBoard.h>

#include "drawboard/BoardCalls.h"
#include "drawboard/BoardFields.h"
#include "foundation/ResourceFailures.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

namespace
{
const CallLog::LineList kNoCalls;

std::unique_ptr<CImageResource> ImageOf(UINT resourceId, const wchar_t* type = L"PNG")
{
    return std::make_unique<CImageResource>(96u, resourceId, type);
}

// The image's pixels, as a bitmap of its size gets them.
ArgbImage Drawn(Gdiplus::Image& image)
{
    const auto width = static_cast<INT>(image.GetWidth());
    const auto height = static_cast<INT>(image.GetHeight());
    Gdiplus::Bitmap bitmap(width, height, PixelFormat32bppARGB);
    Gdiplus::Graphics(&bitmap).DrawImage(&image, 0, 0, width, height);
    return PixelsOf(bitmap);
}

class ImageResource : public testing::Test
{
protected:
    // The calls of GetImage.
    CallLog::LineList CallsOf(CImageResource& image, bool succeeds)
    {
        CallLog log;
        log.Name(m_program, "program");
        const ResourceCalls resourceCalls(log);
        const StreamCalls streamCalls(log);
        EXPECT_EQ(image.GetImage() != nullptr, succeeds);
        return log.Lines();
    }

    CallLog::LineList FailingCalls() { return CallsOf(*ImageOf(IDR_PNG_16), false); }

    const HINSTANCE m_program = ::GetModuleHandleW(nullptr);

private:
    const GdiPlusSession m_gdiPlus;
};

// The first calls that load the picture of 16 pixels from the program, then others.
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
                               "CreateStreamOnHGlobal(block, 0)",
                               "GdipLoadImageFromStream(stream)",
                               "Release(stream)",
                               "GlobalFree(block)"};
    lines.resize(first);
    lines.insert(lines.end(), others.begin(), others.end());
    return lines;
}

// Fails once, then lets the same object load its image.
template<typename Failure, typename... Args>
testing::AssertionResult LoadsAfter(Args... args)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    {
        const Failure failure(args...);
        if (image->GetImage() != nullptr)
            return testing::AssertionFailure() << "the failure went unnoticed";
    }
    if (image->GetImage() == nullptr)
        return testing::AssertionFailure() << "the object is not usable any more";
    return testing::AssertionSuccess();
}
} // namespace

static_assert(std::is_polymorphic_v<CImageResource> && std::has_virtual_destructor_v<CImageResource>);
static_assert(std::is_constructible_v<CImageResource, const UINT&, const UINT&, const CString&>);
static_assert(!std::is_default_constructible_v<CImageResource>);
static_assert(std::is_copy_constructible_v<CImageResource> && std::is_copy_assignable_v<CImageResource>);
static_assert(std::is_same_v<decltype(&CImageResource::GetImage), Gdiplus::Image* (CImageResource::*)()>);
static_assert(std::is_same_v<decltype(&CImageResource::DestroyImage), void (CImageResource::*)()>);

TEST_F(ImageResource, AnImageHasThePixelsOfItsResource)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    ASSERT_NE(image->GetImage(), nullptr);
    EXPECT_EQ(image->GetImage()->GetLastStatus(), Gdiplus::Ok);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), Drawn(*image->GetImage())));
}

TEST_F(ImageResource, TheTypeDecidesWhichResourceAnIdMeans)
{
    const std::unique_ptr<CImageResource> png = ImageOf(IDR_PNG_16, L"PNG");
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_IMAGE_SHARED_ID, L"IMAGE");
    ASSERT_NE(png->GetImage(), nullptr);
    ASSERT_NE(image->GetImage(), nullptr);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), Drawn(*png->GetImage())));
    EXPECT_TRUE(SamePixels(OpaquePicture(24, 24), Drawn(*image->GetImage())));
}

TEST_F(ImageResource, AResourceOfAnotherTypeIsNotFound)
{
    EXPECT_EQ(ImageOf(IDR_IMAGE_ONLY, L"PNG")->GetImage(), nullptr);
    EXPECT_EQ(ImageOf(IDR_PNG_24, L"IMAGE")->GetImage(), nullptr);
    EXPECT_EQ(ImageOf(IDR_PNG_24, L"")->GetImage(), nullptr);
}

TEST_F(ImageResource, AnIdIsLookedUpByItsLow16Bits)
{
    EXPECT_NE(ImageOf(0x10000 + IDR_PNG_16)->GetImage(), nullptr);
    EXPECT_NE(ImageOf(0xFFFF0000 + IDR_PNG_16)->GetImage(), nullptr);
}

TEST_F(ImageResource, TheFrameworksResourceModuleIsTaken)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    AfxSetResourceHandle(dll.Module());
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    ASSERT_NE(image->GetImage(), nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), Drawn(*image->GetImage())));
}

TEST_F(ImageResource, TheModuleIsTheOneAtTheTimeOfLoading)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_DLL_PNG_24);
    EXPECT_EQ(image->GetImage(), nullptr);
    AfxSetResourceHandle(dll.Module());
    EXPECT_NE(image->GetImage(), nullptr);
}

TEST_F(ImageResource, WithoutAResourceModuleNothingIsLookedFor)
{
    const KeepResourceModule keep;
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(FailingCalls(), kNoCalls);
}

// The look-up changes the framework's resource module, as other code may at any time.
TEST_F(ImageResource, TheResourceModuleIsAskedOnce)
{
    const ResourceDll dll;
    const KeepResourceModule keep;
    std::vector<HINSTANCE> asked;
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW",
                                                    [&](HMODULE used, LPCWSTR name, LPCWSTR type)
                                                    {
                                                        asked.push_back(used);
                                                        AfxSetResourceHandle(dll.Module());
                                                        return find.Original()(used, name, type);
                                                    });
    const ImportSpy<decltype(::SizeofResource)> size(VxDpiModule(), "kernel32.dll", "SizeofResource",
                                                     [&](HMODULE used, HRSRC found)
                                                     {
                                                         asked.push_back(used);
                                                         return size.Original()(used, found);
                                                     });
    const ImportSpy<decltype(::LoadResource)> load(VxDpiModule(), "kernel32.dll", "LoadResource",
                                                   [&](HMODULE used, HRSRC found)
                                                   {
                                                       asked.push_back(used);
                                                       return load.Original()(used, found);
                                                   });
    EXPECT_NE(ImageOf(IDR_PNG_16)->GetImage(), nullptr);
    EXPECT_EQ(asked, (std::vector<HINSTANCE>{m_program, m_program, m_program}));
}

// A private operation of the exported class, reached by its name as GCC decorates it.
TEST_F(ImageResource, ALoadedImageIsDestroyedBeforeItIsLoadedAfresh)
{
#if !defined(__MINGW32__)
    GTEST_SKIP() << "the private operation is found by its GCC name";
#else
    using Load = Gdiplus::Image* (*)(CImageResource*);
    const auto load = reinterpret_cast<Load>(reinterpret_cast<void*>(
        ::GetProcAddress(VxDpiModule(), "_ZN14CImageResource21LoadImageFromResourceEv")));
    ASSERT_NE(load, nullptr);
    const LiveBitmaps live;
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    image->GetImage();
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW",
                                                    [&](HMODULE module, LPCWSTR name, LPCWSTR type)
                                                    {
                                                        EXPECT_EQ(live.Count(), 0u);
                                                        return find.Original()(module, name, type);
                                                    });
    EXPECT_EQ(load(image.get()), image->GetImage());
    EXPECT_EQ(find.CallCount(), 1);
    EXPECT_EQ(live.Count(), 1u);
#endif
}

TEST_F(ImageResource, MakingOneLoadsNothing)
{
    CallLog log;
    const ResourceCalls resourceCalls(log);
    const StreamCalls streamCalls(log);
    ImageOf(IDR_PNG_16);
    EXPECT_EQ(log.Lines(), kNoCalls);
}

TEST_F(ImageResource, ReadsCopiesDecodesAndFreesInThisOrder)
{
    EXPECT_EQ(CallsOf(*ImageOf(IDR_PNG_16), true), CallsAfter(11, {}));
}

TEST_F(ImageResource, TheLockedBytesAreRead)
{
    Bytes bytes = EncodePng(ArgbImage(16, 16, kOtherColor));
    bytes.resize(2000); // at least as long as the resource
    const ImportSpy<decltype(::LockResource)> lock(VxDpiModule(), "kernel32.dll", "LockResource",
                                                   [&](HGLOBAL) { return bytes.data(); });
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    ASSERT_NE(image->GetImage(), nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), Drawn(*image->GetImage())));
}

// A stream on the block that is freed too early would read what comes into its place.
TEST_F(ImageResource, TheBlockHasTheWholeResourceWhileTheImageIsMade)
{
    Bytes seen;
    HGLOBAL block = nullptr;
    const ImportSpy<decltype(::CreateStreamOnHGlobal)> stream(
        VxDpiModule(), "ole32.dll", "CreateStreamOnHGlobal",
        [&](HGLOBAL given, BOOL deleteOnRelease, IStream** created)
        {
            block = given;
            return stream.Original()(given, deleteOnRelease, created);
        });
    const ImportSpy<decltype(Flat::GdipLoadImageFromStream)> load(
        VxDpiModule(), "gdiplus.dll", "GdipLoadImageFromStream",
        [&](IStream* given, Gdiplus::GpImage** image)
        {
            const auto* const bytes = static_cast<const std::uint8_t*>(::GlobalLock(block));
            seen.assign(bytes, bytes + ::GlobalSize(block));
            ::GlobalUnlock(block);
            return load.Original()(given, image);
        });
    EXPECT_NE(ImageOf(IDR_PNG_16)->GetImage(), nullptr);
    EXPECT_EQ(seen, EncodePng(FramedPicture(16, 16)));
}

TEST_F(ImageResource, TheImageIsLoadedOnce)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    Gdiplus::Image* const first = image->GetImage();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(CallsOf(*image, true), kNoCalls);
    EXPECT_EQ(image->GetImage(), first);
}

TEST_F(ImageResource, TwoObjectsOfOneResourceHaveTheirOwnImages)
{
    const std::unique_ptr<CImageResource> one = ImageOf(IDR_PNG_16);
    const std::unique_ptr<CImageResource> other = ImageOf(IDR_PNG_16);
    ASSERT_NE(one->GetImage(), nullptr);
    EXPECT_NE(one->GetImage(), other->GetImage());
}

TEST_F(ImageResource, AMissingResourceIsLookedForAgainByEachCall)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_MISSING);
    const CallLog::LineList lookedFor = {"FindResourceW(program, @999, \"PNG\")"};
    EXPECT_EQ(CallsOf(*image, false), lookedFor);
    EXPECT_EQ(CallsOf(*image, false), lookedFor);
}

TEST_F(ImageResource, AnObjectIsUsableAfterAFailure)
{
    EXPECT_TRUE((LoadsAfter<FailKernelCall<decltype(::FindResourceW)>>("FindResourceW", nullptr)));
    EXPECT_TRUE((LoadsAfter<FailKernelCall<decltype(::GlobalAlloc)>>("GlobalAlloc", nullptr)));
    EXPECT_TRUE(LoadsAfter<FailStream>());
    EXPECT_TRUE(LoadsAfter<FailGdipAlloc>());
}

TEST_F(ImageResource, AMissingResourceEndsTheAttempt)
{
    const FailKernelCall<decltype(::FindResourceW)> fail("FindResourceW", nullptr);
    EXPECT_EQ(FailingCalls(), CallsAfter(1, {}));
}

TEST_F(ImageResource, AnEmptyResourceIsNotLoaded)
{
    const FailKernelCall<decltype(::SizeofResource)> fail("SizeofResource", 0u);
    EXPECT_EQ(FailingCalls(), CallsAfter(2, {}));
}

TEST_F(ImageResource, AResourceThatCannotBeLoadedIsNotRead)
{
    const FailKernelCall<decltype(::LoadResource)> fail("LoadResource", nullptr);
    EXPECT_EQ(FailingCalls(), CallsAfter(3, {}));
}

TEST_F(ImageResource, AResourceThatCannotBeReadIsNotCopied)
{
    const FailKernelCall<decltype(::LockResource)> fail("LockResource", nullptr);
    EXPECT_EQ(FailingCalls(), CallsAfter(4, {}));
}

TEST_F(ImageResource, WithoutMemoryNothingIsLocked)
{
    const FailKernelCall<decltype(::GlobalAlloc)> fail("GlobalAlloc", nullptr);
    EXPECT_EQ(FailingCalls(), CallsAfter(5, {}));
}

TEST_F(ImageResource, MemoryThatCannotBeLockedIsFreed)
{
    const FailKernelCall<decltype(::GlobalLock)> fail("GlobalLock", nullptr);
    EXPECT_EQ(FailingCalls(), CallsAfter(6, {"GlobalFree(block)"}));
}

TEST_F(ImageResource, WithoutAStreamTheMemoryIsFreed)
{
    const FailStream fail;
    EXPECT_EQ(FailingCalls(), CallsAfter(8, {"GlobalFree(block)"}));
}

TEST_F(ImageResource, WithoutMemoryForTheImageStreamAndBytesAreFreed)
{
    const FailGdipAlloc fail;
    EXPECT_EQ(FailingCalls(), CallsAfter(8, {"GlobalFree(block)"}));
    EXPECT_NO_LEAK([] { ImageOf(IDR_PNG_16)->GetImage(); });
}

TEST_F(ImageResource, BytesThatAreNoImageGiveAnImageWithABadStatus)
{
    for (const UINT id : {IDR_PNG_TRUNCATED, IDR_PNG_DAMAGED, IDR_PNG_GARBAGE})
    {
        const std::unique_ptr<CImageResource> image = ImageOf(id);
        ASSERT_NE(image->GetImage(), nullptr) << id;
        EXPECT_NE(image->GetImage()->GetLastStatus(), Gdiplus::Ok) << id;
    }
}

TEST_F(ImageResource, AnImageWithABadStatusIsKept)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_GARBAGE);
    Gdiplus::Image* const first = image->GetImage();
    EXPECT_EQ(CallsOf(*image, true), kNoCalls);
    EXPECT_EQ(image->GetImage(), first);
}

TEST_F(ImageResource, AnImageWhoseLoadingFailsReleasesStreamAndBytes)
{
    const FailingGdiPlus<decltype(Flat::GdipLoadImageFromStream)> fail("GdipLoadImageFromStream");
    EXPECT_EQ(CallsOf(*ImageOf(IDR_PNG_16), true), CallsAfter(11, {}));
}

TEST_F(ImageResource, DestroyImageDeletesTheImageOnce)
{
    const LiveBitmaps live;
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    image->GetImage();
    EXPECT_EQ(live.Count(), 1u);
    const ImportSpy<decltype(Flat::GdipDisposeImage)> dispose(VxDpiModule(), "gdiplus.dll",
                                                              "GdipDisposeImage");
    image->DestroyImage();
    EXPECT_EQ(live.Count(), 0u);
    EXPECT_EQ(dispose.CallCount(), 1);
    image->DestroyImage();
    EXPECT_EQ(dispose.CallCount(), 1);
}

TEST_F(ImageResource, DestroyImageOfAnUnloadedOneDoesNothing)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    const ImportSpy<decltype(Flat::GdipDisposeImage)> dispose(VxDpiModule(), "gdiplus.dll",
                                                              "GdipDisposeImage");
    const ImportSpy<decltype(Flat::GdipFree)> free(VxDpiModule(), "gdiplus.dll", "GdipFree");
    image->DestroyImage();
    EXPECT_EQ(dispose.CallCount(), 0);
    EXPECT_EQ(free.CallCount(), 0);
    EXPECT_NE(image->GetImage(), nullptr);
}

TEST_F(ImageResource, AfterDestroyImageTheImageIsLoadedAnew)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    image->GetImage();
    image->DestroyImage();
    EXPECT_EQ(CallsOf(*image, true), CallsAfter(11, {}));
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), Drawn(*image->GetImage())));
}

TEST_F(ImageResource, TheDestructorDeletesTheImage)
{
    const LiveBitmaps live;
    std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    image->GetImage();
    image.reset();
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(ImageResource, ADestroyedOneNoLongerPointsToItsImage)
{
    alignas(CImageResource) unsigned char memory[sizeof(CImageResource)] = {};
    auto* const image = new (memory) CImageResource(96, IDR_PNG_16, L"PNG");
    EXPECT_NE(image->GetImage(), nullptr);
    image->~CImageResource();
    void* pointer = memory;
    std::memcpy(&pointer, memory + kOffsetOfImage, sizeof pointer);
    EXPECT_EQ(pointer, nullptr);
}

TEST_F(ImageResource, EverythingIsReleasedWithTheObject)
{
    EXPECT_NO_LEAK([] { ImageOf(IDR_PNG_16)->GetImage(); });
    EXPECT_NO_LEAK([] { ImageOf(IDR_PNG_GARBAGE)->GetImage(); });
    EXPECT_NO_LEAK([] { ImageOf(IDR_MISSING)->GetImage(); });
}

TEST_F(ImageResource, AThousandReloadsLeaveNothingBehind)
{
    const std::unique_ptr<CImageResource> image = ImageOf(IDR_PNG_16);
    EXPECT_NO_LEAK(
        [&]
        {
            for (int i = 0; i < 34; ++i)
            {
                image->DestroyImage();
                ASSERT_NE(image->GetImage(), nullptr);
            }
        });
}

TEST_F(ImageResource, EverythingIsReleasedWhenACallFails)
{
    const auto load = [] { ImageOf(IDR_PNG_16)->GetImage(); };
    {
        const FailKernelCall<decltype(::LockResource)> fail("LockResource", nullptr);
        EXPECT_NO_LEAK(load);
    }
    {
        const FailKernelCall<decltype(::GlobalLock)> fail("GlobalLock", nullptr);
        EXPECT_NO_LEAK(load);
    }
    {
        const FailStream fail;
        EXPECT_NO_LEAK(load);
    }
    {
        const FailGdipAlloc fail;
        EXPECT_NO_LEAK(load);
    }
}

TEST_F(ImageResource, ACopyOfAnUnloadedOneLoadsAnImageOfItsOwn)
{
    CImageResource original(144, IDR_PNG_24, L"PNG");
    CImageResource copy(original);
    ASSERT_NE(copy.GetImage(), nullptr);
    EXPECT_EQ(copy.GetImage()->GetWidth(), 24u);
    EXPECT_NE(copy.GetImage(), original.GetImage());
}

TEST_F(ImageResource, ACopyHasAllFields)
{
    CImageResource original(144, IDR_PNG_24, L"PNG");
    original.GetImage();
    CImageResource copy(original);
    const ForgetImage forget(copy);
    const ImageResourceFields& fields = FieldsOf(copy);
    EXPECT_EQ(fields.nDpi, 144u);
    EXPECT_EQ(fields.nResID, static_cast<UINT>(IDR_PNG_24));
    EXPECT_EQ(fields.strType, L"PNG");
    EXPECT_EQ(fields.pImage, original.GetImage());
    EXPECT_EQ(fields.pVirtualTable, FieldsOf(original).pVirtualTable);
}

TEST_F(ImageResource, ACopySharesALoadedImage)
{
    CImageResource original(144, IDR_PNG_24, L"PNG");
    Gdiplus::Image* const image = original.GetImage();
    CImageResource copy(original);
    const ForgetImage forget(copy);
    EXPECT_EQ(CallsOf(copy, true), kNoCalls);
    EXPECT_EQ(copy.GetImage(), image);
}

TEST_F(ImageResource, AssignmentCopiesAllFields)
{
    CImageResource original(144, IDR_PNG_24, L"PNG");
    original.GetImage();
    CImageResource copy(96, IDR_IMAGE_ONLY, L"IMAGE");
    const ForgetImage forget(copy);
    CImageResource& result = copy = original;
    EXPECT_EQ(&result, &copy);
    const ImageResourceFields& fields = FieldsOf(copy);
    EXPECT_EQ(fields.nDpi, 144u);
    EXPECT_EQ(fields.nResID, static_cast<UINT>(IDR_PNG_24));
    EXPECT_EQ(fields.strType, L"PNG");
    EXPECT_EQ(fields.pImage, original.GetImage());
}

TEST_F(ImageResource, AssignmentOfAnUnloadedOneTakesTheImageAway)
{
    LiveBitmaps live;
    CImageResource original(144, IDR_PNG_24, L"PNG");
    CImageResource copy(96, IDR_PNG_16, L"PNG");
    copy.GetImage();
    copy = original;
    EXPECT_EQ(FieldsOf(copy).pImage, nullptr);
    EXPECT_EQ(copy.GetImage()->GetWidth(), 24u);
    EXPECT_EQ(live.Count(), 2u);
    copy.DestroyImage();
    EXPECT_EQ(live.Count(), 1u); // what it had before the assignment
    live.DeleteAll();
}

TEST_F(ImageResource, AssignmentToItselfKeepsTheImage)
{
    CImageResource image(96, IDR_PNG_16, L"PNG");
    Gdiplus::Image* const loaded = image.GetImage();
    const CImageResource& same = image;
    image = same;
    EXPECT_EQ(image.GetImage(), loaded);
    EXPECT_EQ(image.GetImage()->GetWidth(), 16u);
}
