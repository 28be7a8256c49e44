#include "IconsPage.h"

#include "../PageGrid.h"
#include "../Pictures.h"
#include "../resource.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <type_traits>

namespace
{
const CSize kDesignSize(600, 564);
constexpr int kSetTop = 88;
constexpr int kFileTop = 314;
constexpr int kCaptionHeight = 16;

constexpr UINT kCentred = DT_CENTER | DT_SINGLELINE;
constexpr UINT kLeft = DT_LEFT | DT_SINGLELINE | DT_VCENTER;

struct DestroyIconHandle
{
    void operator()(HICON hIcon) const { ::DestroyIcon(hIcon); }
};
using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle>;

// The sizes that the calendar is drawn in, and the DPIs at which a small icon has them.
struct SetSize
{
    UINT nSize;
    UINT nDpi;
};

constexpr SetSize kSetSizes[] = {{16, 96}, {20, 120}, {24, 144}, {32, 192}, {40, 240}, {48, 288}, {64, 384}};
constexpr UINT kBaseDpi = 96;
constexpr UINT kLargestSetSize = 64;

constexpr int kAskedSizes[] = {16, 28, 100};

// Icons are looked at pixel by pixel, which takes larger ones at high DPIs.
// @return the side, in pixels of the page, of an icon's pixel.
int PixelZoom(const CCanvas& canvas)
{
    return (std::max)(1, static_cast<int>(canvas.Dpi() / kBaseDpi));
}

int SizeOfIcon(HICON hIcon)
{
    ICONINFO info = {};
    if (!::GetIconInfo(hIcon, &info))
        return 0;
    CBitmap color;
    CBitmap mask;
    color.Attach(info.hbmColor);
    mask.Attach(info.hbmMask);
    return SizeOfBitmap(color).cx;
}

// Draws an icon on the page's paper, each of its pixels as a square, around a point.
void DrawIconPixels(const CCanvas& canvas, HICON hIcon, const CPoint& middle)
{
    const int nSize = SizeOfIcon(hIcon);
    const CRect all(0, 0, nSize, nSize);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&canvas.Dc(), nSize, nSize);
    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&canvas.Dc());
    {
        const CScopedSelection selection(memoryDc, bitmap.GetSafeHandle());
        memoryDc.FillSolidRect(all, palette::kPaper);
        ::DrawIconEx(memoryDc, 0, 0, hIcon, nSize, nSize, 0, nullptr, DI_NORMAL);
    }
    const int nSide = nSize * PixelZoom(canvas);
    const CPoint center = canvas.PictureRect(middle, CSize(0, 0)).TopLeft();
    const CPoint corner(center.x - nSide / 2, center.y - nSide / 2);
    DrawPixels(canvas, bitmap, all, CRect(corner, CSize(nSide, nSide)));
}

CString FormatNumber(LPCTSTR pszFormat, int nNumber)
{
    CString text;
    text.Format(pszFormat, nNumber);
    return text;
}

// Goes through the columns of the set, which are as wide as their icons and share the rest of the row.
class SetColumns
{
public:
    explicit SetColumns(const CRect& row) : m_row(row), m_left(row.left), m_nGap(row.Width())
    {
        for (const SetSize& size : kSetSizes)
            m_nGap -= static_cast<int>(size.nSize);
        m_nGap /= static_cast<int>(std::size(kSetSizes));
    }

    CRect Next(const SetSize& size)
    {
        const CRect column(m_left, m_row.top, m_left + static_cast<int>(size.nSize) + m_nGap, m_row.bottom);
        m_left = column.right;
        return column;
    }

private:
    const CRect m_row;
    int m_left;
    int m_nGap;
};

// Draws a row: for each size of the set an icon that makeIcon makes.
void DrawSetRow(const CCanvas& canvas, const CRect& row, int nNameWidth, LPCTSTR pszName, LPCTSTR pszNote,
                const std::function<HICON(const SetSize&)>& makeIcon)
{
    const int middle = row.CenterPoint().y;
    CRect name(row.left, middle - kCaptionHeight, row.left + nNameWidth, middle);
    canvas.Text(name, pszName, TextRole::Caption, palette::kAccent, kLeft);
    name.OffsetRect(0, kCaptionHeight);
    canvas.Text(name, pszNote, TextRole::Caption, palette::kMuted, kLeft);

    SetColumns columns(CRect(name.right, row.top, row.right, row.bottom));
    for (const SetSize& size : kSetSizes)
    {
        const UniqueIcon icon(makeIcon(size));
        DrawIconPixels(canvas, icon.get(), columns.Next(size).CenterPoint());
    }
}

// Names the columns; that of the window's DPI stands out.
void DrawSetSizes(const CCanvas& canvas, const CRect& row)
{
    SetColumns columns(row);
    for (const SetSize& size : kSetSizes)
    {
        CRect name = columns.Next(size);
        const bool bHere = size.nDpi == canvas.Dpi();
        canvas.Text(name, FormatNumber(L"%d px", static_cast<int>(size.nSize)),
                    bHere ? TextRole::Heading : TextRole::Body, palette::kInk, kCentred);
        name.top += kCaptionHeight;
        canvas.Text(name, FormatNumber(L"%d DPI", static_cast<int>(size.nDpi)), TextRole::Caption,
                    bHere ? palette::kAccent : palette::kMuted, kCentred);
    }
}

CString JoinSizes(const IconSizes& sizes)
{
    CString text;
    for (const int nSize : sizes)
        text += FormatNumber(text.IsEmpty() ? L"%d" : L", %d", nSize);
    return text;
}

// The columns of the table of an icon file, from the left.
struct FileColumns
{
    explicit FileColumns(const CRect& row) : index(row), images(row), results(row)
    {
        constexpr int kIndexWidth = 44;
        constexpr int kImagesWidth = 200;
        index.right = index.left + kIndexWidth;
        images.left = index.right;
        images.right = images.left + kImagesWidth;
        results.left = images.right;
    }

    CRect Result(size_t nColumn) const
    {
        constexpr int kCount = static_cast<int>(std::size(kAskedSizes));
        const int nWidth = results.Width();
        const int n = static_cast<int>(nColumn);
        return CRect(results.left + nWidth * n / kCount, results.top,
                     results.left + nWidth * (n + 1) / kCount, results.bottom);
    }

    CRect index;
    CRect images;
    CRect results;
};

void DrawFileColumnNames(const CCanvas& canvas, const CRect& row)
{
    const FileColumns columns(row);
    canvas.Text(columns.index, L"index", TextRole::Caption, palette::kMuted, kLeft);
    canvas.Text(columns.images, L"its images", TextRole::Caption, palette::kMuted, kLeft);
    for (size_t i = 0; i < std::size(kAskedSizes); ++i)
    {
        canvas.Text(columns.Result(i), FormatNumber(L"asked for %d", kAskedSizes[i]), TextRole::Caption,
                    palette::kMuted, kCentred | DT_VCENTER);
    }
}

CString PathOfProgram()
{
    CString path;
    ::GetModuleFileName(nullptr, path.GetBuffer(MAX_PATH), MAX_PATH);
    path.ReleaseBuffer();
    return path;
}
} // namespace

CIconsPage::CIconsPage(const CGalleryStyle& style)
    : CGalleryPage(style, kDesignSize), m_file(PathOfProgram()), m_fileIcons(ListIcons(m_file))
{
    std::vector<UINT> sizes;
    for (const SetSize& size : kSetSizes)
        sizes.push_back(size.nSize);
    m_calendar.AddResourceForDpi(kBaseDpi, IDI_CALENDAR, sizes);
}

void CIconsPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CRect row(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kSetTop);
    canvas.PageTitle(row, L"Icons", L"Icons in the size that a monitor asks for, and where they come from.");
    row.SetRect(row.left, kSetTop, row.right, kFileTop);
    DrawSet(canvas, row);
    row.SetRect(row.left, kFileTop, row.right, size.cy);
    DrawFile(canvas, row);
}

void CIconsPage::DrawSet(const CCanvas& canvas, const CRect& area)
{
    constexpr int kNameWidth = 116;
    constexpr int kSizesHeight = 32;
    constexpr int kRowHeight = 76;

    canvas.Heading(area, L"A small icon at each DPI", L"pixel by pixel");
    CRect row(area.left, area.top + grid::kHeadingHeight + 6, area.right, 0);
    row.bottom = row.top + kSizesHeight;
    DrawSetSizes(canvas, CRect(row.left + kNameWidth, row.top, row.right, row.bottom));

    row.SetRect(row.left, row.bottom, row.right, row.bottom + kRowHeight);
    DrawSetRow(canvas, row, kNameWidth, L"CDpiAwareIcon", L"one image per size",
               [this](const SetSize& size) { return m_calendar.CreateAwareIconSpecifyDpi(size.nDpi); });
    row.OffsetRect(0, kRowHeight);
    DrawSetRow(canvas, row, kNameWidth, L"CreateScaledIcon", L"from the largest",
               [](const SetSize& size)
               { return CreateScaledIcon(size.nSize, IDI_CALENDAR, kLargestSetSize); });
}

void CIconsPage::DrawFile(const CCanvas& canvas, const CRect& area)
{
    constexpr int kNamesHeight = 22;
    constexpr int kRowHeight = 66;

    canvas.Heading(area, L"The icons of this program's file", L"LoadIconByTargetSizeFromFile");
    CRect row(area.left, area.top + grid::kHeadingHeight + 4, area.right, 0);
    row.bottom = row.top + kNamesHeight;
    DrawFileColumnNames(canvas, row);
    row.SetRect(row.left, row.bottom, row.right, row.bottom + kRowHeight);
    for (size_t i = 0; i < m_fileIcons.size(); ++i)
    {
        DrawFileIcon(canvas, row, static_cast<int>(i));
        row.OffsetRect(0, kRowHeight);
    }
}

void CIconsPage::DrawFileIcon(const CCanvas& canvas, const CRect& row, int nIndex)
{
    constexpr int kNumberRoom = 14; // half of what a number takes at the right of an icon
    constexpr int kLargestImage = 64;
    constexpr int kGap = 10;
    const FileColumns columns(row);
    canvas.Text(columns.index, FormatNumber(L"%d", nIndex), TextRole::Heading, palette::kInk, kLeft);
    canvas.Text(columns.images, JoinSizes(m_fileIcons[static_cast<size_t>(nIndex)]), TextRole::Caption,
                palette::kInk, kLeft);
    for (size_t i = 0; i < std::size(kAskedSizes); ++i)
    {
        const UniqueIcon icon(LoadIconByTargetSizeFromFile(m_file, nIndex, kAskedSizes[i]));
        const CRect column = columns.Result(i);
        const CPoint middle(column.CenterPoint().x - kNumberRoom, column.CenterPoint().y);
        DrawIconPixels(canvas, icon.get(), middle);
        const int nNumberLeft = middle.x + (std::min)(kAskedSizes[i], kLargestImage) / 2 + kGap;
        const CRect size(nNumberLeft, column.top, column.right, column.bottom);
        canvas.Text(size, FormatNumber(L"%d", SizeOfIcon(icon.get())), TextRole::Body, palette::kInk, kLeft);
    }
}
