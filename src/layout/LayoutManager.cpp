#include <vxdpi/Layout.h>

#include "LayoutRecord.h"

#include <foundation/BaseDpi.h>
#include <foundation/RectScaling.h>

#include <new>

namespace
{
constexpr int kSmallestDpi = static_cast<int>(kBaseDpi);
constexpr int kLargestDpi = 576;

/// The window to capture a control from; null when it is gone.
HWND WindowToCapture(const CWnd& parent, const LayoutInfo& info)
{
    if (!info.pWnd)
        return nullptr;
    const HWND hWnd = info.pWnd->m_hWnd;
    if (::IsWindow(hWnd))
        return hWnd;
    const HWND hItem = ::GetDlgItem(parent.m_hWnd, static_cast<int>(info.nCtrlID));
    return ::IsWindow(hItem) ? hItem : nullptr;
}

/// The window to lay a control out with; null when it can't be found.
HWND WindowToPlace(const CWnd& parent, const LayoutInfo& info)
{
    if (info.nCtrlID != 0)
        return ::GetDlgItem(parent.m_hWnd, static_cast<int>(info.nCtrlID));
    return info.pWnd ? info.pWnd->m_hWnd : nullptr;
}
} // namespace

CDpiLayoutManager::CDpiLayoutManager(CWnd* pParent)
    : m_pParent(pParent), m_pLayouts(new (std::nothrow) std::map<HWND, LayoutInfo>), m_scale(1.0f),
      m_dpi(kSmallestDpi), m_bNeedCapture(TRUE)
{
}

CDpiLayoutManager::CDpiLayoutManager(const CDpiLayoutManager& other) = default;

CDpiLayoutManager& CDpiLayoutManager::operator=(const CDpiLayoutManager& other) = default;

CDpiLayoutManager::~CDpiLayoutManager()
{
    delete m_pLayouts;
    m_pLayouts = nullptr;
}

int CDpiLayoutManager::AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize)
{
    if (!pWnd || !m_pLayouts)
        return FALSE;

    LayoutInfo info;
    info.pWnd = pWnd;
    info.nCtrlID = static_cast<UINT>(pWnd->GetDlgCtrlID());
    info.nAnchor = nAnchor;
    info.nSizePolicy = nSizePolicy;
    info.bMinSize = bMinSize;
    (*m_pLayouts)[pWnd->m_hWnd] = info;
    return TRUE;
}

int CDpiLayoutManager::AddControl(UINT nID, UINT nAnchor, UINT nSizePolicy, int bMinSize)
{
    CWnd* const pWnd = m_pParent ? m_pParent->GetDlgItem(static_cast<int>(nID)) : nullptr;
    return pWnd ? AddControl(pWnd, nAnchor, nSizePolicy, bMinSize) : FALSE;
}

int CDpiLayoutManager::AddControl(CWnd* pWnd, LayoutInfo info)
{
    if (!pWnd || !m_pLayouts)
        return FALSE;
    (*m_pLayouts)[pWnd->m_hWnd] = info;
    return TRUE;
}

int CDpiLayoutManager::AddControl(UINT nID, LayoutInfo info)
{
    CWnd* const pWnd = m_pParent ? m_pParent->GetDlgItem(static_cast<int>(nID)) : nullptr;
    return pWnd ? AddControl(pWnd, info) : FALSE;
}

void CDpiLayoutManager::AdjustLayout()
{
    if (!m_pLayouts || !m_pParent || m_pLayouts->empty())
        return;

    if (m_bNeedCapture)
    {
        AutoCaptureRects();
        m_bNeedCapture = FALSE;
    }
    CRect parentClient(0, 0, 0, 0);
    ::GetClientRect(m_pParent->m_hWnd, &parentClient);
    for (const auto& layout : *m_pLayouts)
    {
        const LayoutInfo& info = layout.second;
        const HWND hTarget = WindowToPlace(*m_pParent, info);
        if (!hTarget)
            continue;
        const CRect rc = GetControlRect(info, parentClient);
        ::SetWindowPos(hTarget, nullptr, rc.left, rc.top, WrappingWidth(rc), WrappingHeight(rc),
                       SWP_NOZORDER);
        ::InvalidateRect(hTarget, nullptr, TRUE);
    }
}

void CDpiLayoutManager::AutoCaptureRects()
{
    if (!m_pParent || !m_pLayouts)
        return;

    CRect client96(0, 0, 0, 0);
    ::GetClientRect(m_pParent->m_hWnd, &client96);
    ConvertTo96DPIRect(client96);
    for (auto& layout : *m_pLayouts)
    {
        LayoutInfo& info = layout.second;
        const HWND hControl = info.rcBase96.IsRectNull() ? WindowToCapture(*m_pParent, info) : nullptr;
        if (!hControl)
            continue;
        CRect rect96(0, 0, 0, 0);
        ::GetWindowRect(hControl, &rect96);
        m_pParent->ScreenToClient(&rect96);
        ConvertTo96DPIRect(rect96);
        StorePlace(info, rect96, client96);
    }
}

CRect CDpiLayoutManager::GetControlRect(const LayoutInfo& info, const CRect& parentClient)
{
    CRect rc = GetScaledRect(info.rcBase96);
    ApplySizePolicy(rc, parentClient, info);
    ApplyAnchor(rc, parentClient, info);
    return rc;
}

CRect CDpiLayoutManager::GetScaledRect(const CRect& rc96) const
{
    return ScaleEdges(rc96, m_scale);
}

void CDpiLayoutManager::ApplySizePolicy(CRect& rc, CRect parentClient, LayoutInfo info)
{
    Placement::ApplySizePolicy(rc, parentClient, RuleOf(info), m_scale);
}

void CDpiLayoutManager::ApplyAnchor(CRect& rc, CRect parentClient, const LayoutInfo& info)
{
    Placement::ApplyAnchor(rc, parentClient, RuleOf(info), m_scale);
}

void CDpiLayoutManager::ConvertTo96DPIRect(CRect& rc)
{
    if (m_dpi == 0)
        return;
    rc = ScaleEdges(rc, static_cast<float>(kBaseDpi) / static_cast<float>(m_dpi));
}

int CDpiLayoutManager::ScaleX(int v) const
{
    return Placement::Scale(v, m_scale);
}

int CDpiLayoutManager::ScaleY(int v) const
{
    return ScaleX(v);
}

void CDpiLayoutManager::UpdateDpi(int dpi)
{
    if (dpi < kSmallestDpi || dpi > kLargestDpi || dpi == m_dpi)
        return;
    m_dpi = dpi;
    m_scale = static_cast<float>(dpi) / static_cast<float>(kBaseDpi);
}
