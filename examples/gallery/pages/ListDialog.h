#pragma once

#include "DpiDialog.h"

#include <vxdpi/Controls.h>

#include <functional>
#include <map>

/// A report list that shows what it records.
class CWidthList : public CDPIAwareListCtrl
{
public:
    /// @param onColumnsChanged  called whenever a column got another width or another place.
    explicit CWidthList(std::function<void()> onColumnsChanged);

    /// @return the width at 96 DPI of every column, by its index.
    const std::map<int, int>& RecordedWidths() const;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

private:
    std::function<void()> m_onColumnsChanged;
};

/// A dialog filled by a list of screens. A list that comes from a template has its header from the start, so
/// that the columns are followed while they are dragged.
class CListDialog : public CPageDialog
{
public:
    struct Column
    {
        int nWidth96;     // recorded
        int nWidth;       // in pixels
        bool bDesigned;   // has the width that it was inserted with
        CRect screenRect; // of the header's item, in pixels of the screen
    };

    /// @param onColumnsChanged  called whenever a column got another width or another place.
    explicit CListDialog(std::function<void()> onColumnsChanged);

    std::vector<Column> Columns() const;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void AddControls(CDpiLayoutManager& layout) override;

private:
    void FillList();

    CWidthList m_list;
};
