#pragma once

/// @file
/// PNG images that follow the DPI.
///
/// CDpiAwarePng serves a picture that is stored as resources of type "PNG", one per DPI that it was drawn
/// for: as a GDI+ bitmap, as a scaled HBITMAP, in another colour, or drawn into a device context:
///
///     m_logo.AddResourceForDpi(96, IDR_LOGO_96, {});        // once, at start
///     m_logo.AddResourceForDpi(144, IDR_LOGO_144, {});
///     ...
///     CPaintDC dc(this);                                    // at each paint
///     const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
///     m_logo.DrawPngInDC(dc.m_hDC, nDpi, rcLogo, nullptr, nullptr);
///
/// GDI+ must be running (see Dpi.h) for everything but registering. Nothing decoded is kept between calls.
/// Resources come from the framework's current resource module unless an operation takes a module.

#include <vxdpi/Export.h>
#include <vxdpi/GdiPlus.h>
#include <vxdpi/Images.h>

#include <vector>

/// A picture in several "PNG" resources, one per DPI.
///
/// Every operation that takes a DPI moves the object's current DPI there (drawing with a null context does
/// not), picks the entry as CDpiAwareRes::FindBestResource does, and decodes the resource anew. "No picture"
/// below means: nothing is registered, the entry's resource is missing, empty or no image, or memory is
/// short.
///
/// GDI+ must be running for every operation but construction, destruction, assignment, AddResourceForDpi,
/// Empty and SafeDeleteHBitmap. The registry inside is locked, so several threads may decode at once; a
/// thread that works with two DPIs on one object sees the last one set.
class VXDPI_API CDpiAwarePng
{
public:
    CDpiAwarePng();
    CDpiAwarePng(const CDpiAwarePng&) = delete;

    /// Copies the registry as CDpiAwareRes does: the two objects then share its lock and its list, so let at
    /// most one of the two be destroyed.
    CDpiAwarePng& operator=(const CDpiAwarePng& other);

    /// Does the same; the other object stays as it is.
    CDpiAwarePng& operator=(CDpiAwarePng&& other);
    ~CDpiAwarePng();

    /// Registers a "PNG" resource as drawn for a DPI; a later call for the same DPI replaces the earlier one.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  integer resource ID, of which the low 16 bits are used.
    /// @param values  stored with the entry and not used by this class.
    void AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values);

    /// Tells whether nothing is registered.
    /// @return TRUE when the registry is empty.
    BOOL Empty();

    /// Decodes the best entry's picture and leaves it unscaled.
    /// @param nDpi  dots per inch.
    /// @return a bitmap in the size that the resource has; the caller deletes it. Null when there is no
    ///         picture.
    Gdiplus::Bitmap* GetGdiplusBitmap(UINT nDpi);

    /// Decodes the best entry's picture and scales it by nDpi / entry's DPI; both sides are truncated to
    /// whole pixels.
    /// @param nDpi  dots per inch.
    /// @param pSize  receives the scaled size in device pixels; may be null.
    /// @param background  colour that transparent pixels are laid over.
    /// @return a 32-bit bitmap that the caller frees with DeleteObject. Null, with *pSize untouched, when
    ///         there is no picture or it can't be scaled, as when a side comes out as 0 or the entry's DPI is
    ///         0; the decoded bitmap stays allocated when it can't be scaled. Null with *pSize written when
    ///         the conversion fails.
    HBITMAP ScalePngResource(UINT nDpi, Gdiplus::Size* pSize, Gdiplus::Color background);

    /// Does the same with the resources of a given module.
    /// @param nDpi  dots per inch.
    /// @param hInstance  the module that holds the "PNG" resources.
    /// @param pSize  receives the scaled size in device pixels; may be null.
    /// @param background  colour that transparent pixels are laid over.
    /// @return as above.
    HBITMAP ScalePngResource(UINT nDpi, HINSTANCE hInstance, Gdiplus::Size* pSize, Gdiplus::Color background);

    /// Decodes the best entry's picture, unscaled, and gives every pixel that is not fully transparent one
    /// colour.
    /// @param nDpi  dots per inch.
    /// @param color  the new colour; its alpha is not used, each pixel keeps its own.
    /// @return the silhouette; the caller deletes it. Null when there is no picture or its pixels can't be
    ///         locked; in the last case the decoded bitmap stays allocated.
    Gdiplus::Bitmap* ReplaceColor(UINT nDpi, Gdiplus::Color color);

    /// Frees a bitmap handle.
    /// @param hBitmap  set to null when it was deleted; left as it is when it is null or can't be deleted.
    void SafeDeleteHBitmap(HBITMAP& hBitmap);

    /// Scales a bitmap with high-quality bicubic interpolation, keeping its pixel format.
    /// @param pSource  stays the caller's.
    /// @param nWidth,nHeight  device pixels.
    /// @return a new bitmap that the caller deletes. Null when the source is null, a side is 0 or memory is
    ///         short. A size that GDI+ can't make a surface of, and a failure to draw, are not reported: ask
    ///         the bitmap's last status.
    static Gdiplus::Bitmap* ScaleBitmap(Gdiplus::Bitmap* pSource, UINT nWidth, UINT nHeight);

    /// Makes a GDI bitmap of a GDI+ bitmap.
    /// @param pBitmap  stays the caller's.
    /// @param background  colour that transparent pixels are laid over.
    /// @return a 32-bit bitmap that the caller frees with DeleteObject; null when pBitmap is null or GDI+
    ///         refuses.
    static HBITMAP ConvertToHBITMAP(Gdiplus::Bitmap* pBitmap, Gdiplus::Color background);

    /// Lays one bitmap over another in a square as high as the upper one.
    /// @param pTop  drawn over pBottom, stretched to the square; stays the caller's.
    /// @param pBottom  drawn at the top left in its own size; stays the caller's.
    /// @return a new 32-bit ARGB bitmap that the caller deletes; null when an argument is null or memory is
    ///         short. A failure to draw is not reported.
    static Gdiplus::Bitmap* CombineBitmaps(Gdiplus::Bitmap* pTop, Gdiplus::Bitmap* pBottom);

    /// Draws the best entry's picture, scaled by nDpi / entry's DPI, with high-quality bicubic interpolation.
    /// @param hdc  the target; stays the caller's.
    /// @param nDpi  dots per inch.
    /// @param rcDest  where to draw, in the target's logical units; the picture is stretched to fill it.
    /// @param prcSource  the part to draw, in pixels of the scaled picture; null for all of it.
    /// @param pSize  receives the size of the whole scaled picture in device pixels; may be null.
    /// @return TRUE when GDI+ reports that it drew. FALSE, with nothing drawn and *pSize untouched, when hdc
    ///         is null, there is no picture, the entry's DPI is 0, or a scaled side is 0; FALSE with *pSize
    ///         written when GDI+ refuses to draw.
    BOOL DrawPngInDC(HDC hdc, UINT nDpi, const RECT& rcDest, const RECT* prcSource, Gdiplus::Size* pSize);

    /// Does the same into the rectangle (x, y, x + cx, y + cy).
    /// @param hdc  the target; stays the caller's.
    /// @param nDpi  dots per inch.
    /// @param x,y,cx,cy  where to draw, in the target's logical units.
    /// @param prcSource  the part to draw, in pixels of the scaled picture; null for all of it.
    /// @param pSize  receives the size of the whole scaled picture in device pixels; may be null.
    /// @return as above.
    BOOL DrawPngInDC(HDC hdc, UINT nDpi, int x, int y, int cx, int cy, const RECT* prcSource,
                     Gdiplus::Size* pSize);

    /// Draws the best entry's picture, scaled by nDpi / entry's DPI, into a metafile's device context, as a
    /// single AlphaBlend record.
    /// @param hdc  the target. Consumed: once the picture is ready to be blended, hdc is deleted before the
    ///        function returns, whatever AlphaBlend answers. A context of the thread's main window, if there
    ///        is one, is obtained as well and never released.
    /// @param nDpi  dots per inch.
    /// @param rcDest  where to draw, in the target's logical units; the picture is stretched to fill it.
    /// @param prcSource  not used: the whole picture is drawn.
    /// @param pSize  receives the scaled size in device pixels as soon as it is known; may be null.
    /// @return what AlphaBlend returned. FALSE, with hdc still the caller's and *pSize untouched, when hdc is
    ///         null, there is no picture, the entry's DPI is 0, or a scaled side is 0; FALSE with hdc still
    ///         the caller's and *pSize written when the surface for the picture can't be made. A surface
    ///         whose pixels can't be reached stays allocated.
    BOOL DrawPngInMetaDC(HDC hdc, UINT nDpi, const RECT& rcDest, const RECT* prcSource, Gdiplus::Size* pSize);

protected:
    /// Decodes a "PNG" resource of the framework's current resource module.
    /// @param nResourceId  integer resource ID, of which the low 16 bits are used.
    /// @return the bitmap, which the caller deletes; null when the resource is missing, empty or no image, or
    ///         memory is short.
    Gdiplus::Bitmap* CreateBitmapFromPngResource(UINT nResourceId);

    /// Decodes a "PNG" resource of a given module.
    /// @param nResourceId  integer resource ID, of which the low 16 bits are used.
    /// @param hInstance  the module.
    /// @return as above; when there is no memory for a copy of its bytes, the loaded resource is not freed.
    Gdiplus::Bitmap* CreateBitmapFromPngResource(UINT nResourceId, HINSTANCE hInstance);

private:
    CDpiAwareRes m_resources;
};
