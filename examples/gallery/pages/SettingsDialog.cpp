#include "SettingsDialog.h"

#include "../resource.h"
#include "FrameParts.h"

#include <vxdpi/Dpi.h>

namespace
{
constexpr UINT kFocusFirstMessage = WM_APP;

constexpr LPCTSTR kFolders[] = {L"C:\\Users\\Marta\\Documents", L"C:\\Users\\Marta\\Pictures",
                                L"C:\\Users\\Marta\\Mail", L"D:\\Projects", L"D:\\Accounts"};
constexpr LPCTSTR kWeekdays[] = {L"Monday", L"Tuesday",  L"Wednesday", L"Thursday",
                                 L"Friday", L"Saturday", L"Sunday"};
constexpr LPCTSTR kDrives[] = {L"E: Backup disk (1.2 TB free)", L"F: Second disk (640 GB free)",
                               L"\\\\store\\backup (8.1 TB free)"};
constexpr int kFriday = 4;

struct ControlLayout
{
    UINT nId;
    UINT nAnchor;
    UINT nSizePolicy;
};

// What follows the width of the dialog; all others stay where they were designed to be.
constexpr ControlLayout kControls[] = {
    {IDC_GROUP_FOLDERS, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_FOLDERS, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_FOLDER_ADD, ANCHOR_RIGHT, 0},
    {IDC_FOLDER_REMOVE, ANCHOR_RIGHT, 0},
    {IDC_LEAVE_OUT, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_GROUP_WHEN, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_GROUP_WHERE, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_DRIVE, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_TARGET, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_BROWSE, ANCHOR_RIGHT, 0},
    {IDC_PASSWORD, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_PASSWORD_AGAIN, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_GROUP_KEEP, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_GROUP_REPORT, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
    {IDC_MAIL, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH},
};
} // namespace

BEGIN_MESSAGE_MAP(CSettingsDialog, CDpiDialog)
    ON_WM_SIZE()
    ON_MESSAGE(WM_DPICHANGED, &CSettingsDialog::OnDpiChanged)
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &CSettingsDialog::OnDpiChangedAfterParent)
    ON_MESSAGE(kFocusFirstMessage, &CSettingsDialog::OnFocusFirst)
    ON_BN_CLICKED(IDC_FOLDER_REMOVE, &CSettingsDialog::OnRemove)
    ON_BN_CLICKED(IDC_DEFAULTS, &CSettingsDialog::OnDefaults)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_ENCRYPT, IDC_ENCRYPT, &CSettingsDialog::OnFieldChanged)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_TARGET, IDC_PASSWORD_AGAIN, &CSettingsDialog::OnFieldChanged)
END_MESSAGE_MAP()

CSettingsDialog::CSettingsDialog() : CDpiDialog(IDD_SETTINGS), m_layout(this), m_nDpi(0), m_bInFrame(false) {}

INT_PTR CSettingsDialog::ShowInFrame()
{
    m_bInFrame = true;
    // From the right to the left. The dialog decides itself whether OK ends it.
    const INT_PTR nResult =
        ::CreateScrollFrame(IDD_SETTINGS, *this, {{&m_cancel, IDCANCEL}, {&m_ok, 0}, {&m_defaults, 0}}, 1);
    m_bInFrame = false;
    for (CRealButton* const pButton : {&m_ok, &m_cancel, &m_defaults})
        pButton->SetProxyButton(nullptr); // the stand-ins have gone with the frame
    return nResult;
}

const CButton& CSettingsDialog::CancelButton() const
{
    return m_cancel;
}

void CSettingsDialog::DoDataExchange(CDataExchange* pDX)
{
    CDpiDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDOK, m_ok);
    DDX_Control(pDX, IDCANCEL, m_cancel);
    DDX_Control(pDX, IDC_DEFAULTS, m_defaults);
}

BOOL CSettingsDialog::OnInitDialog()
{
    CDpiDialog::OnInitDialog();
    SetGalleryIcon(*this);
    FillFields();
    AddControls();
    ArrangeControls(); // the first time captures the designed places
    if (m_bInFrame)
    {
        GrowForFrame(*this);
        PostMessage(kFocusFirstMessage); // when it arrives the frame has been shown
    }
    return TRUE;
}

void CSettingsDialog::FillFields()
{
    for (const LPCTSTR pszFolder : kFolders)
        SendDlgItemMessage(IDC_FOLDERS, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszFolder));
    for (const LPCTSTR pszWeekday : kWeekdays)
        SendDlgItemMessage(IDC_WEEKDAY, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszWeekday));
    for (const LPCTSTR pszDrive : kDrives)
        SendDlgItemMessage(IDC_DRIVE, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszDrive));
    OnDefaults();
}

void CSettingsDialog::OnDefaults()
{
    SetDlgItemText(IDC_LEAVE_OUT, L"*.tmp; *.bak; Thumbs.db");
    CheckRadioButton(IDC_DAILY, IDC_ON_CONNECTION, IDC_DAILY);
    SetDlgItemText(IDC_TIME, L"18:30");
    SendDlgItemMessage(IDC_WEEKDAY, CB_SETCURSEL, kFriday);
    CheckDlgButton(IDC_MAINS_ONLY, BST_CHECKED);
    SendDlgItemMessage(IDC_DRIVE, CB_SETCURSEL, 0);
    SetDlgItemText(IDC_TARGET, L"\\Backup\\Marta");
    CheckDlgButton(IDC_ENCRYPT, BST_CHECKED);
    SetDlgItemText(IDC_PASSWORD, L"correct horse");
    SetDlgItemText(IDC_PASSWORD_AGAIN, L"correct horse");
    CheckRadioButton(IDC_KEEP_ALL, IDC_KEEP_SOME, IDC_KEEP_SOME);
    SetDlgItemText(IDC_KEEP_COUNT, L"12");
    CheckDlgButton(IDC_ASK_BEFORE, BST_CHECKED);
    CheckDlgButton(IDC_SHOW_MESSAGE, BST_UNCHECKED);
    CheckDlgButton(IDC_SEND_MAIL, BST_CHECKED);
    SetDlgItemText(IDC_MAIL, L"marta.lind@example.com");
    CheckDlgButton(IDC_FAILURES_ONLY, BST_CHECKED);
}

void CSettingsDialog::OnRemove()
{
    const LRESULT nSelected = SendDlgItemMessage(IDC_FOLDERS, LB_GETCURSEL);
    if (nSelected != LB_ERR)
        SendDlgItemMessage(IDC_FOLDERS, LB_DELETESTRING, static_cast<WPARAM>(nSelected));
}

void CSettingsDialog::OnFieldChanged(UINT)
{
    m_ok.EnableWindow(IsComplete());
}

bool CSettingsDialog::IsComplete() const
{
    CString target;
    CString password;
    CString passwordAgain;
    GetDlgItemText(IDC_TARGET, target);
    GetDlgItemText(IDC_PASSWORD, password);
    GetDlgItemText(IDC_PASSWORD_AGAIN, passwordAgain);
    const bool bEncrypt = IsDlgButtonChecked(IDC_ENCRYPT) == BST_CHECKED;
    return !target.IsEmpty() && (!bEncrypt || (!password.IsEmpty() && password == passwordAgain));
}

void CSettingsDialog::AddControls()
{
    for (CWnd* pControl = GetWindow(GW_CHILD); pControl != nullptr; pControl = pControl->GetNextWindow())
        m_layout.AddControl(pControl, ANCHOR_TOPLEFT, 0, FALSE);
    for (const ControlLayout& control : kControls)
        m_layout.AddControl(control.nId, control.nAnchor, control.nSizePolicy, FALSE);
}

void CSettingsDialog::ArrangeControls()
{
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    m_layout.UpdateDpi(static_cast<int>(nDpi));
    m_layout.AdjustLayout();
    if (nDpi != m_nDpi)
        UpdateFont(nDpi);
    m_nDpi = nDpi;
    Invalidate(); // a group box that is moved takes along what was drawn under it
}

void CSettingsDialog::OnSize(UINT nType, int cx, int cy)
{
    CDpiDialog::OnSize(nType, cx, cy);
    if (m_nDpi != 0)
        ArrangeControls(); // not before OnInitDialog: the first time captures the designed places
}

// By itself the dialog is told of the DPI with the size that goes with it.
LRESULT CSettingsDialog::OnDpiChanged(WPARAM, LPARAM lParam)
{
    MoveWindow(reinterpret_cast<const RECT*>(lParam));
    return 0;
}

// In a frame its size may have told it before. But the frame has placed the buttons for their size of then,
// and has to scroll what is laid out anew.
LRESULT CSettingsDialog::OnDpiChangedAfterParent(WPARAM, LPARAM)
{
    ArrangeControls();
    CRect view;
    GetParent()->GetClientRect(&view);
    GetParent()->SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(view.Width(), view.Height()));
    return 0;
}

// The frame that is shown takes the focus from the dialog.
LRESULT CSettingsDialog::OnFocusFirst(WPARAM, LPARAM)
{
    GetDlgItem(IDC_FOLDERS)->SetFocus();
    return 0;
}

void CSettingsDialog::OnOK()
{
    if (IsComplete()) // the Enter key asks no button
        EndModal(*this, IDOK);
}

void CSettingsDialog::OnCancel()
{
    EndModal(*this, IDCANCEL);
}
