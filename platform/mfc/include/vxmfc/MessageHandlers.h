#pragma once

#include <type_traits>

#include <vxmfc/CmdTarget.h>

// How the entries of message maps call their handlers. A handler's signature is stated as the list of the
// parameters that it gets, each with the part of the message that it is taken from; an entry accepts a member
// function of exactly that signature and nothing else.

/// Added to a message that the parent gives back to the control which caused it.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

/// Stands for the seven WM_CTLCOLOR… messages in message maps.
#if !defined(WM_CTLCOLOR)
#define WM_CTLCOLOR 0x0019
#endif

namespace vxmfc
{

VXMFC_API CWnd* WindowOf(LPARAM hWnd);
VXMFC_API CDC* DeviceContextOf(WPARAM hDC);
VXMFC_API CMenu* MenuOf(LPARAM hMenu);

template<class To, class From>
To ConvertParameter(From value)
{
    if constexpr (std::is_pointer_v<To> != std::is_pointer_v<From>)
        return reinterpret_cast<To>(value);
    else
        return static_cast<To>(value);
}

template<class T>
struct WParam
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return ConvertParameter<T>(call.wParam); }
};

template<class T>
struct WParamLow
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return static_cast<T>(LOWORD(call.wParam)); }
};

template<class T>
struct WParamHigh
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return static_cast<T>(HIWORD(call.wParam)); }
};

template<class T>
struct LParam
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return ConvertParameter<T>(call.lParam); }
};

template<class T>
struct LParamLow
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return static_cast<T>(LOWORD(call.lParam)); }
};

template<class T>
struct LParamHigh
{
    using Type = T;
    static T Get(const AFX_HANDLER_CALL& call) { return static_cast<T>(HIWORD(call.lParam)); }
};

struct LParamX
{
    using Type = int;
    static int Get(const AFX_HANDLER_CALL& call) { return static_cast<short>(LOWORD(call.lParam)); }
};

struct LParamY
{
    using Type = int;
    static int Get(const AFX_HANDLER_CALL& call) { return static_cast<short>(HIWORD(call.lParam)); }
};

struct LParamPoint
{
    using Type = CPoint;
    static CPoint Get(const AFX_HANDLER_CALL& call) { return CPoint(LParamX::Get(call), LParamY::Get(call)); }
};

struct WParamWnd
{
    using Type = CWnd*;
    static CWnd* Get(const AFX_HANDLER_CALL& call) { return WindowOf(static_cast<LPARAM>(call.wParam)); }
};

struct LParamWnd
{
    using Type = CWnd*;
    static CWnd* Get(const AFX_HANDLER_CALL& call) { return WindowOf(call.lParam); }
};

// A control's class adds no data to CWnd, so that a temporary window may stand for one.
template<class Control>
struct LParamWndOf
{
    using Type = Control*;
    static Control* Get(const AFX_HANDLER_CALL& call)
    {
        return reinterpret_cast<Control*>(WindowOf(call.lParam));
    }
};

struct WParamDc
{
    using Type = CDC*;
    static CDC* Get(const AFX_HANDLER_CALL& call) { return DeviceContextOf(call.wParam); }
};

struct WParamMenu
{
    using Type = CMenu*;
    static CMenu* Get(const AFX_HANDLER_CALL& call) { return MenuOf(static_cast<LPARAM>(call.wParam)); }
};

struct LParamMenu
{
    using Type = CMenu*;
    static CMenu* Get(const AFX_HANDLER_CALL& call) { return MenuOf(call.lParam); }
};

struct AppCommand
{
    using Type = UINT;
    static UINT Get(const AFX_HANDLER_CALL& call) { return GET_APPCOMMAND_LPARAM(call.lParam); }
};

struct AppCommandDevice
{
    using Type = UINT;
    static UINT Get(const AFX_HANDLER_CALL& call) { return GET_DEVICE_LPARAM(call.lParam); }
};

// CTLCOLOR_MSGBOX … CTLCOLOR_STATIC, also of a reflected message.
struct ControlColorKind
{
    using Type = UINT;
    static UINT Get(const AFX_HANDLER_CALL& call)
    {
        const UINT base = call.nMessage >= WM_REFLECT_BASE ? WM_REFLECT_BASE : 0;
        return call.nMessage - base - WM_CTLCOLORMSGBOX;
    }
};

struct CommandId
{
    using Type = UINT;
    static UINT Get(const AFX_HANDLER_CALL& call) { return call.nID; }
};

struct NotifyHeader
{
    using Type = NMHDR*;
    static NMHDR* Get(const AFX_HANDLER_CALL& call) { return call.pNotify; }
};

struct NotifyResult
{
    using Type = LRESULT*;
    static LRESULT* Get(const AFX_HANDLER_CALL& call) { return call.pNotifyResult; }
};

struct CommandUi
{
    using Type = CCmdUI*;
    static CCmdUI* Get(const AFX_HANDLER_CALL& call) { return call.pCmdUI; }
};

/// What a handler's result says.
enum class HandlerResult
{
    Answer,      ///< it is the message's result
    Handled,     ///< TRUE: the message is settled, FALSE: the search for a handler goes on
    AnswerIfAny, ///< the message's result, or null: the search goes on
};

/// Makes the map entries for one handler signature.
template<class Target, HandlerResult kind, class Result, class... Parameters>
struct Handler
{
    using Function = Result (Target::*)(typename Parameters::Type...);

    template<class Class>
    static AFX_MSGMAP_ENTRY Entry(UINT message, Result (Class::*pfnHandler)(typename Parameters::Type...))
    {
        return Entry(message, 0, 0, 0, pfnHandler);
    }

    template<class Class>
    static AFX_MSGMAP_ENTRY Entry(UINT message, UINT nCode, UINT nFirstID, UINT nLastID,
                                  Result (Class::*pfnHandler)(typename Parameters::Type...))
    {
        const Function pfnOfTarget = static_cast<Function>(pfnHandler);
        return {message, nCode, nFirstID, nLastID, nullptr, &Invoke, AFX_PMSG(pfnOfTarget)};
    }

    template<class Class>
    static AFX_MSGMAP_ENTRY RegisteredEntry(const UINT& message,
                                            Result (Class::*pfnHandler)(typename Parameters::Type...))
    {
        AFX_MSGMAP_ENTRY entry = Entry(0, pfnHandler);
        entry.pRegisteredMessage = &message;
        return entry;
    }

private:
    static BOOL Invoke(CCmdTarget* pTarget, const AFX_PMSG& pfnHandler, AFX_HANDLER_CALL& call)
    {
        Target* const pReceiver = static_cast<Target*>(pTarget);
        const Function pfnOfTarget = pfnHandler.As<Function>();
        if constexpr (std::is_void_v<Result>)
            (pReceiver->*pfnOfTarget)(Parameters::Get(call)...);
        else
            return Settle((pReceiver->*pfnOfTarget)(Parameters::Get(call)...), call);
        return TRUE;
    }

    template<class Value>
    static BOOL Settle(Value result, AFX_HANDLER_CALL& call)
    {
        if constexpr (kind == HandlerResult::Handled)
            return result;
        call.lResult = ConvertParameter<LRESULT>(result);
        return kind == HandlerResult::Answer || call.lResult != 0;
    }
};

template<class Result, class... Parameters>
using WindowHandler = Handler<CWnd, HandlerResult::Answer, Result, Parameters...>;

template<class... Parameters>
using CommandHandler = Handler<CCmdTarget, HandlerResult::Answer, void, Parameters...>;

template<class... Parameters>
using FilteringHandler = Handler<CCmdTarget, HandlerResult::Handled, BOOL, Parameters...>;

using ActivateHandler = WindowHandler<void, WParamLow<UINT>, LParamWnd, WParamHigh<BOOL>>;
using ActivateAppHandler = WindowHandler<void, WParam<BOOL>, LParam<DWORD>>;
using AppCommandHandler = WindowHandler<void, WParamWnd, AppCommand, AppCommandDevice, LParamLow<UINT>>;
using PlainHandler = WindowHandler<void>;
using CaptureHandler = WindowHandler<void, LParamWnd>;
using UIStateHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<UINT>>;
using KeyHandler = WindowHandler<void, WParam<UINT>, LParamLow<UINT>, LParamHigh<UINT>>;
using ListKeyHandler = WindowHandler<int, WParamLow<UINT>, LParamWndOf<CListBox>, WParamHigh<UINT>>;
using CompareItemHandler = WindowHandler<int, WParam<int>, LParam<LPCOMPAREITEMSTRUCT>>;
using ContextMenuHandler = WindowHandler<void, WParamWnd, LParamPoint>;
using CopyDataHandler = WindowHandler<BOOL, WParamWnd, LParam<COPYDATASTRUCT*>>;
using CreateHandler = WindowHandler<int, LParam<LPCREATESTRUCT>>;
using CtlColorHandler = WindowHandler<HBRUSH, WParamDc, LParamWnd, ControlColorKind>;
using DeleteItemHandler = WindowHandler<void, WParam<int>, LParam<LPDELETEITEMSTRUCT>>;
using DeviceChangeHandler = WindowHandler<BOOL, WParam<UINT>, LParam<DWORD_PTR>>;
using DevModeChangeHandler = WindowHandler<void, LParam<LPTSTR>>;
using DrawItemHandler = WindowHandler<void, WParam<int>, LParam<LPDRAWITEMSTRUCT>>;
using DropFilesHandler = WindowHandler<void, WParam<HDROP>>;
using ColorChangedHandler = WindowHandler<void, WParam<DWORD>, LParam<BOOL>>;
using FlagHandler = WindowHandler<void, WParam<BOOL>>;
using EnterIdleHandler = WindowHandler<void, WParam<UINT>, LParamWnd>;
using EraseBkgndHandler = WindowHandler<BOOL, WParamDc>;
using StateHandler = WindowHandler<UINT>;
using GetMinMaxInfoHandler = WindowHandler<void, LParam<MINMAXINFO*>>;
using HelpInfoHandler = WindowHandler<BOOL, LParam<HELPINFO*>>;
using ScrollHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<UINT>, LParamWndOf<CScrollBar>>;
using InitMenuHandler = WindowHandler<void, WParamMenu>;
using InitMenuPopupHandler = WindowHandler<void, WParamMenu, LParamLow<UINT>, LParamHigh<BOOL>>;
using RawInputHandler = WindowHandler<void, WParam<UINT>, LParam<HRAWINPUT>>;
using InputLangChangeHandler = WindowHandler<void, WParam<UINT>, LParam<UINT>>;
using FocusHandler = WindowHandler<void, WParamWnd>;
using MouseHandler = WindowHandler<void, WParam<UINT>, LParamPoint>;
using MeasureItemHandler = WindowHandler<void, WParam<int>, LParam<LPMEASUREITEMSTRUCT>>;
using MenuCharHandler = WindowHandler<LRESULT, WParamLow<UINT>, WParamHigh<UINT>, LParamMenu>;
using MenuSelectHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<UINT>, LParam<HMENU>>;
using MouseActivateHandler = WindowHandler<int, WParamWnd, LParamLow<UINT>, LParamHigh<UINT>>;
using MouseHWheelHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<short>, LParamPoint>;
using MouseWheelHandler = WindowHandler<BOOL, WParamLow<UINT>, WParamHigh<short>, LParamPoint>;
using MoveHandler = WindowHandler<void, LParamX, LParamY>;
using EdgeDragHandler = WindowHandler<void, WParam<UINT>, LParam<LPRECT>>;
using NcActivateHandler = WindowHandler<BOOL, WParam<BOOL>>;
using NcCalcSizeHandler = WindowHandler<void, WParam<BOOL>, LParam<NCCALCSIZE_PARAMS*>>;
using NcCreateHandler = WindowHandler<BOOL, LParam<LPCREATESTRUCT>>;
using NcHitTestHandler = WindowHandler<LRESULT, LParamPoint>;
using NcXButtonHandler = WindowHandler<void, WParamLow<short>, WParamHigh<UINT>, LParamPoint>;
using NotifyFormatHandler = WindowHandler<UINT, WParamWnd, LParam<UINT>>;
using ParentNotifyHandler = WindowHandler<void, WParam<UINT>, LParam<LPARAM>>;
using PowerBroadcastHandler = WindowHandler<UINT, WParam<UINT>, LParam<UINT>>;
using QueryDragIconHandler = WindowHandler<HCURSOR>;
using QueryHandler = WindowHandler<BOOL>;
using SetCursorHandler = WindowHandler<BOOL, WParamWnd, LParamLow<UINT>, LParamHigh<UINT>>;
using SettingChangeHandler = WindowHandler<void, WParam<UINT>, LParam<LPCTSTR>>;
using ShowWindowHandler = WindowHandler<void, WParam<BOOL>, LParam<UINT>>;
using SizeHandler = WindowHandler<void, WParam<UINT>, LParamLow<int>, LParamHigh<int>>;
using StyleHandler = WindowHandler<void, WParam<int>, LParam<LPSTYLESTRUCT>>;
using TimerHandler = WindowHandler<void, WParam<UINT_PTR>>;
using UnInitMenuPopupHandler = WindowHandler<void, WParamMenu, LParamHigh<UINT>>;
using WindowPosHandler = WindowHandler<void, LParam<WINDOWPOS*>>;
using XButtonHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<UINT>, LParamPoint>;

using RawHandler = WindowHandler<LRESULT, WParam<WPARAM>, LParam<LPARAM>>;
using PlainCommandHandler = CommandHandler<>;
using CommandRangeHandler = CommandHandler<CommandId>;
using CommandExHandler = FilteringHandler<CommandId>;
using CommandUiHandler = CommandHandler<CommandUi>;
using NotifyHandler = CommandHandler<NotifyHeader, NotifyResult>;
using NotifyRangeHandler = CommandHandler<CommandId, NotifyHeader, NotifyResult>;
using NotifyExHandler = FilteringHandler<CommandId, NotifyHeader, NotifyResult>;

using ReflectedCommandExHandler = FilteringHandler<>;
using ReflectedNotifyExHandler = FilteringHandler<NotifyHeader, NotifyResult>;
using ReflectedColorHandler = Handler<CWnd, HandlerResult::AnswerIfAny, HBRUSH, WParamDc, ControlColorKind>;
using ReflectedItemKeyHandler = WindowHandler<int, WParamLow<UINT>, WParamHigh<UINT>>;
using ReflectedDrawItemHandler = WindowHandler<void, LParam<LPDRAWITEMSTRUCT>>;
using ReflectedMeasureItemHandler = WindowHandler<void, LParam<LPMEASUREITEMSTRUCT>>;
using ReflectedDeleteItemHandler = WindowHandler<void, LParam<LPDELETEITEMSTRUCT>>;
using ReflectedCompareItemHandler = WindowHandler<int, LParam<LPCOMPAREITEMSTRUCT>>;
using ReflectedScrollHandler = WindowHandler<void, WParamLow<UINT>, WParamHigh<UINT>>;

} // namespace vxmfc
