#include <vxdpi/Images.h>

#include "VariantLookup.h"

#include <foundation/Allocation.h>
#include <foundation/BaseDpi.h>
#include <foundation/GuardedScaling.h>
#include <foundation/Guards.h>

#include <optional>

namespace
{
HBITMAP LoadPlain(UINT nResourceId)
{
    const LPCWSTR pszName = MAKEINTRESOURCEW(nResourceId);
    return ::LoadBitmapW(AfxFindResourceHandle(pszName, RT_BITMAP), pszName);
}

HBITMAP LoadWithColorMap(UINT nResourceId, UINT nFlags, COLORMAP* pColorMap, int nMapSize)
{
    const HINSTANCE hModule = AfxFindResourceHandle(MAKEINTRESOURCEW(nResourceId), RT_BITMAP);
    return ::CreateMappedBitmap(hModule, static_cast<INT_PTR>(nResourceId), nFlags, pColorMap, nMapSize);
}

HBITMAP CopyToDibSection(HANDLE hBitmap)
{
    HANDLE hCopy = ::CopyImage(hBitmap, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION | LR_COPYRETURNORG);
    if (hCopy == hBitmap) // a handle has one owner
        hCopy = ::CopyImage(hBitmap, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    return static_cast<HBITMAP>(hCopy);
}

/// Leaves it empty where the window has no device context to give.
void OpenClientDc(std::optional<CClientDC>& dc, CWnd* pWnd)
{
    try
    {
        dc.emplace(pWnd);
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
}

/// 0 x 0 when the handle is no bitmap.
CSize SizeOfBitmap(HGDIOBJ hBitmap)
{
    BITMAP bm = {};
    if (::GetObjectW(hBitmap, sizeof(BITMAP), &bm) == 0)
        return CSize(0, 0);
    return CSize(bm.bmWidth, bm.bmHeight);
}

/// Where the best resource for the registry's current DPI was drawn.
UINT DpiOfBestResource(CDpiAwareRes& resources)
{
    const ResourceInfo* const pBest = resources.FindBestResource();
    return pBest ? pBest->nDpi : kBaseDpi;
}

void SetHalftoneMode(HDC hdcTarget, HDC hdcSource)
{
    ::SetStretchBltMode(hdcTarget, HALFTONE);
    ::SetStretchBltMode(hdcSource, HALFTONE);
    ::SetBrushOrgEx(hdcTarget, 0, 0, nullptr);
    ::SetBrushOrgEx(hdcSource, 0, 0, nullptr);
}
} // namespace

CDpiAwareBitmap::CDpiAwareBitmap()
    : m_nColorMapFlags(0), m_pColorMap(nullptr), m_nColorMapSize(0), m_nCurrentDpi(kBaseDpi),
      m_nResourceId(0), m_pSource(MakeOrNull<CBitmap>().release()), m_sizeBase(0, 0), m_sizeCurrent(0, 0)
{
}

CDpiAwareBitmap::~CDpiAwareBitmap()
{
    delete m_pSource;
}

void CDpiAwareBitmap::AddResourceForDpi(UINT nDpi, UINT nResourceId, const std::vector<UINT>& values)
{
    m_resources.RegisterIconResource(nDpi, nResourceId, values);
}

BOOL CDpiAwareBitmap::LoadDpiAwareBitmap(UINT nDpi)
{
    return LoadDpiAwareBitmapInternal(0, nullptr, 0, nDpi);
}

BOOL CDpiAwareBitmap::LoadDpiAwareBitmapWithColorMap(UINT nFlags, COLORMAP* pColorMap, int nMapSize,
                                                     UINT nDpi)
{
    return LoadDpiAwareBitmapInternal(nFlags, pColorMap, nMapSize, nDpi);
}

BOOL CDpiAwareBitmap::LoadDpiAwareBitmapInternal(UINT nFlags, COLORMAP* pColorMap, int nMapSize, UINT nDpi)
{
    if (!m_pSource)
        return FALSE;
    m_nCurrentDpi = nDpi;
    const ResourceInfo* const pBest = ChooseResource(m_resources, nDpi);
    if (!pBest || pBest->nResourceId == m_nResourceId)
        return FALSE;

    DeleteObject();
    m_pSource->DeleteObject();
    const bool hasColorMap = nFlags != 0 && pColorMap && nMapSize != 0;
    const UINT nResourceId = pBest->nResourceId;
    if (!m_pSource->Attach(hasColorMap ? LoadWithColorMap(nResourceId, nFlags, pColorMap, nMapSize)
                                       : LoadPlain(nResourceId)))
        return FALSE;
    const HBITMAP hCopy = CopyToDibSection(m_pSource->GetSafeHandle());
    if (!hCopy)
        return FALSE;

    DeleteObject();
    Attach(hCopy);
    m_sizeBase = SizeOfBitmap(GetSafeHandle());
    m_sizeCurrent = m_sizeBase;
    m_nResourceId = nResourceId;
    return TRUE;
}

BOOL CDpiAwareBitmap::Attach_DpiAware(HBITMAP hBitmap)
{
    if (!hBitmap || !m_pSource)
        return FALSE;

    m_pSource->DeleteObject();
    m_pSource->Attach(hBitmap);
    const HBITMAP hCopy = CopyToDibSection(hBitmap);
    if (!hCopy)
        return FALSE;

    m_sizeBase = SizeOfBitmap(m_pSource->GetSafeHandle());
    m_sizeCurrent = m_sizeBase;
    DeleteObject();
    return Attach(hCopy);
}

BOOL CDpiAwareBitmap::ScaleToDpi(CWnd* pWnd, HBITMAP hBitmap)
{
    if (!m_pSource)
        return FALSE;
    const UINT nDpi = pWnd ? ::GetDpiForWindow(pWnd->m_hWnd) : 0;
    if (nDpi == 0)
        return FALSE;
    if (!hBitmap && !m_pSource->GetSafeHandle())
        return FALSE;
    if (hBitmap && !Attach_DpiAware(hBitmap))
    {
        m_sizeBase = m_sizeCurrent = CSize(0, 0);
        return FALSE;
    }

    // From the picture that is loaded now: its size at the window's DPI is the same whichever resource
    // follows.
    const UINT nDrawnForDpi = DpiOfBestResource(m_resources);
    const int cx = GuardedScale(m_sizeBase.cx, nDpi, nDrawnForDpi);
    const int cy = GuardedScale(m_sizeBase.cy, nDpi, nDrawnForDpi);
    if (nDpi != m_nCurrentDpi)
        LoadDpiAwareBitmapWithColorMap(m_nColorMapFlags, m_pColorMap, m_nColorMapSize, nDpi);
    if (!Scale(pWnd, cx, cy))
    {
        m_sizeBase = m_sizeCurrent = CSize(0, 0);
        return FALSE;
    }
    m_sizeCurrent = CSize(cx, cy);
    return TRUE;
}

CSize CDpiAwareBitmap::GetSize() const
{
    return m_sizeCurrent;
}

BOOL CDpiAwareBitmap::Scale(CWnd* pWnd, int cx, int cy)
{
    if (!m_pSource)
        return FALSE;
    std::optional<CClientDC> windowDc;
    OpenClientDc(windowDc, pWnd);
    if (!windowDc)
        return FALSE;
    UniqueMemoryDc targetDc(::CreateCompatibleDC(windowDc->m_hDC));
    if (!targetDc)
        return FALSE;
    UniqueBitmap scaled(::CreateCompatibleBitmap(windowDc->m_hDC, cx, cy));
    if (!scaled)
        return FALSE;

    Selection target(targetDc.get(), scaled.get());
    UniqueMemoryDc sourceDc(::CreateCompatibleDC(windowDc->m_hDC));
    Selection source(sourceDc.get(), m_pSource->GetSafeHandle());
    SetHalftoneMode(targetDc.get(), sourceDc.get());
    const BOOL bStretched = ::StretchBlt(targetDc.get(), 0, 0, cx, cy, sourceDc.get(), 0, 0, m_sizeBase.cx,
                                         m_sizeBase.cy, SRCCOPY);
    source.Restore();
    target.Restore();

    DeleteObject();
    Attach(scaled.release());
    sourceDc.reset();
    targetDc.reset();
    windowDc->DeleteDC(); // kept by contract: deleted, not released, so that its destructor finds nothing
    return bStretched;
}
