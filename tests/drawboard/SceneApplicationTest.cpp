#include <vxdpi/VxDpi.h>

#include "drawboard/BoardCalls.h"
#include "drawboard/PictureControls.h"
#include "resources/resource_ids.h"
#include "support/AtTestDpi.h"
#include "support/DpiWindow.h"
#include "support/GdiPlusSession.h"
#include "support/Pixels.h"
#include "support/TestPictures.h"

#include <gtest/gtest.h>

#include <string>

// An application with a scene in a window and one in a picture control, at the DPI that the tests run at.

namespace
{
constexpr UINT kBackground = 1;
constexpr UINT kSymbol = 2;
const CSize kScene96(64, 32);
constexpr std::uint32_t kWhitePixel = 0x00ffffff;

class SceneWindow : public CWnd
{
public:
    SceneWindow()
    {
        m_board.AddImageResource(kBackground, 96, IDR_PNG_RGB_32, L"PNG");
        m_board.AddImageResource(kSymbol, 96, IDR_PNG_16, L"PNG");
        m_board.AddImageResource(kSymbol, 144, IDR_PNG_24, L"PNG");
        m_board.AddImageResource(kSymbol, 192, IDR_PNG_32, L"PNG");
        m_board.SetDrawBoardSize(kScene96);
    }

    void CreateIn(HWND parent)
    {
        const auto white = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
        ASSERT_TRUE(CreateEx(0, AfxRegisterWndClass(0, nullptr, white), L"Scene", WS_CHILD, 0, 0, 200, 100,
                             parent, nullptr));
        ShowWindow(SW_SHOWNOACTIVATE);
    }

    void Repaint()
    {
        Invalidate();
        UpdateWindow();
    }

    int Compose()
    {
        return m_board.DrawImageToBoard(kBackground, CRect(0, 0, 64, 32)) &&
               m_board.DrawImageToBoard(kSymbol, CPoint(8, 4));
    }

    CDrawBoard m_board;
    UINT m_nDrawnDpi = 0;
    int m_bDrawn = FALSE;

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        m_nDrawnDpi = VxSafeGetDpiForWindow(m_hWnd);
        m_board.SetDpi(m_nDrawnDpi);
        const int nWidth = ::MulDiv(kScene96.cx, static_cast<int>(m_nDrawnDpi), 96);
        const int nHeight = ::MulDiv(kScene96.cy, static_cast<int>(m_nDrawnDpi), 96);
        m_bDrawn =
            m_board.DrawImage(dc.m_hDC, CRect(10, 5, 10 + nWidth, 5 + nHeight), [this] { return Compose(); });
    }

    afx_msg LRESULT OnDpiChangedAfterParent(WPARAM, LPARAM)
    {
        Repaint();
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SceneWindow, CWnd)
    ON_WM_PAINT()
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &SceneWindow::OnDpiChangedAfterParent)
END_MESSAGE_MAP()

class SceneApplication : public testing::Test
{
protected:
    void ShowWindow()
    {
        for (const UINT dpi : {96u, TestDpi()})
            ::ShowWindow(m_parents.ParentOf(dpi), SW_SHOWNOACTIVATE);
        m_window.CreateIn(m_parents.ParentOf(TestDpi()));
    }

    void TearDown() override { m_window.DestroyWindow(); }

    std::uint32_t Seen(int x, int y) { return PixelAt(CClientDC(&m_window).m_hDC, x, y); }

    const GdiPlusSession m_gdiPlus;
    DpiWindow m_parents;
    SceneWindow m_window;
};
} // namespace

TEST_F(SceneApplication, TheSceneHasTheMonitorsSize)
{
    CallLog log;
    const BoardCalls calls(log);
    ShowWindow();
    m_window.Repaint();
    EXPECT_EQ(m_window.m_nDrawnDpi, TestDpi());
    EXPECT_EQ(m_window.m_bDrawn, TRUE);
    const CallLog::LineList drawn = LinesOf(log, "GdipDrawImageRectI");
    ASSERT_GE(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].substr(drawn[0].rfind(", 0, 0, ")),
              AtTestDpi(std::string(", 0, 0, 64, 32)"), std::string(", 0, 0, 80, 40)"),
                        std::string(", 0, 0, 96, 48)"), std::string(", 0, 0, 128, 64)")));
    EXPECT_EQ(drawn[1], AtTestDpi(std::string("GdipDrawImageRectI(surface, image, 8, 4, 16, 16)"),
                                  std::string("GdipDrawImageRectI(surface, image, 10, 5, 20, 20)"),
                                  std::string("GdipDrawImageRectI(surface, image, 12, 6, 24, 24)"),
                                  std::string("GdipDrawImageRectI(surface, image, 16, 8, 32, 32)")));
}

TEST_F(SceneApplication, TheVariantForTheMonitorIsLoaded)
{
    const LookedUp lookedUp;
    ShowWindow();
    m_window.Repaint();
    ASSERT_EQ(lookedUp.Ids().size(), 2u);
    EXPECT_EQ(lookedUp.Ids()[1],
              static_cast<UINT>(AtTestDpi(IDR_PNG_16, IDR_PNG_24, IDR_PNG_24, IDR_PNG_32)));
}

TEST_F(SceneApplication, TheScenesPixelsAreSeen)
{
    ShowWindow();
    m_window.Repaint();
    EXPECT_EQ(Seen(9, 10), kWhitePixel);
    EXPECT_EQ(Seen(10 + AtTestDpi(64, 80, 96, 128), 10), kWhitePixel);
    EXPECT_NE(Seen(10 + 4, 5 + 2), kWhitePixel);
    // A variant in its own size is copied pixel by pixel; at 120 DPI a larger one is made smaller.
    const int side = AtTestDpi(16, 24, 24, 32);
    const int left = 10 + AtTestDpi(8, 10, 12, 16);
    const int top = 5 + AtTestDpi(4, 5, 6, 8);
    const std::uint32_t expected = FramedPicture(side, side).At(5, 7) & 0x00ffffff;
    if (TestDpi() != 120)
        EXPECT_EQ(Seen(left + 5, top + 7), expected);
    else
        EXPECT_NEAR(Seen(left + 10, top + 10) >> 16 & 0xff, FramedPicture(24, 24).At(12, 12) >> 16 & 0xff,
                    12);
}

TEST_F(SceneApplication, AWindowThatMovesToAnotherDpiDrawsAnotherVariant)
{
    ShowWindow();
    m_window.Repaint();
    const LookedUp lookedUp;
    m_parents.Move(m_window.m_hWnd, 96);
    EXPECT_EQ(m_window.m_nDrawnDpi, 96u);
    EXPECT_EQ(m_window.m_bDrawn, TRUE);
    EXPECT_EQ(lookedUp.Ids(), TestDpi() == 96 ? std::vector<UINT>() : std::vector<UINT>{IDR_PNG_16});
    m_parents.Move(m_window.m_hWnd, TestDpi());
    EXPECT_EQ(m_window.m_nDrawnDpi, TestDpi());
    EXPECT_LE(lookedUp.Ids().size(), 1u);
}

TEST_F(SceneApplication, APictureControlShowsTheSameScene)
{
    ShowWindow();
    PictureControl control;
    control.SetWindowPos(nullptr, 0, 0, 128, 128, SWP_NOZORDER);
    EXPECT_EQ(m_window.m_board.DrawImage(control, [this] { return m_window.Compose(); }), TRUE);
    const ArgbImage pixels = PixelsOf(control.GetBitmap());
    ASSERT_EQ(pixels.Width(), 128);
    ASSERT_EQ(pixels.Height(), 128);
    EXPECT_EQ(pixels.At(64, 31), 0u);
    EXPECT_EQ(pixels.At(64, 34) >> 24, 0xffu);
    EXPECT_EQ(pixels.At(64, 92) >> 24, 0xffu);
    EXPECT_EQ(pixels.At(64, 96), 0u);
}
