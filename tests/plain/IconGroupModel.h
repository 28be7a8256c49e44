#pragma once

#include <imaging/IconGroup.h>

#include <algorithm>
#include <cstddef>
#include <vector>

// The choice of an icon's image, written down a second time as slowly and plainly as can be.
namespace IconGroupModel
{
struct Entry
{
    int id;
    int size;
};

inline std::vector<Entry> ReadEntries(const std::vector<BYTE>& bytes)
{
    std::vector<Entry> entries;
    const std::size_t promised = bytes.size() < 6 ? 0 : bytes[4] + bytes[5] * std::size_t{256};
    for (std::size_t start = 6; start + 14 <= bytes.size() && entries.size() < promised; start += 14)
    {
        const int width = bytes[start];
        const int height = bytes[start + 1];
        entries.push_back({bytes[start + 12] + bytes[start + 13] * 256, width > height ? width : height});
    }
    return entries;
}

// Of those that reach the target the smallest; sizes of 0 count only when there is nothing else.
inline Entry SmallestThatReaches(const std::vector<Entry>& entries, int target)
{
    const auto bySize = [](const Entry& left, const Entry& right) { return left.size < right.size; };
    std::vector<Entry> withSize;
    std::vector<Entry> withoutSize;
    for (const Entry& entry : entries)
    {
        if (entry.size >= target)
            (entry.size > 0 ? withSize : withoutSize).push_back(entry);
    }
    if (!withSize.empty())
        return *std::min_element(withSize.begin(), withSize.end(), bySize);
    return withoutSize.empty() ? Entry{0, 0} : withoutSize.front();
}

inline Entry Largest(const std::vector<Entry>& entries)
{
    Entry largest = {0, 0};
    for (int size = 255; size > 0 && largest.size == 0; --size)
    {
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        {
            if (entry->size == size)
                largest = *entry;
        }
    }
    return largest;
}

inline Entry Choose(const std::vector<BYTE>& bytes, int target)
{
    const std::vector<Entry> entries = ReadEntries(bytes);
    const Entry best = SmallestThatReaches(entries, target);
    return best.id != 0 ? best : Largest(entries);
}

// Whether the library chooses the same. The bytes fill their block, so that a sanitizer sees any read behind
// their end.
inline bool AgreesWithLibrary(const std::vector<BYTE>& bytes, int target)
{
    const Entry expected = Choose(bytes, target);
    const IconGroup::Image image = IconGroup::Choose(bytes.data(), bytes.size(), target);
    return image.nId == expected.id && image.nSize == expected.size;
}
} // namespace IconGroupModel
