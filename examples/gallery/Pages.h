#pragma once

#include "GalleryPage.h"

#include <memory>
#include <vector>

/// One entry of the gallery's list of pages.
struct PageEntry
{
    LPCTSTR pszName;
    std::unique_ptr<CGalleryPage> (*pfnCreate)(const CGalleryStyle& style);
    std::vector<LPCTSTR> scenes = {}; // what pictures can be taken of besides the page as it opens
};

/// @return every page in the order of the list; a new page is added here and nowhere else.
const std::vector<PageEntry>& GalleryPages();

constexpr int kNoPage = -1;

/// A page, and what it shows.
struct PageScene
{
    int nPage = kNoPage; // index in GalleryPages()
    int nScene = 0;      // 0: the page as it opens; else one of its scenes, counted from 1
};

/// Finds a page by its name, or one of its scenes by both names with a comma between, such as
/// "List, column dragged". Upper and lower case are the same; no name means the first page.
/// @return with kNoPage when there is none.
PageScene FindScene(const CString& name);

/// @return the names of all pages and scenes.
std::vector<CString> SceneNames();
