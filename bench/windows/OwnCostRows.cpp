#include "BenchWindows.h"
#include "PicturesByHand.h"
#include "Rows.h"
#include "Strip.h"
#include "WindowsByHand.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/Images.h>
#include <vxdpi/Png.h>
#include <vxdpi/ScrollFrame.h>

#include "strip_images.h"
#include "tile_images.h"

#include <cstdint>

namespace
{
using ByHand::StripStyle;

constexpr UINT kBase = 96;
constexpr UINT kScaled = 144;
constexpr int kBatch = 1000;
constexpr PlatformAnswers kTile = {{64, 64}, 0, 0};

/// No row's context is drawn into.
HDC AnyContext()
{
    return reinterpret_cast<HDC>(std::uintptr_t{0x20});
}

void VisitDrawing(const VisitOwnCost& visit)
{
    constexpr double kLimit = 300;
    const RECT rc96 = {0, 0, 96, 96};
    CDpiAwarePng tile;
    tile.AddResourceForDpi(kBase, IDR_TILE_96, {});
    visit({"DrawPngInDC, 64 px at 144 DPI", "call", 1, kLimit, 0, kTile,
           [&] { tile.DrawPngInDC(AnyContext(), kScaled, rc96, nullptr, nullptr); },
           [&] { ByHand::DrawPngInDC(AnyContext(), IDR_TILE_96, 96, rc96); }});
    visit({"DrawPngInMetaDC, 64 px at 144 DPI", "call", 1, kLimit, 0, kTile,
           [&] { tile.DrawPngInMetaDC(AnyContext(), kScaled, rc96, nullptr, nullptr); },
           [&] { ByHand::DrawPngInMetaDC(AnyContext(), IDR_TILE_96, 96, rc96); }});
}

/// The loops over pixels have rows of their own, and nothing to do here.
void VisitStrip(const VisitOwnCost& visit)
{
    constexpr int kCount = 20;
    constexpr int kCellSize = 16;
    constexpr double kLimit = 100;
    Strip strip(IDR_STRIP_20_96, kCellSize);
    visit({"CreatePngSplit, 20 x 16 px at 144 DPI",
           "cell",
           kCount,
           kLimit,
           1,
           {{kCount * kCellSize, kCellSize}, 0, 0},
           [&] { strip.Split(FALSE); },
           [&] { strip.SplitByHand(StripStyle::Plain); }});
}

void VisitPixels(const VisitOwnCost& visit)
{
    constexpr int kSide = 256;
    constexpr double kLimit = 0.25;
    CDpiAwarePng tile;
    tile.AddResourceForDpi(kBase, IDR_TILE_96, {});
    // The overload with a handle, for no other row lets it keep a factory.
    visit({"CreateScaledIcon, to 256 px",
           "pixel",
           kSide * kSide,
           kLimit,
           1,
           {},
           [] { ::DestroyIcon(CreateScaledIcon(kSide, reinterpret_cast<HICON>(std::uintptr_t{1}))); },
           nullptr});
    visit({"ReplaceColor, 256 px",
           "pixel",
           kSide * kSide,
           kLimit,
           1,
           {{kSide, kSide}, kSide, 0},
           [&] { delete tile.ReplaceColor(kBase, Gdiplus::Color(255, 20, 40, 60)); },
           nullptr});
}

void VisitQueries(const VisitOwnCost& visit)
{
    constexpr double kLimit = 3;
    const Frame frame;
    volatile UINT nAnswer = 0;
    const auto ask = [&](auto query, HWND hWnd)
    {
        for (int i = 0; i < kBatch; ++i)
            nAnswer = query(hWnd);
    };
    visit({"VxSafeGetDpiForWindow, of no window",
           "call",
           kBatch,
           kLimit,
           0,
           {},
           [&] { ask(VxSafeGetDpiForWindow, nullptr); },
           nullptr});
    visit({"VxSafeGetDpiForWindow, of a window",
           "call",
           kBatch,
           kLimit,
           0,
           {},
           [&] { ask(VxSafeGetDpiForWindow, frame.Handle()); },
           [&] { ask(ByHand::DpiOf, frame.Handle()); }});
}

template<class Manager>
void VisitLayout(const VisitOwnCost& visit, const char* pszName,
                 void (*byHand)(HWND, const std::vector<ByHand::Place>&))
{
    constexpr int kCount = 100;
    constexpr double kLimit = 20;
    LaidOut<Manager> controls(kCount);
    visit({pszName,
           "control",
           kCount,
           kLimit,
           0,
           {},
           [&] { controls.AdjustLayout(); },
           [&] { byHand(controls.ParentHandle(), controls.Places()); }});
}

void VisitScrolling(const VisitOwnCost& visit)
{
    constexpr int kCount = 100;
    constexpr double kLimit = 100 + 5 * kCount;
    constexpr int kPage = 400;
    Frame frame;
    CScrollManager manager;
    manager.Create(frame.Get(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0);
    visit({"UpdateScrollBars, 100 visible children",
           "call",
           1,
           kLimit,
           0,
           {{}, 0, kCount},
           [&] { manager.UpdateScrollBars(kPage, kPage); },
           [&] { ByHand::UpdateScrollBars(*frame.Get(), kPage, kPage); }});
}
} // namespace

void VisitOwnCostRows(const VisitOwnCost& visit)
{
    VisitDrawing(visit);
    VisitStrip(visit);
    VisitPixels(visit);
    VisitQueries(visit);
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 100 controls", ByHand::PlaceOneByOne);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 100 controls", ByHand::PlaceInBatch);
    VisitScrolling(visit);
}
