#pragma once

/// @file
/// Sizes and places of top-level windows across monitors of different DPI.
///
///     // at exit: the place in pixels, the size in 96-DPI units
///     CRect rcNow;
///     GetWindowRect(&rcNow);
///     CRect rc96 = rcNow;
///     ConvertTo96DPIRect(m_hWnd, rc96);
///     SaveToSettings(CRect(rcNow.TopLeft(), rc96.Size()));
///
///     // at start: never with a title bar that can't be reached
///     CRect rcSaved = LoadFromSettings();
///     CRect rcNone(0, 0, 0, 0);
///     RestoreWindowPositionSafe(this, rcSaved, rcNone);
///
/// Rectangles of windows are in screen coordinates, device pixels. All functions belong to the thread of the
/// windows that they are given; whatever they create they release.

#include <afxwin.h>

#include <vxdpi/Export.h>

/// Tells the work area (the monitor without task bar and docked tool bars) of the monitor nearest a window.
/// @param hwnd  the window.
/// @param rcWork  receives the work area in screen coordinates; untouched on failure.
/// @return TRUE, or FALSE when hwnd is null or no monitor can be had.
VXDPI_API int GetCurrentScreenWorkArea(HWND hwnd, RECT& rcWork);

/// Converts a rectangle from a window's DPI to 96 DPI.
/// @param hwnd  the window; a null or dead one counts as 96 DPI, at which the rectangle stays as it is.
/// @param rc  in device pixels; becomes 96-DPI units, each edge rounded by itself, halves away from zero.
///        Worked out in single precision, which holds coordinates up to 16777216 exactly.
VXDPI_API void ConvertTo96DPIRect(HWND hwnd, RECT& rc);

/// Gives a window its saved size and place, or centres it where its title bar could not be reached at the
/// saved place.
///
/// The title bar counts as reachable when the part of it that lies in the monitors' work areas is at least
/// three caption buttons wide and 70 % of its height high; the part is measured by its bounding box. The
/// window comes to the top of the Z order.
/// @param pWnd  the window.
/// @param rcSaved  the saved rectangle. A size in 96-DPI units is replaced, in the caller's rectangle, by
///        the size at the window's DPI.
/// @param rcReference  tells the unit of the saved size: device pixels when it has the same size, 96-DPI
///        units when it has another one, as an empty rectangle has. Nothing else of it counts.
/// @return TRUE, also when the platform refuses to move the window; FALSE with nothing changed when pWnd is
///         null or not a window.
VXDPI_API int RestoreWindowPositionSafe(CWnd* pWnd, CRect& rcSaved, CRect& rcReference);

/// Measures the font that is selected into a device context, as dialog units are based on it.
/// @param hdc  stays the caller's.
/// @param units  receives the average width of the 52 Latin letters A to Z and a to z, rounded, and the
///        height of a character, in device pixels.
/// @return TRUE, or FALSE when the font can't be measured (units untouched) or a value is not above 0 (units
///         written).
VXDPI_API int GetFontBasedDialogUnits(HDC hdc, SIZE& units);

/// Tells which client area a window needs at another DPI, in proportion to the measured size of its font
/// there: each edge is multiplied by what GetFontBasedDialogUnits measures for the font at newDpi / what it
/// measures now, halves rounded away from zero.
/// @param pWnd  a window that has a font.
/// @param newDpi  dots per inch.
/// @return the client rectangle in device pixels at newDpi; (0, 0, 0, 0) when pWnd is null or without window,
///         newDpi is 0, the window gives no device context or has no font, a font can't be made or measured,
///         or memory is short.
VXDPI_API CRect GetClientSizeForDpi(CWnd* pWnd, UINT newDpi);
