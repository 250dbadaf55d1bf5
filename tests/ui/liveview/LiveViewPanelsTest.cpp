// The tool bar's panels and App's live-view requests: the PTZ panel's held buttons, the
// colour panel's settled writes, the digital zoom's records, the talk-back state and page
// turns from App, and instant playback through the window layer.
#include "LiveViewTestApp.h"

#include "ipc/IpcMsgBlock.h"
#include "protocol/CameraBlock.h"
#include "protocol/DualTalkNotice.h"
#include "protocol/MainType.h"
#include "protocol/ParamRequest.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewZoom.h"
#include "protocol/SubType.h"
#include "protocol/TurnPageNotice.h"
#include "runtime/VyDateTime.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/events/TurnPageEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/widgets/VyAbstractButton.h"
#include "toolkit/widgets/VySlider.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/ShellActions.h"
#include "ui/liveview/ColourPanel.h"
#include "ui/liveview/DigitalZoomView.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyPtzWidget.h"
#include "ui/liveview/VyVideoScreen.h"

namespace {

constexpr int kLayout4 = 1;

class LiveViewPanelsTest : public LiveViewTest {
protected:
    VyVideoScreen* screen() const { return window->videoScreen(); }
    LiveViewController* controller() const { return window->controller(); }
    VyPoint centreOf(const VyWidget* w) const {
        return w->mapToGlobal(VyPoint(w->width() / 2, w->height() / 2));
    }
    std::vector<PreviewControl> controls() const {
        std::vector<PreviewControl> out;
        for (const RecordedMessage& m : link.sent)
            if (m.mainType == MainType::Preview && m.subType == PreviewSubType::Control)
                out.push_back(*PreviewControl::decode(m.body.data(), uint32_t(m.body.size())));
        return out;
    }
    std::vector<PreviewZoom> zooms() const {
        std::vector<PreviewZoom> out;
        for (const RecordedMessage& m : link.sent)
            if (m.mainType == MainType::Preview && m.subType == PreviewSubType::Zoom)
                out.push_back(*PreviewZoom::decode(m.body.data(), uint32_t(m.body.size())));
        return out;
    }
    // Parameter writes of the camera block.
    std::vector<CameraBlock> cameraWrites() const {
        std::vector<CameraBlock> out;
        for (const RecordedMessage& m : link.sent) {
            if (m.mainType != MainType::Param || m.subType != ParamSubType::Access ||
                m.body.size() < ParamRequest::kSize + CameraBlock::kSize)
                continue;
            CameraBlock b;
            std::memcpy(&b, m.body.data() + ParamRequest::kSize, sizeof b);
            out.push_back(b);
        }
        return out;
    }
    // App's notification as the UI manager forwards it to the main-view manager.
    void notify(int uiEventType, uint16_t subType, uint32_t msgValue) {
        IpcMsgHeader h{};
        h.MainType = MainType::System;
        h.SubType = subType;
        h.msgValue = msgValue;
        auto event = std::make_unique<CEvent>(uiEventType);
        event->setData(VyEventData(ipcAllocBlock(h).release()));
        VyApplication::postEvent(manager.get(), std::move(event));
        settle();
    }
};

class PlaybackShell : public ShellActions {
public:
    void openPlayback(int channel, int64_t at) override { asked.emplace_back(channel, at); }
    void openSettings() override {}
    void openBackup() override {}
    void openUserMenu() override {}
    void toggleLock() override {}
    void openShutdown() override {}
    void openAnalytics() override {}
    std::vector<std::pair<int, int64_t>> asked;
};

VyDateTime fixedNow() {
    return VyDateTime::fromTime_t(1800000000);
}

} // namespace

TEST_F(LiveViewPanelsTest, HeldPtzButtonsSendStartOnPressAndStopOnRelease) {
    open(4);
    screen()->selectCell(screen()->cellOfChannel(2));
    controller()->act(VideoToolBar::Ptz);
    settle();
    VyPtzWidget* ptz = controller()->ptzPanel();
    ASSERT_NE(ptz, nullptr);
    ASSERT_TRUE(ptz->isVisible());
    EXPECT_EQ(ptz->channel(), 2);
    ptz->setSpeed(6);
    link.sent.clear();

    struct Held {
        VyPtzWidget::Button button;
        int32_t move;
    };
    for (const Held& h : {Held{VyPtzWidget::UpLeft, PreviewControl::kPtzUpLeft},
                          Held{VyPtzWidget::Right, PreviewControl::kPtzRight},
                          Held{VyPtzWidget::ZoomIn, PreviewControl::kPtzZoomIn},
                          Held{VyPtzWidget::IrisClose, PreviewControl::kPtzIrisClose}}) {
        link.sent.clear();
        const VyPoint at = centreOf(ptz->button(h.button));
        pointer(at.x, at.y, 1);
        ASSERT_EQ(link.sent.size(), 1u) << h.move;
        advance(700); // held: nothing more goes out
        pointer(at.x, at.y, 0);
        ASSERT_EQ(link.sent.size(), 2u);
        // command, channel, action, reserved, move (i32), speed (i32)
        const std::vector<uint8_t> start{4, 2, 1, 0, uint8_t(h.move), 0, 0, 0, 6, 0, 0, 0};
        std::vector<uint8_t> stop = start;
        stop[2] = 0;
        EXPECT_EQ(link.sent[0].body, start);
        EXPECT_EQ(link.sent[1].body, stop);
        advance(600);
    }

    // OK from the remote on a focused button: a short move.
    link.sent.clear();
    VyKeyEvent ok(VyEvent::KeyPress, VyKeyEvent::KeyOk);
    VyApplication::sendEvent(ptz->button(VyPtzWidget::FocusFar), &ok);
    ASSERT_EQ(controls().size(), 1u);
    EXPECT_EQ(controls()[0].value, PreviewControl::kPtzFocusFar);
    advance(VyAbstractButton::kAnimateClickMs);
    ASSERT_EQ(controls().size(), 2u);
    EXPECT_EQ(controls()[1].action, PreviewControl::kStop);

    // Hidden while held: the camera stops anyway, and the release that follows sends nothing.
    link.sent.clear();
    const VyPoint down = centreOf(ptz->button(VyPtzWidget::Down));
    pointer(down.x, down.y, 1);
    ptz->hide();
    settle();
    pointer(down.x, down.y, 0);
    ASSERT_EQ(controls().size(), 2u);
    EXPECT_EQ(controls()[1].action, PreviewControl::kStop);
    EXPECT_EQ(controls()[1].value, PreviewControl::kPtzDown);

    // Presets: go to and store, the number from the spin box.
    controller()->act(VideoToolBar::Ptz);
    settle();
    link.sent.clear();
    ptz->presetBox()->setValue(300); // clamped to the last preset
    ptz->callButton()->click();
    ptz->storeButton()->click();
    ASSERT_EQ(controls().size(), 2u);
    EXPECT_EQ(controls()[0].command, PreviewControl::kPtzPreset);
    EXPECT_EQ(controls()[0].action, PreviewControl::kOn);
    EXPECT_EQ(controls()[0].value, PreviewControl::kLastPreset);
    EXPECT_EQ(controls()[1].action, PreviewControl::kOff);

    // Escape that reaches the window closes the panel and brings the tool bar back.
    VyKeyEvent escape(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
    VyApplication::sendEvent(window.get(), &escape);
    EXPECT_FALSE(ptz->isVisible());
    EXPECT_TRUE(screen()->toolBar()->isVisible());
}

TEST_F(LiveViewPanelsTest, ColourChangesAreWrittenOnceTheSlidersRest) {
    open(4);
    screen()->selectCell(screen()->cellOfChannel(1));
    controller()->act(VideoToolBar::Colour);
    settle();
    ColourPanel* panel = controller()->colourPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->channel(), 1);
    link.sent.clear();

    // A drag: steps closer together than the settling time are one burst.
    for (int v = 100; v < 120; v += 2) {
        panel->slider(ColourPanel::Brightness)->setValue(v);
        advance(ColourPanel::kSettleMs - 50);
    }
    panel->slider(ColourPanel::Hue)->setValue(40);
    EXPECT_TRUE(cameraWrites().empty());
    advance(ColourPanel::kSettleMs - 1);
    EXPECT_TRUE(cameraWrites().empty());
    advance(2);
    ASSERT_EQ(cameraWrites().size(), 1u);
    EXPECT_EQ(cameraWrites()[0].channel, 1);
    EXPECT_EQ(cameraWrites()[0].brightness, 118);
    EXPECT_EQ(cameraWrites()[0].hue, 40);
    advance(5 * ColourPanel::kSettleMs);
    EXPECT_EQ(cameraWrites().size(), 1u);

    // Default is a second burst; Close writes a pending one at once.
    panel->defaultButton()->click();
    panel->slider(ColourPanel::Contrast)->setValue(7);
    panel->closeButton()->click();
    settle();
    ASSERT_EQ(cameraWrites().size(), 2u);
    EXPECT_EQ(cameraWrites()[1].brightness, CameraBlock::kDefaultImageValue);
    EXPECT_EQ(cameraWrites()[1].contrast, 7);
    EXPECT_FALSE(panel->isVisible());
    advance(2 * ColourPanel::kSettleMs);
    EXPECT_EQ(cameraWrites().size(), 2u);
}

TEST_F(LiveViewPanelsTest, DigitalZoomSendsThePartShownAndEscapeRestoresTheWholePicture) {
    open(4);
    screen()->setLayout(kLayout4);
    MainViewVideo* cell = screen()->cellOfChannel(3);
    screen()->selectCell(cell);
    controller()->act(VideoToolBar::Zoom);
    settle();
    DigitalZoomView* view = controller()->zoomView();
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(cell->isExclusive());
    const int pageStart = screen()->pageStart();
    screen()->nextPage(); // waits while zoomed
    EXPECT_EQ(screen()->pageStart(), pageStart);

    link.sent.clear();
    const VyPoint corner = cell->mapToGlobal(VyPoint(0, 0));
    VyApplication::injectPointer(int16_t(corner.x + 1), int16_t(corner.y + 1), 0, 2); // wheel in
    app()->processPostedEvents();
    settle();
    ASSERT_EQ(zooms().size(), 1u);
    // One notch in around the cell's top-left pixel: the part stays at that corner.
    EXPECT_EQ(zooms()[0].channel, 3);
    EXPECT_LE(zooms()[0].left, 5);
    EXPECT_LE(zooms()[0].top, 5);
    EXPECT_EQ(zooms()[0].right - zooms()[0].left, 8000);
    // The overview shows the part in its top-left corner.
    EXPECT_EQ(view->overviewPart().left, view->overviewRect().left);

    // Dragging left by a tenth of the cell shows a tenth of the part more to the right.
    const VyPoint mid = centreOf(cell);
    pointer(mid.x, mid.y, 1);
    pointer(mid.x - 100, mid.y, 1);
    pointer(mid.x - 100, mid.y, 0);
    ASSERT_GE(zooms().size(), 2u);
    EXPECT_NEAR(zooms().back().left, zooms()[0].left + 8000.0 * 100 / cell->width(), 2.0);
    EXPECT_EQ(zooms().back().top, zooms()[0].top);

    VyKeyEvent escape(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
    VyApplication::sendEvent(view, &escape);
    settle();
    EXPECT_TRUE(zooms().back().isWhole());
    EXPECT_FALSE(view->isVisible());
    EXPECT_FALSE(cell->isExclusive());
}

TEST_F(LiveViewPanelsTest, TalkBackFollowsAppsStateAndPageTurnsComeFromApp) {
    open(16);
    screen()->setLayout(kLayout4);
    MainViewVideo* cell = screen()->cellOfChannel(1);
    screen()->selectCell(cell);
    screen()->showToolBar(cell);
    ImageButton* talk = screen()->toolBar()->button(VideoToolBar::TalkBack);

    controller()->act(VideoToolBar::TalkBack);
    ASSERT_FALSE(controls().empty());
    EXPECT_EQ(controls().back().action, PreviewControl::kOn);
    EXPECT_EQ(talk->imagePath(), "images/talkback.png"); // nothing until App answers

    notify(UiEventType::DualTalk, SystemSubType::TalkState,
           DualTalkNotice{DualTalkNotice::kTalking, 1}.encode());
    EXPECT_EQ(talk->imagePath(), "images/talkback-on.png");
    screen()->showToolBar(screen()->cellOfChannel(0)); // lit over the talking channel only
    EXPECT_EQ(talk->imagePath(), "images/talkback.png");
    screen()->showToolBar(cell);
    EXPECT_EQ(talk->imagePath(), "images/talkback-on.png");
    controller()->act(VideoToolBar::TalkBack); // a second click stops it
    EXPECT_EQ(controls().back().action, PreviewControl::kOff);
    notify(UiEventType::DualTalk, SystemSubType::TalkState, 0x7709); // unknown state: failed
    EXPECT_EQ(manager->talkState(), DualTalkNotice::kFailed);
    EXPECT_EQ(talk->imagePath(), "images/talkback.png");

    // Page turns: next, previous, goto; a page beyond the last and an unknown operation do
    // nothing.
    struct Turn {
        uint32_t value;
        int pageStart;
    };
    const Turn turns[] = {
        {TurnPageNotice{TurnPageNotice::kNext, 0}.encode(), 4},
        {TurnPageNotice{TurnPageNotice::kNext, 0}.encode(), 8},
        {TurnPageNotice{TurnPageNotice::kPrevious, 0}.encode(), 4},
        {TurnPageNotice{TurnPageNotice::kGoto, 3}.encode(), 12},
        {TurnPageNotice{TurnPageNotice::kGoto, 4}.encode(), 12},
        {9, 12},
        {TurnPageNotice{TurnPageNotice::kGoto, 0}.encode(), 0},
    };
    for (const Turn& t : turns) {
        VyApplication::postEvent(manager.get(), std::make_unique<TurnPageEvent>(int(t.value)));
        settle();
        EXPECT_EQ(screen()->pageStart(), t.pageStart) << std::hex << t.value;
    }
}

TEST_F(LiveViewPanelsTest, InstantPlaybackOpensTheChannelFiveMinutesBack) {
    open(4);
    PlaybackShell shell;
    ShellActions* previous = ShellActions::instance();
    ShellActions::install(&shell);
    LiveViewController::setClock(&fixedNow);
    screen()->selectCell(screen()->cellOfChannel(2));
    screen()->showToolBar(screen()->selectedCell());
    EXPECT_TRUE(screen()->toolBar()->button(VideoToolBar::Playback)->isEnabled());
    controller()->act(VideoToolBar::Playback);
    LiveViewController::setClock(nullptr);
    ShellActions::install(previous);
    ASSERT_EQ(shell.asked.size(), 1u);
    EXPECT_EQ(shell.asked[0].first, 2);
    EXPECT_EQ(shell.asked[0].second, 1800000000 - 300);
}
