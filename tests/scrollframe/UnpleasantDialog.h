#pragma once

#include "scrollframe/FrameFixtures.h"

#include <afxcmn.h>

#include <memory>
#include <vector>

// A dialog as applications have them: 60 controls of all kinds, a tab control with pages, buttons whose state
// follows the input, a default button, mnemonics and accelerators, a control that makes its child late.
//
// The controls stand in a grid of 6 columns and 10 rows, 100 x 20 each, from (10, 10) with a pitch of
// (110, 60); below are the tab control with its pages, to the right three buttons.
class UnpleasantDialog : public ScriptDialog
{
public:
    static constexpr int kColumns = 6;
    static constexpr int kRows = 10;
    static constexpr UINT kFirstControl = 1000; // counting along the rows
    static constexpr UINT kApply = 300;
    static constexpr UINT kRefresh = 301; // by the key F5
    static constexpr UINT kTabs = 400;
    static constexpr UINT kFirstPage = 500;
    static constexpr int kContentWidth = 650;
    static constexpr int kContentHeight = 710;         // with the first page
    static constexpr int kContentHeightOfSecond = 890; // with the second page

    enum Row
    {
        kPushButtons,
        kEdits,
        kCombos,
        kRadios,
        kListBoxes,
        kStatics,
        kScrollBars,
        kGroupBoxes,
        kCheckBoxes,
        kLastRow,
    };

    UnpleasantDialog() { place = CRect(0, 0, 860, 980); }
    ~UnpleasantDialog() override;

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

    ButtonList Buttons() { return {{&ok, IDOK}, {&cancel, IDCANCEL}, {&apply, 0}}; }
    HWND Control(Row row, int column) const;
    HWND SecondTabPage() const { return ::GetDlgItem(m_hWnd, kFirstPage + 1); }

    // A static with a child that it makes when it gets its first size above 0.
    class LateControl : public CStatic
    {
    public:
        CStatic child;

    protected:
        afx_msg void OnSize(UINT nType, int cx, int cy);

        DECLARE_MESSAGE_MAP()
    };

    CTabCtrl tabs;
    CRealButton ok;
    CRealButton cancel;
    CRealButton apply;
    LateControl late;
    CallLog log;

protected:
    void OnOK() override { log.Write("OK"); }
    void OnCancel() override { log.Write("Cancel"); }

    afx_msg void OnApply();
    afx_msg void OnRefresh() { log.Write("Refresh"); }
    afx_msg void OnEdited() { apply.EnableWindow(TRUE); }
    afx_msg void OnControl(UINT nId);
    afx_msg void OnTab(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnHScroll(UINT nCode, UINT nPos, CScrollBar* pBar);

    DECLARE_MESSAGE_MAP()

private:
    void MakeRow(Row row, const wchar_t* className, const wchar_t* text, DWORD dwStyle);
    void MakeControls();
    void MakeTabs();
    void MakeButtons();

    std::vector<std::unique_ptr<CWnd>> m_controls;
    HACCEL m_hAccelerators = nullptr;
};
