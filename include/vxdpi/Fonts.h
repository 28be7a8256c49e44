#pragma once

/// @file
/// Fonts whose height follows the DPI.
///
/// The free functions create a font for the DPI that a window has now. CFontDPIAware remembers the size that
/// it was first created with and the DPI that the size was meant for, so that re-creating it at any number of
/// later DPIs always scales the remembered size, and rounding never adds up:
///
///     m_font.InitFontSize(-12, 0, 96);                       // once: -12 pixels are meant for 96 DPI
///     ...
///     SetFont(nullptr);                                      // at start and after a DPI change
///     m_font.DeleteObject();
///     m_font.CreateFontIndirectW(&m_logFont, VxSafeGetDpiForWindow(m_hWnd));
///     SetFont(&m_font);
///
/// A window must not be left with a font that is deleted: take the font from the window first, as here, or
/// let two objects take turns. Fonts belong to the thread that creates them, as all objects of the framework
/// do.

#include <afxwin.h>

#include <vxdpi/Export.h>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

/// Creates a font of a point size for the DPI of a window.
/// @param hWnd  the window; null and dead windows count as 96 DPI.
/// @param nPointSize  whole points (72 to the inch), as a character height: the font gets nPointSize * DPI
///        / 72 device pixels, halves rounded away from zero.
/// @param nWidth  average width of the characters in device pixels; 0 for the font's natural width.
/// @param nEscapement,nOrientation,nWeight,bItalic,bUnderline,bStrikeOut  as for the platform's CreateFont.
/// @param nCharSet,nOutPrecision,nClipPrecision,nQuality,nPitchAndFamily,pszFaceName  likewise, passed on
///        unchanged as the others.
/// @return the font, which the caller frees with DeleteObject; null when GDI can't create it. A point size
///         whose product with the DPI leaves 32 bits is taken as a height in pixels.
VXDPI_API HFONT CreateFont_DPIAware(HWND hWnd, int nPointSize, int nWidth, int nEscapement, int nOrientation,
                                    int nWeight, DWORD bItalic, DWORD bUnderline, DWORD bStrikeOut,
                                    DWORD nCharSet, DWORD nOutPrecision, DWORD nClipPrecision, DWORD nQuality,
                                    DWORD nPitchAndFamily, LPCWSTR pszFaceName);

/// Creates a font from a description at 96 DPI for the DPI of a window.
/// @param pLogFont  the font; lfHeight in 96-DPI units is replaced by the height in device pixels, lfHeight
///        * DPI / 96 with halves rounded away from zero, so a second call with the same record scales
///        twice. The other fields are left as they are.
/// @param hWnd  the window; null and dead windows count as 96 DPI.
/// @return the font, which the caller frees with DeleteObject; null for a null record, or when GDI can't
///         create it (the height is scaled then, too).
VXDPI_API HFONT CreateFontIndirect_DPIAware(LOGFONTW* pLogFont, HWND hWnd);

/// A font that remembers its designed size.
///
/// The first creation (or InitFontSize) records the size and the DPI that it is meant for; that record is
/// kept for the object's life. From then on the sizes in the arguments are ignored, while the other
/// attributes are taken from each call. A creation does not delete a font that is still attached: call
/// DeleteObject first. Every creation returns TRUE when a font was created and attached; when GDI can't
/// create it, the size is recorded and the caller's description rewritten all the same.
///
/// The scaled size is the recorded one multiplied by the DPI asked for / the recorded DPI, halves rounded
/// away from zero. A size whose product with the DPI leaves 32 bits is used unscaled.
class VXDPI_API CFontDPIAware : public CFont
{
public:
    /// Makes an object without a font and without a recorded size.
    CFontDPIAware();
    CFontDPIAware(const CFontDPIAware&) = delete;
    CFontDPIAware& operator=(const CFontDPIAware&) = delete;
    /// Deletes the font.
    virtual ~CFontDPIAware();

    /// Records a size, unless one is recorded already.
    /// @param nHeight,nWidth  in pixels at nDpi, or tenths of a point, as the creation that follows takes
    ///        them; a width of 0 is the font's natural width.
    /// @param nDpi  dots per inch that the size is meant for.
    void InitFontSize(LONG nHeight, LONG nWidth, UINT nDpi);

    /// Records the height and width of a description, unless a size is recorded already.
    /// @param pLogFont  must not be null.
    /// @param nDpi  dots per inch that the size is meant for.
    void InitFontSize(LOGFONTW* pLogFont, UINT nDpi);

    /// Creates the font for a DPI.
    /// @param pLogFont  the attributes; lfHeight, and lfWidth when a width is remembered, are replaced by the
    ///        scaled values in device pixels. On first use its size is recorded as meant for nDpi.
    /// @param nDpi  dots per inch of the window that the font is for.
    /// @return TRUE, or FALSE when pLogFont is null (nothing is changed) or GDI can't create the font.
    BOOL CreateFontIndirectW(LOGFONTW* pLogFont, UINT nDpi);

    /// Creates the font for a DPI.
    /// @param nDpi  dots per inch of the window that the font is for.
    /// @param nHeight,nWidth  in pixels; on first use recorded as meant for nDpi. A width of 0 in this very
    ///        call asks for the natural width, whatever is remembered.
    /// @param nEscapement,nOrientation,nWeight,bItalic,bUnderline,cStrikeOut  as for the platform's
    ///        CreateFont.
    /// @param nCharSet,nOutPrecision,nClipPrecision,nQuality,nPitchAndFamily,lpszFacename  likewise.
    /// @return TRUE, or FALSE when GDI can't create the font.
    BOOL CreateFontW(UINT nDpi, int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight,
                     BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision,
                     BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily, LPCWSTR lpszFacename);

    /// Creates the font of a point size for a DPI.
    /// @param nDpi  dots per inch of the window that the font is for.
    /// @param nPointSize  tenths of a point; on first use recorded as meant for pDC's vertical LOGPIXELSY.
    /// @param lpszFaceName  the typeface.
    /// @param pDC  device context that turns points into pixels.
    /// @return TRUE, or FALSE when pDC is null (nothing is changed) or GDI can't create the font.
    BOOL CreatePointFont(UINT nDpi, int nPointSize, LPCWSTR lpszFaceName, CDC* pDC);

    /// Creates the font of a description in points for a DPI.
    /// @param nDpi  dots per inch of the window that the font is for.
    /// @param pLogFont  the attributes; lfHeight in tenths of a point, and lfWidth when a width is
    ///        remembered, are replaced by the scaled values. On first use recorded as meant for pDC's
    ///        vertical LOGPIXELSY.
    /// @param pDC  device context that turns points into pixels.
    /// @return TRUE, or FALSE when pDC or pLogFont is null (nothing is changed) or GDI can't create the font.
    BOOL CreatePointFontIndirect(UINT nDpi, LOGFONTW* pLogFont, CDC* pDC);

private:
    UINT m_nBaseDpi;
    LONG m_nBaseHeight;
    LONG m_nBaseWidth;
    BOOL m_bInitialised;
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
