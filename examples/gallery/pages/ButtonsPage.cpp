#include "ButtonsPage.h"

#include "../ModalFilm.h"
#include "../PageGrid.h"
#include "FrameParts.h"
#include "MessageDialog.h"

namespace
{
const CSize kDesignSize(600, 562);
constexpr int kStripTop = 98;
constexpr int kStripHeight = 26;
constexpr int kTop = 136; // of the columns
constexpr int kColumns = 2;
constexpr int kGap = 10;
constexpr int kPictureHeight = 138;
constexpr int kLineHeight = 17;
constexpr int kRowHeight = kPictureHeight + 2 * kLineHeight + kGap;
constexpr int kRows = 2;

CRect Column(const CSize& page, int nIndex)
{
    const CRect row(grid::kMargin, kTop, page.cx - grid::kMargin, page.cy - grid::kMargin);
    return grid::Column(row, kColumns, nIndex);
}

CString DescribeButton(LPCTSTR pszWhich, const CWnd& button)
{
    CString text = pszWhich;
    text += button.IsWindowVisible() ? L": shown, " : L": hidden, ";
    text += button.IsWindowEnabled() ? L"enabled" : L"disabled";
    return text;
}

CString DescribeResult(INT_PTR nResult, int nSent)
{
    CString text;
    text.Format(L"Returned %s, OnOK ran %d time%s.", nResult == IDOK ? L"IDOK" : L"not IDOK", nSent,
                nSent == 1 ? L"" : L"s");
    return text;
}
} // namespace

BEGIN_MESSAGE_MAP(CButtonsPage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CButtonsPage::CButtonsPage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize), m_tools({[this] { Play(); }, [] { CMessageDialog().DoModal(); },
                                                 [] { CMessageDialog().ShowInFrame(); }})
{
}

int CButtonsPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    return m_tools.CreateStrip(this) ? 0 : -1;
}

void CButtonsPage::UpdateDpi()
{
    m_tools.UpdateDpi(Style().Dpi());
    CGalleryPage::UpdateDpi();
}

void CButtonsPage::ShowScene(int)
{
    Play();
}

void CButtonsPage::Play()
{
    m_byItself = PlayOnce([](CMessageDialog& dialog) { return dialog.DoModal(); });
    m_inFrame = PlayOnce([](CMessageDialog& dialog) { return dialog.ShowInFrame(); });
    Redraw();
}

CButtonsPage::Showing CButtonsPage::PlayOnce(const std::function<INT_PTR(CMessageDialog& dialog)>& show)
{
    CMessageDialog dialog;
    CModalFilm film(dialog, CModalFilm::View::Window);
    Showing showing;
    INT_PTR nResult = 0;
    const auto recordStates = [&]
    {
        const CWnd* const pStandIn = FindStandIn(dialog, dialog.SendButton());
        showing.states.push_back(DescribeButton(L"The button", dialog.SendButton()));
        showing.standInStates.push_back(pStandIn != nullptr ? DescribeButton(L"Its stand-in", *pStandIn)
                                                            : CString(L"No stand-in"));
    };
    const auto disable = [&]
    {
        ClickButton(dialog.ReadBox());
        recordStates();
    };
    const auto send = [&]
    {
        ClickButton(dialog.ReadBox());
        CWnd* const pStandIn = FindStandIn(dialog, dialog.SendButton());
        ClickButton(pStandIn != nullptr ? pStandIn : dialog.GetDlgItem(IDOK));
    };
    showing.pictures = film.Shoot(
        this, [&] { nResult = show(dialog); }, {recordStates, disable}, send);
    showing.result = DescribeResult(nResult, dialog.SentCount());
    return showing;
}

void CButtonsPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    canvas.PageTitle(
        CRect(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kStripTop), L"Buttons",
        L"In a scrolling frame another button stands in for a CRealButton, which is hidden but gets "
        L"the clicks. EnableWindow acts on the one that is seen.");
    canvas.Heading(Column(size, 0), L"In a dialog", L"DoModal");
    DrawShowing(canvas, Column(size, 0), m_byItself);
    canvas.Heading(Column(size, 1), L"In a scrolling frame", L"CreateScrollFrame");
    DrawShowing(canvas, Column(size, 1), m_inFrame);
}

void CButtonsPage::DrawShowing(const CCanvas& canvas, const CRect& column, const Showing& showing)
{
    CRect line(column.left, column.top + grid::kHeadingHeight + kGap, column.right, 0);
    for (size_t i = 0; i < kRows; ++i)
    {
        const CRect area(line.left, line.top, line.right, line.top + kPictureHeight);
        line.SetRect(area.left, area.bottom + 2, area.right, area.bottom + 2 + kLineHeight);
        if (i < showing.pictures.size())
        {
            DrawSnapshot(canvas, area, showing.pictures[i]);
            canvas.Text(line, showing.states[i], TextRole::Body, palette::kInk);
            line.OffsetRect(0, kLineHeight);
            canvas.Text(line, showing.standInStates[i], TextRole::Body, palette::kInk);
        }
        else
        {
            canvas.Panel(area, palette::kPanel, palette::kLine);
            canvas.Text(area, i == 0 ? L"Press Play: enabled" : L"Press Play: disabled", TextRole::Body,
                        palette::kMuted, DT_CENTER | DT_SINGLELINE | DT_VCENTER);
        }
        line.top = area.top + kRowHeight;
    }
    line.bottom = line.top + kLineHeight;
    canvas.Text(line, showing.result, TextRole::Body, palette::kAccent);
}

void CButtonsPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    CRect pixels(Style().ToPixels(grid::kMargin), Style().ToPixels(kStripTop),
                 Style().ToPixels(size.cx - grid::kMargin), Style().ToPixels(kStripTop + kStripHeight));
    pixels.OffsetRect(origin);
    m_tools.MoveWindow(&pixels);
}
