#include "foundation/LibraryModule.h"
#include "foundation/WindowDpiAnswer.h"
#include "scrollframe/FrameFixtures.h"
#include "scrollframe/InternalClasses.h"
#include "support/HandleCount.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace
{
// What the library calls to place the parts of a view, by the names that a test gives.
class PlacingCalls
{
public:
    explicit PlacingCalls(const StepDialog& dialog)
    {
        m_log.Name(dialog.m_hWnd, "dialog");
        m_log.Name(dialog.View(), "view");
        m_log.Name(dialog.HBar(), "hbar");
        m_log.Name(dialog.VBar(), "vbar");
        for (int i = 0; i < 3; ++i)
        {
            if (dialog.Proxy(i))
                m_log.Name(dialog.Proxy(i), "proxy" + std::to_string(i));
        }
    }

    const CallLog::LineList& Lines() const { return m_log.Lines(); }

private:
    CallLog m_log;
    RecordCalls<decltype(::SetWindowPos)> m_place{m_log, VxDpiModule(), "user32.dll", "SetWindowPos"};
};

// Shows a dialog with its two buttons, gives the view a size and tells the calls that place its parts. A view
// loses 2 pixels of each side to its border.
CallLog::LineList CallsForViewOf(int width, int height, UINT nDpi, bool hasButtons = true)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(nDpi);
    CallLog::LineList lines;
    dialog.Run(
        hasButtons ? dialog.BothButtons() : ButtonList(),
        [&]
        {
            const CSize border(2 * ::GetSystemMetrics(SM_CXBORDER), 2 * ::GetSystemMetrics(SM_CYBORDER));
            const PlacingCalls calls(dialog);
            ::SetWindowPos(dialog.View(), nullptr, 0, 0, width + border.cx, height + border.cy, SWP_NOZORDER);
            EXPECT_EQ(ClientSizeOf(dialog.View()), CSize(width, height));
            lines = calls.Lines();
            dialog.Close();
        });
    return lines;
}

// A device context with a picture to paint on.
class PaintedPicture
{
public:
    PaintedPicture()
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_bitmap.CreateBitmap(kWidth, 4, 1, 32, nullptr);
        m_previous = m_dc.SelectObject(&m_bitmap);
        m_dc.FillSolidRect(0, 0, kWidth, 4, RGB(1, 2, 3));
    }

    ~PaintedPicture() { m_dc.SelectObject(m_previous); }

    PaintedPicture(const PaintedPicture&) = delete;
    PaintedPicture& operator=(const PaintedPicture&) = delete;

    LRESULT EraseWith(HWND hWnd)
    {
        return ::SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(m_dc.m_hDC), 0);
    }

    COLORREF At(int x, int y) const { return ::GetPixel(m_dc.m_hDC, x, y); }

    static constexpr int kWidth = 600;

private:
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_previous;
};

// What the bars are told, by the handle of the bar.
struct BarStates
{
    std::map<HWND, SCROLLINFO> last;
    ImportSpy<decltype(::SetScrollInfo)> set{FrameworkModule(), "user32.dll", "SetScrollInfo",
                                             [this](HWND hBar, int nBar, LPCSCROLLINFO pInfo, BOOL bRedraw)
                                             {
                                                 EXPECT_EQ(nBar, SB_CTL);
                                                 last[hBar] = *pInfo;
                                                 return set.Original()(hBar, nBar, pInfo, bRedraw);
                                             }};
};

// What the windows' own procedures would do with one message: it is written down and answered.
class DefaultAnswer : public ImportSpy<decltype(::CallWindowProcW)>
{
public:
    DefaultAnswer(CallLog& log, UINT message, LRESULT answer)
        : ImportSpy(
              FrameworkModule(), "user32.dll", "CallWindowProcW",
              [=, &log](WNDPROC pProcedure, HWND hWnd, UINT received, WPARAM wParam, LPARAM lParam) -> LRESULT
              {
                  if (received != message)
                      return Original()(pProcedure, hWnd, received, wParam, lParam);
                  log.WriteCall("default", hWnd);
                  return answer;
              })
    {
    }
};

// How often the library scrolls the dialog by an update that changes nothing.
CallLog::LineList ScrollsOfAnUpdate(int reapplyOffset)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.reapplyOffset = reapplyOffset;
    const WindowDpiAnswer dpi(96);
    CallLog log;
    dialog.Run(
        {},
        [&]
        {
            ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 300, SWP_NOZORDER | SWP_NOMOVE);
            ::SendMessageW(dialog.View(), WM_HSCROLL, SB_LINERIGHT, reinterpret_cast<LPARAM>(dialog.HBar()));
            ::SendMessageW(dialog.View(), WM_VSCROLL, SB_PAGEDOWN, reinterpret_cast<LPARAM>(dialog.VBar()));
            ::SendMessageW(dialog.View(), WM_VSCROLL, SB_LINEUP, reinterpret_cast<LPARAM>(dialog.VBar()));
            log.Name(dialog.m_hWnd, "dialog");
            const RecordCalls<decltype(::ScrollWindow)> scroll(log, VxDpiModule(), "user32.dll",
                                                               "ScrollWindow");
            ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
            dialog.Close();
        });
    return log.Lines();
}
}

TEST(ScrollFrameView, PartsArePlacedInOrderProxiesFirstAt96Dpi)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 96), (CallLog::LineList{
                                                "SetWindowPos(proxy0, null, 320, 272, 75, 23, 4)",
                                                "SetWindowPos(proxy1, null, 240, 272, 75, 23, 4)",
                                                "SetWindowPos(dialog, null, 10, 10, 370, 237, 4)",
                                                "SetWindowPos(hbar, null, 10, 247, 370, 20, 4)",
                                                "SetWindowPos(vbar, null, 380, 10, 20, 237, 4)",
                                            }));
}

TEST(ScrollFrameView, PartsArePlacedAt120Dpi)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 120), (CallLog::LineList{
                                                 "SetWindowPos(proxy0, null, 319, 271, 75, 23, 4)",
                                                 "SetWindowPos(proxy1, null, 238, 271, 75, 23, 4)",
                                                 "SetWindowPos(dialog, null, 13, 13, 362, 227, 4)",
                                                 "SetWindowPos(hbar, null, 13, 240, 362, 25, 4)",
                                                 "SetWindowPos(vbar, null, 375, 13, 25, 227, 4)",
                                             }));
}

TEST(ScrollFrameView, PartsArePlacedAt144Dpi)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 144), (CallLog::LineList{
                                                 "SetWindowPos(proxy0, null, 317, 269, 75, 23, 4)",
                                                 "SetWindowPos(proxy1, null, 234, 269, 75, 23, 4)",
                                                 "SetWindowPos(dialog, null, 15, 15, 355, 216, 4)",
                                                 "SetWindowPos(hbar, null, 15, 231, 355, 30, 4)",
                                                 "SetWindowPos(vbar, null, 370, 15, 30, 216, 4)",
                                             }));
}

TEST(ScrollFrameView, PartsArePlacedAt192Dpi)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 192), (CallLog::LineList{
                                                 "SetWindowPos(proxy0, null, 315, 267, 75, 23, 4)",
                                                 "SetWindowPos(proxy1, null, 230, 267, 75, 23, 4)",
                                                 "SetWindowPos(dialog, null, 20, 20, 340, 197, 4)",
                                                 "SetWindowPos(hbar, null, 20, 217, 340, 40, 4)",
                                                 "SetWindowPos(vbar, null, 360, 20, 40, 197, 4)",
                                             }));
}

// 5 * 101 / 96 = 5.26, 10 * 101 / 96 = 10.52, 20 * 101 / 96 = 21.04.
TEST(ScrollFrameView, LengthsAreRoundedAtAnOddDpi)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 101), (CallLog::LineList{
                                                 "SetWindowPos(proxy0, null, 320, 272, 75, 23, 4)",
                                                 "SetWindowPos(proxy1, null, 240, 272, 75, 23, 4)",
                                                 "SetWindowPos(dialog, null, 11, 11, 368, 235, 4)",
                                                 "SetWindowPos(hbar, null, 11, 246, 368, 21, 4)",
                                                 "SetWindowPos(vbar, null, 379, 11, 21, 235, 4)",
                                             }));
}

TEST(ScrollFrameView, ADpiOfZeroLeavesNoMargins)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 0), (CallLog::LineList{
                                               "SetWindowPos(proxy0, null, 325, 277, 75, 23, 4)",
                                               "SetWindowPos(proxy1, null, 250, 277, 75, 23, 4)",
                                               "SetWindowPos(dialog, null, 0, 0, 400, 277, 4)",
                                               "SetWindowPos(hbar, null, 0, 277, 400, 0, 4)",
                                               "SetWindowPos(vbar, null, 400, 0, 0, 277, 4)",
                                           }));
}

TEST(ScrollFrameView, LengthsOfTheLargestDpiAreWorkedOut)
{
    EXPECT_EQ(CallsForViewOf(400, 300, 0x7FFFFFFF, false),
              (CallLog::LineList{
                  "SetWindowPos(dialog, null, 223696213, 223696213, -671088239, -671088339, 4)",
                  "SetWindowPos(hbar, null, 223696213, -447392126, -671088239, 447392426, 4)",
                  "SetWindowPos(vbar, null, -447392026, 223696213, 447392426, -671088339, 4)",
              }));
}

TEST(ScrollFrameView, AViewThatIsTooSmallHasPartsOfNegativeSize)
{
    EXPECT_EQ(CallsForViewOf(20, 40, 96), (CallLog::LineList{
                                              "SetWindowPos(proxy0, null, -60, 12, 75, 23, 4)",
                                              "SetWindowPos(proxy1, null, -140, 12, 75, 23, 4)",
                                              "SetWindowPos(dialog, null, 10, 10, -10, -23, 4)",
                                              "SetWindowPos(hbar, null, 10, -13, -10, 20, 4)",
                                              "SetWindowPos(vbar, null, 0, 10, 20, -23, 4)",
                                          }));
}

TEST(ScrollFrameView, ANewSizeIsHandledByDefaultAndThenThePartsArePlaced)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run({},
               [&]
               {
                   CallLog log;
                   log.Name(dialog.m_hWnd, "dialog");
                   log.Name(dialog.View(), "view");
                   const ImportSpy<decltype(::SetWindowPos)> place(
                       VxDpiModule(), "user32.dll", "SetWindowPos",
                       [&](HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
                       {
                           if (hWnd == dialog.m_hWnd)
                               log.WriteCall("SetWindowPos", hWnd);
                           return place.Original()(hWnd, hAfter, x, y, cx, cy, flags);
                       });
                   const DefaultAnswer byDefault(log, WM_SIZE, 0);
                   ::SendMessageW(dialog.View(), WM_SIZE, SIZE_RESTORED, 0);
                   EXPECT_EQ(log.Lines(), (CallLog::LineList{"default(view)", "SetWindowPos(dialog)"}));
                   dialog.Close();
               });
}

TEST(ScrollFrameView, ANewSizeIsHandledByDefaultWithoutADialog)
{
    ViewAlone view;
    CallLog log;
    log.Name(view.Handle(), "view");
    const DefaultAnswer byDefault(log, WM_SIZE, 0);
    ::SendMessageW(view.Handle(), WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"default(view)"}));
}

TEST(ScrollFrameView, TheDpiIsTheViewsForItsPartsAndTheDialogsForItsContent)
{
    MainWindow mainWindow;
    StepDialog dialog;
    CallLog log;
    const ImportSpy<decltype(::GetDpiForWindow)> dpi(VxDpiModule(), "user32.dll", "GetDpiForWindow",
                                                     [&](HWND hWnd)
                                                     {
                                                         log.WriteCall("GetDpiForWindow", hWnd);
                                                         return hWnd == dialog.View() ? 144u : 96u;
                                                     });
    dialog.Run({},
               [&]
               {
                   log.Name(dialog.m_hWnd, "dialog");
                   log.Name(dialog.View(), "view");
                   log.Clear();
                   const BarStates bars;
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 400, 300, SWP_NOZORDER | SWP_NOMOVE);
                   EXPECT_EQ(log.Lines(), (CallLog::LineList{"GetDpiForWindow(view)", "GetDpiForWindow(view)",
                                                             "GetDpiForWindow(dialog)"}));
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.m_hWnd),
                             Edges(15, 15, client.cx - 30, client.cy - 30));
                   EXPECT_EQ(bars.last.at(dialog.HBar()).nMax, 450 + 20 - 1);
                   EXPECT_EQ(bars.last.at(dialog.VBar()).nMax, 423 + 20 - 1);
                   dialog.Close();
               });
}

TEST(ScrollFrameView, BarsHaveTheContentAsRangeAndTheDialogAsPage)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   const BarStates bars;
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 280, SWP_NOZORDER | SWP_NOMOVE);
                   const CSize page = ClientSizeOf(dialog.m_hWnd);
                   const SCROLLINFO& horizontal = bars.last.at(dialog.HBar());
                   const SCROLLINFO& vertical = bars.last.at(dialog.VBar());
                   EXPECT_EQ(horizontal.nPage, static_cast<UINT>(page.cx));
                   EXPECT_EQ(vertical.nPage, static_cast<UINT>(page.cy));
                   EXPECT_EQ(horizontal.nMax, 469);
                   EXPECT_EQ(vertical.nMax, 399); // the buttons are hidden and don't count
                   EXPECT_TRUE(::IsWindowVisible(dialog.HBar()));
                   EXPECT_TRUE(::IsWindowVisible(dialog.VBar()));
                   dialog.Close();
               });
}

TEST(ScrollFrameView, ABarThatIsNotNeededIsHiddenAndItsSpaceIsKept)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.place = CRect(0, 0, 700, 700);
    const WindowDpiAnswer dpi(96);
    dialog.Run({},
               [&]
               {
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 700, 300, SWP_NOZORDER | SWP_NOMOVE);
                   EXPECT_FALSE(::IsWindowVisible(dialog.HBar()));
                   EXPECT_TRUE(::IsWindowVisible(dialog.VBar()));
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.m_hWnd),
                             Edges(10, 10, client.cx - 20, client.cy - 20));
                   dialog.Close();
               });
}

TEST(ScrollFrameView, EachScrollMessageMovesItsOwnAxis)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(
        {},
        [&]
        {
            ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 300, SWP_NOZORDER | SWP_NOMOVE);
            ::SendMessageW(dialog.View(), WM_HSCROLL, SB_LINERIGHT, reinterpret_cast<LPARAM>(dialog.HBar()));
            EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(-8, 0, 442, 380));
            ::SendMessageW(dialog.View(), WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(dialog.VBar()));
            ::SendMessageW(dialog.View(), WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 50),
                           reinterpret_cast<LPARAM>(dialog.VBar()));
            EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(-8, -50, 442, 330));
            ::SendMessageW(dialog.View(), WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30),
                           reinterpret_cast<LPARAM>(dialog.HBar()));
            EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(-30, -50, 420, 330));
            EXPECT_EQ(::GetScrollPos(dialog.HBar(), SB_CTL), 30);
            EXPECT_EQ(::GetScrollPos(dialog.VBar(), SB_CTL), 50);
            dialog.Close();
        });
}

TEST(ScrollFrameView, AScrollMessageWithoutABarMovesNothing)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 300, SWP_NOZORDER | SWP_NOMOVE);
                   ::SendMessageW(dialog.View(), WM_HSCROLL, SB_LINERIGHT, 0);
                   ::SendMessageW(dialog.View(), WM_VSCROLL, SB_LINEDOWN, 0);
                   EXPECT_EQ(PlaceIn(dialog.m_hWnd, dialog.content.m_hWnd), Edges(0, 0, 450, 380));
                   dialog.Close();
               });
}

// Scrolled by 8 to the right and by a page less 8 down.
TEST(ScrollFrameView, OnlyAnOffsetThatIsToBeReappliedIsScrolledAgainByAnUpdate)
{
    const CallLog::LineList again = ScrollsOfAnUpdate(1);
    ASSERT_EQ(again.size(), 2u);
    EXPECT_EQ(again[0], "ScrollWindow(dialog, -8, 0, null, null)");
    EXPECT_EQ(again[1].find("ScrollWindow(dialog, 0, -"), 0u);
    EXPECT_EQ(ScrollsOfAnUpdate(0), CallLog::LineList());
    EXPECT_EQ(ScrollsOfAnUpdate(2), CallLog::LineList());
}

TEST(ScrollFrameView, AProxyWithoutAWindowHasNoPlace)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   ::DestroyWindow(dialog.Proxy(0));
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(1)),
                             Edges(client.cx - 80, client.cy - 28, client.cx - 5, client.cy - 5));
                   dialog.Close();
               });
}

TEST(ScrollFrameView, AProxyWhoseButtonIsGoneTakesOnlyItsGaps)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   dialog.ok.DestroyWindow();
                   dialog.cancel.MoveWindow(0, 0, 40, 0);
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(0)),
                             Edges(client.cx - 5, client.cy - 5, client.cx - 5, client.cy - 5));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(1)),
                             Edges(client.cx - 50, client.cy - 5, client.cx - 10, client.cy - 5));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.HBar())[3], client.cy - 10);
                   dialog.Close();
               });
}

TEST(ScrollFrameView, TheHighestButtonMakesTheBand)
{
    MainWindow mainWindow;
    StepDialog dialog;
    const WindowDpiAnswer dpi(96);
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   dialog.ok.MoveWindow(0, 0, 60, 40);
                   ::SendMessageW(dialog.View(), WM_SIZE, 0, 0);
                   const CSize client = ClientSizeOf(dialog.View());
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(0)),
                             Edges(client.cx - 65, client.cy - 45, client.cx - 5, client.cy - 5));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.Proxy(1)),
                             Edges(client.cx - 145, client.cy - 28, client.cx - 70, client.cy - 5));
                   EXPECT_EQ(PlaceIn(dialog.View(), dialog.HBar())[3], client.cy - 50);
                   dialog.Close();
               });
}

TEST(ScrollFrameView, WithoutTheDialogNothingIsPlaced)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   const HWND view = dialog.View();
                   const HWND frame = dialog.Frame();
                   const PlacingCalls calls(dialog);
                   dialog.DestroyWindow();
                   ::SetWindowPos(frame, nullptr, 0, 0, 300, 300, SWP_NOZORDER | SWP_NOMOVE);
                   ::SendMessageW(view, WM_SIZE, 0, 0);
                   EXPECT_EQ(calls.Lines(), CallLog::LineList());
                   ::SendMessageW(frame, WM_CLOSE, 0, 0);
               });
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(ScrollFrameView, TheBackgroundIsTheColorOfButtonsWithinTheClientArea)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   ::SetWindowPos(dialog.Frame(), nullptr, 0, 0, 300, 300, SWP_NOZORDER | SWP_NOMOVE);
                   const int width = ClientSizeOf(dialog.View()).cx;
                   ASSERT_LT(width, PaintedPicture::kWidth);
                   PaintedPicture picture;
                   EXPECT_EQ(picture.EraseWith(dialog.View()), 1);
                   EXPECT_EQ(picture.At(0, 0), ::GetSysColor(COLOR_BTNFACE));
                   EXPECT_EQ(picture.At(width - 1, 3), ::GetSysColor(COLOR_BTNFACE));
                   EXPECT_EQ(picture.At(width, 0), RGB(1, 2, 3));
                   dialog.Close();
               });
}

TEST(ScrollFrameView, NothingIsDrawnOverTheBackground)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   const HWND view = dialog.View();
                   ::RedrawWindow(view, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
                   const HDC hdc = ::GetDC(view);
                   for (const int i : {0, 2, 5})
                       EXPECT_EQ(::GetPixel(hdc, i, i), ::GetSysColor(COLOR_BTNFACE)) << i;
                   ::ReleaseDC(view, hdc);
                   dialog.Close();
               });
}

TEST(ScrollFrameView, AViewWithABrushErasesItselfWhereThereIsADeviceContext)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   CallLog log;
                   const DefaultAnswer byDefault(log, WM_ERASEBKGND, 77);
                   PaintedPicture picture;
                   EXPECT_EQ(picture.EraseWith(dialog.View()), 1);
                   EXPECT_EQ(::SendMessageW(dialog.View(), WM_ERASEBKGND, 0, 0), 0);
                   EXPECT_EQ(log.Lines(), CallLog::LineList());
                   dialog.Close();
               });
}

TEST(ScrollFrameView, AViewWithoutABrushIsErasedByDefaultWhereThereIsADeviceContext)
{
    ViewAlone view;
    CallLog log;
    log.Name(view.Handle(), "view");
    const DefaultAnswer byDefault(log, WM_ERASEBKGND, 77);
    EXPECT_EQ(::SendMessageW(view.Handle(), WM_ERASEBKGND, 0, 0), 0);
    EXPECT_EQ(log.Lines(), CallLog::LineList());
    PaintedPicture picture;
    EXPECT_EQ(picture.EraseWith(view.Handle()), 77);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"default(view)"}));
    EXPECT_EQ(picture.At(1, 1), RGB(1, 2, 3));
}

TEST(ScrollFrameView, TheSystemsBrushOutlivesTheFrame)
{
    const InternalClasses shownOnce;
    ASSERT_NE(shownOnce.pView, nullptr);
    LOGBRUSH brush = {};
    EXPECT_NE(::GetObjectW(::GetSysColorBrush(COLOR_BTNFACE), sizeof brush, &brush), 0);
    EXPECT_EQ(brush.lbColor, ::GetSysColor(COLOR_BTNFACE));
}

TEST(ScrollFrameClasses, HaveTheirNamesAndBases)
{
    const InternalClasses classes;
    EXPECT_STREQ(classes.pFrame->m_lpszClassName, "CScrollLabelFrame");
    EXPECT_STREQ(classes.pView->m_lpszClassName, "CScrollLabelView");
    EXPECT_TRUE(classes.pFrame->IsDerivedFrom(RUNTIME_CLASS(CFrameWnd)));
    EXPECT_TRUE(classes.pView->IsDerivedFrom(RUNTIME_CLASS(CView)));
}

TEST(ScrollFrameClasses, AFrameThatIsNotModalClosesLikeAnyOtherAndIsNotDeleted)
{
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    CFrameWnd* const pFrame = DYNAMIC_DOWNCAST(CFrameWnd, object.get());
    ASSERT_NE(pFrame, nullptr);
    EXPECT_EQ(pFrame->m_hWnd, nullptr);
    ASSERT_TRUE(pFrame->Create(nullptr, L"frame"));
    const HWND hWnd = pFrame->m_hWnd;
    ::SendMessageW(hWnd, WM_CLOSE, 0, 0);
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(pFrame->m_hWnd, nullptr);
}

TEST(ScrollFrameClasses, AFrameWithoutAWindowHasNoModalLoop)
{
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    EXPECT_EQ(static_cast<FrameFunctions*>(object.get())->DoModal(), 0);
}

TEST(ScrollFrameClasses, AFrameIsModalOnlyWhileItsLoopRuns)
{
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    auto* const pFrame = static_cast<FrameFunctions*>(object.get());
    ASSERT_TRUE(pFrame->Create(nullptr, L"frame"));
    const HWND hWnd = pFrame->m_hWnd;
    for (int round = 0; round < 2; ++round)
    {
        ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
        EXPECT_EQ(pFrame->DoModal(), IDCANCEL);
        EXPECT_TRUE(::IsWindow(hWnd));
    }
    ::SendMessageW(hWnd, WM_CLOSE, 0, 0);
    EXPECT_FALSE(::IsWindow(hWnd));
}

TEST(ScrollFrameClasses, AViewWithoutABrushIsErasedLikeAnyOther)
{
    const std::unique_ptr<CObject> object(InternalClasses().pView->CreateObject());
    CWnd* const pView = DYNAMIC_DOWNCAST(CWnd, object.get());
    ASSERT_NE(pView, nullptr);
    TestWindow parent;
    CWnd parentObject;
    parentObject.Attach(parent.Handle());
    ASSERT_TRUE(pView->Create(nullptr, nullptr, WS_CHILD, CRect(0, 0, 50, 50), &parentObject, 1));
    PaintedPicture picture;
    EXPECT_NE(picture.EraseWith(pView->m_hWnd), 0);
    EXPECT_EQ(picture.At(1, 1), ::GetSysColor(COLOR_WINDOW));           // the background of the window class
    ::SetWindowPos(pView->m_hWnd, nullptr, 0, 0, 20, 20, SWP_NOZORDER); // nothing to place
    const HWND hWnd = pView->m_hWnd;
    pView->DestroyWindow();
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(pView->m_hWnd, nullptr);
    parentObject.Detach();
}

TEST(ScrollFrameClasses, TheirObjectsLeaveNothing)
{
    const InternalClasses classes;
    EXPECT_NO_LEAK(
        [&]
        {
            for (int i = 0; i < 30; ++i)
            {
                const std::unique_ptr<CObject> frame(classes.pFrame->CreateObject());
                const std::unique_ptr<CObject> view(classes.pView->CreateObject());
            }
        });
}

TEST(ScrollFrameWindow, ADpiChangeIsHandledByDefaultFirstAndThenMovesTheFrame)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(
        {},
        [&]
        {
            const HWND frame = dialog.Frame();
            CallLog log;
            log.Name(frame, "frame");
            const ImportSpy<decltype(::CallWindowProcW)> byDefault(
                FrameworkModule(), "user32.dll", "CallWindowProcW",
                [&](WNDPROC pProcedure, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT
                {
                    if (message != WM_DPICHANGED)
                        return byDefault.Original()(pProcedure, hWnd, message, wParam, lParam);
                    log.WriteCall("default", hWnd, wParam, lParam != 0);
                    return 77;
                });
            const ImportSpy<decltype(::SetWindowPos)> move(
                FrameworkModule(), "user32.dll", "SetWindowPos",
                [&](HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
                {
                    if (hWnd == frame)
                        log.WriteCall("SetWindowPos", hWnd, hAfter, x, y, cx, cy, flags);
                    return move.Original()(hWnd, hAfter, x, y, cx, cy, flags);
                });
            const RECT suggested = {61, 72, 463, 374};
            EXPECT_EQ(::SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(120, 120),
                                     reinterpret_cast<LPARAM>(&suggested)),
                      77);
            EXPECT_EQ(::SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(96, 96), 0), 77);
            EXPECT_EQ(log.Lines(), (CallLog::LineList{"default(frame, 7864440, 1)",
                                                      "SetWindowPos(frame, null, 61, 72, 402, 302, 20)",
                                                      "default(frame, 6291552, 0)"}));
            dialog.Close();
        });
}

TEST(ScrollFrameWindow, AFrameThatIsGoneAfterADpiChangeIsNotMoved)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(
        {},
        [&]
        {
            const HWND frame = dialog.Frame();
            const ImportSpy<decltype(::CallWindowProcW)> byDefault(
                FrameworkModule(), "user32.dll", "CallWindowProcW",
                [&](WNDPROC pProcedure, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
                {
                    if (message == WM_DPICHANGED)
                        ::DestroyWindow(frame);
                    return byDefault.Original()(pProcedure, hWnd, message, wParam, lParam);
                });
            const ImportSpy<decltype(::SetWindowPos)> move(FrameworkModule(), "user32.dll", "SetWindowPos");
            ::PostMessageW(mainWindow.Handle(), WM_NULL, 0, 0);
            const RECT suggested = {61, 72, 463, 374};
            ::SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&suggested));
            EXPECT_FALSE(::IsWindow(frame));
            EXPECT_EQ(move.CallCount(), 0);
        });
}

TEST(ScrollFrameWindow, TheLoopEndsWhenTheThreadIsToQuit)
{
    MainWindow mainWindow;
    StepDialog dialog;
    EXPECT_EQ(dialog.Run(dialog.BothButtons(), [] { ::PostQuitMessage(5); }), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
    MSG message = {};
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)); // the outer loops end, too
}

TEST(ScrollFrameWindow, AFrameWhoseWindowIsDestroyedFromOutsideEndsItsLoop)
{
    MainWindow mainWindow;
    StepDialog dialog;
    HWND frame = nullptr;
    HWND view = nullptr;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   frame = dialog.Frame();
                   view = dialog.View();
                   ::PostMessageW(mainWindow.Handle(), WM_NULL, 0, 0);
                   CWnd* const pFrame = CWnd::FromHandlePermanent(frame);
                   ASSERT_NE(pFrame, nullptr);
                   EXPECT_TRUE(pFrame->ContinueModal());
                   ::DestroyWindow(frame);
                   EXPECT_FALSE(pFrame->ContinueModal()); // the object goes with the loop
               });
    EXPECT_FALSE(::IsWindow(frame));
    EXPECT_FALSE(::IsWindow(view));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(mainWindow.Object()->IsWindowEnabled());
}

TEST(ScrollFrameWindow, AnyEndCodeButZeroIsTheResult)
{
    for (const int endCode : {1, 2, -1, 10011, 0x7FFFFFFF, static_cast<int>(0x80000000)})
    {
        MainWindow mainWindow;
        StepDialog dialog;
        EXPECT_EQ(
            dialog.Run({{&dialog.cancel, endCode}}, [&] { ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0); }),
            endCode);
    }
}

TEST(ScrollFrameWindow, TheRealButtonsKeepPointingAtWhatIsGone)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run(dialog.BothButtons(), [&] { dialog.Close(); });
    EXPECT_NE(dialog.ok.SetProxyButton(nullptr), nullptr);
    EXPECT_NE(dialog.cancel.SetProxyButton(nullptr), nullptr);
    EXPECT_EQ(dialog.ok.m_hWnd, nullptr);
}

TEST(ScrollFrameWindow, ADialogObjectCanBeShownAgain)
{
    MainWindow mainWindow;
    StepDialog dialog;
    for (int round = 1; round <= 3; ++round)
    {
        EXPECT_EQ(dialog.Run({{&dialog.ok, round}}, [&] { ::SendMessageW(dialog.Proxy(0), BM_CLICK, 0, 0); }),
                  round);
    }
    EXPECT_EQ(dialog.log.Lines(), (CallLog::LineList{"OK", "OK", "OK"}));
}
