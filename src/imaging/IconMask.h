#pragma once

#include <windef.h>

#include <emmintrin.h>

#include <cstddef>

/// Which pixels of an icon are transparent: one bit a pixel, numbered row by row from the top, the most
/// significant bit of a byte first. A set bit is a pixel whose alpha is 0. Rows follow each other without
/// padding, so the whole image is one run.
namespace IconMask
{
constexpr std::size_t kBitsPerByte = 8;
constexpr int kAlphaShift = 24;
constexpr BYTE kAllTransparent = 0xFF;

/// Bytes for a number of pixels.
inline std::size_t ByteCount(std::size_t pixelCount)
{
    return (pixelCount + kBitsPerByte - 1) / kBitsPerByte;
}

/// Pixels are 32-bit words 0xAARRGGBB; the bits beyond the last one are set.
inline void PackPlain(const DWORD* pPixels, std::size_t count, BYTE* pMask)
{
    for (std::size_t i = 0; i < ByteCount(count); ++i)
        pMask[i] = kAllTransparent;
    for (std::size_t i = 0; i < count; ++i)
    {
        constexpr unsigned kFirstBit = 0x80;
        const bool isDrawn = (pPixels[i] >> kAlphaShift) != 0;
        if (isDrawn)
            pMask[i / kBitsPerByte] &= static_cast<BYTE>(~(kFirstBit >> (i % kBitsPerByte)));
    }
}

/// All bits of four lanes are set where the alpha is 0; the first pixel comes last, as movemask wants it.
inline __m128i TransparentLanes(const DWORD* pPixels)
{
    constexpr int kReversed = _MM_SHUFFLE(0, 1, 2, 3);
    const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pPixels));
    const __m128i transparent = _mm_cmpeq_epi32(_mm_srli_epi32(pixels, kAlphaShift), _mm_setzero_si128());
    return _mm_shuffle_epi32(transparent, kReversed);
}

/// The same, sixteen pixels at a time.
inline void Pack(const DWORD* pPixels, std::size_t count, BYTE* pMask)
{
    constexpr std::size_t kPixelsPerBlock = 16;
    constexpr std::size_t kPixelsPerVector = 4;
    const std::size_t inBlocks = count - count % kPixelsPerBlock;
    for (std::size_t i = 0; i < inBlocks; i += kPixelsPerBlock)
    {
        const DWORD* const pBlock = pPixels + i;
        const __m128i second = _mm_packs_epi32(TransparentLanes(pBlock + 3 * kPixelsPerVector),
                                               TransparentLanes(pBlock + 2 * kPixelsPerVector));
        const __m128i first =
            _mm_packs_epi32(TransparentLanes(pBlock + kPixelsPerVector), TransparentLanes(pBlock));
        const int bits = _mm_movemask_epi8(_mm_packs_epi16(second, first));
        pMask[i / kBitsPerByte] = static_cast<BYTE>(bits >> kBitsPerByte);
        pMask[i / kBitsPerByte + 1] = static_cast<BYTE>(bits);
    }
    PackPlain(pPixels + inBlocks, count - inBlocks, pMask + inBlocks / kBitsPerByte);
}
} // namespace IconMask
