#include "resource.h"

#include <vxdpi/VxDpi.h>

// Uses something of each family as an application does, and tells for each whether it worked: a line
// "ok <family>" or "failed <family>". The exit code is the number of those that failed.

namespace
{
constexpr UINT kBaseDpi = 96;

/// A dialog whose button stays in its corner.
class CSettingsDialog : public CDialog
{
public:
    CSettingsDialog() : m_layout(this) {}

    CRect ButtonRect()
    {
        CRect rc;
        GetDlgItem(IDOK)->GetWindowRect(&rc);
        ScreenToClient(&rc);
        return rc;
    }

    UINT Dpi() const { return VxSafeGetDpiForWindow(m_hWnd); }

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        m_layout.UpdateDpi(static_cast<int>(Dpi()));
        m_layout.AddControl(IDOK, ANCHOR_BOTTOMRIGHT, 0, FALSE);
        m_layout.AdjustLayout();
        return TRUE;
    }

    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        CDialog::OnSize(nType, cx, cy);
        if (GetDlgItem(IDOK) != nullptr)
            m_layout.AdjustLayout();
    }

    DECLARE_MESSAGE_MAP()

private:
    CDpiLayoutManager m_layout;
};

BEGIN_MESSAGE_MAP(CSettingsDialog, CDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()

void AddPicture(CDpiAwarePng& picture)
{
    picture.AddResourceForDpi(96, IDR_PICTURE_96, {});
    picture.AddResourceForDpi(192, IDR_PICTURE_192, {});
}

bool UseDpi()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    const CGdiPlusInitializer secondStart;
    return dialog.Dpi() == ::GetDpiForWindow(dialog.m_hWnd) && VxSafeGetDpiForWindow(nullptr) == kBaseDpi &&
           secondStart.m_token != 0;
}

bool UseFonts()
{
    CFontDPIAware font;
    font.InitFontSize(-12, 0, kBaseDpi);
    LOGFONT description = {};
    return font.CreateFontIndirect(&description, 144) && description.lfHeight == -18;
}

bool UseGeometry()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    CRect rcSaved(200, 100, 600, 400);
    CRect rcSame = rcSaved;
    CRect rcRestored;
    const bool bRestored = RestoreWindowPositionSafe(&dialog, rcSaved, rcSame) != FALSE;
    dialog.GetWindowRect(&rcRestored);
    return bRestored && rcRestored == rcSaved;
}

bool UseImages()
{
    CDpiAwareRes pictures;
    pictures.RegisterIconResource(96, IDR_PICTURE_96, {16, 20});
    pictures.RegisterIconResource(192, IDR_PICTURE_192, {32});
    pictures.UpdateCurrentDpi(144);
    const ResourceInfo* const pBest = pictures.FindBestResource();
    return pBest != nullptr && pBest->nResourceId == IDR_PICTURE_192 && pBest->values.size() == 1;
}

bool UseLayout()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    CRect rcDialog;
    dialog.GetWindowRect(&rcDialog);
    const CRect rcBefore = dialog.ButtonRect();
    dialog.SetWindowPos(nullptr, 0, 0, rcDialog.Width() + 60, rcDialog.Height() + 30,
                        SWP_NOMOVE | SWP_NOZORDER);
    return dialog.ButtonRect() == rcBefore + CPoint(60, 30);
}

bool UsePng()
{
    CDpiAwarePng picture;
    AddPicture(picture);
    Gdiplus::Size size;
    CBitmap bitmap;
    bitmap.Attach(picture.ScalePngResource(288, &size, Gdiplus::Color::Transparent));
    BITMAP description = {};
    return bitmap.GetBitmap(&description) != 0 && description.bmWidth == 48 && size.Height == 48;
}

struct Family
{
    const char* pszName;
    bool (*pfnUse)();
};

constexpr Family kFamilies[] = {{"Dpi", UseDpi},       {"Fonts", UseFonts},   {"Geometry", UseGeometry},
                                {"Images", UseImages}, {"Layout", UseLayout}, {"Png", UsePng}};

void PrintLine(const CStringA& line)
{
    const CStringA text = line + "\r\n";
    DWORD nWritten = 0;
    ::WriteFile(::GetStdHandle(STD_OUTPUT_HANDLE), text.GetString(), static_cast<DWORD>(text.GetLength()),
                &nWritten, nullptr);
}
} // namespace

class CConsumerApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CWinApp::InitInstance();
        StartupGdiPlusByVxDpi();
        for (const Family& family : kFamilies)
        {
            const bool bWorked = family.pfnUse();
            PrintLine(CStringA(bWorked ? "ok " : "failed ") + family.pszName);
            m_nFailed += bWorked ? 0 : 1;
        }
        return FALSE;
    }

    int ExitInstance() override
    {
        ShutdownGdiPlusByVxDpi();
        CWinApp::ExitInstance();
        return m_nFailed;
    }

private:
    int m_nFailed = 0;
};

CConsumerApp theApp;
