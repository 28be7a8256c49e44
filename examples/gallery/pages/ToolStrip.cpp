#include "ToolStrip.h"

#include "../Style.h"
#include "../resource.h"

BEGIN_MESSAGE_MAP(CToolStrip, CPageDialog)
    ON_WM_CTLCOLOR()
    ON_COMMAND(IDC_PLAY, &CToolStrip::OnPlay)
    ON_COMMAND(IDC_OPEN_DIALOG, &CToolStrip::OnOpenDialog)
    ON_COMMAND(IDC_OPEN_FRAME, &CToolStrip::OnOpenFrame)
END_MESSAGE_MAP()

CToolStrip::CToolStrip(Commands commands) : m_commands(std::move(commands)) {}

BOOL CToolStrip::CreateStrip(CWnd* pParent)
{
    return Create(IDD_TOOL_STRIP, pParent);
}

BOOL CToolStrip::OnInitDialog()
{
    m_background.CreateSolidBrush(palette::kPaper);
    return CPageDialog::OnInitDialog();
}

HBRUSH CToolStrip::OnCtlColor(CDC*, CWnd*, UINT)
{
    return static_cast<HBRUSH>(m_background.GetSafeHandle());
}

void CToolStrip::OnPlay()
{
    m_commands.play();
}

void CToolStrip::OnOpenDialog()
{
    m_commands.openDialog();
}

void CToolStrip::OnOpenFrame()
{
    m_commands.openFrame();
}
