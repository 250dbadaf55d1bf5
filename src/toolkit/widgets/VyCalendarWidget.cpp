#include "toolkit/widgets/VyCalendarWidget.h"

#include <algorithm>

#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyCloseEvent.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyCalendarDate.h"

namespace {

constexpr int kWeeks = 6;
constexpr int kDays = 7;
constexpr int kSunday = 0; // weekday indices: Sunday 0 .. Saturday 6
constexpr int kFriday = 5;
constexpr int kSaturday = 6;
constexpr uint32_t kWeekdayNames[kDays] = {
    TextId::Common::SundayShort,    TextId::Common::MondayShort,   TextId::Common::TuesdayShort,
    TextId::Common::WednesdayShort, TextId::Common::ThursdayShort, TextId::Common::FridayShort,
    TextId::Common::SaturdayShort};

vyargb colourOr(const VyIniSettings& ini, const char* key, vyargb fallback) {
    const VyColor c = ini.color(key);
    return c.isValid() && !ini.value(key).isEmpty() ? c.argb() : fallback;
}

int weekdayIndex(const VyDate& d) {
    return d.dayOfWeek() % 7;
}

VyString twoDigits(int n) {
    return (n < 10 ? "0" : "") + VyString::number(n);
}

} // namespace

VyCalendarWidget::VyCalendarWidget(VyWidget* parent, bool popup)
    : CWidget(parent, popup ? Popup : Widget) {
    setFocusPolicy(StrongFocus);
    setAttribute(MouseTracking);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = colourOr(ini, "Calendar/Background", m_background);
    m_border = colourOr(ini, "Calendar/Border", m_border);
    m_headerBackground = colourOr(ini, "Calendar/Header/Background", m_headerBackground);
    m_headerForeground = colourOr(ini, "Calendar/Header/Foreground", m_headerForeground);
    m_day = colourOr(ini, "Calendar/Day/Foreground", m_day);
    m_otherMonth = colourOr(ini, "Calendar/Day/OtherMonth", m_otherMonth);
    m_weekend = colourOr(ini, "Calendar/Day/Weekend", m_weekend);
    m_todayColour = colourOr(ini, "Calendar/Day/Today", m_todayColour);
    m_selectedBackground = colourOr(ini, "Calendar/Day/Selected/Background", m_selectedBackground);
    m_selectedForeground = colourOr(ini, "Calendar/Day/Selected/Foreground", m_selectedForeground);
    m_hoverBackground = colourOr(ini, "Calendar/Day/Hover/Background", m_hoverBackground);
    m_hasRecord = colourOr(ini, "Calendar/Day/HasRecord", m_hasRecord);
    VyStyle* style = VyStyle::instance();
    m_previousImage =
        style->imageForScale("images/calendar-previous.png", style->horizontalScale());
    m_nextImage = style->imageForScale("images/calendar-next.png", style->horizontalScale());
    m_today = VyDate::currentDate();
    setSelectedDate(m_today.isValid() ? m_today : VyDate(2000, 1, 1));
}

VyCalendarWidget::~VyCalendarWidget() = default;

void VyCalendarWidget::setPersian(bool persian) {
    m_persian = persian;
    int d = 0;
    VyCalendarDate::fields(m_selected, m_persian, &m_year, &m_month, &d);
    update();
    emitSignal(this, &monthChanged);
}

bool VyCalendarWidget::setSelectedDate(const VyDate& date) {
    if (!date.isValid()) {
        vyFrameworkLog("VyCalendarWidget: invalid date refused !!!\n");
        return false;
    }
    m_selected = date;
    int y = 0;
    int m = 0;
    int d = 0;
    VyCalendarDate::fields(date, m_persian, &y, &m, &d);
    if (y != m_year || m != m_month)
        showMonth(y, m);
    update();
    return true;
}

void VyCalendarWidget::setToday(const VyDate& today) {
    m_today = today;
    update();
}

void VyCalendarWidget::showMonth(int year, int month) {
    if (!VyCalendarDate::toDate(m_persian, year, month, 1).isValid())
        return;
    if (year == m_year && month == m_month)
        return;
    m_year = year;
    m_month = month;
    update();
    emitSignal(this, &monthChanged);
}

void VyCalendarWidget::showNextMonth() {
    const VyDate next = VyCalendarDate::addMonths(
        VyCalendarDate::toDate(m_persian, m_year, m_month, 1), m_persian, 1);
    int d = 0;
    int y = 0;
    int m = 0;
    VyCalendarDate::fields(next, m_persian, &y, &m, &d);
    showMonth(y, m);
}

void VyCalendarWidget::showPreviousMonth() {
    const VyDate previous = VyCalendarDate::addMonths(
        VyCalendarDate::toDate(m_persian, m_year, m_month, 1), m_persian, -1);
    int d = 0;
    int y = 0;
    int m = 0;
    VyCalendarDate::fields(previous, m_persian, &y, &m, &d);
    showMonth(y, m);
}

void VyCalendarWidget::setMarkedDays(const std::vector<VyDate>& days) {
    m_marked.clear();
    for (const VyDate& d : days)
        if (d.isValid())
            m_marked.insert(d.toJulianDay());
    update();
}

void VyCalendarWidget::clearMarkedDays() {
    m_marked.clear();
    update();
}

bool VyCalendarWidget::isMarked(const VyDate& date) const {
    return date.isValid() && m_marked.count(date.toJulianDay()) != 0;
}

VyDate VyCalendarWidget::firstShownDay() const {
    const VyDate first = VyCalendarDate::toDate(m_persian, m_year, m_month, 1);
    const int weekStart = m_persian ? kSaturday : kSunday;
    return first.addDays(-((weekdayIndex(first) - weekStart + kDays) % kDays));
}

VyDate VyCalendarWidget::dateAt(int row, int column) const {
    if (row < 0 || row >= kWeeks || column < 0 || column >= kDays)
        return VyDate();
    return firstShownDay().addDays(row * kDays + column);
}

VySize VyCalendarWidget::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    return VySize(kDays * style->scaled(kCellWidthDesign) + 2,
                  (kWeeks + 2) * style->scaledHeight(kCellHeightDesign) + 2);
}

VyRect VyCalendarWidget::cellRect(int row, int column) const {
    const int cw = std::max(1, (width() - 2) / kDays);
    const int ch = std::max(1, (height() - 2) / (kWeeks + 2));
    return VyRect(1 + column * cw, 1 + (row + 2) * ch, cw, ch);
}

VyRect VyCalendarWidget::previousButtonRect() const {
    const int ch = std::max(1, (height() - 2) / (kWeeks + 2));
    return VyRect(1, 1, ch, ch);
}

VyRect VyCalendarWidget::nextButtonRect() const {
    const int ch = std::max(1, (height() - 2) / (kWeeks + 2));
    return VyRect(width() - 1 - ch, 1, ch, ch);
}

bool VyCalendarWidget::cellAt(VyPoint pos, int* row, int* column) const {
    for (int r = 0; r < kWeeks; ++r)
        for (int c = 0; c < kDays; ++c)
            if (cellRect(r, c).contains(pos)) {
                *row = r;
                *column = c;
                return true;
            }
    return false;
}

void VyCalendarWidget::open(const VyRect& under) {
    const VySize s = sizeHint();
    VyApplication* app = VyApplication::instance();
    const int sw = app && app->screen() ? app->screen()->width() : 1920;
    const int sh = app && app->screen() ? app->screen()->height() : 1080;
    int y = under.bottom + 1;
    if (y + s.height > sh && under.top - s.height >= 0)
        y = under.top - s.height;
    const int x = std::max(0, std::min(under.left, sw - s.width));
    setGeometry(x, std::max(0, std::min(y, sh - s.height)), s.width, s.height);
    show();
    setFocus(VyFocusEvent::PopupFocusReason);
}

void VyCalendarWidget::cancel() {
    if (!isPopup() || !isVisible())
        return;
    hide();
    emitSignal(this, &cancelled);
}

void VyCalendarWidget::choose() {
    VyPointer<VyCalendarWidget> self(this);
    if (isPopup() && isVisible())
        hide();
    if (self)
        emitSignal(this, &chosen);
}

void VyCalendarWidget::moveSelection(long long days) {
    const VyDate next = m_selected.addDays(days);
    if (next.isValid())
        setSelectedDate(next);
}

bool VyCalendarWidget::keyLeftRight(int key) {
    moveSelection(key == VyKeyEvent::KeyRight ? 1 : -1);
    return true;
}

bool VyCalendarWidget::keyUpDown(int key) {
    moveSelection(key == VyKeyEvent::KeyDown ? kDays : -kDays);
    return true;
}

bool VyCalendarWidget::keyActivate() {
    choose();
    return true;
}

void VyCalendarWidget::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyEscape && isPopup()) {
        e->accept();
        cancel();
        return;
    }
    CWidget::keyPressEvent(e);
}

void VyCalendarWidget::mousePressEvent(VyMouseEvent* e) {
    if (!rect().contains(e->pos())) {
        e->accept();
        cancel();
        return;
    }
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    if (previousButtonRect().contains(e->pos())) {
        showPreviousMonth();
        return;
    }
    if (nextButtonRect().contains(e->pos())) {
        showNextMonth();
        return;
    }
    int row = 0;
    int column = 0;
    if (!cellAt(e->pos(), &row, &column))
        return;
    setSelectedDate(dateAt(row, column));
    choose();
}

void VyCalendarWidget::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    int row = -1;
    int column = -1;
    if (!cellAt(e->pos(), &row, &column))
        row = column = -1;
    if (row != m_hoverRow || column != m_hoverColumn) {
        m_hoverRow = row;
        m_hoverColumn = column;
        update();
    }
}

void VyCalendarWidget::wheelEvent(VyWheelEvent* e) {
    e->accept();
    if (e->delta() > 0)
        showPreviousMonth();
    else if (e->delta() < 0)
        showNextMonth();
}

void VyCalendarWidget::closeEvent(VyCloseEvent* e) {
    e->accept();
    if (isPopup() && isVisible())
        emitSignal(this, &cancelled);
}

void VyCalendarWidget::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyLabelOption>().font, 0);
    c->fillRect(rect(), m_background);
    const VyRect prev = previousButtonRect();
    const VyRect next = nextButtonRect();
    c->fillRect(VyRect::fromEdges(1, 1, width() - 2, prev.bottom), m_headerBackground);
    for (const auto& [box, image] :
         {std::make_pair(prev, m_previousImage), std::make_pair(next, m_nextImage)}) {
        if (!image.isNull())
            c->drawImage(box.left + (box.width() - image.width()) / 2,
                         box.top + (box.height() - image.height()) / 2, image);
        else
            style->drawArrow(c, box == prev ? VyStyle::ArrowLeft : VyStyle::ArrowRight,
                             VyRect(box.left + box.width() / 3, box.top + box.height() / 4,
                                    box.width() / 3, box.height() / 2),
                             m_headerForeground);
    }
    c->drawText(VyRect::fromEdges(prev.right + 1, prev.top, next.left - 1, prev.bottom),
                VyCanvas::AlignCenter, VyString::number(m_year) + "-" + twoDigits(m_month), px,
                m_headerForeground);
    const int weekStart = m_persian ? kSaturday : kSunday;
    for (int col = 0; col < kDays; ++col) {
        const VyRect cell = cellRect(-1, col);
        const int weekday = (weekStart + col) % kDays;
        c->drawText(cell, VyCanvas::AlignCenter, VyTranslation::tr(kWeekdayNames[weekday]), px,
                    m_headerForeground);
    }
    const VyDate first = firstShownDay();
    for (int row = 0; row < kWeeks; ++row) {
        for (int col = 0; col < kDays; ++col) {
            const VyDate day = first.addDays(row * kDays + col);
            if (!day.isValid())
                continue;
            const VyRect cell = cellRect(row, col);
            int y = 0;
            int m = 0;
            int d = 0;
            VyCalendarDate::fields(day, m_persian, &y, &m, &d);
            const int weekday = weekdayIndex(day);
            const bool weekend =
                m_persian ? weekday == kFriday : (weekday == kSunday || weekday == kSaturday);
            vyargb fg = m != m_month ? m_otherMonth : weekend ? m_weekend : m_day;
            if (day == m_selected) {
                c->fillRect(cell, m_selectedBackground);
                fg = m_selectedForeground;
            } else if (row == m_hoverRow && col == m_hoverColumn) {
                c->fillRect(cell, m_hoverBackground);
            }
            if (day == m_today)
                c->drawRect(cell, m_todayColour);
            c->drawText(cell, VyCanvas::AlignCenter, VyString::number(d), px, fg);
            if (isMarked(day)) {
                // A bar under the number: the day has recordings.
                const int w = std::max(4, cell.width() / 3);
                const int h = std::max(2, cell.height() / 12);
                c->fillRect(VyRect(cell.left + (cell.width() - w) / 2, cell.bottom - 2 * h, w, h),
                            m_hasRecord);
            }
        }
    }
    c->drawRect(rect(), m_border);
}
