// The key manager against real controls: keys go in through the scripted key library and the
// application's queue, as a front-panel key does.
#include "toolkit/widgets/ControlTestApp.h"

#include "platform/keys/VyQueuedKeyLibrary.h"
#include "platform/keys/VyScriptedKeyLibrary.h"
#include "protocol/IpcMsgHeader.h"
#include "protocol/ServiceKeyNotice.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/input/VyKeyRecorderLink.h"
#include "toolkit/widgets/CWidget.h"
#include "toolkit/widgets/ProxyButton.h"
#include "toolkit/widgets/VyGroupBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySlider.h"
#include "toolkit/widgets/VySpinBox.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using Keys = std::vector<uint32_t>;

class FakeLink : public VyKeyRecorderLink {
public:
    FakeLink() { std::memset(&device, 0, sizeof device); }
    Features features() const override { return feature; }
    int channelCount() const override { return channels; }
    SerialKeyboardBlock serialKeyboard() override { return serial; }
    DeviceParamBlock deviceParams() override { return device; }
    void storeDeviceParams(const DeviceParamBlock& block) override {
        device = block;
        ++stores;
    }
    void sendPointOfSaleText(const uint8_t* buffer, uint32_t length) override {
        posTexts.emplace_back(reinterpret_cast<const char*>(buffer), length);
    }
    void sendPtzCommand(const PTZ_keyvaluet& command) override { ptz.push_back(command.command); }

    Features feature;
    SerialKeyboardBlock serial{};
    int channels = 16;
    DeviceParamBlock device;
    int stores = 0;
    std::vector<std::string> posTexts;
    std::vector<int> ptz;
};

class FakeTarget : public VyKeyTarget {
public:
    bool keyAction(uint32_t key) override {
        actions.push_back(key);
        return true;
    }
    bool selectChannel(int channel) override {
        channels.push_back(channel);
        return true;
    }
    VyWidget* keyWindow() const override { return window; }
    Keys actions;
    std::vector<int> channels;
    VyWidget* window = nullptr;
};

// A composite that takes the key focus and records the toolkit keys it receives.
class KeyProbe : public CWidget {
    VY_OBJECT(KeyProbe, CWidget)
public:
    using CWidget::CWidget;
    bool acceptsKeyFocus() const override { return true; }
    void keyPressEvent(VyKeyEvent* e) override {
        keys.push_back(e->key());
        e->accept();
    }
    std::vector<int> keys;
};

class KeyManagerTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        library = std::make_shared<VyScriptedKeyLibrary>();
        makeManager();
        owned = std::make_unique<VyWidget>();
        window = owned.get();
        window->setGeometry(0, 0, 640, 480);
        window->show();
    }
    void TearDown() override {
        owned.reset();
        keys.reset();
        VyKeyManager::setKeyRestriction(false);
        ControlTest::TearDown();
    }
    void makeManager() {
        keys.reset();
        VyKeyManager::Setup setup;
        setup.library = library;
        setup.link = &link;
        setup.startPollThread = false;
        keys = std::make_unique<VyKeyManager>(setup);
    }
    // A front-panel key: read by one poll cycle, delivered through the queue.
    void press(uint32_t key) {
        library->press(key);
        keys->pollOnce();
        // Twice: a typed digit is posted on to the focus widget.
        app()->processPostedEvents();
        app()->processPostedEvents();
    }
    void remote(uint32_t key) {
        VyApplication::postEvent(keys.get(), std::make_unique<DvrKeyEvent>(key, 1));
        app()->processPostedEvents();
    }
    void liveView() {
        mainView.window = window;
        keys->setKeyTarget(VyKeyTarget::MainView, &mainView);
    }
    template <typename T>
    T* add(T* w, int x, int y, int width = 100, int height = 30) {
        w->setGeometry(x, y, width, height);
        w->show();
        return w;
    }

    FakeLink link;
    FakeTarget mainView;
    std::shared_ptr<VyScriptedKeyLibrary> library;
    std::unique_ptr<VyKeyManager> keys;
    std::unique_ptr<VyWidget> owned;
    VyWidget* window = nullptr; // the main window, 640 x 480
};

} // namespace

TEST_F(KeyManagerTest, DigitsSelectChannelsInTheLiveView) {
    struct Case {
        int channels;
        Keys digits; // device keys 7..16
        std::vector<int> selected;
    };
    const Case cases[] = {
        {16, {8, 9}, {1, 12}},   // 1 at once, then 12
        {8, {9, 7}, {2}},        // 2 at once, 20 is beyond the device
        {8, {7, 13}, {6}},       // 0 alone selects nothing, 06 is 6
        {64, {13, 11}, {6, 64}}, // the last channel of a 64-channel device
    };
    liveView();
    for (const Case& c : cases) {
        link.channels = c.channels;
        mainView.channels.clear();
        advance(VyKeyManager::kDigitTimeoutMs);
        for (uint32_t d : c.digits)
            press(d);
        EXPECT_EQ(mainView.channels, c.selected) << c.channels;
        EXPECT_TRUE(keys->channelDigits().isEmpty());
    }
    // A lone digit is forgotten after the digit time-out: the next one starts afresh.
    mainView.channels.clear();
    press(8);
    advance(VyKeyManager::kDigitTimeoutMs);
    press(9);
    EXPECT_EQ(mainView.channels, (std::vector<int>{1, 2}));

    // Direct channel keys: 17..23 are channels 10..16, 102..149 channels 17..64.
    mainView.channels.clear();
    link.channels = 17;
    for (uint32_t key : {17u, 23u, 102u, 103u})
        press(key);
    EXPECT_EQ(mainView.channels, (std::vector<int>{10, 16, 17}));
}

TEST_F(KeyManagerTest, DigitsAreTypedIntoTheFocusWhenAnotherWindowIsActive) {
    liveView();
    VyWidget dialog;
    dialog.setGeometry(100, 100, 300, 200);
    auto* probe = add(new KeyProbe(&dialog), 10, 10);
    dialog.show();
    press(10);
    EXPECT_EQ(keys->keyFocusWidget(), probe);
    EXPECT_EQ(probe->keys, (std::vector<int>{0x33}));
    EXPECT_TRUE(mainView.channels.empty());
}

TEST_F(KeyManagerTest, AnAddressedRemoteActsOnlyOnItsDevice) {
    struct Case {
        uint32_t deviceId;
        bool acts;
    };
    liveView();
    for (const Case& c : {Case{3, false}, Case{0, true}, Case{5, true}}) {
        link.device.deviceId = c.deviceId;
        link.device.remoteControlAddress = 5;
        makeManager();
        keys->setKeyTarget(VyKeyTarget::MainView, &mainView);
        mainView.actions.clear();
        remote(29);
        press(30); // a key from any other source always acts
        EXPECT_EQ(mainView.actions, (c.acts ? Keys{29, 30} : Keys{30})) << c.deviceId;
    }
}

TEST_F(KeyManagerTest, AddressEntryKeepsTheLastThreeDigits) {
    link.device.deviceId = 234;
    makeManager();
    for (uint32_t key : {91u, 8u, 9u, 10u, 11u})
        remote(key);
    EXPECT_TRUE(keys->addressEntry());
    remote(28);
    EXPECT_FALSE(keys->addressEntry());
    EXPECT_EQ(keys->remoteAddress(), 234u);
    EXPECT_EQ(link.stores, 1);
    EXPECT_EQ(link.device.remoteControlAddress, 234u);
}

TEST_F(KeyManagerTest, DownReachesASpinBoxWhichThenKeepsUpAndDown) {
    auto* button = add(new VyPushButton("a", window), 20, 20);
    auto* spin = add(new VySpinBox(window), 20, 100);
    spin->setRange(0, 10);
    spin->setValue(5);
    keys->setKeyFocusWidget(button);
    press(25);
    EXPECT_EQ(keys->keyFocusWidget(), spin);
    EXPECT_TRUE(spin->hasFocus()); // drawn in its Focus slot
    EXPECT_TRUE(keys->capturesArrows());
    press(25);
    EXPECT_EQ(keys->keyFocusWidget(), spin);
    EXPECT_EQ(spin->value(), 4);
    press(27); // a spin box leaves Left and Right to the navigation
    EXPECT_EQ(keys->keyFocusWidget(), spin);
}

TEST_F(KeyManagerTest, UpWrapsToTheBottomOnceAndStopsWhenNothingElseIsThere) {
    auto* top = add(new VyPushButton("top", window), 200, 20);
    auto* middle = add(new VyPushButton("middle", window), 260, 200);
    auto* bottom = add(new VyPushButton("bottom", window), 150, 400);
    keys->setKeyFocusWidget(top);
    press(24);
    EXPECT_EQ(keys->keyFocusWidget(), bottom);
    press(24);
    EXPECT_EQ(keys->keyFocusWidget(), middle);
    delete middle;
    delete bottom;
    press(24);
    EXPECT_EQ(keys->keyFocusWidget(), top);
}

TEST_F(KeyManagerTest, ANavigationAreaKeepsTheSearchInside) {
    VyWidget* left = add(new VyWidget(window), 0, 0, 300, 480);
    left->setWidgetKind(VyWidget::NavigationArea);
    auto* a = add(new VyPushButton("a", left), 20, 20);
    auto* outside = add(new VyPushButton("b", window), 400, 20);
    keys->setKeyFocusWidget(a);
    press(27);
    EXPECT_EQ(keys->keyFocusWidget(), a);
    left->setWidgetKind(VyWidget::OrdinaryKind);
    press(27);
    EXPECT_EQ(keys->keyFocusWidget(), outside);
}

TEST_F(KeyManagerTest, OkActivatesEachKindOfControl) {
    auto* box = add(new VyGroupBox("box", window), 20, 20, 200, 100);
    box->setCheckable(true);
    auto* proxy = add(new ProxyButton(window), 20, 200);
    auto* button = add(new VyPushButton("b", window), 20, 300);
    SignalCounter proxyRuns(proxy, &proxy->proxyAction);
    SignalCounter proxyPresses(proxy, &proxy->pressed);
    SignalCounter clicks(button, &button->clicked);

    keys->setKeyFocusWidget(box);
    const bool wasChecked = box->isChecked();
    press(28);
    EXPECT_NE(box->isChecked(), wasChecked);

    keys->setKeyFocusWidget(proxy);
    press(28);
    EXPECT_EQ(proxyRuns.count, 1);
    EXPECT_EQ(proxyPresses.count, 0) << "no press animation";

    keys->setKeyFocusWidget(button);
    press(28);
    EXPECT_EQ(clicks.count, 0);
    advance(VyKeyManager::kPressAnimationMs);
    EXPECT_EQ(clicks.count, 1);
}

TEST_F(KeyManagerTest, KeysOutsideTheTablesAreIgnored) {
    liveView();
    auto* probe = add(new KeyProbe(window), 20, 20);
    auto* right = add(new VyPushButton("r", window), 300, 20);
    keys->setKeyFocusWidget(probe);
    for (uint32_t key : {0u, 150u, 200u, 0xFFFFFFFFu})
        VyApplication::postEvent(keys.get(), std::make_unique<DvrKeyEvent>(key));
    // App's remote keys: codes outside 128..173 and unmapped ones are dropped; 153 is Right.
    for (uint32_t code : {127u, 174u, 131u, 153u}) {
        IpcMsgHeader h;
        h.SubType = 186;
        h.msgValue = code;
        h.dataLen = ServiceKeyNotice::kSize;
        auto* block = static_cast<uint8_t*>(std::calloc(1, kIpcHeaderSize + h.dataLen));
        ipcEncodeHeader(h, block);
        auto e = std::make_unique<CEvent>(UiEventType::DvrKey);
        e->setData(VyEventData(block));
        VyApplication::postEvent(keys.get(), std::move(e));
    }
    app()->processPostedEvents();
    EXPECT_TRUE(mainView.actions.empty());
    EXPECT_EQ(keys->keyFocusWidget(), right);
}

TEST_F(KeyManagerTest, TheKeyRestrictionLetsOnlyEscapeThrough) {
    liveView();
    auto* probe = add(new KeyProbe(window), 20, 20);
    keys->setKeyFocusWidget(probe);
    VyKeyManager::setKeyRestriction(true);
    for (uint32_t key : {29u, 8u, 28u, 49u, 96u, 78u})
        press(key);
    EXPECT_TRUE(mainView.actions.empty());
    EXPECT_EQ(probe->keys, (std::vector<int>{VyKeyEvent::KeyEscape, VyKeyEvent::KeyEscape}));
}

TEST_F(KeyManagerTest, LampCommandsGoOutInTheirOrders) {
    using Lamp = VyScriptedKeyLibrary::LampCommand;
    using Lamps = std::vector<Lamp>;
    struct Case {
        int mode;
        Lamps sent;
    };
    const Case modes[] = {{1, {{33, false, 0}, {97, false, 0}, {17, false, 0}, {33, false, 0}}},
                          {2, {{18, false, 0}}},
                          {3, {{16, false, 0}}},
                          {9, {{40, false, 0}}}};
    for (const Case& c : modes) {
        keys->setLampMode(c.mode);
        EXPECT_EQ(library->takeLampCommands(), c.sent) << c.mode;
    }
    const Case data[] = {{1, {{20, false, 0}}},
                         {2, {{20, true, 4}}},
                         {3, {{20, true, 6}}},
                         {0, {{20, true, 0}, {21, false, 0}}}};
    for (const Case& c : data) {
        keys->setDataLamp(c.mode, 77);
        EXPECT_EQ(library->takeLampCommands(), c.sent) << c.mode;
    }

    // Hardware class 2 blinks mode 3 from the poll cycle: 17/18 always, 96/97 and 32/33
    // only while their status flags are set.
    library->setBoardVersion(0x80000000u);
    makeManager();
    keys->setLampMode(3);
    EXPECT_TRUE(library->takeLampCommands().empty());
    keys->pollOnce();
    keys->setStatusFlags(1);
    keys->pollOnce();
    keys->pollOnce();
    keys->setStatusFlags(4);
    keys->pollOnce();
    const Lamps blink = {{17, false, 0}, {97, false, 0}, {33, false, 0}, // flags 0
                         {18, false, 0}, {96, false, 0}, {33, false, 0}, // flag 1
                         {17, false, 0}, {97, false, 0}, {33, false, 0},
                         {18, false, 0}, {97, false, 0}, {32, false, 0}}; // flag 4
    EXPECT_EQ(library->takeLampCommands(), blink);
    keys->setLampMode(2); // any mode ends the blinking
    keys->pollOnce();
    EXPECT_EQ(library->takeLampCommands(), (Lamps{{18, false, 0}}));
}

TEST_F(KeyManagerTest, FivePressesOfTheCountedKeyFlipTheKeyTrace) {
    for (int i = 0; i < 4; ++i) {
        press(45);
        advance(VyKeyManager::kCountedPressMs - 1);
    }
    advance(1); // the run is broken
    for (int i = 0; i < 4; ++i)
        press(45);
    EXPECT_FALSE(keys->keyTrace());
    press(45);
    EXPECT_TRUE(keys->keyTrace());
}

TEST_F(KeyManagerTest, SerialPtzAndPointOfSaleReachTheRecorder) {
    library->pushPtzCommand(PTZ_keyvaluet{3, {1, 2, 3}});
    library->pushPtzCommand(PTZ_keyvaluet{18, {0, 0, 0}});
    press(89);
    press(89);
    press(89); // nothing pending: dropped
    EXPECT_EQ(link.ptz, (std::vector<int>{3}));

    link.feature.pointOfSale = link.feature.pointOfSaleOn = true;
    makeManager();
    EXPECT_FALSE(library->settings().posSelected); // only with a serial keyboard
    library->pushPosText("RECEIPT 12");
    keys->pollOnce();
    ASSERT_EQ(link.posTexts.size(), 1u);
    EXPECT_EQ(link.posTexts[0], std::string("RECEIPT 12") + '\0'); // the terminator counted
}

TEST_F(KeyManagerTest, AKeyHidesTheCursorUntilTheMouseMoves) {
    VyScreenCursor* cursor = app()->screen()->cursor();
    cursor->show();
    press(24);
    EXPECT_FALSE(cursor->isShown());
    pointer(5, 5);
    EXPECT_TRUE(cursor->isShown());
}

TEST_F(KeyManagerTest, TheKeyFocusIsForgottenWhenItDiesWithItsSignalsBlocked) {
    auto* probe = add(new KeyProbe(window), 20, 20);
    keys->setKeyFocusWidget(probe);
    probe->blockSignals(true);
    delete probe;
    EXPECT_EQ(keys->keyFocusWidget(), nullptr);
    press(27); // nothing focusable left: the key finds no focus and does nothing
    EXPECT_EQ(keys->keyFocusWidget(), nullptr);
}

TEST_F(KeyManagerTest, ASliderKeepsTheArrowsAlongItsGrooveUntilItsEnd) {
    auto* slider = add(new VySlider(window), 20, 20, 200, 30);
    slider->setRange(0, 2);
    slider->setValue(1);
    auto* below = add(new VyPushButton("b", window), 20, 100);
    auto* right = add(new VyPushButton("r", window), 300, 20);
    keys->setKeyFocusWidget(slider);
    press(27);
    EXPECT_EQ(keys->keyFocusWidget(), slider);
    EXPECT_EQ(slider->value(), 2);
    press(27); // at its end: the key moves the focus on
    EXPECT_EQ(keys->keyFocusWidget(), right);
    keys->setKeyFocusWidget(slider);
    press(25); // across the groove
    EXPECT_EQ(keys->keyFocusWidget(), below);
    EXPECT_EQ(slider->value(), 2);
}

TEST_F(KeyManagerTest, TheSearchLeavesACheckableGroupBoxThroughItsEmptyParts) {
    auto* box = add(new VyGroupBox("box", window), 10, 10, 400, 200);
    box->setCheckable(true);
    auto* a = add(new VyPushButton("a", box), 20, 40);
    auto* b = add(new VyPushButton("b", box), 250, 40);
    auto* plain = add(new VyGroupBox("plain", window), 10, 250, 400, 100);
    EXPECT_TRUE(VyKeyManager::isFocusable(box));
    EXPECT_FALSE(VyKeyManager::isFocusable(plain)) << "it takes no focus, it could not show it";
    keys->setKeyFocusWidget(a);
    press(27);
    EXPECT_EQ(keys->keyFocusWidget(), b);
}

TEST_F(KeyManagerTest, TheSerialKeyboardIsSetUpFromItsBlock) {
    link.feature = {true, true, true, true};
    link.serial.baudIndex = 4;
    link.serial.parity = 2;
    link.serial.stopBits = 1;
    link.serial.keyMux = 1;
    link.device.deviceId = 7;
    makeManager();
    const VyQueuedKeyLibrary::Settings set = library->settings();
    EXPECT_TRUE(set.initialised);
    EXPECT_EQ(set.name, VyKeyManager::kLibraryName);
    EXPECT_TRUE(set.posSelected);
    EXPECT_EQ(set.mux, 0) << "a stored 1 selects the key board";
    EXPECT_TRUE(set.baudSet);
    EXPECT_EQ(set.serial.baudIndex, 4);
    EXPECT_EQ(set.serial.stopBits, 1);
    EXPECT_EQ(set.serial.parity, 2);
    EXPECT_EQ(set.deviceId, 7u);
}

// Stands for the live view's PTZ panel: the focus search may reach 40 pixels beyond it.
class VyPtzWidget : public VyWidget {
    VY_OBJECT(VyPtzWidget, VyWidget)
public:
    using VyWidget::VyWidget;
};

TEST_F(KeyManagerTest, InsideAPtzPanelTheSearchReachesJustBeyondIt) {
    auto* panel = add(new VyPtzWidget(window), 100, 100, 200, 200);
    auto* inside = add(new VyPushButton("in", panel), 10, 10);
    auto* near = add(new VyPushButton("near", window), 320, 100);
    auto* far = add(new VyPushButton("far", window), 400, 300, 200, 100);
    keys->setKeyFocusWidget(inside);
    press(27);
    EXPECT_EQ(keys->keyFocusWidget(), near);
    keys->setKeyFocusWidget(inside);
    press(25); // the far button below lies outside the widened panel: Down wraps to the near one
    EXPECT_EQ(keys->keyFocusWidget(), near);
    EXPECT_NE(keys->keyFocusWidget(), far);
}

TEST_F(KeyManagerTest, AManagerMadeOnDemandHandsItsTargetsToTheNextOne) {
    keys.reset();
    VyKeyManager::instance()->setKeyTarget(VyKeyTarget::MainView, &mainView);
    mainView.window = window;
    makeManager();
    EXPECT_EQ(VyKeyManager::instance(), keys.get());
    press(29);
    EXPECT_EQ(mainView.actions, Keys{29});
}
