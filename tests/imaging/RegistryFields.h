#pragma once

#include <vxdpi/Images.h>

// The fields of a registry in their order, which is part of the library's binary interface. A picture class
// that consists of one registry has the same.
struct RegistryFields
{
    UINT nCurrentDpi;
    UINT nReserved;
    std::mutex* pMutex;
    std::vector<ResourceInfo*>* pEntries;
};

template<typename Owner>
RegistryFields& FieldsOf(Owner& owner)
{
    static_assert(sizeof(Owner) == sizeof(RegistryFields), "the class consists of one registry");
    return reinterpret_cast<RegistryFields&>(owner);
}

// Gives an object its own fields back at the end of a scope in which it shares those of another, so that both
// can be destroyed.
class KeepFields
{
public:
    explicit KeepFields(RegistryFields& fields) : m_fields(fields), m_kept(fields) {}

    ~KeepFields() { m_fields = m_kept; }

    KeepFields(const KeepFields&) = delete;
    KeepFields& operator=(const KeepFields&) = delete;

private:
    RegistryFields& m_fields;
    const RegistryFields m_kept;
};
