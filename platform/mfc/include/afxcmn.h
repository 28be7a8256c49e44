#pragma once

#include <afxwin.h>

#include <commctrl.h>

/// A list of images of one size. The destructor destroys an attached list: Detach() what a control owns.
class VXMFC_API CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)

public:
    CImageList();
    ~CImageList() override;

    HIMAGELIST m_hImageList;

    operator HIMAGELIST() const;
    HIMAGELIST GetSafeHandle() const; ///< null for an empty object and for a null this

    static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
    static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();

    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx, int dy);
    BOOL Create(CImageList* pImageList);
    BOOL DeleteImageList();

    int GetImageCount() const;
    BOOL SetImageCount(UINT uNewCount);
    int Add(CBitmap* pbmImage, CBitmap* pbmMask); ///< the first new index or -1
    int Add(CBitmap* pbmImage, COLORREF crMask);
    int Add(HICON hIcon); ///< a copy is used
    BOOL Remove(int nImage);
    BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
    int Replace(int nImage, HICON hIcon); ///< the index or -1
    BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE);
    BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE);
    HICON ExtractIcon(int nImage); ///< a new icon that the caller destroys
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;
    COLORREF GetBkColor() const;
    COLORREF SetBkColor(COLORREF cr);
    BOOL SetOverlayImage(int nImage, int nOverlay);

    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
    BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle);
    BOOL DrawIndirect(IMAGELISTDRAWPARAMS* pimldp);
    BOOL DrawIndirect(CDC* pDC, int nImage, POINT pt, SIZE sz, POINT ptOrigin, UINT fStyle = ILD_NORMAL,
                      DWORD dwRop = SRCCOPY, COLORREF rgbBack = CLR_DEFAULT, COLORREF rgbFore = CLR_DEFAULT,
                      DWORD fState = ILS_NORMAL, DWORD Frame = 0, COLORREF crEffect = CLR_DEFAULT);

    BOOL BeginDrag(int nImage, CPoint ptHotSpot);
    static void PASCAL EndDrag();
    static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
    static BOOL PASCAL DragLeave(CWnd* pWndLock);
    static BOOL PASCAL DragMove(CPoint pt);
    static BOOL PASCAL DragShowNolock(BOOL bShow);
    BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot);
    static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot);
};

/// The header above the columns of a report list, or a header of its own.
class VXMFC_API CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)

public:
    CHeaderCtrl();
    ~CHeaderCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const;
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const;
    BOOL SetItem(int nPos, HDITEM* pHeaderItem);
    int InsertItem(int nPos, HDITEM* phdi); ///< the index or -1
    BOOL DeleteItem(int nPos);
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const;
    BOOL Layout(HDLAYOUT* pHeaderLayout);
    int OrderToIndex(int nOrder) const;
    BOOL GetOrderArray(LPINT piArray, int iCount);
    BOOL SetOrderArray(int iCount, LPINT piArray);
    int HitTest(LPHDHITTESTINFO phdhti);
    CImageList* GetImageList() const;
    CImageList* SetImageList(CImageList* pImageList); ///< the previous list; the caller keeps owning both
    CImageList* CreateDragImage(int nIndex);          ///< a temporary object
    int GetBitmapMargin() const;
    int SetBitmapMargin(int nWidth);
    int SetHotDivider(CPoint pt);
    int SetHotDivider(int nIndex);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// List view.
///
/// It destroys the image lists that it was given unless it has LVS_SHAREIMAGELISTS.
class VXMFC_API CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)

public:
    CListCtrl();
    ~CListCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Columns
    int InsertColumn(int nCol, const LVCOLUMN* pColumn);

    /// @param nWidth  in pixels; -1: the control's own choice.
    /// @param nSubItem  sub-item shown in the column; -1: none is set.
    /// @return the new column's index or -1.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn);
    int GetColumnWidth(int nCol) const;
    BOOL SetColumnWidth(int nCol, int cx);
    BOOL GetColumnOrderArray(LPINT piArray, int iCount = -1); ///< -1: all columns
    BOOL SetColumnOrderArray(int iCount, LPINT piArray);
    CHeaderCtrl* GetHeaderCtrl(); ///< may be temporary; null when there is no header
    UINT GetSelectedColumn() const;
    LRESULT SetSelectedColumn(int iCol);

    // Items
    int InsertItem(const LVITEM* pItem);
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                   LPARAM lParam);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    void SetItemCount(int nItems);
    BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL);
    BOOL GetItem(LVITEM* pItem) const;
    BOOL SetItem(const LVITEM* pItem);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                 UINT nStateMask, LPARAM lParam, int nIndent);
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    UINT GetItemState(int nItem, UINT nMask) const;
    BOOL SetItemState(int nItem, LVITEM* pItem);
    BOOL SetItemState(int nItem, UINT nState, UINT nMask); ///< -1: all items
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    BOOL GetCheck(int nItem) const;
    BOOL SetCheck(int nItem, BOOL fCheck = TRUE);

    // Searching, selection
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const;
    int GetNextItem(int nItem, int nFlags) const;
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const;
    int GetSelectionMark();
    int SetSelectionMark(int iIndex); ///< the previous mark or -1
    int HitTest(LVHITTESTINFO* pHitTestInfo) const;
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int SubItemHitTest(LPLVHITTESTINFO pInfo);
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    BOOL IsItemVisible(int index) const;
    BOOL RedrawItems(int nFirst, int nLast);
    BOOL Update(int nItem);
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);   ///< compares the items' lParam
    BOOL SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData); ///< compares the items' indexes
    CEdit* EditLabel(int nItem);
    CEdit* GetEditControl() const;
    void CancelEditLabel();

    // Geometry
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref);
    BOOL GetItemPosition(int nItem, LPPOINT lpPoint) const;
    BOOL SetItemPosition(int nItem, POINT pt);
    BOOL GetItemSpacing(BOOL fSmall, int* pnHorzSpacing, int* pnVertSpacing) const;
    CSize SetIconSpacing(int cx, int cy);
    CSize SetIconSpacing(CSize size);
    int GetStringWidth(LPCTSTR lpsz) const;
    int GetTopIndex() const;
    int GetCountPerPage() const;
    BOOL GetOrigin(LPPOINT lpPoint) const;
    BOOL GetViewRect(LPRECT lpRect) const;
    BOOL Scroll(CSize size);
    CSize ApproximateViewRect(CSize sz = CSize(-1, -1), int iCount = -1) const;
    BOOL Arrange(UINT nCode);

    // Appearance
    DWORD GetExtendedStyle();
    DWORD SetExtendedStyle(DWORD dwNewStyle); ///< replaces all; the previous ones
    DWORD GetView() const;
    DWORD SetView(int iView);
    COLORREF GetBkColor() const;
    BOOL SetBkColor(COLORREF cr);
    COLORREF GetTextColor() const;
    BOOL SetTextColor(COLORREF cr);
    COLORREF GetTextBkColor() const;
    BOOL SetTextBkColor(COLORREF cr);
    CImageList* GetImageList(int nImageList) const;
    CImageList* SetImageList(CImageList* pImageList, int nImageListType); ///< the previous list
    CImageList* CreateDragImage(int nItem, LPPOINT lpPoint);              ///< the caller deletes the object
    BOOL GetTileViewInfo(PLVTILEVIEWINFO ptvi) const;
    BOOL SetTileViewInfo(PLVTILEVIEWINFO ptvi);
    HCURSOR GetHotCursor();
    int GetHotItem();
    DWORD GetHoverTime() const;
    DWORD SetHoverTime(DWORD dwHoverTime = static_cast<DWORD>(-1));

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// Tabs above an area. Selecting by program sends no notification.
class VXMFC_API CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)

public:
    CTabCtrl();
    ~CTabCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    void AdjustRect(BOOL bLarger, LPRECT lpRect); ///< TRUE: display area to window, FALSE: the reverse
    LONG InsertItem(int nItem, TCITEM* pTabCtrlItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    LONG InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam);
    LONG InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam, DWORD dwState,
                    DWORD dwStateMask);
    BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const;
    BOOL SetItem(int nItem, TCITEM* pTabCtrlItem);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    int GetRowCount() const;
    BOOL GetItemRect(int nItem, LPRECT lpRect) const;
    DWORD GetItemState(int nItem, DWORD dwMask) const;
    BOOL SetItemState(int nItem, DWORD dwMask, DWORD dwState);
    BOOL SetItemExtra(int nBytes);
    CSize SetItemSize(CSize size); ///< the previous size
    void SetPadding(CSize size);
    int SetMinTabWidth(int cx); ///< -1: the default; the previous width
    int GetCurSel() const;
    int SetCurSel(int nItem); ///< the previous selection or -1
    int GetCurFocus() const;
    void SetCurFocus(int nItem);
    DWORD GetExtendedStyle();
    DWORD SetExtendedStyle(DWORD dwNewStyle, DWORD dwExMask = 0);
    int HitTest(TCHITTESTINFO* pHitTestInfo) const;
    BOOL HighlightItem(int idItem, BOOL fHighlight = TRUE);
    void DeselectAll(BOOL fExcludeFocus);
    CImageList* GetImageList() const;
    CImageList* SetImageList(CImageList* pImageList); ///< the previous list; the caller keeps owning both
    void RemoveImage(int nImage);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// A bar of buttons. The caller keeps owning image lists.
class VXMFC_API CToolBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolBarCtrl)

public:
    CToolBarCtrl();
    ~CToolBarCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    BOOL AddButtons(int nNumButtons, LPTBBUTTON lpButtons);
    BOOL InsertButton(int nIndex, LPTBBUTTON lpButton);
    BOOL DeleteButton(int nIndex);
    int GetButtonCount() const;
    BOOL GetButton(int nIndex, LPTBBUTTON lpButton) const;
    UINT CommandToIndex(UINT nID) const;
    int AddBitmap(int nNumButtons, UINT nBitmapID); ///< the first new image's index or -1
    int AddBitmap(int nNumButtons, CBitmap* pBitmap);
    int AddStrings(LPCTSTR lpszStrings); ///< each string is terminated by a null, the last one by two

    BOOL EnableButton(int nID, BOOL bEnable = TRUE);
    BOOL CheckButton(int nID, BOOL bCheck = TRUE);
    BOOL PressButton(int nID, BOOL bPress = TRUE);
    BOOL HideButton(int nID, BOOL bHide = TRUE);
    BOOL IsButtonEnabled(int nID) const;
    BOOL IsButtonChecked(int nID) const;
    BOOL IsButtonPressed(int nID) const;
    BOOL IsButtonHidden(int nID) const;
    int GetState(int nID) const;
    BOOL SetState(int nID, UINT nState);

    BOOL SetButtonSize(CSize size);
    CSize GetButtonSize() const;
    BOOL SetBitmapSize(CSize size);
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const;
    BOOL GetRect(int nID, LPRECT lpRect) const;
    BOOL GetMaxSize(LPSIZE pSize) const;
    void SetButtonStructSize(int nSize);
    int HitTest(LPPOINT ppt) const;
    void AutoSize();
    DWORD GetExtendedStyle() const;
    DWORD SetExtendedStyle(DWORD dwExStyle); ///< the previous styles

    CImageList* GetImageList() const;
    CImageList* SetImageList(CImageList* pImageList); ///< the previous list
    CImageList* GetDisabledImageList() const;
    CImageList* SetDisabledImageList(CImageList* pImageList);
    CImageList* GetHotImageList() const;
    CImageList* SetHotImageList(CImageList* pImageList);
};
