// The users page of a 64-channel recorder in the settings window at both output sizes: every
// channel box of both grids and the button below them lie inside the page, none squeezed
// below a line of text. VY_SHOT_DIR=dir writes each screen there as a PNG.
#include "../../model/UserLinkDouble.h"
#include "../settings/SettingsUiTestApp.h"

#include "model/DeviceProfile.h"
#include "model/UserAccess.h"
#include "platform/display/VyFrameDump.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/users/UsersPage.h"

#include <cstdlib>
#include <string>

namespace {

struct ScreenSize {
    int width;
    int height;
};

class UsersPageLayoutTest : public SettingsUiTest,
                            public ::testing::WithParamInterface<ScreenSize> {
protected:
    std::string rawFile() const {
        const char* dir = std::getenv("VY_SHOT_DIR");
        return dir ? std::string(dir) + "/userspage64.raw" : std::string();
    }
    const char* displayDevice() const override {
        static std::string device;
        device =
            "mem:" + std::to_string(GetParam().width) + "x" + std::to_string(GetParam().height);
        if (!rawFile().empty())
            device += ":" + rawFile();
        return device.c_str();
    }
    void SetUp() override {
        SettingsUiTest::SetUp();
        VyStyle::instance()->followScreen(app()->screen());
        RecorderLink::setInstance(&link);
        link.loginRequired = false;
        link.addEntry("admin", true, UserRights());
        link.addEntry("oper", false, UserRights());
        DeviceProfile& p = DeviceProfile::current();
        p = DeviceProfile{};
        p.channelCount = 64;
    }
    void TearDown() override {
        RecorderLink::setInstance(nullptr);
        DeviceProfile::current() = DeviceProfile{};
        SettingsUiTest::TearDown();
    }
    // Whether `w` lies inside `page`, both in window coordinates.
    static bool inside(VyWidget* w, VyWidget* page) {
        const VyPoint a = w->mapToWindow(VyPoint(0, 0));
        const VyPoint p = page->mapToWindow(VyPoint(0, 0));
        return a.x >= p.x && a.y >= p.y && a.x + w->width() <= p.x + page->width() &&
               a.y + w->height() <= p.y + page->height();
    }
    UserLinkDouble link;
    UserAccess access;
};

TEST_P(UsersPageLayoutTest, SixtyFourChannelBoxesFitThePage) {
    SettingsManager manager;
    SettingsWindow* window = manager.openWindow();
    settle();
    ASSERT_TRUE(window->openCategory(SettingsManager::System));
    UsersPage* page = nullptr;
    for (int i = 0; i < window->pageCount() && page == nullptr; ++i) {
        window->showPage(i);
        page = dynamic_cast<UsersPage*>(window->page());
    }
    ASSERT_NE(page, nullptr);
    page->userList()->setCurrentRow(1);
    settle();
    const int lineHeight = UiLook::instance().fontPixelSize();
    for (BitMaskChecks* grid : {page->liveChannels(), page->playbackChannels()}) {
        ASSERT_EQ(grid->count(), 64);
        for (int b = 0; b < grid->count(); ++b) {
            EXPECT_TRUE(inside(grid->box(b), page)) << "box " << b + 1;
            EXPECT_GE(grid->box(b)->height(), lineHeight) << "box " << b + 1;
        }
    }
    EXPECT_TRUE(inside(page->saveRightsButton(), page));
    if (!rawFile().empty()) {
        app()->screen()->flush();
        const ScreenSize s = GetParam();
        VyFrameDump::fromRawFile(rawFile(), s.width, s.height)
            .savePng(std::string(std::getenv("VY_SHOT_DIR")) + "/userspage64-" +
                     std::to_string(s.width) + ".png");
    }
    delete window;
}

INSTANTIATE_TEST_SUITE_P(OutputSizes, UsersPageLayoutTest,
                         ::testing::Values(ScreenSize{1280, 720}, ScreenSize{1920, 1080}));

} // namespace
