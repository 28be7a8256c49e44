#include <vxdpi/Controls.h>
#include <vxdpi/Dpi.h>

#include <foundation/BaseDpi.h>
#include <foundation/GuardedScaling.h>
#include <foundation/Guards.h>

#include <tpcshrd.h>

#include <cwchar>

namespace
{
constexpr int kHeadingSize = 256; // characters, the terminating null among them

int To96Dpi(int nPixels, UINT nDpi)
{
    return GuardedScale(nPixels, kBaseDpi, nDpi);
}

int TextWidth(CWnd& list, const wchar_t* pszText)
{
    CClientDC dc(&list);
    const auto hFont = reinterpret_cast<HFONT>(::SendMessageW(list.m_hWnd, WM_GETFONT, 0, 0));
    const Selection selected(dc.m_hDC, hFont);
    SIZE size = {};
    ::GetTextExtentPoint32W(dc.m_hDC, pszText, static_cast<int>(std::wcslen(pszText)), &size);
    return size.cx;
}

int HeadingWidth96(CWnd& list, int nCol)
{
    wchar_t heading[kHeadingSize + 1] = {}; // ends also where the control's answer does not
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT;
    column.pszText = heading;
    column.cchTextMax = kHeadingSize;
    const UINT nDpi = VxSafeGetDpiForWindow(list.m_hWnd);
    if (!::SendMessageW(list.m_hWnd, LVM_GETCOLUMNW, static_cast<WPARAM>(nCol),
                        reinterpret_cast<LPARAM>(&column)))
        return 0;
    return To96Dpi(TextWidth(list, heading), nDpi);
}

/// The width of a column that the caller gave none: what the list reads, in whatever units, or the heading's.
int UngivenWidth96(CWnd& list, int nCol)
{
    const int nOwn =
        static_cast<int>(::SendMessageW(list.m_hWnd, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nCol), 0));
    return nOwn < 1 ? HeadingWidth96(list, nCol) : nOwn;
}
} // namespace

BEGIN_MESSAGE_MAP(CDPIAwareListCtrl, CListCtrl)
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &CDPIAwareListCtrl::OnDPIChangedAfterParent)
    // Kept by contract: these go through the framework's own handlers, which end in the default.
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONUP()
    ON_WM_SETCURSOR()
END_MESSAGE_MAP()

CDPIAwareListCtrl::CDPIAwareListCtrl() = default;

CDPIAwareListCtrl::~CDPIAwareListCtrl() = default;

int CDPIAwareListCtrl::InsertColumn(int nCol, const LVCOLUMNW* pColumn)
{
    const int nInserted = static_cast<int>(::SendMessageW(
        m_hWnd, LVM_INSERTCOLUMNW, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
    if (nInserted < 0 || !pColumn)
        return nInserted;

    int nWidth96 = pColumn->cx;
    if (!(pColumn->mask & LVCF_WIDTH))
        nWidth96 = HeadingWidth96(*this, nCol);
    else if (pColumn->cx < 0)
        nWidth96 = UngivenWidth96(*this, nCol);
    m_columnWidths96[nCol] = nWidth96;
    UpdateColumnWidth();
    return nInserted;
}

int CDPIAwareListCtrl::InsertColumn(int nCol, LPCWSTR lpszColumnHeading, int nFormat, int nWidth,
                                    int nSubItem)
{
    const int nInserted = CListCtrl::InsertColumn(nCol, lpszColumnHeading, nFormat, nWidth, nSubItem);
    if (nInserted < 0)
        return nInserted;

    m_columnWidths96[nCol] = nWidth >= 0 ? nWidth : UngivenWidth96(*this, nCol);
    UpdateColumnWidth();
    return nInserted;
}

int CDPIAwareListCtrl::SetColumnWidth(int nCol, int cx)
{
    const int nResult = static_cast<int>(
        ::SendMessageW(m_hWnd, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nCol), MAKELPARAM(cx, 0)));
    if (nResult == -1)
        return nResult;
    m_columnWidths96[nCol] = To96Dpi(cx, VxSafeGetDpiForWindow(m_hWnd));
    return nResult;
}

CHeaderCtrl* CDPIAwareListCtrl::GetHeaderCtrl() const
{
    return const_cast<CDpiAwareHeaderCtrl*>(&m_header);
}

void CDPIAwareListCtrl::PreSubclassWindow()
{
    if (!m_hWnd)
        return;
    CListCtrl::PreSubclassWindow();
    const CHeaderCtrl* const pHeader = CListCtrl::GetHeaderCtrl();
    if (!pHeader || !pHeader->m_hWnd)
        return;
    m_header.SubclassWindow(pHeader->m_hWnd);
    m_header.SetParentListCtrl(this);
}

LRESULT CDPIAwareListCtrl::OnDPIChangedAfterParent(WPARAM, LPARAM)
{
    UpdateColumnWidth();
    return 0;
}

void CDPIAwareListCtrl::UpdateColumnWidth()
{
    if (m_columnWidths96.empty())
        return;
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    for (const auto& [nCol, nWidth96] : m_columnWidths96)
        SetColumnWidth(nCol, GuardedScale(nWidth96, nDpi, kBaseDpi));
}

int CDPIAwareListCtrl::GetHeaderTextLength(int nCol)
{
    return HeadingWidth96(*this, nCol);
}

CDPIAwareListCtrlW::CDPIAwareListCtrlW() = default;

CDPIAwareListCtrlW::~CDPIAwareListCtrlW() = default;

ULONG CDPIAwareListCtrlW::GetGestureStatus(CPoint ptTouch)
{
    return CDPIAwareListCtrl::GetGestureStatus(ptTouch) & ~static_cast<ULONG>(TABLET_DISABLE_PRESSANDHOLD);
}
