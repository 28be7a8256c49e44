#pragma once

#include <afx.h>
#include <atltypes.h>

#include <commctrl.h>

#include <vxmfc/Export.h>
#include <vxmfc/Forward.h>
#include <vxmfc/Wnd.h>

// The controls that every window can hold. They are made in two steps, constructor and Create, and never
// delete themselves. The virtual functions for owner drawing do nothing unless overridden; an override puts
// back everything that it selects into the device context.

/// Static text, bitmap, icon or metafile.
///
/// A Set function answers the handle shown before, and neither the new nor the old one is freed. Without
/// SS_CENTERIMAGE the control takes the size of a bitmap or icon.
class VXMFC_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    CStatic();
    ~CStatic() override;

    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID = 0xffff);

    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;
    HCURSOR SetCursor(HCURSOR hCursor);
    HCURSOR GetCursor();
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile);
    HENHMETAFILE GetEnhMetaFile() const;

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// Push button, check box, radio button, group box. The caller keeps owning bitmaps, icons and cursors.
class VXMFC_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    CButton();
    ~CButton() override;

    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    UINT GetState() const;
    void SetState(BOOL bHighlight);
    int GetCheck() const;
    void SetCheck(int nCheck);
    UINT GetButtonStyle() const; ///< the BS_ values alone
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);

    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
    HBITMAP SetBitmap(HBITMAP hBitmap);
    HBITMAP GetBitmap() const;
    HCURSOR SetCursor(HCURSOR hCursor);
    HCURSOR GetCursor();

    BOOL GetIdealSize(SIZE* psize);
    BOOL SetImageList(PBUTTON_IMAGELIST pbuttonImagelist);
    BOOL GetImageList(PBUTTON_IMAGELIST pbuttonImagelist);
    BOOL SetTextMargin(RECT* pmargin);
    BOOL GetTextMargin(RECT* pmargin);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// Edit box of one or more lines; lines end with "\r\n".
class VXMFC_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    CEdit();
    ~CEdit() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    DWORD GetSel() const;
    void GetSel(int& nStartChar, int& nEndChar) const;
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE); ///< 0, -1: all; -1: none
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);

    int GetLineCount() const;
    int GetFirstVisibleLine() const;
    void LineScroll(int nLines, int nChars = 0);
    int GetLine(int nIndex,
                LPTSTR lpszBuffer) const; ///< not terminated; the buffer's first word is its length
    int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const; ///< not terminated
    int LineFromChar(int nIndex = -1) const;
    int LineIndex(int nLine = -1) const;
    int LineLength(int nLine = -1) const; ///< nLine is the index of a character in the line
    int CharFromPos(CPoint pt) const;     ///< low word: the character, high word: its line
    CPoint PosFromChar(UINT nChar) const;

    void LimitText(int nChars = 0);
    void SetLimitText(UINT nMax);
    UINT GetLimitText() const;
    BOOL GetModify() const;
    void SetModify(BOOL bModified = TRUE);
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    TCHAR GetPasswordChar() const;
    void SetPasswordChar(TCHAR ch);
    DWORD GetMargins() const;
    void SetMargins(UINT nLeft, UINT nRight); ///< in pixels
    void GetRect(LPRECT lpRect) const;
    void SetRect(LPCRECT lpRect);
    void SetRectNP(LPCRECT lpRect);
    void SetTabStops();
    BOOL SetTabStops(const int& cxEachStop);
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops);

    BOOL CanUndo() const;
    BOOL Undo();
    void EmptyUndoBuffer();
    void Clear();
    void Copy();
    void Cut();
    void Paste();
    BOOL FmtLines(BOOL bAddEOL);
    HLOCAL GetHandle() const;
    void SetHandle(HLOCAL hBuffer);

    BOOL GetCueBanner(LPWSTR lpszText, int cchText) const;
    CString GetCueBanner() const;
    BOOL SetCueBanner(LPCWSTR lpszText);
    BOOL SetCueBanner(LPCWSTR lpszText, BOOL fDrawWhenFocused);
};

/// Combo box; a refusal is CB_ERR or CB_ERRSPACE.
class VXMFC_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox();
    ~CComboBox() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int AddString(LPCTSTR lpszString);
    int InsertString(int nIndex, LPCTSTR lpszString);
    int DeleteString(UINT nIndex);
    int Dir(UINT attr, LPCTSTR lpszWildCard);
    void ResetContent();
    int InitStorage(int nItems, UINT nBytes);
    int GetCount() const;
    int FindString(int nStartAfter, LPCTSTR lpszString) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszString);
    int GetCurSel() const;
    int SetCurSel(int nSelect); ///< sends no notification
    int GetLBText(int nIndex, LPTSTR lpszText) const;
    void GetLBText(int nIndex, CString& rString) const; ///< throws CInvalidArgException for a bad index
    int GetLBTextLen(int nIndex) const;
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);

    int GetItemHeight(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight); ///< -1: the edit or static part
    int GetDroppedWidth() const;
    int SetDroppedWidth(UINT nWidth);
    UINT GetHorizontalExtent() const;
    void SetHorizontalExtent(UINT nExtent);
    void GetDroppedControlRect(LPRECT lprect) const;
    BOOL GetDroppedState() const;
    void ShowDropDown(BOOL bShowIt = TRUE);
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);
    int GetMinVisible() const;
    BOOL SetMinVisibleItems(int iMinVisible);
    DWORD GetEditSel() const;
    BOOL SetEditSel(int nStartChar, int nEndChar);
    BOOL LimitText(int nMaxChars);
    BOOL GetExtendedUI() const;
    int SetExtendedUI(BOOL bExtended = TRUE);
    LCID GetLocale() const;
    LCID SetLocale(LCID nNewLocale);
    CString GetCueBanner() const;
    BOOL GetCueBanner(LPTSTR lpszText, int cchText) const;
    BOOL SetCueBanner(LPCTSTR lpszText);
    BOOL GetComboBoxInfo(PCOMBOBOXINFO pcbi) const;

    void Clear();
    void Copy();
    void Cut();
    void Paste();

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// List box; a refusal is LB_ERR or LB_ERRSPACE.
class VXMFC_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox();
    ~CListBox() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int AddString(LPCTSTR lpszItem);
    int InsertString(int nIndex, LPCTSTR lpszItem);
    int DeleteString(UINT nIndex);
    int Dir(UINT attr, LPCTSTR lpszWildCard);
    void ResetContent();
    int InitStorage(int nItems, UINT nBytes);
    int GetCount() const;
    int FindString(int nStartAfter, LPCTSTR lpszItem) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    int SelectString(int nStartAfter, LPCTSTR lpszItem);
    int GetCurSel() const;
    int SetCurSel(int nSelect); ///< single selection; sends no notification
    int GetSel(int nIndex) const;
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem);
    int GetSelCount() const;
    int GetSelItems(int nMaxItems, LPINT rgIndex) const;
    int GetAnchorIndex() const;
    void SetAnchorIndex(int nIndex);
    int GetCaretIndex() const;
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE);
    int GetText(int nIndex, LPTSTR lpszBuffer) const;
    void GetText(int nIndex, CString& rString) const; ///< throws CInvalidArgException for a bad index
    int GetTextLen(int nIndex) const;
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);

    int GetItemHeight(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    int GetItemRect(int nIndex, LPRECT lpRect) const;
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    int GetHorizontalExtent() const;
    void SetHorizontalExtent(int cxExtent);
    void SetColumnWidth(int cxWidth);
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);
    DWORD GetListBoxInfo() const;
    LCID GetLocale() const;
    LCID SetLocale(LCID nNewLocale);
    void SetTabStops();
    BOOL SetTabStops(const int& cxEachStop);
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops);

    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
    virtual int VKeyToItem(UINT nKey, UINT nIndex); ///< -1: the control's own action
    virtual int CharToItem(UINT nKey, UINT nIndex); ///< -1: the control's own action

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// A scroll bar that is a control; hides the functions of CWnd that ask for one of a window's own bars.
class VXMFC_API CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    CScrollBar();
    ~CScrollBar() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetScrollPos() const;
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE); ///< the previous position
    void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const;
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    int GetScrollLimit(); ///< the greatest position that the page size leaves
    BOOL GetScrollBarInfo(PSCROLLBARINFO pScrollInfo) const;
    void ShowScrollBar(BOOL bShow = TRUE);
    BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH);
};
