#include "../imaging/VariantTable.h"

#include <imaging/VariantChoice.h>

#include <gtest/gtest.h>

#include <iterator>

namespace
{
struct Variant
{
    UINT nDpi;
};

UINT ChosenDpi(const std::vector<UINT>& drawnDpis, UINT nDpi)
{
    std::vector<Variant> variants;
    variants.reserve(drawnDpis.size());
    for (const UINT nDrawnDpi : drawnDpis)
        variants.push_back({nDrawnDpi});
    std::vector<Variant*> pointers;
    pointers.reserve(variants.size());
    for (Variant& variant : variants)
        pointers.push_back(&variant);
    const Variant* const pChosen = VariantChoice::Choose(pointers, nDpi);
    return pChosen ? pChosen->nDpi : 0;
}
} // namespace

TEST(VariantChoice, IsAsTheGuidesTableSays)
{
    for (std::size_t set = 0; set < std::size(kDrawnDpis); ++set)
    {
        for (const VariantRow& row : kVariantTable)
        {
            EXPECT_EQ(ChosenDpi(kDrawnDpis[set], row.nDpi), row.nChosenDpis[set])
                << "set " << set << ", at " << row.nDpi << " DPI";
        }
    }
}
