#include "foundation/ShortMemory.h"
#include "scrollframe/FrameFixtures.h"
#include "support/HandleCount.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace
{
constexpr DWORD kStaleError = 1234;

int WindowCountOfThread()
{
    int count = 0;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND, LPARAM lParam)
        {
            ++*reinterpret_cast<int*>(lParam);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

// What the write of the style with this index answers, with the last error that it leaves.
class StyleWriteAnswer : public ImportSpy<decltype(::SetWindowLongPtrW)>
{
public:
    StyleWriteAnswer(int index, LONG_PTR answer, DWORD lastError)
        : ImportSpy(VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                    [=](HWND hWnd, int nIndex, LONG_PTR value)
                    {
                        const LONG_PTR before = Original()(hWnd, nIndex, value);
                        if (nIndex != index)
                            return before;
                        ::SetLastError(lastError);
                        return answer;
                    })
    {
    }
};

// Leaves an error behind that has nothing to do with what comes next.
class StaleError : public ImportSpy<decltype(::GetWindowLongW)>
{
public:
    StaleError()
        : ImportSpy(FrameworkModule(), "user32.dll", "GetWindowLongW",
                    [this](HWND hWnd, int nIndex)
                    {
                        const LONG value = Original()(hWnd, nIndex);
                        ::SetLastError(kStaleError);
                        return value;
                    })
    {
    }
};

// Makes the allocation number `failing` fail among those that the library makes after the dialog has become
// a child.
class ProxyAllocations
{
public:
    explicit ProxyAllocations(int failing) : m_failing(failing) {}

    int Count() const { return m_count; }

private:
    const int m_failing;
    int m_count = 0;
    bool m_isArmed = false;
    ImportSpy<decltype(::SetWindowLongPtrW)> m_write{VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                                                     [this](HWND hWnd, int nIndex, LONG_PTR value)
                                                     {
                                                         m_isArmed = nIndex == GWL_EXSTYLE;
                                                         return m_write.Original()(hWnd, nIndex, value);
                                                     }};
    ImportSpy<void*(std::size_t)> m_malloc{VxDpiModule(), nullptr, "malloc",
                                           [this](std::size_t size)
                                           {
                                               if (!m_isArmed || ++m_count != m_failing)
                                                   return m_malloc.Original()(size);
                                               m_isArmed = false;
                                               return static_cast<void*>(nullptr);
                                           }};
};

// A dialog that gives up when it is asked for its icon.
class FragileDialog : public StepDialog
{
protected:
    afx_msg LRESULT OnGetIcon(WPARAM, LPARAM)
    {
        DestroyWindow();
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FragileDialog, StepDialog)
    ON_MESSAGE(WM_GETICON, &FragileDialog::OnGetIcon)
END_MESSAGE_MAP()

// Fails as asked, 31 times without anything left.
template<class MakeFailure>
void ExpectFailureWithoutTrace(MakeFailure makeFailure)
{
    MainWindow mainWindow;
    EXPECT_NO_LEAK(
        [&]
        {
            const auto failure = makeFailure();
            StepDialog dialog;
            EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
            CWnd::DeleteTempMap();
        });
    EXPECT_TRUE(::IsWindowEnabled(mainWindow.Handle()));
}
}

TEST(ScrollFrameFailures, WithoutAMonitorOnlyTheDialogIsLeft)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const FailNthCall<decltype(::MonitorFromWindow)> monitor(VxDpiModule(), "user32.dll", "MonitorFromWindow",
                                                             1, nullptr);
    const int before = WindowCountOfThread();
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(monitor.CallCount(), 1);
    EXPECT_EQ(WindowCountOfThread(), before + 1);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
    EXPECT_EQ(dialog.GetParent(), mainWindow.Object());
    EXPECT_EQ(dialog.GetStyle() & 0xC0000000, 0x80000000u);
    EXPECT_EQ(dialog.ok.SetProxyButton(nullptr), nullptr);
    EXPECT_TRUE((dialog.ok.GetStyle() & WS_VISIBLE) != 0);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

TEST(ScrollFrameFailures, ADialogWithoutAnOwnerIsLeftAndNoMonitorIsAskedFor)
{
    const TestWindow other; // the first window of a thread may bring others along
    StepDialog dialog;
    const ImportSpy<decltype(::MonitorFromWindow)> monitor(VxDpiModule(), "user32.dll", "MonitorFromWindow");
    const int before = WindowCountOfThread();
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(monitor.CallCount(), 0);
    EXPECT_EQ(WindowCountOfThread(), before + 1);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
}

TEST(ScrollFrameFailures, ADialogThatHasAWindowAlreadyIsRefusedAndKeepsIt)
{
    MainWindow mainWindow;
    StepDialog dialog;
    ASSERT_TRUE(dialog.Create(1, nullptr));
    const HWND hBefore = dialog.m_hWnd;
    EXPECT_EQ(dialog.Run({}, Steps()), 0);
    EXPECT_EQ(dialog.m_hWnd, hBefore);
    EXPECT_TRUE(::IsWindow(hBefore));
}

TEST(ScrollFrameFailures, ADialogThatIsGoneBeforeTheViewIsMadeIsAFailure)
{
    MainWindow mainWindow;
    FragileDialog dialog;
    const ImportSpy<decltype(::CreateWindowExW)> create(FrameworkModule(), "user32.dll", "CreateWindowExW");
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(create.CallCount(), 4); // the dialog's three and the frame
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

TEST(ScrollFrameFailures, ADialogThatIsGoneWhenTheBarsAreMadeIsAFailure)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const ImportSpy<decltype(::CreateWindowExW)> create(
        FrameworkModule(), "user32.dll", "CreateWindowExW",
        [&](DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx, int cy,
            HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParameter)
        {
            if (create.CallCount() == 7)
                dialog.DestroyWindow();
            return create.Original()(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hParent, hMenu,
                                     hInstance, pParameter);
        });
    const ImportSpy<decltype(::SetParent)> adopt(FrameworkModule(), "user32.dll", "SetParent");
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(create.CallCount(), 7);
    EXPECT_EQ(adopt.CallCount(), 0);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

TEST(ScrollFrameFailures, AStyleThatCannotBeWrittenEndsTheDialogWithTheView)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const StyleWriteAnswer style(GWL_STYLE, 0, ERROR_ACCESS_DENIED);
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(style.CallCount(), 1); // the extended style is not written any more
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.ok.SetProxyButton(nullptr), nullptr);
}

TEST(ScrollFrameFailures, AStyleThatWasZeroIsNoFailure)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const StyleWriteAnswer style(GWL_STYLE, 0, ERROR_SUCCESS);
    EXPECT_EQ(dialog.Run({}, [&] { dialog.Close(); }), IDCANCEL);
}

TEST(ScrollFrameFailures, AnErrorFromBeforeTheStyleIsWrittenDoesNotCount)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const StaleError stale;
    const ImportSpy<decltype(::SetWindowLongPtrW)> style(VxDpiModule(), "user32.dll", "SetWindowLongPtrW",
                                                         [&](HWND hWnd, int nIndex, LONG_PTR value)
                                                         {
                                                             const DWORD dwError = ::GetLastError();
                                                             EXPECT_EQ(dwError, 0u);
                                                             const LONG_PTR before =
                                                                 style.Original()(hWnd, nIndex, value);
                                                             ::SetLastError(dwError);
                                                             return nIndex == GWL_STYLE ? 0 : before;
                                                         });
    EXPECT_EQ(dialog.Run({}, [&] { dialog.Close(); }), IDCANCEL);
    EXPECT_EQ(style.CallCount(), 2);
}

TEST(ScrollFrameFailures, AnExtendedStyleThatWasZeroIsAFailureWithOrWithoutAnError)
{
    for (const DWORD dwError : {ERROR_SUCCESS, ERROR_ACCESS_DENIED})
    {
        MainWindow mainWindow;
        StepDialog dialog;
        const StyleWriteAnswer style(GWL_EXSTYLE, 0, dwError);
        EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0) << dwError;
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(dialog.ok.SetProxyButton(nullptr), nullptr);
    }
}

TEST(ScrollFrameFailures, AnErrorOfTheExtendedStyleDoesNotCountByItself)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const StyleWriteAnswer style(GWL_EXSTYLE, 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(dialog.Run({}, [&] { dialog.Close(); }), IDCANCEL);
}

TEST(ScrollFrameFailures, AStyleThatWasNotZeroIsNoFailureWhateverTheError)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const StyleWriteAnswer style(GWL_STYLE, 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(dialog.Run({}, [&] { dialog.Close(); }), IDCANCEL);
}

TEST(ScrollFrameFailures, APairWithoutAButtonIsAFailure)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const int before = WindowCountOfThread();
    EXPECT_EQ(dialog.Run({{&dialog.ok, 1}, {nullptr, 2}}, Steps()), 0);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(WindowCountOfThread(), before);
}

TEST(ScrollFrameFailures, WithoutMemoryForTheListOfProxiesTheCallThrowsAndLeavesNoWindow)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const int before = WindowCountOfThread();
    const ImportSpy<decltype(::ShowWindow)> show(FrameworkModule(), "user32.dll", "ShowWindow");
    const ProxyAllocations allocations(1);
    EXPECT_THROW(dialog.Run(dialog.BothButtons(), Steps()), std::bad_alloc);
    EXPECT_EQ(allocations.Count(), 1);
    EXPECT_EQ(show.CallCount(), 0);
    EXPECT_EQ(WindowCountOfThread(), before);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.ok.SetProxyButton(nullptr), nullptr);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

// The first allocation is the list's own.
TEST(ScrollFrameFailures, WithoutMemoryForAProxyAllProxiesGo)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    for (const int failing : {2, 3})
    {
        MainWindow mainWindow;
        StepDialog dialog;
        int proxies = 0;
        const ImportSpy<decltype(::ShowWindow)> hide(FrameworkModule(), "user32.dll", "ShowWindow",
                                                     [&](HWND hWnd, int nShow)
                                                     {
                                                         proxies += nShow == SW_HIDE;
                                                         return hide.Original()(hWnd, nShow);
                                                     });
        const ProxyAllocations allocations(failing);
        EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0) << failing;
        EXPECT_EQ(allocations.Count(), failing);
        EXPECT_EQ(proxies, failing - 2);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(dialog.ok.SetProxyButton(nullptr) != nullptr, failing == 3);
        EXPECT_EQ(dialog.cancel.SetProxyButton(nullptr), nullptr);
        EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
    }
}

TEST(ScrollFrameFailures, WithoutMemoryForAProxyNothingIsLeft)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    ExpectFailureWithoutTrace([] { return std::make_unique<ProxyAllocations>(3); });
}

TEST(ScrollFrameFailures, WithoutAStyleNothingIsLeft)
{
    ExpectFailureWithoutTrace([] { return std::make_unique<StyleWriteAnswer>(GWL_STYLE, 0, 5); });
    ExpectFailureWithoutTrace([] { return std::make_unique<StyleWriteAnswer>(GWL_EXSTYLE, 0, 0); });
}

// The dialog with its own three controls comes first, then the frame, the view, the bars and the proxies.
TEST(ScrollFrameFailures, WithoutOneOfItsWindowsNothingIsLeft)
{
    for (const int failing : {4, 5, 6, 7, 8, 9})
    {
        ExpectFailureWithoutTrace(
            [failing]
            {
                return std::make_unique<FailNthCall<decltype(::CreateWindowExW)>>(
                    FrameworkModule(), "user32.dll", "CreateWindowExW", failing, nullptr);
            });
    }
}

TEST(ScrollFrameFailures, AFailureBeforeTheDialogIsAChildLeavesItAsItWas)
{
    for (const int failing : {4, 5, 6, 7})
    {
        MainWindow mainWindow;
        StepDialog dialog;
        const FailNthCall<decltype(::CreateWindowExW)> create(FrameworkModule(), "user32.dll",
                                                              "CreateWindowExW", failing, nullptr);
        const int before = WindowCountOfThread();
        EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
        EXPECT_EQ(WindowCountOfThread(), before + 1) << failing;
        EXPECT_EQ(dialog.GetParent(), mainWindow.Object());
        EXPECT_EQ(dialog.GetStyle() & 0xC0C00000, 0x80C00000u);
        EXPECT_TRUE((dialog.ok.GetStyle() & WS_VISIBLE) != 0);
    }
}

TEST(ScrollFrameFailures, AFailureAfterTheDialogBecameAChildLeavesNoWindow)
{
    for (const int failing : {8, 9})
    {
        MainWindow mainWindow;
        StepDialog dialog;
        const FailNthCall<decltype(::CreateWindowExW)> create(FrameworkModule(), "user32.dll",
                                                              "CreateWindowExW", failing, nullptr);
        const int before = WindowCountOfThread();
        EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
        EXPECT_EQ(WindowCountOfThread(), before) << failing;
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(dialog.ok.m_hWnd, nullptr);
    }
}

TEST(ScrollFrameFailures, AFailureShowsNothingAndDisablesNothing)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const ImportSpy<decltype(::EnableWindow)> enable(FrameworkModule(), "user32.dll", "EnableWindow");
    const ImportSpy<decltype(::UpdateWindow)> update(FrameworkModule(), "user32.dll", "UpdateWindow");
    const FailNthCall<decltype(::CreateWindowExW)> create(FrameworkModule(), "user32.dll", "CreateWindowExW",
                                                          9, nullptr);
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), Steps()), 0);
    EXPECT_EQ(enable.CallCount(), 0);
    EXPECT_EQ(update.CallCount(), 0);
}
