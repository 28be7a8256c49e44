#pragma once

#include <afx.h>

#include <cstring>

/// A message handler, i.e. a member function, of any signature; only its entry's own invoker knows which.
class AFX_PMSG
{
public:
    AFX_PMSG() = default;

    template<class MemberFunction>
    explicit AFX_PMSG(MemberFunction pfnHandler)
    {
        static_assert(sizeof(pfnHandler) == sizeof(m_bytes), "handlers are pointers to member functions");
        std::memcpy(m_bytes, &pfnHandler, sizeof(m_bytes));
    }

    template<class MemberFunction>
    MemberFunction As() const
    {
        MemberFunction pfnHandler;
        std::memcpy(&pfnHandler, m_bytes, sizeof(m_bytes));
        return pfnHandler;
    }

private:
    unsigned char m_bytes[sizeof(void(CCmdTarget::*)())] = {};
};

/// What the framework hands to a handler's invoker, and gets back.
struct AFX_HANDLER_CALL
{
    UINT nMessage = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    UINT nID = 0;             // of the command or control
    NMHDR* pNotify = nullptr; // WM_NOTIFY only
    LRESULT* pNotifyResult = nullptr;
    CCmdUI* pCmdUI = nullptr; // command update only
    LRESULT lResult = 0;      // of the handler
};

/// Decodes a call's parameters, calls the handler, and tells whether that settled the message.
using AFX_HANDLER_INVOKER = BOOL (*)(CCmdTarget* pTarget, const AFX_PMSG& pfnHandler, AFX_HANDLER_CALL& call);

/// One line of a message map. A table ends with an entry that has no invoker.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage = 0;
    UINT nCode = 0; // notification code of WM_COMMAND and WM_NOTIFY entries
    UINT nFirstID = 0;
    UINT nLastID = 0;
    const UINT* pRegisteredMessage = nullptr; // in place of nMessage: a number known at run time only
    AFX_HANDLER_INVOKER pfnInvoke = nullptr;
    AFX_PMSG pfnHandler;
};

/// The message map of one class, linked to its base class's map.
struct AFX_MSGMAP
{
    const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)(); // null for the root
    const AFX_MSGMAP_ENTRY* pEntries;
};

/// What OnCmdMsg fills in when it is asked for a handler instead of to call it.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
    AFX_PMSG pmf;
};

/// What OnCmdMsg gets in pExtra for a WM_NOTIFY notification.
struct AFX_NOTIFY
{
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

/// Notification codes of commands. The update code lies outside every control's range of codes.
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = 0x7FFFFFFF;

#define DECLARE_MESSAGE_MAP() \
protected: \
    static const AFX_MSGMAP* PASCAL GetThisMessageMap(); \
    virtual const AFX_MSGMAP* GetMessageMap() const;

/// Base of every class that has a message map.
class VXMFC_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    CCmdTarget();
    ~CCmdTarget() override;

    /// Routes a command or control notification through the object's message map.
    /// @param nCode  CN_COMMAND, CN_UPDATE_COMMAND_UI or a control's notification code.
    /// @param pExtra  a CCmdUI for CN_UPDATE_COMMAND_UI, an AFX_NOTIFY for WM_NOTIFY, else null.
    /// @param pHandlerInfo  when not null, filled in with the handler, which is not called.
    /// @return nonzero when handled.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

    AFX_MODULE_STATE* m_pModuleState; ///< current at construction, and again whenever the object is called

    DECLARE_MESSAGE_MAP()
};

/// The user-interface element that an ON_UPDATE_COMMAND_UI handler is asked about: a menu item or a control.
class VXMFC_API CCmdUI
{
public:
    CCmdUI();
    virtual ~CCmdUI();

    CCmdUI(const CCmdUI&) = delete;
    CCmdUI& operator=(const CCmdUI&) = delete;

    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1); // 0 unchecked, 1 checked, 2 indeterminate
    virtual void SetRadio(BOOL bOn = TRUE);
    virtual void SetText(LPCTSTR lpszText);

    /// Asks the target to update this element.
    /// @return nonzero when the target has an update handler for it.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

    void ContinueRouting(); ///< called by a handler: the next target in the route is asked, too

    UINT m_nID;
    UINT m_nIndex;  // position in m_pMenu
    CMenu* m_pMenu; // null when the element is not a menu item
    CWnd* m_pOther; // the control; null when the element is a menu item
    BOOL m_bContinueRouting;

private:
    BOOL m_bEnableChanged;
};
