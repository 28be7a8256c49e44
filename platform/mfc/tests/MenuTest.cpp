#include <afxwin.h>

#include "ControlResources.h"

#include <gtest/gtest.h>

TEST(Menu, DestructorDestroysTheMenu)
{
    HMENU hMenu = nullptr;
    {
        CMenu menu;
        ASSERT_TRUE(menu.CreateMenu());
        hMenu = menu;
        ASSERT_TRUE(::IsMenu(hMenu));
    }
    EXPECT_FALSE(::IsMenu(hMenu));
}

TEST(Menu, DetachedMenuSurvivesTheObject)
{
    HMENU hMenu = nullptr;
    {
        CMenu menu;
        menu.CreatePopupMenu();
        hMenu = menu.Detach();
    }
    EXPECT_TRUE(::IsMenu(hMenu));
    ::DestroyMenu(hMenu);
}

TEST(Menu, FromHandleFindsTheAttachedObject)
{
    CMenu menu;
    menu.CreateMenu();
    EXPECT_EQ(CMenu::FromHandle(menu), &menu);
    EXPECT_EQ(CMenu::FromHandlePermanent(menu), &menu);
}

TEST(Menu, TemporaryObjectIsNotPermanentAndKeepsTheMenu)
{
    const HMENU hMenu = ::CreateMenu();
    EXPECT_EQ(CMenu::FromHandle(hMenu)->m_hMenu, hMenu);
    EXPECT_EQ(CMenu::FromHandlePermanent(hMenu), nullptr);
    CMenu::DeleteTempMap();
    EXPECT_TRUE(::IsMenu(hMenu));
    ::DestroyMenu(hMenu);
}

TEST(Menu, ItemsAreCountedNamedAndFound)
{
    CMenu menu;
    menu.CreatePopupMenu();
    EXPECT_TRUE(menu.AppendMenu(MF_STRING, 11, L"first"));
    EXPECT_TRUE(menu.InsertMenu(0, MF_BYPOSITION | MF_STRING, 10, L"before"));
    EXPECT_EQ(menu.GetMenuItemCount(), 2u);
    EXPECT_EQ(menu.GetMenuItemID(1), 11u);
    CString text;
    EXPECT_EQ(menu.GetMenuString(11, text, MF_BYCOMMAND), 5);
    EXPECT_EQ(text, L"first");
}

TEST(Menu, ResourceIsLoadedByItsId)
{
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_TEST_MENU));
    CString text;
    menu.GetSubMenu(0)->GetMenuString(0, text, MF_BYPOSITION);
    EXPECT_EQ(text, L"item");
}

TEST(Menu, MissingResourceLeavesTheObjectEmpty)
{
    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(L"no such menu"));
    EXPECT_EQ(menu.m_hMenu, nullptr);
}

TEST(Menu, StringOfAMissingItemIsEmpty)
{
    CMenu menu;
    menu.CreatePopupMenu();
    CString text(L"old");
    EXPECT_EQ(menu.GetMenuString(99, text, MF_BYCOMMAND), 0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(Menu, CheckMenuItemAnswersThePreviousState)
{
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 11, L"first");
    EXPECT_EQ(menu.CheckMenuItem(11, MF_CHECKED), static_cast<UINT>(MF_UNCHECKED));
    EXPECT_EQ(menu.CheckMenuItem(11, MF_UNCHECKED), static_cast<UINT>(MF_CHECKED));
}

TEST(Menu, SubMenuIsThatOfTheItem)
{
    CMenu menu;
    menu.CreateMenu();
    CMenu subMenu;
    subMenu.CreatePopupMenu();
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(subMenu.m_hMenu), L"sub");
    EXPECT_EQ(menu.GetSubMenu(0), &subMenu);
    EXPECT_EQ(menu.GetSubMenu(1), nullptr);
    subMenu.Detach();
}
