#pragma once
// A date field in one of the recorder's three date formats (the date-format byte of the
// general settings: 0 "MM/dd/yyyy", 1 "yyyy-MM-dd", 2 "dd/MM/yyyy") and, in the Solar Hijri
// date mode, with Solar Hijri fields (the date itself stays Gregorian). One section (year,
// month or day) has the focus: Up and Down step it (a day step crosses month and year ends, a
// month or year step keeps the day where the new month has it, else takes its last day),
// Left and Right move between sections, digits type into it. OK opens the calendar popup,
// as does a click on the drop-down button; the wheel steps the section. A date outside the
// range, or an impossible one, is refused and the previous date stays.
#include "runtime/VyDate.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"

class VyCalendarWidget;

class VyDateEdit : public VyWidget {
    VY_OBJECT(VyDateEdit, VyWidget)
public:
    enum DateFormat { MonthDayYear = 0, YearMonthDay = 1, DayMonthYear = 2 };
    enum Section { YearSection, MonthSection, DaySection };

    explicit VyDateEdit(VyWidget* parent = nullptr);
    ~VyDateEdit() override;

    VySignal dateChanged;

    // The block's value; anything else is logged and taken as MonthDayYear.
    void setDateFormat(int format);
    DateFormat dateFormat() const { return m_format; }
    // Follows VyDate::dateMode() until set.
    void setPersian(bool persian);
    bool isPersian() const { return m_persian; }
    bool setDate(const VyDate& date);
    const VyDate& date() const { return m_date; }
    // A minimum after the maximum is swapped with it; the date is clamped into the range.
    void setDateRange(const VyDate& minimum, const VyDate& maximum);
    void setCalendarPopup(bool on);

    // Sections in the order shown.
    Section sectionAt(int position) const;
    int currentPosition() const { return m_position; }
    Section currentSection() const { return sectionAt(m_position); }
    void setCurrentSection(Section section);
    void stepBy(int steps);
    // What the field shows ("11/23/2026"); while digits are typed they stand in their section.
    VyString text() const;

    void showCalendar();
    VyCalendarWidget* calendar() const { return m_calendar.data(); }
    int styleSlot() const;
    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void hideEvent(VyHideEvent* e) override;

private:
    VyString sectionText(int position) const;
    VyString separator() const;
    void commitTyped();
    void calendarChosen();
    void calendarClosed();

    VyDate m_date;
    VyDate m_minimum;
    VyDate m_maximum;
    DateFormat m_format = MonthDayYear;
    bool m_persian;
    bool m_popupEnabled = true;
    bool m_hovered = false;
    int m_position = 0; // 0..2, in display order
    VyString m_typed;
    VyPointer<VyCalendarWidget> m_calendar;
};
