// The record time bar under load: a full repaint of a bar that holds 16 channels of 2,000
// exact segments per day (no hourly aggregation) against a full-screen flush in this run;
// a wheel zoom and a cursor drag flush only the bar's pixels; and the memory a month of
// search answers for 64 channels takes per segment, against the 16 bytes a segment has on
// the wire, for one channel and for 64 (flat: the same per segment).
#include "BenchPages.h"
#include "core_ratio_reporter.h"

#include "model/RecordSearchReply.h"
#include "protocol/DaySearchResult.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/playback/RecordTimeBar.h"

#include <cstring>
#include <malloc.h>

namespace {

constexpr int kChannels = 16;
constexpr int kSegmentsPerDay = 2000;
const VyDate kDay(2026, 3, 14);

class Filled : public VyWidget {
    VY_OBJECT(Filled, VyWidget)
public:
    explicit Filled(VyWidget* parent = nullptr)
        : VyWidget(parent) {}
    void paintEvent(VyPaintEvent*) override { canvas()->fillRect(rect(), 0xFF202020); }
};

struct Scene {
    VyApplication* app;
    Filled* window;
    RecordTimeBar* bar;
};

Scene& scene() {
    static Scene* s = [] {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        sc->window = new Filled;
        sc->window->setGeometry(0, 0, 1920, 1080);
        sc->bar = new RecordTimeBar(sc->window);
        sc->bar->setGeometry(0, 760, 1920, 320);
        sc->bar->setDateRange(kDay);
        sc->bar->setMode(true, 0); // eight rows a page
        std::vector<RecordChannel> channels(kChannels);
        for (int c = 0; c < kChannels; ++c) {
            channels[size_t(c)].channel = c;
            const int step = 86400 / kSegmentsPerDay; // 43 s: a 20 s segment, a 23 s gap
            for (int i = 0; i < kSegmentsPerDay; ++i) {
                const VyDateTime start = VyDateTime(kDay).addSecs(i * step + c);
                channels[size_t(c)].segments.push_back(
                    {start, start.addSecs(20), 1u << (i % 3), 0});
            }
        }
        sc->bar->setChannels(channels);
        sc->window->show();
        sc->bar->show();
        sc->app->processPostedEvents();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void repaint(benchmark::State& state, VyWidget* target) {
    repaintAndFlush(state, target, scene().app);
}

void BM_FullScreenFlush(benchmark::State& state) {
    repaint(state, scene().window);
}

void BM_TimeBarRepaint16x2000(benchmark::State& state) {
    repaint(state, scene().bar);
}

double g_zoomPixels = 0;
double g_dragPixels = 0;

void BM_TimeBarWheelZoom(benchmark::State& state) {
    Scene& s = scene();
    const uint64_t pixels = s.app->screen()->flushedPixelCount();
    int delta = 120;
    for (auto _ : state) {
        VyWheelEvent e(VyPoint(900, 40), VyPoint(900, 800), delta, 0);
        VyApplication::sendEvent(s.bar, &e);
        if (s.bar->span() == 1800 || s.bar->span() == 86400)
            delta = -delta;
        s.app->processPostedEvents();
    }
    g_zoomPixels =
        double(s.app->screen()->flushedPixelCount() - pixels) / double(state.iterations());
    state.counters["pixelsFlushed"] = g_zoomPixels;
    s.bar->setSpan(86400);
}

void BM_TimeBarCursorDrag(benchmark::State& state) {
    Scene& s = scene();
    const VyRect row = s.bar->rowTrack(0);
    VyMouseEvent press(VyEvent::MouseButtonPress, VyPoint(500, row.top + 2), VyPoint(0, 0), 1, 1);
    VyApplication::sendEvent(s.bar, &press);
    s.app->processPostedEvents();
    const uint64_t pixels = s.app->screen()->flushedPixelCount();
    int x = 500;
    for (auto _ : state) {
        x = x >= 1800 ? 100 : x + 7;
        VyMouseEvent move(VyEvent::MouseMove, VyPoint(x, row.top + 2), VyPoint(0, 0), 0, 1);
        VyApplication::sendEvent(s.bar, &move);
        s.app->processPostedEvents();
    }
    g_dragPixels =
        double(s.app->screen()->flushedPixelCount() - pixels) / double(state.iterations());
    state.counters["pixelsFlushed"] = g_dragPixels;
    VyMouseEvent release(VyEvent::MouseButtonRelease, VyPoint(x, row.top + 2), VyPoint(0, 0), 1, 0);
    VyApplication::sendEvent(s.bar, &release);
}

// Heap bytes per segment kept after parsing `days` days of answers for `channels` channels
// of 500 segments a day each.
size_t heapBytes() {
    // Large blocks are mapped on their own and counted apart from the arena.
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
}

double bytesPerSegment(int channels, int days) {
    const int perDay = 500;
    std::vector<uint8_t> body(DaySearchResult::kSize +
                              size_t(perDay) * days * RecordSegmentEntry::kSize);
    const size_t before = heapBytes();
    std::vector<RecordChannel> kept;
    kept.reserve(size_t(channels));
    size_t segments = 0;
    for (int c = 0; c < channels; ++c) {
        DaySearchResult head;
        head.channel = uint32_t(c);
        head.segmentCount = uint32_t(perDay * days);
        head.day.year = 2026;
        head.day.month = 2;
        head.day.day = 12;
        std::memcpy(body.data(), &head, sizeof head);
        for (int i = 0; i < perDay * days; ++i) {
            RecordSegmentEntry e{i * 170, i * 170 + 100, 1, 0};
            std::memcpy(body.data() + DaySearchResult::kSize + size_t(i) * sizeof e, &e, sizeof e);
        }
        auto ch = RecordSearchReply::parseDay(body.data(), body.size(), {c},
                                              VyDateTime(VyDate(2026, 2, 12)),
                                              VyDateTime(VyDate(2026, 3, 14)));
        segments += ch ? ch->segments.size() : 0;
        if (ch)
            kept.push_back(std::move(*ch));
    }
    const size_t after = heapBytes();
    return segments ? double(after - before) / double(segments) : 0;
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TimeBarRepaint16x2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TimeBarWheelZoom)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TimeBarCursorDrag)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_TimeBarRepaint16x2000", "BM_FullScreenFlush", 4.0);
        // Only the bar's own pixels reach the screen when it zooms or its cursor moves.
        const double barPixels = double(scene().bar->width()) * scene().bar->height();
        reportTarget("timebar zoom: flushed pixels / bar pixels", g_zoomPixels / barPixels, false,
                     1.0);
        reportTarget("timebar drag: flushed pixels / bar pixels", g_dragPixels / barPixels, false,
                     1.0);
        const double wire = double(RecordSegmentEntry::kSize);
        const double one = bytesPerSegment(1, 30), many = bytesPerSegment(64, 30);
        std::printf("month of answers: %.1f bytes per segment (1 channel), %.1f (64 channels)\n",
                    one, many);
        reportTarget("month search 64 ch: heap bytes per segment / wire bytes", many / wire, false,
                     3.0);
        reportTarget("month search: bytes per segment 64 ch / 1 ch (flat)", many / one, false, 1.1);
    });
}
