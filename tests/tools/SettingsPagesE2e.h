#pragma once
// The settings pages against the simulated recorder on a real socket, in one process: a
// page on a memory display, the UiManager routing App's "parameter changed", and helpers
// to read what the recorder stored.
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimSettingsBlocks.h"

#include "ipc/IpcClient.h"
#include "model/DeviceProfile.h"
#include "model/IpcRecorderLink.h"
#include "model/ParamAccess.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/settings/SettingsManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <unistd.h>

inline constexpr int kChannels = 4;
inline constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

class SettingsPagesE2e : public ::testing::Test {
protected:
    void SetUp() override {
        char dir[] = "/tmp/settings-e2e-XXXXXX";
        ASSERT_TRUE(::mkdtemp(dir));
        m_dir = dir;
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontMetrics::setFontFile(kFont, 5242880);
        translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(translation);
        translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice("mem:1280x720");
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();

        SimRecorderConfig config;
        config.channels = kChannels;
        config.alarmInputs = 2;
        config.alarmOutputs = 1;
        configure(config);
        recorder = std::make_unique<SimRecorder>(config);
        recorder->attach(server);
        ASSERT_TRUE(server.listen(m_dir + "/IPC_UI"));
        ASSERT_TRUE(server.start());
        IpcClientConfig cc;
        cc.socketPath = m_dir + "/IPC_UI";
        cc.joinableThreads = true;
        ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, cc));
        RecorderLink::setInstance(&link);
        manager = std::make_unique<UiManager>(models.get(), nullptr);
        link.setWaiterMode(true);

        DeviceProfile& p = DeviceProfile::current();
        p = DeviceProfile{};
        p.channelCount = kChannels;
        p.enableNormalRecord = p.enableMotionRecord = true;
        p.alarmInputNum = 2;
        p.alarmOutputNum = 1;
        p.emailTestEnable = p.emailScheduleEnable = p.ftpEnable = true;
        p.audioNum = 1;
        settings = std::make_unique<SettingsManager>();
        window = std::make_unique<VyWidget>();
        window->setGeometry(0, 0, 1280, 720);
        window->show();
    }
    void TearDown() override {
        window.reset();
        settings.reset();
        client.stop();
        server.stop();
        manager.reset();
        models.reset();
        RecorderLink::setInstance(nullptr);
        app.reset();
        VyTranslation::resetInstance();
        DeviceProfile::current() = DeviceProfile{};
        ::rmdir(m_dir.c_str());
    }
    // A suite's own recorder settings, before the recorder starts.
    virtual void configure(SimRecorderConfig&) {}
    template <typename Done>
    bool runUntil(Done done) {
        for (int i = 0; i < 3000 && !done(); ++i) {
            if (app->processPostedEvents() == 0)
                usleep(2000);
        }
        return done();
    }
    int paramMessages() { return recorder->receivedCount(MainType::Param, ParamSubType::Access); }
    // The recorder counts a message once its handler is done, after the reply is out; a
    // round trip of another kind makes sure every earlier parameter message is counted.
    int settledParamMessages() {
        ParamAccess::requestPair(0);
        return paramMessages();
    }
    template <typename Record>
    Record stored(uint8_t channel) {
        Record r{};
        const auto bytes = recorder->store().get(
            SimSettingsBlocks::storeKey(Record::kBlockNumber, channel), sizeof r);
        std::memcpy(&r, bytes.data(), std::min(bytes.size(), sizeof r));
        return r;
    }
    static void click(VyWidget* w, int x, int y) {
        for (int type : {int(VyEvent::MouseButtonPress), int(VyEvent::MouseButtonRelease)}) {
            VyMouseEvent e(type, VyPoint(x, y), VyPoint(x, y), 1,
                           type == VyEvent::MouseButtonPress ? 1 : 0);
            VyApplication::sendEvent(w, &e);
        }
    }
    static void drag(VyWidget* w, VyPoint from, VyPoint to) {
        VyMouseEvent press(VyEvent::MouseButtonPress, from, from, 1, 1);
        VyApplication::sendEvent(w, &press);
        VyMouseEvent move(VyEvent::MouseMove, to, to, 0, 1);
        VyApplication::sendEvent(w, &move);
        VyMouseEvent release(VyEvent::MouseButtonRelease, to, to, 1, 0);
        VyApplication::sendEvent(w, &release);
    }
    static void key(VyObject* w, int code) {
        VyKeyEvent e(VyEvent::KeyPress, code, "");
        VyApplication::sendEvent(w, &e);
    }
    template <typename Page>
    Page* openPage() {
        auto* page = new Page(window.get());
        page->setGeometry(0, 0, 1280, 720);
        page->show();
        settings->setCurrentPage(page);
        beforeOpen = settledParamMessages();
        page->open();
        return page;
    }

    std::unique_ptr<VyApplication> app;
    VyTranslation* translation = nullptr;
    SimServer server;
    std::unique_ptr<SimRecorder> recorder;
    IpcClient client;
    IpcRecorderLink link{client};
    std::unique_ptr<UiModels> models = std::make_unique<UiModels>();
    std::unique_ptr<UiManager> manager;
    std::unique_ptr<SettingsManager> settings;
    std::unique_ptr<VyWidget> window;
    int beforeOpen = 0; // parameter messages the UiManager's own start had sent

private:
    std::string m_dir;
};
