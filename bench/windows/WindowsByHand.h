#pragma once

#include <afxwin.h>

#include <commctrl.h>

#include <vector>

/// What layout managers, scroll managers, lists and DPI queries ask of the platform, call by call.
namespace ByHand
{
/// Where a manager has put a control.
struct Place
{
    HWND hControl;
    int nId;
    RECT rc;
};

void PlaceOneByOne(HWND hParent, const std::vector<Place>& places);
void PlaceInBatch(HWND hParent, const std::vector<Place>& places);

/// Both bars are shown, so that nothing is moved.
void UpdateScrollBars(CWnd& parent, int nHorizontalPage, int nVerticalPage);

inline UINT DpiOf(HWND hWnd)
{
    return hWnd && ::IsWindow(hWnd) ? ::GetDpiForWindow(hWnd) : USER_DEFAULT_SCREEN_DPI;
}

/// The one that lists are filled with.
const LVCOLUMNW& Column();

/// One after the other, at the end, each time with the widths of all.
void InsertColumns(HWND hList, int count);

void SetColumnWidths(HWND hList, int count);
} // namespace ByHand
