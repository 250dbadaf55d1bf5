// The main view at 1280x720 in the 1-, 4-, 9-, 16- and 64-way splits, with record and alarm
// flags, a selected cell with its tool bar, channels without a camera and the task bar,
// composed over a plain video plane (where the cells are transparent the plane's grey shows)
// and compared with images checked by eye. A mismatch writes "*.actual.png" beside the golden
// image; accept it by copying it over once it has been looked at.
#include "LiveViewTestApp.h"

#include "platform/display/VyFrameDump.h"
#include "protocol/ChannelStateNotice.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoToolBar.h"

#include "ui/liveview/VyVideoScreen.h"
#include <cstring>

namespace {

// Composes the screen over a mid-grey video plane and compares it with the checked image
// tests/data/liveview/<name>.png; a mismatch writes <name>.actual.png beside it.
void expectGolden(VyApplication* app, const VyString& name) {
    VyScreen* s = app->screen();
    std::vector<uint16_t> plane(size_t(s->width()) * s->height(), 0x4210); // mid grey
    const VyBitmap actual =
        VyFrameDump::composed(s->mapping(), s->width(), s->height(), s->lineLength(), plane.data());
    const VyString expectedPath = VyString(VY_TEST_DATA_DIR "/liveview/") + name + ".png";
    const VyBitmap expected = VyBitmap::loadPng(expectedPath);
    int differing = -1;
    if (!expected.isNull() && expected.width() == actual.width() &&
        expected.height() == actual.height()) {
        differing = 0;
        const int n = actual.width() * actual.height() * 4;
        for (int i = 0; i < n; i += 4)
            differing += std::memcmp(expected.constBits() + i, actual.constBits() + i, 4) != 0;
    }
    if (differing != 0) {
        const VyString actualPath = VyString(VY_TEST_DATA_DIR "/liveview/") + name + ".actual.png";
        actual.savePng(actualPath);
        ADD_FAILURE() << (differing < 0 ? "no golden image " : "pixels differ from ")
                      << expectedPath.c_str() << "; drawn now: " << actualPath.c_str();
    }
}

struct GoldenCase {
    int layout;
    const char* name;
};

class LiveViewGolden : public LiveViewTest, public ::testing::WithParamInterface<GoldenCase> {
protected:
    const char* display() const override { return "mem:1280x720"; }

    void setState(int channel, uint32_t flags, const char* name) {
        ChannelStateNotice n;
        n.channel = uint8_t(channel);
        n.kind = ChannelStateNotice::kKindCamera;
        n.flags = flags;
        n.setName(name);
        uint8_t body[ChannelStateNotice::kSize];
        n.encode(body);
        manager->applyChannelState(body, sizeof body);
    }
};

} // namespace

TEST_P(LiveViewGolden, SplitMatchesTheCheckedImage) {
    const GoldenCase g = GetParam();
    LiveViewController::setClock([] { return VyDateTime(VyDate(2026, 11, 23), VyTime(9, 41, 0)); });
    // 64 channels; the last two have no camera.
    open(64, ~0ull >> 2);
    LiveViewController::setClock(nullptr);
    using N = ChannelStateNotice;
    setState(0, N::kCamera | N::kRecording, "Front door");
    setState(1, N::kCamera | N::kRecording | N::kMotion, "Gate");
    setState(2, N::kCamera | N::kSensor | N::kPir, "Parking");
    setState(3, N::kCamera | N::kAnalytics | N::kAnalyticsRe | N::kRecording, "Lobby");
    setState(62, 0, "");
    setState(63, 0, "");
    VyVideoScreen* screen = window->videoScreen();
    screen->setLayout(g.layout);
    if (g.layout == 0)
        screen->gotoPage(1); // the single split shows the selected channel
    // The last page for the 64-way split shows the cells without a camera too.
    MainViewVideo* selected = screen->cellOfChannel(1);
    screen->selectCell(selected);
    screen->showToolBar(selected);
    settle();

    expectGolden(app(), VyString("split-") + g.name);
}

INSTANTIATE_TEST_SUITE_P(Splits, LiveViewGolden,
                         ::testing::Values(GoldenCase{0, "1"}, GoldenCase{1, "4"},
                                           GoldenCase{4, "9"}, GoldenCase{11, "16"},
                                           GoldenCase{22, "64"}),
                         [](const auto& param) { return std::string("Split") + param.param.name; });

namespace {

struct PanelCase {
    const char* display;
    int language; // VyTranslation index
    int action;   // the tool bar's PTZ or colour button
    const char* name;
};

class LiveViewPanelGolden : public LiveViewTest, public ::testing::WithParamInterface<PanelCase> {
protected:
    const char* display() const override { return GetParam().display; }
};

} // namespace

// The PTZ and colour panels beside a selected cell of the 4-way split, at both output sizes
// and in a language of another script.
TEST_P(LiveViewPanelGolden, PanelMatchesTheCheckedImage) {
    const PanelCase p = GetParam();
    VyTranslation::instance()->changeLanguage(p.language);
    LiveViewController::setClock([] { return VyDateTime(VyDate(2026, 11, 23), VyTime(9, 41, 0)); });
    open(16);
    LiveViewController::setClock(nullptr);
    VyVideoScreen* screen = window->videoScreen();
    screen->setLayout(1);
    screen->selectCell(screen->cellOfChannel(0));
    window->controller()->act(p.action);
    settle();
    expectGolden(app(), VyString("panel-") + p.name);
}

INSTANTIATE_TEST_SUITE_P(
    Panels, LiveViewPanelGolden,
    ::testing::Values(PanelCase{"mem:1920x1080", 4, VideoToolBar::Ptz, "ptz-1920"},
                      PanelCase{"mem:1280x720", 15, VideoToolBar::Ptz, "ptz-1280-russian"},
                      PanelCase{"mem:1920x1080", 4, VideoToolBar::Colour, "colour-1920"},
                      PanelCase{"mem:1280x720", 15, VideoToolBar::Colour, "colour-1280-russian"}),
    [](const auto& param) {
        std::string n = param.param.name;
        for (char& c : n)
            c = c == '-' ? '_' : c;
        return n;
    });
