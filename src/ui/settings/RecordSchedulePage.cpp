#include "ui/settings/RecordSchedulePage.h"

#include "model/DeviceProfile.h"
#include "protocol/RecordScheduleBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"
#include "ui/settings/RecScheduleFrame.h"

#include <cstring>

namespace {

constexpr uint32_t kTypeTexts[4] = {TextId::Settings::TypeNormal, TextId::Settings::TypeMotion,
                                    TextId::Settings::TypeAlarm, TextId::Settings::TypePir};
constexpr int kButtonWidthDesign = 280; // pixels at 1920x1080
constexpr int kButtonHeightDesign = 44;
constexpr int kGapDesign = 12;

bool typeOffered(int bit, const DeviceProfile& p) {
    switch (bit) {
    case 0:
        return p.enableNormalRecord;
    case 1:
        return p.enableMotionRecord;
    case 2:
        return p.alarmInputNum > 0;
    default:
        return p.enablePirRecord;
    }
}

} // namespace

RecordSchedulePage::RecordSchedulePage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Schedule, parent) {
    const DeviceProfile& profile = DeviceProfile::current();
    const int channels = profile.channelCount > 0 ? profile.channelCount : 1;
    for (int ch = 0; ch < channels; ++ch)
        m_slots.push_back(blocks().declare<RecordScheduleBlock>(uint8_t(ch)));

    m_channel = new VySpinBox(this);
    m_channel->setRange(1, channels);
    addRow(TextId::Settings::Channel, m_channel);
    VyObject::connect(m_channel, &m_channel->valueChanged, this,
                      VY_SLOT(RecordSchedulePage, channelChosen));
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Record, m_enabled);
    watch(m_enabled, &m_enabled->toggled);

    for (int bit = 0; bit < 4; ++bit) {
        if (!typeOffered(bit, profile))
            continue;
        auto* b = new VyPushButton(VyTranslation::tr(kTypeTexts[bit]), this);
        b->setCheckable(true);
        b->show();
        VyObject::connect(b, &b->clicked, this, VY_SLOT(RecordSchedulePage, typeChosen));
        m_types[bit] = b;
    }
    m_copy = new VyPushButton(VyTranslation::tr(TextId::Settings::Copy), this);
    m_copy->show();
    VyObject::connect(m_copy, &m_copy->clicked, this,
                      VY_SLOT(RecordSchedulePage, copyToAllChannels));

    m_frame = new RecScheduleFrame(this);
    m_frame->show();
    m_frame->board()->setHideNormal(!profile.enableNormalRecord);
    watch(m_frame->board(), &m_frame->board()->scheduleEdited);
    for (int bit = 0; bit < 4; ++bit) {
        if (m_types[bit] != nullptr) {
            selectType(bit);
            break;
        }
    }
}

void RecordSchedulePage::opened() {
    std::vector<uint8_t*> arrays;
    for (int slot : m_slots)
        arrays.push_back(blocks().editAs<RecordScheduleBlock>(slot).schedule);
    m_copyHandler.setSchedules(arrays);
}

void RecordSchedulePage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int margin = UiLook::scaledX(kGapDesign * 2);
    const int bw = UiLook::scaledX(kButtonWidthDesign), bh = UiLook::scaledY(kButtonHeightDesign);
    const int gap = UiLook::scaledX(kGapDesign);
    int x = margin;
    const int y = rowsBottom();
    for (VyPushButton* b : m_types) {
        if (b == nullptr)
            continue;
        b->setGeometry(x, y, bw, bh);
        x += bw + gap;
    }
    m_copy->setGeometry(width() - margin - bw, y, bw, bh);
    const int top = y + bh + UiLook::scaledY(kGapDesign);
    m_frame->setGeometry(margin, top, width() - 2 * margin, height() - top - margin);
}

void RecordSchedulePage::selectType(int bit) {
    for (int i = 0; i < 4; ++i)
        if (m_types[i] != nullptr)
            m_types[i]->setChecked(i == bit);
    m_frame->board()->setCurrentType(uint8_t(bit));
}

void RecordSchedulePage::typeChosen(VyObject* sender) {
    for (int bit = 0; bit < 4; ++bit)
        if (m_types[bit] == sender)
            selectType(bit);
}

void RecordSchedulePage::showValues() {
    const int channels = int(m_slots.size());
    m_shown = clampForDisplay(m_channel->value() - 1, 0, channels - 1, "channel");
    RecordScheduleBlock& b = blocks().editAs<RecordScheduleBlock>(m_slots[size_t(m_shown)]);
    // Bits of no record type are not drawn (the board draws the four types only); say so
    // once rather than pass them by silently.
    int foreign = 0;
    for (uint8_t cell : b.schedule)
        foreign += (cell & ~0x0F) != 0;
    if (foreign > 0)
        VY_GUI_LOG("channel %d: %d schedule cells hold unknown record types, not shown\n",
                   m_shown + 1, foreign);
    m_enabled->setChecked(b.enabled != 0);
    m_frame->board()->setSchedule(b.schedule);
    m_frame->board()->update();
}

void RecordSchedulePage::collectValues() {
    if (!isOpened())
        return;
    RecordScheduleBlock& b = blocks().editAs<RecordScheduleBlock>(m_slots[size_t(m_shown)]);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    // The schedule itself is edited in place by the board.
}

void RecordSchedulePage::beforeWrite() {
    // A set names its channel in the record; a short reply may have left it zero.
    for (size_t ch = 0; ch < m_slots.size(); ++ch)
        if (blocks().isModified(m_slots[ch]))
            blocks().editAs<RecordScheduleBlock>(m_slots[ch]).channel = uint8_t(ch);
}

void RecordSchedulePage::channelChosen() {
    if (!isOpened())
        return;
    collectValues();
    showValues();
}

void RecordSchedulePage::copyToAllChannels() {
    if (!isOpened())
        return;
    m_copyHandler.copyChannel(m_shown, ~uint64_t(0));
    markEdited();
}

void RecordSchedulePage::restoreDefaults() {
    if (!isOpened())
        return;
    // Factory setting: every channel records continuously, or on motion where continuous
    // recording is not offered.
    const uint8_t fill = DeviceProfile::current().enableNormalRecord ? ScheduleGrid::kRecordNormal
                                                                     : ScheduleGrid::kRecordMotion;
    for (size_t ch = 0; ch < m_slots.size(); ++ch) {
        RecordScheduleBlock& b = blocks().editAs<RecordScheduleBlock>(m_slots[ch]);
        b.channel = uint8_t(ch);
        b.enabled = 1;
        std::memset(b.schedule, fill, sizeof b.schedule);
    }
    showValues();
    markEdited();
}
