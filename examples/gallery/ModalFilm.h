#pragma once

#include "Snapshot.h"

#include <functional>
#include <vector>

/// Takes pictures of a dialog while it is shown modally, by itself or in a scrolling frame.
///
/// A timer does one thing after the other to the dialog, and copies from the screen what each has led to.
class CModalFilm : public CWnd
{
public:
    using Action = std::function<void()>;

    enum class View
    {
        Window, // the dialog's own window, or the frame that it is in
        Screen, // all of the monitor that it is on
    };

    /// @param dialog  must outlive the film.
    CModalFilm(const CDialog& dialog, View view);

    /// Shows the dialog and returns when it has been closed.
    /// @param pParent  any window of the program.
    /// @param show  shows the dialog modally.
    /// @param actions  done one after the other while it is shown; after each a picture is taken.
    /// @param close  done at last.
    /// @return one picture for each action, fewer if the dialog was closed before.
    std::vector<Snapshot> Shoot(CWnd* pParent, const Action& show, std::vector<Action> actions, Action close);

protected:
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    DECLARE_MESSAGE_MAP()

private:
    bool GoOn();
    void TakePicture();

    const CDialog& m_dialog;
    const View m_view;
    std::vector<Action> m_actions;
    Action m_close;
    size_t m_nDone;
    std::vector<Snapshot> m_pictures;
};
