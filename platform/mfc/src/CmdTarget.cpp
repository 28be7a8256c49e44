#include <afxwin.h>

#include "MessageMap.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY kNoEntries[] = {AFX_MSGMAP_ENTRY()};
    static const AFX_MSGMAP kMap = {nullptr, kNoEntries};
    return &kMap;
}

CCmdTarget::CCmdTarget() : m_pModuleState(AfxGetModuleState()) {}

CCmdTarget::~CCmdTarget() = default;

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    const bool isUpdate = nCode == CN_UPDATE_COMMAND_UI;
    const bool isNotify = !isUpdate && pExtra != nullptr;
    const UINT message = isNotify ? WM_NOTIFY : WM_COMMAND;
    const AFX_MSGMAP_ENTRY* const pEntry =
        vxmfc::FindEntry(GetMessageMap(), {message, static_cast<UINT>(nCode), nID});
    if (pEntry == nullptr)
        return FALSE;
    if (pHandlerInfo != nullptr)
    {
        *pHandlerInfo = {this, pEntry->pfnHandler};
        return TRUE;
    }

    AFX_HANDLER_CALL call;
    call.nMessage = message;
    call.nID = nID;
    if (isUpdate)
    {
        call.pCmdUI = static_cast<CCmdUI*>(pExtra);
        call.pCmdUI->m_bContinueRouting = FALSE;
    }
    if (isNotify)
    {
        const AFX_NOTIFY* const pNotify = static_cast<const AFX_NOTIFY*>(pExtra);
        call.pNotify = pNotify->pNMHDR;
        call.pNotifyResult = pNotify->pResult;
    }
    const BOOL handled = pEntry->pfnInvoke(this, pEntry->pfnHandler, call);
    return handled && !(isUpdate && call.pCmdUI->m_bContinueRouting);
}

void CCmdTarget::BeginWaitCursor()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(1);
}

void CCmdTarget::EndWaitCursor()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(-1);
}

void CCmdTarget::RestoreWaitCursor()
{
    if (CWinApp* const pApp = AfxGetApp())
        pApp->DoWaitCursor(0);
}
