#include "ModalFilm.h"

#include "MessagePump.h"

namespace
{
constexpr UINT_PTR kTimerId = 1;
constexpr UINT kMilliseconds = 300; // between two actions, for a spectator

CRect MonitorOf(HWND hWindow)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    ::GetMonitorInfo(::MonitorFromWindow(hWindow, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcMonitor;
}
} // namespace

BEGIN_MESSAGE_MAP(CModalFilm, CWnd)
    ON_WM_TIMER()
END_MESSAGE_MAP()

CModalFilm::CModalFilm(const CDialog& dialog, View view) : m_dialog(dialog), m_view(view), m_nDone(0) {}

std::vector<Snapshot> CModalFilm::Shoot(CWnd* pParent, const Action& show, std::vector<Action> actions,
                                        Action close)
{
    m_actions = std::move(actions);
    m_close = std::move(close);
    m_nDone = 0;
    m_pictures.clear();
    if (!Create(::AfxRegisterWndClass(0), L"", WS_CHILD, CRect(0, 0, 0, 0), pParent, 0))
        return {};

    ::SetCursorPos(0, 0); // away from the controls, which would be drawn as under the pointer
    SetTimer(kTimerId, kMilliseconds, nullptr);
    show();
    DestroyWindow();
    return m_pictures;
}

void CModalFilm::OnTimer(UINT_PTR)
{
    KillTimer(kTimerId);
    if (!RunUntilQuiet()) // everything has been drawn then
        return;
    if (::IsWindowVisible(m_dialog.GetSafeHwnd()) && !GoOn())
        return;
    SetTimer(kTimerId, kMilliseconds, nullptr); // also for a dialog that is not shown yet
}

// @return whether there is more to do.
bool CModalFilm::GoOn()
{
    if (m_nDone > 0)
        TakePicture();
    const bool bMore = m_nDone < m_actions.size();
    const Action& next = bMore ? m_actions[m_nDone] : m_close;
    ++m_nDone;
    next();
    return bMore;
}

void CModalFilm::TakePicture()
{
    const HWND hWindow = ::GetAncestor(m_dialog.m_hWnd, GA_ROOT);
    CRect window;
    ::GetWindowRect(hWindow, &window);
    m_pictures.push_back(TakeSnapshot(m_view == View::Window ? window : MonitorOf(hWindow), window));
}
