// The settings window over a scripted link to App: the tiles follow the device profile, a
// category fetches only its first page's blocks, unsaved changes are asked about before they
// are left, and Escape leaves a page whose block App has not answered yet.
#include "ui/settings/SettingsWindow.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/ParamRequest.h"
#include "protocol/RecordScheduleBlock.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsTile.h"

#include "ui/settings/SettingsUiTestApp.h"

#include <functional>
#include <set>

namespace {

// Answers every get with zeros and records the blocks asked for and sent.
class ScriptedLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void* body, uint32_t len) override {
        if (auto r = ParamRequest::decode(static_cast<const uint8_t*>(body), len))
            sets.push_back(r->blockNumber);
        return 1;
    }
    void request(uint16_t, uint16_t, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (auto r = ParamRequest::decode(static_cast<const uint8_t*>(body), len))
            gets.push_back(r->blockNumber);
        if (whileWaiting)
            whileWaiting(); // what happens in the nested loop while App is silent
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

    std::vector<uint32_t> gets, sets;
    std::function<void()> whileWaiting;
};

class SettingsWindowTest : public SettingsUiTest {
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
        RecorderLink::setInstance(nullptr);
        DeviceProfile::current() = DeviceProfile{};
        SettingsUiTest::TearDown();
    }
    std::set<int> tileCategories() const {
        std::set<int> out;
        for (SettingsTile* t : manager->window()->tiles())
            out.insert(t->category());
        return out;
    }

    ScriptedLink link;
    std::unique_ptr<SettingsManager> manager;
};

TEST_F(SettingsWindowTest, ACategoryOpensOnItsFirstPageWithOnlyThatPagesBlocks) {
    SettingsWindow* w = manager->openWindow();
    EXPECT_TRUE(link.gets.empty());
    ASSERT_TRUE(w->openCategory(SettingsManager::Record));
    EXPECT_EQ(link.gets, (std::vector<uint32_t>{RecordScheduleBlock::kBlockNumber,
                                                RecordScheduleBlock::kBlockNumber}));
    EXPECT_EQ(manager->currentPage(), w->page());
    EXPECT_FALSE(w->openCategory(SettingsManager::Storage)); // no disks on this model
}

TEST_F(SettingsWindowTest, UnsavedChangesAreAskedAboutBeforeTheyAreLeft) {
    SettingsWindow* w = manager->openWindow();
    int asked = 0;
    SettingsWindow::UnsavedAnswer answer = SettingsWindow::StayOnPage;
    w->setUnsavedQuestion([&] {
        ++asked;
        return answer;
    });
    ASSERT_TRUE(w->openCategory(SettingsManager::Record));
    ASSERT_TRUE(w->showPage(1));
    auto* page = static_cast<RecordParamPage*>(w->page());
    EXPECT_TRUE(w->leaveCategory()); // nothing changed: nothing asked
    EXPECT_EQ(asked, 0);

    ASSERT_TRUE(w->openCategory(SettingsManager::Record));
    ASSERT_TRUE(w->showPage(1));
    page = static_cast<RecordParamPage*>(w->page());
    page->postRecordBox()->setValue(90);
    EXPECT_FALSE(w->leaveCategory());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(w->page(), page);
    answer = SettingsWindow::SaveChanges;
    EXPECT_TRUE(w->showPage(0));
    EXPECT_EQ(link.sets, (std::vector<uint32_t>{14}));
    EXPECT_EQ(w->pageIndex(), 0);
}

TEST_F(SettingsWindowTest, EscapeLeavesAPageWhoseBlocksAppHasNotAnswered) {
    SettingsWindow* w = manager->openWindow();
    link.whileWaiting = [&] {
        link.whileWaiting = nullptr;
        key(w, VyKeyEvent::KeyEscape);
    };
    EXPECT_FALSE(w->openCategory(SettingsManager::Record));
    EXPECT_EQ(w->category(), -1); // back on the tiles
    EXPECT_EQ(w->page(), nullptr);
    EXPECT_EQ(link.gets.size(), 1u); // the rest of the page's blocks were not asked for
    settle();
    key(w, VyKeyEvent::KeyEscape); // and out of the window
    settle();
    EXPECT_EQ(manager->window(), nullptr);
}

TEST_F(SettingsWindowTest, TilesAndPagesFollowTheDeviceProfile) {
    using M = SettingsManager;
    SettingsWindow* w = manager->openWindow();
    // No alarm inputs and no disks: neither the alarm-input page nor the storage page, and
    // no tile for a category left without pages.
    EXPECT_EQ(tileCategories(), (std::set<int>{M::Record, M::Network, M::System}));
    delete w;
    DeviceProfile::current().alarmInputNum = 3;
    DeviceProfile::current().maxDiskNum = 2;
    w = manager->openWindow();
    EXPECT_EQ(tileCategories(),
              (std::set<int>{M::Record, M::Alarm, M::Network, M::Storage, M::System}));
    ASSERT_TRUE(w->openCategory(M::Alarm));
    EXPECT_EQ(link.gets, (std::vector<uint32_t>{11, 11, 11})); // one block per input
}

} // namespace
