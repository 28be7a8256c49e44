#include "Bounds.h"
#include "Sides.h"

#include <imaging/IconMask.h>
#include <png/ColorReplacement.h>
#include <png/DisabledEffect.h>
#include <png/Premultiplication.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace
{
enum class Alpha
{
    Icon,
    Random
};

constexpr DWORD kAlphaMask = 0xFF000000;
constexpr DWORD kColor = 0x00203040;

/// A disc with a soft edge: 38 % of the pixels are opaque, 9 % lie in the edge, the rest is transparent.
DWORD DiscAlpha(double x, double y)
{
    constexpr double kOpaqueRadius = 0.348; // of the image's side
    constexpr double kRadius = 0.387;
    constexpr int kAlphaShift = 24;
    constexpr double kOpaque = 255;
    const double opacity = (kRadius - std::hypot(x - 0.5, y - 0.5)) / (kRadius - kOpaqueRadius);
    const double alpha = std::clamp(opacity, 0.0, 1.0) * kOpaque;
    return static_cast<DWORD>(alpha) << kAlphaShift;
}

std::vector<DWORD> MakeIcon(std::int64_t side)
{
    std::mt19937 random(1);
    const double length = static_cast<double>(side);
    std::vector<DWORD> pixels;
    pixels.reserve(static_cast<std::size_t>(side * side));
    for (std::int64_t y = 0; y < side; ++y)
    {
        for (std::int64_t x = 0; x < side; ++x)
        {
            const DWORD alpha = DiscAlpha(static_cast<double>(x) / length, static_cast<double>(y) / length);
            pixels.push_back((static_cast<DWORD>(random()) & ~kAlphaMask) | alpha);
        }
    }
    return pixels;
}

std::vector<DWORD> MakeRandom(std::int64_t side)
{
    std::mt19937 random(1);
    std::vector<DWORD> pixels(static_cast<std::size_t>(side * side));
    std::generate(pixels.begin(), pixels.end(), std::ref(random));
    return pixels;
}

/// Made once for each size, so that all kernels work on memory that is touched already. No kernel's speed
/// depends on the colours that another one has left, and none changes an alpha.
std::vector<DWORD>& PixelsOf(std::int64_t side, Alpha alpha)
{
    static std::map<std::pair<std::int64_t, Alpha>, std::vector<DWORD>> s_images;
    std::vector<DWORD>& pixels = s_images[{side, alpha}];
    if (pixels.empty())
        pixels = alpha == Alpha::Icon ? MakeIcon(side) : MakeRandom(side);
    return pixels;
}

template<class Work>
void ForEachPass(benchmark::State& state, Alpha alpha, Work work)
{
    std::vector<DWORD>& pixels = PixelsOf(state.range(0), alpha);
    for ([[maybe_unused]] auto turn : state)
    {
        work(pixels.data(), pixels.size());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(pixels.size()));
}

void ReadWrite(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon, Bounds::Flip);
}

void Read(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon,
                [](const DWORD* pPixels, std::size_t count)
                { benchmark::DoNotOptimize(Bounds::Combine(pPixels, count)); });
}

void Premultiply(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon, Premultiplication::PremultiplyRun);
}

void PremultiplyPlain(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon, Premultiplication::PremultiplyRunPlain);
}

void PremultiplyRandom(benchmark::State& state)
{
    ForEachPass(state, Alpha::Random, Premultiplication::PremultiplyRun);
}

void PremultiplyRandomPlain(benchmark::State& state)
{
    ForEachPass(state, Alpha::Random, Premultiplication::PremultiplyRunPlain);
}

void Replace(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon,
                [](DWORD* pPixels, std::size_t count)
                { ColorReplacement::ReplaceInRun(pPixels, count, kColor); });
}

void ReplacePlain(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon,
                [](DWORD* pPixels, std::size_t count)
                { ColorReplacement::ReplaceInRunPlain(pPixels, count, kColor); });
}

void Disable(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon, DisabledEffect::GreyOutRun);
}

void DisablePlain(benchmark::State& state)
{
    ForEachPass(state, Alpha::Icon, DisabledEffect::GreyOutRunPlain);
}

template<class Pack>
void ForEachMask(benchmark::State& state, Pack pack)
{
    std::vector<BYTE> mask(IconMask::ByteCount(static_cast<std::size_t>(state.range(0) * state.range(0))));
    ForEachPass(state, Alpha::Icon,
                [&mask, pack](const DWORD* pPixels, std::size_t count)
                { pack(pPixels, count, mask.data()); });
}

void Mask(benchmark::State& state)
{
    ForEachMask(state, IconMask::Pack);
}

void MaskPlain(benchmark::State& state)
{
    ForEachMask(state, IconMask::PackPlain);
}

void AtBothSizes(benchmark::internal::Benchmark* pBenchmark)
{
    pBenchmark->Arg(Sides::kSmall)->Arg(Sides::kLarge);
}

void AtAllSizes(benchmark::internal::Benchmark* pBenchmark)
{
    pBenchmark->Arg(Sides::kCached.from)->Arg(Sides::kSmall)->Arg(Sides::kCached.to);
    pBenchmark->Arg(Sides::kUncached.from)->Arg(Sides::kUncached.to);
}
} // namespace

BENCHMARK(ReadWrite)->Apply(AtAllSizes);
BENCHMARK(Read)->Apply(AtAllSizes);
BENCHMARK(Premultiply)->Apply(AtAllSizes);
BENCHMARK(PremultiplyPlain)->Arg(Sides::kSmall);
BENCHMARK(PremultiplyRandom)->Apply(AtBothSizes);
BENCHMARK(PremultiplyRandomPlain)->Arg(Sides::kSmall);
BENCHMARK(Replace)->Apply(AtAllSizes);
BENCHMARK(ReplacePlain)->Arg(Sides::kSmall);
BENCHMARK(Disable)->Apply(AtAllSizes);
BENCHMARK(DisablePlain)->Arg(Sides::kSmall);
BENCHMARK(Mask)->Apply(AtAllSizes);
BENCHMARK(MaskPlain)->Arg(Sides::kSmall);
