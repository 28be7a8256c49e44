#pragma once

#include "../GalleryPage.h"
#include "../IconFile.h"

#include <vxdpi/Images.h>

/// Shows icons of a set, resampled ones, and those of an icon file.
class CIconsPage : public CGalleryPage
{
public:
    explicit CIconsPage(const CGalleryStyle& style);

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;

private:
    void DrawSet(const CCanvas& canvas, const CRect& area);
    void DrawFile(const CCanvas& canvas, const CRect& area);
    void DrawFileIcon(const CCanvas& canvas, const CRect& row, int nIndex);

    CDpiAwareIcon m_calendar;
    CString m_file; // the program itself
    std::vector<IconSizes> m_fileIcons;
};
