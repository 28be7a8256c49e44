#include <vxdpi/Dpi.h>
#include <vxdpi/Fonts.h>

#include <foundation/BaseDpi.h>
#include <foundation/GuardedScaling.h>
#include <foundation/WrappingArithmetic.h>

namespace
{
constexpr UINT kPointsPerInch = 72;
} // namespace

HFONT CreateFont_DPIAware(HWND hWnd, int nPointSize, int nWidth, int nEscapement, int nOrientation,
                          int nWeight, DWORD bItalic, DWORD bUnderline, DWORD bStrikeOut, DWORD nCharSet,
                          DWORD nOutPrecision, DWORD nClipPrecision, DWORD nQuality, DWORD nPitchAndFamily,
                          LPCWSTR pszFaceName)
{
    const UINT nDpi = VxSafeGetDpiForWindow(hWnd);
    // Negative: the height of the characters, without the space that a line has above them.
    const int nHeight = WrappingSubtract(0, GuardedScale(nPointSize, nDpi, kPointsPerInch));
    return ::CreateFontW(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, bStrikeOut,
                         nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, pszFaceName);
}

HFONT CreateFontIndirect_DPIAware(LOGFONTW* pLogFont, HWND hWnd)
{
    if (!pLogFont)
        return nullptr;

    const UINT nDpi = hWnd ? VxSafeGetDpiForWindow(hWnd) : kBaseDpi;
    pLogFont->lfHeight = GuardedScale(pLogFont->lfHeight, nDpi, kBaseDpi);
    return ::CreateFontIndirectW(pLogFont);
}
