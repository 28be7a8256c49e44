#pragma once

#include <vxdpi/Controls.h>

/// Stands in for a hidden button of a dialog: looks like it, hands it the clicks, and may end the modal loop
/// of the frame that both are in.
class CButtonProxy : public CButton
{
public:
    /// @param pReal  the button to stand in for; not owned.
    /// @param endCode  when it is not 0, a click ends the modal loop with it.
    CButtonProxy(CRealButton* pReal, int endCode);
    ~CButtonProxy() override;

    using CButton::Create;

    /// Creates the window with the text, style, size and font of the real button, visible, and at the real
    /// button's screen position taken as one in the parent: the parent places it afterwards.
    /// @return FALSE when the parent or the real button has no window, or the system refuses.
    [[nodiscard]] BOOL Create(CWnd* pParent, const UINT& nID);

    /// @return screen coordinates; (0, 0, 0, 0) when there is no real button or it has no window.
    CRect GetRealButtonRect() const;

protected:
    virtual LRESULT OnDPIChangedAfterParent(WPARAM wParam, LPARAM lParam);
    virtual void OnClicked();

    DECLARE_MESSAGE_MAP()

private:
    CRealButton* m_pRealButton; // not owned
    int m_endCode;
};
