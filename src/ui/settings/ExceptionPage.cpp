#include "ui/settings/ExceptionPage.h"

#include "model/DeviceProfile.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/UiLook.h"
#include "ui/settings/BitMaskChecks.h"

namespace {

constexpr uint32_t kKindTexts[ExceptionBlock::KindCount] = {
    TextId::Settings::DiskFull, TextId::Settings::DiskError, TextId::Settings::VideoLoss};
// Pixels at 1920x1080.
constexpr int kMarginDesign = 24;
constexpr int kLabelWidthDesign = 320;
constexpr int kCheckWidthDesign = 220;
constexpr int kRowHeightDesign = 44;
constexpr int kGapDesign = 12;

} // namespace

ExceptionPage::ExceptionPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::TypeException, parent) {
    m_slot = blocks().declare<ExceptionBlock>();
    const int outputs = std::min(DeviceProfile::current().alarmOutputNum, 8);
    for (int k = 0; k < ExceptionBlock::KindCount; ++k) {
        Row& r = m_rows[k];
        r.label = new VyLabel(this);
        r.label->setTextId(kKindTexts[k]);
        r.label->show();
        auto check = [&](uint32_t textId) {
            auto* b = new VyCheckBox(VyTranslation::tr(textId), this);
            b->show();
            watch(b, &b->toggled);
            return b;
        };
        r.buzzer = check(TextId::Settings::Buzzer);
        r.popup = check(TextId::Settings::PopUp);
        r.email = check(TextId::Settings::Email);
        r.outputs = nullptr;
        if (outputs > 0) {
            r.outputs = new BitMaskChecks(outputs, this);
            r.outputs->show();
            watch(r.outputs, &r.outputs->toggled);
        }
    }
}

void ExceptionPage::showValues() {
    const auto& b = blocks().editAs<ExceptionBlock>(m_slot);
    for (int k = 0; k < ExceptionBlock::KindCount; ++k) {
        const ExceptionBlock::Actions& a = b.actions[k];
        m_rows[k].buzzer->setChecked(a.buzzer != 0);
        m_rows[k].popup->setChecked(a.popup != 0);
        m_rows[k].email->setChecked(a.email != 0);
        if (m_rows[k].outputs != nullptr)
            m_rows[k].outputs->setMask(a.alarmOutputs);
    }
}

void ExceptionPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<ExceptionBlock>(m_slot);
    const auto& saved = blocks().savedAs<ExceptionBlock>(m_slot);
    for (int k = 0; k < ExceptionBlock::KindCount; ++k) {
        ExceptionBlock::Actions& a = b.actions[k];
        a.buzzer = m_rows[k].buzzer->isChecked() ? 1 : 0;
        a.popup = m_rows[k].popup->isChecked() ? 1 : 0;
        a.email = m_rows[k].email->isChecked() ? 1 : 0;
        if (BitMaskChecks* o = m_rows[k].outputs) {
            const uint8_t mine = uint8_t((1u << o->count()) - 1);
            a.alarmOutputs = uint8_t((saved.actions[k].alarmOutputs & ~mine) | o->mask());
        }
    }
}

void ExceptionPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int x0 = UiLook::scaledX(kMarginDesign), h = UiLook::scaledY(kRowHeightDesign);
    const int cw = UiLook::scaledX(kCheckWidthDesign), gap = UiLook::scaledX(kGapDesign);
    int y = UiLook::scaledY(kMarginDesign);
    for (int k = 0; k < ExceptionBlock::KindCount; ++k) {
        m_rows[k].label->setGeometry(x0, y, UiLook::scaledX(kLabelWidthDesign), h);
        int x = x0 + UiLook::scaledX(kLabelWidthDesign);
        for (VyWidget* w :
             {static_cast<VyWidget*>(m_rows[k].buzzer), static_cast<VyWidget*>(m_rows[k].popup),
              static_cast<VyWidget*>(m_rows[k].email)}) {
            w->setGeometry(x, y, cw, h);
            x += cw + gap;
        }
        if (m_rows[k].outputs != nullptr)
            m_rows[k].outputs->setGeometry(x, y, width() - x - x0, h);
        y += h + UiLook::scaledY(kGapDesign);
    }
}
