#pragma once

#include <afxres.h>

#include <vector>

#include <vxmfc/Wnd.h>

// Styles of frames and views
#define FWS_ADDTOTITLE 0x00008000L // LoadFrame's default; without documents the title is the resource's alone
#define AFX_WS_DEFAULT_VIEW (WS_CHILD | WS_VISIBLE | WS_BORDER)

/// What a frame's creation is to make inside the frame.
struct CCreateContext
{
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CDocTemplate* m_pNewDocTemplate = nullptr;
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

/// What a view is told about printing; null on the screen.
struct CPrintInfo;

/// A top-level window with a view in its client area.
///
/// Allocated with new and deleted by its own PostNcDestroy, also after a failed Create.
class VXMFC_API CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)

public:
    CFrameWnd();
    ~CFrameWnd() override;

    static AFX_DATA const CRect rectDefault; ///< the system chooses position and size
    BOOL m_bAutoMenuEnable; ///< menu items without a handler are shown disabled; TRUE at first

    /// @param lpszClassName  null: the framework's default class for frames.
    /// @param lpszMenuName  a menu resource, or null.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr,
                        LPCTSTR lpszMenuName = nullptr, DWORD dwExStyle = 0,
                        CCreateContext* pContext = nullptr);
    /// Creates the frame with the title string, menu, icon and accelerators that have the ID nIDResource.
    virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                           CWnd* pParentWnd = nullptr, CCreateContext* pContext = nullptr);
    BOOL LoadAccelTable(LPCTSTR lpszResourceName);

    virtual void ActivateFrame(int nCmdShow = -1);
    void InitialUpdateFrame(CDocument* pDoc, BOOL bMakeVisible);
    virtual void RecalcLayout(BOOL bNotify = TRUE);
    virtual CFrameWnd* GetActiveFrame();
    CWnd* CreateView(CCreateContext* pContext, UINT nID = AFX_IDW_PANE_FIRST);
    CView* GetActiveView() const;
    void SetActiveView(CView* pViewNew, BOOL bNotify = TRUE);

    /// Disables the frame's top-level window and all that it owns; calls nest.
    void BeginModalState() override;
    void EndModalState() override;
    BOOL InModalState() const;

    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnClose();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);

    DECLARE_MESSAGE_MAP()

private:
    friend class CView;

    void EnableDisabledWindows();
    void ForwardScroll(UINT message, UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);

    CView* m_pActiveView;
    HACCEL m_hAccelTable;
    std::vector<HWND> m_disabledWindows; // by BeginModalState
    int m_nModalDepth;
    BOOL m_bInLayout;
};

/// A window that shows something in a frame; a derived class draws it in OnDraw.
///
/// Deletes itself in PostNcDestroy.
class VXMFC_API AFX_NOVTABLE CView : public CWnd
{
    DECLARE_DYNAMIC(CView)

public:
    ~CView() override;

    virtual void OnInitialUpdate(); ///< the frame calls it once; the default calls OnUpdate
    virtual void OnPrepareDC(CDC* pDC, CPrintInfo* pInfo = nullptr);

protected:
    CView();
    virtual void OnDraw(CDC* pDC) = 0;
    virtual void OnUpdate(CView* pSender, LPARAM lHint, CObject* pHint); ///< the default repaints all
    virtual void OnActivateView(BOOL bActivate, CView* pActivateView, CView* pDeactiveView);
    virtual void OnActivateFrame(UINT nState, CFrameWnd* pFrameWnd);
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

    afx_msg void OnPaint();
    afx_msg void OnDestroy();
    afx_msg void OnNcDestroy();
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);

    DECLARE_MESSAGE_MAP()

private:
    friend class CFrameWnd;

    void LeaveFrame();
    LRESULT OnInitialUpdateMessage(WPARAM wParam, LPARAM lParam);
};
