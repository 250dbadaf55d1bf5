// The face library, search and attendance of the GUI's models against the simulator's
// face applications: what an edit sends is what the next listing shows.
#include "SimFacesLink.h"

#include "model/AttendanceReport.h"
#include "model/FaceLibraryModel.h"
#include "model/FaceSearchModel.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr int64_t kDay = 86400;
constexpr uint32_t kSeed = 7;
constexpr int kChannels = 8;

// A Tuesday: days since 1970-01-01 (a Thursday) with weekday 2.
int64_t aTuesday() {
    int64_t d = 20400;
    while ((d + 4) % 7 != 2)
        ++d;
    return d;
}

class SimFacesTest : public ::testing::Test {
protected:
    void SetUp() override { RecorderLink::setInstance(&link); }
    void TearDown() override { RecorderLink::setInstance(nullptr); }

    const FaceLibraryModel::Group* group(const char* name) {
        for (const auto& g : library.groups()) {
            if (g.name == VyString(name))
                return &g;
        }
        return nullptr;
    }
    bool hasFace(uint32_t groupId, const char* name) {
        const auto faces = library.faces(groupId);
        return std::any_of(faces.begin(), faces.end(), [&](const FaceLibraryModel::Face& f) {
            return f.name == VyString(name);
        });
    }

    SimFaces sim{kSeed, kChannels};
    SimFacesLink link{sim};
    FaceLibraryModel library;
};

} // namespace

TEST_F(SimFacesTest, LibraryEditsAreSentAndReflected) {
    ASSERT_TRUE(library.refresh());
    ASSERT_NE(group("Staff"), nullptr);
    const uint32_t staff = group("Staff")->id;
    EXPECT_EQ(library.faces(staff).size(), 12u);

    const auto added = library.addGroup("Cleaning");
    ASSERT_TRUE(added.ok());
    ASSERT_NE(group("Cleaning"), nullptr);
    EXPECT_EQ(group("Cleaning")->id, added.id);

    const auto face = library.addFaceFromSnapshot(added.id, 2, "Zoe Park", "evenings");
    ASSERT_TRUE(face.ok());
    ASSERT_TRUE(hasFace(added.id, "Zoe Park"));
    EXPECT_FALSE(library.picture(FacePictureRequest::kFace, face.id).isNull());

    ASSERT_TRUE(library.updateFace(face.id, staff, "Zoe Parker", "days").ok());
    EXPECT_FALSE(hasFace(added.id, "Zoe Park"));
    ASSERT_TRUE(hasFace(staff, "Zoe Parker"));
    EXPECT_EQ(library.face(face.id)->note, VyString("days"));

    ASSERT_TRUE(library.renameGroup(added.id, "Cleaning team").ok());
    EXPECT_NE(group("Cleaning team"), nullptr);
    ASSERT_TRUE(library.removeFace(face.id).ok());
    EXPECT_EQ(library.face(face.id), nullptr);
    ASSERT_TRUE(library.removeGroup(added.id).ok());
    EXPECT_EQ(group("Cleaning team"), nullptr);

    // Refusals: App's reasons come back, and a name that does not fit is never sent cut.
    EXPECT_EQ(library.removeFace(9999).result, FaceEditAnswer::kNoSuchFace);
    EXPECT_EQ(library.addFaceFromSnapshot(added.id, 0, "Gone", "").result,
              FaceEditAnswer::kNoSuchGroup);
    const int before = link.requests;
    EXPECT_EQ(library.addGroup(VyString(std::string(40, 'x').c_str())).result,
              FaceEditAnswer::kMalformed);
    EXPECT_EQ(link.requests, before);
}

TEST_F(SimFacesTest, GroupsGoToUsbAndComeBackAndBadPicturesAreRefused) {
    ASSERT_TRUE(library.refresh());
    const uint32_t staff = group("Staff")->id;
    const auto exported = library.exportGroup(staff, "staff.flib");
    ASSERT_TRUE(exported.ok());
    EXPECT_EQ(exported.count, 12u);
    const auto libs = library.usbFiles(UsbFileListRequest::kLibraries);
    ASSERT_TRUE(libs && libs->files.size() == 1);
    EXPECT_EQ(libs->files[0].name, VyString("staff.flib"));

    std::vector<VyString> names;
    for (const auto& f : library.faces(staff))
        names.push_back(f.name);
    ASSERT_TRUE(library.removeGroup(staff).ok());
    const auto imported = library.importFile("staff.flib");
    ASSERT_TRUE(imported.ok());
    EXPECT_EQ(imported.count, 12u);
    ASSERT_NE(group("Staff"), nullptr);
    std::vector<VyString> back;
    for (const auto& f : library.faces(group("Staff")->id))
        back.push_back(f.name);
    EXPECT_EQ(back, names);

    const uint32_t visitors = group("Visitors")->id;
    const auto pictures = library.usbFiles(UsbFileListRequest::kPictures);
    ASSERT_TRUE(pictures);
    EXPECT_GE(pictures->files.size(), 3u);
    EXPECT_TRUE(library.addFaceFromUsb(visitors, "visitor_ben.jpg", "Ben", "").ok());
    EXPECT_EQ(library.addFaceFromUsb(visitors, "empty_corridor_noface.jpg", "X", "").result,
              FaceEditAnswer::kNoFaceFound);
    EXPECT_EQ(library.addFaceFromUsb(visitors, "damaged.jpg", "X", "").result,
              FaceEditAnswer::kFileError);
    EXPECT_EQ(library.addFaceFromUsb(visitors, "absent.jpg", "X", "").result,
              FaceEditAnswer::kFileError);
}

TEST_F(SimFacesTest, SearchResultsArePagedInTimeOrderAndFetchedAsReached) {
    ASSERT_TRUE(library.refresh());
    const uint32_t person = library.faces(group("Staff")->id).front().id;
    FaceSearchModel search;
    FaceSearchModel::Criteria c;
    c.sourceId = person;
    c.from = aTuesday() * kDay;
    c.to = c.from + 40 * kDay;
    c.channelMask = (1u << kChannels) - 1;
    c.threshold = 80;
    ASSERT_TRUE(search.search(c));
    ASSERT_GT(search.total(), int(FaceSearchModel::kPageSize));
    EXPECT_EQ(search.pagesFetched(), 1);

    int64_t last = c.from;
    for (int i = 0; i < search.total(); ++i) {
        const auto hit = search.hit(i);
        ASSERT_TRUE(hit) << i;
        EXPECT_GE(hit->time, last);
        EXPECT_LT(hit->time, c.to);
        EXPECT_GE(hit->similarity, c.threshold);
        last = hit->time;
        if (i == int(FaceSearchModel::kPageSize)) {
            EXPECT_EQ(search.pagesFetched(), 2);
        }
    }
    EXPECT_FALSE(search.hit(search.total()));
    const auto first = search.hit(0);
    EXPECT_FALSE(library.picture(FacePictureRequest::kCapture, first->captureId).isNull());

    c.to = c.from; // an empty range is not sent
    const int before = link.requests;
    EXPECT_FALSE(search.search(c));
    EXPECT_EQ(link.requests, before);
    EXPECT_EQ(search.total(), 0);
}

TEST_F(SimFacesTest, AttendanceOfANightShiftStaysOneDayAcrossMidnight) {
    ASSERT_TRUE(library.refresh());
    const FaceLibraryModel::Face* night = nullptr;
    for (const auto& f : library.faces(group("Staff")->id)) {
        if (f.note == VyString("Night shift"))
            night = library.face(f.id);
    }
    ASSERT_NE(night, nullptr);
    const int64_t tuesday = aTuesday();
    const auto recs = library.recognitions(tuesday * kDay, (tuesday + 2) * kDay, ~uint64_t(0));
    ASSERT_FALSE(recs.empty());
    auto nameOf = [this](uint32_t id) -> std::optional<VyString> {
        if (const auto* f = library.face(id))
            return f->name;
        return std::nullopt;
    };
    auto rowsOf = [&](int dayStartHour) {
        AttendanceReport::Options o;
        o.dayStartHour = dayStartHour;
        std::vector<AttendanceReport::Row> mine;
        for (const auto& r : AttendanceReport::build(recs, nameOf, o)) {
            if (r.faceId == night->id)
                mine.push_back(r);
        }
        return mine;
    };
    auto onDay = [](const std::vector<AttendanceReport::Row>& rows, int64_t day) {
        auto it = std::find_if(rows.begin(), rows.end(),
                               [day](const AttendanceReport::Row& r) { return r.day == day; });
        return it == rows.end() ? AttendanceReport::Row{} : *it;
    };
    // Working days from noon: Tuesday's 22:xx check-in and Wednesday's 06:xx check-out.
    const auto shift = onDay(rowsOf(12), tuesday);
    ASSERT_EQ(shift.faceId, night->id);
    EXPECT_EQ(AttendanceReport::timeText(shift.checkIn).substr(0, 2), "22");
    ASSERT_GE(shift.checkOut, 0);
    EXPECT_EQ(shift.checkOut / kDay, tuesday + 1);
    EXPECT_EQ(AttendanceReport::timeText(shift.checkOut).substr(0, 2), "06");
    // Days from midnight split shifts: Tuesday begins with the end of Monday's.
    const auto split = onDay(rowsOf(0), tuesday);
    ASSERT_EQ(split.faceId, night->id);
    EXPECT_EQ(AttendanceReport::timeText(split.checkIn).substr(0, 2), "06");
    EXPECT_EQ(AttendanceReport::timeText(split.checkOut).substr(0, 2), "22");
}
