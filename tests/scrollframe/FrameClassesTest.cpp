#include "foundation/LibraryModule.h"
#include "scrollframe/FrameFixtures.h"
#include "scrollframe/InternalClasses.h"

#include <afxpriv.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace
{
class ScrollFrameTables : public testing::Test
{
protected:
    void SetUp() override
    {
#if !defined(__MINGW32__)
        GTEST_SKIP() << "the tables of another compiler and another framework are their own affair";
#endif
    }

    CallLog m_log;
};
}

#if defined(__MINGW32__)
TEST_F(ScrollFrameTables, TheFramesMapHasTheseEntriesAndNoOthers)
{
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    EXPECT_EQ(MessageMapOf(*static_cast<FrameFunctions*>(object.get())),
              (EntryList{{0x0010, 0}, {0x02E0, 0}}));
}

TEST_F(ScrollFrameTables, TheViewsMapHasTheseEntriesAndNoOthers)
{
    const std::unique_ptr<CObject> object(InternalClasses().pView->CreateObject());
    EXPECT_EQ(MessageMapOf(*static_cast<ViewFunctions*>(object.get())),
              (EntryList{{0x0005, 0}, {0x0114, 0}, {0x0115, 0}, {0x0014, 0}}));
}

TEST_F(ScrollFrameTables, TheProxysMapHasTheseEntriesAndNoOthers)
{
    MainWindow mainWindow;
    StepDialog dialog;
    EntryList entries;
    dialog.Run(dialog.BothButtons(),
               [&]
               {
                   entries = MessageMapOf(*CWnd::FromHandlePermanent(dialog.Proxy(0)));
                   dialog.Close();
               });
    EXPECT_EQ(entries, (EntryList{{0x02E3, 0}, {0xBD11, BN_CLICKED}}));
}

TEST_F(ScrollFrameTables, MessagesOfAFrameAreHandledByItsVirtualFunctions)
{
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    auto* const pFrame = static_cast<FrameFunctions*>(object.get());
    ASSERT_TRUE(pFrame->Create(nullptr, L"frame"));
    const RECT suggested = {60, 70, 460, 370};
    m_log.Name(pFrame, "frame");
    m_log.Name(&suggested, "suggested");
    const VirtualFunctionSpy<int(CObject*)> modal(pFrame, &FrameFunctions::DoModal,
                                                  [&](CObject* pObject)
                                                  {
                                                      m_log.WriteCall("DoModal", pObject);
                                                      return 5;
                                                  });
    const VirtualFunctionSpy<void(CObject*)> close(
        pFrame, &FrameFunctions::OnClose, [&](CObject* pObject) { m_log.WriteCall("OnClose", pObject); });
    const VirtualFunctionSpy<LRESULT(CObject*, WPARAM, LPARAM)> dpi(
        pFrame, &FrameFunctions::OnDpiChanged,
        [&](CObject* pObject, WPARAM wParam, LPARAM lParam) -> LRESULT
        {
            m_log.WriteCall("OnDpiChanged", pObject, wParam, reinterpret_cast<const void*>(lParam));
            return 6;
        });
    EXPECT_EQ(pFrame->DoModal(), 5);
    EXPECT_EQ(pFrame->SendMessage(WM_CLOSE), 0);
    EXPECT_EQ(pFrame->SendMessage(WM_DPICHANGED, 11, reinterpret_cast<LPARAM>(&suggested)), 6);
    EXPECT_EQ(m_log.Lines(),
              (CallLog::LineList{"DoModal(frame)", "OnClose(frame)", "OnDpiChanged(frame, 11, suggested)"}));
}

TEST_F(ScrollFrameTables, SizeAndBackgroundOfAViewAreHandledByItsVirtualFunctions)
{
    ViewAlone view;
    const TestWindow anyWindow;
    const CClientDC dc(CWnd::FromHandle(anyWindow.Handle()));
    m_log.Name(view.Object(), "view");
    m_log.Name(&dc, "dc");
    const VirtualFunctionSpy<BOOL(CObject*, CDC*)> erase(view.Object(), &ViewFunctions::OnEraseBkgnd,
                                                         [&](CObject* pObject, CDC* pDC)
                                                         {
                                                             m_log.WriteCall("OnEraseBkgnd", pObject, pDC);
                                                             return 5;
                                                         });
    const VirtualFunctionSpy<void(CObject*, UINT, int, int)> size(
        view.Object(), &ViewFunctions::OnSize,
        [&](CObject* pObject, UINT nType, int cx, int cy)
        { m_log.WriteCall("OnSize", pObject, nType, cx, cy); });
    EXPECT_EQ(view.Object()->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC)), 5);
    view.Object()->SendMessage(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(30, 40));
    EXPECT_EQ(m_log.Lines(), (CallLog::LineList{"OnEraseBkgnd(view, dc)", "OnSize(view, 2, 30, 40)"}));
}

TEST_F(ScrollFrameTables, ScrollMessagesOfAViewAreHandledByItsVirtualFunctions)
{
    using ScrollSpy = VirtualFunctionSpy<void(CObject*, UINT, UINT, CScrollBar*)>;
    ViewAlone view;
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD, CRect(0, 0, 20, 20), view.Object(), 2));
    m_log.Name(view.Object(), "view");
    m_log.Name(&bar, "bar");
    const ScrollSpy across(view.Object(), &ViewFunctions::OnHScroll,
                           [&](CObject* pObject, UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
                           { m_log.WriteCall("OnHScroll", pObject, nSBCode, nPos, pScrollBar); });
    const ScrollSpy down(view.Object(), &ViewFunctions::OnVScroll,
                         [&](CObject* pObject, UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
                         { m_log.WriteCall("OnVScroll", pObject, nSBCode, nPos, pScrollBar); });
    const auto lParam = reinterpret_cast<LPARAM>(bar.m_hWnd);
    view.Object()->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 50), lParam);
    view.Object()->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 60), lParam);
    EXPECT_EQ(m_log.Lines(),
              (CallLog::LineList{"OnHScroll(view, 5, 50, bar)", "OnVScroll(view, 1, 60, bar)"}));
}

TEST_F(ScrollFrameTables, MessagesOfAProxyAreHandledByItsVirtualFunctions)
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({{&dialog.ok, 7}},
               [&]
               {
                   CWnd* const pProxy = CWnd::FromHandlePermanent(dialog.Proxy(0));
                   m_log.Name(pProxy, "proxy");
                   {
                       const VirtualFunctionSpy<LRESULT(CObject*, WPARAM, LPARAM)> dpi(
                           pProxy, &ProxyFunctions::OnDPIChangedAfterParent,
                           [&](CObject* pObject, WPARAM wParam, LPARAM lParam) -> LRESULT
                           {
                               m_log.WriteCall("OnDPIChangedAfterParent", pObject, wParam, lParam);
                               return 6;
                           });
                       const VirtualFunctionSpy<void(CObject*)> click(
                           pProxy, &ProxyFunctions::OnClicked,
                           [&](CObject* pObject) { m_log.WriteCall("OnClicked", pObject); });
                       EXPECT_EQ(pProxy->SendMessage(WM_DPICHANGED_AFTERPARENT, 11, 22), 6);
                       pProxy->SendMessage(BM_CLICK);
                   }
                   dialog.Close();
               });
    EXPECT_EQ(m_log.Lines(),
              (CallLog::LineList{"OnDPIChangedAfterParent(proxy, 11, 22)", "OnClicked(proxy)"}));
}
#endif

TEST(ScrollFrameLoop, ShowsNothingAndTellsFrameAndOwnerWhenItIsIdle)
{
    constexpr UINT kLongEnough = 2000; // milliseconds
    FrameworkWindow owner;
    const std::unique_ptr<CObject> object(InternalClasses().pFrame->CreateObject());
    auto* const pFrame = static_cast<FrameFunctions*>(object.get());
    ASSERT_TRUE(pFrame->Create(nullptr, L"frame", WS_POPUP, CRect(0, 0, 200, 100), owner.Object()));
    const HWND hFrame = pFrame->m_hWnd;
    CallLog log;
    log.Name(hFrame, "frame");
    owner.Window().OnMessage(
        [&](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT>
        {
            if (message == WM_ENTERIDLE)
                log.WriteCall("owner", wParam, reinterpret_cast<const void*>(lParam));
            return std::nullopt;
        });
    const ImportSpy<decltype(::CallWindowProcW)> byDefault(
        FrameworkModule(), "user32.dll", "CallWindowProcW",
        [&](WNDPROC pProcedure, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (hWnd == hFrame && message == WM_KICKIDLE)
                log.WriteCall("frame", wParam, lParam);
            if (hWnd == hFrame && (message == WM_KICKIDLE || message == WM_TIMER))
                ::PostMessageW(hFrame, WM_CLOSE, 0, 0);
            return byDefault.Original()(pProcedure, hWnd, message, wParam, lParam);
        });
    ::SetTimer(hFrame, 1, kLongEnough, nullptr);
    EXPECT_EQ(pFrame->DoModal(), IDCANCEL);
    EXPECT_FALSE(::IsWindowVisible(hFrame));
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"owner(0, frame)", "frame(0, 0)"}));
}
