// Repainting the standard controls on a 1920x1080 RGB 16-bit memory display, as ratios against
// one full-screen flush measured in the same run (a window that paints nothing, its whole
// surface copied to the framebuffer):
// - a page of 100 labelled push buttons (10 x 10, the shape of the usual embedded-toolkit
//   "100 buttons" scene) repainted whole: at most 8 full-screen flushes;
// - a hover change on one button: only that button is painted and flushed (counter
//   pixelsFlushed equals its area, otherPaints 0);
// - a keystroke in a line edit: only the line edit is painted and flushed.
#include "core_ratio_reporter.h"

#include <vector>

#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyHoverEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

// Counts the paints of every control, so a bench can tell which ones a change repainted.
long g_paints = 0;

class CountedButton : public VyPushButton {
    VY_OBJECT(CountedButton, VyPushButton)
public:
    using VyPushButton::VyPushButton;
    void paintEvent(VyPaintEvent* e) override {
        ++g_paints;
        VyPushButton::paintEvent(e);
    }
};

class Page : public VyWidget {
    VY_OBJECT(Page, VyWidget)
public:
    void paintEvent(VyPaintEvent*) override {
        if (fill)
            canvas()->fillRect(rect(), 0xFF1E2024);
    }
    bool fill = true;
};

struct Scene {
    VyApplication* app;
    Page* empty; // the baseline: a full-screen window that paints nothing
    Page* page;  // 100 labelled buttons
    std::vector<CountedButton*> buttons;
    VyLineEdit* edit;
};

Scene& scene() {
    static Scene* s = [] {
        VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes);
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        sc->app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(sc->app->screen());
        sc->empty = new Page;
        sc->empty->fill = false;
        sc->empty->setGeometry(0, 0, 1920, 1080);
        sc->page = new Page;
        sc->page->setGeometry(0, 0, 1920, 1080);
        for (int i = 0; i < 100; ++i) {
            auto* b = new CountedButton(VyString("Channel ") + VyString::number(i + 1), sc->page);
            b->setGeometry(40 + (i % 10) * 180, 40 + (i / 10) * 90, 160, 60);
            sc->buttons.push_back(b);
        }
        sc->edit = new VyLineEdit("192.168.1.6", sc->page);
        sc->edit->setGeometry(40, 960, 400, 48);
        sc->edit->setKeyboardEnabled(false);
        return sc;
    }();
    return *s;
}

void showOnly(Page* page) {
    Scene& s = scene();
    for (Page* p : {s.empty, s.page})
        if (p != page && p->isVisible())
            p->hide();
    if (!page->isVisible()) {
        page->show();
        for (VyObject* c : page->children())
            static_cast<VyWidget*>(c)->show();
        s.edit->setFocus();
    }
    s.app->processPostedEvents();
}

struct Counts {
    uint64_t pixels;
    long paints;
    int flushes;
};

Counts counts() {
    VyScreen* screen = scene().app->screen();
    return {screen->flushedPixelCount(), g_paints, screen->flushCount()};
}

void report(benchmark::State& state, const Counts& before) {
    const Counts after = counts();
    const double n = double(state.iterations());
    state.counters["pixelsFlushed"] = double(after.pixels - before.pixels) / n;
    state.counters["controlPaints"] = double(after.paints - before.paints) / n;
    state.counters["flushes"] = double(after.flushes - before.flushes) / n;
}

void BM_FullScreenFlush(benchmark::State& state) {
    showOnly(scene().empty);
    const Counts before = counts();
    for (auto _ : state) {
        scene().empty->update();
        scene().app->processPostedEvents();
    }
    report(state, before);
}

void BM_RepaintPageOf100LabelledButtons(benchmark::State& state) {
    showOnly(scene().page);
    const Counts before = counts();
    for (auto _ : state) {
        scene().page->update();
        scene().app->processPostedEvents();
    }
    report(state, before);
}

void BM_HoverChangeOnOneButton(benchmark::State& state) {
    Scene& s = scene();
    showOnly(s.page);
    VyWidget* b = s.buttons[55];
    const Counts before = counts();
    bool in = false;
    for (auto _ : state) {
        in = !in;
        VyHoverEvent e(in ? VyEvent::HoverEnter : VyEvent::HoverLeave, VyPoint(-1, -1),
                       VyPoint(-1, -1));
        VyApplication::sendEvent(b, &e);
        s.app->processPostedEvents();
    }
    report(state, before);
    state.counters["controlArea"] = double(b->width() * b->height());
}

void BM_KeystrokeInALineEdit(benchmark::State& state) {
    Scene& s = scene();
    showOnly(s.page);
    const Counts before = counts();
    for (auto _ : state) {
        // A digit typed, then taken back, so the text stays the same length.
        VyKeyEvent typed(VyEvent::KeyPress, '4', "4");
        VyApplication::sendEvent(s.edit, &typed);
        s.app->processPostedEvents();
        s.edit->backspace();
        s.app->processPostedEvents();
    }
    report(state, before);
    state.counters["controlArea"] = double(s.edit->width() * s.edit->height());
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintPageOf100LabelledButtons)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_HoverChangeOnOneButton)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_KeystrokeInALineEdit)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_RepaintPageOf100LabelledButtons", "BM_FullScreenFlush", 8.0);
        // One 160x60 button of a 1920x1080 screen; a keystroke is two repaints of a 400x48 field.
        r.ratio("BM_HoverChangeOnOneButton", "BM_FullScreenFlush", 0.25);
        r.ratio("BM_KeystrokeInALineEdit", "BM_FullScreenFlush", 0.5);
    });
}
