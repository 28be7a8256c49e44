#include <afxwin.h>

#include <gtest/gtest.h>

#include <thread>

#include "WindowFixture.h"
#include "dll/TestDll.h"

namespace
{

HWND MakePlainWindow()
{
    return ::CreateWindow(L"STATIC", L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

/// A window without an object.
struct PlainWindow
{
    const HWND handle = MakePlainWindow();
    ~PlainWindow() { ::DestroyWindow(handle); }
};

} // namespace

TEST(HandleMap, CreatedWindowIsPermanent)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hWnd), &wnd);
    EXPECT_EQ(CWnd::FromHandle(wnd.m_hWnd), &wnd);
}

TEST(HandleMap, ForeignWindowHasNoPermanentObject)
{
    const PlainWindow plain;
    EXPECT_EQ(CWnd::FromHandlePermanent(plain.handle), nullptr);
}

TEST(HandleMap, ForeignWindowGetsOneTemporaryObject)
{
    const PlainWindow plain;
    CWnd* const pFirst = CWnd::FromHandle(plain.handle);
    ASSERT_NE(pFirst, nullptr);
    EXPECT_EQ(pFirst->m_hWnd, plain.handle);
    EXPECT_EQ(CWnd::FromHandle(plain.handle), pFirst);
    EXPECT_EQ(CWnd::FromHandlePermanent(plain.handle), nullptr);
}

TEST(HandleMap, NullHandleHasNoObject)
{
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
}

TEST(HandleMap, EndOfTemporariesLeavesTheWindow)
{
    const PlainWindow plain;
    CWnd::FromHandle(plain.handle);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(plain.handle));
}

TEST(HandleMap, AttachMakesPermanentAndDetachEndsIt)
{
    const PlainWindow plain;
    CWnd wnd;
    ASSERT_TRUE(wnd.Attach(plain.handle));
    EXPECT_EQ(CWnd::FromHandlePermanent(plain.handle), &wnd);
    EXPECT_EQ(wnd.Detach(), plain.handle);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(plain.handle), nullptr);
}

TEST(HandleMap, AttachRefusesNullAndASecondHandle)
{
    const PlainWindow plain;
    CTestWnd wnd;
    EXPECT_FALSE(wnd.Attach(nullptr));
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_FALSE(wnd.Attach(plain.handle));
}

TEST(HandleMap, DestroyedWindowHasNoObjectAnyMore)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    const HWND hWnd = wnd.m_hWnd;
    wnd.DestroyWindow();
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
}

TEST(HandleMap, DestroyingAnAttachedWindowDetachesIt)
{
    const HWND hWnd = MakePlainWindow();
    CWnd wnd;
    wnd.Attach(hWnd);
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
}

TEST(HandleMap, DestructorDestroysAnAttachedWindow)
{
    const HWND hWnd = MakePlainWindow();
    {
        CWnd wnd;
        wnd.Attach(hWnd);
    }
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
}

TEST(HandleMap, AnotherThreadDoesNotSeeTheObject)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    const CWnd* pSeen = &wnd;
    std::thread([&] { pSeen = CWnd::FromHandlePermanent(wnd.m_hWnd); }).join();
    EXPECT_EQ(pSeen, nullptr);
}

TEST(HandleMap, AnotherModuleDoesNotSeeTheObject)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    EXPECT_FALSE(testdll::KnowsWindowInside(wnd.m_hWnd));
}

TEST(HandleMap, SafeHandleOfANullObjectIsNull)
{
    const CWnd* const pNone = CWnd::FromHandle(nullptr);
    EXPECT_EQ(pNone->GetSafeHwnd(), nullptr);
}
