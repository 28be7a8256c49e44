#pragma once

/// @file
/// The DPI of a window, and the life of GDI+ in a process.
///
/// VxSafeGetDpiForWindow answers for any window, and never 0. PNG images and the draw board need a running
/// GDI+. An application starts it in one of three ways, and ends it itself (unloading the library does
/// not):
///
///     StartupGdiPlusByVxDpi();                  // at start ...
///     ShutdownGdiPlusByVxDpi();                 // ... and at exit
///
///     SetGdiPlusTokenToVxDpi(ownToken);         // GDI+ was started by the application
///
///     CGdiPlusInitializer gdiPlus;              // for the life of this object
///
/// The token functions take no lock: call them from one thread, at start-up and at exit.

#include <afxwin.h>

#include <vxdpi/Export.h>

/// Gives the DPI of a window: for a per-monitor aware one that of the monitor it is on.
/// @param hwnd  a window of any thread; may be null.
/// @return dots per inch, never 0: the window's own DPI; 96 for a null handle or a window that is gone; the
///         screen's horizontal LOGPIXELSX for a live window that has no DPI to tell, and 96 when the screen
///         tells none either.
///
/// Any thread may call it.
VXDPI_API unsigned int VxSafeGetDpiForWindow(HWND hwnd);

/// Starts GDI+ for the process and keeps its token in the library.
///
/// Starts are not counted: a second call starts GDI+ once more and forgets the first token, which is then
/// never shut down.
/// @return TRUE when GDI+ started, else FALSE; the library then holds whatever token the failing start wrote.
///
/// Takes no lock: for one thread, at start-up.
VXDPI_API int StartupGdiPlusByVxDpi();

/// Shuts GDI+ down for the token that the library holds; does nothing when it holds none.
///
/// The token stays known: a later shutdown repeats the call, and SetGdiPlusTokenToVxDpi still refuses. Takes
/// no lock: for one thread, at exit, when no object of GDI+ is left.
VXDPI_API void ShutdownGdiPlusByVxDpi();

/// Tells the GDI+ token that the library holds, so that a second component can share one start.
/// @param token  receives the token; untouched on failure.
/// @return TRUE, or FALSE when no token is held.
///
/// Takes no lock.
VXDPI_API int GetGdiPlusTokenFromVxDpi(ULONG_PTR& token);

/// Hands the library the token of a GDI+ start that the application made itself.
/// @param token  as GdiplusStartup wrote it; ShutdownGdiPlusByVxDpi will shut it down. 0 is stored too, and
///        leaves the library without a token.
/// @return TRUE, or FALSE with nothing changed when a token is held already.
///
/// Takes no lock: for one thread, at start-up.
VXDPI_API int SetGdiPlusTokenToVxDpi(ULONG_PTR token);

/// Runs GDI+ for the life of one object, apart from the token that the library holds for the process.
///
/// Copying and assignment copy the token and start nothing, so that two objects share one start and each
/// shuts it down when it dies. An object belongs to one thread, and outlives every object of GDI+ that needs
/// it.
class VXDPI_API CGdiPlusInitializer
{
public:
    /// Starts GDI+; m_token tells whether that succeeded.
    CGdiPlusInitializer();
    /// Takes the token of another start over, and starts nothing.
    /// @param other  stays as it is; both objects will shut its start down.
    CGdiPlusInitializer(const CGdiPlusInitializer& other);

    /// Takes the token of another start over, and starts nothing.
    /// @param other  stays as it is; both objects will shut its start down.
    /// @return this object.
    CGdiPlusInitializer& operator=(const CGdiPlusInitializer& other);

    /// Shuts GDI+ down, unless its start failed.
    virtual ~CGdiPlusInitializer();

    ULONG_PTR m_token; ///< token of this object's own start; 0 when the start failed
};
