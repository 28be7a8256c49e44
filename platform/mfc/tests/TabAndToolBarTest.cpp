#include "ControlHost.h"

#include <afxcmn.h>

#include <gtest/gtest.h>

namespace
{
constexpr RECT kBounds = {0, 0, 300, 200};
constexpr UINT kId = ControlHost::kControlId;

class TabTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_tabs.Create(WS_CHILD | WS_VISIBLE | TCS_FIXEDWIDTH, kBounds, &m_host, kId));
        m_tabs.InsertItem(0, L"first");
        m_tabs.InsertItem(1, L"second");
        m_host.m_nNotifications = 0;
    }

    ControlHost m_host;
    CTabCtrl m_tabs;
};

class ToolBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_toolBar.Create(WS_CHILD | WS_VISIBLE | CCS_TOP, kBounds, &m_host, kId));
    }

    void AddButton(int nCommand, int nImage)
    {
        TBBUTTON button = {};
        button.iBitmap = nImage;
        button.idCommand = nCommand;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON;
        ASSERT_TRUE(m_toolBar.AddButtons(1, &button));
    }

    ControlHost m_host;
    CToolBarCtrl m_toolBar;
};
} // namespace

TEST_F(TabTest, SelectionByProgramSendsNoNotification)
{
    EXPECT_EQ(m_tabs.SetCurSel(1), 0);
    EXPECT_EQ(m_tabs.GetCurSel(), 1);
    EXPECT_EQ(m_host.m_nNotifications, 0);
}

TEST_F(TabTest, ItemsAnswerTheirIndexAndText)
{
    EXPECT_EQ(m_tabs.InsertItem(TCIF_TEXT | TCIF_PARAM, 2, L"third", 0, 42), 2);
    EXPECT_EQ(m_tabs.GetItemCount(), 3);
    TCHAR text[16] = {};
    TCITEM item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = text;
    item.cchTextMax = 16;
    EXPECT_TRUE(m_tabs.GetItem(2, &item));
    EXPECT_STREQ(item.pszText, L"third");
    EXPECT_EQ(item.lParam, 42);
}

TEST_F(TabTest, AdjustRectGoesBothWays)
{
    const CRect window(0, 0, 300, 200);
    CRect rect(window);
    m_tabs.AdjustRect(FALSE, &rect);
    EXPECT_GT(rect.top, 10);
    m_tabs.AdjustRect(TRUE, &rect);
    EXPECT_EQ(rect, window);
}

TEST_F(TabTest, SetItemSizeAnswersThePreviousSize)
{
    m_tabs.SetItemSize(CSize(60, 25));
    EXPECT_EQ(m_tabs.SetItemSize(CSize(70, 30)), CSize(60, 25));
}

TEST_F(TabTest, ImageListStaysTheCallers)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 1, 1);
    EXPECT_EQ(m_tabs.SetImageList(&images), nullptr);
    EXPECT_EQ(m_tabs.GetImageList(), &images);
    m_tabs.DestroyWindow();
    EXPECT_TRUE(images.DeleteImageList());
}

TEST_F(ToolBarTest, ButtonsAreCountedAndFoundByCommand)
{
    AddButton(500, 0);
    AddButton(501, 0);
    EXPECT_EQ(m_toolBar.GetButtonCount(), 2);
    EXPECT_EQ(m_toolBar.CommandToIndex(501), 1u);
    TBBUTTON button = {};
    EXPECT_TRUE(m_toolBar.GetButton(1, &button));
    EXPECT_EQ(button.idCommand, 501);
}

TEST_F(ToolBarTest, ButtonSizeIsKept)
{
    EXPECT_TRUE(m_toolBar.SetBitmapSize(CSize(16, 16)));
    EXPECT_TRUE(m_toolBar.SetButtonSize(CSize(40, 36)));
    EXPECT_EQ(m_toolBar.GetButtonSize(), CSize(40, 36));
}

TEST_F(ToolBarTest, ImageListStaysTheCallers)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 1, 1);
    m_toolBar.SetImageList(&images);
    EXPECT_EQ(m_toolBar.GetImageList(), &images);
    m_toolBar.DestroyWindow();
    EXPECT_TRUE(images.DeleteImageList());
}

TEST_F(ToolBarTest, ButtonsAreEnabledAndDisabled)
{
    AddButton(500, 0);
    EXPECT_TRUE(m_toolBar.IsButtonEnabled(500));
    EXPECT_TRUE(m_toolBar.EnableButton(500, FALSE));
    EXPECT_FALSE(m_toolBar.IsButtonEnabled(500));
}

TEST_F(ToolBarTest, AutoSizeFitsTheBarToItsButtons)
{
    AddButton(500, 0);
    m_toolBar.SetButtonSize(CSize(40, 36));
    m_toolBar.AutoSize();
    CRect rect;
    m_toolBar.GetWindowRect(&rect);
    EXPECT_GE(rect.Height(), 36);
    EXPECT_LT(rect.Height(), 60);
}
