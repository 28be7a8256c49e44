#pragma once

#include "GalleryPage.h"

#include <memory>
#include <vector>

/// One entry of the gallery's list of pages.
struct PageEntry
{
    LPCTSTR pszName;
    std::unique_ptr<CGalleryPage> (*pfnCreate)(const CGalleryStyle& style);
};

/// @return every page in the order of the list; a new page is added here and nowhere else.
const std::vector<PageEntry>& GalleryPages();

constexpr int kNoPage = -1;

/// Finds a page by its name, whatever the case of the letters; no name means the first page.
/// @return its index in GalleryPages(), or kNoPage.
int FindPage(const CString& name);
