#include "imaging/VariantTable.h"

#include <vxdpi/Images.h>

#include <gtest/gtest.h>

#include <iterator>

TEST(ResourceRegistry, ChoosesAsTheGuidesTableSays)
{
    for (size_t set = 0; set < std::size(kDrawnDpis); ++set)
    {
        CDpiAwareRes registry;
        for (const UINT dpi : kDrawnDpis[set])
            registry.RegisterIconResource(dpi, 1, {});
        for (const VariantRow& row : kVariantTable)
        {
            registry.UpdateCurrentDpi(row.nDpi);
            const ResourceInfo* const best = registry.FindBestResource();
            ASSERT_NE(best, nullptr);
            EXPECT_EQ(best->nDpi, row.nChosenDpis[set]) << "set " << set << ", at " << row.nDpi << " DPI";
        }
    }
}
