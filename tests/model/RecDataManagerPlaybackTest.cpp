// The playback and record-search messages byte for byte, their log lines, and the checks
// on App's answers.
#include "model/RecDataManager.h"
#include "model/RecordSearchReply.h"
#include "protocol/DaySearchResult.h"
#include "protocol/MotionSearchRequest.h"
#include "protocol/PlaybackControl.h"
#include "protocol/SystemInfoRecord.h"

#include "ModelTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <random>

namespace {

using Bytes = std::vector<uint8_t>;

// Little-endian writer for the expected bodies, independent of the record structs.
struct Expect {
    Bytes b;
    explicit Expect(size_t size)
        : b(size, 0) {}
    Expect& u8(size_t at, uint8_t v) {
        b.at(at) = v;
        return *this;
    }
    Expect& u16(size_t at, uint16_t v) { return u8(at, uint8_t(v)).u8(at + 1, uint8_t(v >> 8)); }
    Expect& u32(size_t at, uint32_t v) {
        return u16(at, uint16_t(v)).u16(at + 2, uint16_t(v >> 16));
    }
    Expect& time(size_t at, int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
        return u16(at, uint16_t(y))
            .u8(at + 2, uint8_t(mo))
            .u8(at + 3, uint8_t(d))
            .u8(at + 4, uint8_t(h))
            .u8(at + 5, uint8_t(mi))
            .u8(at + 6, uint8_t(s));
    }
    Expect& text(size_t at, const char* s) {
        for (size_t i = 0; s[i]; ++i)
            u8(at + i, uint8_t(s[i]));
        return *this;
    }
};

class RecDataPlaybackTest : public ::testing::Test {
protected:
    void SetUp() override {
        info.channelCount = 16;
        RecorderLink::setInstance(&link);
        rec = std::make_unique<RecDataManager>(info);
    }
    void TearDown() override {
        rec.reset();
        RecorderLink::setInstance(nullptr);
    }
    const Bytes& only(uint16_t sub) {
        const auto sent = link.sentOf(300, sub);
        EXPECT_EQ(sent.size(), 1u) << "SubType " << sub;
        static const Bytes none;
        return sent.empty() ? none : sent.back()->body;
    }
    static std::string logLine(const std::string& out) {
        const size_t colon = out.find("]: ");
        return colon == std::string::npos ? out : out.substr(colon + 3);
    }

    SystemInfoRecord info{};
    FakeRecorderLink link;
    std::unique_ptr<RecDataManager> rec;
    const VyDateTime t1{VyDate(2026, 2, 7), VyTime(8, 5, 9)};
    const VyDateTime t2{VyDate(2026, 2, 7), VyTime(21, 30, 0)};
};

TEST_F(RecDataPlaybackTest, MessagesHaveTheirSizesBytesAndLogLines) {
    struct Case {
        const char* name;
        std::function<bool()> send;
        uint16_t sub;
        Bytes body;
        const char* log;
    };
    std::vector<uint8_t> area(88, 0);
    area[0] = 0x81;
    area[87] = 0x02;
    RecPicWindow w;
    w.picCnt = 9;
    w.videos = 1;
    w.splitWnds = 4;
    w.width = 1920;
    w.height = 1080;
    w.window = 2;
    const Case cases[] = {
        {"month search, mask cuts channel 5",
         [&] {
             rec->setPlaybackMask({0x0F, 0x80});
             return rec->monthSearch(VyDate(2024, 2, 17), {1, 5, 15}, 6);
         },
         1,
         Expect(32)
             .u16(0, 2024)
             .u8(2, 2)
             .u8(3, 1)
             .u8(4, 29)
             .u8(8, 0x02)
             .u8(9, 0x80)
             .u32(24, 6)
             .u8(29, 1)
             .b,
         "date=2024/02/01 searchType=6\n"},
        {"motion search", [&] { return rec->searchDayMotionInfo(3, t1, t2, area, 4); }, 13,
         Expect(112)
             .time(0, 2026, 2, 7, 8, 5, 9)
             .time(8, 2026, 2, 7, 21, 30)
             .u32(16, 3)
             .u32(20, 4)
             .u8(24, 0x81)
             .u8(111, 0x02)
             .b,
         "time[2026/02/07 08:05:09-2026/02/07 21:30:00]\n"},
        {"tag search",
         [&] {
             return rec->searchTag(t1, t2, "door", {0, 9});
         },
         22,
         Expect(64)
             .time(0, 2026, 2, 7, 8, 5, 9)
             .time(8, 2026, 2, 7, 21, 30)
             .u8(16, 0x01)
             .u8(17, 0x02)
             .text(32, "door")
             .b,
         "time=[2026/02/07 08:05:09-2026/02/07 21:30:00] keyword=door\n"},
        {"picture play", [&] { return rec->picPlay(1, t1, t2, {2}, 5); }, 19,
         Expect(148)
             .u32(0, 1)
             .time(4, 2026, 2, 7, 8, 5, 9)
             .time(12, 2026, 2, 7, 21, 30)
             .u8(20, 0x04)
             .u32(36, 5)
             .b,
         "playCmd=1\n"},
        {"picture window", [&] { return rec->recPic({w}); }, 27,
         Expect(56).u32(0, 9).u32(4, 1).u32(8, 4).u32(12, 1920).u32(16, 1080).u32(20, 2).b,
         "picCnt=9 videos=1 splitWnds=4 width=1920 height=1080\n"},
        {"speed clamped to 16x", [&] { return rec->control(PlaybackControl::kSpeed, 9, 1); }, 6,
         Expect(12).u32(0, 3).u32(4, 4).u32(8, 1).b, ""},
        {"jump back", [&] { return rec->jump(-30); }, 8,
         Expect(8).u32(0, uint32_t(-30)).u32(4, 0xFFFFFFFF).b, ""},
        {"seek", [&] { return rec->seek(t2, {15}); }, 9,
         Expect(40).time(0, 2026, 2, 7, 21, 30).u32(8, 0xFFFFFFFF).u8(13, 0x80).b, ""},
        {"export", [&] { return rec->exportClip(t1, t2, {0}, 1, "clip.avi"); }, 44,
         Expect(88)
             .time(0, 2026, 2, 7, 8, 5, 9)
             .time(8, 2026, 2, 7, 21, 30)
             .u8(16, 1)
             .u32(32, 1)
             .text(40, "clip.avi")
             .b,
         ""},
        {"cancel export", [&] { return rec->stop(RecDataManager::StopKind::Other, "clip.avi"); },
         43, Expect(260).u32(0, 1).text(4, "clip.avi").b, ""},
        {"custom tag", [&] { return rec->addTag(9, t1, "parcel"); }, 45,
         Expect(48).time(0, 2026, 2, 7, 8, 5, 9).u32(8, 9).text(16, "parcel").b,
         "tag \"parcel\" on channel 10 at 2026/02/07 08:05:09\n"},
        {"custom tag name cut to its field",
         [&] { return rec->addTag(0, t1, std::string(40, 'x')); }, 45,
         Expect(48).time(0, 2026, 2, 7, 8, 5, 9).text(16, std::string(31, 'x').c_str()).b, ""},
        {"thumbnails", [&] { return rec->requestThumbnails(15, t1, t2, 12); }, 46,
         Expect(24)
             .time(0, 2026, 2, 7, 8, 5, 9)
             .time(8, 2026, 2, 7, 21, 30)
             .u32(16, 15)
             .u32(20, 12)
             .b,
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        link.sent.clear();
        ::testing::internal::CaptureStdout();
        EXPECT_TRUE(c.send());
        const std::string out = ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(only(c.sub), c.body);
        if (*c.log) {
            EXPECT_EQ(logLine(out), c.log);
        }
    }
}

TEST_F(RecDataPlaybackTest, PlaySendsTheSplitThenTheStartAndStopLogsTheStartText) {
    RecDataManager::PlayRequest r;
    r.layoutId = 4;
    r.screenWidth = 1920;
    r.screenHeight = 1080;
    r.cells = {{2, 0, 0, 960, 540}, {7, 960, 0, 960, 540}};
    r.start = t1;
    r.end = t2;
    ::testing::internal::CaptureStdout();
    ASSERT_TRUE(rec->play(r));
    std::string out = ::testing::internal::GetCapturedStdout();
    ASSERT_EQ(link.sent.size(), 2u);
    EXPECT_EQ(link.sent[0].subType, 0);
    EXPECT_EQ(link.sent[1].subType, 3);
    EXPECT_NE(out.find("CMD_PLAYBACK_SPLITSCREEN\n"), std::string::npos);
    EXPECT_LT(out.find("CMD_PLAYBACK_SPLITSCREEN"), out.find("CMD_PLAYBACK_START_PLAY\n"));
    Expect split(820);
    split.u32(0, 4).u32(4, 2).u16(8, 1920).u16(10, 1080);
    split.u32(16, 2).u16(24, 960).u16(26, 540).u32(28, 7).u16(32, 960).u16(36, 960).u16(38, 540);
    for (int i = 2; i < 64; ++i)
        split.u32(16 + 12 * size_t(i), 0xFFFFFFFF);
    EXPECT_EQ(link.sent[0].body, split.b);
    Expect start(428);
    start.u32(0, 1).u32(4, 2).time(8, 2026, 2, 7, 8, 5, 9).time(16, 2026, 2, 7, 21, 30);
    start.u8(32, 0x84).u32(48, 2).u32(52, 7);
    for (int i = 2; i < 64; ++i)
        start.u32(48 + 4 * size_t(i), 0xFFFFFFFF);
    EXPECT_EQ(link.sent[1].body, start.b);

    link.sent.clear();
    ::testing::internal::CaptureStdout();
    ASSERT_TRUE(rec->stop(RecDataManager::StopKind::Video));
    out = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(logLine(out), "CMD_PLAYBACK_START_PLAY\n");
    Expect stop(428);
    for (int i = 0; i < 64; ++i)
        stop.u32(48 + 4 * size_t(i), 0xFFFFFFFF);
    EXPECT_EQ(only(3), stop.b);
}

TEST_F(RecDataPlaybackTest, BadArgumentsSendNothing) {
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(rec->searchDayMotionInfo(0, t1, t2, std::vector<uint8_t>(87)));
    EXPECT_FALSE(rec->monthSearch(VyDate(), {0}, 0));
    EXPECT_FALSE(rec->searchTag(t2, t1, "", {0}));
    EXPECT_FALSE(rec->searchDayMotionInfo(16, t1, t2, std::vector<uint8_t>(88)));
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(link.sent.empty());
    EXPECT_NE(out.find("area flag size invalid !!!\n"), std::string::npos);
    EXPECT_NE(out.find("chnIndex invalid:16 !!!\n"), std::string::npos);
}

Bytes dayReply(uint32_t channel, uint32_t count, std::vector<RecordSegmentEntry> entries) {
    Bytes b(16 + 16 * entries.size());
    DaySearchResult head;
    head.channel = channel;
    head.segmentCount = count;
    head.day = RecDataManager::pack(VyDateTime(VyDate(2026, 2, 7)));
    std::memcpy(b.data(), &head, sizeof head);
    if (!entries.empty())
        std::memcpy(b.data() + 16, entries.data(), 16 * entries.size());
    return b;
}

TEST_F(RecDataPlaybackTest, DayRepliesAreCheckedBeforeTheyAreKept) {
    const VyDateTime from(VyDate(2026, 2, 7)), to(VyDate(2026, 2, 8));
    const std::vector<RecordSegmentEntry> entries = {
        {3600, 7200, 1, 0},     // kept
        {9000, 8000, 1, 0},     // ends before it starts
        {-7200, 600, 2, 0},     // starts the day before: cut at midnight
        {86000, 90000, 4, 0},   // past midnight: cut
        {200000, 200100, 1, 0}, // outside the range
    };
    ::testing::internal::CaptureStdout();
    const Bytes good = dayReply(3, 5, entries);
    auto ch = RecordSearchReply::parseDay(good.data(), good.size(), {3}, from, to);
    ASSERT_TRUE(ch);
    ASSERT_EQ(ch->segments.size(), 3u);
    EXPECT_EQ(ch->segments[1].start, from);
    EXPECT_EQ(ch->segments[2].end, to);
    for (const RecordSegment& s : ch->segments)
        EXPECT_TRUE(from <= s.start && s.start < s.end && s.end <= to);

    EXPECT_FALSE(RecordSearchReply::parseDay(good.data(), good.size(), {1, 2}, from, to));
    EXPECT_FALSE(RecordSearchReply::parseDay(good.data(), 15, {3}, from, to));
    const Bytes absurd = dayReply(3, 4000000000u, entries);
    ch = RecordSearchReply::parseDay(absurd.data(), absurd.size(), {3}, from, to);
    ASSERT_TRUE(ch);
    EXPECT_EQ(ch->segments.size(), 3u);
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("segment count 4000000000 capped to 20000 !!!"), std::string::npos);
    EXPECT_NE(out.find("channel 3 not asked for"), std::string::npos);
}

// Random answers, mostly well formed heads with random entries: whatever the bytes claim,
// what is kept starts before it ends and lies inside the searched day.
TEST_F(RecDataPlaybackTest, RandomDayRepliesKeepOnlySegmentsInsideTheDay) {
    const VyDateTime from(VyDate(2026, 2, 7)), to(VyDate(2026, 2, 8));
    std::mt19937 rng(7);
    ::testing::internal::CaptureStdout();
    for (int round = 0; round < 300; ++round) {
        std::vector<RecordSegmentEntry> entries(rng() % 40);
        for (RecordSegmentEntry& e : entries) {
            e.start = int32_t(rng() % 200000) - 50000;
            e.end = e.start + int32_t(rng() % 20000) - 2000;
            e.typeBits = rng();
        }
        Bytes body =
            dayReply(rng() % 4, rng() % 3 == 0 ? rng() : uint32_t(entries.size()), entries);
        body.resize(body.size() - std::min<size_t>(body.size(), rng() % 20)); // cut short
        auto ch = RecordSearchReply::parseDay(body.data(), body.size(), {0, 1, 2}, from, to);
        if (!ch)
            continue;
        EXPECT_LE(ch->segments.size(), entries.size());
        for (const RecordSegment& s : ch->segments)
            ASSERT_TRUE(from <= s.start && s.start < s.end && s.end <= to);
    }
    ::testing::internal::GetCapturedStdout();
}

TEST_F(RecDataPlaybackTest, TagAndThumbnailRequestsRefuseBadArguments) {
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(rec->addTag(16, t1, "x"));              // past the device's channels
    EXPECT_FALSE(rec->addTag(0, VyDateTime(), "x"));     // no time
    EXPECT_FALSE(rec->requestThumbnails(0, t2, t1, 4));  // end before start
    EXPECT_FALSE(rec->requestThumbnails(0, t1, t2, 0));  // nothing asked
    EXPECT_FALSE(rec->requestThumbnails(0, t1, t2, 33)); // more than a reply holds
    EXPECT_FALSE(rec->requestThumbnails(-1, t1, t2, 4));
    ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(link.sent.empty());
}

TEST_F(RecDataPlaybackTest, TagRepliesAreCutToTheirBodyAndCap) {
    ::testing::internal::CaptureStdout();
    auto tag = [](Expect& e, size_t at, int hour, uint32_t channel, const char* name) {
        e.time(at, 2026, 2, 7, hour, 0, 0).u32(at + 8, channel).u32(at + 12, 7).text(at + 16, name);
    };
    Expect two(8 + 2 * 48);
    two.u32(0, 2);
    tag(two, 8, 9, 3, "door");
    tag(two, 56, 25, 1, "bad hour"); // dropped
    auto tags = RecordSearchReply::parseTags(two.b.data(), two.b.size());
    ASSERT_TRUE(tags);
    ASSERT_EQ(tags->size(), 1u);
    EXPECT_EQ((*tags)[0].channel, 3);
    EXPECT_EQ((*tags)[0].time, VyDateTime(VyDate(2026, 2, 7), VyTime(9, 0)));
    EXPECT_EQ((*tags)[0].name, "door");
    EXPECT_EQ((*tags)[0].id, 7u);

    // A name that fills its field without a closing zero stays inside it.
    Expect full(8 + 48);
    full.u32(0, 1);
    tag(full, 8, 9, 0, std::string(32, 'n').c_str());
    tags = RecordSearchReply::parseTags(full.b.data(), full.b.size());
    ASSERT_TRUE(tags);
    EXPECT_EQ((*tags)[0].name, std::string(32, 'n'));

    // Absurd counts: what the body holds, never more than the cap.
    for (uint32_t claimed : {3u, 0xFFFFFFFFu}) {
        Expect e = two;
        e.u32(0, claimed);
        tags = RecordSearchReply::parseTags(e.b.data(), e.b.size());
        ASSERT_TRUE(tags);
        EXPECT_EQ(tags->size(), 1u) << claimed;
    }
    Expect many(8 + 1200 * 48);
    many.u32(0, 1200);
    for (size_t i = 0; i < 1200; ++i)
        tag(many, 8 + i * 48, 10, 0, "t");
    tags = RecordSearchReply::parseTags(many.b.data(), many.b.size());
    ASSERT_TRUE(tags);
    EXPECT_EQ(tags->size(), 1000u);
    EXPECT_FALSE(RecordSearchReply::parseTags(two.b.data(), 7));
    ::testing::internal::GetCapturedStdout();
}

TEST_F(RecDataPlaybackTest, ThumbnailRepliesDecodeTheirPixelsAndRefuseBadHeads) {
    ::testing::internal::CaptureStdout();
    // Two 2x1 entries: the first at 10:00 (pure red, then pure blue), the second empty.
    const size_t entry = 8 + 2 * 1 * 2;
    Expect good(16 + 2 * entry);
    good.u32(0, 5).u32(4, 2).u16(8, 2).u16(10, 1);
    good.time(16, 2026, 2, 7, 10).u16(24, 0xF800).u16(26, 0x001F);
    auto pictures = RecordSearchReply::parseThumbnails(good.b.data(), good.b.size(), 5);
    ASSERT_TRUE(pictures);
    ASSERT_EQ(pictures->size(), 2u);
    EXPECT_EQ((*pictures)[0].time, VyDateTime(VyDate(2026, 2, 7), VyTime(10, 0)));
    EXPECT_EQ((*pictures)[0].picture.pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ((*pictures)[0].picture.pixel(1, 0), 0xFF0000FFu);
    EXPECT_FALSE((*pictures)[1].time.isValid());
    EXPECT_TRUE((*pictures)[1].picture.isNull());

    struct Bad {
        const char* why;
        size_t at;
        uint32_t value; // u32 at `at`, or u16 when at is 8 or 10
        int channel;
        size_t expected; // entries kept; SIZE_MAX: refused
    } cases[] = {
        {"another channel", 0, 5, 6, SIZE_MAX}, {"zero width", 8, 0, 5, SIZE_MAX},
        {"too wide", 8, 161, 5, SIZE_MAX},      {"too high", 10, 121, 5, SIZE_MAX},
        {"count past the body", 4, 3, 5, 2},    {"absurd count", 4, 0xFFFFFFFFu, 5, 2},
    };
    for (const Bad& c : cases) {
        Expect e = good;
        if (c.at == 8 || c.at == 10)
            e.u16(c.at, uint16_t(c.value));
        else
            e.u32(c.at, c.value);
        auto r = RecordSearchReply::parseThumbnails(e.b.data(), e.b.size(), c.channel);
        if (c.expected == SIZE_MAX) {
            EXPECT_FALSE(r) << c.why;
            continue;
        }
        ASSERT_TRUE(r) << c.why;
        EXPECT_EQ(r->size(), c.expected) << c.why;
    }
    // More entries than a request may ask for are cut to that.
    Expect many(16 + 40 * entry);
    many.u32(0, 5).u32(4, 40).u16(8, 2).u16(10, 1);
    pictures = RecordSearchReply::parseThumbnails(many.b.data(), many.b.size(), 5);
    ASSERT_TRUE(pictures);
    EXPECT_EQ(pictures->size(), 32u);
    EXPECT_FALSE(RecordSearchReply::parseThumbnails(good.b.data(), 15, 5));
    ::testing::internal::GetCapturedStdout();
}

TEST_F(RecDataPlaybackTest, MonthAndStatusRepliesAreBounded) {
    ::testing::internal::CaptureStdout();
    const uint8_t feb[8] = {0xEA, 0x07, 2, 28, 0xFF, 0xFF, 0xFF, 0xFF};
    auto m = RecordSearchReply::parseMonth(feb, sizeof feb);
    ASSERT_TRUE(m);
    EXPECT_EQ(m->dayBits, 0x0FFFFFFFu);
    const uint8_t bad[8] = {0xEA, 0x07, 13, 28, 0, 0, 0, 0};
    EXPECT_FALSE(RecordSearchReply::parseMonth(bad, sizeof bad));
    EXPECT_FALSE(RecordSearchReply::parseMonth(feb, 7));
    uint8_t status[32] = {};
    status[20] = 250;
    auto s = RecordSearchReply::parseStatus(status, sizeof status);
    ASSERT_TRUE(s);
    EXPECT_EQ(s->percent, 100u);
    EXPECT_FALSE(RecordSearchReply::parseStatus(status, 31));
    ::testing::internal::GetCapturedStdout();
}

} // namespace
