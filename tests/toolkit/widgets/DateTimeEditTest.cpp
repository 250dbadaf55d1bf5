#include "ControlTestApp.h"

#include "toolkit/widgets/VyCalendarDate.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyTimeEdit.h"

using DateEdit = ControlTest;
using Calendar = ControlTest;
using TimeEdit = ControlTest;

namespace {

struct FormatCase {
    int format;
    bool persian;
    const char* leapDay; // 2024-02-29
};

// 2024-02-29 is 10 Esfand 1402.
const FormatCase kFormats[] = {
    {0, false, "02/29/2024"}, {1, false, "2024-02-29"}, {2, false, "29/02/2024"},
    {0, true, "12/10/1402"},  {1, true, "1402-12-10"},  {2, true, "10/12/1402"},
};

struct StepCase {
    bool persian;
    VyDateEdit::Section section;
    VyDate from;
    int steps;
    VyDate to;
};

const StepCase kSteps[] = {
    {false, VyDateEdit::DaySection, VyDate(2024, 1, 31), 1, VyDate(2024, 2, 1)},
    {false, VyDateEdit::DaySection, VyDate(2023, 12, 31), 1, VyDate(2024, 1, 1)},
    {false, VyDateEdit::DaySection, VyDate(2024, 3, 1), -1, VyDate(2024, 2, 29)},
    {false, VyDateEdit::MonthSection, VyDate(2024, 1, 31), 1, VyDate(2024, 2, 29)},
    {false, VyDateEdit::MonthSection, VyDate(2023, 12, 15), 1, VyDate(2024, 1, 15)},
    {false, VyDateEdit::YearSection, VyDate(2024, 2, 29), 1, VyDate(2025, 2, 28)},
    {false, VyDateEdit::YearSection, VyDate(2037, 6, 1), 1, VyDate(2037, 12, 31)}, // range end
    // 31 Shahrivar 1403 (2024-09-21) + 1 month = 30 Mehr; 30 Esfand 1403 (leap) + 1 year =
    // 29 Esfand 1404; the Persian year ends on 2025-03-20.
    {true, VyDateEdit::MonthSection, VyDate(2024, 9, 21), 1, VyDate(2024, 10, 21)},
    {true, VyDateEdit::YearSection, VyDate(2025, 3, 20), 1, VyDate(2026, 3, 20)},
    {true, VyDateEdit::DaySection, VyDate(2025, 3, 20), 1, VyDate(2025, 3, 21)},
};

} // namespace

TEST_F(DateEdit, EveryFormatAndTheSolarHijriModeShowTheirSections) {
    for (const FormatCase& c : kFormats) {
        VyDateEdit edit;
        edit.setDateFormat(c.format);
        edit.setPersian(c.persian);
        ASSERT_TRUE(edit.setDate(VyDate(2024, 2, 29)));
        EXPECT_EQ(edit.text(), c.leapDay) << c.format << " " << c.persian;
    }
    VyDateEdit edit;
    edit.setDateFormat(7); // unknown: the first format
    EXPECT_EQ(edit.dateFormat(), VyDateEdit::MonthDayYear);
}

TEST_F(DateEdit, StepsCrossMonthAndYearEndsAndKeepTheDayWhereTheMonthHasIt) {
    for (const StepCase& c : kSteps) {
        VyDateEdit edit;
        edit.setPersian(c.persian);
        ASSERT_TRUE(edit.setDate(c.from));
        edit.setCurrentSection(c.section);
        edit.stepBy(c.steps);
        EXPECT_EQ(edit.date().toString("yyyy-MM-dd"), c.to.toString("yyyy-MM-dd"))
            << c.from.toString("yyyy-MM-dd").c_str() << " section " << c.section << " persian "
            << c.persian;
    }
}

TEST_F(DateEdit, KeysStepTypeAndMoveSectionsAndBadDatesKeepThePreviousOne) {
    VyDateEdit edit;
    edit.setDateFormat(VyDateEdit::YearMonthDay);
    edit.setDate(VyDate(2024, 4, 15));
    EXPECT_EQ(edit.currentSection(), VyDateEdit::YearSection);
    EXPECT_FALSE(key(&edit, VyKeyEvent::KeyLeft)); // the first section: left to the navigation
    EXPECT_TRUE(key(&edit, VyKeyEvent::KeyRight));
    EXPECT_TRUE(key(&edit, VyKeyEvent::KeyUp));
    EXPECT_EQ(edit.date(), VyDate(2024, 5, 15));
    key(&edit, VyKeyEvent::KeyDown);
    key(&edit, VyKeyEvent::KeyRight);
    key(&edit, '3', "3");
    key(&edit, '1', "1"); // 31 April does not exist
    EXPECT_EQ(edit.date(), VyDate(2024, 4, 15));
    edit.setCurrentSection(VyDateEdit::MonthSection);
    key(&edit, '1', "1");
    key(&edit, '3', "3"); // month 13
    EXPECT_EQ(edit.date(), VyDate(2024, 4, 15));
    EXPECT_EQ(edit.currentSection(), VyDateEdit::DaySection); // a full section moves on
    key(&edit, '0', "0");
    key(&edit, '9', "9");
    EXPECT_EQ(edit.date(), VyDate(2024, 4, 9));
    EXPECT_FALSE(edit.setDate(VyDate()));
    EXPECT_FALSE(edit.setDate(VyDate(2040, 1, 1))); // outside the range
    EXPECT_EQ(edit.date(), VyDate(2024, 4, 9));
    EXPECT_TRUE(wheel(&edit, -120));
    EXPECT_EQ(edit.date(), VyDate(2024, 4, 8));
}

TEST_F(DateEdit, SolarHijriFieldsRoundTripOverTheYearsARecorderHolds) {
    VyDate d(2015, 1, 1);
    for (int i = 0; i < 9000; i += 7, d = d.addDays(7)) {
        int y = 0;
        int m = 0;
        int day = 0;
        VyCalendarDate::fields(d, true, &y, &m, &day);
        ASSERT_EQ(VyCalendarDate::toDate(true, y, m, day), d) << d.toString("yyyy-MM-dd").c_str();
    }
    EXPECT_FALSE(VyCalendarDate::toDate(true, 1402, 12, 30).isValid()); // not a leap year
    EXPECT_TRUE(VyCalendarDate::toDate(true, 1403, 12, 30).isValid());
    EXPECT_FALSE(VyCalendarDate::toDate(true, 1403, 13, 1).isValid());
}

TEST_F(DateEdit, OkOpensTheCalendarWhoseArrowsAndOkChooseTheDate) {
    VyWidget window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    auto* edit = new VyDateEdit(&window);
    edit->setGeometry(20, 20, 200, 36);
    edit->show();
    edit->setDate(VyDate(2024, 2, 28));
    EXPECT_TRUE(key(edit, VyKeyEvent::KeyOk));
    VyCalendarWidget* cal = edit->calendar();
    ASSERT_NE(cal, nullptr);
    EXPECT_EQ(app()->activePopupWidget(), cal);
    SignalCounter months(cal, &cal->monthChanged);
    key(cal, VyKeyEvent::KeyRight); // 29 Feb
    key(cal, VyKeyEvent::KeyDown);  // a week on: 7 March, in the next month
    EXPECT_EQ(cal->selectedDate(), VyDate(2024, 3, 7));
    EXPECT_EQ(months.count, 1);
    key(cal, VyKeyEvent::KeyOk);
    EXPECT_EQ(edit->date(), VyDate(2024, 3, 7));
    EXPECT_EQ(edit->calendar(), nullptr);
    key(edit, VyKeyEvent::KeyOk);
    key(edit->calendar(), VyKeyEvent::KeyLeft);
    key(edit->calendar(), VyKeyEvent::KeyEscape);
    EXPECT_EQ(edit->date(), VyDate(2024, 3, 7));
    key(edit, VyKeyEvent::KeyOk);
    click(600, 450); // outside
    EXPECT_EQ(edit->calendar(), nullptr);
    EXPECT_EQ(edit->date(), VyDate(2024, 3, 7));
}

TEST_F(Calendar, GridStartsTheWeekByCalendarAndMarksDays) {
    VyCalendarWidget cal;
    cal.setGeometry(0, 0, 350, 300);
    cal.setSelectedDate(VyDate(2024, 2, 10));
    // February 2024 begins on a Thursday: the grid starts on Sunday 28 January.
    EXPECT_EQ(cal.dateAt(0, 0), VyDate(2024, 1, 28));
    EXPECT_EQ(cal.dateAt(0, 4), VyDate(2024, 2, 1));
    cal.setPersian(true); // Bahman 1402 begins on 21 January 2024, a Sunday; weeks from Saturday
    EXPECT_EQ(cal.shownMonth(), 11);
    EXPECT_EQ(cal.dateAt(0, 1), VyDate(2024, 1, 21));
    cal.setMarkedDays({VyDate(2024, 2, 3), VyDate(2024, 2, 5), VyDate()});
    EXPECT_TRUE(cal.isMarked(VyDate(2024, 2, 5)));
    EXPECT_FALSE(cal.isMarked(VyDate(2024, 2, 4)));
    cal.showNextMonth();
    cal.showNextMonth(); // Esfand, then Farvardin 1403
    EXPECT_EQ(cal.shownYear(), 1403);
    EXPECT_EQ(cal.shownMonth(), 1);
    EXPECT_TRUE(cal.isMarked(VyDate(2024, 2, 5))); // marks stay until the owner replaces them
    EXPECT_FALSE(cal.setSelectedDate(VyDate()));
}

TEST_F(TimeEdit, SectionsWrapTypedValuesAreCheckedAndAmPmSwitchesHalfDays) {
    VyTimeEdit edit;
    ASSERT_TRUE(edit.setTime(VyTime(23, 59, 58)));
    EXPECT_EQ(edit.text(), "23:59:58");
    key(&edit, VyKeyEvent::KeyUp); // the hour after 23 is 0, nothing carries
    EXPECT_EQ(edit.text(), "00:59:58");
    edit.setCurrentSection(VyTimeEdit::MinuteSection);
    key(&edit, VyKeyEvent::KeyUp);
    EXPECT_EQ(edit.text(), "00:00:58");
    key(&edit, '7', "7");
    key(&edit, '5', "5"); // minute 75
    EXPECT_EQ(edit.time(), VyTime(0, 0, 58));
    EXPECT_FALSE(edit.setTime(VyTime()));
    edit.setHour12(true);
    edit.setTime(VyTime(0, 5, 0));
    EXPECT_EQ(edit.text(), "12:05:00 AM");
    edit.setCurrentSection(VyTimeEdit::AmPmSection);
    key(&edit, VyKeyEvent::KeyDown);
    EXPECT_EQ(edit.text(), "12:05:00 PM");
    EXPECT_EQ(edit.time(), VyTime(12, 5, 0));
    edit.setCurrentSection(VyTimeEdit::HourSection);
    key(&edit, '0', "0");
    key(&edit, '3', "3"); // 3 in the afternoon half
    EXPECT_EQ(edit.time(), VyTime(15, 5, 0));
    key(&edit, VyKeyEvent::KeyRight);
    key(&edit, VyKeyEvent::KeyRight);
    EXPECT_FALSE(key(&edit, VyKeyEvent::KeyRight)); // the AM/PM section is the last
}
