#pragma once

#include <afxwin.h>

/// Gives a dialog the gallery's icons, which a scrolling frame takes over.
void SetGalleryIcon(CDialog& dialog);

/// Gives a dialog that is about to be shown in a scrolling frame, which takes its size, the room for the
/// frame's margins, bars and buttons, so that nothing has to be scrolled where the monitor has room for all.
void GrowForFrame(CDialog& dialog);

/// Ends a dialog that is modal by itself, or the scrolling frame that it is in.
void EndModal(CDialog& dialog, int nResult);

/// @return the button that stands in for one of a dialog's while the dialog is in a scrolling frame, or null.
CWnd* FindStandIn(const CDialog& dialog, const CButton& button);

/// @return whether the scrolling frame of a dialog shows a vertical bar.
bool CanScrollDown(const CDialog& dialog);

/// Scrolls a dialog that is in a scrolling frame down, as a click on the vertical bar's trough does.
void ScrollPageDown(const CDialog& dialog);

/// Clicks on a button as the user would; does nothing without one.
void ClickButton(CWnd* pButton);
