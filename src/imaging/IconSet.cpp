#include <vxdpi/Images.h>

#include "VariantLookup.h"

#include <foundation/GuardedScaling.h>

#include <algorithm>
#include <limits>
#include <new>

CDpiAwareIcon::CDpiAwareIcon()
    : m_nLargestSize(0), m_nSmallestSize((std::numeric_limits<UINT>::max)()),
      m_pCurrentSizes(new (std::nothrow) std::vector<UINT>)
{
}

CDpiAwareIcon& CDpiAwareIcon::operator=(const CDpiAwareIcon& other) = default;

CDpiAwareIcon::~CDpiAwareIcon()
{
    delete m_pCurrentSizes;
}

void CDpiAwareIcon::AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& sizes)
{
    m_resources.RegisterIconResource(nDpi, nResourceId, sizes);
    if (sizes.empty())
        return;
    const auto range = std::minmax_element(sizes.begin(), sizes.end());
    m_nLargestSize = (std::max)(m_nLargestSize, *range.second);
    m_nSmallestSize = (std::min)(m_nSmallestSize, *range.first);
}

UINT CDpiAwareIcon::FindScaledIcon(UINT nSize)
{
    if (!m_pCurrentSizes)
        return 0;
    if (nSize <= m_nSmallestSize)
        return m_nSmallestSize;
    // The first that is large enough, not the smallest: the order is the caller's preference.
    const auto found = std::find_if(m_pCurrentSizes->begin(), m_pCurrentSizes->end(),
                                    [nSize](UINT nOffered) { return nOffered >= nSize; });
    return found != m_pCurrentSizes->end() ? *found : m_nLargestSize;
}

HICON CDpiAwareIcon::GetScaledIcon(UINT nSize, UINT nResourceId)
{
    const UINT nLoadSize = FindScaledIcon(nSize);
    if (nLoadSize == 0)
        return nullptr;
    const int loadSize = static_cast<int>(nLoadSize);
    const HICON hIcon = static_cast<HICON>(::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nResourceId),
                                                        IMAGE_ICON, loadSize, loadSize, LR_DEFAULTCOLOR));
    if (!hIcon || nLoadSize == nSize)
        return hIcon;
    return StretchIcon(hIcon, static_cast<int>(nSize), static_cast<int>(nSize));
}

HICON CDpiAwareIcon::CreateAwareIconSpecifyDpi(UINT nDpi)
{
    if (!m_pCurrentSizes)
        return nullptr;
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest)
        return nullptr;
    *m_pCurrentSizes = pBest->values;
    if (pBest->nResourceId == 0 || nDpi == 0)
        return nullptr;
    return GetScaledIcon(GuardedScaleUnsigned(m_nSmallestSize, nDpi, pBest->nDpi), pBest->nResourceId);
}
