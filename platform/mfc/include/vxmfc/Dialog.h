#pragma once

#include <vxmfc/Wnd.h>

/// Carries one exchange of data between a dialog's members and its controls, see CWnd::DoDataExchange.
class VXMFC_API CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    BOOL m_bSaveAndValidate; ///< TRUE: from the controls to the members
    CWnd* m_pDlgWnd;

    /// Names the control that is exchanged next.
    /// @return its window. Throws CNotSupportedException when there is none.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);

    /// Gives the focus to the control exchanged last and throws CUserException.
    [[noreturn]] void Fail();

private:
    HWND m_hLastControl;
    BOOL m_bLastControlIsEdit;
};

/// A dialog made from a template: modal by DoModal, modeless by Create.
///
/// A modeless dialog overrides OnOK and OnCancel to call DestroyWindow. A null parent means the
/// main window of the current thread.
class VXMFC_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);
    virtual BOOL CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);

    /// Names the template of the next DoModal, in memory that stays valid until then.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr);
    BOOL InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);

    /// @return EndDialog's argument; -1 when the dialog can't be made, IDABORT when it ended in another way.
    virtual INT_PTR DoModal();

    /// Ends the dialog when the current message has been handled; hides a modeless one.
    void EndDialog(int nResult);

    virtual BOOL OnInitDialog(); ///< TRUE: the system sets the focus
    virtual void OnSetFont(CFont* pFont);

    void MapDialogRect(LPRECT lpRect) const;
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* pWndCtrl);
    DWORD GetDefID() const;
    void SetDefID(UINT nID);

    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    CDialog();

    virtual void OnOK();
    virtual void OnCancel();

    DECLARE_MESSAGE_MAP()

private:
    static INT_PTR CALLBACK DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

    BOOL CreateModeless(LPCDLGTEMPLATE lpTemplate, CWnd* pParentWnd);
    BOOL CreateFromTemplate(LPCDLGTEMPLATE lpTemplate, HWND hParent);
    LPCDLGTEMPLATE FindModalTemplate() const;
    INT_PTR RunModal(LPCDLGTEMPLATE lpTemplate, HWND hOwner);
    LRESULT OnSetFontMessage(WPARAM wParam, LPARAM lParam);

    LPCTSTR m_lpszTemplateName;
    LPCDLGTEMPLATE m_lpDialogTemplate;
    HGLOBAL m_hDialogTemplate;
    CWnd* m_pParentWnd;
};
