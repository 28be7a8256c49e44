#include "foundation/CallSequence.h"
#include "foundation/FakeMonitors.h"
#include "foundation/FrameworkWindow.h"
#include "foundation/WindowDpiAnswer.h"
#include "support/ImportSpy.h"
#include "support/Pixels.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/GdiPlus.h>
#include <vxdpi/Geometry.h>

#include <optional>

namespace
{
const CallNames kDpiQuery = {"IsWindow", "GetDpiForWindow"};

// A window whose place is restored, with two monitors to see it on.
class RestoredWindow
{
public:
    CallNames Restore(CRect saved, CRect reference)
    {
        return CallsOf([&] { RestoreWindowPositionSafe(m_window.Object(), saved, reference); });
    }

private:
    FrameworkWindow m_window;
    CallLog m_log;
    FakeMonitors m_monitors{m_log, {{0, 0, 1000, 800}, {1000, 0, 2000, 800}}};
};

// From the test of what is visible: the metrics, and the work areas of both monitors.
const CallNames kBeforeIntersection =
    InOrder({{"IsWindow"},
             kDpiQuery,
             Times(3, {"GetSystemMetricsForDpi"}),
             {"CreateRectRgn", "EnumDisplayMonitors"},
             Times(2, {"GetMonitorInfoW", "CreateRectRgnIndirect", "CombineRgn", "DeleteObject"}),
             {"CreateRectRgnIndirect", "CombineRgn"}});

const CallNames kMeasureFont = {"CreateFontIndirectW",   "SelectObject", "GetTextMetricsW",
                                "GetTextExtentPoint32W", "SelectObject", "DeleteObject"};

// Stands in for GDI+ where it is started and stopped, and leaves the library without a token at both ends.
class GdiPlusStandIn
{
public:
    GdiPlusStandIn() { Forget(); }
    ~GdiPlusStandIn() { Forget(); }

    GdiPlusStandIn(const GdiPlusStandIn&) = delete;
    GdiPlusStandIn& operator=(const GdiPlusStandIn&) = delete;

    void Fail() { m_status = Gdiplus::GenericError; }

private:
    void Forget()
    {
        m_token = 0;
        StartupGdiPlusByVxDpi();
        m_token = 4711;
    }

    Gdiplus::Status m_status = Gdiplus::Ok;
    ULONG_PTR m_token = 0;
    ImportSpy<decltype(Gdiplus::GdiplusStartup)> m_start{
        VxDpiModule(), "gdiplus.dll", "GdiplusStartup",
        [this](ULONG_PTR* token, const Gdiplus::GdiplusStartupInput*, Gdiplus::GdiplusStartupOutput*)
        {
            *token = m_token;
            return m_status;
        }};
    ImportSpy<decltype(Gdiplus::GdiplusShutdown)> m_stop{VxDpiModule(), "gdiplus.dll", "GdiplusShutdown",
                                                         [](ULONG_PTR) {}};
};
}

TEST(DpiQuerySequence, NoWindowNeedsNoCall)
{
    EXPECT_TRUE(AreCalls(CallsOf([] { VxSafeGetDpiForWindow(nullptr); }), {}));
}

TEST(DpiQuerySequence, AWindowIsAskedOnceItIsKnownToLive)
{
    const TestWindow window;
    EXPECT_TRUE(AreCalls(CallsOf([&] { VxSafeGetDpiForWindow(window.Handle()); }), kDpiQuery));
}

TEST(DpiQuerySequence, ADeadWindowIsNotAsked)
{
    const HWND dead = TestWindow().Handle();
    EXPECT_TRUE(AreCalls(CallsOf([&] { VxSafeGetDpiForWindow(dead); }), {"IsWindow"}));
}

TEST(DpiQuerySequence, TheScreenIsAskedWhereTheWindowDoesNotAnswer)
{
    const TestWindow window;
    const WindowDpiAnswer none(0);
    const CallNames screen = {"GetDC", "GetDeviceCaps", "ReleaseDC"};
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { VxSafeGetDpiForWindow(window.Handle()); }), InOrder({kDpiQuery, screen})));
}

TEST(DpiQuerySequence, AScreenThatCannotBeHadIsNotAsked)
{
    const TestWindow window;
    const WindowDpiAnswer none(0);
    const FailNthCall<decltype(::GetDC)> noScreen(VxDpiModule(), "user32.dll", "GetDC", 1, nullptr);
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { VxSafeGetDpiForWindow(window.Handle()); }), InOrder({kDpiQuery, {"GetDC"}})));
}

TEST(GdiPlusSequence, TheProcessWideTokenTakesOneStartAndOneStop)
{
    const GdiPlusStandIn gdiPlus;
    ULONG_PTR token = 0;
    EXPECT_TRUE(AreCalls(CallsOf([] { ShutdownGdiPlusByVxDpi(); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([] { StartupGdiPlusByVxDpi(); }), {"GdiplusStartup"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetGdiPlusTokenFromVxDpi(token); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { SetGdiPlusTokenToVxDpi(token); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([] { ShutdownGdiPlusByVxDpi(); }), {"GdiplusShutdown"}));
}

TEST(GdiPlusSequence, AnInitializerStartsAndStopsAndACopyStopsAgain)
{
    const GdiPlusStandIn gdiPlus;
    const auto copyOnce = []
    {
        const CGdiPlusInitializer first;
        const CGdiPlusInitializer copy(first);
    };
    EXPECT_TRUE(AreCalls(CallsOf(copyOnce), {"GdiplusStartup", "GdiplusShutdown", "GdiplusShutdown"}));
}

TEST(GdiPlusSequence, AnInitializerThatDidNotStartDoesNotStop)
{
    GdiPlusStandIn gdiPlus;
    gdiPlus.Fail();
    EXPECT_TRUE(AreCalls(CallsOf([] { const CGdiPlusInitializer failed; }), {"GdiplusStartup"}));
}

TEST(GeometrySequence, TheWorkAreaIsThatOfTheNearestMonitor)
{
    const TestWindow window;
    RECT workArea = {};
    const auto work = [&] { GetCurrentScreenWorkArea(window.Handle(), workArea); };
    EXPECT_TRUE(AreCalls(CallsOf(work), {"MonitorFromWindow", "GetMonitorInfoW"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetCurrentScreenWorkArea(nullptr, workArea); }), {}));
    const FailNthCall<decltype(::MonitorFromWindow)> none(VxDpiModule(), "user32.dll", "MonitorFromWindow", 1,
                                                          nullptr);
    EXPECT_TRUE(AreCalls(CallsOf(work), {"MonitorFromWindow"}));
}

TEST(GeometrySequence, ARectangleIsConvertedWithOneDpiQuery)
{
    const TestWindow window;
    RECT rect = {1, 2, 3, 4};
    EXPECT_TRUE(AreCalls(CallsOf([&] { ConvertTo96DPIRect(window.Handle(), rect); }), kDpiQuery));
    EXPECT_TRUE(AreCalls(CallsOf([&] { ConvertTo96DPIRect(nullptr, rect); }), {}));
}

TEST(GeometrySequence, UnitsAreMeasuredAndNotAtAllWithoutMetrics)
{
    const Dib32 surface(1, 1);
    SIZE units = {};
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetFontBasedDialogUnits(surface.Dc(), units); }),
                         {"GetTextMetricsW", "GetTextExtentPoint32W"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetFontBasedDialogUnits(nullptr, units); }), {"GetTextMetricsW"}));
}

TEST(GeometrySequence, AWindowIsSizedFirstAndMovedWhenItsTitleCanBeReached)
{
    RestoredWindow window;
    const CRect saved(100, 100, 600, 400);
    const CallNames visible = InOrder({kBeforeIntersection, {"GetRgnBox", "DeleteObject", "DeleteObject"}});
    EXPECT_TRUE(AreCalls(window.Restore(saved, saved),
                         InOrder({{"IsWindow"}, kDpiQuery, {"SetWindowPos"}, visible, {"SetWindowPos"}})));
    EXPECT_TRUE(AreCalls(
        window.Restore(saved, CRect(0, 0, 1, 1)),
        InOrder({{"IsWindow"}, kDpiQuery, {"MulDiv", "MulDiv", "SetWindowPos"}, visible, {"SetWindowPos"}})));
}

TEST(GeometrySequence, NoWindowIsLeftAlone)
{
    CRect saved(0, 0, 10, 10);
    CWnd dead;
    EXPECT_TRUE(AreCalls(CallsOf([&] { RestoreWindowPositionSafe(nullptr, saved, saved); }), {}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { RestoreWindowPositionSafe(&dead, saved, saved); }), {"IsWindow"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetClientSizeForDpi(nullptr, 96); }), {}));
}

class GeometryFrameworkSequence : public FrameworkCallSequence
{
};

TEST_F(GeometryFrameworkSequence, AWindowOutOfReachIsCentred)
{
    RestoredWindow window;
    const CRect saved(5000, 5000, 5500, 5300);
    EXPECT_TRUE(AreCalls(window.Restore(saved, saved), InOrder({{"IsWindow"},
                                                                kDpiQuery,
                                                                {"SetWindowPos"},
                                                                kBeforeIntersection,
                                                                {"DeleteObject", "DeleteObject"},
                                                                {"CWnd::CenterWindow"}})));
}

TEST_F(GeometryFrameworkSequence, TheClientSizeComesFromTheFontAtBothDpis)
{
    FrameworkWindow window;
    window.Window().OnMessage(
        [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT>
        {
            if (message != WM_GETFONT)
                return std::nullopt;
            return reinterpret_cast<LRESULT>(::GetStockObject(DEFAULT_GUI_FONT));
        });
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetClientSizeForDpi(window.Object(), 144); }),
                         InOrder({kDpiQuery,
                                  {"CClientDC::CClientDC", "CWnd::GetFont", "CFont::GetLogFont"},
                                  kMeasureFont,
                                  {"MulDiv"},
                                  kMeasureFont,
                                  {"CClientDC::~CClientDC", "GetClientRect"},
                                  Times(4, {"MulDiv"})})));
    EXPECT_TRUE(AreCalls(CallsOf([&] { GetClientSizeForDpi(window.Object(), 0); }), kDpiQuery));
}

TEST_F(GeometryFrameworkSequence, NothingIsMeasuredWithoutAFont)
{
    FrameworkWindow window;
    EXPECT_TRUE(
        AreCalls(CallsOf([&] { GetClientSizeForDpi(window.Object(), 144); }),
                 InOrder({kDpiQuery, {"CClientDC::CClientDC", "CWnd::GetFont", "CClientDC::~CClientDC"}})));
}
