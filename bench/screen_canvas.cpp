// Canvas throughput over a 1920x1080 surface, each against a baseline in this binary:
//   opaque fill        vs std::fill_n of the same 16-bit value
//   alpha-128 blend    vs the one-pixel-at-a-time reference of the same formula
//   RGBA image blend   vs the one-pixel-at-a-time reference, on a UI-like image
// The fast and reference paths are checked bit for bit before timing.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "runtime/VyBitmap.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr vyargb kHalfBlue = 0x80204080;

// Runs of transparent, opaque, translucent and soft-edged pixels, as icons, panels and
// text labels over a live view give.
VyBitmap uiLikeImage() {
    VyBitmap image(kWidth, kHeight);
    uint8_t* p = image.bits();
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x, p += 4) {
            const int kind = (x / 96 + y / 40) % 4;
            p[0] = static_cast<uint8_t>(x * 3);
            p[1] = static_cast<uint8_t>(y * 5);
            p[2] = static_cast<uint8_t>(x ^ y);
            p[3] = kind == 0   ? 0
                   : kind == 1 ? 255
                   : kind == 2 ? 160
                               : static_cast<uint8_t>((x % 96) * 8 / 3);
        }
    return image;
}

std::vector<uint16_t> startPixels() {
    std::vector<uint16_t> px(static_cast<size_t>(kWidth) * kHeight);
    for (size_t i = 0; i < px.size(); ++i)
        px[i] = static_cast<uint16_t>(i * 2654435761u >> 7);
    return px;
}

void checkSame(const std::vector<uint16_t>& a, const std::vector<uint16_t>& b, const char* what) {
    if (a != b) {
        std::fprintf(stderr, "%s: fast path differs from the reference\n", what);
        std::abort();
    }
}

void BM_FillNBaseline(benchmark::State& state) {
    std::vector<uint16_t> px(static_cast<size_t>(kWidth) * kHeight);
    const uint16_t value = VyPixelOps::opaque(0xff336699);
    for (auto _ : state) {
        std::fill_n(px.data(), px.size(), value);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * int64_t(px.size()) * 2);
}

void BM_OpaqueFill(benchmark::State& state) {
    VyFbCanvas canvas(kWidth, kHeight);
    for (auto _ : state) {
        canvas.fillRect(VyRect(0, 0, kWidth, kHeight), 0xff336699);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 2);
}

void BM_BlendReference(benchmark::State& state) {
    std::vector<uint16_t> px = startPixels();
    for (auto _ : state) {
        for (int y = 0; y < kHeight; ++y)
            VyPixelOps::blendColorRowReference(px.data() + size_t(y) * kWidth, kWidth, kHalfBlue);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 2);
}

void BM_BlendFast(benchmark::State& state) {
    std::vector<uint16_t> fast = startPixels();
    std::vector<uint16_t> ref = fast;
    VyFbCanvas check(reinterpret_cast<uint8_t*>(fast.data()), kWidth, kHeight, kWidth * 2);
    check.fillRect(VyRect(0, 0, kWidth, kHeight), kHalfBlue);
    for (int y = 0; y < kHeight; ++y)
        VyPixelOps::blendColorRowReference(ref.data() + size_t(y) * kWidth, kWidth, kHalfBlue);
    checkSame(fast, ref, "alpha-128 blend");

    VyFbCanvas canvas(kWidth, kHeight);
    for (auto _ : state) {
        canvas.fillRect(VyRect(0, 0, kWidth, kHeight), kHalfBlue);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 2);
}

void BM_ImageReference(benchmark::State& state) {
    const VyBitmap image = uiLikeImage();
    std::vector<uint16_t> px = startPixels();
    for (auto _ : state) {
        for (int y = 0; y < kHeight; ++y)
            VyPixelOps::blendRgbaRowReference(px.data() + size_t(y) * kWidth,
                                              image.constBits() + size_t(y) * kWidth * 4, kWidth);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 4);
}

void BM_ImageFast(benchmark::State& state) {
    const VyBitmap image = uiLikeImage();
    std::vector<uint16_t> fast = startPixels();
    std::vector<uint16_t> ref = fast;
    VyFbCanvas check(reinterpret_cast<uint8_t*>(fast.data()), kWidth, kHeight, kWidth * 2);
    check.drawImage(0, 0, image);
    for (int y = 0; y < kHeight; ++y)
        VyPixelOps::blendRgbaRowReference(ref.data() + size_t(y) * kWidth,
                                          image.constBits() + size_t(y) * kWidth * 4, kWidth);
    checkSame(fast, ref, "image blend");

    std::vector<uint16_t> px = startPixels();
    VyFbCanvas canvas(reinterpret_cast<uint8_t*>(px.data()), kWidth, kHeight, kWidth * 2);
    for (auto _ : state) {
        canvas.drawImage(0, 0, image);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 4);
}

} // namespace

BENCHMARK(BM_FillNBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OpaqueFill)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BlendReference)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BlendFast)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ImageReference)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ImageFast)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
