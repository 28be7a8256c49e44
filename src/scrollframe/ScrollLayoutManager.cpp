#include <vxdpi/ScrollFrame.h>

#include "ScrolledPlacement.h"

#include <layout/LayoutRecord.h>

namespace
{
CRect ClientOf(const CWnd* pWnd)
{
    CRect client(0, 0, 0, 0);
    ::GetClientRect(pWnd->GetSafeHwnd(), &client);
    return client;
}
} // namespace

CScrollLayoutManager::CScrollLayoutManager(CWnd* pParent) : CDpiLayoutManager(pParent)
{
    m_bNeedCapture = TRUE;
}

CScrollLayoutManager::CScrollLayoutManager(const CScrollLayoutManager& other) = default;

CScrollLayoutManager::CScrollLayoutManager(CScrollLayoutManager&& other) = default;

CScrollLayoutManager& CScrollLayoutManager::operator=(const CScrollLayoutManager& other) = default;

CScrollLayoutManager& CScrollLayoutManager::operator=(CScrollLayoutManager&& other) = default;

CScrollLayoutManager::~CScrollLayoutManager() = default;

void CScrollLayoutManager::SetParent(CWnd* pParent)
{
    m_pParent = pParent;
}

void CScrollLayoutManager::AdjustLayout()
{
    if (!m_pLayouts || !m_pParent || m_pLayouts->empty())
        return;

    if (m_bNeedCapture)
    {
        AutoCaptureRects();
        m_bNeedCapture = FALSE;
    }
    const HDWP hBatch = ::BeginDeferWindowPos(static_cast<int>(m_pLayouts->size()));
    if (!hBatch)
        return;
    for (const auto& layout : *m_pLayouts)
    {
        const HWND hControl = layout.first;
        if (!::IsWindow(hControl))
            continue;
        const CRect rc = GetControlRect(hControl);
        // Kept by contract: the batch goes by its first handle throughout.
        ::DeferWindowPos(hBatch, hControl, nullptr, rc.left, rc.top, WrappingWidth(rc), WrappingHeight(rc),
                         SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ::EndDeferWindowPos(hBatch);
}

void CScrollLayoutManager::AutoCaptureRects()
{
    if (!m_pParent || !m_pLayouts)
        return;

    CRect client96 = ClientOf(m_pParent);
    ConvertTo96DPIRect(client96);
    m_clientSize96 = CSize(WrappingWidth(client96), WrappingHeight(client96));
    for (auto& layout : *m_pLayouts)
    {
        LayoutInfo& info = layout.second;
        if (!info.rcBase96.IsRectNull() || !info.pWnd || !::IsWindow(info.pWnd->m_hWnd))
            continue;
        CRect rect96(0, 0, 0, 0);
        ::GetWindowRect(info.pWnd->m_hWnd, &rect96);
        m_pParent->ScreenToClient(&rect96);
        ConvertTo96DPIRect(rect96);
        StorePlace(info, rect96, client96);
    }
}

CRect CScrollLayoutManager::GetControlRect(HWND hWnd)
{
    const CRect none(0, 0, 0, 0);
    if (!hWnd || !m_pLayouts)
        return none;
    const auto found = m_pLayouts->find(hWnd);
    if (found == m_pLayouts->end())
        return none;

    const LayoutInfo& info = found->second;
    const CRect designed = GetScaledRect(info.rcBase96);
    const CRect client = ClientOf(m_pParent);
    return ScrolledPlacement::Place(
        designed, ScrolledPlacement::ExtentOf(client.Width(), m_clientSize96.cx, m_scale),
        ScrolledPlacement::ExtentOf(client.Height(), m_clientSize96.cy, m_scale), RuleOf(info), m_scale);
}
