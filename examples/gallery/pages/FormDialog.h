#pragma once

#include "DpiDialog.h"

#include <vxdpi/ScrollFrame.h>

#include <functional>

/// A form with more controls than there is room for.
class CFormDialog : public CPageDialog
{
protected:
    BOOL OnInitDialog() override;
};

/// A form that is scrolled by the bars of its own window.
class CWindowBarsForm : public CFormDialog
{
public:
    /// @param onScrolled  called whenever another part of the form is seen.
    explicit CWindowBarsForm(std::function<void()> onScrolled);

protected:
    BOOL OnInitDialog() override;
    void AdjustLayout() override;
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

private:
    CScrollManager m_scroller;
    std::function<void()> m_onScrolled;
    bool m_bUpdating;
    bool m_bSizedMeanwhile;
};

/// A form beside two scroll-bar controls that scroll it, in a window of their own.
class CBarControlsForm : public CWnd
{
public:
    /// @param onScrolled  called whenever another part of the form is seen.
    explicit CBarControlsForm(std::function<void()> onScrolled);

    BOOL CreateForm(CWnd* pParent, UINT nId);

    /// Follows a new DPI; the owner gives the window its new size.
    void UpdateDpi(UINT nDpi);

    CScrollBar& HorizontalBar();
    CScrollBar& VerticalBar();

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

private:
    // The form, which tells when its controls stand where they were designed to be.
    class CContent : public CFormDialog
    {
    public:
        using CFormDialog::AdjustLayout;
    };

    void Arrange();

    CContent m_form;
    CScrollBar m_horizontalBar;
    CScrollBar m_verticalBar;
    CScrollManager m_scroller;
    std::function<void()> m_onScrolled;
};
