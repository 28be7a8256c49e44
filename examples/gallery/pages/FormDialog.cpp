#include "FormDialog.h"

#include "../resource.h"

#include <vxdpi/Dpi.h>

namespace
{
constexpr UINT kHorizontalBarId = 1;
constexpr UINT kVerticalBarId = 2;
constexpr int kMostRounds = 3; // one bar, the other one, and what both leave

struct FieldText
{
    int nId;
    LPCTSTR pszText;
};

constexpr FieldText kFieldTexts[] = {
    {IDC_FORM_COMPANY, L"Harbour Instruments Ltd"},
    {IDC_FORM_CONTACT, L"Marta Lind"},
    {IDC_FORM_STREET, L"14 Quayside"},
    {IDC_FORM_POSTCODE, L"NE1 3DX"},
    {IDC_FORM_TOWN, L"Newcastle"},
    {IDC_FORM_DATE, L"2026-11-24"},
    {IDC_FORM_ACCOUNT, L"4711-0815"},
    {IDC_FORM_DISCOUNT, L"2.5"},
    {IDC_FORM_NOTES, L"Two pallets, no stacking.\r\nPlease ring an hour before.\r\nThe gate is 3.60 m high."},
};
} // namespace

BOOL CFormDialog::OnInitDialog()
{
    for (const FieldText& field : kFieldTexts)
        SetDlgItemText(field.nId, field.pszText);
    CheckRadioButton(IDC_FORM_PARCEL, IDC_FORM_COLLECTED, IDC_FORM_FREIGHT);
    CheckDlgButton(IDC_FORM_NEIGHBOUR, BST_CHECKED);
    return CPageDialog::OnInitDialog();
}

BEGIN_MESSAGE_MAP(CWindowBarsForm, CFormDialog)
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
END_MESSAGE_MAP()

CWindowBarsForm::CWindowBarsForm(std::function<void()> onScrolled)
    : m_onScrolled(std::move(onScrolled)), m_bUpdating(false), m_bSizedMeanwhile(false)
{
}

BOOL CWindowBarsForm::OnInitDialog()
{
    // The layout puts the controls back to their unscrolled places, so the manager has to scroll them again.
    m_scroller.Create(this, CScrollManager::WindowScrollBars, nullptr, nullptr, 1);
    return CFormDialog::OnInitDialog();
}

void CWindowBarsForm::AdjustLayout()
{
    m_bSizedMeanwhile = true;
    if (m_bUpdating)
        return; // a bar was shown or hidden, which takes room from the form or gives it back

    m_bUpdating = true;
    // A stretched control may fit without bars only: it would make them come and go for ever.
    for (int nRound = 0; m_bSizedMeanwhile && nRound < kMostRounds; ++nRound)
    {
        m_bSizedMeanwhile = false;
        CFormDialog::AdjustLayout();
        CRect client;
        GetClientRect(&client);
        m_scroller.UpdateScrollBars(client.Width(), client.Height());
    }
    m_bUpdating = false;
    m_onScrolled();
}

void CWindowBarsForm::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scroller.StartHScroll(nSBCode, nPos, pScrollBar);
    m_onScrolled();
}

void CWindowBarsForm::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scroller.StartVScroll(nSBCode, nPos, pScrollBar);
    m_onScrolled();
}

BEGIN_MESSAGE_MAP(CBarControlsForm, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
END_MESSAGE_MAP()

CBarControlsForm::CBarControlsForm(std::function<void()> onScrolled) : m_onScrolled(std::move(onScrolled)) {}

BOOL CBarControlsForm::CreateForm(CWnd* pParent, UINT nId)
{
    const HBRUSH hBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    const CString className = ::AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW), hBackground);
    const DWORD nStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    return Create(className, L"", nStyle, CRect(0, 0, 0, 0), pParent, nId);
}

int CBarControlsForm::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;

    const CRect none(0, 0, 0, 0);
    const bool bCreated =
        m_form.Create(IDD_FORM, this) &&
        m_horizontalBar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, none, this, kHorizontalBarId) &&
        m_verticalBar.Create(WS_CHILD | WS_VISIBLE | SBS_VERT, none, this, kVerticalBarId) &&
        m_scroller.Create(&m_form, CScrollManager::ScrollBarControls, &m_horizontalBar, &m_verticalBar, 1);
    return bCreated ? 0 : -1;
}

void CBarControlsForm::UpdateDpi(UINT nDpi)
{
    m_form.UpdateDpi(nDpi);
    Arrange();
}

CScrollBar& CBarControlsForm::HorizontalBar()
{
    return m_horizontalBar;
}

CScrollBar& CBarControlsForm::VerticalBar()
{
    return m_verticalBar;
}

void CBarControlsForm::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    Arrange();
}

void CBarControlsForm::Arrange()
{
    CRect client;
    GetClientRect(&client);
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    const int nBarWidth = ::GetSystemMetricsForDpi(SM_CXVSCROLL, nDpi);
    const int nBarHeight = ::GetSystemMetricsForDpi(SM_CYHSCROLL, nDpi);
    const CSize visible(client.Width() - nBarWidth, client.Height() - nBarHeight);
    m_form.MoveWindow(0, 0, visible.cx, visible.cy);
    m_horizontalBar.MoveWindow(0, visible.cy, visible.cx, nBarHeight);
    m_verticalBar.MoveWindow(visible.cx, 0, nBarWidth, visible.cy);
    m_form.AdjustLayout(); // the size may have stayed
    m_scroller.UpdateScrollBars(visible.cx, visible.cy);
    m_onScrolled();
}

void CBarControlsForm::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scroller.StartHScroll(nSBCode, nPos, pScrollBar);
    m_onScrolled();
}

void CBarControlsForm::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    m_scroller.StartVScroll(nSBCode, nPos, pScrollBar);
    m_onScrolled();
}
