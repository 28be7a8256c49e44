#include "support/ImportSpy.h"

#include "support/CallLog.h"
#include "support/GdiPlusSession.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{
using MetricsSpy = ImportSpy<decltype(::GetSystemMetrics)>;
using DrawFlat = decltype(Gdiplus::DllExports::GdipDrawImageRectRect);

constexpr int kFaked = 4711;

// A compiler may read an import's address once per function. Through this pointer every call is made in a
// function of its own, as a module's calls are when a spy starts before the module is entered.
int (*volatile g_askMetric)(int) = [](int index) { return ::GetSystemMetrics(index); };

std::string MessageOf(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "nothing thrown";
}
}

TEST(ImportSpy, AnswersInPlaceOfThePlatformAndCountsTheCalls)
{
    int asked = 0;
    const MetricsSpy spy(nullptr, "user32.dll", "GetSystemMetrics",
                         [&](int index)
                         {
                             asked = index;
                             return kFaked;
                         });
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), kFaked);
    EXPECT_EQ(g_askMetric(SM_CXSIZE), kFaked);
    EXPECT_EQ(asked, SM_CXSIZE);
    EXPECT_EQ(spy.CallCount(), 2);
}

TEST(ImportSpy, EndOfScopeBringsThePlatformBack)
{
    const int real = g_askMetric(SM_CYCAPTION);
    void** const slot = FindImports(SpiedModule(nullptr), "user32.dll", "GetSystemMetrics").at(0);
    void* const address = *slot;
    {
        const MetricsSpy spy(nullptr, "user32.dll", "GetSystemMetrics", [](int) { return kFaked; });
        EXPECT_NE(*slot, address);
    }
    EXPECT_EQ(*slot, address);
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
}

TEST(ImportSpy, OriginalReachesThePlatform)
{
    const int real = g_askMetric(SM_CYCAPTION);
    MetricsSpy spy(nullptr, "user32.dll", "GetSystemMetrics",
                   [&](int index) { return spy.Original()(index) + 1; });
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real + 1);
}

TEST(ImportSpy, WithoutHandlerItPassesOnAndCounts)
{
    const int real = g_askMetric(SM_CYCAPTION);
    const MetricsSpy spy(nullptr, "user32.dll", "GetSystemMetrics");
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
    EXPECT_EQ(spy.CallCount(), 1);
}

TEST(ImportSpy, NestedSpiesOnOneFunctionRunFromTheInnermostOutwards)
{
    const int real = g_askMetric(SM_CYCAPTION);
    MetricsSpy outer(nullptr, "user32.dll", "GetSystemMetrics",
                     [&](int index) { return outer.Original()(index) * 100; });
    {
        MetricsSpy inner(nullptr, "user32.dll", "GetSystemMetrics",
                         [&](int index) { return inner.Original()(index) + 7; });
        EXPECT_EQ(g_askMetric(SM_CYCAPTION), real * 100 + 7);
        EXPECT_EQ(outer.CallCount(), 1);
    }
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real * 100);
    EXPECT_EQ(outer.CallCount(), 2);
}

TEST(ImportSpy, TwoFunctionsOfOneSignatureAreToldApart)
{
    const ImportSpy<decltype(::IsWindow)> isWindow(nullptr, "user32.dll", "IsWindow", [](HWND) { return 2; });
    const ImportSpy<decltype(::IsWindowVisible)> isVisible(nullptr, "user32.dll", "IsWindowVisible",
                                                           [](HWND) { return 3; });
    EXPECT_EQ(::IsWindow(nullptr), 2);
    EXPECT_EQ(::IsWindowVisible(nullptr), 3);
    EXPECT_EQ(isWindow.CallCount(), 1);
    EXPECT_EQ(isVisible.CallCount(), 1);
}

TEST(ImportSpy, OtherModulesStillReachThePlatform)
{
    // comctl32 asks for the metrics itself; a spy on its imports leaves those of the program alone.
    const int real = g_askMetric(SM_CYCAPTION);
    const HMODULE other = ::LoadLibraryW(L"comctl32.dll");
    ASSERT_NE(other, nullptr);
    {
        const MetricsSpy spy(other, nullptr, "GetSystemMetrics", [](int) { return kFaked; });
        EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
        EXPECT_EQ(spy.CallCount(), 0);
    }
    ::FreeLibrary(other);
}

TEST(ImportSpy, OneFunctionCanBeSpiedOnInTwoModules)
{
    const HMODULE other = ::LoadLibraryW(L"comctl32.dll");
    ASSERT_NE(other, nullptr);
    {
        MetricsSpy inOther(other, nullptr, "GetSystemMetrics", [](int) { return 1; });
        MetricsSpy inProgram(nullptr, nullptr, "GetSystemMetrics", [](int) { return 2; });
        void* const otherSlot = *FindImports(other, nullptr, "GetSystemMetrics").at(0);
        EXPECT_EQ(reinterpret_cast<int(WINAPI*)(int)>(otherSlot)(SM_CYCAPTION), 1);
        EXPECT_EQ(g_askMetric(SM_CYCAPTION), 2);
    }
    ::FreeLibrary(other);
}

TEST(ImportSpy, AFunctionThatIsNotImportedThrowsWithItsName)
{
    const std::string message =
        MessageOf([] { MetricsSpy(nullptr, "user32.dll", "NoSuchFunction", [](int) { return 0; }); });
    EXPECT_NE(message.find("does not import NoSuchFunction from user32.dll"), std::string::npos) << message;
}

TEST(ImportSpy, AFunctionOfAnotherDllThrowsUnlessAnyDllIsAllowed)
{
    EXPECT_THROW(MetricsSpy(nullptr, "gdi32.dll", "GetSystemMetrics"), std::runtime_error);
    EXPECT_NO_THROW(MetricsSpy(nullptr, nullptr, "GetSystemMetrics"));
}

TEST(ImportSpy, AModuleThatIsNotLoadedThrowsWithItsName)
{
    const std::string message = MessageOf([] { MetricsSpy(L"missing.dll", nullptr, "GetSystemMetrics"); });
    EXPECT_EQ(message, "module not loaded: missing.dll");
}

TEST(ImportSpy, AWrongOrderOfEndsIsReportedAndHarmless)
{
    const int real = g_askMetric(SM_CYCAPTION);
    auto first =
        std::make_unique<MetricsSpy>(nullptr, "user32.dll", "GetSystemMetrics", [](int) { return 1; });
    auto second = std::make_unique<MetricsSpy>(nullptr, "user32.dll", "GetSystemMetrics");
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        first.reset();
    }
    ASSERT_EQ(results.size(), 1);
    EXPECT_NE(std::string(results.GetTestPartResult(0).message()).find("reverse order"), std::string::npos);
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
    second.reset();
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
}

TEST(ImportSpy, TooManySpiesOnOneSignatureThrow)
{
    std::vector<std::unique_ptr<ImportSpy<decltype(::GetDoubleClickTime)>>> spies;
    const auto addSpy = [&]
    {
        spies.push_back(std::make_unique<ImportSpy<decltype(::GetDoubleClickTime)>>(nullptr, "user32.dll",
                                                                                    "GetDoubleClickTime"));
    };
    EXPECT_NE(::GetDoubleClickTime(), 0u);
    for (int i = 0; i < 16; ++i)
        addSpy();
    EXPECT_THROW(addSpy(), std::runtime_error);
    while (!spies.empty())
        spies.pop_back();
    EXPECT_NO_THROW(addSpy());
}

TEST(ImportSpy, FloatAndStackArgumentsArrive)
{
    const GdiPlusSession gdiPlus;
    Gdiplus::Bitmap target(8, 8, PixelFormat32bppARGB);
    Gdiplus::Bitmap source(8, 8, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(&target);

    std::vector<float> seen;
    void* seenData = nullptr;
    const ImportSpy<DrawFlat> spy(
        nullptr, "gdiplus.dll", "GdipDrawImageRectRect",
        [&](auto, auto, auto x, auto y, auto width, auto height, auto sourceX, auto sourceY, auto sourceWidth,
            auto sourceHeight, auto, auto, auto, auto data)
        {
            seen = {x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight};
            seenData = data;
            return Gdiplus::OutOfMemory;
        });
    const Gdiplus::Status status =
        graphics.DrawImage(&source, Gdiplus::RectF(1.5f, 2.5f, 3.5f, 4.5f), 5.25f, 6.25f, 7.25f, 8.25f,
                           Gdiplus::UnitPixel, nullptr, nullptr, &target);
    EXPECT_EQ(status, Gdiplus::OutOfMemory);
    EXPECT_EQ(seen, (std::vector<float>{1.5f, 2.5f, 3.5f, 4.5f, 5.25f, 6.25f, 7.25f, 8.25f}));
    EXPECT_EQ(seenData, &target);
}

TEST(ImportSpy, AnExceptionOfTheHandlerReachesTheCaller)
{
    const MetricsSpy spy(nullptr, "user32.dll", "GetSystemMetrics",
                         [](int) -> int { throw std::logic_error("from the handler"); });
    EXPECT_THROW(g_askMetric(SM_CYCAPTION), std::logic_error);
}

TEST(FailNthCall, OnlyTheChosenCallFails)
{
    const FailNthCall<decltype(::CreateCompatibleDC)> spy(nullptr, "gdi32.dll", "CreateCompatibleDC", 2,
                                                          nullptr, ERROR_NOT_ENOUGH_MEMORY);
    HDC dcs[3] = {};
    for (HDC& dc : dcs)
    {
        ::SetLastError(ERROR_SUCCESS);
        dc = ::CreateCompatibleDC(nullptr);
        EXPECT_EQ(::GetLastError() == ERROR_NOT_ENOUGH_MEMORY, dc == nullptr);
    }
    EXPECT_NE(dcs[0], nullptr);
    EXPECT_EQ(dcs[1], nullptr);
    EXPECT_NE(dcs[2], nullptr);
    ::DeleteDC(dcs[0]);
    ::DeleteDC(dcs[2]);
}

TEST(FailNthCall, EveryCallFailsOnRequest)
{
    using Spy = FailNthCall<decltype(::GetSystemMetrics)>;
    const Spy spy(nullptr, "user32.dll", "GetSystemMetrics", Spy::kEveryCall, -5);
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), -5);
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), -5);
}

TEST(ComMethodSpy, ReplacesAMethodAndBringsItBack)
{
    constexpr std::size_t kStatIndex = 12;
    IStream* stream = nullptr;
    ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    STATSTG state = {};
    {
        const ComMethodSpy<HRESULT(IStream*, STATSTG*, DWORD)> spy(
            stream, kStatIndex, "IStream::Stat", [](IStream*, STATSTG*, DWORD) { return E_ABORT; });
        EXPECT_EQ(stream->Stat(&state, STATFLAG_NONAME), E_ABORT);
        EXPECT_EQ(spy.CallCount(), 1);
    }
    EXPECT_EQ(stream->Stat(&state, STATFLAG_NONAME), S_OK);
    stream->Release();
}
