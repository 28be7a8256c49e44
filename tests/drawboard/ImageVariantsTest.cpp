#include <vxdpi/DrawBoard.h>

#include "abi/FieldAccess.h"
#include "drawboard/BoardCalls.h"
#include "drawboard/BoardFields.h"
#include "resources/resource_ids.h"
#include "support/GdiPlusSession.h"
#include "support/HandleCount.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <vector>

// The board's own question for an image and the DPI that it was drawn for.
struct ImageQuery
{
    friend constexpr auto FieldsOf(ImageQuery);
};
template struct Reveal<ImageQuery, &CDrawBoard::GetImage>;

// The images that a board registers and the variants that it chooses. Without a board to draw on,
// DrawImageToBoard only loads.

namespace
{
using IdList = std::vector<UINT>;

constexpr UINT kImage = 7;
constexpr UINT kOtherImage = 8;
constexpr UINT kLargestDpi = (std::numeric_limits<UINT>::max)();
const IdList kNothing;

class ImageVariants : public testing::Test
{
protected:
    int Add(UINT dpi, UINT resourceId, UINT imageId = kImage)
    {
        return m_board.AddImageResource(imageId, dpi, resourceId, L"PNG");
    }

    void Add96And144()
    {
        Add(96, IDR_PNG_16);
        Add(144, IDR_PNG_24);
    }

    int Load(UINT imageId = kImage) { return m_board.DrawImageToBoard(imageId, CRect(0, 0, 1, 1)); }

    Gdiplus::Image* Ask(UINT* pChosenDpi, UINT imageId = kImage)
    {
        return (m_board.*std::get<0>(FieldsOf(ImageQuery())))(imageId, pChosenDpi);
    }

    // The resources that are looked up for an image that nothing was loaded of.
    IdList LookedUpAt(UINT dpi)
    {
        CDrawBoard fresh(m_board);
        fresh.SetDpi(dpi);
        const LookedUp lookedUp;
        fresh.DrawImageToBoard(kImage, CRect(0, 0, 1, 1));
        return lookedUp.Ids();
    }

    // The DPI of the variant chosen from ones whose resource ID is their place in the list, counted from 1.
    static UINT ChosenDpi(const std::vector<UINT>& dpis, UINT dpi)
    {
        CDrawBoard board;
        for (std::size_t i = 0; i < dpis.size(); ++i)
            board.AddImageResource(kImage, dpis[i], static_cast<UINT>(i + 1), L"VARIANT");
        board.SetDpi(dpi);
        const LookedUp lookedUp;
        board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1));
        return lookedUp.Ids().size() == 1 ? dpis.at(lookedUp.Ids().front() - 1) : kLargestDpi;
    }

    const GdiPlusSession m_gdiPlus;
    CDrawBoard m_board;
};

// Slow and obvious: the smallest at or above, else the largest.
UINT ModelDpi(const std::vector<UINT>& dpis, UINT dpi)
{
    UINT largest = 0;
    UINT smallestAbove = 0;
    bool isAbove = false;
    for (const UINT held : dpis)
    {
        largest = (std::max)(largest, held);
        if (held >= dpi && (!isAbove || held < smallestAbove))
        {
            isAbove = true;
            smallestAbove = held;
        }
    }
    return isAbove ? smallestAbove : largest;
}
} // namespace

TEST_F(ImageVariants, TheChosenDpiIsToldWhetherTheImageCanBeLoadedOrNot)
{
    constexpr UINT kNoResource = 54321;
    Add(96, IDR_PNG_16);
    Add(144, kNoResource);
    UINT chosen = 5;
    EXPECT_NE(Ask(&chosen), nullptr);
    EXPECT_EQ(chosen, 96u);
    EXPECT_EQ(Ask(nullptr), Ask(&chosen));
    m_board.SetDpi(120);
    EXPECT_EQ(Ask(&chosen), nullptr);
    EXPECT_EQ(chosen, 144u);
}

TEST_F(ImageVariants, NoDpiIsToldWithoutAVariant)
{
    UINT chosen = 5;
    EXPECT_EQ(Ask(&chosen, kOtherImage), nullptr);
    FieldsOf(m_board).images[kImage];
    EXPECT_EQ(Ask(&chosen), nullptr);
    EXPECT_EQ(chosen, 5u);
}

TEST_F(ImageVariants, AFirstVariantIsAdded)
{
    EXPECT_EQ(Add(96, IDR_PNG_16), TRUE);
}

TEST_F(ImageVariants, VariantsForOtherDpisAreAdded)
{
    EXPECT_EQ(Add(96, IDR_PNG_16), TRUE);
    EXPECT_EQ(Add(144, IDR_PNG_24), TRUE);
    EXPECT_EQ(Add(0, IDR_PNG_15), TRUE);
    EXPECT_EQ(Add(kLargestDpi, IDR_PNG_32), TRUE);
}

TEST_F(ImageVariants, ASecondVariantForADpiIsRefused)
{
    Add(96, IDR_PNG_16);
    EXPECT_EQ(Add(96, IDR_PNG_24), FALSE);
    EXPECT_EQ(Add(144, IDR_PNG_24), TRUE);
    EXPECT_EQ(Add(144, IDR_PNG_24), FALSE);
}

TEST_F(ImageVariants, ARefusedVariantChangesNothing)
{
    Add(96, IDR_PNG_16);
    Add(96, IDR_PNG_24);
    EXPECT_EQ(LookedUpAt(96), (IdList{IDR_PNG_16}));
}

TEST_F(ImageVariants, ARefusedVariantLeavesTheLoadedImage)
{
    Add(96, IDR_PNG_16);
    Load();
    const LiveBitmaps live;
    const ImportSpy<decltype(Flat::GdipDisposeImage)> dispose(VxDpiModule(), "gdiplus.dll",
                                                              "GdipDisposeImage");
    const LookedUp lookedUp;
    Add(96, IDR_PNG_24);
    EXPECT_EQ(Load(), TRUE);
    EXPECT_EQ(lookedUp.Ids(), kNothing);
    EXPECT_EQ(dispose.CallCount(), 0);
}

TEST_F(ImageVariants, AnotherImageHasVariantsOfItsOwn)
{
    Add(96, IDR_PNG_16, kImage);
    EXPECT_EQ(Add(96, IDR_PNG_24, kOtherImage), TRUE);
    const LookedUp lookedUp;
    EXPECT_EQ(Load(kOtherImage), TRUE);
    EXPECT_EQ(Load(kImage), TRUE);
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_24, IDR_PNG_16}));
}

TEST_F(ImageVariants, AnyNumberNamesAnImage)
{
    for (const UINT imageId : {0u, 0x80000000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(Add(96, IDR_PNG_16, imageId), TRUE) << imageId;
        EXPECT_EQ(Add(96, IDR_PNG_16, imageId), FALSE) << imageId;
        EXPECT_EQ(Load(imageId), TRUE) << imageId;
    }
}

TEST_F(ImageVariants, AddingLoadsNothing)
{
    CallLog log;
    const ResourceCalls resourceCalls(log);
    Add96And144();
    EXPECT_EQ(log.Lines(), CallLog::LineList());
}

TEST_F(ImageVariants, AnUnknownImageIsNotDrawn)
{
    Add96And144();
    EXPECT_EQ(m_board.DrawImageToBoard(kOtherImage, CRect(0, 0, 1, 1)), FALSE);
    EXPECT_EQ(m_board.DrawImageToBoard(kOtherImage, CPoint(0, 0)), FALSE);
}

TEST_F(ImageVariants, AnEmptyBoardDrawsNoImage)
{
    EXPECT_EQ(m_board.DrawImageToBoard(0, CRect(0, 0, 1, 1)), FALSE);
    EXPECT_EQ(m_board.DrawImageToBoard(0, CPoint(0, 0)), FALSE);
}

TEST_F(ImageVariants, WithoutABoardAKnownImageCountsAsDrawn)
{
    Add96And144();
    EXPECT_EQ(m_board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1)), TRUE);
    EXPECT_EQ(m_board.DrawImageToBoard(kImage, CPoint(0, 0)), TRUE);
}

TEST_F(ImageVariants, AMissingResourceIsNotDrawn)
{
    Add(96, IDR_MISSING);
    EXPECT_EQ(m_board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1)), FALSE);
    EXPECT_EQ(m_board.DrawImageToBoard(kImage, CPoint(0, 0)), FALSE);
}

TEST_F(ImageVariants, AMissingResourceIsLookedForByEachDrawing)
{
    Add(96, IDR_MISSING);
    const LookedUp lookedUp;
    Load();
    Load();
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_MISSING, IDR_MISSING}));
}

TEST_F(ImageVariants, NoOtherVariantStandsInForOneThatIsMissing)
{
    Add(96, IDR_MISSING);
    Add(144, IDR_PNG_24);
    EXPECT_EQ(LookedUpAt(96), (IdList{IDR_MISSING}));
    EXPECT_EQ(Load(), FALSE);
}

TEST_F(ImageVariants, TheBoardStartsAt96Dpi)
{
    Add(72, IDR_PNG_15);
    Add96And144();
    const LookedUp lookedUp;
    Load();
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_16}));
}

TEST_F(ImageVariants, SetDpiReturnsTheDpiBefore)
{
    EXPECT_EQ(m_board.SetDpi(144), 96u);
    EXPECT_EQ(m_board.SetDpi(0), 144u);
    EXPECT_EQ(m_board.SetDpi(kLargestDpi), 0u);
    EXPECT_EQ(m_board.SetDpi(kLargestDpi), kLargestDpi);
}

TEST_F(ImageVariants, TheVariantForTheDpiIsChosen)
{
    Add96And144();
    EXPECT_EQ(LookedUpAt(96), (IdList{IDR_PNG_16}));
    EXPECT_EQ(LookedUpAt(144), (IdList{IDR_PNG_24}));
}

TEST_F(ImageVariants, ADpiInBetweenChoosesTheNextHigherVariant)
{
    Add96And144();
    EXPECT_EQ(LookedUpAt(120), (IdList{IDR_PNG_24}));
    EXPECT_EQ(LookedUpAt(97), (IdList{IDR_PNG_24}));
    EXPECT_EQ(LookedUpAt(143), (IdList{IDR_PNG_24}));
}

TEST_F(ImageVariants, ADpiAboveAllChoosesTheLargestVariant)
{
    Add96And144();
    EXPECT_EQ(LookedUpAt(145), (IdList{IDR_PNG_24}));
    EXPECT_EQ(LookedUpAt(192), (IdList{IDR_PNG_24}));
    EXPECT_EQ(LookedUpAt(kLargestDpi), (IdList{IDR_PNG_24}));
}

TEST_F(ImageVariants, ADpiBelowAllChoosesTheSmallestVariant)
{
    Add96And144();
    EXPECT_EQ(LookedUpAt(72), (IdList{IDR_PNG_16}));
    EXPECT_EQ(LookedUpAt(1), (IdList{IDR_PNG_16}));
    EXPECT_EQ(LookedUpAt(0), (IdList{IDR_PNG_16}));
}

TEST_F(ImageVariants, TheOrderOfAddingDoesNotMatter)
{
    Add(192, IDR_PNG_32);
    Add(96, IDR_PNG_16);
    Add(144, IDR_PNG_24);
    EXPECT_EQ(LookedUpAt(96), (IdList{IDR_PNG_16}));
    EXPECT_EQ(LookedUpAt(120), (IdList{IDR_PNG_24}));
    EXPECT_EQ(LookedUpAt(168), (IdList{IDR_PNG_32}));
    EXPECT_EQ(LookedUpAt(300), (IdList{IDR_PNG_32}));
}

TEST_F(ImageVariants, AnOnlyVariantIsAlwaysChosen)
{
    Add(120, IDR_PNG_16);
    for (const UINT dpi : {0u, 96u, 120u, 192u, kLargestDpi})
        EXPECT_EQ(LookedUpAt(dpi), (IdList{IDR_PNG_16})) << dpi;
}

TEST_F(ImageVariants, DpisAreComparedAsUnsignedNumbers)
{
    EXPECT_EQ(ChosenDpi({0x80000001, kLargestDpi}, 0), 0x80000001u);
    EXPECT_EQ(ChosenDpi({96, 0x80000000}, 97), 0x80000000u);
    EXPECT_EQ(ChosenDpi({96, 144}, 0xFFFFFFF0), 144u);
    EXPECT_EQ(ChosenDpi({0, 96}, 0), 0u);
}

TEST_F(ImageVariants, RandomSetsAgreeWithTheModel)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<UINT> anyDpi(0, 400);
    std::uniform_int_distribution<std::size_t> anyCount(1, 6);
    for (int round = 0; round < 2000; ++round)
    {
        std::vector<UINT> dpis(anyCount(random));
        for (UINT& dpi : dpis)
            dpi = anyDpi(random);
        const UINT dpi = anyDpi(random);
        ASSERT_EQ(ChosenDpi(dpis, dpi), ModelDpi(dpis, dpi)) << "round " << round;
    }
}

TEST_F(ImageVariants, ANewDpiTakesEffectWithTheNextDrawing)
{
    Add96And144();
    const LookedUp lookedUp;
    Load();
    m_board.SetDpi(144);
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_16}));
    Load();
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_16, IDR_PNG_24}));
}

TEST_F(ImageVariants, EachVariantIsLoadedOnceAndKept)
{
    Add96And144();
    const LookedUp lookedUp;
    for (const UINT dpi : {96u, 144u, 96u, 120u, 144u})
    {
        m_board.SetDpi(dpi);
        EXPECT_EQ(Load(), TRUE);
    }
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_16, IDR_PNG_24}));
}

TEST_F(ImageVariants, ALaterVariantLeavesLoadedOnes)
{
    Add(96, IDR_PNG_16);
    Load();
    const LookedUp lookedUp;
    Add(72, IDR_PNG_15);
    Add(144, IDR_PNG_24);
    Add(96, IDR_PNG_24, kOtherImage);
    Load();
    EXPECT_EQ(lookedUp.Ids(), kNothing);
    m_board.SetDpi(144);
    Load();
    EXPECT_EQ(lookedUp.Ids(), (IdList{IDR_PNG_24}));
}

TEST_F(ImageVariants, TheTypeBelongsToTheVariant)
{
    m_board.AddImageResource(kImage, 96, IDR_IMAGE_SHARED_ID, L"IMAGE");
    m_board.AddImageResource(kImage, 144, IDR_IMAGE_ONLY, L"PNG");
    EXPECT_EQ(Load(), TRUE);
    m_board.SetDpi(144);
    EXPECT_EQ(Load(), FALSE);
}

TEST_F(ImageVariants, ImagesGoWithTheBoard)
{
    const LiveBitmaps live;
    {
        CDrawBoard board;
        board.AddImageResource(kImage, 96, IDR_PNG_16, L"PNG");
        board.AddImageResource(kImage, 144, IDR_PNG_24, L"PNG");
        board.AddImageResource(kOtherImage, 96, IDR_PNG_32, L"PNG");
        for (const UINT dpi : {96u, 144u})
        {
            board.SetDpi(dpi);
            board.DrawImageToBoard(kImage, CRect(0, 0, 1, 1));
            board.DrawImageToBoard(kOtherImage, CPoint(0, 0));
        }
        EXPECT_EQ(live.Count(), 3u);
    }
    EXPECT_EQ(live.Count(), 0u);
}

TEST_F(ImageVariants, NothingIsLeftOfABoardWithImages)
{
    EXPECT_NO_LEAK(
        []
        {
            CDrawBoard board;
            for (UINT imageId = 0; imageId < 40; ++imageId)
            {
                board.AddImageResource(imageId, 96, IDR_PNG_16, L"PNG");
                board.AddImageResource(imageId, 144, IDR_PNG_24, L"PNG");
                board.AddImageResource(imageId, 144, IDR_PNG_24, L"PNG");
            }
            board.DrawImageToBoard(3, CRect(0, 0, 1, 1));
            board.DrawImageToBoard(4, CPoint(0, 0));
        });
}

TEST_F(ImageVariants, AreHeldInAscendingOrderOfTheirDpi)
{
    Add(192, IDR_PNG_32);
    Add(96, IDR_PNG_16);
    Add(144, IDR_PNG_24);
    auto& images = FieldsOf(m_board).images;
    ASSERT_EQ(images.size(), 1u);
    EXPECT_EQ(images.begin()->first, kImage);
    std::vector<std::vector<UINT>> held; // key, DPI, resource
    for (auto& [dpi, image] : FieldsOf(images.begin()->second).variants)
        held.push_back({dpi, FieldsOf(image).nDpi, FieldsOf(image).nResID});
    EXPECT_EQ(held, (std::vector<std::vector<UINT>>{
                        {96, 96, IDR_PNG_16}, {144, 144, IDR_PNG_24}, {192, 192, IDR_PNG_32}}));
}

TEST_F(ImageVariants, ImagesAreHeldByTheirNames)
{
    Add(96, IDR_PNG_16, 30);
    Add(96, IDR_PNG_16, 10);
    Add(144, IDR_PNG_24, 30);
    std::vector<UINT> names;
    for (const auto& [name, variants] : FieldsOf(m_board).images)
        names.push_back(name);
    EXPECT_EQ(names, (std::vector<UINT>{10, 30}));
}
