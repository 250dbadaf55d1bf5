// The hit test in a 1920x1080 window of 500 widgets (20 panels of 24 controls): a lookup
// must stay under 2 us; the baseline in this run is a reverse linear scan over the same
// 500 rectangles, flattened into screen coordinates.
#include "core_ratio_reporter.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyWidget.h"

#include <random>
#include <vector>

namespace {

constexpr int kPanels = 20;
constexpr int kControlsPerPanel = 24;
constexpr int kLookups = 1024;

struct Scene {
    VyApplication* app;
    VyWidget* window;
    std::vector<VyRect> flat;
    std::vector<VyPoint> points;
};

Scene& scene() {
    static Scene* s = [] {
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        sc->window = new VyWidget;
        sc->window->setGeometry(0, 0, 1920, 1080);
        sc->window->show();
        for (int p = 0; p < kPanels; ++p) {
            auto* panel = new VyWidget(sc->window);
            VyRect pr((p % 5) * 384, (p / 5) * 270, 380, 266);
            panel->setGeometry(pr);
            panel->show();
            sc->flat.push_back(pr);
            for (int c = 0; c < kControlsPerPanel; ++c) {
                auto* control = new VyWidget(panel);
                VyRect cr((c % 4) * 95, (c / 4) * 44, 90, 40);
                control->setGeometry(cr);
                control->show();
                sc->flat.push_back(cr.translated(pr.left, pr.top));
            }
        }
        std::mt19937 rng(42);
        std::uniform_int_distribution<int> x(0, 1919), y(0, 1079);
        for (int i = 0; i < kLookups; ++i)
            sc->points.emplace_back(x(rng), y(rng));
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void BM_FlatScanBaseline(benchmark::State& state) {
    Scene& s = scene();
    size_t i = 0;
    for (auto _ : state) {
        VyPoint p = s.points[i++ % kLookups];
        int hit = -1;
        for (int k = static_cast<int>(s.flat.size()) - 1; k >= 0; --k) {
            if (s.flat[static_cast<size_t>(k)].contains(p)) {
                hit = k;
                break;
            }
        }
        benchmark::DoNotOptimize(hit);
    }
}

void BM_WidgetAt(benchmark::State& state) {
    Scene& s = scene();
    size_t i = 0;
    for (auto _ : state) {
        VyWidget* w = s.app->widgetAt(s.points[i++ % kLookups]);
        benchmark::DoNotOptimize(w);
    }
}

} // namespace

BENCHMARK(BM_FlatScanBaseline);
BENCHMARK(BM_WidgetAt);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_WidgetAt", "BM_FlatScanBaseline", 4.0);
    });
}
