#include "toolkit/widgets/VyTimeEdit.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"

namespace {

constexpr int kSecondsPerDay = 24 * 3600;
constexpr int kHalfDay = 12 * 3600;

VyString twoDigits(int n) {
    return (n < 10 ? "0" : "") + VyString::number(n);
}

// Steps one field of the time and wraps within it.
int wrapped(int value, int steps, int count) {
    const int r = (value + steps) % count;
    return r < 0 ? r + count : r;
}

} // namespace

VyTimeEdit::VyTimeEdit(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

VyTimeEdit::~VyTimeEdit() = default;

void VyTimeEdit::setHour12(bool on) {
    m_hour12 = on;
    m_typed.clear();
    m_position = std::min(m_position, sectionCount() - 1);
    update();
}

bool VyTimeEdit::setTime(const VyTime& time) {
    if (!time.isValid()) {
        vyFrameworkLog("VyTimeEdit: invalid time refused, %s kept !!!\n",
                       m_time.toString("hh:mm:ss").c_str());
        return false;
    }
    m_typed.clear();
    const VyTime t = VyTime::fromMSecsSinceStartOfDay(time.hour() * 3600000 +
                                                      time.minute() * 60000 + time.second() * 1000);
    if (t == m_time) {
        update();
        return true;
    }
    m_time = t;
    update();
    emitSignal(this, &timeChanged);
    return true;
}

void VyTimeEdit::setCurrentSection(Section section) {
    commitTyped();
    m_position = std::max(0, std::min(static_cast<int>(section), sectionCount() - 1));
    update();
}

void VyTimeEdit::stepBy(int steps) {
    commitTyped();
    int h = m_time.hour();
    int m = m_time.minute();
    int s = m_time.second();
    switch (currentSection()) {
    case HourSection:
        h = wrapped(h, steps, 24);
        break;
    case MinuteSection:
        m = wrapped(m, steps, 60);
        break;
    case SecondSection:
        s = wrapped(s, steps, 60);
        break;
    case AmPmSection: {
        const int secs = h * 3600 + m * 60 + s;
        const int flipped = (secs + (steps % 2 != 0 ? kHalfDay : 0)) % kSecondsPerDay;
        h = flipped / 3600;
        break;
    }
    }
    setTime(VyTime(h, m, s));
}

VyString VyTimeEdit::sectionText(int position) const {
    if (position == m_position && !m_typed.isEmpty())
        return m_typed;
    switch (position) {
    case HourSection: {
        int h = m_time.hour();
        if (m_hour12)
            h = h % 12 == 0 ? 12 : h % 12;
        return twoDigits(h);
    }
    case MinuteSection:
        return twoDigits(m_time.minute());
    case SecondSection:
        return twoDigits(m_time.second());
    default:
        return m_time.hour() < 12 ? "AM" : "PM";
    }
}

VyString VyTimeEdit::separatorAfter(int position) const {
    if (position < SecondSection)
        return ":";
    return position == SecondSection && m_hour12 ? " " : "";
}

VyString VyTimeEdit::text() const {
    VyString t;
    for (int i = 0; i < sectionCount(); ++i)
        t += sectionText(i) + separatorAfter(i);
    return t;
}

void VyTimeEdit::commitTyped() {
    if (m_typed.isEmpty())
        return;
    const int value = std::stoi(m_typed.toStdString());
    m_typed.clear();
    int h = m_time.hour();
    int m = m_time.minute();
    int s = m_time.second();
    switch (currentSection()) {
    case HourSection:
        if (m_hour12) {
            // 1..12 typed on the 12-hour clock keeps the half of the day.
            if (value < 1 || value > 12) {
                h = -1;
                break;
            }
            h = value % 12 + (h >= 12 ? 12 : 0);
        } else {
            h = value;
        }
        break;
    case MinuteSection:
        m = value;
        break;
    case SecondSection:
        s = value;
        break;
    case AmPmSection:
        break;
    }
    if (VyTime::isValid(h, m, s))
        setTime(VyTime(h, m, s));
    else
        vyFrameworkLog("VyTimeEdit: %d refused in section %d !!!\n", value, m_position);
    update();
}

int VyTimeEdit::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

VySize VyTimeEdit::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    const int h = VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign);
    return VySize(VyTextLayout::width(m_hour12 ? "00:00:00 PM" : "00:00:00", px) +
                      2 * style->scaled(VyStyle::kFieldPaddingDesign),
                  h);
}

void VyTimeEdit::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    int from = 0;
    int to = 0;
    if (hasFocus()) {
        VyString before;
        for (int i = 0; i < m_position; ++i)
            before += sectionText(i) + separatorAfter(i);
        from = VyTextLayout::width(before, px);
        to = from + VyTextLayout::width(sectionText(m_position), px);
    }
    style->drawDateEdit(canvas(), rect(), styleSlot(), text(), from, to, false);
}

void VyTimeEdit::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    const int key = e->key();
    if (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9 &&
        currentSection() != AmPmSection) {
        m_typed += VyString::number(key - VyKeyEvent::KeyDigit0);
        if (m_typed.length() >= 2) {
            commitTyped();
            m_position = std::min(sectionCount() - 1, m_position + 1);
        }
        update();
    } else if (key == VyKeyEvent::KeyUp) {
        stepBy(1);
    } else if (key == VyKeyEvent::KeyDown) {
        stepBy(-1);
    } else if (key == VyKeyEvent::KeyLeft || key == VyKeyEvent::KeyRight) {
        commitTyped();
        const int next = m_position + (key == VyKeyEvent::KeyRight ? 1 : -1);
        if (next < 0 || next >= sectionCount()) {
            e->ignore();
            return;
        }
        m_position = next;
        update();
    } else if (key == VyKeyEvent::KeyOk) {
        // OK moves through the sections, so a remote without arrows reaching the field can
        // still reach every one.
        commitTyped();
        m_position = (m_position + 1) % sectionCount();
        update();
    } else if (key == VyKeyEvent::KeyEscape && !m_typed.isEmpty()) {
        m_typed.clear();
        update();
    } else {
        e->ignore();
        return;
    }
    e->accept();
}

void VyTimeEdit::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    stepBy(e->notches());
}

void VyTimeEdit::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    commitTyped();
    VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, 0);
    const int x = e->pos().x - style->dateEditTextRect(rect(), false).left;
    int end = 0;
    for (int i = 0; i < sectionCount(); ++i) {
        end += VyTextLayout::width(sectionText(i) + separatorAfter(i), px);
        if (x < end || i == sectionCount() - 1) {
            m_position = i;
            break;
        }
    }
    update();
}

void VyTimeEdit::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyTimeEdit::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyTimeEdit::focusInEvent(VyFocusEvent*) {
    update();
}

void VyTimeEdit::focusOutEvent(VyFocusEvent*) {
    commitTyped();
    update();
}
