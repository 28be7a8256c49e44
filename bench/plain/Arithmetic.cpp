#include <foundation/GuardedScaling.h>
#include <imaging/VariantChoice.h>
#include <layout/Placement.h>
#include <scrollframe/ButtonBand.h>
#include <scrollframe/ScrollAxis.h>
#include <scrollframe/ViewPlaces.h>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace
{
struct Variant
{
    UINT nDpi;
};

/// Two locks and a choice, as for each picture that is drawn.
void Lookup(benchmark::State& state)
{
    constexpr UINT kFirstDpi = 96;
    std::vector<std::unique_ptr<Variant>> variants;
    std::vector<Variant*> entries;
    for (UINT i = 0; i < static_cast<UINT>(state.range(0)); ++i)
    {
        variants.push_back(std::make_unique<Variant>(Variant{kFirstDpi + i}));
        entries.push_back(variants.back().get());
    }
    std::mutex mutex;
    UINT nCurrentDpi = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            nCurrentDpi = kFirstDpi;
            benchmark::DoNotOptimize(nCurrentDpi);
        }
        const std::lock_guard<std::mutex> lock(mutex);
        benchmark::DoNotOptimize(VariantChoice::Choose(entries, nCurrentDpi));
    }
}

/// Where each of the controls goes, which are kept in a map as a manager keeps them.
void Layout(benchmark::State& state)
{
    constexpr float kScale = 1.5f;
    const RECT parent = {0, 0, 1200, 900};
    std::map<std::int64_t, Placement::Rule> rules;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        rules[i] = {{10, 20, 110, 44}, 15, 25, i % 2 == 0, i % 3 == 0, i % 5 == 0, i % 4 == 0, i % 7 == 0};
    for ([[maybe_unused]] auto turn : state)
    {
        for (const auto& [number, rule] : rules)
        {
            RECT rect = rule.base96;
            Placement::ApplySizePolicy(rect, parent, rule, kScale);
            Placement::ApplyAnchor(rect, parent, rule, kScale);
            benchmark::DoNotOptimize(rect);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Both axes, as when a window was resized.
void ScrollUpdate(benchmark::State& state)
{
    constexpr int kVisible = 400;
    int content = 1000;
    int position = 100;
    int page = 300;
    int maximum = 999;
    const ScrollAxis axis = {content, position, page, maximum};
    for ([[maybe_unused]] auto turn : state)
    {
        for (int i = 0; i < 2; ++i)
        {
            benchmark::DoNotOptimize(content); // measured anew
            benchmark::DoNotOptimize(maximum);
            TakeOver(axis, kVisible, true);
            benchmark::DoNotOptimize(NeedsBar(axis));
            benchmark::DoNotOptimize(Shift(axis, WayOf(axis, ScrollCommand::FollowThumb, 0, position)));
        }
    }
}

/// The buttons along the bottom, and what lies above them, as when the view of a large dialog was resized.
void ViewLayout(benchmark::State& state)
{
    constexpr LONG kGap = 8;
    constexpr LONG kMargin = 15;
    constexpr LONG kBarThickness = 30;
    RECT client = {0, 0, 1200, 900};
    SIZE button = {113, 34};
    for ([[maybe_unused]] auto turn : state)
    {
        benchmark::DoNotOptimize(client);
        ButtonBand band(client, kGap);
        for (std::int64_t i = 0; i < state.range(0); ++i)
        {
            benchmark::DoNotOptimize(button);
            benchmark::DoNotOptimize(band.Add(button));
        }
        const SIZE size = {client.right, client.bottom};
        benchmark::DoNotOptimize(PlacesIn(size, kMargin, kBarThickness, band.Height()));
    }
}

/// With the platform's part of it, a multiplication and a division.
void Scaling(benchmark::State& state)
{
    INT length = 16;
    UINT dpi = 144;
    UINT base = 96;
    for ([[maybe_unused]] auto turn : state)
    {
        benchmark::DoNotOptimize(length);
        benchmark::DoNotOptimize(dpi);
        benchmark::DoNotOptimize(base);
        benchmark::DoNotOptimize(GuardedScale(length, dpi, base));
    }
}
} // namespace

BENCHMARK(Lookup)->Arg(4)->Arg(64)->Arg(1024);
BENCHMARK(Layout)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(ScrollUpdate);
BENCHMARK(ViewLayout)->Arg(10);
BENCHMARK(Scaling);
