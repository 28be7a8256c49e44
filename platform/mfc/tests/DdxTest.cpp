#include "ControlHost.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
constexpr int kId = ControlHost::kControlId;
constexpr RECT kBounds = {0, 0, 100, 80};

// Presses OK in the next message box of the thread and keeps its text.
class MessageBoxAnswer
{
public:
    MessageBoxAnswer()
    {
        s_text.clear();
        m_nTimer = ::SetTimer(nullptr, 0, 50, Answer);
    }

    ~MessageBoxAnswer() { ::KillTimer(nullptr, m_nTimer); }

    static const std::wstring& Text() { return s_text; }

private:
    static void CALLBACK Answer(HWND, UINT, UINT_PTR, DWORD)
    {
        ::EnumThreadWindows(::GetCurrentThreadId(), PressOk, 0);
    }

    static BOOL CALLBACK PressOk(HWND hWnd, LPARAM)
    {
        if (::GetDlgItem(hWnd, IDOK) == nullptr)
            return TRUE;
        ::EnumChildWindows(hWnd, KeepText, 0);
        ::PostMessage(hWnd, WM_COMMAND, IDOK, 0);
        return FALSE;
    }

    // The prompt is the text of the box that is not on its button; the icon has none.
    static BOOL CALLBACK KeepText(HWND hChild, LPARAM)
    {
        wchar_t text[256] = {};
        if (::GetDlgCtrlID(hChild) != IDOK && ::GetWindowText(hChild, text, 256) > 0)
            s_text = text;
        return TRUE;
    }

    static std::wstring s_text;
    UINT_PTR m_nTimer;
};

std::wstring MessageBoxAnswer::s_text;

class DdxTest : public testing::Test
{
protected:
    HWND AddControl(LPCTSTR lpszClass, DWORD dwStyle, int nId = kId)
    {
        return ::CreateWindow(lpszClass, L"", WS_CHILD | dwStyle, 0, 0, 100, 80, m_host,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId)), nullptr, nullptr);
    }

    void AddItems(UINT message)
    {
        for (LPCTSTR lpszText : {L"apple", L"pear", L"pea"})
            ::SendDlgItemMessage(m_host, kId, message, 0, reinterpret_cast<LPARAM>(lpszText));
    }

    template<class Value>
    void ToControl(void(AFXAPI* exchange)(CDataExchange*, int, Value&), Value value)
    {
        CDataExchange data(&m_host, FALSE);
        exchange(&data, kId, value);
    }

    template<class Value>
    Value FromControl(void(AFXAPI* exchange)(CDataExchange*, int, Value&), Value value)
    {
        CDataExchange data(&m_host, TRUE);
        exchange(&data, kId, value);
        return value;
    }

    std::wstring ControlText()
    {
        wchar_t text[64] = {};
        ::GetDlgItemText(m_host, kId, text, 64);
        return text;
    }

    // Reads a text that is no such number.
    // @return whether the exchange failed after telling the user.
    template<class Value>
    bool Refuses(LPCTSTR lpszText, LPCTSTR lpszPrompt)
    {
        ::SetDlgItemText(m_host, kId, lpszText);
        const MessageBoxAnswer answer;
        Value value = 7;
        try
        {
            CDataExchange data(&m_host, TRUE);
            DDX_Text(&data, kId, value);
        }
        catch (CUserException* pException)
        {
            pException->Delete();
            return MessageBoxAnswer::Text() == lpszPrompt;
        }
        return false;
    }

    ControlHost m_host;
};

class RadioTest : public DdxTest
{
protected:
    void SetUp() override
    {
        AddControl(WC_BUTTON, BS_AUTORADIOBUTTON | WS_GROUP, kId);
        AddControl(WC_STATIC, 0, kId + 1);
        AddControl(WC_BUTTON, BS_AUTORADIOBUTTON, kId + 2);
        AddControl(WC_BUTTON, BS_AUTORADIOBUTTON | WS_GROUP, kId + 3);
    }
};
} // namespace

TEST_F(DdxTest, ControlIsSubclassedOnce)
{
    const HWND hWnd = AddControl(WC_BUTTON, 0);
    CButton button;
    CDataExchange data(&m_host, FALSE);
    DDX_Control(&data, kId, button);
    EXPECT_EQ(button.m_hWnd, hWnd);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), &button);
    DDX_Control(&data, kId, button);
    EXPECT_EQ(button.m_hWnd, hWnd);
}

TEST_F(DdxTest, ControlOfAnotherObjectIsRefused)
{
    AddControl(WC_BUTTON, 0);
    CButton first;
    CButton second;
    CDataExchange data(&m_host, FALSE);
    DDX_Control(&data, kId, first);
    bool thrown = false;
    try
    {
        DDX_Control(&data, kId, second);
    }
    catch (CNotSupportedException* pException)
    {
        thrown = true;
        pException->Delete();
    }
    EXPECT_TRUE(thrown);
    EXPECT_EQ(second.m_hWnd, nullptr);
}

TEST_F(DdxTest, StringGoesBothWays)
{
    AddControl(WC_EDIT, 0);
    ToControl<CString>(DDX_Text, L"text");
    EXPECT_EQ(ControlText(), L"text");
    EXPECT_EQ(FromControl<CString>(DDX_Text, CString()), L"text");
}

TEST_F(DdxTest, NumbersGoBothWays)
{
    AddControl(WC_EDIT, 0);
    ToControl<int>(DDX_Text, -42);
    EXPECT_EQ(ControlText(), L"-42");
    EXPECT_EQ(FromControl<int>(DDX_Text, 0), -42);
    ToControl<DWORD>(DDX_Text, 4000000000u);
    EXPECT_EQ(ControlText(), L"4000000000");
    EXPECT_EQ(FromControl<DWORD>(DDX_Text, 0), 4000000000u);
    ToControl<double>(DDX_Text, 2.5);
    EXPECT_EQ(ControlText(), L"2.5");
    EXPECT_EQ(FromControl<double>(DDX_Text, 0), 2.5);
}

TEST_F(DdxTest, EqualTextIsNotWrittenAgain)
{
    AddControl(WC_EDIT, 0);
    ToControl<int>(DDX_Text, 5);
    m_host.m_nCommands = 0;
    ToControl<int>(DDX_Text, 5);
    EXPECT_EQ(m_host.m_nCommands, 0);
}

TEST_F(DdxTest, TextThatIsNoIntegerFails)
{
    AddControl(WC_EDIT, 0);
    EXPECT_TRUE(Refuses<int>(L"12x", L"Please enter an integer."));
    EXPECT_TRUE(Refuses<int>(L"", L"Please enter an integer."));
    EXPECT_TRUE(Refuses<int>(L"3000000000", L"Please enter an integer."));
    EXPECT_TRUE(Refuses<int>(L"99999999999999999999", L"Please enter an integer."));
}

TEST_F(DdxTest, ByteOutOfRangeFails)
{
    AddControl(WC_EDIT, 0);
    EXPECT_TRUE(Refuses<BYTE>(L"256", L"Please enter an integer between 0 and 255."));
}

TEST_F(DdxTest, NegativeTextOfAnUnsignedFails)
{
    AddControl(WC_EDIT, 0);
    EXPECT_TRUE(Refuses<UINT>(L"-1", L"Please enter a positive integer."));
}

TEST_F(DdxTest, TextThatIsNoNumberFails)
{
    AddControl(WC_EDIT, 0);
    EXPECT_TRUE(Refuses<double>(L"1.5.5", L"Please enter a number."));
}

TEST_F(DdxTest, CheckHasThreeStates)
{
    AddControl(WC_BUTTON, BS_AUTO3STATE);
    ToControl<int>(DDX_Check, BST_INDETERMINATE);
    EXPECT_EQ(FromControl<int>(DDX_Check, 0), BST_INDETERMINATE);
}

TEST_F(RadioTest, IndexCountsRadioButtonsOfTheGroupAlone)
{
    ToControl<int>(DDX_Radio, 1);
    EXPECT_EQ(m_host.GetCheckedRadioButton(kId, kId + 3), kId + 2);
    EXPECT_EQ(FromControl<int>(DDX_Radio, -1), 1);
}

TEST_F(RadioTest, MinusOneChecksNone)
{
    ToControl<int>(DDX_Radio, 0);
    ToControl<int>(DDX_Radio, -1);
    EXPECT_EQ(FromControl<int>(DDX_Radio, 5), -1);
}

TEST_F(RadioTest, OtherGroupIsLeftAlone)
{
    m_host.CheckDlgButton(kId + 3, BST_CHECKED);
    ToControl<int>(DDX_Radio, 0);
    EXPECT_EQ(m_host.IsDlgButtonChecked(kId + 3), static_cast<UINT>(BST_CHECKED));
}

TEST_F(DdxTest, ListBoxIndexIsMinusOneWithoutASelection)
{
    AddControl(WC_LISTBOX, 0);
    AddItems(LB_ADDSTRING);
    EXPECT_EQ(FromControl<int>(DDX_LBIndex, 5), -1);
    ToControl<int>(DDX_LBIndex, 2);
    EXPECT_EQ(FromControl<int>(DDX_LBIndex, 5), 2);
}

TEST_F(DdxTest, ListBoxStringMatchesAPrefixWithoutCase)
{
    AddControl(WC_LISTBOX, 0);
    AddItems(LB_ADDSTRING);
    ToControl<CString>(DDX_LBString, L"APP");
    EXPECT_EQ(FromControl<CString>(DDX_LBString, CString()), L"apple");
}

TEST_F(DdxTest, ListBoxStringExactMatchesTheWholeText)
{
    AddControl(WC_LISTBOX, 0);
    AddItems(LB_ADDSTRING);
    ToControl<CString>(DDX_LBStringExact, L"pea");
    EXPECT_EQ(FromControl<int>(DDX_LBIndex, -1), 2);
}

TEST_F(DdxTest, ListBoxStringIsEmptyWithoutASelection)
{
    AddControl(WC_LISTBOX, 0);
    AddItems(LB_ADDSTRING);
    EXPECT_TRUE(FromControl<CString>(DDX_LBString, CString(L"old")).IsEmpty());
}

TEST_F(DdxTest, ComboBoxIndexGoesBothWays)
{
    AddControl(WC_COMBOBOX, CBS_DROPDOWNLIST);
    AddItems(CB_ADDSTRING);
    ToControl<int>(DDX_CBIndex, 1);
    EXPECT_EQ(FromControl<int>(DDX_CBIndex, 0), 1);
}

TEST_F(DdxTest, ComboBoxStringMatchesAPrefix)
{
    AddControl(WC_COMBOBOX, CBS_DROPDOWNLIST);
    AddItems(CB_ADDSTRING);
    ToControl<CString>(DDX_CBString, L"app");
    EXPECT_EQ(FromControl<CString>(DDX_CBString, CString()), L"apple");
}

TEST_F(DdxTest, ComboBoxShowsATextThatIsNoItem)
{
    AddControl(WC_COMBOBOX, CBS_DROPDOWN);
    AddItems(CB_ADDSTRING);
    ToControl<CString>(DDX_CBString, L"cherry");
    EXPECT_EQ(FromControl<CString>(DDX_CBString, CString()), L"cherry");
}

TEST_F(DdxTest, ComboBoxStringExactMatchesTheWholeText)
{
    AddControl(WC_COMBOBOX, CBS_DROPDOWNLIST);
    AddItems(CB_ADDSTRING);
    ToControl<CString>(DDX_CBStringExact, L"pea");
    EXPECT_EQ(FromControl<int>(DDX_CBIndex, -1), 2);
}

TEST_F(DdxTest, ScrollPositionGoesBothWays)
{
    AddControl(WC_SCROLLBAR, SBS_HORZ);
    ::SetScrollRange(::GetDlgItem(m_host, kId), SB_CTL, 0, 100, FALSE);
    ToControl<int>(DDX_Scroll, 30);
    EXPECT_EQ(FromControl<int>(DDX_Scroll, 0), 30);
}
