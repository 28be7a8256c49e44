#include <vxdpi/Png.h>

#include "png/DrawingCalls.h"
#include "resources/resource_ids.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <memory>

// Pictures that an artist drew: the Tango library's icon for saving, 16 pixels for 96 DPI, 22 for 132 and 32
// for 192. The colours are read from the files.

namespace
{
constexpr std::uint32_t kWhite = 0xffffffff;
constexpr int kMargin = 4;

class TangoPicture : public testing::Test
{
protected:
    TangoPicture()
    {
        m_png.AddResourceForDpi(96, IDR_PNG_SAVE_16, {});
        m_png.AddResourceForDpi(132, IDR_PNG_SAVE_22, {});
        m_png.AddResourceForDpi(192, IDR_PNG_SAVE_32, {});
    }

    // Draws it as large as it is at this DPI.
    void Draw(UINT dpi, int side)
    {
        EXPECT_EQ(m_png.DrawPngInDC(m_target.Dc(), dpi, kMargin, kMargin, side, side, nullptr, &m_size),
                  TRUE);
    }

    // The same into a context that is consumed.
    void DrawMeta(UINT dpi, int side)
    {
        const RECT destination = {kMargin, kMargin, kMargin + side, kMargin + side};
        EXPECT_EQ(m_png.DrawPngInMetaDC(m_target.Dc(), dpi, destination, nullptr, &m_size), TRUE);
    }

    // A pixel of the drawn picture.
    std::uint32_t At(int x, int y) const { return m_target.At(kMargin + x, kMargin + y); }

    const GdiPlusSession m_gdiPlus;
    CDpiAwarePng m_png;
    Dib32 m_target{40, 40, kWhite};
    Gdiplus::Size m_size{0, 0};
};
} // namespace

TEST_F(TangoPicture, DecodesToThePixelsOfTheFile)
{
    const std::unique_ptr<Gdiplus::Bitmap> bitmap(m_png.GetGdiplusBitmap(192));
    ASSERT_NE(bitmap, nullptr);
    const ArgbImage pixels = PixelsOf(*bitmap);
    EXPECT_EQ(pixels.Width(), 32);
    EXPECT_EQ(pixels.Height(), 32);
    EXPECT_EQ(pixels.At(0, 0), 0x00000000u);
    EXPECT_EQ(pixels.At(8, 1), 0x36214c89u);
    EXPECT_EQ(pixels.At(13, 25), 0xffabababu);
}

TEST_F(TangoPicture, IsCopiedAt96FromTheOneDrawnFor96)
{
    Draw(96, 16);
    EXPECT_TRUE(IsSize(m_size, 16, 16));
    EXPECT_EQ(At(5, 3), 0xff6e99b6u);
    EXPECT_EQ(At(11, 5), 0xff38678bu);
    EXPECT_EQ(At(7, 12), 0xffc8c8c8u);
    EXPECT_TRUE(IsNear(At(0, 0), 0xffb8c4bd)); // 7c6c8577 over white
    EXPECT_EQ(At(12, 0), kWhite);
}

TEST_F(TangoPicture, IsShrunkAt120FromTheOneDrawnFor132)
{
    Draw(120, 20);
    EXPECT_TRUE(IsSize(m_size, 20, 20));
    EXPECT_TRUE(IsRoughly(At(10, 6), 0xff5892bd)); // within the arrow
    EXPECT_TRUE(IsRoughly(At(4, 12), 0xffe7e7e7)); // on the case
    EXPECT_EQ(At(0, 6), kWhite);
}

TEST_F(TangoPicture, IsShrunkAt144FromTheOneDrawnFor192)
{
    Draw(144, 24);
    EXPECT_TRUE(IsSize(m_size, 24, 24));
    EXPECT_TRUE(IsRoughly(At(10, 19), 0xffababab));
    EXPECT_TRUE(IsRoughly(At(5, 11), 0xffe5e5e5));
    EXPECT_EQ(At(1, 1), kWhite);
    EXPECT_EQ(At(0, 12), kWhite);
}

TEST_F(TangoPicture, IsCopiedAt192FromTheOneDrawnFor192)
{
    Draw(192, 32);
    EXPECT_TRUE(IsSize(m_size, 32, 32));
    EXPECT_EQ(At(13, 25), 0xffabababu);
    EXPECT_EQ(At(10, 10), 0xff1f4a87u);
    EXPECT_TRUE(IsNear(At(8, 1), 0xffd0d9e6));  // 36214c89 over white
    EXPECT_TRUE(IsNear(At(5, 30), 0xffbfbfbf)); // the shadow, a quarter black
    EXPECT_EQ(At(0, 0), kWhite);
}

TEST_F(TangoPicture, BlendsIntoConsumedContextsAt96)
{
    DrawMeta(96, 16);
    EXPECT_EQ(At(5, 3), 0xff6e99b6u);
    EXPECT_TRUE(IsNear(At(0, 0), 0xffb8c4bd));
    EXPECT_EQ(At(12, 0), kWhite);
}

TEST_F(TangoPicture, BlendsIntoConsumedContextsAt120)
{
    DrawMeta(120, 20);
    EXPECT_TRUE(IsRoughly(At(10, 6), 0xff5892bd));
    EXPECT_EQ(At(0, 6), kWhite);
}

TEST_F(TangoPicture, BlendsIntoConsumedContextsAt144)
{
    DrawMeta(144, 24);
    EXPECT_TRUE(IsRoughly(At(10, 19), 0xffababab));
    EXPECT_EQ(At(1, 1), kWhite);
}

TEST_F(TangoPicture, BlendsIntoConsumedContextsAt192)
{
    DrawMeta(192, 32);
    EXPECT_EQ(At(13, 25), 0xffabababu);
    EXPECT_TRUE(IsNear(At(5, 30), 0xffbfbfbf));
    EXPECT_EQ(At(0, 0), kWhite);
}

TEST_F(TangoPicture, BecomesABitmapOverTheBackgroundColour)
{
    Gdiplus::Size size(0, 0);
    HBITMAP bitmap = m_png.ScalePngResource(144, &size, Gdiplus::Color(255, 255, 255));
    ASSERT_NE(bitmap, nullptr);
    const ArgbImage pixels = PixelsOf(bitmap);
    m_png.SafeDeleteHBitmap(bitmap);
    EXPECT_TRUE(IsSize(size, 24, 24));
    EXPECT_TRUE(IsRoughly(pixels.At(10, 19), 0xffababab));
}

TEST_F(TangoPicture, RecoloursToASilhouetteWithItsOwnOpacity)
{
    const std::unique_ptr<Gdiplus::Bitmap> bitmap(m_png.ReplaceColor(192, Gdiplus::Color(255, 0, 0)));
    ASSERT_NE(bitmap, nullptr);
    const ArgbImage pixels = PixelsOf(*bitmap);
    EXPECT_EQ(pixels.At(13, 25), 0xffff0000u);
    EXPECT_EQ(pixels.At(8, 1), 0x36ff0000u);
    EXPECT_EQ(pixels.At(0, 0), 0x00000000u);
}
