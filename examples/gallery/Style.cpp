#include "Style.h"

namespace
{
constexpr int kBaseDpi = 96;
constexpr wchar_t kFaceName[] = L"Segoe UI";

struct FontDesign
{
    LONG height96; // of the characters, in units of 1/96 inch
    LONG weight;
};

FontDesign DesignOf(TextRole role)
{
    switch (role)
    {
    case TextRole::Title:
        return {24, FW_SEMIBOLD};
    case TextRole::Figure:
        return {18, FW_SEMIBOLD};
    case TextRole::Heading:
        return {13, FW_SEMIBOLD};
    case TextRole::Body:
        return {12, FW_NORMAL};
    default:
        return {11, FW_NORMAL};
    }
}
} // namespace

CGalleryStyle::CGalleryStyle() : m_nDpi(kBaseDpi)
{
    for (size_t i = 0; i < m_fonts.size(); ++i)
    {
        // A negative height asks for characters of that size, a positive one for lines.
        m_fonts[i].InitFontSize(-DesignOf(static_cast<TextRole>(i)).height96, 0, kBaseDpi);
    }
}

void CGalleryStyle::UpdateDpi(UINT nDpi)
{
    m_nDpi = nDpi;
    for (size_t i = 0; i < m_fonts.size(); ++i)
    {
        LOGFONT description = {};
        description.lfWeight = DesignOf(static_cast<TextRole>(i)).weight;
        description.lfCharSet = DEFAULT_CHARSET;
        description.lfQuality = CLEARTYPE_QUALITY;
        ::lstrcpyn(description.lfFaceName, kFaceName, LF_FACESIZE);
        m_fonts[i].DeleteObject();
        m_fonts[i].CreateFontIndirect(&description, nDpi);
    }
}

UINT CGalleryStyle::Dpi() const
{
    return m_nDpi;
}

int CGalleryStyle::ToPixels(int units) const
{
    return ::MulDiv(units, static_cast<int>(m_nDpi), kBaseDpi);
}

CSize CGalleryStyle::ToPixels(const CSize& units) const
{
    return CSize(ToPixels(units.cx), ToPixels(units.cy));
}

CRect CGalleryStyle::ToPixels(const CRect& units) const
{
    return CRect(ToPixels(units.left), ToPixels(units.top), ToPixels(units.right), ToPixels(units.bottom));
}

CSize CGalleryStyle::ToUnits(const CSize& pixels) const
{
    const int nDpi = static_cast<int>(m_nDpi);
    return CSize(::MulDiv(pixels.cx, kBaseDpi, nDpi), ::MulDiv(pixels.cy, kBaseDpi, nDpi));
}

HFONT CGalleryStyle::Font(TextRole role) const
{
    return static_cast<HFONT>(m_fonts[static_cast<size_t>(role)].GetSafeHandle());
}
