#include "StripsPage.h"

#include "../PageGrid.h"
#include "../Pictures.h"
#include "../resource.h"

#include <tool_strip.h>

#include <functional>
#include <iterator>

namespace
{
const CSize kDesignSize(600, 564);
constexpr int kStripTop = 88;
constexpr int kCellsTop = 184;
constexpr int kToolbarTop = 348;
constexpr int kListTop = 436;
constexpr int kContentTop = 34; // below a section's top
constexpr int kToolbarHeight = 48;
constexpr int kListBottom = 20; // above the page's bottom
constexpr int kFrameWidth = 1;

constexpr UINT kBaseDpi = 96;
constexpr int kCellSize96 = 16;

struct Tool
{
    LPCTSTR pszName;
    LPCTSTR pszKeys;
    LPCTSTR pszMeaning;
    bool bEnabled;
};

constexpr Tool kTools[] = {
    {L"New", L"Ctrl+N", L"begins an empty document", true},
    {L"Open", L"Ctrl+O", L"reads a document from a file", true},
    {L"Save", L"Ctrl+S", L"writes what was changed", false},
    {L"Print", L"Ctrl+P", L"puts the document on paper", true},
    {L"Cut", L"Ctrl+X", L"moves the selection to the clipboard", false},
    {L"Copy", L"Ctrl+C", L"copies the selection to the clipboard", true},
    {L"Paste", L"Ctrl+V", L"inserts what the clipboard has", false},
    {L"Undo", L"Ctrl+Z", L"takes the last change back", true},
    {L"Redo", L"Ctrl+Y", L"makes it again", false},
    {L"Find", L"Ctrl+F", L"looks for a text", true},
};
constexpr int kToolCount = static_cast<int>(std::size(kTools));

struct ListColumn
{
    LPCTSTR pszName;
    int nWidth96;
};

constexpr ListColumn kColumns[] = {{L"Command", 120}, {L"Keys", 90}, {L"What it does", 280}};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));

CRect ContentOf(const CRect& section, int nHeight)
{
    return CRect(section.left, section.top + kContentTop, section.right, section.top + kContentTop + nHeight);
}

CRect ToolbarArea(const CSize& page)
{
    return ContentOf(CRect(grid::kMargin, kToolbarTop, page.cx - grid::kMargin, kListTop), kToolbarHeight);
}

CRect ListArea(const CSize& page)
{
    const CRect section(grid::kMargin, kListTop, page.cx - grid::kMargin, page.cy);
    return ContentOf(section, section.Height() - kContentTop - kListBottom);
}

// The cells of a row of the table, from the left.
CRect ToolCell(const CRect& row, int nNameWidth, int nTool)
{
    const int nLeft = row.left + nNameWidth;
    const int nWidth = row.right - nLeft;
    return CRect(nLeft + nWidth * nTool / kToolCount, row.top, nLeft + nWidth * (nTool + 1) / kToolCount,
                 row.bottom);
}

// @return the left top corner, in units, of a tool's picture in the middle of its cell.
CPoint CornerInCell(const CRect& cell)
{
    const CPoint middle = cell.CenterPoint();
    return CPoint(middle.x - kCellSize96 / 2, middle.y - kCellSize96 / 2);
}

constexpr int kNameWidth = 170;

void DrawRowName(const CCanvas& canvas, const CRect& row, LPCTSTR pszName, LPCTSTR pszNote)
{
    CRect name(row.left, row.top, row.left + kNameWidth, row.CenterPoint().y);
    canvas.Text(name, pszName, TextRole::Caption, palette::kAccent, DT_LEFT | DT_SINGLELINE | DT_BOTTOM);
    name.SetRect(name.left, name.bottom, name.right, row.bottom);
    canvas.Text(name, pszNote, TextRole::Caption, palette::kMuted, DT_LEFT | DT_SINGLELINE | DT_TOP);
}

// Makes a list of images, gives it to its users, and only then deletes the list that they had.
void ReplaceImages(CImageList& images, const std::vector<HICON>& icons, int nSize,
                   const std::function<void(CImageList*)>& giveToControls)
{
    CImageList replacement;
    replacement.Create(nSize, nSize, ILC_COLOR32, static_cast<int>(icons.size()), 0);
    for (const HICON hIcon : icons)
        replacement.Add(hIcon);
    giveToControls(&replacement);
    images.DeleteImageList();
    images.Attach(replacement.Detach());
}
} // namespace

BEGIN_MESSAGE_MAP(CStripsPage, CGalleryPage)
    ON_WM_CREATE()
END_MESSAGE_MAP()

CStripsPage::CStripsPage(const CGalleryStyle& style) : CGalleryPage(style, kDesignSize)
{
    for (const auto& [nDpi, nResourceId] : dpi_images::kToolStrip)
    {
        const UINT nCellSize = nDpi * kCellSize96 / kBaseDpi;
        m_tools.AddResourceForDpi(nDpi, nResourceId, {nCellSize});
    }
    AddVariants(m_wholeStrip, dpi_images::kToolStrip);
}

int CStripsPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1 || !CreateToolbar() || !CreateList())
        return -1;
    UpdateImages();
    UpdateFont();
    return 0;
}

bool CStripsPage::CreateToolbar()
{
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    if (!m_toolbar.Create(kStyle, CRect(0, 0, 0, 0), this, IDC_TOOLBAR))
        return false;
    m_toolbar.SetButtonStructSize(sizeof(TBBUTTON));
    TBBUTTON buttons[kToolCount] = {};
    for (int i = 0; i < kToolCount; ++i)
    {
        buttons[i].iBitmap = i;
        buttons[i].idCommand = i;
        buttons[i].fsState = kTools[i].bEnabled ? TBSTATE_ENABLED : 0;
        buttons[i].fsStyle = BTNS_BUTTON;
        buttons[i].iString = reinterpret_cast<INT_PTR>(kTools[i].pszName);
    }
    return m_toolbar.AddButtons(kToolCount, buttons) != FALSE;
}

bool CStripsPage::CreateList()
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHAREIMAGELISTS | LVS_SINGLESEL;
    if (!m_list.Create(kStyle, CRect(0, 0, 0, 0), this, IDC_TOOL_LIST))
        return false;
    for (int i = 0; i < kColumnCount; ++i)
        m_list.InsertColumn(i, kColumns[i].pszName);
    for (int i = 0; i < kToolCount; ++i)
    {
        m_list.InsertItem(i, kTools[i].pszName, i);
        m_list.SetItemText(i, 1, kTools[i].pszKeys);
        m_list.SetItemText(i, 2, kTools[i].pszMeaning);
    }
    return true;
}

void CStripsPage::UpdateDpi()
{
    UpdateImages();
    UpdateFont();
    CGalleryPage::UpdateDpi();
}

void CStripsPage::UpdateImages()
{
    const UINT nDpi = Style().Dpi();
    const int nSize = Style().ToPixels(kCellSize96);
    std::vector<HICON> icons = m_tools.CreatePngSplit(nDpi, ::AfxGetResourceHandle(), FALSE);
    ReplaceImages(m_images, icons, nSize,
                  [this](CImageList* pImages)
                  {
                      m_toolbar.SetImageList(pImages);
                      m_list.SetImageList(pImages, LVSIL_SMALL);
                  });
    m_tools.DestroyIcons(icons); // the list of images has copies

    icons = m_tools.CreateDisabledStylePngSplit(nDpi);
    ReplaceImages(m_disabledImages, icons, nSize,
                  [this](CImageList* pImages) { m_toolbar.SetDisabledImageList(pImages); });
    m_tools.DestroyIcons(icons);
}

// A font of their own: the page's are deleted before the controls could be given the next ones.
void CStripsPage::UpdateFont()
{
    LOGFONT description = {};
    ::GetObject(Style().Font(TextRole::Caption), sizeof description, &description);
    CFont replacement;
    replacement.CreateFontIndirect(&description);
    m_toolbar.SetFont(&replacement);
    m_list.SetFont(&replacement);
    m_font.DeleteObject();
    m_font.Attach(replacement.Detach());
}

void CStripsPage::PlaceChildren(const CSize& size, const CPoint& origin)
{
    constexpr int kButtonHeight = 44;
    const CRect toolbarArea = ToolbarArea(size);
    CRect toolbar = Style().ToPixels(toolbarArea);
    m_toolbar.SetButtonSize(CSize(toolbar.Width() / kToolCount, Style().ToPixels(kButtonHeight)));
    toolbar.OffsetRect(origin);
    m_toolbar.MoveWindow(&toolbar);

    CRect listArea = ListArea(size);
    listArea.DeflateRect(kFrameWidth, kFrameWidth);
    CRect list = Style().ToPixels(listArea);
    list.OffsetRect(origin);
    m_list.MoveWindow(&list);
    for (int i = 0; i < kColumnCount; ++i)
        m_list.SetColumnWidth(i, Style().ToPixels(kColumns[i].nWidth96));
}

void CStripsPage::DrawPage(const CCanvas& canvas, const CSize& size)
{
    CRect row(grid::kMargin, grid::kTitleTop, size.cx - grid::kMargin, kStripTop);
    canvas.PageTitle(row, L"Strips",
                     L"The pictures of a toolbar in one PNG resource per DPI, cut into icons or bitmaps.");
    row.SetRect(row.left, kStripTop, row.right, kCellsTop);
    DrawStrip(canvas, row);
    row.SetRect(row.left, kCellsTop, row.right, kToolbarTop);
    DrawCells(canvas, row);
    row.SetRect(row.left, kToolbarTop, row.right, kListTop);
    canvas.Heading(row, L"On a toolbar", L"a list of images, one of disabled ones");
    row.SetRect(row.left, kListTop, row.right, size.cy);
    canvas.Heading(row, L"In a list", L"the same list of images");
    canvas.Frame(ListArea(size), palette::kLine);
}

void CStripsPage::DrawStrip(const CCanvas& canvas, const CRect& area)
{
    constexpr int kZoom = 3;
    const UINT nDpi = canvas.Dpi();
    CString note;
    note.Format(L"for %u DPI, enlarged", nDpi);
    canvas.Heading(area, L"The strip", note);

    const COLORREF ground = palette::kPanel;
    HBITMAP hStrip = m_wholeStrip.ScalePngResource(
        nDpi, nullptr, Gdiplus::Color(GetRValue(ground), GetGValue(ground), GetBValue(ground)));
    const CSize size = SizeOfBitmap(hStrip);
    const CRect target(canvas.PictureRect(CPoint(area.left, area.top + kContentTop), CSize(0, 0)).TopLeft(),
                       CSize(size.cx * kZoom, size.cy * kZoom));
    DrawPixels(canvas, hStrip, CRect(CPoint(0, 0), size), target);
    m_wholeStrip.SafeDeleteHBitmap(hStrip);
    for (int i = 0; i < kToolCount; ++i)
    {
        const CPoint corner(area.left + i * kCellSize96 * kZoom, area.top + kContentTop);
        canvas.Frame(CRect(corner, CSize(kCellSize96 * kZoom + 1, kCellSize96 * kZoom + 1)), palette::kLine);
    }
}

void CStripsPage::DrawCells(const CCanvas& canvas, const CRect& area)
{
    constexpr int kRowHeight = 33;
    const UINT nDpi = canvas.Dpi();
    const HINSTANCE hModule = ::AfxGetResourceHandle();
    canvas.Heading(area, L"Its cells", L"at the DPI of the window");

    CRect row(area.left, area.top + grid::kHeadingHeight + 4, area.right, 0);
    row.bottom = row.top + kRowHeight;
    DrawIconRow(canvas, row, L"CreatePngSplit", L"icons", m_tools.CreatePngSplit(nDpi, hModule, FALSE));
    row.OffsetRect(0, kRowHeight);
    DrawIconRow(canvas, row, L"CreatePngSplit", L"icons made by GDI",
                m_tools.CreatePngSplit(nDpi, hModule, TRUE));
    row.OffsetRect(0, kRowHeight);
    DrawIconRow(canvas, row, L"CreateDisabledStylePngSplit", L"icons in light grey",
                m_tools.CreateDisabledStylePngSplit(nDpi));

    row.OffsetRect(0, kRowHeight);
    DrawRowName(canvas, row, L"CreatePngSplitBitmap", L"bitmaps over a colour");
    constexpr DWORD kGround = 0xFFDBEAFE; // ARGB
    const std::vector<HBITMAP> bitmaps = m_tools.CreatePngSplitBitmap(nDpi, hModule, kGround);
    for (size_t i = 0; i < bitmaps.size(); ++i)
    {
        DrawBitmap(canvas, bitmaps[i], CornerInCell(ToolCell(row, kNameWidth, static_cast<int>(i))));
        ::DeleteObject(bitmaps[i]);
    }
}

void CStripsPage::DrawIconRow(const CCanvas& canvas, const CRect& row, LPCTSTR pszName, LPCTSTR pszNote,
                              std::vector<HICON> icons)
{
    DrawRowName(canvas, row, pszName, pszNote);
    for (size_t i = 0; i < icons.size(); ++i)
    {
        const CRect place = canvas.PictureRect(CornerInCell(ToolCell(row, kNameWidth, static_cast<int>(i))),
                                               CSize(kCellSize96, kCellSize96));
        ::DrawIconEx(canvas.Dc(), place.left, place.top, icons[i], place.Width(), place.Height(), 0, nullptr,
                     DI_NORMAL);
    }
    m_tools.DestroyIcons(icons);
}
