#include "MessageDispatch.h"

#include "MessageMap.h"
#include "ThreadState.h"

namespace vxmfc
{

namespace
{

/// Makes a message the thread's current one for the scope.
class CurrentMessage
{
public:
    explicit CurrentMessage(const MSG& message) : m_outer(CurrentThreadState().currentMessage)
    {
        CurrentThreadState().currentMessage = message;
    }

    ~CurrentMessage() { CurrentThreadState().currentMessage = m_outer; }

    CurrentMessage(const CurrentMessage&) = delete;
    CurrentMessage& operator=(const CurrentMessage&) = delete;

private:
    const MSG m_outer;
};

// What becomes of a message whose handler failed in a thread that the framework does not know.
LRESULT ResultOfFailure(const MSG& message)
{
    if (message.message == WM_CREATE)
        return -1;
    if (message.message == WM_PAINT)
        ::ValidateRect(message.hwnd, nullptr);
    return 0;
}

/// Finds out whether a command's own update handler disables the command.
class CommandState final : public CCmdUI
{
public:
    explicit CommandState(UINT nID) { m_nID = nID; }

    void Enable(BOOL bOn) override { m_isEnabled = bOn; }
    void SetCheck(int) override {}
    void SetRadio(BOOL) override {}
    void SetText(LPCTSTR) override {}

    bool IsEnabled(CCmdTarget* pTarget)
    {
        pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
        return m_isEnabled != FALSE;
    }

private:
    BOOL m_isEnabled = TRUE;
};

} // namespace

LRESULT MessageDispatch::Run(CWnd* pWnd, const MSG& message)
{
    AFX_MAINTAIN_STATE2 state(pWnd->m_pModuleState);
    CurrentMessage current(message);
    try
    {
        return pWnd->WindowProc(message.message, message.wParam, message.lParam);
    }
    catch (CException* pException)
    {
        return Report(pException, message);
    }
}

LRESULT MessageDispatch::Report(CException* pException, const MSG& message)
{
    CWinThread* const pThread = AfxGetThread();
    const LRESULT result = pThread == nullptr ? ResultOfFailure(message)
                                              : pThread->ProcessWndProcException(pException, &message);
    pException->Delete();
    return result;
}

} // namespace vxmfc

namespace
{

// True when a control's handler ended the window, and perhaps its object, though it left the message to it.
bool HasEnded(HWND hWnd)
{
    return !::IsWindow(hWnd);
}

} // namespace

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    CWnd* const pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProc(hWnd, nMsg, wParam, lParam);
    return vxmfc::MessageDispatch::Run(pWnd, {hWnd, nMsg, wParam, lParam, 0, {}});
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    MSG& message = CurrentThreadState().currentMessage;
    message.time = static_cast<DWORD>(::GetMessageTime());
    message.pt = CPoint(static_cast<int>(::GetMessagePos()));
    return &message;
}

LRESULT CWnd::Default()
{
    const MSG message = CurrentThreadState().currentMessage;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result))
        return result;
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pfnSuper != nullptr)
        return ::CallWindowProc(m_pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT ignored = 0;
    LRESULT& result = pResult == nullptr ? ignored : *pResult;
    if (message == WM_COMMAND)
        return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY)
        return OnNotify(wParam, lParam, &result);

    AFX_HANDLER_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    const BOOL handled = DispatchToMap(message, 0, call);
    if (handled)
        result = call.lResult;
    return handled;
}

BOOL CWnd::DispatchToMap(UINT message, UINT nCode, AFX_HANDLER_CALL& call)
{
    const AFX_MSGMAP_ENTRY* const pEntry = vxmfc::FindEntry(GetMessageMap(), {message, nCode, 0});
    if (pEntry == nullptr)
        return FALSE;
    call.nMessage = message;
    return pEntry->pfnInvoke(this, pEntry->pfnHandler, call);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT nID = LOWORD(wParam);
    const HWND hControl = reinterpret_cast<HWND>(lParam);
    if (hControl == nullptr)
    {
        if (nID == 0)
            return FALSE;
        // An accelerator reaches its command also while the menu would show it disabled.
        if (!vxmfc::CommandState(nID).IsEnabled(this))
            return TRUE;
        return OnCmdMsg(nID, CN_COMMAND, nullptr, nullptr);
    }
    const HWND hWnd = m_hWnd;
    if (ReflectLastMsg(hControl) || HasEnded(hWnd))
        return TRUE;
    return OnCmdMsg(nID, HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* const pHeader = reinterpret_cast<NMHDR*>(lParam);
    const HWND hWnd = m_hWnd;
    if (ReflectLastMsg(pHeader->hwndFrom, pResult) || HasEnded(hWnd))
        return TRUE;
    AFX_NOTIFY notify = {pResult, pHeader};
    return OnCmdMsg(static_cast<UINT>(pHeader->idFrom), static_cast<int>(pHeader->code), &notify, nullptr);
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* const pWnd = FromHandlePermanent(hWndChild);
    return pWnd != nullptr && pWnd->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG message = CurrentThreadState().currentMessage;
    return OnChildNotify(message.message, message.wParam, message.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT ignored = 0;
    LRESULT& result = pResult == nullptr ? ignored : *pResult;
    AFX_HANDLER_CALL call;
    call.wParam = wParam;
    call.lParam = lParam;
    if (message == WM_COMMAND)
        return DispatchToMap(WM_REFLECT_BASE + message, HIWORD(wParam), call);
    if (message == WM_NOTIFY)
    {
        call.pNotify = reinterpret_cast<NMHDR*>(lParam);
        call.pNotifyResult = &result;
        return DispatchToMap(WM_REFLECT_BASE + message, call.pNotify->code, call);
    }

    const BOOL handled = DispatchToMap(WM_REFLECT_BASE + message, 0, call);
    if (handled)
        result = call.lResult;
    return handled;
}
