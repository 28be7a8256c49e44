#pragma once

/// @file
/// Bitmaps and icons in the size that a monitor asks for.
///
/// CDpiAwareBitmap and CDpiAwareIcon know several resources of one picture, each drawn for one DPI. They take
/// the one that fits best and bring it to the exact size:
///
///     m_icons.AddResourceForDpi(96, IDI_OPEN, {16, 20, 24, 32}); // with the sizes that the resource offers
///     ...
///     const HICON hIcon = m_icons.CreateAwareIconSpecifyDpi(VxSafeGetDpiForWindow(m_hWnd));
///     m_openButton.SetIcon(hIcon);                            // DestroyIcon(hIcon) when it is replaced
///
/// Behind them is CDpiAwareRes, the registry of which resource is drawn for which DPI. ScaleBitmap,
/// StretchIcon, CreateScaledIcon and LoadIconByTargetSizeFromFile work on any bitmap, icon or icon file.
///
/// All but the registry belongs to one thread, the one of the windows concerned.

#include <afxwin.h>

#include <vxdpi/Export.h>

#include <commctrl.h>

#include <mutex>
#include <vector>

#if defined(_MSC_VER)
#pragma warning(push)
// Bases and fields of types that are not exported: those of the framework, and of the standard library.
#pragma warning(disable : 4251 4275)
#endif

/// One registered resource: the DPI that it is drawn for, its ID, and numbers that mean something to the
/// owner.
struct ResourceInfo
{
    /// Makes an entry of zeros.
    ResourceInfo() = default;
    /// Makes an entry.
    /// @param nDrawnForDpi  dots per inch that the resource is drawn for.
    /// @param nId  the owner's resource ID.
    /// @param ownerValues  the owner's numbers; copied.
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
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwareRes& operator=(const CDpiAwareRes& other);

    /// Deletes every entry.
    ~CDpiAwareRes();

    /// Registers a resource as drawn for a DPI; a later call for the same DPI changes that entry in place.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  the owner's resource ID.
    /// @param values  the owner's numbers; copied.
    ///
    /// Throws std::bad_alloc (with Microsoft's MFC a CMemoryException*), with the registry unchanged or that
    /// entry's ID new, when memory is short.
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

/// Stretches a bitmap to a size, in the stretch mode that a new device context has.
/// @param hBitmap  stays the caller's; not selected into any device context.
/// @param cx,cy  device pixels.
/// @return a new bitmap in the screen's format, which the caller frees with DeleteObject; null, with nothing
///         made, when hBitmap can't be queried, and null when the screen has no bitmap of that size.
VXDPI_API HBITMAP ScaleBitmap(HBITMAP hBitmap, int cx, int cy);

/// A bitmap with several resources of one picture, one per DPI.
///
/// The object's own handle is the bitmap to show, already in its final size; beside it the object keeps the
/// bitmap as it was loaded or attached. It owns both. Register the resources, load for a DPI, then call
/// ScaleToDpi when the window is shown and after every change of its DPI:
///
///     m_logo.AddResourceForDpi(96, IDB_LOGO_96, {});
///     m_logo.AddResourceForDpi(144, IDB_LOGO_144, {});
///     m_logo.LoadDpiAwareBitmap(96);
///     if (m_logo.ScaleToDpi(this, nullptr))
///         m_picture.SetBitmap(m_logo);
///
/// Resources come from the module that AfxFindResourceHandle answers. Not copyable.
class VXDPI_API CDpiAwareBitmap : public CBitmap
{
public:
    /// Makes an object without bitmaps, for 96 DPI. When memory is short it refuses every operation.
    CDpiAwareBitmap();

    /// Deletes both bitmaps.
    virtual ~CDpiAwareBitmap();

    /// Registers a bitmap resource as drawn for a DPI; a later call for the same DPI replaces the earlier
    /// one. It counts from the next load that chooses it.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  integer resource ID.
    /// @param values  stored with the entry and not used by this class.
    void AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values);

    /// Loads the resource that fits a DPI best, unscaled.
    /// @param nDpi  dots per inch.
    /// @return TRUE when another resource than before was loaded. FALSE, with both bitmaps kept, when nothing
    ///         is registered or the best resource is loaded already; FALSE, with one or both bitmaps gone and
    ///         the sizes as they were, when it can't be loaded. The resource before still counts as loaded
    ///         then: the next load that succeeds is that of another one.
    BOOL LoadDpiAwareBitmap(UINT nDpi);

    /// Does the same and maps colours while loading. ScaleToDpi loads without a map.
    /// @param nFlags  flags for CreateMappedBitmap; with 0 no colours are mapped.
    /// @param pColorMap  the colours to map; not kept. With null no colours are mapped.
    /// @param nMapSize  number of entries in pColorMap; with 0 no colours are mapped.
    /// @param nDpi  dots per inch.
    /// @return as above.
    BOOL LoadDpiAwareBitmapWithColorMap(UINT nFlags, COLORMAP* pColorMap, int nMapSize, UINT nDpi);

    /// Brings the bitmap to the size that it has at a window's DPI: its pixels multiplied by that DPI / the
    /// one that its resource is drawn for, or 96 when nothing is registered, halves rounded away from zero.
    /// When the DPI is another than that of the last load, the resource that fits best is loaded before.
    /// @param pWnd  the window; null gives FALSE.
    /// @param hBitmap  a bitmap to take over as the one to scale, or null for the one that is loaded. Taken
    ///        over unless there is no window or it has no DPI; must not be one of the object's own bitmaps.
    /// @return TRUE when the bitmap has its new size, which GetSize tells. FALSE, with nothing changed, when
    ///         there is no window, it has no DPI, or there is no bitmap to scale; FALSE, with a size of 0 x 0
    ///         and the bitmaps that are left, when a step failed.
    BOOL ScaleToDpi(CWnd* pWnd, HBITMAP hBitmap);

    /// Tells the size of the bitmap to show.
    /// @return device pixels; 0 x 0 before the first load and after a step of ScaleToDpi that failed, the
    ///         size before after a failed load.
    CSize GetSize() const;

protected:
    /// Loads the resource that fits a DPI best, as LoadDpiAwareBitmapWithColorMap does.
    /// @param nFlags,pColorMap,nMapSize  the colours to map, as there.
    /// @param nDpi  dots per inch.
    /// @return as there.
    BOOL LoadDpiAwareBitmapInternal(UINT nFlags, COLORMAP* pColorMap, int nMapSize, UINT nDpi);

    /// Takes over a bitmap as the one to scale, and shows a copy of it unscaled.
    /// @param hBitmap  the object's from here on.
    /// @return TRUE. FALSE, with nothing changed, when hBitmap is null; FALSE, with hBitmap taken over but
    ///         not shown, when it can't be copied.
    BOOL Attach_DpiAware(HBITMAP hBitmap);

    /// Replaces the bitmap to show by the loaded one, stretched in HALFTONE mode. It has the format of the
    /// window's device context: no DIB section, no alpha.
    /// @param pWnd  the window whose device context decides the format.
    /// @param cx,cy  device pixels.
    /// @return TRUE. FALSE, with the bitmap to show unchanged, when the window gives no device context or no
    ///         bitmap of that size can be made; FALSE, with it replaced, when nothing could be drawn.
    BOOL Scale(CWnd* pWnd, int cx, int cy);

private:
    UINT m_nColorMapFlags; // for a reload; 0, no operation sets them
    COLORMAP* m_pColorMap;
    int m_nColorMapSize;
    UINT m_nCurrentDpi; // the DPI for which a resource was last chosen
    UINT m_nResourceId; // of the loaded resource; 0: none
    CDpiAwareRes m_resources;
    CBitmap* m_pSource;  // owned; as loaded or attached, never scaled
    CSize m_sizeBase;    // of the bitmap in m_pSource, device pixels
    CSize m_sizeCurrent; // of the bitmap to show, device pixels
};

/// Brings an icon to a size in the platform's quick way.
/// @param hIcon  consumed: it is the result, or it was destroyed.
/// @param cx,cy  device pixels.
/// @return the icon in that size, hIcon itself when it has that size or can't be stretched; the caller frees
///         it with DestroyIcon.
VXDPI_API HICON StretchIcon(HICON hIcon, int cx, int cy);

/// Loads an icon of the framework's current resource module and resamples it, with its transparency, in high
/// quality. COM must be initialised on the thread unless the two sizes are equal.
/// @param nTargetSize  device pixels a side.
/// @param nResourceId  integer resource ID.
/// @param nLoadSize  device pixels a side in which the icon is loaded.
/// @return a new icon, which the caller frees with DestroyIcon. Null when it can't be loaded or resampled;
///         the loaded icon is not freed when the platform has no imaging component to resample it.
VXDPI_API HICON CreateScaledIcon(UINT nTargetSize, UINT nResourceId, UINT nLoadSize);

/// Resamples an icon, with its transparency, in high quality. COM must be initialised on the thread.
/// @param nTargetSize  device pixels a side.
/// @param hIcon  returned as it is when it is nTargetSize wide; consumed when it is resampled, whether that
///        succeeds or not.
/// @return the icon in that size, which the caller frees with DestroyIcon. Null, with hIcon still the
///         caller's, when it is no icon or the platform has no imaging component; null, with hIcon destroyed,
///         when it can't be resampled.
VXDPI_API HICON CreateScaledIcon(UINT nTargetSize, HICON hIcon);

/// Loads the image of an icon file that fits a size best: the smallest that is not smaller, else the largest.
/// Images of 256 pixels, which the format stores as 0, count as 0 pixels: they are taken only for a target of
/// 0 and less, when there is no other.
/// @param pszPath  a program or library with icon resources.
/// @param nIndex  which of its icons, from 0, in the order in which its resources are enumerated.
/// @param nTargetSize  device pixels a side.
/// @return an icon in the size of the chosen image, not stretched, which the caller frees with DestroyIcon.
///         Null when the file can't be read, has no such icon, or the icon no usable image.
VXDPI_API HICON LoadIconByTargetSizeFromFile(LPCWSTR pszPath, int nIndex, int nTargetSize);

/// An icon with several resources, one per DPI, each of which offers some sizes.
///
/// Keeps no icon: each one that it returns is the caller's. The icon's size at the DPI of a resource is the
/// smallest of all sizes registered. Belongs to one thread.
class VXDPI_API CDpiAwareIcon
{
public:
    /// Makes a set without resources.
    CDpiAwareIcon();
    CDpiAwareIcon(const CDpiAwareIcon&) = delete;

    /// Copies the fields as they stand: both objects then share the other's lists, and what this one had
    /// stays allocated. Both destructors would free the shared ones, so let at most one of the two be
    /// destroyed.
    /// @param other  stays as it is.
    /// @return this object.
    CDpiAwareIcon& operator=(const CDpiAwareIcon& other);

    /// Frees the lists; icons that were handed out stay the caller's.
    ~CDpiAwareIcon();

    /// Registers an icon resource as drawn for a DPI; a later call for the same DPI replaces the earlier one,
    /// whose sizes go on counting as the smallest or largest.
    /// @param nDpi  dots per inch.
    /// @param nResourceId  integer resource ID in the framework's current resource module.
    /// @param sizes  the sizes that it offers, in device pixels a side, smallest first unless another order
    ///        of preference is wanted; copied.
    void AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& sizes);

    /// Makes the icon for a DPI: of the resource that fits best, the first size that is large enough is
    /// loaded and stretched. The size is the smallest registered one multiplied by nDpi / resource's DPI,
    /// halves rounded away from zero.
    /// @param nDpi  dots per inch.
    /// @return a new icon, which the caller frees with DestroyIcon; null when nothing fits or nDpi is 0.
    HICON CreateAwareIconSpecifyDpi(UINT nDpi);

protected:
    /// Chooses among the sizes of the resource that CreateAwareIconSpecifyDpi last took.
    /// @param nSize  device pixels a side.
    /// @return the smallest registered size if that is large enough, else the first of the resource's sizes
    ///         that is, else the largest registered size; 0 when memory was short at construction.
    UINT FindScaledIcon(UINT nSize);

    /// Loads an icon in the size that FindScaledIcon answers and stretches it.
    /// @param nSize  device pixels a side.
    /// @param nResourceId  integer resource ID.
    /// @return a new icon, which the caller frees with DestroyIcon; null when it can't be loaded.
    HICON GetScaledIcon(UINT nSize, UINT nResourceId);

private:
    UINT m_nLargestSize;  // of all sizes ever registered
    UINT m_nSmallestSize; // of all sizes ever registered; the largest number while there is none
    std::vector<UINT>* m_pCurrentSizes; // owned; null when it could not be allocated
    CDpiAwareRes m_resources;
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif
