// The analytics window offers what the device profile offers: one tab per application whose
// capability bit is set, nothing on a model that analyses no channel, and each page made when
// its tab is chosen and gone when another is.
#include "ui/analytics/AnalyticsWindow.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/AnalyticsCap.h"
#include "protocol/DeviceDefaultRecord.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/VyTabBar.h"

#include "ui/settings/SettingsUiTestApp.h"

#include <vector>

namespace {

class AnalyticsWindowTest : public SettingsUiTest {
protected:
    static AnalyticsApplication app(uint32_t cap, uint32_t title, std::vector<uint64_t>* made) {
        return {cap, title, [made](VyWidget* parent, uint64_t channels) {
                    made->push_back(channels);
                    return new VyWidget(parent);
                }};
    }
    std::vector<uint64_t> made;
};

TEST_F(AnalyticsWindowTest, OnlyTheApplicationsTheProfileOffersGetATab) {
    DeviceProfile p;
    p.channelCount = 8;
    p.aiAnalyzeChannels = 4;
    p.aiAnalyzeCap = AnalyticsCap::CrowdCounting | AnalyticsCap::PeopleStatistics;
    AnalyticsWindow w(p);
    EXPECT_FALSE(w.addApplication(app(AnalyticsCap::FaceLibrary, 1, &made)));
    EXPECT_TRUE(w.addApplication(app(AnalyticsCap::CrowdCounting, 2, &made)));
    EXPECT_FALSE(w.addApplication(app(AnalyticsCap::HeatMap, 3, &made)));
    EXPECT_TRUE(w.addApplication(app(AnalyticsCap::PeopleStatistics, 4, &made)));
    EXPECT_FALSE(w.addApplication({AnalyticsCap::PeopleStatistics, 5, nullptr}));
    ASSERT_EQ(w.applicationCount(), 2);
    EXPECT_EQ(w.tabBar()->count(), 2);
    EXPECT_EQ(w.applicationTitle(1), 4u);
    // The first page is made at once, for the four analysed channels.
    ASSERT_EQ(made, std::vector<uint64_t>{0xF});
    EXPECT_EQ(w.currentApplication(), 0);
}

TEST_F(AnalyticsWindowTest, NoAnalysedChannelMeansNothingOffered) {
    for (int analysed : {0, 3}) {
        DeviceProfile p;
        p.channelCount = analysed == 0 ? 8 : 0; // no channels analysed, or none at all
        p.aiAnalyzeChannels = analysed;
        p.aiAnalyzeCap = ~0u;
        AnalyticsWindow w(p);
        EXPECT_FALSE(w.addApplication(app(AnalyticsCap::HeatMap, 1, &made)));
        EXPECT_EQ(w.applicationCount(), 0);
        EXPECT_EQ(w.page(), nullptr);
    }
    // More analysed channels than the recorder has are cut to its channels.
    EXPECT_EQ(AnalyticsCap::channelMask(16, 4), 0xFu);
    EXPECT_EQ(AnalyticsCap::channelMask(255, 64), ~uint64_t(0));
}

TEST_F(AnalyticsWindowTest, ChoosingATabReplacesThePage) {
    DeviceProfile p;
    p.channelCount = 2;
    p.aiAnalyzeChannels = 2;
    p.aiAnalyzeCap = AnalyticsCap::HeatMap | AnalyticsCap::CrowdCounting;
    AnalyticsWindow w(p);
    w.setGeometry(0, 0, 640, 360);
    w.addApplication(app(AnalyticsCap::HeatMap, 1, &made));
    w.addApplication(app(AnalyticsCap::CrowdCounting, 2, &made));
    VyPointer<VyWidget> first(w.page());
    ASSERT_TRUE(first);
    w.tabBar()->setCurrentIndex(1);
    settle();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(w.currentApplication(), 1);
    ASSERT_NE(w.page(), nullptr);
    EXPECT_EQ(w.page()->geometry(), w.pageArea());
    EXPECT_EQ(made.size(), 2u);
    // The tab on screen again makes nothing new.
    EXPECT_TRUE(w.showApplication(1));
    EXPECT_FALSE(w.showApplication(2));
    EXPECT_EQ(made.size(), 2u);
}

// Stands for a request of the page waiting for App below the key that closes the window.
struct PageRequest : RecorderLink {
    using RecorderLink::WaitingScope;
};

TEST_F(AnalyticsWindowTest, EscapeWhileThePageWaitsHidesAtOnceAndClosesOnceTheAnswerIsIn) {
    DeviceProfile p;
    p.channelCount = 2;
    p.aiAnalyzeChannels = 2;
    p.aiAnalyzeCap = AnalyticsCap::HeatMap;
    auto closeWithEscape = [&](bool takenBack) {
        VyPointer<AnalyticsWindow> w(new AnalyticsWindow(p));
        w->addApplication(app(AnalyticsCap::HeatMap, 1, &made));
        w->show();
        settle();
        {
            PageRequest::WaitingScope waiting;
            EXPECT_TRUE(key(w.data(), VyKeyEvent::KeyEscape));
            settle();
            if (!w) {
                ADD_FAILURE() << "deleted under the page's wait";
                return w;
            }
            EXPECT_FALSE(w->isVisible());
            if (takenBack)
                w->showAgain();
        }
        // The retries run on the timer thread: what is waited for is the state, the window
        // gone (or, taken back, still shown once a retry has found nothing waiting).
        for (int i = 0; i < 50 && w && w->isClosing(); ++i)
            SettingsUiTest::app()->processOneEvent();
        return w;
    };
    EXPECT_TRUE(closeWithEscape(false).isNull());
    VyPointer<AnalyticsWindow> kept = closeWithEscape(true);
    ASSERT_TRUE(kept);
    EXPECT_TRUE(kept->isVisible());
    delete kept.data();
}

TEST(DeviceProfileAnalytics, CapabilityAndChannelsComeFromTheDeviceRecord) {
    std::vector<uint8_t> record(DeviceDefaultRecord::kDevInfoAIAnalyzeChannels + 1, 0);
    record[DeviceDefaultRecord::kDevInfoAIAnalyzeCap] = 0x18;
    record[DeviceDefaultRecord::kDevInfoAIAnalyzeCap + 3] = 0x80;
    record[DeviceDefaultRecord::kDevInfoAIAnalyzeChannels] = 6;
    DeviceProfile p;
    p.readDeviceRecord(record.data(), record.size());
    EXPECT_EQ(p.aiAnalyzeCap, 0x80000018u);
    EXPECT_EQ(p.aiAnalyzeChannels, 6);
    // A short record leaves both at nothing offered.
    p.readDeviceRecord(record.data(), DeviceDefaultRecord::kDevInfoAIAnalyzeCap);
    EXPECT_EQ(p.aiAnalyzeCap, 0u);
    EXPECT_EQ(p.aiAnalyzeChannels, 0);
}

} // namespace
