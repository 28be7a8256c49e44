#include "ThreadState.h"

#include <vector>

#include <vxmfc/Module.h>

#include "ThreadRecord.h"

namespace
{

/// All that the framework keeps for one thread.
struct ThreadRecord
{
    ThreadState state;
    std::vector<std::unique_ptr<ModuleThreadState>> modules; // by the module state's serial number
};

/// The slot that holds each thread's record.
class ThreadSlot
{
public:
    ThreadSlot() : m_nIndex(::TlsAlloc()) {}
    ~ThreadSlot() { ::TlsFree(m_nIndex); }

    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;

    // The last error belongs to the platform call that a caller of the framework made before.
    ThreadRecord* Get() const
    {
        const DWORD nLastError = ::GetLastError();
        auto* const pRecord = static_cast<ThreadRecord*>(::TlsGetValue(m_nIndex));
        ::SetLastError(nLastError);
        return pRecord;
    }

    void Set(ThreadRecord* pRecord) const { ::TlsSetValue(m_nIndex, pRecord); }

private:
    const DWORD m_nIndex;
};

const ThreadSlot& Slot()
{
    static const ThreadSlot slot;
    return slot;
}

ThreadRecord& CurrentRecord()
{
    if (ThreadRecord* const pRecord = Slot().Get())
        return *pRecord;
    auto* const pNew = new ThreadRecord;
    Slot().Set(pNew);
    return *pNew;
}

} // namespace

ThreadState& CurrentThreadState()
{
    return CurrentRecord().state;
}

ModuleThreadState& CurrentModuleThreadState()
{
    const UINT nSerial = AfxGetModuleState()->SerialNumber();
    auto& modules = CurrentRecord().modules;
    if (modules.size() <= nSerial)
        modules.resize(nSerial + 1);
    auto& pState = modules[nSerial];
    if (!pState)
        pState = std::make_unique<ModuleThreadState>();
    return *pState;
}

void DeleteTemporaryObjects()
{
    ModuleThreadState& state = CurrentModuleThreadState();
    state.windows.DeleteTemporaries();
    state.deviceContexts.DeleteTemporaries();
    state.gdiObjects.DeleteTemporaries();
    state.imageLists.DeleteTemporaries();
    state.menus.DeleteTemporaries();
}

void EndModuleThreadState(const AFX_MODULE_STATE& moduleState)
{
    ThreadRecord* const pRecord = Slot().Get();
    const UINT nSerial = moduleState.SerialNumber();
    if (pRecord == nullptr || pRecord->modules.size() <= nSerial)
        return;
    // Out of the record first: ending temporary objects may ask for the state again.
    const std::unique_ptr<ModuleThreadState> pEnded = std::move(pRecord->modules[nSerial]);
}

void EndThreadRecord()
{
    const std::unique_ptr<ThreadRecord> pRecord(Slot().Get());
    if (!pRecord)
        return;
    for (auto& pState : pRecord->modules)
        const std::unique_ptr<ModuleThreadState> pEnded = std::move(pState);
    Slot().Set(nullptr);
}

AFX_MODULE_STATE* AFXAPI AfxGetModuleState()
{
    AFX_MODULE_STATE* const pState = CurrentThreadState().moduleState;
    return pState == nullptr ? vxmfc::ProgramModuleState() : pState;
}

AFX_MODULE_STATE* AFXAPI AfxSetModuleState(AFX_MODULE_STATE* pNewState)
{
    AFX_MODULE_STATE* const pPrevious = AfxGetModuleState();
    CurrentThreadState().moduleState = pNewState;
    return pPrevious;
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pNewState)
    : m_pPreviousState(AfxSetModuleState(pNewState))
{
}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2()
{
    AfxSetModuleState(m_pPreviousState);
}
