#include <vxdpi/Controls.h>

#include "ButtonProxy.h"

#include <utility>

CRealButton::CRealButton() : m_pProxy(nullptr) {}

CRealButton::~CRealButton() = default;

CButtonProxy* CRealButton::SetProxyButton(CButtonProxy* pProxy)
{
    return std::exchange(m_pProxy, pProxy);
}

BOOL CRealButton::EnableWindow(BOOL bEnable)
{
    return m_pProxy ? m_pProxy->EnableWindow(bEnable) : CButton::EnableWindow(bEnable);
}
