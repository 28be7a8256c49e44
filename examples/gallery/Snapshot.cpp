#include "Snapshot.h"

#include "Capture.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{
constexpr int kChannels = 4;
constexpr WORD kBitsPerPixel = 32;

// Rows of blue, green, red and an unused byte, from the top.
struct PixelGrid
{
    CSize size;
    std::vector<BYTE> bytes;

    explicit PixelGrid(const CSize& pixels)
        : size(pixels), bytes(static_cast<size_t>(pixels.cx) * static_cast<size_t>(pixels.cy) * kChannels)
    {
    }

    size_t Offset(int x, int y) const
    {
        return (static_cast<size_t>(y) * static_cast<size_t>(size.cx) + static_cast<size_t>(x)) * kChannels;
    }
};

// The pixels that one pixel of a smaller picture stands for, with the share of each.
struct Share
{
    int nFirst;
    std::vector<float> weights; // together 1
};

BITMAPINFO DescribeGrid(const CSize& size)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    return info;
}

PixelGrid ReadPixels(const CDC& dc, const Snapshot& snapshot)
{
    PixelGrid grid(snapshot.size);
    BITMAPINFO info = DescribeGrid(grid.size);
    ::GetDIBits(dc.GetSafeHdc(), static_cast<HBITMAP>(snapshot.pBitmap->GetSafeHandle()), 0,
                static_cast<UINT>(grid.size.cy), grid.bytes.data(), &info, DIB_RGB_COLORS);
    return grid;
}

std::vector<Share> ShareOut(int nSource, int nTarget)
{
    std::vector<Share> shares(static_cast<size_t>(nTarget));
    const float step = static_cast<float>(nSource) / static_cast<float>(nTarget);
    for (int i = 0; i < nTarget; ++i)
    {
        const float begin = static_cast<float>(i) * step;
        const float end = begin + step;
        Share& share = shares[static_cast<size_t>(i)];
        share.nFirst = static_cast<int>(begin);
        const int nLast = (std::min)(static_cast<int>(std::ceil(end)), nSource);
        for (int n = share.nFirst; n < nLast; ++n)
        {
            const float from = (std::max)(begin, static_cast<float>(n));
            const float to = (std::min)(end, static_cast<float>(n + 1));
            share.weights.push_back((to - from) / step);
        }
    }
    return shares;
}

float Average(const PixelGrid& grid, const Share& across, const Share& down, size_t nChannel)
{
    float sum = 0;
    for (size_t row = 0; row < down.weights.size(); ++row)
    {
        size_t nOffset = grid.Offset(across.nFirst, down.nFirst + static_cast<int>(row)) + nChannel;
        float line = 0;
        for (const float weight : across.weights)
        {
            line += weight * grid.bytes[nOffset];
            nOffset += kChannels;
        }
        sum += down.weights[row] * line;
    }
    return sum;
}

// Each pixel is the average of those that it stands for, so that thin lines get paler but do not vanish.
PixelGrid Shrink(const PixelGrid& source, const CSize& size)
{
    PixelGrid target(size);
    const std::vector<Share> across = ShareOut(source.size.cx, size.cx);
    const std::vector<Share> down = ShareOut(source.size.cy, size.cy);
    size_t nOffset = 0;
    for (const Share& row : down)
    {
        for (const Share& column : across)
        {
            for (size_t nChannel = 0; nChannel < kChannels; ++nChannel)
                target.bytes[nOffset + nChannel] =
                    static_cast<BYTE>(std::lround(Average(source, column, row, nChannel)));
            nOffset += kChannels;
        }
    }
    return target;
}

CSize FitInto(const CSize& size, const CSize& room)
{
    if (size.cx <= room.cx && size.cy <= room.cy)
        return size;
    const CSize atFullWidth(room.cx, ::MulDiv(size.cy, room.cx, size.cx));
    if (atFullWidth.cy <= room.cy)
        return atFullWidth;
    return CSize(::MulDiv(size.cx, room.cy, size.cy), room.cy);
}
} // namespace

Snapshot::operator bool() const
{
    return pBitmap != nullptr;
}

Snapshot TakeSnapshot(const CRect& area, const CRect& window)
{
    Snapshot snapshot;
    snapshot.size = area.Size();
    snapshot.window = window - area.TopLeft();
    auto pBitmap = std::make_shared<CBitmap>();
    if (CopyScreen(area, *pBitmap))
        snapshot.pBitmap = std::move(pBitmap);
    return snapshot;
}

void DrawSnapshot(const CCanvas& canvas, const CRect& area, const Snapshot& snapshot)
{
    const CRect pixels = canvas.ToPixels(area);
    const CSize size = FitInto(snapshot.size, pixels.Size());
    if (!snapshot || size.cx <= 0 || size.cy <= 0)
        return;

    const PixelGrid shrunk = Shrink(ReadPixels(canvas.Dc(), snapshot), size);
    const BITMAPINFO info = DescribeGrid(size);
    ::SetDIBitsToDevice(canvas.Dc().GetSafeHdc(), pixels.left, pixels.top, static_cast<DWORD>(size.cx),
                        static_cast<DWORD>(size.cy), 0, 0, 0, static_cast<UINT>(size.cy), shrunk.bytes.data(),
                        &info, DIB_RGB_COLORS);
}
