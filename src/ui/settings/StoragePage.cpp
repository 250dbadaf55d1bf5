#include "ui/settings/StoragePage.h"

#include "protocol/DiskGroupBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

namespace {

// Pixels at 1920x1080.
constexpr int kMarginDesign = 24;
constexpr int kRowHeightDesign = 44;
constexpr int kGapDesign = 12;
constexpr int kSelectWidthDesign = 220;
constexpr int kSpaceWidthDesign = 420;
constexpr int kStateWidthDesign = 240;
constexpr int kHealthWidthDesign = 200;
constexpr int kButtonWidthDesign = 200;
constexpr uint32_t kMbPerGb = 1024;

constexpr uint32_t kStateTexts[] = {
    TextId::Settings::StateNormal, TextId::Settings::StateUnformatted, TextId::Settings::StateError,
    TextId::Settings::StateFormatting};
constexpr uint32_t kHealthTexts[] = {TextId::Settings::HealthGood, TextId::Settings::HealthWarning,
                                     TextId::Settings::HealthFailing};

} // namespace

StoragePage::StoragePage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Storage, parent) {
    m_slot = blocks().declare<DiskGroupBlock>();
    m_overwrite = new VyCheckBox(this);
    addRow(TextId::Settings::Overwrite, m_overwrite);
    watch(m_overwrite, &m_overwrite->toggled);
    m_format = new VyPushButton(VyTranslation::tr(TextId::Settings::Format), this);
    m_format->show();
    VyObject::connect(m_format, &m_format->clicked, this, VY_SLOT(StoragePage, formatClicked));
}

void StoragePage::opened() {
    const auto& b = blocks().savedAs<DiskGroupBlock>(m_slot);
    const int disks = clampForDisplay(b.diskCount, 0, DiskGroupBlock::kMaxDisks, "disk count");
    for (int d = 0; d < disks; ++d) {
        DiskRow row;
        row.select = new VyCheckBox(
            VyTranslation::tr(TextId::Settings::Disk) + " " + VyString::number(d + 1), this);
        row.space = new VyLabel(this);
        row.state = new VyLabel(this);
        row.health = new VyLabel(this);
        row.progress = new VyProgressBar(this);
        row.progress->setRange(0, 100);
        for (VyWidget* w : {static_cast<VyWidget*>(row.select), static_cast<VyWidget*>(row.space),
                            static_cast<VyWidget*>(row.state), static_cast<VyWidget*>(row.health)})
            w->show();
        m_rows.push_back(row);
    }
    resizeEvent(nullptr);
}

void StoragePage::showValues() {
    const auto& b = blocks().editAs<DiskGroupBlock>(m_slot);
    m_overwrite->setChecked(b.overwrite != 0);
    for (size_t d = 0; d < m_rows.size(); ++d) {
        const DiskGroupBlock::Disk& disk = b.disks[d];
        const DiskRow& row = m_rows[d];
        if (!disk.present) {
            row.space->setTextId(TextId::Settings::NoDisk);
            row.state->setText(VyString());
            row.health->setText(VyString());
            row.progress->hide();
            continue;
        }
        row.space->setText(VyTranslation::tr(TextId::Settings::CapacityFree)
                               .arg(int(disk.capacityMB / kMbPerGb))
                               .arg(int(disk.freeMB / kMbPerGb)));
        const int state =
            clampForDisplay(disk.state, 0, DiskGroupBlock::StateFormatting, "disk state");
        // An unknown state reads as an error rather than as healthy.
        row.state->setTextId(disk.state > DiskGroupBlock::StateFormatting
                                 ? TextId::Settings::StateError
                                 : kStateTexts[state]);
        row.health->setTextId(kHealthTexts[clampForDisplay(
            disk.health, 0, DiskGroupBlock::HealthFailing, "disk health")]);
        const bool formatting = disk.state == DiskGroupBlock::StateFormatting;
        row.progress->setVisible(formatting);
        row.progress->setValue(clampForDisplay(disk.formatPercent, 0, 100, "format progress"));
    }
}

void StoragePage::collectValues() {
    if (!isOpened())
        return;
    blocks().editAs<DiskGroupBlock>(m_slot).overwrite = m_overwrite->isChecked() ? 1 : 0;
}

bool StoragePage::formatSelected() {
    if (!isOpened())
        return false;
    const auto& b = blocks().editAs<DiskGroupBlock>(m_slot);
    uint8_t mask = 0;
    for (size_t d = 0; d < m_rows.size(); ++d)
        if (m_rows[d].select->isChecked() && b.disks[d].present &&
            b.disks[d].state != DiskGroupBlock::StateFormatting)
            mask |= uint8_t(1u << d);
    if (mask == 0)
        return false;
    if (m_confirm && !m_confirm())
        return false;
    VY_GUI_LOG("format requested for disks 0x%02x\n", mask);
    blocks().editAs<DiskGroupBlock>(m_slot).formatRequest = mask;
    for (const DiskRow& row : m_rows)
        row.select->setChecked(false);
    apply();
    return true;
}

void StoragePage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int x0 = UiLook::scaledX(kMarginDesign), h = UiLook::scaledY(kRowHeightDesign);
    const int gap = UiLook::scaledX(kGapDesign);
    int y = rowsBottom();
    for (const DiskRow& row : m_rows) {
        int x = x0;
        auto place = [&](VyWidget* w, int design) {
            w->setGeometry(x, y, UiLook::scaledX(design), h);
            x += UiLook::scaledX(design) + gap;
        };
        place(row.select, kSelectWidthDesign);
        place(row.space, kSpaceWidthDesign);
        place(row.state, kStateWidthDesign);
        place(row.health, kHealthWidthDesign);
        row.progress->setGeometry(x, y + h / 4, width() - x - x0, h / 2);
        y += h + UiLook::scaledY(kGapDesign);
    }
    m_format->setGeometry(x0, y + UiLook::scaledY(kGapDesign), UiLook::scaledX(kButtonWidthDesign),
                          h);
}
