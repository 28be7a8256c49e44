#include "Pages.h"

#include "pages/BitmapsPage.h"
#include "pages/DrawBoardPage.h"
#include "pages/FontsPage.h"
#include "pages/IconsPage.h"
#include "pages/LayoutPage.h"
#include "pages/MonitorPage.h"
#include "pages/PlacementPage.h"
#include "pages/PngPage.h"
#include "pages/StripsPage.h"

namespace
{
template<class Page>
std::unique_ptr<CGalleryPage> MakePage(const CGalleryStyle& style)
{
    return std::make_unique<Page>(style);
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
    };
    return pages;
}

int FindPage(const CString& name)
{
    if (name.IsEmpty())
        return 0;
    const std::vector<PageEntry>& pages = GalleryPages();
    for (size_t i = 0; i < pages.size(); ++i)
    {
        if (name.CompareNoCase(pages[i].pszName) == 0)
            return static_cast<int>(i);
    }
    return kNoPage;
}
