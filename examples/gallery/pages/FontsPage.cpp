#include "FontsPage.h"

#include "../PageGrid.h"

#include <vxdpi/Fonts.h>

#include <functional>
#include <iterator>

namespace
{
const CSize kDesignSize(600, 564);
constexpr UINT kBaseDpi = 96;
constexpr wchar_t kFaceName[] = L"Segoe UI";

constexpr int kWaysTop = 84;
constexpr int kWayHeight = 23;
constexpr int kRecreationTop = 284;
constexpr int kRecreationHeight = 40;
constexpr int kRotatedTop = 424;
constexpr int kStepCount = 5;
constexpr int kStepNameWidth = 140;

constexpr UINT kLeft = DT_LEFT | DT_SINGLELINE | DT_VCENTER;
constexpr UINT kCentred = DT_CENTER | DT_SINGLELINE | DT_VCENTER;
constexpr UINT kRight = DT_RIGHT | DT_SINGLELINE | DT_VCENTER;

// @return the height of a line in pixels.
LONG MeasureLine(CDC& dc, HFONT hFont)
{
    const CScopedSelection font(dc, hFont);
    TEXTMETRIC metrics = {};
    dc.GetTextMetrics(&metrics);
    return metrics.tmHeight;
}

// @return the height that the font was asked to have, in pixels; negative for that of the letters.
LONG AskedHeight(HFONT hFont)
{
    LOGFONT description = {};
    ::GetObject(hFont, sizeof description, &description);
    return description.lfHeight;
}

CString FormatNumber(LPCTSTR pszFormat, LONG number)
{
    CString text;
    text.Format(pszFormat, number);
    return text;
}

LOGFONT Describe(LONG height)
{
    LOGFONT description = {};
    description.lfHeight = height;
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = CLEARTYPE_QUALITY;
    ::lstrcpyn(description.lfFaceName, kFaceName, LF_FACESIZE);
    return description;
}

HFONT HandleOf(const CFont& font)
{
    return static_cast<HFONT>(font.GetSafeHandle());
}

// The columns of the table of ways, from the left.
struct WayColumns
{
    explicit WayColumns(const CRect& row) : sample(row), function(row), design(row), asked(row), measured(row)
    {
        constexpr int kSampleWidth = 104;
        constexpr int kDesignWidth = 88;
        constexpr int kNumberWidth = 66;
        measured.left = row.right - kNumberWidth;
        asked.right = measured.left;
        asked.left = asked.right - kNumberWidth;
        design.right = asked.left;
        design.left = design.right - kDesignWidth;
        sample.right = sample.left + kSampleWidth;
        function.left = sample.right;
        function.right = design.left;
    }

    CRect sample;
    CRect function;
    CRect design;
    CRect asked;
    CRect measured;
};

// Goes through the rows of a table and draws one way to make a font in each.
class WayTable
{
public:
    WayTable(const CCanvas& canvas, const CRect& area)
        : m_canvas(canvas), m_row(area.left, area.top, area.right, area.top + kWayHeight)
    {
    }

    void AddNames()
    {
        const WayColumns columns(m_row);
        DrawSmall(columns.sample, L"text", palette::kMuted, kLeft);
        DrawSmall(columns.function, L"made by", palette::kMuted, kLeft);
        DrawSmall(columns.design, L"designed as", palette::kMuted, kLeft);
        DrawSmall(columns.asked, L"lfHeight", palette::kMuted, kRight);
        DrawSmall(columns.measured, L"measured", palette::kMuted, kRight);
        m_row.OffsetRect(0, kWayHeight);
    }

    void Add(HFONT hFont, LPCTSTR pszFunction, LPCTSTR pszDesign, COLORREF color = palette::kInk)
    {
        const WayColumns columns(m_row);
        const CString asked = FormatNumber(L"%ld", AskedHeight(hFont));
        const CString measured = FormatNumber(L"%ld px", MeasureLine(m_canvas.Dc(), hFont));
        m_canvas.Text(columns.sample, L"Brown fox", hFont, color, kLeft);
        DrawSmall(columns.function, pszFunction, palette::kAccent, kLeft);
        DrawSmall(columns.design, pszDesign, palette::kMuted, kLeft);
        m_canvas.Text(columns.asked, asked, TextRole::Body, color, kRight);
        m_canvas.Text(columns.measured, measured, TextRole::Body, color, kRight);
        m_row.OffsetRect(0, kWayHeight);
    }

private:
    void DrawSmall(const CRect& area, LPCTSTR pszText, COLORREF color, UINT nFormat) const
    {
        m_canvas.Text(area, pszText, TextRole::Caption, color, nFormat);
    }

    const CCanvas& m_canvas;
    CRect m_row;
};

// The DPIs that a window goes through, one after the other.
constexpr UINT kVisitedDpis[kStepCount] = {96, 120, 144, 192, 96};
constexpr LONG kVisitorHeight = -11; // rounds at every one of these steps

CRect StepCell(const CRect& row, int nStep)
{
    const int width = row.Width() - kStepNameWidth;
    const int left = row.left + kStepNameWidth;
    return CRect(left + width * nStep / kStepCount, row.top, left + width * (nStep + 1) / kStepCount,
                 row.bottom);
}

// Draws a row: for each DPI a sample of the font that nextFont makes for it, and its measured height.
void DrawSteps(const CCanvas& canvas, const CRect& row, LPCTSTR pszName, LPCTSTR pszNote,
               const std::function<HFONT(int nStep)>& nextFont)
{
    constexpr int kSampleShare = 45; // per cent of a cell
    const int middle = row.top + row.Height() / 2;
    canvas.Text(CRect(row.left, row.top, row.right, middle), pszName, TextRole::Body, palette::kInk,
                DT_LEFT | DT_SINGLELINE | DT_BOTTOM);
    canvas.Text(CRect(row.left, middle, row.right, row.bottom), pszNote, TextRole::Caption, palette::kMuted,
                DT_LEFT | DT_SINGLELINE | DT_TOP);
    LONG firstHeight = 0;
    for (int nStep = 0; nStep < kStepCount; ++nStep)
    {
        const HFONT hFont = nextFont(nStep);
        const LONG height = MeasureLine(canvas.Dc(), hFont);
        if (nStep == 0)
            firstHeight = height;
        CRect sample = StepCell(row, nStep);
        CRect figure(sample);
        sample.right = sample.left + ::MulDiv(sample.Width(), kSampleShare, 100);
        figure.left = sample.right + 4;
        canvas.Text(sample, L"Ag", hFont, palette::kInk, kRight);
        COLORREF color = palette::kMuted;
        if (nStep == kStepCount - 1)
            color = height == firstHeight ? palette::kGood : palette::kBad;
        canvas.Text(figure, FormatNumber(L"%ld px", height), TextRole::Body, color, kLeft);
    }
}

void DrawStepNames(const CCanvas& canvas, const CRect& row)
{
    for (int nStep = 0; nStep < kStepCount; ++nStep)
    {
        CString name;
        name.Format(nStep == 0 ? L"%u DPI" : L"\u2192  %u DPI", kVisitedDpis[nStep]);
        canvas.Text(StepCell(row, nStep), name, TextRole::Caption, palette::kAccent, kCentred);
    }
}

void DrawRecreation(const CCanvas& canvas, const CRect& area)
{
    canvas.Heading(area, L"Made again at other DPIs, and back", L"measured height of a line");
    CRect row(area.left, area.top + grid::kHeadingHeight + 4, area.right, 0);
    row.bottom = row.top + kWayHeight;
    DrawStepNames(canvas, row);

    row.SetRect(row.left, row.bottom, row.right, row.bottom + kRecreationHeight);
    CFontDPIAware remembering;
    DrawSteps(canvas, row, L"CFontDPIAware", L"remembers its design",
              [&remembering](int nStep)
              {
                  LOGFONT description = Describe(kVisitorHeight);
                  remembering.DeleteObject();
                  remembering.CreateFontIndirect(&description, kVisitedDpis[nStep]);
                  return HandleOf(remembering);
              });

    row.OffsetRect(0, kRecreationHeight);
    CFont scaled;
    LOGFONT current = Describe(kVisitorHeight);
    DrawSteps(canvas, row, L"Scaling what is there", L"rounding adds up",
              [&](int nStep)
              {
                  if (nStep > 0)
                      current.lfHeight = ::MulDiv(current.lfHeight, static_cast<int>(kVisitedDpis[nStep]),
                                                  static_cast<int>(kVisitedDpis[nStep - 1]));
                  scaled.DeleteObject();
                  scaled.CreateFontIndirect(&current);
                  return HandleOf(scaled);
              });
}

// Draws a text around the middle of an area.
void DrawRotatedText(const CCanvas& canvas, const CRect& area, HFONT hFont)
{
    CDC& dc = canvas.Dc();
    const CScopedSelection font(dc, hFont);
    const CPoint middle = canvas.ToPixels(area).CenterPoint();
    const UINT nPreviousAlign = dc.SetTextAlign(TA_CENTER | TA_BASELINE);
    dc.SetTextColor(palette::kInk);
    dc.TextOut(middle.x, middle.y, L"Rotated");
    dc.SetTextAlign(nPreviousAlign);
}

void DrawRotated(const CCanvas& canvas, const CRect& area)
{
    constexpr int kDegrees[] = {0, 30, 60, 90, 330};
    constexpr int kCount = static_cast<int>(std::size(kDegrees));
    constexpr int kTenths = 10; // of a degree
    constexpr int kHeight = -15;
    constexpr int kTextHeight = 76;
    constexpr int kNameHeight = 20;

    canvas.Heading(area, L"Rotated", L"CFontDPIAware::CreateFontW");
    for (int i = 0; i < kCount; ++i)
    {
        const int nAngle = kDegrees[i] * kTenths;
        CFontDPIAware font;
        font.InitFontSize(kHeight, 0, kBaseDpi);
        font.CreateFont(canvas.Dpi(), kHeight, 0, nAngle, nAngle, FW_NORMAL, FALSE, FALSE, FALSE,
                        DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                        DEFAULT_PITCH, kFaceName);

        CRect cell = grid::Column(area, kCount, i);
        cell.top += grid::kHeadingHeight + 8;
        cell.bottom = cell.top + kTextHeight;
        DrawRotatedText(canvas, cell, HandleOf(font));
        cell.SetRect(cell.left, cell.bottom, cell.right, cell.bottom + kNameHeight);
        CString name;
        name.Format(L"%d\u00B0, %ld px", kDegrees[i], MeasureLine(canvas.Dc(), HandleOf(font)));
        canvas.Text(cell, name, TextRole::Caption, palette::kMuted, kCentred);
    }
}
} // namespace

CFontsPage::CFontsPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize) {}

void CFontsPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CRect area(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kWaysTop);
    canvas.PageTitle(area, L"Fonts",
                     L"Designed once, made for the DPI of the window, measured on this page.");
    area.SetRect(area.left, kWaysTop, area.right, kRecreationTop);
    DrawWays(canvas, area);
    area.SetRect(area.left, kRecreationTop, area.right, kRotatedTop);
    DrawRecreation(canvas, area);
    area.SetRect(area.left, kRotatedTop, area.right, size.cy);
    DrawRotated(canvas, area);
}

// Draws one text in fonts of one size, made in all ways that there are.
void CFontsPage::DrawWays(const CCanvas& canvas, const CRect& area)
{
    constexpr LONG kHeight = -16; // the same as 12 points
    constexpr int kPoints = 12;
    constexpr int kTenthsOfPoint = 120;
    const UINT nDpi = canvas.Dpi();
    CString note;
    note.Format(L"at %u DPI", nDpi);
    canvas.Heading(area, L"One size, made in every way", note);
    WayTable table(canvas, CRect(area.left, area.top + grid::kHeadingHeight + 2, area.right, area.bottom));
    table.AddNames();

    LOGFONT description = Describe(kHeight);
    CFontDPIAware indirect;
    indirect.InitFontSize(&description, kBaseDpi);
    indirect.CreateFontIndirect(&description, nDpi);
    table.Add(HandleOf(indirect), L"CFontDPIAware::CreateFontIndirectW", L"-16 at 96 DPI");

    CFontDPIAware direct;
    direct.InitFontSize(kHeight, 0, kBaseDpi);
    direct.CreateFont(nDpi, kHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                      OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, kFaceName);
    table.Add(HandleOf(direct), L"CFontDPIAware::CreateFontW", L"-16 at 96 DPI");

    CFontDPIAware points;
    points.CreatePointFont(nDpi, kTenthsOfPoint, kFaceName, &canvas.Dc());
    table.Add(HandleOf(points), L"CFontDPIAware::CreatePointFont", L"12.0 points");

    description = Describe(kHeight);
    CFont forWindow;
    forWindow.Attach(::CreateFontIndirect_DPIAware(&description, m_hWnd));
    table.Add(HandleOf(forWindow), L"CreateFontIndirect_DPIAware", L"-16 at 96 DPI");

    CFont pointsForWindow;
    pointsForWindow.Attach(::CreateFont_DPIAware(m_hWnd, kPoints, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                                 DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                                 CLEARTYPE_QUALITY, DEFAULT_PITCH, kFaceName));
    table.Add(HandleOf(pointsForWindow), L"CreateFont_DPIAware", L"12 points");

    description = Describe(kHeight);
    CFont unscaled;
    unscaled.CreateFontIndirect(&description);
    table.Add(HandleOf(unscaled), L"CFont, which follows no DPI", L"-16", palette::kMuted);
}
