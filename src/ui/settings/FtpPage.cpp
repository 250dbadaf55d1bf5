#include "ui/settings/FtpPage.h"

#include "protocol/FtpBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"

#include <cstddef>

namespace {

constexpr int kMaxPort = 65535;

} // namespace

FtpPage::FtpPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Ftp, parent) {
    m_slot = blocks().declare<FtpBlock>();
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_server =
        addTextRow(TextId::Settings::Server, offsetof(FtpBlock, server), sizeof FtpBlock::server);
    m_port = new VySpinBox(this);
    m_port->setRange(1, kMaxPort);
    addRow(TextId::Settings::Port, m_port);
    watch(m_port, &m_port->valueChanged);
    addTextRow(TextId::Settings::UserName, offsetof(FtpBlock, user), sizeof FtpBlock::user);
    addTextRow(TextId::Settings::Password, offsetof(FtpBlock, password), sizeof FtpBlock::password,
               true);
    m_folder = addTextRow(TextId::Settings::RemoteFolder, offsetof(FtpBlock, folder),
                          sizeof FtpBlock::folder);
}

void FtpPage::showValues() {
    const auto& b = blocks().editAs<FtpBlock>(m_slot);
    m_enabled->setChecked(b.enabled != 0);
    showSpin(m_port, clampForDisplay(b.port, 1, kMaxPort, "FTP port"));
    showTexts(&b);
}

void FtpPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<FtpBlock>(m_slot);
    const auto& saved = blocks().savedAs<FtpBlock>(m_slot);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.port = uint16_t(fromControl(saved.port, 1, kMaxPort, m_port->value()));
    collectTexts(&b, &saved);
}
