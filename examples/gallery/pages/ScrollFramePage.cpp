#include "ScrollFramePage.h"

#include "../Capture.h"
#include "../ModalFilm.h"
#include "../PageGrid.h"
#include "../resource.h"
#include "Comparison.h"
#include "FrameParts.h"
#include "SettingsDialog.h"

#include <vxdpi/Geometry.h>

#include <iterator>

namespace
{
const CSize kDesignSize(600, 562);
constexpr int kStripTop = 98;
constexpr int kStripHeight = 26;
constexpr int kTop = 136; // of the pictures
constexpr int kGap = 10;
constexpr int kLineHeight = 17;
constexpr int kFootHeight = 2 * kLineHeight;

constexpr LPCTSTR kMoments[] = {L"Opened", L"Scrolled", L"Resized"};
constexpr int kColumns = static_cast<int>(std::size(kMoments));

// Scene 1 is the page after Play, the last one the comparison, those between are the pictures of the page.
constexpr int kFirstMomentScene = 2;
constexpr int kComparedScene = kFirstMomentScene + kColumns;

CString FormatSize(const CSize& size)
{
    CString text;
    text.Format(L"%d \u00D7 %d", size.cx, size.cy);
    return text;
}

// @return the size that the dialog has by itself.
CSize MeasureDialog()
{
    CSettingsDialog dialog;
    CRect rect(0, 0, 0, 0);
    if (dialog.Create(IDD_SETTINGS))
    {
        dialog.GetWindowRect(&rect);
        dialog.DestroyWindow();
    }
    return rect.Size();
}

CString CompareWithWorkArea(HWND hWindow)
{
    const CSize dialog = MeasureDialog();
    CRect workArea;
    ::GetCurrentScreenWorkArea(hWindow, workArea);
    const bool bFits = dialog.cx <= workArea.Width() && dialog.cy <= workArea.Height();
    return L"The dialog has " + FormatSize(dialog) + L" pixels, the work area of this monitor " +
           FormatSize(workArea.Size()) + (bFits ? L": it fits." : L": it does not fit.");
}

CString DescribeResult(LPCTSTR pszFunction, INT_PTR nResult)
{
    CString text;
    text.Format(L"%s returned %s.", pszFunction,
                nResult == IDOK       ? L"IDOK"
                : nResult == IDCANCEL ? L"IDCANCEL"
                                      : L"neither IDOK nor IDCANCEL");
    return text;
}

// Makes the frame of a dialog smaller or larger, by per cent.
void ResizeFrame(const CDialog& dialog, int nWidthPercent, int nHeightPercent)
{
    constexpr int kWhole = 100;
    const HWND hFrame = ::GetAncestor(dialog.m_hWnd, GA_ROOT);
    CRect rect;
    ::GetWindowRect(hFrame, &rect);
    ::SetWindowPos(hFrame, nullptr, 0, 0, ::MulDiv(rect.Width(), nWidthPercent, kWhole),
                   ::MulDiv(rect.Height(), nHeightPercent, kWhole), SWP_NOMOVE | SWP_NOZORDER);
}

// A desktop without anything on it.
class CBackdrop : public CWnd
{
public:
    BOOL CreateBackdrop(const CRect& monitor)
    {
        return CreateEx(WS_EX_TOOLWINDOW, ::AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW)), L"",
                        WS_POPUP | WS_VISIBLE, monitor, nullptr, 0);
    }

protected:
    afx_msg BOOL OnEraseBkgnd(CDC* pDC)
    {
        constexpr COLORREF kDesktopColor = RGB(100, 130, 160);
        CRect client;
        GetClientRect(&client);
        pDC->FillSolidRect(&client, kDesktopColor);
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBackdrop, CWnd)
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

CRect MonitorOf(HWND hWindow)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    ::GetMonitorInfo(::MonitorFromWindow(hWindow, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcMonitor;
}

void DrawPlaceholder(const CCanvas& canvas, const CRect& area)
{
    canvas.Panel(area, palette::kPanel, palette::kLine);
    canvas.Text(area, L"Press Play", TextRole::Body, palette::kMuted, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
}
} // namespace

BEGIN_MESSAGE_MAP(CScrollFramePage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CScrollFramePage::CScrollFramePage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize),
      m_tools({[this] { Play(); }, [this] { OpenDialog(); }, [this] { OpenFrame(); }})
{
}

int CScrollFramePage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    return m_tools.CreateStrip(this) ? 0 : -1;
}

void CScrollFramePage::UpdateDpi()
{
    m_tools.UpdateDpi(Style().Dpi());
    CGalleryPage::UpdateDpi();
}

void CScrollFramePage::ShowScene(int nScene)
{
    if (nScene == kComparedScene)
        Compare();
    else
        Play();
}

bool CScrollFramePage::SavePicture(int nScene, const CString& file)
{
    if (nScene < kFirstMomentScene)
        return CGalleryPage::SavePicture(nScene, file);
    if (nScene == kComparedScene)
        return SaveBitmapAsPng(m_comparison, file);
    const size_t nMoment = static_cast<size_t>(nScene - kFirstMomentScene);
    return nMoment < m_pictures.size() && m_pictures[nMoment] &&
           SaveBitmapAsPng(*m_pictures[nMoment].pBitmap, file);
}

void CScrollFramePage::Play()
{
    constexpr int kSameSize = 100;
    constexpr int kNarrower = 74;
    constexpr int kLower = 70;

    CSettingsDialog dialog;
    CModalFilm film(dialog, CModalFilm::View::Window);
    INT_PTR nResult = 0;
    const auto scroll = [&]
    {
        if (!CanScrollDown(dialog)) // a large monitor shows all of the dialog
            ResizeFrame(dialog, kSameSize, kLower);
        ScrollPageDown(dialog);
    };
    const auto resize = [&] { ResizeFrame(dialog, kNarrower, kLower); };
    const auto cancel = [&] { ClickButton(FindStandIn(dialog, dialog.CancelButton())); };
    m_pictures = film.Shoot(
        this, [&] { nResult = dialog.ShowInFrame(); }, {[] {}, scroll, resize}, cancel);
    m_result = DescribeResult(L"CreateScrollFrame", nResult);
    Redraw();
}

void CScrollFramePage::Compare()
{
    const CModalFilm::Action nothing = [] {};
    CBackdrop backdrop; // nothing but the dialog is to be seen
    backdrop.CreateBackdrop(MonitorOf(m_hWnd));

    CSettingsDialog dialog;
    const std::vector<Snapshot> byItself = CModalFilm(dialog, CModalFilm::View::Screen)
                                               .Shoot(
                                                   this, [&] { dialog.DoModal(); }, {nothing},
                                                   [&] { ClickButton(dialog.GetDlgItem(IDCANCEL)); });
    backdrop.BringWindowToTop();
    CSettingsDialog framed; // another one: a layout manager captures the designed places only once
    const std::vector<Snapshot> inFrame =
        CModalFilm(framed, CModalFilm::View::Screen)
            .Shoot(
                this, [&] { framed.ShowInFrame(); }, {nothing},
                [&] { ClickButton(FindStandIn(framed, framed.CancelButton())); });

    backdrop.DestroyWindow();
    m_comparison.DeleteObject();
    if (!byItself.empty() && !inFrame.empty())
        DrawComparison(Style(), byItself.front(), inFrame.front(), m_comparison);
}

void CScrollFramePage::OpenDialog()
{
    m_result = DescribeResult(L"DoModal", CSettingsDialog().DoModal());
    Redraw();
}

void CScrollFramePage::OpenFrame()
{
    m_result = DescribeResult(L"CreateScrollFrame", CSettingsDialog().ShowInFrame());
    Redraw();
}

void CScrollFramePage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    canvas.PageTitle(
        CRect(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kStripTop), L"Scrolling frame",
        L"CreateScrollFrame shows a dialog in a frame that is never larger than the work area. The "
        L"dialog scrolls; the buttons that matter stay.");

    const CRect row(grid::kMargin, kTop, size.cx - grid::kMargin,
                    size.cy - grid::kMargin - kFootHeight - kGap);
    for (int i = 0; i < kColumns; ++i)
    {
        const CRect column = grid::Column(row, kColumns, i);
        const CRect area(column.left, column.top + grid::kHeadingHeight + kGap, column.right, column.bottom);
        const size_t nPicture = static_cast<size_t>(i);
        const bool bTaken = nPicture < m_pictures.size();
        canvas.Heading(column, kMoments[i], bTaken ? FormatSize(m_pictures[nPicture].size) : CString());
        if (bTaken)
            DrawSnapshot(canvas, area, m_pictures[nPicture]);
        else
            DrawPlaceholder(canvas, area);
    }

    CRect line(row.left, row.bottom + kGap, row.right, row.bottom + kGap + kLineHeight);
    canvas.Text(line, CompareWithWorkArea(m_hWnd), TextRole::Body, palette::kMuted);
    line.OffsetRect(0, kLineHeight);
    canvas.Text(line, m_result, TextRole::Body, palette::kAccent);
}

void CScrollFramePage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CRect pixels(Style().ToPixels(grid::kMargin), Style().ToPixels(kStripTop),
                 Style().ToPixels(size.cx - grid::kMargin), Style().ToPixels(kStripTop + kStripHeight));
    pixels.OffsetRect(origin);
    m_tools.MoveWindow(&pixels);
}
