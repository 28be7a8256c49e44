#include "resource.h"

#include <vxdpi/VxDpi.h>

#include <dpi_images.h>

#include <memory>

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

    CDPIAwareListCtrl m_files;
    CRealButton m_ok;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        CDialog::DoDataExchange(pDX);
        DDX_Control(pDX, IDC_FILES, m_files);
        DDX_Control(pDX, IDOK, m_ok);
    }

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

CSize SizeOf(const CBitmap& bitmap)
{
    BITMAP description = {};
    ::GetObject(bitmap, sizeof description, &description);
    return CSize(description.bmWidth, description.bmHeight);
}

bool UseControls()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    dialog.m_files.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
    dialog.m_ok.EnableWindow(FALSE);
    return dialog.m_files.GetColumnWidth(0) == MulDiv(80, static_cast<int>(dialog.Dpi()), kBaseDpi) &&
           !dialog.m_ok.IsWindowEnabled();
}

bool UseDpi()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    const CGdiPlusInitializer secondStart;
    return dialog.Dpi() == ::GetDpiForWindow(dialog.m_hWnd) && VxSafeGetDpiForWindow(nullptr) == kBaseDpi &&
           secondStart.m_token != 0;
}

bool UseDrawBoard()
{
    CDrawBoard board;
    board.AddImageResource(1, 96, IDR_PICTURE_96, L"PNG");
    board.SetDrawBoardSize(CSize(16, 16));
    CClientDC dc(nullptr);
    return board.DrawImage(dc.m_hDC, CRect(0, 0, 32, 32),
                           [&board] { return board.DrawImageToBoard(1, CPoint(0, 0)); }) != FALSE;
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

    CDpiAwareBitmap bitmap;
    bitmap.AddResourceForDpi(96, IDB_PICTURE_96, {});
    const bool bLoaded = bitmap.LoadDpiAwareBitmap(96) != FALSE;

    CDpiAwareIcon icons;
    icons.AddResourceForDpi(96, IDI_PICTURE_96, {16, 32});
    const HICON hIcon = icons.CreateAwareIconSpecifyDpi(192);
    const bool bDestroyed = ::DestroyIcon(hIcon) != FALSE;
    return pBest != nullptr && pBest->nResourceId == IDR_PICTURE_192 && pBest->values.size() == 1 &&
           bLoaded && SizeOf(bitmap) == CSize(16, 16) && bDestroyed;
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

// The drawing that the package's CMake function has made resources of.
bool UseDpiImages()
{
    CDpiAwarePng picture;
    for (const auto& [nDpi, nResourceId] : dpi_images::kRedDot)
        picture.AddResourceForDpi(nDpi, nResourceId, {});
    const std::unique_ptr<Gdiplus::Bitmap> at96(picture.GetGdiplusBitmap(96));
    const std::unique_ptr<Gdiplus::Bitmap> at192(picture.GetGdiplusBitmap(192));
    Gdiplus::Color middle;
    return at96 != nullptr && at96->GetWidth() == 16 && at192 != nullptr && at192->GetWidth() == 32 &&
           at192->GetPixel(16, 16, &middle) == Gdiplus::Ok && middle.GetValue() == Gdiplus::Color::Red;
}

bool UsePng()
{
    CDpiAwarePng picture;
    picture.AddResourceForDpi(96, IDR_PICTURE_96, {});
    picture.AddResourceForDpi(192, IDR_PICTURE_192, {});
    Gdiplus::Size size;
    CBitmap bitmap;
    bitmap.Attach(picture.ScalePngResource(288, &size, Gdiplus::Color::Transparent));

    CDpiAwarePngSplit strip;
    strip.AddResourceForDpi(96, IDR_STRIP_96, {16});
    std::vector<HICON> icons = strip.CreatePngSplit(144, AfxGetResourceHandle(), FALSE);
    const bool bCut = !icons.empty();
    strip.DestroyIcons(icons);
    return SizeOf(bitmap) == CSize(48, 48) && size.Height == 48 && bCut && icons.empty();
}

bool UseScrollFrame()
{
    CSettingsDialog dialog;
    dialog.Create(IDD_SETTINGS);
    dialog.ShowWindow(SW_SHOWNOACTIVATE);
    CScrollManager scroller;
    const bool bCreated =
        scroller.Create(&dialog, CScrollManager::WindowScrollBars, nullptr, nullptr, FALSE) != FALSE;
    scroller.UpdateScrollBars(40, 30);
    const int nBefore = dialog.ButtonRect().left;
    scroller.StartHScroll(SB_LINERIGHT, 0, nullptr);
    return bCreated && dialog.ButtonRect().left == nBefore - 8;
}

struct Family
{
    const char* pszName;
    bool (*pfnUse)();
};

constexpr Family kFamilies[] = {{"Controls", UseControls},
                                {"DpiImages", UseDpiImages},
                                {"DrawBoard", UseDrawBoard},
                                {"Dpi", UseDpi},
                                {"Fonts", UseFonts},
                                {"Geometry", UseGeometry},
                                {"Images", UseImages},
                                {"Layout", UseLayout},
                                {"Png", UsePng},
                                {"ScrollFrame", UseScrollFrame}};

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
