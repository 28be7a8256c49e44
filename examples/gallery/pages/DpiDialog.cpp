#include "DpiDialog.h"

#include <vxdpi/Dpi.h>

namespace
{
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
} // namespace

CDpiDialog::CDpiDialog(UINT nIDTemplate) : CDialog(nIDTemplate) {}

BOOL CDpiDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    LeaveLayoutToProgram(m_hWnd);
    return TRUE;
}

void CDpiDialog::UpdateFont(UINT nDpi)
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

BEGIN_MESSAGE_MAP(CPageDialog, CDpiDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()

CPageDialog::CPageDialog() : m_layout(this), m_bReady(false) {}

BOOL CPageDialog::OnInitDialog()
{
    CDpiDialog::OnInitDialog();
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    AddControls(m_layout);
    m_layout.UpdateDpi(static_cast<int>(nDpi));
    m_bReady = true;
    AdjustLayout(); // the first one captures the designed places
    UpdateFont(nDpi);
    return FALSE; // the focus stays where it is, outside the dialog
}

void CPageDialog::AddControls(CDpiLayoutManager& layout)
{
    for (CWnd* pControl = GetWindow(GW_CHILD); pControl != nullptr; pControl = pControl->GetNextWindow())
        layout.AddControl(static_cast<UINT>(pControl->GetDlgCtrlID()), ANCHOR_TOPLEFT, 0, FALSE);
}

void CPageDialog::UpdateDpi(UINT nDpi)
{
    m_layout.UpdateDpi(static_cast<int>(nDpi));
    AdjustLayout();
    UpdateFont(nDpi);
}

void CPageDialog::AdjustLayout()
{
    m_layout.AdjustLayout();
}

void CPageDialog::OnSize(UINT nType, int cx, int cy)
{
    CDpiDialog::OnSize(nType, cx, cy);
    if (m_bReady)
        AdjustLayout(); // not before OnInitDialog: the first layout captures the designed places
}

void CPageDialog::OnOK() {}

void CPageDialog::OnCancel() {}
