#pragma once

#include <vxdpi/ScrollFrame.h>

#include <utility>
#include <vector>

class CScrollLabelFrame;

/// The single view of a scrolling frame: holds the dialog, the bars that scroll it, and the band of buttons
/// that stay visible.
///
/// Unlike other views it belongs to whoever made it, and never deletes itself.
class CScrollLabelView : public CView
{
    DECLARE_DYNCREATE(CScrollLabelView)

public:
    using ButtonList = std::vector<std::pair<CRealButton*, int>>; // each with its end code

    CScrollLabelView();
    ~CScrollLabelView() override;

    /// Creates the view's windows and makes the dialog a child of the view.
    /// @param pContent  the dialog; not owned, but its window goes with the view's.
    /// @param buttons  become hidden, with a proxy each.
    /// @param pFrame  the view's parent.
    /// @param reapplyOffset  see CScrollManager::Create.
    /// @return FALSE when a window is missing or can't be made; what was made goes with the view. No proxy
    ///         outlives a failure, though the buttons keep pointing at them.
    [[nodiscard]] BOOL CreateView(CWnd* pContent, const ButtonList& buttons, CScrollLabelFrame* pFrame,
                                  int reapplyOffset);

    /// Places the proxies along the bottom, from the right to the left, each as large as its real button.
    /// @return the height of the band in device pixels; 0 without proxies.
    int LayoutProxies();

    /// Deletes every proxy.
    void DestroyProxies();

protected:
    virtual BOOL OnEraseBkgnd(CDC* pDC);
    virtual void OnSize(UINT nType, int cx, int cy);
    virtual void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    virtual void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);

    void OnDraw(CDC* pDC) override;
    void PostNcDestroy() override;

    DECLARE_MESSAGE_MAP()

private:
    BOOL CreateBars();
    BOOL CreateProxies(const ButtonList& buttons);

    CWnd* m_pContent; // not owned
    CScrollBar m_hScrollBar;
    CScrollBar m_vScrollBar;
    std::vector<CButtonProxy*> m_proxies; // owned, in the order of the buttons
    CScrollManager m_scrollManager;
    CBrush m_backgroundBrush; // the system's, or none
};
