// Opening the settings window on its first page at 1920x1080, over a link that answers
// every block at once: the screen pixels flushed for it, counted in full-screen flushes
// (target: at most 10), the blocks fetched against the ones the page declares (target:
// exactly those), and its time against repainting the whole screen once in the same run.
#include "core_ratio_reporter.h"

#include "BenchTargets.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/ParamRequest.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsWindow.h"

namespace {

class InstantLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t, uint16_t, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (ParamRequest::decode(static_cast<const uint8_t*>(body), len))
            ++gets;
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
    long gets = 0;
};

struct Scene {
    VyApplication* app;
    InstantLink link;
    SettingsManager* manager;
};

Scene& scene() {
    static Scene* s = [] {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        RecorderLink::setInstance(&sc->link);
        DeviceProfile& p = DeviceProfile::current();
        p.channelCount = 8;
        p.alarmInputNum = 4;
        p.enableNormalRecord = p.enableMotionRecord = true;
        sc->manager = new SettingsManager;
        return sc;
    }();
    return *s;
}

double g_fullScreens = 0;
double g_fetchedPerDeclared = 0;

void BM_OpenSettingsOnFirstPage(benchmark::State& state) {
    Scene& s = scene();
    VyScreen* screen = s.app->screen();
    const double screenPixels = double(screen->width()) * double(screen->height());
    double pixels = 0, fetched = 0, declared = 0;
    for (auto _ : state) {
        const uint64_t before = screen->flushedPixelCount();
        const long gets = s.link.gets;
        SettingsWindow* w = s.manager->openWindow();
        s.app->processPostedEvents();
        w->openCategory(SettingsManager::Record);
        s.app->processPostedEvents();
        pixels += double(screen->flushedPixelCount() - before);
        fetched += double(s.link.gets - gets);
        declared += double(w->page()->blocks().count());
        state.PauseTiming();
        delete w;
        s.app->processPostedEvents();
        state.ResumeTiming();
    }
    g_fullScreens = pixels / screenPixels / double(state.iterations());
    g_fetchedPerDeclared = declared > 0 ? fetched / declared : 0;
    state.counters["fullScreenFlushes"] = g_fullScreens;
}

void BM_RepaintWholeScreen(benchmark::State& state) {
    Scene& s = scene();
    SettingsWindow* w = s.manager->openWindow();
    s.app->processPostedEvents();
    for (auto _ : state) {
        w->update();
        s.app->processPostedEvents();
    }
    delete w;
    s.app->processPostedEvents();
}

} // namespace

BENCHMARK(BM_OpenSettingsOnFirstPage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintWholeScreen)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        reportTarget("settings window + first page, full-screen flushes", g_fullScreens, false,
                     10.0);
        reportTarget("settings first page, blocks fetched / blocks it declares",
                     g_fetchedPerDeclared, false, 1.0);
        r.ratio("BM_OpenSettingsOnFirstPage", "BM_RepaintWholeScreen", 10.0);
    });
}
