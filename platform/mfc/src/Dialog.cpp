#include <afxwin.h>

#include "MessageDispatch.h"
#include "ModalLoop.h"
#include "WindowCreation.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
    ON_MESSAGE(WM_SETFONT, &CDialog::OnSetFontMessage)
END_MESSAGE_MAP()

namespace
{

// Commands of menus and toolbars, which other windows than the one they reach first may handle. Below lie the
// controls of dialogs, above the commands of the system menu.
constexpr UINT kFirstRoutedCommand = 0x8000;
constexpr UINT kLastRoutedCommand = 0xEFFF;

bool IsRoutedOn(UINT nID, int nCode, const void* pExtra)
{
    const bool isCommand = nCode == CN_UPDATE_COMMAND_UI || (nCode == CN_COMMAND && pExtra == nullptr);
    return isCommand && nID >= kFirstRoutedCommand && nID <= kLastRoutedCommand;
}

LPCDLGTEMPLATE FindTemplate(LPCTSTR lpszName)
{
    const HINSTANCE hModule = AfxFindResourceHandle(lpszName, RT_DIALOG);
    const HRSRC hResource = ::FindResource(hModule, lpszName, RT_DIALOG);
    if (hResource == nullptr)
        return nullptr;
    return static_cast<LPCDLGTEMPLATE>(::LockResource(::LoadResource(hModule, hResource)));
}

CWnd* ParentOrMainWindow(CWnd* pParentWnd)
{
    return pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd;
}

/// Access to a memory block for the scope.
class LockedBlock
{
public:
    explicit LockedBlock(HGLOBAL hBlock)
        : m_hBlock(hBlock), m_pData(hBlock == nullptr ? nullptr : ::GlobalLock(hBlock))
    {
    }

    ~LockedBlock()
    {
        if (m_pData != nullptr)
            ::GlobalUnlock(m_hBlock);
    }

    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    LPCDLGTEMPLATE Template() const { return static_cast<LPCDLGTEMPLATE>(m_pData); }

private:
    const HGLOBAL m_hBlock;
    void* const m_pData;
};

/// Keeps a window disabled for the scope, unless it is disabled already.
class DisabledWindow
{
public:
    explicit DisabledWindow(HWND hWnd) : m_hWnd(::IsWindowEnabled(hWnd) ? hWnd : nullptr)
    {
        if (m_hWnd != nullptr)
            ::EnableWindow(m_hWnd, FALSE);
    }

    ~DisabledWindow() { Enable(); }

    DisabledWindow(const DisabledWindow&) = delete;
    DisabledWindow& operator=(const DisabledWindow&) = delete;

    void Enable()
    {
        if (m_hWnd != nullptr)
            ::EnableWindow(m_hWnd, TRUE);
        m_hWnd = nullptr;
    }

private:
    HWND m_hWnd;
};

} // namespace

CDialog::CDialog() : CDialog(static_cast<LPCTSTR>(nullptr)) {}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_lpDialogTemplate(nullptr), m_hDialogTemplate(nullptr),
      m_pParentWnd(pParentWnd)
{
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCE(nIDTemplate), pParentWnd) {}

CDialog::~CDialog() = default;

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    return CreateModeless(FindTemplate(lpszTemplateName), pParentWnd);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd)
{
    return CreateModeless(lpDialogTemplate, pParentWnd);
}

BOOL CDialog::CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    const LockedBlock block(hDialogTemplate);
    return CreateModeless(block.Template(), pParentWnd);
}

BOOL CDialog::CreateModeless(LPCDLGTEMPLATE lpTemplate, CWnd* pParentWnd)
{
    return lpTemplate != nullptr &&
           CreateFromTemplate(lpTemplate, ParentOrMainWindow(pParentWnd)->GetSafeHwnd());
}

BOOL CDialog::CreateFromTemplate(LPCDLGTEMPLATE lpTemplate, HWND hParent)
{
    if (m_hWnd != nullptr)
        return FALSE; // without PostNcDestroy: the object's window lives on
    vxmfc::WindowCreation creation(this);
    return creation.Finish(
        ::CreateDialogIndirectParam(AfxGetInstanceHandle(), lpTemplate, hParent, &CDialog::DialogProc, 0));
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd)
{
    m_lpDialogTemplate = lpDialogTemplate;
    m_hDialogTemplate = nullptr;
    m_pParentWnd = ParentOrMainWindow(pParentWnd);
    return TRUE;
}

BOOL CDialog::InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    m_lpDialogTemplate = nullptr;
    m_hDialogTemplate = hDialogTemplate;
    m_pParentWnd = ParentOrMainWindow(pParentWnd);
    return TRUE;
}

INT_PTR CDialog::DoModal()
{
    const LockedBlock block(m_hDialogTemplate);
    LPCDLGTEMPLATE lpTemplate = m_lpDialogTemplate == nullptr ? block.Template() : m_lpDialogTemplate;
    if (lpTemplate == nullptr)
        lpTemplate = FindTemplate(m_lpszTemplateName);
    if (lpTemplate == nullptr)
        return -1;

    HWND hTop = nullptr;
    const HWND hOwner = GetSafeOwner(m_pParentWnd, &hTop)->GetSafeHwnd();
    DisabledWindow top(hTop == hOwner ? nullptr : hTop);
    return RunModal(lpTemplate, hOwner);
}

INT_PTR CDialog::RunModal(LPCDLGTEMPLATE lpTemplate, HWND hOwner)
{
    const HWND hFocus = ::GetFocus();
    DisabledWindow owner(hOwner);
    vxmfc::ModalLoop loop(this);
    if (!CreateFromTemplate(lpTemplate, hOwner))
    {
        // A window that is disabled loses the focus, and no dialog goes now that would give it back.
        owner.Enable();
        ::SetFocus(hFocus);
        return -1;
    }
    loop.Run((GetStyle() & DS_NOIDLEMSG) != 0 ? MLF_SHOWONIDLE | MLF_NOIDLEMSG : MLF_SHOWONIDLE);

    // The owner is enabled before the dialog goes, else the system would activate another program's window.
    owner.Enable();
    if (loop.HasWindow())
    {
        if (::GetActiveWindow() == m_hWnd)
            ::SetActiveWindow(hOwner);
        DestroyWindow();
    }
    return loop.HasResult() ? loop.Result() : IDABORT;
}

void CDialog::EndDialog(int nResult)
{
    if (m_pModalLoop != nullptr)
        EndModalLoop(nResult);
    else
        ::EndDialog(m_hWnd, nResult);
}

INT_PTR CALLBACK CDialog::DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CDialog* const pDialog = static_cast<CDialog*>(FromHandlePermanent(hWnd));
    try
    {
        return pDialog == nullptr || pDialog->OnInitDialog();
    }
    catch (CException* pException)
    {
        vxmfc::MessageDispatch::Report(pException, {hWnd, message, wParam, lParam, 0, {}});
        return TRUE;
    }
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

LRESULT CDialog::OnSetFontMessage(WPARAM wParam, LPARAM)
{
    OnSetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)));
    return Default();
}

void CDialog::OnSetFont(CFont*) {}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::MapDialogRect(LPRECT lpRect) const
{
    ::MapDialogRect(m_hWnd, lpRect);
}

void CDialog::NextDlgCtrl() const
{
    ::SendMessage(m_hWnd, WM_NEXTDLGCTL, FALSE, FALSE);
}

void CDialog::PrevDlgCtrl() const
{
    ::SendMessage(m_hWnd, WM_NEXTDLGCTL, TRUE, FALSE);
}

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl)
{
    ::SendMessage(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->GetSafeHwnd()), TRUE);
}

DWORD CDialog::GetDefID() const
{
    return static_cast<DWORD>(::SendMessage(m_hWnd, DM_GETDEFID, 0, 0));
}

void CDialog::SetDefID(UINT nID)
{
    ::SendMessage(m_hWnd, DM_SETDEFID, nID, 0);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    const bool isKey = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    const bool isMouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
    return CWnd::PreTranslateMessage(pMsg) || ((isKey || isMouse) && IsDialogMessage(pMsg));
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    if (!IsRoutedOn(nID, nCode, pExtra))
        return FALSE;

    CWnd* const pOwner = GetParent();
    if (pOwner != nullptr && pOwner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinThread* const pThread = AfxGetThread();
    return pThread != nullptr && pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}
