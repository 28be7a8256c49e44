#pragma once

#include <windef.h>

#include <algorithm>
#include <cstddef>

/// The directory of an icon's images, as it stands in a module's resources: a header of 6 bytes, whose last
/// two are the number of entries, and then 14 bytes for each image. Numbers are little-endian.
namespace IconGroup
{
constexpr std::size_t kHeaderSize = 6;
constexpr std::size_t kCountOffset = 4;
constexpr std::size_t kEntrySize = 14;
constexpr std::size_t kWidthOffset = 0;
constexpr std::size_t kHeightOffset = 1;
constexpr std::size_t kIdOffset = 12;

/// An image of the icon.
struct Image
{
    WORD nId = 0;  ///< resource ID; 0: there is none
    int nSize = 0; ///< the longer side in pixels; 0 for 256, which the format stores so
};

inline WORD ReadWord(const BYTE* pBytes)
{
    constexpr int kBitsPerByte = 8;
    return static_cast<WORD>(pBytes[0] | pBytes[1] << kBitsPerByte);
}

/// Entries that are promised and whole: the bytes may come from a damaged file.
inline std::size_t CountEntries(const BYTE* pBytes, std::size_t byteCount)
{
    if (byteCount < kHeaderSize)
        return 0;
    const std::size_t promised = ReadWord(pBytes + kCountOffset);
    return (std::min)(promised, (byteCount - kHeaderSize) / kEntrySize);
}

inline Image ReadEntry(const BYTE* pBytes, std::size_t index)
{
    const BYTE* const pEntry = pBytes + kHeaderSize + index * kEntrySize;
    Image image;
    image.nId = ReadWord(pEntry + kIdOffset);
    image.nSize = (std::max)(pEntry[kWidthOffset], pEntry[kHeightOffset]);
    return image;
}

/// Whether an image that is large enough fits better than the best one so far: the smallest does, and among
/// equal ones the first. A size of 0 tells nothing, so such an image only fills an empty place.
inline bool FitsBetter(const Image& image, const Image& best, bool hasBest)
{
    if (!hasBest)
        return true;
    return image.nSize != 0 && (best.nSize == 0 || image.nSize < best.nSize);
}

/// Chooses the smallest image that is at least nTargetSize pixels, else the largest one.
/// @return the image; ID 0 when there is none.
inline Image Choose(const BYTE* pBytes, std::size_t byteCount, int nTargetSize)
{
    Image best;
    Image largest;
    bool hasBest = false;
    const std::size_t count = CountEntries(pBytes, byteCount);
    for (std::size_t i = 0; i < count; ++i)
    {
        const Image image = ReadEntry(pBytes, i);
        if (image.nSize > largest.nSize)
            largest = image;
        if (image.nSize >= nTargetSize && FitsBetter(image, best, hasBest))
        {
            best = image;
            hasBest = true;
        }
    }
    return best.nId != 0 ? best : largest;
}
} // namespace IconGroup
