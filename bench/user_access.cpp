// The login dialog opened at 1920x1080 over a link that answers at once: the screen pixels
// flushed for it, in full-screen flushes (target: at most 3), and its time against one
// repaint of the whole screen. A rights check (function and channel) against a plain map
// lookup of a channel mask in the same run (target: no dearer).
#include "core_ratio_reporter.h"

#include "BenchTargets.h"
#include "model/RecorderLink.h"
#include "model/UserAccess.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UserListEntry.h"
#include "protocol/UserLoginAnswer.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "ui/users/UserLoginDialog.h"

#include <cstring>
#include <map>

namespace {

class InstantUserLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t mainType, uint16_t subType, const void*, uint32_t,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (mainType != MainType::User)
            return;
        if (subType == UserSubType::List) {
            UserListHeader head;
            head.count = 2;
            head.flags = UserListHeader::kLoginRequired;
            UserListEntry e[2];
            std::strcpy(e[0].name, "admin");
            e[0].admin = 1;
            std::strcpy(e[1].name, "oper");
            e[1].rights.functions = UserRights::kLiveView;
            e[1].rights.liveChannels = 0x5555555555555555ull;
            reply.resize(sizeof head + sizeof e);
            std::memcpy(reply.data(), &head, sizeof head);
            std::memcpy(reply.data() + sizeof head, e, sizeof e);
        } else if (subType == UserSubType::Login) {
            UserLoginAnswer a;
            a.result = UserLoginAnswer::kOk;
            a.rights.functions = UserRights::kLiveView;
            a.rights.liveChannels = 0x5555555555555555ull;
            reply.resize(sizeof a);
            std::memcpy(reply.data(), &a, sizeof a);
        }
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}
};

struct Scene {
    VyApplication* app;
    InstantUserLink link;
    UserAccess* access;
    VyWidget* background;
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
        sc->access = new UserAccess;
        sc->access->refreshUsers();
        sc->access->login("oper", "12345");
        // What the dialog opens over: a full-screen window, drawn once before timing.
        sc->background = new VyWidget(nullptr, VyWidget::Window);
        sc->background->setGeometry(0, 0, 1920, 1080);
        sc->background->show();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

double g_fullScreens = 0;
volatile bool g_sink = false;

void BM_OpenLoginDialog(benchmark::State& state) {
    Scene& s = scene();
    VyScreen* screen = s.app->screen();
    const double screenPixels = double(screen->width()) * double(screen->height());
    double pixels = 0;
    for (auto _ : state) {
        const uint64_t before = screen->flushedPixelCount();
        auto* dialog = new UserLoginDialog(s.access);
        dialog->show();
        s.app->processPostedEvents();
        pixels += double(screen->flushedPixelCount() - before);
        state.PauseTiming();
        delete dialog;
        s.app->processPostedEvents();
        state.ResumeTiming();
    }
    g_fullScreens = pixels / screenPixels / double(state.iterations());
    state.counters["fullScreenFlushes"] = g_fullScreens;
}

void BM_RepaintWholeScreen(benchmark::State& state) {
    Scene& s = scene();
    for (auto _ : state) {
        s.background->update();
        s.app->processPostedEvents();
    }
}

void BM_RightsCheck(benchmark::State& state) {
    const UserAccess& access = *scene().access;
    int ch = 0;
    for (auto _ : state) {
        g_sink = access.may(UserRights::kLiveView, ch);
        ch = (ch + 1) & 63;
    }
}

void BM_MapLookup(benchmark::State& state) {
    // The plain alternative: channel masks kept per function in a map.
    std::map<uint32_t, uint64_t> masks = {{UserRights::kLiveView, 0x5555555555555555ull},
                                          {UserRights::kPlayback, 1},
                                          {UserRights::kBackup, 0},
                                          {UserRights::kPtz, 0}};
    int ch = 0;
    for (auto _ : state) {
        auto it = masks.find(UserRights::kLiveView);
        g_sink = it != masks.end() && ((it->second >> ch) & 1) != 0;
        ch = (ch + 1) & 63;
    }
}

} // namespace

BENCHMARK(BM_OpenLoginDialog)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintWholeScreen)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RightsCheck)->Repetitions(5);
BENCHMARK(BM_MapLookup)->Repetitions(5);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        reportTarget("login dialog open, full-screen flushes", g_fullScreens, false, 3.0);
        r.info("BM_OpenLoginDialog", "BM_RepaintWholeScreen");
        r.ratio("BM_RightsCheck", "BM_MapLookup", 1.0);
    });
}
