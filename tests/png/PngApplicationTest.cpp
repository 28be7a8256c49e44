#include <vxdpi/VxDpi.h>

#include "png/DrawingCalls.h"
#include "resources/resource_ids.h"
#include "support/DpiWindow.h"
#include "support/Pixels.h"
#include "support/TestDpi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

// An application with a picture in a window, from its start to its end.

namespace
{
constexpr int kMargin96 = 8;
constexpr int kSide96 = 16;
constexpr std::uint32_t kWhitePixel = 0x00ffffff;
constexpr std::uint32_t kArrowAt96 = 0x0038678b; // the pixel (6, 4) of the picture drawn for 96 DPI

// A pixel of the picture at a DPI, within an area of one colour.
struct SeenPixel
{
    UINT dpi;
    int x;
    int y;
    std::uint32_t color;
};

constexpr SeenPixel kSeen[] = {
    {96, 7, 12, 0x00c8c8c8}, {120, 10, 6, 0x005892bd}, {144, 10, 19, 0x00ababab}, {192, 13, 25, 0x00ababab}};

class PictureWindow : public CWnd
{
public:
    PictureWindow()
    {
        m_picture.AddResourceForDpi(96, IDR_PNG_SAVE_16, {});
        m_picture.AddResourceForDpi(132, IDR_PNG_SAVE_22, {});
        m_picture.AddResourceForDpi(192, IDR_PNG_SAVE_32, {});
    }

    void CreateIn(HWND parent)
    {
        const auto white = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
        ASSERT_TRUE(CreateEx(0, AfxRegisterWndClass(0, nullptr, white), L"Picture",
                             parent ? WS_CHILD : WS_POPUP, 0, 0, 100, 100, parent, nullptr));
        ShowWindow(SW_SHOWNOACTIVATE);
    }

    void Repaint()
    {
        Invalidate();
        UpdateWindow();
    }

    UINT m_nDrawnDpi = 0;
    BOOL m_bDrawn = FALSE;
    Gdiplus::Size m_size{0, 0};

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        m_nDrawnDpi = VxSafeGetDpiForWindow(m_hWnd);
        const int nMargin = ::MulDiv(kMargin96, static_cast<int>(m_nDrawnDpi), 96);
        const int nSide = ::MulDiv(kSide96, static_cast<int>(m_nDrawnDpi), 96);
        m_bDrawn =
            m_picture.DrawPngInDC(dc.m_hDC, m_nDrawnDpi, nMargin, nMargin, nSide, nSide, nullptr, &m_size);
    }

    afx_msg LRESULT OnDpiChangedAfterParent(WPARAM, LPARAM)
    {
        Repaint();
        return 0;
    }

    DECLARE_MESSAGE_MAP()

private:
    CDpiAwarePng m_picture;
};

BEGIN_MESSAGE_MAP(PictureWindow, CWnd)
    ON_WM_PAINT()
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &PictureWindow::OnDpiChangedAfterParent)
END_MESSAGE_MAP()

// A length of the window in pixels.
int AtTestDpi(int length96)
{
    return ::MulDiv(length96, static_cast<int>(TestDpi()), 96);
}

std::uint32_t ClientPixel(CWnd& window, int x, int y)
{
    CClientDC dc(&window);
    return PixelAt(dc.m_hDC, x, y);
}

class PngApplication : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(StartupGdiPlusByVxDpi(), TRUE); }

    void TearDown() override
    {
        if (m_window.m_hWnd)
            m_window.DestroyWindow();
        ShutdownGdiPlusByVxDpi();
    }

    PictureWindow m_window;
};

// Puts a parent in front of all windows, so that its child can paint.
void ShowInFront(HWND parent)
{
    ::SetWindowPos(parent, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    PumpMessages(50);
}
} // namespace

TEST_F(PngApplication, PaintsItsPictureAtTheWindowsDpi)
{
    m_window.CreateIn(nullptr);
    m_window.Repaint();
    EXPECT_EQ(m_window.m_nDrawnDpi, TestDpi());
    EXPECT_EQ(m_window.m_bDrawn, TRUE);
    EXPECT_TRUE(IsSize(m_window.m_size, AtTestDpi(16), AtTestDpi(16)));
}

TEST_F(PngApplication, PutsThePictureOnTheScreen)
{
    m_window.CreateIn(nullptr);
    m_window.Repaint();
    EXPECT_EQ(ClientPixel(m_window, AtTestDpi(4), AtTestDpi(4)), kWhitePixel);

    const auto seen = std::find_if(std::begin(kSeen), std::end(kSeen),
                                   [](const SeenPixel& pixel) { return pixel.dpi == TestDpi(); });
    if (seen == std::end(kSeen))
        GTEST_SKIP() << "no colour is known for this DPI";
    EXPECT_TRUE(
        IsRoughly(ClientPixel(m_window, AtTestDpi(8) + seen->x, AtTestDpi(8) + seen->y), seen->color));
}

TEST_F(PngApplication, PaintsWithTheNewDpiWhenTheWindowMovesTo96)
{
    const DpiWindow monitors;
    ShowInFront(monitors.ParentOf(TestDpi()));
    m_window.CreateIn(monitors.ParentOf(TestDpi()));
    m_window.Repaint();
    ASSERT_EQ(m_window.m_nDrawnDpi, TestDpi());

    ShowInFront(monitors.ParentOf(96));
    monitors.Move(m_window.m_hWnd, 96);

    EXPECT_EQ(m_window.m_nDrawnDpi, 96u);
    EXPECT_TRUE(IsSize(m_window.m_size, 16, 16));
    EXPECT_EQ(ClientPixel(m_window, 8 + 6, 8 + 4), kArrowAt96);
    EXPECT_EQ(ClientPixel(m_window, 8 + 16, 8 + 8), kWhitePixel);
}

TEST_F(PngApplication, PaintsWithTheOldDpiAgainWhenTheWindowComesBack)
{
    const DpiWindow monitors;
    ShowInFront(monitors.ParentOf(96));
    m_window.CreateIn(monitors.ParentOf(96));
    m_window.Repaint();
    ASSERT_EQ(m_window.m_nDrawnDpi, 96u);

    ShowInFront(monitors.ParentOf(TestDpi()));
    monitors.Move(m_window.m_hWnd, TestDpi());

    EXPECT_EQ(m_window.m_nDrawnDpi, TestDpi());
    EXPECT_TRUE(IsSize(m_window.m_size, AtTestDpi(16), AtTestDpi(16)));
}
