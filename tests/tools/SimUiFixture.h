#pragma once
// A GUI and the simulated recorder (parameter store, playback, maintenance, users) on a socket,
// both in this process, with a memory display and English texts: the base of the tests that
// follow a screen's messages down to the bytes the recorder keeps.
#include "SimMaintenance.h"
#include "SimPlayback.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimSettingsBlocks.h"
#include "SimUsers.h"

#include "ipc/IpcClient.h"
#include "model/DeviceProfile.h"
#include "model/IpcRecorderLink.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "platform/display/VyFrameDump.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/i18n/VyTranslation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

class SimUiFixture : public ::testing::Test {
protected:
    static constexpr int kChannels = 4;

    void SetUp() override {
        // A time zone the recorder announces moves the process's TZ: given back at the end.
        if (const char* tz = std::getenv("TZ"))
            m_tz = tz;
        char dir[] = "/tmp/sim-ui-XXXXXX";
        ASSERT_TRUE(::mkdtemp(dir));
        m_dir = dir;
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontMetrics::setFontFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 5242880);
        translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(translation);
        // With VY_SHOT_DIR set the screen is a file there, and shot() writes PNGs of it; to
        // look at a screen, VY_SHOT_SIZE (such as 1920x1080) and VY_SHOT_LANG (a language
        // index) change the screen and the language, and the English texts the tests expect
        // then fail.
        const char* shots = std::getenv("VY_SHOT_DIR");
        m_shotDir = shots != nullptr ? shots : "";
        const char* lang = std::getenv("VY_SHOT_LANG");
        translation->changeLanguage(lang != nullptr ? std::atoi(lang) : VyTranslation::kEnglish);
        const char* size = std::getenv("VY_SHOT_SIZE");
        if (size != nullptr && std::sscanf(size, "%dx%d", &m_width, &m_height) != 2) {
            m_width = 1280;
            m_height = 720;
        }
        const std::string mem = "mem:" + std::to_string(m_width) + "x" + std::to_string(m_height);
        const std::string device = m_shotDir.empty() ? mem : mem + ":" + m_shotDir + "/sim-ui.raw";
        VyApplication::setDisplayDevice(device.c_str());
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();

        config.channels = kChannels;
        config.recordSeed = 5;
        config.usbFreeMiB = 4096;
        configure(config);
        recorder = std::make_unique<SimRecorder>(config);
        playback = std::make_unique<SimPlayback>(config, SimRecordDb::localToday());
        maintenance = std::make_unique<SimMaintenance>(playback.get(), config.recordSeed);
        server.setLogging(false);
        recorder->attach(server);
        playback->attach(server);
        maintenance->setStore(&recorder->store(), kChannels);
        maintenance->attach(server);
        users.addDefaultUsers(); // no login asked for: every right is open
        users.attach(server);
        ASSERT_TRUE(server.listen(m_dir + "/IPC_UI"));
        ASSERT_TRUE(server.start());

        std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
        SystemInfo::record().channelCount = kChannels;
        DeviceProfile& p = DeviceProfile::current();
        p = DeviceProfile{};
        p.channelCount = kChannels;
        p.maxDiskNum = 2;
        IpcClientConfig c;
        c.socketPath = m_dir + "/IPC_UI";
        c.joinableThreads = true;
        ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, c));
        RecorderLink::setInstance(&link);
        manager = std::make_unique<UiManager>(models.get(), nullptr);
        link.setWaiterMode(true);
    }
    void TearDown() override {
        client.stop();
        server.stop();
        manager.reset();
        models.reset();
        RecorderLink::setInstance(nullptr);
        app.reset();
        VyTranslation::resetInstance();
        DeviceProfile::current() = DeviceProfile{};
        ::unlink((m_dir + "/IPC_UI").c_str());
        ::rmdir(m_dir.c_str());
        if (m_tz)
            setenv("TZ", m_tz->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }
    // A suite's own recorder settings, before the recorder starts.
    virtual void configure(SimRecorderConfig&) {}
    template <typename Done>
    bool runUntil(Done done) {
        for (int i = 0; i < 5000 && !done(); ++i) {
            if (app->processPostedEvents() == 0)
                usleep(1000);
        }
        return done();
    }
    // The record the recorder keeps for `channel`, zero-filled when never set.
    template <typename Record>
    Record stored(uint8_t channel = 0) {
        Record r{};
        const auto bytes = recorder->store().get(
            SimSettingsBlocks::storeKey(Record::kBlockNumber, channel), sizeof r);
        std::memcpy(&r, bytes.data(), std::min(bytes.size(), sizeof r));
        return r;
    }
    void shot(const char* name) {
        if (m_shotDir.empty())
            return;
        app->screen()->flush();
        VyFrameDump::fromRawFile(m_shotDir + "/sim-ui.raw", m_width, m_height)
            .savePng(m_shotDir + "/" + name);
    }
    static void click(VyWidget* w) {
        for (int type : {int(VyEvent::MouseButtonPress), int(VyEvent::MouseButtonRelease)}) {
            VyMouseEvent e(type, VyPoint(2, 2), VyPoint(2, 2), 1,
                           type == VyEvent::MouseButtonPress ? 1 : 0);
            VyApplication::sendEvent(w, &e);
        }
    }

    std::string m_dir;
    std::string m_shotDir;
    std::optional<std::string> m_tz;
    int m_width = 1280;
    int m_height = 720;
    VyTranslation* translation = nullptr;
    std::unique_ptr<VyApplication> app;
    SimRecorderConfig config;
    SimServer server;
    std::unique_ptr<SimRecorder> recorder;
    std::unique_ptr<SimPlayback> playback;
    std::unique_ptr<SimMaintenance> maintenance;
    SimUsers users;
    IpcClient client;
    IpcRecorderLink link{client};
    std::unique_ptr<UiModels> models = std::make_unique<UiModels>();
    std::unique_ptr<UiManager> manager;
};
