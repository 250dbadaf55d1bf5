#include "ui/settings/ScheduleTypesPage.h"

#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/ScheduleBoard.h"
#include "ui/settings/ScheduleFrame.h"

namespace {

// Pixels at 1920x1080.
constexpr int kMarginDesign = 24;
constexpr int kButtonWidthDesign = 280;
constexpr int kButtonHeightDesign = 44;
constexpr int kGapDesign = 12;

} // namespace

ScheduleTypesPage::ScheduleTypesPage(uint32_t titleId, VyWidget* parent)
    : SettingsPage(titleId, parent) {}

void ScheduleTypesPage::setUp(ScheduleFrame* frame, const std::vector<uint32_t>& typeTexts) {
    m_frame = frame;
    m_frame->show();
    watch(m_frame->board(), &m_frame->board()->scheduleEdited);
    for (uint32_t text : typeTexts) {
        auto* b = new VyPushButton(VyTranslation::tr(text), this);
        b->setCheckable(true);
        b->show();
        VyObject::connect(b, &b->clicked, this, VY_SLOT(ScheduleTypesPage, typeChosen));
        m_types.push_back(b);
    }
    selectType(0);
}

void ScheduleTypesPage::selectType(int bit) {
    for (size_t i = 0; i < m_types.size(); ++i)
        m_types[i]->setChecked(int(i) == bit);
    m_frame->board()->setCurrentType(uint8_t(bit));
}

void ScheduleTypesPage::typeChosen(VyObject* sender) {
    for (size_t bit = 0; bit < m_types.size(); ++bit)
        if (m_types[bit] == sender)
            selectType(int(bit));
}

void ScheduleTypesPage::showValues() {
    m_frame->board()->setSchedule(schedule());
    m_frame->board()->update();
}

void ScheduleTypesPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    if (m_frame == nullptr)
        return;
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
