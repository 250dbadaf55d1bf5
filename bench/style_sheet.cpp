// The common style sheet: reading and applying it (done at start-up and on every resolution
// change) and looking up one colour by its full key (done by every view as it is built).
// Each figure has a baseline in the same run: the bare file read, and a std::map lookup.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "runtime/VyIniSettings.h"
#include "toolkit/style/VyStyle.h"

namespace {

const char* const kCommonSheet = VY_RESOURCES_DIR "/style/commonstyle.ini";

// Baseline: the bytes of the file, read as the reader does, without parsing.
void BM_ReadFileOnly(benchmark::State& state) {
    char line[512];
    for (auto _ : state) {
        FILE* f = std::fopen(kCommonSheet, "r");
        size_t n = 0;
        while (std::fgets(line, sizeof line, f))
            ++n;
        std::fclose(f);
        benchmark::DoNotOptimize(n);
    }
}
BENCHMARK(BM_ReadFileOnly)->Unit(benchmark::kMicrosecond);

void BM_ParseCommonSheet(benchmark::State& state) {
    for (auto _ : state) {
        VyIniSettings ini{VyString(kCommonSheet)};
        benchmark::DoNotOptimize(ini.map().size());
    }
}
BENCHMARK(BM_ParseCommonSheet)->Unit(benchmark::kMicrosecond);

// Target: under 2 ms for read + apply at a non-trivial scale.
void BM_LoadAndApplyCommonSheet(benchmark::State& state) {
    VyStyle style;
    style.loadCommonStyle(kCommonSheet, 1.0f, 1.0f); // images are decoded once and kept
    for (auto _ : state) {
        style.loadCommonStyle(kCommonSheet, 1280.0f / 1920, 720.0f / 1080);
        benchmark::DoNotOptimize(&style.option());
    }
}
BENCHMARK(BM_LoadAndApplyCommonSheet)->Unit(benchmark::kMicrosecond);

// Baseline: the same lookup in a plain std::map of std::string.
void BM_StdMapLookup(benchmark::State& state) {
    const VyIniSettings ini{VyString(kCommonSheet)};
    std::map<std::string, std::string> plain;
    for (const auto& kv : ini.map())
        plain[kv.first.toStdString()] = kv.second.toStdString();
    const std::string key = "VyPushButton/Foreground/Normal";
    for (auto _ : state)
        benchmark::DoNotOptimize(plain.find(key));
}
BENCHMARK(BM_StdMapLookup);

// Target: under 200 ns for a colour found by its full key, scan included.
void BM_ColorLookup(benchmark::State& state) {
    const VyIniSettings ini{VyString(kCommonSheet)};
    const VyString key = "VyPushButton/Foreground/Normal";
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.color(key));
}
BENCHMARK(BM_ColorLookup);

void BM_ColorLookupMissingKey(benchmark::State& state) {
    const VyIniSettings ini{VyString(kCommonSheet)};
    const VyString key = "VyPushButton/Foreground/Pressed";
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.color(key));
}
BENCHMARK(BM_ColorLookupMissingKey);

} // namespace

BENCHMARK_MAIN();
