#pragma once

#include "foundation/FrameworkWindow.h"
#include "layout/LayoutFixtures.h"
#include "support/CallLog.h"

#include <vxdpi/ScrollFrame.h>

#include <functional>
#include <utility>
#include <vector>

constexpr int kScrolledTemplate = 4711;
const CSize kScrolledButton(75, 23);

constexpr int kFirstProxy = 10001;
constexpr int kHScrollBar = 10011;
constexpr int kVScrollBar = 10012;

using ButtonList = std::vector<std::pair<CRealButton*, int>>;
using Steps = std::function<void()>;

// The main window of the program for a scope.
class MainWindow : public FrameworkWindow
{
public:
    MainWindow();
    ~MainWindow();
};

// A dialog that makes its window without a resource, and runs the steps of the test from the modal loop.
class ScriptDialog : public CDialog
{
public:
    ScriptDialog() = default;
    ~ScriptDialog() override;

    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd) override;

    // Shows the dialog with these buttons and runs the steps one after the other; what one of them sends to
    // the queue is handled by the modal loop before the next. The last one has to end the loop, as does each
    // that fails fatally. Without steps the dialog is not expected to be shown.
    INT_PTR Run(const ButtonList& buttons, std::vector<Steps> stepList);
    INT_PTR Run(const ButtonList& buttons, Steps stepsInLoop);

    HWND View() const { return ::GetParent(m_hWnd); }
    HWND Frame() const { return ::GetParent(View()); }
    HWND Proxy(int index) const { return ::GetDlgItem(View(), kFirstProxy + index); }
    HWND HBar() const { return ::GetDlgItem(View(), kHScrollBar); }
    HWND VBar() const { return ::GetDlgItem(View(), kVScrollBar); }
    void Close() const { ::SendMessageW(Frame(), WM_CLOSE, 0, 0); }

    DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_MODALFRAME;
    CRect place = CRect(20, 20, 520, 520);
    bool createsWindow = true;
    int reapplyOffset = 0;
    UINT nTemplate = 0;
    Steps created; // runs when the dialog has its window and its controls

protected:
    void RunStepsLater();

    afx_msg LRESULT OnRunStep(WPARAM, LPARAM);
    afx_msg void OnTimer(UINT_PTR nId);

    DECLARE_MESSAGE_MAP()

private:
    std::vector<Steps> m_steps;
    std::size_t m_nextStep = 0;
};

// A dialog with some content and two buttons.
class StepDialog : public ScriptDialog
{
public:
    BOOL OnInitDialog() override;

    ButtonList BothButtons() { return {{&ok, IDOK}, {&cancel, IDCANCEL}}; }

    DWORD okStyle = WS_CHILD | WS_VISIBLE;
    CStatic content;
    CRealButton ok;
    CRealButton cancel;
    CallLog log;
    Steps whenOk; // runs from the handler of the button

protected:
    void OnOK() override
    {
        log.Write("OK");
        if (whenOk)
            whenOk();
    }

    void OnCancel() override { log.Write("Cancel"); }
};

CSize ClientSizeOf(HWND hWnd);

EdgeList ScreenPlaceOf(HWND hWnd);

// A scroll bar does not return from the press before the release has arrived.
void ClickAtOnce(POINT screen);

// Presses, moves and releases in one go: a window that is resized does not return from the press before.
void DragAtOnce(POINT from, POINT to);

// Where on the screen a window answers this to WM_NCHITTEST: the place closest to its upper right corner.
POINT FindHit(HWND hWnd, LRESULT hit);

// Presses a key, for the modal loop to handle.
void TypeKey(WORD virtualKey);
