#include "toolkit/widgets/VyDateEdit.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyCalendarDate.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyControlState.h"

namespace {

constexpr VyDateEdit::Section kOrder[3][3] = {
    {VyDateEdit::MonthSection, VyDateEdit::DaySection, VyDateEdit::YearSection},
    {VyDateEdit::YearSection, VyDateEdit::MonthSection, VyDateEdit::DaySection},
    {VyDateEdit::DaySection, VyDateEdit::MonthSection, VyDateEdit::YearSection},
};

VyString padded(int value, int digits) {
    VyString s = VyString::number(value);
    while (s.length() < digits)
        s = "0" + s;
    return s;
}

int digitsOf(VyDateEdit::Section s) {
    return s == VyDateEdit::YearSection ? 4 : 2;
}

} // namespace

VyDateEdit::VyDateEdit(VyWidget* parent)
    : VyWidget(parent)
    , m_minimum(1970, 1, 1)
    , m_maximum(2037, 12, 31)
    , m_persian(VyDate::dateMode()) {
    setFocusPolicy(StrongFocus);
    const VyDate today = VyDate::currentDate();
    m_date = today.isValid() && today >= m_minimum && today <= m_maximum ? today : m_minimum;
}

VyDateEdit::~VyDateEdit() {
    delete m_calendar.data();
}

void VyDateEdit::setDateFormat(int format) {
    if (format < MonthDayYear || format > DayMonthYear) {
        vyFrameworkLog("VyDateEdit: unknown date format %d, MM/dd/yyyy used !!!\n", format);
        format = MonthDayYear;
    }
    m_format = static_cast<DateFormat>(format);
    m_typed.clear();
    update();
}

void VyDateEdit::setPersian(bool persian) {
    m_persian = persian;
    m_typed.clear();
    update();
}

bool VyDateEdit::setDate(const VyDate& date) {
    if (!date.isValid() || date < m_minimum || date > m_maximum) {
        vyFrameworkLog("VyDateEdit: date %s refused, %s kept !!!\n",
                       date.isValid() ? date.toString("yyyy-MM-dd").c_str() : "(invalid)",
                       m_date.toString("yyyy-MM-dd").c_str());
        return false;
    }
    m_typed.clear();
    if (date == m_date) {
        update();
        return true;
    }
    m_date = date;
    update();
    emitSignal(this, &dateChanged);
    return true;
}

void VyDateEdit::setDateRange(const VyDate& minimum, const VyDate& maximum) {
    if (!minimum.isValid() || !maximum.isValid())
        return;
    m_minimum = std::min(minimum, maximum);
    m_maximum = std::max(minimum, maximum);
    if (m_date < m_minimum)
        setDate(m_minimum);
    else if (m_date > m_maximum)
        setDate(m_maximum);
}

void VyDateEdit::setCalendarPopup(bool on) {
    m_popupEnabled = on;
    update();
}

VyDateEdit::Section VyDateEdit::sectionAt(int position) const {
    return kOrder[m_format][std::max(0, std::min(position, 2))];
}

void VyDateEdit::setCurrentSection(Section section) {
    commitTyped();
    for (int i = 0; i < 3; ++i)
        if (sectionAt(i) == section)
            m_position = i;
    update();
}

void VyDateEdit::stepBy(int steps) {
    commitTyped();
    VyDate next;
    switch (currentSection()) {
    case DaySection:
        next = m_date.addDays(steps);
        break;
    case MonthSection:
        next = VyCalendarDate::addMonths(m_date, m_persian, steps);
        break;
    case YearSection:
        next = VyCalendarDate::addYears(m_date, m_persian, steps);
        break;
    }
    // Stepping stops at the ends of the range instead of refusing the step.
    if (next.isValid())
        setDate(std::max(m_minimum, std::min(next, m_maximum)));
}

VyString VyDateEdit::separator() const {
    return m_format == YearMonthDay ? "-" : "/";
}

VyString VyDateEdit::sectionText(int position) const {
    const Section s = sectionAt(position);
    if (position == m_position && !m_typed.isEmpty())
        return m_typed;
    int y = 0;
    int m = 0;
    int d = 0;
    VyCalendarDate::fields(m_date, m_persian, &y, &m, &d);
    return padded(s == YearSection ? y : s == MonthSection ? m : d, digitsOf(s));
}

VyString VyDateEdit::text() const {
    return sectionText(0) + separator() + sectionText(1) + separator() + sectionText(2);
}

void VyDateEdit::commitTyped() {
    if (m_typed.isEmpty())
        return;
    const int value = std::stoi(m_typed.toStdString());
    m_typed.clear();
    int y = 0;
    int m = 0;
    int d = 0;
    VyCalendarDate::fields(m_date, m_persian, &y, &m, &d);
    switch (currentSection()) {
    case YearSection:
        y = value;
        break;
    case MonthSection:
        m = value;
        break;
    case DaySection:
        d = value;
        break;
    }
    // An impossible date (31 April, month 13) keeps the previous one.
    setDate(VyCalendarDate::toDate(m_persian, y, m, d));
    update();
}

void VyDateEdit::showCalendar() {
    if (!m_popupEnabled || !isEnabled() || (m_calendar && m_calendar->isVisible()))
        return;
    commitTyped();
    auto* cal = new VyCalendarWidget(this, true);
    m_calendar.reset(cal);
    cal->setPersian(m_persian);
    cal->setSelectedDate(m_date);
    connect(cal, &cal->chosen, this, VY_SLOT(VyDateEdit, calendarChosen));
    connect(cal, &cal->cancelled, this, VY_SLOT(VyDateEdit, calendarClosed));
    const VyPoint origin = mapToGlobal(VyPoint(0, 0));
    cal->open(VyRect(origin.x, origin.y, width(), height()));
}

void VyDateEdit::calendarChosen() {
    const VyDate chosen = m_calendar ? m_calendar->selectedDate() : VyDate();
    calendarClosed();
    if (chosen.isValid())
        setDate(std::max(m_minimum, std::min(chosen, m_maximum)));
}

void VyDateEdit::calendarClosed() {
    VyCalendarWidget* cal = m_calendar.data();
    m_calendar.reset(nullptr);
    if (!cal)
        return;
    if (cal->isVisible())
        cal->hide();
    // The calendar is inside its own signal here: it goes later, and no longer with this
    // field, which that signal's slots may delete.
    cal->setParent(nullptr);
    cal->deleteLater();
    if (isVisible() && isEnabled())
        setFocus(4);
}

int VyDateEdit::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

VySize VyDateEdit::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    const int h = VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign);
    return VySize(VyTextLayout::width("00/00/0000", px) +
                      2 * style->scaled(VyStyle::kFieldPaddingDesign) + (m_popupEnabled ? h : 0),
                  h);
}

void VyDateEdit::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    int from = 0;
    int to = 0;
    if (hasFocus()) {
        VyString before;
        for (int i = 0; i < m_position; ++i)
            before += sectionText(i) + separator();
        from = VyTextLayout::width(before, px);
        to = from + VyTextLayout::width(sectionText(m_position), px);
    }
    style->drawDateEdit(canvas(), rect(), styleSlot(), text(), from, to, m_popupEnabled);
}

void VyDateEdit::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    const int key = e->key();
    if (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9) {
        m_typed += VyString::number(key - VyKeyEvent::KeyDigit0);
        // A full section moves on to the next one.
        if (m_typed.length() >= digitsOf(currentSection())) {
            commitTyped();
            m_position = std::min(2, m_position + 1);
        }
        update();
    } else if (key == VyKeyEvent::KeyUp) {
        stepBy(1);
    } else if (key == VyKeyEvent::KeyDown) {
        stepBy(-1);
    } else if (key == VyKeyEvent::KeyLeft || key == VyKeyEvent::KeyRight) {
        commitTyped();
        const int next = m_position + (key == VyKeyEvent::KeyRight ? 1 : -1);
        if (next < 0 || next > 2) {
            e->ignore();
            return;
        }
        m_position = next;
        update();
    } else if (key == VyKeyEvent::KeyOk) {
        if (!m_typed.isEmpty())
            commitTyped();
        else
            showCalendar();
    } else if (key == VyKeyEvent::KeyEscape && !m_typed.isEmpty()) {
        m_typed.clear();
        update();
    } else {
        e->ignore();
        return;
    }
    e->accept();
}

void VyDateEdit::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    stepBy(e->notches());
}

void VyDateEdit::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    VyStyle* style = VyStyle::instance();
    if (m_popupEnabled && style->dateEditButtonRect(rect()).contains(e->pos())) {
        showCalendar();
        return;
    }
    commitTyped();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    const int x = e->pos().x - style->dateEditTextRect(rect(), m_popupEnabled).left;
    int end = 0;
    for (int i = 0; i < 3; ++i) {
        end += VyTextLayout::width(sectionText(i) + separator(), px);
        if (x < end || i == 2) {
            m_position = i;
            break;
        }
    }
    update();
}

void VyDateEdit::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyDateEdit::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyDateEdit::focusInEvent(VyFocusEvent*) {
    update();
}

void VyDateEdit::focusOutEvent(VyFocusEvent*) {
    commitTyped();
    update();
}

void VyDateEdit::hideEvent(VyHideEvent*) {
    if (m_calendar)
        m_calendar->cancel();
}
