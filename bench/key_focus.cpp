// A key press that moves the key focus in a window of 200 buttons: the search, the focus
// change and the repaint of both buttons, flushed. Target: at most the cost of one
// full-screen flush of the same window in this run.
#include "core_ratio_reporter.h"

#include "platform/keys/VyScriptedKeyLibrary.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyPushButton.h"

namespace {

constexpr int kColumns = 20;
constexpr int kRows = 10; // 200 buttons

struct Scene {
    VyApplication* app;
    VyWidget* window;
    VyKeyManager* keys;
    VyWidget* first;
};

Scene& scene() {
    static Scene* s = [] {
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(sc->app->screen());
        sc->window = new VyWidget;
        sc->window->setGeometry(0, 0, 1920, 1080);
        for (int r = 0; r < kRows; ++r) {
            for (int c = 0; c < kColumns; ++c) {
                auto* b = new VyPushButton(sc->window);
                b->setGeometry(20 + c * 94, 40 + r * 100, 80, 40);
                b->show();
                if (r == 0 && c == 0)
                    sc->first = b;
            }
        }
        sc->window->show();
        VyKeyManager::Setup setup;
        setup.library = std::make_shared<VyScriptedKeyLibrary>();
        setup.startPollThread = false;
        sc->keys = new VyKeyManager(setup);
        sc->keys->setKeyFocusWidget(sc->first);
        for (int i = 0; i < 3; ++i)
            sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void settle(VyApplication* app) {
    // The key, then the paint request it caused.
    app->processPostedEvents();
    app->processPostedEvents();
}

void BM_FullScreenFlush(benchmark::State& state) {
    Scene& s = scene();
    for (auto _ : state) {
        s.window->update();
        settle(s.app);
    }
}

void BM_KeyFocusMove(benchmark::State& state) {
    Scene& s = scene();
    bool right = true;
    long moves = 0;
    for (auto _ : state) {
        VyWidget* before = s.keys->keyFocusWidget();
        VyApplication::postEvent(
            s.keys,
            std::make_unique<DvrKeyEvent>(right ? VyKeyManager::KeyRight : VyKeyManager::KeyLeft));
        settle(s.app);
        right = !right;
        moves += s.keys->keyFocusWidget() != before ? 1 : 0;
    }
    // 1: every press moved the focus to the neighbouring button.
    state.counters["moved"] = double(moves) / double(state.iterations());
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_KeyFocusMove)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_KeyFocusMove", "BM_FullScreenFlush", 1.0);
    });
}
