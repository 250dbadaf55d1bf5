#include "ui/settings/DateTimePage.h"

#include "model/UiManager.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/NtpBlock.h"
#include "runtime/VyDate.h"
#include "runtime/VyLog.h"
#include "runtime/VyTime.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/UiLook.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr int kDateFormats = 3;
constexpr int kMaxPort = 65535;
constexpr int kFirstYear = 2000; // the recorder's clock runs from 2000 to 2037
constexpr int kLastYear = 2037;
constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kButtonWidthDesign = 320;
constexpr int kRowHeightDesign = 44;
constexpr uint16_t kDefaultIntervalMin = 60;

// Input that changes a date or time field (or opens its calendar); moving between the
// sections or past the field does not.
bool startsEditing(const VyEvent* e) {
    switch (e->type()) {
    case VyEvent::MouseButtonPress:
    case VyEvent::Wheel:
        return true;
    case VyEvent::KeyPress: {
        const int key = static_cast<const VyKeyEvent*>(e)->key();
        return (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9) ||
               key == VyKeyEvent::KeyUp || key == VyKeyEvent::KeyDown || key == VyKeyEvent::KeyOk;
    }
    default:
        return false;
    }
}

} // namespace

DateTimePage::DateTimePage(VyWidget* parent)
    : SettingsPage(TextId::Settings::DateTime, parent)
    , m_clock(&VyDateTime::currentDateTime) {
    m_clockSlot = blocks().declare<DateTimeBlock>();
    m_ntpSlot = blocks().declare<NtpBlock>();
    m_generalSlot = blocks().declare<GeneralSettingsBlock>();
    m_date = new VyDateEdit(this);
    m_date->setDateRange(VyDate(kFirstYear, 1, 1), VyDate(kLastYear, 12, 31));
    addRow(TextId::Settings::Date, m_date);
    VyObject::connect(m_date, &m_date->dateChanged, this, VY_SLOT(DateTimePage, clockEdited));
    m_date->installEventFilter(this);
    m_time = new VyTimeEdit(this);
    addRow(TextId::Settings::Time, m_time);
    VyObject::connect(m_time, &m_time->timeChanged, this, VY_SLOT(DateTimePage, clockEdited));
    m_time->installEventFilter(this);
    m_dateFormat = new VyComboBox(this);
    const VyDate today = VyDate::currentDate();
    for (int f = 0; f < kDateFormats; ++f)
        m_dateFormat->addItem(today.toString(UiManager::dateFormatFor(f)), f);
    addRow(TextId::Settings::DateFormat, m_dateFormat);
    watch(m_dateFormat, &m_dateFormat->currentIndexChanged);
    VyObject::connect(m_dateFormat, &m_dateFormat->currentIndexChanged, this,
                      VY_SLOT(DateTimePage, formatChosen));
    m_hour12 = new VyCheckBox(this);
    addRow(TextId::Settings::Hour12, m_hour12);
    watch(m_hour12, &m_hour12->toggled);
    VyObject::connect(m_hour12, &m_hour12->toggled, this, VY_SLOT(DateTimePage, formatChosen));
    m_zone = new VyComboBox(this);
    for (int z = 0; z < TimeZoneTable::kCount; ++z)
        m_zone->addItem(VyString(TimeZoneTable::kZones[z].label), z);
    addRow(TextId::Settings::TimeZone, m_zone);
    watch(m_zone, &m_zone->currentIndexChanged);
    m_ntp = new VyCheckBox(this);
    addRow(TextId::Settings::NtpSync, m_ntp);
    watch(m_ntp, &m_ntp->toggled);
    m_server =
        addTextRow(TextId::Settings::Server, offsetof(NtpBlock, server), sizeof NtpBlock::server);
    m_port = new VySpinBox(this);
    m_port->setRange(1, kMaxPort);
    addRow(TextId::Settings::Port, m_port);
    watch(m_port, &m_port->valueChanged);
    m_interval = new VySpinBox(this);
    m_interval->setRange(NtpBlock::kMinIntervalMin, NtpBlock::kMaxIntervalMin);
    addRow(TextId::Settings::SyncInterval, m_interval);
    watch(m_interval, &m_interval->valueChanged);
    m_sync = new VyPushButton(VyTranslation::tr(TextId::Settings::SyncNow), this);
    m_sync->show();
    VyObject::connect(m_sync, &m_sync->clicked, this, VY_SLOT(DateTimePage, syncNow));
    m_result = new VyLabel(this);
    m_result->show();
}

void DateTimePage::showValues() {
    m_showing = true;
    const auto& general = blocks().editAs<GeneralSettingsBlock>(m_generalSlot);
    const int format = clampForDisplay(general.dateFormat, 0, kDateFormats - 1, "date format");
    if (m_dateFormat->currentIndex() != format)
        m_dateFormat->setCurrentIndex(format);
    m_hour12->setChecked(general.hour12 != 0);
    formatChosen();
    if (followsClock())
        showClock();
    const auto& clock = blocks().editAs<DateTimeBlock>(m_clockSlot);
    const int zone = clampForDisplay(clock.timeZone, 0, TimeZoneTable::kCount - 1, "time zone");
    if (m_zone->currentIndex() != zone)
        m_zone->setCurrentIndex(zone);
    const auto& ntp = blocks().editAs<NtpBlock>(m_ntpSlot);
    m_ntp->setChecked(ntp.enabled != 0);
    showTexts(&ntp);
    showSpin(m_port, clampForDisplay(ntp.port, 1, kMaxPort, "NTP port"));
    showSpin(m_interval, clampForDisplay(ntp.intervalMin, NtpBlock::kMinIntervalMin,
                                         NtpBlock::kMaxIntervalMin, "NTP interval"));
    switch (ntp.syncResult) {
    case NtpBlock::SyncDone:
        m_result->setTextId(TextId::Settings::SyncDone);
        break;
    case NtpBlock::SyncFailed:
        m_result->setTextId(TextId::Settings::SyncFailed);
        break;
    default:
        m_result->setText(VyString());
        break;
    }
    m_showing = false;
}

void DateTimePage::collectValues() {
    if (!isOpened())
        return;
    auto& general = blocks().editAs<GeneralSettingsBlock>(m_generalSlot);
    const auto& savedGeneral = blocks().savedAs<GeneralSettingsBlock>(m_generalSlot);
    general.dateFormat = uint8_t(
        fromControl(savedGeneral.dateFormat, 0, kDateFormats - 1, m_dateFormat->currentIndex()));
    general.hour12 = m_hour12->isChecked() ? 1 : 0;

    auto& clock = blocks().editAs<DateTimeBlock>(m_clockSlot);
    const auto& savedClock = blocks().savedAs<DateTimeBlock>(m_clockSlot);
    clock.timeZone = uint8_t(
        fromControl(savedClock.timeZone, 0, TimeZoneTable::kCount - 1, m_zone->currentIndex()));
    clock.setClock = m_clockChanged ? 1 : 0;
    clock.clock = savedClock.clock;
    if (m_clockChanged) {
        const VyDate d = m_date->date();
        const VyTime t = m_time->time();
        clock.clock.year = uint16_t(d.year());
        clock.clock.month = uint8_t(d.month());
        clock.clock.day = uint8_t(d.day());
        clock.clock.hour = uint8_t(t.hour());
        clock.clock.minute = uint8_t(t.minute());
        clock.clock.second = uint8_t(t.second());
    }

    auto& ntp = blocks().editAs<NtpBlock>(m_ntpSlot);
    const auto& savedNtp = blocks().savedAs<NtpBlock>(m_ntpSlot);
    ntp.enabled = m_ntp->isChecked() ? 1 : 0;
    ntp.port = uint16_t(fromControl(savedNtp.port, 1, kMaxPort, m_port->value()));
    ntp.intervalMin = uint16_t(fromControl(savedNtp.intervalMin, NtpBlock::kMinIntervalMin,
                                           NtpBlock::kMaxIntervalMin, m_interval->value()));
    collectTexts(&ntp, &savedNtp);
}

void DateTimePage::setClock(Clock clock) {
    m_clock = clock ? std::move(clock) : Clock(&VyDateTime::currentDateTime);
}

void DateTimePage::opened() {
    if (m_tick == 0)
        m_tick = startTimer(kTickMs);
}

void DateTimePage::showClock() {
    // The recorder's clock is the GUI's: what it shows now, until the user sets another.
    const bool showing = m_showing;
    m_showing = true;
    const VyDateTime now = m_clock();
    m_date->setDate(now.date());
    m_time->setTime(now.time());
    m_showing = showing;
}

void DateTimePage::timerEvent(VyTimerEvent* e) {
    if (e->timerId() != m_tick) {
        SettingsPage::timerEvent(e);
        return;
    }
    if (followsClock() && isVisible())
        showClock();
}

bool DateTimePage::eventFilter(VyObject* watched, VyEvent* e) {
    if ((watched == m_date || watched == m_time) && startsEditing(e))
        m_following = false;
    return SettingsPage::eventFilter(watched, e);
}

void DateTimePage::written(int) {
    // The clock was set once; from now on the page shows the recorder's again.
    m_clockChanged = false;
    m_following = true;
}

void DateTimePage::cancelled() {
    // What the user typed is thrown away: the recorder's clock shows and ticks again.
    m_clockChanged = false;
    m_following = true;
}

void DateTimePage::clockEdited() {
    if (m_showing || !isOpened())
        return;
    m_clockChanged = true;
    markEdited();
}

void DateTimePage::formatChosen() {
    // A new format redraws the edits; that is not the user setting the clock.
    const bool showing = m_showing;
    m_showing = true;
    m_date->setDateFormat(std::max(0, m_dateFormat->currentIndex()));
    m_time->setHour12(m_hour12->isChecked());
    m_showing = showing;
}

void DateTimePage::syncNow() {
    if (!isOpened())
        return;
    collectValues();
    blocks().editAs<NtpBlock>(m_ntpSlot).syncRequest = 1;
    if (apply() < 0)
        blocks().editAs<NtpBlock>(m_ntpSlot).syncRequest = 0;
}

void DateTimePage::restoreDefaults() {
    if (!isOpened())
        return;
    auto& general = blocks().editAs<GeneralSettingsBlock>(m_generalSlot);
    general.dateFormat = 0;
    general.hour12 = 0;
    blocks().editAs<DateTimeBlock>(m_clockSlot).timeZone = TimeZoneTable::kUtc;
    auto& ntp = blocks().editAs<NtpBlock>(m_ntpSlot);
    ntp.enabled = 0;
    ntp.port = NtpBlock::kDefaultPort;
    ntp.intervalMin = kDefaultIntervalMin;
    showValues();
    markEdited();
}

void DateTimePage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int x = UiLook::scaledX(kMarginDesign), w = UiLook::scaledX(kButtonWidthDesign);
    const int h = UiLook::scaledY(kRowHeightDesign), y = rowsBottom();
    m_sync->setGeometry(x, y, w, h);
    m_result->setGeometry(x + w + x, y, width() - w - 3 * x, h);
}
