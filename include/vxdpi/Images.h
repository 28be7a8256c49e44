#pragma once

/// @file
/// Which resource is drawn for which DPI.
///
/// CDpiAwareRes is the registry behind every per-DPI image class. An owner registers one resource ID for each
/// DPI that a picture was drawn for, sets the DPI that it needs, and asks for the best entry:
///
///     CDpiAwareRes pictures;
///     pictures.RegisterIconResource(96, IDR_LOGO_96, {});
///     pictures.RegisterIconResource(192, IDR_LOGO_192, {});
///     pictures.UpdateCurrentDpi(VxSafeGetDpiForWindow(m_hWnd));
///     const ResourceInfo* pBest = pictures.FindBestResource(); // 120 DPI takes the one for 192
///
/// The registry only chooses; it loads nothing. Each operation holds the registry's own lock for its whole
/// body.

#include <afxwin.h>

#include <vxdpi/Export.h>

#include <mutex>
#include <vector>

/// One registered resource: the DPI that it is drawn for, its ID, and numbers that mean something to the
/// owner.
struct ResourceInfo
{
    ResourceInfo() = default;
    ResourceInfo(UINT nDrawnForDpi, UINT nId, const std::vector<UINT>& ownerValues)
        : nDpi(nDrawnForDpi), nResourceId(nId), values(ownerValues)
    {
    }
    virtual ~ResourceInfo() = default;

    UINT nDpi = 0;        ///< dots per inch that the resource is drawn for
    UINT nResourceId = 0; ///< the owner's resource ID
    std::vector<UINT>
        values; ///< the owner's numbers, as registered (icons: the pixel sizes that the resource offers)
};

/// The registered resources of one picture, one per DPI, and the DPI that look-ups aim at.
///
/// May be shared between threads: every operation takes the object's lock, and a failure to lock throws
/// std::system_error. Assignment copies the fields as they stand, so that both objects share one lock and one
/// list; both destructors would then free them, hence let at most one of the two be destroyed.
class VXDPI_API CDpiAwareRes
{
public:
    /// Makes an empty registry that aims at 96 DPI.
    CDpiAwareRes();
    CDpiAwareRes(const CDpiAwareRes&) = delete;
    CDpiAwareRes& operator=(const CDpiAwareRes& other);

    /// Deletes every entry.
    ~CDpiAwareRes();

    /// Registers a resource as drawn for a DPI; a later call for the same DPI changes that entry in place.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  the owner's resource ID.
    /// @param values  the owner's numbers; copied.
    void RegisterIconResource(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values);

    /// Sets the DPI that look-ups aim at; loads and releases nothing.
    /// @param nDpi  dots per inch.
    void UpdateCurrentDpi(UINT nDpi);

    /// Chooses the entry with the smallest DPI at or above the current DPI, else the one with the largest DPI
    /// below it: shrinking a picture looks better than enlarging one.
    /// @return the entry, owned by the registry and valid until the registry is destroyed; registering its
    ///         DPI again changes it in place. Null when nothing is registered.
    const ResourceInfo* FindBestResource();

    /// @return TRUE when nothing is registered.
    BOOL Empty();

protected:
    /// Deletes every entry; the current DPI stays.
    void ReleaseAllResources();

private:
    UINT m_nCurrentDpi;
    UINT m_nReserved;
    std::mutex* m_pMutex; // null when it could not be allocated: the registry then stays empty
    std::vector<ResourceInfo*>*
        m_pEntries; // in order of registration, at most one per DPI; guarded by *m_pMutex
};
