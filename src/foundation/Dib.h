#pragma once

#include <afxwin.h>

/// Makes an uncompressed 32-bit DIB section without a file behind it.
/// @param width  device pixels.
/// @param height  device pixels; negative for rows that run from the top down.
/// @param ppBits  receives the pixels; null when there is no section.
/// @return the bitmap, which the caller frees with DeleteObject; null on failure.
[[nodiscard]] inline HBITMAP CreateDib32(HDC hdc, LONG width, LONG height, void** ppBits)
{
    constexpr WORD kBitsPerPixel = 32;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    info.bmiHeader.biCompression = BI_RGB;
    return ::CreateDIBSection(hdc, &info, DIB_RGB_COLORS, ppBits, nullptr, 0);
}
