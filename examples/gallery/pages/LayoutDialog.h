#pragma once

#include "DpiDialog.h"

/// A dialog whose controls follow its size and its DPI.
class CLayoutDialog : public CPageDialog
{
public:
    CLayoutDialog();

protected:
    BOOL OnInitDialog() override;
    void AddControls(CDpiLayoutManager& layout) override;
    void AdjustLayout() override;

private:
    void FillControls();

    CSize m_designedSize96; // of the control in the middle
};
