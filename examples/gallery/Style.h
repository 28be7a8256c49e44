#pragma once

#include <vxdpi/Fonts.h>

#include <array>

/// What a piece of text is for; decides its font.
enum class TextRole
{
    Title,
    Figure,
    Heading,
    Body,
    Caption,
};

namespace palette
{
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kPanel = RGB(248, 250, 252);
constexpr COLORREF kSidebar = RGB(241, 245, 249);
constexpr COLORREF kLine = RGB(226, 232, 240);
constexpr COLORREF kInk = RGB(15, 23, 42);
constexpr COLORREF kMuted = RGB(100, 116, 139);
constexpr COLORREF kAccent = RGB(37, 99, 235);
constexpr COLORREF kAccentPale = RGB(219, 234, 254);
constexpr COLORREF kGood = RGB(22, 163, 74);
constexpr COLORREF kGoodPale = RGB(220, 252, 231);
constexpr COLORREF kBad = RGB(220, 38, 38);
constexpr COLORREF kBadPale = RGB(254, 226, 226);
} // namespace palette

/// The gallery's fonts and measures at one DPI.
///
/// Everything is designed in units of 1/96 inch, pixels at 96 DPI, and multiplied for the DPI of the window.
class CGalleryStyle
{
public:
    CGalleryStyle();

    /// Makes the fonts anew for a DPI; the handles given out before are deleted.
    void UpdateDpi(UINT nDpi);

    UINT Dpi() const;

    /// @return units as device pixels at the current DPI.
    int ToPixels(int units) const;
    CSize ToPixels(const CSize& units) const;
    CRect ToPixels(const CRect& units) const;

    /// @return device pixels as units.
    CSize ToUnits(const CSize& pixels) const;

    /// @return a font that stays the style's, valid until the next UpdateDpi.
    HFONT Font(TextRole role) const;

private:
    static constexpr size_t kRoleCount = 5;

    UINT m_nDpi;
    std::array<CFontDPIAware, kRoleCount> m_fonts; // indexed by TextRole
};
