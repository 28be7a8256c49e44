#include "Rows.h"

#include <vxdpi/Controls.h>
#include <vxdpi/Dpi.h>
#include <vxdpi/Fonts.h>
#include <vxdpi/Layout.h>
#include <vxdpi/ScrollFrame.h>

#include <memory>
#include <vector>

namespace
{
constexpr double kTarget = 1.02;
constexpr double kQueryTarget = 1.03;
constexpr double kFontTarget = 1.08;
constexpr int kRounds = 201;
constexpr int kBatch = 1000;
constexpr UINT kBase = 96;

/// A window of the framework; children are destroyed with it.
class Frame
{
public:
    Frame()
    {
        const RECT bounds = {0, 0, 700, 600};
        m_window.CreateEx(0, AfxRegisterWndClass(0), L"frame", WS_OVERLAPPEDWINDOW, bounds, nullptr, 0);
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() { m_window.DestroyWindow(); }

    CWnd* Get() { return &m_window; }
    HWND Handle() const { return m_window.m_hWnd; }

private:
    CWnd m_window;
};

/// A hidden frame with visible children in columns, beyond the frame's edge where there are many.
class Children
{
public:
    explicit Children(int count)
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

    CWnd* Parent() { return m_frame.Get(); }
    HWND ParentHandle() const { return m_frame.Handle(); }

    void AddTo(CDpiLayoutManager& manager) const
    {
        for (const auto& child : m_children)
            manager.AddControl(child.get(), ANCHOR_BOTTOMRIGHT, SIZE_STRETCH_WIDTH, TRUE);
    }

private:
    Frame m_frame;
    std::vector<std::unique_ptr<CStatic>> m_children;
};

/// Where a manager has put a control.
struct Place
{
    HWND hControl;
    int nId;
    RECT rc;
};

/// The controls in the order of a manager's record.
template<class Manager>
class OpenManager : public Manager
{
public:
    using Manager::Manager;

    std::vector<Place> Places() const
    {
        std::vector<Place> places;
        for (const auto& [hControl, info] : *this->m_pLayouts)
        {
            RECT rc = {};
            ::GetWindowRect(hControl, &rc);
            ::MapWindowPoints(nullptr, this->m_pParent->m_hWnd, reinterpret_cast<POINT*>(&rc), 2);
            places.push_back({hControl, static_cast<int>(info.nCtrlID), rc});
        }
        return places;
    }
};

void PlaceOneByOne(HWND hParent, const std::vector<Place>& places)
{
    RECT client = {};
    ::GetClientRect(hParent, &client);
    for (const Place& place : places)
    {
        const HWND hControl = ::GetDlgItem(hParent, place.nId);
        ::SetWindowPos(hControl, nullptr, place.rc.left, place.rc.top, place.rc.right - place.rc.left,
                       place.rc.bottom - place.rc.top, SWP_NOZORDER);
        ::InvalidateRect(hControl, nullptr, TRUE);
    }
}

void PlaceInBatch(HWND hParent, const std::vector<Place>& places)
{
    const HDWP hBatch = ::BeginDeferWindowPos(static_cast<int>(places.size()));
    for (const Place& place : places)
    {
        RECT client = {};
        ::IsWindow(place.hControl);
        ::GetClientRect(hParent, &client);
        ::DeferWindowPos(hBatch, place.hControl, nullptr, place.rc.left, place.rc.top,
                         place.rc.right - place.rc.left, place.rc.bottom - place.rc.top,
                         SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ::EndDeferWindowPos(hBatch);
}

template<class Manager>
void VisitLayout(const Visit& visit, const char* pszName, int count,
                 void (*byHand)(HWND, const std::vector<Place>&))
{
    Children children(count);
    OpenManager<Manager> manager(children.Parent());
    children.AddTo(manager);
    manager.AdjustLayout();
    const std::vector<Place> places = manager.Places();
    const HWND hParent = children.ParentHandle();
    visit({"9", pszName, kTarget, kRounds, 1, [&] { manager.AdjustLayout(); },
           [&] { byHand(hParent, places); }});
}

void VisitLayouts(const Visit& visit)
{
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 10 controls, hidden", 10, PlaceOneByOne);
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 100 controls, hidden", 100, PlaceOneByOne);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 10 controls, hidden", 10, PlaceInBatch);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 100 controls, hidden", 100, PlaceInBatch);
}

CRect MeasureByHand(const CWnd& parent)
{
    CRect box(0, 0, 0, 0);
    bool isFirst = true;
    for (HWND hChild = ::GetWindow(parent.m_hWnd, GW_CHILD); hChild;
         hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        ::GetWindowLongW(hChild, GWL_STYLE);
        CRect place(0, 0, 0, 0);
        ::GetWindowRect(hChild, &place);
        parent.ScreenToClient(&place);
        if (isFirst)
            box = place;
        else
            ::UnionRect(&box, &box, &place);
        isFirst = false;
    }
    return box;
}

/// Both bars are shown, so that nothing is moved.
void UpdateScrollBarsByHand(CWnd& parent, int nHorizontalPage, int nVerticalPage)
{
    const UINT nDpi = ::GetDpiForWindow(parent.m_hWnd);
    ::GetSystemMetricsForDpi(SM_CXHSCROLL, nDpi);
    ::GetSystemMetricsForDpi(SM_CYVSCROLL, nDpi);
    SCROLLINFO info = {};
    parent.GetScrollInfo(SB_VERT, &info, SIF_ALL);
    parent.GetScrollInfo(SB_HORZ, &info, SIF_ALL);
    const CRect box = MeasureByHand(parent);
    ::IsRectEmpty(&box);
    constexpr int kMargin96 = 20;
    const int nMargin = ::MulDiv(kMargin96, static_cast<int>(nDpi), kBase);

    SCROLLINFO shown = {};
    shown.cbSize = sizeof shown;
    shown.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    shown.nMax = box.right - box.left + nMargin - 1;
    shown.nPage = static_cast<UINT>(nHorizontalPage);
    ::SetScrollInfo(parent.m_hWnd, SB_HORZ, &shown, TRUE);
    shown.nMax = box.bottom - box.top + nMargin - 1;
    shown.nPage = static_cast<UINT>(nVerticalPage);
    ::SetScrollInfo(parent.m_hWnd, SB_VERT, &shown, TRUE);
}

void VisitScrolling(const Visit& visit)
{
    constexpr int kPage = 400;
    Children children(100);
    CScrollManager manager;
    manager.Create(children.Parent(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0);
    manager.UpdateScrollBars(kPage, kPage);
    visit({"10", "UpdateScrollBars, 100 visible children", kTarget, kRounds, 1,
           [&] { manager.UpdateScrollBars(kPage, kPage); },
           [&] { UpdateScrollBarsByHand(*children.Parent(), kPage, kPage); }});
}

UINT QueryByHand(HWND hWnd)
{
    return hWnd && ::IsWindow(hWnd) ? ::GetDpiForWindow(hWnd) : kBase;
}

void VisitDpiQuery(const Visit& visit)
{
    const Frame frame;
    const HWND hWnd = frame.Handle();
    volatile UINT nAnswer = 0;
    const auto ask = [&](auto query)
    {
        for (int i = 0; i < kBatch; ++i)
            nAnswer = query(hWnd);
    };
    visit({"11", "VxSafeGetDpiForWindow", kQueryTarget, kRounds, kBatch, [&] { ask(VxSafeGetDpiForWindow); },
           [&] { ask(QueryByHand); }});
}

/// Each time at another DPI than before.
void VisitFonts(const Visit& visit)
{
    constexpr LONG kHeight = -12;
    constexpr UINT kDpis[] = {120, 144};
    constexpr UINT kDpiCount = 2;
    LOGFONTW logFont = {};
    logFont.lfHeight = kHeight;
    ::lstrcpynW(logFont.lfFaceName, L"Tahoma", LF_FACESIZE);
    CFontDPIAware aware;
    aware.InitFontSize(kHeight, 0, kBase);
    CFont plain;
    const auto byLibrary = [&]
    {
        for (UINT i = 0; i < kBatch; ++i)
        {
            aware.CreateFontIndirectW(&logFont, kDpis[i % kDpiCount]);
            aware.DeleteObject();
        }
    };
    const auto byHand = [&]
    {
        for (UINT i = 0; i < kBatch; ++i)
        {
            logFont.lfHeight = ::MulDiv(kHeight, static_cast<int>(kDpis[i % kDpiCount]), kBase);
            plain.Attach(::CreateFontIndirectW(&logFont));
            plain.DeleteObject();
        }
    };
    visit({"11", "CFontDPIAware at a new DPI", kFontTarget, kRounds, kBatch, byLibrary, byHand});
}

constexpr int kColumnCount = 16;
constexpr int kColumnWidth96 = 40;

class OpenList : public CDPIAwareListCtrl
{
public:
    void ChangeDpi() { OnDPIChangedAfterParent(0, 0); }

    void Clear()
    {
        for (int i = 0; i < kColumnCount; ++i)
            ::SendMessageW(m_hWnd, LVM_DELETECOLUMN, 0, 0);
        m_columnWidths96.clear();
    }
};

LVCOLUMNW Column()
{
    static wchar_t s_heading[] = L"column";
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = s_heading;
    column.cx = kColumnWidth96;
    return column;
}

void SetWidthsByHand(HWND hList, int count)
{
    const int nDpi = static_cast<int>(QueryByHand(hList));
    for (int i = 0; i < count; ++i)
    {
        const int nWidth = ::MulDiv(kColumnWidth96, nDpi, kBase);
        ::SendMessageW(hList, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), MAKELPARAM(nWidth, 0));
        ::MulDiv(nWidth, kBase, static_cast<int>(QueryByHand(hList)));
    }
}

void InsertByHand(HWND hList, const LVCOLUMNW& column)
{
    for (int i = 0; i < kColumnCount; ++i)
    {
        ::SendMessageW(hList, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        SetWidthsByHand(hList, i + 1);
    }
}

void InsertByLibrary(CDPIAwareListCtrl& list, const LVCOLUMNW& column)
{
    for (int i = 0; i < kColumnCount; ++i)
        list.InsertColumn(i, &column);
}

void VisitColumns(const Visit& visit)
{
    Frame frame;
    const LVCOLUMNW column = Column();
    OpenList list;
    const HWND hList = ::CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                         600, 200, frame.Handle(), nullptr, nullptr, nullptr);
    list.SubclassWindow(hList);
    const auto inserted = [&](auto insert)
    {
        insert();
        list.Clear();
    };
    visit({"12", "InsertColumn, 16 columns", kTarget, kRounds, 1,
           [&] { inserted([&] { InsertByLibrary(list, column); }); },
           [&] { inserted([&] { InsertByHand(hList, column); }); }});

    InsertByLibrary(list, column);
    visit({"12", "change of DPI over 16 columns", kTarget, kRounds, 1, [&] { list.ChangeDpi(); },
           [&] { SetWidthsByHand(hList, kColumnCount); }});
}
} // namespace

void VisitWindowRows(const Visit& visit)
{
    VisitLayouts(visit);
    VisitScrolling(visit);
    VisitDpiQuery(visit);
    VisitFonts(visit);
    VisitColumns(visit);
}
