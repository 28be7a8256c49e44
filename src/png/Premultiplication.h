#pragma once

#include "PixelRuns.h"

#include <emmintrin.h>

/// Multiplies the colours of partly transparent pixels by their alpha, rounded to nearest. Pixels are 32-bit
/// words 0xAARRGGBB. Opaque pixels stay as they are, and so do fully transparent ones: their colour is not
/// lost.
namespace Premultiplication
{
constexpr int kAlphaShift = 24;
constexpr DWORD kOpaque = 255;

inline DWORD PremultiplyChannel(DWORD pixel, int shift, DWORD alpha)
{
    constexpr DWORD kHalf = 127;
    const DWORD color = (pixel >> shift) & kOpaque;
    return (color * alpha + kHalf) / kOpaque << shift;
}

inline DWORD PremultiplyPixel(DWORD pixel)
{
    constexpr int kRedShift = 16;
    constexpr int kGreenShift = 8;
    const DWORD alpha = pixel >> kAlphaShift;
    if (alpha == 0 || alpha == kOpaque)
        return pixel;
    return alpha << kAlphaShift | PremultiplyChannel(pixel, kRedShift, alpha) |
           PremultiplyChannel(pixel, kGreenShift, alpha) | PremultiplyChannel(pixel, 0, alpha);
}

inline void PremultiplyRunPlain(DWORD* pPixels, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        pPixels[i] = PremultiplyPixel(pPixels[i]);
}

/// Four pixels. (c * a + 127) / 255 is ((c * a + 128) * 257) >> 16 for all bytes c and a, which is one
/// multiplication for the upper half; 255 in place of the alpha gives the alpha itself.
inline __m128i PremultiplyVector(__m128i pixels)
{
    constexpr int kBitsPerByte = 8;
    constexpr int kBitsPerWord = 16;
    const __m128i half = _mm_set1_epi16(128);
    const __m128i toUpperHalf = _mm_set1_epi16(257);
    const __m128i lowBytes = _mm_set1_epi16(0x00FF);
    const __m128i alphaOfGreenAlpha = _mm_set1_epi32(0x00FF0000);

    const __m128i greenAlpha = _mm_srli_epi16(pixels, kBitsPerByte);
    const __m128i redBlue = _mm_and_si128(pixels, lowBytes);
    const __m128i alphaOnly = _mm_srli_epi32(pixels, kAlphaShift);
    const __m128i alpha = _mm_or_si128(alphaOnly, _mm_slli_epi32(alphaOnly, kBitsPerWord));

    const __m128i redBlueScaled =
        _mm_mulhi_epu16(_mm_add_epi16(_mm_mullo_epi16(redBlue, alpha), half), toUpperHalf);
    const __m128i greenAndOpaque = _mm_or_si128(greenAlpha, alphaOfGreenAlpha);
    const __m128i greenAlphaScaled =
        _mm_mulhi_epu16(_mm_add_epi16(_mm_mullo_epi16(greenAndOpaque, alpha), half), toUpperHalf);
    const __m128i scaled = _mm_or_si128(redBlueScaled, _mm_slli_epi16(greenAlphaScaled, kBitsPerByte));
    const __m128i transparent = _mm_cmpeq_epi32(alphaOnly, _mm_setzero_si128());
    return _mm_or_si128(scaled, _mm_and_si128(pixels, transparent));
}

/// Whether all of eight pixels are opaque or fully transparent: icons mostly are, and need not be stored
/// then.
inline bool AreAllUnchanged(__m128i first, __m128i second)
{
    // Alpha 255 becomes 0 and alpha 0 becomes 1: what is left of the upper seven bits is partly transparent.
    constexpr int kAboveLowestAlphaBit = kAlphaShift + 1;
    const __m128i one = _mm_set1_epi32(1 << kAlphaShift);
    const __m128i partly = _mm_or_si128(_mm_srli_epi32(_mm_add_epi32(first, one), kAboveLowestAlphaBit),
                                        _mm_srli_epi32(_mm_add_epi32(second, one), kAboveLowestAlphaBit));
    constexpr int kAllBytes = 0xFFFF;
    return _mm_movemask_epi8(_mm_cmpeq_epi32(partly, _mm_setzero_si128())) == kAllBytes;
}

/// The same as PremultiplyRunPlain, eight pixels at a time.
inline void PremultiplyRun(DWORD* pPixels, std::size_t count)
{
    constexpr std::size_t kPixelsPerVector = 4;
    constexpr std::size_t kPixelsPerBlock = 2 * kPixelsPerVector;
    const std::size_t inBlocks = count - count % kPixelsPerBlock;
    for (std::size_t i = 0; i < inBlocks; i += kPixelsPerBlock)
    {
        __m128i* const pFirst = reinterpret_cast<__m128i*>(pPixels + i);
        __m128i* const pSecond = reinterpret_cast<__m128i*>(pPixels + i + kPixelsPerVector);
        const __m128i first = _mm_loadu_si128(pFirst);
        const __m128i second = _mm_loadu_si128(pSecond);
        if (AreAllUnchanged(first, second))
            continue;
        _mm_storeu_si128(pFirst, PremultiplyVector(first));
        _mm_storeu_si128(pSecond, PremultiplyVector(second));
    }
    PremultiplyRunPlain(pPixels + inBlocks, count - inBlocks);
}

/// As ForEachRun describes an image.
inline void PremultiplyImage(void* pScan0, UINT nWidth, UINT nHeight, INT nStride)
{
    ForEachRun(pScan0, nWidth, nHeight, nStride, PremultiplyRun);
}
} // namespace Premultiplication
