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
/// CDpiAwarePngSplit cuts a strip of equal square pictures, such as those of a toolbar, into icons or
/// bitmaps:
///
///     m_toolStrip.AddResourceForDpi(96, IDR_TOOLS_96, {16});   // one cell is 16 pixels a side
///     m_toolStrip.AddResourceForDpi(192, IDR_TOOLS_192, {32});
///     ...
///     m_toolIcons = m_toolStrip.CreatePngSplit(nDpi, AfxGetInstanceHandle(), FALSE);
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
    /// Makes an object without pictures.
    CDpiAwarePng();
    CDpiAwarePng(const CDpiAwarePng&) = delete;

    /// Copies the registry as CDpiAwareRes does: the two objects then share its lock and its list, so let at
    /// most one of the two be destroyed.
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwarePng& operator=(const CDpiAwarePng& other);

    /// Does the same; the other object stays as it is.
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwarePng& operator=(CDpiAwarePng&& other);

    /// Frees the registry; bitmaps that were handed out stay the caller's.
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

/// A strip of equal square pictures in several "PNG" resources, one per DPI.
///
/// The first of an entry's values is the length of a cell's side in pixels. Every creating operation moves
/// the object's current DPI, picks the entry as CDpiAwareRes::FindBestResource does, cuts its strip from
/// the left into whole cells, and scales each by nDpi / entry's DPI, halves rounded away from zero. A cell
/// that can't be scaled or converted is left out (what was made of a cell whose scaling failed stays
/// allocated), so compare the number of results with the one you expect. No result at all means: nothing is
/// registered, the entry has no values, or its resource is missing, empty or no image.
///
/// GDI+ must be running before a strip is cut. Each cell starts it once more and replaces the token that
/// ShutdownGdiPlusByVxDpi ends (see Dpi.h), so cut strips on one thread.
class VXDPI_API CDpiAwarePngSplit
{
public:
    /// Makes an object without strips.
    CDpiAwarePngSplit();
    CDpiAwarePngSplit(const CDpiAwarePngSplit&) = delete;

    /// Copies the registry as CDpiAwareRes does: the two objects then share its lock and its list, so let at
    /// most one of the two be destroyed.
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwarePngSplit& operator=(const CDpiAwarePngSplit& other);

    /// Does the same; the other object stays as it is.
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwarePngSplit& operator=(CDpiAwarePngSplit&& other);

    /// Frees the registry; icons and bitmaps that were handed out stay the caller's.
    ~CDpiAwarePngSplit();

    /// Registers a "PNG" resource as drawn for a DPI; a later call for the same DPI replaces the earlier one.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  integer resource ID, of which the low 16 bits are used.
    /// @param values  the first one is the length of a cell's side in pixels; the others are not used.
    void AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values);

    /// Cuts the best entry's strip into icons.
    /// @param nDpi  dots per inch.
    /// @param hInstance  the module that holds the "PNG" resources.
    /// @param bFixedIcons  not 0: GDI makes the icons, with a mask that is set where the picture is visible;
    ///        0: GDI+ makes them.
    /// @return the icons from the left; the caller frees them, as with DestroyIcons.
    std::vector<HICON> CreatePngSplit(UINT nDpi, HINSTANCE hInstance, int bFixedIcons);

    /// Cuts the best entry's strip of the framework's current resource module into icons in light grey, for
    /// commands that are not available.
    /// @param nDpi  dots per inch.
    /// @return the icons from the left; the caller frees them, as with DestroyIcons.
    std::vector<HICON> CreateDisabledStylePngSplit(UINT nDpi);

    /// Cuts the best entry's strip into bitmaps. An entry whose cells are 0 pixels long divides by 0.
    /// @param nDpi  dots per inch.
    /// @param hInstance  the module that holds the "PNG" resources.
    /// @param background  0xAARRGGBB, the colour that transparent pixels are laid over.
    /// @return the bitmaps from the left; the caller frees each with DeleteObject. The decoded image of a
    ///         damaged strip stays allocated.
    std::vector<HBITMAP> CreatePngSplitBitmap(UINT nDpi, HINSTANCE hInstance, DWORD background);

    /// Destroys icons.
    /// @param icons  becomes empty; null handles are passed over.
    void DestroyIcons(std::vector<HICON>& icons);

protected:
    /// Decodes an image resource.
    /// @param nResourceId  integer resource ID, of which the low 16 bits are used.
    /// @param type  name of the resource type.
    /// @param hInstance  the module.
    /// @return the bitmap, which the caller deletes and whose status tells whether the bytes were an image;
    ///         null when the resource is missing or empty, or memory is short.
    Gdiplus::Bitmap* LoadPngFromResource(UINT nResourceId, const wchar_t* type, HINSTANCE hInstance);

    /// Scales a bitmap to a height with high-quality bicubic interpolation, keeping its proportions. Starts
    /// GDI+ once more (see the class).
    /// @param pSource  stays the caller's.
    /// @param nSize  the height in device pixels.
    /// @return a new 32-bit ARGB bitmap that the caller deletes; null when pSource is null, nSize is not
    ///         above 0, or memory is short. A failure to draw is not reported.
    Gdiplus::Bitmap* ScaleBitmap(Gdiplus::Bitmap* pSource, int nSize);

    /// Turns a bitmap into light grey: its brightness (0.299 red + 0.587 green + 0.114 blue, the weights of
    /// ITU-R BT.601), brought 30 % of the way to white. Alpha stays.
    /// @param pBitmap  changed in place; null, or one whose pixels can't be locked, is left alone.
    void ApplyDisabledEffect(Gdiplus::Bitmap* pBitmap);

    /// Makes an icon by GDI, with a mask that is white where the picture is visible.
    /// @param pBitmap  stays the caller's.
    /// @return an icon that the caller frees with DestroyIcon; null when pBitmap is null or GDI refuses.
    HICON ConvertBitmapToIconFixed(Gdiplus::Bitmap* pBitmap);

    /// Cuts a strip into icons.
    /// @param nResourceId  integer resource ID of type "PNG".
    /// @param nTargetSize  length of an icon's side in device pixels.
    /// @param nCellSize  length of a cell's side in the strip's pixels; 0 gives no icons.
    /// @param hInstance  the module.
    /// @param bFixedIcons  as in CreatePngSplit.
    /// @param bDisabled  not 0: the icons are turned into light grey.
    /// @return the icons from the left; the caller frees them.
    std::vector<HICON> SplitPngToIcons(UINT nResourceId, int nTargetSize, int nCellSize, HINSTANCE hInstance,
                                       int bFixedIcons, int bDisabled);

    /// Cuts a strip into bitmaps.
    /// @param nResourceId  integer resource ID of type "PNG".
    /// @param nTargetSize  length of a bitmap's side in device pixels.
    /// @param nCellSize  length of a cell's side in the strip's pixels; must not be 0.
    /// @param hInstance  the module.
    /// @param background  0xAARRGGBB, the colour that transparent pixels are laid over.
    /// @return the bitmaps from the left; the caller frees them. The decoded image of a damaged strip stays
    ///         allocated.
    std::vector<HBITMAP> SplitPngToBitmaps(UINT nResourceId, int nTargetSize, int nCellSize,
                                           HINSTANCE hInstance, DWORD background);

private:
    CDpiAwareRes m_resources;
};
