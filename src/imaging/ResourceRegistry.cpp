#include <vxdpi/Images.h>

#include "VariantChoice.h"

#include <foundation/BaseDpi.h>

#include <memory>
#include <new>

CDpiAwareRes::CDpiAwareRes()
    : m_nCurrentDpi(kBaseDpi), m_nReserved(0), m_pMutex(new (std::nothrow) std::mutex),
      m_pEntries(new (std::nothrow) std::vector<ResourceInfo*>)
{
}

CDpiAwareRes& CDpiAwareRes::operator=(const CDpiAwareRes& other) = default;

CDpiAwareRes::~CDpiAwareRes()
{
    ReleaseAllResources();
    delete m_pEntries;
    delete m_pMutex;
}

void CDpiAwareRes::RegisterIconResource(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values)
{
    if (!m_pEntries || !m_pMutex)
        return;

    const std::lock_guard<std::mutex> lock(*m_pMutex);
    for (ResourceInfo* pEntry : *m_pEntries)
    {
        if (pEntry->nDpi == nDpi)
        {
            pEntry->nResourceId = nResourceId;
            pEntry->values = values;
            return;
        }
    }
    auto pNewEntry = std::make_unique<ResourceInfo>(nDpi, nResourceId, values);
    m_pEntries->push_back(pNewEntry.get());
    static_cast<void>(pNewEntry.release());
}

void CDpiAwareRes::UpdateCurrentDpi(UINT nDpi)
{
    if (!m_pMutex)
        return;

    const std::lock_guard<std::mutex> lock(*m_pMutex);
    if (m_nCurrentDpi != nDpi)
        m_nCurrentDpi = nDpi;
}

const ResourceInfo* CDpiAwareRes::FindBestResource()
{
    if (!m_pMutex || !m_pEntries)
        return nullptr;

    const std::lock_guard<std::mutex> lock(*m_pMutex);
    return VariantChoice::Choose(*m_pEntries, m_nCurrentDpi);
}

BOOL CDpiAwareRes::Empty()
{
    if (!m_pMutex)
        return TRUE;

    const std::lock_guard<std::mutex> lock(*m_pMutex);
    return !m_pEntries || m_pEntries->empty() ? TRUE : FALSE;
}

void CDpiAwareRes::ReleaseAllResources()
{
    if (!m_pMutex || !m_pEntries)
        return;

    const std::lock_guard<std::mutex> lock(*m_pMutex);
    for (ResourceInfo* pEntry : *m_pEntries)
        delete pEntry;
    m_pEntries->clear();
}
