#include <afxwin.h>

// What a window does with a message that no derived class handles: the default processing of its own window
// procedure and, for what a control asked of its parent, the control's own wishes before that.

namespace
{

// True when a child tells of its creation or end; other notifications carry a point in place of the child.
bool NamesChild(UINT message)
{
    return LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY;
}

// The control that the message comes from. A derived class may have passed on another one, or a temporary
// object that is gone by now.
HWND Sender(const MSG* pMessage)
{
    return reinterpret_cast<HWND>(pMessage->lParam);
}

} // namespace

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType == ODT_MENU || !ReflectLastMsg(lpDrawItemStruct->hwndItem))
        Default();
}

void CWnd::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    const bool isMenu = lpMeasureItemStruct->CtlType == ODT_MENU;
    if (isMenu || !ReflectLastMsg(::GetDlgItem(m_hWnd, nIDCtl)))
        Default();
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct)
{
    if (!ReflectLastMsg(lpDeleteItemStruct->hwndItem))
        Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct)
{
    return static_cast<int>(ReflectOrDefault(lpCompareItemStruct->hwndItem));
}

int CWnd::OnCharToItem(UINT, CListBox*, UINT)
{
    return static_cast<int>(ReflectOrDefault(Sender(GetCurrentMessage())));
}

int CWnd::OnVKeyToItem(UINT, CListBox*, UINT)
{
    return static_cast<int>(ReflectOrDefault(Sender(GetCurrentMessage())));
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar*)
{
    ReflectOrDefault(Sender(GetCurrentMessage()));
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar*)
{
    ReflectOrDefault(Sender(GetCurrentMessage()));
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd*, UINT)
{
    return reinterpret_cast<HBRUSH>(ReflectOrDefault(Sender(GetCurrentMessage())));
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    ReflectOrDefault(NamesChild(message) ? reinterpret_cast<HWND>(lParam) : nullptr);
}

LRESULT CWnd::ReflectOrDefault(HWND hControl)
{
    LRESULT result = 0;
    return ReflectLastMsg(hControl, &result) ? result : Default();
}

void CWnd::OnActivate(UINT, CWnd*, BOOL)
{
    Default();
}

void CWnd::OnActivateApp(BOOL, DWORD)
{
    Default();
}

void CWnd::OnAppCommand(CWnd*, UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnCancelMode()
{
    Default();
}

void CWnd::OnCaptureChanged(CWnd*)
{
    Default();
}

void CWnd::OnChangeUIState(UINT, UINT)
{
    Default();
}

void CWnd::OnChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnChildActivate()
{
    Default();
}

void CWnd::OnClipboardUpdate()
{
    Default();
}

void CWnd::OnClose()
{
    Default();
}

void CWnd::OnContextMenu(CWnd*, CPoint)
{
    Default();
}

BOOL CWnd::OnCopyData(CWnd*, COPYDATASTRUCT*)
{
    return static_cast<BOOL>(Default());
}

int CWnd::OnCreate(LPCREATESTRUCT)
{
    return static_cast<int>(Default());
}

void CWnd::OnDeadChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnDestroy()
{
    Default();
}

BOOL CWnd::OnDeviceChange(UINT, DWORD_PTR)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnDevModeChange(LPTSTR)
{
    Default();
}

void CWnd::OnDropFiles(HDROP)
{
    Default();
}

void CWnd::OnColorizationColorChanged(DWORD, BOOL)
{
    Default();
}

void CWnd::OnCompositionChanged()
{
    Default();
}

void CWnd::OnNcRenderingChanged(BOOL)
{
    Default();
}

void CWnd::OnWindowMaximizedChanged(BOOL)
{
    Default();
}

void CWnd::OnEnable(BOOL)
{
    Default();
}

void CWnd::OnEndSession(BOOL)
{
    Default();
}

void CWnd::OnEnterIdle(UINT, CWnd*)
{
    Default();
}

void CWnd::OnEnterMenuLoop(BOOL)
{
    Default();
}

void CWnd::OnEnterSizeMove()
{
    Default();
}

BOOL CWnd::OnEraseBkgnd(CDC*)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnExitMenuLoop(BOOL)
{
    Default();
}

void CWnd::OnExitSizeMove()
{
    Default();
}

void CWnd::OnFontChange()
{
    Default();
}

UINT CWnd::OnGetDlgCode()
{
    return static_cast<UINT>(Default());
}

void CWnd::OnGetMinMaxInfo(MINMAXINFO*)
{
    Default();
}

BOOL CWnd::OnHelpInfo(HELPINFO*)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnHotKey(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnInitMenu(CMenu*)
{
    Default();
}

void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL)
{
    Default();
}

void CWnd::OnRawInput(UINT, HRAWINPUT)
{
    Default();
}

void CWnd::OnInputLangChange(UINT, UINT)
{
    Default();
}

void CWnd::OnKeyDown(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnKeyUp(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnKillFocus(CWnd*)
{
    Default();
}

void CWnd::OnLButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnMButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnMButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnMButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonUp(UINT, CPoint)
{
    Default();
}

LRESULT CWnd::OnMenuChar(UINT, UINT, CMenu*)
{
    return Default();
}

void CWnd::OnMenuSelect(UINT, UINT, HMENU)
{
    Default();
}

int CWnd::OnMouseActivate(CWnd*, UINT, UINT)
{
    return static_cast<int>(Default());
}

void CWnd::OnMouseHover(UINT, CPoint)
{
    Default();
}

void CWnd::OnMouseHWheel(UINT, short, CPoint)
{
    Default();
}

void CWnd::OnMouseLeave()
{
    Default();
}

void CWnd::OnMouseMove(UINT, CPoint)
{
    Default();
}

BOOL CWnd::OnMouseWheel(UINT, short, CPoint)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnMove(int, int)
{
    Default();
}

void CWnd::OnMoving(UINT, LPRECT)
{
    Default();
}

BOOL CWnd::OnNcActivate(BOOL)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*)
{
    Default();
}

BOOL CWnd::OnNcCreate(LPCREATESTRUCT)
{
    return static_cast<BOOL>(Default());
}

LRESULT CWnd::OnNcHitTest(CPoint)
{
    return Default();
}

void CWnd::OnNcLButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcRButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcRButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcRButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMouseHover(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMouseLeave()
{
    Default();
}

void CWnd::OnNcMouseMove(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcPaint()
{
    Default();
}

void CWnd::OnNcXButtonDblClk(short, UINT, CPoint)
{
    Default();
}

void CWnd::OnNcXButtonDown(short, UINT, CPoint)
{
    Default();
}

void CWnd::OnNcXButtonUp(short, UINT, CPoint)
{
    Default();
}

UINT CWnd::OnNotifyFormat(CWnd*, UINT)
{
    return static_cast<UINT>(Default());
}

void CWnd::OnPaint()
{
    Default();
}

UINT CWnd::OnPowerBroadcast(UINT, UINT)
{
    return static_cast<UINT>(Default());
}

HCURSOR CWnd::OnQueryDragIcon()
{
    return reinterpret_cast<HCURSOR>(Default());
}

BOOL CWnd::OnQueryEndSession()
{
    return static_cast<BOOL>(Default());
}

BOOL CWnd::OnQueryOpen()
{
    return static_cast<BOOL>(Default());
}

UINT CWnd::OnQueryUIState()
{
    return static_cast<UINT>(Default());
}

BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnSetFocus(CWnd*)
{
    Default();
}

void CWnd::OnSettingChange(UINT, LPCTSTR)
{
    Default();
}

void CWnd::OnShowWindow(BOOL, UINT)
{
    Default();
}

void CWnd::OnSize(UINT, int, int)
{
    Default();
}

void CWnd::OnSizing(UINT, LPRECT)
{
    Default();
}

void CWnd::OnStyleChanged(int, LPSTYLESTRUCT)
{
    Default();
}

void CWnd::OnStyleChanging(int, LPSTYLESTRUCT)
{
    Default();
}

void CWnd::OnSysChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnSysColorChange()
{
    Default();
}

void CWnd::OnSysCommand(UINT, LPARAM)
{
    Default();
}

void CWnd::OnSysDeadChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnSysKeyDown(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnSysKeyUp(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnTimeChange()
{
    Default();
}

void CWnd::OnTimer(UINT_PTR)
{
    Default();
}

void CWnd::OnUniChar(UINT, UINT, UINT)
{
    Default();
}

void CWnd::OnUnInitMenuPopup(CMenu*, UINT)
{
    Default();
}

void CWnd::OnUpdateUIState(UINT, UINT)
{
    Default();
}

void CWnd::OnWindowPosChanged(WINDOWPOS*)
{
    Default();
}

void CWnd::OnWindowPosChanging(WINDOWPOS*)
{
    Default();
}

void CWnd::OnSessionChange(UINT, UINT)
{
    Default();
}

void CWnd::OnXButtonDblClk(UINT, UINT, CPoint)
{
    Default();
}

void CWnd::OnXButtonDown(UINT, UINT, CPoint)
{
    Default();
}

void CWnd::OnXButtonUp(UINT, UINT, CPoint)
{
    Default();
}
