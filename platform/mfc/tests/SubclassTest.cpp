#include <afxwin.h>

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "WindowFixture.h"

namespace
{

constexpr UINT kControlId = 5;

/// An edit control that adds to what the system's control does.
class CCountingEdit : public CEdit
{
public:
    int m_nChars = 0;
    HWND m_hWndInPreSubclass = nullptr;
    WNDPROC m_pfnInPreSubclass = nullptr;
    int m_nEnds = 0;
    HWND m_hWndAtEnd = reinterpret_cast<HWND>(1);

protected:
    void PreSubclassWindow() override
    {
        m_hWndInPreSubclass = m_hWnd;
        m_pfnInPreSubclass = reinterpret_cast<WNDPROC>(::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC));
    }

    void PostNcDestroy() override
    {
        ++m_nEnds;
        m_hWndAtEnd = m_hWnd;
    }

    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
    {
        ++m_nChars;
        CEdit::OnChar(nChar, nRepCnt, nFlags);
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CCountingEdit, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()

/// Answers OnChar with other arguments than it got.
class CShoutingEdit : public CEdit
{
protected:
    afx_msg void OnChar(UINT, UINT nRepCnt, UINT nFlags) { CEdit::OnChar(L'X', nRepCnt, nFlags); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CShoutingEdit, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()

int g_nEndsOfPlainWindow = 0;

LRESULT CALLBACK CountEnds(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_nEndsOfPlainWindow += message == WM_NCDESTROY ? 1 : 0;
    return ::DefWindowProc(hWnd, message, wParam, lParam);
}

class Subclass : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_host.CreateHidden());
        m_hEdit =
            ::CreateWindow(L"EDIT", L"", WS_CHILD, 0, 0, 100, 20, m_host, ControlMenu(), nullptr, nullptr);
        ASSERT_NE(m_hEdit, nullptr);
    }

    static HMENU ControlMenu() { return reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kControlId)); }

    WNDPROC Procedure() const { return reinterpret_cast<WNDPROC>(::GetWindowLongPtr(m_hEdit, GWLP_WNDPROC)); }

    CString Text() const
    {
        CString text;
        CWnd::FromHandle(m_hEdit)->GetWindowText(text);
        return text;
    }

    CTestWnd m_host;
    HWND m_hEdit = nullptr;
};

} // namespace

TEST_F(Subclass, MessagesGoToTheMapAndThenToTheOldProcedure)
{
    CCountingEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(m_hEdit));
    edit.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(edit.m_nChars, 1);
    EXPECT_EQ(Text(), L"a");
}

TEST_F(Subclass, BaseHandlerUsesTheMessageAndNotItsArguments)
{
    CShoutingEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(m_hEdit));
    edit.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(Text(), L"a");
}

TEST_F(Subclass, PreSubclassWindowSeesTheHandleAndTheOldProcedure)
{
    const WNDPROC pfnOld = Procedure();
    CCountingEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(m_hEdit));
    EXPECT_EQ(edit.m_hWndInPreSubclass, m_hEdit);
    EXPECT_EQ(edit.m_pfnInPreSubclass, pfnOld);
    EXPECT_NE(Procedure(), pfnOld);
}

TEST_F(Subclass, WindowWithAnObjectIsRefused)
{
    CCountingEdit first;
    CCountingEdit second;
    ASSERT_TRUE(first.SubclassWindow(m_hEdit));
    EXPECT_FALSE(second.SubclassWindow(m_hEdit));
    EXPECT_EQ(second.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(m_hEdit), &first);
}

TEST_F(Subclass, NoWindowIsRefused)
{
    CCountingEdit edit;
    EXPECT_FALSE(edit.SubclassWindow(nullptr));
    EXPECT_FALSE(edit.SubclassDlgItem(kControlId + 1, &m_host));
}

TEST_F(Subclass, WindowOfAnotherThreadIsRefused)
{
    std::promise<HWND> made;
    std::promise<void> tried;
    std::thread other(
        [&]
        {
            const HWND hWnd =
                ::CreateWindow(L"EDIT", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
            made.set_value(hWnd);
            tried.get_future().wait();
            ::DestroyWindow(hWnd);
        });
    const HWND hForeign = made.get_future().get();
    const LONG_PTR nProcedure = ::GetWindowLongPtr(hForeign, GWLP_WNDPROC);
    CCountingEdit edit;
    EXPECT_FALSE(edit.SubclassWindow(hForeign));
    EXPECT_EQ(edit.m_hWnd, nullptr);
    EXPECT_EQ(::GetWindowLongPtr(hForeign, GWLP_WNDPROC), nProcedure);
    tried.set_value();
    other.join();
}

TEST_F(Subclass, DialogItemIsFoundById)
{
    CCountingEdit edit;
    EXPECT_TRUE(edit.SubclassDlgItem(kControlId, &m_host));
    EXPECT_EQ(edit.m_hWnd, m_hEdit);
}

TEST_F(Subclass, UnsubclassPutsTheOldProcedureBack)
{
    const WNDPROC pfnOld = Procedure();
    CCountingEdit edit;
    edit.SubclassWindow(m_hEdit);
    EXPECT_EQ(edit.UnsubclassWindow(), m_hEdit);
    EXPECT_EQ(Procedure(), pfnOld);
    EXPECT_EQ(edit.m_hWnd, nullptr);
    ::SendMessage(m_hEdit, WM_CHAR, L'a', 0);
    EXPECT_EQ(edit.m_nChars, 0);
    EXPECT_EQ(Text(), L"a");
}

TEST_F(Subclass, EndOfTheWindowDetachesTheObject)
{
    CCountingEdit edit;
    edit.SubclassWindow(m_hEdit);
    ::DestroyWindow(m_hEdit);
    EXPECT_EQ(edit.m_nEnds, 1);
    EXPECT_EQ(edit.m_hWndAtEnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(m_hEdit), nullptr);
}

TEST_F(Subclass, OldProcedureLearnsOfTheEndToo)
{
    ::SetWindowLongPtr(m_hEdit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountEnds));
    CCountingEdit edit;
    edit.SubclassWindow(m_hEdit);
    g_nEndsOfPlainWindow = 0;
    edit.DestroyWindow();
    EXPECT_EQ(g_nEndsOfPlainWindow, 1);
}

TEST_F(Subclass, EndOfTheParentEndsTheChildToo)
{
    CCountingEdit edit;
    edit.SubclassWindow(m_hEdit);
    m_host.DestroyWindow();
    EXPECT_EQ(edit.m_nEnds, 1);
    EXPECT_EQ(edit.m_hWnd, nullptr);
}

TEST_F(Subclass, ObjectCanBeUsedForAnotherWindowAfterwards)
{
    CCountingEdit edit;
    edit.SubclassWindow(m_hEdit);
    edit.UnsubclassWindow();
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &m_host, 6));
    edit.SendMessage(WM_CHAR, L'b');
    EXPECT_EQ(edit.m_nChars, 1);
}

TEST_F(Subclass, CreatedControlKeepsItsClassProcedure)
{
    CCountingEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &m_host, 6));
    edit.SendMessage(WM_CHAR, L'b');
    CString text;
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"b");
    EXPECT_EQ(edit.m_nChars, 1);
}
