#include <afx.h>

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

namespace
{

/// The records of all loaded modules.
class RuntimeClassList
{
public:
    void Add(CRuntimeClass* pClass)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_classes.push_back(pClass);
    }

    void Remove(CRuntimeClass* pClass)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_classes.erase(std::remove(m_classes.begin(), m_classes.end(), pClass), m_classes.end());
    }

    CRuntimeClass* Find(LPCSTR lpszName)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = std::find_if(m_classes.begin(), m_classes.end(),
                                        [&](const CRuntimeClass* pClass)
                                        { return ::lstrcmpA(pClass->m_lpszClassName, lpszName) == 0; });
        return found == m_classes.end() ? nullptr : *found;
    }

private:
    std::mutex m_mutex;
    std::vector<CRuntimeClass*> m_classes; // guarded by m_mutex
};

// Never destroyed: static objects of modules that are unloaded last still leave it.
RuntimeClassList& RuntimeClasses()
{
    static RuntimeClassList& list = *new RuntimeClassList;
    return list;
}

} // namespace

vxmfc::RuntimeClassRegistration::RuntimeClassRegistration(CRuntimeClass* pClass) : m_pClass(pClass)
{
    RuntimeClasses().Add(m_pClass);
}

vxmfc::RuntimeClassRegistration::~RuntimeClassRegistration()
{
    RuntimeClasses().Remove(m_pClass);
}

CObject* CRuntimeClass::CreateObject()
{
    if (m_pfnCreateObject == nullptr)
        return nullptr;
    try
    {
        return m_pfnCreateObject();
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
    catch (CMemoryException* pException)
    {
        pException->Delete();
        return nullptr;
    }
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR lpszClassName)
{
    CRuntimeClass* const pClass = FromName(lpszClassName);
    return pClass == nullptr ? nullptr : pClass->CreateObject();
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCWSTR lpszClassName)
{
    return CreateObject(CStringA(lpszClassName).GetString());
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR lpszClassName)
{
    return lpszClassName == nullptr ? nullptr : RuntimeClasses().Find(lpszClassName);
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCWSTR lpszClassName)
{
    return FromName(CStringA(lpszClassName).GetString());
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    const CRuntimeClass* pClass = this;
    while (pClass != pBaseClass && pClass->m_pfnGetBaseClass != nullptr)
        pClass = pClass->m_pfnGetBaseClass();
    return pClass == pBaseClass;
}

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr,
                                       nullptr};

CObject::CObject() = default;

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return RUNTIME_CLASS(CObject);
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}
