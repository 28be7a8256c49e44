#pragma once

/// @file
/// Dialogs that keep their proportions when they are resized or moved to a monitor of another DPI.
///
/// CDpiLayoutManager records where each control of a dialog sits at 96 DPI and how it follows the dialog's
/// size:
///
///     // in OnInitDialog; m_layout was constructed with the dialog
///     m_layout.UpdateDpi(static_cast<int>(VxSafeGetDpiForWindow(m_hWnd)));
///     m_layout.AddControl(IDC_LIST, ANCHOR_TOPLEFT, SIZE_STRETCH_WIDTH | SIZE_STRETCH_HEIGHT, TRUE);
///     m_layout.AddControl(IDOK, ANCHOR_BOTTOMRIGHT, 0, FALSE);
///     m_layout.AdjustLayout();                                         // captures the designed places
///
/// and then m_layout.AdjustLayout() whenever the dialog was resized, after UpdateDpi when its DPI changed.
/// Positions are in the parent's client coordinates; everything belongs to the parent's thread.

#include <afxwin.h>

#include <vxdpi/Export.h>

#include <map>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

/// @name Anchors
/// Where a control goes when its parent's size changes; exactly one of these, any other value means
/// ANCHOR_TOPLEFT.
/// @{
constexpr UINT ANCHOR_TOPLEFT = 1;     ///< stays at its scaled designed place
constexpr UINT ANCHOR_RIGHT = 2;       ///< keeps its distance to the parent's right edge
constexpr UINT ANCHOR_BOTTOM = 4;      ///< keeps its distance to the parent's bottom edge
constexpr UINT ANCHOR_BOTTOMRIGHT = 8; ///< keeps both distances
/// @}

/// @name Size policies
/// What a control does with the space that its parent gains or loses; any combination, none keeps the
/// designed size.
/// @{
constexpr UINT SIZE_STRETCH_WIDTH = 1;  ///< the width fills the parent up to the right margin
constexpr UINT SIZE_STRETCH_HEIGHT = 2; ///< the height fills the parent down to the bottom margin
/// @}

/// How one control is laid out.
struct VXDPI_API LayoutInfo
{
    CWnd* pWnd = nullptr; ///< the control's window object; not owned
    UINT nCtrlID = 0;     ///< dialog item ID; when not 0 the control is found by it and not by pWnd
    /// Place in the parent's client area at 96 DPI; all 0: not captured yet.
    CRect rcBase96 = CRect(0, 0, 0, 0);
    UINT nAnchor = 0;      ///< one of the ANCHOR_ values
    UINT nSizePolicy = 0;  ///< combination of the SIZE_ flags
    int bMinSize = FALSE;  ///< not 0: stretching never makes it smaller than its scaled designed size
    int nMarginRight = 0;  ///< at 96 DPI, from the control's right edge to the parent's, when captured
    int nMarginBottom = 0; ///< at 96 DPI, from the control's bottom edge to the parent's, when captured
};

/// Lays out the child controls of one window for the window's size and DPI.
///
/// The manager owns its records, not the windows. Every step is virtual and called as such, so that a derived
/// manager may replace any of them. Copying copies the fields as they stand: both objects then share one list
/// of records, which either destructor frees, so let at most one of them be destroyed.
class VXDPI_API CDpiLayoutManager
{
public:
    /// Makes a manager without records, for 96 DPI.
    /// @param pParent  the window whose children are laid out; not owned. May be null: nothing is laid out
    ///        then.
    ///
    /// When memory is short the manager refuses every control.
    CDpiLayoutManager(CWnd* pParent);
    /// Copies the fields as they stand.
    /// @param other  stays as it is; the list of records is shared (see the class).
    CDpiLayoutManager(const CDpiLayoutManager& other);

    /// Copies the fields as they stand.
    /// @param other  stays as it is; the list of records is shared (see the class).
    /// @return this object.
    CDpiLayoutManager& operator=(const CDpiLayoutManager& other);

    /// Frees the records; the windows stay.
    virtual ~CDpiLayoutManager();

    // The virtual table has the overloads in the order of the second list. Microsoft's compiler places
    // overloads of one name in reverse order of their declaration, so it is given the list backwards.
#if defined(_MSC_VER)
    /// Registers a control, in place of any record that the window has; its place is captured by the first
    /// AdjustLayout of the manager. A control added after that keeps an empty rectangle, and is laid out from
    /// it.
    /// @param pWnd  the control; kept in the record. It must live until then, and as long as the manager when
    ///        its dialog item ID is 0.
    /// @param nAnchor  one of the ANCHOR_ values.
    /// @param nSizePolicy  combination of the SIZE_ flags.
    /// @param bMinSize  not 0: stretching never makes it smaller than its scaled designed size.
    /// @return TRUE, or FALSE with nothing stored when pWnd is null or memory was short at construction.
    virtual int AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize);

    /// Registers a child, as the overload with a window does. For a child without an object of its own, the
    /// framework's temporary one is kept in the record: call AdjustLayout before the thread is idle again, as
    /// in OnInitDialog.
    /// @param nID  dialog item ID of the child.
    /// @param nAnchor  one of the ANCHOR_ values.
    /// @param nSizePolicy  combination of the SIZE_ flags.
    /// @param bMinSize  not 0: stretching never makes it smaller than its scaled designed size.
    /// @return TRUE, or FALSE with nothing stored when there is no parent or no such child, or memory was
    ///         short at construction.
    virtual int AddControl(UINT nID, UINT nAnchor, UINT nSizePolicy, int bMinSize);

    /// Registers a control with a ready record, in place of any record that the window has.
    /// @param pWnd  the control, whose handle the record is stored under.
    /// @param info  stored as it is; its pWnd and nCtrlID are not filled in, and a record with neither is
    ///        never laid out. A rectangle that is not all 0 counts as captured, with the margins that the
    ///        record has.
    /// @return TRUE, or FALSE with nothing stored when pWnd is null or memory was short at construction.
    virtual int AddControl(CWnd* pWnd, LayoutInfo info);

    /// Registers a child with a ready record, as the overload with a window does.
    /// @param nID  dialog item ID of the child.
    /// @param info  stored as it is.
    /// @return TRUE, or FALSE with nothing stored when there is no parent or no such child, or memory was
    ///         short at construction.
    virtual int AddControl(UINT nID, LayoutInfo info);
#else
    virtual int AddControl(UINT nID, LayoutInfo info);
    virtual int AddControl(CWnd* pWnd, LayoutInfo info);
    virtual int AddControl(UINT nID, UINT nAnchor, UINT nSizePolicy, int bMinSize);
    virtual int AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize);
#endif

    /// Moves and sizes every registered control for the parent's client size and the DPI last given to
    /// UpdateDpi, one after the other in the order of their window handles, and invalidates it. The first
    /// call with a record captures the designed places before. Controls that can't be found are passed over.
    virtual void AdjustLayout();

protected:
    /// Captures, at 96 DPI, the place and the margins of every record whose rectangle is all 0.
    virtual void AutoCaptureRects();

    /// Tells where a control goes.
    /// @param info  the control's record.
    /// @param parentClient  the parent's client area in device pixels.
    /// @return a rectangle in device pixels of the parent's client area; a stretched side may be 0 or
    ///         negative.
    virtual CRect GetControlRect(const LayoutInfo& info, const CRect& parentClient);

    /// Scales a rectangle to the current DPI.
    /// @param rc96  a rectangle at 96 DPI.
    /// @return the rectangle in device pixels; each edge is rounded by itself, halves away from zero.
    virtual CRect GetScaledRect(const CRect& rc96) const;

    /// Sets the right and bottom edge of a control from its size flags.
    /// @param rc  the control's place so far, in device pixels.
    /// @param parentClient  the parent's client area in device pixels.
    /// @param info  the control's record. Without its bMinSize a stretched side may become 0 or negative.
    virtual void ApplySizePolicy(CRect& rc, CRect parentClient, LayoutInfo info);

    /// Moves a control, with its size, according to its anchor.
    /// @param rc  the control's place so far, in device pixels.
    /// @param parentClient  the parent's client area in device pixels.
    /// @param info  the control's record.
    virtual void ApplyAnchor(CRect& rc, CRect parentClient, const LayoutInfo& info);

    /// Scales a rectangle back to 96 DPI.
    /// @param rc  device pixels; becomes 96-DPI units, each edge rounded by itself, halves away from zero.
    virtual void ConvertTo96DPIRect(CRect& rc);

    /// Scales a length to the current DPI.
    /// @param v  a length at 96 DPI.
    /// @return the length in device pixels, rounded, halves away from zero.
    int ScaleX(int v) const;

    /// The same as ScaleX: both axes have one scale.
    /// @param v  a length at 96 DPI.
    /// @return the length in device pixels.
    int ScaleY(int v) const;

public:
    /// Sets the DPI that later layouts use; neither captures nor lays out.
    /// @param dpi  dots per inch from 96 to 576; other values are ignored, so that nothing is laid out
    ///        smaller than designed.
    void UpdateDpi(int dpi);

protected:
    CWnd* m_pParent;                        ///< not owned
    std::map<HWND, LayoutInfo>* m_pLayouts; ///< owned; null when it could not be allocated
    float m_scale;                          ///< DPI / 96
    int m_dpi;                              ///< dots per inch
    int m_bNeedCapture;                     ///< until the first AdjustLayout has captured
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
