#include "BenchWindows.h"

Frame::Frame()
{
    const RECT bounds = {0, 0, 700, 600};
    m_window.CreateEx(0, AfxRegisterWndClass(0), L"frame", WS_OVERLAPPEDWINDOW, bounds, nullptr, 0);
}

Frame::~Frame()
{
    m_window.DestroyWindow();
}

CWnd* Frame::Get()
{
    return &m_window;
}

HWND Frame::Handle() const
{
    return m_window.m_hWnd;
}

Children::Children(int count)
{
    constexpr int kPerColumn = 20;
    constexpr int kWidth = 90;
    constexpr int kHeight = 20;
    constexpr int kPitchX = 150;
    constexpr int kPitchY = 50;
    for (int i = 0; i < count; ++i)
    {
        const POINT start = {i / kPerColumn * kPitchX, i % kPerColumn * kPitchY};
        const RECT place = {start.x, start.y, start.x + kWidth, start.y + kHeight};
        auto child = std::make_unique<CStatic>();
        child->Create(L"child", WS_CHILD | WS_VISIBLE, place, m_frame.Get(), static_cast<UINT>(i + 1));
        m_children.push_back(std::move(child));
    }
}

CWnd* Children::Parent()
{
    return m_frame.Get();
}

HWND Children::ParentHandle() const
{
    return m_frame.Handle();
}

void Children::AddTo(CDpiLayoutManager& manager) const
{
    for (const auto& child : m_children)
        manager.AddControl(child.get(), ANCHOR_BOTTOMRIGHT, SIZE_STRETCH_WIDTH, TRUE);
}

List::List()
{
    const HWND hList = ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                         600, 200, m_frame.Handle(), nullptr, nullptr, nullptr);
    m_list.SubclassWindow(hList);
}

HWND List::Handle() const
{
    return m_list.m_hWnd;
}

void List::InsertColumns(int count)
{
    for (int i = 0; i < count; ++i)
        m_list.InsertColumn(i, &ByHand::Column());
}

void List::DeleteColumns()
{
    while (::SendMessageW(m_list.m_hWnd, LVM_DELETECOLUMN, 0, 0))
    {
    }
    m_list.ForgetWidths();
}

void List::ChangeDpi()
{
    m_list.ChangeDpi();
}

void List::OpenListCtrl::ChangeDpi()
{
    OnDPIChangedAfterParent(0, 0);
}

void List::OpenListCtrl::ForgetWidths()
{
    m_columnWidths96.clear();
}
