// Flushing the screen, against a memcpy baseline in this binary:
//   a fully dirty 1920x1080 screen from one window surface vs memcpy of 4,147,200 bytes;
//   1,000 small dirty rectangles in one batch: one flush, and no pixel written twice
//   (the counters pixelsPerDirtyPixel and flushesPerBatch must both read 1).
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr size_t kScreenBytes = size_t(kWidth) * kHeight * 2; // 4,147,200

void BM_MemcpyBaseline(benchmark::State& state) {
    std::vector<uint8_t> from(kScreenBytes, 0x5a);
    std::vector<uint8_t> to(kScreenBytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), kScreenBytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * int64_t(kScreenBytes));
}

void BM_FlushFullScreen(benchmark::State& state) {
    VyScreen screen;
    screen.open("mem:1920x1080");
    screen.cursor()->hide();
    VyWindowSurface* w = screen.createWindow(nullptr, VyRect(0, 0, kWidth, kHeight));
    w->canvas()->fillRaw(VyRect(0, 0, kWidth, kHeight), 0x9234);
    screen.setWindowVisible(w, true);
    screen.flush();
    for (auto _ : state) {
        screen.update(w);
        screen.flush();
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * int64_t(kScreenBytes));
}

void BM_FlushThousandRects(benchmark::State& state) {
    VyScreen screen;
    screen.open("mem:1920x1080");
    screen.cursor()->hide();
    VyWindowSurface* w = screen.createWindow(nullptr, VyRect(0, 0, kWidth, kHeight));
    screen.setWindowVisible(w, true);
    screen.flush();
    uint64_t dirtyPixels = 0;
    const uint64_t pixelsBefore = screen.flushedPixelCount();
    const int flushesBefore = screen.flushCount();
    for (auto _ : state) {
        // Overlapping 24x16 rectangles scattered over the screen.
        for (int i = 0; i < 1000; ++i)
            screen.update(
                w, VyRegion(VyRect((i * 97) % (kWidth - 24), (i * 61) % (kHeight - 16), 24, 16)));
        for (const VyRect& r : screen.dirtyRegion().rects())
            dirtyPixels += uint64_t(r.width()) * r.height();
        screen.flush();
    }
    state.counters["flushesPerBatch"] =
        double(screen.flushCount() - flushesBefore) / double(state.iterations());
    state.counters["pixelsPerDirtyPixel"] =
        double(screen.flushedPixelCount() - pixelsBefore) / double(dirtyPixels);
}

} // namespace

BENCHMARK(BM_MemcpyBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FlushFullScreen)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FlushThousandRects)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
