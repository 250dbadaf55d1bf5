#include "ui/settings/MaintenancePage.h"

#include "model/MaintenanceLink.h"
#include "protocol/AutoRestartBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/UiLook.h"
#include "ui/maintenance/FactoryDefaultsDialog.h"
#include "ui/maintenance/SystemLogWindow.h"
#include "ui/maintenance/UpgradeWindow.h"

namespace {

// Pixels at 1920x1080.
constexpr int kButtonWidthDesign = 340; // "Export configuration" in the longer languages
constexpr int kButtonHeightDesign = 48;
constexpr int kGapDesign = 24;
// The factory schedule: off, and when switched on, Sundays at 03:00, the quietest hour.
constexpr uint8_t kDefaultDay = 1;
constexpr uint8_t kDefaultHour = 3;

constexpr uint32_t kDays[AutoRestartBlock::kMaxDay] = {
    TextId::Settings::Sunday,    TextId::Settings::Monday,   TextId::Settings::Tuesday,
    TextId::Settings::Wednesday, TextId::Settings::Thursday, TextId::Settings::Friday,
    TextId::Settings::Saturday};

// A window over the settings that deletes itself when closed.
template <typename Window>
void openOver() {
    auto* w = new Window;
    VyObject::connect(w, &w->finished, w, VY_SLOT(VyObject, deleteLater));
    w->show();
}

} // namespace

MaintenancePage::MaintenancePage(VyWidget* parent)
    : SettingsPage(TextId::Maintenance::Title, parent)
    , m_confirmImport(&MaintenancePage::askWithMessageBox) {
    m_slot = blocks().declare<AutoRestartBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Maintenance::AutoRestart, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_day = new VyComboBox(this);
    m_day->addItem(VyTranslation::tr(TextId::Maintenance::EveryDay), AutoRestartBlock::kEveryDay);
    for (int d = 0; d < AutoRestartBlock::kMaxDay; ++d)
        m_day->addItem(VyTranslation::tr(kDays[d]), d + 1);
    addRow(TextId::Maintenance::Day, m_day);
    watch(m_day, &m_day->currentIndexChanged);
    m_time = new VyTimeEdit(this);
    addRow(TextId::Maintenance::Time, m_time);
    watch(m_time, &m_time->timeChanged);
    m_log = new VyPushButton(VyTranslation::tr(TextId::Maintenance::LogTitle), this);
    connect(m_log, &m_log->clicked, this, VY_SLOT(MaintenancePage, openLog));
    m_upgrade = new VyPushButton(VyTranslation::tr(TextId::Maintenance::Upgrade), this);
    connect(m_upgrade, &m_upgrade->clicked, this, VY_SLOT(MaintenancePage, openUpgrade));
    m_defaults = new VyPushButton(VyTranslation::tr(TextId::Maintenance::LoadDefaults), this);
    connect(m_defaults, &m_defaults->clicked, this, VY_SLOT(MaintenancePage, openDefaults));
    m_export = new VyPushButton(VyTranslation::tr(TextId::Maintenance::ExportConfig), this);
    connect(m_export, &m_export->clicked, this, VY_SLOT(MaintenancePage, exportClicked));
    m_import = new VyPushButton(VyTranslation::tr(TextId::Maintenance::ImportConfig), this);
    connect(m_import, &m_import->clicked, this, VY_SLOT(MaintenancePage, importClicked));
    for (VyPushButton* b : {m_log, m_upgrade, m_defaults, m_export, m_import})
        b->show();
    m_status = new VyLabel(this);
    m_status->show();
}

void MaintenancePage::showValues() {
    const auto& b = blocks().editAs<AutoRestartBlock>(m_slot);
    m_enabled->setChecked(b.enabled != 0);
    const int day = clampForDisplay(b.day, 0, AutoRestartBlock::kMaxDay, "restart day");
    if (m_day->currentIndex() != day)
        m_day->setCurrentIndex(day);
    const VyTime at(clampForDisplay(b.hour, 0, 23, "restart hour"),
                    clampForDisplay(b.minute, 0, 59, "restart minute"));
    if (m_time->time() != at)
        m_time->setTime(at);
}

void MaintenancePage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<AutoRestartBlock>(m_slot);
    const auto& saved = blocks().savedAs<AutoRestartBlock>(m_slot);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.day = uint8_t(fromControl(saved.day, 0, AutoRestartBlock::kMaxDay, m_day->currentIndex()));
    b.hour = uint8_t(fromControl(saved.hour, 0, 23, m_time->time().hour()));
    b.minute = uint8_t(fromControl(saved.minute, 0, 59, m_time->time().minute()));
}

void MaintenancePage::restoreDefaults() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<AutoRestartBlock>(m_slot);
    b.enabled = 0;
    b.day = kDefaultDay;
    b.hour = kDefaultHour;
    b.minute = 0;
    showValues();
    markEdited();
}

void MaintenancePage::openLog() {
    openOver<SystemLogWindow>();
}

void MaintenancePage::openUpgrade() {
    auto* w = new UpgradeWindow;
    VyObject::connect(w, &w->finished, w, VY_SLOT(VyObject, deleteLater));
    w->show();
    w->refresh(); // asks App for the files on the stick
}

void MaintenancePage::openDefaults() {
    openOver<FactoryDefaultsDialog>();
}

bool MaintenancePage::askWithMessageBox() {
    VyMessageBox box(VyMessageBox::Warning, VyString(), VyMessageBox::Yes | VyMessageBox::No);
    box.setTextId(TextId::Maintenance::ImportQuestion);
    return box.exec() == VyMessageBox::Yes;
}

bool MaintenancePage::importConfig() {
    VyPointer<MaintenancePage> self(this);
    const bool confirmed = m_confirmImport && m_confirmImport(); // may run the event loop
    return self && confirmed && transferConfig(false);
}

bool MaintenancePage::transferConfig(bool toStick) {
    VyPointer<MaintenancePage> self(this);
    const auto answer = MaintenanceLink::transferConfig(toStick); // runs the event loop
    if (!self)
        return false;
    uint32_t text = TextId::Maintenance::AnswerRefused;
    if (answer) {
        switch (answer->result) {
        case ConfigTransferAnswer::kDone:
            text =
                toStick ? TextId::Maintenance::ConfigExported : TextId::Maintenance::ConfigImported;
            break;
        case ConfigTransferAnswer::kNoDevice:
            text = TextId::Playback::NoUsbDevice;
            break;
        case ConfigTransferAnswer::kNoSpace:
            text = TextId::Playback::UsbFull;
            break;
        case ConfigTransferAnswer::kNoFile:
            text = TextId::Maintenance::NoConfigFile;
            break;
        default:
            text = TextId::Maintenance::ConfigDamaged;
            break;
        }
    }
    m_status->setText(VyTranslation::tr(text));
    VY_GUI_LOG("configuration %s the USB stick: %s\n", toStick ? "to" : "from",
               m_status->text().c_str());
    return answer && answer->result == ConfigTransferAnswer::kDone;
}

VyString MaintenancePage::statusText() const {
    return m_status->text();
}

void MaintenancePage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int gap = UiLook::scaledX(kGapDesign);
    const int bw = UiLook::scaledX(kButtonWidthDesign), bh = UiLook::scaledY(kButtonHeightDesign);
    const int y = rowsBottom() + gap;
    m_log->setGeometry(gap, y, bw, bh);
    m_upgrade->setGeometry(2 * gap + bw, y, bw, bh);
    m_defaults->setGeometry(3 * gap + 2 * bw, y, bw, bh);
    const int y2 = y + bh + gap;
    m_export->setGeometry(gap, y2, bw, bh);
    m_import->setGeometry(2 * gap + bw, y2, bw, bh);
    m_status->setGeometry(gap, y2 + bh + gap, width() - 2 * gap, bh);
}
