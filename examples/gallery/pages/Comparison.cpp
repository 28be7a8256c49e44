#include "Comparison.h"

#include <algorithm>

namespace
{
constexpr COLORREF kBezelColor = RGB(30, 41, 59);

// In units of 1/96 inch.
constexpr int kMargin = 20;
constexpr int kColumnGap = 36;
constexpr int kHeaderHeight = 64;
constexpr int kCaptionTop = 32;
constexpr int kBezel = 10;
constexpr int kAround = 18; // of the screen beside a window

// What both columns have in common, in units.
struct Measures
{
    int nViewWidth; // of the part of the screen that is shown
    int nViewHeight;
    int nBeyond; // how much of the dialog lies below the screen

    int ColumnWidth() const { return nViewWidth + 2 * kBezel; }
    int Width() const { return 2 * kMargin + 2 * ColumnWidth() + kColumnGap; }
    int Height() const { return 2 * kMargin + kHeaderHeight + 2 * kBezel + nViewHeight + nBeyond; }
};

Measures Measure(const CGalleryStyle& style, const Snapshot& byItself, const Snapshot& inFrame)
{
    const CSize alone = style.ToUnits(byItself.window.Size());
    const CSize framed = style.ToUnits(inFrame.window.Size());
    const CSize screen = style.ToUnits(byItself.size);
    const CSize below = style.ToUnits(CSize(0, byItself.window.bottom - byItself.size.cy));
    return {(std::max)(alone.cx, framed.cx) + 2 * kAround, screen.cy, (std::max)(below.cy, LONG(0))};
}

// Copies the part of the screen around the window.
void DrawView(const CCanvas& canvas, const CRect& view, const Snapshot& snapshot)
{
    const CRect pixels = canvas.ToPixels(view);
    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&canvas.Dc());
    const CScopedSelection selected(memoryDc, snapshot.pBitmap->GetSafeHandle());
    const int left = snapshot.window.CenterPoint().x - pixels.Width() / 2;
    canvas.Dc().BitBlt(pixels.left, pixels.top, pixels.Width(), pixels.Height(), &memoryDc, left, 0, SRCCOPY);
}

// Draws where the dialog goes on below its monitor.
void DrawBeyond(const CCanvas& canvas, const CRect& view, const Snapshot& snapshot, int nBeyond)
{
    const int nHalf = canvas.Style().ToUnits(snapshot.window.Size()).cx / 2;
    const int nMiddle = view.CenterPoint().x;
    const CRect rest(nMiddle - nHalf, view.bottom + kBezel, nMiddle + nHalf, view.bottom + nBeyond);
    canvas.Fill(rest, palette::kBadPale);
    canvas.Frame(rest, palette::kBad);
    canvas.Text(rest, L"OK and Cancel are down here", TextRole::Heading, palette::kBad,
                DT_CENTER | DT_SINGLELINE | DT_VCENTER);
}

void DrawColumn(const CCanvas& canvas, const Measures& measures, int left, LPCTSTR pszTitle,
                LPCTSTR pszCaption, const Snapshot& snapshot)
{
    const CRect header(left, kMargin, left + measures.ColumnWidth(), kMargin + kHeaderHeight);
    canvas.Text(header, pszTitle, TextRole::Title, palette::kInk, DT_LEFT | DT_SINGLELINE);
    canvas.Text(CRect(header.left, header.top + kCaptionTop, header.right, header.bottom), pszCaption,
                TextRole::Heading, palette::kMuted, DT_LEFT | DT_SINGLELINE);

    CRect view(CPoint(left + kBezel, header.bottom + kBezel),
               CSize(measures.nViewWidth, measures.nViewHeight));
    if (snapshot.window.bottom > snapshot.size.cy)
        DrawBeyond(canvas, view, snapshot, measures.nBeyond);
    CRect monitor(view);
    monitor.InflateRect(kBezel, kBezel);
    canvas.Panel(monitor, kBezelColor, kBezelColor);
    DrawView(canvas, view, snapshot);
}
} // namespace

bool DrawComparison(const CGalleryStyle& style, const Snapshot& byItself, const Snapshot& inFrame,
                    CBitmap& bitmap)
{
    const Measures measures = Measure(style, byItself, inFrame);
    const CSize size = style.ToPixels(CSize(measures.Width(), measures.Height()));
    CClientDC screenDc(nullptr);
    CDC memoryDc;
    if (!byItself || !inFrame || !memoryDc.CreateCompatibleDC(&screenDc) ||
        !bitmap.CreateCompatibleBitmap(&screenDc, size.cx, size.cy))
        return false;

    const CScopedSelection selected(memoryDc, bitmap.GetSafeHandle());
    memoryDc.FillSolidRect(CRect(CPoint(0, 0), size), palette::kPaper);
    const CCanvas canvas(memoryDc, style);
    DrawColumn(canvas, measures, kMargin, L"CDialog::DoModal", L"The screen ends before the dialog does.",
               byItself);
    DrawColumn(canvas, measures, kMargin + measures.ColumnWidth() + kColumnGap, L"CreateScrollFrame",
               L"All of it can be reached, and the buttons stay.", inFrame);
    return true;
}
