#include "LayoutDialog.h"

#include "../resource.h"

#include <vxdpi/Geometry.h>

namespace
{
struct ControlLayout
{
    UINT nId;
    UINT nAnchor;
    UINT nSizePolicy;
};

constexpr ControlLayout kControls[] = {
    {IDC_TOP_LEFT, ANCHOR_TOPLEFT, 0},
    {IDC_TOP, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_TOP_RIGHT, ANCHOR_RIGHT, 0},
    {IDC_LEFT, ANCHOR_TOPLEFT, SIZE_STRETCH_HEIGHT},
    {IDC_MIDDLE, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT},
    {IDC_RIGHT, ANCHOR_RIGHT, SIZE_STRETCH_HEIGHT},
    {IDC_BOTTOM_LEFT, ANCHOR_BOTTOM, 0},
    {IDC_BOTTOM, ANCHOR_BOTTOM, SIZE_STRETCH_WIDTH},
    {IDC_BOTTOM_RIGHT, ANCHOR_BOTTOMRIGHT, 0},
};

// @return the size of a window in pixels.
CSize SizeOf(const CWnd& window)
{
    CRect rect;
    window.GetWindowRect(&rect);
    return rect.Size();
}
} // namespace

CLayoutDialog::CLayoutDialog() : m_designedSize96(0, 0) {}

BOOL CLayoutDialog::OnInitDialog()
{
    FillControls();
    return CPageDialog::OnInitDialog();
}

void CLayoutDialog::AddControls(CDpiLayoutManager& layout)
{
    for (const ControlLayout& control : kControls)
        layout.AddControl(control.nId, control.nAnchor, control.nSizePolicy, TRUE);
}

void CLayoutDialog::AdjustLayout()
{
    CPageDialog::AdjustLayout();

    const CSize size = SizeOf(*GetDlgItem(IDC_MIDDLE));
    CString text;
    text.Format(L"ANCHOR_TOPLEFT\r\nSIZE_STRETCH_WIDTH |\r\nSIZE_STRETCH_HEIGHT\r\n\r\n"
                L"designed at 96 DPI:\r\n%d \u00D7 %d\r\n\r\nnow:\r\n%d \u00D7 %d",
                m_designedSize96.cx, m_designedSize96.cy, size.cx, size.cy);
    SetDlgItemText(IDC_MIDDLE, text);
}

void CLayoutDialog::FillControls()
{
    constexpr LPCTSTR kLeftLines[] = {L"ANCHOR_TOPLEFT", L"SIZE_STRETCH_HEIGHT", L"", L"keeps its width",
                                      L"fills the height"};
    constexpr LPCTSTR kRightLines[] = {L"ANCHOR_RIGHT",    L"SIZE_STRETCH_HEIGHT", L"",
                                       L"keeps its width", L"keeps its distance",  L"to the right edge",
                                       L"fills the height"};
    SetDlgItemText(IDC_TOP, L"ANCHOR_TOPLEFT\r\nSIZE_STRETCH_WIDTH");
    SetDlgItemText(IDC_BOTTOM, L"ANCHOR_BOTTOM\r\nSIZE_STRETCH_WIDTH");
    for (const LPCTSTR pszLine : kLeftLines)
        SendDlgItemMessage(IDC_LEFT, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszLine));
    for (const LPCTSTR pszLine : kRightLines)
        SendDlgItemMessage(IDC_RIGHT, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszLine));

    CRect middle(CPoint(0, 0), SizeOf(*GetDlgItem(IDC_MIDDLE)));
    ConvertTo96DPIRect(m_hWnd, middle);
    m_designedSize96 = middle.Size();
}
