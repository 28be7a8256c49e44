#include "StandIns.h"

#include <vxdpi/GdiPlus.h>

namespace
{
using Gdiplus::GpBitmap;
using Gdiplus::GpGraphics;
using Gdiplus::GpImage;
using Gdiplus::GpStatus;
namespace Flat = Gdiplus::DllExports;

constexpr int kWidthShift = 16;
constexpr std::uintptr_t kHeightMask = 0xFFFF;

GpBitmap* MakeImage(INT width, INT height)
{
    return AnyHandle<GpBitmap*>(static_cast<std::uintptr_t>(width) << kWidthShift |
                                static_cast<std::uintptr_t>(height));
}

/// Blocks for the objects that wrap those of GDI+. A block that was freed is the next to be used.
class Blocks
{
public:
    Blocks()
    {
        for (std::size_t i = 0; i < kCount; ++i)
            m_free[i] = m_blocks[i];
    }

    void* Take(std::size_t size)
    {
        return size <= kSize && m_freeCount > 0 ? m_free[--m_freeCount] : nullptr;
    }
    void Return(void* pBlock)
    {
        if (pBlock)
            m_free[m_freeCount++] = pBlock;
    }

private:
    static constexpr std::size_t kCount = 16;
    static constexpr std::size_t kSize = 128;

    alignas(std::max_align_t) BYTE m_blocks[kCount][kSize];
    void* m_free[kCount];
    std::size_t m_freeCount = kCount;
};

Blocks g_blocks;

void* WINGDIPAPI Allocate(std::size_t size)
{
    return g_blocks.Take(size);
}

void WINGDIPAPI Free(void* pBlock)
{
    g_blocks.Return(pBlock);
}

GpStatus WINGDIPAPI DecodeBitmap(IStream*, GpBitmap** ppBitmap)
{
    *ppBitmap = MakeImage(CurrentAnswers().picture.cx, CurrentAnswers().picture.cy);
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI CreateBitmap(INT width, INT height, INT, Gdiplus::PixelFormat, BYTE*, GpBitmap** ppBitmap)
{
    *ppBitmap = MakeImage(width, height);
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI GetWidth(GpImage* pImage, UINT* pWidth)
{
    *pWidth = static_cast<UINT>(reinterpret_cast<std::uintptr_t>(pImage) >> kWidthShift);
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI GetHeight(GpImage* pImage, UINT* pHeight)
{
    *pHeight = static_cast<UINT>(reinterpret_cast<std::uintptr_t>(pImage) & kHeightMask);
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI GetFormat(GpImage*, Gdiplus::PixelFormat* pFormat)
{
    *pFormat = PixelFormat32bppARGB;
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI GraphicsOfImage(GpImage*, GpGraphics** ppGraphics)
{
    *ppGraphics = AnyHandle<GpGraphics*>();
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI GraphicsOfContext(HDC, GpGraphics** ppGraphics)
{
    *ppGraphics = AnyHandle<GpGraphics*>();
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI LockPixels(GpBitmap*, const Gdiplus::Rect*, UINT, Gdiplus::PixelFormat format,
                               Gdiplus::BitmapData* pData)
{
    const int side = CurrentAnswers().lockedSide;
    pData->Width = static_cast<UINT>(side);
    pData->Height = static_cast<UINT>(side);
    pData->Stride = side * static_cast<int>(sizeof(DWORD));
    pData->PixelFormat = format;
    pData->Scan0 = StandInPixels();
    return Gdiplus::Ok;
}

GpStatus WINGDIPAPI MakeIcon(GpBitmap*, HICON* phIcon)
{
    *phIcon = AnyHandle<HICON>();
    return Gdiplus::Ok;
}
} // namespace

std::vector<StandIn> GdiPlusStandIns()
{
    return {
        MakeStandIn<decltype(Flat::GdipAlloc)>("GdipAlloc", Allocate),
        MakeStandIn<decltype(Flat::GdipFree)>("GdipFree", Free),
        MakeStandIn<decltype(Flat::GdipCreateBitmapFromStream)>("GdipCreateBitmapFromStream", DecodeBitmap),
        MakeStandIn<decltype(Flat::GdipCreateBitmapFromScan0)>("GdipCreateBitmapFromScan0", CreateBitmap),
        MakeStandIn<decltype(Flat::GdipGetImageWidth)>("GdipGetImageWidth", GetWidth),
        MakeStandIn<decltype(Flat::GdipGetImageHeight)>("GdipGetImageHeight", GetHeight),
        MakeStandIn<decltype(Flat::GdipGetImagePixelFormat)>("GdipGetImagePixelFormat", GetFormat),
        MakeStandIn<decltype(Flat::GdipGetImageGraphicsContext)>("GdipGetImageGraphicsContext",
                                                                 GraphicsOfImage),
        MakeStandIn<decltype(Flat::GdipCreateFromHDC)>("GdipCreateFromHDC", GraphicsOfContext),
        MakeStandIn<decltype(Flat::GdipBitmapLockBits)>("GdipBitmapLockBits", LockPixels),
        MakeStandIn<decltype(Flat::GdipCreateHICONFromBitmap)>("GdipCreateHICONFromBitmap", MakeIcon),
    };
}
