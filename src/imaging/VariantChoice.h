#pragma once

#include <windef.h>

#include <vector>

/// The walks behind CDpiAwareRes::FindBestResource. An Entry has a field nDpi.
namespace VariantChoice
{
constexpr UINT kFarthest = 0x7FFFFFFF;

/// Keeps the nearest entry seen so far; of two equally near ones the later, unless its DPI is the lower one.
template<class Entry, class Distance>
class Nearest
{
public:
    void Offer(Entry* pEntry, Distance distance)
    {
        const bool ties = distance == m_distance && (!m_pKept || pEntry->nDpi >= m_pKept->nDpi);
        if (distance < m_distance || ties)
        {
            m_pKept = pEntry;
            m_distance = distance;
        }
    }

    Entry* Kept() const { return m_pKept; }

private:
    Entry* m_pKept = nullptr;
    Distance m_distance = static_cast<Distance>(kFarthest);
};

/// The magnitude of the difference of two DPIs taken as signed numbers; differences wrap.
inline INT SignedDistance(UINT nDpi, UINT nOtherDpi)
{
    const INT difference = static_cast<INT>(nDpi - nOtherDpi);
    return difference < 0 ? static_cast<INT>(0U - static_cast<UINT>(difference)) : difference;
}

/// The entry with the smallest DPI at or above nDpi, else the one nearest below it; null when there is none.
template<class Entry>
Entry* Choose(const std::vector<Entry*>& entries, UINT nDpi)
{
    Nearest<Entry, UINT> above;
    for (Entry* pEntry : entries)
    {
        if (pEntry->nDpi >= nDpi)
            above.Offer(pEntry, pEntry->nDpi - nDpi);
    }
    if (above.Kept())
        return above.Kept();

    Nearest<Entry, INT> nearest;
    for (Entry* pEntry : entries)
        nearest.Offer(pEntry, SignedDistance(pEntry->nDpi, nDpi));
    return nearest.Kept();
}
} // namespace VariantChoice
