#pragma once

#include <foundation/Rounding.h>

/// How much larger a picture drawn for nDrawnForDpi is at nDpi. The two formulas differ in the last bit for
/// some pairs, and with it a truncated side may differ by a pixel: each operation keeps its own.

/// The quotient worked out in double precision and rounded to single; infinite when nDrawnForDpi is 0.
inline float RoundedScaleFactor(UINT nDpi, UINT nDrawnForDpi)
{
    return static_cast<float>(static_cast<double>(nDpi) / static_cast<double>(nDrawnForDpi));
}

/// The quotient worked out in single precision.
inline float SingleScaleFactor(UINT nDpi, UINT nDrawnForDpi)
{
    return static_cast<float>(nDpi) / static_cast<float>(nDrawnForDpi);
}

/// A side of the scaled picture in whole device pixels.
inline UINT ScaledLength(UINT nLength, float factor)
{
    return TruncateToUnsigned(static_cast<float>(nLength) * factor);
}
