#include <vxdpi/Fonts.h>

#include <foundation/BaseDpi.h>
#include <foundation/GuardedScaling.h>

namespace
{
struct DesignedSize
{
    LONG height;
    LONG width; // 0: the natural width
    UINT dpi;
};

void WriteScaledSize(LOGFONTW& logFont, const DesignedSize& designed, UINT nDpi)
{
    logFont.lfHeight = GuardedScale(designed.height, nDpi, designed.dpi);
    if (designed.width != 0)
        logFont.lfWidth = GuardedScale(designed.width, nDpi, designed.dpi);
}

UINT VerticalDpi(const CDC& dc)
{
    return static_cast<UINT>(::GetDeviceCaps(dc.m_hDC, LOGPIXELSY));
}
} // namespace

CFontDPIAware::CFontDPIAware()
    : m_nBaseDpi(kBaseDpi), m_nBaseHeight(0), m_nBaseWidth(0), m_bInitialised(FALSE)
{
}

CFontDPIAware::~CFontDPIAware() = default;

void CFontDPIAware::InitFontSize(LONG nHeight, LONG nWidth, UINT nDpi)
{
    if (m_bInitialised)
        return;
    m_nBaseHeight = nHeight;
    m_nBaseWidth = nWidth;
    m_nBaseDpi = nDpi;
    m_bInitialised = TRUE;
}

void CFontDPIAware::InitFontSize(LOGFONTW* pLogFont, UINT nDpi)
{
    InitFontSize(pLogFont->lfHeight, pLogFont->lfWidth, nDpi);
}

BOOL CFontDPIAware::CreateFontIndirectW(LOGFONTW* pLogFont, UINT nDpi)
{
    if (!pLogFont)
        return FALSE;

    InitFontSize(pLogFont, nDpi);
    WriteScaledSize(*pLogFont, {m_nBaseHeight, m_nBaseWidth, m_nBaseDpi}, nDpi);
    return Attach(::CreateFontIndirectW(pLogFont));
}

BOOL CFontDPIAware::CreateFontW(UINT nDpi, int nHeight, int nWidth, int nEscapement, int nOrientation,
                                int nWeight, BYTE bItalic, BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet,
                                BYTE nOutPrecision, BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily,
                                LPCWSTR lpszFacename)
{
    InitFontSize(nHeight, nWidth, nDpi);
    const LONG nScaledHeight = GuardedScale(m_nBaseHeight, nDpi, m_nBaseDpi);
    const LONG nScaledWidth = nWidth == 0 ? 0 : GuardedScale(m_nBaseWidth, nDpi, m_nBaseDpi);
    return Attach(::CreateFontW(nScaledHeight, nScaledWidth, nEscapement, nOrientation, nWeight, bItalic,
                                bUnderline, cStrikeOut, nCharSet, nOutPrecision, nClipPrecision, nQuality,
                                nPitchAndFamily, lpszFacename));
}

BOOL CFontDPIAware::CreatePointFont(UINT nDpi, int nPointSize, LPCWSTR lpszFaceName, CDC* pDC)
{
    if (!pDC)
        return FALSE;

    if (!m_bInitialised)
        InitFontSize(nPointSize, 0, VerticalDpi(*pDC));
    const LONG nScaledSize = GuardedScale(m_nBaseHeight, nDpi, m_nBaseDpi);
    return CFont::CreatePointFont(nScaledSize, lpszFaceName, pDC);
}

BOOL CFontDPIAware::CreatePointFontIndirect(UINT nDpi, LOGFONTW* pLogFont, CDC* pDC)
{
    if (!pDC || !pLogFont)
        return FALSE;

    InitFontSize(pLogFont, VerticalDpi(*pDC));
    WriteScaledSize(*pLogFont, {m_nBaseHeight, m_nBaseWidth, m_nBaseDpi}, nDpi);
    return CFont::CreatePointFontIndirect(pLogFont, pDC);
}
