#include "ControlHost.h"

#include "support/HandleCount.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace
{
// A memory context with a bitmap of 32 bits per pixel selected, black at first.
class Canvas
{
public:
    Canvas(int nWidth, int nHeight)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = nWidth;
        info.bmiHeader.biHeight = -nHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pBits = nullptr;
        dc.CreateCompatibleDC(nullptr);
        bitmap.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
        m_hPrevious = ::SelectObject(dc, bitmap);
    }

    ~Canvas() { ::SelectObject(dc, m_hPrevious); }

    CDC dc;
    CBitmap bitmap;

private:
    HGDIOBJ m_hPrevious = nullptr;
};

bool IsAlive(HDC hDC)
{
    return ::GetObjectType(hDC) != 0;
}

// A context whose text is measured with another one than that it is written with.
class SplitContext
{
public:
    SplitContext()
    {
        output.CreateCompatibleDC(nullptr);
        measuring.CreateCompatibleDC(nullptr);
        dc.SetOutputDC(output);
        dc.SetAttribDC(measuring);
    }

    ~SplitContext()
    {
        dc.ReleaseOutputDC();
        dc.ReleaseAttribDC();
    }

    CDC output;
    CDC measuring;
    CDC dc;
};

class PaintingWindow : public ControlHost
{
public:
    bool m_bPaintedOwnWindow = false;
    bool m_bFoundByHandle = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_PAINT)
            return ControlHost::WindowProc(message, wParam, lParam);
        CPaintDC dc(this);
        m_bPaintedOwnWindow = dc.m_ps.hdc == dc.m_hDC && dc.GetWindow() == this;
        m_bFoundByHandle = CDC::FromHandle(dc.m_hDC) == &dc;
        return 0;
    }
};
} // namespace

TEST(DeviceContext, AttachSetsBothHandles)
{
    CDC dc;
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    ASSERT_TRUE(dc.Attach(hDC));
    EXPECT_EQ(dc.m_hDC, hDC);
    EXPECT_EQ(dc.m_hAttribDC, hDC);
}

TEST(DeviceContext, AttachRefusesANullHandle)
{
    CDC dc;
    EXPECT_FALSE(dc.Attach(nullptr));
}

TEST(DeviceContext, DetachEmptiesBothHandles)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HDC hDC = dc.Detach();
    EXPECT_TRUE(IsAlive(hDC));
    EXPECT_EQ(dc.m_hDC, nullptr);
    EXPECT_EQ(dc.m_hAttribDC, nullptr);
    ::DeleteDC(hDC);
}

TEST(DeviceContext, DestructorDeletesAnAttachedContext)
{
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    {
        CDC dc;
        dc.Attach(hDC);
    }
    EXPECT_FALSE(IsAlive(hDC));
}

TEST(DeviceContext, SelectingObjectsOfTheSystemLeavesNothingBehind)
{
    EXPECT_NO_LEAK(
        []
        {
            CDC dc;
            dc.CreateCompatibleDC(nullptr);
            CBrush brush(RGB(1, 2, 3));
            CBrush* const pOld = dc.SelectObject(&brush);
            dc.SelectObject(pOld);
            CGdiObject::DeleteTempMap();
        });
}

TEST(DeviceContext, SafeHandleOfNullObjectIsNull)
{
    const CDC* const pDC = CDC::FromHandle(nullptr);
    EXPECT_EQ(pDC->GetSafeHdc(), nullptr);
}

TEST(DeviceContext, FromHandleFindsTheAttachedObject)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    EXPECT_EQ(CDC::FromHandle(dc), &dc);
}

TEST(DeviceContext, TemporaryObjectSetsBothHandlesAndKeepsTheContext)
{
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    CDC* const pDC = CDC::FromHandle(hDC);
    EXPECT_EQ(pDC->m_hDC, hDC);
    EXPECT_EQ(pDC->m_hAttribDC, hDC);
    CDC::DeleteTempMap();
    EXPECT_TRUE(IsAlive(hDC));
    ::DeleteDC(hDC);
}

TEST(DeviceContext, DeleteDCOfAnEmptyObjectFails)
{
    CDC dc;
    EXPECT_FALSE(dc.DeleteDC());
}

TEST(DeviceContext, NewMemoryContextHoldsOneMonochromePixel)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    BITMAP info = {};
    dc.GetCurrentBitmap()->GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 1);
    EXPECT_EQ(info.bmHeight, 1);
    EXPECT_EQ(info.bmBitsPixel, 1);
}

TEST(DeviceContext, SelectObjectAnswersTheReplacedObject)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBrush first(RGB(1, 2, 3));
    CBrush second(RGB(4, 5, 6));
    CBrush* const pOriginal = dc.SelectObject(&first);
    ASSERT_NE(pOriginal, nullptr);
    EXPECT_EQ(pOriginal->m_hObject, ::GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(dc.SelectObject(&second), &first);
    EXPECT_EQ(dc.GetCurrentBrush(), &second);
    dc.SelectObject(pOriginal);
}

TEST(DeviceContext, SelectObjectTakesFontsPensAndBitmaps)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CFont font;
    font.CreatePointFont(90, L"Tahoma");
    CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
    CBitmap bitmap;
    bitmap.CreateBitmap(2, 2, 1, 1, nullptr);

    CFont* const pOldFont = dc.SelectObject(&font);
    CPen* const pOldPen = dc.SelectObject(&pen);
    CBitmap* const pOldBitmap = dc.SelectObject(&bitmap);
    EXPECT_EQ(dc.GetCurrentFont(), &font);
    EXPECT_EQ(dc.GetCurrentPen(), &pen);
    EXPECT_EQ(dc.GetCurrentBitmap(), &bitmap);
    EXPECT_EQ(dc.SelectObject(pOldFont), &font);
    EXPECT_EQ(dc.SelectObject(pOldPen), &pen);
    EXPECT_EQ(dc.SelectObject(pOldBitmap), &bitmap);
}

TEST(DeviceContext, SelectObjectOfNullAnswersNull)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    EXPECT_EQ(dc.SelectObject(static_cast<CFont*>(nullptr)), nullptr);
}

TEST(DeviceContext, SelectingARegionClipsAndTellsItsKind)
{
    Canvas canvas(10, 10);
    CRgn region;
    region.CreateRectRgn(2, 2, 5, 5);
    EXPECT_EQ(canvas.dc.SelectObject(&region), SIMPLEREGION);
    CRect box;
    canvas.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(2, 2, 5, 5));
}

TEST(DeviceContext, SelectingNoRegionRemovesTheClip)
{
    Canvas canvas(10, 10);
    canvas.dc.IntersectClipRect(2, 2, 5, 5);
    canvas.dc.SelectClipRgn(nullptr);
    CRect box;
    canvas.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(0, 0, 10, 10));
}

TEST(DeviceContext, SetFunctionsAnswerThePreviousValue)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetTextColor(RGB(1, 2, 3));
    EXPECT_EQ(dc.SetTextColor(RGB(4, 5, 6)), RGB(1, 2, 3));
    dc.SetBkMode(TRANSPARENT);
    EXPECT_EQ(dc.SetBkMode(OPAQUE), TRANSPARENT);
    dc.SetViewportOrg(7, 8);
    EXPECT_EQ(dc.SetViewportOrg(0, 0), CPoint(7, 8));
    dc.MoveTo(3, 4);
    EXPECT_EQ(dc.MoveTo(0, 0), CPoint(3, 4));
}

TEST(DeviceContext, RestoreDCOfMinusOneBringsTheLatestStateBack)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetTextColor(RGB(1, 2, 3));
    EXPECT_NE(dc.SaveDC(), 0);
    dc.SetTextColor(RGB(4, 5, 6));
    EXPECT_TRUE(dc.RestoreDC(-1));
    EXPECT_EQ(dc.GetTextColor(), RGB(1, 2, 3));
}

TEST(DeviceContext, AttributesAreSetInBothContexts)
{
    SplitContext split;
    split.dc.SetTextColor(RGB(9, 8, 7));
    split.dc.SetWindowOrg(5, 6);
    EXPECT_EQ(::GetTextColor(split.output), RGB(9, 8, 7));
    EXPECT_EQ(::GetTextColor(split.measuring), RGB(9, 8, 7));
    EXPECT_EQ(split.output.GetWindowOrg(), CPoint(5, 6));
    EXPECT_EQ(split.measuring.GetWindowOrg(), CPoint(5, 6));
}

TEST(DeviceContext, FontIsSelectedIntoBothContexts)
{
    SplitContext split;
    CFont font;
    font.CreatePointFont(200, L"Tahoma");
    CFont* const pOld = split.dc.SelectObject(&font);
    EXPECT_EQ(split.output.GetCurrentFont(), &font);
    EXPECT_EQ(split.measuring.GetCurrentFont(), &font);
    split.dc.SelectObject(pOld);
}

TEST(DeviceContext, TextIsMeasuredWithTheAttributeContext)
{
    SplitContext split;
    CFont big;
    big.CreatePointFont(720, L"Tahoma");
    CFont* const pOld = split.measuring.SelectObject(&big);
    EXPECT_GT(split.dc.GetTextExtent(L"x", 1).cy, split.dc.GetOutputTextExtent(L"x", 1).cy);

    TEXTMETRIC measured = {};
    TEXTMETRIC written = {};
    split.dc.GetTextMetrics(&measured);
    split.dc.GetOutputTextMetrics(&written);
    EXPECT_GT(measured.tmHeight, written.tmHeight);
    split.measuring.SelectObject(pOld);
}

TEST(DeviceContext, FillSolidRectFillsAndLeavesTheBackgroundColour)
{
    Canvas canvas(10, 10);
    canvas.dc.SetBkColor(RGB(0, 0, 0));
    canvas.dc.FillSolidRect(2, 3, 4, 5, RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetBkColor(), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(2, 3), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(5, 7), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(6, 7), RGB(0, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(5, 8), RGB(0, 0, 0));
}

TEST(DeviceContext, Draw3dRectFramesInTwoColours)
{
    Canvas canvas(10, 10);
    const CRect rect(1, 1, 9, 9);
    canvas.dc.Draw3dRect(&rect, RGB(255, 0, 0), RGB(0, 0, 255));
    EXPECT_EQ(canvas.dc.GetPixel(1, 1), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(7, 1), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(1, 7), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc.GetPixel(8, 1), RGB(0, 0, 255));
    EXPECT_EQ(canvas.dc.GetPixel(1, 8), RGB(0, 0, 255));
    EXPECT_EQ(canvas.dc.GetPixel(8, 8), RGB(0, 0, 255));
    EXPECT_EQ(canvas.dc.GetPixel(2, 2), RGB(0, 0, 0));
}

TEST(DeviceContext, RectangleExcludesRightAndBottom)
{
    Canvas canvas(10, 10);
    CBrush brush(RGB(0, 255, 0));
    const CRect rect(2, 2, 5, 5);
    canvas.dc.FillRect(&rect, &brush);
    EXPECT_EQ(canvas.dc.GetPixel(4, 4), RGB(0, 255, 0));
    EXPECT_EQ(canvas.dc.GetPixel(5, 5), RGB(0, 0, 0));
}

TEST(DeviceContext, LineEndsBeforeItsLastPoint)
{
    Canvas canvas(10, 10);
    CPen pen(PS_SOLID, 1, RGB(0, 255, 0));
    CPen* const pOld = canvas.dc.SelectObject(&pen);
    canvas.dc.MoveTo(1, 1);
    canvas.dc.LineTo(5, 1);
    EXPECT_EQ(canvas.dc.GetPixel(4, 1), RGB(0, 255, 0));
    EXPECT_EQ(canvas.dc.GetPixel(5, 1), RGB(0, 0, 0));
    EXPECT_EQ(canvas.dc.GetCurrentPosition(), CPoint(5, 1));
    canvas.dc.SelectObject(pOld);
}

TEST(DeviceContext, GetPixelOutsideTheClipIsInvalid)
{
    Canvas canvas(10, 10);
    EXPECT_EQ(canvas.dc.GetPixel(10, 10), CLR_INVALID);
}

TEST(DeviceContext, BitBltCopiesPixels)
{
    Canvas source(4, 4);
    Canvas target(4, 4);
    source.dc.FillSolidRect(0, 0, 4, 4, RGB(1, 2, 3));
    EXPECT_TRUE(target.dc.BitBlt(1, 1, 2, 2, &source.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(target.dc.GetPixel(0, 0), RGB(0, 0, 0));
    EXPECT_EQ(target.dc.GetPixel(2, 2), RGB(1, 2, 3));
    EXPECT_EQ(target.dc.GetPixel(3, 3), RGB(0, 0, 0));
}

TEST(DeviceContext, DPtoLPOfASizeIgnoresOriginAndDirection)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(2, -2);
    dc.SetViewportExt(1, 1);
    dc.SetViewportOrg(100, 100);
    CSize size(10, 20);
    dc.DPtoLP(&size);
    EXPECT_EQ(size, CSize(20, 40));
}

TEST(DeviceContext, LPtoDPOfARectangleMapsBothCorners)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SetViewportOrg(10, 20);
    CRect rect(1, 2, 3, 4);
    dc.LPtoDP(&rect);
    EXPECT_EQ(rect, CRect(11, 22, 13, 24));
}

TEST(DeviceContext, DrawTextCalculatesARectangle)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CRect rect(0, 0, 0, 0);
    const int nHeight = dc.DrawText(CString(L"text"), &rect, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_EQ(rect.Width(), dc.GetTextExtent(CString(L"text")).cx);
    EXPECT_EQ(rect.Height(), nHeight);
}

TEST(DeviceContext, DrawTextExKeepsTheCallersString)
{
    Canvas canvas(20, 20);
    const CString text(L"a text that is much longer than the room that it has");
    const CString copy(text);
    CRect rect(0, 0, 20, 20);
    canvas.dc.DrawTextEx(text, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING, nullptr);
    EXPECT_EQ(text, copy);
}

TEST(DeviceContext, TextFaceIsThatOfTheSelectedFont)
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CFont font;
    font.CreatePointFont(90, L"Tahoma");
    CFont* const pOld = dc.SelectObject(&font);
    CString face;
    TCHAR expected[LF_FACESIZE] = {};
    ::GetTextFace(dc, LF_FACESIZE, expected);
    EXPECT_EQ(dc.GetTextFace(face), static_cast<int>(std::wcslen(expected)));
    EXPECT_STREQ(face.GetString(), expected);
    dc.SelectObject(pOld);
}

TEST(DeviceContext, HalftoneBrushIsAlwaysTheSame)
{
    CBrush* const pBrush = CDC::GetHalftoneBrush();
    LOGBRUSH logBrush = {};
    pBrush->GetLogBrush(&logBrush);
    EXPECT_EQ(logBrush.lbStyle, static_cast<UINT>(BS_PATTERN));
    EXPECT_EQ(CDC::GetHalftoneBrush()->m_hObject, pBrush->m_hObject);
}

TEST(ClientDC, BelongsToItsWindow)
{
    ControlHost host;
    const CClientDC dc(&host);
    EXPECT_EQ(::WindowFromDC(dc), host.m_hWnd);
    EXPECT_EQ(dc.GetWindow(), &host);
}

TEST(ClientDC, OfNoWindowIsTheScreen)
{
    CClientDC dc(nullptr);
    EXPECT_NE(dc.m_hDC, nullptr);
    EXPECT_EQ(::WindowFromDC(dc), ::GetDesktopWindow());
}

TEST(ClientDC, ReleasesTheContext)
{
    ControlHost host;
    HDC hDC = nullptr;
    {
        CClientDC dc(&host);
        hDC = dc;
    }
    EXPECT_EQ(::WindowFromDC(hDC), nullptr);
}

TEST(ClientDC, LeavesNothingBehind)
{
    ControlHost host;
    EXPECT_NO_LEAK([&] { CClientDC dc(&host); });
}

TEST(ClientDC, ThrowsWhenTheWindowIsGone)
{
    CWnd* const pGone = CWnd::FromHandle(reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7ffe)));
    bool thrown = false;
    try
    {
        CClientDC dc(pGone);
    }
    catch (CResourceException* pException)
    {
        thrown = true;
        pException->Delete();
    }
    EXPECT_TRUE(thrown);
}

TEST(WindowDC, StartsAtTheWindowsCorner)
{
    ControlHost host;
    CRect windowRect;
    host.GetWindowRect(&windowRect);
    CWindowDC dc(&host);
    POINT origin = {};
    ::GetDCOrgEx(dc, &origin);
    EXPECT_EQ(CPoint(origin), windowRect.TopLeft());
}

TEST(PaintDC, PaintsTheWindowAndValidatesIt)
{
    PaintingWindow window;
    window.ShowWindow(SW_SHOWNOACTIVATE);
    window.Invalidate();
    window.UpdateWindow();
    EXPECT_TRUE(window.m_bPaintedOwnWindow);
    EXPECT_TRUE(window.m_bFoundByHandle);
    EXPECT_FALSE(window.GetUpdateRect(nullptr));
}
