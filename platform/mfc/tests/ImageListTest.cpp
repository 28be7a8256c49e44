#include <afxcmn.h>

#include "ControlResources.h"

#include <gtest/gtest.h>

namespace
{
// Fails for a handle that is no image list.
bool IsImageList(HIMAGELIST hImageList)
{
    int cx = 0;
    int cy = 0;
    return ::ImageList_GetIconSize(hImageList, &cx, &cy) != FALSE;
}

void FillBitmap(CBitmap& bitmap, int nWidth, int nHeight, COLORREF color)
{
    CClientDC screen(nullptr);
    bitmap.CreateCompatibleBitmap(&screen, nWidth, nHeight);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap* const pOld = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, nWidth, nHeight, color);
    dc.SelectObject(pOld);
}
} // namespace

TEST(ImageList, DestructorDestroysTheList)
{
    HIMAGELIST hImageList = nullptr;
    {
        CImageList images;
        ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 0, 4));
        hImageList = images;
        ASSERT_TRUE(IsImageList(hImageList));
    }
    EXPECT_FALSE(IsImageList(hImageList));
}

TEST(ImageList, ObjectIsNotFoundByTheHandleItHadBefore)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 0, 4));
    const HIMAGELIST hFirst = images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 0, 4));
    EXPECT_EQ(CImageList::FromHandlePermanent(hFirst), nullptr);
    EXPECT_EQ(CImageList::FromHandlePermanent(images), &images);
    ::ImageList_Destroy(hFirst);
}

TEST(ImageList, ObjectWhoseHandleWasTakenOverLeavesTheOtherFound)
{
    CImageList second;
    CImageList first;
    ASSERT_TRUE(first.Create(16, 16, ILC_COLOR32, 0, 4));
    second.Attach(first);
    first.Detach();
    EXPECT_EQ(CImageList::FromHandlePermanent(second), &second);
}

TEST(ImageList, DetachedListSurvivesTheObject)
{
    HIMAGELIST hImageList = nullptr;
    {
        CImageList images;
        images.Create(16, 16, ILC_COLOR32, 0, 4);
        hImageList = images.Detach();
        EXPECT_EQ(images.m_hImageList, nullptr);
    }
    EXPECT_TRUE(IsImageList(hImageList));
    ::ImageList_Destroy(hImageList);
}

TEST(ImageList, AttachedListIsFoundAsPermanent)
{
    const HIMAGELIST hImageList = ::ImageList_Create(16, 16, ILC_COLOR32, 0, 4);
    CImageList images;
    ASSERT_TRUE(images.Attach(hImageList));
    EXPECT_EQ(CImageList::FromHandle(hImageList), &images);
    EXPECT_EQ(CImageList::FromHandlePermanent(hImageList), &images);
}

TEST(ImageList, TemporaryObjectKeepsTheList)
{
    const HIMAGELIST hImageList = ::ImageList_Create(16, 16, ILC_COLOR32, 0, 4);
    EXPECT_EQ(CImageList::FromHandle(hImageList)->m_hImageList, hImageList);
    EXPECT_EQ(CImageList::FromHandlePermanent(hImageList), nullptr);
    CImageList::DeleteTempMap();
    EXPECT_TRUE(IsImageList(hImageList));
    ::ImageList_Destroy(hImageList);
}

TEST(ImageList, SafeHandleOfNullObjectIsNull)
{
    const CImageList* const pImages = CImageList::FromHandle(nullptr);
    EXPECT_EQ(pImages->GetSafeHandle(), nullptr);
}

TEST(ImageList, DeleteImageListOfAnEmptyObjectFails)
{
    CImageList images;
    EXPECT_FALSE(images.DeleteImageList());
}

TEST(ImageList, AddedIconIsCopied)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4);
    const HICON hIcon = ::CopyIcon(::LoadIcon(nullptr, IDI_APPLICATION));
    EXPECT_EQ(images.Add(hIcon), 0);
    EXPECT_EQ(images.Add(hIcon), 1);
    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_TRUE(::DestroyIcon(hIcon));
}

TEST(ImageList, StripIsSplitIntoImages)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32, 0, 4);
    CBitmap strip;
    FillBitmap(strip, 48, 16, RGB(1, 2, 3));
    EXPECT_EQ(images.Add(&strip, static_cast<CBitmap*>(nullptr)), 0);
    EXPECT_EQ(images.GetImageCount(), 3);
}

TEST(ImageList, ResourceIsSplitIntoImages)
{
    CImageList images;
    ASSERT_TRUE(images.Create(IDB_STRIP, 4, 1, CLR_NONE));
    EXPECT_EQ(images.GetImageCount(), 2);
}

TEST(ImageList, ImageIsDrawnAtItsPlace)
{
    CImageList images;
    images.Create(4, 4, ILC_COLOR24, 0, 1);
    CBitmap image;
    FillBitmap(image, 4, 4, RGB(200, 100, 50));
    images.Add(&image, static_cast<CBitmap*>(nullptr));

    CBitmap target;
    FillBitmap(target, 10, 10, RGB(0, 0, 0));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* const pOld = dc.SelectObject(&target);
    EXPECT_TRUE(images.Draw(&dc, 0, CPoint(3, 3), ILD_NORMAL));
    EXPECT_EQ(dc.GetPixel(3, 3), RGB(200, 100, 50));
    EXPECT_EQ(dc.GetPixel(6, 6), RGB(200, 100, 50));
    EXPECT_EQ(dc.GetPixel(7, 7), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(2, 2), RGB(0, 0, 0));
    dc.SelectObject(pOld);
}

TEST(ImageList, DrawIndirectDrawsAPart)
{
    CImageList images;
    images.Create(4, 4, ILC_COLOR24, 0, 1);
    CBitmap image;
    FillBitmap(image, 4, 4, RGB(200, 100, 50));
    images.Add(&image, static_cast<CBitmap*>(nullptr));

    CBitmap target;
    FillBitmap(target, 10, 10, RGB(0, 0, 0));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* const pOld = dc.SelectObject(&target);
    EXPECT_TRUE(images.DrawIndirect(&dc, 0, CPoint(0, 0), CSize(2, 2), CPoint(0, 0)));
    EXPECT_EQ(dc.GetPixel(1, 1), RGB(200, 100, 50));
    EXPECT_EQ(dc.GetPixel(2, 2), RGB(0, 0, 0));
    dc.SelectObject(pOld);
}

TEST(ImageList, ExtractedIconIsANewOne)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4);
    images.Add(::LoadIcon(nullptr, IDI_APPLICATION));
    const HICON hIcon = images.ExtractIcon(0);
    ASSERT_NE(hIcon, nullptr);
    EXPECT_TRUE(::DestroyIcon(hIcon));
}

TEST(ImageList, DuplicateIsIndependent)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4);
    images.Add(::LoadIcon(nullptr, IDI_APPLICATION));
    CImageList copy;
    ASSERT_TRUE(copy.Create(&images));
    EXPECT_TRUE(images.Remove(0));
    EXPECT_EQ(copy.GetImageCount(), 1);
}

TEST(ImageList, BackgroundColourIsTransparentAtFirst)
{
    CImageList images;
    images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4);
    EXPECT_EQ(images.SetBkColor(RGB(1, 2, 3)), CLR_NONE);
    EXPECT_EQ(images.GetBkColor(), RGB(1, 2, 3));
}
