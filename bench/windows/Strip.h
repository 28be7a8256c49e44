#pragma once

#include "PicturesByHand.h"

#include <vxdpi/Png.h>

/// A strip whose cells of a size are shown half as large again, in two ways. The icons are made and
/// destroyed.
class Strip
{
public:
    /// @param nCellSize  pixels.
    Strip(UINT nResourceId, int nCellSize);

    void Split(int bFixed);
    void SplitDisabled();
    void SplitByHand(ByHand::StripStyle style) const;

private:
    CDpiAwarePngSplit m_split;
    UINT m_nResourceId;
    int m_nCellSize;
};
