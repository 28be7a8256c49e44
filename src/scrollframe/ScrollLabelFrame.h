#pragma once

#include <afxwin.h>

/// The top-level window of a scrolling dialog, which runs a modal loop of its own.
///
/// Unlike other frames it belongs to whoever made it, and never deletes itself.
class CScrollLabelFrame : public CFrameWnd
{
    DECLARE_DYNCREATE(CScrollLabelFrame)

public:
    CScrollLabelFrame();
    ~CScrollLabelFrame() override;

    /// Handles messages until the modal loop is ended.
    /// @return the loop's result; 0 without a window.
    virtual int DoModal();

    BOOL IsModal() const { return m_bModal; }

protected:
    virtual void OnClose();
    virtual LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);

    BOOL ContinueModal() override;
    void PostNcDestroy() override;

    DECLARE_MESSAGE_MAP()

private:
    BOOL m_bModal; // while the modal loop runs
};
