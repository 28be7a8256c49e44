#include "foundation/LibraryModule.h"
#include "support/ImportSpy.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/GdiPlus.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace
{
constexpr ULONG_PTR kUntouched = 0x5555555555555555;

// Stands in for GDI+ in the library: says what a start answers and remembers every start and end.
class FakeGdiPlus
{
public:
    struct Start
    {
        ULONG_PTR* pToken;
        Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartupOutput* pOutput;
    };

    FakeGdiPlus()
        : m_startup(VxDpiModule(), "gdiplus.dll", "GdiplusStartup",
                    [this](ULONG_PTR* pToken, const Gdiplus::GdiplusStartupInput* pInput,
                           Gdiplus::GdiplusStartupOutput* pOutput)
                    {
                        starts.push_back({pToken, *pInput, pOutput});
                        if (writesToken)
                            *pToken = token;
                        return status;
                    }),
          m_shutdown(VxDpiModule(), "gdiplus.dll", "GdiplusShutdown",
                     [this](ULONG_PTR ended) { ends.push_back(ended); })
    {
    }

    // What the next starts do.
    void Answer(Gdiplus::Status newStatus, ULONG_PTR newToken)
    {
        status = newStatus;
        token = newToken;
        writesToken = true;
    }

    void AnswerWithoutToken(Gdiplus::Status newStatus)
    {
        status = newStatus;
        writesToken = false;
    }

    std::vector<Start> starts;
    std::vector<ULONG_PTR> ends;

private:
    Gdiplus::Status status = Gdiplus::Ok;
    ULONG_PTR token = 0;
    bool writesToken = true;
    ImportSpy<decltype(Gdiplus::GdiplusStartup)> m_startup;
    ImportSpy<decltype(Gdiplus::GdiplusShutdown)> m_shutdown;
};

void ExpectPlainInput(const FakeGdiPlus::Start& start)
{
    EXPECT_EQ(start.input.GdiplusVersion, 1u);
    EXPECT_EQ(start.input.DebugEventCallback, nullptr);
    EXPECT_EQ(start.input.SuppressBackgroundThread, FALSE);
    EXPECT_EQ(start.input.SuppressExternalCodecs, FALSE);
    EXPECT_EQ(start.pOutput, nullptr);
}

// The library's token; kUntouched when it says that it holds none.
ULONG_PTR HeldToken()
{
    ULONG_PTR token = kUntouched;
    const int held = GetGdiPlusTokenFromVxDpi(token);
    EXPECT_EQ(held, token == kUntouched ? FALSE : TRUE);
    return token;
}

// Each test starts and leaves the library without a token, which only a failing start that writes 0 can do.
class GdiPlusToken : public testing::Test
{
protected:
    void SetUp() override { ForgetToken(); }

    void TearDown() override { ForgetToken(); }

    FakeGdiPlus gdiPlus;

private:
    void ForgetToken()
    {
        gdiPlus.Answer(Gdiplus::GenericError, 0);
        StartupGdiPlusByVxDpi();
        gdiPlus.starts.clear();
        gdiPlus.ends.clear();
    }
};

class CGdiPlusInitializerTest : public GdiPlusToken
{
};

class DerivedInitializer : public CGdiPlusInitializer
{
public:
    explicit DerivedInitializer(bool& destroyed) : m_destroyed(destroyed) {}

    ~DerivedInitializer() override { m_destroyed = true; }

private:
    bool& m_destroyed;
};
}

TEST_F(GdiPlusToken, AStartAsksForVersion1WithoutCallbackSuppressionAndOutput)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    ASSERT_EQ(gdiPlus.starts.size(), 1u);
    ExpectPlainInput(gdiPlus.starts[0]);
}

TEST_F(GdiPlusToken, ASuccessfulStartHoldsTheToken)
{
    gdiPlus.Answer(Gdiplus::Ok, 0xFEDCBA9876543210);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    EXPECT_EQ(HeldToken(), 0xFEDCBA9876543210u);
    EXPECT_TRUE(gdiPlus.ends.empty());
}

TEST_F(GdiPlusToken, GdiPlusWritesStraightIntoTheTokenOfTheProcess)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    StartupGdiPlusByVxDpi();
    ASSERT_EQ(gdiPlus.starts.size(), 2u);
    EXPECT_EQ(gdiPlus.starts[0].pToken, gdiPlus.starts[1].pToken);
    *gdiPlus.starts[0].pToken = 12;
    EXPECT_EQ(HeldToken(), 12u);
}

TEST_F(GdiPlusToken, EveryFailingStatusGivesFalse)
{
    for (const Gdiplus::Status status :
         {Gdiplus::GenericError, Gdiplus::InvalidParameter, Gdiplus::OutOfMemory,
          Gdiplus::UnsupportedGdiplusVersion, Gdiplus::GdiplusNotInitialized})
    {
        gdiPlus.AnswerWithoutToken(status);
        EXPECT_EQ(StartupGdiPlusByVxDpi(), FALSE) << status;
        EXPECT_EQ(HeldToken(), kUntouched);
    }
}

TEST_F(GdiPlusToken, AFailedStartHoldsWhatItWrote)
{
    gdiPlus.Answer(Gdiplus::GenericError, 33);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), FALSE);
    EXPECT_EQ(HeldToken(), 33u);
}

TEST_F(GdiPlusToken, AFailedStartThatWritesNothingKeepsTheEarlierToken)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    gdiPlus.AnswerWithoutToken(Gdiplus::OutOfMemory);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), FALSE);
    EXPECT_EQ(HeldToken(), 11u);
}

TEST_F(GdiPlusToken, AFailedStartThatWrites0EmptiesTheToken)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    gdiPlus.Answer(Gdiplus::GenericError, 0);
    StartupGdiPlusByVxDpi();
    EXPECT_EQ(HeldToken(), kUntouched);
}

TEST_F(GdiPlusToken, ASecondStartReplacesTheTokenWithoutEndingTheFirst)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    gdiPlus.Answer(Gdiplus::Ok, 22);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    EXPECT_EQ(gdiPlus.starts.size(), 2u);
    EXPECT_TRUE(gdiPlus.ends.empty());
    EXPECT_EQ(HeldToken(), 22u);

    ShutdownGdiPlusByVxDpi();
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{22});
}

TEST_F(GdiPlusToken, WithoutATokenAShutdownDoesNothing)
{
    ShutdownGdiPlusByVxDpi();
    EXPECT_TRUE(gdiPlus.ends.empty());
    EXPECT_EQ(HeldToken(), kUntouched);
}

TEST_F(GdiPlusToken, AShutdownKeepsTheToken)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    ShutdownGdiPlusByVxDpi();
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{11});
    EXPECT_EQ(HeldToken(), 11u);
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(44), FALSE);
    EXPECT_EQ(HeldToken(), 11u);
}

TEST_F(GdiPlusToken, AShutdownCanBeRepeated)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    ShutdownGdiPlusByVxDpi();
    ShutdownGdiPlusByVxDpi();
    EXPECT_EQ(gdiPlus.ends, (std::vector<ULONG_PTR>{11, 11}));
}

TEST_F(GdiPlusToken, GdiPlusCanBeStartedAgainAfterAShutdown)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    ShutdownGdiPlusByVxDpi();
    gdiPlus.Answer(Gdiplus::Ok, 12);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    EXPECT_EQ(HeldToken(), 12u);
}

TEST_F(GdiPlusToken, WithoutATokenAskingForItLeavesTheArgumentUntouched)
{
    ULONG_PTR token = kUntouched;
    EXPECT_EQ(GetGdiPlusTokenFromVxDpi(token), FALSE);
    EXPECT_EQ(token, kUntouched);
}

TEST_F(GdiPlusToken, AskingForTheTokenCopiesIt)
{
    SetGdiPlusTokenToVxDpi(7);
    ULONG_PTR token = kUntouched;
    EXPECT_EQ(GetGdiPlusTokenFromVxDpi(token), TRUE);
    EXPECT_EQ(token, 7u);
    EXPECT_EQ(HeldToken(), 7u);
}

TEST_F(GdiPlusToken, AGivenTokenIsHeldAndShutDown)
{
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(0xFEDCBA9876543210), TRUE);
    EXPECT_EQ(HeldToken(), 0xFEDCBA9876543210u);
    ShutdownGdiPlusByVxDpi();
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{0xFEDCBA9876543210});
    EXPECT_TRUE(gdiPlus.starts.empty());
}

TEST_F(GdiPlusToken, ASecondGivenTokenIsRefused)
{
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(7), TRUE);
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(8), FALSE);
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(0), FALSE);
    EXPECT_EQ(HeldToken(), 7u);
}

TEST_F(GdiPlusToken, AGivenTokenIsRefusedAfterAStart)
{
    gdiPlus.Answer(Gdiplus::Ok, 11);
    StartupGdiPlusByVxDpi();
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(7), FALSE);
    EXPECT_EQ(HeldToken(), 11u);
}

TEST_F(GdiPlusToken, AGiven0IsTakenAndLeavesNoToken)
{
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(0), TRUE);
    EXPECT_EQ(HeldToken(), kUntouched);
    EXPECT_EQ(SetGdiPlusTokenToVxDpi(7), TRUE);
    EXPECT_EQ(HeldToken(), 7u);
}

TEST_F(GdiPlusToken, AStartReplacesAGivenToken)
{
    SetGdiPlusTokenToVxDpi(7);
    gdiPlus.Answer(Gdiplus::Ok, 11);
    EXPECT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    EXPECT_EQ(HeldToken(), 11u);
    EXPECT_TRUE(gdiPlus.ends.empty());
}

TEST_F(CGdiPlusInitializerTest, StartsGdiPlusIntoItsOwnToken)
{
    gdiPlus.Answer(Gdiplus::Ok, 0xFEDCBA9876543210);
    const CGdiPlusInitializer initializer;
    ASSERT_EQ(gdiPlus.starts.size(), 1u);
    ExpectPlainInput(gdiPlus.starts[0]);
    EXPECT_EQ(gdiPlus.starts[0].pToken, &initializer.m_token);
    EXPECT_EQ(initializer.m_token, 0xFEDCBA9876543210u);
    EXPECT_TRUE(gdiPlus.ends.empty());
}

TEST_F(CGdiPlusInitializerTest, EndsGdiPlusWithItsLife)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        const CGdiPlusInitializer initializer;
    }
    EXPECT_EQ(gdiPlus.starts.size(), 1u);
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{21});
}

TEST_F(CGdiPlusInitializerTest, EndsTheTokenThatItHasThen)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        CGdiPlusInitializer initializer;
        initializer.m_token = 22;
    }
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{22});
}

TEST_F(CGdiPlusInitializerTest, AFailedStartLeavesNoTokenAndEndsNothing)
{
    gdiPlus.Answer(Gdiplus::GenericError, 21);
    {
        const CGdiPlusInitializer initializer;
        EXPECT_EQ(initializer.m_token, 0u);
    }
    EXPECT_EQ(gdiPlus.starts.size(), 1u);
    EXPECT_TRUE(gdiPlus.ends.empty());
}

TEST_F(CGdiPlusInitializerTest, AStartThatTellsNoTokenEndsNothing)
{
    gdiPlus.AnswerWithoutToken(Gdiplus::Ok);
    {
        // Made on memory that is not 0, so that a token which nobody writes shows.
        alignas(CGdiPlusInitializer) unsigned char storage[sizeof(CGdiPlusInitializer)];
        std::fill(std::begin(storage), std::end(storage), static_cast<unsigned char>(0x55));
        CGdiPlusInitializer* const initializer = new (storage) CGdiPlusInitializer;
        EXPECT_EQ(initializer->m_token, 0u);
        initializer->~CGdiPlusInitializer();
    }
    EXPECT_TRUE(gdiPlus.ends.empty());
}

TEST_F(CGdiPlusInitializerTest, TwoObjectsStartTwiceAndEndEachItsOwn)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        const CGdiPlusInitializer first;
        gdiPlus.Answer(Gdiplus::Ok, 22);
        const CGdiPlusInitializer second;
        EXPECT_EQ(first.m_token, 21u);
        EXPECT_EQ(second.m_token, 22u);
    }
    EXPECT_EQ(gdiPlus.starts.size(), 2u);
    EXPECT_EQ(gdiPlus.ends, (std::vector<ULONG_PTR>{22, 21}));
}

TEST_F(CGdiPlusInitializerTest, LeavesTheTokenOfTheProcessAlone)
{
    SetGdiPlusTokenToVxDpi(7);
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        const CGdiPlusInitializer initializer;
        EXPECT_EQ(HeldToken(), 7u);
        EXPECT_EQ(initializer.m_token, 21u);
    }
    EXPECT_EQ(HeldToken(), 7u);
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{21});
}

TEST_F(CGdiPlusInitializerTest, WithoutATokenOfTheProcessItLeavesNone)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    const CGdiPlusInitializer initializer;
    EXPECT_EQ(HeldToken(), kUntouched);
}

TEST_F(CGdiPlusInitializerTest, ACopySharesTheTokenAndBothEndIt)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        const CGdiPlusInitializer first;
        const CGdiPlusInitializer copy(first);
        EXPECT_EQ(copy.m_token, 21u);
        EXPECT_EQ(first.m_token, 21u);
        EXPECT_EQ(gdiPlus.starts.size(), 1u);
    }
    EXPECT_EQ(gdiPlus.ends, (std::vector<ULONG_PTR>{21, 21}));
}

TEST_F(CGdiPlusInitializerTest, AssignmentCopiesTheTokenAndEndsNothingAtOnce)
{
    gdiPlus.Answer(Gdiplus::Ok, 21);
    {
        const CGdiPlusInitializer first;
        gdiPlus.Answer(Gdiplus::Ok, 22);
        CGdiPlusInitializer second;
        EXPECT_EQ(&(second = first), &second);
        EXPECT_EQ(second.m_token, 21u);
        EXPECT_EQ(gdiPlus.starts.size(), 2u);
        EXPECT_TRUE(gdiPlus.ends.empty());
    }
    EXPECT_EQ(gdiPlus.ends, (std::vector<ULONG_PTR>{21, 21}));
}

TEST_F(CGdiPlusInitializerTest, IsDestroyedThroughItsBase)
{
    static_assert(std::has_virtual_destructor_v<CGdiPlusInitializer>);
    static_assert(sizeof(CGdiPlusInitializer) == sizeof(void*) + sizeof(ULONG_PTR));
    gdiPlus.Answer(Gdiplus::Ok, 21);
    bool destroyed = false;
    std::unique_ptr<CGdiPlusInitializer> initializer = std::make_unique<DerivedInitializer>(destroyed);
    initializer.reset();
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(gdiPlus.ends, std::vector<ULONG_PTR>{21});
}

TEST(GdiPlusLifetime, TheLibrarysStartMakesPicturesPossible)
{
    ASSERT_EQ(StartupGdiPlusByVxDpi(), TRUE);
    EXPECT_NE(HeldToken(), kUntouched);
    Gdiplus::Bitmap bitmap(3, 4, PixelFormat32bppARGB);
    EXPECT_EQ(bitmap.GetWidth(), 3u);
    ShutdownGdiPlusByVxDpi();
    EXPECT_NE(HeldToken(), kUntouched);
}

TEST(GdiPlusLifetime, AnInitializerMakesPicturesPossible)
{
    const CGdiPlusInitializer gdiPlus;
    EXPECT_NE(gdiPlus.m_token, 0u);
    Gdiplus::Bitmap bitmap(3, 4, PixelFormat32bppARGB);
    EXPECT_EQ(bitmap.GetHeight(), 4u);
}
