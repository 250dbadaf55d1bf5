#include "ui/settings/EmailSchedulePage.h"

#include "protocol/EmailScheduleBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/EmailScheduleFrame.h"

namespace {

// In the board's bit order.
constexpr uint32_t kTypeTexts[EmailSchedulePage::kTypes] = {
    TextId::Settings::TypeMotion, TextId::Settings::TypeAlarm, TextId::Settings::TypeException,
    TextId::Settings::TypeIntelligent, TextId::Settings::TypePir};
// Pixels at 1920x1080.
constexpr int kMarginDesign = 24;
constexpr int kButtonWidthDesign = 280;
constexpr int kButtonHeightDesign = 44;
constexpr int kGapDesign = 12;

} // namespace

EmailSchedulePage::EmailSchedulePage(VyWidget* parent)
    : SettingsPage(TextId::Settings::EmailSchedule, parent) {
    m_slot = blocks().declare<EmailScheduleBlock>();
    for (int bit = 0; bit < kTypes; ++bit) {
        m_types[bit] = new VyPushButton(VyTranslation::tr(kTypeTexts[bit]), this);
        m_types[bit]->setCheckable(true);
        m_types[bit]->show();
        VyObject::connect(m_types[bit], &m_types[bit]->clicked, this,
                          VY_SLOT(EmailSchedulePage, typeChosen));
    }
    m_frame = new EmailScheduleFrame(this);
    m_frame->show();
    watch(m_frame->board(), &m_frame->board()->scheduleEdited);
    selectType(0);
}

void EmailSchedulePage::selectType(int bit) {
    for (int i = 0; i < kTypes; ++i)
        m_types[i]->setChecked(i == bit);
    m_frame->board()->setCurrentType(uint8_t(bit));
}

void EmailSchedulePage::typeChosen(VyObject* sender) {
    for (int bit = 0; bit < kTypes; ++bit)
        if (m_types[bit] == sender)
            selectType(bit);
}

void EmailSchedulePage::showValues() {
    m_frame->board()->setSchedule(blocks().editAs<EmailScheduleBlock>(m_slot).schedule);
    m_frame->board()->update();
}

void EmailSchedulePage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int margin = UiLook::scaledX(kMarginDesign), gap = UiLook::scaledX(kGapDesign);
    const int bw = UiLook::scaledX(kButtonWidthDesign), bh = UiLook::scaledY(kButtonHeightDesign);
    int x = margin;
    for (VyPushButton* b : m_types) {
        b->setGeometry(x, margin, bw, bh);
        x += bw + gap;
    }
    const int top = margin + bh + UiLook::scaledY(kGapDesign);
    m_frame->setGeometry(margin, top, width() - 2 * margin, height() - top - margin);
}
