#pragma once
// The user screens' tests: a 960x540 display, a recorder link double with an administrator
// ("admin") and an ordinary user ("oper"), a two-channel recorder. VY_SHOT_DIR=dir makes the
// display a file there, and shot() writes PNGs of it, to look at the screens.
#include "../../model/UserLinkDouble.h"
#include "../settings/SettingsUiTestApp.h"

#include "model/DeviceProfile.h"
#include "model/UserAccess.h"
#include "platform/display/VyFrameDump.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/style/VyStyle.h"

#include <cstdlib>
#include <string>

class UserScreensTest : public SettingsUiTest {
protected:
    static constexpr int kWidth = 960;
    static constexpr int kHeight = 540;

    const char* displayDevice() const override {
        static std::string device;
        const char* dir = std::getenv("VY_SHOT_DIR");
        device = dir ? std::string("mem:960x540:") + dir + "/userscreens.raw" : "mem:960x540";
        return device.c_str();
    }
    void SetUp() override {
        SettingsUiTest::SetUp();
        VyStyle::instance()->followScreen(app()->screen());
        RecorderLink::setInstance(&link);
        link.addEntry("admin", true, UserRights());
        link.addEntry("oper", false, UserRights());
        DeviceProfile& p = DeviceProfile::current();
        p = DeviceProfile{};
        p.channelCount = 2;
        p.maxDiskNum = 1;
        p.enableNormalRecord = true;
    }
    void TearDown() override {
        UserAccess::setLoginPrompt(nullptr);
        VyKeyManager::setKeyRestriction(false);
        RecorderLink::setInstance(nullptr);
        DeviceProfile::current() = DeviceProfile{};
        SettingsUiTest::TearDown();
    }
    void shot(const char* name) {
        if (const char* dir = std::getenv("VY_SHOT_DIR")) {
            app()->screen()->flush();
            VyFrameDump::fromRawFile(std::string(dir) + "/userscreens.raw", kWidth, kHeight)
                .savePng(std::string(dir) + "/" + name);
        }
    }

    UserLinkDouble link;
};
