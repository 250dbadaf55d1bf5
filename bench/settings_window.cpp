// Opening the settings window on its first page at 1920x1080, over a link that answers
// every block at once: the screen pixels flushed for it, counted in full-screen flushes
// (target: at most 10), the blocks fetched against the ones the page declares (target:
// exactly those), and its time against repainting the whole screen once in the same run.
// Then each of the newer pages opened in a window already on its category, against the same
// repaint: its time and its flushed pixels in full screens.
#include "core_ratio_reporter.h"

#include "BenchPages.h"
#include "BenchTargets.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/FactorySettings.h"
#include "protocol/NetworkCameraBlock.h"
#include "protocol/NtpBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/ParamRequest.h"
#include "protocol/StreamBlock.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/i18n/TextId.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsWindow.h"

#include <map>
#include <string>
#include <vector>

namespace {

template <typename Record>
std::vector<uint8_t> bytesOf(const Record& r) {
    const auto* p = reinterpret_cast<const uint8_t*>(&r);
    return std::vector<uint8_t>(p, p + sizeof r);
}

// A recorder fresh from the factory for the blocks whose zeros are out of range, so the
// pages open without a clamping line each time.
std::map<uint32_t, std::vector<uint8_t>> factoryReplies() {
    std::map<uint32_t, std::vector<uint8_t>> out;
    StreamBlock stream{};
    stream.streams[0].maxResolution = 1;
    stream.streams[1].maxResolution = 4;
    for (StreamBlock::Stream& s : stream.streams) {
        s.maxFrameRate = 30;
        s.maxBitrateKbps = 8192;
    }
    FactorySettings::setEncoding(&stream);
    out[StreamBlock::kBlockNumber] = bytesOf(stream);
    DateTimeBlock clock{};
    FactorySettings::setDst(&clock);
    out[DateTimeBlock::kBlockNumber] = bytesOf(clock);
    NtpBlock ntp{};
    ntp.port = NtpBlock::kDefaultPort;
    ntp.intervalMin = 60;
    out[NtpBlock::kBlockNumber] = bytesOf(ntp);
    OutputSettingsBlock output{};
    output.spotDwellSec = OutputSettingsBlock::kMinDwellSec;
    out[OutputSettingsBlock::kBlockNumber] = bytesOf(output);
    NetworkCameraBlock camera{};
    camera.port = NetworkCameraBlock::kDefaultPort;
    out[NetworkCameraBlock::kBlockNumber] = bytesOf(camera);
    return out;
}

class InstantLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t, uint16_t, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (auto r = ParamRequest::decode(static_cast<const uint8_t*>(body), len)) {
            ++gets;
            if (auto it = replies.find(r->blockNumber); it != replies.end())
                reply = it->second;
        }
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
    long gets = 0;
    std::map<uint32_t, std::vector<uint8_t>> replies = factoryReplies();
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

struct NewerPage {
    const char* name;
    int category;
    uint32_t title;
};
constexpr NewerPage kNewerPages[] = {
    {"encoding", SettingsManager::Record, TextId::Settings::Encoding},
    {"datetime", SettingsManager::System, TextId::Settings::DateTime},
    {"dst", SettingsManager::System, TextId::Settings::DaylightSaving},
    {"output", SettingsManager::System, TextId::Settings::Output},
    {"ddns", SettingsManager::Network, TextId::Settings::Ddns},
    {"privacymask", SettingsManager::Camera, TextId::Settings::PrivacyMask},
    {"networkcamera", SettingsManager::Camera, TextId::Settings::NetworkCameras},
};
constexpr int kNewerPageCount = int(std::size(kNewerPages));
double g_pageFullScreens[kNewerPageCount] = {};

// The page's place in its category's tabs, -1 when this model does not offer it.
int tabOf(const NewerPage& page) {
    const auto entries = SettingsManager::pagesOf(page.category, DeviceProfile::current());
    for (size_t i = 0; i < entries.size(); ++i)
        if (entries[i].titleId == page.title)
            return int(i);
    return -1;
}

// Opening the page from its neighbour tab (left untimed), so each iteration makes, fetches
// and paints the page once.
void BM_OpenNewerPage(benchmark::State& state, int index) {
    Scene& s = scene();
    VyScreen* screen = s.app->screen();
    const NewerPage& page = kNewerPages[index];
    SettingsWindow* w = s.manager->openWindow();
    const int tab = tabOf(page);
    if (tab < 0 || !w->openCategory(page.category)) {
        state.SkipWithError("page not offered");
        return;
    }
    const int neighbour = tab == 0 ? 1 : 0;
    s.app->processPostedEvents();
    FlushCounts opening{0, 0}; // summed over the timed part only
    for (auto _ : state) {
        state.PauseTiming();
        w->showPage(neighbour);
        s.app->processPostedEvents();
        const FlushCounts before = FlushCounts::of(screen);
        state.ResumeTiming();
        w->showPage(tab);
        s.app->processPostedEvents();
        state.PauseTiming();
        const FlushCounts after = FlushCounts::of(screen);
        opening.pixels += after.pixels - before.pixels;
        opening.flushes += after.flushes - before.flushes;
        state.ResumeTiming();
    }
    const double n = double(state.iterations());
    const double screenPixels = double(screen->width()) * double(screen->height());
    g_pageFullScreens[index] = double(opening.pixels) / screenPixels / n;
    state.counters["fullScreenFlushes"] = g_pageFullScreens[index];
    state.counters["flushes"] = double(opening.flushes) / n;
    delete w;
    s.app->processPostedEvents();
}

} // namespace

BENCHMARK(BM_OpenSettingsOnFirstPage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintWholeScreen)->Unit(benchmark::kMicrosecond);
// Named as in kNewerPages, in its order.
BENCHMARK_CAPTURE(BM_OpenNewerPage, encoding, 0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, datetime, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, dst, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, output, 3)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, ddns, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, privacymask, 5)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenNewerPage, networkcamera, 6)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        reportTarget("settings window + first page, full-screen flushes", g_fullScreens, false,
                     10.0);
        reportTarget("settings first page, blocks fetched / blocks it declares",
                     g_fetchedPerDeclared, false, 1.0);
        r.ratio("BM_OpenSettingsOnFirstPage", "BM_RepaintWholeScreen", 10.0);
        for (int i = 0; i < kNewerPageCount; ++i) {
            const std::string name = kNewerPages[i].name;
            // A page covers less than the screen: opening one repaints at most one screen.
            reportTarget(name + " page open, full-screen flushes", g_pageFullScreens[i], false,
                         1.0);
            r.ratio("BM_OpenNewerPage/" + name, "BM_RepaintWholeScreen", 3.0);
        }
    });
}
