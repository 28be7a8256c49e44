#pragma once

/// @file
/// Controls that follow the DPI of their monitor: a report list, and a button that another one stands in for.
///
/// CDPIAwareListCtrl keeps the width of every column at 96 DPI and applies it again whenever the DPI changes;
/// what the user drags is kept, too:
///
///     DDX_Control(pDX, IDC_FILES, m_files);                     // a CDPIAwareListCtrl of the dialog
///     m_files.InsertColumn(0, L"Name", LVCFMT_LEFT, 120);       // 120 at 96 DPI: 180 pixels at 144
///     const int nPixels = m_files.GetColumnWidth(0);            // widths are asked for in pixels ...
///     m_files.SetColumnWidth(0, nPixels + 10);                  // ... and set in pixels
///
/// It acts on WM_DPICHANGED_AFTERPARENT, which the system sends to the children of a per-monitor aware (V2)
/// window. CRealButton is for the dialogs of CreateScrollFrame. All controls belong to the thread that
/// creates them.

#include <afxcmn.h>
#include <afxwin.h>

#include <vxdpi/Export.h>

#include <map>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

class CButtonProxy; // inside the library

/// The header of a CDPIAwareListCtrl: tells the list what the user makes of a column while dragging its
/// divider.
///
/// The list holds one and attaches it by itself.
class VXDPI_API CDpiAwareHeaderCtrl : public CHeaderCtrl
{
public:
    /// Makes an object without a window, that tells no list.
    CDpiAwareHeaderCtrl();

    /// Forgets the list.
    virtual ~CDpiAwareHeaderCtrl();

    /// Names the list whose columns are dragged.
    /// @param pList  not owned; null for none. Only a CDPIAwareListCtrl is told of a drag.
    void SetParentListCtrl(CListCtrl* pList);

protected:
    /// Lets the header begin its own tracking, and follows the drag from there when it begins on a divider.
    /// @param nFlags  keys and buttons that are down.
    /// @param point  the mouse in client coordinates, device pixels.
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);

    /// Gives the dragged column to its list, with the width that the move leads to. A drag ends with the
    /// first move after the button has been released. When the list tells no width the move is swallowed.
    /// @param nFlags  keys and buttons that are down.
    /// @param point  the mouse in client coordinates, device pixels.
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

protected:
    int m_dragColumn;        ///< the column whose divider is dragged; -1 for none
    CPoint m_lastPoint;      ///< client coordinates of the last move that was applied
    CListCtrl* m_parentList; ///< not owned; may be null
};

/// A report list whose columns keep their width in proportion to the DPI.
///
/// Widths are recorded at 96 DPI under the index that the caller names, and applied multiplied by DPI / 96,
/// halves rounded away from zero; a width in pixels is recorded multiplied by 96 / DPI. Records are never
/// moved nor dropped: a column inserted before others leaves theirs under the old indices, and a deleted
/// column's stays. A width whose product with 96 or with the DPI leaves 32 bits is used unscaled. Each
/// change of DPI may round a recorded width by one pixel.
///
/// The header is followed in lists that have it when the object gets its window, as those of a dialog's
/// template have; a list made with Create has it only later.
class VXDPI_API CDPIAwareListCtrl : public CListCtrl
{
public:
    /// Makes an object without a window and without records.
    CDPIAwareListCtrl();

    /// Frees the records and destroys the window.
    virtual ~CDPIAwareListCtrl();

    /// Inserts a column, records its width and applies every recorded width for the DPI of the window.
    /// @param nCol  index of the new column; the width is recorded under it also when the list puts the
    ///        column elsewhere.
    /// @param pColumn  the column; a cx of 0 and more is a width at 96 DPI. For a negative one the list's own
    ///        choice is recorded as it reads, and the width of the heading's text, without any padding, when
    ///        that is below 1 or the record has no LVCF_WIDTH.
    /// @return what the list answers: the column's index, or a negative number with nothing recorded.
    int InsertColumn(int nCol, const LVCOLUMNW* pColumn);

    /// Inserts a column, records its width and applies every recorded width for the DPI of the window.
    /// @param nCol  index of the new column; the width is recorded under it also when the list puts the
    ///        column elsewhere.
    /// @param lpszColumnHeading  the heading.
    /// @param nFormat  LVCFMT_LEFT, LVCFMT_RIGHT or LVCFMT_CENTER.
    /// @param nWidth  at 96 DPI; when negative the list's own choice is recorded as it reads, and the width
    ///        of the heading's text when that is below 1.
    /// @param nSubItem  the sub-item shown in the column; -1 for none.
    /// @return what the list answers: the column's index, or a negative number with nothing recorded.
    int InsertColumn(int nCol, LPCWSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);

    /// Sets the width of a column and records it at 96 DPI.
    /// @param nCol  index of the column.
    /// @param cx  device pixels at the DPI of the window.
    /// @return what the list answers, 0 when it refuses. The width is recorded all the same, unless the
    ///         answer is -1.
    int SetColumnWidth(int nCol, int cx);

    /// Tells the header that belongs to this object.
    /// @return owned by the list, never null; without a window when there was no header to attach.
    CHeaderCtrl* GetHeaderCtrl() const;

protected:
    /// Attaches the header of the list, where it has one.
    virtual void PreSubclassWindow();

    /// Applies the recorded widths.
    /// @param wParam,lParam  not used: the DPI is taken from the window.
    /// @return 0.
    afx_msg LRESULT OnDPIChangedAfterParent(WPARAM wParam, LPARAM lParam);

    /// Applies every recorded width for the DPI of the window, column by column in ascending order.
    void UpdateColumnWidth();

    /// Measures a column's heading in the font of the list, up to 255 characters of it.
    /// @param nCol  index of the column.
    /// @return the width of the text at 96 DPI, without any padding; 0 when there is no such column.
    int GetHeaderTextLength(int nCol);

    DECLARE_MESSAGE_MAP()

protected:
    std::map<int, int> m_columnWidths96; ///< width at 96 DPI by column index
    CDpiAwareHeaderCtrl m_header;        ///< attached to the header of the list
};

/// A CDPIAwareListCtrl that leaves press-and-hold, the right click of a pen or finger, enabled.
class VXDPI_API CDPIAwareListCtrlW : public CDPIAwareListCtrl
{
public:
    /// Makes an object without a window and without records.
    CDPIAwareListCtrlW();

    /// Frees the records and destroys the window.
    virtual ~CDPIAwareListCtrlW();

protected:
    /// Tells which gestures are disabled at a point.
    /// @param ptTouch  client coordinates, device pixels.
    /// @return the TABLET_ flags of the base class without TABLET_DISABLE_PRESSANDHOLD.
    virtual ULONG GetGestureStatus(CPoint ptTouch);
};

/// A dialog's button that CreateScrollFrame can put where it stays visible.
///
/// While the dialog is shown in a scrolling frame, a proxy of the library is seen and clicked in place of the
/// button, which is hidden and gets the clicks. The proxy goes with its frame and is not forgotten then:
/// don't call EnableWindow after that.
class VXDPI_API CRealButton : public CButton
{
public:
    /// Makes an object without a window and without a proxy.
    CRealButton();

    /// Destroys the window; the proxy stays.
    virtual ~CRealButton();

    /// Names the button that stands in for this one.
    /// @param pProxy  not owned; null for none.
    /// @return the one named before, null at first.
    CButtonProxy* SetProxyButton(CButtonProxy* pProxy);

    /// Enables or disables what the user sees: the proxy alone when there is one, else this button.
    /// @param bEnable  FALSE to disable.
    /// @return nonzero when that window was disabled before.
    BOOL EnableWindow(BOOL bEnable = TRUE);

private:
    CButtonProxy* m_pProxy; // not owned; null for none
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
