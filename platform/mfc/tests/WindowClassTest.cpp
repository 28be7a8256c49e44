#include <afxwin.h>

#include <gtest/gtest.h>

#include "WindowFixture.h"

namespace
{

WNDCLASS ClassOf(LPCTSTR lpszName)
{
    WNDCLASS wndClass = {};
    ::GetClassInfo(AfxGetInstanceHandle(), lpszName, &wndClass);
    return wndClass;
}

} // namespace

TEST(WindowClass, EqualArgumentsShareAClass)
{
    const CString first = AfxRegisterWndClass(CS_HREDRAW);
    EXPECT_EQ(first, AfxRegisterWndClass(CS_HREDRAW));
}

TEST(WindowClass, OtherArgumentsMakeAnotherClass)
{
    const CString first = AfxRegisterWndClass(CS_HREDRAW);
    EXPECT_NE(first, AfxRegisterWndClass(CS_VREDRAW));
    EXPECT_NE(first, AfxRegisterWndClass(CS_HREDRAW, nullptr, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1)));
}

TEST(WindowClass, DefaultsAreDoubleClicksArrowAndNoBackground)
{
    const WNDCLASS wndClass = ClassOf(AfxRegisterWndClass(0));
    EXPECT_EQ(wndClass.style, static_cast<UINT>(CS_DBLCLKS));
    EXPECT_EQ(wndClass.hCursor, ::LoadCursor(nullptr, IDC_ARROW));
    EXPECT_EQ(wndClass.hbrBackground, nullptr);
    EXPECT_NE(wndClass.hIcon, nullptr);
}

TEST(WindowClass, RegisteringAgainSucceeds)
{
    WNDCLASS wndClass = {};
    wndClass.lpfnWndProc = ::DefWindowProc;
    wndClass.hInstance = AfxGetInstanceHandle();
    wndClass.lpszClassName = L"framework test class";
    EXPECT_TRUE(AfxRegisterClass(&wndClass));
    EXPECT_TRUE(AfxRegisterClass(&wndClass));
}

TEST(WindowClass, WindowOfAClassWithTheFrameworksProcedureWorks)
{
    WNDCLASS wndClass = {};
    wndClass.lpfnWndProc = &AfxWndProc;
    wndClass.hInstance = AfxGetInstanceHandle();
    wndClass.lpszClassName = L"framework test class with procedure";
    ASSERT_TRUE(AfxRegisterClass(&wndClass));
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, wndClass.lpszClassName, L"text", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    CString text;
    wnd.GetWindowText(text);
    EXPECT_EQ(text, L"text");
}
