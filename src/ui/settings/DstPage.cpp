#include "ui/settings/DstPage.h"

#include "protocol/DateTimeBlock.h"
#include "protocol/FactorySettings.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "ui/settings/DstRuleEdit.h"

#include <algorithm>
#include <string>

namespace {

constexpr int kOffsets = DateTimeBlock::kMaxDstOffsetMin / DateTimeBlock::kDstOffsetStepMin;

} // namespace

DstPage::DstPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::DaylightSaving, parent) {
    m_slot = blocks().declare<DateTimeBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_mode = new VyComboBox(this);
    m_mode->addItem(VyTranslation::tr(TextId::Settings::DstByWeek), DateTimeBlock::ByWeek);
    m_mode->addItem(VyTranslation::tr(TextId::Settings::DstByDate), DateTimeBlock::ByDate);
    addRow(TextId::Settings::DstMode, m_mode);
    watch(m_mode, &m_mode->currentIndexChanged);
    VyObject::connect(m_mode, &m_mode->currentIndexChanged, this, VY_SLOT(DstPage, modeChosen));
    m_start = new DstRuleEdit(this);
    addRow(TextId::Settings::DstStart, m_start);
    watch(m_start, &m_start->edited);
    m_end = new DstRuleEdit(this);
    addRow(TextId::Settings::DstEnd, m_end);
    watch(m_end, &m_end->edited);
    m_offset = new VyComboBox(this);
    for (int i = 1; i <= kOffsets; ++i)
        m_offset->addItem(VyString(std::to_string(i * DateTimeBlock::kDstOffsetStepMin)),
                          i * DateTimeBlock::kDstOffsetStepMin);
    addRow(TextId::Settings::DstOffset, m_offset);
    watch(m_offset, &m_offset->currentIndexChanged);
}

void DstPage::showValues() {
    m_showing = true;
    const auto& b = blocks().editAs<DateTimeBlock>(m_slot);
    m_enabled->setChecked(b.dstEnabled != 0);
    const int mode =
        clampForDisplay(b.dstMode, DateTimeBlock::ByWeek, DateTimeBlock::ByDate, "DST mode");
    if (m_mode->currentIndex() != mode)
        m_mode->setCurrentIndex(mode);
    m_start->setMode(uint8_t(mode));
    m_end->setMode(uint8_t(mode));
    m_start->setRule(b.dstStart, "DST start");
    m_end->setRule(b.dstEnd, "DST end");
    const int offset = m_offset->findData(b.dstOffsetMin);
    if (offset < 0)
        clampForDisplay(b.dstOffsetMin, DateTimeBlock::kDstOffsetStepMin,
                        DateTimeBlock::kMaxDstOffsetMin, "DST offset");
    m_offset->setCurrentIndex(offset < 0 ? 0 : offset);
    m_showing = false;
}

void DstPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<DateTimeBlock>(m_slot);
    const auto& saved = blocks().savedAs<DateTimeBlock>(m_slot);
    b.dstEnabled = m_enabled->isChecked() ? 1 : 0;
    b.dstMode = uint8_t(fromControl(saved.dstMode, DateTimeBlock::ByWeek, DateTimeBlock::ByDate,
                                    m_mode->currentIndex()));
    m_start->collect(&b.dstStart, saved.dstStart);
    m_end->collect(&b.dstEnd, saved.dstEnd);
    // An offset App sent that is not among the choices stays App's until one is chosen.
    const bool offered = m_offset->findData(saved.dstOffsetMin) >= 0;
    if (offered || m_offset->currentIndex() != 0)
        b.dstOffsetMin = uint8_t(m_offset->currentData());
    else
        b.dstOffsetMin = saved.dstOffsetMin;
}

void DstPage::restoreDefaults() {
    if (!isOpened())
        return;
    FactorySettings::setDst(&blocks().editAs<DateTimeBlock>(m_slot));
    showValues();
    markEdited();
}

void DstPage::modeChosen() {
    if (!isOpened() || m_showing)
        return;
    // What the rows show belongs to the mode they were in; the other mode's fields come
    // back from the block.
    auto& b = blocks().editAs<DateTimeBlock>(m_slot);
    const auto& saved = blocks().savedAs<DateTimeBlock>(m_slot);
    m_start->collect(&b.dstStart, saved.dstStart);
    m_end->collect(&b.dstEnd, saved.dstEnd);
    const uint8_t mode = uint8_t(std::max(0, m_mode->currentIndex()));
    m_start->setMode(mode);
    m_end->setMode(mode);
    m_start->setRule(b.dstStart, "DST start");
    m_end->setRule(b.dstEnd, "DST end");
}

void DstPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    // Four controls in a row: twice a row's usual width, so the weekday names fit.
    for (DstRuleEdit* rule : {m_start, m_end}) {
        const VyRect g = rule->geometry();
        rule->setGeometry(
            VyRect(g.x(), g.y(), std::min(2 * g.width(), width() - g.x()), g.height()));
    }
}
