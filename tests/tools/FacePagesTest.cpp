// The face pages over the simulator's face applications: what the user does on a page is
// what reaches App, and what App holds is what the page shows. VY_SHOT_DIR=dir writes the
// pages as PNG files there, to look at them.
#include "../ui/settings/SettingsUiTestApp.h"
#include "SimFacesLink.h"

#include "platform/display/VyFrameDump.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "ui/ShellActions.h"
#include "ui/analytics/face/AttendancePage.h"
#include "ui/analytics/face/FaceLibraryPage.h"
#include "ui/analytics/face/FaceSearchPage.h"
#include "ui/analytics/face/FaceThumbnailGrid.h"

#include <cstdlib>
#include <string>

namespace {

constexpr long long kEpochJulianDay = 2440588;
constexpr int kChannels = 8;

class PlaybackShell : public ShellActions {
public:
    void openPlayback(int channel, int64_t atSeconds) override {
        ++opened;
        lastChannel = channel;
        lastSeconds = atSeconds;
    }
    void openSettings() override {}
    void openBackup() override {}
    void openUserMenu() override {}
    void toggleLock() override {}
    void openShutdown() override {}
    void openAnalytics() override {}
    int opened = 0;
    int lastChannel = -1;
    int64_t lastSeconds = 0;
};

// A Tuesday as a date, far enough back for a 40-day search to lie in the past.
VyDate aTuesday() {
    VyDate d = VyDate::fromJulianDay(kEpochJulianDay + 20400);
    while ((d.toJulianDay() - kEpochJulianDay + 4) % 7 != 2)
        d = d.addDays(1);
    return d;
}

class FacePagesTest : public SettingsUiTest {
protected:
    const char* displayDevice() const override {
        static std::string device;
        const char* dir = std::getenv("VY_SHOT_DIR");
        device = dir ? std::string("mem:1280x720:") + dir + "/facepages.raw" : "mem:1280x720";
        return device.c_str();
    }
    void SetUp() override {
        SettingsUiTest::SetUp();
        VyStyle::instance()->followScreen(app()->screen());
        RecorderLink::setInstance(&link);
        ShellActions::install(&shell);
    }
    void TearDown() override {
        ShellActions::install(nullptr);
        RecorderLink::setInstance(nullptr);
        SettingsUiTest::TearDown();
    }
    void showPage(VyWidget* page) {
        page->setGeometry(0, 0, 1280, 720);
        page->show();
        settle();
    }
    void shot(const char* name) {
        if (const char* dir = std::getenv("VY_SHOT_DIR")) {
            app()->screen()->flush();
            VyFrameDump::fromRawFile(std::string(dir) + "/facepages.raw", 1280, 720)
                .savePng(std::string(dir) + "/" + name);
        }
    }

    SimFaces sim{7, kChannels};
    SimFacesLink link{sim};
    FaceLibraryModel library;
    PlaybackShell shell;
};

} // namespace

TEST_F(FacePagesTest, SearchHitsArePagedAndEachOpensPlaybackAtItsMoment) {
    FaceSearchPage page(&library, kChannels);
    showPage(&page);
    ASSERT_GT(page.sourceBox()->count(), kChannels);
    page.sourceBox()->setCurrentIndex(0); // the first face of the library
    page.fromEdit()->setDate(aTuesday());
    page.toEdit()->setDate(aTuesday().addDays(39));
    page.similarityBox()->setValue(80);
    page.search();
    settle();
    FaceSearchModel* results = page.results();
    const int total = results->total();
    ASSERT_GT(total, int(FaceSearchModel::kPageSize));
    EXPECT_EQ(page.summary().toStdString(), std::to_string(total) + " results");
    EXPECT_EQ(page.grid()->count(), total);
    EXPECT_EQ(results->pagesFetched(), 1); // only what the grid shows
    shot("facesearch.png");

    // Paging down by keys reaches the second page of App's answer.
    const int target = int(FaceSearchModel::kPageSize) + 3;
    page.grid()->setCurrentIndex(target);
    settle();
    ASSERT_TRUE(key(page.grid(), VyKeyEvent::KeyOk));
    EXPECT_EQ(results->pagesFetched(), 2);
    const auto hit = results->hit(target);
    ASSERT_TRUE(hit);
    EXPECT_EQ(shell.opened, 1);
    EXPECT_EQ(shell.lastChannel, int(hit->channel));
    EXPECT_EQ(shell.lastSeconds, hit->time);

    // A click on a cell in view opens that one.
    const int first = page.grid()->firstRow() * page.grid()->columns();
    const VyRect cell = page.grid()->cellRect(first + 1);
    mouse(page.grid(), VyEvent::MouseButtonPress, cell.x() + 5, cell.y() + 5);
    EXPECT_EQ(shell.opened, 2);
    EXPECT_EQ(shell.lastSeconds, results->hit(first + 1)->time);
}

TEST_F(FacePagesTest, LibraryPageEditsReachAppAndComeBackFromIt) {
    FaceLibraryPage page(&library, kChannels);
    showPage(&page);
    ASSERT_EQ(page.groupBox()->count(), 2);
    EXPECT_EQ(page.grid()->count(), 12);
    shot("facelibrary.png");

    page.groupNameEdit()->setText("Night team");
    page.addGroup();
    EXPECT_EQ(page.groupBox()->currentText().toStdString(), "Night team");
    EXPECT_EQ(page.grid()->count(), 0);

    page.nameEdit()->setText("Zoe Park");
    page.noteEdit()->setText("gate B");
    page.channelBox()->setCurrentIndex(3);
    page.addFromLive();
    EXPECT_EQ(page.message().toStdString(), "Done.");
    ASSERT_EQ(page.grid()->count(), 1);
    const uint32_t zoe = page.currentFaceId();
    ASSERT_NE(zoe, 0u);
    EXPECT_EQ(sim.faces(page.currentGroupId()).at(0).name, "Zoe Park");

    int noFace = -1;
    for (int i = 0; i < page.usbPictureBox()->count(); ++i) {
        if (page.usbPictureBox()->itemText(i) == VyString("empty_corridor_noface.jpg"))
            noFace = i;
    }
    ASSERT_GE(noFace, 0);
    page.usbPictureBox()->setCurrentIndex(noFace);
    page.addFromUsb();
    EXPECT_EQ(page.message().toStdString(), "No face found in the picture.");
    EXPECT_EQ(page.grid()->count(), 1);

    page.exportGroup();
    EXPECT_TRUE(sim.hasUsbFile("Night team.flib"));
    EXPECT_EQ(page.usbLibraryBox()->itemText(0).toStdString(), "Night team.flib");

    page.removeFace();
    EXPECT_EQ(page.grid()->count(), 0);
    EXPECT_TRUE(sim.faces(page.currentGroupId()).empty());
}

TEST_F(FacePagesTest, AttendanceTableGoesToTheStickAsCsv) {
    AttendancePage page(&library, kChannels);
    showPage(&page);
    page.fromEdit()->setDate(aTuesday());
    page.toEdit()->setDate(aTuesday().addDays(1));
    page.search();
    settle();
    // Two working days of twelve staff, a night shift included, and a visitor or two.
    ASSERT_GE(page.rows().size(), 24u);
    EXPECT_EQ(page.table()->rowCount(), int(page.rows().size()));
    EXPECT_EQ(page.table()->cell(0, AttendancePage::DateColumn).text.toStdString(),
              AttendanceReport::dateText(aTuesday().toJulianDay() - kEpochJulianDay));
    shot("attendance.png");

    page.exportCsv();
    EXPECT_EQ(page.message().toStdString(), "Done.");
    const std::string name =
        "attendance_" + AttendanceReport::dateText(aTuesday().toJulianDay() - kEpochJulianDay) +
        "_" + AttendanceReport::dateText(aTuesday().toJulianDay() + 1 - kEpochJulianDay) + ".csv";
    ASSERT_TRUE(sim.hasUsbFile(name));
    EXPECT_EQ(sim.usbFile(name), AttendanceReport::toCsv(page.rows()));

    // Working days from noon: each night shift's 06:xx check-out joins the 22:xx before it.
    page.dayStartBox()->setValue(12);
    page.search();
    int overnight = 0;
    for (const AttendanceReport::Row& r : page.rows()) {
        if (AttendanceReport::timeText(r.checkIn).substr(0, 2) == "22") {
            ++overnight;
            ASSERT_GE(r.checkOut, 0);
            EXPECT_EQ(r.checkOut / 86400, r.checkIn / 86400 + 1);
            EXPECT_EQ(AttendanceReport::timeText(r.checkOut).substr(0, 2), "06");
        }
    }
    EXPECT_EQ(overnight, 4); // two night workers, two nights
}
