#include "ui/playback/PlaybackSearchPanel.h"

#include "model/UserAccess.h"
#include "protocol/RecordTypeBit.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr int kPadDesign = 12;
constexpr int kRowDesign = 34; // a channel or filter row

} // namespace

PlaybackSearchPanel::PlaybackSearchPanel(int deviceChannels, VyWidget* parent)
    : VyWidget(parent)
    , m_date(VyDate::currentDate()) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);

    m_calendar = new VyCalendarWidget(this);
    m_calendar->setToday(m_date);
    m_calendar->setSelectedDate(m_date);
    m_calendar->show();
    connect(m_calendar, &m_calendar->chosen, this, VY_SLOT(PlaybackSearchPanel, onCalendarChosen));
    connect(m_calendar, &m_calendar->monthChanged, this,
            VY_SLOT(PlaybackSearchPanel, onMonthChanged));
    const int count = std::max(0, std::min(deviceChannels, kMaxChannels));
    const UserAccess* users = UserAccess::instance();
    for (int c = 0; c < count; ++c) {
        auto* box = new VyCheckBox(VyString::number(c + 1), this);
        // A channel the user may not play stays in its place, greyed and never searched.
        const bool offered = users == nullptr || users->offers(UserRights::kPlayback, c);
        box->setChecked(offered && c < 4); // the first four, as a four-way split shows them
        box->setEnabled(offered);
        box->show();
        m_channels.push_back(box);
    }
    for (VyCheckBox*& box : m_types) {
        box = new VyCheckBox(this);
        box->setChecked(true);
        box->show();
        connect(box, &box->toggled, this, VY_SLOT(PlaybackSearchPanel, onTypeToggled));
    }
    m_search = new VyPushButton(this);
    m_search->show();
    connect(m_search, &m_search->clicked, this, VY_SLOT(PlaybackSearchPanel, onSearchClicked));
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(PlaybackSearchPanel, retranslate));
}

void PlaybackSearchPanel::retranslate() {
    m_search->setText(VyTranslation::tr(TextId::Playback::Search));
    m_types[Continuous]->setText(VyTranslation::tr(TextId::Playback::Continuous));
    m_types[Motion]->setText(VyTranslation::tr(TextId::Playback::Motion));
    m_types[Alarm]->setText(VyTranslation::tr(TextId::Playback::Alarm));
    m_types[Analytics]->setText(VyTranslation::tr(TextId::Playback::Analytics));
}

void PlaybackSearchPanel::setDate(const VyDate& date) {
    if (!date.isValid() || date == m_date)
        return;
    m_date = date;
    m_calendar->setSelectedDate(date);
}

VyDate PlaybackSearchPanel::shownMonth() const {
    // The calendar counts Solar Hijri months in that mode; the search asks by the Gregorian
    // month of the selected day then.
    if (m_calendar->isPersian())
        return VyDate(m_date.year(), m_date.month(), 1);
    return VyDate(m_calendar->shownYear(), m_calendar->shownMonth(), 1);
}

void PlaybackSearchPanel::setMarkedDays(const VyDate& month, uint32_t days) {
    std::vector<VyDate> marked;
    if (month.isValid()) {
        for (int d = 1; d <= month.daysInMonth() && d <= 32; ++d) {
            if ((days >> (d - 1) & 1u) != 0)
                marked.push_back(VyDate(month.year(), month.month(), d));
        }
    }
    m_calendar->setMarkedDays(marked);
}

bool PlaybackSearchPanel::isMarked(int day) const {
    return m_calendar->isMarked(VyDate(m_date.year(), m_date.month(), day));
}

std::vector<int> PlaybackSearchPanel::checkedChannels() const {
    std::vector<int> out;
    for (size_t c = 0; c < m_channels.size(); ++c) {
        if (m_channels[c]->isChecked() && m_channels[c]->isEnabled())
            out.push_back(int(c));
    }
    return out;
}

void PlaybackSearchPanel::setChannelChecked(int channel, bool on) {
    if (channel >= 0 && channel < int(m_channels.size()))
        m_channels[size_t(channel)]->setChecked(on);
}

uint32_t PlaybackSearchPanel::typeGroupBits(int group) {
    switch (group) {
    case Continuous:
        return RecordTypeBit::Continuous | RecordTypeBit::Manual;
    case Motion:
        return RecordTypeBit::Motion | RecordTypeBit::MotionAndAlarm;
    case Alarm:
        // The infra-red sensor is an alarm input of its own.
        return RecordTypeBit::Alarm | RecordTypeBit::Pir | RecordTypeBit::MotionAndAlarm;
    case Analytics:
        return RecordTypeBit::AnalyticsMask | (7u << 14) | RecordTypeBit::Smart;
    default:
        return 0;
    }
}

uint32_t PlaybackSearchPanel::typeFilter() const {
    uint32_t mask = 0;
    for (int g = 0; g < TypeGroupCount; ++g) {
        if (m_types[g]->isChecked())
            mask |= typeGroupBits(g);
    }
    return mask;
}

int PlaybackSearchPanel::calendarHeight() const {
    return std::min(m_calendar->sizeHint().height, UiLook::scaledY(9 * 36));
}

int PlaybackSearchPanel::contentHeight() const {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int channelRows = int((m_channels.size() + 3) / 4);
    return pad + calendarHeight() + pad + channelRows * row + pad + TypeGroupCount * row + pad +
           row + 4 + pad;
}

void PlaybackSearchPanel::resizeEvent(VyResizeEvent*) {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    m_calendar->setGeometry(pad, pad, width() - 2 * pad, calendarHeight());
    int y = pad + calendarHeight() + pad;
    const int columnWidth = (width() - 2 * pad) / 4;
    for (size_t c = 0; c < m_channels.size(); ++c) {
        m_channels[c]->setGeometry(pad + int(c % 4) * columnWidth, y + int(c / 4) * row,
                                   columnWidth, row);
    }
    y += int((m_channels.size() + 3) / 4) * row + pad;
    // One a row: the names of the types are long in some languages.
    for (int g = 0; g < TypeGroupCount; ++g)
        m_types[g]->setGeometry(pad, y + g * row, width() - 2 * pad, row);
    y += TypeGroupCount * row + pad;
    m_search->setGeometry(pad, y, width() - 2 * pad, row + 4);
}

void PlaybackSearchPanel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawRect(rect(), m_border);
}

void PlaybackSearchPanel::onCalendarChosen() {
    m_date = m_calendar->selectedDate();
    emitSignal(this, &dateChosen);
}

void PlaybackSearchPanel::onMonthChanged() {
    emitSignal(this, &monthShown);
}

void PlaybackSearchPanel::onSearchClicked() {
    emitSignal(this, &searchRequested);
}

void PlaybackSearchPanel::onTypeToggled() {
    emitSignal(this, &typeFilterChanged);
}
