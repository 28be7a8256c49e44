#include "Pages.h"

#include "pages/BitmapsPage.h"
#include "pages/ButtonsPage.h"
#include "pages/DrawBoardPage.h"
#include "pages/FontsPage.h"
#include "pages/IconsPage.h"
#include "pages/LayoutPage.h"
#include "pages/ListPage.h"
#include "pages/MonitorPage.h"
#include "pages/PlacementPage.h"
#include "pages/PngPage.h"
#include "pages/ScrollFramePage.h"
#include "pages/ScrollingPage.h"
#include "pages/StripsPage.h"

namespace
{
template<class Page>
std::unique_ptr<CGalleryPage> MakePage(const CGalleryStyle& style)
{
    return std::make_unique<Page>(style);
}

CString SceneName(const PageEntry& page, size_t nScene)
{
    CString name = page.pszName;
    if (nScene > 0)
        name = name + L", " + page.scenes[nScene - 1];
    return name;
}
} // namespace

const std::vector<PageEntry>& GalleryPages()
{
    static const std::vector<PageEntry> pages = {
        {L"Monitor", &MakePage<CMonitorPage>},
        {L"Fonts", &MakePage<CFontsPage>},
        {L"Bitmaps", &MakePage<CBitmapsPage>},
        {L"Icons", &MakePage<CIconsPage>},
        {L"PNG images", &MakePage<CPngPage>},
        {L"Strips", &MakePage<CStripsPage>},
        {L"Draw board", &MakePage<CDrawBoardPage>},
        {L"Layout", &MakePage<CLayoutPage>},
        {L"Window placement", &MakePage<CPlacementPage>},
        {L"List", &MakePage<CListPage>, {L"column dragged"}},
        {L"Buttons", &MakePage<CButtonsPage>, {L"played"}},
        {L"Scrolling", &MakePage<CScrollingPage>, {L"scrolled"}},
        {L"Scrolling frame",
         &MakePage<CScrollFramePage>,
         {L"played", L"opened", L"scrolled", L"resized", L"compared"}},
    };
    return pages;
}

PageScene FindScene(const CString& name)
{
    if (name.IsEmpty())
        return {0, 0};
    const std::vector<PageEntry>& pages = GalleryPages();
    for (size_t nPage = 0; nPage < pages.size(); ++nPage)
    {
        for (size_t nScene = 0; nScene <= pages[nPage].scenes.size(); ++nScene)
        {
            if (name.CompareNoCase(SceneName(pages[nPage], nScene)) == 0)
                return {static_cast<int>(nPage), static_cast<int>(nScene)};
        }
    }
    return {};
}

std::vector<CString> SceneNames()
{
    std::vector<CString> names;
    for (const PageEntry& page : GalleryPages())
    {
        for (size_t nScene = 0; nScene <= page.scenes.size(); ++nScene)
            names.push_back(SceneName(page, nScene));
    }
    return names;
}
