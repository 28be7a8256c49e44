#include <vxdpi/Controls.h>

namespace
{
constexpr int kNoColumn = -1;

bool IsLeftButtonDown()
{
    constexpr int kDown = 0x8000;
    return (::GetAsyncKeyState(VK_LBUTTON) & kDown) != 0;
}

int WidthOf(const CListCtrl& list, int nColumn)
{
    return static_cast<int>(::SendMessageW(list.m_hWnd, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nColumn), 0));
}
} // namespace

BEGIN_MESSAGE_MAP(CDpiAwareHeaderCtrl, CHeaderCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

CDpiAwareHeaderCtrl::CDpiAwareHeaderCtrl() : m_dragColumn(kNoColumn), m_lastPoint(0, 0), m_parentList(nullptr)
{
}

CDpiAwareHeaderCtrl::~CDpiAwareHeaderCtrl()
{
    m_parentList = nullptr;
}

void CDpiAwareHeaderCtrl::SetParentListCtrl(CListCtrl* pList)
{
    m_parentList = pList;
}

void CDpiAwareHeaderCtrl::OnLButtonDown(UINT nFlags, CPoint point)
{
    CHeaderCtrl::OnLButtonDown(nFlags, point);

    HDHITTESTINFO hit = {};
    hit.pt = point;
    const int nColumn =
        static_cast<int>(::SendMessageW(m_hWnd, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    if (nColumn < 0 || !(hit.flags & HHT_ONDIVIDER))
        return;
    m_dragColumn = nColumn;
    m_lastPoint = point;
}

void CDpiAwareHeaderCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    const bool isDragged =
        m_dragColumn >= 0 && m_parentList && IsLeftButtonDown() && ::IsWindow(m_parentList->m_hWnd);
    if (!isDragged)
    {
        m_dragColumn = kNoColumn;
    }
    else if (point.x != m_lastPoint.x)
    {
        const int nWidth = WidthOf(*m_parentList, m_dragColumn);
        if (nWidth < 0)
            return; // kept by contract: the header does not get the move then
        if (auto* const pList = dynamic_cast<CDPIAwareListCtrl*>(m_parentList))
        {
            pList->SetColumnWidth(m_dragColumn, nWidth + (point.x - m_lastPoint.x));
            m_lastPoint = point;
        }
        else
        {
            m_dragColumn = kNoColumn;
        }
    }
    CHeaderCtrl::OnMouseMove(nFlags, point);
}
