#include "ButtonProxy.h"

#include "ModalFrame.h"

namespace
{
void CopyFont(const CWnd& source, CWnd& target)
{
    if (CFont* const pFont = source.GetFont())
        target.SetFont(pFont, TRUE);
}
} // namespace

BEGIN_MESSAGE_MAP(CButtonProxy, CButton)
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &CButtonProxy::OnDPIChangedAfterParent)
    ON_CONTROL_REFLECT(BN_CLICKED, &CButtonProxy::OnClicked)
END_MESSAGE_MAP()

CButtonProxy::CButtonProxy(CRealButton* pReal, int endCode) : m_pRealButton(pReal), m_endCode(endCode) {}

CButtonProxy::~CButtonProxy() = default;

BOOL CButtonProxy::Create(CWnd* pParent, const UINT& nID)
{
    if (!pParent->GetSafeHwnd() || !m_pRealButton->GetSafeHwnd())
        return FALSE;

    CString text;
    m_pRealButton->GetWindowText(text);
    const DWORD dwStyle = m_pRealButton->GetStyle() | WS_CHILD | WS_VISIBLE;
    if (!CButton::Create(text, dwStyle, GetRealButtonRect(), pParent, nID))
        return FALSE;
    CopyFont(*m_pRealButton, *this);
    return TRUE;
}

CRect CButtonProxy::GetRealButtonRect() const
{
    CRect rect(0, 0, 0, 0);
    if (m_pRealButton->GetSafeHwnd())
        m_pRealButton->GetWindowRect(&rect);
    return rect;
}

LRESULT CButtonProxy::OnDPIChangedAfterParent(WPARAM wParam, LPARAM lParam)
{
    // The button's own procedure follows a DPI when a top-level window would.
    const LRESULT lResult = DefWindowProc(WM_DPICHANGED, wParam, lParam);
    if (m_pRealButton->GetSafeHwnd())
    {
        const CRect rect = GetRealButtonRect();
        SetWindowPos(nullptr, 0, 0, rect.Width(), rect.Height(), SWP_NOMOVE | SWP_NOZORDER);
        CopyFont(*m_pRealButton, *this);
    }
    return lResult;
}

void CButtonProxy::OnClicked()
{
    if (m_pRealButton->GetSafeHwnd())
        m_pRealButton->SendMessage(BM_CLICK, 0, 0);
    if (m_endCode == 0)
        return;
    CFrameWnd* const pFrame = GetParentFrame();
    if (pFrame->GetSafeHwnd() && IsInModalLoop(*pFrame))
        pFrame->EndModalLoop(m_endCode);
}
