#include "Pictures.h"

CSize SizeOfBitmap(HBITMAP hBitmap)
{
    BITMAP bitmap = {};
    ::GetObject(hBitmap, sizeof bitmap, &bitmap);
    return CSize(bitmap.bmWidth, bitmap.bmHeight);
}

void DrawBitmap(const CCanvas& canvas, HBITMAP hBitmap, const CPoint& corner)
{
    const CRect part(CPoint(0, 0), SizeOfBitmap(hBitmap));
    const CPoint pixels = canvas.PictureRect(corner, CSize(0, 0)).TopLeft();
    DrawPixels(canvas, hBitmap, part, CRect(pixels, part.Size()));
}

void DrawPixels(const CCanvas& canvas, HBITMAP hBitmap, const CRect& part, const CRect& target)
{
    CDC& dc = canvas.Dc();
    CDC memoryDc;
    memoryDc.CreateCompatibleDC(&dc);
    const CScopedSelection selection(memoryDc, hBitmap);
    const int nPreviousMode = dc.SetStretchBltMode(COLORONCOLOR); // pixels become squares of one colour
    dc.StretchBlt(target.left, target.top, target.Width(), target.Height(), &memoryDc, part.left, part.top,
                  part.Width(), part.Height(), SRCCOPY);
    dc.SetStretchBltMode(nPreviousMode);
}
