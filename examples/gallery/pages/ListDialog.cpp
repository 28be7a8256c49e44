#include "ListDialog.h"

#include "../resource.h"

#include <cmath>
#include <iterator>

namespace
{
struct ColumnDesign
{
    LPCTSTR pszHeading;
    int nFormat;
    int nWidth96;
};

constexpr ColumnDesign kColumns[] = {
    {L"Screen", LVCFMT_LEFT, 128}, {L"Diagonal", LVCFMT_RIGHT, 64},
    {L"Pixels", LVCFMT_RIGHT, 92}, {L"Density", LVCFMT_RIGHT, 68},
    {L"Scale", LVCFMT_RIGHT, 60},  {L"Room for a dialog", LVCFMT_RIGHT, 112},
};

struct ScreenModel
{
    LPCTSTR pszName;
    double diagonal; // in inches
    int nWidth;      // in pixels
    int nHeight;
    int nScale; // usual, in per cent
};

constexpr ScreenModel kScreens[] = {
    {L"Notebook, HD", 11.6, 1366, 768, 100},       {L"Notebook, HD", 15.6, 1366, 768, 100},
    {L"Notebook, Full HD", 13.3, 1920, 1080, 150}, {L"Notebook, Full HD", 14.0, 1920, 1080, 150},
    {L"Notebook, Full HD", 15.6, 1920, 1080, 125}, {L"Notebook, 2.8K", 14.0, 2880, 1800, 200},
    {L"Notebook, 4K", 13.3, 3840, 2160, 300},      {L"Notebook, 4K", 15.6, 3840, 2160, 250},
    {L"Tablet, 3:2", 10.5, 1920, 1280, 150},       {L"Tablet, 3:2", 12.3, 2736, 1824, 200},
    {L"Desktop, Full HD", 24.0, 1920, 1080, 100},  {L"Desktop, QHD", 27.0, 2560, 1440, 100},
    {L"Desktop, 4K", 27.0, 3840, 2160, 150},       {L"Desktop, 4K", 32.0, 3840, 2160, 150},
    {L"Desktop, 5K", 27.0, 5120, 2880, 200},       {L"Desktop, 8K", 32.0, 7680, 4320, 300},
    {L"Ultra-wide", 34.0, 3440, 1440, 100},        {L"Television, 4K", 55.0, 3840, 2160, 300},
};

int PixelsPerInch(const ScreenModel& screen)
{
    return static_cast<int>(std::lround(std::hypot(screen.nWidth, screen.nHeight) / screen.diagonal));
}

CString FormatSize(int nWidth, int nHeight)
{
    CString text;
    text.Format(L"%d \u00D7 %d", nWidth, nHeight);
    return text;
}

CString FormatNumber(LPCTSTR pszFormat, double value)
{
    CString text;
    text.Format(pszFormat, value);
    return text;
}

// @return the texts of the columns, from the left.
std::vector<CString> TextsOf(const ScreenModel& screen)
{
    constexpr int kWhole = 100;
    return {screen.pszName,
            FormatNumber(L"%.1f\"", screen.diagonal),
            FormatSize(screen.nWidth, screen.nHeight),
            FormatNumber(L"%.0f ppi", PixelsPerInch(screen)),
            FormatNumber(L"%.0f %%", screen.nScale),
            FormatSize(::MulDiv(screen.nWidth, kWhole, screen.nScale),
                       ::MulDiv(screen.nHeight, kWhole, screen.nScale))};
}
} // namespace

BEGIN_MESSAGE_MAP(CWidthList, CDPIAwareListCtrl)
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

CWidthList::CWidthList(std::function<void()> onColumnsChanged)
    : m_onColumnsChanged(std::move(onColumnsChanged))
{
}

const std::map<int, int>& CWidthList::RecordedWidths() const
{
    return m_columnWidths96;
}

BOOL CWidthList::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const BOOL bHandled = CDPIAwareListCtrl::OnNotify(wParam, lParam, pResult);
    const UINT nCode = reinterpret_cast<const NMHDR*>(lParam)->code;
    if (nCode == HDN_ITEMCHANGEDW || nCode == HDN_ITEMCHANGEDA)
        m_onColumnsChanged();
    return bHandled;
}

void CWidthList::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    CDPIAwareListCtrl::OnHScroll(nSBCode, nPos, pScrollBar);
    m_onColumnsChanged();
}

CListDialog::CListDialog(std::function<void()> onColumnsChanged) : m_list(std::move(onColumnsChanged)) {}

std::vector<CListDialog::Column> CListDialog::Columns() const
{
    const CHeaderCtrl& header = *m_list.GetHeaderCtrl();
    std::vector<Column> columns;
    for (const auto& [nColumn, nWidth96] : m_list.RecordedWidths())
    {
        CRect rect;
        header.GetItemRect(nColumn, &rect);
        header.ClientToScreen(&rect);
        const bool bDesigned = nWidth96 == kColumns[nColumn].nWidth96;
        columns.push_back({nWidth96, m_list.GetColumnWidth(nColumn), bDesigned, rect});
    }
    return columns;
}

void CListDialog::DoDataExchange(CDataExchange* pDX)
{
    CPageDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_SCREENS, m_list);
}

BOOL CListDialog::OnInitDialog()
{
    CPageDialog::OnInitDialog();
    FillList();
    return FALSE; // the focus stays where it is, outside the dialog
}

void CListDialog::AddControls(CDpiLayoutManager& layout)
{
    layout.AddControl(IDC_SCREENS, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT, FALSE);
}

void CListDialog::FillList()
{
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    for (size_t i = 0; i < std::size(kColumns); ++i)
        m_list.InsertColumn(static_cast<int>(i), kColumns[i].pszHeading, kColumns[i].nFormat,
                            kColumns[i].nWidth96);
    for (size_t i = 0; i < std::size(kScreens); ++i)
    {
        const std::vector<CString> texts = TextsOf(kScreens[i]);
        const int nItem = m_list.InsertItem(static_cast<int>(i), texts[0]);
        for (size_t nColumn = 1; nColumn < texts.size(); ++nColumn)
            m_list.SetItemText(nItem, static_cast<int>(nColumn), texts[nColumn]);
    }
}
