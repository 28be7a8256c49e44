#include <vxdpi/Images.h>

#include <foundation/Guards.h>

HBITMAP ScaleBitmap(HBITMAP hBitmap, int cx, int cy)
{
    BITMAP bm = {};
    if (::GetObjectW(hBitmap, sizeof(BITMAP), &bm) == 0)
        return nullptr;

    const ScreenDc screen;
    UniqueBitmap scaled(::CreateCompatibleBitmap(screen.Get(), cx, cy));
    const UniqueMemoryDc sourceDc(::CreateCompatibleDC(screen.Get()));
    const UniqueMemoryDc targetDc(::CreateCompatibleDC(screen.Get()));
    const Selection source(sourceDc.get(), hBitmap);
    const Selection target(targetDc.get(), scaled.get());
    ::StretchBlt(targetDc.get(), 0, 0, cx, cy, sourceDc.get(), 0, 0, bm.bmWidth, bm.bmHeight, SRCCOPY);
    return scaled.release();
}
