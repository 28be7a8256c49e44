#include "layout/LayoutFixtures.h"

#include "foundation/LibraryModule.h"

#include <algorithm>
#include <stdexcept>

EdgeList Edges(LONG left, LONG top, LONG right, LONG bottom)
{
    return {left, top, right, bottom};
}

EdgeList Edges(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

EdgeList PlaceIn(HWND parent, HWND window)
{
    RECT place = {};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return Edges(place);
}

RecordingManager::RecordingManager(CWnd* pParent, CallLog& log) : OpenLayoutManager(pParent), m_log(log) {}

int RecordingManager::AddControl(UINT nID, LayoutInfo info)
{
    m_log.Write("AddControl(ID, record)");
    return OpenLayoutManager::AddControl(nID, info);
}

int RecordingManager::AddControl(CWnd* pWnd, LayoutInfo info)
{
    m_log.Write("AddControl(window, record)");
    return OpenLayoutManager::AddControl(pWnd, info);
}

int RecordingManager::AddControl(UINT nID, UINT nAnchor, UINT nSizePolicy, int bMinSize)
{
    m_log.Write("AddControl(ID, values)");
    return OpenLayoutManager::AddControl(nID, nAnchor, nSizePolicy, bMinSize);
}

int RecordingManager::AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize)
{
    m_log.Write("AddControl(window, values)");
    return OpenLayoutManager::AddControl(pWnd, nAnchor, nSizePolicy, bMinSize);
}

void RecordingManager::AdjustLayout()
{
    m_log.Write("AdjustLayout");
    OpenLayoutManager::AdjustLayout();
}

void RecordingManager::AutoCaptureRects()
{
    m_log.Write("AutoCaptureRects");
    OpenLayoutManager::AutoCaptureRects();
}

CRect RecordingManager::GetControlRect(const LayoutInfo& info, const CRect& parentClient)
{
    m_log.Write("GetControlRect");
    return OpenLayoutManager::GetControlRect(info, parentClient);
}

CRect RecordingManager::GetScaledRect(const CRect& rc96) const
{
    m_log.Write("GetScaledRect");
    return OpenLayoutManager::GetScaledRect(rc96);
}

void RecordingManager::ApplySizePolicy(CRect& rc, CRect parentClient, LayoutInfo info)
{
    m_log.Write("ApplySizePolicy");
    OpenLayoutManager::ApplySizePolicy(rc, parentClient, info);
}

void RecordingManager::ApplyAnchor(CRect& rc, CRect parentClient, const LayoutInfo& info)
{
    m_log.Write("ApplyAnchor");
    OpenLayoutManager::ApplyAnchor(rc, parentClient, info);
}

void RecordingManager::ConvertTo96DPIRect(CRect& rc)
{
    m_log.Write("ConvertTo96DPIRect");
    OpenLayoutManager::ConvertTo96DPIRect(rc);
}

AttachedWindow::AttachedWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        throw std::runtime_error("the window has an object already or does not exist");
}

AttachedWindow::~AttachedWindow()
{
    Detach();
}

LayoutParent::LayoutParent(int width, int height)
    : LayoutParent(WS_POPUP, {100, 50, 100 + width, 50 + height})
{
}

LayoutParent::LayoutParent(DWORD style, const RECT& bounds)
    : m_window(style, nullptr, bounds), m_object(m_window.Handle())
{
}

CWnd* LayoutParent::Window()
{
    return &m_object;
}

HWND LayoutParent::Handle() const
{
    return m_window.Handle();
}

CWnd* LayoutParent::AddChild(UINT id, const RECT& place)
{
    const HWND hChild =
        ::CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE, place.left, place.top,
                          place.right - place.left, place.bottom - place.top, Handle(),
                          reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    m_children.push_back(std::make_unique<AttachedWindow>(hChild));
    return m_children.back().get();
}

std::vector<CWnd*> LayoutParent::AddChildrenInOrder(UINT count, const RECT& place)
{
    std::vector<CWnd*> children;
    for (UINT i = 0; i < count; ++i)
        children.push_back(AddChild(0, place));
    std::sort(children.begin(), children.end(),
              [](const CWnd* a, const CWnd* b)
              { return reinterpret_cast<UINT_PTR>(a->m_hWnd) < reinterpret_cast<UINT_PTR>(b->m_hWnd); });
    for (UINT i = 0; i < count; ++i)
        ::SetWindowLongPtrW(children[i]->m_hWnd, GWLP_ID, static_cast<LONG_PTR>(i + 1));
    return children;
}

void LayoutParent::Resize(int width, int height)
{
    ::SetWindowPos(Handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

EdgeList LayoutParent::PlaceOf(const CWnd* pChild) const
{
    return PlaceIn(Handle(), pChild->m_hWnd);
}

MovingCalls::MovingCalls()
    : m_setWindowPos(m_log, VxDpiModule(), "user32.dll", "SetWindowPos"),
      m_invalidateRect(m_log, VxDpiModule(), "user32.dll", "InvalidateRect")
{
}

void MovingCalls::Name(const CWnd* pWnd, const std::string& name)
{
    m_log.Name(pWnd->m_hWnd, name);
}

const CallLog::LineList& MovingCalls::Lines() const
{
    return m_log.Lines();
}

LayoutInfo RecordAt(const RECT& base96, UINT nAnchor, UINT nSizePolicy, int nMarginRight, int nMarginBottom,
                    int bMinSize)
{
    LayoutInfo info;
    info.rcBase96 = base96;
    info.nAnchor = nAnchor;
    info.nSizePolicy = nSizePolicy;
    info.bMinSize = bMinSize;
    info.nMarginRight = nMarginRight;
    info.nMarginBottom = nMarginBottom;
    return info;
}
