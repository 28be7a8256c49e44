#pragma once

#include <vxmfc/MessageHandlers.h>
#include <vxmfc/Wnd.h>

// Message maps. BEGIN_MESSAGE_MAP and END_MESSAGE_MAP define a class's map in one source file; the entries
// between them name handlers as &ThisClass::OnXxx, where ThisClass is known inside every map.

#define BEGIN_MESSAGE_MAP(theClass, baseClass) \
    const AFX_MSGMAP* theClass::GetMessageMap() const \
    { \
        return GetThisMessageMap(); \
    } \
    const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap() \
    { \
        using ThisClass [[maybe_unused]] = theClass; \
        using TheBaseClass = baseClass; \
        static const AFX_MSGMAP_ENTRY kEntries[] = {

#define BEGIN_TEMPLATE_MESSAGE_MAP(theClass, type_name, baseClass) \
    template<typename type_name> \
    const AFX_MSGMAP* theClass<type_name>::GetMessageMap() const \
    { \
        return GetThisMessageMap(); \
    } \
    template<typename type_name> \
    const AFX_MSGMAP* PASCAL theClass<type_name>::GetThisMessageMap() \
    { \
        using ThisClass [[maybe_unused]] = theClass<type_name>; \
        using TheBaseClass = baseClass; \
        static const AFX_MSGMAP_ENTRY kEntries[] = {

#define END_MESSAGE_MAP() \
    AFX_MSGMAP_ENTRY() \
    } \
    ; \
    static const AFX_MSGMAP kMap = {&TheBaseClass::GetThisMessageMap, kEntries}; \
    return &kMap; \
    }

// Raw messages: LRESULT fn(WPARAM, LPARAM)

#define ON_MESSAGE(message, memberFxn) vxmfc::RawHandler::Entry(message, memberFxn),
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn) \
    vxmfc::RawHandler::RegisteredEntry(nMessageVariable, memberFxn),

// Commands and control notifications

#define ON_COMMAND(id, memberFxn) \
    vxmfc::PlainCommandHandler::Entry(WM_COMMAND, CN_COMMAND, id, id, memberFxn),
#define ON_COMMAND_EX(id, memberFxn) \
    vxmfc::CommandExHandler::Entry(WM_COMMAND, CN_COMMAND, id, id, memberFxn),
#define ON_COMMAND_RANGE(id, idLast, memberFxn) \
    vxmfc::CommandRangeHandler::Entry(WM_COMMAND, CN_COMMAND, id, idLast, memberFxn),
#define ON_COMMAND_RANGE_EX(id, idLast, memberFxn) \
    vxmfc::CommandExHandler::Entry(WM_COMMAND, CN_COMMAND, id, idLast, memberFxn),
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
    vxmfc::CommandUiHandler::Entry(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, memberFxn),
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn) \
    vxmfc::CommandUiHandler::Entry(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, memberFxn),
#define ON_CONTROL(wNotifyCode, id, memberFxn) \
    vxmfc::PlainCommandHandler::Entry(WM_COMMAND, wNotifyCode, id, id, memberFxn),
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn) \
    vxmfc::CommandRangeHandler::Entry(WM_COMMAND, wNotifyCode, id, idLast, memberFxn),
#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
    vxmfc::NotifyHandler::Entry(WM_NOTIFY, wNotifyCode, id, id, memberFxn),
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn) \
    vxmfc::NotifyRangeHandler::Entry(WM_NOTIFY, wNotifyCode, id, idLast, memberFxn),
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) \
    vxmfc::NotifyExHandler::Entry(WM_NOTIFY, wNotifyCode, id, id, memberFxn),
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn) \
    vxmfc::NotifyExHandler::Entry(WM_NOTIFY, wNotifyCode, id, idLast, memberFxn),

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DISABLE(id, memberFxn) ON_CONTROL(BN_DISABLE, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_HILITE(id, memberFxn) ON_CONTROL(BN_HILITE, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_BN_PAINT(id, memberFxn) ON_CONTROL(BN_PAINT, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_UNHILITE(id, memberFxn) ON_CONTROL(BN_UNHILITE, id, memberFxn)

#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_ERRSPACE(id, memberFxn) ON_CONTROL(CBN_ERRSPACE, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)

#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)

#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_ERRSPACE(id, memberFxn) ON_CONTROL(LBN_ERRSPACE, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)

#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_STN_DISABLE(id, memberFxn) ON_CONTROL(STN_DISABLE, id, memberFxn)
#define ON_STN_ENABLE(id, memberFxn) ON_CONTROL(STN_ENABLE, id, memberFxn)

// Messages that the parent gives back to the control

#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
    vxmfc::PlainCommandHandler::Entry(WM_REFLECT_BASE + WM_COMMAND, wNotifyCode, 0, 0, memberFxn),
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn) \
    vxmfc::ReflectedCommandExHandler::Entry(WM_REFLECT_BASE + WM_COMMAND, wNotifyCode, 0, 0, memberFxn),
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn) \
    vxmfc::NotifyHandler::Entry(WM_REFLECT_BASE + WM_NOTIFY, wNotifyCode, 0, 0, memberFxn),
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn) \
    vxmfc::ReflectedNotifyExHandler::Entry(WM_REFLECT_BASE + WM_NOTIFY, wNotifyCode, 0, 0, memberFxn),

#define ON_WM_CTLCOLOR_REFLECT() \
    vxmfc::ReflectedColorHandler::Entry(WM_REFLECT_BASE + WM_CTLCOLOR, &ThisClass::CtlColor),
#define ON_WM_DRAWITEM_REFLECT() \
    vxmfc::ReflectedDrawItemHandler::Entry(WM_REFLECT_BASE + WM_DRAWITEM, &ThisClass::DrawItem),
#define ON_WM_MEASUREITEM_REFLECT() \
    vxmfc::ReflectedMeasureItemHandler::Entry(WM_REFLECT_BASE + WM_MEASUREITEM, &ThisClass::MeasureItem),
#define ON_WM_DELETEITEM_REFLECT() \
    vxmfc::ReflectedDeleteItemHandler::Entry(WM_REFLECT_BASE + WM_DELETEITEM, &ThisClass::DeleteItem),
#define ON_WM_COMPAREITEM_REFLECT() \
    vxmfc::ReflectedCompareItemHandler::Entry(WM_REFLECT_BASE + WM_COMPAREITEM, &ThisClass::CompareItem),
#define ON_WM_CHARTOITEM_REFLECT() \
    vxmfc::ReflectedItemKeyHandler::Entry(WM_REFLECT_BASE + WM_CHARTOITEM, &ThisClass::CharToItem),
#define ON_WM_VKEYTOITEM_REFLECT() \
    vxmfc::ReflectedItemKeyHandler::Entry(WM_REFLECT_BASE + WM_VKEYTOITEM, &ThisClass::VKeyToItem),
#define ON_WM_HSCROLL_REFLECT() \
    vxmfc::ReflectedScrollHandler::Entry(WM_REFLECT_BASE + WM_HSCROLL, &ThisClass::HScroll),
#define ON_WM_VSCROLL_REFLECT() \
    vxmfc::ReflectedScrollHandler::Entry(WM_REFLECT_BASE + WM_VSCROLL, &ThisClass::VScroll),
#define ON_WM_PARENTNOTIFY_REFLECT() \
    vxmfc::ParentNotifyHandler::Entry(WM_REFLECT_BASE + WM_PARENTNOTIFY, &ThisClass::ParentNotify),

// Window messages; each takes the handler of its own name and exact signature

#define ON_WM_ACTIVATE() vxmfc::ActivateHandler::Entry(WM_ACTIVATE, &ThisClass::OnActivate),
#define ON_WM_ACTIVATEAPP() vxmfc::ActivateAppHandler::Entry(WM_ACTIVATEAPP, &ThisClass::OnActivateApp),
#define ON_WM_APPCOMMAND() vxmfc::AppCommandHandler::Entry(WM_APPCOMMAND, &ThisClass::OnAppCommand),
#define ON_WM_CANCELMODE() vxmfc::PlainHandler::Entry(WM_CANCELMODE, &ThisClass::OnCancelMode),
#define ON_WM_CAPTURECHANGED() vxmfc::CaptureHandler::Entry(WM_CAPTURECHANGED, &ThisClass::OnCaptureChanged),
#define ON_WM_CHANGEUISTATE() vxmfc::UIStateHandler::Entry(WM_CHANGEUISTATE, &ThisClass::OnChangeUIState),
#define ON_WM_CHAR() vxmfc::KeyHandler::Entry(WM_CHAR, &ThisClass::OnChar),
#define ON_WM_CHARTOITEM() vxmfc::ListKeyHandler::Entry(WM_CHARTOITEM, &ThisClass::OnCharToItem),
#define ON_WM_CHILDACTIVATE() vxmfc::PlainHandler::Entry(WM_CHILDACTIVATE, &ThisClass::OnChildActivate),
#define ON_WM_CLIPBOARDUPDATE() vxmfc::PlainHandler::Entry(WM_CLIPBOARDUPDATE, &ThisClass::OnClipboardUpdate),
#define ON_WM_CLOSE() vxmfc::PlainHandler::Entry(WM_CLOSE, &ThisClass::OnClose),
#define ON_WM_COMPAREITEM() vxmfc::CompareItemHandler::Entry(WM_COMPAREITEM, &ThisClass::OnCompareItem),
#define ON_WM_CONTEXTMENU() vxmfc::ContextMenuHandler::Entry(WM_CONTEXTMENU, &ThisClass::OnContextMenu),
#define ON_WM_COPYDATA() vxmfc::CopyDataHandler::Entry(WM_COPYDATA, &ThisClass::OnCopyData),
#define ON_WM_CREATE() vxmfc::CreateHandler::Entry(WM_CREATE, &ThisClass::OnCreate),
#define ON_WM_CTLCOLOR() vxmfc::CtlColorHandler::Entry(WM_CTLCOLOR, &ThisClass::OnCtlColor),
#define ON_WM_DEADCHAR() vxmfc::KeyHandler::Entry(WM_DEADCHAR, &ThisClass::OnDeadChar),
#define ON_WM_DELETEITEM() vxmfc::DeleteItemHandler::Entry(WM_DELETEITEM, &ThisClass::OnDeleteItem),
#define ON_WM_DESTROY() vxmfc::PlainHandler::Entry(WM_DESTROY, &ThisClass::OnDestroy),
#define ON_WM_DEVICECHANGE() vxmfc::DeviceChangeHandler::Entry(WM_DEVICECHANGE, &ThisClass::OnDeviceChange),
#define ON_WM_DEVMODECHANGE() \
    vxmfc::DevModeChangeHandler::Entry(WM_DEVMODECHANGE, &ThisClass::OnDevModeChange),
#define ON_WM_DRAWITEM() vxmfc::DrawItemHandler::Entry(WM_DRAWITEM, &ThisClass::OnDrawItem),
#define ON_WM_DROPFILES() vxmfc::DropFilesHandler::Entry(WM_DROPFILES, &ThisClass::OnDropFiles),
#define ON_WM_DWMCOLORIZATIONCOLORCHANGED() \
    vxmfc::ColorChangedHandler::Entry(WM_DWMCOLORIZATIONCOLORCHANGED, &ThisClass::OnColorizationColorChanged),
#define ON_WM_DWMCOMPOSITIONCHANGED() \
    vxmfc::PlainHandler::Entry(WM_DWMCOMPOSITIONCHANGED, &ThisClass::OnCompositionChanged),
#define ON_WM_DWMNCRENDERINGCHANGED() \
    vxmfc::FlagHandler::Entry(WM_DWMNCRENDERINGCHANGED, &ThisClass::OnNcRenderingChanged),
#define ON_WM_DWMWINDOWMAXIMIZEDCHANGE() \
    vxmfc::FlagHandler::Entry(WM_DWMWINDOWMAXIMIZEDCHANGE, &ThisClass::OnWindowMaximizedChanged),
#define ON_WM_ENABLE() vxmfc::FlagHandler::Entry(WM_ENABLE, &ThisClass::OnEnable),
#define ON_WM_ENDSESSION() vxmfc::FlagHandler::Entry(WM_ENDSESSION, &ThisClass::OnEndSession),
#define ON_WM_ENTERIDLE() vxmfc::EnterIdleHandler::Entry(WM_ENTERIDLE, &ThisClass::OnEnterIdle),
#define ON_WM_ENTERMENULOOP() vxmfc::FlagHandler::Entry(WM_ENTERMENULOOP, &ThisClass::OnEnterMenuLoop),
#define ON_WM_ENTERSIZEMOVE() vxmfc::PlainHandler::Entry(WM_ENTERSIZEMOVE, &ThisClass::OnEnterSizeMove),
#define ON_WM_ERASEBKGND() vxmfc::EraseBkgndHandler::Entry(WM_ERASEBKGND, &ThisClass::OnEraseBkgnd),
#define ON_WM_EXITMENULOOP() vxmfc::FlagHandler::Entry(WM_EXITMENULOOP, &ThisClass::OnExitMenuLoop),
#define ON_WM_EXITSIZEMOVE() vxmfc::PlainHandler::Entry(WM_EXITSIZEMOVE, &ThisClass::OnExitSizeMove),
#define ON_WM_FONTCHANGE() vxmfc::PlainHandler::Entry(WM_FONTCHANGE, &ThisClass::OnFontChange),
#define ON_WM_GETDLGCODE() vxmfc::StateHandler::Entry(WM_GETDLGCODE, &ThisClass::OnGetDlgCode),
#define ON_WM_GETMINMAXINFO() \
    vxmfc::GetMinMaxInfoHandler::Entry(WM_GETMINMAXINFO, &ThisClass::OnGetMinMaxInfo),
#define ON_WM_HELPINFO() vxmfc::HelpInfoHandler::Entry(WM_HELP, &ThisClass::OnHelpInfo),
#define ON_WM_HOTKEY() vxmfc::KeyHandler::Entry(WM_HOTKEY, &ThisClass::OnHotKey),
#define ON_WM_HSCROLL() vxmfc::ScrollHandler::Entry(WM_HSCROLL, &ThisClass::OnHScroll),
#define ON_WM_INITMENU() vxmfc::InitMenuHandler::Entry(WM_INITMENU, &ThisClass::OnInitMenu),
#define ON_WM_INITMENUPOPUP() \
    vxmfc::InitMenuPopupHandler::Entry(WM_INITMENUPOPUP, &ThisClass::OnInitMenuPopup),
#define ON_WM_INPUT() vxmfc::RawInputHandler::Entry(WM_INPUT, &ThisClass::OnRawInput),
#define ON_WM_INPUTLANGCHANGE() \
    vxmfc::InputLangChangeHandler::Entry(WM_INPUTLANGCHANGE, &ThisClass::OnInputLangChange),
#define ON_WM_KEYDOWN() vxmfc::KeyHandler::Entry(WM_KEYDOWN, &ThisClass::OnKeyDown),
#define ON_WM_KEYUP() vxmfc::KeyHandler::Entry(WM_KEYUP, &ThisClass::OnKeyUp),
#define ON_WM_KILLFOCUS() vxmfc::FocusHandler::Entry(WM_KILLFOCUS, &ThisClass::OnKillFocus),
#define ON_WM_LBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_LBUTTONDBLCLK, &ThisClass::OnLButtonDblClk),
#define ON_WM_LBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_LBUTTONDOWN, &ThisClass::OnLButtonDown),
#define ON_WM_LBUTTONUP() vxmfc::MouseHandler::Entry(WM_LBUTTONUP, &ThisClass::OnLButtonUp),
#define ON_WM_MBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_MBUTTONDBLCLK, &ThisClass::OnMButtonDblClk),
#define ON_WM_MBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_MBUTTONDOWN, &ThisClass::OnMButtonDown),
#define ON_WM_MBUTTONUP() vxmfc::MouseHandler::Entry(WM_MBUTTONUP, &ThisClass::OnMButtonUp),
#define ON_WM_RBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_RBUTTONDBLCLK, &ThisClass::OnRButtonDblClk),
#define ON_WM_RBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_RBUTTONDOWN, &ThisClass::OnRButtonDown),
#define ON_WM_RBUTTONUP() vxmfc::MouseHandler::Entry(WM_RBUTTONUP, &ThisClass::OnRButtonUp),
#define ON_WM_MEASUREITEM() vxmfc::MeasureItemHandler::Entry(WM_MEASUREITEM, &ThisClass::OnMeasureItem),
#define ON_WM_MENUCHAR() vxmfc::MenuCharHandler::Entry(WM_MENUCHAR, &ThisClass::OnMenuChar),
#define ON_WM_MENUSELECT() vxmfc::MenuSelectHandler::Entry(WM_MENUSELECT, &ThisClass::OnMenuSelect),
#define ON_WM_MOUSEACTIVATE() \
    vxmfc::MouseActivateHandler::Entry(WM_MOUSEACTIVATE, &ThisClass::OnMouseActivate),
#define ON_WM_MOUSEHOVER() vxmfc::MouseHandler::Entry(WM_MOUSEHOVER, &ThisClass::OnMouseHover),
#define ON_WM_MOUSEHWHEEL() vxmfc::MouseHWheelHandler::Entry(WM_MOUSEHWHEEL, &ThisClass::OnMouseHWheel),
#define ON_WM_MOUSELEAVE() vxmfc::PlainHandler::Entry(WM_MOUSELEAVE, &ThisClass::OnMouseLeave),
#define ON_WM_MOUSEMOVE() vxmfc::MouseHandler::Entry(WM_MOUSEMOVE, &ThisClass::OnMouseMove),
#define ON_WM_MOUSEWHEEL() vxmfc::MouseWheelHandler::Entry(WM_MOUSEWHEEL, &ThisClass::OnMouseWheel),
#define ON_WM_MOVE() vxmfc::MoveHandler::Entry(WM_MOVE, &ThisClass::OnMove),
#define ON_WM_MOVING() vxmfc::EdgeDragHandler::Entry(WM_MOVING, &ThisClass::OnMoving),
#define ON_WM_NCACTIVATE() vxmfc::NcActivateHandler::Entry(WM_NCACTIVATE, &ThisClass::OnNcActivate),
#define ON_WM_NCCALCSIZE() vxmfc::NcCalcSizeHandler::Entry(WM_NCCALCSIZE, &ThisClass::OnNcCalcSize),
#define ON_WM_NCCREATE() vxmfc::NcCreateHandler::Entry(WM_NCCREATE, &ThisClass::OnNcCreate),
#define ON_WM_NCDESTROY() vxmfc::PlainHandler::Entry(WM_NCDESTROY, &ThisClass::OnNcDestroy),
#define ON_WM_NCHITTEST() vxmfc::NcHitTestHandler::Entry(WM_NCHITTEST, &ThisClass::OnNcHitTest),
#define ON_WM_NCLBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_NCLBUTTONDBLCLK, &ThisClass::OnNcLButtonDblClk),
#define ON_WM_NCLBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_NCLBUTTONDOWN, &ThisClass::OnNcLButtonDown),
#define ON_WM_NCLBUTTONUP() vxmfc::MouseHandler::Entry(WM_NCLBUTTONUP, &ThisClass::OnNcLButtonUp),
#define ON_WM_NCMBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_NCMBUTTONDBLCLK, &ThisClass::OnNcMButtonDblClk),
#define ON_WM_NCMBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_NCMBUTTONDOWN, &ThisClass::OnNcMButtonDown),
#define ON_WM_NCMBUTTONUP() vxmfc::MouseHandler::Entry(WM_NCMBUTTONUP, &ThisClass::OnNcMButtonUp),
#define ON_WM_NCRBUTTONDBLCLK() vxmfc::MouseHandler::Entry(WM_NCRBUTTONDBLCLK, &ThisClass::OnNcRButtonDblClk),
#define ON_WM_NCRBUTTONDOWN() vxmfc::MouseHandler::Entry(WM_NCRBUTTONDOWN, &ThisClass::OnNcRButtonDown),
#define ON_WM_NCRBUTTONUP() vxmfc::MouseHandler::Entry(WM_NCRBUTTONUP, &ThisClass::OnNcRButtonUp),
#define ON_WM_NCMOUSEHOVER() vxmfc::MouseHandler::Entry(WM_NCMOUSEHOVER, &ThisClass::OnNcMouseHover),
#define ON_WM_NCMOUSELEAVE() vxmfc::PlainHandler::Entry(WM_NCMOUSELEAVE, &ThisClass::OnNcMouseLeave),
#define ON_WM_NCMOUSEMOVE() vxmfc::MouseHandler::Entry(WM_NCMOUSEMOVE, &ThisClass::OnNcMouseMove),
#define ON_WM_NCPAINT() vxmfc::PlainHandler::Entry(WM_NCPAINT, &ThisClass::OnNcPaint),
#define ON_WM_NCXBUTTONDBLCLK() \
    vxmfc::NcXButtonHandler::Entry(WM_NCXBUTTONDBLCLK, &ThisClass::OnNcXButtonDblClk),
#define ON_WM_NCXBUTTONDOWN() vxmfc::NcXButtonHandler::Entry(WM_NCXBUTTONDOWN, &ThisClass::OnNcXButtonDown),
#define ON_WM_NCXBUTTONUP() vxmfc::NcXButtonHandler::Entry(WM_NCXBUTTONUP, &ThisClass::OnNcXButtonUp),
#define ON_WM_NOTIFYFORMAT() vxmfc::NotifyFormatHandler::Entry(WM_NOTIFYFORMAT, &ThisClass::OnNotifyFormat),
#define ON_WM_PAINT() vxmfc::PlainHandler::Entry(WM_PAINT, &ThisClass::OnPaint),
#define ON_WM_PARENTNOTIFY() vxmfc::ParentNotifyHandler::Entry(WM_PARENTNOTIFY, &ThisClass::OnParentNotify),
#define ON_WM_POWERBROADCAST() \
    vxmfc::PowerBroadcastHandler::Entry(WM_POWERBROADCAST, &ThisClass::OnPowerBroadcast),
#define ON_WM_QUERYDRAGICON() \
    vxmfc::QueryDragIconHandler::Entry(WM_QUERYDRAGICON, &ThisClass::OnQueryDragIcon),
#define ON_WM_QUERYENDSESSION() vxmfc::QueryHandler::Entry(WM_QUERYENDSESSION, &ThisClass::OnQueryEndSession),
#define ON_WM_QUERYOPEN() vxmfc::QueryHandler::Entry(WM_QUERYOPEN, &ThisClass::OnQueryOpen),
#define ON_WM_QUERYUISTATE() vxmfc::StateHandler::Entry(WM_QUERYUISTATE, &ThisClass::OnQueryUIState),
#define ON_WM_SETCURSOR() vxmfc::SetCursorHandler::Entry(WM_SETCURSOR, &ThisClass::OnSetCursor),
#define ON_WM_SETFOCUS() vxmfc::FocusHandler::Entry(WM_SETFOCUS, &ThisClass::OnSetFocus),
#define ON_WM_SETTINGCHANGE() \
    vxmfc::SettingChangeHandler::Entry(WM_SETTINGCHANGE, &ThisClass::OnSettingChange),
#define ON_WM_SHOWWINDOW() vxmfc::ShowWindowHandler::Entry(WM_SHOWWINDOW, &ThisClass::OnShowWindow),
#define ON_WM_SIZE() vxmfc::SizeHandler::Entry(WM_SIZE, &ThisClass::OnSize),
#define ON_WM_SIZING() vxmfc::EdgeDragHandler::Entry(WM_SIZING, &ThisClass::OnSizing),
#define ON_WM_STYLECHANGED() vxmfc::StyleHandler::Entry(WM_STYLECHANGED, &ThisClass::OnStyleChanged),
#define ON_WM_STYLECHANGING() vxmfc::StyleHandler::Entry(WM_STYLECHANGING, &ThisClass::OnStyleChanging),
#define ON_WM_SYSCHAR() vxmfc::KeyHandler::Entry(WM_SYSCHAR, &ThisClass::OnSysChar),
#define ON_WM_SYSCOLORCHANGE() vxmfc::PlainHandler::Entry(WM_SYSCOLORCHANGE, &ThisClass::OnSysColorChange),
#define ON_WM_SYSCOMMAND() vxmfc::ParentNotifyHandler::Entry(WM_SYSCOMMAND, &ThisClass::OnSysCommand),
#define ON_WM_SYSDEADCHAR() vxmfc::KeyHandler::Entry(WM_SYSDEADCHAR, &ThisClass::OnSysDeadChar),
#define ON_WM_SYSKEYDOWN() vxmfc::KeyHandler::Entry(WM_SYSKEYDOWN, &ThisClass::OnSysKeyDown),
#define ON_WM_SYSKEYUP() vxmfc::KeyHandler::Entry(WM_SYSKEYUP, &ThisClass::OnSysKeyUp),
#define ON_WM_TIMECHANGE() vxmfc::PlainHandler::Entry(WM_TIMECHANGE, &ThisClass::OnTimeChange),
#define ON_WM_TIMER() vxmfc::TimerHandler::Entry(WM_TIMER, &ThisClass::OnTimer),
#define ON_WM_UNICHAR() vxmfc::KeyHandler::Entry(WM_UNICHAR, &ThisClass::OnUniChar),
#define ON_WM_UNINITMENUPOPUP() \
    vxmfc::UnInitMenuPopupHandler::Entry(WM_UNINITMENUPOPUP, &ThisClass::OnUnInitMenuPopup),
#define ON_WM_UPDATEUISTATE() vxmfc::UIStateHandler::Entry(WM_UPDATEUISTATE, &ThisClass::OnUpdateUIState),
#define ON_WM_VKEYTOITEM() vxmfc::ListKeyHandler::Entry(WM_VKEYTOITEM, &ThisClass::OnVKeyToItem),
#define ON_WM_VSCROLL() vxmfc::ScrollHandler::Entry(WM_VSCROLL, &ThisClass::OnVScroll),
#define ON_WM_WINDOWPOSCHANGED() \
    vxmfc::WindowPosHandler::Entry(WM_WINDOWPOSCHANGED, &ThisClass::OnWindowPosChanged),
#define ON_WM_WINDOWPOSCHANGING() \
    vxmfc::WindowPosHandler::Entry(WM_WINDOWPOSCHANGING, &ThisClass::OnWindowPosChanging),
#define ON_WM_WTSSESSION_CHANGE() \
    vxmfc::InputLangChangeHandler::Entry(WM_WTSSESSION_CHANGE, &ThisClass::OnSessionChange),
#define ON_WM_XBUTTONDBLCLK() vxmfc::XButtonHandler::Entry(WM_XBUTTONDBLCLK, &ThisClass::OnXButtonDblClk),
#define ON_WM_XBUTTONDOWN() vxmfc::XButtonHandler::Entry(WM_XBUTTONDOWN, &ThisClass::OnXButtonDown),
#define ON_WM_XBUTTONUP() vxmfc::XButtonHandler::Entry(WM_XBUTTONUP, &ThisClass::OnXButtonUp),
