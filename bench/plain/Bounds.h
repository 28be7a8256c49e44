#pragma once

#include <windef.h>

#include <emmintrin.h>

#include <cstddef>

/// How fast memory is: what no loop over the same pixels can beat. Counts are multiples of 16 pixels.
namespace Bounds
{
constexpr std::size_t kPixelsPerVector = 4;
constexpr std::size_t kVectorsPerTurn = 4;
constexpr std::size_t kPixelsPerTurn = kPixelsPerVector * kVectorsPerTurn;

/// One pass that reads and writes every pixel in place, each vector before the next, as the kernels do.
inline void Flip(DWORD* pPixels, std::size_t count)
{
    const __m128i mask = _mm_set1_epi32(0x00010101);
    for (std::size_t i = 0; i < count; i += kPixelsPerTurn)
    {
        __m128i* const p = reinterpret_cast<__m128i*>(pPixels + i);
        for (std::size_t k = 0; k < kVectorsPerTurn; ++k)
            _mm_storeu_si128(p + k, _mm_xor_si128(_mm_loadu_si128(p + k), mask));
    }
}

/// One pass that reads every pixel.
inline int Combine(const DWORD* pPixels, std::size_t count)
{
    __m128i all[kVectorsPerTurn] = {};
    for (std::size_t i = 0; i < count; i += kPixelsPerTurn)
    {
        const __m128i* const p = reinterpret_cast<const __m128i*>(pPixels + i);
        all[0] = _mm_or_si128(all[0], _mm_loadu_si128(p));
        all[1] = _mm_or_si128(all[1], _mm_loadu_si128(p + 1));
        all[2] = _mm_or_si128(all[2], _mm_loadu_si128(p + 2));
        all[3] = _mm_or_si128(all[3], _mm_loadu_si128(p + 3));
    }
    const __m128i halves = _mm_or_si128(_mm_or_si128(all[0], all[1]), _mm_or_si128(all[2], all[3]));
    return _mm_cvtsi128_si32(_mm_or_si128(halves, _mm_unpackhi_epi64(halves, halves)));
}
} // namespace Bounds
