// The schedule board on a 1920x1080 screen: one step of a mouse drag repaints the union of
// the rubber band's old and new rectangles and nothing more (pixels flushed per step,
// counted, against that union's area), and costs a small part of repainting the whole
// board, measured in the same run.
#include "core_ratio_reporter.h"

#include "BenchTargets.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyMouseEvent.h"
#include "ui/settings/RecScheduleBoard.h"

#include <cstring>

namespace {

struct Scene {
    VyApplication* app;
    VyWidget* window;
    RecScheduleBoard* board;
    uint8_t week[ScheduleGrid::kBytes];
};

Scene& scene() {
    static Scene* s = [] {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        sc->window = new VyWidget;
        sc->window->setGeometry(0, 0, 1920, 1080);
        sc->board = new RecScheduleBoard(sc->window);
        sc->board->setGeometry(200, 300, 48 * 30 + 1, 7 * 40 + 1); // 30 x 40 pixel cells
        std::memset(sc->week, 1 | 2, sizeof sc->week);
        sc->board->setSchedule(sc->week);
        sc->window->show();
        sc->board->show();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void send(int type, int x, int y) {
    VyMouseEvent e(type, VyPoint(x, y), VyPoint(x, y), type == VyEvent::MouseMove ? 0 : 1,
                   type == VyEvent::MouseButtonRelease ? 0 : 1);
    VyApplication::sendEvent(scene().board, &e);
}

// Pixels flushed per step of the last drag benchmark, and the union area of that step.
double g_pixelsPerStep = 0;

void BM_DragStep(benchmark::State& state) {
    Scene& s = scene();
    send(VyEvent::MouseButtonPress, 15, 20); // cell (0, 0)
    send(VyEvent::MouseMove, 75, 20);        // band over cells 0..2 of row 0
    s.app->processPostedEvents();
    const uint64_t pixels = s.app->screen()->flushedPixelCount();
    bool wide = false;
    for (auto _ : state) {
        wide = !wide;
        send(VyEvent::MouseMove, wide ? 105 : 75, 20); // cells 0..3, then 0..2 again
        s.app->processPostedEvents();
    }
    g_pixelsPerStep =
        double(s.app->screen()->flushedPixelCount() - pixels) / double(state.iterations());
    send(VyEvent::MouseButtonRelease, 75, 20);
    s.app->processPostedEvents();
    state.counters["pixelsFlushed"] = g_pixelsPerStep;
}

void BM_RepaintWholeBoard(benchmark::State& state) {
    Scene& s = scene();
    for (auto _ : state) {
        s.board->update();
        s.app->processPostedEvents();
    }
}

} // namespace

BENCHMARK(BM_DragStep)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintWholeBoard)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        // The old band is 3 cells and the new one 4 (or back): the union is the 4-cell
        // rectangle with its grid lines, 121 x 41 pixels.
        reportTarget("schedule board drag step pixels / union of the two bands",
                     g_pixelsPerStep / (121.0 * 41.0), false, 1.0);
        r.ratio("BM_DragStep", "BM_RepaintWholeBoard", 0.25);
    });
}
