#include "foundation/CallSequence.h"
#include "imaging/DpiAwareBitmapFixture.h"

namespace
{
constexpr int kMissing = IDR_MISSING;

const CallNames kDelete = {"CGdiObject::DeleteObject"};
const CallNames kAttach = {"CGdiObject::Attach"};

const CallNames kLoadPlainly = {"AfxFindResourceHandle", "LoadBitmapW"};
const CallNames kLoadMapped = {"AfxFindResourceHandle", "CreateMappedBitmap"};

// What follows when a source is there: the copy that is shown.
const CallNames kShowCopy = InOrder({{"CopyImage"}, kDelete, kAttach, {"GetObjectW"}});
const CallNames kLoadAndShow = InOrder({kDelete, kDelete, kLoadPlainly, kAttach, kShowCopy});

const CallNames kAdopt = InOrder({kDelete, kAttach, {"CopyImage", "GetObjectW"}, kDelete, kAttach});

const CallNames kStretch = InOrder({{"CClientDC::CClientDC", "CreateCompatibleDC", "CreateCompatibleBitmap",
                                     "SelectObject", "CreateCompatibleDC", "SelectObject"},
                                    Times(2, {"SetStretchBltMode"}),
                                    Times(2, {"SetBrushOrgEx"}),
                                    {"StretchBlt"},
                                    Times(2, {"SelectObject"}),
                                    kDelete,
                                    kAttach,
                                    Times(2, {"DeleteDC"}),
                                    {"CDC::DeleteDC", "CClientDC::~CClientDC"}});

const CallNames kTargetSize = {"MulDiv", "MulDiv"};

template<typename Signature>
class FailFirst : public FailNthCall<Signature>
{
public:
    FailFirst(const char* dllName, const char* functionName)
        : FailNthCall<Signature>(VxDpiModule(), dllName, functionName, 1, {})
    {
    }
};
}

TEST(BitmapSequence, AFreeBitmapIsStretchedBetweenTwoContexts)
{
    const OwnedBitmap bitmap = DeviceBitmap(16, 16, kBlack);
    OwnedBitmap scaled;
    EXPECT_TRUE(AreCalls(CallsOf([&] { scaled.reset(ScaleBitmap(bitmap.get(), 24, 24)); }),
                         InOrder({{"GetObjectW", "GetDC", "CreateCompatibleBitmap"},
                                  Times(2, {"CreateCompatibleDC"}),
                                  Times(2, {"SelectObject"}),
                                  {"StretchBlt"},
                                  Times(2, {"SelectObject"}),
                                  Times(2, {"DeleteDC"}),
                                  {"ReleaseDC"}})));
}

TEST(BitmapSequence, NothingIsMadeForABitmapThatIsNone)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { ScaleBitmap(nullptr, 24, 24); }), {"GetObjectW"}));
}

class DpiAwareBitmapSequence : public FrameworkCallSequence
{
protected:
    DpiAwareBitmapSequence()
    {
        m_bitmap.Register(96, IDB_16);
        m_bitmap.Register(144, IDB_24);
    }

    CallNames Load(UINT dpi)
    {
        return CallsOf([&] { m_bitmap.LoadDpiAwareBitmap(dpi); });
    }

    CallNames ScaleAt(UINT dpi, HBITMAP bitmap = nullptr)
    {
        const WindowDpiAnswer answer(dpi);
        return CallsOf([&] { m_bitmap.ScaleToDpi(m_window.Object(), bitmap); });
    }

    CallNames Stretch()
    {
        return CallsOf([&] { m_bitmap.Scale(m_window.Object(), 24, 24); });
    }

    FrameworkWindow m_window;
    OpenBitmap m_bitmap;
};

TEST_F(DpiAwareBitmapSequence, LoadingMakesTheSourceAndTheCopyThatIsShown)
{
    EXPECT_TRUE(AreCalls(Load(96), kLoadAndShow));
    EXPECT_TRUE(AreCalls(Load(144), kLoadAndShow));
}

TEST_F(DpiAwareBitmapSequence, WhatIsLoadedAlreadyIsLeftAlone)
{
    Load(96);
    EXPECT_TRUE(AreCalls(Load(96), {}));
    OpenBitmap empty;
    EXPECT_TRUE(AreCalls(CallsOf([&] { empty.LoadDpiAwareBitmap(96); }), {}));
}

TEST_F(DpiAwareBitmapSequence, LoadingWithColorsDiffersInOneCall)
{
    COLORMAP map = {kBlack, kWhite};
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_bitmap.LoadDpiAwareBitmapWithColorMap(1, &map, 1, 96); }),
                         InOrder({kDelete, kDelete, kLoadMapped, kAttach, kShowCopy})));
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { m_bitmap.LoadDpiAwareBitmapWithColorMap(0, &map, 1, 144); }), kLoadAndShow));
}

TEST_F(DpiAwareBitmapSequence, NothingIsCopiedWhenLoadingFails)
{
    m_bitmap.Register(96, kMissing);
    EXPECT_TRUE(AreCalls(Load(96), InOrder({kDelete, kDelete, kLoadPlainly, kAttach})));
}

TEST_F(DpiAwareBitmapSequence, NothingIsShownWhenCopyingFails)
{
    const FailFirst<decltype(::CopyImage)> noCopy("user32.dll", "CopyImage");
    EXPECT_TRUE(AreCalls(Load(96), InOrder({kDelete, kDelete, kLoadPlainly, kAttach, {"CopyImage"}})));
}

TEST_F(DpiAwareBitmapSequence, ABitmapIsAdopted)
{
    const HBITMAP bitmap = DeviceBitmap(16, 16, kBlack).release();
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_bitmap.Attach_DpiAware(bitmap); }), kAdopt));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_bitmap.Attach_DpiAware(nullptr); }), {}));
}

TEST_F(DpiAwareBitmapSequence, AnAdoptedBitmapThatCannotBeCopiedIsNotMeasured)
{
    const HBITMAP bitmap = DeviceBitmap(16, 16, kBlack).release();
    const FailFirst<decltype(::CopyImage)> noCopy("user32.dll", "CopyImage");
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_bitmap.Attach_DpiAware(bitmap); }),
                         InOrder({kDelete, kAttach, {"CopyImage"}})));
}

TEST_F(DpiAwareBitmapSequence, StretchingReplacesWhatIsShown)
{
    Load(96);
    EXPECT_TRUE(AreCalls(Stretch(), kStretch));
}

TEST_F(DpiAwareBitmapSequence, StretchingEndsWithTheFirstContextThatCannotBeHad)
{
    Load(96);
    const FailFirst<decltype(::CreateCompatibleDC)> noContext("gdi32.dll", "CreateCompatibleDC");
    EXPECT_TRUE(AreCalls(Stretch(), {"CClientDC::CClientDC", "CreateCompatibleDC", "CClientDC::~CClientDC"}));
}

TEST_F(DpiAwareBitmapSequence, StretchingEndsWithoutABitmap)
{
    Load(96);
    const FailFirst<decltype(::CreateCompatibleBitmap)> noBitmap("gdi32.dll", "CreateCompatibleBitmap");
    EXPECT_TRUE(AreCalls(Stretch(), {"CClientDC::CClientDC", "CreateCompatibleDC", "CreateCompatibleBitmap",
                                     "DeleteDC", "CClientDC::~CClientDC"}));
}

TEST_F(DpiAwareBitmapSequence, StretchingThatFailsStillReplacesWhatIsShown)
{
    Load(96);
    const FailFirst<decltype(::StretchBlt)> noStretch("gdi32.dll", "StretchBlt");
    EXPECT_TRUE(AreCalls(Stretch(), kStretch));
}

TEST_F(DpiAwareBitmapSequence, AtTheDpiThatIsLoadedItIsOnlyStretched)
{
    Load(96);
    EXPECT_TRUE(AreCalls(ScaleAt(96), InOrder({{"GetDpiForWindow"}, kTargetSize, kStretch})));
}

TEST_F(DpiAwareBitmapSequence, AtAnotherDpiAnotherResourceIsLoadedBeforeItIsStretched)
{
    Load(96);
    EXPECT_TRUE(AreCalls(ScaleAt(144), InOrder({{"GetDpiForWindow"}, kTargetSize, kLoadAndShow, kStretch})));
}

TEST_F(DpiAwareBitmapSequence, ABitmapThatIsGivenIsAdoptedAndStretched)
{
    const HBITMAP bitmap = DeviceBitmap(16, 16, kBlack).release();
    EXPECT_TRUE(AreCalls(ScaleAt(96, bitmap), InOrder({{"GetDpiForWindow"}, kAdopt, kTargetSize, kStretch})));
}

TEST_F(DpiAwareBitmapSequence, WithoutASourceOrADpiNothingIsScaled)
{
    EXPECT_TRUE(AreCalls(ScaleAt(96), {"GetDpiForWindow"}));
    Load(96);
    EXPECT_TRUE(AreCalls(ScaleAt(0), {"GetDpiForWindow"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_bitmap.ScaleToDpi(nullptr, nullptr); }), {}));
}
