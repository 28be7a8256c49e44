#pragma once

#include <afxwin.h>

/// What all pages have in common, in units of 1/96 inch.
namespace grid
{
constexpr int kMargin = 28; // left and right
constexpr int kTitleTop = 24;
constexpr int kHeadingHeight = 24;
constexpr int kColumnGap = 32;

/// Splits a row into columns that fill it from edge to edge.
/// @return the column of an index from 0 to nCount - 1.
inline CRect Column(const CRect& row, int nCount, int nIndex)
{
    const int width = row.Width() + kColumnGap;
    return CRect(row.left + width * nIndex / nCount, row.top,
                 row.left + width * (nIndex + 1) / nCount - kColumnGap, row.bottom);
}
} // namespace grid
