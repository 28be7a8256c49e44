#include <afxwin.h>

#include "ControlResources.h"

#include "support/HandleCount.h"

#include <gtest/gtest.h>

namespace
{
// OBM_CHECK, which the platform's headers only name for those that ask for it.
constexpr UINT kCheckMarkOfTheSystem = 32760;

bool IsAlive(HGDIOBJ hObject)
{
    return ::GetObjectType(hObject) != 0;
}

LONG HeightOf(CFont& font)
{
    LOGFONT logFont = {};
    font.GetLogFont(&logFont);
    return logFont.lfHeight;
}

COLORREF PixelOf(CBitmap& bitmap, int x, int y)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* const pOld = dc.SelectObject(&bitmap);
    const COLORREF color = dc.GetPixel(x, y);
    dc.SelectObject(pOld);
    return color;
}

// Pixels per inch of a memory context, which are those of the screen.
int ScreenDpi()
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    return dc.GetDeviceCaps(LOGPIXELSY);
}
} // namespace

TEST(GdiObject, NewObjectIsEmpty)
{
    const CFont font;
    EXPECT_EQ(font.m_hObject, nullptr);
    EXPECT_EQ(font.GetSafeHandle(), nullptr);
}

TEST(GdiObject, SafeHandleOfNullObjectIsNull)
{
    const CFont* const pFont = CFont::FromHandle(nullptr);
    EXPECT_EQ(pFont->GetSafeHandle(), nullptr);
}

TEST(GdiObject, DestructorDeletesTheHandle)
{
    HGDIOBJ hBrush = nullptr;
    {
        CBrush brush(RGB(1, 2, 3));
        hBrush = brush.GetSafeHandle();
        ASSERT_TRUE(IsAlive(hBrush));
    }
    EXPECT_FALSE(IsAlive(hBrush));
}

TEST(GdiObject, AttachedHandleIsDeletedAtTheEndOfTheScope)
{
    const HBRUSH hBrush = ::CreateSolidBrush(RGB(1, 2, 3));
    {
        CBrush brush;
        ASSERT_TRUE(brush.Attach(hBrush));
    }
    EXPECT_FALSE(IsAlive(hBrush));
}

TEST(GdiObject, DetachedHandleSurvivesTheObject)
{
    HGDIOBJ hBrush = nullptr;
    {
        CBrush brush(RGB(1, 2, 3));
        hBrush = brush.Detach();
        EXPECT_EQ(brush.m_hObject, nullptr);
    }
    EXPECT_TRUE(IsAlive(hBrush));
    ::DeleteObject(hBrush);
}

TEST(GdiObject, AttachRefusesANullHandle)
{
    CBrush brush;
    EXPECT_FALSE(brush.Attach(nullptr));
}

TEST(GdiObject, DeleteObjectEmptiesTheObject)
{
    CBrush brush(RGB(1, 2, 3));
    const HGDIOBJ hBrush = brush;
    EXPECT_TRUE(brush.DeleteObject());
    EXPECT_EQ(brush.m_hObject, nullptr);
    EXPECT_FALSE(IsAlive(hBrush));
}

TEST(GdiObject, DeleteObjectOfAnEmptyObjectFails)
{
    CBrush brush;
    EXPECT_FALSE(brush.DeleteObject());
}

TEST(GdiObject, FromHandleFindsTheAttachedObject)
{
    CBrush brush(RGB(1, 2, 3));
    EXPECT_EQ(CBrush::FromHandle(brush), &brush);
}

TEST(GdiObject, FromHandleOfADetachedHandleIsAnotherObject)
{
    CBrush brush(RGB(1, 2, 3));
    const auto hBrush = static_cast<HBRUSH>(brush.Detach());
    EXPECT_NE(CBrush::FromHandle(hBrush), &brush);
    ::DeleteObject(hBrush);
}

TEST(GdiObject, FromHandleOfNullIsNull)
{
    EXPECT_EQ(CGdiObject::FromHandle(nullptr), nullptr);
}

TEST(GdiObject, TemporaryObjectIsFoundAgain)
{
    const HBRUSH hBrush = ::CreateSolidBrush(RGB(1, 2, 3));
    CBrush* const pBrush = CBrush::FromHandle(hBrush);
    EXPECT_EQ(pBrush->m_hObject, hBrush);
    EXPECT_EQ(CBrush::FromHandle(hBrush), pBrush);
    CGdiObject::DeleteTempMap();
    ::DeleteObject(hBrush);
}

TEST(GdiObject, EmptyingTheTemporaryMapKeepsTheHandle)
{
    const HBRUSH hBrush = ::CreateSolidBrush(RGB(1, 2, 3));
    CBrush::FromHandle(hBrush);
    CGdiObject::DeleteTempMap();
    EXPECT_TRUE(IsAlive(hBrush));
    ::DeleteObject(hBrush);
}

TEST(GdiObject, TemporaryObjectHasTheClassOfItsHandle)
{
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(BLACK_PEN))->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(GRAY_BRUSH))->IsKindOf(RUNTIME_CLASS(CBrush)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(SYSTEM_FONT))->IsKindOf(RUNTIME_CLASS(CFont)));
    CGdiObject::DeleteTempMap();
}

TEST(GdiObject, TemporaryBitmapAndRegionHaveTheirClasses)
{
    const HBITMAP hBitmap = ::CreateBitmap(1, 1, 1, 1, nullptr);
    const HRGN hRgn = ::CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(CGdiObject::FromHandle(hBitmap)->IsKindOf(RUNTIME_CLASS(CBitmap)));
    EXPECT_TRUE(CGdiObject::FromHandle(hRgn)->IsKindOf(RUNTIME_CLASS(CRgn)));
    CGdiObject::DeleteTempMap();
    ::DeleteObject(hBitmap);
    ::DeleteObject(hRgn);
}

TEST(GdiObject, ObjectsWithOneHandleAreEqual)
{
    CBrush first(RGB(1, 2, 3));
    CBrush second(RGB(1, 2, 3));
    EXPECT_TRUE(first == *CBrush::FromHandle(first));
    EXPECT_TRUE(first != second);
    EXPECT_FALSE(first == second);
}

TEST(GdiObject, StockObjectIsAttached)
{
    CBrush brush;
    EXPECT_TRUE(brush.CreateStockObject(WHITE_BRUSH));
    EXPECT_EQ(brush.m_hObject, ::GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(brush.GetObjectType(), static_cast<UINT>(OBJ_BRUSH));
    brush.Detach();
}

TEST(Pen, GetLogPenTellsWhatWasCreated)
{
    CPen pen(PS_SOLID, 3, RGB(10, 20, 30));
    LOGPEN logPen = {};
    EXPECT_NE(pen.GetLogPen(&logPen), 0);
    EXPECT_EQ(logPen.lopnWidth.x, 3);
    EXPECT_EQ(logPen.lopnColor, RGB(10, 20, 30));
}

TEST(Pen, GeometricPenIsAnExtendedPen)
{
    const LOGBRUSH brush = {BS_SOLID, RGB(1, 2, 3), 0};
    CPen pen(PS_GEOMETRIC | PS_SOLID, 4, &brush);
    EXPECT_EQ(pen.GetObjectType(), static_cast<UINT>(OBJ_EXTPEN));
}

TEST(Brush, GetLogBrushTellsTheColour)
{
    CBrush brush(RGB(10, 20, 30));
    LOGBRUSH logBrush = {};
    EXPECT_NE(brush.GetLogBrush(&logBrush), 0);
    EXPECT_EQ(logBrush.lbColor, RGB(10, 20, 30));
}

TEST(Brush, ConstructorWithoutABitmapThrows)
{
    CBitmap bitmap;
    EXPECT_THROW(
        {
            try
            {
                CBrush brush(&bitmap);
            }
            catch (CResourceException* pException)
            {
                pException->Delete();
                throw 1;
            }
        },
        int);
}

TEST(Brush, SystemColourBrushHasTheColour)
{
    CBrush brush;
    ASSERT_TRUE(brush.CreateSysColorBrush(COLOR_WINDOW));
    LOGBRUSH logBrush = {};
    brush.GetLogBrush(&logBrush);
    EXPECT_EQ(logBrush.lbColor, ::GetSysColor(COLOR_WINDOW));
    brush.Detach();
}

TEST(Font, PointFontOfTenInchesHasCharactersTenInchesHigh)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(7200, L"Tahoma"));
    EXPECT_EQ(HeightOf(font), -10 * ScreenDpi());
}

TEST(Font, PointFontRoundsToTheNearestPixel)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(85, L"Tahoma"));
    EXPECT_EQ(HeightOf(font), -::MulDiv(85, ScreenDpi(), 720));
}

TEST(Font, PointFontHasTheFaceAndTheDefaultCharacterSet)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, L"Tahoma"));
    LOGFONT logFont = {};
    font.GetLogFont(&logFont);
    EXPECT_STREQ(logFont.lfFaceName, L"Tahoma");
    EXPECT_EQ(logFont.lfCharSet, DEFAULT_CHARSET);
    EXPECT_EQ(logFont.lfWidth, 0);
}

TEST(Font, PointFontHeightIsInLogicalUnitsOfTheContext)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(200, 200);
    dc.SetViewportExt(100, 100);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(720, L"Tahoma", &dc));
    EXPECT_EQ(HeightOf(font), -2 * ScreenDpi());
}

TEST(Font, PointFontIgnoresTheOriginOfTheContext)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetViewportOrg(0, 50);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(720, L"Tahoma", &dc));
    EXPECT_EQ(HeightOf(font), -ScreenDpi());
}

TEST(Font, PointFontIsNegativeWhereTheAxisPointsUp)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, -1);
    dc.SetViewportExt(1, 1);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(720, L"Tahoma", &dc));
    EXPECT_EQ(HeightOf(font), -ScreenDpi());
}

TEST(Font, PointFontIndirectLeavesTheCallersStructure)
{
    LOGFONT logFont = {};
    logFont.lfHeight = 720;
    logFont.lfItalic = TRUE;
    CFont font;
    ASSERT_TRUE(font.CreatePointFontIndirect(&logFont));
    EXPECT_EQ(logFont.lfHeight, 720);

    LOGFONT created = {};
    font.GetLogFont(&created);
    EXPECT_EQ(created.lfHeight, -ScreenDpi());
    EXPECT_EQ(created.lfItalic, TRUE);
}

TEST(Font, PointFontLeavesNothingBehind)
{
    EXPECT_NO_LEAK(
        []
        {
            CFont font;
            font.CreatePointFont(90, L"Tahoma");
        });
}

TEST(Font, CreateFontTakesHeightAndWeight)
{
    CFont font;
    ASSERT_TRUE(font.CreateFont(-17, 0, 0, 0, FW_BOLD, TRUE, FALSE, FALSE, DEFAULT_CHARSET,
                                OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                                L"Tahoma"));
    LOGFONT logFont = {};
    font.GetLogFont(&logFont);
    EXPECT_EQ(logFont.lfHeight, -17);
    EXPECT_EQ(logFont.lfWeight, FW_BOLD);
    EXPECT_EQ(logFont.lfItalic, TRUE);
}

TEST(Bitmap, GetBitmapTellsTheSize)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(5, 7, 1, 32, nullptr));
    BITMAP info = {};
    EXPECT_NE(bitmap.GetBitmap(&info), 0);
    EXPECT_EQ(info.bmWidth, 5);
    EXPECT_EQ(info.bmHeight, 7);
}

TEST(Bitmap, ResourceIsLoadedByItsId)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(IDB_STRIP));
    BITMAP info = {};
    bitmap.GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 8);
    EXPECT_EQ(info.bmHeight, 4);
    EXPECT_EQ(PixelOf(bitmap, 7, 0), RGB(255, 0, 0));
}

TEST(Bitmap, MappedBitmapHasTheButtonFaceForLightGrey)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadMappedBitmap(IDB_STRIP));
    EXPECT_EQ(PixelOf(bitmap, 0, 0), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelOf(bitmap, 7, 0), RGB(255, 0, 0));
}

TEST(Bitmap, MappedBitmapTakesTheCallersColours)
{
    COLORMAP map = {RGB(255, 0, 0), RGB(0, 0, 255)};
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadMappedBitmap(IDB_STRIP, 0, &map, 1));
    EXPECT_EQ(PixelOf(bitmap, 0, 0), RGB(192, 192, 192));
    EXPECT_EQ(PixelOf(bitmap, 7, 0), RGB(0, 0, 255));
}

TEST(Bitmap, BitmapOfTheSystemIsLoaded)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadOEMBitmap(kCheckMarkOfTheSystem));
    EXPECT_EQ(bitmap.GetObjectType(), static_cast<UINT>(OBJ_BITMAP));
}

TEST(Bitmap, MissingResourceLeavesTheObjectEmpty)
{
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.LoadBitmap(L"no such bitmap"));
    EXPECT_EQ(bitmap.m_hObject, nullptr);
}

TEST(Bitmap, BitsComeBackAsWritten)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 32, nullptr));
    const DWORD written = 0x00112233;
    EXPECT_EQ(bitmap.SetBitmapBits(sizeof(written), &written), sizeof(written));
    DWORD read = 0;
    EXPECT_EQ(bitmap.GetBitmapBits(sizeof(read), &read), sizeof(read));
    EXPECT_EQ(read, written);
}

TEST(Bitmap, SetBitmapDimensionAnswersThePreviousOne)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(1, 1, 1, 1, nullptr));
    bitmap.SetBitmapDimension(30, 40);
    EXPECT_EQ(bitmap.SetBitmapDimension(1, 2), CSize(30, 40));
    EXPECT_EQ(bitmap.GetBitmapDimension(), CSize(1, 2));
}

TEST(Region, SetRectRgnReusesTheRegion)
{
    CRgn region;
    ASSERT_TRUE(region.CreateRectRgn(0, 0, 1, 1));
    const HGDIOBJ hRgn = region;
    region.SetRectRgn(10, 20, 30, 40);
    CRect box;
    region.GetRgnBox(&box);
    EXPECT_EQ(box, CRect(10, 20, 30, 40));
    EXPECT_EQ(region.m_hObject, hRgn);
}

TEST(Region, CombineRgnTellsTheKind)
{
    CRgn first;
    CRgn second;
    first.CreateRectRgn(0, 0, 10, 10);
    second.CreateRectRgn(20, 20, 30, 30);
    CRgn combined;
    combined.CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(combined.CombineRgn(&first, &second, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(combined.CombineRgn(&first, &second, RGN_AND), NULLREGION);
}

TEST(Region, CopyIsEqual)
{
    CRgn source;
    CRgn copy;
    source.CreateEllipticRgn(0, 0, 10, 10);
    copy.CreateRectRgn(0, 0, 1, 1);
    copy.CopyRgn(&source);
    EXPECT_TRUE(copy.EqualRgn(&source));
}

TEST(Region, OffsetRgnMovesTheRegion)
{
    CRgn region;
    region.CreateRectRgn(0, 0, 10, 10);
    region.OffsetRgn(CPoint(5, 6));
    EXPECT_TRUE(region.PtInRegion(5, 6));
    EXPECT_FALSE(region.PtInRegion(4, 6));
}
