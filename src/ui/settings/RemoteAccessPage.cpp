#include "ui/settings/RemoteAccessPage.h"

#include "model/UiManager.h"
#include "protocol/DeviceParamBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/UiLook.h"
#include "ui/settings/QrCodeView.h"

namespace {

constexpr int kQrSideDesign = 300; // pixels at 1920x1080
constexpr int kMarginDesign = 24;

} // namespace

RemoteAccessPage::RemoteAccessPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::RemoteAccess, parent) {
    m_slot = blocks().declare<DeviceParamBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_deviceId = new VyLabel(this);
    addRow(TextId::Settings::DeviceId, m_deviceId);
    m_status = new VyLabel(this);
    addRow(TextId::Settings::RemoteAccess, m_status);
    m_qr = new QrCodeView(this);
    m_qr->show();
    if (UiManager* ui = UiManager::instance())
        VyObject::connect(ui, &ui->networkStatusChanged, this,
                          VY_SLOT(RemoteAccessPage, showStatus));
    showStatus();
}

void RemoteAccessPage::showStatus() {
    const UiManager* ui = UiManager::instance();
    m_status->setTextId(ui != nullptr && ui->networkStatus() != 0 ? TextId::Settings::Online
                                                                  : TextId::Settings::Offline);
}

void RemoteAccessPage::showValues() {
    const auto& b = blocks().editAs<DeviceParamBlock>(m_slot);
    m_enabled->setChecked(b.remoteAccessEnabled != 0);
    const VyString id = VyString::number(b.deviceId);
    m_deviceId->setText(id);
    m_qr->setText(id);
}

void RemoteAccessPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<DeviceParamBlock>(m_slot);
    const auto& saved = blocks().savedAs<DeviceParamBlock>(m_slot);
    // Any non-zero word means on; keep App's own word while the box still says so.
    const bool on = m_enabled->isChecked();
    b.remoteAccessEnabled =
        on == (saved.remoteAccessEnabled != 0) ? saved.remoteAccessEnabled : uint32_t(on ? 1 : 0);
}

void RemoteAccessPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int side = UiLook::scaledY(kQrSideDesign);
    m_qr->setGeometry(UiLook::scaledX(kMarginDesign), rowsBottom(), side, side);
}
