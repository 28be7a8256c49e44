#pragma once

/// Sides of the square images that the loops over pixels work on, in pixels of 4 bytes: the small ones fit
/// into the second cache, the large ones into none.
namespace Sides
{
constexpr int kSmall = 256;
constexpr int kLarge = 4096;

/// What growth is measured between. The first cache holds none of them.
struct Span
{
    int from;
    int to;
};

constexpr Span kCached = {128, 384};
constexpr Span kUncached = {kLarge, 12288};
} // namespace Sides
