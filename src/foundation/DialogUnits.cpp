#include <vxdpi/Dpi.h>
#include <vxdpi/Geometry.h>

#include "GuardedScaling.h"
#include "Guards.h"
#include "Rounding.h"

#include <iterator>

namespace
{
constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kLetterCount = static_cast<int>(std::size(kLetters)) - 1;

/// Measures a font in a device context; (0, 0) when it can't be made.
SIZE UnitsOfFont(HDC hdc, const LOGFONTW& logFont)
{
    SIZE units = {};
    const UniqueFont font(::CreateFontIndirectW(&logFont));
    if (!font)
        return units;
    const Selection selected(hdc, font.get());
    GetFontBasedDialogUnits(hdc, units);
    return units;
}

bool IsMeasured(const SIZE& units)
{
    return units.cx >= 1 && units.cy >= 1;
}

/// Lets no exception out where a window has no device context to give, or memory is short.
bool MeasureAtBothDpis(CWnd& wnd, UINT nCurrentDpi, UINT nNewDpi, SIZE& currentUnits, SIZE& newUnits)
{
    try
    {
        const CClientDC dc(&wnd);
        CFont* const pFont = wnd.GetFont();
        if (!pFont)
            return false;
        LOGFONTW logFont = {};
        if (!pFont->GetLogFont(&logFont))
            return false;
        currentUnits = UnitsOfFont(dc.m_hDC, logFont);
        logFont.lfHeight = GuardedScale(logFont.lfHeight, nNewDpi, nCurrentDpi);
        newUnits = UnitsOfFont(dc.m_hDC, logFont);
    }
    catch (CException* pException)
    {
        pException->Delete();
        return false;
    }
    return IsMeasured(currentUnits) && IsMeasured(newUnits);
}

LONG ScaleByUnits(LONG edge, LONG newUnit, LONG currentUnit)
{
    return GuardedScale(edge, static_cast<UINT>(newUnit), static_cast<UINT>(currentUnit));
}
} // namespace

int GetFontBasedDialogUnits(HDC hdc, SIZE& units)
{
    TEXTMETRICW metrics = {};
    if (!::GetTextMetricsW(hdc, &metrics))
        return FALSE;
    SIZE extent = {};
    if (!::GetTextExtentPoint32W(hdc, kLetters, kLetterCount, &extent) || extent.cx <= 0)
        return FALSE;
    units.cx = RoundHalfAway(static_cast<double>(extent.cx) / kLetterCount);
    units.cy = metrics.tmHeight;
    return units.cx > 0 && units.cy > 0 ? TRUE : FALSE;
}

CRect GetClientSizeForDpi(CWnd* pWnd, UINT newDpi)
{
    CRect scaled(0, 0, 0, 0);
    if (!pWnd || !pWnd->m_hWnd)
        return scaled;
    const UINT nCurrentDpi = VxSafeGetDpiForWindow(pWnd->m_hWnd);
    if (nCurrentDpi == 0 || newDpi == 0)
        return scaled;
    SIZE currentUnits = {};
    SIZE newUnits = {};
    if (!MeasureAtBothDpis(*pWnd, nCurrentDpi, newDpi, currentUnits, newUnits))
        return scaled;

    RECT client = {};
    ::GetClientRect(pWnd->m_hWnd, &client);
    scaled.left = ScaleByUnits(client.left, newUnits.cx, currentUnits.cx);
    scaled.top = ScaleByUnits(client.top, newUnits.cy, currentUnits.cy);
    scaled.right = ScaleByUnits(client.right, newUnits.cx, currentUnits.cx);
    scaled.bottom = ScaleByUnits(client.bottom, newUnits.cy, currentUnits.cy);
    return scaled;
}
