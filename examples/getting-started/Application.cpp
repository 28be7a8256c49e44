#include "resource.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/Fonts.h>
#include <vxdpi/Png.h>

// The smallest application that is right on every monitor: one window with a picture and a line of text.

namespace
{
// At 96 DPI.
constexpr int kMargin = 24;
constexpr int kPictureSize = 64;
constexpr LONG kFontHeight = -16;

constexpr UINT kBaseDpi = 96;

/// The window: a picture above its name.
class CPictureFrame : public CFrameWnd
{
public:
    CPictureFrame();

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnPaint();
    afx_msg LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void UpdateFont(UINT nDpi);

    CDpiAwarePng m_picture;
    CFontDPIAware m_font;
};

class CApplication : public CWinApp
{
public:
    BOOL InitInstance() override;
    int ExitInstance() override;
};

BEGIN_MESSAGE_MAP(CPictureFrame, CFrameWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(WM_DPICHANGED, &CPictureFrame::OnDpiChanged)
END_MESSAGE_MAP()

CPictureFrame::CPictureFrame()
{
    m_picture.AddResourceForDpi(96, IDR_COMPASS_96, {});
    m_picture.AddResourceForDpi(144, IDR_COMPASS_144, {});
    m_picture.AddResourceForDpi(192, IDR_COMPASS_192, {});
    m_font.InitFontSize(kFontHeight, 0, kBaseDpi);
}

int CPictureFrame::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CFrameWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    UpdateFont(VxSafeGetDpiForWindow(m_hWnd));
    return 0;
}

void CPictureFrame::OnPaint()
{
    CPaintDC dc(this);
    const UINT nDpi = VxSafeGetDpiForWindow(m_hWnd);
    const int nMargin = MulDiv(kMargin, static_cast<int>(nDpi), kBaseDpi);
    const int nSide = MulDiv(kPictureSize, static_cast<int>(nDpi), kBaseDpi);

    m_picture.DrawPngInDC(dc.m_hDC, nDpi, nMargin, nMargin, nSide, nSide, nullptr, nullptr);

    CFont* const pPreviousFont = dc.SelectObject(&m_font);
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(nMargin, 2 * nMargin + nSide, L"Compass");
    dc.SelectObject(pPreviousFont);
}

LRESULT CPictureFrame::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    UpdateFont(LOWORD(wParam));
    const CRect suggested(*reinterpret_cast<const RECT*>(lParam));
    SetWindowPos(nullptr, suggested.left, suggested.top, suggested.Width(), suggested.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Invalidate();
    return 0;
}

void CPictureFrame::UpdateFont(UINT nDpi)
{
    LOGFONT description = {};
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = CLEARTYPE_QUALITY;
    ::lstrcpyn(description.lfFaceName, L"Segoe UI", LF_FACESIZE);
    m_font.DeleteObject();
    m_font.CreateFontIndirect(&description, nDpi);
}

BOOL CApplication::InitInstance()
{
    CWinApp::InitInstance();
    if (!StartupGdiPlusByVxDpi())
        return FALSE;

    auto* const pFrame = new CPictureFrame; // deletes itself when its window is destroyed
    m_pMainWnd = pFrame;
    if (!pFrame->Create(nullptr, L"Getting started"))
        return FALSE;
    pFrame->ShowWindow(m_nCmdShow);
    return TRUE;
}

int CApplication::ExitInstance()
{
    ShutdownGdiPlusByVxDpi();
    return CWinApp::ExitInstance();
}
} // namespace

CApplication theApp;
