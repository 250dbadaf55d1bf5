#include "ui/settings/DstRuleEdit.h"

#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/SettingsPage.h"

#include <algorithm>

namespace {

constexpr int kLastDay = 31;
constexpr int kLastHour = 23;
constexpr uint32_t kWeekdays[7] = {TextId::Settings::Sunday,   TextId::Settings::Monday,
                                   TextId::Settings::Tuesday,  TextId::Settings::Wednesday,
                                   TextId::Settings::Thursday, TextId::Settings::Friday,
                                   TextId::Settings::Saturday};

} // namespace

DstRuleEdit::DstRuleEdit(VyWidget* parent)
    : CWidget(parent) {
    m_month = new VySpinBox(this);
    m_month->setRange(1, 12);
    m_weekOrDay = new VySpinBox(this);
    m_weekday = new VyComboBox(this);
    for (int d = 0; d < 7; ++d)
        m_weekday->addItem(VyTranslation::tr(kWeekdays[d]), d);
    m_hour = new VySpinBox(this);
    m_hour->setRange(0, kLastHour);
    for (VySpinBox* box : {m_month, m_weekOrDay, m_hour}) {
        box->show();
        VyObject::connect(box, &box->valueChanged, this, VY_SLOT(DstRuleEdit, changed));
    }
    m_weekday->show();
    VyObject::connect(m_weekday, &m_weekday->currentIndexChanged, this,
                      VY_SLOT(DstRuleEdit, changed));
    setMode(DateTimeBlock::ByWeek);
}

void DstRuleEdit::changed() {
    emitSignal(this, &edited);
}

void DstRuleEdit::setMode(uint8_t mode) {
    m_mode = mode == DateTimeBlock::ByDate ? DateTimeBlock::ByDate : DateTimeBlock::ByWeek;
    m_weekOrDay->setRange(1, m_mode == DateTimeBlock::ByWeek ? DateTimeBlock::kLastWeek : kLastDay);
    m_weekday->setVisible(m_mode == DateTimeBlock::ByWeek);
    layoutControls();
}

void DstRuleEdit::setRule(const DateTimeBlock::DstRule& rule, const char* what) {
    m_month->setValue(SettingsPage::clampForDisplay(rule.month, 1, 12, what));
    if (m_mode == DateTimeBlock::ByWeek) {
        m_weekOrDay->setValue(
            SettingsPage::clampForDisplay(rule.week, 1, DateTimeBlock::kLastWeek, what));
        m_weekday->setCurrentIndex(SettingsPage::clampForDisplay(rule.weekday, 0, 6, what));
    } else {
        m_weekOrDay->setValue(SettingsPage::clampForDisplay(rule.day, 1, kLastDay, what));
    }
    m_hour->setValue(SettingsPage::clampForDisplay(rule.hour, 0, kLastHour, what));
}

void DstRuleEdit::collect(DateTimeBlock::DstRule* rule, const DateTimeBlock::DstRule& saved) const {
    rule->month = uint8_t(SettingsPage::fromControl(saved.month, 1, 12, m_month->value()));
    if (m_mode == DateTimeBlock::ByWeek) {
        rule->week = uint8_t(SettingsPage::fromControl(saved.week, 1, DateTimeBlock::kLastWeek,
                                                       m_weekOrDay->value()));
        rule->weekday = uint8_t(
            SettingsPage::fromControl(saved.weekday, 0, 6, std::max(0, m_weekday->currentIndex())));
    } else {
        rule->day =
            uint8_t(SettingsPage::fromControl(saved.day, 1, kLastDay, m_weekOrDay->value()));
    }
    rule->hour = uint8_t(SettingsPage::fromControl(saved.hour, 0, kLastHour, m_hour->value()));
}

void DstRuleEdit::resizeEvent(VyResizeEvent*) {
    layoutControls();
}

void DstRuleEdit::layoutControls() {
    // Month, week or day and hour take a quarter each; the weekday the rest when shown.
    const int quarter = width() / 4, h = height();
    const int gap = quarter / 16;
    m_month->setGeometry(0, 0, quarter - gap, h);
    m_weekOrDay->setGeometry(quarter, 0, quarter - gap, h);
    if (m_mode == DateTimeBlock::ByWeek) {
        m_weekday->setGeometry(2 * quarter, 0, quarter - gap, h);
        m_hour->setGeometry(3 * quarter, 0, width() - 3 * quarter, h);
    } else {
        m_hour->setGeometry(2 * quarter, 0, quarter - gap, h);
    }
}
