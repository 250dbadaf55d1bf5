// The counting, heat-map and statistics pages over a scripted link to App: rules from App are
// repaired before use and edits reach App inside the picture; malformed replies and pictures
// leave a log line and nothing drawn wrong; statistics compare exactly the channels chosen.
#include "model/AIManager.h"
#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/AnalyticsCountSubType.h"
#include "protocol/CountRuleBlock.h"
#include "protocol/HeatMapReply.h"
#include "protocol/HeatMapRequest.h"
#include "protocol/MainType.h"
#include "protocol/ParamRequest.h"
#include "protocol/PeopleStatsReply.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyBarChart.h"
#include "toolkit/widgets/VyChartLegend.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyHeatMap.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/analytics/counting/CountingRegionEditor.h"
#include "ui/analytics/counting/CrowdCountingPage.h"
#include "ui/analytics/heatmap/HeatMapPage.h"
#include "ui/analytics/stats/PeopleStatsPage.h"
#include "ui/liveview/CountBadge.h"
#include "ui/liveview/MainViewVideo.h"

#include "ui/settings/SettingsUiTestApp.h"

#include <cstring>
#include <map>

namespace {

class ScriptedLink : public RecorderLink {
public:
    uint32_t send(uint16_t main, uint16_t sub, const void* body, uint32_t len) override {
        const auto* b = static_cast<const uint8_t*>(body);
        sent.push_back({main, sub, std::vector<uint8_t>(b, b + len)});
        return 1;
    }
    void request(uint16_t main, uint16_t sub, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        const auto* b = static_cast<const uint8_t*>(body);
        asked.push_back({main, sub, std::vector<uint8_t>(b, b + len)});
        reply.clear();
        if (main == MainType::Param) {
            if (auto r = ParamRequest::decode(b, len); r && blocks.count(r->blockNumber))
                reply = blocks[r->blockNumber];
        } else if (replies.count(sub)) {
            reply = replies[sub];
        }
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

    struct Message {
        uint16_t main, sub;
        std::vector<uint8_t> body;
    };
    std::vector<Message> sent, asked;
    std::map<uint32_t, std::vector<uint8_t>> blocks;  // by parameter block
    std::map<uint16_t, std::vector<uint8_t>> replies; // by analytics SubType
};

class AnalyticsPagesTest : public SettingsUiTest {
protected:
    const char* displayDevice() const override { return "mem:1280x720"; }
    void SetUp() override {
        SettingsUiTest::SetUp();
        RecorderLink::setInstance(&link);
    }
    void TearDown() override {
        RecorderLink::setInstance(nullptr);
        SettingsUiTest::TearDown();
    }
    ScriptedLink link;
};

TEST_F(AnalyticsPagesTest, CountingRulesAreRepairedAndEditsStayInsideThePicture) {
    CountRuleBlock fromApp;
    fromApp.rules[1].enabled = 1;
    fromApp.rules[1].shape = CountRule::kArea;
    fromApp.rules[1].pointCount = 12; // more than the buffer holds
    fromApp.rules[1].points[0] = {60000, 5};
    fromApp.rules[1].limit = 7;
    const auto* raw = reinterpret_cast<const uint8_t*>(&fromApp);
    link.blocks[CountRuleBlock::kBlockNumber].assign(raw, raw + sizeof fromApp);
    VyBitmap scene(32, 18);
    link.replies[AnalyticsCountSubType::Snapshot] = scene.encodeJpeg(80);

    AIManager ai;
    ai.setAnalysedChannels(0x6);
    CrowdCountingPage page(nullptr, 0x6); // channels 1 and 2
    page.setGeometry(0, 0, 1200, 600);
    page.show();
    ASSERT_EQ(page.channel(), 1);
    EXPECT_EQ(page.editor()->picture().width(), 32) << "the scene under the rule";
    const CountRule& shown = page.editor()->rule();
    EXPECT_EQ(shown.pointCount, 0);
    EXPECT_EQ(shown.enabled, 0);
    EXPECT_EQ(shown.points[0].x, CountRule::kCoordRange);
    EXPECT_EQ(page.limitBox()->value(), 7);

    // A line from beyond the picture's top left to a point inside it, the second point
    // then dragged far past the bottom right: both end on the picture's edges.
    CountingRegionEditor* e = page.editor();
    page.shapeBox()->setCurrentIndex(0);
    const VyRect pic = e->pictureRect();
    mouse(e, VyEvent::MouseButtonPress, pic.left - 50, pic.top - 50);
    mouse(e, VyEvent::MouseButtonRelease, pic.left - 50, pic.top - 50);
    mouse(e, VyEvent::MouseButtonPress, pic.left + pic.width() / 2, pic.top + pic.height() / 2);
    mouse(e, VyEvent::MouseMove, pic.right + 400, pic.bottom + 400);
    mouse(e, VyEvent::MouseButtonRelease, pic.right + 400, pic.bottom + 400);
    page.limitBox()->setValue(25);
    page.save();

    ASSERT_FALSE(link.sent.empty());
    const ScriptedLink::Message& m = link.sent.back();
    ASSERT_EQ(m.body.size(), ParamRequest::kSize + sizeof(CountRuleBlock));
    CountRuleBlock written;
    std::memcpy(&written, m.body.data() + ParamRequest::kSize, sizeof written);
    const CountRule& r = written.rules[1];
    EXPECT_EQ(r.enabled, 1);
    EXPECT_EQ(r.shape, CountRule::kLine);
    EXPECT_EQ(r.limit, 25u);
    ASSERT_EQ(r.pointCount, 2);
    EXPECT_EQ(r.points[0].x, 0);
    EXPECT_EQ(r.points[0].y, 0);
    EXPECT_EQ(r.points[1].x, CountRule::kCoordRange);
    EXPECT_EQ(r.points[1].y, CountRule::kCoordRange);
    // Picture units map back onto the same pixels.
    EXPECT_EQ(e->toWidget(r.points[1]), VyPoint(pic.right, pic.bottom));
    EXPECT_EQ(written.rules[2].pointCount, 0) << "the other channel is left alone";
    // App's counts for the channel on screen, over its limit.
    EXPECT_EQ(page.countsText(), "No data");
    CountLiveNotice n;
    n.channel = 1;
    n.in = 30;
    n.flags = CountLiveNotice::kOverLimit;
    uint8_t body[CountLiveNotice::kSize];
    n.encode(body);
    ai.takeCountNotice(body, sizeof body);
    EXPECT_EQ(page.countsText(), "In 30   Out 0");
    EXPECT_TRUE(page.isOverLimit());
    // Another channel whose snapshot does not decode: a log line and the plain grid.
    link.replies[AnalyticsCountSubType::Snapshot] = {0xFF, 0xD8, 0xFF};
    ASSERT_TRUE(page.showChannel(2));
    EXPECT_TRUE(page.editor()->picture().isNull());
}

TEST_F(AnalyticsPagesTest, MalformedHeatMapsDrawNothingAndBrokenSnapshotsOnlyLoseThePicture) {
    HeatMapReply good;
    good.head.channel = 0;
    good.head.columns = 2;
    good.head.rows = 2;
    good.values = {0, 4, 8, 2};
    std::vector<uint8_t> body = good.encode();
    std::vector<uint8_t> beyond = body;
    beyond[4] = 200; // 200 columns: more values than the body carries
    link.replies[AnalyticsCountSubType::HeatMap] = beyond;
    HeatMapPage page(nullptr, 0x1, VyDate(2026, 11, 23));
    page.setGeometry(0, 0, 1200, 600);
    EXPECT_FALSE(page.hasData());
    EXPECT_EQ(page.heatMap()->columns(), 0);

    good.picture = {0xFF, 0xD8, 0xFF, 0x00, 0x13}; // a JPEG that stops after its start
    link.replies[AnalyticsCountSubType::HeatMap] = good.encode();
    page.setWeek(true);
    EXPECT_TRUE(page.search());
    EXPECT_EQ(page.heatMap()->maximum(), 8u);
    EXPECT_EQ(page.heatMap()->cellColour(0, 1), VyStyle::heatColour(1.0, VyHeatMap::kTintAlpha));
    HeatMapRequest asked;
    ASSERT_EQ(link.asked.back().body.size(), sizeof asked);
    std::memcpy(&asked, link.asked.back().body.data(), sizeof asked);
    EXPECT_EQ(asked.span, HeatMapRequest::kWeek);
    EXPECT_EQ(asked.day.day, 23);

    good.head.channel = 3; // an answer about another channel
    link.replies[AnalyticsCountSubType::HeatMap] = good.encode();
    EXPECT_FALSE(page.search());
    EXPECT_FALSE(page.hasData());
}

TEST_F(AnalyticsPagesTest, StatisticsCompareOnlyTheChosenChannels) {
    PeopleStatsReply reply;
    reply.head.period = PeopleStatsRequest::kMonth;
    reply.head.bucketCount = PeopleStatsPage::kMonths;
    for (uint32_t ch : {0u, 2u, 5u}) { // 5 was not asked for
        PeopleStatsReply::Channel c;
        c.channel = ch;
        c.in.assign(reply.head.bucketCount, 10 * (ch + 1));
        c.out.assign(reply.head.bucketCount, 1);
        reply.channels.push_back(c);
    }
    link.replies[AnalyticsCountSubType::PeopleStats] = reply.encode();
    PeopleStatsPage page(nullptr, 0x25, VyDate(2026, 5, 17)); // channels 0, 2, 5
    page.setGeometry(0, 0, 1200, 600);
    page.setCompared(0x5);
    page.setPeriod(PeopleStatsRequest::kMonth);
    const PeopleStatsRequest r = page.request();
    EXPECT_EQ(r.channels, 0x5u);
    EXPECT_EQ(r.bucketCount, 12u);
    EXPECT_EQ(r.start.month, 1);
    EXPECT_EQ(r.start.day, 1);
    ASSERT_TRUE(page.search());
    ASSERT_EQ(page.barChart()->series().size(), 2u);
    EXPECT_EQ(page.barChart()->series()[1].values[0], 30);
    EXPECT_EQ(page.legend()->names().size(), 2);
    EXPECT_EQ(page.barChart()->categories().at(11), "2026-12");

    // A reply with fewer buckets than asked is not drawn against the wrong labels.
    reply.head.bucketCount = 3;
    link.replies[AnalyticsCountSubType::PeopleStats] = reply.encode();
    EXPECT_FALSE(page.search());
    EXPECT_TRUE(page.barChart()->series().empty());
    page.setPeriod(PeopleStatsRequest::kDay);
    EXPECT_EQ(page.request().bucketCount, 31u); // May
}

TEST_F(AnalyticsPagesTest, LiveCountsAreKeptOnlyForAnalysedChannelsAndShownOnTheirCell) {
    AIManager ai;
    ai.setAnalysedChannels(0x3);
    MainViewVideo cell;
    cell.setGeometry(0, 0, 400, 225);
    cell.setChannel(1);
    EXPECT_FALSE(cell.countBadge()->hasCounts());
    int changes = 0;
    struct Counter : VyObject {
        int* n = nullptr;
        void bump() { ++*n; }
    } counter;
    counter.n = &changes;
    VyObject::connect(&ai, &ai.countsChanged, &counter, VY_SLOT(Counter, bump));
    CountLiveNotice n;
    n.channel = 1;
    n.in = 12;
    n.out = 15;
    uint8_t body[CountLiveNotice::kSize];
    n.encode(body);
    EXPECT_TRUE(ai.takeCountNotice(body, sizeof body));
    EXPECT_EQ(cell.countBadge()->text(), "In 12  Out 15");
    EXPECT_FALSE(cell.countBadge()->isOverLimit());
    ASSERT_NE(ai.liveCount(1), nullptr);
    EXPECT_EQ(ai.liveCount(1)->inside(), 0u) << "more out than in is nobody inside";
    EXPECT_FALSE(ai.takeCountNotice(body, sizeof body - 1));
    n.channel = 2;
    n.encode(body);
    EXPECT_FALSE(ai.takeCountNotice(body, sizeof body));
    n.channel = 4000000000u;
    n.encode(body);
    EXPECT_FALSE(ai.takeCountNotice(body, sizeof body));
    EXPECT_EQ(ai.liveCount(2), nullptr);
    EXPECT_EQ(changes, 1);
    // Another channel's counts leave the cell's alone; its own over the limit turn it red.
    n.channel = 0;
    n.encode(body);
    EXPECT_TRUE(ai.takeCountNotice(body, sizeof body));
    EXPECT_EQ(cell.countBadge()->text(), "In 12  Out 15");
    n.channel = 1;
    n.in = 40;
    n.flags = CountLiveNotice::kOverLimit;
    n.encode(body);
    EXPECT_TRUE(ai.takeCountNotice(body, sizeof body));
    EXPECT_EQ(cell.countBadge()->text(), "In 40  Out 15");
    EXPECT_TRUE(cell.countBadge()->isOverLimit());
}

} // namespace
