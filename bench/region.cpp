// Dirty-region bookkeeping: a frame may unite or cut hundreds of small rectangles. The
// baseline only stores the same rectangles in a vector, which is the least any dirty list
// can cost; the ratio to it is what carries over between machines.
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "runtime/VyRegion.h"

namespace {

constexpr int kRects = 1000;
constexpr int kScreenW = 1920; // pixels
constexpr int kScreenH = 1080; // pixels

std::vector<VyRect> scatteredRects() {
    std::mt19937 rng(1234);
    std::uniform_int_distribution<int> x(0, kScreenW - 48);
    std::uniform_int_distribution<int> y(0, kScreenH - 48);
    std::uniform_int_distribution<int> side(4, 48);
    std::vector<VyRect> rects;
    rects.reserve(kRects);
    for (int i = 0; i < kRects; ++i)
        rects.push_back(VyRect(x(rng), y(rng), side(rng), side(rng)));
    return rects;
}

// Widgets laid out in rows and repainted in order: the append fast path.
std::vector<VyRect> rasterRects() {
    std::vector<VyRect> rects;
    rects.reserve(kRects);
    for (int i = 0; i < kRects; ++i)
        rects.push_back(VyRect((i % 40) * 48, (i / 40) * 40, 44, 36));
    return rects;
}

void perRect(benchmark::State& state) {
    // Seconds per rectangle, printed with an SI prefix ("7.8n" is 7.8 ns).
    state.counters["per_rect"] = benchmark::Counter(
        kRects, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_BaselineVectorPush(benchmark::State& state) {
    const std::vector<VyRect> rects = scatteredRects();
    for (auto _ : state) {
        std::vector<VyRect> dirty;
        // Grown push by push on purpose: the dirty list the region replaces did the same.
        for (const VyRect& r : rects)
            dirty.push_back(r); // NOLINT(performance-inefficient-vector-operation)
        benchmark::DoNotOptimize(dirty.data());
        benchmark::ClobberMemory();
    }
    perRect(state);
}
BENCHMARK(BM_BaselineVectorPush);

void uniteAll(benchmark::State& state, const std::vector<VyRect>& rects) {
    for (auto _ : state) {
        VyRegion region;
        for (const VyRect& r : rects)
            region.unite(r);
        benchmark::DoNotOptimize(region.rectCount());
    }
    perRect(state);
}

void BM_UniteScattered(benchmark::State& state) {
    uniteAll(state, scatteredRects());
}
BENCHMARK(BM_UniteScattered);

void BM_UniteRaster(benchmark::State& state) {
    uniteAll(state, rasterRects());
}
BENCHMARK(BM_UniteRaster);

void BM_SubtractScatteredFromScreen(benchmark::State& state) {
    const std::vector<VyRect> rects = scatteredRects();
    for (auto _ : state) {
        VyRegion region(0, 0, kScreenW, kScreenH);
        for (const VyRect& r : rects)
            region.subtract(r);
        benchmark::DoNotOptimize(region.rectCount());
    }
    perRect(state);
}
BENCHMARK(BM_SubtractScatteredFromScreen);

} // namespace

BENCHMARK_MAIN();
