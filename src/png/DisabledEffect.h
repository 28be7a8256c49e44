#pragma once

#include "PixelRuns.h"

#include <emmintrin.h>

/// Turns pixels into light grey: their brightness, brought 30 % of the way to white, in double precision and
/// truncated after each of the two steps. Pixels are 32-bit words 0xAARRGGBB; alpha stays.
namespace DisabledEffect
{
constexpr double kRedWeight = 0.299;
constexpr double kGreenWeight = 0.587;
constexpr double kBlueWeight = 0.114;
constexpr int kRedShift = 16;
constexpr int kGreenShift = 8;
constexpr DWORD kByteMask = 0xFF;
constexpr DWORD kAlphaMask = 0xFF000000;
constexpr DWORD kGreyToAllColors = 0x00010101;

inline DWORD GreyOutPixel(DWORD pixel)
{
    constexpr double kTowardWhite = 0.3;
    constexpr DWORD kWhite = 255;
    const double red = pixel >> kRedShift & kByteMask;
    const double green = pixel >> kGreenShift & kByteMask;
    const double blue = pixel & kByteMask;
    const DWORD brightness = static_cast<DWORD>(red * kRedWeight + green * kGreenWeight + blue * kBlueWeight);
    const DWORD grey = static_cast<DWORD>(brightness + (kWhite - brightness) * kTowardWhite);
    return (pixel & kAlphaMask) | grey * kGreyToAllColors;
}

inline void GreyOutRunPlain(DWORD* pPixels, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        pPixels[i] = GreyOutPixel(pPixels[i]);
}

/// The truncated brightness of the two pixels in the lower half.
inline __m128i BrightnessOfTwo(__m128i reds, __m128i greens, __m128i blues)
{
    const __m128d red = _mm_mul_pd(_mm_cvtepi32_pd(reds), _mm_set1_pd(kRedWeight));
    const __m128d green = _mm_mul_pd(_mm_cvtepi32_pd(greens), _mm_set1_pd(kGreenWeight));
    const __m128d blue = _mm_mul_pd(_mm_cvtepi32_pd(blues), _mm_set1_pd(kBlueWeight));
    return _mm_cvttpd_epi32(_mm_add_pd(_mm_add_pd(red, green), blue));
}

inline __m128i UpperHalf(__m128i words)
{
    return _mm_unpackhi_epi64(words, words);
}

/// Four pixels. The second step is (717 * y + 78335) >> 10 for every byte y.
inline __m128i GreyOutVector(__m128i pixels)
{
    constexpr int kWordBits = 16;
    const __m128i byteMask = _mm_set1_epi32(static_cast<int>(kByteMask));
    const __m128i reds = _mm_and_si128(_mm_srli_epi32(pixels, kRedShift), byteMask);
    const __m128i greens = _mm_and_si128(_mm_srli_epi32(pixels, kGreenShift), byteMask);
    const __m128i blues = _mm_and_si128(pixels, byteMask);
    const __m128i brightness =
        _mm_unpacklo_epi64(BrightnessOfTwo(reds, greens, blues),
                           BrightnessOfTwo(UpperHalf(reds), UpperHalf(greens), UpperHalf(blues)));

    const __m128i factor = _mm_set1_epi32(717);
    const __m128i offset = _mm_set1_epi32(78335);
    constexpr int kFractionBits = 10;
    const __m128i grey =
        _mm_srli_epi32(_mm_add_epi32(_mm_madd_epi16(brightness, factor), offset), kFractionBits);
    const __m128i greyTwice = _mm_or_si128(grey, _mm_slli_epi32(grey, kGreenShift));
    const __m128i greyThrice = _mm_or_si128(greyTwice, _mm_slli_epi32(grey, kWordBits));
    return _mm_or_si128(_mm_and_si128(pixels, _mm_set1_epi32(static_cast<int>(kAlphaMask))), greyThrice);
}

/// The same as GreyOutRunPlain, four pixels at a time.
inline void GreyOutRun(DWORD* pPixels, std::size_t count)
{
    constexpr std::size_t kPixelsPerVector = 4;
    const std::size_t inVectors = count - count % kPixelsPerVector;
    for (std::size_t i = 0; i < inVectors; i += kPixelsPerVector)
    {
        __m128i* const pVector = reinterpret_cast<__m128i*>(pPixels + i);
        _mm_storeu_si128(pVector, GreyOutVector(_mm_loadu_si128(pVector)));
    }
    GreyOutRunPlain(pPixels + inVectors, count - inVectors);
}

/// As ForEachRun describes an image.
inline void GreyOutImage(void* pScan0, UINT nWidth, UINT nHeight, INT nStride)
{
    ForEachRun(pScan0, nWidth, nHeight, nStride, GreyOutRun);
}
} // namespace DisabledEffect
