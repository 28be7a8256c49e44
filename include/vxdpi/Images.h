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

    UINT nDpi = 0;            ///< dots per inch that the resource is drawn for
    UINT nResourceId = 0;     ///< the owner's resource ID
    std::vector<UINT> values; ///< the owner's numbers, as registered (icons: the pixel sizes on offer)
};

/// The registered resources of one picture, one per DPI, and the DPI that look-ups aim at.
///
/// May be shared between threads: every operation takes the object's lock, and a failure to lock throws
/// std::system_error. When memory is short at construction the registry stays empty: registering and updating
/// have no effect then.
class VXDPI_API CDpiAwareRes
{
public:
    /// Makes an empty registry that aims at 96 DPI.
    CDpiAwareRes();
    CDpiAwareRes(const CDpiAwareRes&) = delete;

    /// Copies the fields as they stand: both objects then share the other's lock and list, and what this one
    /// had stays allocated. Both destructors would free the shared ones, so let at most one of the two be
    /// destroyed.
    CDpiAwareRes& operator=(const CDpiAwareRes& other);

    /// Deletes every entry.
    ~CDpiAwareRes();

    /// Registers a resource as drawn for a DPI; a later call for the same DPI changes that entry in place.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  the owner's resource ID.
    /// @param values  the owner's numbers; copied.
    /// Throws std::bad_alloc, with the registry unchanged or that entry's ID new, when memory is short.
    void RegisterIconResource(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values);

    /// Sets the DPI that look-ups aim at; loads and releases nothing.
    /// @param nDpi  dots per inch.
    void UpdateCurrentDpi(UINT nDpi);

    /// Chooses the entry with the smallest DPI at or above the current DPI, else the one with the largest DPI
    /// below it: shrinking a picture looks better than enlarging one.
    /// @return the entry, owned by the registry and valid until ReleaseAllResources or destruction;
    ///         registering its DPI again changes it in place. Null when nothing is registered.
    const ResourceInfo* FindBestResource();

    /// Tells whether nothing is registered.
    /// @return TRUE when the registry is empty.
    BOOL Empty();

protected:
    /// Deletes every entry, also those that FindBestResource handed out; the current DPI stays.
    void ReleaseAllResources();

private:
    UINT m_nCurrentDpi;
    UINT m_nReserved;
    std::mutex* m_pMutex; // null when it could not be allocated: the registry then stays empty
    std::vector<ResourceInfo*>* m_pEntries; // as registered, one per DPI; guarded by *m_pMutex
};
