// Repainting one 100x30 button in a 1920x1080 window: only its rectangle is painted and
// flushed (counters pixelsFlushed = 3000 and buttonPaints = windowPaints = 1 per repaint),
// against repainting the whole window in this run.
#include "core_ratio_reporter.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"

namespace {

class Filled : public VyWidget {
    VY_OBJECT(Filled, VyWidget)
public:
    Filled(vyargb colour, VyWidget* parent)
        : VyWidget(parent)
        , m_colour(colour) {}
    void paintEvent(VyPaintEvent*) override {
        ++paints;
        canvas()->fillRect(rect(), m_colour);
    }
    long paints = 0;

private:
    vyargb m_colour;
};

struct Scene {
    VyApplication* app;
    Filled* window;
    Filled* button;
};

Scene& scene() {
    static Scene* s = [] {
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        sc->window = new Filled(0xFF202020, nullptr);
        sc->window->setGeometry(0, 0, 1920, 1080);
        sc->button = new Filled(0xFF3060C0, sc->window);
        sc->button->setGeometry(900, 500, 100, 30);
        sc->window->show();
        sc->button->show();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void repaint(benchmark::State& state, VyWidget* target) {
    Scene& s = scene();
    VyScreen* screen = s.app->screen();
    uint64_t pixels = screen->flushedPixelCount();
    long buttonPaints = s.button->paints, windowPaints = s.window->paints;
    for (auto _ : state) {
        target->update();
        s.app->processPostedEvents();
    }
    double n = double(state.iterations());
    state.counters["pixelsFlushed"] = double(screen->flushedPixelCount() - pixels) / n;
    state.counters["buttonPaints"] = double(s.button->paints - buttonPaints) / n;
    state.counters["windowPaints"] = double(s.window->paints - windowPaints) / n;
}

void BM_RepaintWholeWindow(benchmark::State& state) {
    repaint(state, scene().window);
}
void BM_RepaintOneButton(benchmark::State& state) {
    repaint(state, scene().button);
}

} // namespace

BENCHMARK(BM_RepaintWholeWindow)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintOneButton)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        // 3,000 of 2,073,600 pixels: the button's repaint should cost a small fraction.
        r.ratio("BM_RepaintOneButton", "BM_RepaintWholeWindow", 0.05);
    });
}
