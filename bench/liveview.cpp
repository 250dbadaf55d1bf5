// The live view at 1920x1080 with 64 channels:
// - switching from the 1-way to the 64-way split and flushing everything it repaints
//   (cells, borders, labels, flags, task bar), against one full-screen repaint and flush of a
//   plain window in the same run: at most 6 of those;
// - an alarm flag change of one channel repaints only that cell's flag box (pixels flushed
//   per change, against the box's own pixels: at most 1).
#include "BenchPages.h"
#include "core_ratio_reporter.h"

#include "model/MainViewManager.h"
#include "protocol/ChannelStateNotice.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "ui/MainViewWindow.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/RecordFlagBox.h"
#include "ui/liveview/VyVideoScreen.h"

#include <algorithm>

namespace {

constexpr int kChannels = 64;
constexpr int kSplit1 = 0;
constexpr int kSplit64 = 22;

class Plain : public VyWidget {
    VY_OBJECT(Plain, VyWidget)
public:
    Plain()
        : VyWidget(nullptr, Window) {}
    void paintEvent(VyPaintEvent*) override { canvas()->fillRect(rect(), 0xFF202020); }
};

struct Scene {
    VyApplication* app;
    MainViewManager* manager;
    MainViewWindow* window;
    Plain* plain;
};

Scene& scene() {
    static Scene* s = [] {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontEngine::instance().setFontFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                                             VyFontEngine::kDeviceFontReserveBytes);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        sc->app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(sc->app->screen());
        sc->manager = new MainViewManager;
        sc->plain = new Plain;
        sc->plain->setGeometry(0, 0, 1920, 1080);
        sc->window = new MainViewWindow;
        sc->window->show();
        sc->window->startLiveView(kChannels);
        // Every channel with a camera and a name, a few with flags.
        for (int ch = 0; ch < kChannels; ++ch) {
            ChannelStateNotice n;
            n.channel = uint8_t(ch);
            n.kind = ChannelStateNotice::kKindCamera;
            n.flags = ChannelStateNotice::kCamera |
                      (ch % 3 == 0 ? ChannelStateNotice::kRecording : 0u) |
                      (ch % 7 == 0 ? ChannelStateNotice::kMotion : 0u);
            n.setName("Camera " + std::to_string(ch + 1));
            uint8_t body[ChannelStateNotice::kSize];
            n.encode(body);
            sc->manager->applyChannelState(body, sizeof body);
        }
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void BM_FullScreenFlush(benchmark::State& state) {
    Scene& s = scene();
    s.window->hide();
    s.plain->show();
    s.app->processPostedEvents();
    repaintAndFlush(state, s.plain, s.app);
    s.plain->hide();
    s.window->show();
    s.app->processPostedEvents();
}

void BM_Switch1To64(benchmark::State& state) {
    Scene& s = scene();
    VyVideoScreen* screen = s.window->videoScreen();
    const int flushes = s.app->screen()->flushCount();
    for (auto _ : state) {
        state.PauseTiming();
        screen->setLayout(kSplit1);
        s.app->processPostedEvents();
        state.ResumeTiming();
        screen->setLayout(kSplit64);
        s.app->processPostedEvents();
    }
    state.counters["flushes"] =
        double(s.app->screen()->flushCount() - flushes) / double(state.iterations());
}

double g_flagPixelsRatio = -1;

void BM_AlarmFlagChange(benchmark::State& state) {
    Scene& s = scene();
    VyVideoScreen* screen = s.window->videoScreen();
    screen->setLayout(kSplit64);
    s.app->processPostedEvents();
    VyScreen* out = s.app->screen();
    bool on = false;
    auto toggle = [&] {
        on = !on;
        ChannelStateNotice n;
        n.channel = 5;
        n.kind = ChannelStateNotice::kKindCamera;
        n.flags = ChannelStateNotice::kCamera | (on ? ChannelStateNotice::kPir : 0u);
        n.setName("Camera 6");
        uint8_t body[ChannelStateNotice::kSize];
        n.encode(body);
        s.manager->applyChannelState(body, sizeof body);
        s.app->processPostedEvents();
    };
    for (auto _ : state)
        toggle();
    // The largest repaint of one change, outside the timing.
    const RecordFlagBox* box = screen->cellOfChannel(5)->flagBox();
    uint64_t largest = 0;
    for (int i = 0; i < 20; ++i) {
        const uint64_t before = out->flushedPixelCount();
        toggle();
        largest = std::max(largest, out->flushedPixelCount() - before);
    }
    state.counters["pixelsFlushed"] = double(largest);
    g_flagPixelsRatio = double(largest) / double(box->width() * box->height());
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Switch1To64)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_AlarmFlagChange)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_Switch1To64", "BM_FullScreenFlush", 6.0);
        reportTarget("alarm flag change: pixels flushed / flag box pixels", g_flagPixelsRatio,
                     false, 1.0);
    });
}
