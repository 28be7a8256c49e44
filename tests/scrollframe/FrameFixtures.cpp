#include "scrollframe/FrameFixtures.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
constexpr UINT kRunStep = WM_APP + 1;
constexpr UINT_PTR kStepTimer = 83;
constexpr UINT kTimeToArrive = 20;

struct EmptyTemplate
{
    DLGTEMPLATE head;
    WORD noMenuNoClassNoTitle[3];
};

// SendInput counts the screen from 0 to 65535; the middle of the pixel is meant.
LONG OfScreen(LONG pixel, int screenMetric)
{
    return ::MulDiv(2 * pixel + 1, 65536, 2 * ::GetSystemMetrics(screenMetric));
}

INPUT Button(DWORD flags)
{
    INPUT input = {};
    input.mi.dwFlags = flags;
    return input;
}

INPUT MoveTo(POINT screen)
{
    INPUT input = {};
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    input.mi.dx = OfScreen(screen.x, SM_CXSCREEN);
    input.mi.dy = OfScreen(screen.y, SM_CYSCREEN);
    return input;
}

void SendAndHandle(std::vector<INPUT> inputs)
{
    const UINT count = static_cast<UINT>(inputs.size());
    EXPECT_EQ(::SendInput(count, inputs.data(), sizeof inputs[0]), count);
    PumpMessages(kTimeToArrive);
}
}

MainWindow::MainWindow()
{
    AfxGetApp()->m_pMainWnd = Object();
}

MainWindow::~MainWindow()
{
    AfxGetApp()->m_pMainWnd = nullptr;
}

BEGIN_MESSAGE_MAP(ScriptDialog, CDialog)
    ON_MESSAGE(kRunStep, &ScriptDialog::OnRunStep)
    ON_WM_TIMER()
END_MESSAGE_MAP()

ScriptDialog::~ScriptDialog()
{
    DestroyWindow();
}

BOOL ScriptDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    nTemplate = nIDTemplate;
    const EmptyTemplate emptyTemplate = {{style, 0, 0, 0, 0, 100, 100}, {}};
    if (!createsWindow || !CreateIndirect(&emptyTemplate.head, pParentWnd))
        return FALSE;
    if (created)
        created();
    RunStepsLater();
    return TRUE;
}

INT_PTR ScriptDialog::Run(const ButtonList& buttons, std::vector<Steps> stepList)
{
    m_steps = std::move(stepList);
    m_nextStep = 0;
    return CreateScrollFrame(kScrolledTemplate, *this, buttons, reapplyOffset);
}

INT_PTR ScriptDialog::Run(const ButtonList& buttons, Steps stepsInLoop)
{
    return Run(buttons, stepsInLoop ? std::vector<Steps>{std::move(stepsInLoop)} : std::vector<Steps>());
}

void ScriptDialog::RunStepsLater()
{
    if (m_steps.size() == 1)
        PostMessage(kRunStep);
    else if (!m_steps.empty())
        SetTimer(kStepTimer, kTimeToArrive, nullptr);
}

LRESULT ScriptDialog::OnRunStep(WPARAM, LPARAM)
{
    const Steps step = m_steps[m_nextStep++];
    step();
    if (testing::Test::HasFatalFailure() && m_hWnd)
        Close();
    return 0;
}

void ScriptDialog::OnTimer(UINT_PTR nId)
{
    if (nId != kStepTimer)
        return CDialog::OnTimer(nId);
    if (m_nextStep + 1 >= m_steps.size())
        KillTimer(kStepTimer);
    OnRunStep(0, 0);
}

BOOL StepDialog::OnInitDialog()
{
    ScriptDialog::OnInitDialog();
    SetWindowText(L"Settings");
    MoveWindow(place);
    content.Create(nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 450, 380), this);
    ok.Create(L"OK", okStyle, CRect(CPoint(10, 400), kScrolledButton), this, IDOK);
    cancel.Create(L"Cancel", WS_CHILD | WS_VISIBLE, CRect(CPoint(100, 400), kScrolledButton), this, IDCANCEL);
    return TRUE;
}

CSize ClientSizeOf(HWND hWnd)
{
    CRect client;
    ::GetClientRect(hWnd, &client);
    return client.Size();
}

EdgeList ScreenPlaceOf(HWND hWnd)
{
    CRect place;
    ::GetWindowRect(hWnd, &place);
    return Edges(place);
}

void ClickAtOnce(POINT screen)
{
    SendAndHandle({MoveTo(screen), Button(MOUSEEVENTF_LEFTDOWN), Button(MOUSEEVENTF_LEFTUP)});
}

void DragAtOnce(POINT from, POINT to)
{
    SendAndHandle({MoveTo(from), Button(MOUSEEVENTF_LEFTDOWN),
                   MoveTo({(from.x + to.x) / 2, (from.y + to.y) / 2}), MoveTo(to),
                   Button(MOUSEEVENTF_LEFTUP)});
}

POINT FindHit(HWND hWnd, LRESULT hit)
{
    CRect place;
    ::GetWindowRect(hWnd, &place);
    for (LONG y = place.top; y < place.bottom; ++y)
    {
        for (LONG x = place.right - 1; x >= place.left; --x)
        {
            if (::SendMessageW(hWnd, WM_NCHITTEST, 0, MAKELPARAM(x, y)) == hit)
                return {x, y};
        }
    }
    throw std::runtime_error("no such place");
}

void TypeKey(WORD virtualKey)
{
    INPUT inputs[2] = {};
    inputs[0].type = INPUT_KEYBOARD;
    inputs[0].ki.wVk = virtualKey;
    inputs[1] = inputs[0];
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    EXPECT_EQ(::SendInput(2, inputs, sizeof inputs[0]), 2u);
}
