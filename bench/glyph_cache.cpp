// Glyph cache hit versus miss for one 20-character label at the controls' 17 px. The
// baseline copies the label's coverage bytes once: the least any text drawing pays.
#include "runtime/VyFontEngine.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

const char* const kFontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
const std::u32string kLabel = U"Camera 01 Front Door"; // 20 code points
constexpr int kPixelSize = 17;

bool loadFont(VyFontEngine& engine, benchmark::State& state) {
    if (engine.setFontFile(kFontFile, VyFontEngine::kDeviceFontReserveBytes))
        return true;
    state.SkipWithError("font file missing");
    return false;
}

void BM_LabelCoverageCopyBaseline(benchmark::State& state) {
    VyFontEngine engine;
    if (!loadFont(engine, state))
        return;
    std::vector<std::vector<uint8_t>> coverage;
    for (char32_t cp : kLabel)
        coverage.push_back(engine.glyph(cp, kPixelSize)->coverage);
    std::vector<uint8_t> target(size_t(64) * 1024);
    for (auto _ : state) {
        size_t at = 0;
        for (const auto& c : coverage) {
            std::memcpy(target.data() + at, c.data(), c.size());
            at += c.size();
        }
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_LabelCoverageCopyBaseline);

void BM_LabelGlyphsCacheHit(benchmark::State& state) {
    VyFontEngine engine;
    if (!loadFont(engine, state))
        return;
    for (char32_t cp : kLabel)
        engine.glyph(cp, kPixelSize);
    for (auto _ : state) {
        for (char32_t cp : kLabel)
            benchmark::DoNotOptimize(engine.glyph(cp, kPixelSize));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kLabel.size()));
}
BENCHMARK(BM_LabelGlyphsCacheHit);

void BM_LabelGlyphsCacheMiss(benchmark::State& state) {
    VyFontEngine engine;
    if (!loadFont(engine, state))
        return;
    for (auto _ : state) {
        state.PauseTiming();
        engine.clearCache();
        state.ResumeTiming();
        for (char32_t cp : kLabel)
            benchmark::DoNotOptimize(engine.glyph(cp, kPixelSize));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kLabel.size()));
}
BENCHMARK(BM_LabelGlyphsCacheMiss);

} // namespace

BENCHMARK_MAIN();
