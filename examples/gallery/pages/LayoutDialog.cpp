#include "LayoutDialog.h"

#include "../resource.h"

#include <vxdpi/Dpi.h>
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

// Windows scales the controls of a dialog by itself, as of version 1703: they would be scaled twice.
void LeaveLayoutToProgram(HWND hDialog)
{
    const HMODULE hUser = ::GetModuleHandle(L"user32.dll");
    const FARPROC pfnFound = ::GetProcAddress(hUser, "SetDialogDpiChangeBehavior");
    if (pfnFound == nullptr)
        return;
    using Function = decltype(&::SetDialogDpiChangeBehavior);
    const auto pfnSetBehavior = reinterpret_cast<Function>(reinterpret_cast<void*>(pfnFound));
    pfnSetBehavior(hDialog, DDC_DISABLE_ALL, DDC_DISABLE_ALL);
}

// @return the size of a window in pixels.
CSize SizeOf(const CWnd& window)
{
    CRect rect;
    window.GetWindowRect(&rect);
    return rect.Size();
}
} // namespace

BEGIN_MESSAGE_MAP(CLayoutDialog, CDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()

CLayoutDialog::CLayoutDialog() : m_layout(this), m_designedSize96(0, 0) {}

BOOL CLayoutDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    LeaveLayoutToProgram(m_hWnd);
    FillControls();
    for (const ControlLayout& control : kControls)
        m_layout.AddControl(control.nId, control.nAnchor, control.nSizePolicy, TRUE);
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    m_layout.UpdateDpi(static_cast<int>(nDpi));
    AdjustLayout(); // the first one captures the designed places
    UpdateFont(nDpi);
    return FALSE; // the focus stays where it is, outside the dialog
}

void CLayoutDialog::UpdateDpi(UINT nDpi)
{
    m_layout.UpdateDpi(static_cast<int>(nDpi));
    AdjustLayout();
    UpdateFont(nDpi);
}

void CLayoutDialog::UpdateFont(UINT nDpi)
{
    LOGFONT description = {};
    GetFont()->GetLogFont(&description);
    const HFONT hPrevious = static_cast<HFONT>(m_font.Detach());
    if (!m_font.CreateFontIndirect(&description, nDpi))
    {
        m_font.Attach(hPrevious); // better a font of the wrong size than none
        return;
    }
    SetFont(&m_font, FALSE);
    SendMessageToDescendants(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), TRUE);
    if (hPrevious != nullptr)
        ::DeleteObject(hPrevious); // no window draws with it any more
}

void CLayoutDialog::OnSize(UINT nType, int cx, int cy)
{
    CDialog::OnSize(nType, cx, cy);
    if (m_designedSize96.cx > 0)
        AdjustLayout(); // not before OnInitDialog: the first layout captures the designed places
}

void CLayoutDialog::AdjustLayout()
{
    m_layout.AdjustLayout();

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

// The dialog is a part of a page: it is not closed by a key.
void CLayoutDialog::OnOK() {}

void CLayoutDialog::OnCancel() {}
