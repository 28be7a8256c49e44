#include "foundation/CallSequence.h"
#include "foundation/LibraryCopy.h"
#include "imaging/FakeImaging.h"
#include "imaging/IconFiles.h"
#include "imaging/Icons.h"
#include "support/TestPictures.h"
#include "support/TestResources.h"

#include <vxdpi/Images.h>

namespace
{
const CallNames kExamine = {"GetIconInfo", "GetObjectW", "DeleteObject", "DeleteObject"};
const CallNames kLoad = {"AfxGetResourceHandle", "LoadImageW"};

// The way through the imaging component.
const CallNames kSource = {"factory.CreateBitmapFromHICON"};
const CallNames kScaler = {"factory.CreateBitmapScaler", "scaler.Initialize"};
const CallNames kConverter = {"factory.CreateFormatConverter", "converter.Initialize"};
const CallNames kSection = {"converter.GetSize", "GetDC", "CreateDIBSection", "ReleaseDC"};
const CallNames kIcon = {"converter.CopyPixels", "CreateBitmap", "CreateIconIndirect", "DeleteObject",
                         "DeleteObject"};
const CallNames kRelease = {"converter.Release", "scaler.Release", "source.Release"};
const CallNames kResample = InOrder({kSource, kScaler, kConverter, kSection, kIcon, kRelease});

const CallNames kLibrary = {"LoadLibraryExW", "EnumResourceNamesW"};
const CallNames kLock = {"FindResourceW", "LoadResource", "LockResource", "SizeofResource"};

IconFileContent OneGroup()
{
    IconFileContent content;
    content.AddGroup(1, SquareGroup({16}));
    content.AddImage(1, IconImageData(FramedPicture(16, 16)));
    return content;
}

CallNames CallsOfFile(const IconFileContent& content, int index)
{
    const TemporaryFile file(content);
    OwnedIcon icon;
    return CallsOf([&] { icon.reset(LoadIconByTargetSizeFromFile(file.Path(), index, 16)); });
}
}

TEST(IconSequence, StretchingIsOneCall)
{
    OwnedIcon icon = IconOf(32, 32, kOtherColor);
    EXPECT_TRUE(AreCalls(CallsOf([&] { icon.reset(StretchIcon(icon.release(), 24, 24)); }), {"CopyImage"}));
}

TEST(IconFileSequence, AFileIsOpenReadAndFreed)
{
    EXPECT_TRUE(AreCalls(CallsOfFile(OneGroup(), 0),
                         InOrder({kLibrary, kLock, kLock, {"CreateIconFromResourceEx", "FreeLibrary"}})));
}

TEST(IconFileSequence, NothingIsOpenedForArgumentsOutOfRange)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { LoadIconByTargetSizeFromFile(nullptr, 0, 16); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([] { LoadIconByTargetSizeFromFile(L"x.dll", -1, 16); }), {}));
}

TEST(IconFileSequence, NothingIsFreedThatCouldNotBeOpened)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { LoadIconByTargetSizeFromFile(L"Z:\\no\\such.dll", 0, 16); }),
                         {"LoadLibraryExW"}));
}

TEST(IconFileSequence, AFileIsFreedAfterTheFirstStepThatFails)
{
    EXPECT_TRUE(AreCalls(CallsOfFile(OneGroup(), 1), InOrder({kLibrary, {"FreeLibrary"}})));
    IconFileContent withoutImage;
    withoutImage.AddGroup(1, SquareGroup({16}));
    withoutImage.AddImage(2, IconImageData(FramedPicture(16, 16)));
    EXPECT_TRUE(
        AreCalls(CallsOfFile(withoutImage, 0), InOrder({kLibrary, kLock, {"FindResourceW", "FreeLibrary"}})));
}

class ScaledIconSequence : public FrameworkCallSequence
{
protected:
    // The second call, when the imaging component is there: the first one makes it.
    CallNames ScaleHandle(UINT targetSize)
    {
        const auto scale = m_library.CopyOf(static_cast<HICON (*)(UINT, HICON)>(&CreateScaledIcon));
        HICON icon = IconOf(32, 32, kOtherColor).release();
        const CallNames calls = CallsIn([&] { icon = scale(targetSize, icon); });
        ::DestroyIcon(icon);
        return calls;
    }

    CallNames ScaleResource(UINT targetSize)
    {
        const auto scale = m_library.CopyOf(static_cast<HICON (*)(UINT, UINT, UINT)>(&CreateScaledIcon));
        OwnedIcon icon;
        return CallsIn([&] { icon.reset(scale(targetSize, IDI_16_32, 32)); });
    }

    void FailAt(ImagingStep step) { m_imaging.FailAt(step); }
    void RefuseFactory() { m_creation = E_FAIL; }

private:
    template<typename Work>
    CallNames CallsIn(const Work& work)
    {
        const ImportSpy<decltype(::CoCreateInstance)> create(
            m_library.Module(), "ole32.dll", "CoCreateInstance",
            [this](REFCLSID, IUnknown*, DWORD, REFIID, void** created)
            {
                *created = SUCCEEDED(m_creation) ? m_imaging.Factory() : nullptr;
                return m_creation;
            });
        return CallsOf(m_library.Module(), work);
    }

    CallLog m_log;
    FakeImaging m_imaging{m_log, FramedPicture(24, 24)};
    LibraryCopy m_library;
    HRESULT m_creation = S_OK;
};

TEST_F(ScaledIconSequence, AHandleIsExaminedAndResampled)
{
    EXPECT_TRUE(
        AreCalls(ScaleHandle(24), InOrder({kExamine, {"CoCreateInstance"}, kResample, {"DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(ScaleHandle(24), InOrder({kExamine, kResample, {"DestroyIcon"}})));
}

TEST_F(ScaledIconSequence, AResourceIsLoadedAndResampled)
{
    EXPECT_TRUE(
        AreCalls(ScaleResource(24), InOrder({kLoad, {"CoCreateInstance"}, kResample, {"DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(ScaleResource(24), InOrder({kLoad, kResample, {"DestroyIcon"}})));
}

TEST_F(ScaledIconSequence, AtItsOwnSizeAnIconIsNotResampled)
{
    EXPECT_TRUE(AreCalls(ScaleHandle(32), kExamine));
    EXPECT_TRUE(AreCalls(ScaleResource(32), kLoad));
}

TEST_F(ScaledIconSequence, WithoutTheImagingComponentTheIconIsLeftAlone)
{
    RefuseFactory();
    EXPECT_TRUE(AreCalls(ScaleHandle(24), InOrder({kExamine, {"CoCreateInstance"}})));
    EXPECT_TRUE(AreCalls(ScaleResource(24), InOrder({kLoad, {"CoCreateInstance"}})));
}

TEST_F(ScaledIconSequence, AfterAStepThatFailsOnlyReleasesFollow)
{
    ScaleHandle(24);
    const auto callsFailingAt = [this](ImagingStep step)
    {
        FailAt(step);
        return ScaleHandle(24);
    };
    const CallNames scaled = InOrder({kExamine, kSource, kScaler});
    EXPECT_TRUE(
        AreCalls(callsFailingAt(ImagingStep::CreateSource), InOrder({kExamine, kSource, {"DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(
        callsFailingAt(ImagingStep::CreateScaler),
        InOrder({kExamine, kSource, {"factory.CreateBitmapScaler", "source.Release", "DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(callsFailingAt(ImagingStep::InitializeScaler),
                         InOrder({scaled, {"scaler.Release", "source.Release", "DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(
        callsFailingAt(ImagingStep::CreateConverter),
        InOrder(
            {scaled, {"factory.CreateFormatConverter", "scaler.Release", "source.Release", "DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(callsFailingAt(ImagingStep::InitializeConverter),
                         InOrder({scaled, kConverter, kRelease, {"DestroyIcon"}})));
    EXPECT_TRUE(AreCalls(callsFailingAt(ImagingStep::CopyPixels),
                         InOrder({scaled, kConverter, kSection, kIcon, kRelease, {"DestroyIcon"}})));
}

TEST_F(ScaledIconSequence, AnIconThatCannotBeReadIsNotTouched)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { CreateScaledIcon(24, nullptr); }), {}));
    OwnedIcon icon = IconOf(32, 32, kOtherColor);
    const FailNthCall<decltype(::GetIconInfo)> unread(VxDpiModule(), "user32.dll", "GetIconInfo", 1, FALSE);
    EXPECT_TRUE(AreCalls(CallsOf([&] { CreateScaledIcon(24, icon.get()); }), {"GetIconInfo"}));
}

TEST_F(ScaledIconSequence, AMissingResourceIsNotResampled)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { CreateScaledIcon(24, IDR_MISSING, 32); }), kLoad));
}

class IconSetSequence : public FrameworkCallSequence
{
protected:
    IconSetSequence()
    {
        m_icons.AddResourceForDpi(96, IDI_16_32, {16, 32});
        m_icons.AddResourceForDpi(144, IDI_24_48, {24, 48});
    }

    CallNames CallsAt(UINT dpi)
    {
        OwnedIcon icon;
        return CallsOf([&] { icon.reset(m_icons.CreateAwareIconSpecifyDpi(dpi)); });
    }

    CDpiAwareIcon m_icons;
};

TEST_F(IconSetSequence, ASizeThatIsThereIsLoadedAndAnotherIsStretched)
{
    EXPECT_TRUE(AreCalls(CallsAt(96), InOrder({{"MulDiv"}, kLoad})));
    EXPECT_TRUE(AreCalls(CallsAt(120), InOrder({{"MulDiv"}, kLoad, {"CopyImage"}})));
}

TEST_F(IconSetSequence, WhatCannotBeLoadedIsNotStretched)
{
    m_icons.AddResourceForDpi(144, IDR_MISSING, {24, 48});
    EXPECT_TRUE(AreCalls(CallsAt(120), InOrder({{"MulDiv"}, kLoad})));
}

TEST_F(IconSetSequence, WithoutADpiOrAResourceNothingIsLoaded)
{
    EXPECT_TRUE(AreCalls(CallsAt(0), {}));
    CDpiAwareIcon empty;
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.CreateAwareIconSpecifyDpi(96); }), {}));
}
