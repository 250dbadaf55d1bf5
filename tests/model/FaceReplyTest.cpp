// App's face replies against lying counts and broken pictures, attendance from
// recognitions, and live recognitions that name an unknown person or channel.
#include "ModelTestSupport.h"

#include "model/AIManager.h"
#include "model/AttendanceReport.h"
#include "model/DeviceProfile.h"
#include "model/FaceLibraryModel.h"
#include "model/FaceReply.h"
#include "model/UiRouteTable.h"
#include "protocol/FacePicture.h"
#include "protocol/FaceReplyHeader.h"
#include "protocol/SubType.h"
#include "protocol/UsbFileEntry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

template <typename Head, typename Record>
std::vector<uint8_t> listBody(Head head, size_t records) {
    std::vector<uint8_t> b(sizeof head + records * sizeof(Record));
    std::memcpy(b.data(), &head, sizeof head);
    return b;
}

FaceReplyHeader replyHead(uint32_t total, uint32_t count) {
    FaceReplyHeader h;
    h.total = total;
    h.count = count;
    return h;
}

std::vector<uint8_t> pictureBody(uint16_t w, uint16_t h, uint32_t format, uint32_t bytes,
                                 size_t actual) {
    FacePictureHeader head;
    head.width = w;
    head.height = h;
    head.format = format;
    head.dataBytes = bytes;
    std::vector<uint8_t> b(sizeof head + actual, 0);
    std::memcpy(b.data(), &head, sizeof head);
    return b;
}

} // namespace

TEST(FaceReply, ListsWhoseCountsDoNotAddUpAreRefusedWhole) {
    struct Case {
        const char* what;
        FaceReplyHeader head;
        size_t records; // actually present
        uint32_t asked;
        bool ok;
    };
    const Case cases[] = {
        {"exact page", replyHead(120, 50), 50, 50, true},
        {"empty", replyHead(0, 0), 0, 50, true},
        {"count beyond the bytes", replyHead(120, 50), 49, 50, false},
        {"bytes beyond the count", replyHead(120, 3), 4, 50, false},
        {"more than asked for", replyHead(120, 51), 51, 50, false},
        {"page larger than the total", replyHead(2, 3), 3, 50, false},
        {"count that overflows a size", replyHead(0xFFFFFFFF, 0xFFFFFFFF), 1, 50, false},
    };
    for (const Case& c : cases) {
        const auto b = listBody<FaceReplyHeader, FaceSearchHit>(c.head, c.records);
        const auto page = FaceReply::parseHits(b.data(), b.size(), c.asked);
        EXPECT_EQ(bool(page), c.ok) << c.what;
        if (page) {
            EXPECT_EQ(page->items.size(), c.records) << c.what;
        }
    }
    EXPECT_FALSE(FaceReply::parseHits(nullptr, 0, 50));

    FaceGroupListHeader groups;
    groups.count = FaceGroupListHeader::kMaxGroups + 1;
    auto g = listBody<FaceGroupListHeader, FaceGroupEntry>(groups, groups.count);
    EXPECT_FALSE(FaceReply::parseGroups(g.data(), g.size()));
    groups.count = 2;
    g = listBody<FaceGroupListHeader, FaceGroupEntry>(groups, 2);
    FaceGroupEntry named;
    named.groupId = 4;
    std::memset(named.name, 'a', sizeof named.name); // no closing zero: no name, kept by id
    std::memcpy(g.data() + sizeof groups, &named, sizeof named);
    const auto parsed = FaceReply::parseGroups(g.data(), g.size());
    ASSERT_TRUE(parsed);
    ASSERT_EQ(parsed->size(), 1u); // the entry without an id is skipped
    EXPECT_TRUE((*parsed)[0].name.isEmpty());

    UsbFileListHeader usb;
    usb.count = 1;
    usb.flags = UsbFileListHeader::kNoUsb;
    const auto u = listBody<UsbFileListHeader, UsbFileEntry>(usb, 1);
    EXPECT_FALSE(FaceReply::parseUsbFiles(u.data(), u.size() - 1));
    const auto files = FaceReply::parseUsbFiles(u.data(), u.size());
    ASSERT_TRUE(files);
    EXPECT_TRUE(files->noUsb);
    EXPECT_TRUE(files->files.empty()); // the nameless entry
}

TEST(FaceReply, PicturesDecodeOrAreRefused) {
    auto rgb = pictureBody(2, 1, FacePictureHeader::kRgb565, 4, 4);
    const uint8_t px[] = {0x00, 0xF8, 0x1F, 0x00}; // pure red, pure blue
    std::memcpy(rgb.data() + FacePictureHeader::kSize, px, sizeof px);
    const VyBitmap ok = FaceReply::parsePicture(rgb.data(), rgb.size());
    ASSERT_FALSE(ok.isNull());
    EXPECT_EQ(ok.pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(ok.pixel(1, 0), 0xFF0000FFu);

    struct Case {
        const char* what;
        std::vector<uint8_t> body;
    };
    const Case bad[] = {
        {"no width", pictureBody(0, 4, FacePictureHeader::kRgb565, 0, 0)},
        {"too large", pictureBody(300, 4, FacePictureHeader::kRgb565, 2400, 2400)},
        {"bytes short of the size", pictureBody(4, 4, FacePictureHeader::kRgb565, 30, 30)},
        {"claims more than it carries", pictureBody(4, 4, FacePictureHeader::kRgb565, 32, 16)},
        {"unknown format", pictureBody(4, 4, 7, 32, 32)},
        {"JPEG that is not one", pictureBody(4, 4, FacePictureHeader::kJpeg, 32, 32)},
        {"header only, cut", std::vector<uint8_t>(FacePictureHeader::kSize - 1, 0)},
    };
    for (const Case& c : bad)
        EXPECT_TRUE(FaceReply::parsePicture(c.body.data(), c.body.size()).isNull()) << c.what;
}

TEST(FaceReply, RandomBytesNeverCrashOrYieldMoreThanAsked) {
    std::mt19937 random(11);
    std::vector<uint8_t> b;
    for (int i = 0; i < 3000; ++i) {
        b.resize(random() % 400);
        for (uint8_t& v : b)
            v = uint8_t(random() % 4 == 0 ? 0 : random());
        // Small counts now and then, so that some inputs get past the header checks.
        if (b.size() >= 8 && i % 2 == 0) {
            b[0] = uint8_t(random() % 8);
            b[4] = uint8_t(random() % 8);
            std::memset(b.data() + 1, 0, 3);
            std::memset(b.data() + 5, 0, 3);
        }
        if (auto p = FaceReply::parseRecognitions(b.data(), b.size(), 5)) {
            EXPECT_LE(p->items.size(), 5u);
        }
        if (auto g = FaceReply::parseGroups(b.data(), b.size())) {
            EXPECT_LE(g->size(), FaceGroupListHeader::kMaxGroups);
        }
        FaceReply::parseFaces(b.data(), b.size(), 5);
        FaceReply::parseUsbFiles(b.data(), b.size());
        FaceReply::parsePicture(b.data(), b.size());
        if (auto o = FaceReply::parseObject(b.data(), b.size())) {
            EXPECT_LE(o->x + o->width, int(AIObjectNotice::kBoxScale));
        }
    }
}

namespace {

FaceRecognition rec(int64_t t, uint32_t face, uint32_t channel = 0, uint32_t similarity = 90) {
    FaceRecognition r;
    r.time = t;
    r.faceId = face;
    r.channel = channel;
    r.similarity = similarity;
    return r;
}

std::optional<VyString> names(uint32_t id) {
    if (id == 1)
        return VyString("Berg, Anna");
    if (id == 2)
        return VyString("Carl \"C\" Fox");
    return std::nullopt;
}

} // namespace

TEST(AttendanceReport, FirstAndLastOfEachWorkingDayWhateverTheOrder) {
    constexpr int64_t d = 20000 * AttendanceReport::kSecondsPerDay; // 2024-10-04
    const std::vector<FaceRecognition> recs = {
        rec(d + 17 * 3600, 1),           rec(d + 8 * 3600, 1),
        rec(d + 12 * 3600, 1),           rec(d + 9 * 3600, 2), // once: no check-out
        rec(d + 10 * 3600, 0),                                 // a stranger
        rec(d + 11 * 3600, 3),                                 // not in the library
        rec(d + 7 * 3600, 1, 5),                               // on a channel outside the report
        rec(d + 18 * 3600, 1, 0, 40),                          // too weak a match
        rec(d + 23 * 3600 + 59 * 60, 2), rec(d + AttendanceReport::kSecondsPerDay + 60, 2),
    };
    AttendanceReport::Options o;
    o.minSimilarity = 60;
    o.channelMask = 0x0F;
    const auto rows = AttendanceReport::build(recs, names, o);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].faceId, 1u);
    EXPECT_EQ(rows[0].checkIn, d + 8 * 3600);
    EXPECT_EQ(rows[0].checkOut, d + 17 * 3600);
    EXPECT_EQ(rows[0].count, 3);
    EXPECT_EQ(rows[1].faceId, 2u);
    EXPECT_EQ(rows[1].checkOut, d + 23 * 3600 + 59 * 60);
    EXPECT_EQ(rows[2].day, 20001); // one minute past midnight is the next day
    EXPECT_EQ(rows[2].checkOut, -1);

    // With days starting at 04:00 the 00:01 belongs to the evening before.
    o.dayStartHour = 4;
    const auto late = AttendanceReport::build(recs, names, o);
    ASSERT_EQ(late.size(), 2u);
    EXPECT_EQ(late[1].checkOut, d + AttendanceReport::kSecondsPerDay + 60);

    EXPECT_EQ(AttendanceReport::toCsv(late),
              "Name,Date,Check-in,Check-out,Recognitions\r\n"
              "\"Berg, Anna\",2024-10-04,2024-10-04 08:00:00,2024-10-04 17:00:00,3\r\n"
              "\"Carl \"\"C\"\" Fox\",2024-10-04,2024-10-04 09:00:00,2024-10-05 00:01:00,3\r\n");
    EXPECT_EQ(AttendanceReport::dateText(0), "1970-01-01");
    EXPECT_EQ(AttendanceReport::dateText(19782), "2024-02-29");
    EXPECT_EQ(AttendanceReport::workingDay(-1, 0), -1);
}

namespace {

// App with one group holding face 5, "Ines Holm".
class OneFaceLink : public FakeRecorderLink {
public:
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        FakeRecorderLink::request(mainType, subType, body, len, reply);
        if (mainType != MainType::Analytics)
            return;
        if (subType == FaceSubType::GroupList) {
            FaceGroupListHeader h;
            h.count = 1;
            FaceGroupEntry g;
            g.groupId = 1;
            reply = listBody<FaceGroupListHeader, FaceGroupEntry>(h, 1);
            std::memcpy(reply.data() + sizeof h, &g, sizeof g);
        } else if (subType == FaceSubType::FaceList) {
            FaceEntry f;
            f.faceId = 5;
            f.groupId = 1;
            std::strcpy(f.name, "Ines Holm");
            reply = listBody<FaceReplyHeader, FaceEntry>(replyHead(1, 1), 1);
            std::memcpy(reply.data() + FaceReplyHeader::kSize, &f, sizeof f);
        }
    }
};

} // namespace

TEST(AIManagerFaces, RecognitionsOfUnknownPeopleOrChannelsAreDroppedKnownOnesNamed) {
    OneFaceLink link;
    RecorderLink::setInstance(&link);
    DeviceProfile::current().channelCount = 4;
    AIManager ai;
    auto take = [&ai](FaceRecognition r) {
        return ai.takeRecognition(reinterpret_cast<const uint8_t*>(&r), sizeof r);
    };

    EXPECT_FALSE(take(rec(100, 5, 4))); // CH5 of a 4-channel device
    EXPECT_FALSE(take(rec(100, 9, 1))); // nobody in the library
    EXPECT_FALSE(take(rec(100, 0, 1))); // a stranger is not announced
    FaceRecognition r = rec(100, 5, 1);
    EXPECT_FALSE(ai.takeRecognition(reinterpret_cast<const uint8_t*>(&r), sizeof r - 1));
    EXPECT_EQ(ai.recognitionCount(), 0);
    EXPECT_TRUE(take(rec(200, 5, 3)));
    EXPECT_EQ(ai.recognitionCount(), 1);
    EXPECT_EQ(ai.lastRecognisedName(), VyString("Ines Holm"));
    EXPECT_EQ(ai.lastRecognition().channel, 3u);

    const UiRoute face = UiRouteTable::route(MainType::Analytics, FaceSubType::RecognitionNote);
    EXPECT_EQ(face.kind, UiRouteKind::Forward);
    EXPECT_EQ(face.uiEventType, UiEventType::FaceInfo);
    EXPECT_EQ(UiRouteTable::route(MainType::Analytics, FaceSubType::ObjectNote).uiEventType,
              UiEventType::AIObjInfo);
    EXPECT_EQ(UiRouteTable::route(MainType::Analytics, FaceSubType::Search).kind,
              UiRouteKind::Drop);
    DeviceProfile::current() = DeviceProfile{};
    RecorderLink::setInstance(nullptr);
}
