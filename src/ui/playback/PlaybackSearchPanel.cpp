#include "ui/playback/PlaybackSearchPanel.h"

#include "protocol/RecordTypeBit.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

vyargb colourOr(const VyIniSettings& ini, const VyString& key, vyargb fallback) {
    if (ini.value(key).isEmpty())
        return fallback;
    const VyColor c = ini.color(key);
    return c.isValid() ? c.argb() : fallback;
}

constexpr int kPadDesign = 12;
constexpr int kRowDesign = 34; // a day row and a channel row
constexpr int kArrowDesign = 28;

} // namespace

PlaybackSearchPanel::PlaybackSearchPanel(int deviceChannels, VyWidget* parent)
    : VyWidget(parent)
    , m_date(VyDate::currentDate()) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = colourOr(ini, s + "Background", m_background);
    m_border = colourOr(ini, s + "Border", m_border);
    m_title = colourOr(ini, s + "Title/Foreground", m_title);
    m_text = colourOr(ini, s + "Text/Foreground", m_text);
    m_checked = colourOr(ini, s + "Channel/Checked", m_checked);
    const VyIniSettings calendar(VyResources::path("style/calendar.ini"));
    m_marked = colourOr(calendar, "Calendar/Day/HasRecord", m_marked);

    VyStyle* style = VyStyle::instance();
    m_previousMonth = new VyPushButton(this);
    m_previousMonth->setIcon(style->image("images/prev.png"));
    connect(m_previousMonth, &m_previousMonth->clicked, this,
            VY_SLOT(PlaybackSearchPanel, onPreviousMonth));
    m_nextMonth = new VyPushButton(this);
    m_nextMonth->setIcon(style->image("images/next.png"));
    connect(m_nextMonth, &m_nextMonth->clicked, this, VY_SLOT(PlaybackSearchPanel, onNextMonth));
    const int count = std::max(0, std::min(deviceChannels, kMaxChannels));
    for (int c = 0; c < count; ++c) {
        auto* box = new VyCheckBox(VyString::number(c + 1), this);
        box->setChecked(c < 4); // the first four, as a four-way split shows them
        m_channels.push_back(box);
    }
    for (VyCheckBox*& box : m_types) {
        box = new VyCheckBox(this);
        box->setChecked(true);
        box->show();
        connect(box, &box->toggled, this, VY_SLOT(PlaybackSearchPanel, onTypeToggled));
    }
    m_search = new VyPushButton(this);
    for (VyWidget* w : {static_cast<VyWidget*>(m_previousMonth),
                        static_cast<VyWidget*>(m_nextMonth), static_cast<VyWidget*>(m_search)})
        w->show();
    for (VyCheckBox* box : m_channels)
        box->show();
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(PlaybackSearchPanel, retranslate));
    connect(m_search, &m_search->clicked, this, VY_SLOT(PlaybackSearchPanel, onSearchClicked));
}

void PlaybackSearchPanel::setDate(const VyDate& date) {
    if (!date.isValid() || date == m_date)
        return;
    m_date = date;
    update();
}

void PlaybackSearchPanel::setMarkedDays(const VyDate& month, uint32_t days) {
    m_markedMonth = month;
    m_markedDays = days;
    update();
}

bool PlaybackSearchPanel::isMarked(int day) const {
    return m_markedMonth.isValid() && m_markedMonth.year() == m_date.year() &&
           m_markedMonth.month() == m_date.month() && day >= 1 && day <= 31 &&
           (m_markedDays >> (day - 1) & 1u) != 0;
}

std::vector<int> PlaybackSearchPanel::checkedChannels() const {
    std::vector<int> out;
    for (size_t c = 0; c < m_channels.size(); ++c) {
        if (m_channels[c]->isChecked())
            out.push_back(int(c));
    }
    return out;
}

void PlaybackSearchPanel::setChannelChecked(int channel, bool on) {
    if (channel >= 0 && channel < int(m_channels.size()))
        m_channels[size_t(channel)]->setChecked(on);
}

VyRect PlaybackSearchPanel::gridRect() const {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    // Month title row, weekday gaps, then six weeks.
    return VyRect(pad, pad + row, width() - 2 * pad, 6 * row);
}

VyRect PlaybackSearchPanel::dayRect(int day) const {
    const VyDate first(m_date.year(), m_date.month(), 1);
    if (day < 1 || day > first.daysInMonth())
        return VyRect();
    const VyRect grid = gridRect();
    const int cell = (first.dayOfWeek() - 1) + day - 1; // weeks start on Monday
    const int w = grid.width() / 7, h = grid.height() / 6;
    return VyRect(grid.left + cell % 7 * w, grid.top + cell / 7 * h, w, h);
}

int PlaybackSearchPanel::contentHeight() const {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int channelRows = int((m_channels.size() + 3) / 4);
    return pad + row + 6 * row + pad + channelRows * row + pad + TypeGroupCount * row + pad + row +
           4 + pad;
}

void PlaybackSearchPanel::resizeEvent(VyResizeEvent*) {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int arrow = UiLook::scaledX(kArrowDesign);
    m_previousMonth->setGeometry(pad, pad, arrow, row - 4);
    m_nextMonth->setGeometry(width() - pad - arrow, pad, arrow, row - 4);
    const VyRect grid = gridRect();
    int y = grid.top + grid.height() + pad;
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
    const int font = UiLook::instance().fontPixelSize();
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    c->drawText(VyRect(pad, pad, width() - 2 * pad, row - 4), VyCanvas::AlignCenter,
                m_date.toString("yyyy/MM"), font, m_title);
    const VyDate first(m_date.year(), m_date.month(), 1);
    for (int day = 1; day <= first.daysInMonth(); ++day) {
        const VyRect r = dayRect(day);
        if (day == m_date.day())
            c->fillRect(r, m_checked);
        if (isMarked(day)) {
            // A bar under the number: days with recordings.
            const int h = std::max(2, r.height() / 10);
            c->fillRect(VyRect(r.left + r.width() / 4, r.bottom - h - 1, r.width() / 2, h),
                        m_marked);
        }
        c->drawText(r, VyCanvas::AlignCenter, VyString::number(day), font, m_text);
    }
}

void PlaybackSearchPanel::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    const VyDate first(m_date.year(), m_date.month(), 1);
    for (int day = 1; day <= first.daysInMonth(); ++day) {
        if (dayRect(day).contains(e->pos())) {
            setDate(VyDate(m_date.year(), m_date.month(), day));
            emitSignal(this, &dateChosen);
            return;
        }
    }
}

void PlaybackSearchPanel::retranslate() {
    m_search->setText(VyTranslation::tr(TextId::Playback::Search));
    m_types[Continuous]->setText(VyTranslation::tr(TextId::Playback::Continuous));
    m_types[Motion]->setText(VyTranslation::tr(TextId::Playback::Motion));
    m_types[Alarm]->setText(VyTranslation::tr(TextId::Playback::Alarm));
    m_types[Analytics]->setText(VyTranslation::tr(TextId::Playback::Analytics));
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

void PlaybackSearchPanel::onTypeToggled() {
    emitSignal(this, &typeFilterChanged);
}

void PlaybackSearchPanel::onSearchClicked() {
    emitSignal(this, &searchRequested);
}

void PlaybackSearchPanel::onPreviousMonth() {
    setDate(VyDate(m_date.year(), m_date.month(), 1).addMonths(-1));
    emitSignal(this, &dateChosen);
}

void PlaybackSearchPanel::onNextMonth() {
    setDate(VyDate(m_date.year(), m_date.month(), 1).addMonths(1));
    emitSignal(this, &dateChosen);
}
