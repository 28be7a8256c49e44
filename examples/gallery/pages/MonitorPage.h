#pragma once

#include "../GalleryPage.h"

#include <vxdpi/Png.h>

/// Shows what the library and Windows tell about the monitor that the window is on.
class CMonitorPage : public CGalleryPage
{
public:
    explicit CMonitorPage(const CGalleryStyle& style);

    void OnMonitorsChanged() override;

protected:
    void DrawPage(const CCanvas& canvas, const CSize& size) override;

private:
    CDpiAwarePng m_illustration;
};
