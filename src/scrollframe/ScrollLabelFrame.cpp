#include "ScrollLabelFrame.h"

#include <controls/ModalFrame.h>

IMPLEMENT_DYNCREATE(CScrollLabelFrame, CFrameWnd)

BEGIN_MESSAGE_MAP(CScrollLabelFrame, CFrameWnd)
    ON_WM_CLOSE()
    ON_MESSAGE(WM_DPICHANGED, &CScrollLabelFrame::OnDpiChanged)
END_MESSAGE_MAP()

CScrollLabelFrame::CScrollLabelFrame() : m_bModal(FALSE) {}

// The window goes while all of the object is there to handle its last messages.
CScrollLabelFrame::~CScrollLabelFrame()
{
    CFrameWnd::DestroyWindow();
}

int CScrollLabelFrame::DoModal()
{
    if (!m_hWnd)
        return 0;
    m_bModal = TRUE;
    const int nResult = RunModalLoop(0);
    m_bModal = FALSE;
    return nResult;
}

void CScrollLabelFrame::OnClose()
{
    if (m_bModal == TRUE)
        EndModalLoop(IDCANCEL);
    else
        CFrameWnd::OnClose();
}

LRESULT CScrollLabelFrame::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = DefWindowProc(WM_DPICHANGED, wParam, lParam);
    const auto* const pSuggested = reinterpret_cast<const RECT*>(lParam);
    if (pSuggested && m_hWnd)
    {
        const CRect place(*pSuggested);
        SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return lResult;
}

// Nobody ends the loop of a window that was destroyed from outside.
BOOL CScrollLabelFrame::ContinueModal()
{
    return m_hWnd && CFrameWnd::ContinueModal();
}

// A frame's own way is to delete the object.
void CScrollLabelFrame::PostNcDestroy() {}

bool IsInModalLoop(const CFrameWnd& frame)
{
    return static_cast<const CScrollLabelFrame&>(frame).IsModal() == TRUE;
}
