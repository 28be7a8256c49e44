#include <vxdpi/ScrollFrame.h>

#include "ScrollAxis.h"

#include <foundation/BaseDpi.h>

#include <optional>

namespace
{
constexpr int kLineStep = 8; // pixels, at any DPI
constexpr int kMargin96 = 20;

/// What the numbers of an axis are shown with.
struct AxisView
{
    ScrollAxis axis;
    int nBar; // SB_HORZ or SB_VERT
    HWND hTarget;
    CScrollManager::Modal modal;
};

std::optional<ScrollCommand> CommandOf(UINT_PTR nSBCode)
{
    switch (nSBCode)
    {
    case SB_LINEUP:
        return ScrollCommand::LineBack;
    case SB_LINEDOWN:
        return ScrollCommand::LineForward;
    case SB_PAGEUP:
        return ScrollCommand::PageBack;
    case SB_PAGEDOWN:
        return ScrollCommand::PageForward;
    case SB_THUMBTRACK:
        return ScrollCommand::FollowThumb;
    default:
        return std::nullopt; // the thumb is followed while it is dragged, so its final place is no news
    }
}

bool IsStyledVisible(HWND hWnd)
{
    return (static_cast<DWORD>(::GetWindowLongW(hWnd, GWL_STYLE)) & WS_VISIBLE) != 0;
}

bool IsListening(const AxisView& view, const CScrollBar* pScrollBar)
{
    if (view.modal == CScrollManager::WindowScrollBars)
        return view.axis.maximum != 0 || view.axis.position != 0 || view.axis.page != 0;
    const HWND hBar = pScrollBar->GetSafeHwnd();
    return hBar && IsStyledVisible(hBar);
}

void MoveContent(const AxisView& view, int nDistance)
{
    const bool isHorizontal = view.nBar == SB_HORZ;
    ::ScrollWindow(view.hTarget, isHorizontal ? nDistance : 0, isHorizontal ? 0 : nDistance, nullptr,
                   nullptr);
}

void Scroll(const AxisView& view, UINT_PTR nSBCode, UINT_PTR nPos, int nLineStep,
            const CScrollBar* pScrollBar)
{
    const std::optional<ScrollCommand> command = CommandOf(nSBCode);
    if (!IsListening(view, pScrollBar) || !command)
        return;
    const int nWay = Shift(view.axis, WayOf(view.axis, *command, nLineStep, static_cast<int>(nPos)));
    if (nWay == 0 || !view.hTarget)
        return;

    const HWND hBar = pScrollBar->GetSafeHwnd();
    if (view.modal == CScrollManager::WindowScrollBars)
        ::SetScrollPos(view.hTarget, view.nBar, view.axis.position, TRUE);
    else if (hBar)
        ::SetScrollPos(hBar, SB_CTL, view.axis.position, TRUE);
    MoveContent(view, -nWay);
}

/// The bounding box of the visible children in client coordinates; empty when there are none.
CRect MeasureChildren(const CWnd& target)
{
    CRect box(0, 0, 0, 0);
    bool isFirst = true;
    for (HWND hChild = ::GetWindow(target.m_hWnd, GW_CHILD); hChild;
         hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (!IsStyledVisible(hChild))
            continue;
        CRect place(0, 0, 0, 0);
        ::GetWindowRect(hChild, &place);
        target.ScreenToClient(&place);
        if (isFirst)
            box = place;
        else
            ::UnionRect(&box, &box, &place);
        isFirst = false;
    }
    return box;
}

void Fit(const AxisView& view, int nVisible, bool isOtherDpi, bool scrollsBack, const CScrollBar* pScrollBar)
{
    TakeOver(view.axis, nVisible, isOtherDpi);
    const bool needsBar = NeedsBar(view.axis);
    if (!needsBar)
    {
        if (scrollsBack)
            MoveContent(view, view.axis.position);
        RemoveBar(view.axis);
    }
    if (const HWND hBar = pScrollBar->GetSafeHwnd())
        ::ShowScrollBar(hBar, SB_CTL, needsBar);
}

void ShowNumbers(const AxisView& view, CScrollBar* pScrollBar)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = view.axis.maximum;
    info.nPage = static_cast<UINT>(view.axis.page);
    info.nPos = view.axis.position;
    if (view.modal == CScrollManager::WindowScrollBars)
        ::SetScrollInfo(view.hTarget, view.nBar, &info, TRUE);
    else if (pScrollBar->GetSafeHwnd())
        pScrollBar->SetScrollInfo(&info, TRUE);
}
} // namespace

CScrollManager::CScrollManager()
    : m_contentWidth(0), m_contentHeight(0), m_hPos(0), m_vPos(0), m_hPage(0), m_vPage(0),
      m_lineStep(kLineStep), m_hMax(0), m_vMax(0), m_reapplyOffset(0), m_dpi(0), m_pWnd(nullptr),
      m_modal(WindowScrollBars), m_pHScrollBar(nullptr), m_pVScrollBar(nullptr)
{
}

CScrollManager& CScrollManager::operator=(const CScrollManager& other) = default;

BOOL CScrollManager::Create(CWnd* pWnd, Modal modal, CScrollBar* pHScrollBar, CScrollBar* pVScrollBar,
                            int reapplyOffset)
{
    if (!pWnd->GetSafeHwnd())
        return FALSE;
    m_pWnd = pWnd;
    m_modal = modal;
    m_pHScrollBar = pHScrollBar;
    m_pVScrollBar = pVScrollBar;
    m_reapplyOffset = reapplyOffset;
    return TRUE;
}

void CScrollManager::StartHScroll(UINT_PTR nSBCode, UINT_PTR nPos, CScrollBar* pScrollBar)
{
    const ScrollAxis axis = {m_contentWidth, m_hPos, m_hPage, m_hMax};
    Scroll({axis, SB_HORZ, m_pWnd->GetSafeHwnd(), m_modal}, nSBCode, nPos, m_lineStep, pScrollBar);
}

void CScrollManager::StartVScroll(UINT_PTR nSBCode, UINT_PTR nPos, CScrollBar* pScrollBar)
{
    const ScrollAxis axis = {m_contentHeight, m_vPos, m_vPage, m_vMax};
    Scroll({axis, SB_VERT, m_pWnd->GetSafeHwnd(), m_modal}, nSBCode, nPos, m_lineStep, pScrollBar);
}

void CScrollManager::UpdateScrollBars(int cx, int cy)
{
    const HWND hTarget = m_pWnd->GetSafeHwnd();
    if (!hTarget)
        return;
    const UINT nDpi = ::GetDpiForWindow(hTarget);
    const bool isOtherDpi = nDpi != m_dpi;
    m_dpi = nDpi;
    // The lengths of the arrows, by contract, stand for the widths of the bars.
    const int nHorizontalBar = ::GetSystemMetricsForDpi(SM_CXHSCROLL, nDpi);
    const int nVerticalBar = ::GetSystemMetricsForDpi(SM_CYVSCROLL, nDpi);
    if (m_modal == WindowScrollBars && !IsScrollBarVisible(SB_VERT))
        cx = WrappingSubtract(cx, nVerticalBar);
    if (m_modal == WindowScrollBars && !IsScrollBarVisible(SB_HORZ))
        cy = WrappingSubtract(cy, nHorizontalBar);

    const CRect box = MeasureChildren(*m_pWnd);
    if (::IsRectEmpty(&box))
        return;
    const int nMargin = ::MulDiv(kMargin96, static_cast<int>(nDpi), kBaseDpi);
    m_contentWidth = WrappingAdd(WrappingWidth(box), nMargin);
    m_contentHeight = WrappingAdd(WrappingHeight(box), nMargin);

    const bool scrollsBack = m_reapplyOffset == 0;
    const AxisView horizontal = {{m_contentWidth, m_hPos, m_hPage, m_hMax}, SB_HORZ, hTarget, m_modal};
    const AxisView vertical = {{m_contentHeight, m_vPos, m_vPage, m_vMax}, SB_VERT, hTarget, m_modal};
    Fit(horizontal, cx, isOtherDpi, scrollsBack, m_pHScrollBar);
    Fit(vertical, cy, isOtherDpi, scrollsBack, m_pVScrollBar);

    // The thumb stays where it is, but a page that has grown pulls the content along.
    const bool hasControls = m_modal == ScrollBarControls;
    ShowNumbers(horizontal, m_pHScrollBar);
    StartHScroll(SB_THUMBTRACK, static_cast<UINT_PTR>(m_hPos), hasControls ? m_pHScrollBar : nullptr);
    ShowNumbers(vertical, m_pVScrollBar);
    StartVScroll(SB_THUMBTRACK, static_cast<UINT_PTR>(m_vPos), hasControls ? m_pVScrollBar : nullptr);
    if (m_reapplyOffset == 1)
    {
        MoveContent(horizontal, -m_hPos);
        MoveContent(vertical, -m_vPos);
    }
}

BOOL CScrollManager::IsScrollBarVisible(int nBar)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    BOOL isRead = FALSE;
    if (m_modal == WindowScrollBars)
    {
        isRead = m_pWnd && m_pWnd->GetScrollInfo(nBar, &info, SIF_ALL);
    }
    else if (nBar == SB_HORZ || nBar == SB_VERT)
    {
        CScrollBar* const pScrollBar = nBar == SB_HORZ ? m_pHScrollBar : m_pVScrollBar;
        isRead = pScrollBar->GetSafeHwnd() && pScrollBar->GetScrollInfo(&info, SIF_ALL);
    }
    if (!isRead)
        return FALSE;
    const int nRange = WrappingSubtract(info.nMax, info.nMin);
    return nRange > 0 && info.nPage <= static_cast<UINT>(nRange);
}
