#pragma once

#include "../GalleryPage.h"

/// Shows fonts that follow a DPI: all ways to make them, rotated ones, and what re-creation remembers.
class CFontsPage : public CGalleryPage
{
public:
    explicit CFontsPage(const CGalleryStyle& style);

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;

private:
    void DrawWays(const CCanvas& canvas, const CRect& area);
};
