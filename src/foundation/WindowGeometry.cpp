#include <vxdpi/Dpi.h>
#include <vxdpi/Geometry.h>

#include "BaseDpi.h"
#include "GuardedScaling.h"
#include "Guards.h"
#include "RectScaling.h"
#include "TitleStrip.h"

#include <shellscalingapi.h>

namespace
{
UINT DpiOfMonitorAt(POINT point)
{
    const HMONITOR hMonitor = ::MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST);
    UINT nHorizontalDpi = 0;
    UINT nVerticalDpi = 0;
    const HRESULT asked = ::GetDpiForMonitor(hMonitor, MDT_EFFECTIVE_DPI, &nHorizontalDpi, &nVerticalDpi);
    return SUCCEEDED(asked) ? nVerticalDpi : kBaseDpi;
}

UINT DpiForTitleBar(const RECT& rect, HWND hwnd)
{
    return ::IsWindow(hwnd) ? VxSafeGetDpiForWindow(hwnd) : DpiOfMonitorAt(TitleStrip::CentreOf(rect));
}

TitleStrip::FrameMetrics FrameMetricsForDpi(UINT nDpi)
{
    TitleStrip::FrameMetrics metrics = {};
    metrics.captionHeight = ::GetSystemMetricsForDpi(SM_CYCAPTION, nDpi);
    metrics.frameHeight = ::GetSystemMetricsForDpi(SM_CYSIZEFRAME, nDpi);
    metrics.captionButtonWidth = ::GetSystemMetricsForDpi(SM_CXSIZE, nDpi);
    return metrics;
}

BOOL CALLBACK AddWorkArea(HMONITOR hMonitor, HDC, LPRECT, LPARAM lParam)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetMonitorInfoW(hMonitor, &info))
        return TRUE; // the other monitors still count
    const HRGN hAll = reinterpret_cast<HRGN>(lParam);
    const UniqueRegion workArea(::CreateRectRgnIndirect(&info.rcWork));
    ::CombineRgn(hAll, hAll, workArea.get(), RGN_OR);
    return TRUE;
}

UniqueRegion UnionOfWorkAreas()
{
    UniqueRegion all(::CreateRectRgn(0, 0, 0, 0));
    ::EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(all.get()));
    return all;
}

bool IsTitleBarReachable(const RECT& rect, HWND hwnd)
{
    const TitleStrip::FrameMetrics metrics = FrameMetricsForDpi(DpiForTitleBar(rect, hwnd));
    const UniqueRegion workAreas = UnionOfWorkAreas();
    const RECT strip = TitleStrip::Of(rect, metrics);
    const UniqueRegion visible(::CreateRectRgnIndirect(&strip));
    const int kind = ::CombineRgn(visible.get(), visible.get(), workAreas.get(), RGN_AND);
    if (kind == NULLREGION || kind == ERROR)
        return false;
    RECT box = {};
    ::GetRgnBox(visible.get(), &box);
    return TitleStrip::IsReachable(box, metrics);
}

/// Replaces the size of a rectangle at 96 DPI by its size at nDpi.
void ScaleSizeTo(RECT& rect, UINT nDpi)
{
    rect.right = WrappingAdd(rect.left, GuardedScale(WrappingWidth(rect), nDpi, kBaseDpi));
    rect.bottom = WrappingAdd(rect.top, GuardedScale(WrappingHeight(rect), nDpi, kBaseDpi));
}

bool HaveSameSize(const RECT& first, const RECT& second)
{
    return WrappingWidth(first) == WrappingWidth(second) && WrappingHeight(first) == WrappingHeight(second);
}
} // namespace

int GetCurrentScreenWorkArea(HWND hwnd, RECT& rcWork)
{
    if (!hwnd)
        return FALSE;
    const HMONITOR hMonitor = ::MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST);
    if (!hMonitor)
        return FALSE;
    MONITORINFOEXW info = {};
    info.cbSize = sizeof(info);
    if (!::GetMonitorInfoW(hMonitor, &info))
        return FALSE;
    rcWork = info.rcWork;
    return TRUE;
}

void ConvertTo96DPIRect(HWND hwnd, RECT& rc)
{
    const float factor = static_cast<float>(kBaseDpi) / static_cast<float>(VxSafeGetDpiForWindow(hwnd));
    rc = ScaleEdges(rc, factor);
}

int RestoreWindowPositionSafe(CWnd* pWnd, CRect& rcSaved, CRect& rcReference)
{
    if (!pWnd || !::IsWindow(pWnd->m_hWnd))
        return FALSE;

    const UINT nDpi = VxSafeGetDpiForWindow(pWnd->m_hWnd);
    if (!HaveSameSize(rcSaved, rcReference))
        ScaleSizeTo(rcSaved, nDpi);
    // Without SWP_NOZORDER: a restored window comes to the top.
    ::SetWindowPos(pWnd->m_hWnd, nullptr, 0, 0, WrappingWidth(rcSaved), WrappingHeight(rcSaved), SWP_NOMOVE);
    if (IsTitleBarReachable(rcSaved, pWnd->m_hWnd))
        ::SetWindowPos(pWnd->m_hWnd, nullptr, rcSaved.left, rcSaved.top, 0, 0, SWP_NOSIZE);
    else
        pWnd->CenterWindow();
    return TRUE;
}
