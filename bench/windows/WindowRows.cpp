#include "BenchWindows.h"
#include "Rows.h"
#include "WindowsByHand.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/Fonts.h>
#include <vxdpi/ScrollFrame.h>

namespace
{
constexpr double kTarget = 1.02;
constexpr double kQueryTarget = 1.03;
constexpr double kFontTarget = 1.08;
constexpr int kRounds = 201;
constexpr int kBatch = 1000;
constexpr UINT kBase = 96;

template<class Manager>
void VisitLayout(const Visit& visit, const char* pszName, int count,
                 void (*byHand)(HWND, const std::vector<ByHand::Place>&))
{
    LaidOut<Manager> controls(count);
    visit({"9", pszName, kTarget, kRounds, 1, [&] { controls.AdjustLayout(); },
           [&] { byHand(controls.ParentHandle(), controls.Places()); }});
}

void VisitLayouts(const Visit& visit)
{
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 10 controls, hidden", 10,
                                   ByHand::PlaceOneByOne);
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 100 controls, hidden", 100,
                                   ByHand::PlaceOneByOne);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 10 controls, hidden", 10,
                                      ByHand::PlaceInBatch);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 100 controls, hidden", 100,
                                      ByHand::PlaceInBatch);
}

void VisitScrolling(const Visit& visit)
{
    constexpr int kPage = 400;
    Children children(100);
    CScrollManager manager;
    manager.Create(children.Parent(), CScrollManager::WindowScrollBars, nullptr, nullptr, 0);
    manager.UpdateScrollBars(kPage, kPage);
    visit({"10", "UpdateScrollBars, 100 visible children", kTarget, kRounds, 1,
           [&] { manager.UpdateScrollBars(kPage, kPage); },
           [&] { ByHand::UpdateScrollBars(*children.Parent(), kPage, kPage); }});
}

void VisitDpiQuery(const Visit& visit)
{
    const Frame frame;
    const HWND hWnd = frame.Handle();
    volatile UINT nAnswer = 0;
    const auto ask = [&](auto query)
    {
        for (int i = 0; i < kBatch; ++i)
            nAnswer = query(hWnd);
    };
    visit({"11", "VxSafeGetDpiForWindow", kQueryTarget, kRounds, kBatch, [&] { ask(VxSafeGetDpiForWindow); },
           [&] { ask(ByHand::DpiOf); }});
}

/// Each time at another DPI than before.
void VisitFonts(const Visit& visit)
{
    constexpr LONG kHeight = -12;
    constexpr UINT kDpis[] = {120, 144};
    constexpr UINT kDpiCount = 2;
    LOGFONTW logFont = {};
    logFont.lfHeight = kHeight;
    ::lstrcpynW(logFont.lfFaceName, L"Tahoma", LF_FACESIZE);
    CFontDPIAware aware;
    aware.InitFontSize(kHeight, 0, kBase);
    CFont plain;
    const auto byLibrary = [&]
    {
        for (UINT i = 0; i < kBatch; ++i)
        {
            aware.CreateFontIndirectW(&logFont, kDpis[i % kDpiCount]);
            aware.DeleteObject();
        }
    };
    const auto byHand = [&]
    {
        for (UINT i = 0; i < kBatch; ++i)
        {
            logFont.lfHeight = ::MulDiv(kHeight, static_cast<int>(kDpis[i % kDpiCount]), kBase);
            plain.Attach(::CreateFontIndirectW(&logFont));
            plain.DeleteObject();
        }
    };
    visit({"11", "CFontDPIAware at a new DPI", kFontTarget, kRounds, kBatch, byLibrary, byHand});
}

void VisitColumns(const Visit& visit)
{
    constexpr int kCount = 16;
    List list;
    const auto inserted = [&](auto insert)
    {
        insert();
        list.DeleteColumns();
    };
    visit({"12", "InsertColumn, 16 columns", kTarget, kRounds, 1,
           [&] { inserted([&] { list.InsertColumns(kCount); }); },
           [&] { inserted([&] { ByHand::InsertColumns(list.Handle(), kCount); }); }});

    list.InsertColumns(kCount);
    visit({"12", "change of DPI over 16 columns", kTarget, kRounds, 1, [&] { list.ChangeDpi(); },
           [&] { ByHand::SetColumnWidths(list.Handle(), kCount); }});
}
} // namespace

void VisitWindowRows(const Visit& visit)
{
    VisitLayouts(visit);
    VisitScrolling(visit);
    VisitDpiQuery(visit);
    VisitFonts(visit);
    VisitColumns(visit);
}
