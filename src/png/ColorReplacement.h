#pragma once

#include "PixelRuns.h"

#include <emmintrin.h>

/// Gives every pixel that is not fully transparent one colour and leaves its alpha. Pixels are 32-bit words
/// 0xAARRGGBB; a colour is 0x00RRGGBB.
namespace ColorReplacement
{
constexpr DWORD kColorMask = 0x00FFFFFF;
constexpr int kAlphaShift = 24;

inline DWORD ReplaceInPixel(DWORD pixel, DWORD color)
{
    return (pixel >> kAlphaShift) != 0 ? (pixel & ~kColorMask) | color : pixel;
}

inline void ReplaceInRunPlain(DWORD* pPixels, std::size_t count, DWORD color)
{
    for (std::size_t i = 0; i < count; ++i)
        pPixels[i] = ReplaceInPixel(pPixels[i], color);
}

/// The same four pixels at a time: the plain loop is memory-bound only where a compiler vectorises it.
inline void ReplaceInRun(DWORD* pPixels, std::size_t count, DWORD color)
{
    constexpr std::size_t kPixelsPerBlock = 4;
    const __m128i colorMask = _mm_set1_epi32(static_cast<int>(kColorMask));
    const __m128i colors = _mm_set1_epi32(static_cast<int>(color));
    const std::size_t inBlocks = count - count % kPixelsPerBlock;
    for (std::size_t i = 0; i < inBlocks; i += kPixelsPerBlock)
    {
        __m128i* const pBlock = reinterpret_cast<__m128i*>(pPixels + i);
        const __m128i pixels = _mm_loadu_si128(pBlock);
        const __m128i transparent = _mm_cmpeq_epi32(_mm_srli_epi32(pixels, kAlphaShift), _mm_setzero_si128());
        const __m128i replaced = _mm_andnot_si128(transparent, colorMask);
        _mm_storeu_si128(pBlock,
                         _mm_or_si128(_mm_andnot_si128(replaced, pixels), _mm_and_si128(colors, replaced)));
    }
    ReplaceInRunPlain(pPixels + inBlocks, count - inBlocks, color);
}

/// As ForEachRun describes an image.
inline void ReplaceInImage(void* pScan0, UINT nWidth, UINT nHeight, INT nStride, DWORD color)
{
    ForEachRun(pScan0, nWidth, nHeight, nStride,
               [color](DWORD* pPixels, std::size_t count) { ReplaceInRun(pPixels, count, color); });
}
} // namespace ColorReplacement
