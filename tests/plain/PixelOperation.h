#pragma once

#include <windef.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

using PixelList = std::vector<DWORD>;

// An operation that changes each pixel by itself, and how to test it whatever it does: runs of every length,
// at every place and at the end of their memory, and rows with gaps in either direction, against the change
// of one pixel written otherwise.
class PixelOperation
{
public:
    using Model = std::function<DWORD(DWORD)>;
    using Random = std::function<PixelList(std::size_t count, unsigned seed)>;
    using Run = std::function<void(DWORD* pPixels, std::size_t count)>;
    using Image = std::function<void(DWORD* pFirstRow, UINT width, UINT height, INT stride)>;

    PixelOperation(Model model, Random random, Run run, Image image)
        : m_model(std::move(model)), m_random(std::move(random)), m_run(std::move(run)),
          m_image(std::move(image))
    {
    }

    void ExpectRunsOfEveryLengthAgree() const
    {
        for (std::size_t count = 0; count <= kLongestRun; ++count)
        {
            PixelList pixels = m_random(count, static_cast<unsigned>(count));
            PixelList expected = Changed(pixels, 0, count);
            pixels.resize(count + 8, kUntouched);
            expected.resize(count + 8, kUntouched);
            m_run(pixels.data(), count);
            ASSERT_EQ(pixels, expected) << count;
        }
    }

    // The sanitizer sees what is read or written behind the end.
    void ExpectRunsToEndWithTheirMemory() const
    {
        for (std::size_t count = 1; count <= kLongestRun; ++count)
        {
            PixelList pixels = m_random(count, 1);
            pixels.shrink_to_fit();
            const PixelList expected = Changed(pixels, 0, count);
            m_run(pixels.data(), count);
            ASSERT_EQ(pixels, expected) << count;
        }
    }

    void ExpectUnalignedRunsAgree() const
    {
        const PixelList pixels = m_random(40, 5);
        for (std::size_t start = 0; start < 4; ++start)
        {
            PixelList changed = pixels;
            m_run(changed.data() + start, changed.size() - start);
            ASSERT_EQ(changed, Changed(pixels, start, pixels.size())) << start;
        }
    }

    void ExpectRowsOfEveryWidthAndStrideAgree() const
    {
        for (std::size_t width = 1; width <= kLongestRun; ++width)
        {
            for (const std::size_t gap : {std::size_t(0), std::size_t(1), std::size_t(3)})
            {
                ExpectRowsAgree(width, gap, false);
                ExpectRowsAgree(width, gap, true);
            }
        }
    }

private:
    static constexpr DWORD kUntouched = 0x40CDCDCD;
    static constexpr std::size_t kLongestRun = 80;
    static constexpr std::size_t kRows = 5;

    PixelList Changed(PixelList pixels, std::size_t first, std::size_t end) const
    {
        const auto begin = pixels.begin();
        std::transform(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end),
                       begin + static_cast<std::ptrdiff_t>(first), m_model);
        return pixels;
    }

    // What lies between the rows stays as it is.
    void ExpectRowsAgree(std::size_t width, std::size_t gap, bool bottomUp) const
    {
        const std::size_t pitch = width + gap;
        PixelList pixels = m_random(pitch * kRows, static_cast<unsigned>(width));
        PixelList expected = pixels;
        for (std::size_t row = 0; row < kRows; ++row)
            expected = Changed(std::move(expected), row * pitch, row * pitch + width);
        const INT stride = static_cast<INT>(pitch * sizeof(DWORD));
        DWORD* const pFirstRow = bottomUp ? pixels.data() + pitch * (kRows - 1) : pixels.data();
        m_image(pFirstRow, static_cast<UINT>(width), kRows, bottomUp ? -stride : stride);
        EXPECT_EQ(pixels, expected) << "width " << width << ", gap " << gap;
    }

    Model m_model;
    Random m_random;
    Run m_run;
    Image m_image;
};
