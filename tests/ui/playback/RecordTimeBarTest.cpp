// The record time bar on a 1920x1080 memory screen (scale 1): its scale against an
// independent computation, the recentring, the regions and their pixels, and the input rules.
#include "ui/playback/RecordTimeBar.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/widgets/VyScrollBar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

constexpr uint32_t kAll = 0xFFFFFFFFu;
const VyDate kDay(2026, 3, 14);

VyDateTime at(int h, int m, int s = 0, const VyDate& d = kDay) {
    return VyDateTime(d, VyTime(h, m, s));
}

uint16_t to1555(vyargb c) {
    return uint16_t(0x8000 | ((c >> 19) & 0x1F) << 10 | ((c >> 11) & 0x1F) << 5 |
                    ((c >> 3) & 0x1F));
}

RecordChannel channel(int number, std::vector<RecordSegment> segments = {}) {
    RecordChannel c;
    c.channel = number;
    c.segments = std::move(segments);
    return c;
}

class RecordTimeBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();
        bar = new RecordTimeBar;
        bar->setGeometry(0, 0, 1000, 200);
        bar->setDateRange(kDay);
        bar->show();
        settle();
    }
    void TearDown() override {
        delete bar;
        app.reset();
    }
    void settle() {
        for (int i = 0; i < 4; ++i)
            app->processPostedEvents();
    }
    uint16_t pixel(int x, int y) const {
        VyScreen* s = app->screen();
        return reinterpret_cast<const uint16_t*>(s->mapping() + y * s->lineLength())[x];
    }
    void mouse(int type, int x, int y, uint8_t buttons) {
        VyMouseEvent e(type, VyPoint(x, y), VyPoint(x, y),
                       type == VyEvent::MouseMove ? 0 : VyMouseEvent::LeftButton, buttons);
        VyApplication::sendEvent(bar, &e);
    }
    void press(int x, int y) { mouse(VyEvent::MouseButtonPress, x, y, 1); }
    void release(int x, int y) { mouse(VyEvent::MouseButtonRelease, x, y, 0); }
    void key(int code) {
        VyKeyEvent e(VyEvent::KeyPress, code);
        VyApplication::sendEvent(bar, &e);
    }
    int emissions(const VySignal* signal, const std::function<void()>& action) {
        struct Counter : VyObject {
            VY_OBJECT(Counter, VyObject)
        public:
            void hit() { ++n; }
            int n = 0;
        } counter;
        VyObject::connect(bar, signal, &counter, VY_SLOT(Counter, hit));
        action();
        return counter.n;
    }

    std::unique_ptr<VyApplication> app;
    RecordTimeBar* bar = nullptr;
};

TEST_F(RecordTimeBarTest, MarginsTrackAndCentringFollowTheWidth) {
    EXPECT_EQ(bar->leftMargin(), 60);
    EXPECT_EQ(bar->rightMargin(), 25);
    EXPECT_EQ(bar->trackWidth(), 915);
    EXPECT_EQ(bar->usableWidth(), 900);
    EXPECT_EQ(bar->centringOffset(), 7);
    EXPECT_EQ(bar->headerHeight(), 26);
    EXPECT_EQ(bar->bottomBandHeight(), 22);
    for (int w : {86, 145, 146, 1234}) {
        bar->resize(w, 200);
        const int W = std::max(0, w - 85);
        EXPECT_EQ(bar->usableWidth(), W / 60 * 60) << w;
        EXPECT_EQ(bar->centringOffset(), W % 60 / 2) << w;
    }
}

// The tick intervals at each span, as a recorder user reads them off the bar.
TEST_F(RecordTimeBarTest, EverySpanShowsTwelveMajorIntervalsOfFiveMinorOnes) {
    struct Case {
        uint32_t span;
        int major, minor;
    } cases[] = {{86400, 7200, 1440}, {7200, 600, 120}, {3600, 300, 60}, {1800, 150, 30}};
    for (int days : {1, 2, 3}) {
        ASSERT_TRUE(bar->setDateRange(kDay, kDay.addDays(days - 1)));
        for (const Case& c : cases) {
            bar->setSpan(c.span);
            SCOPED_TRACE(testing::Message() << days << " days, span " << c.span);
            EXPECT_EQ(bar->secondsPerMajorTick(), c.major);
            EXPECT_EQ(bar->secondsPerMinorTick(), c.minor);
            EXPECT_EQ(bar->majorTickCount(), 86400 * days / c.major + 1);
            EXPECT_EQ(bar->minorTickCount(), 5 * 86400 * days / c.major);
        }
    }
}

TEST_F(RecordTimeBarTest, TicksAndLabelsMatchAnIndependentComputation) {
    for (uint32_t span : RecordTimeBar::kSpans) {
        for (VyDateTime cursor : {at(0, 0), at(7, 3, 17), at(12, 7, 10), at(23, 59, 59)}) {
            bar->setCursorTime(cursor);
            bar->setSpan(span);
            const int first = bar->firstTickX(bar->secondsPerMajorTick());
            const long long origin = VyDateTime(kDay).secsTo(bar->viewOrigin());
            for (int interval : {bar->secondsPerMajorTick(), bar->secondsPerMinorTick()}) {
                SCOPED_TRACE(testing::Message()
                             << span << " " << cursor.toString("hh:mm:ss").c_str() << " interval "
                             << interval);
                const auto ticks = bar->ticks(interval);
                // Tick k sits at the k-th multiple of the interval at or after the origin.
                const long long firstTime = (origin + interval - 1) / interval * interval;
                const double pps = 900.0 / span;
                ASSERT_FALSE(ticks.empty());
                for (size_t k = 0; k < ticks.size(); ++k) {
                    const long long t = firstTime + (long long)k * interval;
                    EXPECT_EQ(ticks[k].x, 67 + int(std::floor((t - origin) * pps + 0.5)));
                    EXPECT_EQ(ticks[k].time, VyDateTime(kDay).addSecs(t));
                }
                EXPECT_LE(ticks.back().x, 967);
                const long long after = firstTime + (long long)ticks.size() * interval;
                EXPECT_GT(after - origin, (long long)span) << "a tick inside the track is missing";
            }
            EXPECT_EQ(bar->ticks(bar->secondsPerMajorTick()).front().x, first);
        }
    }
    bar->setSpan(86400);
    const auto major = bar->ticks(7200);
    ASSERT_EQ(major.size(), 13u); // the closing tick at 24:00
    EXPECT_STREQ(major[1].time.toString("hh:mm").c_str(), "02:00");
    EXPECT_EQ(major[12].x, 967);
}

TEST_F(RecordTimeBarTest, TimeAndPixelConvertWithTheTrackOffset) {
    bar->setSpan(3600);
    bar->setCursorTime(at(10, 30));
    bar->firstTickX(300); // applies the recentring: 10:00 at the left edge
    ASSERT_EQ(bar->viewOrigin(), at(10, 0));
    EXPECT_EQ(bar->timeToX(at(10, 0)), 67);
    EXPECT_EQ(bar->timeToX(at(10, 30)), 67 + 450);
    EXPECT_EQ(bar->timeToX(at(10, 0, 7)), 67 + 1); // 7 s = 1.75 px, truncated
    EXPECT_EQ(bar->xToTime(67 + 450), at(10, 30));
    EXPECT_EQ(bar->xToTime(68), at(10, 0, 4));
    for (int x = 67; x < 967; x += 37)
        EXPECT_LE(std::abs(bar->timeToX(bar->xToTime(x)) - x), 1) << x;
}

TEST_F(RecordTimeBarTest, DateRangeRefusesAnEndBeforeTheStartAndShowsTheFirstDay) {
    EXPECT_FALSE(bar->setDateRange(kDay, kDay.addDays(-1)));
    EXPECT_FALSE(bar->setDateRange(VyDate(), kDay));
    EXPECT_EQ(bar->rangeStart(), VyDateTime(kDay));
    EXPECT_EQ(bar->rangeEnd(), VyDateTime(kDay.addDays(1)));
    EXPECT_FALSE(bar->isPreviousVisible());

    ASSERT_TRUE(bar->setDateRange(kDay, kDay.addDays(1)));
    EXPECT_EQ(bar->majorTickCount(), 25);
    EXPECT_TRUE(bar->isPreviousVisible());
    EXPECT_EQ(bar->viewOrigin(), VyDateTime(kDay));
    EXPECT_FALSE(bar->isPreviousEnabled());
    EXPECT_TRUE(bar->isNextEnabled());
    const VyRect next = bar->nextButtonRect();
    press(next.left + 2, next.top + 2);
    release(next.left + 2, next.top + 2);
    EXPECT_EQ(bar->viewOrigin(), VyDateTime(kDay.addDays(1)));
    EXPECT_FALSE(bar->isNextEnabled());
    bar->showNext(); // stays inside the range
    EXPECT_EQ(bar->viewOrigin(), VyDateTime(kDay.addDays(1)));
}

TEST_F(RecordTimeBarTest, RecentresOnlyWhenTheCursorIsHalfASpanFromBothMidnights) {
    struct Case {
        VyDateTime cursor;
        bool recentred;
    } cases[] = {{at(0, 14, 59), false}, {at(0, 15, 1), true},   {at(12, 0), true},
                 {at(23, 44, 59), true}, {at(23, 45, 1), false}, {at(23, 59, 59), false}};
    for (const Case& c : cases) {
        bar->setDateRange(kDay); // the zoom's anchor: the range start
        bar->setCursorTime(c.cursor);
        bar->setSpan(1800);
        EXPECT_TRUE(bar->isRecentringPending());
        bar->firstTickX(150);
        EXPECT_FALSE(bar->isRecentringPending());
        EXPECT_EQ(bar->viewOrigin(), c.recentred ? c.cursor.addSecs(-900) : VyDateTime(kDay))
            << c.cursor.toString("hh:mm:ss").c_str();
    }
    bar->setCursorTime(at(12, 0));
    bar->setSpan(86400);
    bar->firstTickX(7200);
    EXPECT_EQ(bar->viewOrigin(), VyDateTime(kDay));
}

TEST_F(RecordTimeBarTest, ZoomAnchorsOnTheSelectedChannelsFirstSegmentInMultiChannelMode) {
    bar->setChannels({channel(0, {{at(9, 0), at(10, 0), 1, 0}}),
                      channel(1, {{at(16, 0), at(17, 0), 1, 0}, {at(14, 20), at(15, 0), 1, 0}})});
    bar->setMode(true, 0);
    bar->selectChannel(1);
    bar->setSpan(3600);
    EXPECT_EQ(bar->viewOrigin(), at(14, 20));
    bar->setMode(false, 0); // without the flag the current origin is the anchor
    bar->setSpan(1800);
    EXPECT_EQ(bar->viewOrigin(), at(14, 20));
    bar->setDateRange(kDay);
    bar->setSpan(7200);
    EXPECT_EQ(bar->viewOrigin(), VyDateTime(kDay)) << "a visible anchor needs no move";
}

TEST_F(RecordTimeBarTest, RowsPerPageFollowTheMode) {
    const int expected[] = {4, 1, 2, 4, 1, 2, 1, 1, 4, 1, 1, 4, 4};
    for (uint32_t mode = 0; mode <= 12; ++mode) {
        bar->setMode(false, mode);
        EXPECT_EQ(bar->rowsPerPage(), expected[mode]) << mode;
    }
    bar->setMode(true, 0);
    EXPECT_EQ(bar->rowsPerPage(), 8);
}

TEST_F(RecordTimeBarTest, SelectingAChannelScrollsItsPageIntoView) {
    std::vector<RecordChannel> list;
    list.reserve(10);
    for (int i = 0; i < 10; ++i)
        list.push_back(channel(20 + i));
    bar->setChannels(list);
    EXPECT_EQ(bar->selectedRow(), 0);
    ASSERT_NE(bar->scrollBar(), nullptr);
    for (int row = 0; row < 10; ++row) {
        bar->selectChannel(20 + row);
        ASSERT_EQ(bar->selectedRow(), row);
        const int position = std::min(4 * ((row + 4) / 4) - 1, 9);
        EXPECT_EQ(bar->firstVisibleRow(), position - 3) << row;
        EXPECT_EQ(bar->scrollBar()->value(), bar->firstVisibleRow());
    }
    bar->selectChannel(99);
    EXPECT_EQ(bar->selectedRow(), -1);
    bar->setChannels({channel(1)});
    EXPECT_EQ(bar->scrollBar(), nullptr);
    bar->setChannels({});
    EXPECT_EQ(bar->selectedRow(), -1);
}

// Which colour a segment ends in after the fills, and whether the mixed region took it.
TEST_F(RecordTimeBarTest, SegmentsEndInTheColourOfTheLastFilledRegion) {
    const vyargb green = 0xFF00B446, yellow = 0xFFDED034, orange = 0xFFFF7800, blue = 0xFF00B4FF,
                 mode5 = 0xFF0055FF;
    struct Case {
        uint32_t bits;
        uint16_t analytics;
        uint32_t filter;
        uint32_t mode;
        RecordTimeBar::DeviceFeatures features;
        uint32_t analyticsFilter;
        vyargb colour; // 0: the track shows through
    } cases[] = {
        {1u << 0, 0, kAll, 0, {}, 0, green},
        {1u << 1, 0, kAll, 0, {}, 0, yellow},
        {(1u << 1) | (1u << 2), 0, kAll, 0, {}, 0, orange},
        {(1u << 1) | (1u << 2), 0, 0x7, 0, {}, 0, orange},
        {(1u << 1) | (1u << 2), 0, 0x3, 0, {}, 0, yellow}, // red not enabled, one type: no mix
        {(1u << 6) | (1u << 7), 0, kAll, 0, {}, 0, blue},  // analytics types alone never mix
        {(1u << 1) | (1u << 31), 0, kAll, 0, {}, 0, orange},
        {1u << 31, 0, kAll, 0, {}, 0, 0}, // bit 31 has no colour on this device
        {1u << 31, 0, kAll, 0, {true, false, false}, 0, orange},
        {1u << 1, 0x4, kAll, 0, {false, true, false}, 0x3, 0},      // filtered out
        {1u << 1, 0x2, kAll, 0, {false, true, false}, 0x3, yellow}, // shares a sub-type
        {1u << 1, 0x4, kAll, 0, {}, 0x3, yellow}, // no analytics records: filter ignored
        {1u << 1, 0, kAll, 5, {}, 0, mode5},
        {1u << 21, 0, kAll, 0, {}, 0, 0xFF4799DA},
    };
    const uint16_t track = to1555(0xFF24262B);
    for (const Case& c : cases) {
        bar->setDeviceFeatures(c.features);
        bar->setTypeFilter(c.filter);
        bar->setAnalyticsFilter(c.analyticsFilter);
        bar->setMode(false, c.mode);
        bar->setChannels({channel(0, {{at(6, 0), at(12, 0), c.bits, c.analytics}})});
        settle();
        const VyRect row = bar->rowTrack(0);
        const int inside = bar->timeToX(at(9, 0)), outside = bar->timeToX(at(19, 0));
        const int y = row.top + row.height() / 2;
        SCOPED_TRACE(testing::Message() << std::hex << c.bits << " filter " << c.filter);
        EXPECT_EQ(pixel(inside, y), c.colour ? to1555(c.colour) : track);
        EXPECT_EQ(pixel(outside, y), track);
        EXPECT_EQ(pixel(bar->timeToX(at(6, 0)) - 2, y), track);
    }
}

TEST_F(RecordTimeBarTest, MixedSegmentIsInEveryRegionOfItsTypesAndFilledLast) {
    bar->setChannels({channel(0, {{at(1, 0), at(2, 0), (1u << 1) | (1u << 2), 0}})});
    const auto regions = bar->recordRegions();
    const int mixed = RecordTimeBar::kMixedRegion;
    for (int region : {1, 2, mixed})
        EXPECT_EQ(regions[size_t(region)].size(), 1u) << region;
    EXPECT_EQ(regions[0].size(), 0u);
    const auto& order = RecordTimeBar::fillOrder();
    EXPECT_EQ(order.back(), mixed);
    EXPECT_LT(std::find(order.begin(), order.end(), 1), std::find(order.begin(), order.end(), 2));
}

TEST_F(RecordTimeBarTest, BadSegmentsDrawNothingOutsideTheTrack) {
    std::vector<RecordSegment> bad = {
        {at(5, 0), at(4, 0), 1, 0},     // ends before it starts
        {at(1, 0), VyDateTime(), 1, 0}, // no end
        {at(0, 0, 0, kDay.addDays(-40)), at(0, 0, 0, kDay.addDays(40)), 1, 0}, // far outside
        {at(23, 0), at(2, 0, 0, kDay.addDays(1)), 4, 0},                       // past midnight
        {at(3, 0), at(4, 0), 2, 0},
        {at(3, 30), at(5, 0), 2, 0}, // overlaps the previous
    };
    std::vector<RecordChannel> list = {channel(0, bad), channel(1, bad)};
    bar->setChannels(list);
    const auto regions = bar->recordRegions();
    int rects = 0;
    for (const auto& region : regions) {
        for (const VyRect& r : region) {
            ++rects;
            EXPECT_GE(r.left, 67);
            EXPECT_LE(r.right, 966);
            EXPECT_TRUE(bar->rowTrack(0).contains(r) || bar->rowTrack(1).contains(r));
        }
    }
    EXPECT_GT(rects, 0);
    EXPECT_EQ(regions[1].size(), 2u); // the whole day, once per row
}

TEST_F(RecordTimeBarTest, PressOnATrackMovesTheCursorAndOnALabelSelectsTheRow) {
    bar->setChannels({channel(0), channel(1), channel(2)});
    const VyRect row1 = bar->rowTrack(1);
    const int x = 67 + 450;
    EXPECT_EQ(emissions(&bar->positionChosen, [&] { press(x, row1.top + 1); }), 1);
    release(x, row1.top + 1);
    EXPECT_EQ(bar->cursorTime(), at(12, 0));

    // A drag keeps the cursor inside the track's times.
    press(x, row1.top + 1);
    mouse(VyEvent::MouseMove, 5000, row1.top + 1, 1);
    release(5000, row1.top + 1);
    EXPECT_EQ(bar->cursorTime(), bar->xToTime(966));

    const VyRect band2 = bar->rowBand(2);
    EXPECT_EQ(emissions(&bar->channelSelected, [&] { press(10, band2.top + 2); }), 1);
    EXPECT_EQ(bar->selectedRow(), 2);
    EXPECT_EQ(emissions(&bar->channelSelected, [&] { press(10, band2.top + 2); }), 0);

    bool busy = true;
    bar->setBusyProbe([&] { return busy; });
    bar->setDeviceFeatures({false, false, true});
    press(10, bar->rowBand(0).top + 2);
    EXPECT_EQ(bar->selectedRow(), 2);
    busy = false;
    press(10, bar->rowBand(0).top + 2);
    EXPECT_EQ(bar->selectedRow(), 0);

    press(-1, 0); // nowhere: nothing changes
    EXPECT_EQ(bar->selectedRow(), 0);
}

TEST_F(RecordTimeBarTest, ClipMarkersAreGrabbedInTheirBoxAndStayInOrder) {
    bar->setChannels({channel(0)});
    bar->setClipMode(true);
    bar->setClipRange(at(6, 0), at(12, 0));
    const int endX = bar->timeToX(at(12, 0));
    const VyRect box = bar->clipGrabBox(endX);
    EXPECT_EQ(box.width(), 12);
    EXPECT_EQ(box.top, bar->trackRect().top - 9);
    // Below the track, still inside the box: the end marker moves, the cursor does not.
    const VyDateTime cursor = bar->cursorTime();
    press(endX, box.bottom);
    mouse(VyEvent::MouseMove, bar->timeToX(at(18, 0)), box.bottom, 1);
    release(bar->timeToX(at(18, 0)), box.bottom);
    EXPECT_EQ(bar->cursorTime(), cursor);
    EXPECT_EQ(bar->timeToX(bar->clipEnd()), bar->timeToX(at(18, 0)));
    // The start marker cannot pass the end.
    const int startX = bar->timeToX(at(6, 0));
    press(startX, bar->trackRect().top);
    mouse(VyEvent::MouseMove, 960, bar->trackRect().top, 1);
    release(960, bar->trackRect().top);
    EXPECT_EQ(bar->clipStart(), bar->clipEnd());
    EXPECT_EQ(app->screen()->cursor()->shape(), VyScreenCursor::Arrow);
}

TEST_F(RecordTimeBarTest, WheelZoomsAroundThePointerAndKeysMoveCursorAndRow) {
    bar->setChannels({channel(0), channel(1)});
    const int x = 67 + 600; // 16:00 at 24 hours
    VyWheelEvent in(VyPoint(x, 40), VyPoint(x, 40), 120, 0);
    VyApplication::sendEvent(bar, &in);
    EXPECT_EQ(bar->span(), 7200u);
    EXPECT_LE(std::abs(bar->timeToX(at(16, 0)) - x), 1);
    for (int i = 0; i < 4; ++i) {
        VyWheelEvent more(VyPoint(x, 40), VyPoint(x, 40), 120, 0);
        VyApplication::sendEvent(bar, &more);
    }
    EXPECT_EQ(bar->span(), 1800u);
    EXPECT_LE(std::abs(bar->timeToX(at(16, 0)) - x), 1);

    bar->setCursorTime(at(16, 0));
    key(VyKeyEvent::KeyRight);
    EXPECT_EQ(bar->cursorTime(), at(16, 0, 30));
    key(VyKeyEvent::KeyLeft);
    key(VyKeyEvent::KeyLeft);
    EXPECT_EQ(bar->cursorTime(), at(15, 59, 30));
    EXPECT_EQ(emissions(&bar->channelSelected, [&] { key(VyKeyEvent::KeyDown); }), 1);
    EXPECT_EQ(bar->selectedRow(), 1);
    EXPECT_EQ(emissions(&bar->playRequested, [&] { key(VyKeyEvent::KeyOk); }), 1);
}

} // namespace
