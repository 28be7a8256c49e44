#pragma once

#include <afxwin.h>

#include "HandleMap.h"

struct WndTraits
{
    static CWnd* Create(HWND hWnd);
    static void Release(CWnd* pWnd);
};

struct DcTraits
{
    static CDC* Create(HDC hDC);
    static void Release(CDC* pDC);
};

struct GdiObjectTraits
{
    static CGdiObject* Create(HGDIOBJ hObject); // the class that fits the kind of object
    static void Release(CGdiObject* pObject);
};

struct ImageListTraits
{
    static CImageList* Create(HIMAGELIST hImageList);
    static void Release(CImageList* pImageList);
};

struct MenuTraits
{
    static CMenu* Create(HMENU hMenu);
    static void Release(CMenu* pMenu);
};

/// What the framework keeps per thread and module state: objects made in one module are found only there.
struct ModuleThreadState
{
    CWinThread* currentThread = nullptr;
    HandleMap<CWnd, HWND, WndTraits> windows;
    HandleMap<CDC, HDC, DcTraits> deviceContexts;
    HandleMap<CGdiObject, HGDIOBJ, GdiObjectTraits> gdiObjects;
    HandleMap<CImageList, HIMAGELIST, ImageListTraits> imageLists;
    HandleMap<CMenu, HMENU, MenuTraits> menus;
};

/// What the framework keeps per thread, whichever module is current.
struct ThreadState
{
    AFX_MODULE_STATE* moduleState = nullptr; // null: the program's state
    CWnd* windowBeingCreated = nullptr;      // subclassed by the creation hook before its first message
    HHOOK creationHook = nullptr;
    MSG currentMessage = {}; // the message that a window procedure is handling, see CWnd::GetCurrentMessage
};

/// The calling thread's state; made on first use.
ThreadState& CurrentThreadState();

/// The calling thread's state within the current module; made on first use.
ModuleThreadState& CurrentModuleThreadState();

/// Ends the temporary objects of the calling thread in the current module; idle processing calls it.
void DeleteTemporaryObjects();
