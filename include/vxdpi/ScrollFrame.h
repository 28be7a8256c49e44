#pragma once

/// @file
/// Dialogs that are larger than their monitor.
///
/// CreateScrollFrame shows a dialog inside a frame that is no larger than the work area of the monitor. The
/// dialog scrolls in it, while the buttons that the application names stay in a band at the bottom:
///
///     CSettingsDialog dialog; // its members m_ok and m_cancel are of CRealButton, attached by DDX_Control
///     const INT_PTR nResult = CreateScrollFrame(
///         IDD_SETTINGS, dialog, {{&dialog.m_ok, IDOK}, {&dialog.m_cancel, IDCANCEL}}, 0);
///
/// What it is made of serves windows of the application's own, too: CScrollManager scrolls the children of a
/// window, and CScrollLayoutManager lays out a dialog that never gets smaller than designed. Everything
/// belongs to the thread of the windows.

#include <afxwin.h>

#include <vxdpi/Controls.h>
#include <vxdpi/Export.h>
#include <vxdpi/Layout.h>

#include <utility>
#include <vector>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

/// Scrolls what a window shows: the bounding box of its visible children, with a margin of 20 pixels at 96
/// DPI.
///
/// The owner passes on the scroll messages of the window or of its scroll-bar controls, and calls
/// UpdateScrollBars whenever the visible area, the children or the DPI have changed. The manager owns no
/// window; a window that is missing makes an operation do nothing. Copies are plain copies of all fields.
class VXDPI_API CScrollManager
{
public:
    /// Which scroll bars are driven.
    enum Modal
    {
        ScrollBarControls = 0, ///< two controls; only a visible one is listened to
        WindowScrollBars = 1,  ///< the bars of the window itself
    };

    /// Makes a manager without a window.
    CScrollManager();
    /// Copies the fields as they stand.
    /// @param other  stays as it is.
    CScrollManager(const CScrollManager& other) = default;

    /// Copies the fields as they stand.
    /// @param other  stays as it is.
    /// @return this object.
    CScrollManager& operator=(const CScrollManager& other);

    /// Names the windows; sizes and positions come with UpdateScrollBars.
    /// @param pWnd  the window whose children are scrolled; not owned.
    /// @param modal  which scroll bars are driven.
    /// @param pHScrollBar,pVScrollBar  the controls; not owned. Null for a missing one; with WindowScrollBars
    ///        they are not needed, and shown and hidden as needed when given.
    /// @param reapplyOffset  1 when something puts the children back to their unscrolled places before each
    ///        UpdateScrollBars, which then scrolls them again; 0 when they stay where they were scrolled to.
    /// @return TRUE, or FALSE with nothing changed when pWnd is null or without window.
    BOOL Create(CWnd* pWnd, Modal modal, CScrollBar* pHScrollBar, CScrollBar* pVScrollBar, int reapplyOffset);

    /// Scrolls horizontally: by 8 device pixels at any DPI for an arrow, by the visible width for the
    /// trough, to the thumb while it is dragged, never beyond the content. Other codes do nothing.
    /// @param nSBCode,nPos  of WM_HSCROLL; the position counts for SB_THUMBTRACK only.
    /// @param pScrollBar  the control that the message comes from; null when it comes from the window's own
    ///        bar.
    void StartHScroll(UINT_PTR nSBCode, UINT_PTR nPos, CScrollBar* pScrollBar);

    /// Scrolls vertically, as StartHScroll does horizontally.
    /// @param nSBCode,nPos  of WM_VSCROLL; the position counts for SB_THUMBTRACK only.
    /// @param pScrollBar  the control that the message comes from; null when it comes from the window's own
    ///        bar.
    void StartVScroll(UINT_PTR nSBCode, UINT_PTR nPos, CScrollBar* pScrollBar);

    /// Measures the content, shows the bars that are needed with their range, and keeps the positions in it;
    /// after a change of DPI in proportion. A window without visible children leaves bars and positions as
    /// they are.
    /// @param cx,cy  the visible area in device pixels. With WindowScrollBars the space of a bar that is not
    ///        visible yet is taken off. Showing or hiding such a bar sends WM_SIZE from inside this call: an
    ///        update from there scrolls what the outer one scrolls again.
    void UpdateScrollBars(int cx, int cy);

private:
    BOOL IsScrollBarVisible(int nBar);

    // Lengths and positions are device pixels.
    int m_contentWidth; // children and margin
    int m_contentHeight;
    int m_hPos;  // how far the content is shifted to the left
    int m_vPos;  // how far it is shifted up
    int m_hPage; // the visible width; 0 without a bar
    int m_vPage;
    int m_lineStep; // of one click on an arrow
    int m_hMax;     // end of the bar's range; 0 without a bar
    int m_vMax;
    int m_reapplyOffset; // 0 or 1
    UINT_PTR m_dpi;      // at the last update; 0 before the first
    CWnd* m_pWnd;        // not owned
    Modal m_modal;
    CScrollBar* m_pHScrollBar; // not owned; may be null
    CScrollBar* m_pVScrollBar; // not owned; may be null
};

/// Lays out a dialog that may be made smaller than it was designed, as one that scrolls.
///
/// As long as the parent has at least its designed size, controls are stretched and anchored as by
/// CDpiLayoutManager. Along an axis on which it is smaller, the controls stay as in a parent of the designed
/// size, for the parent to scroll them. All are moved at once.
///
/// Copying shares the list of records, as with CDpiLayoutManager; so does moving.
class VXDPI_API CScrollLayoutManager : public CDpiLayoutManager
{
public:
    /// Makes a manager without records, for 96 DPI.
    /// @param pParent  the window whose children are laid out; not owned. Null: SetParent names it later.
    ///
    /// When memory is short the manager refuses every control.
    CScrollLayoutManager(CWnd* pParent = nullptr);
    /// Copies the fields as they stand.
    /// @param other  stays as it is; the list of records is shared (see the class).
    CScrollLayoutManager(const CScrollLayoutManager& other);

    /// Does the same.
    /// @param other  stays as it is.
    CScrollLayoutManager(CScrollLayoutManager&& other);

    /// Copies the fields as they stand.
    /// @param other  stays as it is; the list of records is shared (see the class).
    /// @return this object.
    CScrollLayoutManager& operator=(const CScrollLayoutManager& other);

    /// Does the same.
    /// @param other  stays as it is.
    /// @return this object.
    CScrollLayoutManager& operator=(CScrollLayoutManager&& other);

    /// Frees the records; the windows stay.
    virtual ~CScrollLayoutManager();

    /// Names the window whose children are laid out. What was captured of another one stays captured.
    /// @param pParent  not owned; null: nothing is laid out.
    void SetParent(CWnd* pParent);

    /// Moves and sizes every registered control in one batch, for the parent's client size and the DPI last
    /// given to UpdateDpi. The first call with a record captures the designed places and the designed client
    /// size before. Controls whose window is gone are passed over; when the system refuses the batch nothing
    /// is moved.
    virtual void AdjustLayout();

protected:
    /// Captures, at 96 DPI, the parent's client size, and the place and the margins of every record whose
    /// rectangle is all 0 and whose window lives.
    virtual void AutoCaptureRects();

    using CDpiLayoutManager::GetControlRect;

    /// Tells where a control goes.
    /// @param hWnd  the handle that the control was registered with.
    /// @return a rectangle in device pixels of the parent's client area; (0, 0, 0, 0) when the handle is null
    ///         or not registered.
    virtual CRect GetControlRect(HWND hWnd);

    CSize m_clientSize96; ///< of the parent, at 96 DPI; meaningful once captured
};

/// Shows a dialog modally in a frame that scrolls it.
///
/// The dialog is created from its template, as a modeless one, is a child of the frame for the time of the
/// call, and has no window afterwards; its handlers run as ever. The frame has the dialog's place, cut to the
/// work area of the monitor, its caption and its icons, and can be resized. The main window is disabled
/// meanwhile. Closing the frame ends the call without telling the dialog.
/// @param nIDTemplate  ID of the dialog's template in the application's resources.
/// @param dialog  without a window; stays the caller's.
/// @param buttons  the buttons that stay visible, from the right to the left, each with its end code: when it
///        is not 0 a click ends the call with it, after the dialog has handled the click. The buttons are
///        hidden and keep pointing at their proxies, which go with the frame; see CRealButton.
/// @param reapplyOffset  1 for a dialog that lays out its controls whenever its size changes, 0 for one that
///        leaves them where they are; see CScrollManager::Create.
/// @return the end code of the button; IDCANCEL when the frame was closed; -1 when the thread is to quit; 0
///         when something could not be created. The dialog's window is left then only when it had not become
///         a child of the frame yet, as when the application has no main window.
///
/// Call it on the thread of the main window, with the application's module state.
VXDPI_API INT_PTR CreateScrollFrame(const int& nIDTemplate, CDialog& dialog,
                                    const std::vector<std::pair<CRealButton*, int>>& buttons,
                                    int reapplyOffset);

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
