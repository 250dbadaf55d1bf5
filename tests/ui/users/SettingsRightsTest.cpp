// The settings tiles for an ordinary user: every category without its right stays shut and
// asks for a login; the one granted opens.
#include "../../model/UserLinkDouble.h"
#include "../settings/SettingsUiTestApp.h"

#include "model/DeviceProfile.h"
#include "model/UserAccess.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsTile.h"
#include "ui/settings/SettingsWindow.h"

#include <memory>

namespace {

class SettingsRightsTest : public SettingsUiTest {
protected:
    const char* displayDevice() const override { return "mem:1280x720"; }
    void SetUp() override {
        SettingsUiTest::SetUp();
        RecorderLink::setInstance(&link);
        DeviceProfile& p = DeviceProfile::current();
        p = DeviceProfile{};
        p.channelCount = 2;
        p.enableNormalRecord = true;
        manager = std::make_unique<SettingsManager>();
    }
    void TearDown() override {
        manager.reset();
        UserAccess::setLoginPrompt(nullptr);
        RecorderLink::setInstance(nullptr);
        DeviceProfile::current() = DeviceProfile{};
        SettingsUiTest::TearDown();
    }
    UserLinkDouble link;
    std::unique_ptr<SettingsManager> manager;
};

} // namespace

TEST_F(SettingsRightsTest, EveryTileWithoutItsRightStaysShutAndAsksForALogin) {
    UserAccess access;
    UserRights rights;
    rights.functions = UserRights::kLiveView | UserRights::kSettingsRecord;
    link.answerOk(false, rights);
    ASSERT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
    int prompts = 0;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        return false;
    });
    SettingsWindow* w = manager->openWindow();
    ASSERT_GE(w->tiles().size(), 2u); // the granted category and at least one other
    for (SettingsTile* tile : w->tiles()) {
        const int before = prompts;
        tile->keyActivate();
        settle();
        const bool granted = tile->category() == SettingsManager::Record;
        EXPECT_EQ(w->page() != nullptr, granted) << "category " << tile->category();
        EXPECT_EQ(prompts - before, granted ? 0 : 1) << "category " << tile->category();
        if (w->page() != nullptr)
            w->leaveCategory();
    }
}
