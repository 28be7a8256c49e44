#pragma once

#include "support/CallLog.h"
#include "support/TestWindow.h"

#include <vxdpi/Layout.h>

#include <array>
#include <map>
#include <memory>
#include <utility>
#include <vector>

// Left, top, right and bottom in a form that test messages show.
using EdgeList = std::array<LONG, 4>;

EdgeList Edges(LONG left, LONG top, LONG right, LONG bottom);
EdgeList Edges(const RECT& rect);

// Where a window is in the client area of another, in device pixels.
EdgeList PlaceIn(HWND parent, HWND window);

// The manager with its steps and fields open to tests.
class OpenLayoutManager : public CDpiLayoutManager
{
public:
    using CDpiLayoutManager::CDpiLayoutManager;

    using CDpiLayoutManager::ApplyAnchor;
    using CDpiLayoutManager::ApplySizePolicy;
    using CDpiLayoutManager::AutoCaptureRects;
    using CDpiLayoutManager::ConvertTo96DPIRect;
    using CDpiLayoutManager::GetControlRect;
    using CDpiLayoutManager::GetScaledRect;
    using CDpiLayoutManager::ScaleX;
    using CDpiLayoutManager::ScaleY;

    using CDpiLayoutManager::m_bNeedCapture;
    using CDpiLayoutManager::m_dpi;
    using CDpiLayoutManager::m_pLayouts;
    using CDpiLayoutManager::m_pParent;
    using CDpiLayoutManager::m_scale;

    // The record of a window; throws when there is none.
    const LayoutInfo& RecordOf(const CWnd* pWnd) const { return m_pLayouts->at(pWnd->m_hWnd); }
};

// Writes each step down by its name, then does it as usual.
class RecordingManager : public OpenLayoutManager
{
public:
    RecordingManager(CWnd* pParent, CallLog& log);

    int AddControl(UINT nID, LayoutInfo info) override;
    int AddControl(CWnd* pWnd, LayoutInfo info) override;
    int AddControl(UINT nID, UINT nAnchor, UINT nSizePolicy, int bMinSize) override;
    int AddControl(CWnd* pWnd, UINT nAnchor, UINT nSizePolicy, int bMinSize) override;
    void AdjustLayout() override;
    void AutoCaptureRects() override;
    CRect GetControlRect(const LayoutInfo& info, const CRect& parentClient) override;
    CRect GetScaledRect(const CRect& rc96) const override;
    void ApplySizePolicy(CRect& rc, CRect parentClient, LayoutInfo info) override;
    void ApplyAnchor(CRect& rc, CRect parentClient, const LayoutInfo& info) override;
    void ConvertTo96DPIRect(CRect& rc) override;

private:
    CallLog& m_log;
};

// A window object for a window that others destroy.
class AttachedWindow : public CWnd
{
public:
    explicit AttachedWindow(HWND hWnd);
    ~AttachedWindow() override;
};

// A hidden window and its child windows.
class LayoutParent
{
public:
    // A client area of this size and no frame.
    explicit LayoutParent(int width = 400, int height = 300);
    // style and bounds as for TestWindow.
    LayoutParent(DWORD style, const RECT& bounds);

    CWnd* Window();
    HWND Handle() const;

    // place in pixels of the client area. The object lives as long as this one; the window may be destroyed
    // earlier.
    CWnd* AddChild(UINT id, const RECT& place);

    // Children with the IDs from 1 to count, in the order of their handles.
    std::vector<CWnd*> AddChildrenInOrder(UINT count, const RECT& place);

    void Resize(int width, int height);

    EdgeList PlaceOf(const CWnd* pChild) const;

private:
    TestWindow m_window;
    AttachedWindow m_object;
    std::vector<std::unique_ptr<AttachedWindow>> m_children;
};

// The calls by which the library moves windows and has them painted.
class MovingCalls
{
public:
    MovingCalls();

    void Name(const CWnd* pWnd, const std::string& name);
    const CallLog::LineList& Lines() const;

private:
    CallLog m_log;
    RecordCalls<decltype(::SetWindowPos)> m_setWindowPos;
    RecordCalls<decltype(::InvalidateRect)> m_invalidateRect;
};

// A record as a caller fills it in.
LayoutInfo RecordAt(const RECT& base96, UINT nAnchor = ANCHOR_TOPLEFT, UINT nSizePolicy = 0,
                    int nMarginRight = 0, int nMarginBottom = 0, int bMinSize = FALSE);
