#pragma once

#include "../GalleryPage.h"

/// Shows where saved windows come back: at their place, or in the middle where their title can't be reached.
class CPlacementPage : public CGalleryPage
{
public:
    explicit CPlacementPage(const CGalleryStyle& style);

    void OnMonitorsChanged() override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;
};
