// The settings window over a scripted link to App: the tiles follow the device profile, a
// category fetches only its first page's blocks, unsaved changes are asked about before they
// are left, and Escape leaves a page whose block App has not answered yet. The date and time
// page's clock ticks on an injected timer clock.
#include "ui/settings/SettingsWindow.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/ParamRequest.h"
#include "protocol/RecordParamBlock.h"
#include "protocol/RecordScheduleBlock.h"
#include "toolkit/core/VyTimerCore.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VySpinBox.h"
#include "toolkit/widgets/VyTabBar.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsTile.h"

#include "ui/settings/SettingsUiTestApp.h"

#include <cstring>
#include <functional>
#include <map>
#include <set>

namespace {

// Answers every get with zeros and records the blocks asked for and sent.
class ScriptedLink : public RecorderLink {
public:
    uint32_t send(uint16_t, uint16_t, const void* body, uint32_t len) override {
        if (auto r = ParamRequest::decode(static_cast<const uint8_t*>(body), len)) {
            sets.push_back(r->blockNumber);
            const auto* record = static_cast<const uint8_t*>(body) + ParamRequest::kSize;
            lastSet[r->blockNumber].assign(record, record + (len - ParamRequest::kSize));
        }
        return 1;
    }
    void request(uint16_t, uint16_t, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        if (auto r = ParamRequest::decode(static_cast<const uint8_t*>(body), len)) {
            gets.push_back(r->blockNumber);
            if (replies.count(r->blockNumber))
                reply = replies[r->blockNumber];
        }
        if (whileWaiting)
            whileWaiting(); // what happens in the nested loop while App is silent
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

    std::vector<uint32_t> gets, sets;
    std::map<uint32_t, std::vector<uint8_t>> lastSet; // the record of each block's last set
    std::map<uint32_t, std::vector<uint8_t>> replies; // by block; zeros otherwise
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
    // Choosing another tab asks too; staying puts the tab back.
    w->tabBar()->setCurrentIndex(0);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(w->tabBar()->currentIndex(), 1);
    EXPECT_EQ(w->page(), page);
    answer = SettingsWindow::SaveChanges;
    w->tabBar()->setCurrentIndex(0);
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

TEST_F(SettingsWindowTest, ATabChosenWhileAPageWaitsForAppIsTheOnlyPageLeft) {
    SettingsWindow* w = manager->openWindow();
    link.whileWaiting = [&] {
        link.whileWaiting = nullptr;
        w->showPage(1); // opens inside the first page's wait
    };
    EXPECT_FALSE(w->openCategory(SettingsManager::Record)); // its first page was left
    EXPECT_EQ(w->pageIndex(), 1);
    ASSERT_NE(w->page(), nullptr);
    EXPECT_TRUE(w->page()->isOpened());
    EXPECT_EQ(manager->currentPage(), w->page());
    settle();
    int pages = 0;
    for (VyObject* child : w->children())
        pages += child->inherits("SettingsPage") ? 1 : 0;
    EXPECT_EQ(pages, 1); // the left one was deleted once its wait returned
}

TEST_F(SettingsWindowTest, ValuesOutOfRangeAreShownClampedAndNotWrittenBackUntouched) {
    RecordParamBlock garbage{};
    garbage.preRecordSec = 999;
    garbage.postRecordSec = 1; // below the minimum
    const auto* p = reinterpret_cast<const uint8_t*>(&garbage);
    link.replies[RecordParamBlock::kBlockNumber].assign(p, p + 8); // a short reply, too
    SettingsWindow* w = manager->openWindow();
    ASSERT_TRUE(w->openCategory(SettingsManager::Record));
    ::testing::internal::CaptureStdout();
    ASSERT_TRUE(w->showPage(1));
    const std::string log = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(log.find("pre-record = 999 is out of range 0..30, shown as 30"), std::string::npos)
        << log;
    auto* page = static_cast<RecordParamPage*>(w->page());
    EXPECT_EQ(page->preRecordBox()->value(), 30);
    EXPECT_EQ(page->postRecordBox()->value(), 5);
    EXPECT_FALSE(page->hasUnsavedChanges()); // shown clamped, left as App has it
    page->postRecordBox()->setValue(10);
    EXPECT_EQ(page->apply(), 1);
    EXPECT_EQ(page->blocks().savedAs<RecordParamBlock>(0).preRecordSec, 999); // untouched field
}

std::vector<uint32_t> pageTitles(int category) {
    std::vector<uint32_t> out;
    for (const auto& e : SettingsManager::pagesOf(category, DeviceProfile::current()))
        out.push_back(e.titleId);
    return out;
}

TEST_F(SettingsWindowTest, TilesAndPagesFollowTheDeviceProfile) {
    using M = SettingsManager;
    SettingsWindow* w = manager->openWindow();
    // No alarm inputs, no disks, no e-mail schedule: no alarm-input page, no storage tile.
    EXPECT_EQ(tileCategories(),
              (std::set<int>{M::Camera, M::Record, M::Alarm, M::Network, M::System}));
    EXPECT_EQ(pageTitles(M::Alarm),
              (std::vector<uint32_t>{TextId::Settings::TypeException, TextId::Settings::Email}));
    delete w;
    DeviceProfile& p = DeviceProfile::current();
    p.alarmInputNum = 3;
    p.maxDiskNum = 2;
    p.emailScheduleEnable = true;
    w = manager->openWindow();
    EXPECT_EQ(tileCategories(),
              (std::set<int>{M::Camera, M::Record, M::Alarm, M::Network, M::Storage, M::System}));
    EXPECT_EQ(pageTitles(M::Alarm),
              (std::vector<uint32_t>{TextId::Settings::AlarmInput, TextId::Settings::TypeException,
                                     TextId::Settings::Email, TextId::Settings::EmailSchedule}));
    ASSERT_TRUE(w->openCategory(M::Alarm));
    EXPECT_EQ(link.gets, (std::vector<uint32_t>{11, 11, 11})); // one block per input
}

// The page on a timer clock the test moves, and a recorder clock that runs with it from
// two seconds before the new year.
class DateTimeTickTest : public SettingsWindowTest {
protected:
    void SetUp() override {
        VyApplication::setTimerClock([this] { return m_nowNs; });
        SettingsWindowTest::SetUp();
        page = new DateTimePage;
        page->setGeometry(0, 0, 1280, 720);
        page->setClock([this] { return kStart.addMSecs(m_nowNs / kNsPerMs); });
        page->show();
        page->open();
    }
    void TearDown() override {
        delete page;
        SettingsWindowTest::TearDown();
        VyApplication::setTimerClock({});
    }
    void advanceMs(int64_t ms) {
        m_nowNs += ms * kNsPerMs;
        app()->timerCore()->fireExpired();
        settle();
    }

    static constexpr int64_t kNsPerMs = 1000000;
    const VyDateTime kStart{VyDate(2030, 12, 31), VyTime(23, 59, 58)};
    DateTimePage* page = nullptr;

private:
    int64_t m_nowNs = 0;
};

TEST_F(DateTimeTickTest, ShownDateAndTimeFollowTheRecorderClockOnceASecond) {
    EXPECT_EQ(page->timeEdit()->text(), "23:59:58");
    advanceMs(999); // not a second yet
    EXPECT_EQ(page->timeEdit()->text(), "23:59:58");
    advanceMs(1);
    EXPECT_EQ(page->timeEdit()->text(), "23:59:59");
    advanceMs(1000);
    EXPECT_EQ(page->timeEdit()->text(), "00:00:00");
    EXPECT_EQ(page->dateEdit()->date(), VyDate(2031, 1, 1));
    EXPECT_FALSE(page->hasUnsavedChanges()); // ticking is not an edit
}

TEST_F(DateTimeTickTest, AFieldTheUserEditsIsNotOverwrittenAndApplySetsIt) {
    advanceMs(1000);
    key(page->timeEdit(), VyKeyEvent::KeyDigit0 + 1); // the hour half typed: not yet set
    advanceMs(1000);
    EXPECT_FALSE(page->followsClock());
    EXPECT_EQ(page->timeEdit()->text(), "1:59:59");
    key(page->timeEdit(), VyKeyEvent::KeyDigit0 + 5);
    advanceMs(3000);
    EXPECT_EQ(page->timeEdit()->text(), "15:59:59");
    EXPECT_EQ(page->dateEdit()->date(), VyDate(2030, 12, 31)); // the date stopped with it
    EXPECT_EQ(page->apply(), 1);
    DateTimeBlock sent{};
    const std::vector<uint8_t>& record = link.lastSet[DateTimeBlock::kBlockNumber];
    ASSERT_EQ(record.size(), sizeof sent);
    std::memcpy(&sent, record.data(), sizeof sent);
    EXPECT_EQ(sent.setClock, 1);
    EXPECT_EQ(sent.clock.year, 2030);
    EXPECT_EQ(sent.clock.hour, 15);
    EXPECT_EQ(sent.clock.minute, 59);
    EXPECT_EQ(sent.clock.second, 59);
    // Once set, the page follows the clock again.
    advanceMs(1000);
    EXPECT_EQ(page->timeEdit()->text(), "00:00:04");
    // So it does after Cancel, which throws the typed time away.
    key(page->timeEdit(), VyKeyEvent::KeyDigit0 + 7);
    advanceMs(1000);
    EXPECT_FALSE(page->followsClock());
    page->cancel();
    EXPECT_TRUE(page->followsClock());
    EXPECT_EQ(page->timeEdit()->text(), "00:00:05");
    advanceMs(1000);
    EXPECT_EQ(page->timeEdit()->text(), "00:00:06");
}

} // namespace
