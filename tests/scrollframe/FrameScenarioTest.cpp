#include "foundation/WindowDpiAnswer.h"
#include "scrollframe/FrameFixtures.h"
#include "support/HandleCount.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{
LONG TopOfContent(const StepDialog& dialog)
{
    return PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd)[1];
}

LONG LeftOfContent(const StepDialog& dialog)
{
    return PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd)[0];
}

void SizeFrame(const ScriptDialog& dialog, int width, int height)
{
    ::SetWindowPos(dialog.Frame(), nullptr, 20, 20, width, height, SWP_NOZORDER);
}

// A dialog that lays out its own controls whenever its size or its DPI changes.
class LaidOutDialog : public StepDialog
{
public:
    explicit LaidOutDialog(UINT nDpi) : m_nDpi(nDpi), m_layout(this) {}

    BOOL OnInitDialog() override
    {
        StepDialog::OnInitDialog();
        GetClientRect(&designed);
        m_layout.UpdateDpi(static_cast<int>(m_nDpi));
        m_layout.AddControl(&content, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT, FALSE);
        m_layout.AddControl(&ok, ANCHOR_BOTTOMRIGHT, 0, FALSE);
        m_layout.AdjustLayout();
        return TRUE;
    }

    CRect designed;

protected:
    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        StepDialog::OnSize(nType, cx, cy);
        m_layout.AdjustLayout();
    }

    afx_msg LRESULT OnDpiChangedAfterParent(WPARAM, LPARAM)
    {
        m_layout.UpdateDpi(static_cast<int>(VxSafeGetDpiForWindow(m_hWnd)));
        m_layout.AdjustLayout();
        return 0;
    }

    DECLARE_MESSAGE_MAP()

private:
    UINT m_nDpi;
    CScrollLayoutManager m_layout;
};

BEGIN_MESSAGE_MAP(LaidOutDialog, StepDialog)
    ON_WM_SIZE()
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &LaidOutDialog::OnDpiChangedAfterParent)
END_MESSAGE_MAP()

// A main window that disables what it owns, too.
class MainFrame : public CFrameWnd
{
public:
    MainFrame()
    {
        Create(nullptr, L"main");
        AfxGetApp()->m_pMainWnd = this;
    }

    ~MainFrame() override
    {
        AfxGetApp()->m_pMainWnd = nullptr;
        DestroyWindow();
    }

    MainFrame(const MainFrame&) = delete;
    MainFrame& operator=(const MainFrame&) = delete;

protected:
    void PostNcDestroy() override {}
};
}

TEST(ScrollFrameScenario, ArrowsScrollByALineAlongTheirAxis)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   const CSize across = ClientSizeOf(dialog.HBar());
                   ClickAtOnce(OnScreen(dialog.HBar(), across.cx - 5, across.cy / 2));
                   EXPECT_EQ(LeftOfContent(dialog), -8);
                   const CSize down = ClientSizeOf(dialog.VBar());
                   ClickAtOnce(OnScreen(dialog.VBar(), down.cx / 2, down.cy - 5));
                   ClickAtOnce(OnScreen(dialog.VBar(), down.cx / 2, down.cy - 5));
                   EXPECT_EQ(TopOfContent(dialog), -16);
                   ClickAtOnce(OnScreen(dialog.VBar(), down.cx / 2, 5));
                   EXPECT_EQ(TopOfContent(dialog), -8);
                   EXPECT_EQ(LeftOfContent(dialog), -8);
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, TheTroughScrollsByAPageUpToTheEnd)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run({},
               [&]
               {
                   SizeFrame(dialog, 300, 330);
                   const CSize page = ClientSizeOf(dialog.m_hWnd);
                   const CSize bar = ClientSizeOf(dialog.VBar());
                   const int arrow = ::GetSystemMetrics(SM_CYVSCROLL);
                   ClickAtOnce(OnScreen(dialog.VBar(), bar.cx / 2, bar.cy - arrow - 3));
                   EXPECT_EQ(TopOfContent(dialog), -std::min<LONG>(page.cy, 443 - page.cy));
                   ClickAtOnce(OnScreen(dialog.VBar(), bar.cx / 2, bar.cy - arrow - 3));
                   EXPECT_EQ(TopOfContent(dialog), -(443 - page.cy));
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, TheThumbIsFollowedWhileItIsDragged)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   const CSize bar = ClientSizeOf(dialog.VBar());
                   const int arrow = ::GetSystemMetrics(SM_CYVSCROLL);
                   const POINT thumb = OnScreen(dialog.VBar(), bar.cx / 2, arrow + 5);
                   DragAtOnce(thumb, {thumb.x, thumb.y + 12});
                   const int position = ::GetScrollPos(dialog.VBar(), SB_CTL);
                   EXPECT_GT(position, 12);
                   EXPECT_EQ(TopOfContent(dialog), -position);
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, KeysScrollOnABarThatHasTheFocus)
{
    MainWindow mainWindow;
    StepDialog dialog;
    LONG page = 0;
    LONG limit = 0;
    LONG down = 0;
    LONG up = 0;
    dialog.Run({}, {[&]
                    {
                        SizeFrame(dialog, 300, 300);
                        ::SetForegroundWindow(dialog.Frame());
                        ::SetFocus(dialog.VBar());
                        page = ClientSizeOf(dialog.m_hWnd).cy;
                        int first = 0;
                        int last = 0;
                        ::GetScrollRange(dialog.VBar(), SB_CTL, &first, &last);
                        limit = last + 1 - page;
                        TypeKey(VK_DOWN);
                    },
                    [&]
                    {
                        EXPECT_EQ(TopOfContent(dialog), -8);
                        TypeKey(VK_NEXT);
                    },
                    [&]
                    {
                        down = (std::min)(8 + page, limit);
                        EXPECT_EQ(TopOfContent(dialog), -down);
                        TypeKey(VK_PRIOR);
                    },
                    [&]
                    {
                        up = (std::max)(down - page, 0L);
                        EXPECT_EQ(TopOfContent(dialog), -up);
                        TypeKey(VK_END); // there is no jump
                    },
                    [&]
                    {
                        EXPECT_EQ(TopOfContent(dialog), -up);
                        EXPECT_EQ(LeftOfContent(dialog), 0);
                        dialog.Close();
                    }});
}

TEST(ScrollFrameScenario, TheFrameIsResizedByItsCornerAndItsPartsFollow)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   SizeFrame(dialog, 400, 400);
                   ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 20),
                                  reinterpret_cast<LPARAM>(dialog.VBar()));
                   CRect before;
                   ::GetWindowRect(dialog.Frame(), &before);
                   DragAtOnce({before.right - 2, before.bottom - 2}, {before.right - 52, before.bottom - 32});
                   CRect after;
                   ::GetWindowRect(dialog.Frame(), &after);
                   EXPECT_EQ(after.Size(), CSize(350, 370));
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.m_hWnd),
                             Edges(10, 10, client.cx - 20, client.cy - 53));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(0)),
                             Edges(client.cx - 80, client.cy - 28, client.cx - 5, client.cy - 5));
                   EXPECT_EQ(TopOfContent(dialog), -20);
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, AFrameThatGrowsScrollsItsContentBack)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run({},
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 1000),
                                  reinterpret_cast<LPARAM>(dialog.VBar()));
                   ::SendMessageW(dialog.View(), WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 1000),
                                  reinterpret_cast<LPARAM>(dialog.HBar()));
                   const CSize page = ClientSizeOf(dialog.m_hWnd);
                   EXPECT_EQ(TopOfContent(dialog), -(443 - page.cy));
                   EXPECT_EQ(LeftOfContent(dialog), -(470 - page.cx));
                   SizeFrame(dialog, 320, 340);
                   EXPECT_EQ(TopOfContent(dialog), -(443 - page.cy - 40));
                   EXPECT_EQ(LeftOfContent(dialog), -(470 - page.cx - 20));
                   SizeFrame(dialog, 700, 700);
                   EXPECT_EQ(TopOfContent(dialog), 0);
                   EXPECT_EQ(LeftOfContent(dialog), 0);
                   EXPECT_FALSE(::IsWindowVisible(dialog.VBar()));
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, TheCloseBoxEndsTheCallWithoutTellingTheDialog)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const INT_PTR result = dialog.Run(dialog.BothButtons(),
                                      [&]
                                      {
                                          POINT box = FindHit(dialog.Frame(), HTCLOSE);
                                          ClickAtOnce({box.x - 3, box.y + 4});
                                          EXPECT_TRUE(::IsWindow(dialog.Frame()));
                                      });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog.log.Lines(), CallLog::LineList());
}

TEST(ScrollFrameScenario, AProxyThatIsDisabledTakesNoClickUntilItIsEnabledAgain)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const INT_PTR result = dialog.Run({{&dialog.ok, 0}, {&dialog.cancel, 9}},
                                      [&]
                                      {
                                          dialog.whenOk = [&] { dialog.cancel.EnableWindow(FALSE); };
                                          const POINT ok = OnScreen(dialog.Proxy(0), 5, 5);
                                          const POINT cancel = OnScreen(dialog.Proxy(1), 5, 5);
                                          ClickAtOnce(ok);
                                          EXPECT_FALSE(::IsWindowEnabled(dialog.Proxy(1)));
                                          ClickAtOnce(cancel);
                                          dialog.whenOk = [&] { dialog.cancel.EnableWindow(TRUE); };
                                          ClickAtOnce(ok);
                                          ClickAtOnce(cancel);
                                      });
    EXPECT_EQ(result, 9);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK", "OK", "Cancel"}));
}

TEST(ScrollFrameScenario, AFrameInAFrameIsOpenedAndClosedByRealClicks)
{
    MainWindow mainWindow;
    StepDialog outer;
    StepDialog inner;
    INT_PTR innerResult = 0;
    inner.place = CRect(60, 60, 460, 460);
    outer.whenOk = [&]
    {
        innerResult = inner.Run(inner.BothButtons(),
                                [&]
                                {
                                    EXPECT_NE(inner.Frame(), outer.Frame());
                                    EXPECT_FALSE(mainWindow.Object()->IsWindowEnabled());
                                    ClickAtOnce(OnScreen(inner.Proxy(1), 5, 5));
                                });
    };
    const INT_PTR result = outer.Run({{&outer.ok, 0}, {&outer.cancel, 33}},
                                     [&]
                                     {
                                         ClickAtOnce(OnScreen(outer.Proxy(0), 5, 5));
                                         EXPECT_EQ(innerResult, IDCANCEL);
                                         EXPECT_EQ(inner.m_hWnd, nullptr);
                                         EXPECT_TRUE(::IsWindow(outer.Frame()));
                                         ClickAtOnce(OnScreen(outer.Proxy(1), 5, 5));
                                     });
    EXPECT_EQ(result, 33);
    EXPECT_EQ(outer.log.Lines(), (CallLog::LineList{"OK", "Cancel"}));
    EXPECT_EQ(inner.log.Lines(), (CallLog::LineList{"Cancel"}));
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

TEST(ScrollFrameScenario, AMainFrameStaysDisabledUntilTheOuterFrameEnds)
{
    MainFrame mainFrame;
    StepDialog outer;
    StepDialog inner;
    outer.Run({},
              [&]
              {
                  EXPECT_TRUE(mainFrame.InModalState());
                  inner.Run({}, [&] { inner.Close(); });
                  EXPECT_TRUE(mainFrame.InModalState());
                  EXPECT_FALSE(mainFrame.IsWindowEnabled());
                  outer.Close();
              });
    EXPECT_FALSE(mainFrame.InModalState());
    EXPECT_TRUE(mainFrame.IsWindowEnabled());
}

TEST(ScrollFrameScenario, ALaidOutDialogKeepsItsDesignedSizeAndItsOffsetWhileItIsTooSmall)
{
    MainWindow mainWindow;
    const WindowDpiAnswer dpi(96);
    LaidOutDialog dialog(96);
    dialog.reapplyOffset = 1;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(0, 0, 450, 380));
                   ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 90),
                                  reinterpret_cast<LPARAM>(dialog.VBar()));
                   ::SendMessageW(dialog.View(), WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60),
                                  reinterpret_cast<LPARAM>(dialog.HBar()));
                   SizeFrame(dialog, 310, 320);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(-60, -90, 390, 290));
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.ok.m_hWnd)[1], 400 - 90);
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, ALaidOutDialogFollowsAFrameLargerThanDesigned)
{
    MainWindow mainWindow;
    const WindowDpiAnswer dpi(96);
    LaidOutDialog dialog(96);
    dialog.reapplyOffset = 1;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   SizeFrame(dialog, 700, 720);
                   const CSize size = ClientSizeOf(dialog.m_hWnd);
                   const LONG more = size.cx - dialog.designed.Width();
                   const LONG lower = size.cy - dialog.designed.Height();
                   ASSERT_GT(more, 0);
                   ASSERT_GT(lower, 0);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd),
                             Edges(0, 0, 450 + more, 380 + lower));
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.ok.m_hWnd),
                             Edges(10 + more, 400 + lower, 85 + more, 423 + lower));
                   EXPECT_EQ(::GetScrollPos(dialog.VBar(), SB_CTL), 0);
                   dialog.Close();
               });
}

TEST(ScrollFrameScenario, ADpiChangeWhileOpenReachesContentProxiesAndMargins)
{
    MainWindow mainWindow;
    auto dpi = std::make_unique<WindowDpiAnswer>(96);
    LaidOutDialog dialog(96);
    dialog.reapplyOffset = 1;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   SizeFrame(dialog, 300, 300);
                   ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100),
                                  reinterpret_cast<LPARAM>(dialog.VBar()));
                   dpi.reset();
                   dpi = std::make_unique<WindowDpiAnswer>(192);
                   const RECT suggested = {20, 20, 420, 420};
                   ::SendMessageW(dialog.Frame(), WM_DPICHANGED, MAKEWPARAM(192, 192),
                                  reinterpret_cast<LPARAM>(&suggested));
                   EXPECT_EQ(ScreenPlaceOf(dialog.Frame()), Edges(suggested));
                   ::SendMessageW(dialog.m_hWnd, WM_DPICHANGED_AFTERPARENT, 0, 0);
                   ::SendMessageW(dialog.Proxy(0), WM_DPICHANGED_AFTERPARENT, 0, 0);
                   EXPECT_EQ(ClientSizeOf(dialog.Proxy(0)), CSize(150, 46));
                   SizeFrame(dialog, 421, 421);
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.m_hWnd),
                             Edges(20, 20, client.cx - 40, client.cy - 40 - 66));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(0)),
                             Edges(client.cx - 160, client.cy - 56, client.cx - 10, client.cy - 10));
                   // In proportion to the range, that of content which was not laid out anew yet: 100 *
                   // 419 / 399.
                   EXPECT_EQ(::GetScrollPos(dialog.VBar(), SB_CTL), 105);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(0, -105, 900, 655));
                   ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0);
               });
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK"}));
}

TEST(ScrollFrameScenario, ADialogThatDestroysItselfLeavesAFrameThatCloses)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.whenOk = [&]
    {
        const HWND frame = dialog.Frame();
        dialog.DestroyWindow();
        ::PostMessageW(frame, WM_CLOSE, 0, 0);
    };
    EXPECT_EQ(dialog.Run({{&dialog.ok, 0}}, [&] { ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0); }),
              IDCANCEL);
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK"}));
}

TEST(ScrollFrameScenario, AFrameInAFrameLeavesNothing)
{
    MainWindow mainWindow;
    EXPECT_NO_LEAK(
        [&]
        {
            StepDialog outer;
            StepDialog inner;
            outer.Run(outer.BothButtons(),
                      [&]
                      {
                          inner.Run(inner.BothButtons(), [&] { inner.Close(); });
                          ::SendMessageW(outer.Proxy(0), BM_CLICK, 0, 0);
                      });
            CWnd::DeleteTempMap();
        });
}
