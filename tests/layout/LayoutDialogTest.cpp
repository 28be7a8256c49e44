#include "layout/LayoutFixtures.h"
#include "support/DpiWindow.h"
#include "support/HandleCount.h"
#include "support/TestDpi.h"

#include <vxdpi/Dpi.h>

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <stdexcept>
#include <vector>

namespace
{
constexpr SIZE kClient96 = {400, 240};
constexpr UINT kControlCount = 30;
constexpr UINT kFirstId = 1000;

// Every edge is a multiple of 4, and so a whole number of pixels at each DPI of the tests.
RECT Place96(UINT index)
{
    const LONG left = 8 + 64 * static_cast<LONG>(index % 6);
    const LONG top = 8 + 44 * static_cast<LONG>(index / 6);
    return {left, top, left + 56, top + 36};
}

int Pixels(LONG length96, UINT dpi)
{
    return ::MulDiv(length96, static_cast<int>(dpi), 96);
}

EdgeList Pixels(const RECT& place96, UINT dpi)
{
    return Edges(Pixels(place96.left, dpi), Pixels(place96.top, dpi), Pixels(place96.right, dpi),
                 Pixels(place96.bottom, dpi));
}

std::vector<EdgeList> DesignedPlaces(UINT dpi)
{
    std::vector<EdgeList> places;
    for (UINT i = 0; i < kControlCount; ++i)
        places.push_back(Pixels(Place96(i), dpi));
    return places;
}

// Makes positions count in a window's own pixels, as in its window procedure.
class PixelsOf
{
public:
    explicit PixelsOf(HWND window)
        : m_previous(::SetThreadDpiAwarenessContext(::GetWindowDpiAwarenessContext(window)))
    {
    }

    ~PixelsOf() { ::SetThreadDpiAwarenessContext(m_previous); }

    PixelsOf(const PixelsOf&) = delete;
    PixelsOf& operator=(const PixelsOf&) = delete;

private:
    DPI_AWARENESS_CONTEXT m_previous;
};

// A dialog as an application has it, with 30 controls that between them have every anchor with every policy.
class DesignedDialog : public CDialog
{
public:
    explicit DesignedDialog(const DpiWindow& monitors) : m_monitors(monitors), m_layout(this)
    {
        const struct
        {
            DLGTEMPLATE head;
            WORD noMenuNoClassNoTitle[3];
        } emptyTemplate = {{WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, 100, 100}, {}};
        if (!CreateIndirect(&emptyTemplate.head, CWnd::FromHandle(monitors.ParentOf(TestDpi()))))
            throw std::runtime_error("no dialog");
        ResizeTo(kClient96);
        AddControls();
        m_layout.UpdateDpi(static_cast<int>(VxSafeGetDpiForWindow(m_hWnd)));
        m_layout.AdjustLayout();
        m_followsSize = true;
    }

    ~DesignedDialog() override { DestroyWindow(); }

    void ResizeTo(SIZE client96)
    {
        const PixelsOf pixels(m_hWnd);
        const UINT dpi = ::GetDpiForWindow(m_hWnd);
        SetWindowPos(nullptr, 0, 0, Pixels(client96.cx, dpi), Pixels(client96.cy, dpi), SWP_NOZORDER);
    }

    void MoveTo(UINT dpi)
    {
        m_monitors.Move(m_hWnd, dpi);
        for (UINT i = 0; i < kControlCount; ++i)
            ::SetParent(Control(i), m_hWnd);
        ResizeTo(kClient96);
    }

    std::vector<EdgeList> Places() const
    {
        const PixelsOf pixels(m_hWnd);
        std::vector<EdgeList> places;
        for (UINT i = 0; i < kControlCount; ++i)
            places.push_back(PlaceIn(m_hWnd, Control(i)));
        return places;
    }

protected:
    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        CDialog::OnSize(nType, cx, cy);
        if (m_followsSize)
            m_layout.AdjustLayout();
    }

    afx_msg LRESULT OnDpiChanged(WPARAM, LPARAM)
    {
        m_layout.UpdateDpi(static_cast<int>(VxSafeGetDpiForWindow(m_hWnd)));
        return 0;
    }

    DECLARE_MESSAGE_MAP()

private:
    HWND Control(UINT index) const { return ::GetDlgItem(m_hWnd, static_cast<int>(kFirstId + index)); }

    void AddControls()
    {
        constexpr std::array kClasses = {L"BUTTON", L"EDIT", L"STATIC"};
        constexpr std::array kAnchors = {ANCHOR_TOPLEFT, ANCHOR_RIGHT, ANCHOR_BOTTOM, ANCHOR_BOTTOMRIGHT, 0u};
        for (UINT i = 0; i < kControlCount; ++i)
        {
            const EdgeList place = Pixels(Place96(i), TestDpi());
            const UINT_PTR id = kFirstId + i;
            ::CreateWindowExW(0, kClasses[i % kClasses.size()], nullptr, WS_CHILD | WS_VISIBLE, place[0],
                              place[1], place[2] - place[0], place[3] - place[1], m_hWnd,
                              reinterpret_cast<HMENU>(id), nullptr, nullptr);
            const int bMinSize = i >= 20;
            m_layout.AddControl(kFirstId + i, kAnchors[i % kAnchors.size()], i % 4, bMinSize);
        }
    }

    const DpiWindow& m_monitors;
    CDpiLayoutManager m_layout;
    bool m_followsSize = false;
};

BEGIN_MESSAGE_MAP(DesignedDialog, CDialog)
    ON_WM_SIZE()
    ON_MESSAGE(WM_DPICHANGED_AFTERPARENT, &DesignedDialog::OnDpiChanged)
END_MESSAGE_MAP()

void ExpectPlaces(const DesignedDialog& dialog, const std::map<UINT, RECT>& expected96)
{
    const std::vector<EdgeList> places = dialog.Places();
    for (const auto& [index, place96] : expected96)
        EXPECT_EQ(places.at(index), Pixels(place96, TestDpi())) << "control " << index;
}
}

TEST(LayoutOfADialog, StartsWithTheDesignedPlaces)
{
    const DpiWindow monitors;
    const DesignedDialog dialog(monitors);
    EXPECT_EQ(dialog.Places(), DesignedPlaces(TestDpi()));
}

TEST(LayoutOfADialog, FollowsALargerSize)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    dialog.ResizeTo({500, 300});
    ExpectPlaces(dialog, {{0, {8, 8, 64, 44}},       // fixed
                          {1, {72, 8, 228, 44}},     // right, as wide as there is space
                          {2, {136, 8, 192, 104}},   // bottom, as high as there is space
                          {3, {200, 8, 356, 104}},   // bottom right, both
                          {4, {264, 8, 320, 44}},    // fixed by a value that is no anchor
                          {5, {328, 8, 484, 44}},    // top left, as wide as there is space
                          {6, {108, 52, 164, 148}},  // right, as high as there is space
                          {7, {72, 52, 228, 148}},   // bottom, both
                          {8, {236, 112, 292, 148}}, // bottom right, fixed size
                          {16, {364, 96, 420, 132}}, // right, fixed size
                          {12, {8, 156, 64, 192}}}); // bottom, fixed size
}

TEST(LayoutOfADialog, FollowsASmallerSize)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    dialog.ResizeTo({200, 100});
    ExpectPlaces(dialog, {{0, {8, 8, 64, 44}},        // fixed
                          {1, {72, 8, 72, 44}},       // no width is left, and none is kept
                          {20, {136, 140, 192, 176}}, // fixed
                          {21, {0, 140, 56, 176}},    // right, keeps its designed width
                          {23, {128, 0, 184, 36}},    // bottom right, keeps its designed size
                          {22, {264, 0, 320, 36}}});  // bottom, keeps its designed height
}

TEST(LayoutOfADialog, ReturnsExactlyFrom200OtherSizes)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    for (LONG i = 1; i <= 200; ++i)
        dialog.ResizeTo({(i * 37) % 700, (i * 53) % 500});
    EXPECT_NE(dialog.Places(), DesignedPlaces(TestDpi()));
    dialog.ResizeTo(kClient96);
    EXPECT_EQ(dialog.Places(), DesignedPlaces(TestDpi()));
}

TEST(LayoutOfADialog, HasTheDesignedPlacesAfterEachOf100MovesBetweenTwoDpis)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    for (int i = 0; i < 50; ++i)
    {
        dialog.MoveTo(96);
        ASSERT_EQ(dialog.Places(), DesignedPlaces(96));
        dialog.MoveTo(TestDpi());
        ASSERT_EQ(dialog.Places(), DesignedPlaces(TestDpi()));
    }
}

TEST(LayoutOfADialog, ReturnsExactlyWhenSizesAndMovesAlternate)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    for (LONG i = 1; i <= 50; ++i)
    {
        dialog.ResizeTo({(i * 37) % 700, (i * 53) % 500});
        dialog.MoveTo(96);
        dialog.ResizeTo({(i * 59) % 700, (i * 31) % 500});
        dialog.MoveTo(TestDpi());
    }
    EXPECT_EQ(dialog.Places(), DesignedPlaces(TestDpi()));
}

TEST(LayoutOfADialog, LeavesNothingBehindWithSizesAndMoves)
{
    const DpiWindow monitors;
    DesignedDialog dialog(monitors);
    EXPECT_NO_LEAK(
        [&]
        {
            dialog.ResizeTo({700, 500});
            dialog.MoveTo(96);
            dialog.ResizeTo({100, 50});
            dialog.MoveTo(TestDpi());
        });
}
