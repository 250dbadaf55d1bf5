// The maintenance screens at 1920x1080 over a link that answers at once, with a full system
// log (100,000 entries): the maintenance page opened with its block, the system-log window
// opened on its first page, and one page of the log turned. Each in full-screen flushes
// (targets: at most 2, 3 and 3) and in time against repainting the whole screen once in the
// same run (targets: at most 2, 4 and 3 times).
#include "core_ratio_reporter.h"

#include "BenchPages.h"
#include "BenchTargets.h"
#include "model/RecorderLink.h"
#include "protocol/LogSearchReply.h"
#include "protocol/LogSearchRequest.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "ui/maintenance/SystemLogWindow.h"
#include "ui/settings/MaintenancePage.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr uint32_t kLogEntries = 100000;

// The log is made up from the index, so any page is answered without holding the log.
class FullLogLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        LogSearchRequest req;
        if (mainType != MainType::Maintenance || subType != MaintenanceSubType::LogSearch ||
            len != sizeof req)
            return; // blocks: the page shows its defaults
        std::memcpy(&req, body, sizeof req);
        LogSearchReply head;
        head.total = kLogEntries;
        head.first = std::min(req.first, kLogEntries);
        head.count = std::min(req.maxCount, kLogEntries - head.first);
        reply.resize(sizeof head + head.count * sizeof(LogEntry));
        std::memcpy(reply.data(), &head, sizeof head);
        for (uint32_t i = 0; i < head.count; ++i) {
            const uint32_t n = head.first + i;
            LogEntry e;
            e.time.year = 2026;
            e.time.month = 11;
            e.time.day = 23;
            e.time.hour = uint8_t(n / 3600 % 24);
            e.time.minute = uint8_t(n / 60 % 60);
            e.time.second = uint8_t(n % 60);
            e.type = 1u << (n % 5);
            e.channel = int32_t(n % 17) - 1;
            std::snprintf(e.text, sizeof e.text, "Entry %u of the made-up log", n);
            std::memcpy(reply.data() + sizeof head + i * sizeof e, &e, sizeof e);
        }
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
};

struct Scene {
    VyApplication* app;
    FullLogLink link;
    VyWidget* background; // what the screens open over, drawn once before timing
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
        sc->background = new VyWidget(nullptr, VyWidget::Window);
        sc->background->setGeometry(0, 0, 1920, 1080);
        sc->background->show();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

double screenPixels() {
    const VyScreen* screen = scene().app->screen();
    return double(screen->width()) * double(screen->height());
}

double g_pageOpen = 0;
double g_logOpen = 0;
double g_logPage = 0;

void BM_RepaintWholeScreen(benchmark::State& state) {
    Scene& s = scene();
    for (auto _ : state) {
        s.background->update();
        s.app->processPostedEvents();
    }
}

void BM_OpenMaintenancePage(benchmark::State& state) {
    Scene& s = scene();
    VyScreen* screen = s.app->screen();
    double pixels = 0;
    for (auto _ : state) {
        const uint64_t before = screen->flushedPixelCount();
        // Where the settings window puts its page.
        auto* page = new MaintenancePage(s.background);
        page->setGeometry(420, 120, 1400, 860);
        page->show();
        page->open();
        s.app->processPostedEvents();
        pixels += double(screen->flushedPixelCount() - before);
        state.PauseTiming();
        delete page;
        s.app->processPostedEvents();
        state.ResumeTiming();
    }
    g_pageOpen = pixels / screenPixels() / double(state.iterations());
    state.counters["fullScreenFlushes"] = g_pageOpen;
}

void BM_OpenSystemLogWithFullLog(benchmark::State& state) {
    Scene& s = scene();
    double pixels = 0;
    VyScreen* screen = s.app->screen();
    for (auto _ : state) {
        const uint64_t before = screen->flushedPixelCount();
        auto* w = new SystemLogWindow;
        w->show();
        w->search();
        s.app->processPostedEvents();
        pixels += double(screen->flushedPixelCount() - before);
        state.PauseTiming();
        if (w->total() != kLogEntries)
            state.SkipWithError("the log was not read");
        delete w;
        s.app->processPostedEvents();
        state.ResumeTiming();
    }
    g_logOpen = pixels / screenPixels() / double(state.iterations());
    state.counters["fullScreenFlushes"] = g_logOpen;
}

void BM_SystemLogTurnsAPage(benchmark::State& state) {
    Scene& s = scene();
    auto* w = new SystemLogWindow;
    w->show();
    w->search();
    s.app->processPostedEvents();
    const FlushCounts before = FlushCounts::of(s.app->screen());
    int page = 0;
    for (auto _ : state) {
        page = (page + 1) % w->pageCount();
        w->showPage(page);
        s.app->processPostedEvents();
    }
    reportFlushes(state, s.app->screen(), before);
    g_logPage = state.counters["pixelsFlushed"] / screenPixels();
    state.counters["fullScreenFlushes"] = g_logPage;
    delete w;
    s.app->processPostedEvents();
}

} // namespace

BENCHMARK(BM_RepaintWholeScreen)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OpenMaintenancePage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OpenSystemLogWithFullLog)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SystemLogTurnsAPage)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        reportTarget("maintenance page open, full-screen flushes", g_pageOpen, false, 2.0);
        reportTarget("system log of 100,000 open, full-screen flushes", g_logOpen, false, 3.0);
        reportTarget("system log of 100,000 page turn, full-screen flushes", g_logPage, false, 3.0);
        r.ratio("BM_OpenMaintenancePage", "BM_RepaintWholeScreen", 2.0);
        r.ratio("BM_OpenSystemLogWithFullLog", "BM_RepaintWholeScreen", 4.0);
        r.ratio("BM_SystemLogTurnsAPage", "BM_RepaintWholeScreen", 3.0);
    });
}
