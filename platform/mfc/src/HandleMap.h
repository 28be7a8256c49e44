#pragma once

#include <memory>
#include <unordered_map>

/// Finds the framework's object for a platform handle, for one thread in one module.
///
/// Permanent entries belong to objects that own or have attached the handle. Temporary objects are made on
/// demand, never own the handle, and live until DeleteTemporaries, which idle processing calls.
/// Traits: `static Object* Create(Handle)` makes a wrapper of an unowned handle; `static void
/// Release(Object*)` empties the wrapper and deletes it.
template<class Object, class Handle, class Traits>
class HandleMap
{
public:
    HandleMap() = default;
    HandleMap(const HandleMap&) = delete;
    HandleMap& operator=(const HandleMap&) = delete;
    ~HandleMap() { DeleteTemporaries(); }

    Object* FindPermanent(Handle handle) const
    {
        const auto found = m_permanent.find(handle);
        return found == m_permanent.end() ? nullptr : found->second;
    }

    Object* FromHandle(Handle handle)
    {
        if (handle == Handle())
            return nullptr;
        if (Object* pPermanent = FindPermanent(handle))
            return pPermanent;
        auto& pTemporary = m_temporary[handle];
        if (!pTemporary)
            pTemporary.reset(Traits::Create(handle));
        return pTemporary.get();
    }

    void SetPermanent(Handle handle, Object* pObject) { m_permanent[handle] = pObject; }
    void RemovePermanent(Handle handle) { m_permanent.erase(handle); }
    void DeleteTemporaries() { m_temporary.clear(); }

    const std::unordered_map<Handle, Object*>& Permanent() const { return m_permanent; }

private:
    struct Releaser
    {
        void operator()(Object* pObject) const { Traits::Release(pObject); }
    };

    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, std::unique_ptr<Object, Releaser>> m_temporary;
};
