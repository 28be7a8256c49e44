#include "WindowsByHand.h"

namespace
{
constexpr int kBase = 96;
constexpr int kColumnWidth96 = 40;

CRect MeasureByHand(const CWnd& parent)
{
    CRect box(0, 0, 0, 0);
    bool isFirst = true;
    for (HWND hChild = ::GetWindow(parent.m_hWnd, GW_CHILD); hChild;
         hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        ::GetWindowLongW(hChild, GWL_STYLE);
        CRect place(0, 0, 0, 0);
        ::GetWindowRect(hChild, &place);
        parent.ScreenToClient(&place);
        if (isFirst)
            box = place;
        else
            ::UnionRect(&box, &box, &place);
        isFirst = false;
    }
    return box;
}
} // namespace

void ByHand::PlaceOneByOne(HWND hParent, const std::vector<Place>& places)
{
    RECT client = {};
    ::GetClientRect(hParent, &client);
    for (const Place& place : places)
    {
        const HWND hControl = ::GetDlgItem(hParent, place.nId);
        ::SetWindowPos(hControl, nullptr, place.rc.left, place.rc.top, place.rc.right - place.rc.left,
                       place.rc.bottom - place.rc.top, SWP_NOZORDER);
        ::InvalidateRect(hControl, nullptr, TRUE);
    }
}

void ByHand::PlaceInBatch(HWND hParent, const std::vector<Place>& places)
{
    const HDWP hBatch = ::BeginDeferWindowPos(static_cast<int>(places.size()));
    for (const Place& place : places)
    {
        RECT client = {};
        ::IsWindow(place.hControl);
        ::GetClientRect(hParent, &client);
        ::DeferWindowPos(hBatch, place.hControl, nullptr, place.rc.left, place.rc.top,
                         place.rc.right - place.rc.left, place.rc.bottom - place.rc.top,
                         SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ::EndDeferWindowPos(hBatch);
}

void ByHand::UpdateScrollBars(CWnd& parent, int nHorizontalPage, int nVerticalPage)
{
    const UINT nDpi = ::GetDpiForWindow(parent.m_hWnd);
    ::GetSystemMetricsForDpi(SM_CXHSCROLL, nDpi);
    ::GetSystemMetricsForDpi(SM_CYVSCROLL, nDpi);
    SCROLLINFO info = {};
    parent.GetScrollInfo(SB_VERT, &info, SIF_ALL);
    parent.GetScrollInfo(SB_HORZ, &info, SIF_ALL);
    const CRect box = MeasureByHand(parent);
    ::IsRectEmpty(&box);
    constexpr int kMargin96 = 20;
    const int nMargin = ::MulDiv(kMargin96, static_cast<int>(nDpi), kBase);

    SCROLLINFO shown = {};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    shown.nMax = box.right - box.left + nMargin - 1;
    shown.nPage = static_cast<UINT>(nHorizontalPage);
    ::SetScrollInfo(parent.m_hWnd, SB_HORZ, &shown, TRUE);
    shown.nMax = box.bottom - box.top + nMargin - 1;
    shown.nPage = static_cast<UINT>(nVerticalPage);
    ::SetScrollInfo(parent.m_hWnd, SB_VERT, &shown, TRUE);
}

const LVCOLUMNW& ByHand::Column()
{
    static wchar_t s_heading[] = L"column";
    static const LVCOLUMNW s_column = []
    {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = s_heading;
        column.cx = kColumnWidth96;
        return column;
    }();
    return s_column;
}

void ByHand::SetColumnWidths(HWND hList, int count)
{
    const int nDpi = static_cast<int>(DpiOf(hList));
    for (int i = 0; i < count; ++i)
    {
        const int nWidth = ::MulDiv(kColumnWidth96, nDpi, kBase);
        ::SendMessageW(hList, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), MAKELPARAM(nWidth, 0));
        ::MulDiv(nWidth, kBase, static_cast<int>(DpiOf(hList)));
    }
}

void ByHand::InsertColumns(HWND hList, int count)
{
    for (int i = 0; i < count; ++i)
    {
        ::SendMessageW(hList, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&Column()));
        SetColumnWidths(hList, i + 1);
    }
}
