#include "Strip.h"

namespace
{
constexpr UINT kBase = 96;
constexpr UINT kScaled = 144;

void DestroyAll(const std::vector<HICON>& icons)
{
    for (const HICON hIcon : icons)
        ::DestroyIcon(hIcon);
}
} // namespace

Strip::Strip(UINT nResourceId, int nCellSize) : m_nResourceId(nResourceId), m_nCellSize(nCellSize)
{
    m_split.AddResourceForDpi(kBase, nResourceId, {static_cast<UINT>(nCellSize)});
}

void Strip::Split(int bFixed)
{
    DestroyAll(m_split.CreatePngSplit(kScaled, AfxGetResourceHandle(), bFixed));
}

void Strip::SplitDisabled()
{
    DestroyAll(m_split.CreateDisabledStylePngSplit(kScaled));
}

void Strip::SplitByHand(ByHand::StripStyle style) const
{
    DestroyAll(ByHand::SplitPng(m_nResourceId, m_nCellSize, kScaled, style));
}
