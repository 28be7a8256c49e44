#pragma once

/// @file
/// Scenes of several images, composed in 96-DPI coordinates.
///
/// CDrawBoard registers images, each in variants for several DPIs, and composes them on an off-screen board
/// that fills an area and keeps the scene's proportions:
///
///     m_board.AddImageResource(kMonitor, 96, IDR_MONITOR_96, L"PNG");       // once
///     m_board.AddImageResource(kMonitor, 192, IDR_MONITOR_192, L"PNG");
///     m_board.SetDrawBoardSize(CSize(320, 200));                            // the scene at 96 DPI
///     ...
///     m_board.SetDpi(VxSafeGetDpiForWindow(m_hWnd));                        // at each paint
///     m_board.DrawImage(dc.m_hDC, rcScene,
///                       [this] { return m_board.DrawImageToBoard(kMonitor, CPoint(40, 20)); });
///
/// GDI+ must be running (see Dpi.h) from the first drawing until the board and its images are destroyed. A
/// board belongs to one thread. CoordinatesMapping and CDpiImageResource are the library's own: they stand
/// here because a board has them as fields, and their operations can't be called from outside.

#include <afxwin.h>

#include <vxdpi/Export.h>
#include <vxdpi/GdiPlus.h>

#include <functional>
#include <map>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

/// One image resource, drawn for one DPI, which is loaded when it is first asked for and then kept.
///
/// The resource's bytes are freed as soon as the image object is made: use types of images that are decoded
/// at once, as PNG is. Copies share a loaded image and each would delete it, so copy only while none is
/// loaded.
class VXDPI_API CImageResource
{
public:
    /// Remembers where the image is; loads nothing.
    /// @param dpi  dots per inch that the image is drawn for.
    /// @param resId  integer resource ID in the framework's current resource module.
    /// @param type  name of the resource type, such as "PNG".
    CImageResource(const UINT& dpi, const UINT& resId, const CString& type);
    /// Copies the fields as they stand.
    /// @param other  stays as it is; a loaded image is shared (see the class).
    CImageResource(const CImageResource& other);

    /// Copies the fields as they stand.
    /// @param other  stays as it is; a loaded image is shared (see the class).
    /// @return this object.
    CImageResource& operator=(const CImageResource& other);

    /// Deletes the image.
    virtual ~CImageResource();

    /// Loads the image if that has not succeeded yet.
    /// @return the image, owned by this object and valid until DestroyImage. Bytes that are no image give an
    ///         image object too: its status tells. Null, to be tried again by the next call, when the
    ///         resource is missing or empty or memory is short.
    Gdiplus::Image* GetImage();

    /// Deletes the image; the next GetImage loads it again.
    void DestroyImage();

private:
    Gdiplus::Image* LoadImageFromResource();

    UINT m_nResID;
    UINT m_nDpi;
    CString m_strType;
    Gdiplus::Image* m_pImage; // owned; null until loaded
};

/// The variants of one image, one per DPI. For the draw board only.
class CDpiImageResource
{
public:
    virtual ~CDpiImageResource() = default;

    /// Adds a variant.
    /// @param dpi  dots per inch that it is drawn for.
    /// @param resId  integer resource ID.
    /// @param type  name of the resource type.
    /// @return FALSE, with nothing changed, when there is a variant for that DPI.
    BOOL Add(UINT dpi, UINT resId, const CString& type);

    /// Chooses the variant with the smallest DPI at or above a DPI, else the one with the largest DPI.
    /// @param dpi  dots per inch.
    /// @param pChosenDpi  receives the variant's DPI; may be null. Untouched when there is no variant.
    /// @return the image, loaded if need be and owned by this object; null when there is no variant or it
    ///         can't be loaded.
    Gdiplus::Image* Pick(UINT dpi, UINT* pChosenDpi);

private:
    std::map<UINT, CImageResource> m_variants; // by DPI
};

/// Fits the scene into the board. For the draw board only.
class CoordinatesMapping
{
public:
    virtual ~CoordinatesMapping() = default;

    /// Maps a rectangle of the scene.
    /// @param rc  96-DPI units.
    /// @return pixels of the board: scaled by one factor on both axes, centred, truncated toward zero.
    CRect ToDevice(const CRect& rc) const;

    CRect m_rcLogical = CRect(0, 0, 0, 0); ///< the scene, from (0, 0), in 96-DPI units; 0 x 0: not scaled
    CRect m_rcDevice = CRect(0, 0, 0, 0);  ///< the board, from (0, 0), in pixels
};

/// An off-screen board on which images are composed before they are shown.
///
/// The board is made anew by every DrawImage and stays until the next one; images stay loaded as long as the
/// object lives. Copies share a board that exists, and each would delete it, so copy a board only before its
/// first DrawImage.
class VXDPI_API CDrawBoard
{
public:
    /// Makes a board without images, for 96 DPI and scenes that are not scaled.
    CDrawBoard();
    /// Copies the fields as they stand.
    /// @param other  stays as it is; a board that exists is shared (see the class).
    CDrawBoard(const CDrawBoard& other);

    /// Copies the fields as they stand.
    /// @param other  stays as it is; a board that exists is shared (see the class).
    /// @return this object.
    CDrawBoard& operator=(const CDrawBoard& other);

    /// Deletes the board and all images, for which GDI+ must still be running.
    virtual ~CDrawBoard();

    /// Registers a variant of an image; loads nothing.
    /// @param imageId  the caller's name for the image.
    /// @param dpi  dots per inch that the variant is drawn for.
    /// @param resId  integer resource ID in the framework's current resource module.
    /// @param type  name of the resource type, such as "PNG".
    /// @return TRUE; FALSE, with nothing changed, when the image has a variant for that DPI.
    int AddImageResource(const UINT& imageId, const UINT& dpi, const UINT& resId, const CString& type);

    /// Sets the DPI that variants are chosen for, from the next drawing on.
    /// @param dpi  dots per inch.
    /// @return the previous one.
    UINT SetDpi(const UINT& dpi);

    /// Sets the size of the scene, from the next drawing on.
    /// @param size  96-DPI units; 0 x 0: one unit is one pixel.
    /// @return the previous one.
    CSize SetDrawBoardSize(const CSize& size);

    /// Draws an image on the board. To be called while DrawImage composes the scene.
    /// @param imageId  the name that the image was registered under.
    /// @param rc  the place in the scene, in 96-DPI units; the image is stretched to fill it.
    /// @return TRUE when it was drawn or there is no board; FALSE when there is no such image, it can't be
    ///         loaded, or GDI+ refuses.
    int DrawImageToBoard(UINT imageId, CRect rc);

    /// Does the same with an image in its own size: its pixels multiplied by 96 / its variant's DPI, halves
    /// rounded away from zero.
    /// @param imageId  the name that the image was registered under.
    /// @param pt  its top left corner in the scene, in 96-DPI units.
    /// @return as above; FALSE also for a variant that was drawn for 0 DPI.
    int DrawImageToBoard(UINT imageId, CPoint pt);

    /// Composes the scene and draws it into a device context.
    /// @param hdc  stays the caller's.
    /// @param rc  where to draw: the top left corner in the target's logical units, the size in pixels. GDI+
    ///        enlarges the board where the target has a higher resolution than the screen, as a printer has.
    /// @param compose  calls DrawImageToBoard for each image; returns 0 to draw nothing. An empty one throws
    ///        std::bad_function_call.
    /// @return TRUE when GDI+ reports that it drew. FALSE, with nothing drawn, when there is no board of that
    ///         size or compose returned 0; FALSE also when GDI+ refuses to draw.
    int DrawImage(HDC hdc, const CRect& rc, std::function<int()> compose);

    /// Composes the scene in the size of a picture control and shows it there.
    /// @param ctrl  a static control with the style SS_BITMAP. The bitmap that it showed before is deleted;
    ///        the last one is the caller's to free at the control's end, by
    ///        DeleteObject(ctrl.SetBitmap(nullptr)).
    /// @param compose  as above.
    /// @return TRUE when the control was given a bitmap. FALSE, with the control unchanged, when there is no
    ///         board of its size, compose returned 0, or there is no bitmap of the board.
    int DrawImage(CStatic& ctrl, std::function<int()> compose);

private:
    Gdiplus::Image* GetImage(const UINT& imageId, UINT* chosenDpi);
    int CreateDrawBoardGraphics(const CSize& size);
    void DestroyDrawBoardGraphics();

    CoordinatesMapping m_mapping;
    UINT m_nDpi;
    Gdiplus::Graphics* m_pGraphics;             // owned; draws on m_pBoard
    Gdiplus::Bitmap* m_pBoard;                  // owned
    std::map<UINT, CDpiImageResource> m_images; // by the caller's names
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
