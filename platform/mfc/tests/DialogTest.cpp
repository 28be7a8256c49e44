#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "DialogResources.h"
#include "WindowFixture.h"

namespace
{

constexpr UINT kEndMessage = WM_APP + 30;
constexpr UINT kProbeMessage = WM_APP + 31;

/// Makes a window the main window for the scope.
class MainWindow
{
public:
    explicit MainWindow(CWnd* pWnd) : m_pOuter(AfxGetThread()->m_pMainWnd)
    {
        AfxGetThread()->m_pMainWnd = pWnd;
    }

    ~MainWindow() { AfxGetThread()->m_pMainWnd = m_pOuter; }

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

private:
    CWnd* const m_pOuter;
};

/// A dialog that sends itself a message when it has come up, and records what it sees then.
class CProbeDialog : public CDialog
{
public:
    explicit CProbeDialog(UINT nTemplate = IDD_MODAL, CWnd* pParent = nullptr) : CDialog(nTemplate, pParent)
    {
    }

    UINT m_nPostedCommand = IDOK; // by OnInitDialog; 0: none
    int m_nEndInInit = 0;
    bool m_endsByMessage = false;
    bool m_endsByTimer = false;
    bool m_destroysItself = false;
    CString m_text = L"from the member";
    CEdit m_edit;
    int m_nInits = 0;
    int m_nFonts = 0;
    int m_nAfterEnd = 0;
    BOOL m_bOwnerEnabled = TRUE;
    BOOL m_bVisible = FALSE;
    BOOL m_bOwnerEnabledAtEnd = FALSE;
    HWND m_hOwner = nullptr;
    std::vector<UINT> m_preTranslated;

    BOOL OnInitDialog() override
    {
        ++m_nInits;
        CDialog::OnInitDialog();
        if (m_nEndInInit != 0)
            EndDialog(m_nEndInInit);
        PostMessage(kProbeMessage);
        if (m_nPostedCommand != 0)
            PostMessage(WM_COMMAND, m_nPostedCommand);
        if (m_endsByTimer)
            SetTimer(1, 50, nullptr);
        if (m_endsByMessage || m_destroysItself)
            PostMessage(kEndMessage);
        return TRUE;
    }

    void OnSetFont(CFont* pFont) override
    {
        if (pFont->GetSafeHandle() != nullptr)
            ++m_nFonts;
    }

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        m_preTranslated.push_back(pMsg->message);
        return CDialog::PreTranslateMessage(pMsg);
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        CDialog::DoDataExchange(pDX);
        DDX_Text(pDX, IDC_TEXT, m_text);
        DDX_Control(pDX, IDC_NUMBER, m_edit);
    }

    afx_msg LRESULT OnProbe(WPARAM, LPARAM)
    {
        m_hOwner = ::GetWindow(m_hWnd, GW_OWNER);
        m_bOwnerEnabled = ::IsWindowEnabled(m_hOwner);
        return 0;
    }

    afx_msg void OnTimer(UINT_PTR)
    {
        m_bVisible = IsWindowVisible();
        EndDialog(66);
    }

    afx_msg void OnDestroy()
    {
        m_bOwnerEnabledAtEnd = ::IsWindowEnabled(::GetWindow(m_hWnd, GW_OWNER));
        CDialog::OnDestroy();
    }

    afx_msg LRESULT OnEnd(WPARAM, LPARAM)
    {
        if (m_destroysItself)
        {
            DestroyWindow();
            return 0;
        }
        EndDialog(77);
        m_nAfterEnd = ::IsWindow(m_hWnd) ? 1 : 0;
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbeDialog, CDialog)
    ON_MESSAGE(kProbeMessage, &CProbeDialog::OnProbe)
    ON_MESSAGE(kEndMessage, &CProbeDialog::OnEnd)
    ON_WM_DESTROY()
    ON_WM_TIMER()
END_MESSAGE_MAP()

/// A modeless dialog in the documented manner: ends itself, and refuses values when it is told to.
class CModelessDialog : public CDialog
{
public:
    CModelessDialog() = default;
    int m_nOk = 0;
    bool m_refuses = false;
    int m_nEnds = 0;

protected:
    void OnOK() override
    {
        ++m_nOk;
        DestroyWindow();
    }

    void OnCancel() override { DestroyWindow(); }
    void PostNcDestroy() override { ++m_nEnds; }

    void DoDataExchange(CDataExchange* pDX) override
    {
        if (!m_refuses)
            return;
        pDX->PrepareEditCtrl(IDC_NUMBER);
        pDX->Fail();
    }
};

/// Deletes itself with its window, also while it is modal.
class CVanishingDialog : public CProbeDialog
{
protected:
    void PostNcDestroy() override { delete this; }
};

/// Runs itself once more while it is modal.
class CRecursiveDialog : public CProbeDialog
{
public:
    INT_PTR m_nInnerResult = 0;

    BOOL OnInitDialog() override
    {
        m_nInnerResult = DoModal();
        return CProbeDialog::OnInitDialog();
    }
};

/// Gives up while it is being made.
class CHesitantDialog : public CModelessDialog
{
public:
    BOOL OnInitDialog() override
    {
        DestroyWindow();
        return TRUE;
    }
};

/// Ends with what its template tells: the width of its client area.
class CIndirectDialog : public CDialog
{
public:
    CIndirectDialog() = default;

    BOOL OnInitDialog() override
    {
        CRect client;
        GetClientRect(&client);
        EndDialog(client.Width());
        return CDialog::OnInitDialog();
    }
};

class CRoutingOwner : public CTestWnd
{
public:
    int m_nCommands = 0;

protected:
    afx_msg void OnCommandRouted() { ++m_nCommands; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRoutingOwner, CTestWnd)
    ON_COMMAND(IDC_ROUTED, &CRoutingOwner::OnCommandRouted)
    ON_COMMAND(IDC_TEXT, &CRoutingOwner::OnCommandRouted)
    ON_COMMAND(SC_MOVE, &CRoutingOwner::OnCommandRouted)
END_MESSAGE_MAP()

HWND OwnerOf(const CWnd& wnd)
{
    return ::GetWindow(wnd.m_hWnd, GW_OWNER);
}

// A dialog of no controls, 50 by 20 dialog units.
struct EmptyTemplate
{
    DLGTEMPLATE head = {WS_POPUP | WS_CAPTION, 0, 0, 0, 0, 50, 20};
    WORD menuClassTitle[3] = {};
};

} // namespace

TEST(Dialog, ModalResultIsTheButtonsCommand)
{
    CProbeDialog ok;
    EXPECT_EQ(ok.DoModal(), IDOK);
    CProbeDialog cancel;
    cancel.m_nPostedCommand = IDCANCEL;
    EXPECT_EQ(cancel.DoModal(), IDCANCEL);
}

TEST(Dialog, MissingTemplateGivesMinusOne)
{
    CProbeDialog dialog(IDD_MISSING);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_nInits, 0);
}

TEST(Dialog, UnknownControlClassGivesMinusOne)
{
    CProbeDialog dialog(IDD_WITHOUT_CLASS);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, ModalDialogIsShownAndItsOwnerDisabled)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    CProbeDialog dialog(IDD_MODAL, &owner);
    dialog.m_nPostedCommand = 0;
    dialog.m_endsByTimer = true;
    EXPECT_EQ(dialog.DoModal(), 66);
    EXPECT_TRUE(dialog.m_bVisible);
    EXPECT_EQ(dialog.m_hOwner, owner.m_hWnd);
    EXPECT_FALSE(dialog.m_bOwnerEnabled);
    EXPECT_TRUE(dialog.m_bOwnerEnabledAtEnd);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(Dialog, OwnerThatWasDisabledStaysSo)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    owner.EnableWindow(FALSE);
    CProbeDialog dialog(IDD_MODAL, &owner);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_FALSE(owner.IsWindowEnabled());
}

TEST(Dialog, ChildAsParentStandsForItsTopLevelWindow)
{
    CTestWnd owner;
    CTestWnd child;
    ASSERT_TRUE(owner.CreateHidden());
    ASSERT_TRUE(child.CreateIn(&owner, 1));
    CProbeDialog dialog(IDD_MODAL, &child);
    dialog.DoModal();
    EXPECT_EQ(dialog.m_hOwner, owner.m_hWnd);
}

TEST(Dialog, NullParentMeansTheMainWindow)
{
    CTestWnd main;
    ASSERT_TRUE(main.CreateHidden());
    const MainWindow mainWindow(&main);
    CProbeDialog modal;
    modal.DoModal();
    EXPECT_EQ(modal.m_hOwner, main.m_hWnd);
    CModelessDialog modeless;
    ASSERT_TRUE(modeless.Create(IDD_MODAL));
    EXPECT_EQ(OwnerOf(modeless), main.m_hWnd);
}

TEST(Dialog, EndDialogOnlySetsAFlag)
{
    CProbeDialog dialog;
    dialog.m_nPostedCommand = 0;
    dialog.m_endsByMessage = true;
    EXPECT_EQ(dialog.DoModal(), 77);
    EXPECT_EQ(dialog.m_nAfterEnd, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, EndDialogMayComeFromOnInitDialog)
{
    CProbeDialog dialog;
    dialog.m_nPostedCommand = 0;
    dialog.m_nEndInInit = 88;
    EXPECT_EQ(dialog.DoModal(), 88);
}

TEST(Dialog, ModalDialogDestroyedFromWithinAborts)
{
    CProbeDialog dialog;
    dialog.m_nPostedCommand = 0;
    dialog.m_destroysItself = true;
    EXPECT_EQ(dialog.DoModal(), IDABORT);
}

TEST(Dialog, ModalDialogMayDeleteItselfFromWithin)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    const MainWindow mainWindow(&owner);
    auto* const pDialog = new CVanishingDialog;
    pDialog->m_nPostedCommand = 0;
    pDialog->m_destroysItself = true;
    EXPECT_EQ(pDialog->DoModal(), IDABORT);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(Dialog, DialogThatIsModalAlreadyIsNotRunAgain)
{
    CRecursiveDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_nInnerResult, -1);
    EXPECT_EQ(dialog.m_nInits, 1);
}

TEST(Dialog, ExistingModelessDialogIsNotCreatedAgain)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    const HWND hWnd = dialog;
    EXPECT_FALSE(dialog.Create(IDD_MODAL));
    EXPECT_EQ(dialog.m_hWnd, hWnd);
    EXPECT_EQ(dialog.m_nEnds, 0);
}

TEST(Dialog, CreateFailsWhenTheDialogEndsInOnInitDialog)
{
    CHesitantDialog dialog;
    EXPECT_FALSE(dialog.Create(IDD_MODAL));
    EXPECT_EQ(dialog.m_nEnds, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, FailedModalCreationLeavesTheFocusWithTheOwner)
{
    CTestWnd owner;
    ASSERT_TRUE(owner.CreateHidden());
    owner.ShowWindow(SW_SHOW);
    owner.SetFocus();
    ASSERT_EQ(::GetFocus(), owner.m_hWnd);
    CProbeDialog dialog(IDD_WITHOUT_CLASS, &owner);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(::GetFocus(), owner.m_hWnd);
}

TEST(Dialog, LastTemplateInMemoryIsTheOneThatRuns)
{
    EmptyTemplate narrow;
    EmptyTemplate wide;
    narrow.head.cx = 60;
    wide.head.cx = 120;
    const HGLOBAL hWide = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(wide));
    std::memcpy(::GlobalLock(hWide), &wide, sizeof(wide));
    ::GlobalUnlock(hWide);
    CIndirectDialog dialog;
    ASSERT_TRUE(dialog.InitModalIndirect(&narrow.head));
    const INT_PTR nNarrow = dialog.DoModal();
    ASSERT_TRUE(dialog.InitModalIndirect(hWide));
    EXPECT_GT(dialog.DoModal(), nNarrow);
    ASSERT_TRUE(dialog.InitModalIndirect(&narrow.head));
    EXPECT_EQ(dialog.DoModal(), nNarrow);
    ::GlobalFree(hWide);
}

TEST(Dialog, QuitEndsTheDialogAndStaysInTheQueue)
{
    CProbeDialog dialog;
    dialog.m_nPostedCommand = 0;
    ::PostQuitMessage(5);
    EXPECT_EQ(dialog.DoModal(), IDABORT);
    MSG message = {};
    EXPECT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 5u);
}

TEST(Dialog, SameObjectCanRunTwice)
{
    CProbeDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_nInits, 2);
}

TEST(Dialog, DataGoesToTheControlsAndBack)
{
    CProbeDialog dialog;
    dialog.m_nPostedCommand = 0;
    dialog.m_endsByMessage = true;
    dialog.DoModal();
    EXPECT_EQ(dialog.m_text, L"from the member");
    CProbeDialog other;
    ASSERT_TRUE(other.Create(IDD_MODAL));
    CString shown;
    other.GetDlgItemText(IDC_TEXT, shown);
    EXPECT_EQ(shown, L"from the member");
    other.SetDlgItemText(IDC_TEXT, L"typed");
    EXPECT_TRUE(other.UpdateData());
    EXPECT_EQ(other.m_text, L"typed");
    other.DestroyWindow();
}

TEST(Dialog, ControlIsSubclassedByTheBaseOnInitDialog)
{
    CProbeDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    EXPECT_EQ(CWnd::FromHandlePermanent(::GetDlgItem(dialog, IDC_NUMBER)), &dialog.m_edit);
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.m_edit.m_hWnd, nullptr);
}

TEST(Dialog, FailedExchangeAnswersFalseAndMovesTheFocus)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    dialog.ShowWindow(SW_SHOW);
    dialog.m_refuses = true;
    EXPECT_FALSE(dialog.UpdateData());
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog, IDC_NUMBER));
}

TEST(Dialog, ExchangeWithAMissingControlThrows)
{
    CTestWnd wnd;
    ASSERT_TRUE(wnd.CreateHidden());
    CDataExchange exchange(&wnd, TRUE);
    try
    {
        exchange.PrepareCtrl(4711);
        FAIL() << "no exception";
    }
    catch (CNotSupportedException* pException)
    {
        pException->Delete();
    }
}

TEST(Dialog, FontOfTheTemplateIsAnnounced)
{
    CProbeDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    EXPECT_EQ(dialog.m_nFonts, 1);
    dialog.DestroyWindow();
}

TEST(Dialog, ModelessDialogComesUpHidden)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_EQ(CWnd::FromHandlePermanent(dialog.m_hWnd), &dialog);
}

TEST(Dialog, ModelessCreateWithoutATemplateFails)
{
    CModelessDialog dialog;
    EXPECT_FALSE(dialog.Create(IDD_MISSING));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, FailedModelessCreateCallsPostNcDestroyOnce)
{
    CModelessDialog dialog;
    EXPECT_FALSE(dialog.Create(IDD_WITHOUT_CLASS));
    EXPECT_EQ(dialog.m_nEnds, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, ModelessDialogEndsInItsOwnOverrides)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(dialog.m_nOk, 1);
    EXPECT_EQ(dialog.m_nEnds, 1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, EndDialogHidesAModelessDialogOnly)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    dialog.ShowWindow(SW_SHOW);
    dialog.EndDialog(IDOK);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
    EXPECT_FALSE(dialog.IsWindowVisible());
}

TEST(Dialog, ChildTemplateMakesAChild)
{
    CTestWnd parent;
    ASSERT_TRUE(parent.CreateHidden());
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(MAKEINTRESOURCE(IDD_CHILD), &parent));
    EXPECT_EQ(dialog.GetParent(), &parent);
}

TEST(Dialog, TemplateInMemoryWorksModelessAndModal)
{
    const EmptyTemplate emptyTemplate;
    CModelessDialog modeless;
    EXPECT_TRUE(modeless.CreateIndirect(&emptyTemplate.head));

    class CIndirect : public CDialog
    {
        BOOL OnInitDialog() override
        {
            EndDialog(33);
            return CDialog::OnInitDialog();
        }
    } modal;
    EXPECT_TRUE(modal.InitModalIndirect(&emptyTemplate.head));
    EXPECT_EQ(modal.DoModal(), 33);
}

TEST(Dialog, TemplateInAMemoryBlockWorks)
{
    const EmptyTemplate emptyTemplate;
    const HGLOBAL hBlock = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(emptyTemplate));
    std::memcpy(::GlobalLock(hBlock), &emptyTemplate, sizeof(emptyTemplate));
    ::GlobalUnlock(hBlock);
    CModelessDialog dialog;
    EXPECT_TRUE(dialog.CreateIndirect(hBlock));
    EXPECT_EQ(::GlobalFree(hBlock), nullptr);
}

TEST(Dialog, PreTranslationSeesMessagesOfAModalDialog)
{
    CProbeDialog dialog;
    dialog.DoModal();
    EXPECT_FALSE(dialog.m_preTranslated.empty());
}

TEST(Dialog, EscapeKeyCancelsAModalDialog)
{
    class CEscapedDialog : public CProbeDialog
    {
        BOOL OnInitDialog() override
        {
            m_nPostedCommand = 0;
            CProbeDialog::OnInitDialog();
            ::PostMessage(::GetDlgItem(m_hWnd, IDC_TEXT), WM_KEYDOWN, VK_ESCAPE, 1);
            return TRUE;
        }
    } dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Dialog, RectangleIsMappedByTheDialogsFont)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    CRect expected(0, 0, 4, 8);
    ::MapDialogRect(dialog, &expected);
    CRect rect(0, 0, 4, 8);
    dialog.MapDialogRect(&rect);
    EXPECT_EQ(rect, expected);
    EXPECT_GT(rect.Width(), 4);
}

TEST(Dialog, DefaultButtonIsReadAndChanged)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    EXPECT_EQ(LOWORD(dialog.GetDefID()), IDOK);
    EXPECT_EQ(HIWORD(dialog.GetDefID()), DC_HASDEFID);
    dialog.SetDefID(IDCANCEL);
    EXPECT_EQ(LOWORD(dialog.GetDefID()), IDCANCEL);
}

TEST(Dialog, FocusMovesFromControlToControl)
{
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL));
    dialog.ShowWindow(SW_SHOW);
    dialog.GotoDlgCtrl(dialog.GetDlgItem(IDC_TEXT));
    dialog.NextDlgCtrl();
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog, IDC_NUMBER));
    dialog.PrevDlgCtrl();
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog, IDC_TEXT));
}

TEST(Dialog, UnhandledCommandGoesOnToTheOwner)
{
    CRoutingOwner owner;
    ASSERT_TRUE(owner.CreateHidden());
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL, &owner));
    dialog.SendMessage(WM_COMMAND, IDC_ROUTED);
    EXPECT_EQ(owner.m_nCommands, 1);
    dialog.SendMessage(WM_COMMAND, SC_MOVE);
    EXPECT_EQ(owner.m_nCommands, 1);
}

TEST(Dialog, ControlNotificationsStayInTheDialog)
{
    CRoutingOwner owner;
    ASSERT_TRUE(owner.CreateHidden());
    CModelessDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_MODAL, &owner));
    const LPARAM control = reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDC_TEXT));
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_TEXT, 0), control);
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_ROUTED, EN_CHANGE), control);
    EXPECT_EQ(owner.m_nCommands, 0);
}
