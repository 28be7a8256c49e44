#pragma once

#include <windef.h>

#include <cstddef>

/// Calls change(pPixels, count) for the pixels of an image of 32-bit words: once for the whole image where
/// its rows follow each other without a gap, so that there is only one remainder, else once for each row.
/// @param pScan0  the first row.
/// @param nStride  bytes from one row to the next; may be negative. Bytes beyond a row's pixels are not
///        touched.
template<class Change>
void ForEachRun(void* pScan0, UINT nWidth, UINT nHeight, INT nStride, Change change)
{
    const std::size_t width = nWidth;
    if (nStride == static_cast<std::ptrdiff_t>(width * sizeof(DWORD)))
    {
        change(static_cast<DWORD*>(pScan0), width * nHeight);
        return;
    }
    for (UINT y = 0; y < nHeight; ++y)
    {
        BYTE* const pRow = static_cast<BYTE*>(pScan0) + static_cast<std::ptrdiff_t>(y) * nStride;
        change(reinterpret_cast<DWORD*>(pRow), width);
    }
}
