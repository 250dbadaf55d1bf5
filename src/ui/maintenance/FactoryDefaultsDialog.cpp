#include "ui/maintenance/FactoryDefaultsDialog.h"

#include "model/MaintenanceLink.h"
#include "protocol/FactoryDefaults.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

namespace {

// Pixels at 1920x1080.
constexpr int kDesignWidth = 900;
constexpr int kDesignHeight = 420;
constexpr int kMarginDesign = 24;
constexpr int kRowDesign = 48;
constexpr int kButtonDesign = 220;

struct Group {
    uint32_t bit;
    uint32_t textId;
};
constexpr Group kGroups[FactoryDefaultsDialog::kGroupCount] = {
    {FactoryDefaultsRequest::kKeepNetwork, TextId::Settings::Network},
    {FactoryDefaultsRequest::kKeepRecording, TextId::Settings::Record},
    {FactoryDefaultsRequest::kKeepGeneral, TextId::Settings::General},
};

} // namespace

FactoryDefaultsDialog::FactoryDefaultsDialog()
    : m_text(new VyLabel(this))
    , m_keepCaption(new VyLabel(this))
    , m_status(new VyLabel(this))
    , m_load(new VyPushButton(VyTranslation::tr(TextId::Maintenance::LoadDefaults), this))
    , m_close(new VyPushButton(VyTranslation::tr(TextId::Common::Close), this)) {
    setTitleId(TextId::Maintenance::LoadDefaults);
    m_text->setTextId(TextId::Maintenance::DefaultsQuestion);
    m_keepCaption->setTextId(TextId::Common::Keep);
    for (int i = 0; i < kGroupCount; ++i) {
        m_keep[i] = new VyCheckBox(VyTranslation::tr(kGroups[i].textId), this);
        // The network is kept unless the user says otherwise: losing it cuts remote clients off.
        m_keep[i]->setChecked(kGroups[i].bit == FactoryDefaultsRequest::kKeepNetwork);
    }
    connect(m_load, &m_load->clicked, this, VY_SLOT(FactoryDefaultsDialog, loadClicked));
    connect(m_close, &m_close->clicked, this, VY_SLOT(VyDialog, reject));
    for (VyObject* o : children())
        if (o->inherits("VyWidget"))
            static_cast<VyWidget*>(o)->show();
    place(kDesignWidth, kDesignHeight);
}

uint32_t FactoryDefaultsDialog::keepMask() const {
    uint32_t mask = 0;
    for (int i = 0; i < kGroupCount; ++i)
        if (m_keep[i]->isChecked())
            mask |= kGroups[i].bit;
    return mask;
}

bool FactoryDefaultsDialog::load() {
    if (m_loaded)
        return false;
    const uint32_t keep = keepMask();
    VyPointer<FactoryDefaultsDialog> self(this);
    const auto answer = MaintenanceLink::loadDefaults(keep); // runs the event loop
    if (!self)
        return false;
    if (!answer || answer->result != 0) {
        m_status->setText(VyTranslation::tr(TextId::Maintenance::AnswerRefused));
        return false;
    }
    m_loaded = true;
    VyString kept;
    for (const Group& g : kGroups) {
        if ((keep & g.bit) == 0)
            continue;
        if (!kept.isEmpty())
            kept += ", ";
        kept += VyTranslation::tr(g.textId);
    }
    m_status->setText(VyTranslation::tr(TextId::Maintenance::DefaultsDone)
                          .arg(kept.isEmpty() ? VyString("-") : kept));
    m_load->setEnabled(false);
    VY_GUI_LOG("factory defaults loaded, %u blocks reset\n", answer->blocksReset);
    return true;
}

VyString FactoryDefaultsDialog::statusText() const {
    return m_status->text();
}

void FactoryDefaultsDialog::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect c = contentRect();
    const int m = UiLook::scaledX(kMarginDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int button = UiLook::scaledX(kButtonDesign);
    const int left = c.x() + m, right = c.x() + c.width() - m;
    int y = c.y() + m / 2;
    m_text->setGeometry(left, y, right - left, row);
    y += row + m / 2;
    m_keepCaption->setGeometry(left, y, button / 2, row);
    int x = left + button / 2;
    const int box = (right - x) / kGroupCount;
    for (VyCheckBox* b : m_keep) {
        b->setGeometry(x, y, box, row);
        x += box;
    }
    y += row + m / 2;
    m_status->setGeometry(left, y, right - left, row);
    const int bottom = c.y() + c.height() - m / 2;
    m_load->setGeometry(right - 2 * button - m, bottom - row, button, row);
    m_close->setGeometry(right - button, bottom - row, button, row);
}
