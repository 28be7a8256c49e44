#include "BenchWindows.h"
#include "Rows.h"
#include "Strip.h"
#include "WindowsByHand.h"

#include <vxdpi/ScrollFrame.h>

#include "long_strip_images.h"
#include "strip_images.h"

#include <memory>

namespace
{
using ByHand::StripStyle;

constexpr int kRounds = 51;
constexpr int kRoundsOfSlowRow = 21;

/// Points that work on objects of their own, one for each size.
template<class Subject, class Library, class ByHandWay>
std::vector<Growth::Point> MakePoints(std::vector<std::pair<int, std::shared_ptr<Subject>>> subjects,
                                      Library library, ByHandWay byHand)
{
    std::vector<Growth::Point> points;
    for (const auto& [size, pSubject] : subjects)
    {
        points.push_back({size, [library, pSubject = pSubject, size = size] { library(*pSubject, size); },
                          [byHand, pSubject = pSubject, size = size] { byHand(*pSubject, size); }});
    }
    return points;
}

void VisitStrips(const VisitGrowth& visit)
{
    constexpr int kCellSize = 16;
    std::vector<std::pair<int, std::shared_ptr<Strip>>> strips;
    for (const auto& [count, nId] : {std::pair<int, UINT>{5, IDR_STRIP_5_96},
                                     {10, IDR_STRIP_10_96},
                                     {20, IDR_STRIP_20_96},
                                     {40, IDR_STRIP_40_96}})
        strips.push_back({count, std::make_shared<Strip>(nId, kCellSize)});
    visit({"CreatePngSplit, 5 to 40 cells", kRounds,
           MakePoints(
               strips, [](Strip& strip, int) { strip.Split(FALSE); },
               [](Strip& strip, int) { strip.SplitByHand(StripStyle::Plain); })});
    visit({"CreatePngSplit, fixed, 5 to 40 cells", kRoundsOfSlowRow,
           MakePoints(
               strips, [](Strip& strip, int) { strip.Split(TRUE); },
               [](Strip& strip, int) { strip.SplitByHand(StripStyle::Fixed); })});
}

template<class Manager>
void VisitLayout(const VisitGrowth& visit, const char* pszName,
                 void (*byHand)(HWND, const std::vector<ByHand::Place>&))
{
    using Controls = LaidOut<Manager>;
    std::vector<std::pair<int, std::shared_ptr<Controls>>> controls;
    for (const int count : {10, 20, 50, 100})
        controls.push_back({count, std::make_shared<Controls>(count)});
    visit({pszName, kRounds,
           MakePoints(
               controls, [](Controls& all, int) { all.AdjustLayout(); },
               [byHand](Controls& all, int) { byHand(all.ParentHandle(), all.Places()); })});
}

void VisitColumns(const VisitGrowth& visit)
{
    std::vector<std::pair<int, std::shared_ptr<List>>> lists;
    for (const int count : {4, 8, 16, 32, 64})
        lists.push_back({count, std::make_shared<List>()});
    const auto byLibrary = [](List& list, int count)
    {
        list.InsertColumns(count);
        list.DeleteColumns();
    };
    const auto byHand = [](List& list, int count)
    {
        ByHand::InsertColumns(list.Handle(), count);
        list.DeleteColumns();
    };
    visit({"InsertColumn, 4 to 64 columns", kRoundsOfSlowRow, MakePoints(lists, byLibrary, byHand)});
}
} // namespace

void VisitGrowthRows(const VisitGrowth& visit)
{
    VisitStrips(visit);
    VisitLayout<CDpiLayoutManager>(visit, "CDpiLayoutManager, 10 to 100 controls, hidden",
                                   ByHand::PlaceOneByOne);
    VisitLayout<CScrollLayoutManager>(visit, "CScrollLayoutManager, 10 to 100 controls, hidden",
                                      ByHand::PlaceInBatch);
    VisitColumns(visit);
}
