#include "PageList.h"

#include "Canvas.h"
#include "Pages.h"

namespace
{
constexpr int kRowHeight = 36;
constexpr int kTextIndent = 24;
constexpr int kMarkWidth = 4;
} // namespace

BEGIN_MESSAGE_MAP(CPageList, CListBox)
    ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

CPageList::CPageList(const CGalleryStyle& style) : m_style(style) {}

BOOL CPageList::CreateList(CWnd* pParent, UINT nId)
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LBS_NOTIFY | LBS_OWNERDRAWFIXED |
                             LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    m_background.CreateSolidBrush(palette::kSidebar);
    if (!Create(kStyle, CRect(0, 0, 0, 0), pParent, nId))
        return FALSE;

    for (const PageEntry& page : GalleryPages())
        AddString(page.pszName);
    UpdateDpi();
    return TRUE;
}

void CPageList::UpdateDpi()
{
    SetItemHeight(0, static_cast<UINT>(m_style.ToPixels(kRowHeight)));
    Invalidate();
}

HBRUSH CPageList::CtlColor(CDC*, UINT)
{
    return static_cast<HBRUSH>(m_background.GetSafeHandle());
}

void CPageList::MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    lpMeasureItemStruct->itemHeight = static_cast<UINT>(m_style.ToPixels(kRowHeight));
}

void CPageList::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->itemID == static_cast<UINT>(LB_ERR))
        return;

    CDC& dc = *CDC::FromHandle(lpDrawItemStruct->hDC);
    const bool bSelected = (lpDrawItemStruct->itemState & ODS_SELECTED) != 0;
    CRect row(lpDrawItemStruct->rcItem);
    dc.FillSolidRect(row, bSelected ? palette::kAccentPale : palette::kSidebar);
    if (bSelected)
        dc.FillSolidRect(CRect(row.left, row.top, row.left + m_style.ToPixels(kMarkWidth), row.bottom),
                         palette::kAccent);

    CString name;
    GetText(static_cast<int>(lpDrawItemStruct->itemID), name);
    row.left += m_style.ToPixels(kTextIndent);
    const TextRole role = bSelected ? TextRole::Heading : TextRole::Body;
    const CScopedSelection font(dc, m_style.Font(role));
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(bSelected ? palette::kAccent : palette::kInk);
    dc.DrawText(name, &row, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}
