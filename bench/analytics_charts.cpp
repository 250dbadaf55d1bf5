// The analytics charts on a 1920x1080 RGB 16-bit memory display, measured in the same run:
// - a full-screen bar chart of 64 channels x 31 days (1984 bars) repaints with at most one
//   full screen of pixels flushed (counted); its time against one full-screen repaint and
//   flush of a window that paints nothing is printed for scale;
// - a full-screen heat map of a 64 x 36 grid over a 1920 x 1080 snapshot: at most 6 times
//   that flush;
// - the same grid without the snapshot, against a window that fills itself with one colour:
//   at most 2 times that fill.
#include "core_ratio_reporter.h"

#include "BenchPages.h"
#include "BenchTargets.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyBarChart.h"
#include "toolkit/widgets/VyHeatMap.h"

#include <initializer_list>
#include <vector>

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr int kChannels = 64, kDays = 31;
constexpr int kGridColumns = 64, kGridRows = 36;

class Page : public VyWidget {
public:
    bool fill = false;

protected:
    void paintEvent(VyPaintEvent*) override {
        if (fill)
            canvas()->fillRect(rect(), 0xFF202020);
    }
};

struct Scene {
    VyApplication* app;
    Page* empty;
    Page* filled;
    Page* chartPage;
    VyBarChart* chart;
    Page* mapPage;
    VyHeatMap* map;
    Page* gridPage;
    VyHeatMap* grid;
};

Page* fullScreenPage(bool fill) {
    auto* p = new Page;
    p->fill = fill;
    p->setGeometry(0, 0, 1920, 1080);
    return p;
}

std::vector<uint32_t> gridValues() {
    std::vector<uint32_t> v(size_t(kGridColumns) * kGridRows);
    for (size_t i = 0; i < v.size(); ++i)
        v[i] = uint32_t((i * 37) % 101); // every shade, some cells 0
    return v;
}

VyBitmap snapshot() {
    VyBitmap b(1920, 1080);
    uint8_t* p = b.bits();
    for (int y = 0; y < 1080; ++y)
        for (int x = 0; x < 1920; ++x, p += 4) {
            p[0] = uint8_t(x / 8);
            p[1] = uint8_t(y / 5);
            p[2] = uint8_t((x + y) / 12);
            p[3] = 255;
        }
    return b;
}

Scene& scene() {
    static Scene* s = [] {
        VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes);
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        sc->app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(sc->app->screen());
        sc->empty = fullScreenPage(false);
        sc->filled = fullScreenPage(true);
        sc->chartPage = fullScreenPage(false);
        sc->chart = new VyBarChart(sc->chartPage);
        sc->chart->setGeometry(0, 0, 1920, 1080);
        VyStringList days;
        for (int d = 1; d <= kDays; ++d)
            days.append(VyString::number(d));
        std::vector<VyChartSeries> series(kChannels);
        for (int c = 0; c < kChannels; ++c) {
            series[size_t(c)].name = "Channel " + VyString::number(c + 1);
            for (int d = 0; d < kDays; ++d)
                series[size_t(c)].values.push_back(double((c * 31 + d * 17) % 250));
        }
        sc->chart->setData(days, series);
        sc->mapPage = fullScreenPage(false);
        sc->map = new VyHeatMap(sc->mapPage);
        sc->map->setGeometry(0, 0, 1920, 1080);
        sc->map->setGrid(kGridColumns, kGridRows, gridValues());
        sc->map->setPicture(snapshot());
        sc->gridPage = fullScreenPage(false);
        sc->grid = new VyHeatMap(sc->gridPage);
        sc->grid->setGeometry(0, 0, 1920, 1080);
        sc->grid->setGrid(kGridColumns, kGridRows, gridValues());
        return sc;
    }();
    return *s;
}

void showOnly(Page* page) {
    Scene& s = scene();
    showPageAlone({s.empty, s.filled, s.chartPage, s.mapPage, s.gridPage}, page, s.app);
}

// Pixels flushed per repaint of the last bar-chart benchmark.
double g_chartPixels = 0;

double repaint(benchmark::State& state, Page* page, VyWidget* target) {
    showOnly(page);
    return repaintAndFlush(state, target, scene().app);
}

void BM_FullScreenFlush(benchmark::State& state) {
    repaint(state, scene().empty, scene().empty);
}

void BM_PlainFillFlush(benchmark::State& state) {
    repaint(state, scene().filled, scene().filled);
}

void BM_BarChart64x31Repaint(benchmark::State& state) {
    g_chartPixels = repaint(state, scene().chartPage, scene().chart);
}

void BM_HeatMapOverSnapshot(benchmark::State& state) {
    repaint(state, scene().mapPage, scene().map);
}

void BM_HeatGrid64x36(benchmark::State& state) {
    repaint(state, scene().gridPage, scene().grid);
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PlainFillFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BarChart64x31Repaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HeatMapOverSnapshot)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HeatGrid64x36)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        reportTarget("bar chart 64x31 repaint: pixels flushed / full screen",
                     g_chartPixels / (1920.0 * 1080.0), false, 1.0);
        r.info("BM_BarChart64x31Repaint", "BM_FullScreenFlush");
        r.ratio("BM_HeatMapOverSnapshot", "BM_FullScreenFlush", 6.0);
        r.ratio("BM_HeatGrid64x36", "BM_PlainFillFlush", 2.0);
    });
}
