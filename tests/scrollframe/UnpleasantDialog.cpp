#include "scrollframe/UnpleasantDialog.h"

BEGIN_MESSAGE_MAP(UnpleasantDialog::LateControl, CStatic)
    ON_WM_SIZE()
END_MESSAGE_MAP()

void UnpleasantDialog::LateControl::OnSize(UINT nType, int cx, int cy)
{
    CStatic::OnSize(nType, cx, cy);
    if (cx > 0 && child.m_hWnd == nullptr)
        child.Create(L"late", WS_CHILD | WS_VISIBLE, CRect(1, 1, 20, 10), this);
}

BEGIN_MESSAGE_MAP(UnpleasantDialog, ScriptDialog)
    ON_BN_CLICKED(kApply, &UnpleasantDialog::OnApply)
    ON_COMMAND(kRefresh, &UnpleasantDialog::OnRefresh)
    ON_CONTROL_RANGE(BN_CLICKED, kFirstControl, kFirstControl + kColumns - 1, &UnpleasantDialog::OnControl)
    ON_CONTROL_RANGE(BN_CLICKED, kFirstControl + kCheckBoxes * kColumns,
                     kFirstControl + kCheckBoxes * kColumns + kColumns - 1, &UnpleasantDialog::OnControl)
    ON_EN_CHANGE(kFirstControl + kEdits * kColumns, &UnpleasantDialog::OnEdited)
    ON_NOTIFY(TCN_SELCHANGE, kTabs, &UnpleasantDialog::OnTab)
    ON_WM_HSCROLL()
END_MESSAGE_MAP()

UnpleasantDialog::~UnpleasantDialog()
{
    DestroyWindow();
    ::DestroyAcceleratorTable(m_hAccelerators);
}

BOOL UnpleasantDialog::OnInitDialog()
{
    ScriptDialog::OnInitDialog();
    SetWindowText(L"Everything");
    MoveWindow(place);
    MakeControls();
    MakeTabs();
    MakeButtons();
    ACCEL refresh = {FVIRTKEY, VK_F5, kRefresh};
    ::DestroyAcceleratorTable(m_hAccelerators);
    m_hAccelerators = ::CreateAcceleratorTableW(&refresh, 1);
    return TRUE;
}

BOOL UnpleasantDialog::PreTranslateMessage(MSG* pMsg)
{
    const bool isKey = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    return (isKey && ::TranslateAcceleratorW(m_hWnd, m_hAccelerators, pMsg)) ||
           ScriptDialog::PreTranslateMessage(pMsg);
}

HWND UnpleasantDialog::Control(Row row, int column) const
{
    return ::GetDlgItem(m_hWnd, static_cast<int>(kFirstControl) + row * kColumns + column);
}

void UnpleasantDialog::MakeRow(Row row, const wchar_t* className, const wchar_t* text, DWORD dwStyle)
{
    for (int column = 0; column < kColumns; ++column)
    {
        const CRect rect(CPoint(10 + 110 * column, 10 + 60 * row), CSize(100, 20));
        const UINT nId = kFirstControl + static_cast<UINT>(row * kColumns + column);
        m_controls.push_back(std::make_unique<CWnd>());
        m_controls.back()->Create(className, text, WS_CHILD | WS_VISIBLE | dwStyle, rect, this, nId);
    }
}

void UnpleasantDialog::MakeControls()
{
    m_controls.clear();
    MakeRow(kPushButtons, L"BUTTON", L"&Zoom", WS_TABSTOP | BS_PUSHBUTTON);
    MakeRow(kEdits, L"EDIT", nullptr, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL);
    MakeRow(kCombos, L"COMBOBOX", nullptr, WS_TABSTOP | CBS_DROPDOWNLIST);
    MakeRow(kRadios, L"BUTTON", L"Radio", BS_AUTORADIOBUTTON);
    MakeRow(kListBoxes, L"LISTBOX", nullptr, LBS_NOINTEGRALHEIGHT | WS_BORDER);
    MakeRow(kStatics, L"STATIC", L"&Text", 0);
    MakeRow(kScrollBars, L"SCROLLBAR", nullptr, SBS_HORZ);
    MakeRow(kGroupBoxes, L"BUTTON", L"Group", BS_GROUPBOX);
    MakeRow(kCheckBoxes, L"BUTTON", L"Check", BS_AUTOCHECKBOX);
    MakeRow(kLastRow, L"STATIC", L"End", 0);
}

void UnpleasantDialog::MakeTabs()
{
    tabs.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 620, 660, 720), this, kTabs);
    tabs.InsertItem(0, L"First");
    tabs.InsertItem(1, L"Second");
    for (const int page : {0, 1})
    {
        m_controls.push_back(std::make_unique<CWnd>());
        m_controls.back()->Create(L"STATIC", L"Page", page == 0 ? WS_CHILD | WS_VISIBLE : WS_CHILD,
                                  page == 0 ? CRect(30, 660, 200, 700) : CRect(30, 660, 200, 900), this,
                                  kFirstPage + static_cast<UINT>(page));
    }
}

void UnpleasantDialog::MakeButtons()
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    ok.Create(L"OK", kStyle | BS_DEFPUSHBUTTON, CRect(700, 10, 775, 33), this, IDOK);
    cancel.Create(L"Cancel", kStyle, CRect(700, 40, 775, 63), this, IDCANCEL);
    apply.Create(L"&Apply", kStyle | WS_DISABLED, CRect(700, 70, 775, 93), this, kApply);
    SetDefID(IDOK);
    late.Create(nullptr, WS_CHILD, CRect(0, 0, 0, 0), this, 600);
}

void UnpleasantDialog::OnApply()
{
    log.Write("Apply");
    apply.EnableWindow(FALSE);
}

void UnpleasantDialog::OnControl(UINT nId)
{
    log.WriteCall("Clicked", nId);
}

void UnpleasantDialog::OnTab(NMHDR*, LRESULT* pResult)
{
    for (const int page : {0, 1})
        GetDlgItem(static_cast<int>(kFirstPage) + page)
            ->ShowWindow(tabs.GetCurSel() == page ? SW_SHOW : SW_HIDE);
    *pResult = 0;
}

void UnpleasantDialog::OnHScroll(UINT nCode, UINT nPos, CScrollBar* pBar)
{
    if (pBar != nullptr && nCode == SB_LINERIGHT)
        log.WriteCall("Scrolled", pBar->GetDlgCtrlID());
    ScriptDialog::OnHScroll(nCode, nPos, pBar);
}
